// Finds the shots, panels and transitions that the user names on the command line.
#pragma once

#include <QString>

class KRC_KrolleProject;
namespace Krolle {
class Panel_t;
class Shot_t;
class Trans_t;
} // namespace Krolle

// The one reader of addresses. A shot is named by its name ("SH010"), its number
// counted from 1 ("#3") or its id as the JSON forms print it ("0x000000000000002a");
// a panel by its shot's address and its own, split at the last slash ("SH010/2A",
// "#3/2", "SH010/0x...") or by its id alone; a transition by its number or id.
// Numbers and ids win over names that look like them. A name that matches nothing,
// or more than one object, is a failure (ToolError, exit status 1) that lists the
// candidates with their numbers and ids, so the user can pick one; shot names may
// repeat across sequences, so a sequence name also narrows the search.
class NamedObjects
{
public:
    // sequence may be null: any sequence.
    static Krolle::Shot_t shot(const KRC_KrolleProject& view, const QString& address, const QString& sequence);
    // A panel of the shot, by its name, number inside the shot or id.
    static Krolle::Panel_t panel(
        const KRC_KrolleProject& view, const Krolle::Shot_t& shot, const QString& address);
    // The panel at a full address (SHOT/PANEL or an id). A malformed address is a
    // usage error naming the option.
    static Krolle::Panel_t panelByPath(const KRC_KrolleProject& view, const QString& address,
        const QString& option = QStringLiteral("--panel"));
    // A shot or a panel by one address: a SHOT/PANEL path or a panel's id names a panel
    // (returned, with its shot in `shot`), any other address a shot (the panel returned
    // is then invalid).
    static Krolle::Panel_t shotOrPanel(const KRC_KrolleProject& view, const QString& address, Krolle::Shot_t& shot,
        const QString& what);
    static Krolle::Trans_t transition(const KRC_KrolleProject& view, const QString& address);
    // 'shot 3 "SH010"'
    static QString shotLabel(const KRC_KrolleProject& view, const Krolle::Shot_t& shot);
    // 'panel 2 "B" of shot 3 "SH010"'
    static QString panelLabel(const KRC_KrolleProject& view, const Krolle::Panel_t& panel);
    // 'transition 1 "Dissolve"'
    static QString transitionLabel(const KRC_KrolleProject& view, const Krolle::Trans_t& transition);
};
