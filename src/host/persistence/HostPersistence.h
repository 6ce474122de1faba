// Umbrella header of the stand-in persistence library (records, XML writer and readers, memory files).
// The library proper includes this header rather than the individual files,
// so that the stand-in is free to arrange its files as it likes.
#pragma once

