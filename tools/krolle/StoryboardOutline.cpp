#include "StoryboardOutline.h"

#include "InfoFieldText.h"
#include "ObjectJson.h"
#include "OutlineLayers.h"
#include "ProjectSummary.h"
#include "TextTable.h"

#include "project/KRC_KrolleProject.h"

#include <QJsonArray>

namespace {

const int kSchemaVersion = 1;

QJsonArray panelsOf(const KRC_KrolleProject& view, const ObjectJson& objects, const Krolle::Shot_t& shot)
{
    QJsonArray panels;
    unsigned number = 0;
    for (auto panel = view.beginPanel(shot), end = view.endPanel(shot); panel != end; ++panel)
        panels.append(objects.panel(*panel, ++number));
    return panels;
}

// Cells of one row: what, name, how it is named, frames, and timecodes when the outline has them.
QStringList cells(const QString& what, const QJsonObject& object, const QString& named, bool timecodes)
{
    QStringList row { what, object.value(QStringLiteral("name")).toString(), named,
        QString::number(object.value(QStringLiteral("firstFrame")).toInt()),
        QString::number(object.value(QStringLiteral("lastFrame")).toInt()),
        QString::number(object.value(QStringLiteral("length")).toInt()) };
    if (timecodes) {
        const QJsonObject timecode = object.value(QStringLiteral("timecode")).toObject();
        row << timecode.value(QStringLiteral("in")).toString()
            << timecode.value(QStringLiteral("out")).toString()
            << timecode.value(QStringLiteral("duration")).toString();
    }
    return row;
}

QString named(const QJsonObject& object)
{
    return object.value(QStringLiteral("custom")).toBool() ? QStringLiteral("custom")
                                                           : QStringLiteral("auto");
}

QString numbered(const char* what, const QJsonObject& object, int indent)
{
    return QString(indent, QLatin1Char(' '))
        + QStringLiteral("%1 %2")
              .arg(QLatin1String(what))
              .arg(object.value(QStringLiteral("number")).toInt());
}

// The runs (acts or sequences) that start at a shot number.
void addRunRows(
    TextTable& table, const QJsonArray& runs, const char* what, int indent, int shot, bool timecodes)
{
    for (const QJsonValue& run : runs) {
        const QJsonObject object = run.toObject();
        if (object.value(QStringLiteral("firstShot")).toInt() == shot)
            table.addRow(cells(numbered(what, object, indent), object, QString(), timecodes));
    }
}

void addTransitionRows(
    TextTable& table, const QJsonArray& transitions, const QJsonValue& afterShot, bool timecodes)
{
    for (const QJsonValue& transition : transitions) {
        const QJsonObject object = transition.toObject();
        if (object.value(QStringLiteral("afterShot")) == afterShot)
            table.addRow(cells(numbered("transition", object, 4), object, QString(), timecodes));
    }
}

// A panel's info field values in the order of the outline's "fieldNames", on one line
// each; nothing when the outline has no field columns.
QStringList fieldCells(const QJsonObject& outline, const QJsonObject& panel)
{
    QStringList values;
    const QJsonObject fields = panel.value(QStringLiteral("fields")).toObject();
    for (const QJsonValue& name : outline.value(QStringLiteral("fieldNames")).toArray())
        values << fields.value(name.toString()).toString().replace(QLatin1Char('\n'), QLatin1Char(' '));
    return values;
}

} // namespace

QJsonObject StoryboardOutline::read(const KRC_KrolleProject& view, const QString& file, const Timecode& clock)
{
    const ObjectJson objects(view, clock);
    QJsonArray acts;
    QJsonArray sequences;
    QJsonArray shots;
    QJsonArray transitions;
    Krolle::Shot_t shot = view.first(Krolle::Shot_t::invalid);
    Krolle::Trans_t transition;
    if (shot.isValid() && view.isPrecededByTrans(shot, &transition))
        transitions.append(objects.transition(transition, 1, 0, 1));
    for (unsigned number = 1; shot.isValid(); shot = view.next(shot), ++number) {
        if (!view.hasMoreKRSceneInCurKRAct(shot, false))
            acts.append(objects.run(shot.actName(), acts.size() + 1, number,
                view.numOfKRScenesInCurKRAct(shot), shot.firstFrame(), view.lastInAct(shot).lastFrame()));
        if (view.sequenceExists() && !view.hasMoreKRSceneInCurKRSequence(shot, false))
            sequences.append(objects.run(shot.sequenceName(), sequences.size() + 1, number,
                view.numOfKRScenesInCurKRSequence(shot), shot.firstFrame(),
                view.lastInSequence(shot).lastFrame()));
        QJsonObject entry = objects.shot(shot, number).toObject();
        entry.insert(QStringLiteral("panels"), panelsOf(view, objects, shot));
        shots.append(entry);
        if (view.isFollowedByTrans(shot, &transition))
            transitions.append(objects.transition(
                transition, transitions.size() + 1, number, view.next(shot).isValid() ? number + 1 : 0));
    }
    QJsonObject outline { { QStringLiteral("krolle"), QStringLiteral("outline") },
        { QStringLiteral("schema"), kSchemaVersion }, { QStringLiteral("file"), file },
        { QStringLiteral("sequencesExist"), view.sequenceExists() },
        { QStringLiteral("counts"), ProjectSummary(view).json() }, { QStringLiteral("acts"), acts },
        { QStringLiteral("sequences"), sequences }, { QStringLiteral("shots"), shots },
        { QStringLiteral("transitions"), transitions } };
    ObjectJson::addClock(outline, clock);
    return outline;
}

QString StoryboardOutline::table(const QJsonObject& outline)
{
    const bool timecodes = !outline.value(QStringLiteral("fps")).isNull();
    const QJsonArray acts = outline.value(QStringLiteral("acts")).toArray();
    const QJsonArray sequences = outline.value(QStringLiteral("sequences")).toArray();
    const QJsonArray transitions = outline.value(QStringLiteral("transitions")).toArray();
    TextTable table;
    QStringList header { QStringLiteral("object"), QStringLiteral("name"), QStringLiteral("named"),
        QStringLiteral("first"), QStringLiteral("last"), QStringLiteral("length") };
    if (timecodes)
        header << QStringLiteral("in") << QStringLiteral("out") << QStringLiteral("duration");
    for (const QJsonValue& name : outline.value(QStringLiteral("fieldNames")).toArray())
        header << name.toString();
    // Layer counts, when the outline has them, stand in a last column of panel rows.
    const bool layerCounts = outline.value(QStringLiteral("layerCounts")).toBool();
    if (layerCounts) {
        header << QStringLiteral("layers");
        table.setAlignment(header.size() - 1, TextTable::Align::Right);
    }
    table.setHeader(header);
    for (int column = 3; column < 6; ++column)
        table.setAlignment(column, TextTable::Align::Right);
    addTransitionRows(table, transitions, QJsonValue(), timecodes);
    for (const QJsonValue& value : outline.value(QStringLiteral("shots")).toArray()) {
        const QJsonObject shot = value.toObject();
        const int number = shot.value(QStringLiteral("number")).toInt();
        addRunRows(table, acts, "act", 0, number, timecodes);
        addRunRows(table, sequences, "sequence", 2, number, timecodes);
        table.addRow(cells(numbered("shot", shot, 4), shot, named(shot), timecodes));
        for (const QJsonValue& panel : shot.value(QStringLiteral("panels")).toArray()) {
            QStringList row = cells(
                numbered("panel", panel.toObject(), 6), panel.toObject(), named(panel.toObject()), timecodes)
                + fieldCells(outline, panel.toObject());
            if (layerCounts)
                row << OutlineLayers::cell(panel.toObject());
            table.addRow(row);
        }
        addTransitionRows(table, transitions, QJsonValue(number), timecodes);
    }
    const QString summary = ProjectSummary::describe(outline.value(QStringLiteral("counts")).toObject());
    const QString heading
        = QStringLiteral("%1: %2").arg(outline.value(QStringLiteral("file")).toString(), summary);
    return heading + QStringLiteral("\n\n")
        + (table.isEmpty() ? QStringLiteral("(no shots)\n") : table.toString());
}

// Puts the panels' field values (plain text) into the outline, as "fields" of each
// panel and the column names as "fieldNames". The outline lists the panels shot by
// shot, which is the order of the view's walk of all panels.
void StoryboardOutline::addToPanels(QJsonObject& outline, const KRC_KrolleProject& view, const QString& key,
    const std::function<QJsonValue(const Krolle::Panel_t&)>& of)
{
    auto panel = view.beginPanel();
    QJsonArray shots = outline.value(QStringLiteral("shots")).toArray();
    for (QJsonValueRef shotValue : shots) {
        QJsonObject shot = shotValue.toObject();
        QJsonArray panels = shot.value(QStringLiteral("panels")).toArray();
        for (QJsonValueRef panelValue : panels) {
            QJsonObject entry = panelValue.toObject();
            entry.insert(key, of(*panel++));
            panelValue = entry;
        }
        shot.insert(QStringLiteral("panels"), panels);
        shotValue = shot;
    }
    outline.insert(QStringLiteral("shots"), shots);
}

void StoryboardOutline::addFieldValues(QJsonObject& outline, const KRC_KrolleProject& view)
{
    addToPanels(outline, view, QStringLiteral("fields"),
        [&view](const Krolle::Panel_t& panel) { return InfoFieldText::panelValues(view, panel); });
    outline.insert(QStringLiteral("fieldNames"), QJsonArray::fromStringList(InfoFieldText::panelColumns(view)));
}
