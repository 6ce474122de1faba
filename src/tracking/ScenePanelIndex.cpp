#include "tracking/ScenePanelIndex.h"

#include "project/KRC_KrolleProject.h"
#include "project/Panel_t.h"

#include <algorithm>
#include <set>
#include <utility>
#include <vector>

using Krolle::Panel_t;

namespace {

/// Where the panel showing a scene was when the table was made.
struct Place
{
    SC_SceneCommon const* scene;
    SC_Id id;
    unsigned frame;
};

bool sceneBefore(Place const& a, Place const& b)
{
    return std::less<SC_SceneCommon const*>()(a.scene, b.scene);
}

bool showsScene(Panel_t const& panel, SC_Id const& id, SC_SceneCommon const* scene)
{
    return panel.isValid() && panel.id() == id && panel.symbol() && panel.symbol()->sceneCommon() == scene;
}

} // namespace

class ScenePanelIndex::Private
{
public:
    explicit Private(KRC_KrolleProject* owner)
        : view(owner)
    {
    }

    /// The panel still at the place, looked up at its first frame from both sides,
    /// since a transition there makes the frame belong to two shots; else invalid.
    Panel_t panelAt(Place const& place) const
    {
        for (auto side : { KRC_KrolleProject::PreferNext, KRC_KrolleProject::PreferPrevious }) {
            Panel_t panel = view->getPanelAt(place.frame, side);
            if (showsScene(panel, place.id, place.scene))
                return panel;
        }
        return Panel_t::invalid;
    }

    /// One walk of the panels: the table anew, and the walk's answer for `scene`.
    /// Where two panels show one scene the first place stays; both have the scene's id.
    Panel_t rebuild(SC_SceneCommon const* scene)
    {
        places.clear();
        Panel_t match = Panel_t::invalid;
        for (auto it = view->beginPanel(); it != view->endPanel(); ++it) {
            TUScene const* symbol = it->symbol();
            if (!symbol)
                continue;
            places.push_back({ symbol->sceneCommon(), it->id(), it->firstFrame() });
            if (symbol->sceneCommon() == scene && match.isInvalid())
                match = *it;
        }
        framing.clear();
        if (TUScene const* top = view->topScene())
            framing.insert(top->sceneCommon());
        for (auto it = view->beginShot(); it != view->endShot(); ++it)
            if (TUScene const* symbol = it->symbol())
                framing.insert(symbol->sceneCommon());
        std::stable_sort(places.begin(), places.end(), sceneBefore);
        places.erase(std::unique(places.begin(), places.end(),
                         [](Place const& a, Place const& b) { return a.scene == b.scene; }),
            places.end());
        stale = false;
        return match;
    }

    Place const* find(SC_SceneCommon const* scene) const
    {
        Place const key { scene, SC_Id(), 0 };
        auto const found = std::lower_bound(places.begin(), places.end(), key, sceneBefore);
        return found != places.end() && found->scene == scene ? &*found : nullptr;
    }

    KRC_KrolleProject* const view;
    std::vector<Place> places; // sorted by scene
    // The top scene and the shots' symbols: the scenes whose sequences place panels.
    // Another scene becomes one only through a change of the top scene's sequence.
    std::set<SC_SceneCommon const*> framing;
    bool stale = true;
};

ScenePanelIndex::ScenePanelIndex(KRC_KrolleProject* view)
    : d(std::make_unique<Private>(view))
{
}

ScenePanelIndex::~ScenePanelIndex() = default;

Panel_t ScenePanelIndex::panelOf(SC_SceneCommon const* scene)
{
    if (!scene)
        return Panel_t::invalid;
    if (d->stale)
        return d->rebuild(scene);
    Place const* place = d->find(scene);
    if (!place)
        return Panel_t::invalid; // no block has changed since the walk found no panel
    Panel_t panel = d->panelAt(*place);
    return panel.isValid() ? panel : d->rebuild(scene);
}

bool ScenePanelIndex::noteChanges(TUTvSet const& values)
{
    bool const sequenceChanged = std::any_of(values.begin(), values.end(), [this](TUTimedValue* value) {
        return dynamic_cast<TUSeqTimedValue*>(value) && d->framing.count(value->sceneCommon) > 0;
    });
    d->stale = d->stale || sequenceChanged;
    return sequenceChanged;
}

bool ScenePanelIndex::isStale() const
{
    return d->stale;
}
