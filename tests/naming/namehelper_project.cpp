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

using Names = QStringList;

template <class It> Names namesOf(It it, It end)
{
    Names names;
    for (; it != end; ++it)
        names << it->name();
    return names;
}

// A project view over a described timeline, with an empty preference store and
// helpers to name its objects.
class Board
{
public:
    explicit Board(const char* description)
        : board(QString::fromLatin1(description))
    {
    }

    KRC_KrolleProject& view() { return board.view(); }
    const KRC_NameHelper& helper() { return *board->nameHelper(); }
    KRC_NamingRules& rules() { return *board->namingRules(); }
    SC_Id shotId(size_t i) const { return board.shot(i); }
    SC_Id panelId(size_t shotIndex, size_t i) const { return board.panel(shotIndex, i); }
    Shot_t shot(size_t i) { return board->getShotByID(shotId(i)); }

    void nameShot(size_t i, const char* value) { setName(shot(i).sceneInfo()->name(), value); }
    void nameSequence(size_t i, const char* value) { setName(shot(i).sceneInfo()->sequenceName(), value); }
    void namePanel(size_t shotIndex, size_t i, const char* value)
    {
        setName(board->getPanelByID(panelId(shotIndex, i)).panelInfo()->name(), value);
    }
    // Shots start with a custom (empty) name; this makes them all auto-named.
    void makeShotsAuto()
    {
        for (auto it = view().beginShot(); it != view().endShot(); ++it)
            it->sceneInfo()->name().setFlag(0);
    }

    // The names of every shot, or of the panels of one shot (of every panel without one).
    Names shotNames() { return namesOf(view().beginShot(), view().endShot()); }
    Names panelNames(size_t shotIndex)
    {
        return namesOf(view().beginPanel(shot(shotIndex)), view().endPanel(shot(shotIndex)));
    }

    // Stored rules that answer instead of the preferences.
    KRC_NamingRules::ObjRules& overriding(KRC_NamingRules::ObjRules& rules, int rule)
    {
        board->namingRules()->setOverloadingPref(true);
        rules.setAutoIncrementRule(KRC_NamingRules::NameRule_t(rule));
        rules.setAutoIncrementValue(10);
        rules.setAutomaticLeadingZeros(false);
        return rules;
    }

    ScopedPreferences prefs;
    ProjectBoard board;

private:
    static void setName(KRC_ObjectName& name, const char* value)
    {
        name.setValue(QString::fromLatin1(value));
        name.setFlag(KRC_ObjectName::kCustom);
    }
};

TEST(ProjectNames, TheViewGivesItsHelperToEveryShotAndPanel)
{
    Board names("S[2,2,2] S[4] T2 S[2,2]");
    ASSERT_NE(names.board->nameHelper(), nullptr);
    EXPECT_EQ(names.panelNames(0), Names({ "1", "2", "3" }));
    EXPECT_EQ(names.panelNames(1), Names({ "1" }));
    EXPECT_EQ(names.panelNames(2), Names({ "1", "2" }));
    // Shots start custom-named; as auto names they count over the whole project.
    names.makeShotsAuto();
    EXPECT_EQ(names.shotNames(), Names({ "1", "2", "3" }));
    // An invalid panel has an empty name from the helper, a null one from its handle.
    EXPECT_FALSE(names.helper().getPanelName(Panel_t::invalid).isNull());
    EXPECT_TRUE(names.helper().getPanelName(Panel_t::invalid).isEmpty());
    EXPECT_TRUE(Panel_t::invalid.name().isNull());
    // Panels found by frame carry the same helper.
    EXPECT_EQ(names.view().getPanelAt(7, KRC_KrolleProject::PreferPrevious).name(), QStringLiteral("1"));
}

TEST(ProjectNames, CustomNamesUseUpPlacesAndNamesOfAutoPanels)
{
    // Per panel of one shot: "." auto-named, otherwise its custom name ("-" empty).
    const std::pair<Names, Names> rows[] = { { { ".", "3", ".", "." }, { "1", "3", "4", "5" } },
        { { "." }, { "1" } }, { { "1", "1", ".", "." }, { "1", "1", "3", "4" } },
        { { ".", "1", "1", "." }, { "2", "1", "1", "4" } },
        { { ".", ".", "2", "." }, { "1", "3", "2", "4" } }, { { "-", "." }, { "", "2" } },
        { { ".", "B", "." }, { "1", "B", "3" } } };
    for (const auto& [custom, expected] : rows) {
        Board board(
            qPrintable(QStringLiteral("S[%1]").arg(QStringLiteral(",1").repeated(custom.size()).mid(1))));
        for (int i = 0; i < custom.size(); ++i) {
            if (custom[i] != QLatin1String("."))
                board.namePanel(0, size_t(i), custom[i] == QLatin1String("-") ? "" : qPrintable(custom[i]));
        }
        EXPECT_EQ(board.panelNames(0), expected) << qPrintable(custom.join(QLatin1Char(' ')));
    }
}

// The names that the two passes around custom names give, counted the long way.
Names numberedTheLongWay(const KRC_NameHelper& helper, const Names& custom)
{
    std::set<QString> taken;
    for (const QString& name : custom) {
        if (name != QLatin1String("."))
            taken.insert(name);
    }
    Names names;
    for (int n = 0; n < custom.size(); ++n) {
        names << (custom[n] == QLatin1String(".") ? helper.getPanelName(n, taken) : custom[n]);
        taken.insert(names.back());
    }
    return names;
}

TEST(ProjectNames, CustomNamesAnywhereGiveTheNamesOfTheTwoPasses)
{
    const char* const choices[] = { ".", ".", ".", "1", "2", "3", "5", "B", "C" };
    unsigned seed = 7;
    for (int round = 0; round < 40; ++round) {
        Board board("S[1,1,1,1,1,1,1]");
        if (round % 2)
            board.prefs->setIntValue(QStringLiteral("ST_PANEL_NAME_AUTO_INCREMENT_RULE"), 1);
        Names custom;
        for (int i = 0; i < 7; ++i) {
            seed = seed * 1103515245u + 12345u;
            custom << QLatin1String(choices[(seed >> 16) % 9]);
            if (custom.back() != QLatin1String("."))
                board.namePanel(0, size_t(i), qPrintable(custom.back()));
        }
        EXPECT_EQ(board.panelNames(0), numberedTheLongWay(board.helper(), custom))
            << qPrintable(custom.join(' '));
    }
}

TEST(ProjectNames, TheProjectKeepsOneRulesRecord)
{
    Board names("S[1]");
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
    Board names("S[1,1,1] S[1,1]");
    names.makeShotsAuto();
    names.nameShot(1, "SH");
    names.namePanel(0, 1, "B");
    KRC_NamingRules::ObjRules& panels = names.overriding(names.rules().panelRules(), 1);
    panels.setAutomaticLeadingZeros(true);
    panels.setNumberOfZeros(2);
    const QStringList shots = names.shotNames();
    const QStringList firstPanels = names.panelNames(0);
    ASSERT_EQ(shots, Names({ "1", "SH" }));
    ASSERT_EQ(firstPanels, Names({ "0A", "B", "0C" }));

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
    EXPECT_EQ(namesOf(view.beginShot(), view.endShot()), shots);
    EXPECT_EQ(namesOf(view.beginPanel(), view.endPanel()), firstPanels + Names({ "0A", "0B" }));
}

TEST(ProjectNames, PanelNamesFollowThePreferencesThenTheOverridingRecord)
{
    Board names("S[1,1,1]");
    names.prefs->setIntValue(QStringLiteral("ST_PANEL_NAME_AUTO_INCREMENT_RULE"), 1);
    EXPECT_EQ(names.panelNames(0), Names({ "A", "B", "C" }));
    names.prefs->setBoolValue(QStringLiteral("ST_PANEL_NAME_AUTOMATIC_LEADING_ZEROS"), true);
    names.prefs->setIntValue(QStringLiteral("ST_PANEL_NAME_NUMBER_OF_ZEROS"), 2);
    EXPECT_EQ(names.panelNames(0), Names({ "0A", "0B", "0C" }));

    KRC_NamingRules::ObjRules& panels = names.overriding(names.rules().panelRules(), 0);
    panels.setAutomaticLeadingZeros(true);
    panels.setNumberOfZeros(3);
    EXPECT_EQ(names.panelNames(0), Names({ "001", "002", "003" }));
    // The by-N rule numbers by place too: multiples only arise in proposals.
    panels.setAutoIncrementRule(KRC_NamingRules::Rule_ByN);
    EXPECT_EQ(names.panelNames(0), Names({ "001", "002", "003" }));
}

TEST(ProjectNames, ShotNamesCountEveryShotAndTakeTheShotRules)
{
    Board names("S[1] S[1] S[1] S[1]");
    names.makeShotsAuto();
    names.nameShot(1, "X");
    EXPECT_EQ(names.shotNames(), Names({ "1", "X", "3", "4" }));
    names.prefs->setBoolValue(QStringLiteral("ST_SHOT_NAME_AUTOMATIC_LEADING_ZEROS"), true);
    EXPECT_EQ(names.shotNames(), Names({ "01", "X", "03", "04" }));
    EXPECT_EQ(names.helper().getSceneName(0), QStringLiteral("01"));
    EXPECT_EQ(names.helper().getActName(41), QStringLiteral("42"));
    EXPECT_EQ(names.helper().getSequenceName(1), QStringLiteral("2"));
    names.overriding(names.rules().sequenceRules(), 1);
    EXPECT_EQ(names.helper().getSequenceName(1), QStringLiteral("B"));
    // The override froze the snapshot taken when the record was made, before the
    // preference for zeros was set.
    EXPECT_EQ(names.shotNames(), Names({ "1", "X", "3", "4" }));
}

TEST(ProjectNames, PanelNameFromAPlaceSkipsTakenNames)
{
    Board names("S[1]");
    const std::set<QString> taken { QStringLiteral("2"), QStringLiteral("3"), QStringLiteral("5") };
    EXPECT_EQ(names.helper().getPanelName(0, taken), QStringLiteral("1"));
    EXPECT_EQ(names.helper().getPanelName(1, taken), QStringLiteral("4"));
    EXPECT_EQ(names.helper().getPanelName(4, {}), QStringLiteral("5"));
}

TEST(ProjectNames, AutoNamesRenumberAfterEdits)
{
    Board names("S[2,2,2] S[2,2]");
    names.makeShotsAuto();
    names.namePanel(0, 2, "last");
    SC_Project* project = names.board.project();

    ASSERT_NE(HostAuthoring::insertPanel(project, names.shotId(0), 0, 3), SC_Id());
    names.board.notify();
    EXPECT_EQ(names.panelNames(0), Names({ "1", "2", "3", "last" }));

    ASSERT_TRUE(HostAuthoring::removeShot(project, names.shotId(0)));
    ASSERT_NE(HostAuthoring::insertShot(project, 1, { 4 }), SC_Id());
    names.board.notify();
    names.makeShotsAuto();
    EXPECT_EQ(names.shotNames(), Names({ "1", "2" }));
    EXPECT_EQ(names.view().getShotByID(names.shotId(1)).name(), QStringLiteral("1"));
}

TEST(ProjectProposals, NewShotsAndShotsThatFollowTheRules)
{
    Board names("S[1] S[1] S[1]");
    names.nameShot(0, "10");
    names.nameShot(1, "20");
    names.nameShot(2, "30");
    KRC_NamingRules::ObjRules& shots = names.overriding(names.rules().shotRules(), 4);
    const KRC_NameHelper& helper = names.helper();
    EXPECT_EQ(helper.getPreferedNewSceneName(names.shotId(0), true), QStringLiteral("15"));
    EXPECT_EQ(helper.getPreferedNewSceneName(names.shotId(1), false), QStringLiteral("15"));
    EXPECT_EQ(helper.getPreferedNewSceneName(names.shotId(0), false), QStringLiteral("5"));
    EXPECT_EQ(helper.getPreferedNewSceneName(names.shotId(2), true), QStringLiteral("40"));
    EXPECT_EQ(helper.getPreferedNewSceneName(SC_Id(), true), QStringLiteral("10"));
    EXPECT_TRUE(helper.shotNameFollowsRules(names.shotId(1)));
    names.nameShot(1, "25");
    EXPECT_FALSE(helper.shotNameFollowsRules(names.shotId(1)));
    // The first shot: between nothing and "25" the next multiple, 10, lies below the middle.
    EXPECT_TRUE(helper.shotNameFollowsRules(names.shotId(0)));
    names.nameShot(0, "12");
    EXPECT_FALSE(helper.shotNameFollowsRules(names.shotId(0)));
    EXPECT_FALSE(helper.shotNameFollowsRules(SC_Id()));
    shots.setAutomaticLeadingZeros(true);
    shots.setNumberOfZeros(3);
    EXPECT_EQ(helper.getPreferedNewSceneName(SC_Id(), true), QStringLiteral("010"));

    // Other rules step a custom neighbour and give nothing for auto neighbours.
    shots.setAutoIncrementRule(KRC_NamingRules::Rule_Numeric);
    shots.setAutomaticLeadingZeros(false);
    EXPECT_EQ(helper.getPreferedNewSceneName(names.shotId(0), true), QStringLiteral("13"));
    EXPECT_TRUE(helper.getPreferedNewSceneName(SC_Id(), true).isNull());
    names.makeShotsAuto();
    // The stored value of an auto name counts, not the computed one: there is none.
    EXPECT_TRUE(helper.getPreferedNewSceneName(names.shotId(0), true).isNull());
    EXPECT_FALSE(helper.shotNameFollowsRules(names.shotId(1)));
    names.nameShot(1, "");
    EXPECT_TRUE(helper.shotNameFollowsRules(names.shotId(1)));
}

TEST(ProjectProposals, NewSequencesBetweenNeighbours)
{
    Board names("S[1] S[1] S[1]");
    names.nameSequence(0, "SQ_10");
    names.nameSequence(1, "SQ_20");
    KRC_NamingRules::ObjRules& sequences = names.overriding(names.rules().sequenceRules(), 4);
    const KRC_NameHelper& helper = names.helper();
    EXPECT_EQ(helper.getPreferedNewSequenceName(names.shotId(0), true), QStringLiteral("SQ_15"));
    // The third shot has no sequence name of its own: nothing to count from.
    EXPECT_EQ(helper.getPreferedNewSequenceName(names.shotId(2), false), QStringLiteral("SQ_30"));
    sequences.setAutoIncrementRule(KRC_NamingRules::Rule_Alpha);
    names.nameSequence(0, "A");
    names.nameSequence(1, "C");
    EXPECT_EQ(helper.getPreferedNewSequenceName(names.shotId(1), false), QStringLiteral("B"));
}

TEST(ProjectProposals, NewPanelsLookOnlyInsideTheirShot)
{
    Board names("S[1,1,1] S[1]");
    names.namePanel(0, 0, "10");
    names.namePanel(0, 1, "20");
    names.namePanel(0, 2, "40");
    names.namePanel(1, 0, "100");
    KRC_NamingRules::ObjRules& panels = names.overriding(names.rules().panelRules(), 4);
    const KRC_NameHelper& helper = names.helper();
    const Shot_t first = names.shot(0);
    const Shot_t second = names.shot(1);
    EXPECT_EQ(helper.getPreferedNewPanelName(first, names.panelId(0, 0), true), QStringLiteral("15"));
    EXPECT_EQ(helper.getPreferedNewPanelName(first, names.panelId(0, 2), false), QStringLiteral("30"));
    // The last panel's next neighbour is in the next shot and does not count.
    EXPECT_EQ(helper.getPreferedNewPanelName(first, names.panelId(0, 2), true), QStringLiteral("50"));
    EXPECT_EQ(helper.getPreferedNewPanelName(second, names.panelId(1, 0), false), QStringLiteral("10"));
    // A panel of another shot is ignored as a whole.
    EXPECT_EQ(helper.getPreferedNewPanelName(second, names.panelId(0, 1), true), QStringLiteral("10"));
    panels.setAutoIncrementRule(KRC_NamingRules::Rule_Numeric);
    EXPECT_TRUE(helper.getPreferedNewPanelName(second, names.panelId(0, 1), true).isNull());
    EXPECT_EQ(helper.getPreferedNewPanelName(first, names.panelId(0, 0), true), QStringLiteral("11"));
}

} // namespace
