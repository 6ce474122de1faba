// Umbrella header of the stand-in scene engine library (timeline, scenes, nodes, drawings, selection, change manager, session).
// The library proper includes this header rather than the individual files,
// so that the stand-in is free to arrange its files as it likes.
#pragma once

