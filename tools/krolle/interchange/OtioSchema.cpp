#include "OtioSchema.h"

namespace OtioSchema {

const QString kSchemaKey = QStringLiteral("OTIO_SCHEMA");
const QString kTimeline = QStringLiteral("Timeline.1");
const QString kStack = QStringLiteral("Stack.1");
const QString kTrack = QStringLiteral("Track.1");
const QString kClip = QStringLiteral("Clip.2");
const QString kGap = QStringLiteral("Gap.1");
const QString kTransition = QStringLiteral("Transition.1");
const QString kMarker = QStringLiteral("Marker.2");
const QString kMissingReference = QStringLiteral("MissingReference.1");
const QString kExternalReference = QStringLiteral("ExternalReference.1");
const QString kRationalTime = QStringLiteral("RationalTime.1");
const QString kTimeRange = QStringLiteral("TimeRange.1");

QJsonObject rationalTime(double value, double rate)
{
    return { { kSchemaKey, kRationalTime }, { QStringLiteral("rate"), rate }, { QStringLiteral("value"), value } };
}

QJsonObject timeRange(double start, double duration, double rate)
{
    return { { kSchemaKey, kTimeRange }, { QStringLiteral("start_time"), rationalTime(start, rate) },
        { QStringLiteral("duration"), rationalTime(duration, rate) } };
}

QString family(const QString& label)
{
    return label.section(QLatin1Char('.'), 0, 0);
}

} // namespace OtioSchema
