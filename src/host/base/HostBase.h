// Umbrella header of the stand-in base library (reference counting, ids, messages, translation, matrices).
// The library proper includes this header rather than the individual files,
// so that the stand-in is free to arrange its files as it likes.
#pragma once

