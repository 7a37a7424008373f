// Blocks from lambdas: what they capture and for how long, and how they travel through messages.
#include "bridge/block.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>

#include "platform/coregraphics/encoding.hpp"
#include "platform/foundation/number.hpp"
#include "tests/bridge/counted.hpp"

namespace {

using bridge::Block;
using bridge::BlockRef;
using bridge::Implementation;
using bridge::Pool;
using bridge::Strong;

// Counts what a block does with what it captured.
struct Tracked {
  static inline int alive = 0, copies = 0, moves = 0;
  static void reset() { alive = copies = moves = 0; }
  Tracked() { ++alive; }
  Tracked(const Tracked&) { ++alive, ++copies; }
  Tracked(Tracked&&) noexcept { ++alive, ++moves; }
  ~Tracked() { --alive; }
};

static_assert(sizeof(BlockRef<void()>) == sizeof(void*));
static_assert(sizeof(Block<void()>) == sizeof(void*));
static_assert(!std::is_convertible_v<BlockRef<void()>, Block<void()>>,
              "a block of others is kept on purpose only");
static_assert(std::is_constructible_v<Block<void()>, BlockRef<void()>>);
static_assert(!std::is_constructible_v<Block<void()>, int>);

TEST(Block, CallsItsLambda) {
  int calls = 0;
  Block<void()> block([&] { ++calls; });
  block();
  block();
  EXPECT_EQ(calls, 2);
}

TEST(Block, KeepsWhatItCapturedByValue) {
  std::string text = "a text that is too long for a short string";
  int number = 3;
  Block<int(int)> block([text, number](int more) { return static_cast<int>(text.size()) + number + more; });
  text.clear();
  number = 0;
  EXPECT_EQ(block(100), 42 + 3 + 100);
}

TEST(Block, ChangesItsOwnCapture) {
  Block<int()> block([count = 0]() mutable { return ++count; });
  EXPECT_EQ(block(), 1);
  EXPECT_EQ(block(), 2);
}

TEST(Block, TakesAMoveOnlyCapture) {
  Block<int(int)> block([owned = std::make_unique<int>(40)](int more) { return *owned + more; });
  EXPECT_EQ(block(2), 42);
  Block<int(int)> copy = block;
  EXPECT_EQ(copy(3), 43);
}

TEST(Block, MovesItsCaptureToTheHeapAndNeverCopiesIt) {
  Tracked::reset();
  {
    Tracked tracked;
    Block<void()> block([held = std::move(tracked)] { (void)held; });
    EXPECT_EQ(Tracked::alive, 2);  // the moved-from one and the block's
    EXPECT_EQ(Tracked::copies, 0);
  }
  EXPECT_EQ(Tracked::alive, 0);
}

TEST(Block, DestroysItsCaptureOnceWithTheLastCopy) {
  Tracked::reset();
  auto block = std::make_unique<Block<void()>>([held = Tracked()] { (void)held; });
  ASSERT_EQ(Tracked::alive, 1);
  auto copy = std::make_unique<Block<void()>>(*block);
  EXPECT_EQ(copy->raw(), block->raw());
  EXPECT_EQ(Tracked::alive, 1);
  block.reset();
  EXPECT_EQ(Tracked::alive, 1);
  copy.reset();
  EXPECT_EQ(Tracked::alive, 0);
  EXPECT_EQ(Tracked::copies, 0);
}

TEST(Block, IsMovedWithoutCounting) {
  Tracked::reset();
  Block<void()> block([held = Tracked()] { (void)held; });
  void* raw = block.raw();
  Block<void()> other = std::move(block);
  EXPECT_EQ(other.raw(), raw);
  EXPECT_FALSE(block);
  other = Block<void()>();
  EXPECT_EQ(Tracked::alive, 0);
}

TEST(Block, AssignedAnewReleasesTheOldOne) {
  Tracked::reset();
  int calls = 0;
  Block<void()> block([held = Tracked()] { (void)held; });
  block = Block<void()>([&] { ++calls; });
  EXPECT_EQ(Tracked::alive, 0);
  block();
  EXPECT_EQ(calls, 1);
}

TEST(Block, AssignedToItselfStays) {
  Tracked::reset();
  {
    Block<int()> block([held = Tracked()] { return (void)held, 5; });
    Block<int()>& same = block;
    block = same;
    EXPECT_EQ(Tracked::alive, 1);
    EXPECT_EQ(block(), 5);
  }
  EXPECT_EQ(Tracked::alive, 0);
}

TEST(Block, HoldsAnObjectAsLongAsItLives) {
  auto object = bridge::adopt<test::Counted>(test::newCounted());
  {
    Block<NSUInteger()> block([object] { return object->retainCount(); });
    EXPECT_EQ(block(), 2u);
  }
  EXPECT_EQ(object->retainCount(), 1u);
}

TEST(EmptyBlock, IsFalseAndNull) {
  Block<void()> block;
  EXPECT_FALSE(block);
  EXPECT_EQ(block.raw(), nullptr);
  BlockRef<void()> reference = block;
  EXPECT_FALSE(reference);
}

TEST(EmptyBlock, StaysEmptyWhenCopiedMovedOrKept) {
  Block<void()> block;
  Block<void()> copy = block;
  Block<void()> moved = std::move(block);
  Block<void()> kept{BlockRef<void()>()};
  EXPECT_FALSE(copy);
  EXPECT_FALSE(moved);
  EXPECT_FALSE(kept);
}

TEST(Block, PassesNumbers) {
  Block<double(double, float, int)> block([](double a, float b, int c) { return a + b * c; });
  EXPECT_EQ(block(0.5, 0.25f, 2), 1.0);
  Block<float(float)> half([](float value) { return value / 2; });
  EXPECT_EQ(half(3.0f), 1.5f);
  Block<BOOL(BOOL)> inverse([](BOOL value) -> BOOL { return !value; });
  EXPECT_EQ(inverse(YES), NO);
}

TEST(Block, PassesStructures) {
  Block<CGRect(CGRect, CGPoint)> block([](CGRect rect, CGPoint by) {
    return CGRect{{rect.origin.x + by.x, rect.origin.y + by.y}, rect.size};
  });
  EXPECT_EQ(block({{1, 2}, {3, 4}}, {10, 20}), (CGRect{{11, 22}, {3, 4}}));
  Block<CGPoint(CGRect)> origin([](CGRect rect) { return rect.origin; });
  EXPECT_EQ(origin({{1, 2}, {3, 4}}), (CGPoint{1, 2}));
}

TEST(Block, PassesObjects) {
  Pool pool;
  Block<NSNumber(NSNumber)> next(
      [](NSNumber number) { return NSNumber::numberWithInt(number.intValue() + 1); });
  EXPECT_EQ(next(NSNumber::numberWithInt(4)).intValue(), 5);
  EXPECT_EQ(next({}).intValue(), 1);
}

TEST(Block, PassesBlocks) {
  Block<int(BlockRef<int(int)>)> twice([](BlockRef<int(int)> function) { return function(function(1)); });
  EXPECT_EQ(twice(Block<int(int)>([](int value) { return value * 5; })), 25);
}

// A class that is handed blocks, and keeps one.
struct Runner : bridge::Face<"BlockTestRunner", NSObject> {
  MESSAGE Method<"run:with:", CGRect(BlockRef<CGRect(CGPoint, NSObject)>, CGPoint)> run_with;
  MESSAGE Method<"keep:", void(BlockRef<int(int)>)> keep;
  MESSAGE Method<"kept", BlockRef<int(int)>()> kept;
};
struct RunnerState {
  Block<int(int)> kept;
};
using RunnerClass = Implementation<Runner, RunnerState>;

CGRect run(Runner self, BlockRef<CGRect(CGPoint, NSObject)> block, CGPoint point) {
  return block ? block(point, self) : CGRect{};
}
void keep(Runner self, BlockRef<int(int)> block) { RunnerClass::state(self).kept = Block<int(int)>(block); }
BlockRef<int(int)> kept(Runner self) { return RunnerClass::state(self).kept; }

Strong<Runner> newRunner() {
  if (!RunnerClass::cls)
    RunnerClass::define<NSObject>(bridge::method<&Runner::run_with, run>(),
                                  bridge::method<&Runner::keep, keep>(),
                                  bridge::method<&Runner::kept, kept>());
  return bridge::make<Runner, &NSObject::init>();
}

TEST(Block, TravelsThroughAMessage) {
  auto runner = newRunner();
  id seen = nullptr;
  Block<CGRect(CGPoint, NSObject)> block([&](CGPoint point, NSObject object) {
    seen = object.raw;
    return CGRect{point, {1, 2}};
  });
  EXPECT_EQ(runner->run_with(block, {3, 4}), (CGRect{{3, 4}, {1, 2}}));
  EXPECT_EQ(seen, runner.get().raw);
}

TEST(Block, TravelsAsATemporary) {
  Tracked::reset();
  auto runner = newRunner();
  CGRect rect =
      runner->run_with(Block<CGRect(CGPoint, NSObject)>([held = Tracked()](CGPoint point, NSObject) {
                         (void)held;
                         return CGRect{point, {}};
                       }),
                       {3, 4});
  EXPECT_EQ(rect, (CGRect{{3, 4}, {}}));
  EXPECT_EQ(Tracked::alive, 0);
}

TEST(Block, TravelsEmptyAsNull) {
  auto runner = newRunner();
  EXPECT_EQ(runner->run_with({}, {3, 4}), CGRect{});
  EXPECT_EQ(runner->run_with(Block<CGRect(CGPoint, NSObject)>(), {3, 4}), CGRect{});
}

TEST(Block, KeptByAReceiverOutlivesItsSender) {
  Tracked::reset();
  auto runner = newRunner();
  {
    Block<int(int)> block([held = Tracked(), base = 10](int value) { return (void)held, base + value; });
    runner->keep(block);
  }
  EXPECT_EQ(Tracked::alive, 1);
  EXPECT_EQ(runner->kept()(5), 15);
  runner->keep({});
  EXPECT_EQ(Tracked::alive, 0);
  EXPECT_FALSE(runner->kept());
}

TEST(Block, KeptByAnObjectIsDestroyedWithIt) {
  Tracked::reset();
  auto runner = newRunner();
  runner->keep(Block<int(int)>([held = Tracked()](int value) { return (void)held, value; }));
  EXPECT_EQ(Tracked::alive, 1);
  runner.clear();
  EXPECT_EQ(Tracked::alive, 0);
}

TEST(Block, CarriesItsSignature) {
  auto signature = [](const auto& block) {
    auto header = static_cast<const bridge::BlockHeader*>(block.raw());
    EXPECT_TRUE(header->flags & bridge::blockHasSignature);
    EXPECT_TRUE(header->flags & bridge::blockHasCopyDispose);
    return std::string(header->descriptor->signature);
  };
  EXPECT_EQ(signature(Block<void()>([] {})), "v@?");
  EXPECT_EQ(signature(Block<void(BOOL)>([](BOOL) {})), "v@?C");
  EXPECT_EQ(signature(Block<CGPoint(NSObject, CGSize)>([](NSObject, CGSize) { return CGPoint{}; })),
            "{CGPoint=dd}@?@{CGSize=dd}");
}

}  // namespace
