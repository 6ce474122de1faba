// The one shot, panel or transition that a command line names.
#pragma once

#include "project/Panel_t.h"
#include "project/Shot_t.h"
#include "project/Trans_t.h"

#include <QJsonValue>

class ArgumentParser;
class ArgumentValues;
class KRC_KrolleProject;
class ObjectJson;

// A command that works on one object of several kinds declares "--shot ADDRESS",
// "--panel ADDRESS" and "--transition ADDRESS" (those of the kinds it takes); exactly
// one must be given, and NamedObjects reads it. Holds a handle, so it is good until
// the next change; again() finds the same object by its id afterwards. A plain value.
class ChosenObject
{
public:
    enum Kind
    {
        Shot = 1,
        Panel = 2,
        Transition = 4,
    };

    // kinds: the Kind bits the command takes; verb: what the command does ("remove").
    static void declare(ArgumentParser& parser, const QString& verb, int kinds);
    static ChosenObject read(const KRC_KrolleProject& view, const ArgumentValues& arguments, int kinds);

    Kind kind() const { return m_kind; }
    // "shot", "panel", "transition"
    QString kindName() const;
    SC_Id id() const;
    unsigned firstFrame() const;
    unsigned lastFrame() const;
    const Krolle::Shot_t& shot() const { return m_shot; }
    const Krolle::Panel_t& panel() const { return m_panel; }
    const Krolle::Trans_t& transition() const { return m_transition; }

    // The same object after a change, or an invalid one when it is gone.
    ChosenObject again(const KRC_KrolleProject& view) const;
    // 'shot 3 "SH030"', 'panel 2 "2" of shot 3 "SH030"', 'transition 1 "Dissolve"'
    QString label(const KRC_KrolleProject& view) const;
    // The JSON object of the tool's schema, null when invalid.
    QJsonValue json(const ObjectJson& objects) const;
    bool isValid() const;

private:
    ChosenObject(Kind kind, const Krolle::Shot_t& shot, const Krolle::Panel_t& panel, const Krolle::Trans_t& transition);

    // Calls f with the handle of the object's kind.
    template <class F> auto apply(F f) const
    {
        if (m_kind == Shot)
            return f(m_shot);
        if (m_kind == Panel)
            return f(m_panel);
        return f(m_transition);
    }

    Kind m_kind;
    Krolle::Shot_t m_shot;
    Krolle::Panel_t m_panel;
    Krolle::Trans_t m_transition;
};
