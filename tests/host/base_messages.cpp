// Message scopes of the base library.
#include "host/base/HostBase.h"
#include "support/MessageCapture.h"

#include <gtest/gtest.h>

namespace {

TEST(BaseMessage, DeliveredOnceWhenTheScopeEndsUnlessDiscarded)
{
    MessageCapture capture;
    {
        MSG_Scope msg("Frame %1 of %2", QStringLiteral("Image %1 de %2"), MSG_Scope::Log);
        msg.arg(12u).arg(QStringLiteral("Shot A"));
        EXPECT_EQ(capture.count(), 0);
    }
    ASSERT_EQ(capture.count(), 1);
    MSG_Message const& message = capture.messages().first();
    EXPECT_EQ(std::tuple(message.untranslated, message.translated, message.action),
        std::tuple(QStringLiteral("Frame 12 of Shot A"), QStringLiteral("Image 12 de Shot A"), 5));
    {
        MSG_Scope quiet("quiet", QStringLiteral("quiet"), MSG_Scope::Warning);
        quiet.discard();
    }
    EXPECT_EQ(capture.count(), 1);
}

TEST(BaseMessage, ArgsFillMarkersInNumberOrder)
{
    struct
    {
        char const* format;
        QStringList values;
        char const* expected;
    } const cases[] = { { "%1 and %2", { "a", "b" }, "a and b" },
        { "%2 before %1", { "a", "b" }, "b before a" }, { "%1 twice %1", { "x" }, "x twice x" },
        { "%1 then %2", { "%2", "b" }, "%2 then b" }, // values are never re-scanned
        { "%1 and %2", { "a" }, "a and %2" }, // missing value keeps the marker
        { "%3 skips", { "a" }, "a skips" }, // lowest marker present comes first
        { "%10 %9", { "a", "b" }, "b a" }, { "100% of %1", { "it" }, "100% of it" },
        { "%0 %1", { "a" }, "%0 a" } };
    for (auto const& c : cases) {
        MSG_Text text(c.format, QString::fromUtf8(c.format));
        for (QString const& value : c.values)
            text.arg(value);
        EXPECT_EQ(text.translated(), QString::fromUtf8(c.expected)) << c.format;
    }
    MSG_Text text("%1|%2|%3", QStringLiteral("%1|%2|%3"));
    text.arg(255u, 0, 16).arg(7u, 3).arg(QStringLiteral("ab"), -4);
    EXPECT_EQ(text.translated(), QStringLiteral("ff|  7|ab  ")) << "numbers take width and base";
}

TEST(BaseMessage, NestedScopesDeliverInnerFirstAndCapturesNest)
{
    MessageCapture outer;
    {
        MSG_Scope first("outer", QStringLiteral("outer"), MSG_Scope::Information);
        {
            MessageCapture inner;
            {
                MSG_Scope second("inner", QStringLiteral("inner"), MSG_Scope::Error);
            }
            EXPECT_EQ(inner.texts(), QStringList { QStringLiteral("inner") });
        }
    }
    EXPECT_EQ(outer.texts(), QStringList { QStringLiteral("outer") });
}

TEST(BaseMessage, ThrowingSinkDoesNotEscapeTheDestructor)
{
    MSG_Scope::Sink previous = MSG_Scope::setSink([](MSG_Message const&) { throw 1; });
    EXPECT_NO_THROW({ MSG_Scope msg("x", QStringLiteral("x"), MSG_Scope::Log); });
    MSG_Scope::setSink(previous);
}

} // namespace
