// Fuzz target of the project file loader followed by the view: any input is refused
// with a sentence naming its place, or loads, opens a view and is walked over every
// shot, panel and transition both ways, with names and lookups; each walk must end
// within as many steps as the project has scenes and blocks.
#include "host/engine/HostEngine.h"
#include "host/prefs/HostPrefs.h"
#include "metadata/KRC_MetadataFactory.h"
#include "project/KRC_KrolleProject.h"
#include "project/KRC_SceneChangeManager.h"
#include "project/KRC_SessionContext.h"
#include "support/FuzzCheck.h"

#include <cstdint>
#include <cstdlib>
#include <memory>

namespace {

using fuzz::check;

// Steps from `from` with `step` until the invalid handle, at most `limit` times.
template <class T, class Step> void walk(T from, unsigned limit, Step step)
{
    unsigned steps = 0;
    for (T at = from; at.isValid(); at = step(at)) {
        check(++steps <= limit);
        at.name();
        (void)at.firstFrame();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const* data, size_t size)
{
    static KRC_MetadataFactory* const factory = KRC_MetadataFactory::createInstance();
    static PR_Preference preferences;
    (void)factory;
    tuPref = &preferences;
    fuzz::quiet();
    QByteArray const input(reinterpret_cast<char const*>(data), int(size));
    std::unique_ptr<KRC_SessionContext> session(KRC_SessionContext::createSessionContext(nullptr, nullptr));
    QString error;
    UT_SharedPtr<SC_Project> project = HostProjectFile::fromXml(input, &error, session->changeManager());
    if (!project) {
        check(error.startsWith(QStringLiteral("line ")));
        return 0;
    }
    KRC_KrolleProject const& view = *session->createKrolleProject(project.get());
    unsigned limit = project->sceneCount();
    for (unsigned i = 0; i < project->sceneCount(); ++i)
        limit += static_cast<TUScene const*>(project->sceneAt(i))->sequence()->getBlockCount();
    using namespace Krolle;
    walk(view.first(Shot_t::invalid), limit, [&](Shot_t const& s) { return view.next(s); });
    walk(view.last(Shot_t::invalid), limit, [&](Shot_t const& s) { return view.prev(s); });
    walk(view.first(Panel_t::invalid), limit, [&](Panel_t const& p) { return view.next(p); });
    walk(view.last(Panel_t::invalid), limit, [&](Panel_t const& p) { return view.prev(p); });
    walk(view.first(Trans_t::invalid), limit, [&](Trans_t const& t) { return view.next(t); });
    for (unsigned frame = 1; frame <= 64; frame += 7)
        view.getPanelAt(frame, KRC_KrolleProject::PreferNext).name();
    session->releaseProject();
    return 0;
}
