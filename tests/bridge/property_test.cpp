// Properties of our classes: what their accessors count, and that key-value coding and observing find them.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/foundation/dictionary.hpp"
#include "platform/foundation/number.hpp"
#include "tests/bridge/counted.hpp"

namespace {

using bridge::adopt;
using bridge::as;
using bridge::Implementation;
using bridge::make;
using bridge::Object;
using bridge::Pool;
using bridge::Strong;
using test::Counted;
using test::counts;
using test::Counts;
using test::newCounted;

// What the platform offers every object.
struct KeyValue : bridge::Face<"NSObject", NSObject> {
  MESSAGE Method<"valueForKey:", Object(NSString)> valueForKey;
  MESSAGE Method<"setValue:forKey:", void(Object, NSString)> setValue_forKey;
  MESSAGE Method<"addObserver:forKeyPath:options:context:", void(NSObject, NSString, NSUInteger, void*)>
      addObserver_forKeyPath_options_context;
  MESSAGE Method<"removeObserver:forKeyPath:", void(NSObject, NSString)> removeObserver_forKeyPath;
  MESSAGE
  Method<"observeValueForKeyPath:ofObject:change:context:", void(NSString, NSObject, NSDictionary, void*)>
      observeValueForKeyPath_ofObject_change_context;
};
enum : NSUInteger { NSKeyValueObservingOptionNew = 1, NSKeyValueObservingOptionOld = 2 };

struct Box : bridge::Face<"PropertyTestBox", NSObject> {
  MESSAGE Property<"item", NSObject> item;
  MESSAGE Property<"lid", NSObject> lid;
  MESSAGE Property<"size", int> size;
  MESSAGE Property<"weight", double> weight;
  MESSAGE Property<"open", BOOL> open;
  MESSAGE Property<"sealed", BOOL, "isSealed"> sealed;
  MESSAGE Property<"label", NSObject> label;
  MESSAGE Method<"pad", void()> pad;
};
struct BoxState {
  Strong<NSObject> item, lid;
  int size = 5;
  double weight = 1.5;
  BOOL open = NO;
  BOOL sealed = NO;
  Strong<NSObject> label;
  int labelsSeen = 0;
};
using BoxClass = Implementation<Box, BoxState>;

void seeLabel(Box self) {
  BoxState& state = BoxClass::state(self);
  if (state.label) ++state.labelsSeen;
}

struct TallBox : bridge::Face<"PropertyTestTallBox", Box> {};
using TallClass = Implementation<TallBox>;

// A tall box is twice the size that it is told.
void setSize(TallBox self, int size) { TallClass::super<bridge::setterOf<&Box::size>>(self, 2 * size); }

void pad(Box self) { ++BoxClass::state(self).size; }

void defineBox() {
  if (BoxClass::cls) return;
  BoxClass::define<NSObject>(
      BoxClass::property<&Box::item, &BoxState::item>(), BoxClass::property<&Box::lid, &BoxState::lid>(),
      BoxClass::property<&Box::size, &BoxState::size>(),
      BoxClass::property<&Box::weight, &BoxState::weight>(),
      BoxClass::property<&Box::open, &BoxState::open>(),
      BoxClass::property<&Box::sealed, &BoxState::sealed>(),
      BoxClass::property<&Box::label, &BoxState::label, seeLabel>(), bridge::method<&Box::pad, pad>());
  TallClass::define<Box>(bridge::method<bridge::setterOf<&Box::size>, setSize>());
}

Strong<Box> newBox() {
  defineBox();
  return make<Box, &NSObject::init>();
}

KeyValue coding(const Strong<Box>& box) { return as<KeyValue>(box.get()); }

TEST(Property, StartsAsItsStateDoes) {
  auto box = newBox();
  EXPECT_FALSE(box->item());
  EXPECT_EQ(box->size(), 5);
  EXPECT_EQ(box->weight(), 1.5);
  EXPECT_EQ(box->open(), NO);
}

TEST(Property, OfAPlainTypeAnswersWhatWasSet) {
  auto box = newBox();
  box->size.set(-3);
  box->weight.set(0.25);
  box->open.set(YES);
  EXPECT_EQ(box->size(), -3);
  EXPECT_EQ(box->weight(), 0.25);
  EXPECT_EQ(box->open(), YES);
}

TEST(Property, HasAGetterOfAnotherNameWhereItIsGivenOne) {
  auto box = newBox();
  box->sealed.set(YES);
  EXPECT_EQ(box->sealed(), YES);
  EXPECT_TRUE(box->respondsToSelector(bridge::selector<"isSealed">()));
  EXPECT_TRUE(box->respondsToSelector(bridge::selector<"setSealed:">()));
  EXPECT_FALSE(box->respondsToSelector(bridge::selector<"sealed">()));
}

TEST(Property, TellsWhoIsToHearOnceItIsSet) {
  auto box = newBox();
  box->label.set(box.get());
  EXPECT_EQ(BoxClass::state(box.get()).labelsSeen, 1);
  box->label.set({});
  EXPECT_EQ(BoxClass::state(box.get()).labelsSeen, 1);
}

TEST(Property, IsSetBySubclassesInTheirOwnWay) {
  defineBox();
  auto box = make<TallBox, &NSObject::init>();
  box->size.set(4);
  EXPECT_EQ(box->size(), 8);
}

TEST(Property, OfAnObjectIsRetainedBySettingAndNotByGetting) {
  auto box = newBox();
  auto item = adopt<Counted>(newCounted());
  box->item.set(item.get());
  EXPECT_EQ(counts, (Counts{.retains = 1}));
  EXPECT_EQ(box->item(), item.get());
  EXPECT_EQ(box->item(), item.get());
  EXPECT_EQ(counts, (Counts{.retains = 1}));
}

TEST(Property, SetAnewReleasesTheOldObject) {
  auto box = newBox();
  box->item.set(adopt<Counted>(newCounted()).get());
  auto other = adopt<Counted>(newCounted());
  box->item.set(other.get());
  EXPECT_EQ(counts, (Counts{.retains = 1, .releases = 1, .deallocs = 1}));
  EXPECT_EQ(box->item(), other.get());
}

TEST(Property, SetToTheSameObjectKeepsIt) {
  auto box = newBox();
  box->item.set(adopt<Counted>(newCounted()).get());
  test::freshCounts();
  box->item.set(box->item());
  EXPECT_EQ(counts, (Counts{.retains = 1, .releases = 1}));
  EXPECT_EQ(box->item().retainCount(), 1u);
}

TEST(Property, SetToNilReleases) {
  auto box = newBox();
  box->item.set(adopt<Counted>(newCounted()).get());
  test::freshCounts();
  box->item.set({});
  EXPECT_EQ(counts, (Counts{.releases = 1, .deallocs = 1}));
  EXPECT_FALSE(box->item());
}

TEST(Property, IsReleasedWithItsObject) {
  auto box = newBox();
  box->item.set(adopt<Counted>(newCounted()).get());
  box->lid.set(adopt<Counted>(newCounted()).get());
  test::freshCounts();
  box.clear();
  EXPECT_EQ(counts, (Counts{.releases = 2, .deallocs = 2}));
}

TEST(KeyValueCoding, ReadsAnObject) {
  Pool pool;
  auto box = newBox();
  auto item = adopt<Counted>(newCounted());
  box->item.set(item.get());
  EXPECT_EQ(coding(box).valueForKey("item"_ns), item.get());
  EXPECT_FALSE(coding(box).valueForKey("lid"_ns));
}

TEST(KeyValueCoding, WritesAnObjectThroughTheSetter) {
  Pool pool;
  auto box = newBox();
  auto item = adopt<Counted>(newCounted());
  coding(box).setValue_forKey(item.get(), "item"_ns);
  EXPECT_EQ(box->item(), item.get());
  EXPECT_EQ(item->retainCount(), 2u);
  coding(box).setValue_forKey({}, "item"_ns);
  EXPECT_FALSE(box->item());
  EXPECT_EQ(item->retainCount(), 1u);
}

TEST(KeyValueCoding, ReadsNumbersAsObjects) {
  Pool pool;
  auto box = newBox();
  EXPECT_EQ(as<NSNumber>(coding(box).valueForKey("size"_ns)).intValue(), 5);
  EXPECT_EQ(as<NSNumber>(coding(box).valueForKey("weight"_ns)).doubleValue(), 1.5);
  box->open.set(YES);
  EXPECT_EQ(as<NSNumber>(coding(box).valueForKey("open"_ns)).boolValue(), YES);
}

TEST(KeyValueCoding, WritesNumbersFromObjects) {
  Pool pool;
  auto box = newBox();
  coding(box).setValue_forKey(NSNumber::numberWithInt(9), "size"_ns);
  coding(box).setValue_forKey(NSNumber::numberWithDouble(2.75), "weight"_ns);
  coding(box).setValue_forKey(NSNumber::numberWithBool(YES), "open"_ns);
  EXPECT_EQ(box->size(), 9);
  EXPECT_EQ(box->weight(), 2.75);
  EXPECT_EQ(box->open(), YES);
}

struct Observer : bridge::Face<"PropertyTestObserver", NSObject> {};
struct ObserverState {
  struct Seen {
    std::string key;
    id object;
    int before, after;
    void* context;
  };
  std::vector<Seen> seen;
};
using ObserverClass = Implementation<Observer, ObserverState>;

void observe(Observer self, NSString key, NSObject object, NSDictionary change, void* context) {
  auto number = [&](NSString name) { return as<NSNumber>(change.objectForKey(name)).intValue(); };
  ObserverClass::state(self).seen.push_back(
      {key.UTF8String(), object.raw, number("old"_ns), number("new"_ns), context});
}

Strong<Observer> newObserver() {
  if (!ObserverClass::cls)
    ObserverClass::define<NSObject>(
        bridge::method<&KeyValue::observeValueForKeyPath_ofObject_change_context, observe>());
  return make<Observer, &NSObject::init>();
}

const auto& seenBy(const Strong<Observer>& observer) { return ObserverClass::state(observer.get()).seen; }

constexpr NSUInteger oldAndNew = NSKeyValueObservingOptionNew | NSKeyValueObservingOptionOld;

TEST(KeyValueObserving, TellsOfEverySet) {
  Pool pool;
  auto box = newBox();
  auto observer = newObserver();
  int context = 0;
  coding(box).addObserver_forKeyPath_options_context(observer.get(), "size"_ns, oldAndNew, &context);
  box->size.set(6);
  box->size.set(8);
  coding(box).removeObserver_forKeyPath(observer.get(), "size"_ns);
  auto& seen = seenBy(observer);
  ASSERT_EQ(seen.size(), 2u);
  EXPECT_EQ(seen[0].key, "size");
  EXPECT_EQ(seen[0].object, box.get().raw);
  EXPECT_EQ(seen[0].before, 5);
  EXPECT_EQ(seen[0].after, 6);
  EXPECT_EQ(seen[0].context, &context);
  EXPECT_EQ(seen[1].before, 6);
  EXPECT_EQ(seen[1].after, 8);
  EXPECT_EQ(box->size(), 8);
}

TEST(KeyValueObserving, TellsOfWhatKeyValueCodingSets) {
  Pool pool;
  auto box = newBox();
  auto observer = newObserver();
  coding(box).addObserver_forKeyPath_options_context(observer.get(), "size"_ns, oldAndNew, nullptr);
  coding(box).setValue_forKey(NSNumber::numberWithInt(9), "size"_ns);
  coding(box).removeObserver_forKeyPath(observer.get(), "size"_ns);
  ASSERT_EQ(seenBy(observer).size(), 1u);
  EXPECT_EQ(seenBy(observer)[0].after, 9);
}

TEST(KeyValueObserving, OfAnObjectAndADouble) {
  Pool pool;
  auto box = newBox();
  auto observer = newObserver();
  box->item.set(NSNumber::numberWithInt(3));
  coding(box).addObserver_forKeyPath_options_context(observer.get(), "item"_ns, oldAndNew, nullptr);
  coding(box).addObserver_forKeyPath_options_context(observer.get(), "weight"_ns, oldAndNew, nullptr);
  box->item.set(NSNumber::numberWithInt(4));
  box->weight.set(2.0);
  coding(box).removeObserver_forKeyPath(observer.get(), "item"_ns);
  coding(box).removeObserver_forKeyPath(observer.get(), "weight"_ns);
  auto& seen = seenBy(observer);
  ASSERT_EQ(seen.size(), 2u);
  EXPECT_EQ(seen[0].key, "item");
  EXPECT_EQ(seen[0].before, 3);
  EXPECT_EQ(seen[0].after, 4);
  EXPECT_EQ(seen[1].key, "weight");
  EXPECT_EQ(seen[1].before, 1);
  EXPECT_EQ(seen[1].after, 2);
}

TEST(KeyValueObserving, EndsWithTheObserversRemoval) {
  Pool pool;
  auto box = newBox();
  auto observer = newObserver();
  coding(box).addObserver_forKeyPath_options_context(observer.get(), "size"_ns, oldAndNew, nullptr);
  coding(box).removeObserver_forKeyPath(observer.get(), "size"_ns);
  box->size.set(6);
  EXPECT_TRUE(seenBy(observer).empty());
}

// The platform gives an observed object another class; its state stays where it is.
TEST(KeyValueObserving, LeavesTheObservedObjectsStateAndMethods) {
  Pool pool;
  auto box = newBox();
  auto observer = newObserver();
  BoxState* before = &BoxClass::state(box.get());
  coding(box).addObserver_forKeyPath_options_context(observer.get(), "weight"_ns, oldAndNew, nullptr);
  EXPECT_EQ(&BoxClass::state(box.get()), before);
  EXPECT_TRUE(bridge::isKindOf<Box>(box.get()));
  box->pad();
  EXPECT_EQ(box->size(), 6);
  coding(box).removeObserver_forKeyPath(observer.get(), "weight"_ns);
}

TEST(KeyValueObserving, OfAnObjectLeavesItsDeallocExact) {
  Pool pool;
  auto observer = newObserver();
  {
    Pool inner;
    auto box = newBox();
    box->item.set(adopt<Counted>(newCounted()).get());
    coding(box).addObserver_forKeyPath_options_context(observer.get(), "size"_ns, oldAndNew, nullptr);
    coding(box).removeObserver_forKeyPath(observer.get(), "size"_ns);
    EXPECT_EQ(counts.deallocs, 0);
  }
  EXPECT_EQ(counts, (Counts{.retains = 1, .releases = 2, .deallocs = 1}));
}

}  // namespace
