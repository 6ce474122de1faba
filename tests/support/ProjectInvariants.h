// Test helper: checks a project view against the engine timeline under it.
#pragma once

#include <gtest/gtest.h>

class KRC_KrolleProject;

/// Checks that the view agrees with the engine, frame by frame and object by object:
///
/// - every frame from 0 to one past the end resolves, for both priorities, to the shot
///   block that the engine has there (the earlier of two under a transition for
///   PreferPrevious, the later for PreferNext), to the panel block of that shot's
///   symbol at the frame's sequence frame, and to the transition covering it;
/// - a handle's id is its block's id, and one id never stands for two blocks;
/// - the walks of shots and transitions visit the engine's blocks in list order, and
///   next and prev agree with them; the panel walk runs shot by shot, as the walks of
///   each shot's panels do; the counts are the walks' lengths;
/// - the answers do not depend on the caches: a warm pass and a pass with the caches
///   disabled give equal handles (the view's cache state is put back afterwards).
///
/// Used after each step of tests that edit the engine, to assert that the view follows.
::testing::AssertionResult projectViewIsConsistent(KRC_KrolleProject& view);
