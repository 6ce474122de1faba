// A board read from another program's file, before the engine builds it.
#pragma once

class KRC_KrolleProject;

#include "../StoryboardPlan.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QStringList>
#include <QVector>

// Shots with their panel lengths and names, the transitions at the junctions
// between them, and the project-wide settings that come with them. A null name
// stays automatic. plan() turns it into the plan the tool builds boards from.
struct ImportedBoard
{
    struct Shot
    {
        StoryboardPlan::Shot names;
        QVector<unsigned> panelLengths;
        QVector<QJsonObject> panelFields; // per panel: field name to plain text
        QVector<QJsonObject> panelTracking; // per panel: as StoryboardCut::trackingOf, or empty
    };
    struct Transition
    {
        unsigned junction = 0; // shots before it
        unsigned length = 0;
        int type = 0; // the engine's transition type; 0 is a dissolve
        int angle = 0;
        bool reverse = false;
    };

    QVector<Shot> shots;
    QVector<Transition> transitions; // in timeline order
    bool sequences = true;
    QStringList ruleSettings; // naming rules, in the words of "krolle rules --set"
    QStringList skipped; // what the board has no place for, one sentence each
    HostStoryboard ids; // the ids the objects had, where the cut tells them
    QJsonArray panelFields; // panel field definitions, as InfoFieldText::panelDefinitions

    StoryboardPlan plan() const;
    // Defines the panel fields in the view of the built plan and gives its panels their
    // values and tracking records.
    void applyPanelFacts(KRC_KrolleProject& view) const;
};
