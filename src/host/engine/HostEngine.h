// Umbrella header of the stand-in scene engine library (timeline, scenes, nodes, drawings, selection, change manager, session).
// The library proper includes this header rather than the individual files,
// so that the stand-in is free to arrange its files as it likes.
#pragma once


// Nodes, visitors, drawings and selection.
#include "host/engine/AT_DrawingAttr.h"
#include "host/engine/CA_CelCache.h"
#include "host/engine/CA_CelKey.h"
#include "host/engine/HostNodeAuthoring.h"
#include "host/engine/HostNodeXml.h"
#include "host/engine/MO_ModuleVisitor.h"
#include "host/engine/MO_Modules.h"
#include "host/engine/MO_Node.h"
#include "host/engine/SL_Selection.h"
#include "host/engine/TUElementTimedValue.h"
