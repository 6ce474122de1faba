// KRC_PropertiedObject: insertion, union by name, comparison, copies and XML.
#include "PropertyTestKit.h"
#include "properties/KRC_PropertiedObject.h"
#include "properties/KRC_PropertyFromList.h"
#include "support/QtWarningCapture.h"

#include <QDomDocument>
#include <gtest/gtest.h>

namespace {

QStringList names(KRC_PropertiedObject const& object)
{
    std::list<QString> all;
    object.getAllProperties(all);
    return QStringList(all.begin(), all.end());
}

// A subclass that puts a property of its own ahead of the owned ones.
class Extended : public KRC_PropertiedObject
{
public:
    using KRC_PropertiedObject::getAllProperties;
    void getAllProperties(std::list<KRC_Property*>& properties) const override
    {
        if (withNull)
            properties.push_back(nullptr);
        properties.push_back(const_cast<KRC_Property*>(&extra));
        KRC_PropertiedObject::getAllProperties(properties);
    }
    KRC_Property extra { "a", QVariant(100), nullptr };
    bool withNull = false;
};

TEST(PropertiedObject, ReplacingKeepsThePlaceAndDeletesTheOldOne)
{
    KRC_PropertiedObject object;
    object.addProperty("a", 1);
    KRC_Property* b = object.addProperty("b", 2);
    object.addProperty("c", 3);
    PropertyRecorder recorder;
    recorder.registerObservable(b);
    KRC_Property* replacement = object.addProperty("b", QString("two"));
    EXPECT_EQ(recorder.events, PropertyEvents({ { 'd', b } }));
    EXPECT_EQ(names(object), QStringList({ "a", "b", "c" }));
    EXPECT_TRUE(object.getProperty("b") == replacement && object.addProperty(replacement) == replacement
        && object.propertiesCount() == 3u);

    object.removeProperty("a");
    object.removeProperty("missing");
    EXPECT_EQ(names(object), QStringList({ "b", "c" }));
    object.clearProperties();
    EXPECT_EQ(object.propertiesCount(), 0u);
}

TEST(PropertiedObject, AddOperationsBuildTheirKindsAndDefinitions)
{
    KRC_PropertiedObject object;
    KRC_Property* plain
        = object.addPropertyFromList("l", 1, QVariantList(), true, true, "L", "S", false, false);
    // No choices: a plain property.
    EXPECT_TRUE(plain->propertyType() == 0 && !plain->regenarationScript("o").contains("possValues"));
    auto list = dynamic_cast<KRC_PropertyFromList*>(
        object.addPropertyFromList("m", 1, QVariantList { "k", 1, "x" }, false, true));
    ASSERT_TRUE(list);
    EXPECT_EQ(list->possibleValues(), (QMap<QString, QVariant> { { "k", 1 } }));
    EXPECT_EQ(QList<int>({ object.addPropertyFromRange("r", 1, 0, 5)->propertyType(),
                  object.addPropertyFromFile("f", "x", "*.txt", "L", "S", true, false)->propertyType(),
                  object.addPropertyFromFont("t", "Sans")->propertyType(),
                  object.addPropertyFromCaptionList("c", "a;b", "L", "S", false, true)->propertyType() }),
        QList<int>({ 2, 3, 4, 5 }));

    KRC_Property* internal = object.addPropertyInternal("i", 1, true);
    EXPECT_EQ(internal->ldesc() + internal->sdesc(), QString("InternalInternal"));
    EXPECT_TRUE(internal->isReadOnly() && internal->isInternal());

    object.setProperty("new", 5);
    EXPECT_FALSE(object.getProperty("new")->definition());
    object.setProperty("new", KRC_Property("x", 6, nullptr));
    EXPECT_EQ(object.getPropertyInt("new", 0), 6);
    object.addProperty("s", QString("true"));
    EXPECT_TRUE(object.getPropertyBool("s", false)); // converted as QVariant converts
    EXPECT_EQ(object.getPropertyString("missing", "def"), QString("def"));
}

TEST(PropertiedObject, VariantToPropertyList)
{
    QMap<QString, QVariant> target { { "keep", 0 } };
    KRC_PropertiedObject::qVariantToPropertyList(QVariantList { "a", 1, "keep", 2, "odd" }, target);
    EXPECT_EQ(target, (QMap<QString, QVariant> { { "a", 1 }, { "keep", 2 } }));
    KRC_PropertiedObject::qVariantToPropertyList(5, target);
    EXPECT_EQ(target.size(), 2);
    KRC_PropertiedObject::qVariantToPropertyList(QVariantMap { { "z", 9 } }, target);
    EXPECT_EQ(target, (QMap<QString, QVariant> { { "z", 9 } }));
}

TEST(PropertiedObject, CompareRunsOneWayOverTheVirtualList)
{
    KRC_PropertiedObject full;
    KRC_PropertiedObject empty;
    full.addProperty("a", 1);
    EXPECT_TRUE(full.propertiesCompare(&empty) && !empty.propertiesCompare(&full));
    KRC_PropertiedObject otherValue;
    otherValue.addProperty("a", 2);
    EXPECT_FALSE(full.propertiesCompare(&otherValue));

    Extended extended;
    extended.addProperty("a", 1); // hidden behind the subclass's own "a"
    extended.addProperty("b", 2);
    EXPECT_TRUE(extended.propertiesCount() == 2u && !full.propertiesCompare(&extended));
    KRC_PropertiedObject same;
    same.addProperty("a", 100);
    same.addProperty("b", 2);
    EXPECT_TRUE(same.propertiesCompare(&extended));

    // A null entry of a subclass is passed over by every walk of the list.
    extended.withNull = true;
    EXPECT_TRUE(same.propertiesCompare(&extended) && extended.propertiesCount() == 3u);
    same.propertiesSetFrom(&extended);
    EXPECT_EQ(std::pair(names(same), same.getPropertyInt("a", 0)), std::pair(QStringList({ "a", "b" }), 100));
}

TEST(PropertiedObject, CopyOperationsMoveValuesOrClones)
{
    KRC_PropertiedObject source;
    source.addPropertyFromRange("r", 3, 0, 9, "L", "S", false, false);
    source.addProperty("s", QString("x"));

    KRC_PropertiedObject target;
    target.addProperty("r", QString("old"));
    target.propertyCopyFrom(&source, "r", "");
    EXPECT_EQ(target.getProperty("r")->value(), QVariant(QString("3"))); // the target keeps its type
    target.propertyCopyFrom(&source, "r", "copy");
    EXPECT_TRUE(target.getProperty("copy")->propertyType() == 0 && !target.getProperty("copy")->definition());
    target.propertyCopyFrom(&source, "missing", "");
    target.propertiesCopyFrom(&source, false);
    EXPECT_EQ(names(target), QStringList({ "r", "copy" }));
    target.propertiesCopyFrom(&source, true);
    EXPECT_EQ(names(target), QStringList({ "r", "copy", "s" }));

    target.propertiesSetFrom(&source);
    EXPECT_EQ(names(target), QStringList({ "r", "s" }));
    EXPECT_TRUE(target.getProperty("r")->propertyType() == 2
        && target.getProperty("r")->definition() == source.getProperty("r")->definition()
        && target.getProperty("r") != source.getProperty("r"));

    KRC_PropertiedObject copy(source);
    copy.setProperty("s", QString("changed"));
    EXPECT_EQ(source.getPropertyString("s", ""), QString("x"));
    copy = target;
    EXPECT_TRUE(copy.propertiesCompare(&target));
}

TEST(PropertiedObject, XmlStoresOwnedPropertiesAndLoadsOnlyKnownOnes)
{
    Extended object;
    object.addProperty("n", 1);
    object.addProperty("s", QString("x"));
    QDomDocument document;
    QDomElement root = document.createElement("root");
    ASSERT_TRUE(object.store(document, root));
    QDomElement element = root.firstChildElement("properties");
    EXPECT_EQ(element.childNodes().count(), 2); // not the subclass's own property

    element.firstChildElement("n").setAttribute("value", "7");
    element.insertBefore(document.createElement("unknown"), element.firstChild());
    element.appendChild(document.createTextNode("text"));
    KRC_PropertiedObject reloaded;
    reloaded.addProperty("n", 0);
    reloaded.addProperty("s", QString());
    ASSERT_TRUE(reloaded.load(element));
    EXPECT_EQ(std::tuple(reloaded.getPropertyInt("n", 0), reloaded.getPropertyString("s", ""),
                  reloaded.propertiesCount()),
        std::tuple(7, QString("x"), size_t(2)));

    KRC_PropertiedObject failing;
    failing.addProperty("n", 0);
    failing.addProperty(new KRC_Property("s")); // holds no value, so its text can't be set
    element.firstChildElement("n").setAttribute("value", "8");
    QtWarningCapture capture;
    EXPECT_FALSE(failing.load(element));
    EXPECT_EQ(failing.getPropertyInt("n", 0), 8);
    QDomElement wrong = document.createElement("other");
    EXPECT_FALSE(failing.load(wrong));
}

} // namespace
