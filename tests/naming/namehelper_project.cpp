// Names of the objects of a project: auto names of panels and shots through the view's
// name helper, around custom names, under the preferences or an overriding record,
// after edits of the timeline, and the proposals for new shots, sequences and panels.
#include "naming/KRC_NameHelper.h"

#include "host/engine/HostAuthoring.h"
#include "host/engine/HostProjectFile.h"
#include "metadata/KRC_MetadataFactory.h"
#include "support/ProjectBoard.h"
#include "support/ScopedPreferences.h"

#include <gtest/gtest.h>

using Krolle::Panel_t;
using Krolle::Shot_t;

namespace {

// A project view over a described timeline, with an empty preference store and
// helpers to name its objects.
class Names
{
public:
    explicit Names(const char* description)
        : board(QString::fromLatin1(description))
    {
    }

    KRC_KrolleProject& view() { return board.view(); }
    const KRC_NameHelper& helper() { return *board->nameHelper(); }
    KRC_NamingRules& rules() { return *board->namingRules(); }

    Shot_t shot(size_t i) { return board->getShotByID(board.shot(i)); }
    Panel_t panel(size_t shotIndex, size_t i) { return board->getPanelByID(board.panel(shotIndex, i)); }

    void nameShot(size_t i, const char* value, bool custom = true)
    {
        setName(shot(i).sceneInfo()->name(), value, custom);
    }
    // Shots start with a custom (empty) name; this makes one auto-named.
    void makeShotAuto(size_t i) { shot(i).sceneInfo()->name().setFlag(0); }
    void makeShotsAuto()
    {
        for (size_t i = 0; i < board.board.shots.size(); ++i)
            makeShotAuto(i);
    }
    void nameSequence(size_t i, const char* value)
    {
        setName(shot(i).sceneInfo()->sequenceName(), value, true);
    }
    void namePanel(size_t shotIndex, size_t i, const char* value, bool custom = true)
    {
        setName(panel(shotIndex, i).panelInfo()->name(), value, custom);
    }

    // The names of the panels of one shot, in order.
    QStringList panelNames(size_t shotIndex)
    {
        QStringList names;
        for (size_t i = 0; i < board.board.panels.at(shotIndex).size(); ++i)
            names << panel(shotIndex, i).name();
        return names;
    }
    QStringList shotNames()
    {
        QStringList names;
        for (size_t i = 0; i < board.board.shots.size(); ++i)
            names << shot(i).name();
        return names;
    }

    // Stored rules that answer instead of the preferences.
    KRC_NamingRules::ObjRules& overriding(KRC_NamingRules::ObjRules& rules, int rule, int step = 10)
    {
        board->namingRules()->setOverloadingPref(true);
        rules.setAutoIncrementRule(KRC_NamingRules::NameRule_t(rule));
        rules.setAutoIncrementValue(step);
        rules.setAutomaticLeadingZeros(false);
        return rules;
    }

    ScopedPreferences prefs;
    ProjectBoard board;

private:
    static void setName(KRC_ObjectName& name, const char* value, bool custom)
    {
        name.setValue(QString::fromLatin1(value));
        name.setFlag(custom ? KRC_ObjectName::kCustom : 0);
    }
};

QStringList list(std::initializer_list<const char*> names)
{
    QStringList result;
    for (const char* n : names)
        result << QString::fromLatin1(n);
    return result;
}

TEST(ProjectNames, TheViewGivesItsHelperToEveryShotAndPanel)
{
    Names names("S[2,2,2] S[4] T2 S[2,2]");
    ASSERT_NE(names.board->nameHelper(), nullptr);
    EXPECT_EQ(names.panelNames(0), list({ "1", "2", "3" }));
    EXPECT_EQ(names.panelNames(1), list({ "1" }));
    EXPECT_EQ(names.panelNames(2), list({ "1", "2" }));
    // Shots start custom-named; as auto names they count over the whole project.
    names.makeShotsAuto();
    EXPECT_EQ(names.shotNames(), list({ "1", "2", "3" }));
    // Panels found by frame carry the same helper.
    EXPECT_EQ(names.view().getPanelAt(7, KRC_KrolleProject::PreferPrevious).name(), QStringLiteral("1"));
}

struct AroundCustomRow
{
    std::vector<const char*> custom; // null: auto-named
    std::vector<const char*> expected;
};

void PrintTo(const AroundCustomRow& row, std::ostream* os)
{
    for (const char* custom : row.custom)
        *os << (custom ? custom : "auto") << ' ';
}

class PanelNamesAroundCustomNames : public ::testing::TestWithParam<AroundCustomRow>
{
};

TEST_P(PanelNamesAroundCustomNames, CustomNamesUseUpPlacesAndNames)
{
    const AroundCustomRow& row = GetParam();
    QString description = QStringLiteral("S[");
    for (size_t i = 0; i < row.custom.size(); ++i)
        description += i ? QStringLiteral(",2") : QStringLiteral("2");
    Names names(qPrintable(description + QLatin1Char(']')));
    for (size_t i = 0; i < row.custom.size(); ++i) {
        if (row.custom[i])
            names.namePanel(0, i, row.custom[i]);
    }
    QStringList expected;
    for (const char* e : row.expected)
        expected << QString::fromLatin1(e);
    EXPECT_EQ(names.panelNames(0), expected);
}

INSTANTIATE_TEST_SUITE_P(Rows, PanelNamesAroundCustomNames,
    ::testing::Values(AroundCustomRow { { nullptr, "3", nullptr, nullptr }, { "1", "3", "4", "5" } },
        AroundCustomRow { { nullptr }, { "1" } },
        AroundCustomRow { { "1", "1", nullptr, nullptr }, { "1", "1", "3", "4" } },
        AroundCustomRow { { nullptr, "1", "1", nullptr }, { "2", "1", "1", "4" } },
        AroundCustomRow { { nullptr, nullptr, "2", nullptr }, { "1", "3", "2", "4" } },
        AroundCustomRow { { "", nullptr }, { "", "2" } },
        AroundCustomRow { { nullptr, "B", nullptr }, { "1", "B", "3" } }));

TEST(ProjectNames, TheProjectKeepsOneRulesRecord)
{
    Names names("S[1]");
    KRC_NamingRules* rules = names.view().namingRules();
    ASSERT_NE(rules, nullptr);
    EXPECT_EQ(names.view().namingRules(), rules);
    EXPECT_TRUE(names.board.project()->metadatas()->contains(rules));
    EXPECT_FALSE(rules->overloadingPref());

    KRC_KrolleProject without(nullptr);
    EXPECT_EQ(without.namingRules(), nullptr);
    ASSERT_NE(without.nameHelper(), nullptr);
    // Without a project's record the helper names by the preferences.
    names.prefs->setIntValue(QStringLiteral("ST_SHOT_NAME_AUTO_INCREMENT_RULE"), 1);
    EXPECT_EQ(without.nameHelper()->getSceneName(2), QStringLiteral("C"));
}

TEST(ProjectNames, NamesAndRulesSurviveASaveAndReload)
{
    Names names("S[1,1,1] S[1,1]");
    names.makeShotsAuto();
    names.nameShot(1, "SH");
    names.namePanel(0, 1, "B");
    KRC_NamingRules::ObjRules& panels = names.overriding(names.rules().panelRules(), 1);
    panels.setAutomaticLeadingZeros(true);
    panels.setNumberOfZeros(2);
    const QStringList shots = names.shotNames();
    const QStringList firstPanels = names.panelNames(0);
    ASSERT_EQ(shots, list({ "1", "SH" }));
    ASSERT_EQ(firstPanels, list({ "0A", "B", "0C" }));

    KRC_MetadataFactory::createInstance();
    QString error;
    UT_SharedPtr<SC_Project> loaded
        = HostProjectFile::fromXml(HostProjectFile::toXml(names.board.project()), &error);
    ASSERT_TRUE(loaded) << error.toStdString();
    // The preferences say otherwise now; the reloaded record still overrides them.
    names.prefs->setIntValue(QStringLiteral("ST_PANEL_NAME_AUTO_INCREMENT_RULE"), 0);
    KRC_KrolleProject view(loaded.get());
    ASSERT_NE(view.namingRules(), nullptr);
    EXPECT_TRUE(*view.namingRules() == names.rules());
    QStringList reloadedShots;
    for (auto it = view.beginShot(), end = view.endShot(); it != end; ++it)
        reloadedShots << it->name();
    EXPECT_EQ(reloadedShots, shots);
    QStringList reloadedPanels;
    for (auto it = view.beginPanel(), end = view.endPanel(); it != end; ++it)
        reloadedPanels << it->name();
    EXPECT_EQ(reloadedPanels, firstPanels + list({ "0A", "0B" }));
}

TEST(ProjectNames, PanelNamesFollowThePreferencesThenTheOverridingRecord)
{
    Names names("S[1,1,1]");
    names.prefs->setIntValue(QStringLiteral("ST_PANEL_NAME_AUTO_INCREMENT_RULE"), 1);
    EXPECT_EQ(names.panelNames(0), list({ "A", "B", "C" }));
    names.prefs->setBoolValue(QStringLiteral("ST_PANEL_NAME_AUTOMATIC_LEADING_ZEROS"), true);
    names.prefs->setIntValue(QStringLiteral("ST_PANEL_NAME_NUMBER_OF_ZEROS"), 2);
    EXPECT_EQ(names.panelNames(0), list({ "0A", "0B", "0C" }));

    KRC_NamingRules::ObjRules& panels = names.overriding(names.rules().panelRules(), 0);
    panels.setAutomaticLeadingZeros(true);
    panels.setNumberOfZeros(3);
    EXPECT_EQ(names.panelNames(0), list({ "001", "002", "003" }));
    // The by-N rule numbers by place too: multiples only arise in proposals.
    panels.setAutoIncrementRule(KRC_NamingRules::Rule_ByN);
    EXPECT_EQ(names.panelNames(0), list({ "001", "002", "003" }));
}

TEST(ProjectNames, ShotNamesCountEveryShotAndTakeTheShotRules)
{
    Names names("S[1] S[1] S[1] S[1]");
    names.makeShotsAuto();
    names.nameShot(1, "X");
    EXPECT_EQ(names.shotNames(), list({ "1", "X", "3", "4" }));
    names.prefs->setBoolValue(QStringLiteral("ST_SHOT_NAME_AUTOMATIC_LEADING_ZEROS"), true);
    EXPECT_EQ(names.shotNames(), list({ "01", "X", "03", "04" }));
    EXPECT_EQ(names.helper().getSceneName(0), QStringLiteral("01"));
    EXPECT_EQ(names.helper().getActName(0), QStringLiteral("1"));
    EXPECT_EQ(names.helper().getActName(41), QStringLiteral("42"));
    EXPECT_EQ(names.helper().getSequenceName(1), QStringLiteral("2"));
    names.overriding(names.rules().sequenceRules(), 1);
    EXPECT_EQ(names.helper().getSequenceName(1), QStringLiteral("B"));
    // The override froze the snapshot taken when the record was made, before the
    // preference for zeros was set.
    EXPECT_EQ(names.shotNames(), list({ "1", "X", "3", "4" }));
}

TEST(ProjectNames, PanelNameFromAPlaceSkipsTakenNames)
{
    Names names("S[1]");
    const std::set<QString> taken { QStringLiteral("2"), QStringLiteral("3"), QStringLiteral("5") };
    EXPECT_EQ(names.helper().getPanelName(0, taken), QStringLiteral("1"));
    EXPECT_EQ(names.helper().getPanelName(1, taken), QStringLiteral("4"));
    EXPECT_EQ(names.helper().getPanelName(4, {}), QStringLiteral("5"));
}

TEST(ProjectNames, AutoNamesRenumberAfterEdits)
{
    Names names("S[2,2,2] S[2,2]");
    names.makeShotsAuto();
    names.namePanel(0, 2, "last");
    SC_Project* project = names.board.project();

    const SC_Id added = HostAuthoring::insertPanel(project, names.board.shot(0), 0, 3);
    ASSERT_NE(added, SC_Id());
    names.board.notify();
    const Shot_t first = names.view().getShotByID(names.board.shot(0));
    QStringList panels;
    for (auto it = names.view().beginPanel(first), end = names.view().endPanel(first); it != end; ++it)
        panels << (*it).name();
    EXPECT_EQ(panels, list({ "1", "2", "3", "last" }));

    ASSERT_TRUE(HostAuthoring::removeShot(project, names.board.shot(0)));
    ASSERT_NE(HostAuthoring::insertShot(project, 1, { 4 }), SC_Id());
    names.board.notify();
    QStringList shots;
    for (auto it = names.view().beginShot(), end = names.view().endShot(); it != end; ++it) {
        (*it).sceneInfo()->name().setFlag(0);
        shots << (*it).name();
    }
    EXPECT_EQ(shots, list({ "1", "2" }));
    EXPECT_EQ(names.view().getShotByID(names.board.shot(1)).name(), QStringLiteral("1"));
}

TEST(ProjectProposals, NewShotsBetweenNeighbours)
{
    Names names("S[1] S[1] S[1]");
    names.nameShot(0, "10");
    names.nameShot(1, "20");
    names.nameShot(2, "SC_7");
    KRC_NamingRules::ObjRules& shots = names.overriding(names.rules().shotRules(), 4);
    const KRC_NameHelper& helper = names.helper();
    EXPECT_EQ(helper.getPreferedNewSceneName(names.board.shot(0), true), QStringLiteral("15"));
    EXPECT_EQ(helper.getPreferedNewSceneName(names.board.shot(1), false), QStringLiteral("15"));
    EXPECT_EQ(helper.getPreferedNewSceneName(names.board.shot(0), false), QStringLiteral("5"));
    // "20" and "SC_7" do not line up: the next multiple after 20.
    EXPECT_EQ(helper.getPreferedNewSceneName(names.board.shot(1), true), QStringLiteral("30"));
    EXPECT_EQ(helper.getPreferedNewSceneName(names.board.shot(2), true), QStringLiteral("SC_10"));
    EXPECT_EQ(helper.getPreferedNewSceneName(SC_Id(), true), QStringLiteral("10"));
    shots.setAutomaticLeadingZeros(true);
    shots.setNumberOfZeros(3);
    EXPECT_EQ(helper.getPreferedNewSceneName(SC_Id(), true), QStringLiteral("010"));

    // Other rules step a custom neighbour and give nothing for auto neighbours.
    shots.setAutoIncrementRule(KRC_NamingRules::Rule_Numeric);
    shots.setAutomaticLeadingZeros(false);
    EXPECT_EQ(helper.getPreferedNewSceneName(names.board.shot(0), true), QStringLiteral("11"));
    EXPECT_TRUE(helper.getPreferedNewSceneName(SC_Id(), true).isNull());
    names.makeShotsAuto();
    // The stored value of an auto name counts, not the computed one: there is none.
    EXPECT_TRUE(helper.getPreferedNewSceneName(names.board.shot(0), true).isNull());
}

TEST(ProjectProposals, NewSequencesBetweenNeighbours)
{
    Names names("S[1] S[1] S[1]");
    names.nameSequence(0, "SQ_10");
    names.nameSequence(1, "SQ_20");
    KRC_NamingRules::ObjRules& sequences = names.overriding(names.rules().sequenceRules(), 4);
    const KRC_NameHelper& helper = names.helper();
    EXPECT_EQ(helper.getPreferedNewSequenceName(names.board.shot(0), true), QStringLiteral("SQ_15"));
    // The third shot has no sequence name of its own: nothing to count from.
    EXPECT_EQ(helper.getPreferedNewSequenceName(names.board.shot(2), false), QStringLiteral("SQ_30"));
    sequences.setAutoIncrementRule(KRC_NamingRules::Rule_Alpha);
    names.nameSequence(0, "A");
    names.nameSequence(1, "C");
    EXPECT_EQ(helper.getPreferedNewSequenceName(names.board.shot(1), false), QStringLiteral("B"));
}

TEST(ProjectProposals, NewPanelsLookOnlyInsideTheirShot)
{
    Names names("S[1,1,1] S[1]");
    names.namePanel(0, 0, "10");
    names.namePanel(0, 1, "20");
    names.namePanel(0, 2, "40");
    names.namePanel(1, 0, "100");
    KRC_NamingRules::ObjRules& panels = names.overriding(names.rules().panelRules(), 4);
    const KRC_NameHelper& helper = names.helper();
    const Shot_t first = names.shot(0);
    const Shot_t second = names.shot(1);
    EXPECT_EQ(helper.getPreferedNewPanelName(first, names.board.panel(0, 0), true), QStringLiteral("15"));
    EXPECT_EQ(helper.getPreferedNewPanelName(first, names.board.panel(0, 2), false), QStringLiteral("30"));
    // The last panel's next neighbour is in the next shot and does not count.
    EXPECT_EQ(helper.getPreferedNewPanelName(first, names.board.panel(0, 2), true), QStringLiteral("50"));
    EXPECT_EQ(helper.getPreferedNewPanelName(second, names.board.panel(1, 0), false), QStringLiteral("10"));
    // A panel of another shot is ignored as a whole.
    EXPECT_EQ(helper.getPreferedNewPanelName(second, names.board.panel(0, 1), true), QStringLiteral("10"));
    panels.setAutoIncrementRule(KRC_NamingRules::Rule_Numeric);
    EXPECT_TRUE(helper.getPreferedNewPanelName(second, names.board.panel(0, 1), true).isNull());
    EXPECT_EQ(helper.getPreferedNewPanelName(first, names.board.panel(0, 0), true), QStringLiteral("11"));
}

TEST(ProjectProposals, ShotNameFollowsRules)
{
    Names names("S[1] S[1] S[1]");
    names.nameShot(0, "10");
    names.nameShot(1, "20");
    names.nameShot(2, "30");
    KRC_NamingRules::ObjRules& shots = names.overriding(names.rules().shotRules(), 4);
    const KRC_NameHelper& helper = names.helper();
    EXPECT_TRUE(helper.shotNameFollowsRules(names.board.shot(1)));
    names.nameShot(1, "25");
    EXPECT_FALSE(helper.shotNameFollowsRules(names.board.shot(1)));
    // The first shot: between nothing and "25" the next multiple, 10, lies below the middle.
    EXPECT_TRUE(helper.shotNameFollowsRules(names.board.shot(0)));
    names.nameShot(0, "12");
    EXPECT_FALSE(helper.shotNameFollowsRules(names.board.shot(0)));
    EXPECT_FALSE(helper.shotNameFollowsRules(SC_Id()));

    // Auto neighbours under another rule propose nothing: only an empty name follows.
    shots.setAutoIncrementRule(KRC_NamingRules::Rule_Numeric);
    names.makeShotsAuto();
    EXPECT_FALSE(helper.shotNameFollowsRules(names.board.shot(1)));
    names.nameShot(1, "");
    EXPECT_TRUE(helper.shotNameFollowsRules(names.board.shot(1)));
}

} // namespace
