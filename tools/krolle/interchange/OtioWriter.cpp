#include "OtioWriter.h"

#include "OtioSchema.h"
#include "StoryboardCut.h"

#include "../Timecode.h"

#include <QJsonArray>

using namespace OtioSchema;

namespace {

const QString kMediaKey = QStringLiteral("DEFAULT_MEDIA");

QJsonObject metadataOf(const QJsonObject& facts)
{
    return facts.isEmpty() ? QJsonObject() : QJsonObject { { StoryboardCut::kNamespace, facts } };
}

// The fields every item of a track has, whatever its schema.
QJsonObject item(const QString& schema, const QString& name, const QJsonObject& facts)
{
    return { { kSchemaKey, schema }, { QStringLiteral("metadata"), metadataOf(facts) },
        { QStringLiteral("name"), name } };
}

// The fields of an item that has a length on the track.
void addComposable(QJsonObject& object, const QJsonValue& sourceRange, const QJsonArray& markers)
{
    object.insert(QStringLiteral("source_range"), sourceRange);
    object.insert(QStringLiteral("effects"), QJsonArray());
    object.insert(QStringLiteral("markers"), markers);
    object.insert(QStringLiteral("enabled"), true);
    object.insert(QStringLiteral("color"), QJsonValue());
}

QJsonObject marker(const QString& name, double fps)
{
    QJsonObject object = item(kMarker, name, {});
    object.insert(QStringLiteral("color"), QStringLiteral("GREEN"));
    object.insert(QStringLiteral("marked_range"), timeRange(0, 0, fps));
    object.insert(QStringLiteral("comment"), QString());
    return object;
}

// The clip's picture as an external reference that lasts the clip, or missing media.
QJsonObject mediaOf(const CutClip& cut, double fps)
{
    if (cut.image.isEmpty()) {
        QJsonObject media = item(kMissingReference, QString(), {});
        media.insert(QStringLiteral("available_range"), QJsonValue());
        media.insert(QStringLiteral("available_image_bounds"), QJsonValue());
        return media;
    }
    QJsonObject media = item(kExternalReference, QString(), {});
    media.insert(QStringLiteral("available_range"), timeRange(0, cut.length, fps));
    media.insert(QStringLiteral("available_image_bounds"), QJsonValue());
    media.insert(QStringLiteral("target_url"), cut.image);
    return media;
}

QJsonObject clip(const CutClip& cut, double fps)
{
    QJsonObject object = item(kClip, cut.name, cut.facts);
    QJsonArray markers;
    if (cut.opensShot)
        markers.append(marker(cut.shotName, fps));
    addComposable(object, timeRange(0, cut.length, fps), markers);
    object.insert(QStringLiteral("media_references"), QJsonObject { { kMediaKey, mediaOf(cut, fps) } });
    object.insert(QStringLiteral("active_media_reference_key"), kMediaKey);
    return object;
}

QJsonObject transition(const CutTransition& cut, double fps)
{
    QJsonObject object = item(kTransition, cut.name, cut.facts);
    object.insert(QStringLiteral("in_offset"), rationalTime(cut.inOffset, fps));
    object.insert(QStringLiteral("out_offset"), rationalTime(cut.outOffset, fps));
    object.insert(QStringLiteral("transition_type"), QStringLiteral("SMPTE_Dissolve"));
    return object;
}

QJsonObject container(const QString& schema, const QString& name, const QJsonArray& children)
{
    QJsonObject object = item(schema, name, {});
    addComposable(object, QJsonValue(), QJsonArray());
    object.insert(QStringLiteral("children"), children);
    return object;
}

} // namespace

QJsonObject OtioWriter::write(const StoryboardCut& cut, const Timecode& record)
{
    const double fps = record.rate().framesPerSecond();
    QJsonArray children;
    for (const CutItem& entry : cut.items)
        children.append(entry.isTransition ? transition(entry.transition, fps) : clip(entry.clip, fps));
    QJsonObject track = container(kTrack, QStringLiteral("Storyboard"), children);
    track.insert(QStringLiteral("kind"), QStringLiteral("Video"));
    QJsonObject timeline = item(kTimeline, cut.title, cut.facts);
    timeline.insert(QStringLiteral("global_start_time"), rationalTime(double(record.start()), fps));
    timeline.insert(QStringLiteral("tracks"), container(kStack, QStringLiteral("tracks"), { track }));
    return timeline;
}
