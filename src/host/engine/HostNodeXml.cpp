#include "host/engine/HostNodeXml.h"

#include "host/engine/AT_DrawingAttr.h"
#include "host/engine/HostNodeEdit.h"
#include "host/engine/MO_Modules.h"
#include "host/engine/TUElementTimedValue.h"
#include "host/engine/TUScene.h"
#include "host/persistence/PO_XmlGuard.h"

#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <climits>
#include <cmath>
#include <iterator>
#include <map>
#include <memory>
#include <set>
#include <unordered_set>
#include <vector>

namespace {

const QString kNodesElement = QStringLiteral("nodes");
const QString kNodeElement = QStringLiteral("node");
const QString kColumnElement = QStringLiteral("element");
const QString kDrawingElement = QStringLiteral("drawing");
const QString kExposureElement = QStringLiteral("exposure");

const QString kTypeAttr = QStringLiteral("type");
const QString kIdAttr = QStringLiteral("id");
const QString kNameAttr = QStringLiteral("name");
const QString kParentAttr = QStringLiteral("parent");
const QString kLockedAttr = QStringLiteral("locked");
const QString kEnabledAttr = QStringLiteral("enabled");
const QString kAlignmentAttr = QStringLiteral("cameraAlignment");
const QString kOpacityAttr = QStringLiteral("opacity");
const QString kKindAttr = QStringLiteral("kind");
const QString kFileAttr = QStringLiteral("file");
const QString kFirstAttr = QStringLiteral("first");
const QString kLastAttr = QStringLiteral("last");
const QString kDrawingAttr = QStringLiteral("drawing");

const QString kGroupType = QStringLiteral("TUGroup");
const QString kElementType = QStringLiteral("MO_ElementModule");

const QStringList kKindNames { QStringLiteral("other"), QStringLiteral("kvg"), QStringLiteral("bitmap"),
    QStringLiteral("3d") };

// ---- Writing -------------------------------------------------------------------

QString boolText(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

class NetworkWriter
{
public:
    explicit NetworkWriter(QXmlStreamWriter& writer)
        : m_writer(writer)
    {
    }

    void write(TUGroup const& root)
    {
        // Number every node below the root first, from 1, so that a link can name a
        // node written later.
        for (MO_Node* node : HostNodeEdit::subtree(const_cast<TUGroup*>(&root))) {
            if (node != &root)
                m_ids.emplace(node, int(m_ids.size()) + 1);
        }
        m_writer.writeStartElement(kNodesElement);
        writeChildren(root);
        m_writer.writeEndElement();
    }

private:
    void writeChildren(TUGroup const& group)
    {
        for (auto it = group.subNodesBegin(); it != group.subNodesEnd(); ++it)
            writeNode(**it);
    }

    void writeNode(MO_Node const& node)
    {
        m_writer.writeStartElement(kNodeElement);
        m_writer.writeAttribute(kTypeAttr, node.typeName());
        m_writer.writeAttribute(kIdAttr, QString::number(m_ids.at(&node)));
        m_writer.writeAttribute(kNameAttr, node.instanceName());
        const auto parent = m_ids.find(node.getParentNode());
        if (parent != m_ids.end())
            m_writer.writeAttribute(kParentAttr, QString::number(parent->second));
        m_writer.writeAttribute(kLockedAttr, boolText(node.lock()));
        m_writer.writeAttribute(kEnabledAttr, QString::number(node.enabled()));
        if (auto const* animated = dynamic_cast<MO_AnimatedModule const*>(&node))
            m_writer.writeAttribute(kAlignmentAttr, QString::number(int(animated->cameraAlignment())));
        if (auto const* element = dynamic_cast<MO_ElementModule const*>(&node))
            writeElement(*element);
        if (auto const* group = dynamic_cast<TUGroup const*>(&node))
            writeChildren(*group);
        m_writer.writeEndElement();
    }

    void writeElement(MO_ElementModule const& element)
    {
        if (AT_DoubleAttr const* opacity = element.opacityAttr())
            m_writer.writeAttribute(kOpacityAttr, QString::number(opacity->localValue(), 'g', 17));
        if (TUElementTimedValue const* column
            = element.drawingAttr() ? element.drawingAttr()->timedValue() : nullptr)
            writeColumn(*column);
    }

    void writeColumn(TUElementTimedValue const& column)
    {
        m_writer.writeStartElement(kColumnElement);
        m_writer.writeAttribute(kIdAttr, QString::number(column.elementId()));
        m_writer.writeAttribute(kNameAttr, column.name());
        m_writer.writeAttribute(kKindAttr, kKindNames.value(int(column.drawingKind())));
        for (int id : column.drawingIds()) {
            m_writer.writeEmptyElement(kDrawingElement);
            m_writer.writeAttribute(kIdAttr, QString::number(id));
            m_writer.writeAttribute(kFileAttr, column.drawingFileName(id));
        }
        for (TUElementTimedValue::Exposure const& run : column.exposures()) {
            m_writer.writeEmptyElement(kExposureElement);
            m_writer.writeAttribute(kFirstAttr, QString::number(run.firstFrame));
            m_writer.writeAttribute(kLastAttr, QString::number(run.lastFrame));
            m_writer.writeAttribute(kDrawingAttr, QString::number(run.drawingId));
        }
        m_writer.writeEndElement();
    }

    QXmlStreamWriter& m_writer;
    std::map<MO_Node const*, int> m_ids;
};

// ---- Reading -------------------------------------------------------------------

// Where an element of the input starts, for messages.
struct Place
{
    qint64 line = 0;
    qint64 column = 0;
};

struct ReadError
{
    Place place;
    QString message;
};

struct ColumnDraft
{
    Place place;
    int elementId = -1;
    QString name;
    CA_DrawingKind kind = CA_DrawingKind::Other;
    std::map<int, QString> drawings;
    std::map<int, TUElementTimedValue::Exposure> exposures;
};

struct NodeDraft
{
    Place place;
    QString type;
    int id = 0;
    QString name;
    int parent = 0;
    bool locked = false;
    quint8 enabled = 1;
    CameraAlignment alignment = CameraAlignment_None;
    bool hasOpacity = false;
    double opacity = 100.0;
    std::unique_ptr<ColumnDraft> column;
    std::vector<std::unique_ptr<NodeDraft>> children;
};

// Reads the "nodes" element into drafts, checks them whole, and only then builds.
class NetworkReader
{
public:
    NetworkReader(PO_XmlGuard& guard, SC_SceneCommon& scene)
        : m_guard(guard)
        , m_reader(guard.stream())
        , m_scene(scene)
    {
    }

    void read()
    {
        if (!m_reader.isStartElement() || m_reader.name() != kNodesElement)
            fail(QStringLiteral("expected a <%1> element").arg(kNodesElement));
        while (nextChild())
            m_roots.push_back(readNode());
        checkLinks();
        checkColumns();
        build();
    }

private:
    [[noreturn]] void fail(QString const& message) const { fail(here(), message); }
    [[noreturn]] static void fail(Place const& place, QString const& message)
    {
        throw ReadError { place, message };
    }

    Place here() const { return { m_reader.lineNumber(), m_reader.columnNumber() }; }

    // Steps to the next child element of the current one; false at its end. Any other
    // child than a known one is refused by the caller.
    bool nextChild()
    {
        const bool found = m_guard.readNextStartElement();
        if (m_guard.hasError())
            fail(m_guard.errorString());
        return found;
    }

    void expectElement(QString const& name) const
    {
        if (m_reader.name() != name)
            fail(QStringLiteral("unexpected element <%1>").arg(m_reader.name().toString()));
    }

    QString text(QString const& name, bool required) const
    {
        const QXmlStreamAttributes attributes = m_reader.attributes();
        if (!attributes.hasAttribute(name)) {
            if (required)
                fail(QStringLiteral("<%1> lacks the attribute \"%2\"").arg(m_reader.name().toString(), name));
            return QString();
        }
        return attributes.value(name).toString();
    }

    int integer(QString const& name, bool required, int fallback, int lowest, int highest) const
    {
        const QString value = text(name, required);
        if (value.isNull())
            return fallback;
        bool ok = false;
        const int number = value.toInt(&ok);
        if (!ok || number < lowest || number > highest)
            fail(QStringLiteral("attribute \"%1\" of <%2> has a bad value \"%3\"")
                     .arg(name, m_reader.name().toString(), value));
        return number;
    }

    bool boolean(QString const& name) const
    {
        const QString value = text(name, false);
        if (value.isNull() || value == QLatin1String("false"))
            return false;
        if (value == QLatin1String("true"))
            return true;
        fail(QStringLiteral("attribute \"%1\" of <%2> has a bad value \"%3\"")
                 .arg(name, m_reader.name().toString(), value));
    }

    std::unique_ptr<NodeDraft> readNode()
    {
        expectElement(kNodeElement);
        auto node = std::make_unique<NodeDraft>();
        node->place = here();
        node->type = text(kTypeAttr, true);
        if (!MO_ModuleFactory::typeNames().contains(node->type))
            fail(QStringLiteral("unknown node type \"%1\"").arg(node->type));
        node->id = integer(kIdAttr, true, 0, 1, INT_MAX);
        if (!m_nodes.emplace(node->id, node.get()).second)
            fail(QStringLiteral("node id %1 is used twice").arg(node->id));
        node->name = text(kNameAttr, true);
        node->parent = integer(kParentAttr, false, 0, 1, INT_MAX);
        node->locked = boolean(kLockedAttr);
        node->enabled = quint8(integer(kEnabledAttr, false, 1, 0, 255));
        node->alignment
            = CameraAlignment(integer(kAlignmentAttr, false, 0, 0, CameraAlignment_FaceCameraUpright));
        readOpacity(*node);
        while (nextChild()) {
            if (m_reader.name() == kNodeElement && node->type == kGroupType)
                node->children.push_back(readNode());
            else if (m_reader.name() == kColumnElement && node->type == kElementType && !node->column)
                node->column = readColumn();
            else
                fail(QStringLiteral("unexpected element <%1> in a node of type %2")
                         .arg(m_reader.name().toString(), node->type));
        }
        return node;
    }

    void readOpacity(NodeDraft& node) const
    {
        const QString value = text(kOpacityAttr, false);
        if (value.isNull())
            return;
        bool ok = false;
        node.opacity = value.toDouble(&ok);
        if (node.type != kElementType || !ok || !std::isfinite(node.opacity) || node.opacity < 0.0
            || node.opacity > 100.0)
            fail(QStringLiteral("bad opacity \"%1\"").arg(value));
        node.hasOpacity = true;
    }

    std::unique_ptr<ColumnDraft> readColumn()
    {
        auto column = std::make_unique<ColumnDraft>();
        column->place = here();
        column->elementId = integer(kIdAttr, true, 0, 0, INT_MAX - 1);
        column->name = text(kNameAttr, false);
        const int kind = kKindNames.indexOf(text(kKindAttr, true));
        if (kind < 0)
            fail(QStringLiteral("unknown drawing kind \"%1\"").arg(text(kKindAttr, true)));
        column->kind = CA_DrawingKind(kind);
        while (nextChild()) {
            if (m_reader.name() == kDrawingElement)
                readDrawing(*column);
            else if (m_reader.name() == kExposureElement)
                readExposure(*column);
            else
                expectElement(kDrawingElement);
            m_guard.skipCurrentElement();
        }
        return column;
    }

    void readDrawing(ColumnDraft& column) const
    {
        const int id = integer(kIdAttr, true, 0, 1, INT_MAX);
        const QString file = text(kFileAttr, true);
        if (file.isEmpty())
            fail(QStringLiteral("drawing %1 has no file").arg(id));
        if (!column.drawings.emplace(id, file).second)
            fail(QStringLiteral("drawing id %1 is used twice in element %2").arg(id).arg(column.elementId));
    }

    void readExposure(ColumnDraft& column) const
    {
        TUElementTimedValue::Exposure run;
        run.firstFrame = integer(kFirstAttr, true, 0, 1, INT_MAX);
        run.lastFrame = integer(kLastAttr, true, 0, run.firstFrame, INT_MAX);
        run.drawingId = integer(kDrawingAttr, true, 0, 1, INT_MAX);
        if (!column.drawings.count(run.drawingId))
            fail(QStringLiteral("exposure of unknown drawing %1").arg(run.drawingId));
        auto next = column.exposures.lower_bound(run.firstFrame);
        const bool overlapsNext = next != column.exposures.end() && next->first <= run.lastFrame;
        const bool overlapsPrevious
            = next != column.exposures.begin() && std::prev(next)->second.lastFrame >= run.firstFrame;
        if (overlapsNext || overlapsPrevious)
            fail(QStringLiteral("exposure of frames %1 to %2 overlaps another")
                     .arg(run.firstFrame)
                     .arg(run.lastFrame));
        column.exposures.emplace(run.firstFrame, run);
    }

    // Every node's links end at a node without a parent. Each walk stops at a node
    // already known to end well, so a chain of links costs its length, not its square
    // (a file linking 6,000 nodes in one chain took seconds).
    void checkLinks() const
    {
        std::unordered_set<int> ending;
        std::vector<int> path;
        for (auto const& entry : m_nodes) {
            NodeDraft const& node = *entry.second;
            path.clear();
            std::unordered_set<int> onPath;
            for (int at = node.id; at != 0 && !ending.count(at); at = m_nodes.at(at)->parent) {
                if (!onPath.insert(at).second)
                    fail(node.place, QStringLiteral("the links of node %1 make a cycle").arg(node.id));
                path.push_back(at);
                int const parent = m_nodes.at(at)->parent;
                if (parent != 0 && !m_nodes.count(parent))
                    fail(node.place,
                        QStringLiteral("node %1 is linked to unknown node %2").arg(node.id).arg(parent));
            }
            ending.insert(path.begin(), path.end());
        }
    }

    void checkColumns() const
    {
        std::set<int> used;
        for (TUTimedValue* value :
            m_scene.scene() ? m_scene.scene()->timedValues() : std::vector<TUTimedValue*>()) {
            if (auto* column = dynamic_cast<TUElementTimedValue*>(value))
                used.insert(column->elementId());
        }
        for (auto const& entry : m_nodes) {
            ColumnDraft const* column = entry.second->column.get();
            if (!column)
                continue;
            if (!m_scene.scene())
                fail(column->place, QStringLiteral("the scene cannot hold element columns"));
            if (!used.insert(column->elementId).second)
                fail(column->place,
                    QStringLiteral("element id %1 is used twice in the scene").arg(column->elementId));
        }
    }

    void build()
    {
        std::map<int, MO_Node*> built;
        for (auto const& draft : m_roots)
            HostNodeEdit::insert(m_scene.rootGroup(), buildNode(*draft, built), -1);
        for (auto const& entry : m_nodes) {
            if (entry.second->parent != 0)
                HostNodeEdit::setParent(built.at(entry.first), built.at(entry.second->parent));
        }
    }

    UT_SharedPtr<MO_Node> buildNode(NodeDraft const& draft, std::map<int, MO_Node*>& built)
    {
        UT_SharedPtr<MO_Node> node(MO_ModuleFactory::create(draft.type, &m_scene, draft.name));
        built.emplace(draft.id, node.get());
        HostNodeEdit::setLock(node.get(), draft.locked);
        HostNodeEdit::setEnabled(node.get(), draft.enabled);
        if (auto* animated = dynamic_cast<MO_AnimatedModule*>(node.get()))
            HostNodeEdit::setCameraAlignment(animated, draft.alignment);
        if (auto* element = dynamic_cast<MO_ElementModule*>(node.get()))
            buildElement(draft, element);
        for (auto const& child : draft.children)
            HostNodeEdit::insert(static_cast<TUGroup*>(node.get()), buildNode(*child, built), -1);
        return node;
    }

    void buildElement(NodeDraft const& draft, MO_ElementModule* element)
    {
        if (draft.hasOpacity)
            HostNodeEdit::setOpacity(element, draft.opacity);
        if (!draft.column)
            return;
        ColumnDraft const& columnDraft = *draft.column;
        auto* column
            = new TUElementTimedValue(&m_scene, columnDraft.name, columnDraft.kind, columnDraft.elementId);
        for (auto const& drawing : columnDraft.drawings)
            HostNodeEdit::addDrawing(column, drawing.second, drawing.first);
        for (auto const& run : columnDraft.exposures)
            HostNodeEdit::expose(column, run.second.firstFrame, run.second.lastFrame, run.second.drawingId);
        m_scene.scene()->addTimedValue(column);
        HostNodeEdit::attachColumn(element, column);
    }

    PO_XmlGuard& m_guard; // moves through the document
    QXmlStreamReader const& m_reader; // the token at which it stands
    SC_SceneCommon& m_scene;
    std::vector<std::unique_ptr<NodeDraft>> m_roots;
    std::map<int, NodeDraft*> m_nodes;
};

} // namespace

namespace HostNodeXml {

void write(QXmlStreamWriter& writer, SC_SceneCommon const& scene)
{
    if (TUGroup const* root = scene.rootGroup()) {
        NetworkWriter(writer).write(*root);
    } else {
        writer.writeEmptyElement(kNodesElement);
    }
}

bool read(PO_XmlGuard& reader, SC_SceneCommon& scene, QString* error)
{
    try {
        NetworkReader(reader, scene).read();
        return true;
    } catch (ReadError const& fault) {
        const QString message = QStringLiteral("line %1, column %2: %3")
                                    .arg(fault.place.line)
                                    .arg(fault.place.column)
                                    .arg(fault.message);
        if (error)
            *error = message;
        if (!reader.hasError())
            reader.raiseError(message);
        return false;
    }
}

} // namespace HostNodeXml
