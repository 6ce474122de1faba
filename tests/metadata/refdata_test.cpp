// KRC_ReferenceToolData: defaults, XML through the persistence driver, the reader's
// shared success flag, clone and dump.
#include "metadata/KRC_ReferenceToolData.h"
#include "metadata_test_support.h"
#include "support/QtWarningCapture.h"

#include <QRegularExpression>
#include <gtest/gtest.h>

#include <functional>
#include <tuple>

namespace {

// The document without the indentation between elements.
QByteArray compact(QByteArray const& document)
{
    return QString::fromUtf8(document).replace(QRegularExpression(">\\s+<"), "><").toUtf8();
}

KRC_ReferenceToolData* readTool(QString const& children, std::unique_ptr<PIO_Metadatas>& holder)
{
    return metatest::readRecord<KRC_ReferenceToolData>(
        QStringLiteral("<referenceToolData>%1</referenceToolData>").arg(children), holder);
}

KRC_ReferenceToolData sample()
{
    KRC_ReferenceToolData data("tool", "someone", "0.9");
    data.setPos(Math::Point2d(12.25, -3.5));
    data.setScale(0.1);
    data.setAngle(45);
    data.setRgb(QColor(10, 20, 30));
    data.setAlpha(0.75);
    data.addOption(KRC_ReferenceToolData::AutoUpdateThumbnails);
    return data;
}

TEST(ReferenceToolData, OptionsAreBitsOverDefaultData)
{
    KRC_ReferenceToolData data;
    EXPECT_TRUE(data.isValid() && data.data() == KRC_ReferenceToolData::Data_t());
    data.addOption(KRC_ReferenceToolData::ShowOnThumbnails);
    EXPECT_TRUE(data.showOnThumbnails() && !data.autoUpdateThumbnails());
    data.addOption(KRC_ReferenceToolData::AutoUpdateThumbnails);
    EXPECT_EQ(data.options(), 3);
}

TEST(ReferenceToolData, DataDiffersInAnyOneField)
{
    const std::function<void(KRC_ReferenceToolData&)> changes[] = {
        [](KRC_ReferenceToolData& d) { d.setPos(Math::Point2d(0, -3.5)); },
        [](KRC_ReferenceToolData& d) { d.setPos(Math::Point2d(12.25, 0)); },
        [](KRC_ReferenceToolData& d) { d.setAngle(0); },
        [](KRC_ReferenceToolData& d) { d.setScale(1); },
        [](KRC_ReferenceToolData& d) { d.setRgb(QColor(10, 20, 31)); },
        [](KRC_ReferenceToolData& d) { d.setAlpha(1); },
    };
    for (auto const& change : changes) {
        KRC_ReferenceToolData changed = sample();
        change(changed);
        EXPECT_FALSE(changed.data() == sample().data()) << metatest::dumpOf(changed).toStdString();
    }
}

TEST(ReferenceToolData, XmlRoundTripKeepsEveryFieldInFormatOrder)
{
    QByteArray written;
    const auto metas = metatest::roundTrip(sample(), &written);
    written = compact(written);
    const auto* reloaded = metatest::first<KRC_ReferenceToolData>(metas.get());
    ASSERT_TRUE(reloaded);
    EXPECT_TRUE(reloaded->data() == sample().data());
    EXPECT_EQ(metatest::dumpOf(*reloaded), metatest::dumpOf(sample()));
    EXPECT_TRUE(
        written.contains("<referenceToolData><position x=\"12.25\" y=\"-3.5\" angle=\"45\" scale=\"0.1\"/>"
                         "<color r=\"10\" g=\"20\" b=\"30\" a=\"0.75\"/><options value=\"2\"/>"
                         "</referenceToolData>"))
        << written.constData();
}

// A failed attribute spoils the whole element: the last one read decides for it.
TEST(ReferenceToolData, TheLastAttributeDecidesForItsElement)
{
    const QColor kDefault(255, 30, 255);
    // children, position, scale, colour, alpha, options
    const std::tuple<char const*, Math::Point2d, double, QColor, double, int> cases[] = {
        { "<position x=\"abc\" y=\"2\" angle=\"0\" scale=\"3\"/>", { 0, 2 }, 3, kDefault, 1, 0 },
        { "<position x=\"1\" y=\"2\" angle=\"0\" scale=\"bad\"/>", { 0, 0 }, 1, kDefault, 1, 0 },
        { "<position x=\"1\" y=\"2\" angle=\"0\"/>", { 0, 0 }, 1, kDefault, 1, 0 },
        { "<color r=\"x\" g=\"2\" b=\"3\" a=\"0.5\"/>", { 0, 0 }, 1, QColor(0, 2, 3), 0.5, 0 },
        { "<color r=\"1\" g=\"2\" b=\"3\" a=\"\"/>", { 0, 0 }, 1, kDefault, 1, 0 },
        { "<options value=\"5\"/><options value=\"z\"/><other value=\"7\"/>", { 0, 0 }, 1, kDefault, 1, 5 }
    };
    for (auto const& [children, pos, scale, rgb, alpha, options] : cases) {
        std::unique_ptr<PIO_Metadatas> holder;
        const auto* data = readTool(QString::fromLatin1(children), holder);
        ASSERT_TRUE(data) << children;
        EXPECT_EQ(std::tuple(data->pos(), data->scale(), data->rgb(), data->rgb().alpha(), data->alpha(),
                      data->options()),
            std::tuple(pos, scale, rgb, 255, alpha, options))
            << children;
    }
}

TEST(ReferenceToolData, ChannelsOutOfRangeGiveAnInvalidColourInSilence)
{
    for (char const* channels : { "r=\"300\" g=\"2\" b=\"3\"", "r=\"1\" g=\"-1\" b=\"3\"" }) {
        QtWarningCapture warnings;
        std::unique_ptr<PIO_Metadatas> holder;
        const auto* data
            = readTool(QStringLiteral("<color %1 a=\"0.5\"/>").arg(QString::fromLatin1(channels)), holder);
        ASSERT_TRUE(data);
        EXPECT_EQ(std::pair(data->rgb().isValid(), data->alpha()), std::pair(false, 0.5)) << channels;
        EXPECT_TRUE(warnings.warnings().isEmpty()) << warnings.warnings().join('\n').toStdString();
    }
}

TEST(ReferenceToolData, CopiesTakeIdentityAndContentAndDumpListsThem)
{
    const KRC_ReferenceToolData source = sample();
    metatest::expectFaithfulCopies(source);

    QString base;
    source.PIO_Metadata::dumpToString(base);
    EXPECT_EQ(metatest::dumpOf(source),
        base
            + "Position x=12.25, y=-3.5\nScale=0.1, angle=45\nColor(r,g,b,a) = 10, 20, 30, 0.75\n"
              "Show on thumbnails = false\nAuto update thumbnails = true\n");
}

} // namespace
