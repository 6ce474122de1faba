#include "project/Shot_t.h"

#include "project/ObjectNameHelper.h"

#include <cmath>
#include <limits>

namespace Krolle {

Shot_t::Shot_t(AT_FrameBlock const* block, TUScene* symbol, ObjectNameHelper const* helper)
    : SharedPtr<ShotPrivate>(new ShotPrivate(block, symbol, helper))
{
}

SC_Id const& Shot_t::id() const
{
    return get()->id;
}

AT_FrameBlock* Shot_t::frameBlock() const
{
    return get()->block();
}

TUScene* Shot_t::symbol() const
{
    return get()->symbol.get();
}

SC_Id const& Shot_t::sceneId() const
{
    static SC_Id const noScene;
    SC_Id const* scene = get()->sceneIdOfBlock();
    return scene ? *scene : noScene;
}

KRC_SceneInfo* Shot_t::sceneInfo() const
{
    return get()->sceneInfo.get();
}

QString Shot_t::name() const
{
    KRC_SceneInfo const* info = sceneInfo();
    if (info && info->name().isCustom())
        return info->name().value();
    ObjectNameHelper const* helper = get()->nameHelper;
    return helper ? helper->getSceneName(*this) : QString();
}

namespace {

QString groupName(KRC_ObjectName const* name)
{
    return name && name->isCustom() ? name->value() : QStringLiteral("0");
}

} // namespace

QString Shot_t::sequenceName() const
{
    KRC_SceneInfo const* info = sceneInfo();
    return groupName(info ? &info->sequenceName() : nullptr);
}

QString Shot_t::actName() const
{
    KRC_SceneInfo const* info = sceneInfo();
    return groupName(info ? &info->actName() : nullptr);
}

unsigned Shot_t::firstFrame() const
{
    return get()->firstFrame;
}

unsigned Shot_t::lastFrame() const
{
    return get()->lastFrame;
}

unsigned Shot_t::objNumOfFrame() const
{
    return lastFrame() - firstFrame() + 1;
}

double Shot_t::projectFrameToShotFrame(unsigned frame) const
{
    return get()->toLocal(frame);
}

unsigned Shot_t::shotFrameToProjectFrame(double frame) const
{
    return AT_Frame::roundToUnsigned(get()->toGlobal(frame));
}

unsigned Shot_t::prjFrameToTvFrame(unsigned frame) const
{
    AT_TimeWarpSeq const* warp = get()->timeWarp();
    if (!warp)
        return frame;
    double const tvFrame = std::trunc(frame + warp->start - 1.0);
    // A warp starting below frame 1 can push the first frames below 0: keep them at 0.
    if (!(tvFrame > 0.0))
        return 0;
    if (tvFrame >= double(std::numeric_limits<unsigned>::max()))
        return std::numeric_limits<unsigned>::max();
    return unsigned(tvFrame);
}

bool Shot_t::operator==(Shot_t const& other) const
{
    return get()->sameObject(*other.get());
}

bool Shot_t::operator<(Shot_t const& other) const
{
    return get()->idLess(*other.get());
}

} // namespace Krolle
