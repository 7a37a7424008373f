// Autorelease pools and the three plain operations on an object's count.
#include <gtest/gtest.h>

#include "tests/bridge/counted.hpp"

namespace {

using bridge::Pool;
using test::counts;
using test::Counts;
using test::newCounted;

TEST(Pool, ReleasesAtItsEndWhatWasAutoreleasedInIt) {
  {
    Pool pool;
    bridge::autorelease(newCounted());
    EXPECT_EQ(counts.deallocs, 0);
  }
  EXPECT_EQ(counts, (Counts{.releases = 1, .autoreleases = 1, .deallocs = 1}));
}

TEST(Pool, InsideAnotherReleasesOnlyItsOwn) {
  Pool outer;
  id early = newCounted();
  {
    Pool middle;
    bridge::autorelease(early);
    {
      Pool inner;
      bridge::autorelease(bridge::make<test::Counted, &NSObject::init>().leak());
      EXPECT_EQ(counts.deallocs, 0);
    }
    EXPECT_EQ(counts.deallocs, 1);
    bridge::autorelease(bridge::make<test::Counted, &NSObject::init>().leak());
    EXPECT_EQ(counts.deallocs, 1);
  }
  EXPECT_EQ(counts.deallocs, 3);
}

TEST(Pool, ReleasesAsOftenAsWasAutoreleased) {
  id object = newCounted();
  {
    Pool pool;
    for (int i = 0; i < 3; ++i) bridge::autorelease(bridge::retain(object));
    EXPECT_EQ(bridge::as<NSObject>(object).retainCount(), 4u);
  }
  EXPECT_EQ(bridge::as<NSObject>(object).retainCount(), 1u);
  bridge::release(object);
  EXPECT_EQ(counts.deallocs, 1);
}

TEST(Pool, TakesMoreObjectsThanOneBlockOfItHolds) {
  newCounted();
  constexpr int many = 5000;
  test::freshCounts();
  {
    Pool pool;
    for (int i = 0; i < many; ++i) (void)bridge::make<test::Counted, &NSObject::init>().autoreleased();
  }
  EXPECT_EQ(counts.deallocs, many);
}

TEST(Retain, AnswersItsObject) {
  id object = newCounted();
  EXPECT_EQ(bridge::retain(object), object);
  EXPECT_EQ(counts, (Counts{.retains = 1}));
  bridge::release(object);
  bridge::release(object);
  EXPECT_EQ(counts, (Counts{.retains = 1, .releases = 2, .deallocs = 1}));
}

TEST(Retain, OfNilDoesNothing) {
  EXPECT_EQ(bridge::retain(nullptr), nullptr);
  EXPECT_EQ(bridge::autorelease(nullptr), nullptr);
  bridge::release(nullptr);
}

}  // namespace
