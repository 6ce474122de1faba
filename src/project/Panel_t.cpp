#include "project/Panel_t.h"

#include "project/ObjectNameHelper.h"

namespace Krolle {

Panel_t::Panel_t(
    AT_FrameBlock const* block, TUScene* symbol, Shot_t const& shot, ObjectNameHelper const* helper)
    : SharedPtr<PanelPrivate>(new PanelPrivate(block, symbol, shot, helper))
{
    // The panel's ends are frames of the symbol: the shot's warp puts them on the timeline.
    if (block) {
        get()->firstFrame = AT_Frame::roundToUnsigned(shotPrivate()->toGlobal(block->firstFrame));
        get()->lastFrame = AT_Frame::roundToUnsigned(shotPrivate()->toGlobal(block->lastFrame));
    }
}

Panel_t::~Panel_t() = default;

SC_Id const& Panel_t::id() const
{
    return get()->id;
}

AT_FrameBlock* Panel_t::frameBlock() const
{
    return get()->block();
}

TUScene* Panel_t::symbol() const
{
    return get()->symbol.get();
}

SC_Id const& Panel_t::sceneId() const
{
    static SC_Id const noScene;
    SC_Id const* scene = get()->sceneIdOfBlock();
    return scene ? *scene : noScene;
}

Shot_t const& Panel_t::shot() const
{
    return get()->shot;
}

KRC_PanelInfo* Panel_t::panelInfo() const
{
    return get()->panelInfo.get();
}

KRC_InfoFieldList* Panel_t::infoFieldList() const
{
    PIO_MetadataAccess<KRC_InfoFieldList>& access = get()->infoFieldList;
    if (!access)
        access = PIO_MetadataAccess<KRC_InfoFieldList>(access.metadatas());
    return access.get();
}

KRC_Tracking* Panel_t::tracking() const
{
    return get()->tracking.get();
}

KRC_LayerInfos* Panel_t::layerInfos() const
{
    return get()->layerInfos.get();
}

KRC_ExposurePoints* Panel_t::exposurePoints() const
{
    return get()->exposurePoints.get();
}

KRC_SoundAnnotation* Panel_t::soundAnnotation() const
{
    return get()->soundAnnotation.get();
}

KRC_PdfOptions* Panel_t::pdfOptions() const
{
    return get()->pdfOptions.get();
}

QString Panel_t::name() const
{
    KRC_PanelInfo const* info = panelInfo();
    if (info && info->name().isCustom())
        return info->name().value();
    ObjectNameHelper const* helper = get()->nameHelper;
    return helper ? helper->getPanelName(*this) : QString();
}

QString Panel_t::shotName() const
{
    return shot().name();
}

QString Panel_t::sequenceName() const
{
    return shot().sequenceName();
}

QString Panel_t::actName() const
{
    return shot().actName();
}

ShotPrivate const* Panel_t::shotPrivate() const
{
    return get()->shot.get();
}

unsigned Panel_t::firstFrame() const
{
    return get()->firstFrame;
}

unsigned Panel_t::lastFrame() const
{
    return get()->lastFrame;
}

unsigned Panel_t::relativeFirstFrame() const
{
    return firstFrame() - shot().firstFrame() + 1;
}

unsigned Panel_t::relativeLastFrame() const
{
    return lastFrame() - shot().firstFrame() + 1;
}

bool Panel_t::isFirstOfShot() const
{
    return firstFrame() == shot().firstFrame();
}

bool Panel_t::isLastOfShot() const
{
    return lastFrame() == shot().lastFrame();
}

bool Panel_t::hasMoreKRPanelInCurKRScene(bool forward) const
{
    return forward ? !isLastOfShot() : !isFirstOfShot();
}

unsigned Panel_t::objNumOfFrame() const
{
    return lastFrame() - firstFrame() + 1;
}

double Panel_t::projectFrameToPanelFrame(unsigned frame) const
{
    return get()->toLocal(shotPrivate()->toLocal(frame));
}

unsigned Panel_t::panelFrameToProjectFrame(double frame) const
{
    double const projectFrame = shotPrivate()->toGlobal(get()->toGlobal(frame));
    return AT_Frame::roundToUnsigned(AT_Frame::roundToUnsigned(projectFrame));
}

double Panel_t::shotFrameToPanelFrame(double frame) const
{
    return get()->toLocal(frame);
}

double Panel_t::panelFrameToShotFrame(double frame) const
{
    return get()->toGlobal(frame);
}

bool Panel_t::operator==(Panel_t const& other) const
{
    return get()->sameObject(*other.get()) && get()->shot == other.get()->shot;
}

bool Panel_t::operator<(Panel_t const& other) const
{
    return get()->idLess(*other.get());
}

} // namespace Krolle
