// Umbrella header of the stand-in base library (reference counting, ids, messages, translation, matrices).
// The library proper includes this header rather than the individual files,
// so that the stand-in is free to arrange its files as it likes.
#pragma once

#include "host/base/MISC_Translate.h"
#include "host/base/MSG_Scope.h"
#include "host/base/Math_Matrix4x4.h"
#include "host/base/Math_Point2d.h"
#include "host/base/UT_DoubleText.h"
#include "host/base/UT_Id.h"
#include "host/base/UT_ShareBase.h"
#include "host/base/UT_SharedPtr.h"
#include "host/base/UT_SharedWeakPtr.h"
#include "host/base/whoami.h"
