// Test helpers for walks over a project view: the ids that a walk visits, and the
// board's panel ids in timeline order.
#pragma once

#include "host/engine/HostStoryboardBuilder.h"

#include <vector>

/// The ids that a walk visits from `it` to `end`; stops after `limit` steps so that a
/// walk that never meets its end fails the comparison instead of hanging.
template <class Iterator> std::vector<SC_Id> idsOfWalk(Iterator it, Iterator const& end, size_t limit = 1000)
{
    std::vector<SC_Id> ids;
    for (; it != end && ids.size() < limit; ++it)
        ids.push_back(it->id());
    return ids;
}

/// All panel ids of a board, shot after shot.
inline std::vector<SC_Id> boardPanelIds(HostStoryboard const& board)
{
    std::vector<SC_Id> ids;
    for (auto const& shot : board.panels)
        ids.insert(ids.end(), shot.begin(), shot.end());
    return ids;
}
