#include "EngineFixtures.h"

#include "host/context/TUDbSceneData.h"
#include "host/engine/HostNodeXml.h"
#include "host/engine/MO_Node.h"
#include "host/engine/SC_Project.h"
#include "host/engine/SC_ProjectCommon.h"
#include "host/engine/TUScene.h"
#include "host/engine/TUTimedValue.h"
#include "host/persistence/PIO_MetadatasXml.h"

#include <QXmlStreamWriter>

#include <gtest/gtest.h>

namespace {

QString matrixText(Math::Matrix4x4 const& matrix)
{
    QStringList values;
    for (int i = 0; i < 16; ++i)
        values << QString::number(matrix.data()[i], 'g', 17);
    return values.join(QLatin1Char(','));
}

QString blockText(AT_FrameBlock const& block)
{
    QString text = QStringLiteral("  [%1,%2] ").arg(block.firstFrame).arg(block.lastFrame);
    TUSeq const* seq = block.seq();
    if (!block.hasSeq)
        return text + QStringLiteral("empty");
    if (auto const* warp = AT_TimeWarpSeq::toTimeWarp(seq))
        return text
            + QStringLiteral("warp %1 %2:%3")
                  .arg(warp->sceneId.value())
                  .arg(warp->start, 0, 'g', 17)
                  .arg(warp->end, 0, 'g', 17);
    if (auto const* scene = AT_AbstractSceneSeq::toAbstractScene(seq))
        return text + QStringLiteral("scene %1").arg(scene->sceneId.value());
    if (auto const* transition = AT_TransitionSeq::toTransition(seq))
        return text
            + QStringLiteral("transition %1 type %2 angle %3 reverse %4")
                  .arg(transition->id.value())
                  .arg(transition->type)
                  .arg(transition->angle)
                  .arg(transition->reverse);
    return text + QStringLiteral("other");
}

QString nodesText(SC_SceneCommon const& scene)
{
    QString text;
    QXmlStreamWriter xml(&text);
    HostNodeXml::write(xml, scene);
    return text;
}

void dumpScene(QStringList& out, TUScene const& scene)
{
    double nearPlane = 0.0;
    double farPlane = 0.0;
    scene.sceneCommon()->cameraPlanes(nearPlane, farPlane);
    out << QStringLiteral("scene %1 name '%2'%3 planes %4,%5")
               .arg(scene.id.value())
               .arg(scene.name(), scene.name().isNull() ? QStringLiteral(" (null)") : QString())
               .arg(nearPlane, 0, 'g', 17)
               .arg(farPlane, 0, 'g', 17);
    TUSeqTimedValue const* seq = scene.sequence();
    out << QStringLiteral(" sequence '%1'").arg(seq->name());
    for (unsigned i = 0; i < seq->getBlockCount(); ++i)
        out << blockText(*seq->blockAt(i));
    for (auto const& key : scene.embeddedCameraKeys())
        out << QStringLiteral(" camera %1 %2").arg(key.first, 0, 'g', 17).arg(matrixText(key.second));
    out << QStringLiteral(" records ") + QString::fromUtf8(PIO_MetadatasXml::toDocument(*scene.metadatas()));
    out << QStringLiteral(" nodes ") + nodesText(*scene.sceneCommon());
}

QString setSize(size_t size)
{
    return QString::number(size);
}

QString nodeName(MO_Node const* node)
{
    return node ? node->instanceName() : QStringLiteral("<gone>");
}

} // namespace

QString engineDump(SC_Project const* project)
{
    if (!project)
        return QStringLiteral("<no project>");
    SC_ProjectCommon const* common = project->projectCommon();
    QStringList out;
    out << QStringLiteral("project next %1 name '%2' dir '%3' camera %4")
               .arg(common->nextIdValue())
               .arg(common->dbSceneData()->sceneName(), common->dbSceneData()->projectDir(),
                   matrixText(common->defaultCameraMatrix()));
    out << QStringLiteral("records ")
            + QString::fromUtf8(PIO_MetadatasXml::toDocument(*project->metadatas()));
    for (unsigned i = 0; i < project->sceneCount(); ++i)
        dumpScene(out, *static_cast<TUScene const*>(project->sceneAt(i)));
    return out.join(QLatin1Char('\n'));
}

HostStoryboard engineBoard(QString const& description, TUSceneChangeManager* manager)
{
    QString error;
    HostStoryboard board = HostStoryboardBuilder::build(description, &error, manager);
    EXPECT_TRUE(board.isValid()) << qPrintable(description) << ": " << qPrintable(error);
    return board;
}

EngineChangeRecorder::EngineChangeRecorder(TUSceneChangeManager& manager)
{
    auto values = [this](TUTvSet* keep, char const* name) {
        return [this, keep, name](TUTvSet const& set) {
            if (keep) {
                *keep = set;
                for (TUTimedValue* value : set)
                    names[QLatin1String(name)] << value->name();
            }
            lines << QStringLiteral("%1 %2").arg(QLatin1String(name), setSize(set.size()));
        };
    };
    auto nodes = [this](char const* name) {
        return [this, name](TUNodeSet const& set) {
            for (UT_SharedWeakPtr<MO_Node> const& node : set)
                names[QLatin1String(name)] << nodeName(node.get());
            lines << QStringLiteral("%1 %2").arg(QLatin1String(name), setSize(set.size()));
        };
    };
    using M = TUSceneChangeManager;
    QObject::connect(
        &manager, &M::sceneChanged, &m_context, [this] { lines << QStringLiteral("sceneChanged"); });
    QObject::connect(&manager, &M::timedValuesAdded, &m_context, values(&lastAdded, "timedValuesAdded"));
    QObject::connect(
        &manager, &M::timedValuesRemoved, &m_context, values(&lastRemoved, "timedValuesRemoved"));
    QObject::connect(
        &manager, &M::timedValuesChanged, &m_context, values(&lastChanged, "timedValuesChanged"));
    QObject::connect(
        &manager, &M::timedValueNamesChanged, &m_context, values(nullptr, "timedValueNamesChanged"));
    QObject::connect(&manager, &M::networkChanged, &m_context, nodes("networkChanged"));
    QObject::connect(&manager, &M::subNetworkChanged, &m_context, nodes("subNetworkChanged"));
    QObject::connect(&manager, &M::childrenOrderingChanged, &m_context, nodes("childrenOrderingChanged"));
    QObject::connect(&manager, &M::nodeLinksChanged, &m_context, nodes("nodeLinksChanged"));
    QObject::connect(&manager, &M::nodesChanged, &m_context, nodes("nodesChanged"));
    QObject::connect(&manager, &M::nodeInstanceNamesChanged, &m_context, nodes("nodeInstanceNamesChanged"));
    QObject::connect(&manager, &M::nodeChangeApplied, &m_context, [this](MO_Node* node) {
        names[QStringLiteral("nodeChangeApplied")] << nodeName(node);
        lines << QStringLiteral("nodeChangeApplied");
    });
    QObject::connect(&manager, &M::metadataChanged, &m_context, [this](TUMetadataSet const& set) {
        lastMetadata = set;
        lines << QStringLiteral("metadataChanged %1").arg(set.size());
    });
    QObject::connect(
        &manager, &M::selectionChanged, &m_context, [this] { lines << QStringLiteral("selectionChanged"); });
}

QStringList EngineChangeRecorder::take()
{
    QStringList result = lines;
    lines.clear();
    names.clear();
    return result;
}

QStringList EngineChangeRecorder::nameLines() const
{
    QStringList result;
    for (auto entry : names) {
        entry.second.sort();
        result << entry.first + QStringLiteral(": ") + entry.second.join(QLatin1Char(' '));
    }
    return result;
}
