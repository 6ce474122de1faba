#include "metadata/KRC_MetadataFactory.h"
#include "metadata/KRC_PanelInfo.h"
#include "metadata/KRC_PdfOptions.h"
#include "metadata/KRC_ReferenceToolData.h"
#include "metadata/KRC_SceneInfo.h"
#include "naming/KRC_NamingRules.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

struct DispatchCase
{
    char const* keyword;
    bool (*isExpectedClass)(PIO_Metadata const*);
};

template <class Record> bool is(PIO_Metadata const* meta)
{
    return dynamic_cast<Record const*>(meta) != nullptr;
}

// One row per registered record class; a class joins the table when it joins the factory.
DispatchCase const dispatchCases[] = {
    { "sceneInfo", &is<KRC_SceneInfo> },
    { "panelInfo", &is<KRC_PanelInfo> },
    { "namingRules", &is<KRC_NamingRules> },
    { "pdfOptions", &is<KRC_PdfOptions> },
    { "referenceToolData", &is<KRC_ReferenceToolData> },
};

class FactoryDispatch : public testing::TestWithParam<DispatchCase>
{
};

TEST_P(FactoryDispatch, BuildsTheClassByTheFactoryRoute)
{
    const DispatchCase c = GetParam();
    const QString keyword = QString::fromLatin1(c.keyword);
    std::unique_ptr<PIO_Metadata> meta(KRC_MetadataFactory::createInstance()->createMeta(
        keyword, QStringLiteral("entry"), QStringLiteral("another program"), QStringLiteral("0.1")));
    ASSERT_TRUE(meta);
    EXPECT_TRUE(c.isExpectedClass(meta.get()));
    EXPECT_EQ(keyword, meta->metaType());
    EXPECT_EQ(QStringLiteral("entry"), meta->metaName());
    // What the project states is kept: an older version is never replaced by the class's.
    EXPECT_EQ(QStringLiteral("another program"), meta->creator());
    EXPECT_EQ(QStringLiteral("0.1"), meta->version());

    std::unique_ptr<PIO_Metadata> bare(
        KRC_MetadataFactory::createInstance()->createMeta(keyword, QString(), QString(), QString()));
    ASSERT_TRUE(bare);
    EXPECT_TRUE(bare->metaName().isNull() && bare->creator().isNull() && bare->version().isNull());
}

INSTANTIATE_TEST_SUITE_P(Keywords, FactoryDispatch, testing::ValuesIn(dispatchCases));

TEST(Factory, UnknownKeywordsGoToTheBaseFactory)
{
    KRC_MetadataFactory* factory = KRC_MetadataFactory::createInstance();

    std::unique_ptr<PIO_Metadata> generic(factory->createMeta(
        PIO_MetadataInt::kKeyword, QStringLiteral("projectStartTime"), QString(), QString()));
    ASSERT_TRUE(generic);
    EXPECT_TRUE(dynamic_cast<PIO_MetadataInt*>(generic.get()));
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
    EXPECT_EQ(factory, PIO_MetadataFactory::registered());
    EXPECT_EQ(factory, PIO_MetadataFactory::instance());
}

} // namespace
