#include "CameraCommand.h"

#include "Console.h"
#include "NamedObjects.h"
#include "ProjectDocument.h"
#include "TextTable.h"

#include "camera/KRC_CameraManager.h"
#include "project/KRC_KrolleProject.h"

#include <QJsonArray>
#include <QJsonObject>

namespace {

const int kSchemaVersion = 1;

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
    : Command(QStringLiteral("camera"), QStringLiteral("show the camera matrices at a frame"))
{
    ArgumentParser& parser = declare();
    parser.addPositional(QStringLiteral("FILE"), QStringLiteral("project file to read"));
    parser.addPositional(QStringLiteral("FRAME"), QStringLiteral("project frame, counted from 1, or a timecode with --fps"));
    parser.addFlag(QStringLiteral("--json"), QStringLiteral("print one JSON document (see docs/tool.md)"));
    parser.addOption(QStringLiteral("--shot"), QStringLiteral("SHOT"),
        QStringLiteral("count FRAME from 1 inside this shot (name, #number or id)"));
    parser.addTimecodeOptions(QStringLiteral("the rate of a FRAME given as a timecode"));
}

namespace {

// The shot at a project frame, or with --shot the named one, FRAME then counting inside it.
Krolle::Shot_t shotOf(const KRC_KrolleProject& view, const ArgumentValues& arguments, unsigned& frame)
{
    if (!arguments.isSet(QStringLiteral("--shot")))
        return view.getShotAt(frame, KRC_KrolleProject::PreferPrevious);
    const Krolle::Shot_t shot = NamedObjects::shot(view, arguments.value(QStringLiteral("--shot")), QString());
    const unsigned length = shot.lastFrame() - shot.firstFrame() + 1;
    if (frame > length)
        throw ToolError::failure(QStringLiteral("%1 has %2 frames, not %3")
                                     .arg(NamedObjects::shotLabel(view, shot), QString::number(length), QString::number(frame)));
    frame += shot.firstFrame() - 1;
    return shot;
}

} // namespace

ExitStatus CameraCommand::run(const ArgumentValues& arguments)
{
    unsigned frame
        = arguments.frame(QStringLiteral("FRAME"), arguments.positional(QStringLiteral("FRAME")), arguments.timecode());
    ProjectDocument document;
    document.open(arguments.positional(QStringLiteral("FILE")));
    const KRC_KrolleProject& view = document.view();
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
