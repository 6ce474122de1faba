// An image value of a user field.
#pragma once

#include "infofields/KRC_InfoField.h"

/// A field holding an image (kind 2, default size). The image itself is not in the
/// record: the value is its key, a path relative to the project's directory, which a
/// reader resolves as the directory, "/" and the key. Threading: as KRC_InfoField.
class KRC_InfoFieldImage : public KRC_InfoFieldOf<KRC_InfoFieldImage, KRC_InfoFieldDesc::kImage>
{
public:
    using KRC_InfoFieldOf::KRC_InfoFieldOf;

    /// The image's key: its path relative to the project directory.
    QString const& key() const { return value(); }
    void setKey(QString const& key) { setValue(key); }
};
