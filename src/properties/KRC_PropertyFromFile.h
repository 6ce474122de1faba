// A property that names a file, with a filter for the editor.
#pragma once

#include "properties/KRC_Property.h"

class KRC_PropertyFromFilePrivate;

/// A KRC_Property (propertyType() 3) with a file filter for the editor that picks the
/// file ("*.*" unless told otherwise). The filter constrains nothing here: it is only
/// stored, copied and handed on. The stream form adds the filter as a QString.
/// Threading: the host's thread.
class KRC_PropertyFromFile : public KRC_Property
{
public:
    explicit KRC_PropertyFromFile(QString const& name);
    KRC_PropertyFromFile(QString const& name, KRC_Property const& other, QString const& fileFilter,
        UT_SharedPtr<KRC_PropertyDefinition> definition);
    KRC_PropertyFromFile(QString const& name, QVariant const& value, QString const& fileFilter,
        UT_SharedPtr<KRC_PropertyDefinition> definition);
    KRC_PropertyFromFile(KRC_PropertyFromFile const& other);
    KRC_PropertyFromFile& operator=(KRC_PropertyFromFile const& other);
    ~KRC_PropertyFromFile() override;

    using KRC_Property::load;
    using KRC_Property::store;
    bool store(QDataStream& out) const override;
    bool load(QDataStream& in) override;
    KRC_Property* clone() const override;
    int propertyType() const override;

    QString const& fileFilter() const;

private:
    KRC_PropertyFromFilePrivate* d;
};
