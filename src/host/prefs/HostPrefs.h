// Umbrella header of the stand-in preference library (PR_Preference, tuPref).
// The library proper includes this header rather than the individual files,
// so that the stand-in is free to arrange its files as it likes.
#pragma once

#include "host/prefs/PR_Preference.h"
