#include "OtioReader.h"

#include "OtioSchema.h"
#include "StoryboardCut.h"

#include "../ToolError.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>
#include <limits>

using namespace OtioSchema;

namespace {

// Nested stacks and tracks deeper than this are refused rather than followed.
const int kMostNesting = 64;
// No board is longer than this many frames.
const double kMostFrames = double(std::numeric_limits<qint32>::max());
const unsigned kDefaultFps = 24;

// A value of the document with the place it stands at, for messages.
struct Node
{
    QJsonValue value;
    QString place;

    Node at(const QString& key) const
    {
        return { value.toObject().value(key), place.isEmpty() ? key : place + QLatin1Char('.') + key };
    }
    Node at(int index) const { return { value.toArray().at(index), place + QStringLiteral("[%1]").arg(index) }; }
};

class Reader
{
public:
    Reader(const QString& file, double fps)
        : m_file(file)
        , m_fps(fps)
    {
    }

    ImportedBoard read(const QByteArray& bytes)
    {
        QJsonParseError error;
        const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
        if (error.error != QJsonParseError::NoError)
            throw ToolError::file(QStringLiteral("cannot read %1: not JSON: %2 at byte %3")
                                      .arg(m_file, error.errorString())
                                      .arg(error.offset));
        const Node root { document.isObject() ? QJsonValue(document.object()) : QJsonValue(), QString() };
        expectSchema(root, kTimeline);
        if (m_fps == 0)
            m_fps = documentRate(root);
        const QJsonObject facts
            = root.at(QStringLiteral("metadata")).value.toObject().value(StoryboardCut::kNamespace).toObject();
        const Node track = firstVideoTrack(root);
        if (facts.isEmpty())
            readCut(track);
        else
            readStoryboard(track, facts, root.at(QStringLiteral("metadata")).at(StoryboardCut::kNamespace));
        return m_board;
    }

private:
    [[noreturn]] void refuse(const Node& node, const QString& what) const
    {
        throw ToolError::file(QStringLiteral("cannot read %1: %2: %3")
                                  .arg(m_file, node.place.isEmpty() ? QStringLiteral("the document") : node.place, what));
    }

    QJsonObject object(const Node& node) const
    {
        if (!node.value.isObject())
            refuse(node, QStringLiteral("expected an object"));
        return node.value.toObject();
    }

    QJsonArray array(const Node& node) const
    {
        if (!node.value.isArray())
            refuse(node, QStringLiteral("expected a list"));
        return node.value.toArray();
    }

    QString schemaOf(const Node& node) const
    {
        const QJsonValue label = object(node).value(kSchemaKey);
        if (!label.isString())
            refuse(node, QStringLiteral("no \"OTIO_SCHEMA\""));
        return label.toString();
    }

    void expectSchema(const Node& node, const QString& label) const
    {
        if (family(schemaOf(node)) != family(label))
            refuse(node, QStringLiteral("expected a %1, found \"%2\"").arg(family(label), schemaOf(node)));
    }

    double finite(const Node& node) const
    {
        if (!node.value.isDouble() || !std::isfinite(node.value.toDouble()))
            refuse(node, QStringLiteral("expected a finite number"));
        return node.value.toDouble();
    }

    double rateOf(const Node& time) const
    {
        expectSchema(time, kRationalTime);
        const double rate = finite(time.at(QStringLiteral("rate")));
        if (rate <= 0)
            refuse(time.at(QStringLiteral("rate")), QStringLiteral("a rate must be above 0"));
        return rate;
    }

    // A duration in frames at the board's rate.
    unsigned frames(const Node& time) const
    {
        const double rate = rateOf(time);
        const double value = finite(time.at(QStringLiteral("value"))) * m_fps / rate;
        if (value < 0 || value > kMostFrames)
            refuse(time, QStringLiteral("a duration must be from 0 to %1 frames").arg(qint64(kMostFrames)));
        return unsigned(std::llround(value));
    }

    double documentRate(const Node& root) const
    {
        const Node start = root.at(QStringLiteral("global_start_time"));
        if (start.value.isObject())
            return rateOf(start);
        return kDefaultFps;
    }

    Node firstVideoTrack(const Node& root)
    {
        const Node stack = root.at(QStringLiteral("tracks"));
        expectSchema(stack, kStack);
        const Node children = stack.at(QStringLiteral("children"));
        const QJsonArray tracks = array(children);
        int found = -1;
        for (int i = 0; i < tracks.size(); ++i) {
            const Node track = children.at(i);
            const QString kind = object(track).value(QStringLiteral("kind")).toString();
            if (family(schemaOf(track)) == family(kTrack) && kind == QLatin1String("Video") && found < 0)
                found = i;
            else
                m_board.skipped << QStringLiteral("track \"%1\" (%2) at %3: only the first video track is read")
                                       .arg(object(track).value(QStringLiteral("name")).toString(),
                                           kind.isEmpty() ? schemaOf(track) : kind, track.place);
        }
        if (found < 0)
            refuse(children, QStringLiteral("no video track"));
        const Node track = children.at(found);
        skipDecorations(track, true);
        return track;
    }

    static QString counted(int count, const char* what)
    {
        return QStringLiteral("%1 %2%3").arg(count).arg(QLatin1String(what)).arg(count == 1 ? "" : "s");
    }

    // Effects, and markers where the board has no place for them.
    void skipDecorations(const Node& node, bool markersToo)
    {
        const QJsonObject fields = object(node);
        const int effects = fields.value(QStringLiteral("effects")).toArray().size();
        if (effects > 0)
            m_board.skipped << QStringLiteral("%1 at %2").arg(counted(effects, "effect"), node.place);
        const int markers = fields.value(QStringLiteral("markers")).toArray().size();
        if (markersToo && markers > 0)
            m_board.skipped << QStringLiteral("%1 at %2").arg(counted(markers, "marker"), node.place);
    }

    // The length of a clip, gap or nested composition on its track.
    unsigned duration(const Node& item, int depth) const
    {
        const Node range = item.at(QStringLiteral("source_range"));
        if (range.value.isObject()) {
            expectSchema(range, kTimeRange);
            const Node start = range.at(QStringLiteral("start_time"));
            if (!start.value.isNull())
                rateOf(start);
            return frames(range.at(QStringLiteral("duration")));
        }
        const QString kind = family(schemaOf(item));
        if (kind == family(kClip) || kind == family(kGap))
            refuse(range, QStringLiteral("a %1 needs a source range").arg(kind.toLower()));
        if (depth >= kMostNesting)
            refuse(item, QStringLiteral("stacks and tracks nest more than %1 deep").arg(kMostNesting));
        const Node children = item.at(QStringLiteral("children"));
        const QJsonArray list = array(children);
        const bool stacked = kind == family(kStack);
        unsigned long long total = 0;
        for (int i = 0; i < list.size(); ++i) {
            const Node child = children.at(i);
            if (family(schemaOf(child)) == family(kTransition))
                continue;
            const unsigned length = duration(child, depth + 1);
            total = stacked ? std::max<unsigned long long>(total, length) : total + length;
            if (double(total) > kMostFrames)
                refuse(item, QStringLiteral("longer than %1 frames").arg(qint64(kMostFrames)));
        }
        return unsigned(total);
    }

    struct Offsets
    {
        unsigned in = 0;
        unsigned out = 0;
    };

    // A transition's offsets, once its place on the track is checked.
    Offsets transitionAt(const Node& children, int i, const QJsonArray& list)
    {
        const Node transition = children.at(i);
        if (i == 0 || i + 1 == list.size())
            refuse(transition, QStringLiteral("a transition must stand between two items"));
        if (family(schemaOf(children.at(i + 1))) == family(kTransition))
            refuse(children.at(i + 1), QStringLiteral("two transitions side by side"));
        const Offsets offsets { frames(transition.at(QStringLiteral("in_offset"))),
            frames(transition.at(QStringLiteral("out_offset"))) };
        if (offsets.in > duration(children.at(i - 1), 0))
            refuse(transition, QStringLiteral("in_offset is longer than the item before it"));
        if (offsets.out > duration(children.at(i + 1), 0))
            refuse(transition, QStringLiteral("out_offset is longer than the item after it"));
        return offsets;
    }

    void addTransition(const Offsets& offsets, const QJsonObject& facts, int type, int angle, bool reverse)
    {
        ImportedBoard::Transition transition;
        transition.junction = unsigned(m_board.shots.size());
        transition.length = offsets.in + offsets.out;
        transition.type = type;
        transition.angle = angle;
        transition.reverse = reverse;
        if (transition.length == 0)
            return;
        m_board.transitions.append(transition);
        m_board.ids.transitions.push_back(idIn(facts));
    }

    // Gives a transition's frames back to the shots on its sides, so that the
    // board's cut falls where the timeline's did.
    void widenAround(const Offsets& offsets)
    {
        const unsigned length = offsets.in + offsets.out;
        if (length == 0 || m_board.shots.size() < 1)
            return;
        m_board.shots.last().panelLengths.last() += length - length / 2;
        m_pendingWidening = length / 2;
    }

    void addShot(ImportedBoard::Shot shot)
    {
        if (m_pendingWidening > 0 && !shot.panelLengths.isEmpty())
            shot.panelLengths.first() += m_pendingWidening;
        m_pendingWidening = 0;
        for (unsigned& length : shot.panelLengths) {
            if (length > 0)
                continue;
            length = 1; // the engine keeps no panel without a frame
            m_board.skipped << QStringLiteral("shot %1: an empty item became a one-frame panel")
                                   .arg(m_board.shots.size() + 1);
        }
        m_board.shots.append(shot);
    }

    void readCut(const Node& track)
    {
        const Node children = track.at(QStringLiteral("children"));
        const QJsonArray list = array(children);
        for (int i = 0; i < list.size(); ++i) {
            const Node item = children.at(i);
            const QString kind = family(schemaOf(item));
            if (kind == family(kTransition)) {
                const Offsets offsets = transitionAt(children, i, list);
                widenAround(offsets);
                addTransition(offsets, {}, 0, 0, false);
                continue;
            }
            if (kind != family(kClip) && kind != family(kGap) && kind != family(kStack) && kind != family(kTrack))
                refuse(item, QStringLiteral("\"%1\" has no place on a board").arg(schemaOf(item)));
            skipDecorations(item, true);
            ImportedBoard::Shot shot;
            if (kind != family(kGap))
                shot.names.name = object(item).value(QStringLiteral("name")).toString();
            if (shot.names.name.isEmpty())
                shot.names.name = QString();
            shot.panelLengths.append(duration(item, 0));
            addShot(shot);
        }
    }

    QJsonObject factsOf(const Node& item) const
    {
        const Node metadata = item.at(QStringLiteral("metadata"));
        return object(metadata).value(StoryboardCut::kNamespace).toObject();
    }

    // A name from facts: the value if it is custom, null (automatic) if not.
    static QString nameIn(const QJsonObject& facts, const char* name, const char* custom)
    {
        return facts.value(QLatin1String(custom)).toBool() ? facts.value(QLatin1String(name)).toString() : QString();
    }

    unsigned whole(const Node& node, unsigned most) const
    {
        const double value = finite(node);
        if (value < 0 || value > most || value != std::floor(value))
            refuse(node, QStringLiteral("expected a whole number from 0 to %1").arg(most));
        return unsigned(value);
    }

    void readStoryboard(const Node& track, const QJsonObject& facts, const Node& factsNode)
    {
        m_board.sequences = facts.value(QStringLiteral("sequencesExist")).toBool(true);
        m_board.ruleSettings = ruleSettings(facts.value(QStringLiteral("namingRules")).toObject());
        m_board.panelFields = facts.value(QStringLiteral("panelFields")).toArray();
        const bool byShot = facts.value(QStringLiteral("by")).toString() == QLatin1String("shot");
        edgeTransition(factsNode.at(QStringLiteral("openingTransition")));
        const Node children = track.at(QStringLiteral("children"));
        const QJsonArray list = array(children);
        QString shotId;
        for (int i = 0; i < list.size(); ++i) {
            const Node item = children.at(i);
            const QString kind = family(schemaOf(item));
            if (kind == family(kTransition)) {
                const Offsets offsets = transitionAt(children, i, list);
                storyboardTransition(item, offsets);
                shotId.clear();
                continue;
            }
            if (kind != family(kClip))
                refuse(item, QStringLiteral("expected a clip of the storyboard, found \"%1\"").arg(schemaOf(item)));
            skipDecorations(item, false);
            const Node clipFacts = item.at(QStringLiteral("metadata")).at(StoryboardCut::kNamespace);
            const QJsonObject shot = object(clipFacts.at(QStringLiteral("shot")));
            const unsigned length = duration(item, 0) + whole(clipFacts.at(QStringLiteral("hidden")), kMostFrames);
            const QString id = shot.value(QStringLiteral("id")).toString();
            if (byShot || id != shotId || m_board.shots.isEmpty())
                startShot(shot);
            shotId = id;
            if (byShot)
                shotPanels(clipFacts.at(QStringLiteral("panels")), length);
            else
                panel(clipFacts.at(QStringLiteral("panel")), length);
        }
        edgeTransition(factsNode.at(QStringLiteral("closingTransition")));
    }

    static SC_Id idIn(const QJsonObject& facts)
    {
        bool ok = false;
        const quint64 value = facts.value(QStringLiteral("id")).toString().toULongLong(&ok, 0);
        return ok ? SC_Id(value) : SC_Id();
    }

    void startShot(const QJsonObject& shot)
    {
        m_board.ids.shots.push_back(idIn(shot));
        m_board.ids.panels.emplace_back();
        ImportedBoard::Shot names;
        names.names.name = nameIn(shot, "name", "custom");
        names.names.act = nameIn(shot, "act", "actCustom");
        names.names.sequence = nameIn(shot, "sequence", "sequenceCustom");
        m_board.shots.append(names);
    }

    void panel(const Node& facts, unsigned length)
    {
        const QJsonObject panel = object(facts);
        if (length == 0)
            refuse(facts, QStringLiteral("a panel needs at least one frame"));
        m_board.shots.last().panelLengths.append(length);
        m_board.ids.panels.back().push_back(idIn(panel));
        m_board.shots.last().names.panelNames.append(nameIn(panel, "name", "custom"));
        m_board.shots.last().panelFields.append(panel.value(QStringLiteral("fields")).toObject());
        m_board.shots.last().panelTracking.append(panel.value(QStringLiteral("tracking")).toObject());
    }

    // The panels of a shot clip; the last one takes what editorial changed.
    void shotPanels(const Node& facts, unsigned length)
    {
        const QJsonArray panels = array(facts);
        unsigned long long sum = 0;
        for (int i = 0; i < panels.size(); ++i)
            sum += whole(facts.at(i).at(QStringLiteral("length")), kMostFrames);
        if (panels.isEmpty() || sum - whole(facts.at(panels.size() - 1).at(QStringLiteral("length")), kMostFrames) >= length)
            refuse(facts, QStringLiteral("the panels do not fit the clip's %1 frames").arg(length));
        for (int i = 0; i < panels.size(); ++i) {
            const unsigned own = whole(facts.at(i).at(QStringLiteral("length")), kMostFrames);
            panel(facts.at(i), i + 1 == panels.size() ? unsigned(length - (sum - own)) : own);
        }
    }

    void storyboardTransition(const Node& item, const Offsets& offsets)
    {
        const QJsonObject facts = factsOf(item);
        Offsets kept = offsets;
        if (facts.contains(QStringLiteral("length"))) {
            const unsigned length = whole(item.at(QStringLiteral("metadata")).at(StoryboardCut::kNamespace).at(QStringLiteral("length")), kMostFrames);
            kept = { length / 2, length - length / 2 };
        }
        addTransition(kept, facts, facts.value(QStringLiteral("type")).toInt(),
            facts.value(QStringLiteral("angle")).toInt(), facts.value(QStringLiteral("reverse")).toBool());
    }

    void edgeTransition(const Node& node)
    {
        if (!node.value.isObject())
            return;
        const unsigned length = whole(node.at(QStringLiteral("length")), kMostFrames);
        const QJsonObject facts = object(node);
        addTransition({ length, 0 }, facts, facts.value(QStringLiteral("type")).toInt(),
            facts.value(QStringLiteral("angle")).toInt(), facts.value(QStringLiteral("reverse")).toBool());
    }

    // Naming rules that override the preferences, in the words of "krolle rules --set".
    static QStringList ruleSettings(const QJsonObject& rules)
    {
        QStringList settings;
        if (!rules.value(QStringLiteral("overloadingPref")).toBool())
            return settings;
        auto word = [](const QJsonValue& value) {
            return value.isBool() ? (value.toBool() ? QStringLiteral("true") : QStringLiteral("false"))
                                  : QString::number(value.toInt());
        };
        for (auto it = rules.begin(); it != rules.end(); ++it) {
            if (it.value().isObject()) {
                const QJsonObject values = it.value().toObject();
                for (auto field = values.begin(); field != values.end(); ++field)
                    settings << QStringLiteral("%1.%2=%3").arg(it.key(), field.key(), word(field.value()));
            } else if (it.key() != QLatin1String("overloadingPref")) {
                settings << QStringLiteral("%1=%2").arg(it.key(), word(it.value()));
            }
        }
        return settings;
    }

    QString m_file;
    double m_fps;
    ImportedBoard m_board;
    unsigned m_pendingWidening = 0;
};

} // namespace

ImportedBoard OtioReader::read(const QByteArray& bytes, const QString& file, double fps)
{
    return Reader(file, fps).read(bytes);
}
