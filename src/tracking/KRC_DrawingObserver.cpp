#include "tracking/KRC_DrawingObserver.h"

#include "infofields/KRC_InfoFieldImage.h"
#include "infofields/KRC_InfoFieldList.h"
#include "project/KRC_KrolleProject.h"

#include <map>
#include <utility>

class KRC_DrawingObserverPrivate
{
public:
    explicit KRC_DrawingObserverPrivate(KRC_KrolleProject* owner)
        : project(owner)
    {
    }

    KRC_KrolleProject* const project;
    /// Keys already resolved, with their panel's id and node (possibly null). Only grows.
    std::map<CA_CelKey, std::pair<SC_Id, MO_Node*>> knownDrawings;
};

namespace {

/// The node that shows drawing `drawingId` of element `elementId` in the scene: the
/// node linked to the first element column that exposes it. False when none does.
bool findInElements(TUScene const& scene, int elementId, int drawingId, MO_Node*& node)
{
    for (TUTimedValue* value : scene.timedValues()) {
        if (value->typeCode() != TUTimedValue::eExposureType)
            continue;
        auto* column = dynamic_cast<TUElementTimedValue*>(value);
        if (column && column->containsDrawing(elementId, drawingId)) {
            node = column->linkedNodes(0);
            return true;
        }
    }
    return false;
}

/// Whether an image field of the panel's info fields refers to the drawing: the file of
/// the field's key in the project's folder, as a path key of its first image.
bool findInImageFields(Krolle::Panel_t const& panel, QString const& projectDir, CA_CelKey const& celkey)
{
    KRC_InfoFieldList const* fields = panel.infoFieldList();
    if (!fields)
        return false;
    for (KRC_InfoFieldImage const* image : fields->images()) {
        if (CA_CelKey(CA_CelKeyPath(image->file(projectDir), 1, false)).isEquivalent(celkey))
            return true;
    }
    return false;
}

QString projectDirOf(KRC_KrolleProject const& project)
{
    SC_ProjectCommon const* common = project.projectCommon();
    TUDbSceneData const* data = common ? common->dbSceneData() : nullptr;
    return data ? data->projectDir() : QString();
}

} // namespace

KRC_DrawingObserver::KRC_DrawingObserver(KRC_KrolleProject* project)
    : QObject()
    , d(std::make_unique<KRC_DrawingObserverPrivate>(project))
{
    qRegisterMetaType<SC_Id>("SC_Id");
    connect(ca_celCache, &CA_CelCache::DrawingModified, this, &KRC_DrawingObserver::onDrawingModified);
}

KRC_DrawingObserver::~KRC_DrawingObserver() = default;

std::size_t KRC_DrawingObserver::knownDrawingCount() const
{
    return d->knownDrawings.size();
}

void KRC_DrawingObserver::onDrawingModified(CA_CelKey const& celkey, bool isFirstModif)
{
    Q_UNUSED(isFirstModif);
    if (!celkey.isValid())
        return;
    auto known = d->knownDrawings.find(celkey);
    if (known != d->knownDrawings.end()) {
        emit drawingModified(known->second.first, known->second.second);
        return;
    }
    SC_Id panelId;
    MO_Node* node = nullptr;
    if (!findDrawing(celkey, panelId, node))
        return;
    d->knownDrawings.emplace(celkey, std::make_pair(panelId, node));
    emit drawingModified(panelId, node);
}

bool KRC_DrawingObserver::findDrawing(CA_CelKey const& celkey, SC_Id& panelId, MO_Node*& node) const
{
    const QString projectDir = projectDirOf(*d->project);
    const int elementId = CA_CelKeyMgr::id(celkey);
    const int drawingId = CA_CelKeyMgr::drawingId(celkey);
    for (auto panel = d->project->beginPanel(), end = d->project->endPanel(); panel != end; ++panel) {
        TUScene const* scene = panel->symbol();
        if (!scene)
            continue;
        const bool found = elementId >= 0 ? findInElements(*scene, elementId, drawingId, node)
                                          : findInImageFields(*panel, projectDir, celkey);
        if (found) {
            panelId = panel->id();
            return true;
        }
    }
    return false;
}
