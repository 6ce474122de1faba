// The XML form of a node network: round trip, and refusal of bad input.
#include "nodes_Fixture.h"

#include "host/persistence/PO_XmlGuard.h"

#include <QXmlStreamWriter>

#include <gmock/gmock.h>

using ::testing::HasSubstr;
using ::testing::StartsWith;

namespace {

QString networkXml(SC_SceneCommon const& scene)
{
    QString text;
    QXmlStreamWriter writer(&text);
    writer.setAutoFormatting(true);
    HostNodeXml::write(writer, scene);
    return text;
}

// Reads a document whose first element is "nodes" into the scene.
bool readNetwork(QString const& document, SC_SceneCommon& scene, QString* error)
{
    PO_XmlGuard reader(document.toUtf8());
    reader.readNextStartElement();
    return HostNodeXml::read(reader, scene, error);
}

// Each node as "type:name<parent" with its attributes, in walk order: what a reader
// must give back besides the text.
class NodeDescriber : public MO_ModuleVisitor
{
public:
    using MO_ModuleVisitor::visit;
    void visit(TUGroup& group) override
    {
        describe(group, QString());
        MO_ModuleVisitor::visit(group);
    }
    void visit(MO_Module& module) override { describe(module, QString()); }
    void visit(MO_AnimatedModule& module) override { describe(module, aligned(module)); }
    void visit(MO_ElementModule& element) override
    {
        QString extra = aligned(element);
        if (element.opacityAttr())
            extra += QStringLiteral(" opacity=%1").arg(element.opacityAttr()->localValue());
        if (AT_DrawingAttr const* attr = element.drawingAttr()) {
            extra += QStringLiteral(" element=%1").arg(attr->getElementId());
            for (double frame : { 1.0, 2.0, 5.0, 9.0 })
                extra += ' ' + CA_CelKeyMgr::loadFilename(attr->key(frame));
        }
        describe(element, extra);
    }

    QStringList lines;

private:
    static QString aligned(MO_AnimatedModule const& module)
    {
        return QStringLiteral(" align=%1").arg(module.cameraAlignment());
    }
    void describe(MO_Node const& node, QString const& extra)
    {
        MO_Node const* parent = node.getParentNode();
        lines << QStringLiteral("%1:%2<%3 locked=%4 enabled=%5%6")
                     .arg(node.typeName(), node.instanceName(), parent ? parent->instanceName() : QString())
                     .arg(node.lock())
                     .arg(node.enabled())
                     .arg(extra);
    }
};

QStringList describe(TUGroup* root)
{
    NodeDescriber describer;
    root->accept(describer);
    return describer.lines;
}

// Markup of a node of `type` with id 2 and name "a", holding `body`.
QString node(QString const& type, QString const& attributes = QString(), QString const& body = QString())
{
    const QString open = QStringLiteral("<node type=\"%1\" id=\"2\" name=\"a\"%2").arg(type, attributes);
    return body.isEmpty() ? open + "/>" : open + '>' + body + "</node>";
}

QString peg(QString const& attributes = QString(), QString const& body = QString())
{
    return node("TUPegModule", attributes, body);
}

// An element node holding a kvg column with id 5 that holds `body`.
QString column(QString const& body)
{
    return node("MO_ElementModule", QString(), "<element id=\"5\" kind=\"kvg\">" + body + "</element>");
}

class NodesXmlTest : public NodesTest
{
protected:
    // A network with every feature the form stores.
    static void buildRichNetwork(TUGroup* root)
    {
        TUPegModule* peg = Author::addPeg(root, "Peg");
        Author::setCameraAlignment(peg, CameraAlignment_FaceCamera);
        MO_ElementModule* a = Author::addElement(root, "A & <B>", CA_DrawingKind::Kvg, peg);
        const int one = Author::addDrawing(a, "/p/elements/A-1.kvg");
        const int two = Author::addDrawing(a, "/p/elements/\"A\"-2.kvg");
        Author::setExposure(a, 1, 4, one);
        Author::setExposure(a, 5, 8, two);
        Author::setOpacity(a, 100.0 / 3.0);
        Author::setLocked(a, true);
        TUGroup* group = Author::addGroup(root, "G");
        TUGroup* inner = Author::addGroup(group, "Inner");
        MO_ElementModule* bg = Author::addElement(inner, "BG", CA_DrawingKind::Bitmap);
        Author::setExposure(bg, 2, 9, Author::addDrawing(bg, "/p/bg.png"));
        Author::setEnabled(bg, false);
        // Linked across groups, to a node written after it.
        Author::addNode(root, "TUCompositeModule", "Comp", 0);
        Author::setParent(root->subNodeAt(0), bg);
        Author::addNode(group, "MO_ElementModule", "Bare");
    }
};

} // namespace

TEST_F(NodesXmlTest, ARoundTripGivesBackTheSameNetworkAndPostsNoNetworkEdits)
{
    for (bool rich : { false, true }) {
        NodeBench original;
        if (rich)
            buildRichNetwork(original.root());
        const QString written = networkXml(*original.common());
        NodeBench copy;
        QString error;
        ASSERT_TRUE(readNetwork(written, *copy.common(), &error)) << error.toStdString();
        EXPECT_EQ(written, networkXml(*copy.common()));
        EXPECT_EQ(describe(original.root()), describe(copy.root()));
        EXPECT_EQ(original.scene->timedValues().size(), copy.scene->timedValues().size());
        for (QString const& line : copy.deliver())
            EXPECT_FALSE(line.startsWith("networkChanged") || line.startsWith("subNetworkChanged")
                || line.startsWith("nodesChanged"))
                << line.toStdString();
    }
}

TEST_F(NodesXmlTest, BadInputIsRefusedWholeWithItsPlace)
{
    struct Case
    {
        const char* what;
        QString body;
        const char* message;
    };
    const char* good = "<node type=\"TUPegModule\" id=\"1\" name=\"ok\"/>\n";
    const QString el = "MO_ElementModule";
    const QString drawing = "<drawing id=\"1\" file=\"a\"/>";
    const Case cases[] = { { "not well formed", peg({}, "\n</nodes>"), "" },
        { "unknown type", node("MO_Node"), "unknown node type" },
        { "no id", "<node type=\"TUPegModule\" name=\"a\"/>", "lacks the attribute \"id\"" },
        { "id twice", "<node type=\"TUPegModule\" id=\"1\" name=\"a\"/>", "node id 1 is used twice" },
        { "id zero", "<node type=\"TUPegModule\" id=\"0\" name=\"a\"/>", "bad value \"0\"" },
        { "no name", "<node type=\"TUPegModule\" id=\"2\"/>", "lacks the attribute \"name\"" },
        { "unknown parent", peg(" parent=\"9\""), "linked to unknown node 9" },
        { "cycle", peg(" parent=\"3\"") + "<node type=\"TUPegModule\" id=\"3\" name=\"b\" parent=\"2\"/>",
            "make a cycle" },
        { "own parent", peg(" parent=\"2\""), "make a cycle" },
        { "child of a peg", peg({}, "<node type=\"TUPegModule\" id=\"3\" name=\"b\"/>"),
            "unexpected element <node> in a node of type TUPegModule" },
        { "column on a peg", peg({}, "<element id=\"5\" kind=\"kvg\"/>"), "unexpected element <element>" },
        { "two columns", node(el, {}, "<element id=\"5\" kind=\"kvg\"/><element id=\"6\" kind=\"kvg\"/>"),
            "unexpected element <element>" },
        { "unknown kind", node(el, {}, "<element id=\"5\" kind=\"svg\"/>"), "unknown drawing kind \"svg\"" },
        { "drawing without file", column("<drawing id=\"1\" file=\"\"/>"), "drawing 1 has no file" },
        { "drawing twice", column(drawing + "<drawing id=\"1\" file=\"b\"/>"), "drawing id 1 is used twice" },
        { "exposure of unknown drawing", column("<exposure first=\"1\" last=\"2\" drawing=\"1\"/>"),
            "exposure of unknown drawing 1" },
        { "overlapping exposures",
            column(drawing + "<exposure first=\"3\" last=\"6\" drawing=\"1\"/>"
                + "<exposure first=\"1\" last=\"3\" drawing=\"1\"/>"),
            "overlaps another" },
        { "reversed exposure", column(drawing + "<exposure first=\"3\" last=\"2\" drawing=\"1\"/>"),
            "bad value \"2\"" },
        { "element id twice", column({}) + column({}).replace("id=\"2\" name=\"a\"", "id=\"3\" name=\"b\""),
            "element id 5 is used twice" },
        { "bad bool", peg(" locked=\"yes\""), "bad value \"yes\"" },
        { "enabled out of range", peg(" enabled=\"256\""), "bad value \"256\"" },
        { "alignment out of range", peg(" cameraAlignment=\"9\""), "bad value \"9\"" },
        { "opacity out of range", node(el, " opacity=\"150\""), "bad opacity" },
        { "opacity on a peg", peg(" opacity=\"50\""), "bad opacity" },
        { "unknown element", "<layer/>", "unexpected element <layer>" } };
    for (Case const& c : cases) {
        NodeBench bench;
        Author::addPeg(bench.root(), "before");
        const size_t values = bench.scene->timedValues().size();
        bench.manager.clear();
        const QString document = QStringLiteral("<nodes>\n%1%2\n</nodes>").arg(good, c.body);
        QString error;
        EXPECT_FALSE(readNetwork(document, *bench.common(), &error)) << c.what;
        EXPECT_TRUE(error.startsWith("line ") && error.contains(c.message))
            << c.what << ": " << error.toStdString();
        EXPECT_EQ(std::tuple(QStringList { "before" }, values, QStringList()),
            std::tuple(bench.walk(), bench.scene->timedValues().size(), bench.deliver()))
            << c.what;
    }
}

TEST_F(NodesXmlTest, TheMessageNamesTheLineAndColumnOfTheFault)
{
    QString error;
    PO_XmlGuard reader("<nodes>\n<node type=\"TUPegModule\" id=\"1\" name=\"a\"/>\n"
                       "<node type=\"Nope\" id=\"2\" name=\"b\"/>\n</nodes>");
    reader.readNextStartElement();
    EXPECT_FALSE(HostNodeXml::read(reader, *common(), &error));
    EXPECT_THAT(error.toStdString(), StartsWith("line 3, column 35: unknown node type \"Nope\""));
    EXPECT_TRUE(reader.hasError() && error == reader.errorString());

    PO_XmlGuard elsewhere("<scene/>");
    elsewhere.readNextStartElement();
    EXPECT_FALSE(HostNodeXml::read(elsewhere, *common(), &error));
    EXPECT_THAT(error.toStdString(), HasSubstr("expected a <nodes> element"));
}

TEST_F(NodesXmlTest, ReadNodesJoinTheRootGroupAfterWhatIsThere)
{
    Author::addPeg(root(), "first");
    QString error;
    ASSERT_TRUE(readNetwork("<nodes><node type=\"TUGroup\" id=\"1\" name=\"G\">"
                            "<node type=\"TUPegModule\" id=\"2\" name=\"p\"/></node></nodes>",
        *common(), &error))
        << error.toStdString();
    EXPECT_EQ(QStringList({ "first", "G", "p" }), walk());
}
