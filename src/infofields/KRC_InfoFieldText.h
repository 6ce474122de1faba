// A text value of a user field.
#pragma once

#include "infofields/KRC_InfoField.h"

/// A field holding text (kind 1, default size); the value is the text, rich text (HTML)
/// once it has been read from a project file. Threading: as KRC_InfoField.
class KRC_InfoFieldText : public KRC_InfoFieldOf<KRC_InfoFieldText, KRC_InfoFieldDesc::kText>
{
public:
    using KRC_InfoFieldOf::KRC_InfoFieldOf;

    QString const& text() const { return value(); }
    void setText(QString const& text) { setValue(text); }
};
