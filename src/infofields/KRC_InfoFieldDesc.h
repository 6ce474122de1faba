// The definition of one user field: its kind, id, label and display size.
#pragma once

#include <QString>

/// A field definition as the descriptor lists keep it, and the base of the field values.
///
/// `Type` is a bit mask: text (1), image (2), comment (16); the kinds in use are 1, 2,
/// 17 (a text comment) and 18 (an image comment). `Size` is 0 (minimum), 1 (maximum) or
/// 2 (default). Ids of 0 and above are allotted by a descriptor list; negative ids are
/// local to one value list.
///
/// A small value class: its four fields live in the object itself rather than in a
/// private object, because lists hold them by the thousand (one value per field and
/// panel). Threading: whoever holds the object.
class KRC_InfoFieldDesc
{
public:
    using Type = int;
    using Size = int;

    static constexpr Type kText = 1;
    static constexpr Type kImage = 2;
    static constexpr Type kComment = 16;
    static constexpr Size kMinimum = 0;
    static constexpr Size kMaximum = 1;
    static constexpr Size kDefault = 2;

    /// "Comments": the name of the field that pitch mode uses.
    static QString const commentsField;

    KRC_InfoFieldDesc() = default;
    KRC_InfoFieldDesc(Type type, int id, QString const& name, Size size);
    KRC_InfoFieldDesc(KRC_InfoFieldDesc const& other) = default;
    KRC_InfoFieldDesc& operator=(KRC_InfoFieldDesc const& other) = default;
    virtual ~KRC_InfoFieldDesc();

    static bool isText(Type type) { return (type & kText) != 0; }
    static bool isImage(Type type) { return (type & kImage) != 0; }
    static bool isComment(Type type) { return (type & kComment) != 0; }
    bool isText() const { return isText(m_type); }
    bool isImage() const { return isImage(m_type); }
    bool isComment() const { return isComment(m_type); }

    Type type() const { return m_type; }
    Size size() const { return m_size; }
    int id() const { return m_id; }
    QString const& name() const { return m_name; }
    void setType(Type type) { m_type = type; }
    void setId(int id) { m_id = id; }
    void setName(QString const& name) { m_name = name; }
    void setSize(Size size) { m_size = size; }

private:
    Type m_type = kText;
    int m_id = 0;
    QString m_name;
    Size m_size = kDefault;
};
