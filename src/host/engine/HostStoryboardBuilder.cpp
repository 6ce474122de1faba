#include "host/engine/HostStoryboardBuilder.h"

#include "host/engine/AT_FrameBlock.h"
#include "host/engine/HostAuthoring.h"
#include "host/engine/SC_Project.h"
#include "host/engine/SC_ProjectCommon.h"
#include "host/engine/SC_SceneManager.h"
#include "host/engine/TUScene.h"
#include "host/engine/TUTimedValue.h"

#include <QRegularExpression>
#include <QStringList>

namespace {

struct ShotToken
{
    QString label;
    std::vector<unsigned> panels;
    bool warped = false;
    double start = 0.0;
    double end = 0.0;
    unsigned blockLength = 0; // 0: as the panels make it
};

struct TransitionToken
{
    unsigned junction = 0;
    unsigned length = 0;
    int type = AT_TransitionSeq::eDissolve;
    int angle = 0;
    bool reverse = false;
};

struct Parsed
{
    std::vector<ShotToken> shots;
    std::vector<TransitionToken> transitions;
    std::vector<int> shotTokens; // token number of each shot, for messages
    std::vector<int> transitionTokens; // token number of each transition
};

QString tokenError(int number, QString const& token, QString const& what)
{
    return QStringLiteral("token %1 \"%2\": %3").arg(number + 1).arg(token, what);
}

bool parseShot(QRegularExpressionMatch const& match, ShotToken& shot, QString* what)
{
    shot.label = match.captured(1);
    for (QString const& length : match.captured(2).split(QLatin1Char(','))) {
        shot.panels.push_back(length.toUInt());
        if (shot.panels.back() == 0) {
            *what = QStringLiteral("a panel needs at least one frame");
            return false;
        }
    }
    if (match.capturedLength(3) > 0) {
        shot.warped = true;
        shot.start = match.captured(3).toDouble();
        shot.end = match.captured(4).toDouble();
    }
    if (match.capturedLength(5) > 0)
        shot.blockLength = match.captured(5).toUInt();
    return true;
}

bool parseTransition(QRegularExpressionMatch const& match, TransitionToken& transition, QString* what)
{
    transition.length = match.captured(1).toUInt();
    QString const type = match.captured(2);
    if (!type.isEmpty()) {
        bool numeric = false;
        transition.type = type.toInt(&numeric);
        if (!numeric)
            transition.type = AT_TransitionSeq::typeFromString(type);
        if (transition.type < 0) {
            *what = QStringLiteral("unknown transition type");
            return false;
        }
    }
    transition.angle = match.captured(3).toInt();
    transition.reverse = match.capturedLength(4) > 0;
    return true;
}

bool parse(QString const& description, Parsed& parsed, QString* error)
{
    static QRegularExpression const shotPattern(QStringLiteral(
        "^S(\\w*)\\[(\\d+(?:,\\d+)*)\\](?:~(\\d+(?:\\.\\d+)?):(\\d+(?:\\.\\d+)?))?(?:=(\\d+))?$"));
    static QRegularExpression const transitionPattern(
        QStringLiteral("^T(\\d+)(?::(\\w+)(?:,(-?\\d+))?(?:,(r))?)?$"));
    QStringList const tokens
        = description.split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts);
    bool lastWasTransition = false;
    for (int i = 0; i < tokens.size(); ++i) {
        QString const& token = tokens[i];
        QString what;
        QRegularExpressionMatch const shot = shotPattern.match(token);
        QRegularExpressionMatch const transition = transitionPattern.match(token);
        if (shot.hasMatch()) {
            parsed.shots.emplace_back();
            parsed.shotTokens.push_back(i);
            lastWasTransition = false;
            if (!parseShot(shot, parsed.shots.back(), &what))
                return error ? (*error = tokenError(i, token, what), false) : false;
        } else if (transition.hasMatch()) {
            if (lastWasTransition)
                what = QStringLiteral("two transitions in a row");
            parsed.transitions.emplace_back();
            parsed.transitionTokens.push_back(i);
            parsed.transitions.back().junction = unsigned(parsed.shots.size());
            lastWasTransition = true;
            if (!what.isEmpty() || !parseTransition(transition, parsed.transitions.back(), &what))
                return error ? (*error = tokenError(i, token, what), false) : false;
        } else {
            if (error)
                *error = tokenError(
                    i, token, QStringLiteral("neither a shot \"S[...]\" nor a transition \"T<frames>\""));
            return false;
        }
    }
    return true;
}

// The ids asked for the n-th shot and its panels, shot first.
std::vector<SC_Id> shotIds(HostStoryboard const* ids, size_t n)
{
    std::vector<SC_Id> wanted;
    if (!ids || n >= ids->shots.size())
        return wanted;
    wanted.push_back(ids->shots[n]);
    if (n < ids->panels.size())
        wanted.insert(wanted.end(), ids->panels[n].begin(), ids->panels[n].end());
    return wanted;
}

// Makes every shot in one pass; false with the authoring's reason.
bool makeShots(HostStoryboard& board, std::vector<ShotToken> const& tokens, HostStoryboard const* ids, QString* what)
{
    std::vector<std::vector<unsigned>> lengths;
    std::vector<std::vector<SC_Id>> wanted;
    for (size_t i = 0; i < tokens.size(); ++i) {
        lengths.push_back(tokens[i].panels);
        wanted.push_back(shotIds(ids, i));
    }
    board.shots = HostAuthoring::appendShots(board.project.get(), lengths, what, wanted, &board.panels);
    return board.shots.size() == tokens.size();
}

// Gives a shot its warp, block length and label; false with the reason.
bool finishShot(HostStoryboard& board, ShotToken const& token, SC_Id const& shot, QString* what)
{
    SC_Project* project = board.project.get();
    if (token.warped && !HostAuthoring::setTimeWarp(project, shot, token.start, token.end, what))
        return false;
    if (token.blockLength > 0 && !HostAuthoring::resizeShot(project, shot, token.blockLength, what))
        return false;
    if (!token.label.isEmpty() && !board.shotsByLabel.emplace(token.label, shot).second) {
        *what = QStringLiteral("the label is given twice");
        return false;
    }
    return true;
}

QString number(double value)
{
    return QString::number(value, 'g', 15);
}

QString describeShot(SC_Project const* project, AT_FrameBlock const* block)
{
    auto const* scene = AT_AbstractSceneSeq::toAbstractScene(block->seq());
    auto const* symbol = scene
        ? dynamic_cast<TUScene const*>(project->projectCommon()->sceneManager()->find(scene->sceneId))
        : nullptr;
    if (!symbol)
        return QStringLiteral("X%1").arg(block->length());
    QStringList lengths;
    TUSeqTimedValue const* seq = symbol->sequence();
    for (unsigned i = 0; i < seq->getBlockCount(); ++i)
        lengths << QString::number(seq->blockAt(i)->length());
    QString text = QStringLiteral("S[%1]").arg(lengths.join(QLatin1Char(',')));
    auto const* warp = AT_TimeWarpSeq::toTimeWarp(block->seq());
    unsigned const n = seq->nFrames();
    bool const follows = warp && warp->start == 1.0 && warp->end == double(n) && block->length() == n;
    if (warp && !follows)
        text += QStringLiteral("~%1:%2").arg(number(warp->start), number(warp->end));
    if (!follows && block->length() != n)
        text += QStringLiteral("=%1").arg(block->length());
    return text;
}

QString describeTransition(AT_FrameBlock const* block)
{
    auto const* seq = AT_TransitionSeq::toTransition(block->seq());
    QString text = QStringLiteral("T%1").arg(block->length());
    if (seq->type == AT_TransitionSeq::eDissolve && seq->angle == 0 && !seq->reverse)
        return text;
    QString type = seq->typeString().toLower().remove(QLatin1Char(' '));
    if (AT_TransitionSeq::typeFromString(type) != seq->type)
        type = QString::number(seq->type);
    text += QStringLiteral(":") + type;
    if (seq->angle != 0 || seq->reverse)
        text += QStringLiteral(",%1").arg(seq->angle);
    if (seq->reverse)
        text += QStringLiteral(",r");
    return text;
}

} // namespace

namespace HostStoryboardBuilder {

HostStoryboard build(
    QString const& description, QString* error, TUSceneChangeManager* manager, HostStoryboard const* ids)
{
    Parsed parsed;
    if (!parse(description, parsed, error))
        return HostStoryboard();
    HostStoryboard board;
    board.project = HostAuthoring::createProject();
    SC_Project* project = board.project.get();
    QStringList const tokens
        = description.split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts);
    QString what;
    if (!makeShots(board, parsed.shots, ids, &what)) {
        if (error)
            *error = what;
        return HostStoryboard();
    }
    for (size_t i = 0; i < parsed.shots.size(); ++i) {
        if (!finishShot(board, parsed.shots[i], board.shots[i], &what)) {
            int const token = parsed.shotTokens[i];
            if (error)
                *error = tokenError(token, tokens[token], what);
            return HostStoryboard();
        }
    }
    for (size_t i = 0; i < parsed.transitions.size(); ++i) {
        TransitionToken const& t = parsed.transitions[i];
        SC_Id const wanted = ids && i < ids->transitions.size() ? ids->transitions[i] : SC_Id();
        SC_Id const id = HostAuthoring::insertTransition(
            project, t.junction, t.length, t.type, t.angle, t.reverse, &what, wanted);
        if (id.isNull()) {
            int const token = parsed.transitionTokens[i];
            if (error)
                *error = tokenError(token, tokens[token], what);
            return HostStoryboard();
        }
        board.transitions.push_back(id);
    }
    project->projectCommon()->setChangeManager(manager);
    return board;
}

QString describe(SC_Project const* project)
{
    TUScene const* top = project ? project->topScene() : nullptr;
    if (!top)
        return QString();
    QStringList tokens;
    TUSeqTimedValue const* seq = top->sequence();
    for (unsigned i = 0; i < seq->getBlockCount(); ++i) {
        AT_FrameBlock const* block = seq->blockAt(i);
        tokens << (block->isTransition() ? describeTransition(block) : describeShot(project, block));
    }
    return tokens.join(QLatin1Char(' '));
}

} // namespace HostStoryboardBuilder
