// The smallest useful host: build a storyboard in the engine, open it as a
// storyboard, and resolve frames to shots and panels.
#include "metadata/KRC_MetadataFactory.h"
#include "metadata/KRC_SceneInfo.h"
#include "naming/KRC_ObjectName.h"
#include "project/KRC_KrolleProject.h"
#include "project/KRC_SceneChangeManager.h"
#include "project/KRC_SessionContext.h"
#include "project/Panel_t.h"
#include "project/Shot_t.h"
#include "host/engine/HostEngine.h"

#include <QCoreApplication>
#include <cstdio>
#include <memory>

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    KRC_MetadataFactory::createInstance(); // so that project files read back our records

    std::unique_ptr<KRC_SessionContext> session(KRC_SessionContext::createSessionContext(nullptr, nullptr));

    // Two shots joined by a 4-frame transition: 10+12 panel frames, then 8.
    QString error;
    HostStoryboard board = HostStoryboardBuilder::build("S[10,12] T4 S[8]", &error, session->changeManager());
    if (!board.isValid()) {
        std::fprintf(stderr, "embed: %s\n", qPrintable(error));
        return 1;
    }

    KRC_KrolleProject* view = session->createKrolleProject(board.project.get());
    // The builder's shots come with fresh records; give them automatic names, which the
    // library computes from each shot's place and the naming rules.
    for (Krolle::Shot_t shot = view->first(Krolle::Shot_t::invalid); shot.isValid(); shot = view->next(shot)) {
        if (KRC_SceneInfo* info = shot.sceneInfo())
            info->name().setFlag(info->name().flag() & ~KRC_ObjectName::kCustom);
    }
    const unsigned frames = view->topSceneTv()->nFrames();
    for (unsigned frame = 1; frame <= frames; frame += 5) {
        const Krolle::Shot_t shot = view->getShotAt(frame, KRC_KrolleProject::PreferPrevious);
        const Krolle::Panel_t panel = view->getPanelAt(frame, KRC_KrolleProject::PreferPrevious);
        // Names, as a person reads them: the library computes the automatic ones from the rules.
        std::printf("frame %3u: shot %s [%u-%u], panel %s [%u-%u]\n", frame, qPrintable(shot.name()),
                    shot.firstFrame(), shot.lastFrame(), qPrintable(panel.name()), panel.firstFrame(),
                    panel.lastFrame());
    }
    session->releaseProject();
    return 0;
}
