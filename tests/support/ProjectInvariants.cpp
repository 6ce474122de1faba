#include "ProjectInvariants.h"

#include "project/EngineLinks.h"
#include "project/KRC_KrolleProject.h"

#include <QString>
#include <QStringList>

#include <cmath>
#include <map>
#include <type_traits>
#include <utility>
#include <vector>

using Krolle::Panel_t;
using Krolle::PanelTrans_t;
using Krolle::Shot_t;
using Krolle::Trans_t;

namespace {

using Priority = KRC_KrolleProject::ResolutionPriority;
Priority const kPriorities[] = { KRC_KrolleProject::PreferPrevious, KRC_KrolleProject::PreferNext };

/// What one frame resolves to, as handles.
struct FrameAnswer
{
    Shot_t shots[2];
    Panel_t panels[2];
    Trans_t trans;
    PanelTrans_t panelTrans;
};

/// The engine's side of the comparison, worked out from the blocks alone.
class EngineTruth
{
public:
    explicit EngineTruth(KRC_KrolleProject& view)
        : m_view(view)
        , m_tv(view.topSceneTv())
    {
    }

    unsigned lastFrame() const { return m_tv ? m_tv->nFrames() : 0; }

    AT_FrameBlock const* shotBlock(unsigned frame, Priority priority) const
    {
        std::vector<AT_FrameBlock const*> covering;
        for (unsigned i = 0; m_tv && i < m_tv->getBlockCount(); ++i) {
            AT_FrameBlock const* block = m_tv->blockAt(i);
            if (block->isInRange(frame) && !AT_TransitionSeq::isTransition(block->seq())
                && AT_AbstractSceneSeq::toAbstractScene(block->seq()))
                covering.push_back(block);
        }
        if (covering.empty())
            return nullptr;
        return priority == KRC_KrolleProject::PreferPrevious ? covering.front() : covering.back();
    }

    AT_FrameBlock const* panelBlock(AT_FrameBlock const* shot, unsigned frame) const
    {
        if (!shot)
            return nullptr;
        auto const* warp = AT_TimeWarpSeq::toTimeWarp(shot->seq());
        TUScene* symbol = scene(shot);
        if (!symbol)
            return nullptr;
        // Without a warp the sequence frame is the project frame as it stands.
        double const tvFrame = warp ? std::trunc(frame - shot->firstFrame + 1 + warp->start - 1.0) : frame;
        AT_FrameBlock const* block = symbol->sequence()->getBlock(tvFrame < 0 ? 0 : tvFrame);
        return scene(block) ? block : nullptr;
    }

    /// Scene blocks (shots) or transition blocks, in list order.
    std::vector<AT_FrameBlock const*> blocks(bool transitions) const
    {
        std::vector<AT_FrameBlock const*> found;
        for (unsigned i = 0; m_tv && i < m_tv->getBlockCount(); ++i) {
            AT_FrameBlock const* block = m_tv->blockAt(i);
            bool const isTransition = AT_TransitionSeq::isTransition(block->seq());
            if (transitions ? isTransition
                            : (!isTransition && AT_AbstractSceneSeq::toAbstractScene(block->seq())))
                found.push_back(block);
        }
        return found;
    }

    AT_FrameBlock const* transitionBlock(unsigned frame) const
    {
        if (!m_tv || m_tv->getBlockCount(frame) <= 1)
            return nullptr;
        for (unsigned i = 0; i < m_tv->getBlockCount(); ++i) {
            AT_FrameBlock const* block = m_tv->blockAt(i);
            if (block->isInRange(frame) && AT_TransitionSeq::isTransition(block->seq()))
                return block;
        }
        return nullptr;
    }

private:
    TUScene* scene(AT_FrameBlock const* block) const
    {
        auto const* seq = block ? AT_AbstractSceneSeq::toAbstractScene(block->seq()) : nullptr;
        if (!seq)
            return nullptr;
        return dynamic_cast<TUScene*>(m_view.projectCommon()->sceneManager()->find(seq->sceneId));
    }

    KRC_KrolleProject& m_view;
    TUSeqTimedValue* m_tv;
};

FrameAnswer askView(KRC_KrolleProject& view, unsigned frame)
{
    FrameAnswer answer;
    for (int side = 0; side < 2; ++side) {
        answer.shots[side] = view.getShotAt(frame, kPriorities[side]);
        answer.panels[side] = view.getPanelAt(frame, kPriorities[side]);
    }
    answer.trans = view.getTransAt(frame);
    answer.panelTrans = view.getPanelTransAt(frame);
    return answer;
}

/// Collects the faults of one check; the first few make the failure message.
class Faults
{
public:
    template <class Handle>
    void expectBlock(Handle const& handle, AT_FrameBlock const* block, QString const& what)
    {
        if (handle.frameBlock() != block || handle.id() != Krolle::objectId(block)
            || handle.isValid() != bool(block))
            add(QStringLiteral("%1: block or id differs from the engine's").arg(what));
    }
    void expect(bool condition, QString const& what)
    {
        if (!condition)
            add(what);
    }
    void add(QString const& fault)
    {
        if (m_faults.size() < 8)
            m_faults << fault;
        ++m_count;
    }
    ::testing::AssertionResult result() const
    {
        if (m_count == 0)
            return ::testing::AssertionSuccess();
        return ::testing::AssertionFailure()
            << m_count << " fault(s): " << qPrintable(m_faults.join(QStringLiteral("; ")));
    }

private:
    QStringList m_faults;
    int m_count = 0;
};

void checkAgainstEngine(FrameAnswer const& answer, EngineTruth const& truth, unsigned frame, Faults& faults)
{
    QString const at = QStringLiteral("frame %1").arg(frame);
    for (int side = 0; side < 2; ++side) {
        QString const where = at + (side ? QStringLiteral(" next") : QStringLiteral(" previous"));
        AT_FrameBlock const* shot = truth.shotBlock(frame, kPriorities[side]);
        faults.expectBlock(answer.shots[side], shot, where + QStringLiteral(" shot"));
        faults.expectBlock(
            answer.panels[side], truth.panelBlock(shot, frame), where + QStringLiteral(" panel"));
        faults.expect(answer.panels[side].isInvalid() || answer.panels[side].shot() == answer.shots[side],
            where + QStringLiteral(": panel's shot is not the shot"));
    }
    faults.expectBlock(answer.trans, truth.transitionBlock(frame), at + QStringLiteral(" transition"));
    bool const panelTransRight
        = answer.trans.isValid() ? answer.panelTrans == answer.trans : answer.panelTrans == answer.panels[0];
    faults.expect(panelTransRight, at + QStringLiteral(": panel-or-transition disagrees"));
}

template <class Handle>
void checkIdOwner(std::map<SC_Id, AT_FrameBlock const*>& owners, Handle const& handle, Faults& faults)
{
    if (handle.isInvalid())
        return;
    auto const inserted = owners.emplace(handle.id(), handle.frameBlock());
    faults.expect(inserted.first->second == handle.frameBlock(),
        QStringLiteral("id %1 stands for two blocks").arg(handle.id().value()));
}

void checkSameAnswer(FrameAnswer const& a, FrameAnswer const& b, QString const& what, Faults& faults)
{
    bool const same = a.shots[0] == b.shots[0] && a.shots[1] == b.shots[1] && a.panels[0] == b.panels[0]
        && a.panels[1] == b.panels[1] && a.trans == b.trans && a.panelTrans == b.panelTrans;
    faults.expect(same, what);
}

/// The objects of a walk, stopped after `limit` steps so that a walk that never
/// ends shows up as a fault instead of a hang.
template <class Iterator>
std::vector<std::decay_t<decltype(*std::declval<Iterator>())>> walk(
    Iterator it, Iterator const& end, size_t limit, Faults& faults, QString const& what)
{
    std::vector<std::decay_t<decltype(*it)>> objects;
    for (; it != end; ++it) {
        if (objects.size() > limit) {
            faults.add(what + QStringLiteral(": the walk does not end"));
            break;
        }
        objects.push_back(*it);
    }
    return objects;
}

/// The walk visits the engine's blocks in list order, and next and prev agree with it.
template <class Handle>
void checkOrder(KRC_KrolleProject& view, std::vector<Handle> const& objects,
    std::vector<AT_FrameBlock const*> const& blocks, Faults& faults, QString const& what)
{
    faults.expect(
        objects.size() == blocks.size(), what + QStringLiteral(": the walk and the engine differ in length"));
    for (size_t i = 0; i < objects.size(); ++i) {
        if (i < blocks.size())
            faults.expectBlock(objects[i], blocks[i], what + QStringLiteral(" %1").arg(i));
        Handle const before = i > 0 ? objects[i - 1] : Handle::invalid;
        Handle const after = i + 1 < objects.size() ? objects[i + 1] : Handle::invalid;
        faults.expect(view.prev(objects[i]) == before, what + QStringLiteral(" %1: prev disagrees").arg(i));
        faults.expect(view.next(objects[i]) == after, what + QStringLiteral(" %1: next disagrees").arg(i));
    }
}

/// Panels run shot by shot in the shots' order, each shot's from its own begin to end.
void checkPanels(KRC_KrolleProject& view, std::vector<Shot_t> const& shots, Faults& faults)
{
    std::vector<Panel_t> const panels
        = walk(view.beginPanel(), view.endPanel(), 100000, faults, QStringLiteral("panels"));
    std::vector<Panel_t> byShot;
    for (Shot_t const& shot : shots) {
        std::vector<Panel_t> const own = walk(
            view.beginPanel(shot), view.endPanel(shot), 10000, faults, QStringLiteral("panels of a shot"));
        for (Panel_t const& panel : own)
            faults.expect(
                panel.shot() == shot, QStringLiteral("a panel of a shot's walk belongs to another shot"));
        byShot.insert(byShot.end(), own.begin(), own.end());
    }
    faults.expect(panels == byShot, QStringLiteral("the panel walk differs from the walks of the shots"));
    for (size_t i = 0; i < panels.size(); ++i) {
        Panel_t const before = i > 0 ? panels[i - 1] : Panel_t::invalid;
        faults.expect(view.prev(panels[i]) == before, QStringLiteral("panel %1: prev disagrees").arg(i));
    }
    faults.expect(view.panelCount() == panels.size(), QStringLiteral("panelCount differs from the walk"));
}

void checkWalks(KRC_KrolleProject& view, EngineTruth const& truth, Faults& faults)
{
    std::vector<AT_FrameBlock const*> const shotBlocks = truth.blocks(false);
    std::vector<AT_FrameBlock const*> const transBlocks = truth.blocks(true);
    std::vector<Shot_t> const shots
        = walk(view.beginShot(), view.endShot(), shotBlocks.size() + 1, faults, QStringLiteral("shots"));
    std::vector<Trans_t> const transitions = walk(
        view.beginTrans(), view.endTrans(), transBlocks.size() + 1, faults, QStringLiteral("transitions"));
    checkOrder(view, shots, shotBlocks, faults, QStringLiteral("shot"));
    checkOrder(view, transitions, transBlocks, faults, QStringLiteral("transition"));
    faults.expect(view.shotCount() == shots.size(), QStringLiteral("shotCount differs from the walk"));
    // Automatic shot names are numbered by this place, kept between walks.
    for (size_t i = 0; i < shots.size(); ++i)
        faults.expect(view.getShotNdx(shots[i]) == i, QStringLiteral("shot %1: getShotNdx disagrees").arg(i));
    faults.expect(
        view.transCount() == transitions.size(), QStringLiteral("transCount differs from the walk"));
    checkPanels(view, shots, faults);
}

} // namespace

::testing::AssertionResult projectViewIsConsistent(KRC_KrolleProject& view)
{
    EngineTruth const truth(view);
    Faults faults;
    std::vector<FrameAnswer> cold;
    unsigned const end = truth.lastFrame() + 1;
    for (unsigned frame = 0; frame <= end; ++frame)
        cold.push_back(askView(view, frame));

    std::map<SC_Id, AT_FrameBlock const*> owners;
    for (unsigned frame = 0; frame <= end; ++frame) {
        FrameAnswer const& answer = cold[frame];
        checkAgainstEngine(answer, truth, frame, faults);
        for (int side = 0; side < 2; ++side) {
            checkIdOwner(owners, answer.shots[side], faults);
            checkIdOwner(owners, answer.panels[side], faults);
        }
        checkIdOwner(owners, answer.trans, faults);
        checkSameAnswer(
            answer, askView(view, frame), QStringLiteral("frame %1: warm answer differs").arg(frame), faults);
    }

    checkWalks(view, truth, faults);

    bool const wasEnabled = view.cacheEnabled();
    view.setCacheEnabled(false);
    for (unsigned frame = 0; frame <= end; ++frame)
        checkSameAnswer(cold[frame], askView(view, frame),
            QStringLiteral("frame %1: answer without cache differs").arg(frame), faults);
    checkWalks(view, truth, faults);
    view.setCacheEnabled(wasEnabled);
    return faults.result();
}
