#include "host/engine/TUElementTimedValue.h"

#include <climits>
#include <cmath>
#include <iterator>
#include <map>

namespace {

// Element ids are process-wide, so that columns of projects loaded side by side
// never share one by accident.
int g_nextElementId = 1;

} // namespace

class TUElementTimedValue::TUElementTimedValuePrivate
{
    HOST_NODE_ARENA_OBJECT

public:
    struct Run
    {
        int lastFrame;
        int drawingId;
    };

    // Both maps keep their entries in the arena, beside the column and its element.
    template <class Value>
    using ArenaMap = std::map<int, Value, std::less<int>, HostNodeArenaAllocator<std::pair<int const, Value>>>;

    CA_DrawingKind kind = CA_DrawingKind::Other;
    // Each drawing's key is made with the drawing and handed out as a copy: a key is
    // immutable and shares its source, so asking for it allocates nothing.
    ArenaMap<CA_CelKey> drawings;
    // Runs of exposure by first frame; they never overlap.
    ArenaMap<Run> runs;

    // The run that holds the frame, or runs.end().
    ArenaMap<Run>::const_iterator runAt(int frame) const
    {
        auto it = runs.upper_bound(frame);
        if (it == runs.begin())
            return runs.end();
        --it;
        return it->second.lastFrame >= frame ? it : runs.end();
    }
};

TUElementTimedValue::TUElementTimedValue(
    SC_SceneCommon* scene, QString const& name, CA_DrawingKind kind, int elementId)
    : TUTimedValue(scene, name)
    , UT_SharedWeakBase(HostNodeArena::trackers())
    , e(new TUElementTimedValuePrivate)
{
    if (elementId < 0)
        elementId = g_nextElementId;
    reserveElementId(elementId);
    m_elementId = elementId;
    e->kind = kind;
}

TUElementTimedValue::~TUElementTimedValue()
{
    delete e;
}

int TUElementTimedValue::elementId() const
{
    return m_elementId;
}

CA_DrawingKind TUElementTimedValue::drawingKind() const
{
    return e->kind;
}

QList<int> TUElementTimedValue::drawingIds() const
{
    QList<int> ids;
    for (auto const& drawing : e->drawings)
        ids << drawing.first;
    return ids;
}

bool TUElementTimedValue::hasDrawing(int drawingId) const
{
    return e->drawings.count(drawingId) != 0;
}

QString TUElementTimedValue::drawingFileName(int drawingId) const
{
    const auto it = e->drawings.find(drawingId);
    return it == e->drawings.end() ? QString() : it->second.source()->fileName();
}

std::vector<TUElementTimedValue::Exposure> TUElementTimedValue::exposures() const
{
    std::vector<Exposure> result;
    result.reserve(e->runs.size());
    for (auto const& run : e->runs)
        result.push_back({ run.first, run.second.lastFrame, run.second.drawingId });
    return result;
}

int TUElementTimedValue::drawingAt(double frame) const
{
    if (!std::isfinite(frame) || frame < 1.0 || frame > double(INT_MAX))
        return -1;
    const auto it = e->runAt(int(std::floor(frame)));
    return it == e->runs.end() ? -1 : it->second.drawingId;
}

CA_CelKey TUElementTimedValue::keyAt(double frame) const
{
    return drawingKey(drawingAt(frame));
}

CA_CelKey TUElementTimedValue::drawingKey(int drawingId) const
{
    const auto it = e->drawings.find(drawingId);
    return it == e->drawings.end() ? CA_CelKey() : it->second;
}

bool TUElementTimedValue::containsDrawing(int elementId, int drawingId) const
{
    if (elementId != m_elementId)
        return false;
    for (auto const& run : e->runs) {
        if (run.second.drawingId == drawingId)
            return true;
    }
    return false;
}

void TUElementTimedValue::reserveElementId(int elementId)
{
    if (elementId >= g_nextElementId && elementId < INT_MAX)
        g_nextElementId = elementId + 1;
}

int TUElementTimedValue::addDrawing(QString const& fileName, int drawingId)
{
    if (drawingId < 0)
        drawingId = e->drawings.empty() ? 1 : e->drawings.rbegin()->first + 1;
    if (e->drawings.count(drawingId)
        || !e->drawings
                .emplace(drawingId,
                    CA_CelKey::madeBy(HostNodeArenaAllocator<CA_CelKeyElement>(),
                        CA_CelKeyElement(m_elementId, drawingId, e->kind, fileName)))
                .second)
        return -1;
    return drawingId;
}

void TUElementTimedValue::expose(int firstFrame, int lastFrame, int drawingId)
{
    auto& runs = e->runs;
    // A run that starts before the range and reaches into it keeps its head, and
    // its tail past the range if it has one.
    auto it = runs.lower_bound(firstFrame);
    if (it != runs.begin()) {
        auto before = std::prev(it);
        if (before->second.lastFrame >= firstFrame) {
            const TUElementTimedValuePrivate::Run cut = before->second;
            before->second.lastFrame = firstFrame - 1;
            if (cut.lastFrame > lastFrame)
                runs.emplace(lastFrame + 1, TUElementTimedValuePrivate::Run { cut.lastFrame, cut.drawingId });
        }
    }
    // Runs that start inside the range lose what the range covers.
    it = runs.lower_bound(firstFrame);
    while (it != runs.end() && it->first <= lastFrame) {
        const TUElementTimedValuePrivate::Run cut = it->second;
        it = runs.erase(it);
        if (cut.lastFrame > lastFrame)
            it = runs.emplace(lastFrame + 1, cut).first;
    }
    if (drawingId >= 0)
        runs.emplace(firstFrame, TUElementTimedValuePrivate::Run { lastFrame, drawingId });
}
