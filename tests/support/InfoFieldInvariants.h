// Test helper: checks the info field values of a project against its definitions.
#pragma once

#include <QString>

#include <gtest/gtest.h>

#include <map>
#include <utility>
#include <vector>

class KRC_KrolleProject;

/// The local values of every panel, in list order, by panel index: what an operation
/// on global fields must leave as it found.
using LocalInfoFields = std::vector<std::vector<std::pair<int, QString>>>;

/// Checks, for the project's list and for every panel's list, that the global values
/// that have a definition follow the definitions' order, each id at most once; and,
/// when `locals` is given, that every panel's local values are those, in that order.
::testing::AssertionResult infoFieldsFollowDefinitions(
    KRC_KrolleProject& view, LocalInfoFields const* locals = nullptr);

/// The local values of every panel, for a later infoFieldsFollowDefinitions.
LocalInfoFields localInfoFieldsOf(KRC_KrolleProject& view);
