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

TEST_F(NamingRulesXml, WritesTheStoredValuesInFormatOrderAndReadsThemBack)
{
    KRC_NamingRules rules;
    rules.setAutoShowTotal(true);
    fill(rules.sequenceRules(), 1);
    fill(rules.shotRules(), 2);
    fill(rules.panelRules(), 3);
    // The preference view differs from what is stored; the stored values are written.
    prefs->setIntValue(QStringLiteral("ST_SHOT_NAME_NUMBER_OF_ZEROS"), 8);

    QByteArray written;
    auto metas = roundTrip(rules, &written);
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

    auto* read = first<KRC_NamingRules>(metas.get());
    ASSERT_NE(read, nullptr);
    EXPECT_TRUE(*read == rules && read->version() == QStringLiteral("2.0"));
    rules.setOverloadingPref(true);
    EXPECT_TRUE(first<KRC_NamingRules>(roundTrip(rules).get())->overloadingPref());
}

// The read record equals one made here under the same preferences and given `expect`.
template <class Expect> void expectRead(PIO_Metadatas* metas, Expect expect)
{
    auto* read = first<KRC_NamingRules>(metas);
    ASSERT_NE(read, nullptr);
    KRC_NamingRules expected;
    expect(expected);
    EXPECT_TRUE(*read == expected && read->creator() == QStringLiteral("elsewhere"));
}

TEST_F(NamingRulesXml, RulesElementReadsIntegersAlwaysAndBooleansOnlyWhenTheyParse)
{
    prefs->setIntValue(QStringLiteral("ST_SHOT_NAME_NUMBER_OF_ZEROS"), 5);
    auto metas = readRules(QStringLiteral("2.0"),
        QStringLiteral(
            "<namingRules overloadingPref=\"true\" autoShowTotal=\"maybe\" enabledAct=\"true\""
            " numberOfZeros=\"6\"><unknown enabledAct=\"false\"/>"
            "<shot_rules allowCustomName=\"yes\" autoIncrementRule=\"x\" sceneNameIncrementValue=\"12\""
            " smartShotNameOnDrop=\"true\"/></namingRules>"));
    expectRead(metas.get(), [](KRC_NamingRules& r) {
        r.setOverloadingPref(true);
        r.setEnabledAct(true);
        KRC_NamingRules::ObjRules& shot = r.shotRules();
        shot.setNumberOfZeros(0); // missing int: 0, not the constructed 5
        shot.setAutoIncrementRule(KRC_NamingRules::Rule_Numeric);
        shot.setAutoIncrementValue(12);
        shot.setNameSuffixDelimiter(KRC_NamingRules::Delimiter_None);
        shot.setNameSuffixType(KRC_NamingRules::Suffix_None);
        shot.setSmartNameOnDrop(true); // missing and malformed booleans keep their construction
    });
    // The record's switch reached the three rules: the stored values answer.
    prefs->setIntValue(QStringLiteral("ST_PANEL_NAME_NUMBER_OF_ZEROS"), 7);
    EXPECT_EQ(first<KRC_NamingRules>(metas.get())->panelRules().numberOfZeros(), 0);
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
    EXPECT_EQ(first<KRC_NamingRules>(metas.get())->version(), QStringLiteral("1.0"));
    expectRead(metas.get(), [](KRC_NamingRules& r) {
        r.setOverloadingPref(true);
        r.setAutoShowTotal(true);
        r.setEnabledAct(true);
        KRC_NamingRules::ObjRules& shot = r.shotRules();
        shot.setAutomaticLeadingZeros(true);
        shot.setNumberOfZeros(4);
        shot.setAutoIncrementRule(KRC_NamingRules::Rule_ByN);
        shot.setAutoIncrementValue(25);
        shot.setNameSuffixDelimiter(KRC_NamingRules::Delimiter_Dot);
        shot.setNameSuffixType(KRC_NamingRules::Suffix_LowerLetter);
        shot.setSmartNameOnDrop(true);
        r.panelRules().setAllowCustomName(true);
        r.panelRules().setAutoIncrementRule(KRC_NamingRules::Rule_AlphaZRepeat);
    });
}

TEST_F(NamingRulesXml, UnknownVersionSkipsTheRecordElementButReadsRulesElements)
{
    auto metas = readRules(QStringLiteral("3.1"),
        QStringLiteral("<namingRules overloadingPref=\"true\" numberOfZeros=\"4\">"
                       "<shot_rules numberOfZeros=\"6\" allowCustomName=\"false\"/>"
                       "<Shot_rules numberOfZeros=\"9\"/></namingRules>"));
    expectRead(metas.get(), [](KRC_NamingRules& r) {
        KRC_NamingRules::ObjRules& shot = r.shotRules();
        shot.setNumberOfZeros(6);
        shot.setAllowCustomName(false);
        shot.setAutoIncrementValue(0);
        shot.setNameSuffixDelimiter(KRC_NamingRules::Delimiter_None);
    });
}

} // namespace
