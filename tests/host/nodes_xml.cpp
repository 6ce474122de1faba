// The XML form of a node network: round trip, and refusal of bad input.
#include "nodes_Fixture.h"

#include <QXmlStreamReader>
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
    QXmlStreamReader reader(document);
    reader.readNextStartElement();
    return HostNodeXml::read(reader, scene, error);
}

// Each node as "name<parent" with its attributes, in walk order: what a reader must
// give back besides the text.
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
    void visit(MO_AnimatedModule& module) override
    {
        describe(module, QStringLiteral(" align=%1").arg(module.cameraAlignment()));
    }
    void visit(MO_ElementModule& element) override
    {
        QString extra = QStringLiteral(" align=%1").arg(element.cameraAlignment());
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

class NodesXmlTest : public NodesTest
{
protected:
    // A network with every feature the form stores.
    void buildRichNetwork()
    {
        TUPegModule* peg = HostNodeAuthoring::addPeg(root(), "Peg");
        HostNodeAuthoring::setCameraAlignment(peg, CameraAlignment_FaceCamera);
        MO_ElementModule* a = HostNodeAuthoring::addElement(root(), "A & <B>", CA_DrawingKind::Kvg, peg);
        const int one = HostNodeAuthoring::addDrawing(a, "/p/elements/A-1.kvg");
        const int two = HostNodeAuthoring::addDrawing(a, "/p/elements/\"A\"-2.kvg");
        HostNodeAuthoring::setExposure(a, 1, 4, one);
        HostNodeAuthoring::setExposure(a, 5, 8, two);
        HostNodeAuthoring::setOpacity(a, 100.0 / 3.0);
        HostNodeAuthoring::setLocked(a, true);
        TUGroup* group = HostNodeAuthoring::addGroup(root(), "G");
        TUGroup* inner = HostNodeAuthoring::addGroup(group, "Inner");
        MO_ElementModule* bg = HostNodeAuthoring::addElement(inner, "BG", CA_DrawingKind::Bitmap);
        HostNodeAuthoring::setExposure(bg, 2, 9, HostNodeAuthoring::addDrawing(bg, "/p/bg.png"));
        HostNodeAuthoring::setEnabled(bg, false);
        // Linked across groups, to a node written after it.
        HostNodeAuthoring::addNode(root(), "TUCompositeModule", "Comp", 0);
        HostNodeAuthoring::setParent(root()->subNodeAt(0), bg);
        HostNodeAuthoring::addNode(group, "MO_ElementModule", "Bare");
    }
};

} // namespace

TEST_F(NodesXmlTest, ARoundTripGivesBackTheSameNetwork)
{
    buildRichNetwork();
    const QString written = networkXml(*common());

    NodeBench copy;
    QString error;
    ASSERT_TRUE(readNetwork(written, *copy.common(), &error)) << error.toStdString();
    EXPECT_EQ(written, networkXml(*copy.common()));
    EXPECT_EQ(describe(root()), describe(copy.root()));
    EXPECT_EQ(scene->timedValues().size(), copy.scene->timedValues().size());
}

TEST_F(NodesXmlTest, ReadingPostsNoNetworkEdits)
{
    buildRichNetwork();
    const QString written = networkXml(*common());
    NodeBench copy;
    ASSERT_TRUE(readNetwork(written, *copy.common(), nullptr));
    const QStringList delivered = copy.deliver();
    for (QString const& line : delivered) {
        EXPECT_FALSE(line.startsWith("network") || line.startsWith("subNetwork") || line.startsWith("nodes"))
            << line.toStdString();
    }
}

TEST_F(NodesXmlTest, AnEmptySceneWritesAnEmptyElement)
{
    QString error;
    NodeBench copy;
    ASSERT_TRUE(readNetwork(networkXml(*common()), *copy.common(), &error));
    EXPECT_EQ(0, copy.root()->subNodeCount());
}

TEST_F(NodesXmlTest, BadInputIsRefusedWholeWithItsPlace)
{
    struct Case
    {
        const char* what;
        const char* body;
        const char* message;
    };
    const char* good = "<node type=\"TUPegModule\" id=\"1\" name=\"ok\"/>\n";
    const Case cases[] = {
        { "not well formed", "<node type=\"TUPegModule\" id=\"2\" name=\"a\">\n</nodes>", "" },
        { "unknown type", "<node type=\"MO_Node\" id=\"2\" name=\"a\"/>", "unknown node type" },
        { "no id", "<node type=\"TUPegModule\" name=\"a\"/>", "lacks the attribute \"id\"" },
        { "id twice", "<node type=\"TUPegModule\" id=\"1\" name=\"a\"/>", "node id 1 is used twice" },
        { "id zero", "<node type=\"TUPegModule\" id=\"0\" name=\"a\"/>", "bad value \"0\"" },
        { "no name", "<node type=\"TUPegModule\" id=\"2\"/>", "lacks the attribute \"name\"" },
        { "unknown parent", "<node type=\"TUPegModule\" id=\"2\" name=\"a\" parent=\"9\"/>",
            "linked to unknown node 9" },
        { "cycle",
            "<node type=\"TUPegModule\" id=\"2\" name=\"a\" parent=\"3\"/>"
            "<node type=\"TUPegModule\" id=\"3\" name=\"b\" parent=\"2\"/>",
            "make a cycle" },
        { "own parent", "<node type=\"TUPegModule\" id=\"2\" name=\"a\" parent=\"2\"/>", "make a cycle" },
        { "child of a peg",
            "<node type=\"TUPegModule\" id=\"2\" name=\"a\"><node type=\"TUPegModule\" id=\"3\" "
            "name=\"b\"/></node>",
            "unexpected element <node> in a node of type TUPegModule" },
        { "column on a peg",
            "<node type=\"TUPegModule\" id=\"2\" name=\"a\"><element id=\"5\" kind=\"kvg\"/></node>",
            "unexpected element <element>" },
        { "two columns",
            "<node type=\"MO_ElementModule\" id=\"2\" name=\"a\"><element id=\"5\" kind=\"kvg\"/>"
            "<element id=\"6\" kind=\"kvg\"/></node>",
            "unexpected element <element>" },
        { "unknown kind",
            "<node type=\"MO_ElementModule\" id=\"2\" name=\"a\"><element id=\"5\" kind=\"svg\"/></node>",
            "unknown drawing kind \"svg\"" },
        { "drawing without file",
            "<node type=\"MO_ElementModule\" id=\"2\" name=\"a\"><element id=\"5\" kind=\"kvg\">"
            "<drawing id=\"1\" file=\"\"/></element></node>",
            "drawing 1 has no file" },
        { "drawing twice",
            "<node type=\"MO_ElementModule\" id=\"2\" name=\"a\"><element id=\"5\" kind=\"kvg\">"
            "<drawing id=\"1\" file=\"a\"/><drawing id=\"1\" file=\"b\"/></element></node>",
            "drawing id 1 is used twice" },
        { "exposure of unknown drawing",
            "<node type=\"MO_ElementModule\" id=\"2\" name=\"a\"><element id=\"5\" kind=\"kvg\">"
            "<exposure first=\"1\" last=\"2\" drawing=\"1\"/></element></node>",
            "exposure of unknown drawing 1" },
        { "overlapping exposures",
            "<node type=\"MO_ElementModule\" id=\"2\" name=\"a\"><element id=\"5\" kind=\"kvg\">"
            "<drawing id=\"1\" file=\"a\"/><exposure first=\"3\" last=\"6\" drawing=\"1\"/>"
            "<exposure first=\"1\" last=\"3\" drawing=\"1\"/></element></node>",
            "overlaps another" },
        { "reversed exposure",
            "<node type=\"MO_ElementModule\" id=\"2\" name=\"a\"><element id=\"5\" kind=\"kvg\">"
            "<drawing id=\"1\" file=\"a\"/><exposure first=\"3\" last=\"2\" drawing=\"1\"/></element></node>",
            "bad value \"2\"" },
        { "element id twice",
            "<node type=\"MO_ElementModule\" id=\"2\" name=\"a\"><element id=\"5\" kind=\"kvg\"/></node>"
            "<node type=\"MO_ElementModule\" id=\"3\" name=\"b\"><element id=\"5\" kind=\"kvg\"/></node>",
            "element id 5 is used twice" },
        { "bad bool", "<node type=\"TUPegModule\" id=\"2\" name=\"a\" locked=\"yes\"/>",
            "bad value \"yes\"" },
        { "enabled out of range", "<node type=\"TUPegModule\" id=\"2\" name=\"a\" enabled=\"256\"/>",
            "bad value \"256\"" },
        { "alignment out of range", "<node type=\"TUPegModule\" id=\"2\" name=\"a\" cameraAlignment=\"9\"/>",
            "bad value \"9\"" },
        { "opacity out of range", "<node type=\"MO_ElementModule\" id=\"2\" name=\"a\" opacity=\"150\"/>",
            "bad opacity" },
        { "opacity on a peg", "<node type=\"TUPegModule\" id=\"2\" name=\"a\" opacity=\"50\"/>",
            "bad opacity" },
        { "unknown element", "<layer/>", "unexpected element <layer>" },
    };
    for (Case const& c : cases) {
        NodeBench bench;
        HostNodeAuthoring::addPeg(bench.root(), "before");
        const size_t values = bench.scene->timedValues().size();
        bench.manager.clear();
        const QString document = QStringLiteral("<nodes>\n%1%2\n</nodes>").arg(good, c.body);
        QString error;
        EXPECT_FALSE(readNetwork(document, *bench.common(), &error)) << c.what;
        EXPECT_THAT(error.toStdString(), StartsWith("Line ")) << c.what;
        EXPECT_THAT(error.toStdString(), HasSubstr(c.message)) << c.what;
        EXPECT_EQ(QStringList { "before" }, bench.walk()) << c.what;
        EXPECT_EQ(values, bench.scene->timedValues().size()) << c.what;
        EXPECT_TRUE(bench.deliver().isEmpty()) << c.what;
    }
}

TEST_F(NodesXmlTest, TheMessageNamesTheLineAndColumnOfTheFault)
{
    QString error;
    QXmlStreamReader reader(QStringLiteral("<nodes>\n<node type=\"TUPegModule\" id=\"1\" name=\"a\"/>\n"
                                           "<node type=\"Nope\" id=\"2\" name=\"b\"/>\n</nodes>"));
    reader.readNextStartElement();
    EXPECT_FALSE(HostNodeXml::read(reader, *common(), &error));
    EXPECT_THAT(error.toStdString(), StartsWith("Line 3, column 35: unknown node type \"Nope\""));
    EXPECT_TRUE(reader.hasError());
    EXPECT_EQ(error, reader.errorString());

    QXmlStreamReader elsewhere(QStringLiteral("<scene/>"));
    elsewhere.readNextStartElement();
    EXPECT_FALSE(HostNodeXml::read(elsewhere, *common(), &error));
    EXPECT_THAT(error.toStdString(), HasSubstr("expected a <nodes> element"));
}

TEST_F(NodesXmlTest, ReadNodesJoinTheRootGroupAfterWhatIsThere)
{
    HostNodeAuthoring::addPeg(root(), "first");
    QString error;
    ASSERT_TRUE(readNetwork("<nodes><node type=\"TUGroup\" id=\"1\" name=\"G\">"
                            "<node type=\"TUPegModule\" id=\"2\" name=\"p\"/></node></nodes>",
        *common(), &error))
        << error.toStdString();
    EXPECT_EQ(QStringList({ "first", "G", "p" }), walk());
}

TEST_F(NodesXmlTest, TheProjectFileKeepsTheNetworksOfItsScenes)
{
    buildRichNetwork();
    QString error;
    const UT_SharedPtr<SC_Project> loaded
        = HostProjectFile::fromXml(HostProjectFile::toXml(project.get()), &error);
    ASSERT_TRUE(loaded) << error.toStdString();
    auto* copy = dynamic_cast<TUScene*>(loaded->sceneAt(unsigned(project->indexOf(scene))));
    ASSERT_NE(nullptr, copy);
    EXPECT_EQ(networkXml(*common()), networkXml(*copy->sceneCommon()));
    EXPECT_EQ(describe(root()), describe(copy->getRootGroup()));
}
