// Finds the shots and panels that the user names on the command line.
#pragma once

#include <QString>

class KRC_KrolleProject;
namespace Krolle {
class Panel_t;
class Shot_t;
} // namespace Krolle

// Looks shots and panels up by the names the library gives them. A name that
// matches nothing, or more than one object, is a failure (ToolError, exit
// status 1) that says how to be more precise: shot names may repeat across
// sequences, so a sequence name narrows the search.
class NamedObjects
{
public:
    // sequence may be null: any sequence.
    static Krolle::Shot_t shot(const KRC_KrolleProject& view, const QString& name, const QString& sequence);
    static Krolle::Panel_t panel(
        const KRC_KrolleProject& view, const Krolle::Shot_t& shot, const QString& name);
    // The panel named "SHOT/PANEL", split at the last slash; no slash is a usage error.
    static Krolle::Panel_t panelByPath(const KRC_KrolleProject& view, const QString& path);
    // 'shot 3 "SH010"'
    static QString shotLabel(const KRC_KrolleProject& view, const Krolle::Shot_t& shot);
    // 'panel 2 "B" of shot 3 "SH010"'
    static QString panelLabel(const KRC_KrolleProject& view, const Krolle::Panel_t& panel);
};
