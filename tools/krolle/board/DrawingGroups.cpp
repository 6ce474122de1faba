#include "DrawingGroups.h"

#include <QFileInfo>
#include <QRegularExpression>

DrawingGroups::Parts DrawingGroups::parts(const QString& fileName)
{
    static const QRegularExpression sequencePrefix(
        QStringLiteral("^(sq\\d+[a-z]?)[-_ .]+(.+)$"), QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression trailingNumber(
        QStringLiteral("^(.+?)[-_ .]+p?(\\d+)$"), QRegularExpression::CaseInsensitiveOption);
    Parts result;
    QString rest = QFileInfo(fileName).completeBaseName();
    const QRegularExpressionMatch prefix = sequencePrefix.match(rest);
    if (prefix.hasMatch()) {
        result.sequence = prefix.captured(1);
        rest = prefix.captured(2);
    }
    const QRegularExpressionMatch number = trailingNumber.match(rest);
    result.numbered = number.hasMatch();
    result.group = result.numbered ? number.captured(1) : rest;
    return result;
}

namespace {

// The name of the shot or sequence a drawing's parts give, for one way of grouping.
QString sequenceOf(const DrawingGroups::Parts& parts, DrawingGroups::By by)
{
    if (by == DrawingGroups::By::Image)
        return QString();
    if (by == DrawingGroups::By::Sequence && parts.sequence.isNull() && parts.numbered)
        return parts.group;
    return parts.sequence;
}

bool sameName(const QString& a, const QString& b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0 && a.isNull() == b.isNull();
}

} // namespace

ImportedBoard DrawingGroups::board(
    const QStringList& names, const QStringList& keys, By by, unsigned length, const QString& field)
{
    ImportedBoard board;
    board.sequences = false;
    board.panelFields.append(QJsonObject { { QStringLiteral("name"), field }, { QStringLiteral("kind"), QStringLiteral("image") },
        { QStringLiteral("hidden"), false } });
    for (int i = 0; i < names.size(); ++i) {
        const Parts drawing = parts(names[i]);
        const QString sequence = sequenceOf(drawing, by);
        const QString shot = by == By::Shot ? drawing.group : QString();
        board.sequences = board.sequences || !sequence.isNull();
        const bool joins = by == By::Shot && !board.shots.isEmpty()
            && sameName(board.shots.last().names.name, shot) && sameName(board.shots.last().names.sequence, sequence);
        if (!joins) {
            ImportedBoard::Shot opened;
            // A sequence is a run of shots of one name: keep the run's first spelling.
            const bool sameSequence = !board.shots.isEmpty() && sameName(board.shots.last().names.sequence, sequence);
            opened.names.sequence = sameSequence ? board.shots.last().names.sequence : sequence;
            opened.names.name = shot;
            board.shots.append(opened);
        }
        ImportedBoard::Shot& current = board.shots.last();
        current.panelLengths.append(length);
        current.panelFields.append(QJsonObject { { field, keys.value(i) } });
    }
    return board;
}
