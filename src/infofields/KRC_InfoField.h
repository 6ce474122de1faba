// The value of one user field on the project or on a panel.
#pragma once

#include "host/base/UT_ShareBase.h"
#include "infofields/KRC_InfoFieldDesc.h"

#include <climits>

/// A field value: a descriptor (kind, id, size; a name only when the id is negative and
/// the field is local to its list) with a value text, shared through `UT_SharedPtr` by
/// the lists that hold it.
///
/// `nextId` is the id of the field that followed this one when it was taken out of its
/// list (`INT_MAX` when it was last): with it, `insertInfoField(field,
/// field->nextId())` puts the field back. It means something only between a removal
/// and the re-insertion. `dragName` is the name the field had where a drag started.
///
/// A copy takes kind, id, name, size and drag name and starts with `nextId` at
/// `INT_MAX` and a reference count of 0. Threading: the count is not atomic; a field
/// belongs to one thread at a time.
// The count's base goes first, so that a field deletes itself from its own address.
class KRC_InfoField : public UT_ShareBase, public KRC_InfoFieldDesc
{
public:
    KRC_InfoField(Type type, Size size, int id, QString const& name);
    KRC_InfoField(KRC_InfoField const& other);
    ~KRC_InfoField() override;

    virtual QString const& value() const = 0;
    virtual void setValue(QString const& value) = 0;
    /// A new field of the same class with id, value, name, size and drag name; the kind
    /// is the class's own (a comment bit is not carried) and `nextId` is `INT_MAX`.
    virtual KRC_InfoField* clone() const = 0;

    bool isLocal() const { return id() < 0; }
    bool isGlobal() const { return id() >= 0; }

    int nextId() const { return m_nextId; }
    void setNextId(int id) { m_nextId = id; }
    QString const& dragName() const { return m_dragName; }
    void setDragName(QString const& name) { m_dragName = name; }

private:
    KRC_InfoField& operator=(KRC_InfoField const&) = delete;

    int m_nextId = INT_MAX;
    QString m_dragName;
};

/// The value text of a field class of kind `kind`, shared by the text and the image
/// field so that both have one value, one clone and one construction rule.
template <class Derived, KRC_InfoFieldDesc::Type kind> class KRC_InfoFieldOf : public KRC_InfoField
{
public:
    explicit KRC_InfoFieldOf(int id = -1, QString const& value = QString(), QString const& name = QString())
        : KRC_InfoField(kind, kDefault, id, name)
        , m_value(value)
    {
    }

    QString const& value() const override { return m_value; }
    void setValue(QString const& value) override { m_value = value; }
    KRC_InfoField* clone() const override
    {
        auto* copy = new Derived(id(), m_value, name());
        copy->setSize(size());
        copy->setDragName(dragName());
        return copy;
    }

private:
    QString m_value;
};
