// Writing and reading record collections as XML.
#include "host/persistence/HostPersistence.h"
#include "host/persistence/PO_XmlGuard.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

namespace {

QByteArray document(char const* entries)
{
    return QByteArray("<?xml version=\"1.0\"?>\n<metadatas>\n") + entries + "\n</metadatas>\n";
}

template <class Record> Record* recordAt(PIO_Metadatas const& metas, int index)
{
    return dynamic_cast<Record*>(*(metas.begin() + index));
}

TEST(PersistenceXml, GenericRecordsRoundTripWithTheirIdentity)
{
    PIO_Metadatas metas;
    auto* title = new PIO_MetadataString(
        QStringLiteral("projectTitle"), QStringLiteral("app"), QStringLiteral("1.0"));
    title->setValue(QStringLiteral("A <\"title\"> & more\n\ttabbed  "));
    auto* start = new PIO_MetadataInt(QStringLiteral("projectStartTime"));
    start->setValue(-2147483647 - 1);
    auto* width = new PIO_MetadataDouble(QString(), QString(), QStringLiteral(""));
    width->setValue(0.1 + 0.2);
    auto* flag = new PIO_MetadataBool(QStringLiteral(""));
    flag->setValue(true);
    auto* unset = new PIO_MetadataDouble(QStringLiteral("unset"));
    for (PIO_Metadata* meta : std::initializer_list<PIO_Metadata*> { title, start, width, flag, unset })
        metas.add(meta);

    PIO_Metadatas back;
    QString error;
    ASSERT_TRUE(PIO_MetadatasXml::fromDocument(PIO_MetadatasXml::toDocument(metas), back, &error))
        << qPrintable(error);
    ASSERT_EQ(back.size(), metas.size());
    auto it = back.begin();
    for (PIO_Metadata const* original : metas) {
        PIO_Metadata const* read = *it++;
        EXPECT_EQ(std::pair(read->metaType(), read->isValid()),
            std::pair(original->metaType(), original->isValid()));
        for (auto field : { &PIO_Metadata::metaName, &PIO_Metadata::creator, &PIO_Metadata::version })
            EXPECT_EQ(std::pair((read->*field)(), (read->*field)().isNull()),
                std::pair((original->*field)(), (original->*field)().isNull()))
                << qPrintable(read->metaType());
    }
    EXPECT_EQ(std::tuple(recordAt<PIO_MetadataString>(back, 0)->valueString(),
                  recordAt<PIO_MetadataInt>(back, 1)->valueInt(),
                  recordAt<PIO_MetadataDouble>(back, 2)->valueDouble()),
        std::tuple(title->valueString(), -2147483647 - 1, 0.1 + 0.2)); // the double bit exact
    EXPECT_TRUE(recordAt<PIO_MetadataBool>(back, 3)->valueBool()
        && !recordAt<PIO_MetadataDouble>(back, 4)->isValid());
}

TEST(PersistenceXml, ReadingAppendsCheckedValuesAndResolvesPredefinedEntities)
{
    PIO_Metadatas target;
    auto* existing = new PIO_MetadataInt(QStringLiteral("kept"));
    target.add(existing);
    ASSERT_TRUE(PIO_MetadatasXml::fromDocument(
        document("<metadata type=\"int\"><int value=\"12abc\"/></metadata>"
                 "<metadata type=\"bool\"><bool value=\"yes\"/><other/></metadata>"
                 "<metadata type=\"string\"><!-- note --><string value=\"&amp;&lt;&#x41;&#66;\"/></metadata>"
                 "<metadata type=\"double\"><double value=\"-inf\"/></metadata>"
                 "<metadata type=\"int\" name=\"new\"><int value=\"3\"/></metadata>"),
        target));
    ASSERT_EQ(target.size(), 6);
    EXPECT_EQ(*target.begin(), existing);
    EXPECT_FALSE(recordAt<PIO_Metadata>(target, 1)->isValid());
    EXPECT_FALSE(recordAt<PIO_Metadata>(target, 2)->isValid());
    EXPECT_EQ(recordAt<PIO_MetadataString>(target, 3)->valueString(), QStringLiteral("&<AB"));
    EXPECT_TRUE(std::isinf(recordAt<PIO_MetadataDouble>(target, 4)->valueDouble()));
    EXPECT_EQ(recordAt<PIO_MetadataInt>(target, 5)->valueInt(), 3);
}

// Records every call the collection reader makes, to check how it drives readers.
struct ProbeLog
{
    QStringList events;
    int liveReaders = 0;
};
ProbeLog probeLog;

class ProbeReader : public PIO_XML::ComponentReader
{
public:
    explicit ProbeReader(QString label)
        : m_label(std::move(label))
    {
        ++probeLog.liveReaders;
    }
    ~ProbeReader() override { --probeLog.liveReaders; }

    UT_SharedPtr<ComponentReader> handleStartElement(
        PIO_ReadingContext& context, QString const& name, QXmlAttributes const& attributes) override
    {
        QString text;
        for (int i = 0; i < attributes.count(); ++i)
            text += QStringLiteral(" %1=%2").arg(attributes.qName(i), attributes.value(i));
        log(QStringLiteral("start %1%2 @%3").arg(name, text).arg(context.lineNumber()));
        if (name == QLatin1String("skip"))
            return UT_SharedPtr<ComponentReader>();
        return UT_SharedPtr<ComponentReader>(
            name == QLatin1String("nested") ? new ProbeReader(QStringLiteral("child")) : this);
    }
    bool handleEndElement(PIO_ReadingContext&, QString const& name) override
    {
        log(QStringLiteral("end ") + name);
        return name != QLatin1String("refuse");
    }
    bool handleCDATA(QString const& text) override
    {
        log(QStringLiteral("text ") + text.trimmed());
        return true;
    }

private:
    void log(QString const& event) { probeLog.events.append(m_label + QLatin1Char(':') + event); }

    QString m_label;
};

class ProbeRecord : public PIO_Metadata
{
public:
    ProbeRecord(QString const& name, QString const& creator, QString const& version)
        : PIO_Metadata(QStringLiteral("probe"), name, creator, version)
    {
    }
    PIO_XML::ComponentReader* componentReader() override { return new ProbeReader(QStringLiteral("root")); }
    PIO_Metadata* clone() const override { return new ProbeRecord(*this); }

protected:
    void writeMetadataSubnodes(PIO_WritingContext& context) const override
    {
        PO_XmlWriter& writer = context.writer();
        writer.beginElement(QStringLiteral("probe"));
        writer.encodeBoolAttr(QStringLiteral("forDrag"), context.GetAttribute(QStringLiteral("for_drag")));
        writer.endElement();
    }
};

class ProbeFactory : public PIO_MetadataFactory
{
public:
    PIO_Metadata* createMeta(
        QString const& keyword, QString const& name, QString const& creator, QString const& version) override
    {
        if (keyword == QLatin1String("probe"))
            return new ProbeRecord(name, creator, version);
        return PIO_MetadataFactory::createMeta(keyword, name, creator, version);
    }
};

class PersistenceXmlDriving : public ::testing::Test
{
protected:
    void SetUp() override
    {
        probeLog = ProbeLog();
        PIO_MetadataFactory::registerImpl(&factory);
    }
    void TearDown() override { PIO_MetadataFactory::registerImpl(nullptr); }

    ProbeFactory factory;
};

TEST_F(PersistenceXmlDriving, ReadersReceiveElementsAsTheirParentsDecide)
{
    PIO_Metadatas target;
    QString error;
    ASSERT_TRUE(PIO_MetadatasXml::fromDocument(document("<metadata type=\"probe\" name=\"p\">\n"
                                                        "<probe a=\"1\" b=\"\">\n"
                                                        "  text1 <nested><inner/>deep</nested>\n"
                                                        "  <skip><lost/>gone</skip><![CDATA[ <raw> ]]>\n"
                                                        "</probe></metadata>"),
        target, &error))
        << qPrintable(error);
    EXPECT_EQ(probeLog.events.join(QLatin1Char('|')),
        QStringLiteral("root:start probe a=1 b= @4|root:text text1|root:start nested @5|child:start inner @5|"
                       "child:end inner|child:text deep|root:end nested|root:start skip @6|root:end skip|"
                       "root:text <raw>|root:end probe"));
    EXPECT_EQ(probeLog.liveReaders, 0);
    ASSERT_EQ(target.size(), 1);
    EXPECT_EQ((*target.begin())->metaName(), QStringLiteral("p"));
    // Writing flags reach the records.
    EXPECT_TRUE(PIO_MetadatasXml::toDocument(target, true).contains("forDrag=\"true\""));
    EXPECT_TRUE(PIO_MetadatasXml::toDocument(target, false).contains("forDrag=\"false\""));
}

TEST_F(PersistenceXmlDriving, RefusingReaderFailsTheWholeRead)
{
    PIO_Metadatas target;
    QString error;
    EXPECT_FALSE(
        PIO_MetadatasXml::fromDocument(document("<metadata type=\"int\"><int value=\"1\"/></metadata>"
                                                "<metadata type=\"probe\"><refuse/></metadata>"),
            target, &error));
    EXPECT_TRUE(target.isEmpty() && error.contains(QStringLiteral("refused"))) << qPrintable(error);
    EXPECT_EQ(probeLog.liveReaders, 0);
}

TEST(PersistenceXml, UnknownRecordsAreKeptAndWrittenBackUnchanged)
{
    QByteArray const original = document("<metadata type=\"fromTheFuture\" name=\"x\" version=\"9.0\">"
                                         "<future a=\"1\" xmlns:p=\"urn:p\"><p:child p:b=\"&lt;2&gt;\">text "
                                         "&amp; more</p:child><empty/></future>"
                                         "<cr>a&#13;b</cr><gap><![CDATA[ \n ]]></gap><mixed>&gt;<![CDATA[  ]]></mixed></metadata>");
    PIO_Metadatas first;
    QString error;
    ASSERT_TRUE(PIO_MetadatasXml::fromDocument(original, first, &error)) << qPrintable(error);
    auto* unknown = recordAt<PIO_MetadataUnknown>(first, 0);
    ASSERT_NE(unknown, nullptr);
    EXPECT_EQ(std::pair(unknown->elementCount(), unknown->version()), std::pair(6, QStringLiteral("9.0")));

    QByteArray const saved = PIO_MetadatasXml::toDocument(first);
    PIO_Metadatas second;
    ASSERT_TRUE(PIO_MetadatasXml::fromDocument(saved, second, &error))
        << qPrintable(error) << saved.constData();
    EXPECT_EQ(PIO_MetadatasXml::toDocument(second), saved);
    EXPECT_TRUE(saved.contains("<p:child p:b=\"&lt;2&gt;\">text &amp; more</p:child>")) << saved.constData();
    // A carriage return, and text of white space alone, survive a reader.
    EXPECT_TRUE(saved.contains("<cr>a&#13;b</cr>") && saved.contains("<gap>&#32;&#10;&#32;</gap>"))
        << saved.constData();

    std::unique_ptr<PIO_Metadata> copy(unknown->clone());
    PIO_Metadatas third;
    third.add(copy.release());
    EXPECT_EQ(PIO_MetadatasXml::toDocument(third), saved);
}

TEST(PersistenceXml, BadInputIsRefusedWithAPositionAndLeavesTheTargetAlone)
{
    struct
    {
        QByteArray xml;
        char const* errorStart = "line ";
    } const cases[]
        = { { "" }, { QByteArray("\x00\x01\x02", 3) }, { "<metadatas><metadata type=\"int\"><int val" },
              { "<metadatas><metadata type=\"int\"><int value=\"3\"/></metadata>" },
              { "<metadatas>\n<metadata type=\"int\"/>\n<oops/>\n</metadatas>", "line 3, column " },
              { "<!DOCTYPE metadatas><metadatas/>" }, { "<!DOCTYPE m [<!ENTITY e \"x\">]><metadatas/>" },
              { "<metadatas><metadata type=\"string\"><string value=\"&e;\"/></metadata>"
                "</metadatas>" },
              { "<metadatas><metadata><int/></metadata></metadatas>" },
              { "<metadatas><metadata type=\"\"/></metadatas>" }, { "<metadatas><other/></metadatas>" },
              { "<metadatas>text</metadatas>" }, { "<project/>" }, { "text" }, { "<metadatas/><metadatas/>" },
              { "<metadatas/>tail" }, { "<metadatas><metadata type=\"int\"></int></metadatas>" },
              { "<metadatas><metadata type=\"a\" type=\"b\"/></metadatas>" },
              // The parser takes this NUL into an attribute's name, which no writer keeps.
              { QByteArray("<metadatas>\n<metadata type=\"x\"><e a\0b=\"1\"/></metadata></metadatas>", 66),
                  "line 2, column 24: a NUL byte" },
              // A codec that makes unpaired surrogates of these bytes is never asked.
              { "<?xml version=\"1.0\" encoding=\"UTF-7\"?>\n<metadatas>+2D3cAA-</metadatas>",
                  "line 1, column 38: the document is declared in \"UTF-7\"" } };
    for (auto const& c : cases) {
        PIO_Metadatas target;
        auto* kept = new PIO_MetadataInt(QStringLiteral("kept"));
        target.add(kept);
        QString error;
        EXPECT_FALSE(PIO_MetadatasXml::fromDocument(c.xml, target, &error)) << c.xml.constData();
        EXPECT_TRUE(error.startsWith(QString::fromUtf8(c.errorStart))) << qPrintable(error);
        EXPECT_TRUE(error.contains(QStringLiteral(", column "))) << qPrintable(error);
        ASSERT_EQ(target.size(), 1);
        EXPECT_EQ(*target.begin(), kept);
    }
}

TEST(PersistenceXml, ReadsACollectionInsideALargerDocumentAndRaisesItsErrorOnThatStream)
{
    PO_XmlGuard guard(QByteArray("<project><scene id=\"1\"><metadatas><metadata type=\"bool\" name=\"b\">"
                                 "<bool value=\"true\"/></metadata></metadatas><after/></scene>"
                                 "<metadatas><bad/></metadatas></project>"));
    QXmlStreamReader const& stream = guard.stream();
    while (!(stream.isStartElement() && stream.name() == PIO_MetadatasXml::collectionElement))
        guard.readNext();
    PIO_Metadatas target;
    ASSERT_TRUE(PIO_MetadatasXml::read(guard, target));
    EXPECT_TRUE(stream.isEndElement() && stream.name() == PIO_MetadatasXml::collectionElement);
    guard.readNext();
    EXPECT_EQ(stream.name(), QStringLiteral("after"));
    ASSERT_EQ(target.size(), 1);
    EXPECT_TRUE(recordAt<PIO_MetadataBool>(target, 0)->valueBool());

    while (!(stream.isStartElement() && stream.name() == PIO_MetadatasXml::collectionElement))
        guard.readNext();
    QString error;
    EXPECT_FALSE(PIO_MetadatasXml::read(guard, target, &error));
    EXPECT_TRUE(guard.hasError() && guard.errorString() == error);
}

} // namespace
