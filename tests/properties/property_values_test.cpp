// KRC_Property: the setValue rules, the text, script and XML forms, comparison.
#include "PropertyTestKit.h"
#include "support/QtWarningCapture.h"

#include <QDate>
#include <QDateTime>
#include <QDomDocument>
#include <QPoint>
#include <QTime>
#include <gtest/gtest.h>

#include <type_traits>

namespace {

const QDate kDate(2012, 3, 1);
const QTime kTime(13, 5, 9);

TEST(PropertyValue, FirstValueFixesTheTypeAndReadOnlyRefusesLaterOnes)
{
    QtWarningCapture capture;
    KRC_Property property("p");
    EXPECT_TRUE(property.setValue(5) && property.type() == int(QVariant::Int));
    EXPECT_TRUE(property.setValue(QString("7")) && property.value() == QVariant(7));
    EXPECT_TRUE(!property.setValue(QString("x")) && property.value() == QVariant(7));

    KRC_Property adopted("ro", 1, testDefinition(true));
    EXPECT_TRUE(!adopted.setValue(2) && adopted.toInt() == 1);
    KRC_Property empty("late", QVariant(), testDefinition(true));
    EXPECT_TRUE(empty.setValue(3));
    EXPECT_EQ(capture.warnings(),
        QStringList({ "Could not change value of property p, type is not compatible -- from QString to int",
            "Could not change value of property ro, property is read only" }));
}

TEST(PropertyValue, DefinitionIsSharedWithClonesAndOptional)
{
    KRC_Property bare("bare", 1, nullptr);
    bare.setReadOnly(true); // no definition: nothing to change
    EXPECT_TRUE(!bare.isReadOnly() && bare.ldesc().isNull());
    KRC_Property described("d", 1, testDefinition(false));
    std::unique_ptr<KRC_Property> copy(described.clone());
    copy->setReadOnly(true);
    EXPECT_TRUE(described.isReadOnly() && copy->definition() == described.definition());
}

TEST(PropertyValue, ValueToStringAndScriptMatchTheGrammar)
{
    const struct
    {
        QVariant value;
        QString text;
        QString script;
    } cases[] = { { true, "true", "true" }, { -5, "-5", "-5" }, { 7u, "7", "7" },
        { qlonglong(1) << 40, "1099511627776", "1099511627776" },
        { qulonglong(18446744073709551615ull), "18446744073709551615", "18446744073709551615" },
        { 3.14159265, "3.14159", "3.14159" },
        { QVariantList { "a", "b" }, "a,b", "new Array( \"a\", \"b\" )" },
        { QVariantList { 1, true }, "1,true", "new Array( 1, true )" },
        { QVariantList(), "", "new Array(  )" },
        { QString("say \"hi\""), "say \"hi\"", "\"say \\\"hi\\\"\"" },
        { QStringList { "x", "y\"" }, "x,y\"", "new Array( \"x\", \"y\\\"\" )" },
        { kDate, "2012-03-01", "new Date( Date.parse(  \"\"2012-03-01\"\" ) )" },
        { kTime, "13:05:09", "new Date( Date.parse(  \"\"13:05:09\"\" ) )" },
        { QDateTime(kDate, kTime), "2012-03-01T13:05:09",
            "new Date( Date.parse(  \"\"2012-03-01T13:05:09\"\" ) )" },
        { QColor(255, 0, 0), "#ff0000", "new Color( \"#ff0000\" )" },
        { QColor(), QColor().name(), "new Color()" } };
    for (auto const& c : cases) {
        KRC_Property property("p", c.value, nullptr);
        EXPECT_EQ(QStringList({ property.valueToString(), property.toScriptString() }),
            QStringList({ c.text, c.script }))
            << c.value.typeName();
    }
}

TEST(PropertyValue, TypesWithoutTextFormWarnAndGiveNull)
{
    QtWarningCapture capture;
    KRC_Property point("pt", QPoint(1, 2), nullptr);
    EXPECT_TRUE(point.valueToString().isNull() && point.toScriptString().isNull()
        && point.regenarationScript("obj").isNull() && !KRC_Property("none").setValueFromString("x"));
    EXPECT_EQ(capture.warnings(),
        QStringList({ "Cannot convert property of type QPoint to string.",
            "Cannot convert property of type QPoint to scriptString.",
            "Cannot convert property of type QPoint to scriptString.",
            "Cannot convert property of type  from string = x." }));
}

TEST(PropertyValue, FromStringDispatchesOnThePresentType)
{
    const struct
    {
        QVariant initial;
        QString text;
        QVariant expected;
    } cases[] = { { false, "true", true }, { true, "True", false }, { 1, "42", 42 }, { 1, "bad", 0 },
        { 1u, "9", 9u }, { qlonglong(1), "-8", qlonglong(-8) }, { 1.0, "2.5", 2.5 },
        { QVariantList { "x" }, "a,,b", QVariantList { "a", "b" } },
        { QStringList(), "a,,b,", QStringList { "a", "b" } }, { QString("old"), "new", QString("new") },
        { QDate(), "2012-03-01", kDate }, { QTime(), "13:05:09", kTime },
        { QDateTime(), "2012-03-01T13:05:09", QDateTime(kDate, kTime) },
        { QColor(), "#00ff00", QColor(0, 255, 0) } };
    for (auto const& c : cases) {
        KRC_Property property("p", c.initial, nullptr);
        EXPECT_TRUE(property.setValueFromString(c.text)) << qPrintable(c.text);
        EXPECT_EQ(std::pair(property.value(), property.type()), std::pair(c.expected, int(c.initial.type())))
            << qPrintable(c.text);
    }
}

// Hosts override the script line with this very signature.
static_assert(std::is_same<decltype(&KRC_Property::regenarationScript),
    QString (KRC_Property::*)(QString const&)>::value);

TEST(PropertyValue, RegenerationScriptFillsEachMarkerInTurn)
{
    KRC_Property text("title", QString(""), testDefinition(true, true));
    EXPECT_EQ(text.regenarationScript("obj"), "obj.addProperty( title, long, short, \"\", true, true );\n");
    // Each marker is a separate arg(), so a marker inside the name takes the later text.
    KRC_Property odd("n%5", 1, nullptr);
    EXPECT_EQ(odd.regenarationScript("o"), "o.addProperty( n1, , , 1, false, false );\n");
}

TEST(PropertyValue, EqualityFollowsQVariantWithNullAndEmptyStringsEqual)
{
    EXPECT_TRUE(KRC_Property("a", QString(), nullptr) == KRC_Property("b", QString(""), nullptr));
    EXPECT_EQ(KRC_Property("a", 1, nullptr) == KRC_Property("b", 1.0, nullptr), QVariant(1) == QVariant(1.0));
    EXPECT_TRUE(KRC_Property("a", "x", nullptr) != KRC_Property("a", "y", nullptr)
        && KRC_Property("a", 1, nullptr) != KRC_Property("a", "1x", nullptr));
}

TEST(PropertyValue, XmlElementIsNamedAfterThePropertyAndHoldsTheText)
{
    QDomDocument document;
    QDomElement root = document.createElement("root");
    EXPECT_TRUE(KRC_Property("size", 12, nullptr).store(document, root));
    QDomElement element = root.firstChildElement();
    EXPECT_EQ(element.tagName() + "=" + element.attribute("value"), QString("size=12"));
    KRC_Property loaded("size", 0, nullptr);
    element.setAttribute("value", "31");
    EXPECT_TRUE(loaded.load(element) && loaded.toInt() == 31);
    KRC_Property other("width", 0, nullptr);
    EXPECT_TRUE(!other.load(element) && other.toInt() == 0);
}

} // namespace
