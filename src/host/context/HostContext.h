// Umbrella header of the stand-in scene context library (TUDbSceneData).
// The library proper includes this header rather than the individual files,
// so that the stand-in is free to arrange its files as it likes.
#pragma once

#include "host/context/TUDbSceneData.h"
