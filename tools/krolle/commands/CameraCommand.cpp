#include "CameraCommand.h"

#include "Console.h"
#include "NamedObjects.h"
#include "ProjectDocument.h"
#include "TextTable.h"
#include "Timecode.h"

#include "camera/KRC_CameraManager.h"
#include "project/KRC_KrolleProject.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QRegularExpression>

namespace {

const int kSchemaVersion = 1;
const QString kWhere = QStringLiteral("WHERE");
const QString kShot = QStringLiteral("--shot");

// Rows of the matrix, each an array of four numbers.
QJsonArray matrixJson(const Math::Matrix4x4& matrix)
{
    QJsonArray rows;
    for (int row = 0; row < 4; ++row) {
        QJsonArray cells;
        for (int column = 0; column < 4; ++column)
            cells.append(matrix.at(row, column));
        rows.append(cells);
    }
    return rows;
}

// The matrix's four rows under its label, the label on the first row only.
void addMatrixRows(TextTable& table, const QString& label, const QJsonArray& rows)
{
    for (int row = 0; row < rows.size(); ++row) {
        QStringList cells { row == 0 ? label : QString() };
        for (const QJsonValue& cell : rows.at(row).toArray())
            cells << QString::number(cell.toDouble(), 'g', 6);
        table.addRow(cells);
    }
}

QString table(const QJsonObject& answer)
{
    const QString text = QStringLiteral("frame %1 of %2: shot %3 at its frame %4\n")
                             .arg(QString::number(answer.value(QStringLiteral("frame")).toInt()),
                                 answer.value(QStringLiteral("file")).toString(),
                                 answer.value(QStringLiteral("shot")).toString(),
                                 QString::number(answer.value(QStringLiteral("shotFrame")).toDouble(), 'g', 10));
    TextTable table;
    for (int column = 1; column <= 4; ++column)
        table.setAlignment(column, TextTable::Align::Right);
    addMatrixRows(table, QStringLiteral("global"), answer.value(QStringLiteral("global")).toArray());
    addMatrixRows(table, QStringLiteral("embedded"), answer.value(QStringLiteral("embedded")).toArray());
    return text + table.toString();
}

} // namespace

CameraCommand::CameraCommand()
    : Command(QStringLiteral("camera"), QStringLiteral("show the camera matrices at a frame, shot or panel"))
{
    ArgumentParser& parser = declare();
    parser.addPositional(QStringLiteral("FILE"), QStringLiteral("project file to read"));
    parser.addPositional(kWhere,
        QStringLiteral("project frame counted from 1, a timecode with --fps, or a shot or panel "
                       "(name, #number or id: its first frame)"));
    parser.addFlag(QStringLiteral("--json"), QStringLiteral("print one JSON document (see docs/tool.md)"));
    parser.addOption(kShot, QStringLiteral("SHOT"),
        QStringLiteral("count the frame from 1 inside this shot (name, #number or id)"));
    parser.addTimecodeOptions(QStringLiteral("the rate of a WHERE given as a timecode"));
    parser.setEpilogue(QStringLiteral("A word of digits is a frame; a shot named by digits is given as #number or id.\n"
                                      "\n"
                                      "examples: krolle camera demo.xml 140\n"
                                      "          krolle camera demo.xml SH040/2\n"
                                      "          krolle camera demo.xml 23 --shot SH040"));
}

namespace {

// A word that reads as a frame rather than as an address: digits, or a timecode.
bool isFrame(const QString& word)
{
    static const QRegularExpression digits(QStringLiteral("^[0-9]+$"));
    return Timecode::looksLikeTimecode(word) || digits.match(word).hasMatch();
}

// The shot at a project frame, or with --shot the named one, the frame then counting inside it.
Krolle::Shot_t shotAtFrame(const KRC_KrolleProject& view, const ArgumentValues& arguments, unsigned& frame)
{
    frame = arguments.frame(kWhere, arguments.positional(kWhere), arguments.timecode());
    if (!arguments.isSet(kShot))
        return view.getShotAt(frame, KRC_KrolleProject::PreferPrevious);
    const Krolle::Shot_t shot = NamedObjects::shot(view, arguments.value(kShot), QString());
    const unsigned length = shot.lastFrame() - shot.firstFrame() + 1;
    if (frame > length)
        throw ToolError::failure(QStringLiteral("%1 has %2 frames, not %3")
                                     .arg(NamedObjects::shotLabel(view, shot), QString::number(length), QString::number(frame)));
    frame += shot.firstFrame() - 1;
    return shot;
}

// The shot that WHERE names or stands in, and the project frame to look at.
Krolle::Shot_t shotOf(const KRC_KrolleProject& view, const ArgumentValues& arguments, unsigned& frame)
{
    const QString where = arguments.positional(kWhere);
    if (isFrame(where))
        return shotAtFrame(view, arguments, frame);
    if (arguments.isSet(kShot))
        throw ToolError::usage(
            QStringLiteral("--shot counts a frame inside the shot; '%1' is no frame").arg(where));
    Krolle::Shot_t shot;
    const Krolle::Panel_t panel = NamedObjects::shotOrPanel(view, where, shot, kWhere);
    frame = panel.isValid() ? panel.firstFrame() : shot.firstFrame();
    return shot;
}

} // namespace

ExitStatus CameraCommand::run(const ArgumentValues& arguments)
{
    if (isFrame(arguments.positional(kWhere)))
        arguments.frame(kWhere, arguments.positional(kWhere), arguments.timecode()); // bad usage before the load
    ProjectDocument document;
    document.open(arguments.positional(QStringLiteral("FILE")));
    const KRC_KrolleProject& view = document.view();
    unsigned frame = 0;
    const Krolle::Shot_t shot = shotOf(view, arguments, frame);
    if (shot.isInvalid() || !shot.symbol())
        throw ToolError::failure(
            QStringLiteral("frame %1 is outside the shots of %2, which end at frame %3")
                .arg(QString::number(frame), document.path(), QString::number(view.getNumOfFrames())));
    const double shotFrame = shot.projectFrameToShotFrame(frame);
    const MO_FrameKey key(shotFrame, MO_FrameKey::eExact);
    const Math::Matrix4x4 global
        = document.cameraManager()->globalCameraMatrix(shot.symbol()->sceneCommon(), key);
    const QJsonObject answer { { QStringLiteral("krolle"), QStringLiteral("camera") },
        { QStringLiteral("schema"), kSchemaVersion }, { QStringLiteral("file"), document.path() },
        { QStringLiteral("frame"), static_cast<qint64>(frame) }, { QStringLiteral("shot"), shot.name() },
        { QStringLiteral("shotId"), shot.id().toString() },
        { QStringLiteral("shotFrame"), shotFrame }, { QStringLiteral("global"), matrixJson(global) },
        { QStringLiteral("embedded"),
            matrixJson(KRC_CameraManager::shotEmbeddedCameraMatrix(shot, shotFrame)) } };
    if (arguments.isSet(QStringLiteral("--json")))
        Console::outJson(answer);
    else
        Console::out(table(answer));
    return ExitStatus::Success;
}
