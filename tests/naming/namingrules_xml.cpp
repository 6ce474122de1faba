// The "namingRules" record as XML: the "2.0" writer, the "2.0" and flat "1.0" readers.
#include "naming/KRC_NamingRules.h"

#include "metadata/metadata_test_support.h"
#include "support/ScopedPreferences.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

namespace {

using metatest::entryDocument;
using metatest::first;
using metatest::readDocument;
using metatest::roundTrip;

// Reads one "namingRules" entry of `version` whose content is `inner`.
std::unique_ptr<PIO_Metadatas> readRules(QString const& version, QString const& inner)
{
    return readDocument(entryDocument(QStringLiteral("namingRules"),
        QStringLiteral("creator=\"elsewhere\" version=\"%1\"").arg(version), inner));
}

// Distinct stored values in every field of one rules.
void fill(KRC_NamingRules::ObjRules& rules, int seed)
{
    rules.setAutomaticLeadingZeros(seed % 2 == 0);
    rules.setNumberOfZeros(seed + 1);
    rules.setAllowCustomName(seed % 2 == 1);
    rules.setAutoIncrementRule(KRC_NamingRules::NameRule_t(seed % 5));
    rules.setAutoIncrementValue(seed * 5);
    rules.setNameSuffixDelimiter(KRC_NamingRules::Delimiter_t(seed % 3));
    rules.setNameSuffixType(KRC_NamingRules::SuffixType_t(seed % 4));
    rules.setSmartNameOnDrop(seed % 2 == 0);
    rules.setResetNameOnNewParent(seed % 2 == 1);
}

class NamingRulesXml : public ::testing::Test
{
protected:
    ScopedPreferences prefs;
};

TEST_F(NamingRulesXml, WritesTheStoredValuesInFormatOrder)
{
    KRC_NamingRules rules;
    rules.setAutoShowTotal(true);
    fill(rules.sequenceRules(), 1);
    fill(rules.shotRules(), 2);
    fill(rules.panelRules(), 3);
    // The preference view differs from what is stored; the stored values are written.
    prefs->setIntValue(QStringLiteral("ST_SHOT_NAME_NUMBER_OF_ZEROS"), 8);

    QByteArray written;
    roundTrip(rules, &written);
    const char* expected
        = "<namingRules overloadingPref=\"false\" autoShowTotal=\"true\" enabledAct=\"false\">"
          "<sequence_rules automaticLeadingZeros=\"false\" numberOfZeros=\"2\" "
          "allowCustomName=\"true\" autoIncrementRule=\"1\" sceneNameIncrementValue=\"5\" "
          "shotConflictDelimiter=\"1\" shotConflictType=\"1\" smartShotNameOnDrop=\"false\" "
          "resetNameOnNewParent=\"true\"/>"
          "<shot_rules automaticLeadingZeros=\"true\" numberOfZeros=\"3\" "
          "allowCustomName=\"false\" autoIncrementRule=\"2\" sceneNameIncrementValue=\"10\" "
          "shotConflictDelimiter=\"2\" shotConflictType=\"2\" smartShotNameOnDrop=\"true\" "
          "resetNameOnNewParent=\"false\"/>"
          "<panel_rules automaticLeadingZeros=\"false\" numberOfZeros=\"4\" "
          "allowCustomName=\"true\" autoIncrementRule=\"3\" sceneNameIncrementValue=\"15\" "
          "shotConflictDelimiter=\"0\" shotConflictType=\"3\" smartShotNameOnDrop=\"false\" "
          "resetNameOnNewParent=\"true\"/>"
          "</namingRules>";
    // Indentation between elements is the writer's business.
    const QString compact = QString::fromUtf8(written).replace(
        QRegularExpression(QStringLiteral(">\\s+<")), QStringLiteral("><"));
    EXPECT_TRUE(compact.contains(QLatin1String(expected))) << written.constData();
}

TEST_F(NamingRulesXml, SaveAndReloadGiveEqualRules)
{
    for (bool overloading : { false, true }) {
        KRC_NamingRules rules;
        rules.setOverloadingPref(overloading);
        rules.setEnabledAct(true);
        fill(rules.sequenceRules(), 4);
        fill(rules.shotRules(), 7);
        fill(rules.panelRules(), 9);

        auto metas = roundTrip(rules);
        auto* read = first<KRC_NamingRules>(metas.get());
        ASSERT_NE(read, nullptr);
        EXPECT_TRUE(*read == rules) << "overloading " << overloading;
        EXPECT_EQ(read->overloadingPref(), overloading);
        EXPECT_EQ(read->version(), QStringLiteral("2.0"));
        // The switch reaches the rules too: under override they answer what was saved.
        read->setOverloadingPref(true);
        rules.setOverloadingPref(true);
        EXPECT_EQ(read->panelRules().autoIncrementValue(), 45);
        EXPECT_TRUE(read->enabledAct());
    }
}

TEST_F(NamingRulesXml, RulesElementReadsIntegersAlwaysAndBooleansOnlyWhenTheyParse)
{
    prefs->setIntValue(QStringLiteral("ST_SHOT_NAME_NUMBER_OF_ZEROS"), 5);
    auto metas = readRules(QStringLiteral("2.0"),
        QStringLiteral(
            "<namingRules overloadingPref=\"true\">"
            "<shot_rules allowCustomName=\"yes\" autoIncrementRule=\"x\" sceneNameIncrementValue=\"12\""
            " smartShotNameOnDrop=\"true\"/></namingRules>"));
    auto* read = first<KRC_NamingRules>(metas.get());
    ASSERT_NE(read, nullptr);
    ASSERT_TRUE(read->overloadingPref());
    const KRC_NamingRules::ObjRules& shot = read->shotRules();
    EXPECT_EQ(shot.numberOfZeros(), 0); // missing int: 0, not the constructed 5
    EXPECT_TRUE(shot.allowCustomName()); // malformed bool: the constructed value
    EXPECT_FALSE(shot.automaticLeadingZeros()); // missing bool: the constructed value
    EXPECT_EQ(shot.autoIncrementRule(), KRC_NamingRules::Rule_Numeric);
    EXPECT_EQ(shot.autoIncrementValue(), 12);
    EXPECT_EQ(shot.nameSuffixDelimiter(), KRC_NamingRules::Delimiter_None);
    EXPECT_TRUE(shot.smartNameOnDrop());
    // Elements not read keep their construction.
    EXPECT_EQ(read->panelRules().nameSuffixType(), KRC_NamingRules::Suffix_Number);
    EXPECT_EQ(read->sequenceRules().numberOfZeros(), 2);
}

TEST_F(NamingRulesXml, RecordElementOfVersionTwoHoldsOnlyTheSwitches)
{
    auto metas = readRules(QStringLiteral("2.0"),
        QStringLiteral("<namingRules overloadingPref=\"true\" autoShowTotal=\"true\" enabledAct=\"maybe\""
                       " numberOfZeros=\"6\"/><unknown overloadingPref=\"false\"/>"));
    auto* read = first<KRC_NamingRules>(metas.get());
    ASSERT_NE(read, nullptr);
    EXPECT_TRUE(read->overloadingPref());
    EXPECT_TRUE(read->autoShowTotal());
    EXPECT_FALSE(read->enabledAct());
    for (auto* rules : { &read->sequenceRules(), &read->shotRules(), &read->panelRules() })
        EXPECT_NE(rules->numberOfZeros(), 6) << qPrintable(rules->objName());
    // The record's switch reached all three rules.
    prefs->setIntValue(QStringLiteral("ST_PANEL_NAME_NUMBER_OF_ZEROS"), 7);
    EXPECT_EQ(read->panelRules().numberOfZeros(), 0);
}

// The flat older form: every value on one element, mapped onto panel and shot rules.
TEST_F(NamingRulesXml, VersionOneMapsTheFlatForm)
{
    auto metas = readRules(QStringLiteral("1.0"),
        QStringLiteral(
            "<namingRules overloadingPref=\"true\" automaticLeadingZeros=\"true\" numberOfZeros=\"4\""
            " allowCustomName=\"true\" autoIncrementRule=\"3\" autoShowTotal=\"true\""
            " enabledAct=\"true\" shotAutoIncrementRule=\"4\" sceneNameIncrementValue=\"25\""
            " shotConflictDelimiter=\"2\" shotConflictType=\"3\" smartShotNameOnDrop=\"true\"/>"));
    auto* read = first<KRC_NamingRules>(metas.get());
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(read->version(), QStringLiteral("1.0"));
    EXPECT_EQ(read->creator(), QStringLiteral("elsewhere"));
    ASSERT_TRUE(read->overloadingPref());
    EXPECT_TRUE(read->autoShowTotal());
    EXPECT_TRUE(read->enabledAct());

    const KRC_NamingRules::ObjRules& shot = read->shotRules();
    EXPECT_TRUE(shot.automaticLeadingZeros());
    EXPECT_EQ(shot.numberOfZeros(), 4);
    EXPECT_TRUE(shot.allowCustomName()); // constructed; the flat value went to the panels
    EXPECT_EQ(shot.autoIncrementRule(), KRC_NamingRules::Rule_ByN);
    EXPECT_EQ(shot.autoIncrementValue(), 25);
    EXPECT_EQ(shot.nameSuffixDelimiter(), KRC_NamingRules::Delimiter_Dot);
    EXPECT_EQ(shot.nameSuffixType(), KRC_NamingRules::Suffix_LowerLetter);
    EXPECT_TRUE(shot.smartNameOnDrop());

    const KRC_NamingRules::ObjRules& panel = read->panelRules();
    EXPECT_TRUE(panel.allowCustomName());
    EXPECT_EQ(panel.autoIncrementRule(), KRC_NamingRules::Rule_AlphaZRepeat);
    EXPECT_FALSE(panel.automaticLeadingZeros());
    EXPECT_EQ(panel.numberOfZeros(), 0);
    EXPECT_EQ(panel.autoIncrementValue(), 10);

    KRC_NamingRules constructed;
    EXPECT_TRUE(read->sequenceRules() == constructed.sequenceRules());
}

TEST_F(NamingRulesXml, VersionOneReadsMissingIntegersAsZero)
{
    auto metas = readRules(QStringLiteral("1.0"), QStringLiteral("<namingRules allowCustomName=\"no\"/>"));
    auto* read = first<KRC_NamingRules>(metas.get());
    ASSERT_NE(read, nullptr);
    read->setOverloadingPref(true);
    EXPECT_EQ(read->shotRules().numberOfZeros(), 0);
    EXPECT_EQ(read->shotRules().autoIncrementValue(), 0);
    EXPECT_EQ(read->shotRules().nameSuffixDelimiter(), KRC_NamingRules::Delimiter_None);
    EXPECT_EQ(read->panelRules().autoIncrementRule(), KRC_NamingRules::Rule_Numeric);
    EXPECT_FALSE(read->panelRules().allowCustomName());
    EXPECT_FALSE(read->shotRules().automaticLeadingZeros());
}

TEST_F(NamingRulesXml, UnknownVersionSkipsTheRecordElementButReadsRulesElements)
{
    auto metas = readRules(QStringLiteral("3.1"),
        QStringLiteral("<namingRules overloadingPref=\"true\" numberOfZeros=\"4\">"
                       "<shot_rules numberOfZeros=\"6\" allowCustomName=\"false\"/>"
                       "<Shot_rules numberOfZeros=\"9\"/></namingRules>"));
    auto* read = first<KRC_NamingRules>(metas.get());
    ASSERT_NE(read, nullptr);
    EXPECT_FALSE(read->overloadingPref());
    read->setOverloadingPref(true);
    EXPECT_EQ(read->shotRules().numberOfZeros(), 6);
    EXPECT_FALSE(read->shotRules().allowCustomName());
}

TEST_F(NamingRulesXml, FactoryKeepsTheStatedIdentity)
{
    KRC_MetadataFactory* factory = KRC_MetadataFactory::createInstance();
    std::unique_ptr<PIO_Metadata> meta(factory->createMeta(QStringLiteral("namingRules"), QStringLiteral("n"),
        QStringLiteral("other program"), QStringLiteral("1.0")));
    auto* rules = dynamic_cast<KRC_NamingRules*>(meta.get());
    ASSERT_NE(rules, nullptr);
    EXPECT_EQ(rules->version(), QStringLiteral("1.0"));
    EXPECT_EQ(rules->creator(), QStringLiteral("other program"));
    EXPECT_EQ(rules->metaName(), QStringLiteral("n"));
}

} // namespace
