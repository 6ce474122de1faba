// The default layers: their text form over well-formed and damaged strings, the
// built-in template, a snapshot of a panel, and the template kept across sessions in
// the preference file.
#include "layers/KRC_PanelLayerManager.h"
#include "support/ProjectBoard.h"
#include "support/ScopedPreferences.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <memory>

namespace {

using Info = KRC_PanelLayerManager::LayerInfo;
using namespace HostNodeAuthoring;

QStringList texts(KRC_PanelLayerManager const& manager)
{
    QStringList out;
    for (auto it = manager.beginDefaultLayers(); it != manager.endDefaultLayers(); ++it)
        out << it->asString();
    return out;
}

struct TextCase
{
    char const* text;
    char const* expected; // asString() of what fromString read
};

TEST(DefaultLayerText, AnyTextReadsWithDefaultsForWhatIsMissingOrUnreadable)
{
    TextCase const cases[] = {
        { "A;1;0;13;0;100;0", "A;1;0;13;0;100;0" },
        { "BG", "BG;0;0;0;0;100;0" },
        { "", ";0;0;0;0;100;0" },
        { ";;;;", ";0;0;0;0;100;0" },
        { "X;4;2;1;4;55.5;1", "X;2;2;1;2;55.5;1" }, // 4: the high bool alone
        { "X;3;;7", "X;3;7;0;0;100;0" }, // empty parts are skipped, fields shift
        { "X;abc;1e3;-5;zz;op;q", "X;0;0;-5;0;0;0" }, // non-numbers read 0
        { "X;1;2;3;3;12.25;2;extra;more", "X;1;2;3;3;12.25;2" },
        { "X;99999999999999999999", "X;0;0;0;0;100;0" }, // overflow reads 0
        { "X;0;0;0;0;0;14", "X;0;0;0;0;0;0" }, // an unknown camera alignment reads as none
        { "Ünï;1", "Ünï;1;0;0;0;100;0" },
    };
    for (TextCase const& c : cases)
        EXPECT_EQ(Info(QString::fromUtf8(c.text)).asString(), QString::fromUtf8(c.expected)) << c.text;
    EXPECT_TRUE(Info(QStringLiteral("")).name.isNull());
    Info const bits(QStringLiteral("N;4;0;0;1"));
    EXPECT_TRUE(bits.locked && !bits.enabled && !bits.current && bits.selected);
}

TEST(DefaultLayers, BuiltInThenSnapshotSurvivesTheSessionThroughThePreferenceFile)
{
    QTemporaryDir dir;
    QString const path = dir.filePath(QStringLiteral("prefs.xml"));
    {
        ScopedPreferences preferences;
        auto owned = std::make_unique<ProjectBoard>("S[10,12]");
        ProjectBoard& board = *owned;
        EXPECT_EQ(texts(*board->layerManager()), (QStringList { "A;1;0;13;0;100;0", "BG;1;1;13;0;100;0" }));
        TUScene* scene = board.panelAt(0, 0).symbol();
        setLocked(addDrawingElement(scene->getRootGroup(), "Ink", CA_DrawingKind::Kvg, "i.tvg", 1, 10), true);
        TUPegModule* peg = addPeg(scene->getRootGroup(), "Cam");
        setCameraAlignment(peg, CameraAlignment_FaceCamera);
        board.notify();
        board.panelAt(0, 0).layerInfos()->setLayerFlags(QStringLiteral("Ink"), static_cast<LAYER_FLAGS>(16));
        board->layerManager()->updateDefaultLayers(SC_Id(424242)); // unknown: nothing changes
        board->layerManager()->updateDefaultLayers(board.panel(0, 1)); // no layers: nothing changes
        EXPECT_EQ(texts(*board->layerManager()).size(), 2);
        board->layerManager()->updateDefaultLayers(board.panel(0, 0));
        QStringList const snapshot = texts(*board->layerManager());
        EXPECT_EQ(snapshot.size(), 2);
        EXPECT_TRUE(snapshot.value(0).startsWith(QStringLiteral("Ink;3;16;"))) << snapshot.join("|").toStdString();
        EXPECT_TRUE(snapshot.value(1).startsWith(QStringLiteral("Cam;1;"))) << snapshot.join("|").toStdString();
        EXPECT_TRUE(snapshot.value(1).endsWith(QStringLiteral(";100;%1").arg(int(CameraAlignment_FaceCamera))));
        EXPECT_TRUE(preferences->getStringValue(QStringLiteral("DEFAULT_LAYERS"), QString()).isNull());
        owned.reset();
        EXPECT_EQ(preferences->getStringValue(QStringLiteral("DEFAULT_LAYERS"), QString()), snapshot.join(";;"));
        ASSERT_TRUE(preferences->save(path));
    }
    ScopedPreferences next;
    ASSERT_TRUE(next->load(path));
    ProjectBoard board("S[10]");
    auto const& manager = *board->layerManager();
    EXPECT_EQ(texts(manager).join(";;"), next->getStringValue(QStringLiteral("DEFAULT_LAYERS"), QString()));
    EXPECT_EQ(manager.rbeginDefaultLayers()->name, QStringLiteral("Cam"));
}

} // namespace
