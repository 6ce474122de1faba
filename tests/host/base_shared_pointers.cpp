// Reference counting, strong and weak pointers of the base library.
#include "host/base/HostBase.h"

#include <gtest/gtest.h>

#include <QSet>
#include <QThread>

#include <set>
#include <vector>

namespace {

// Counts its own destructions, so tests see exactly when the last reference goes.
struct Tracked : UT_ShareBase, UT_SharedWeakBase
{
    explicit Tracked(int* deaths)
        : deaths(deaths)
    {
    }
    ~Tracked() override { ++*deaths; }
    int* deaths;
};

struct TrackedChild : Tracked
{
    using Tracked::Tracked;
};

struct SafeTracked : UT_ShareBaseSafe
{
    explicit SafeTracked(int* deaths)
        : deaths(deaths)
    {
    }
    ~SafeTracked() override { ++*deaths; }
    int* deaths;
};

TEST(BaseSharedPtr, CountStartsAtZeroAndLastReferenceDeletes)
{
    int deaths = 0;
    auto* object = new Tracked(&deaths);
    EXPECT_EQ(object->refCount(), 0);
    {
        UT_SharedPtr<Tracked> first(object);
        EXPECT_EQ(object->refCount(), 1);
        UT_SharedPtr<Tracked> second = first;
        EXPECT_EQ(object->refCount(), 2);
        first.reset();
        EXPECT_EQ(object->refCount(), 1);
        EXPECT_EQ(deaths, 0);
    }
    EXPECT_EQ(deaths, 1);
}

TEST(BaseSharedPtr, PointersMadeFromTheRawObjectShareOneCount)
{
    int deaths = 0;
    auto* object = new Tracked(&deaths);
    UT_SharedPtr<Tracked> a(object);
    {
        UT_SharedPtr<Tracked> b(object); // as a reader returning `this`
        EXPECT_EQ(object->refCount(), 2);
    }
    EXPECT_EQ(deaths, 0);
    a = nullptr;
    EXPECT_EQ(deaths, 1);
}

TEST(BaseSharedPtr, CopyOfObjectHasItsOwnCount)
{
    int deaths = 0;
    UT_SharedPtr<Tracked> original(new Tracked(&deaths));
    Tracked copy(*original);
    EXPECT_EQ(copy.refCount(), 0);
    copy = *original;
    EXPECT_EQ(original->refCount(), 1);
}

TEST(BaseSharedPtr, AssignmentMoveAndSelfAssignmentKeepCountsRight)
{
    int deaths = 0;
    UT_SharedPtr<Tracked> a(new Tracked(&deaths));
    UT_SharedPtr<Tracked> const& alias = a;
    a = alias;
    EXPECT_EQ(a->refCount(), 1);
    a = a.get();
    EXPECT_EQ(a->refCount(), 1);

    UT_SharedPtr<Tracked> moved(std::move(a));
    EXPECT_TRUE(a.isNull());
    EXPECT_EQ(moved->refCount(), 1);

    UT_SharedPtr<Tracked> other(new Tracked(&deaths));
    other = std::move(moved);
    EXPECT_EQ(deaths, 1);
    EXPECT_EQ(other->refCount(), 1);
    other.reset();
    EXPECT_EQ(deaths, 2);
}

TEST(BaseSharedPtr, ConversionsAndCastsShareTheCount)
{
    int deaths = 0;
    UT_SharedPtr<TrackedChild> child(new TrackedChild(&deaths));
    UT_SharedPtr<Tracked> base = child;
    EXPECT_EQ(child->refCount(), 2);
    EXPECT_TRUE(base == child);
    EXPECT_EQ(UT_dynamicPointerCast<TrackedChild>(base), child);
    EXPECT_EQ(UT_staticPointerCast<TrackedChild>(base), child);

    UT_SharedPtr<Tracked> plain(new Tracked(&deaths));
    EXPECT_TRUE(UT_dynamicPointerCast<TrackedChild>(plain).isNull());
}

TEST(BaseSharedPtr, ComparesAndHashesByAddress)
{
    int deaths = 0;
    UT_SharedPtr<Tracked> a(new Tracked(&deaths));
    UT_SharedPtr<Tracked> b(new Tracked(&deaths));
    EXPECT_NE(a, b);
    EXPECT_EQ(a < b, std::less<Tracked*>()(a.get(), b.get()));
    EXPECT_TRUE(a == a.get());
    EXPECT_TRUE(UT_SharedPtr<Tracked>() == nullptr);
    EXPECT_FALSE(UT_SharedPtr<Tracked>());

    QSet<UT_SharedPtr<Tracked>> set { a, b, a };
    EXPECT_EQ(set.size(), 2);
}

TEST(BaseSharedPtr, SafeCountSurvivesConcurrentUse)
{
    int deaths = 0;
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

TEST(BaseWeakPtr, ReadsNullOnceTheTargetIsGone)
{
    int deaths = 0;
    UT_SharedPtr<Tracked> strong(new Tracked(&deaths));
    UT_SharedWeakPtr<Tracked> weak(strong);
    UT_SharedWeakPtr<Tracked> copy = weak;
    EXPECT_EQ(weak.get(), strong.get());
    EXPECT_EQ(weak.lock(), strong);
    EXPECT_FALSE(weak.expired());

    strong.reset();
    EXPECT_EQ(deaths, 1);
    EXPECT_TRUE(weak.isNull());
    EXPECT_TRUE(copy.isNull());
    EXPECT_TRUE(weak.expired());
    EXPECT_TRUE(weak.lock().isNull());
    EXPECT_TRUE(weak == nullptr);
}

TEST(BaseWeakPtr, WeakPointersDoNotKeepTheTargetAlive)
{
    int deaths = 0;
    UT_SharedWeakPtr<Tracked> weak;
    {
        UT_SharedPtr<Tracked> strong(new Tracked(&deaths));
        weak = strong;
        EXPECT_EQ(strong->refCount(), 1);
    }
    EXPECT_EQ(deaths, 1);
    EXPECT_TRUE(weak.isNull());
}

TEST(BaseWeakPtr, OrderInASetStaysStableAfterTargetsDie)
{
    int deaths = 0;
    std::vector<UT_SharedPtr<Tracked>> owners;
    std::set<UT_SharedWeakPtr<Tracked>> set;
    for (int i = 0; i < 8; ++i) {
        owners.emplace_back(new Tracked(&deaths));
        set.insert(UT_SharedWeakPtr<Tracked>(owners.back()));
    }
    std::vector<void const*> before;
    for (auto const& weak : set)
        before.push_back(weak.recordedAddress());

    for (size_t i = 0; i < owners.size(); i += 2)
        owners[i].reset();

    std::vector<void const*> after;
    for (auto const& weak : set)
        after.push_back(weak.recordedAddress());
    EXPECT_EQ(before, after);
    int live = 0;
    for (auto const& weak : set)
        live += weak.get() ? 1 : 0;
    EXPECT_EQ(live, 4);
    // A dead entry is still found (and erased) by its key.
    UT_SharedWeakPtr<Tracked> const firstDead = *set.begin();
    EXPECT_EQ(set.count(firstDead), 1u);
}

TEST(BaseWeakPtr, CopiedObjectIsANewTarget)
{
    int deaths = 0;
    UT_SharedPtr<Tracked> original(new Tracked(&deaths));
    UT_SharedWeakPtr<Tracked> toOriginal(original);
    {
        Tracked copy(*original);
        UT_SharedWeakPtr<Tracked> toCopy(&copy);
        EXPECT_NE(toCopy, toOriginal);
        EXPECT_EQ(toCopy.get(), &copy);
    }
    EXPECT_EQ(toOriginal.get(), original.get());
}

TEST(BaseWeakPtr, ConvertsFromDerivedAndThroughTheUntypedBase)
{
    int deaths = 0;
    UT_SharedPtr<TrackedChild> child(new TrackedChild(&deaths));
    UT_SharedWeakPtr<TrackedChild> weakChild(child);
    UT_SharedWeakPtr<Tracked> weakBase = weakChild;
    EXPECT_EQ(weakBase, weakChild);
    UT_SharedWeakPtrBase untyped;
    untyped.assign(child.get());
    EXPECT_EQ(untyped.base(), static_cast<UT_SharedWeakBase*>(child.get()));
    child.reset();
    EXPECT_TRUE(weakBase.isNull());
    EXPECT_EQ(untyped.base(), nullptr);
    EXPECT_EQ(weakBase, weakChild);
}

} // namespace
