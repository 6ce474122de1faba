#include "host/engine/HostProjectFile.h"

#include "host/context/TUDbSceneData.h"
#include "host/engine/AT_FrameBlock.h"
#include "host/engine/HostFileFingerprint.h"
#include "host/engine/HostNodeXml.h"
#include "host/engine/HostSceneChains.h"
#include "host/engine/SC_Project.h"
#include "host/engine/SC_ProjectCommon.h"
#include "host/engine/SC_SceneManager.h"
#include "host/engine/TUScene.h"
#include "host/engine/TUTimedValue.h"
#include "host/persistence/PIO_Metadatas.h"
#include "host/persistence/PIO_MetadatasXml.h"
#include "host/persistence/PIO_WritingContext.h"
#include "host/persistence/PO_XmlGuard.h"
#include "host/persistence/PO_XmlLimits.h"
#include "host/persistence/PO_XmlWriter.h"

#include <QIODevice>
#include <QFile>
#include <QSaveFile>
#include <QStringList>
#include <QXmlStreamReader>
#include <QLocale>
#include <QXmlStreamWriter>

#include <cerrno>
#include <cmath>
#include <cstring>
#include <limits>
#include <sys/stat.h>
#include <unordered_map>
#include <unordered_set>
#include <unistd.h>

namespace {

// Element and attribute names of the project file.
QString const kProject = QStringLiteral("engineProject");
QString const kDefaultCamera = QStringLiteral("defaultCamera");
QString const kScene = QStringLiteral("scene");
QString const kSequence = QStringLiteral("sequence");
QString const kBlock = QStringLiteral("block");
QString const kCamera = QStringLiteral("camera");
QString const kKey = QStringLiteral("key");
QString const kNodes = QStringLiteral("nodes");
QString const kVersion = QStringLiteral("version");
QString const kNextId = QStringLiteral("nextId");
QString const kName = QStringLiteral("name");
QString const kDir = QStringLiteral("dir");
QString const kMatrix = QStringLiteral("matrix");
QString const kId = QStringLiteral("id");
QString const kNear = QStringLiteral("near");
QString const kFar = QStringLiteral("far");
QString const kFirst = QStringLiteral("first");
QString const kLast = QStringLiteral("last");
QString const kKind = QStringLiteral("kind");
QString const kSceneRef = QStringLiteral("scene");
QString const kStart = QStringLiteral("start");
QString const kEnd = QStringLiteral("end");
QString const kType = QStringLiteral("type");
QString const kAngle = QStringLiteral("angle");
QString const kReverse = QStringLiteral("reverse");
QString const kFrame = QStringLiteral("frame");

// Values of the "kind" attribute of a block.
QString const kKindScene = QStringLiteral("scene");
QString const kKindWarp = QStringLiteral("warp");
QString const kKindTransition = QStringLiteral("transition");
QString const kKindOther = QStringLiteral("other");
QString const kKindEmpty = QStringLiteral("empty");

QString const kFormatVersion = QStringLiteral("1");

// --- Writing -------------------------------------------------------------------

// The shortest text that reads back as the same double: "0.1", not the 17 digits that
// a fixed precision writes, at a fraction of their cost.
QString number(double value)
{
    return QString::number(value, 'g', QLocale::FloatingPointShortest);
}

QString idText(SC_Id const& id)
{
    return QString::number(id.value());
}

QString matrixText(Math::Matrix4x4 const& matrix)
{
    QStringList values;
    for (int i = 0; i < 16; ++i)
        values << number(matrix.data()[i]);
    return values.join(QLatin1Char(' '));
}

void writeMetadatas(QXmlStreamWriter& xml, PIO_Metadatas const& records)
{
    PO_XmlWriter writer(xml);
    PIO_WritingContext context(writer);
    PIO_MetadatasXml::write(records, context);
}

void writeBlock(QXmlStreamWriter& xml, AT_FrameBlock const& block)
{
    xml.writeStartElement(kBlock);
    xml.writeAttribute(kFirst, QString::number(block.firstFrame));
    xml.writeAttribute(kLast, QString::number(block.lastFrame));
    TUSeq const* seq = block.seq();
    if (!block.hasSeq) {
        xml.writeAttribute(kKind, kKindEmpty);
    } else if (auto const* warp = AT_TimeWarpSeq::toTimeWarp(seq)) {
        xml.writeAttribute(kKind, kKindWarp);
        xml.writeAttribute(kSceneRef, idText(warp->sceneId));
        xml.writeAttribute(kStart, number(warp->start));
        xml.writeAttribute(kEnd, number(warp->end));
    } else if (auto const* scene = AT_AbstractSceneSeq::toAbstractScene(seq)) {
        xml.writeAttribute(kKind, kKindScene);
        xml.writeAttribute(kSceneRef, idText(scene->sceneId));
    } else if (auto const* transition = AT_TransitionSeq::toTransition(seq)) {
        xml.writeAttribute(kKind, kKindTransition);
        xml.writeAttribute(kId, idText(transition->id));
        xml.writeAttribute(kType, QString::number(transition->type));
        xml.writeAttribute(kAngle, QString::number(transition->angle));
        xml.writeAttribute(kReverse, transition->reverse ? QStringLiteral("true") : QStringLiteral("false"));
    } else {
        xml.writeAttribute(kKind, kKindOther);
    }
    xml.writeEndElement();
}

void writeSequence(QXmlStreamWriter& xml, TUSeqTimedValue const& seq)
{
    xml.writeStartElement(kSequence);
    if (!seq.name().isNull())
        xml.writeAttribute(kName, seq.name());
    for (unsigned i = 0; i < seq.getBlockCount(); ++i)
        writeBlock(xml, *seq.blockAt(i));
    xml.writeEndElement();
}

void writeCamera(QXmlStreamWriter& xml, TUScene const& scene)
{
    if (scene.embeddedCameraKeys().empty())
        return;
    xml.writeStartElement(kCamera);
    for (auto const& key : scene.embeddedCameraKeys()) {
        xml.writeStartElement(kKey);
        xml.writeAttribute(kFrame, number(key.first));
        xml.writeAttribute(kMatrix, matrixText(key.second));
        xml.writeEndElement();
    }
    xml.writeEndElement();
}

void writeScene(QXmlStreamWriter& xml, TUScene const& scene)
{
    xml.writeStartElement(kScene);
    xml.writeAttribute(kId, idText(scene.id));
    if (!scene.name().isNull())
        xml.writeAttribute(kName, scene.name());
    double nearPlane = 0.0;
    double farPlane = 0.0;
    scene.sceneCommon()->cameraPlanes(nearPlane, farPlane);
    xml.writeAttribute(kNear, number(nearPlane));
    xml.writeAttribute(kFar, number(farPlane));
    writeSequence(xml, *scene.sequence());
    writeCamera(xml, scene);
    writeMetadatas(xml, *scene.metadatas());
    HostNodeXml::write(xml, *scene.sceneCommon());
    xml.writeEndElement();
}

// What holds the first character that the writer could not carry, or a null string.
QString writeProject(QXmlStreamWriter& xml, SC_Project const& project)
{
    SC_ProjectCommon const* common = project.projectCommon();
    xml.writeStartElement(kProject);
    xml.writeAttribute(kVersion, kFormatVersion);
    xml.writeAttribute(kNextId, QString::number(common->nextIdValue()));
    TUDbSceneData const* context = common->dbSceneData();
    if (!context->sceneName().isNull())
        xml.writeAttribute(kName, context->sceneName());
    if (!context->projectDir().isNull())
        xml.writeAttribute(kDir, context->projectDir());
    xml.writeEmptyElement(kDefaultCamera);
    xml.writeAttribute(kMatrix, matrixText(common->defaultCameraMatrix()));
    writeMetadatas(xml, *project.metadatas());
    QString fault = xml.hasError() ? QStringLiteral("the project's name, folder or records") : QString();
    for (unsigned i = 0; i < project.sceneCount(); ++i) {
        if (auto const* scene = dynamic_cast<TUScene const*>(project.sceneAt(i))) {
            writeScene(xml, *scene);
            if (fault.isNull() && xml.hasError())
                fault = QStringLiteral("scene %1").arg(idText(scene->id));
        }
    }
    xml.writeEndElement();
    return fault;
}

// --- Reading -------------------------------------------------------------------

QString framesText(quint64 first, quint64 last)
{
    return first == last ? QStringLiteral("frame %1").arg(first)
                         : QStringLiteral("frames %1 to %2").arg(first).arg(last);
}

// Where something was read, for messages about it once the whole file is in.
struct Place
{
    qint64 line = 0;
    qint64 column = 0;

    QString prefix() const { return QStringLiteral("line %1, column %2: ").arg(line).arg(column); }
};

// Reads one document into a new project, element by element. Every fault stops the
// reading with a message that names its place; the caller then drops the project.
class ProjectReader
{
public:
    ProjectReader(PO_XmlGuard& guard, SC_Project* project)
        : m_guard(guard)
        , m_xml(guard.stream())
        , m_project(project)
    {
    }

    bool read(QString* error);

private:
    Place here() const { return Place { m_xml.lineNumber(), m_xml.columnNumber() }; }
    bool fail(QString const& message)
    {
        if (m_error.isEmpty())
            m_error = here().prefix() + message;
        if (!m_guard.hasError())
            m_guard.raiseError(message);
        return false;
    }
    bool failAt(Place const& place, QString const& message)
    {
        m_error = place.prefix() + message;
        return false;
    }

    bool nextChild(QString& name);
    bool required(QString const& name, QString& value);
    bool readUnsigned(QString const& name, quint64& value, quint64 max);
    bool readDouble(QString const& name, double& value, bool optional = false);
    bool readId(QString const& name, SC_Id& id);
    bool readMatrix(Math::Matrix4x4& matrix);

    bool readRoot();
    bool readScene();
    bool readSequence(TUScene& scene);
    bool readBlock(TUSeqTimedValue& seq);
    bool readSeq(QString const& kind, std::unique_ptr<TUSeq>& seq);
    bool readCamera(TUScene& scene);
    bool readMetadatas(PIO_Metadatas& records);

    bool checkProject();
    bool checkReferences(TUScene const& scene, std::unordered_set<SC_Id>& shown);
    bool checkCoverage();
    bool checkCovered(TUScene const& scene, quint64 lastShown, bool panelsOnly);

    PO_XmlGuard& m_guard; // moves through the document
    QXmlStreamReader const& m_xml; // the token at which it stands
    SC_Project* m_project;
    QString m_error;
    quint64 m_nextId = 0;
    /// Where `object` was read; a fault's place is only asked for on the way out, so a
    /// search of the list is cheap enough.
    template <class T> static Place placeOf(std::vector<std::pair<T const*, Place>> const& read, T const* object)
    {
        for (auto const& entry : read) {
            if (entry.first == object)
                return entry.second;
        }
        return Place();
    }
    Place blockPlace(AT_FrameBlock const* block) const { return placeOf(m_blockPlaces, block); }
    Place scenePlace(SC_SceneBase const* scene) const { return placeOf(m_scenePlaces, scene); }

    // Kept in the order read: a project holds tens of thousands of blocks and scenes,
    // and a hashed (before that, a tree) insertion each was a good part of a load.
    std::vector<AT_FrameBlock const*> m_blocksRead;
    std::vector<std::pair<AT_FrameBlock const*, Place>> m_blockPlaces;
    std::vector<std::pair<SC_SceneBase const*, Place>> m_scenePlaces;
};

// Steps to the next child element of the current one; false at its end (or on error).
bool ProjectReader::nextChild(QString& name)
{
    if (!m_guard.readNextStartElement())
        return false;
    name = m_xml.name().toString();
    return true;
}

bool ProjectReader::required(QString const& name, QString& value)
{
    QXmlStreamAttributes const attributes = m_xml.attributes();
    if (!attributes.hasAttribute(name))
        return fail(QStringLiteral("<%1> lacks the attribute \"%2\"").arg(m_xml.name().toString(), name));
    value = attributes.value(name).toString();
    return true;
}

bool ProjectReader::readUnsigned(QString const& name, quint64& value, quint64 max)
{
    QString text;
    if (!required(name, text))
        return false;
    bool ok = false;
    value = text.toULongLong(&ok);
    if (!ok || value > max)
        return fail(QStringLiteral("\"%1\" is not a valid value for \"%2\"").arg(text, name));
    return true;
}

bool ProjectReader::readDouble(QString const& name, double& value, bool optional)
{
    if (optional && !m_xml.attributes().hasAttribute(name))
        return true;
    QString text;
    if (!required(name, text))
        return false;
    bool ok = false;
    value = text.toDouble(&ok);
    if (!ok || !std::isfinite(value))
        return fail(QStringLiteral("\"%1\" is not a valid number for \"%2\"").arg(text, name));
    return true;
}

bool ProjectReader::readId(QString const& name, SC_Id& id)
{
    quint64 value = 0;
    if (!readUnsigned(name, value, std::numeric_limits<quint64>::max()))
        return false;
    if (value == 0)
        return fail(QStringLiteral("the id in \"%1\" is 0, which is no id").arg(name));
    id = SC_Id(value);
    return true;
}

bool ProjectReader::readMatrix(Math::Matrix4x4& matrix)
{
    QString text;
    if (!required(kMatrix, text))
        return false;
    QStringList const parts = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    double values[16];
    bool ok = parts.size() == 16;
    for (int i = 0; ok && i < 16; ++i) {
        values[i] = parts[i].toDouble(&ok);
        ok = ok && std::isfinite(values[i]);
    }
    if (!ok)
        return fail(QStringLiteral("a matrix needs 16 numbers"));
    matrix = Math::Matrix4x4(values);
    return true;
}

bool ProjectReader::read(QString* error)
{
    bool ok = false;
    if (m_guard.readNextStartElement()) {
        ok = m_xml.name() == kProject
            ? readRoot()
            : fail(QStringLiteral("the document is no engine project (<%1>)").arg(m_xml.name().toString()));
    }
    if (ok) {
        // Nothing but comments and white space may follow the root.
        while (!m_guard.atEnd() && !m_guard.hasError()) {
            if (m_guard.readNext() == QXmlStreamReader::StartElement)
                ok = fail(QStringLiteral("content after the end of the project"));
        }
    }
    if (m_guard.hasError() && m_error.isEmpty())
        m_error = here().prefix() + m_guard.errorString();
    if (!m_guard.hasError() && !ok && m_error.isEmpty())
        m_error = here().prefix() + QStringLiteral("the document holds no project");
    ok = ok && !m_guard.hasError() && checkProject();
    if (!ok && error)
        *error = m_error;
    return ok;
}

bool ProjectReader::readRoot()
{
    QString version;
    if (!required(kVersion, version))
        return false;
    if (version != kFormatVersion)
        return fail(QStringLiteral("version \"%1\" of the project file is not known").arg(version));
    if (!readUnsigned(kNextId, m_nextId, std::numeric_limits<quint64>::max()))
        return false;
    QXmlStreamAttributes const attributes = m_xml.attributes();
    TUDbSceneData* context = m_project->projectCommon()->dbSceneData();
    if (attributes.hasAttribute(kName))
        context->setSceneName(attributes.value(kName).toString());
    if (attributes.hasAttribute(kDir))
        context->setProjectDir(attributes.value(kDir).toString());
    bool hadCamera = false;
    bool hadRecords = false;
    QString child;
    while (nextChild(child)) {
        bool ok = false;
        if (child == kDefaultCamera && !hadCamera && m_project->sceneCount() == 0) {
            Math::Matrix4x4 matrix;
            ok = readMatrix(matrix);
            m_project->projectCommon()->setDefaultCameraMatrix(matrix);
            m_guard.skipCurrentElement();
            hadCamera = true;
        } else if (child == PIO_MetadatasXml::collectionElement && !hadRecords
            && m_project->sceneCount() == 0) {
            ok = readMetadatas(*m_project->metadatas());
            hadRecords = true;
        } else if (child == kScene) {
            ok = readScene();
        } else {
            ok = fail(QStringLiteral("unexpected element <%1> in the project").arg(child));
        }
        if (!ok)
            return false;
    }
    return !m_guard.hasError();
}

bool ProjectReader::readScene()
{
    Place const place = here();
    SC_Id id;
    if (!readId(kId, id))
        return false;
    if (m_project->projectCommon()->sceneManager()->find(id))
        return fail(QStringLiteral("scene id %1 is given twice").arg(id.value()));
    double nearPlane = 0.1;
    double farPlane = 1000.0;
    if (!readDouble(kNear, nearPlane, true) || !readDouble(kFar, farPlane, true))
        return false;
    QXmlStreamAttributes const attributes = m_xml.attributes();
    QString const name = attributes.hasAttribute(kName) ? attributes.value(kName).toString() : QString();
    TUScene* scene = m_project->createScene(name, id);
    scene->sceneCommon()->setCameraPlanes(nearPlane, farPlane);
    m_scenePlaces.emplace_back(scene, place);
    QStringList seen; // a scene has four kinds of children at most
    QString child;
    while (nextChild(child)) {
        if (seen.contains(child))
            return fail(QStringLiteral("<%1> is given twice in scene %2").arg(child).arg(id.value()));
        seen << child;
        bool ok = false;
        if (child == kSequence)
            ok = readSequence(*scene);
        else if (child == kCamera)
            ok = readCamera(*scene);
        else if (child == PIO_MetadatasXml::collectionElement)
            ok = readMetadatas(*scene->metadatas());
        else if (child == kNodes)
            ok = HostNodeXml::read(m_guard, *scene->sceneCommon(), &m_error) || fail(QString());
        else
            ok = fail(QStringLiteral("unexpected element <%1> in scene %2").arg(child).arg(id.value()));
        if (!ok)
            return false;
    }
    return !m_guard.hasError();
}

bool ProjectReader::readSequence(TUScene& scene)
{
    TUSeqTimedValue* seq = scene.sequence();
    if (m_xml.attributes().hasAttribute(kName))
        seq->setName(m_xml.attributes().value(kName).toString());
    QString child;
    while (nextChild(child)) {
        if (child != kBlock)
            return fail(QStringLiteral("unexpected element <%1> in a sequence").arg(child));
        if (!readBlock(*seq))
            return false;
    }
    return !m_guard.hasError();
}

bool ProjectReader::readBlock(TUSeqTimedValue& seq)
{
    Place const place = here();
    quint64 first = 0;
    quint64 last = 0;
    QString kind;
    quint32 const maxFrame = std::numeric_limits<quint32>::max();
    if (!readUnsigned(kFirst, first, maxFrame) || !readUnsigned(kLast, last, maxFrame)
        || !required(kKind, kind))
        return false;
    std::unique_ptr<TUSeq> content;
    if (!readSeq(kind, content))
        return false;
    bool const empty = kind == kKindEmpty;
    if (!empty && !content)
        return false;
    AT_FrameBlock const* block = seq.insertBlock(seq.getBlockCount(),
        std::make_unique<AT_FrameBlock>(quint32(first), quint32(last), std::move(content)));
    m_blockPlaces.emplace_back(block, place);
    m_blocksRead.push_back(block);
    m_guard.skipCurrentElement();
    return !m_guard.hasError();
}

bool ProjectReader::readSeq(QString const& kind, std::unique_ptr<TUSeq>& seq)
{
    SC_Id id;
    if (kind == kKindWarp) {
        double start = 0.0;
        double end = 0.0;
        if (!readId(kSceneRef, id) || !readDouble(kStart, start) || !readDouble(kEnd, end))
            return false;
        if (end < start)
            return fail(QStringLiteral("the time warp ends (%1) before it starts (%2)").arg(end).arg(start));
        seq = std::make_unique<AT_TimeWarpSeq>(id, start, end);
    } else if (kind == kKindScene) {
        if (!readId(kSceneRef, id))
            return false;
        seq = std::make_unique<AT_AbstractSceneSeq>(id);
    } else if (kind == kKindTransition) {
        QString type;
        QString angle;
        QString reverse;
        if (!readId(kId, id) || !required(kType, type) || !required(kAngle, angle)
            || !required(kReverse, reverse))
            return false;
        bool typeOk = false;
        bool angleOk = false;
        int const typeValue = type.toInt(&typeOk);
        int const angleValue = angle.toInt(&angleOk);
        if (!typeOk || !angleOk || (reverse != QLatin1String("true") && reverse != QLatin1String("false")))
            return fail(QStringLiteral("the transition's type, angle or reverse flag is not valid"));
        seq = std::make_unique<AT_TransitionSeq>(id, typeValue, angleValue, reverse == QLatin1String("true"));
    } else if (kind == kKindOther) {
        seq = std::make_unique<TUSeq>();
    } else if (kind != kKindEmpty) {
        return fail(QStringLiteral("unknown kind of block \"%1\"").arg(kind));
    }
    return true;
}

bool ProjectReader::readCamera(TUScene& scene)
{
    QString child;
    while (nextChild(child)) {
        if (child != kKey)
            return fail(QStringLiteral("unexpected element <%1> in a camera").arg(child));
        double frame = 0.0;
        Math::Matrix4x4 matrix;
        if (!readDouble(kFrame, frame) || !readMatrix(matrix))
            return false;
        if (scene.embeddedCameraKeys().count(frame))
            return fail(QStringLiteral("two camera keys at frame %1").arg(frame));
        scene.setEmbeddedCameraKey(frame, matrix);
        m_guard.skipCurrentElement();
    }
    return !m_guard.hasError();
}

bool ProjectReader::readMetadatas(PIO_Metadatas& records)
{
    QString message;
    if (!PIO_MetadatasXml::read(m_guard, records, &message)) {
        m_error = message;
        return false;
    }
    return true;
}

// --- Checks once everything is read ------------------------------------------

bool ProjectReader::checkProject()
{
    if (m_project->sceneCount() == 0)
        return failAt(Place { 1, 1 }, QStringLiteral("the project has no scene"));
    SC_ProjectCommon* common = m_project->projectCommon();
    // Transition ids are unique in the project and no scene's.
    std::unordered_set<SC_Id> transitionIds;
    for (AT_FrameBlock const* block : m_blocksRead) {
        auto const* transition = AT_TransitionSeq::toTransition(block->seq());
        if (!transition)
            continue;
        if (common->sceneManager()->find(transition->id) || !transitionIds.insert(transition->id).second)
            return failAt(blockPlace(block),
                QStringLiteral("transition id %1 is already used").arg(transition->id.value()));
        common->reserveId(transition->id);
    }
    std::unordered_set<SC_Id> shown;
    shown.reserve(m_blocksRead.size());
    for (unsigned i = 0; i < m_project->sceneCount(); ++i) {
        if (!checkReferences(*static_cast<TUScene const*>(m_project->sceneAt(i)), shown))
            return false;
    }
    if (m_nextId < common->nextIdValue())
        return failAt(Place { 1, 1 },
            QStringLiteral("\"nextId\" %1 is not above every id of the project").arg(m_nextId));
    common->reserveId(SC_Id(m_nextId - 1));
    return checkCoverage();
}

// Each block refers to a scene of the project, which it alone shows.
bool ProjectReader::checkReferences(TUScene const& scene, std::unordered_set<SC_Id>& shown)
{
    TUSeqTimedValue const* seq = scene.sequence();
    QString why;
    if (!seq->isConsistent(&why))
        return failAt(
            scenePlace(&scene), QStringLiteral("sequence of scene %1: %2").arg(scene.id.value()).arg(why));
    for (unsigned i = 0; i < seq->getBlockCount(); ++i) {
        AT_FrameBlock const* block = seq->blockAt(i);
        auto const* sceneSeq = AT_AbstractSceneSeq::toAbstractScene(block->seq());
        if (!sceneSeq)
            continue;
        SC_Id const target = sceneSeq->sceneId;
        SC_SceneBase const* shownScene = m_project->projectCommon()->sceneManager()->find(target);
        if (!shownScene)
            return failAt(blockPlace(block),
                QStringLiteral("the block refers to scene %1, which does not exist").arg(target.value()));
        if (shownScene == m_project->sceneAt(0) || shownScene == &scene)
            return failAt(blockPlace(block),
                QStringLiteral("the block shows scene %1, which cannot be shown there").arg(target.value()));
        if (!shown.insert(target).second)
            return failAt(
                blockPlace(block), QStringLiteral("scene %1 is shown by two blocks").arg(target.value()));
    }
    return true;
}

// The library finds shots and panels by the frames they cover. The top scene's blocks
// leave no frame from 1 to its end uncovered, and every frame a shot shows of its
// symbol lies in a panel, so that every walk over shots and panels steps from one to
// the next. Overlaps are the layout rules' business (checked before).
bool ProjectReader::checkCoverage()
{
    auto const* top = static_cast<TUScene const*>(m_project->sceneAt(0));
    if (!checkCovered(*top, 0, false))
        return false;
    SC_SceneManager const* scenes = m_project->projectCommon()->sceneManager();
    TUSeqTimedValue const* seq = top->sequence();
    for (unsigned i = 0; i < seq->getBlockCount(); ++i) {
        AT_FrameBlock const* block = seq->blockAt(i);
        auto const* sceneSeq = AT_AbstractSceneSeq::toAbstractScene(block->seq());
        if (!sceneSeq)
            continue;
        auto const* symbol = static_cast<TUScene const*>(scenes->find(sceneSeq->sceneId));
        // The symbol frames a shot shows: its warp's range, or as many as it is long.
        double firstShown = 1.0;
        double lastShown = double(block->length());
        if (auto const* warp = AT_TimeWarpSeq::toTimeWarp(block->seq())) {
            firstShown = std::trunc(warp->start);
            lastShown = std::trunc(warp->end);
        }
        if (firstShown < 1.0)
            return failAt(blockPlace(block),
                QStringLiteral("the shot shows frame %1 of scene %2, before its first frame")
                    .arg(firstShown)
                    .arg(symbol->id.value()));
        // Frames are 32-bit: a warp reaching further shows frames no block can hold.
        lastShown = std::min(lastShown, double(std::numeric_limits<quint32>::max()) + 1.0);
        if (!checkCovered(*symbol, quint64(lastShown), true))
            return false;
    }
    return true;
}

// No frame of the scene from 1 to its last block's end (or to `lastShown`, when
// greater) lies outside its blocks; with `panelsOnly`, each block shows a scene.
bool ProjectReader::checkCovered(TUScene const& scene, quint64 lastShown, bool panelsOnly)
{
    TUSeqTimedValue const* seq = scene.sequence();
    quint64 covered = 0; // every frame up to this one lies in a block
    for (unsigned i = 0; i < seq->getBlockCount(); ++i) {
        AT_FrameBlock const* block = seq->blockAt(i);
        bool const transition = AT_TransitionSeq::isTransition(block->seq());
        if (panelsOnly && (transition || !AT_AbstractSceneSeq::toAbstractScene(block->seq())))
            return failAt(blockPlace(block),
                QStringLiteral("block %1 of scene %2 shows no panel").arg(i + 1).arg(scene.id.value()));
        if (transition)
            continue;
        if (block->firstFrame > covered + 1)
            return failAt(blockPlace(block),
                QStringLiteral("scene %1 leaves %2 outside its blocks, where no walk can pass")
                    .arg(scene.id.value())
                    .arg(framesText(covered + 1, block->firstFrame - 1)));
        covered = std::max<quint64>(covered, block->lastFrame);
    }
    if (lastShown > covered)
        return failAt(scenePlace(&scene),
            QStringLiteral("scene %1 leaves %2, which its shot shows, outside its blocks")
                .arg(scene.id.value())
                .arg(framesText(covered + 1, lastShown)));
    return true;
}

} // namespace

namespace {

// The writer's device: each piece appended to the document, and nothing else done (a
// buffer keeps a position, resizes to it and may emit signals on every write).
class AppendDevice : public QIODevice
{
public:
    explicit AppendDevice(QByteArray& out)
        : m_out(out)
    {
        open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    }

protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(char const* data, qint64 size) override
    {
        m_out.append(data, int(size));
        return size;
    }

private:
    QByteArray& m_out;
};

} // namespace

namespace HostProjectFile {

QByteArray toXml(SC_Project const* project, QString* error)
{
    QByteArray document;
    if (!project)
        return document;
    AppendDevice buffer(document);
    QXmlStreamWriter xml(&buffer);
    xml.setAutoFormatting(true);
    xml.setAutoFormattingIndent(1);
    xml.writeStartDocument();
    QString const fault = writeProject(xml, *project);
    xml.writeEndDocument();
    if (fault.isNull())
        return document;
    if (error)
        *error = QStringLiteral("%1 holds a character that XML cannot carry (a control character or an"
                                " unpaired surrogate) in a name or a text")
                     .arg(fault);
    return QByteArray();
}

UT_SharedPtr<SC_Project> fromXml(QByteArray const& document, QString* error, TUSceneChangeManager* manager)
{
    // Chains of scenes showing scenes are bounded (and cycles refused) as the scenes
    // are read, in the same pass, so that a hostile chain costs at most the scenes
    // before its breach, which the file's own size bounds.
    HostSceneChains chains;
    PO_XmlGuard guard(document,
        [&chains](QXmlStreamReader const& xml, int depth) { return chains.startElement(xml, depth); });
    // Built on a manager of its own, so that the reading reaches no listener; dropped
    // whole on any fault.
    UT_SharedPtr<SC_Project> project(new SC_Project);
    QString fault;
    bool const read = ProjectReader(guard, project.get()).read(&fault);
    QString const refusal = guard.refusal();
    if (!read || !refusal.isNull()) {
        if (error)
            *error = refusal.isNull() ? fault : refusal;
        return nullptr;
    }
    project->projectCommon()->setChangeManager(manager);
    return project;
}

namespace {

// Why the file at `path` may not be replaced, or a null string. A file that its owner
// made read-only is refused even where the process could replace it (as root may).
QString whyNotWritable(QString const& path, mode_t& mode)
{
    struct stat status = {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return errno == ENOENT ? QString() : QString::fromLocal8Bit(std::strerror(errno));
    mode = status.st_mode & 07777;
    if (!S_ISREG(status.st_mode))
        return QStringLiteral("is not a regular file");
    if ((status.st_mode & 0222) == 0 || ::access(QFile::encodeName(path).constData(), W_OK) != 0)
        return QStringLiteral("is read-only; it is left as it is");
    return QString();
}

// The reason of a failed write: the system's, when it gave one (Qt says "Unknown
// error" for a full disk or a file size limit), else Qt's.
QString writeFailure(QFileDevice const& file)
{
    return errno != 0 ? QString::fromLocal8Bit(std::strerror(errno)) : file.errorString();
}

bool writeAtomically(QString const& path, QByteArray const& document, QString& reason)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        reason = file.errorString();
        return false;
    }
    errno = 0;
    if (file.write(document) != document.size() || !file.flush()) {
        reason = writeFailure(file);
        file.cancelWriting();
        return false;
    }
    if (!file.commit()) {
        reason = writeFailure(file);
        return false;
    }
    return true;
}

} // namespace

bool save(SC_Project const* project, QString const& path, QString* error, HostFileFingerprint const* loaded)
{
    auto failed = [&](QString const& message) {
        if (error)
            *error = QStringLiteral("%1: %2").arg(path, message);
        return false;
    };
    if (!project)
        return failed(QStringLiteral("no project to save"));
    mode_t mode = 0;
    QString reason = whyNotWritable(path, mode);
    if (!reason.isNull())
        return failed(reason);
    if (loaded && loaded->changedOnDisk(path))
        return failed(QStringLiteral("changed on disk since it was loaded; it is left as it is"));
    QByteArray const document = toXml(project, &reason);
    QString const untouched = mode != 0 ? QStringLiteral("; the file is left as it was") : QString();
    if (document.isEmpty())
        return failed(reason + untouched);
    if (!writeAtomically(path, document, reason))
        return failed(reason + untouched);
    // The new file keeps the permission bits of the one it replaced.
    if (mode != 0 && ::chmod(QFile::encodeName(path).constData(), mode) != 0)
        return failed(QString::fromLocal8Bit(std::strerror(errno)));
    return true;
}

UT_SharedPtr<SC_Project> load(
    QString const& path, QString* error, TUSceneChangeManager* manager, HostFileFingerprint* loaded)
{
    QString message;
    QByteArray const bytes = PO_XmlLimits::readFile(path, &message);
    UT_SharedPtr<SC_Project> project = message.isNull() ? fromXml(bytes, &message, manager) : nullptr;
    if (!project) {
        if (error)
            *error = QStringLiteral("%1: %2").arg(path, message);
        return nullptr;
    }
    if (loaded)
        *loaded = HostFileFingerprint::of(path, bytes);
    return project;
}

} // namespace HostProjectFile
