#include "metadata/KRC_MetadataFactory.h"
#include "metadata/KRC_PanelInfo.h"
#include "metadata/KRC_PdfOptions.h"
#include "metadata/KRC_ReferenceToolData.h"
#include "metadata/KRC_SceneInfo.h"
#include "naming/KRC_NamingRules.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

template <class Record> bool is(PIO_Metadata const* meta)
{
    return dynamic_cast<Record const*>(meta) != nullptr;
}

TEST(Factory, BuildsEachRecordClassByTheFactoryRoute)
{
    // One row per registered record class; a class joins the table when it joins the factory.
    const std::pair<char const*, bool (*)(PIO_Metadata const*)> cases[]
        = { { "sceneInfo", &is<KRC_SceneInfo> }, { "panelInfo", &is<KRC_PanelInfo> },
              { "namingRules", &is<KRC_NamingRules> }, { "pdfOptions", &is<KRC_PdfOptions> },
              { "referenceToolData", &is<KRC_ReferenceToolData> } };
    KRC_MetadataFactory* factory = KRC_MetadataFactory::createInstance();
    for (auto const& [name, isExpectedClass] : cases) {
        const QString keyword = QString::fromLatin1(name);
        std::unique_ptr<PIO_Metadata> meta(factory->createMeta(
            keyword, QStringLiteral("entry"), QStringLiteral("another program"), QStringLiteral("0.1")));
        ASSERT_TRUE(meta) << name;
        EXPECT_TRUE(isExpectedClass(meta.get())) << name;
        EXPECT_EQ(keyword, meta->metaType());
        // What the project states is kept: an older version is never replaced by the class's.
        EXPECT_EQ(QStringLiteral("entry/another program/0.1"),
            QStringList({ meta->metaName(), meta->creator(), meta->version() }).join('/'));
        std::unique_ptr<PIO_Metadata> bare(factory->createMeta(keyword, QString(), QString(), QString()));
        ASSERT_TRUE(bare) << name;
        EXPECT_TRUE(bare->metaName().isNull() && bare->creator().isNull() && bare->version().isNull())
            << name;
    }
}

TEST(Factory, UnknownKeywordsGoToTheBaseFactory)
{
    KRC_MetadataFactory* factory = KRC_MetadataFactory::createInstance();

    std::unique_ptr<PIO_Metadata> generic(factory->createMeta(
        PIO_MetadataInt::kKeyword, QStringLiteral("projectStartTime"), QString(), QString()));
    ASSERT_TRUE(dynamic_cast<PIO_MetadataInt*>(generic.get()));
    EXPECT_EQ(QStringLiteral("projectStartTime"), generic->metaName());

    // Comparison is exact: neither case nor surrounding blanks are forgiven.
    for (char const* keyword : { "SceneInfo", "sceneinfo", " sceneInfo", "panelInfo ", "", "nonsense" })
        EXPECT_EQ(nullptr, factory->createMeta(QString::fromLatin1(keyword), QString(), QString(), QString()))
            << keyword;
}

TEST(Factory, OneInstanceRegisteredWithThePersistence)
{
    KRC_MetadataFactory* factory = KRC_MetadataFactory::createInstance();
    EXPECT_EQ(factory, KRC_MetadataFactory::createInstance());
    EXPECT_TRUE(factory == PIO_MetadataFactory::registered() && factory == PIO_MetadataFactory::instance());
}

} // namespace
