// The name between two neighbours: getBaseName(prev, next, type, minLength).
#include "naming/KRC_NameHelper.h"
#include "naming/KRC_ObjectName.h"

#include <gtest/gtest.h>

#include <optional>

namespace {

struct Neighbour
{
    const char* value;
    bool custom;
};

std::optional<KRC_ObjectName> makeName(const std::optional<Neighbour>& n)
{
    if (!n)
        return std::nullopt;
    KRC_ObjectName name;
    name.setValue(QString::fromLatin1(n->value));
    name.setFlag(n->custom ? KRC_ObjectName::kCustom : 0);
    return name;
}

const KRC_ObjectName* ptr(const std::optional<KRC_ObjectName>& n)
{
    return n ? &*n : nullptr;
}

struct BetweenRow
{
    std::optional<Neighbour> prev;
    std::optional<Neighbour> next;
    int type;
    int minLength;
    const char* expected; // null: a null string
};

void PrintTo(const BetweenRow& r, std::ostream* os)
{
    *os << (r.prev ? r.prev->value : "none") << " / " << (r.next ? r.next->value : "none") << " rule "
        << r.type << " width " << r.minLength;
}

class BaseNameBetween : public ::testing::TestWithParam<BetweenRow>
{
};

TEST_P(BaseNameBetween, Proposes)
{
    const BetweenRow& r = GetParam();
    const auto prev = makeName(r.prev);
    const auto next = makeName(r.next);
    const QString result = KRC_NameHelper::getBaseName(ptr(prev), ptr(next), r.type, r.minLength);
    if (!r.expected) {
        EXPECT_TRUE(result.isNull()) << qPrintable(result);
        return;
    }
    EXPECT_EQ(result, QLatin1String(r.expected));
}

const Neighbour custom(const char* v)
{
    return Neighbour { v, true };
}
const Neighbour automatic(const char* v)
{
    return Neighbour { v, false };
}

INSTANTIATE_TEST_SUITE_P(Rows, BaseNameBetween,
    ::testing::Values(BetweenRow { std::nullopt, std::nullopt, 0, 0, nullptr },
        BetweenRow { automatic("2"), automatic("3"), 0, 0, nullptr },
        BetweenRow { automatic("2"), std::nullopt, 0, 0, nullptr },
        BetweenRow { custom("2"), custom("3"), 0, 0, "2" },
        BetweenRow { custom("2"), custom("5"), 0, 0, "3" },
        // One custom neighbour is enough; the other's value is used as it stands.
        BetweenRow { custom("2"), automatic("5"), 0, 0, "3" },
        BetweenRow { automatic("2"), custom("3"), 0, 0, "2" },
        BetweenRow { custom("002"), std::nullopt, 0, 3, "003" },
        BetweenRow { custom("9"), std::nullopt, 0, 3, "010" },
        BetweenRow { std::nullopt, custom("5"), 0, 0, "4" },
        BetweenRow { std::nullopt, custom("A"), 1, 0, "A_0" },
        BetweenRow { custom("A"), custom("C"), 1, 0, "B" },
        BetweenRow { custom("A"), custom("B"), 1, 0, "A" },
        BetweenRow { custom("SC_9"), custom("SC_10"), 0, 0, "SC_9" },
        BetweenRow { custom("SC_9"), custom("SC_12"), 0, 0, "SC_10" },
        // The colliding name comes back unpadded.
        BetweenRow { custom("5"), custom("006"), 0, 3, "5" }));

} // namespace
