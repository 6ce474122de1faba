// Reference counting, strong and weak pointers of the base library.
#include "host/base/HostBase.h"

#include <gtest/gtest.h>

#include <QSet>
#include <QThread>

#include <set>
#include <vector>

namespace {

// Counts its own destructions, so tests see exactly when the last reference goes.
template <class... Bases> struct Counted : Bases...
{
    explicit Counted(int* deaths)
        : deaths(deaths)
    {
    }
    ~Counted() override { ++*deaths; }
    int* deaths;
};
using Tracked = Counted<UT_ShareBase, UT_SharedWeakBase>;
using SafeTracked = Counted<UT_ShareBaseSafe>;
struct TrackedChild : Tracked
{
    using Tracked::Tracked;
};

class BaseSharedPtr : public ::testing::Test
{
protected:
    int deaths = 0;
};
using BaseWeakPtr = BaseSharedPtr;

TEST_F(BaseSharedPtr, LastReferenceDeletesAndCopiesMovesAndRawPointersShareOneCount)
{
    auto* object = new Tracked(&deaths);
    EXPECT_EQ(object->refCount(), 0);
    UT_SharedPtr<Tracked> first(object);
    {
        UT_SharedPtr<Tracked> second = first;
        UT_SharedPtr<Tracked> fromRaw(object); // as a reader returning `this`
        EXPECT_EQ(object->refCount(), 3);
    }
    EXPECT_EQ(deaths, 0);
    first = nullptr;
    EXPECT_EQ(deaths, 1);

    // Assignment, move and self-assignment keep counts right.
    UT_SharedPtr<Tracked> a(new Tracked(&deaths));
    UT_SharedPtr<Tracked> const& alias = a;
    a = alias;
    a = a.get();
    EXPECT_EQ(a->refCount(), 1);
    UT_SharedPtr<Tracked> moved(std::move(a));
    EXPECT_TRUE(a.isNull());
    UT_SharedPtr<Tracked> other(new Tracked(&deaths));
    other = std::move(moved);
    EXPECT_EQ(std::pair(deaths, other->refCount()), std::pair(2, 1));
    other.reset();
    EXPECT_EQ(deaths, 3);
}

TEST_F(BaseSharedPtr, CopyOfObjectHasItsOwnCountAndIsANewWeakTarget)
{
    UT_SharedPtr<Tracked> original(new Tracked(&deaths));
    UT_SharedWeakPtr<Tracked> toOriginal(original);
    {
        Tracked copy(*original);
        EXPECT_EQ(copy.refCount(), 0);
        copy = *original;
        EXPECT_EQ(original->refCount(), 1);
        UT_SharedWeakPtr<Tracked> toCopy(&copy);
        EXPECT_NE(toCopy, toOriginal);
        EXPECT_EQ(toCopy.get(), &copy);
    }
    EXPECT_EQ(toOriginal.get(), original.get());
}

TEST_F(BaseSharedPtr, CastsShareTheCountAndComparisonIsByAddress)
{
    UT_SharedPtr<TrackedChild> child(new TrackedChild(&deaths));
    UT_SharedPtr<Tracked> base = child;
    EXPECT_EQ(child->refCount(), 2);
    EXPECT_TRUE(UT_dynamicPointerCast<TrackedChild>(base) == child
        && UT_staticPointerCast<TrackedChild>(base) == child);
    UT_SharedPtr<Tracked> plain(new Tracked(&deaths));
    EXPECT_TRUE(UT_dynamicPointerCast<TrackedChild>(plain).isNull());

    EXPECT_NE(base, plain);
    EXPECT_EQ(base < plain, std::less<Tracked*>()(base.get(), plain.get()));
    EXPECT_TRUE(plain == plain.get() && UT_SharedPtr<Tracked>() == nullptr && !UT_SharedPtr<Tracked>());
    EXPECT_EQ((QSet<UT_SharedPtr<Tracked>> { base, plain, base }).size(), 2);
}

TEST_F(BaseSharedPtr, SafeCountSurvivesConcurrentUse)
{
    UT_SharedPtr<SafeTracked> shared(new SafeTracked(&deaths));
    std::vector<QThread*> threads;
    for (int t = 0; t < 4; ++t) {
        threads.push_back(QThread::create([shared] {
            for (int i = 0; i < 20000; ++i)
                UT_SharedPtr<SafeTracked> local = shared;
        }));
        threads.back()->start();
    }
    for (QThread* thread : threads) {
        thread->wait();
        delete thread;
    }
    EXPECT_EQ(shared->refCount(), 1);
    shared.reset();
    EXPECT_EQ(deaths, 1);
}

TEST_F(BaseWeakPtr, DoesNotKeepTheTargetAliveAndReadsNullOnceItIsGone)
{
    UT_SharedPtr<Tracked> strong(new Tracked(&deaths));
    UT_SharedWeakPtr<Tracked> weak(strong);
    UT_SharedWeakPtr<Tracked> copy = weak;
    EXPECT_TRUE(strong->refCount() == 1 && weak.lock() == strong && !weak.expired());

    strong.reset();
    EXPECT_EQ(deaths, 1);
    EXPECT_TRUE(copy.isNull() && weak.expired() && weak.lock().isNull() && weak == nullptr);
}

TEST_F(BaseWeakPtr, OrderInASetStaysStableAfterTargetsDie)
{
    std::vector<UT_SharedPtr<Tracked>> owners;
    std::set<UT_SharedWeakPtr<Tracked>> set;
    for (int i = 0; i < 8; ++i) {
        owners.emplace_back(new Tracked(&deaths));
        set.insert(UT_SharedWeakPtr<Tracked>(owners.back()));
    }
    auto addresses = [&set] {
        std::vector<void const*> result;
        for (auto const& weak : set)
            result.push_back(weak.recordedAddress());
        return result;
    };
    std::vector<void const*> const before = addresses();
    for (size_t i = 0; i < owners.size(); i += 2)
        owners[i].reset();
    EXPECT_EQ(addresses(), before);
    EXPECT_EQ(std::count_if(set.begin(), set.end(), [](auto const& weak) { return weak.get(); }), 4);
    // A dead entry is still found (and erased) by its key.
    UT_SharedWeakPtr<Tracked> const firstDead = *set.begin();
    EXPECT_EQ(set.count(firstDead), 1u);
}

TEST_F(BaseWeakPtr, ConvertsFromDerivedAndThroughTheUntypedBase)
{
    UT_SharedPtr<TrackedChild> child(new TrackedChild(&deaths));
    UT_SharedWeakPtr<TrackedChild> weakChild(child);
    UT_SharedWeakPtr<Tracked> weakBase = weakChild;
    UT_SharedWeakPtrBase untyped;
    untyped.assign(child.get());
    EXPECT_EQ(untyped.base(), static_cast<UT_SharedWeakBase*>(child.get()));
    child.reset();
    EXPECT_TRUE(weakBase.isNull() && !untyped.base() && weakBase == weakChild);
}

// A target whose tracker lives in memory of its own gives it back there, once the
// target and its last weak pointer are both gone; its copies' trackers do not.
int g_trackersOut = 0;
struct ArenaTracked : UT_SharedWeakBase
{
    static void* allocate(std::size_t size) { return ++g_trackersOut, ::operator new(size); }
    static void release(void* memory) noexcept { --g_trackersOut, ::operator delete(memory); }
    ArenaTracked()
        : UT_SharedWeakBase(TrackerMemory { &allocate, &release })
    {
    }
    ArenaTracked(ArenaTracked const& other) = default;
};

TEST(BaseWeakTracker, MadeInItsOwnMemoryIsReleasedThereAfterTheLastWeakPointer)
{
    auto* target = new ArenaTracked;
    UT_SharedWeakPtrBase weak(target);
    ArenaTracked* copy = new ArenaTracked(*target);
    EXPECT_EQ(g_trackersOut, 1);
    delete target;
    delete copy;
    EXPECT_TRUE(weak.expired());
    EXPECT_EQ(g_trackersOut, 1);
    weak.assign(nullptr);
    EXPECT_EQ(g_trackersOut, 0);
}

} // namespace
