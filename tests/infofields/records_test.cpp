// The XML of the info field records: what is written, what comes back, and the factory.
#include "infofields/InfoFieldTestKit.h"
#include "infofields/KRC_ExtraInfoFieldDescList.h"
#include "infofields/KRC_HiddenInfoFieldList.h"
#include "infofields/KRC_ProjectInfoFieldDescList.h"
#include "metadata/metadata_test_support.h"

#include <QTextDocument>

#include <gtest/gtest.h>

using namespace fieldtest;

namespace {

QString const kHtmlMark = QStringLiteral("<html>");

TEST(InfoFieldRecords, FactoryMakesEveryRecordAndEmptyOnesLeaveNoTrace)
{
    KRC_MetadataFactory::createInstance();
    const auto check = [](auto record) {
        using T = std::remove_pointer_t<decltype(record)>;
        std::unique_ptr<PIO_Metadata> made(PIO_MetadataFactory::instance()->createMeta(
            T::kPIO_KRMETA_Keyword, QString(), QStringLiteral("c"), QStringLiteral("1.0")));
        EXPECT_TRUE(dynamic_cast<T*>(made.get())) << T::kPIO_KRMETA_Keyword.toStdString();
        QByteArray written;
        auto metas = metatest::roundTrip(*static_cast<T*>(made.get()), &written);
        EXPECT_FALSE(written.contains("<field")) << written.constData();
        EXPECT_TRUE(metatest::first<T>(metas.get())->empty());
        EXPECT_TRUE(metatest::dumpOf(*made).endsWith(QStringLiteral("EMPTY\n")));
    };
    check(static_cast<KRC_ProjectInfoFieldDescList*>(nullptr));
    check(static_cast<KRC_PanelInfoFieldDescList*>(nullptr));
    check(static_cast<KRC_InfoFieldList*>(nullptr));
    check(static_cast<KRC_ExtraInfoFieldDescList*>(nullptr));
    check(static_cast<KRC_HiddenInfoFieldList*>(nullptr));
}

TEST(InfoFieldRecords, DefinitionsComeBackWithoutTheirSize)
{
    KRC_ProjectInfoFieldDescList descs;
    descs.add(18, 3, QStringLiteral("Sketch"), KRC_InfoFieldDesc::kMaximum);
    descs.add(1, 0, QStringLiteral("Notes"), KRC_InfoFieldDesc::kMinimum);
    QByteArray written;
    auto metas = metatest::roundTrip(descs, &written);
    EXPECT_TRUE(
        written.contains(R"(<field id="3" name="Sketch" type="IMAGE" comment="true" size="MAXIMUM"/>)"))
        << written.constData();
    KRC_ProjectInfoFieldDescList* read = metatest::first<KRC_ProjectInfoFieldDescList>(metas.get());
    ASSERT_TRUE(read);
    EXPECT_EQ(metatest::dumpOf(*read).section(QLatin1Char('\n'), 1),
        QStringLiteral("Field: name=Sketch, type=IMAGE, id=3, size=DEFAULT\n"
                       "Field: name=Notes, type=TEXT, id=0, size=DEFAULT\n"));
    EXPECT_EQ(read->front().type(), 18);

    std::unique_ptr<PIO_Metadatas> holder;
    auto* dropped = metatest::readRecord<KRC_PanelInfoFieldDescList>(
        R"(<scenePanelInfoFieldList><field id="x" name="a"/><field id="2" name="b"/></scenePanelInfoFieldList>)",
        holder);
    ASSERT_TRUE(dropped);
    EXPECT_EQ(idsOf(*dropped), (Ids { 2 })); // no integer id, no definition
}

TEST(InfoFieldRecords, ExtraAndHiddenLists)
{
    std::unique_ptr<PIO_Metadatas> holder;
    auto* extras = metatest::readRecord<KRC_ExtraInfoFieldDescList>(
        R"(<extraInfoFieldList><field name="a" type="IMAGE" comment="true" position="4"/><field name="b"/>)"
        R"(</extraInfoFieldList>)",
        holder);
    ASSERT_TRUE(extras);
    EXPECT_EQ(metatest::dumpOf(*extras).section(QLatin1Char('\n'), 1),
        QStringLiteral("Field: name=a, type=IMAGE, position=4\nField: name=b, type=TEXT, position=-1\n"));
    QByteArray written;
    metatest::roundTrip(*extras, &written);
    EXPECT_TRUE(written.contains(R"(<field name="a" type="IMAGE" comment="true" position="4"/>)"));
    EXPECT_TRUE(written.contains(R"(<field name="b" position="-1"/>)"));

    auto* hidden = metatest::readRecord<KRC_HiddenInfoFieldList>(
        R"(<hiddenInfoField><field name="b"/><field name="a"/><field name="b"/></hiddenInfoField>)", holder);
    ASSERT_TRUE(hidden);
    EXPECT_EQ(std::vector<QString>(hidden->begin(), hidden->end()),
        (std::vector<QString> { QStringLiteral("a"), QStringLiteral("b") }));
}

TEST(InfoFieldRecords, ValuesAreWrittenCleanAndReadAsRichText)
{
    KRC_InfoFieldList list;
    list.insertInfoField(1, QStringLiteral("x"), 0, KRC_InfoFieldDesc::kMaximum, QStringLiteral("a\r\nb"), INT_MAX);
    list.insertInfoField(2, QStringLiteral("pic"), -1, QStringLiteral("img/1.png"), INT_MAX);
    EXPECT_TRUE(list.getInfoField(0)->name().isEmpty()); // a global field's name is its descriptor's
    list.push_back(UT_SharedPtr<KRC_InfoField>()); // null entries are skipped
    QByteArray written;
    auto metas = metatest::roundTrip(list, &written);
    EXPECT_TRUE(written.contains(R"(<field id="0" type="TEXT" size="MAXIMUM" value="a&#10;b"/>)"))
        << written.constData();
    EXPECT_TRUE(written.contains(R"(<field id="-1" name="pic" type="IMAGE" value="img/1.png"/>)"));
    KRC_InfoFieldList* read = metatest::first<KRC_InfoFieldList>(metas.get());
    ASSERT_TRUE(read);
    EXPECT_EQ(idsOf(*read), (Ids { 0, -1 }));
    QTextDocument document;
    document.setHtml(read->getInfoField(0)->value());
    EXPECT_EQ(document.toPlainText(), QStringLiteral("a\nb"));
    EXPECT_EQ(read->getInfoField(-1)->value(), QStringLiteral("img/1.png")); // an image key stays

    std::unique_ptr<PIO_Metadatas> holder;
    auto* plain = metatest::readRecord<KRC_InfoFieldList>(
        R"(<infoFields><field id="2147483647" value="abc"/>)"
        R"(<field id="1" type="TEXT" comment="true" value="abc"/>)"
        R"(<field id="2" value="&lt;b&gt;x&lt;/b&gt;"/><field id="?"/></infoFields>)",
        holder);
    ASSERT_TRUE(plain);
    EXPECT_EQ(idsOf(*plain), (Ids { -1, 1, 2 })); // INT_MAX asks for a new id; "?" is dropped
    EXPECT_TRUE(plain->getInfoField(-1)->value().contains(kHtmlMark));
    EXPECT_EQ(plain->getInfoField(1)->value(), QStringLiteral("abc")); // a comment stays plain
    EXPECT_EQ(plain->getInfoField(2)->value(), QStringLiteral("<b>x</b>")); // rich text stays
}

// Whatever the text, the read value is exactly what a text document makes of it.
TEST(InfoFieldRecords, ReadRichTextIsTheDocumentsOwn)
{
    for (char const* plain :
        { "a", "a\n\nb", "\nx\n", " two  spaces\t<&>\"' ", "caf\xc3\xa9 \xe2\x82\xac" }) {
        KRC_InfoFieldList list;
        list.insertInfoField(1, 0, QString::fromUtf8(plain), INT_MAX);
        auto metas = metatest::roundTrip(list);
        QTextDocument document;
        document.setPlainText(QString::fromUtf8(plain));
        EXPECT_EQ(
            metatest::first<KRC_InfoFieldList>(metas.get())->front()->value(), document.toHtml(QByteArray()))
            << plain;
    }
}

TEST(InfoFieldRecords, DragKeepsTheName)
{
    KRC_InfoFieldList list;
    list.insertInfoField(1, QStringLiteral("loc"), -1, QStringLiteral("<b>v</b>"), INT_MAX);
    PIO_Metadatas source;
    source.add(new KRC_InfoFieldList(list));
    const QByteArray dragged = PIO_MetadatasXml::toDocument(source, true);
    EXPECT_TRUE(dragged.contains(R"(dragName="loc")"));
    EXPECT_FALSE(PIO_MetadatasXml::toDocument(source).contains("dragName"));
    auto metas = metatest::readDocument(dragged);
    EXPECT_EQ(metatest::first<KRC_InfoFieldList>(metas.get())->front()->dragName(), QStringLiteral("loc"));
}

} // namespace
