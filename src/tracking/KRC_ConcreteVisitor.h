// Which drawings a panel uses, collected by short-lived visitors of its scene.
#pragma once

#include "host/Host.h"
#include "project/Panel_t.h"

#include <QString>

#include <list>
#include <map>
#include <set>
#include <utility>

class KRC_KrolleProject;

/// Free functions that walk a panel's scene (every element, top-level or not, pegs and
/// groups included) and report the drawing each element shows at frame 1, in the order
/// of the walk. Lists are appended to, maps inserted into; nothing is cleared. With
/// `onlyEnabled` the elements switched off are left out. The panel handle must be
/// valid. Stateless; the host's thread.
namespace KRC_ConcreteVisitor {

using ElementFile = std::pair<MO_ElementModule*, QString>;
using ElementKey = std::pair<MO_ElementModule*, CA_CelKey>;
/// Element id to the ids of its drawings.
using DrawingsByElement = std::map<int, std::set<int>>;

/// Each valid key.
void getDrawings(Krolle::Panel_t const& panel, std::list<CA_CelKey>& out, bool onlyEnabled);
/// The file name of each valid key.
void getDrawings(Krolle::Panel_t const& panel, std::list<QString>& out, bool onlyEnabled);
/// The element id of every element, whatever its key.
void getDrawings(Krolle::Panel_t const& panel, std::list<int>& out, bool onlyEnabled);
void getDrawings(Krolle::Panel_t const& panel, std::list<ElementFile>& out, bool onlyEnabled);
void getDrawings(Krolle::Panel_t const& panel, std::list<ElementKey>& out, bool onlyEnabled);
void getDrawings(Krolle::Panel_t const& panel, DrawingsByElement& out);
/// Every panel of the project, in timeline order.
void getDrawings(KRC_KrolleProject const* project, DrawingsByElement& out);
/// The node, if it is an element, and the nodes below it.
void getDrawings(MO_Node const* node, DrawingsByElement& out);

} // namespace KRC_ConcreteVisitor
