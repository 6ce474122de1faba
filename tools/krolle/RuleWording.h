// What the naming rules expect, in the words of check and of the edits that warn.
#pragma once

#include "naming/KRC_NamingRules.h"

#include <QString>

class KRC_KrolleProject;
namespace Krolle {
class Shot_t;
} // namespace Krolle

// Sentences about the shot naming rules, each made from the library's
// answers: the rules' proposal between a shot's neighbours
// (KRC_NameHelper::getPreferedNewObjName with their stored names) and whether
// a set of rules can make names at all. Stateless.
class RuleWording
{
public:
    // "expected SH057 between SH050 and SH060" ("after SH050" or "before SH060" at an
    // end), or "the rules propose no name there". The shot and its neighbours must
    // have info records (see usableForNaming).
    static QString expectedShotName(const KRC_KrolleProject& view, const Krolle::Shot_t& shot);
    // Whether the shot and both its neighbours have info records, as the rules' proposals require.
    static bool usableForNaming(const KRC_KrolleProject& view, const Krolle::Shot_t& shot);
    // Why rules of one kind of object ("shot") cannot make names: a rule that does not
    // exist, or steps of 0 or less; the null string when they can.
    static QString whyUnusable(const KRC_NamingRules::ObjRules& rules, const QString& what);
};
