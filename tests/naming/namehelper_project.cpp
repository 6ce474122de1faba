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

#include <functional>

namespace {

using Names = QStringList;
using Rules = KRC_NamingRules::ObjRules;

template <class It> Names namesOf(It it, It end)
{
    Names names;
    for (; it != end; ++it)
        names << it->name();
    return names;
}

// A project view over a described timeline, with an empty preference store.
struct Board
{
    explicit Board(const char* description)
        : board(QString::fromLatin1(description))
    {
    }

    const KRC_NameHelper& helper() { return *board->nameHelper(); }
    KRC_NamingRules& rules() { return *board->namingRules(); }
    SC_Id shot(size_t i) const { return board.shot(i); }
    SC_Id panel(size_t shotIndex, size_t i) const { return board.panel(shotIndex, i); }
    void nameShot(size_t i, const char* value) { board.nameShot(i, QString::fromLatin1(value)); }
    void nameSequence(size_t i, const char* value) { board.nameShot(i, {}, QString::fromLatin1(value)); }
    void namePanel(size_t shotIndex, size_t i, const QString& value)
    {
        KRC_ObjectName& name = board.panelAt(shotIndex, i).panelInfo()->name();
        name.setValue(value);
        name.setFlag(KRC_ObjectName::kCustom);
    }
    // Shots start with a custom (empty) name; this makes them all auto-named.
    void makeShotsAuto()
    {
        for (auto it = board->beginShot(); it != board->endShot(); ++it)
            it->sceneInfo()->name().setFlag(0);
    }
    Names shotNames() { return namesOf(board->beginShot(), board->endShot()); }
    // The names of the panels of the shot at `i` in the timeline.
    Names panelNames(unsigned i)
    {
        return namesOf(board->beginPanel(board->getShotByNdx(i)), board->endPanel(board->getShotByNdx(i)));
    }

    // Stored rules by `rule`, in steps of 10, with `zeros` leading zeros (-1: none), that
    // answer instead of the preferences.
    Rules& overriding(Rules& rules, int rule, int zeros = -1)
    {
        board->namingRules()->setOverloadingPref(true);
        rules.setAutoIncrementRule(KRC_NamingRules::NameRule_t(rule));
        rules.setAutoIncrementValue(10);
        rules.setAutomaticLeadingZeros(zeros >= 0);
        if (zeros >= 0)
            rules.setNumberOfZeros(zeros);
        return rules;
    }
    void prefer(const char* key, int value) { prefs->setIntValue(QString::fromLatin1(key), value); }
    void preferZeros(const char* word)
    {
        prefs->setBoolValue(QStringLiteral("ST_%1_NAME_AUTOMATIC_LEADING_ZEROS").arg(word), true);
    }
    // Gives the panels of shot 0 the custom names in `custom`, "." for an auto name.
    void namePanels(const Names& custom)
    {
        for (int i = 0; i < custom.size(); ++i) {
            if (custom[i] != QLatin1String("."))
                namePanel(0, size_t(i), custom[i]);
        }
    }

    // Panels by letter from the preferences, with `zeros` leading zeros (-1: none); then
    // an overriding record by `rule` with 3 zeros (-1: none).
    void panelLetters(int zeros, int rule = -1)
    {
        prefer("ST_PANEL_NAME_AUTO_INCREMENT_RULE", 1);
        if (zeros >= 0) {
            preferZeros("PANEL");
            prefer("ST_PANEL_NAME_NUMBER_OF_ZEROS", zeros);
        }
        if (rule >= 0)
            overriding(rules().panelRules(), rule, 3);
    }
    // Auto-named shots but the second, "X"; the record is made before the shot zeros.
    KRC_NamingRules& shotXAmongAuto(bool zeros = false)
    {
        makeShotsAuto();
        nameShot(1, "X");
        KRC_NamingRules& record = rules();
        if (zeros)
            preferZeros("SHOT");
        return record;
    }
    // An engine edit, delivered as a host command does.
    void edit(bool done)
    {
        ASSERT_TRUE(done);
        board.notify();
    }

    ScopedPreferences prefs;
    ProjectBoard board;
};

// Names as written in the scenarios: space-separated, "-" for an empty name.
Names parseNames(const char* text)
{
    Names names = QString::fromLatin1(text).split(QLatin1Char(' '), QString::SkipEmptyParts);
    for (QString& name : names) {
        if (name == QLatin1String("-"))
            name = QString("");
    }
    return names;
}

// A board, its shot 0's panels custom-named ("." auto, "-" empty), what is then done to
// it, and the names shown: of all shots if given ("shots /"), then of the panels shot by
// shot ("|" between).
struct Scenario
{
    const char *board, *custom;
    std::function<void(Board&)> edit;
    const char* names;
};

const Scenario kScenarios[] = {
    // Shots start custom-named; as auto names they count over the whole project.
    { "S[2,2,2] S[4] T2 S[2,2]", "", &Board::makeShotsAuto, "1 2 3 / 1 2 3|1|1 2" },
    { "S[1,1,1,1]", ". 3 . .", nullptr, "1 3 4 5" }, { "S[1]", ".", nullptr, "1" },
    { "S[1,1,1,1]", "1 1 . .", nullptr, "1 1 3 4" }, { "S[1,1,1,1]", ". 1 1 .", nullptr, "2 1 1 4" },
    { "S[1,1,1,1]", ". . 2 .", nullptr, "1 3 2 4" }, { "S[1,1]", "- .", nullptr, "- 2" },
    { "S[1,1,1]", ". B .", nullptr, "1 B 3" },
    { "S[1,1,1]", "", [](Board& b) { b.panelLetters(-1); }, "A B C" },
    { "S[1,1,1]", "", [](Board& b) { b.panelLetters(2); }, "0A 0B 0C" },
    { "S[1,1,1]", "", [](Board& b) { b.panelLetters(2, 0); }, "001 002 003" },
    // The by-N rule numbers by place too: multiples only arise in proposals.
    { "S[1,1,1]", "", [](Board& b) { b.panelLetters(-1, 4); }, "001 002 003" },
    { "S[1] S[1] S[1] S[1]", "", [](Board& b) { b.shotXAmongAuto(); }, "1 X 3 4 /" },
    { "S[1] S[1] S[1] S[1]", "", [](Board& b) { b.shotXAmongAuto(true); }, "01 X 03 04 /" },
    // An override freezes the snapshot taken when the record was made, before the zeros.
    { "S[1] S[1] S[1] S[1]", "", [](Board& b) { b.overriding(b.shotXAmongAuto(true).sequenceRules(), 1); },
        "1 X 3 4 /" },
    { "S[2,2,2] S[2,2]", ". . last",
        [](Board& b) { b.edit(HostAuthoring::insertPanel(b.board.project(), b.shot(0), 0, 3).value()); },
        "1 2 3 last|1 2" },
    { "S[2,2,2] S[2,2]", "",
        [](Board& b) {
            b.edit(HostAuthoring::removeShot(b.board.project(), b.shot(0))
                && HostAuthoring::insertShot(b.board.project(), 1, { 4 }).value());
            b.makeShotsAuto();
        },
        "1 2 / 1 2|1" }
};

TEST(ProjectNames, AutoNamesAroundCustomNamesUnderPreferencesRecordsAndEdits)
{
    for (const Scenario& s : kScenarios) {
        SCOPED_TRACE(testing::Message() << s.board << " named " << s.custom << ": " << s.names);
        Board names(s.board);
        names.namePanels(parseNames(s.custom));
        if (s.edit)
            s.edit(names);
        QStringList panels = QString::fromLatin1(s.names).split(QLatin1Char('/'));
        if (panels.size() > 1) {
            EXPECT_EQ(names.shotNames(), parseNames(qPrintable(panels.takeFirst())));
        }
        panels = panels[0].split(QLatin1Char('|'), QString::SkipEmptyParts);
        for (int i = 0; i < panels.size(); ++i)
            EXPECT_EQ(names.panelNames(unsigned(i)), parseNames(qPrintable(panels[i]))) << "shot " << i;
    }
}

TEST(ProjectNames, TheProjectKeepsOneRulesRecordAndTheHelperNamesByPlace)
{
    Board names("S[2,2,2] S[4]");
    KRC_NamingRules* rules = names.board->namingRules();
    ASSERT_NE(rules, nullptr);
    EXPECT_TRUE(names.board->namingRules() == rules && names.board.project()->metadatas()->contains(rules)
        && !rules->overloadingPref());
    // Without a project's record the helper names by the preferences.
    KRC_KrolleProject without(nullptr);
    EXPECT_EQ(without.namingRules(), nullptr);
    names.prefer("ST_SHOT_NAME_AUTO_INCREMENT_RULE", 1);
    EXPECT_EQ(without.nameHelper()->getSceneName(2), QStringLiteral("C"));
    names.prefer("ST_SHOT_NAME_AUTO_INCREMENT_RULE", 0);

    // An invalid panel has an empty name from the helper, a null one from its handle.
    const QString invalid = names.helper().getPanelName(Krolle::Panel_t::invalid);
    EXPECT_TRUE(!invalid.isNull() && invalid.isEmpty());
    EXPECT_TRUE(Krolle::Panel_t::invalid.name().isNull());
    // Panels found by frame carry the same helper.
    EXPECT_EQ(names.board->getPanelAt(7, KRC_KrolleProject::PreferPrevious).name(), QStringLiteral("1"));
    // A name from a place skips the taken names.
    const std::set<QString> taken { QStringLiteral("2"), QStringLiteral("3"), QStringLiteral("5") };
    EXPECT_EQ(Names({ names.helper().getPanelName(0, taken), names.helper().getPanelName(1, taken),
                  names.helper().getPanelName(4, {}) }),
        Names({ "1", "4", "5" }));
    // Shot, act and sequence names by place take their own rules.
    names.preferZeros("SHOT");
    const KRC_NameHelper& helper = names.helper();
    EXPECT_EQ(Names({ helper.getSceneName(0), helper.getActName(41), helper.getSequenceName(1) }),
        Names({ "01", "42", "2" }));
    names.overriding(names.rules().sequenceRules(), 1);
    EXPECT_EQ(helper.getSequenceName(1), QStringLiteral("B"));
}

TEST(ProjectNames, CustomNamesAnywhereGiveTheNamesOfTheTwoPasses)
{
    const char* const choices[] = { ".", ".", ".", "1", "2", "3", "5", "B", "C" };
    unsigned seed = 7;
    for (int round = 0; round < 40; ++round) {
        Names custom;
        for (int i = 0; i < 7; ++i, seed = seed * 1103515245u + 12345u)
            custom << QLatin1String(choices[(seed >> 16) % 9]);
        auto board = std::make_unique<Board>("S[1,1,1,1,1,1,1]");
        board->namePanels(custom);
        if (round % 2)
            board->prefer("ST_PANEL_NAME_AUTO_INCREMENT_RULE", 1);
        // The long way: every auto panel takes the name of its place that no other panel has.
        std::set<QString> taken(custom.begin(), custom.end());
        Names expected;
        for (int n = 0; n < custom.size(); ++n) {
            const bool isAuto = custom[n] == QLatin1String(".");
            expected << (isAuto ? board->helper().getPanelName(n, taken) : custom[n]);
            taken.insert(expected.back());
        }
        EXPECT_EQ(board->panelNames(0), expected) << qPrintable(custom.join(' '));
    }
}

TEST(ProjectNames, NamesAndRulesSurviveASaveAndReload)
{
    Board names("S[1,1,1] S[1,1]");
    names.makeShotsAuto();
    names.nameShot(1, "SH");
    names.namePanel(0, 1, QStringLiteral("B"));
    Rules& panels = names.overriding(names.rules().panelRules(), 1);
    panels.setAutomaticLeadingZeros(true);
    panels.setNumberOfZeros(2);
    ASSERT_EQ(names.shotNames(), Names({ "1", "SH" }));
    ASSERT_EQ(names.panelNames(0), Names({ "0A", "B", "0C" }));

    KRC_MetadataFactory::createInstance();
    QString error;
    UT_SharedPtr<SC_Project> loaded
        = HostProjectFile::fromXml(HostProjectFile::toXml(names.board.project()), &error);
    ASSERT_TRUE(loaded) << error.toStdString();
    // The preferences say otherwise now; the reloaded record still overrides them.
    names.prefer("ST_PANEL_NAME_AUTO_INCREMENT_RULE", 0);
    KRC_KrolleProject view(loaded.get());
    ASSERT_NE(view.namingRules(), nullptr);
    EXPECT_TRUE(*view.namingRules() == names.rules());
    EXPECT_EQ(namesOf(view.beginShot(), view.endShot()), Names({ "1", "SH" }));
    EXPECT_EQ(namesOf(view.beginPanel(), view.endPanel()), Names({ "0A", "B", "0C", "0A", "0B" }));
}

TEST(ProjectProposals, NewShotsAndShotsThatFollowTheRules)
{
    Board names("S[1] S[1] S[1]");
    for (size_t i = 0; i < 3; ++i)
        names.nameShot(i, qPrintable(QString::number(10 * (i + 1))));
    Rules& shots = names.overriding(names.rules().shotRules(), 4);
    const KRC_NameHelper& helper = names.helper();
    const SC_Id first = names.shot(0), second = names.shot(1);
    EXPECT_EQ(
        Names({ helper.getPreferedNewSceneName(first, true), helper.getPreferedNewSceneName(second, false),
            helper.getPreferedNewSceneName(first, false), helper.getPreferedNewSceneName(names.shot(2), true),
            helper.getPreferedNewSceneName(SC_Id(), true) }),
        Names({ "15", "15", "5", "40", "10" }));
    EXPECT_TRUE(helper.shotNameFollowsRules(second));
    names.nameShot(1, "25");
    EXPECT_FALSE(helper.shotNameFollowsRules(second));
    // The first shot: between nothing and "25" the next multiple, 10, lies below the middle.
    EXPECT_TRUE(helper.shotNameFollowsRules(first));
    names.nameShot(0, "12");
    EXPECT_FALSE(helper.shotNameFollowsRules(first) || helper.shotNameFollowsRules(SC_Id()));
    shots.setAutomaticLeadingZeros(true);
    shots.setNumberOfZeros(3);
    EXPECT_EQ(helper.getPreferedNewSceneName(SC_Id(), true), QStringLiteral("010"));

    // Other rules step a custom neighbour and give nothing for auto neighbours.
    shots.setAutoIncrementRule(KRC_NamingRules::Rule_Numeric);
    shots.setAutomaticLeadingZeros(false);
    EXPECT_EQ(helper.getPreferedNewSceneName(first, true), QStringLiteral("13"));
    EXPECT_TRUE(helper.getPreferedNewSceneName(SC_Id(), true).isNull());
    names.makeShotsAuto();
    // The stored value of an auto name counts, not the computed one: there is none.
    EXPECT_TRUE(helper.getPreferedNewSceneName(first, true).isNull() && !helper.shotNameFollowsRules(second));
    names.nameShot(1, "");
    EXPECT_TRUE(helper.shotNameFollowsRules(second));
}

TEST(ProjectProposals, NewSequencesBetweenNeighbours)
{
    Board names("S[1] S[1] S[1]");
    names.nameSequence(0, "SQ_10");
    names.nameSequence(1, "SQ_20");
    Rules& sequences = names.overriding(names.rules().sequenceRules(), 4);
    const KRC_NameHelper& helper = names.helper();
    EXPECT_EQ(helper.getPreferedNewSequenceName(names.shot(0), true), QStringLiteral("SQ_15"));
    // The third shot has no sequence name of its own: nothing to count from.
    EXPECT_EQ(helper.getPreferedNewSequenceName(names.shot(2), false), QStringLiteral("SQ_30"));
    sequences.setAutoIncrementRule(KRC_NamingRules::Rule_Alpha);
    names.nameSequence(0, "A");
    names.nameSequence(1, "C");
    EXPECT_EQ(helper.getPreferedNewSequenceName(names.shot(1), false), QStringLiteral("B"));
}

TEST(ProjectProposals, NewPanelsLookOnlyInsideTheirShot)
{
    Board names("S[1,1,1] S[1]");
    const char* const custom[] = { "10", "20", "40", "100" }; // three in the first shot, one in the second
    for (size_t i = 0; i < 4; ++i)
        names.namePanel(i / 3, i % 3, QLatin1String(custom[i]));
    Rules& panels = names.overriding(names.rules().panelRules(), 4);
    const KRC_NameHelper& helper = names.helper();
    const auto propose = [&](size_t shot, size_t panelShot, size_t panel, bool after) {
        return helper.getPreferedNewPanelName(names.board.shotAt(shot), names.panel(panelShot, panel), after);
    };
    // The last panel's next neighbour is in the next shot and does not count; a panel of
    // another shot is ignored as a whole.
    EXPECT_EQ(Names({ propose(0, 0, 0, true), propose(0, 0, 2, false), propose(0, 0, 2, true),
                  propose(1, 1, 0, false), propose(1, 0, 1, true) }),
        Names({ "15", "30", "50", "10", "10" }));
    panels.setAutoIncrementRule(KRC_NamingRules::Rule_Numeric);
    EXPECT_TRUE(propose(1, 0, 1, true).isNull() && propose(0, 0, 0, true) == QStringLiteral("11"));
}

} // namespace
