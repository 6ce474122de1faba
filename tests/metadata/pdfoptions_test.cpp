// KRC_PdfOptions: the option set, its blobs through the persistence driver (current,
// legacy and damaged), clone, and the records of a project across its project file.
#include "metadata/KRC_PdfOptions.h"
#include "metadata_test_support.h"
#include "properties/KRC_PropertiedObject.h"
#include "properties/KRC_PropertyFromList.h"
#include "support/PropertyBlobs.h"
#include "support/QtWarningCapture.h"

#include <QDateTime>

#include <gtest/gtest.h>

namespace {

QStringList summaries(KRC_PdfOptions const& record)
{
    std::list<KRC_Property*> properties;
    record.pdfOptions().getAllProperties(properties);
    QStringList result;
    for (KRC_Property const* property : properties)
        result << PropertyBlobs::summary(*property);
    return result;
}

// Every kind with a definition, and bounds or choices where the kind has them.
void fill(KRC_PropertiedObject& options)
{
    options.addProperty("panel_export_enabled", false, "Export", "Exp", false, false);
    options.addPropertyFromList(
        "layout", QString("b"), QVariantList { "A", "a", "B", "b" }, true, false, "L", "S", true, true);
    options.addPropertyFromRange("margin", 2.5, 0.0, 10.0, "M", "m", false, true);
    options.addPropertyFromFile("logo", QString("/tmp/logo.png"), "*.png", "F", "f", false, false);
    options.addPropertyFromFont("font", QString("Sans,12"), "T", "t", false, false);
    // A date's stream form differs between the writer's version and Qt's default.
    options.addProperty("printed", QDateTime(QDate(2024, 2, 29), QTime(13, 45, 7)), "P", "p", false, false);
}

// The inner XML of an entry whose one option holds the given blob.
QString optionXml(int type, QByteArray const& blob)
{
    return QStringLiteral(
        "<pdfOptions><option name=\"o\" type=\"%1\"><value data=\"%2\"/></option></pdfOptions>")
        .arg(type)
        .arg(QString::fromLatin1(blob.toBase64()));
}

KRC_PdfOptions* readOptions(QString const& inner, std::unique_ptr<PIO_Metadatas>& holder)
{
    QtWarningCapture quiet;
    return metatest::readRecord<KRC_PdfOptions>(inner, holder);
}

TEST(PdfOptions, OptionSetOperations)
{
    KRC_PdfOptions record;
    EXPECT_TRUE(record.exportEnabled());
    const KRC_Property disabled("panel_export_enabled", false, nullptr);
    const KRC_Property other("other", 1, nullptr);
    for (KRC_Property const* option :
        { &disabled, &other, static_cast<KRC_Property const*>(nullptr), &disabled })
        record.addPdfOptions(option); // the second "panel_export_enabled" replaces the first and moves last
    EXPECT_FALSE(record.exportEnabled());
    EXPECT_NE(record.pdfOptions().getProperty("other"), &other); // a clone; the caller keeps its own
    EXPECT_EQ(
        summaries(record), QStringList({ PropertyBlobs::summary(other), PropertyBlobs::summary(disabled) }));
    // An option of the record itself replaces itself; it is cloned before it goes.
    record.addPdfOptions(record.pdfOptions().getProperty("other"));
    EXPECT_EQ(record.pdfOptions().getPropertyInt("other", 0), 1);
    record.removePdfOption("panel_export_enabled");
    EXPECT_TRUE(record.exportEnabled());
    record.removeAll();
    EXPECT_EQ(record.pdfOptions().propertiesCount(), 0u);
    EXPECT_TRUE(metatest::dumpOf(record).isEmpty());
}

TEST(PdfOptions, EveryKindSurvivesTheXmlWithDefinitionAndConstraints)
{
    KRC_PdfOptions record;
    fill(record.pdfOptions());
    record.pdfOptions().addPropertyFromCaptionList("captions", QString("a;b")); // written, not read back
    QByteArray written;
    const auto metas = metatest::roundTrip(record, &written);
    const auto* reloaded = metatest::first<KRC_PdfOptions>(metas.get());
    ASSERT_TRUE(reloaded);
    record.removePdfOption("captions");
    EXPECT_EQ(summaries(*reloaded), summaries(record));
    EXPECT_TRUE(written.contains("<option name=\"captions\" type=\"5\">")) << written.constData();
    EXPECT_EQ(written.count("<value data=\"sLAAAAAAAdk"), 7); // every blob starts with the mark
}

TEST(PdfOptions, LegacyBlobsAndRefusedMarkedBlobsAreReadFromByteZeroInVersion6)
{
    const KRC_Property legacy("o", QString("old"), nullptr);
    std::unique_ptr<PIO_Metadatas> holder;
    KRC_PdfOptions* record = readOptions(optionXml(0, PropertyBlobs::store(legacy, 6)), holder);
    ASSERT_TRUE(record);
    EXPECT_EQ(record->pdfOptions().getPropertyString("o", ""), QString("old"));

    // A list whose value has another type than its choices: the marked read fails
    // validation, the version 6 read can't decode the mark, and the option is dropped.
    const QByteArray refused = PropertyBlobs::raw(12, [](QDataStream& out) {
        out << quint32(0xb0b00000) << qint32(473);
        KRC_Property("o", 5, nullptr).store(out);
        out << QVariant(QVariantMap { { "a", QString("x") } }) << qint32(0) << qint32(0);
    });
    record = readOptions(optionXml(1, refused), holder);
    ASSERT_TRUE(record);
    EXPECT_EQ(record->pdfOptions().propertiesCount(), 0u);

    // Another mark version, or another mark: read from byte zero in version 6, and dropped.
    for (auto const& [mark, version] : { std::pair(0xb0b00000u, 474), std::pair(0xb0b00001u, 473) }) {
        const QByteArray other = PropertyBlobs::raw(12, [mark = mark, version = version](QDataStream& out) {
            out << quint32(mark) << qint32(version);
            KRC_Property("o", 5, nullptr).store(out);
        });
        record = readOptions(optionXml(0, other), holder);
        ASSERT_TRUE(record);
        EXPECT_EQ(record->pdfOptions().propertiesCount(), 0u) << mark;
    }
}

TEST(PdfOptions, DamagedOrUnknownOptionsAreDroppedAndTheOthersKept)
{
    const QByteArray good = PropertyBlobs::store(KRC_Property("o", 7, nullptr), 12, true);
    std::unique_ptr<PIO_Metadatas> holder;
    for (int cut = 0; cut < good.size(); ++cut) {
        KRC_PdfOptions* record = readOptions(optionXml(0, good.left(cut)), holder);
        ASSERT_TRUE(record) << cut;
        EXPECT_EQ(record->pdfOptions().propertiesCount(), 0u) << cut;
    }
    const QString mixed
        = QStringLiteral("<pdfOptions>"
                         "<option name=\"a\" type=\"5\"><value data=\"%1\"/></option>"
                         "<option name=\"b\" type=\"0\"><value data=\"not base64!\"/></option>"
                         "<option name=\"c\" type=\"0\"/><value data=\"%1\"/>"
                         "<option name=\"d\" type=\"x\"><value data=\"%1\"/><value data=\"%2\"/></option>"
                         "</pdfOptions>")
              .arg(QString::fromLatin1(good.toBase64()),
                  QString::fromLatin1(
                      PropertyBlobs::store(KRC_Property("o", 9, nullptr), 12, true).toBase64()));
    KRC_PdfOptions* record = readOptions(mixed, holder);
    ASSERT_TRUE(record);
    // Only "d" (type text x reads as 0) keeps an option: its first value, under the blob's name.
    EXPECT_EQ(std::pair(record->pdfOptions().propertiesCount(), record->pdfOptions().getPropertyInt("o", 0)),
        std::pair(1u, 7));
}

TEST(PdfOptions, ReadingReplacesAndCloneIsFresh)
{
    KRC_PdfOptions source("named", "someone", "0.1");
    fill(source.pdfOptions());
    UT_SharedPtr<PIO_XML::ComponentReader>(source.componentReader()); // a reader is made on an empty record
    EXPECT_EQ(source.pdfOptions().propertiesCount(), 0u);

    fill(source.pdfOptions());
    std::unique_ptr<PIO_Metadata> clone(source.clone());
    auto* copy = dynamic_cast<KRC_PdfOptions*>(clone.get());
    ASSERT_TRUE(copy);
    EXPECT_TRUE(copy->metaName().isNull() && copy->version() == KRC_PdfOptions::kPIO_KRMETA_Version
        && copy->creator() != QString("someone"));
    EXPECT_EQ(summaries(*copy), summaries(source));
    copy->pdfOptions().setProperty("margin", 3.0);
    EXPECT_EQ(source.pdfOptions().getPropertyDouble("margin", 0), 2.5);
}

} // namespace
