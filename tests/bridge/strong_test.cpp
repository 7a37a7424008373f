// Strong: what every operation does to the count of its object, exactly.
#include "bridge/strong.hpp"

#include <gtest/gtest.h>

#include <type_traits>

#include "tests/bridge/counted.hpp"

namespace {

using bridge::adopt;
using bridge::Pool;
using bridge::retained;
using bridge::Strong;
using test::Counted;
using test::CountedChild;
using test::counts;
using test::Counts;
using test::newCounted;

using Owner = Strong<Counted>;

static_assert(sizeof(Owner) == sizeof(id));
static_assert(std::is_nothrow_move_constructible_v<Owner>);
static_assert(!std::is_constructible_v<Owner, id>, "only adopt and retained make one");
static_assert(!std::is_constructible_v<Owner, Counted>, "only adopt and retained make one");
static_assert(!std::is_convertible_v<Owner, Counted>, "a temporary owner lends nothing");
static_assert(std::is_convertible_v<Owner&, Counted>);
static_assert(std::is_convertible_v<Strong<CountedChild>, Owner>);
static_assert(!std::is_convertible_v<Owner, Strong<CountedChild>>, "a parent is not a child");

TEST(Strong, HoldsNothingAtFirst) {
  Owner plain, null = nullptr;
  EXPECT_FALSE(plain);
  EXPECT_FALSE(null);
  EXPECT_EQ(plain.get().raw, nullptr);
}

TEST(Strong, AdoptTakesTheCallersReferenceAndGivesItBackOnce) {
  id object = newCounted();
  {
    Owner owner = adopt<Counted>(object);
    EXPECT_EQ(owner.get().raw, object);
    EXPECT_EQ(counts, Counts{});
    EXPECT_EQ(owner->retainCount(), 1u);
  }
  EXPECT_EQ(counts, (Counts{.releases = 1, .deallocs = 1}));
}

TEST(Strong, RetainedTakesAReferenceOfItsOwn) {
  Counted object = bridge::as<Counted>(newCounted());
  {
    Owner owner = retained(object);
    EXPECT_EQ(counts, (Counts{.retains = 1}));
    EXPECT_EQ(object.retainCount(), 2u);
  }
  EXPECT_EQ(counts, (Counts{.retains = 1, .releases = 1}));
  EXPECT_EQ(object.retainCount(), 1u);
  object.release();
}

TEST(Strong, RetainedOfNilIsEmpty) {
  EXPECT_FALSE(retained(Counted{}));
  EXPECT_FALSE(adopt<Counted>(nullptr));
}

TEST(Strong, ACopyRetains) {
  Owner one = adopt<Counted>(newCounted());
  {
    Owner other = one;
    EXPECT_EQ(counts, (Counts{.retains = 1}));
    EXPECT_EQ(one.get(), other.get());
  }
  EXPECT_EQ(counts, (Counts{.retains = 1, .releases = 1}));
}

TEST(Strong, ACopyOfNothingIsNothing) {
  Owner nothing;
  Owner other = nothing;
  EXPECT_FALSE(other);
}

TEST(Strong, AMoveCountsNothingAndLeavesNothing) {
  Owner one = adopt<Counted>(newCounted());
  id object = one.get().raw;
  Owner other = std::move(one);
  EXPECT_EQ(counts, Counts{});
  EXPECT_EQ(other.get().raw, object);
  EXPECT_FALSE(one);
}

TEST(Strong, CopyAssignmentRetainsTheNewAndReleasesTheOld) {
  Owner one = adopt<Counted>(newCounted()), other = adopt<Counted>(newCounted());
  one = other;
  EXPECT_EQ(counts, (Counts{.retains = 1, .releases = 1, .deallocs = 1}));
  EXPECT_EQ(one.get(), other.get());
  EXPECT_EQ(one->retainCount(), 2u);
}

TEST(Strong, MoveAssignmentOnlyReleasesTheOld) {
  Owner one = adopt<Counted>(newCounted()), other = adopt<Counted>(newCounted());
  id object = other.get().raw;
  one = std::move(other);
  EXPECT_EQ(counts, (Counts{.releases = 1, .deallocs = 1}));
  EXPECT_EQ(one.get().raw, object);
  EXPECT_FALSE(other);
}

TEST(Strong, AssignmentOfNullReleases) {
  Owner owner = adopt<Counted>(newCounted());
  owner = nullptr;
  EXPECT_EQ(counts, (Counts{.releases = 1, .deallocs = 1}));
  EXPECT_FALSE(owner);
}

TEST(Strong, AssignmentToItselfKeepsTheObject) {
  Owner owner = adopt<Counted>(newCounted());
  Owner& same = owner;
  owner = same;
  EXPECT_EQ(counts, (Counts{.retains = 1, .releases = 1}));
  EXPECT_EQ(owner->retainCount(), 1u);
}

TEST(Strong, MoveAssignmentToItselfKeepsTheObject) {
  Owner owner = adopt<Counted>(newCounted());
  Owner& same = owner;
  owner = std::move(same);
  EXPECT_EQ(counts, Counts{});
  ASSERT_TRUE(owner);
  EXPECT_EQ(owner->retainCount(), 1u);
}

Owner* watched = nullptr;
id seen = nullptr;
void look() { seen = watched->get().raw; }

TEST(Strong, AssignsBySwapSoThatADeallocSeesTheNewObject) {
  Owner owner = adopt<Counted>(newCounted()), other = adopt<Counted>(newCounted());
  watched = &owner;
  seen = nullptr;
  test::atDealloc = look;
  owner = other;
  EXPECT_EQ(counts.deallocs, 1);
  EXPECT_EQ(seen, other.get().raw);
}

TEST(Strong, EmptiesBeforeItReleases) {
  Owner owner = adopt<Counted>(newCounted());
  watched = &owner;
  seen = owner.get().raw;
  test::atDealloc = look;
  owner.clear();
  EXPECT_EQ(counts.deallocs, 1);
  EXPECT_EQ(seen, nullptr);
}

void clearAgain() { watched->clear(); }

TEST(Strong, ClearedAgainByTheDeallocReleasesOnce) {
  Owner owner = adopt<Counted>(newCounted());
  watched = &owner;
  test::atDealloc = clearAgain;
  owner.clear();
  EXPECT_EQ(counts, (Counts{.releases = 1, .deallocs = 1}));
}

TEST(Strong, ClearedTwiceReleasesOnce) {
  Owner owner = adopt<Counted>(newCounted());
  owner.clear();
  owner.clear();
  EXPECT_EQ(counts, (Counts{.releases = 1, .deallocs = 1}));
}

TEST(Strong, LendsAHandleWithoutCounting) {
  Owner owner = adopt<Counted>(newCounted());
  Counted lent = owner;
  NSObject parent = owner;
  EXPECT_EQ(counts, Counts{});
  EXPECT_EQ(lent.raw, owner.get().raw);
  EXPECT_EQ(parent.raw, lent.raw);
}

TEST(Strong, SendsMessagesToWhatItHolds) {
  Owner owner = adopt<Counted>(newCounted());
  EXPECT_EQ(owner->retainCount(), 1u);
  EXPECT_EQ(counts, Counts{});
  EXPECT_EQ(Owner()->retainCount(), 0u);
}

TEST(Strong, LeakGivesTheReferenceUp) {
  Owner owner = adopt<Counted>(newCounted());
  id object = owner.leak();
  EXPECT_FALSE(owner);
  EXPECT_EQ(counts, Counts{});
  bridge::release(object);
  EXPECT_EQ(counts, (Counts{.releases = 1, .deallocs = 1}));
}

TEST(Strong, AutoreleasedLivesAsLongAsThePool) {
  {
    Pool pool;
    Counted lent = adopt<Counted>(newCounted()).autoreleased();
    EXPECT_EQ(counts, (Counts{.autoreleases = 1}));
    EXPECT_EQ(lent.retainCount(), 1u);
  }
  EXPECT_EQ(counts, (Counts{.releases = 1, .autoreleases = 1, .deallocs = 1}));
}

TEST(Strong, AutoreleasedOfNothingIsNil) {
  Owner nothing;
  EXPECT_FALSE(std::move(nothing).autoreleased());
}

TEST(Strong, OfADerivedClassCopiesIntoItsParents) {
  Strong<CountedChild> child = adopt<CountedChild>(newCounted<CountedChild>());
  {
    Owner parent = child;
    EXPECT_EQ(counts, (Counts{.retains = 1}));
    EXPECT_EQ(parent.get(), child.get());
  }
  EXPECT_EQ(counts, (Counts{.retains = 1, .releases = 1}));
}

TEST(Strong, OfADerivedClassMovesIntoItsParentsWithoutCounting) {
  Strong<CountedChild> child = adopt<CountedChild>(newCounted<CountedChild>());
  id object = child.get().raw;
  Owner parent = std::move(child);
  EXPECT_EQ(counts, Counts{});
  EXPECT_EQ(parent.get().raw, object);
  EXPECT_FALSE(child);
}

TEST(Strong, OfADerivedClassIsAssignedToItsParents) {
  Owner parent = adopt<Counted>(newCounted());
  Strong<CountedChild> child = adopt<CountedChild>(newCounted<CountedChild>());
  parent = child;
  EXPECT_EQ(counts, (Counts{.retains = 1, .releases = 1, .deallocs = 1}));
  EXPECT_EQ(parent->retainCount(), 2u);
}

TEST(Strong, ComparesByIdentityWithoutCounting) {
  Owner one = adopt<Counted>(newCounted()), other = adopt<Counted>(newCounted());
  Owner same = one;
  test::freshCounts();
  EXPECT_TRUE(one == same);
  EXPECT_FALSE(one == other);
  EXPECT_TRUE(one != other);
  EXPECT_TRUE(one == one.get());
  EXPECT_TRUE(one.get() == same);
  EXPECT_FALSE(one == Owner());
  EXPECT_TRUE(Owner() == Owner());
  EXPECT_EQ(counts, Counts{});
}

TEST(Strong, ComparesWithAnOwnerOfAnotherType) {
  Strong<CountedChild> child = adopt<CountedChild>(newCounted<CountedChild>());
  Owner parent = child;
  EXPECT_TRUE(child == parent);
  EXPECT_TRUE(Owner() != parent);
}

}  // namespace
