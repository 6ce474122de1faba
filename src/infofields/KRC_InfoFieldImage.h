// An image value of a user field.
#pragma once

#include "infofields/KRC_InfoField.h"

/// A field holding an image (kind 2, default size). The image itself is not in the
/// record: the value is its key, a path relative to the project's directory, which
/// every reader resolves through fileOf. Threading: as KRC_InfoField.
class KRC_InfoFieldImage : public KRC_InfoFieldOf<KRC_InfoFieldImage, KRC_InfoFieldDesc::kImage>
{
public:
    using KRC_InfoFieldOf::KRC_InfoFieldOf;

    /// The image's key: its path relative to the project directory.
    QString const& key() const { return value(); }
    void setKey(QString const& key) { setValue(key); }

    /// The image file of `key` in `folder`: the folder, "/" and the key, which is the
    /// path the engine keys the drawing by. `folder` is the project's directory, or
    /// another folder a host looks in as well. Null for an empty key.
    static QString fileOf(QString const& folder, QString const& key);
    /// This field's file in `folder`, as fileOf.
    QString file(QString const& folder) const { return fileOf(folder, key()); }
};
