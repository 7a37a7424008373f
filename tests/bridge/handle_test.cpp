// Handles: what one is, and what messages to nil and to objects answer.
#include <gtest/gtest.h>

#include <cstring>

#include "bridge/define.hpp"
#include "platform/coregraphics/encoding.hpp"
#include "platform/foundation/dictionary.hpp"
#include "platform/foundation/number.hpp"

namespace {

using bridge::as;
using bridge::isKindOf;
using bridge::Object;
using bridge::Strong;

struct Greeter : bridge::Face<"HandleTestGreeter", NSObject> {
  static constexpr bridge::ClassMethod<"HandleTestGreeter", "legs", int()> legs{};
  static constexpr bridge::ClassMethod<"HandleTestGreeter", "newGreeter", Greeter()> newGreeter{};
  MESSAGE Method<"friend", Greeter()> friend_;
  MESSAGE Method<"copy", Greeter()> copy;
  MESSAGE Method<"age", int()> age;
  MESSAGE Method<"isAwake", BOOL()> isAwake;
  MESSAGE Method<"weight", double()> weight;
  MESSAGE Method<"height", float()> height;
  MESSAGE Method<"frame", CGRect()> frame;
  MESSAGE Method<"centre", CGPoint()> centre;
  MESSAGE Method<"name", const char*()> name;
  MESSAGE Method<"handler", bridge::BlockRef<void()>()> handler;
  MESSAGE Method<"greet:", void(Object)> greet;
  MESSAGE Method<"sum:of:and:", double(int, double, float)> sum_of_and;
  MESSAGE Method<"move:by:", CGRect(CGRect, CGPoint)> move_by;
};

struct LongLegged : bridge::Face<"HandleTestLongLegged", Greeter> {};

struct Missing : bridge::Face<"HandleTestNoSuchClass", NSObject> {
  static constexpr bridge::ClassMethod<"HandleTestNoSuchClass", "shared", Missing()> shared{};
  static constexpr bridge::ClassMethod<"HandleTestNoSuchClass", "count", int()> count{};
};

using GreeterClass = bridge::Implementation<Greeter>;
using LongLeggedClass = bridge::Implementation<LongLegged>;

Object greeted;
Greeter itself(Greeter self) { return self; }
Strong<Greeter> copied(Greeter self) { return bridge::retained(self); }
Strong<Greeter> made(Class self) {
  return bridge::adopt<Greeter>(bridge::Message<"alloc", Object()>::send(reinterpret_cast<id>(self)).leak());
}
int four(Class) { return 4; }
int six(Class) { return 6; }
int seven(Greeter) { return 7; }
BOOL awake(Greeter) { return YES; }
double twelve(Greeter) { return 12.5; }
float three(Greeter) { return 3.25f; }
CGRect frame(Greeter) { return {{1, 2}, {3, 4}}; }
CGPoint centre(Greeter) { return {5, 6}; }
const char* name(Greeter) { return "Ann"; }
void greet(Greeter, Object other) { greeted = other; }
double sum(Greeter, int one, double two, float three) { return one + two + three; }
CGRect move(Greeter, CGRect rect, CGPoint by) {
  return {{rect.origin.x + by.x, rect.origin.y + by.y}, rect.size};
}

void defineGreeter() {
  if (GreeterClass::cls) return;
  using bridge::method;
  GreeterClass::define<NSObject>(method<&Greeter::legs, four>(), method<&Greeter::newGreeter, made>(),
                                 method<&Greeter::friend_, itself>(), method<&Greeter::copy, copied>(),
                                 method<&Greeter::age, seven>(), method<&Greeter::isAwake, awake>(),
                                 method<&Greeter::weight, twelve>(), method<&Greeter::height, three>(),
                                 method<&Greeter::frame, frame>(), method<&Greeter::centre, centre>(),
                                 method<&Greeter::name, name>(), method<&Greeter::greet, greet>(),
                                 method<&Greeter::sum_of_and, sum>(), method<&Greeter::move_by, move>());
  LongLeggedClass::define<Greeter>(method<&Greeter::legs, six>());
}

Strong<Greeter> newGreeter() {
  defineGreeter();
  return bridge::make<Greeter, &NSObject::init>();
}

TEST(Handle, IsOneWordWhateverItsFaceCarries) {
  static_assert(sizeof(Object) == sizeof(id));
  static_assert(sizeof(Greeter) == sizeof(id));
  static_assert(sizeof(LongLegged) == sizeof(id));
  static_assert(sizeof(NSMutableDictionary) == sizeof(id));
  static_assert(std::is_trivially_copyable_v<Greeter>);
  static_assert(alignof(Greeter) == alignof(id));
  Strong<Greeter> greeter = newGreeter();
  Greeter handle = greeter;
  id word;
  std::memcpy(&word, &handle, sizeof word);
  EXPECT_EQ(word, handle.raw);
}

TEST(Handle, IsNilAtFirst) {
  Greeter nobody;
  EXPECT_EQ(nobody.raw, nullptr);
  EXPECT_FALSE(nobody);
  EXPECT_TRUE(newGreeter());
}

TEST(Handle, ComparesByIdentity) {
  Strong<Greeter> one = newGreeter(), other = newGreeter();
  Greeter handle = one, same = one, different = other;
  EXPECT_TRUE(handle == same);
  EXPECT_TRUE(handle != different);
  EXPECT_TRUE(handle != Greeter());
  EXPECT_TRUE(NSObject(handle) == handle);
}

TEST(MessageToNil, AnswersNilForAnObject) { EXPECT_FALSE(Greeter().friend_()); }
TEST(MessageToNil, AnswersAnEmptyStrongForAFamilyThatMakes) {
  auto copy = Greeter().copy();
  static_assert(std::is_same_v<decltype(copy), Strong<Greeter>>);
  EXPECT_FALSE(copy);
}
TEST(MessageToNil, AnswersZero) {
  EXPECT_EQ(Greeter().age(), 0);
  EXPECT_EQ(Greeter().isAwake(), NO);
  EXPECT_EQ(Greeter().weight(), 0.0);
  EXPECT_EQ(Greeter().height(), 0.0f);
  EXPECT_EQ(Greeter().name(), nullptr);
}
TEST(MessageToNil, AnswersAnEmptyStructure) {
  EXPECT_EQ(Greeter().frame(), CGRect{});
  EXPECT_EQ(Greeter().centre(), CGPoint{});
  EXPECT_EQ(Greeter().move_by({{1, 2}, {3, 4}}, {5, 6}), CGRect{});
}
TEST(MessageToNil, AnswersAnEmptyBlock) { EXPECT_FALSE(Greeter().handler()); }
TEST(MessageToNil, ThatAnswersNothingDoesNothing) {
  greeted = {};
  Strong<Greeter> other = newGreeter();
  Greeter().greet(other.get());
  EXPECT_FALSE(greeted);
}
TEST(MessageToNil, ToAParentsImplementationAnswersZeroToo) {
  using Age = bridge::Descriptor<&Greeter::age>;
  using Frame = bridge::Descriptor<&Greeter::frame>;
  defineGreeter();
  EXPECT_EQ(Age::sendAs(GreeterClass::cls, nullptr), 0);
  EXPECT_EQ(Frame::sendAs(GreeterClass::cls, nullptr), CGRect{});
}

TEST(Message, AnswersWhatTheMethodAnswers) {
  Strong<Greeter> greeter = newGreeter();
  EXPECT_EQ(greeter->friend_(), greeter.get());
  EXPECT_EQ(greeter->age(), 7);
  EXPECT_EQ(greeter->isAwake(), YES);
  EXPECT_EQ(greeter->weight(), 12.5);
  EXPECT_EQ(greeter->height(), 3.25f);
  EXPECT_STREQ(greeter->name(), "Ann");
}
TEST(Message, AnswersStructuresInRegistersAndInMemory) {
  Strong<Greeter> greeter = newGreeter();
  EXPECT_EQ(greeter->centre(), (CGPoint{5, 6}));
  EXPECT_EQ(greeter->frame(), (CGRect{{1, 2}, {3, 4}}));
}
TEST(Message, PassesItsArguments) {
  Strong<Greeter> greeter = newGreeter(), other = newGreeter();
  greeted = {};
  greeter->greet(other.get());
  EXPECT_EQ(greeted, other.get());
  EXPECT_EQ(greeter->sum_of_and(1, 2.5, 0.25f), 3.75);
  EXPECT_EQ(greeter->move_by({{1, 2}, {3, 4}}, {10, 20}), (CGRect{{11, 22}, {3, 4}}));
}
TEST(Message, OfAFamilyThatMakesHandsItsReferenceOver) {
  Strong<Greeter> greeter = newGreeter();
  {
    auto copy = greeter->copy();
    EXPECT_EQ(greeter->retainCount(), 2u);
  }
  EXPECT_EQ(greeter->retainCount(), 1u);
}

TEST(ClassMethod, IsSentToTheClassItNames) {
  defineGreeter();
  EXPECT_EQ(Greeter::legs(), 4);
  EXPECT_EQ(LongLegged::legs(), 4);
}
TEST(ClassMethod, IsSentToAnotherClassOnRequest) {
  defineGreeter();
  EXPECT_EQ(Greeter::legs.on(GreeterClass::cls), 4);
  EXPECT_EQ(Greeter::legs.on(LongLeggedClass::cls), 6);
  EXPECT_EQ(Greeter::legs.on(nullptr), 0);
}
TEST(ClassMethod, OfAFamilyThatMakesGivesAnOwner) {
  defineGreeter();
  auto greeter = Greeter::newGreeter();
  static_assert(std::is_same_v<decltype(greeter), Strong<Greeter>>);
  ASSERT_TRUE(greeter);
  EXPECT_EQ(greeter->retainCount(), 1u);
  EXPECT_TRUE(isKindOf<LongLegged>(Greeter::newGreeter.on(LongLeggedClass::cls).get()));
}

TEST(Descriptor, KnowsItsSelectorAndTypes) {
  using Sum = bridge::Descriptor<&Greeter::sum_of_and>;
  EXPECT_STREQ(Sum::name, "sum:of:and:");
  EXPECT_STREQ(sel_getName(Sum::selector()), "sum:of:and:");
  EXPECT_TRUE(sel_isEqual(Sum::selector(), sel_registerName("sum:of:and:")));
  EXPECT_STREQ(Sum::types(), "d@:idf");
  static_assert(!bridge::isClassMethod<&Greeter::sum_of_and>);
  static_assert(bridge::isClassMethod<&Greeter::legs>);
}
TEST(Descriptor, SendsToAnyObject) {
  Strong<Greeter> greeter = newGreeter();
  EXPECT_EQ(bridge::Descriptor<&Greeter::age>::send(greeter.get().raw), 7);
  EXPECT_EQ((bridge::Message<"age", int()>::send(greeter.get().raw)), 7);
}
TEST(Descriptor, CallsAGivenImplementation) {
  Strong<Greeter> greeter = newGreeter();
  using Age = bridge::Descriptor<&Greeter::age>;
  IMP implementation = class_getMethodImplementation(GreeterClass::cls, Age::selector());
  EXPECT_EQ(Age::call(implementation, greeter.get().raw, Age::selector()), 7);
}

TEST(MissingClass, IsNil) {
  EXPECT_EQ(bridge::classNamed<Missing>(), nullptr);
  EXPECT_FALSE(bridge::allocate<Missing>());
  EXPECT_FALSE((bridge::make<Missing, &NSObject::init>()));
}
TEST(MissingClass, AnswersNothingToMessages) {
  EXPECT_FALSE(Missing::shared());
  EXPECT_EQ(Missing::count(), 0);
}

struct Late : bridge::Face<"HandleTestLate", NSObject> {};
TEST(MissingClass, IsFoundOnceItIsThere) {
  EXPECT_EQ(bridge::classNamed<Late>(), nullptr);
  bridge::Implementation<Late>::define<NSObject>();
  ASSERT_NE(bridge::Implementation<Late>::cls, nullptr);
  EXPECT_EQ(bridge::classNamed<Late>(), bridge::Implementation<Late>::cls);
}

TEST(As, SeesTheSameObjectAsAnotherType) {
  Strong<Greeter> greeter = newGreeter();
  NSObject object = greeter;
  EXPECT_EQ(as<Greeter>(object).age(), 7);
  EXPECT_EQ(as<Greeter>(object.raw).raw, object.raw);
  EXPECT_FALSE(as<Greeter>(Object()));
}

TEST(IsKindOf, HoldsForTheClassAndItsParents) {
  defineGreeter();
  auto child = bridge::make<LongLegged, &NSObject::init>();
  EXPECT_TRUE(isKindOf<LongLegged>(child.get()));
  EXPECT_TRUE(isKindOf<Greeter>(child.get()));
  EXPECT_TRUE(isKindOf<NSObject>(child.get()));
  EXPECT_TRUE(isKindOf(child.get(), GreeterClass::cls));
}
TEST(IsKindOf, DoesNotHoldForAChildOrAStranger) {
  Strong<Greeter> greeter = newGreeter();
  EXPECT_FALSE(isKindOf<LongLegged>(greeter.get()));
  EXPECT_FALSE(isKindOf<NSString>(greeter.get()));
}
TEST(IsKindOf, SeesThroughAClassCluster) {
  bridge::Pool pool;
  EXPECT_TRUE(isKindOf<NSNumber>(NSNumber::numberWithInt(3)));
  EXPECT_FALSE(isKindOf<NSString>(NSNumber::numberWithInt(3)));
  EXPECT_TRUE(isKindOf<NSDictionary>(NSMutableDictionary::dictionary()));
}
TEST(IsKindOf, IsFalseForNilOnEitherSide) {
  Strong<Greeter> greeter = newGreeter();
  EXPECT_FALSE(isKindOf<Greeter>(Object()));
  EXPECT_FALSE(isKindOf<Missing>(greeter.get()));
  EXPECT_FALSE(isKindOf(greeter.get(), nullptr));
  EXPECT_FALSE(isKindOf(Object(), nullptr));
}
// The desktop runtime's root metaclass has a parent of its own, so nothing is said of a class and NSObject.
TEST(IsKindOf, OfAClassLooksAtItsMetaclasses) {
  defineGreeter();
  auto metaclass = [](Class cls) { return bridge::classOf(reinterpret_cast<id>(cls)); };
  Object cls = as<Object>(reinterpret_cast<id>(LongLeggedClass::cls));
  EXPECT_TRUE(isKindOf(cls, metaclass(LongLeggedClass::cls)));
  EXPECT_TRUE(isKindOf(cls, metaclass(GreeterClass::cls)));
  EXPECT_TRUE(isKindOf(cls, metaclass(bridge::classNamed<NSObject>())));
  EXPECT_FALSE(isKindOf<LongLegged>(cls));
  EXPECT_FALSE(isKindOf<Greeter>(cls));
}

}  // namespace
