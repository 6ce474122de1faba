// The scene context's project name and folder.
#include "host/context/HostContext.h"

#include <gtest/gtest.h>

namespace {

TEST(ContextDbSceneData, HoldsNameAndFolderAndCopiesAreIndependent)
{
    TUDbSceneData data;
    EXPECT_TRUE(data.sceneName().isNull());
    EXPECT_TRUE(data.projectDir().isNull());
    data.setSceneName(QStringLiteral("Episode 1"));
    data.setProjectDir(QStringLiteral("/projects/ep1"));

    TUDbSceneData copy(data);
    copy.setSceneName(QStringLiteral("Episode 2"));
    EXPECT_EQ(data.sceneName(), QStringLiteral("Episode 1"));
    EXPECT_EQ(copy.projectDir(), QStringLiteral("/projects/ep1"));
    data = copy;
    EXPECT_EQ(data.sceneName(), QStringLiteral("Episode 2"));
}

} // namespace
