// The project's info field operations: definitions and values in step, undo pairs,
// change reports, and a save and reload of the project file.
#include "infofields/InfoFieldTestKit.h"
#include "infofields/KRC_ProjectInfoFieldDescList.h"
#include "metadata/metadata_test_support.h"
#include "support/InfoFieldInvariants.h"
#include "support/ProjectBoard.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

Q_DECLARE_METATYPE(TUMetadataSet)

using namespace fieldtest;

namespace {

int const kText = KRC_InfoFieldDesc::kText;
int const kImage = KRC_InfoFieldDesc::kImage;

/// `count` reports of `code`.
std::multiset<int> reports(size_t count, int code)
{
    const std::vector<int> codes(count, code);
    return std::multiset<int>(codes.begin(), codes.end());
}

/// A board of four panels with two panel fields, "A" (0) and "B" (1), each panel
/// valued "A<panel>" and "B<panel>", and a local field "loc" in front of B on panel 1.
class InfoFieldProject : public ::testing::Test
{
protected:
    InfoFieldProject()
    {
        view().insertInfoField(true, kText, QStringLiteral("A"), INT_MAX, INT_MAX, false);
        view().insertInfoField(true, kImage, QStringLiteral("B"), INT_MAX, INT_MAX, false);
        int index = 0;
        for (Krolle::Panel_t const& panel : panels()) {
            panel.infoFieldList()->getInfoField(0)->setValue(QStringLiteral("A%1").arg(index));
            panel.infoFieldList()->getInfoField(1)->setValue(QStringLiteral("B%1").arg(index++));
        }
        panelList(1)->insertInfoField(kText, QStringLiteral("loc"), INT_MAX, QStringLiteral("<u>l</u>"), 1);
        board.notify();
    }

    KRC_KrolleProject& view() { return board.view(); }
    Krolle::objrange<Krolle::objiterator<Krolle::Panel_t>> panels()
    {
        return Krolle::range(view().beginPanel(), view().endPanel());
    }
    KRC_InfoFieldList* panelList(int index) { return view().getPanelByNdx(index).infoFieldList(); }
    /// Every panel's ids and values, in list order.
    std::vector<std::vector<std::pair<int, QString>>> snapshot()
    {
        std::vector<std::vector<std::pair<int, QString>>> all;
        for (Krolle::Panel_t const& panel : panels()) {
            all.emplace_back();
            for (UT_SharedPtr<KRC_InfoField> const& field : *panel.infoFieldList())
                all.back().emplace_back(field->id(), field->value());
        }
        return all;
    }
    /// The codes that reach the change manager's metadataChanged at the next notify,
    /// which sends it once or, with nothing posted, not at all.
    std::multiset<int> reportedCodes()
    {
        qRegisterMetaType<TUMetadataSet>();
        QSignalSpy spy(&board.manager, &TUSceneChangeManager::metadataChanged);
        board.notify();
        EXPECT_LE(spy.count(), 1);
        std::multiset<int> codes;
        for (QList<QVariant> const& call : spy) {
            for (PIO_MetaModif const& change : call.at(0).value<TUMetadataSet>())
                codes.insert(change.code);
        }
        return codes;
    }

    ProjectBoard board { QStringLiteral("S[2,2] S[2,2]") };
};

// Remove and insert are one another's undo, for every place of the field.
TEST_F(InfoFieldProject, RemovedFieldComesBackWithEveryValueInPlace)
{
    view().insertInfoField(true, kText, QStringLiteral("C"), INT_MAX, INT_MAX, false);
    for (int id : { 0, 1, 2 }) {
        const auto before = snapshot();
        const LocalInfoFields locals = localInfoFieldsOf(view());
        KRC_InfoFieldDesc desc;
        KRC_InfoFieldList values;
        const int next = view().removeInfoField(true, id, desc, values, true);
        EXPECT_EQ(next, id == 2 ? INT_MAX : id + 1);
        EXPECT_EQ(values.size(), 4u);
        EXPECT_FALSE(panelList(3)->contain(id));
        EXPECT_TRUE(infoFieldsFollowDefinitions(view(), &locals));
        EXPECT_EQ(reportedCodes(), reports(5, 6)); // the definitions and four panels

        EXPECT_EQ(view().insertInfoField(true, desc, values, next, true), id);
        EXPECT_EQ(snapshot(), before);
        EXPECT_EQ(idsOf(*view().panelInfoFieldDescList()), (Ids { 0, 1, 2 }));
        EXPECT_TRUE(infoFieldsFollowDefinitions(view(), &locals));
        EXPECT_EQ(reportedCodes(), reports(5, 3));
    }
}

// A sequence of edits; after each one the values follow the definitions and the local
// field keeps its place.
TEST_F(InfoFieldProject, EditsKeepValuesInStep)
{
    const LocalInfoFields locals = localInfoFieldsOf(view());
    struct Step
    {
        char const* what;
        std::function<void(KRC_KrolleProject&)> edit;
        Ids definitions, panel1;
        std::multiset<int> codes;
    };
    const Step steps[] = {
        { "move B to the front", [](KRC_KrolleProject& v) { EXPECT_EQ(v.moveInfoField(true, 1, 0, true), INT_MAX); },
            { 1, 0 }, { 1, 0, -1 }, reports(5, 7) },
        { "add C in front of A", [](KRC_KrolleProject& v) { v.insertInfoField(true, kText, "C", INT_MAX, 0, false); },
            { 1, 2, 0 }, { 1, 2, 0, -1 }, {} },
        { "swap the ids of A and C", [](KRC_KrolleProject& v) { v.remapInfoField(true, { { 0, 2 }, { 2, 0 } }); },
            { 1, 0, 2 }, { 1, 0, 2, -1 }, reports(5, 4) },
        { "move B behind the local field's follower", [](KRC_KrolleProject& v) { v.moveInfoField(true, 1, INT_MAX, true); },
            { 0, 2, 1 }, { 0, 2, -1, 1 }, reports(5, 7) },
        { "replace C by an image, silently", [](KRC_KrolleProject& v) { v.insertInfoField(true, kImage, "C2", 0, 1, false); },
            { 2, 0, 1 }, { 2, -1, 0, 1 }, {} },
        { "remove A and B", [](KRC_KrolleProject& v) { v.removeInfoField(true, std::set<int> { 1, 2 }); },
            { 0 }, { -1, 0 }, reports(5, 6) },
    };
    for (Step const& step : steps) {
        SCOPED_TRACE(step.what);
        step.edit(view());
        EXPECT_EQ(idsOf(*view().panelInfoFieldDescList()), step.definitions);
        EXPECT_EQ(idsOf(*panelList(1)), step.panel1);
        EXPECT_TRUE(infoFieldsFollowDefinitions(view(), &locals));
        EXPECT_EQ(reportedCodes(), step.codes);
    }
}

TEST_F(InfoFieldProject, UnknownIdsAndNames)
{
    KRC_InfoFieldDesc desc;
    KRC_InfoFieldList values;
    EXPECT_EQ(view().removeInfoField(true, 9, desc, values, true), 9);
    EXPECT_TRUE(view().remapInfoField(true, {})); // nothing to remap: true, and no report
    EXPECT_EQ(view().renameInfoField(true, 9, QStringLiteral("x"), true), INT_MAX);
    QString old;
    EXPECT_EQ(view().renameInfoField(true, 1, QStringLiteral("Board"), old, true), 1);
    EXPECT_EQ(old, QStringLiteral("B"));
    EXPECT_EQ(reportedCodes(), std::multiset<int> { 5 });

    EXPECT_EQ(view().getFieldByName(true, QStringLiteral("Board")), 1);
    EXPECT_EQ(view().getFieldByName(true, QStringLiteral("loc"), panelList(1)), -1);
    EXPECT_EQ(view().getFieldByName(true, QStringLiteral("loc")), INT_MAX);
    EXPECT_EQ(view().getInfoFieldDesc(true, -1, panelList(1))->name(), QStringLiteral("loc"));
    view().insertInfoField(true, kText, QStringLiteral("Untitled"), INT_MAX, INT_MAX, false);
    view().insertInfoField(true, kText, QStringLiteral("Untitled 2"), INT_MAX, INT_MAX, false);
    EXPECT_EQ(view().getUniqInfoFieldName(kText, true), QStringLiteral("Untitled 3"));
    EXPECT_EQ(view().getUniqInfoFieldName(kImage, true), QStringLiteral("Sketch"));
    EXPECT_EQ(view().getUniqInfoFieldName(QStringLiteral("loc"), true, panelList(1)), QStringLiteral("loc 2"));

    view().clearInfoFields(true); // the values stay, without definitions
    EXPECT_EQ(view().getNumPanelInfoFields(), 0u);
    EXPECT_TRUE(panelList(0)->contain(1));
    EXPECT_EQ(view().getInfoFieldDesc(true, 1, panelList(0)), nullptr);
}

TEST_F(InfoFieldProject, ProjectFieldsVisibilityAndPitchMode)
{
    board.notify();
    EXPECT_EQ(view().insertInfoField(false, kText, QStringLiteral("Title"), INT_MAX, KRC_InfoFieldDesc::kDefault,
                  KRC_InfoFieldList(), INT_MAX, true),
        0);
    EXPECT_EQ(view().getNumProjectPanelInfoFields(), 1u);
    EXPECT_EQ(idsOf(*view().infoFieldList()), (Ids { 0 }));
    EXPECT_TRUE(view().infoFieldList()->front()->value().isNull());
    EXPECT_EQ(reportedCodes(), (std::multiset<int> { 3, 3 }));

    view().setInfoFieldVisible(QStringLiteral("A"), true); // visible already: no report
    view().setInfoFieldVisible(QStringLiteral("A"), false);
    EXPECT_EQ(reportedCodes(), std::multiset<int> { 6 });
    EXPECT_FALSE(view().isInfoFieldVisible(QStringLiteral("A")));
    ASSERT_EQ(view().visiblePanelInfoFieldDescList().size(), 1u);
    EXPECT_EQ(view().visiblePanelInfoFieldDescList().front()->name(), QStringLiteral("B"));
    view().setHiddenInfoFields({ QStringLiteral("A") });
    EXPECT_TRUE(reportedCodes().empty());

    EXPECT_EQ(view().getPitchModeField(), INT_MAX);
    view().insertInfoField(true, kText, KRC_InfoFieldDesc::commentsField, INT_MAX, INT_MAX, false);
    EXPECT_EQ(view().getPitchModeField(), 2); // by name
    EXPECT_EQ(view().insertPitchModeInfoField(INT_MAX, INT_MAX, false), 3);
    EXPECT_EQ(view().getPitchModeField(), 3); // the comment bit wins over the name
}

// The records survive a save and reload of the project file.
TEST_F(InfoFieldProject, RecordsSurviveTheProjectFile)
{
    view().insertInfoField(false, kText, QStringLiteral("Title"), INT_MAX, INT_MAX, false);
    view().infoFieldList()->front()->setValue(QStringLiteral("<b>T</b>"));
    view().setInfoFieldVisible(QStringLiteral("B"), false);
    view().insertExtraInfoField(kText, QStringLiteral("loc"), 1);
    for (Krolle::Panel_t const& panel : panels())
        panel.infoFieldList()->getInfoField(0)->setValue(QStringLiteral("<i>%1</i>").arg(panel.name()));

    KRC_MetadataFactory::createInstance();
    QString error;
    UT_SharedPtr<SC_Project> loaded = HostProjectFile::fromXml(HostProjectFile::toXml(board.project()), &error);
    ASSERT_TRUE(loaded) << error.toStdString();
    KRC_KrolleProject reloaded(loaded.get());
    const auto dumpsOf = [](KRC_KrolleProject& v) {
        QStringList dumps { metatest::dumpOf(*v.infoFieldDescList()), metatest::dumpOf(*v.panelInfoFieldDescList()),
            metatest::dumpOf(*v.panelExtraInfoFieldDescList()), metatest::dumpOf(*v.infoFieldList()) };
        for (Krolle::Panel_t const& panel : Krolle::range(v.beginPanel(), v.endPanel()))
            dumps << metatest::dumpOf(*panel.infoFieldList());
        return dumps;
    };
    EXPECT_EQ(dumpsOf(reloaded), dumpsOf(view()));
    EXPECT_FALSE(reloaded.isInfoFieldVisible(QStringLiteral("B")));
    EXPECT_TRUE(infoFieldsFollowDefinitions(reloaded, nullptr));
}

} // namespace
