// Name arithmetic, and the names of the storyboard's shots, panels, sequences and acts.
#pragma once

#include "naming/KRC_NamingRules.h"
#include "project/ObjectNameHelper.h"

#include <QString>
#include <QStringList>

#include <set>

class KRC_KrolleProject;
class KRC_NameHelperPrivate;
class KRC_ObjectName;
class SC_Id;

/// The names of the storyboard's objects.
///
/// The static part is name arithmetic, pure functions of their arguments: counting
/// in names such as "12", "BA", "A9" or "SC_12", keeping their width and case,
/// cutting them apart around their numerical part, and proposing the name of a new
/// object between two neighbours. A separator is any character that is not an ASCII
/// letter or digit. The functions that split at separators keep one compiled QRegExp
/// each, made on first use; QRegExp keeps match state inside the object, so these
/// functions are for the host's one thread (as is the rest of the library) and must
/// not run concurrently.
///
/// The instance part belongs to one project view, which makes it, hands it to every
/// shot and panel as their Krolle::ObjectNameHelper, and deletes it. It computes the
/// auto names of existing objects from their places and the project's naming rules
/// at every request (nothing is cached, so an edit renumbers what follows), and
/// proposes names for new objects. It never writes a name nor resolves a collision:
/// a proposal may equal a neighbour's name, and applying the conflict rules is the
/// caller's business. Without a rules record in the project, it names by the
/// preferences. Threading: the host's thread.
class KRC_NameHelper : public Krolle::ObjectNameHelper
{
public:
    // Name arithmetic.

    /// The name after `name` under counting rule `type` (0 numeric, 1 letters,
    /// 2 letters with "Z" prefix, 3 letters with repeated "Z", 4 by N).
    static QString getNextName(const QString& name, int type);
    /// The name before `name`; integers at or below 0 wrap to "999", and the
    /// name before a single letter "A" is "A_0".
    static QString getPrevName(const QString& name, int type);
    static QString getName(const QString& name, int type, bool forward);
    /// The `value`-th name of the series of rule `type`, counted from 1. Rule 4
    /// gives plain position numbers here.
    static QString getName(int value, int type);
    /// The name at the 0-based `index` under `rules`, padded with "0" on the left.
    static QString getName(const KRC_NamingRules::ObjRules& rules, int index);

    /// The padding width: numberOfZeros when automatic leading zeros are on, else 0.
    static int getLeadingSpaces(const KRC_NamingRules::ObjRules& rules);
    /// True when `name` is not locked and the rules allow custom names.
    static bool canModifyName(const KRC_NamingRules::ObjRules& rules, const KRC_ObjectName& name);

    /// The least multiple of `multiple` strictly above `value`; `multiple` itself
    /// when `value` is below it. A negative `multiple` counts by its magnitude
    /// and 0 counts by 1; a result beyond the int range is clamped to INT_MAX.
    static int getNextMultiple(int value, int multiple);

    /// Splits at the first separator: `prefix` before it, `suffix` from it on,
    /// `length` of the prefix and `value` of the prefix as an integer (INT_MIN
    /// when it is none).
    static void getPrefixAndSuffix(
        const QString& name, QString& prefix, int& value, int& length, QString& suffix);

    /// Steps the last part of `name` `count` times (down when negative) and pads
    /// the part before the last separator with "0" up to `minLength`.
    static QString getBaseName(const QString& name, int type, int minLength, int count);
    /// The name between two neighbours, either of which may be null: the step
    /// after `prev` (or before `next` when there is no `prev`). `prev`'s own
    /// value when the step would reach `next`, so that the caller resolves the
    /// collision. A null string unless a neighbour is custom: auto-named series
    /// stay numbered by position.
    static QString getBaseName(
        const KRC_ObjectName* prev, const KRC_ObjectName* next, int type, int minLength);

    /// Cuts `name` into `parts` around its numerical part, so that joining
    /// `parts` gives `name` back; `index` is the place of the digits in `parts`.
    /// True if digits were found and read as an integer. Without digits, `parts`
    /// is empty and `index` and `value` keep what they held.
    static bool extractNumericalPart(
        const QString& name, QStringList& parts, int& index, int& value, bool tailOnly);

    /// The name proposed for a new object between two neighbours (either may be
    /// null). Under the by-N rule: the next multiple of the step after the lower
    /// number, or the middle of the gap when that multiple would not lie in its
    /// lower half, kept in the neighbour's prefix and width. Under the other rules:
    /// getBaseName(prev, next, ...), a null string when neither neighbour is custom
    /// (the new object then stays auto-named). A proposal may equal a neighbour's
    /// name: resolving the collision is the caller's business.
    static QString getPreferedNewObjName(
        const KRC_NamingRules::ObjRules& rules, const KRC_ObjectName* prev, const KRC_ObjectName* next);

    // Names of the objects of one project view.

    /// The helper of `project`, which the view makes and owns.
    explicit KRC_NameHelper(KRC_KrolleProject* project);
    ~KRC_NameHelper() override;
    KRC_NameHelper(KRC_NameHelper const&) = delete;
    KRC_NameHelper& operator=(KRC_NameHelper const&) = delete;

    /// The name of a panel: its custom name, or its auto name numbered inside its
    /// shot around the custom names (a custom name uses up its place, and no auto
    /// name repeats a name already taken). Empty for an invalid panel.
    QString getPanelName(const Krolle::Panel_t& panel) const override;
    /// The auto name of a shot at its place in the project; null for a shot that the
    /// project does not hold.
    QString getSceneName(const Krolle::Shot_t& shot) const override;

    /// The first panel name at or after the 0-based `index` that is not in `taken`.
    QString getPanelName(int index, const std::set<QString>& taken) const;
    QString getSceneName(int index) const;
    QString getSequenceName(int index) const;
    /// The number `index` + 1, whatever the rules.
    QString getActName(int index) const;

    /// A name for a new shot after (or before) the shot `shotId`, between it and
    /// its neighbour on that side.
    QString getPreferedNewSceneName(const SC_Id& shotId, bool after) const;
    /// A name for a new sequence beside the shot `shotId`: the sequence name itself
    /// when both neighbours hold the very same name record.
    QString getPreferedNewSequenceName(const SC_Id& shotId, bool after) const;
    /// A name for a new panel of `shot` beside the panel `panelId`; panels of
    /// other shots do not count.
    QString getPreferedNewPanelName(const Krolle::Shot_t& shot, const SC_Id& panelId, bool after) const;
    /// Whether the shot's name is what the rules would propose between its
    /// neighbours; false for an unknown shot.
    bool shotNameFollowsRules(const SC_Id& shotId) const;

private:
    KRC_NameHelperPrivate* d;
};
