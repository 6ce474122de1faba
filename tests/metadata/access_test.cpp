#include "host/base/HostBase.h"
#include "metadata/KRC_PanelInfo.h"
#include "metadata/KRC_SceneInfo.h"
#include "metadata/PIO_MetadataAccess.h"

#include <gtest/gtest.h>

namespace {

int countOf(PIO_Metadatas& metas, QString const& type)
{
    int count = 0;
    for (PIO_Metadata* meta : metas)
        count += meta->metaType() == type ? 1 : 0;
    return count;
}

TEST(MetadataAccess, CreatesAMissingRecordOnceByTheFirstRouteAndNothingWithoutACollection)
{
    PIO_MetadataAccess<KRC_SceneInfo> overNull(nullptr, QStringLiteral("named"));
    EXPECT_TRUE(!overNull && !overNull.metadatas());

    PIO_Metadatas metas;
    PIO_MetadataAccess<KRC_SceneInfo> first(&metas);
    ASSERT_NE(nullptr, first.get());
    EXPECT_TRUE(first->metaName().isNull() && first.get() == PIO_MetadataAccess<KRC_SceneInfo>(&metas).get());
    EXPECT_EQ(
        std::pair(first->version(), metas.size()), std::pair(QString(KRC_SceneInfo::kPIO_KRMETA_Version), 1));
}

TEST(MetadataAccess, NullNameTakesTheFirstRecordOfTheTypeOrSubclass)
{
    PIO_Metadatas metas;
    metas.add(new PIO_MetadataString(QStringLiteral("projectTitle")));
    auto* panel = new KRC_PanelInfo(QStringLiteral("p"));
    auto* named = new KRC_SceneInfo(QStringLiteral("first"));
    metas.add(panel);
    metas.add(named);
    metas.add(new KRC_SceneInfo(QStringLiteral("second")));

    EXPECT_TRUE(PIO_MetadataAccess<KRC_SceneInfo>(&metas).get() == named && metas.size() == 4);
    EXPECT_TRUE(PIO_MetadataAccess<KRC_ObjInfo>::find(&metas, QString()) == panel
        && PIO_MetadataAccess<KRC_ObjInfo>::find(&metas, QStringLiteral("p")) == panel
        && !PIO_MetadataAccess<KRC_ObjInfo>::find(&metas, QStringLiteral("q")));
}

TEST(MetadataAccess, NamedLookupMatchesOnlyThatNameAndCreatesANewOne)
{
    PIO_Metadatas metas;
    auto* anonymous = new PIO_MetadataString();
    metas.add(anonymous);

    PIO_MetadataAccess<PIO_MetadataString> title(&metas, QStringLiteral("projectTitle"));
    ASSERT_NE(nullptr, title.get());
    EXPECT_NE(anonymous, title.get());
    EXPECT_EQ(QStringLiteral("projectTitle"), title->metaName());
    PIO_MetadataAccess<PIO_MetadataString> subTitle(&metas, QStringLiteral("projectSubTitle"));
    EXPECT_NE(title.get(), subTitle.get());
    EXPECT_EQ(
        title.get(), PIO_MetadataAccess<PIO_MetadataString>(&metas, QStringLiteral("projectTitle")).get());
    EXPECT_EQ(3, countOf(metas, PIO_MetadataString::kKeyword));
    // A null name now finds the oldest string record, whatever its name.
    EXPECT_EQ(anonymous, PIO_MetadataAccess<PIO_MetadataString>(&metas).get());
}

TEST(MetadataAccess, LaterReadsLookAgainWithoutCreating)
{
    PIO_Metadatas metas;
    auto access = PIO_MetadataAccess<KRC_PanelInfo>::lookupOnly(&metas);
    EXPECT_TRUE(!access.get() && metas.isEmpty());
    auto* added = new KRC_PanelInfo();
    metas.add(added);
    EXPECT_EQ(added, access.get());
    // Once found, the record stays cached for the copies made afterwards too.
    PIO_MetadataAccess<KRC_PanelInfo> copy = access;
    EXPECT_EQ(added, copy.get());
}

TEST(MetadataAccess, LookupsFollowRecordsTakenAndCleared)
{
    PIO_Metadatas metas;
    auto* panel = new KRC_PanelInfo();
    auto* scene = new KRC_SceneInfo();
    metas.add(new PIO_MetadataString());
    metas.add(panel);
    metas.add(scene);
    ASSERT_TRUE(metas.take(panel));
    delete panel;
    EXPECT_TRUE(!PIO_MetadataAccess<KRC_PanelInfo>::find(&metas, QString())
        && PIO_MetadataAccess<KRC_ObjInfo>::find(&metas, QString()) == scene);
    metas.clear();
    metas.add(panel = new KRC_PanelInfo());
    EXPECT_EQ(panel, PIO_MetadataAccess<KRC_ObjInfo>::find(&metas, QString()));
}

} // namespace
