// The lengths of some panels on the board, kept by id, to tell which an edit retimed.
#pragma once

#include "host/engine/SC_Id.h"

#include <map>
#include <vector>

class KRC_KrolleProject;
namespace Krolle {
class Shot_t;
} // namespace Krolle

// Taken before an edit over the panels of the shots it concerns, and asked after it
// which of them now show another number of frames (a resized panel, the last panel
// that a shot stretches, the panels a time warp shows differently). Panels that only
// slide along the timeline keep their length and are not named. Holds ids and numbers
// only, so it survives any change of the timeline. A plain value; single-threaded.
class PanelLengths
{
public:
    void add(const KRC_KrolleProject& view, const Krolle::Shot_t& shot);
    // The kept panels that still exist and whose length changed, in id order.
    std::vector<SC_Id> changed(const KRC_KrolleProject& view) const;

private:
    std::map<SC_Id, unsigned> m_lengths;
};
