// KRC_Property: the setValue rules, the text, script and XML forms, comparison.
#include "properties/KRC_Property.h"
#include "support/QtWarningCapture.h"

#include <QDate>
#include <QDateTime>
#include <QDomDocument>
#include <QPoint>
#include <QTime>
#include <gtest/gtest.h>

#include <type_traits>

namespace {

UT_SharedPtr<KRC_PropertyDefinition> definition(bool readOnly, bool internal = false)
{
    return UT_SharedPtr<KRC_PropertyDefinition>(
        new KRC_PropertyDefinition("long", "short", readOnly, internal));
}

const QDate kDate(2012, 3, 1);
const QTime kTime(13, 5, 9);

TEST(PropertyValue, FirstValueFixesTheTypeAndLaterOnesAreConverted)
{
    QtWarningCapture capture;
    KRC_Property property("p");
    EXPECT_FALSE(property.isValid());
    EXPECT_TRUE(property.setValue(5));
    EXPECT_EQ(property.type(), int(QVariant::Int));
    EXPECT_TRUE(property.setValue(QString("7")));
    EXPECT_EQ(property.value(), QVariant(7));
    EXPECT_FALSE(property.setValue(QString("x")));
    EXPECT_EQ(property.value(), QVariant(7));
    EXPECT_EQ(capture.warnings(),
        QStringList("Could not change value of property p, type is not compatible -- from QString to int"));
}

TEST(PropertyValue, ReadOnlyTakesOnlyItsFirstValue)
{
    QtWarningCapture capture;
    KRC_Property adopted("ro", 1, definition(true));
    EXPECT_EQ(adopted.toInt(), 1);
    EXPECT_FALSE(adopted.setValue(2));
    EXPECT_EQ(adopted.toInt(), 1);
    EXPECT_EQ(
        capture.warnings(), QStringList("Could not change value of property ro, property is read only"));

    KRC_Property empty("late", QVariant(), definition(true));
    EXPECT_TRUE(empty.setValue(3));
    EXPECT_EQ(empty.toInt(), 3);
}

TEST(PropertyValue, DefinitionIsSharedWithClonesAndOptional)
{
    KRC_Property bare("bare", 1, nullptr);
    EXPECT_FALSE(bare.isReadOnly());
    EXPECT_FALSE(bare.isInternal());
    EXPECT_TRUE(bare.ldesc().isNull());
    bare.setReadOnly(true); // no definition: nothing to change
    EXPECT_FALSE(bare.isReadOnly());

    EXPECT_TRUE(KRC_PropertyDefinition().isInternal());
    KRC_Property described("d", 1, definition(false, false));
    std::unique_ptr<KRC_Property> copy(described.clone());
    copy->setReadOnly(true);
    EXPECT_TRUE(described.isReadOnly());
    EXPECT_EQ(copy->definition(), described.definition());
    EXPECT_EQ(copy->sdesc(), QString("short"));
}

struct TextCase
{
    QVariant value;
    QString text;
    QString script;
};

class PropertyTextForms : public ::testing::TestWithParam<TextCase>
{
};

TEST_P(PropertyTextForms, ValueToStringAndScriptMatchTheGrammar)
{
    const TextCase& c = GetParam();
    KRC_Property property("p", c.value, nullptr);
    EXPECT_EQ(property.valueToString(), c.text);
    EXPECT_EQ(property.toScriptString(), c.script);
}

INSTANTIATE_TEST_SUITE_P(AllKnownTypes, PropertyTextForms,
    ::testing::Values(TextCase { true, "true", "true" }, TextCase { -5, "-5", "-5" },
        TextCase { 7u, "7", "7" }, TextCase { qlonglong(1) << 40, "1099511627776", "1099511627776" },
        TextCase { qulonglong(18446744073709551615ull), "18446744073709551615", "18446744073709551615" },
        TextCase { 3.14159265, "3.14159", "3.14159" },
        TextCase { QVariantList { "a", "b" }, "a,b", "new Array( \"a\", \"b\" )" },
        TextCase { QVariantList { 1, true }, "1,true", "new Array( 1, true )" },
        TextCase { QVariantList(), "", "new Array(  )" },
        TextCase { QString("say \"hi\""), "say \"hi\"", "\"say \\\"hi\\\"\"" },
        TextCase { QStringList { "x", "y\"" }, "x,y\"", "new Array( \"x\", \"y\\\"\" )" },
        TextCase { kDate, "2012-03-01", "new Date( Date.parse(  \"\"2012-03-01\"\" ) )" },
        TextCase { kTime, "13:05:09", "new Date( Date.parse(  \"\"13:05:09\"\" ) )" },
        TextCase { QDateTime(kDate, kTime), "2012-03-01T13:05:09",
            "new Date( Date.parse(  \"\"2012-03-01T13:05:09\"\" ) )" },
        TextCase { QColor(255, 0, 0), "#ff0000", "new Color( \"#ff0000\" )" },
        TextCase { QColor(), QColor().name(), "new Color()" }));

TEST(PropertyValue, TypesWithoutTextFormWarnAndGiveNull)
{
    QtWarningCapture capture;
    KRC_Property point("pt", QPoint(1, 2), nullptr);
    EXPECT_TRUE(point.valueToString().isNull());
    EXPECT_TRUE(point.toScriptString().isNull());
    EXPECT_TRUE(point.regenarationScript("obj").isNull());
    EXPECT_FALSE(KRC_Property("none").setValueFromString("x"));
    EXPECT_EQ(capture.warnings(),
        QStringList({ "Cannot convert property of type QPoint to string.",
            "Cannot convert property of type QPoint to scriptString.",
            "Cannot convert property of type QPoint to scriptString.",
            "Cannot convert property of type  from string = x." }));
}

struct ParseCase
{
    QVariant initial;
    QString text;
    QVariant expected;
};

class PropertyFromString : public ::testing::TestWithParam<ParseCase>
{
};

TEST_P(PropertyFromString, DispatchesOnThePresentType)
{
    const ParseCase& c = GetParam();
    KRC_Property property("p", c.initial, nullptr);
    EXPECT_TRUE(property.setValueFromString(c.text));
    EXPECT_EQ(property.value(), c.expected);
    EXPECT_EQ(property.type(), c.initial.type());
}

INSTANTIATE_TEST_SUITE_P(AllKnownTypes, PropertyFromString,
    ::testing::Values(ParseCase { false, "true", true }, ParseCase { true, "True", false },
        ParseCase { 1, "42", 42 }, ParseCase { 1, "bad", 0 }, ParseCase { 1u, "9", 9u },
        ParseCase { qlonglong(1), "-8", qlonglong(-8) }, ParseCase { 1.0, "2.5", 2.5 },
        ParseCase { QVariantList { "x" }, "a,,b", QVariantList { "a", "b" } },
        ParseCase { QStringList(), "a,,b,", QStringList { "a", "b" } },
        ParseCase { QString("old"), "new", QString("new") }, ParseCase { QDate(), "2012-03-01", kDate },
        ParseCase { QTime(), "13:05:09", kTime },
        ParseCase { QDateTime(), "2012-03-01T13:05:09", QDateTime(kDate, kTime) },
        ParseCase { QColor(), "#00ff00", QColor(0, 255, 0) }));

// Hosts override the script line with this very signature.
static_assert(std::is_same<decltype(&KRC_Property::regenarationScript),
    QString (KRC_Property::*)(QString const&)>::value);

TEST(PropertyValue, RegenerationScriptFillsEachMarkerInTurn)
{
    KRC_Property text("title", QString(""), definition(true, true));
    EXPECT_EQ(text.regenarationScript("obj"), "obj.addProperty( title, long, short, \"\", true, true );\n");
    // Each marker is a separate arg(), so a marker inside the name takes the later text.
    KRC_Property odd("n%5", 1, nullptr);
    EXPECT_EQ(odd.regenarationScript("o"), "o.addProperty( n1, , , 1, false, false );\n");
}

TEST(PropertyValue, EqualityFollowsQVariantWithNullAndEmptyStringsEqual)
{
    EXPECT_TRUE(KRC_Property("a", QString(), nullptr) == KRC_Property("b", QString(""), nullptr));
    EXPECT_EQ(KRC_Property("a", 1, nullptr) == KRC_Property("b", 1.0, nullptr), QVariant(1) == QVariant(1.0));
    EXPECT_TRUE(KRC_Property("a", "x", nullptr) != KRC_Property("a", "y", nullptr));
    EXPECT_TRUE(KRC_Property("a", 1, nullptr) != KRC_Property("a", "1x", nullptr));
}

TEST(PropertyValue, XmlElementIsNamedAfterThePropertyAndHoldsTheText)
{
    QDomDocument document;
    QDomElement root = document.createElement("root");
    KRC_Property stored("size", 12, nullptr);
    EXPECT_TRUE(stored.store(document, root));
    QDomElement element = root.firstChildElement();
    EXPECT_EQ(element.tagName(), QString("size"));
    EXPECT_EQ(element.attribute("value"), QString("12"));

    KRC_Property loaded("size", 0, nullptr);
    element.setAttribute("value", "31");
    EXPECT_TRUE(loaded.load(element));
    EXPECT_EQ(loaded.toInt(), 31);
    KRC_Property other("width", 0, nullptr);
    EXPECT_FALSE(other.load(element));
    EXPECT_EQ(other.toInt(), 0);
}

} // namespace
