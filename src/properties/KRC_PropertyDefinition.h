// What several properties can share: two descriptions and two flags.
#pragma once

#include "host/base/HostBase.h"

#include <QString>

class KRC_PropertyDefinitionPrivate;

/// The long and short descriptions of a property and its read-only and internal flags.
///
/// Held through UT_SharedPtr by every property that shares it (a property and its
/// clones share one), so a change of a flag shows on all of them. A default definition
/// has null descriptions, is writable and counts as internal: a definition nobody
/// described is not meant for the user's eyes.
///
/// Copies and assignment take the four fields, never the reference count.
/// Threading: the reference count is atomic and may be taken and dropped on any
/// thread; the fields belong to the thread that owns the properties.
class KRC_PropertyDefinition : public UT_ShareBaseSafe
{
public:
    KRC_PropertyDefinition();
    KRC_PropertyDefinition(QString const& ldesc, QString const& sdesc, bool readOnly, bool internal);
    KRC_PropertyDefinition(KRC_PropertyDefinition const& other);
    KRC_PropertyDefinition& operator=(KRC_PropertyDefinition const& other);
    ~KRC_PropertyDefinition() override;

    QString const& ldesc() const;
    QString const& sdesc() const;
    bool isReadOnly() const;
    bool isInternal() const;

    void setLdesc(QString const& ldesc);
    void setSdesc(QString const& sdesc);
    void setReadOnly(bool readOnly);
    void setInternal(bool internal);

private:
    KRC_PropertyDefinitionPrivate* d;
};
