// A local field's layout, carried from one panel to another.
#pragma once

#include "infofields/KRC_InfoFieldDesc.h"

/// The kind and name of a field local to a panel, and the id of the global field in
/// front of which it stands (`position`; `INT_MAX` at the end, -1 when unknown). Made
/// by `KRC_InfoFieldList::copyExtra` and turned back into empty local values by
/// `reserveExtraInfoFields`. A plain value, fields in the object. Threading: whoever
/// holds it.
class KRC_ExtraInfoFieldDesc
{
public:
    KRC_ExtraInfoFieldDesc() = default;
    KRC_ExtraInfoFieldDesc(KRC_InfoFieldDesc::Type type, QString const& name, int position);

    KRC_InfoFieldDesc::Type type() const { return m_type; }
    QString const& name() const { return m_name; }
    int position() const { return m_position; }
    void setType(KRC_InfoFieldDesc::Type type) { m_type = type; }
    void setName(QString const& name) { m_name = name; }
    /// Stores into `position`.
    void setId(int position) { m_position = position; }

    bool isText() const { return KRC_InfoFieldDesc::isText(m_type); }
    bool isImage() const { return KRC_InfoFieldDesc::isImage(m_type); }
    bool isComment() const { return KRC_InfoFieldDesc::isComment(m_type); }

private:
    KRC_InfoFieldDesc::Type m_type = KRC_InfoFieldDesc::kText;
    QString m_name;
    int m_position = -1;
};
