// A text property read as a list of captions separated by ";".
#pragma once

#include "properties/KRC_Property.h"

#include <QStringList>

class KRC_PropertyFromCaptionListPrivate;

/// A KRC_Property (propertyType() 5) whose text value is a ";"-separated list of
/// captions. captionList() splits the text on first use after each setValue (empty
/// parts skipped) and keeps the result. Every setValue marks the list for a new split,
/// even one that ends up refused. A stream load does not: after a load the list is the
/// one split before it, until the next setValue.
/// The factory does not build this kind, so a stored one does not come back from a blob.
/// Threading: the host's thread.
class KRC_PropertyFromCaptionList : public KRC_Property
{
public:
    explicit KRC_PropertyFromCaptionList(QString const& name);
    KRC_PropertyFromCaptionList(
        QString const& name, KRC_Property const& other, UT_SharedPtr<KRC_PropertyDefinition> definition);
    KRC_PropertyFromCaptionList(
        QString const& name, QVariant const& value, UT_SharedPtr<KRC_PropertyDefinition> definition);
    KRC_PropertyFromCaptionList(KRC_PropertyFromCaptionList const& other);
    KRC_PropertyFromCaptionList& operator=(KRC_PropertyFromCaptionList const& other);
    ~KRC_PropertyFromCaptionList() override;

    bool setValue(KRC_Property const& other) override;
    bool setValue(QVariant const& value) override;
    KRC_Property* clone() const override;
    int propertyType() const override;

    QStringList const& captionList() const;

private:
    KRC_PropertyFromCaptionListPrivate* d;
};
