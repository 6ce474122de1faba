// Everything the storyboard core needs of the engine below it.
#pragma once

#include "host/base/HostBase.h"
#include "host/prefs/HostPrefs.h"
#include "host/persistence/HostPersistence.h"
#include "host/context/HostContext.h"
#include "host/engine/HostEngine.h"
