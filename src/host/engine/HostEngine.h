// Umbrella header of the stand-in scene engine library (timeline, scenes, nodes, drawings, selection, change manager, session).
// The library proper includes this header rather than the individual files,
// so that the stand-in is free to arrange its files as it likes.
#pragma once

// Timeline, project and scenes, change manager, session, authoring and project files.
#include "host/engine/AT_FrameBlock.h"
#include "host/engine/HostAuthoring.h"
#include "host/engine/HostProjectFile.h"
#include "host/engine/HostStoryboardBuilder.h"
#include "host/engine/MO_FrameKey.h"
#include "host/engine/SC_Id.h"
#include "host/engine/SC_Project.h"
#include "host/engine/SC_ProjectCommon.h"
#include "host/engine/SC_SceneManager.h"
#include "host/engine/SC_SessionContext.h"
#include "host/engine/TUScene.h"
#include "host/engine/TUSceneChangeManager.h"
#include "host/engine/TUTimedValue.h"

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
