// Test helper: the stream form of properties, as records store them, good and damaged.
#pragma once

#include <QByteArray>
#include <QDataStream>
#include <QString>

#include <functional>
#include <memory>

class KRC_Property;

namespace PropertyBlobs {

/// The property's stream items in the given stream version; with `marked`, preceded by
/// the format mark 0xb0b00000, 473 that current blobs carry.
QByteArray store(KRC_Property const& property, int version, bool marked = false);

/// Raw bytes written by `write` on a stream of the given version (for hand-made damage).
QByteArray raw(int version, std::function<void(QDataStream&)> const& write);

/// A readable one-line summary of a property: kind, name, value, definition and the
/// constraints of its variant, for comparing a property with its reloaded self.
QString summary(KRC_Property const& property);

} // namespace PropertyBlobs
