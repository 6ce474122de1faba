// A one-line description of a storyboard timeline, and the project it builds.
#pragma once

#include "host/base/UT_SharedPtr.h"
#include "host/engine/SC_Id.h"

#include <QString>

#include <map>
#include <vector>

class SC_Project;
class TUSceneChangeManager;

/// What HostStoryboardBuilder::build made: the project and the ids of its objects in
/// timeline order. `project` is null when the description was refused.
struct HostStoryboard
{
    UT_SharedPtr<SC_Project> project;
    std::vector<SC_Id> shots;
    std::vector<std::vector<SC_Id>> panels; // per shot, in order
    std::vector<SC_Id> transitions; // in timeline order
    std::map<QString, SC_Id> shotsByLabel; // shots that were given a label

    bool isValid() const { return bool(project); }
};

/// Builds engine projects from a compact description, for tests, tools and benches.
///
/// The description is a list of tokens separated by spaces, in timeline order:
///
///     S1[10,12] T4 S2[8] S3[5,5,5]
///
/// - `S<label>[a,b,...]`: a shot with panels of a, b, ... frames. The label (letters,
///   digits, '_') is optional and only names the shot in `shotsByLabel`. It may be
///   followed by `~<start>:<end>` to set its time warp and by `=<frames>` to give its
///   block another length: `S[10,10]~5:15=22`.
/// - `T<frames>`: a transition joining the shots on either side (or, first or last,
///   overlapping the first or last shot only). A style may follow:
///   `T4:wipe,90,r` (type by name without spaces or by number, wipe angle, reversed).
///
/// The description is about engine structure only: names, acts, sequences and other
/// records are set afterwards through the library. Nothing is posted while building;
/// the project then posts to `manager` (or to one of its own when null).
namespace HostStoryboardBuilder {

/// Builds a project; on a refused description the result is invalid and `error`
/// names the token at fault. `ids`, in the shape of the result, asks for the ids of
/// objects being restored (see HostAuthoring::insertShot); entries may be missing.
HostStoryboard build(QString const& description, QString* error = nullptr,
    TUSceneChangeManager* manager = nullptr, HostStoryboard const* ids = nullptr);

/// The description of a project's timeline, without labels, in the form `build`
/// reads: shots that follow their symbol show no warp; transitions of the default
/// style (dissolve, angle 0, not reversed) show no style. Blocks of other kinds
/// appear as `X<frames>`, which `build` does not read.
QString describe(SC_Project const* project);

} // namespace HostStoryboardBuilder
