// The shared "no object" values, defined in one unit so that they are made in this
// order when the library loads: the id first, then each handle over the one before.
#include "project/EngineLinks.h"
#include "project/PanelTrans_t.h"

namespace Krolle {

SC_Id const invalidId;
Shot_t const Shot_t::invalid;
Panel_t const Panel_t::invalid;
Trans_t const Trans_t::invalid;
PanelTrans_t const PanelTrans_t::invalid;

} // namespace Krolle
