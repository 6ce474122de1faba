#include "host/engine/HostSceneChains.h"

#include <QXmlStreamReader>

#include <unordered_map>

namespace {

// Where scenes and their blocks stand in a project file: <engineProject> (1) holds
// <scene> (2), which holds <sequence> (3), which holds <block> (4).
int const kSceneDepth = 2;
int const kSequenceDepth = 3;
int const kBlockDepth = 4;

// A positive id read from an attribute, or 0 (none, or not a number: the reader
// refuses that in its own words).
quint64 idOf(QXmlStreamReader const& xml, QString const& attribute)
{
    bool ok = false;
    quint64 const id = xml.attributes().value(attribute).toULongLong(&ok);
    return ok ? id : 0;
}

} // namespace

struct HostSceneChains::Private
{
    quint64 scene = 0; // the scene whose element is open, or 0
    bool inSequence = false;
    std::unordered_map<quint64, quint64> shownBy; // scene -> the scene that shows it
    std::unordered_map<quint64, int> below;       // scene -> scenes under it in its longest chain

    int under(quint64 scene) const
    {
        auto const found = below.find(scene);
        return found == below.end() ? 0 : found->second;
    }
    QString link(quint64 shower, quint64 shown);
};

HostSceneChains::HostSceneChains()
    : d(std::make_unique<Private>())
{
}

HostSceneChains::~HostSceneChains() = default;

QString HostSceneChains::startElement(QXmlStreamReader const& xml, int depth)
{
    if (depth == kSceneDepth) {
        d->scene = xml.name() == QLatin1String("scene") ? idOf(xml, QStringLiteral("id")) : 0;
        d->inSequence = false;
    } else if (depth == kSequenceDepth) {
        d->inSequence = d->scene != 0 && xml.name() == QLatin1String("sequence");
    } else if (depth == kBlockDepth && d->inSequence && xml.name() == QLatin1String("block")) {
        QStringRef const kind = xml.attributes().value(QLatin1String("kind"));
        if (kind == QLatin1String("scene") || kind == QLatin1String("warp")) {
            quint64 const shown = idOf(xml, QStringLiteral("scene"));
            if (shown != 0)
                return d->link(d->scene, shown);
        }
    }
    return QString();
}

// Chains are at most maxDepth long and acyclic before each link, so both walks end
// within maxDepth steps.
QString HostSceneChains::Private::link(quint64 shower, quint64 shown)
{
    if (shower == shown || shownBy.count(shown))
        return QString();
    int chain = 2 + under(shown); // shower, shown and what hangs under shown
    for (auto up = shownBy.find(shower); up != shownBy.end(); up = shownBy.find(up->second)) {
        if (up->second == shown)
            return QStringLiteral("scene %1 shows itself through scene %2").arg(shown).arg(shower);
        ++chain;
    }
    if (chain > maxDepth)
        return QStringLiteral("scene %1 is shown through more than %2 scenes").arg(shown).arg(maxDepth);
    shownBy[shown] = shower;
    int depth = 1 + under(shown);
    for (quint64 at = shower;; ++depth) {
        int& known = below[at];
        if (known >= depth)
            break;
        known = depth;
        auto const up = shownBy.find(at);
        if (up == shownBy.end())
            break;
        at = up->second;
    }
    return QString();
}
