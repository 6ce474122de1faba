// The five property variants and the factory: validation, script lines, caption lists.
#include "PropertyTestKit.h"
#include "properties/KRC_PropertyFactory.h"
#include "properties/KRC_PropertyFromCaptionList.h"
#include "properties/KRC_PropertyFromFile.h"
#include "properties/KRC_PropertyFromFont.h"
#include "properties/KRC_PropertyFromList.h"
#include "properties/KRC_PropertyFromRange.h"
#include "support/QtWarningCapture.h"

#include <QDataStream>
#include <gtest/gtest.h>

#include <memory>

namespace {

const QString kOver = "Invalid KRC_PropertyFromRange, out of range (over). Init value to max.";
const QString kLower = "Invalid KRC_PropertyFromRange, out of range (lower). Init value to min.";
const QString kType = "Invalid KRC_PropertyFromRange, not numerical or not the same type.";

TEST(PropertyFactory, BuildsKindsZeroToFourOnly)
{
    for (int type = 0; type <= 4; ++type) {
        std::unique_ptr<KRC_Property> property(KRC_PropertyFactory::create(type, "n"));
        ASSERT_TRUE(property);
        EXPECT_EQ(std::tuple(property->propertyType(), property->name(), property->isValid()),
            std::tuple(type, QString("n"), false));
    }
    EXPECT_TRUE(!KRC_PropertyFactory::create(5, "n") && !KRC_PropertyFactory::create(-1, "n"));
}

TEST(PropertyFromRange, SetValueClampsAboveAndRefusesBelow)
{
    const struct
    {
        QVariant set;
        bool accepted;
        QVariant stored;
        QString warning;
    } cases[] = { { 11, true, 10, kOver }, { -1, false, 5, kLower }, { 0, true, 0, QString() },
        { 10, true, 10, QString() }, { QString("12"), true, 10, kOver } };
    for (auto const& c : cases) {
        KRC_PropertyFromRange range("r", 5, 0, 10, nullptr);
        PropertyRecorder recorder;
        recorder.registerObservable(&range);
        QtWarningCapture capture;
        EXPECT_EQ((std::tuple { range.setValue(c.set), range.value(), recorder.events.size() }),
            std::tuple(c.accepted, c.stored, size_t(c.accepted ? 1 : 0)))
            << qPrintable(c.set.toString());
        EXPECT_EQ(capture.warnings(), c.warning.isEmpty() ? QStringList() : QStringList(c.warning));
    }
}

TEST(PropertyFromRange, ConstructionMendsTheValue)
{
    QtWarningCapture capture;
    EXPECT_EQ(QVariantList({ KRC_PropertyFromRange("r", -3, 0, 10, nullptr).value(),
                  KRC_PropertyFromRange("r", 20, 0, 10, nullptr).value() }),
        QVariantList({ 0, 10 }));
    KRC_PropertyFromRange mixed("r", 4, 0.0, 9.5, nullptr);
    EXPECT_EQ(QVariantList({ mixed.value(), mixed.min(), mixed.max() }), QVariantList({ 0, 0, 0 }));
    EXPECT_EQ(capture.warnings(), QStringList({ kLower, kOver, kType }));
    std::unique_ptr<KRC_Property> copy(KRC_PropertyFromRange("d", 2.5, 1.0, 3.0, nullptr).clone());
    EXPECT_EQ(copy->propertyType(), 2);
}

TEST(PropertyFromList, ValidateTestsTypesNotMembership)
{
    const QMap<QString, QVariant> numbers { { "one", 1 }, { "two", 2 } };
    KRC_PropertyFromList other("l", 7, numbers, false, false, nullptr);
    EXPECT_TRUE(other.validate(false) && other.toInt() == 7);
    EXPECT_FALSE(KRC_PropertyFromList("l", QString("x"), numbers, false, false, nullptr).isValid());

    KRC_PropertyFromList emptyMultiple("l", QVariantList(), numbers, true, true, nullptr);
    EXPECT_TRUE(!emptyMultiple.validate(true) && emptyMultiple.value() == QVariant(QVariantList()));

    EXPECT_TRUE(
        KRC_PropertyFromList("l", QVariantList { 1, 2 }, numbers, false, true, nullptr).validate(false));
    EXPECT_TRUE(KRC_PropertyFromList("l", 1, {}, false, false, nullptr).validate(false));
}

TEST(PropertyVariants, OnlyTheListAddsToTheBaseScriptLine)
{
    const QMap<QString, QVariant> choices { { "B", 2 }, { "A", 1 } };
    KRC_PropertyFromList list("p", 1, choices, true, false, testDefinition(false, true));
    EXPECT_EQ(list.regenarationScript("obj"),
        "var possValues = new Array( A, 1, B, 2 );\n"
        "obj.addPropertyFromList( p, long, short, 1, possibleValues, true, false, false, true );\n");

    const QString line = "o.addProperty( v, long, short, 5, true, true );\n";
    EXPECT_EQ(KRC_PropertyFromRange("v", 5, 0, 9, testDefinition(true, true)).regenarationScript("o"), line);
    EXPECT_EQ(
        KRC_PropertyFromFile("v", 5, "*.png", testDefinition(true, true)).regenarationScript("o"), line);
    EXPECT_EQ(KRC_PropertyFromFont("v", 5, testDefinition(true, true)).regenarationScript("o"), line);
}

TEST(PropertyFromCaptionList, SplitsOnUseAndGoesStaleAfterLoad)
{
    KRC_PropertyFromCaptionList captions("c", QString("a;;b;"), testDefinition(true, true));
    EXPECT_EQ(captions.captionList(), QStringList({ "a", "b" }));

    QByteArray bytes;
    {
        QDataStream out(&bytes, QIODevice::WriteOnly);
        KRC_Property("c", QString("x;y;z"), testDefinition(true, true)).store(out);
    }
    QDataStream in(bytes);
    ASSERT_TRUE(captions.load(in));
    EXPECT_EQ(std::pair(captions.toString(), captions.captionList()),
        std::pair(QString("x;y;z"), QStringList({ "a", "b" })));
    QtWarningCapture capture;
    EXPECT_FALSE(captions.setValue(QString("q"))); // refused: read-only, yet the list is split again
    EXPECT_EQ(captions.captionList(), QStringList({ "x", "y", "z" }));
}

} // namespace
