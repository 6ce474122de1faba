// Drawings: exposures and keys at frames, cel keys and their manager, the cel cache.
#include "nodes_Fixture.h"

#include <QSignalSpy>

#include <gmock/gmock.h>

#include <set>

using ::testing::ElementsAre;

namespace {

CA_CelKey elementKey(
    int element, int drawing, QString const& file = QString(), CA_DrawingKind kind = CA_DrawingKind::Kvg)
{
    return CA_CelKey(CA_CelKeyElement(element, drawing, kind, file));
}

CA_CelKey pathKey(QString const& path, int image = 1, bool proxy = false)
{
    return CA_CelKey(CA_CelKeyPath(path, image, proxy));
}

class NodesDrawingTest : public NodesTest
{
protected:
    NodesDrawingTest()
    {
        element = Author::addElement(root(), "A", CA_DrawingKind::Kvg);
        first = Author::addDrawing(element, "/p/A-1.kvg");
        second = Author::addDrawing(element, "/p/A-2.kvg");
        column = element->drawingAttr()->timedValue();
    }

    QString exposed() const
    {
        QStringList runs;
        for (TUElementTimedValue::Exposure const& run : column->exposures())
            runs << QStringLiteral("%1-%2:%3").arg(run.firstFrame).arg(run.lastFrame).arg(run.drawingId);
        return runs.join(' ');
    }

    MO_ElementModule* element;
    int first;
    int second;
    TUElementTimedValue* column;
};

} // namespace

TEST_F(NodesDrawingTest, KeysAtFramesFollowTheExposures)
{
    Author::setExposure(element, 1, 3, first);
    Author::setExposure(element, 4, 6, second);
    Author::clearExposure(element, 5, 5);
    struct Case
    {
        double frame;
        int drawing;
    };
    const Case cases[] = { { 0.5, -1 }, { 1.0, first }, { 3.9, first }, { 4.0, second }, { 5.0, -1 },
        { 5.99, -1 }, { 6.0, second }, { 7.0, -1 }, { -3.0, -1 } };
    AT_DrawingAttr const* attr = element->drawingAttr();
    for (Case const& c : cases) {
        const CA_CelKey key = attr->key(c.frame);
        EXPECT_EQ(c.drawing, column->drawingAt(c.frame)) << c.frame;
        EXPECT_EQ(c.drawing >= 0, key.isValid()) << c.frame;
        EXPECT_EQ(c.drawing >= 0 ? attr->getElementId() : -1, CA_CelKeyMgr::id(key)) << c.frame;
        EXPECT_EQ(c.drawing, CA_CelKeyMgr::drawingId(key)) << c.frame;
        EXPECT_EQ(column->drawingFileName(c.drawing), CA_CelKeyMgr::loadFilename(key)) << c.frame;
    }
    EXPECT_TRUE(attr->key(1.0).isKvg());
}

TEST_F(NodesDrawingTest, NewExposuresCutTheRunsTheyCover)
{
    Author::setExposure(element, 1, 10, first);
    Author::setExposure(element, 4, 6, second);
    EXPECT_EQ("1-3:1 4-6:2 7-10:1", exposed());
    Author::setExposure(element, 2, 8, first);
    EXPECT_EQ("1-1:1 2-8:1 9-10:1", exposed());
    Author::clearExposure(element, 1, 9);
    EXPECT_EQ("10-10:1", exposed());
}

TEST_F(NodesDrawingTest, ContainsDrawingNeedsTheElementAndAnExposureAndElementIdsAreNew)
{
    Author::setExposure(element, 3, 4, second);
    const int id = column->elementId();
    EXPECT_TRUE(column->containsDrawing(id, second) && !column->containsDrawing(id + 1, second)
        && !column->containsDrawing(-1, second));
    EXPECT_FALSE(column->containsDrawing(id, first)) << "a drawing that is never exposed";

    // Element ids are new for each column and stay above reserved ones.
    const int next = Author::addElement(root(), "B", CA_DrawingKind::Bitmap)->drawingAttr()->getElementId();
    EXPECT_GT(next, column->elementId());
    TUElementTimedValue::reserveElementId(next + 100);
    EXPECT_GT(
        Author::addElement(root(), "C", CA_DrawingKind::Bitmap)->drawingAttr()->getElementId(), next + 100);
}

TEST_F(NodesDrawingTest, TheDrawingAttributeReadsNothingOnceItsColumnIsGone)
{
    Author::setExposure(element, 1, 1, first);
    ASSERT_TRUE(scene->removeTimedValue(column));
    manager.notify();
    EXPECT_TRUE(!element->drawingAttr()->timedValue() && !element->drawingAttr()->key(1.0).isValid());
    EXPECT_EQ(-1, element->drawingAttr()->getElementId());
}

// Kinds come from the element or, for a path, from the file extension; the manager
// reads the element and drawing ids only from element keys.
TEST(NodesCelKeyTest, KindsAndManagerReadsOfEachKeyClass)
{
    struct Case
    {
        CA_CelKey key;
        bool kvg, bitmap, model;
        int id, drawing;
        const char* file;
    };
    const Case cases[] = {
        { elementKey(1, 2, "x.png", CA_DrawingKind::Kvg), true, false, false, 1, 2, "x.png" },
        { elementKey(7, 3, "x", CA_DrawingKind::Bitmap), false, true, false, 7, 3, "x" },
        { elementKey(1, 1, "x", CA_DrawingKind::Model3d), false, false, true, 1, 1, "x" },
        { elementKey(1, 1, "x.kvg", CA_DrawingKind::Other), false, false, false, 1, 1, "x.kvg" },
        { pathKey("/p/a.kvg"), true, false, false, -1, -1, "/p/a.kvg" },
        { pathKey("/p/a.PNG"), false, true, false, -1, -1, "/p/a.PNG" },
        { pathKey("/p/a.obj"), false, false, true, -1, -1, "/p/a.obj" },
        { pathKey("/p/a.txt"), false, false, false, -1, -1, "/p/a.txt" },
        { CA_CelKey(), false, false, false, -1, -1, nullptr },
        { elementKey(-1, 1, "a.kvg"), false, false, false, -1, -1, nullptr },
    };
    for (Case const& c : cases) {
        const std::string name = c.key.toString().toStdString();
        const QString file = CA_CelKeyMgr::loadFilename(c.key);
        EXPECT_EQ(std::tuple(c.kvg, c.bitmap, c.model, c.id, c.drawing, QString(c.file), c.file == nullptr),
            std::tuple(c.key.isKvg(), c.key.isBitmap(), c.key.is3d(), CA_CelKeyMgr::id(c.key),
                CA_CelKeyMgr::drawingId(c.key), file, file.isNull()))
            << name;
    }
}

TEST(NodesCelKeyTest, KeysAreStrictlyOrderedByClassThenValue)
{
    const std::vector<CA_CelKey> ascending { CA_CelKey(), elementKey(1, 1, "z"), elementKey(1, 2, "a"),
        elementKey(2, 0), pathKey("/a"), pathKey("/a", 2), pathKey("/a", 2, true), pathKey("/b") };
    for (size_t i = 0; i < ascending.size(); ++i) {
        EXPECT_FALSE(ascending[i] < ascending[i]) << i;
        for (size_t j = i + 1; j < ascending.size(); ++j) {
            EXPECT_TRUE(ascending[i] < ascending[j]) << i << " " << j;
            EXPECT_FALSE(ascending[j] < ascending[i]) << i << " " << j;
        }
    }
    // The file of an element key is no part of its identity as a key.
    EXPECT_EQ(elementKey(4, 2, "old.kvg"), elementKey(4, 2, "new.kvg"));
    const std::set<CA_CelKey> keys { elementKey(4, 2, "old"), elementKey(4, 2, "new"), pathKey("/a"),
        pathKey("/a") };
    EXPECT_EQ(2u, keys.size());
}

TEST(NodesCelKeyTest, EquivalenceMeansOneDrawingAcrossKeyClasses)
{
    struct Case
    {
        CA_CelKey a, b;
        bool equivalent;
    };
    const Case cases[] = { { elementKey(1, 2, "/p/x.kvg"), elementKey(1, 2, "/p/y.kvg"), true },
        { elementKey(1, 2, "/p/x.kvg"), elementKey(1, 3, "/p/x.kvg"), false },
        { pathKey("/p/a.png"), pathKey("/p/./b/../a.png", 1, true), true },
        { pathKey("/p/a.png"), pathKey("/p/a.png", 2), false },
        { elementKey(1, 2, "/p/a.png"), pathKey("/p/a.png"), true },
        { pathKey("/p/a.png"), elementKey(1, 2, "/p/a.png"), true },
        { elementKey(1, 2, ""), pathKey(""), false },
        { elementKey(1, 2, "/p/a.png"), pathKey("/p/b.png"), false }, { CA_CelKey(), CA_CelKey(), false } };
    for (Case const& c : cases)
        EXPECT_EQ(c.equivalent, c.a.isEquivalent(c.b))
            << c.a.toString().toStdString() << " " << c.b.toString().toStdString();
}

TEST(NodesCelCacheTest, ReportsGoOutAtOnceAndTellTheFirstModification)
{
    ca_celCache->forgetModifications();
    QSignalSpy spy(ca_celCache, &CA_CelCache::DrawingModified);
    const CA_CelKey key = elementKey(11, 1, "/p/k.kvg");

    ca_celCache->reportDrawingModified(key);
    ca_celCache->reportDrawingModified(key);
    ca_celCache->reportDrawingModified(pathKey("/p/other.png"));
    ca_celCache->forgetModifications();
    ca_celCache->reportDrawingModified(key);
    ca_celCache->reportDrawingModified(CA_CelKey());

    ASSERT_EQ(5, spy.count());
    QList<bool> firsts;
    for (QList<QVariant> const& call : spy)
        firsts << call.at(1).toBool();
    EXPECT_THAT(firsts, ElementsAre(true, false, true, true, false));
    EXPECT_EQ(key, spy.at(0).at(0).value<CA_CelKey>());
    EXPECT_TRUE(!spy.at(4).at(0).value<CA_CelKey>().isValid() && ca_celCache->isModified(key));
}
