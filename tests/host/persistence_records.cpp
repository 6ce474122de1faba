// Generic records, the factory and the record collection.
#include "host/base/HostBase.h"
#include "host/persistence/HostPersistence.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

TEST(PersistenceGeneric, FreshRecordsHoldNoValueUntilSetEvenToTheDefault)
{
    PIO_MetadataString text(QStringLiteral("projectTitle"));
    PIO_MetadataInt number(QStringLiteral("projectStartTime"));
    PIO_MetadataDouble real(QStringLiteral("filmWidth"));
    PIO_MetadataBool flag(QStringLiteral("sequenceExists"));
    auto const all = { static_cast<PIO_Metadata const*>(&text), static_cast<PIO_Metadata const*>(&number),
        static_cast<PIO_Metadata const*>(&real), static_cast<PIO_Metadata const*>(&flag) };
    for (PIO_Metadata const* meta : all)
        EXPECT_FALSE(meta->isValid()) << qPrintable(meta->metaType());
    EXPECT_TRUE(text.valueString().isNull());
    text.setValue(QString());
    number.setValue(0);
    real.setValue(0.0);
    flag.setValue(false);
    for (PIO_Metadata const* meta : all)
        EXPECT_TRUE(meta->isValid()) << qPrintable(meta->metaType());
}

TEST(PersistenceGeneric, CreatorIsTheProgramNameAndClonesAreIndependent)
{
    whoami::setProgName(QStringLiteral("writer-app"));
    PIO_MetadataInt original(QStringLiteral("n"));
    whoami::setProgName(QString());
    EXPECT_EQ(original.creator(), QStringLiteral("writer-app"));
    EXPECT_EQ(original.version(), PIO_MetadataInt::kVersion);
    EXPECT_TRUE(PIO_MetadataBool().metaName().isNull());

    original.setValue(5);
    std::unique_ptr<PIO_MetadataInt> copy(dynamic_cast<PIO_MetadataInt*>(original.clone()));
    ASSERT_TRUE(copy);
    original.setValue(6);
    EXPECT_EQ(std::tuple(copy->valueInt(), copy->creator(), copy->metaName()),
        std::tuple(5, QStringLiteral("writer-app"), QStringLiteral("n")));
}

TEST(PersistenceGeneric, DumpStartsWithTheIdentityLine)
{
    PIO_MetadataDouble meta(QStringLiteral("w"), QStringLiteral("app"), QStringLiteral("1.0"));
    QString dump = QStringLiteral(">");
    meta.dumpToString(dump);
    EXPECT_EQ(dump, QStringLiteral(">Metadata type=double, name=w, creator=app, version=1.0\nno value\n"));
    meta.setValue(1.4173228346456694);
    dump.clear();
    meta.dumpToString(dump);
    EXPECT_TRUE(dump.endsWith(QStringLiteral("value=1.41732\n"))) << qPrintable(dump);
    PIO_MetadataString text(QStringLiteral("t"));
    text.setValue(QStringLiteral("a b"));
    dump.clear();
    text.dumpToString(dump);
    EXPECT_TRUE(dump.endsWith(QStringLiteral("value=a b\n"))) << qPrintable(dump);
}

class CountingFactory : public PIO_MetadataFactory
{
public:
    PIO_Metadata* createMeta(
        QString const& keyword, QString const& name, QString const& creator, QString const& version) override
    {
        ++calls;
        return PIO_MetadataFactory::createMeta(keyword, name, creator, version);
    }
    int calls = 0;
};

TEST(PersistenceFactory, RegisteredFactoryIsAskedAndUnregistersWhenDestroyed)
{
    {
        CountingFactory factory;
        PIO_MetadataFactory::registerImpl(&factory);
        EXPECT_EQ(PIO_MetadataFactory::instance(), &factory);
        delete PIO_MetadataFactory::instance()->createMeta(QStringLiteral("int"), {}, {}, {});
        EXPECT_EQ(factory.calls, 1);
        EXPECT_TRUE(!factory.createMeta(QStringLiteral("sceneInfo"), {}, {}, {})
            && !factory.createMeta(QStringLiteral("String"), {}, {}, {}));
    }
    EXPECT_TRUE(!PIO_MetadataFactory::registered() && PIO_MetadataFactory::instance());
}

// A record that counts its destructions, to see who owns it.
class CountedRecord : public PIO_MetadataBool
{
public:
    CountedRecord(QString const& name, int* deaths)
        : PIO_MetadataBool(name)
        , deaths(deaths)
    {
    }
    ~CountedRecord() override { ++*deaths; }
    int* deaths;
};

TEST(PersistenceCollection, OwnsItsRecordsOnceInInsertionOrder)
{
    int deaths = 0;
    auto* a = new CountedRecord(QStringLiteral("a"), &deaths);
    auto* b = new CountedRecord(QStringLiteral("b"), &deaths);
    {
        PIO_Metadatas metas;
        metas.add(a);
        metas.add(b);
        metas.add(a);
        metas.add(nullptr);
        ASSERT_EQ(metas.size(), 2);
        EXPECT_TRUE(*metas.begin() == a && *(metas.begin() + 1) == b && metas.contains(b));
        CountedRecord stranger(QStringLiteral("a"), &deaths);
        EXPECT_FALSE(metas.contains(&stranger));
        EXPECT_TRUE(metas.take(a));
        EXPECT_FALSE(metas.take(a));
    }
    EXPECT_EQ(deaths, 2); // b and the stranger; a was taken back
    delete a;
}

TEST(PersistenceCollection, LookupByTypeAndName)
{
    PIO_Metadatas metas;
    auto* nameless = new PIO_MetadataString(QString());
    auto* title = new PIO_MetadataString(QStringLiteral("projectTitle"));
    auto* flag = new PIO_MetadataBool(QStringLiteral("projectTitle"));
    for (PIO_Metadata* meta : std::initializer_list<PIO_Metadata*> { nameless, title, flag })
        metas.add(meta);
    struct Case
    {
        char const* type;
        char const* name; // nullptr: no name
        PIO_Metadata* expected;
    } const cases[] = { { "string", nullptr, nameless },
        { "string", "string", nameless }, // a nameless record answers to its type
        { "string", "projectTitle", title }, { "bool", "projectTitle", flag }, { "bool", "bool", nullptr },
        { "int", nullptr, nullptr }, { "String", nullptr, nullptr } };
    for (Case const& c : cases)
        EXPECT_EQ(metas.metadata(QString::fromUtf8(c.type), QString::fromUtf8(c.name)), c.expected)
            << c.type << '/' << (c.name ? c.name : "-");
}

} // namespace
