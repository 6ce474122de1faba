// Names of the OpenTimelineIO schema shared by the writer and the reader.
#pragma once

#include <QJsonObject>
#include <QString>

// Keys and schema labels of the OpenTimelineIO JSON form, and the two value
// types every object of it is made of. One place for both directions.
namespace OtioSchema {

extern const QString kSchemaKey; // "OTIO_SCHEMA"
extern const QString kTimeline, kStack, kTrack, kClip, kGap, kTransition, kMarker, kMissingReference,
    kExternalReference, kRationalTime, kTimeRange;

// "RationalTime.1" of value frames at rate.
QJsonObject rationalTime(double value, double rate);
// "TimeRange.1" from start for duration frames, both at rate.
QJsonObject timeRange(double start, double duration, double rate);
// The family of a label: "Clip" for "Clip.2".
QString family(const QString& label);

} // namespace OtioSchema
