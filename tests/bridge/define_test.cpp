// Classes of ours: their methods, their state and its life, and messages to super.
#include "bridge/define.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "platform/coregraphics/encoding.hpp"
#include "platform/foundation/string.hpp"

namespace {

using bridge::Implementation;
using bridge::make;
using bridge::method;
using bridge::Pool;
using bridge::Strong;

int built = 0, destroyed = 0;
void freshLives() { built = destroyed = 0; }

struct Dog : bridge::Face<"DefineTestDog", NSObject> {
  static constexpr bridge::ClassMethod<"DefineTestDog", "legs", int()> legs{};
  static constexpr bridge::ClassMethod<"DefineTestDog", "kind:", double(int)> kind{};
  MESSAGE Method<"initWithName:", Dog(NSString)> initWithName;
  MESSAGE Method<"name", NSString()> name;
  MESSAGE Method<"age", int()> age;
  MESSAGE Method<"setAge:", void(int)> setAge;
  MESSAGE Method<"bounds:", CGRect(CGPoint)> bounds;
};

struct DogState {
  DogState() { ++built; }
  ~DogState() { ++destroyed; }
  int age = 7;
  std::string name = "nobody, at a length that no short string holds";
  std::unique_ptr<int> heap = std::make_unique<int>(42);
};

using DogClass = Implementation<Dog, DogState>;

int four(Class) { return 4; }
double kind(Class, int number) { return number + 0.5; }
Strong<Dog> initWithName(Dog self, NSString name) {
  auto made = DogClass::superInit<&NSObject::init>(self);
  if (made) DogClass::state(made.get()).name = name.UTF8String();
  return made;
}
NSString name(Dog self) { return NSString::stringWithUTF8String(DogClass::state(self).name.c_str()); }
int age(Dog self) { return DogClass::state(self).age; }
void setAge(Dog self, int value) { DogClass::state(self).age = value; }
CGRect bounds(Dog self, CGPoint origin) { return {origin, {1.0 * age(self), 2}}; }

// A child with a state of its own.
struct Puppy : bridge::Face<"DefineTestPuppy", Dog> {
  MESSAGE Method<"toys", int()> toys;
};
struct PuppyState {
  PuppyState() { ++built; }
  ~PuppyState() { ++destroyed; }
  long long toys = 0x0123456789abcdef;
};
using PuppyClass = Implementation<Puppy, PuppyState>;

int toys(Puppy self) { return static_cast<int>(PuppyClass::state(self).toys & 0xff); }
int agePlusOne(Puppy self) { return PuppyClass::super<&Dog::age>(self) + 1; }
CGRect boundsMoved(Puppy self, CGPoint origin) {
  CGRect rect = PuppyClass::super<&Dog::bounds>(self, CGPoint{origin.x + 100, origin.y});
  rect.size.height += 1;
  return rect;
}
Strong<Dog> initPuppyWithName(Puppy self, NSString name) {
  auto made = PuppyClass::super<&Dog::initWithName>(self, name.stringByAppendingString("!"_ns));
  PuppyClass::state(bridge::as<Puppy>(made.get())).toys = 3;
  return made;
}
int fiveLegs(Class self) { return PuppyClass::superclassMethod<&Dog::legs>(self) + 1; }
double kindTwice(Class self, int number) {
  return 2 * PuppyClass::superclassMethod<&Dog::kind>(self, number);
}

// A grandchild without methods or state.
struct Pug : bridge::Face<"DefineTestPug", Puppy> {};

void defineDogs() {
  if (DogClass::cls) return;
  DogClass::define<NSObject>(method<&Dog::legs, four>(), method<&Dog::kind, kind>(),
                             method<&Dog::initWithName, initWithName>(), method<&Dog::name, name>(),
                             method<&Dog::age, age>(), method<&Dog::setAge, setAge>(),
                             method<&Dog::bounds, bounds>());
  PuppyClass::define<Dog>(method<&Puppy::toys, toys>(), method<&Puppy::age, agePlusOne>(),
                          method<&Puppy::bounds, boundsMoved>(),
                          method<&Puppy::initWithName, initPuppyWithName>(), method<&Puppy::legs, fiveLegs>(),
                          method<&Puppy::kind, kindTwice>());
  Implementation<Pug>::define<Puppy>();
}

template <class T = Dog>
Strong<T> named(NSString text) {
  defineDogs();
  freshLives();
  return make<T, &Dog::initWithName>(text);
}

TEST(Class, IsKnownByItsNameWithItsParent) {
  defineDogs();
  EXPECT_EQ(objc_getClass("DefineTestDog"), DogClass::cls);
  EXPECT_EQ(bridge::classNamed<Dog>(), DogClass::cls);
  EXPECT_STREQ(class_getName(DogClass::cls), "DefineTestDog");
  EXPECT_EQ(class_getSuperclass(DogClass::cls), bridge::classNamed<NSObject>());
  EXPECT_EQ(class_getSuperclass(PuppyClass::cls), DogClass::cls);
}

TEST(Class, AnswersItsMethods) {
  Pool pool;
  auto dog = named("Rex"_ns);
  EXPECT_EQ(dog->age(), 7);
  dog->setAge(3);
  EXPECT_EQ(dog->age(), 3);
  EXPECT_EQ(dog->bounds({5, 6}), (CGRect{{5, 6}, {3, 2}}));
}

TEST(Class, AnswersItsClassMethods) {
  defineDogs();
  EXPECT_EQ(Dog::legs(), 4);
  EXPECT_EQ(Dog::kind(3), 3.5);
}

TEST(Class, RegistersTheDerivedEncodings) {
  defineDogs();
  objc_method* own = class_getInstanceMethod(DogClass::cls, bridge::Descriptor<&Dog::bounds>::selector());
  ASSERT_NE(own, nullptr);
  EXPECT_STREQ(method_getTypeEncoding(own), "{CGRect={CGPoint=dd}{CGSize=dd}}@:{CGPoint=dd}");
}

TEST(Class, HasNoMethodThatItsTableDoesNotName) {
  Pool pool;
  auto dog = named("Rex"_ns);
  EXPECT_EQ(dog->respondsToSelector(bridge::Descriptor<&Dog::age>::selector()), YES);
  EXPECT_EQ(dog->respondsToSelector(bridge::Descriptor<&Puppy::toys>::selector()), NO);
}

TEST(Class, InheritsWhatItDoesNotOverride) {
  Pool pool;
  auto pug = named<Pug>("Al"_ns);
  EXPECT_STREQ(pug->name().UTF8String(), "Al!");
  EXPECT_EQ(pug->toys(), 3);
  EXPECT_EQ(pug->age(), 8);
}

TEST(Class, CallsItsParentsImplementationThroughSuper) {
  Pool pool;
  auto puppy = named<Puppy>("Al"_ns);
  EXPECT_EQ(puppy->age(), 8);
  EXPECT_EQ(puppy->bounds({1, 2}), (CGRect{{101, 2}, {7, 3}}));
}

TEST(Class, CallsItsParentsClassMethodThroughSuper) {
  defineDogs();
  EXPECT_EQ(Puppy::legs.on(PuppyClass::cls), 5);
  EXPECT_EQ(Puppy::kind.on(PuppyClass::cls, 3), 7.0);
  EXPECT_EQ(Dog::legs(), 4);
}

// What calls super is the class that has the method, whatever the receiver's class.
TEST(Class, OfAGrandchildCallsTheSameSuper) {
  Pool pool;
  EXPECT_EQ(named<Pug>("Al"_ns)->age(), 8);
  EXPECT_EQ(Pug::legs.on(Implementation<Pug>::cls), 5);
}

TEST(Class, InitialisesThroughItsParent) {
  Pool pool;
  auto puppy = named<Puppy>("Al"_ns);
  ASSERT_TRUE(puppy);
  EXPECT_STREQ(puppy->name().UTF8String(), "Al!");
  EXPECT_EQ(puppy->toys(), 3);
  EXPECT_EQ(puppy->retainCount(), 1u);
}

TEST(State, IsBuiltWhenFirstAskedFor) {
  defineDogs();
  freshLives();
  auto dog = make<Dog, &NSObject::init>();
  EXPECT_EQ(built, 0);
  EXPECT_EQ(dog->age(), 7);
  EXPECT_EQ(built, 1);
  dog->setAge(2);
  EXPECT_EQ(dog->age(), 2);
  EXPECT_EQ(built, 1);
}

TEST(State, IsDestroyedByDeallocOnce) {
  Pool pool;
  auto dog = named("Rex"_ns);
  Strong<Dog> other = dog;
  dog.clear();
  EXPECT_EQ(destroyed, 0);
  other.clear();
  EXPECT_EQ(built, 1);
  EXPECT_EQ(destroyed, 1);
}

TEST(State, OfAnObjectThatWasNeverInitialisedIsNeverBuilt) {
  defineDogs();
  freshLives();
  {
    auto dog = bridge::allocate<Dog>();
  }
  {
    auto puppy = bridge::allocate<Puppy>();
  }
  EXPECT_EQ(built, 0);
  EXPECT_EQ(destroyed, 0);
}

TEST(State, LiesInsideItsObject) {
  Pool pool;
  auto dog = named("Rex"_ns);
  auto object = reinterpret_cast<const char*>(dog.get().raw);
  auto state = reinterpret_cast<const char*>(&DogClass::state(dog.get()));
  EXPECT_GE(state, object + sizeof(id));
  EXPECT_LE(state + sizeof(DogState), object + class_getInstanceSize(DogClass::cls));
  EXPECT_EQ(reinterpret_cast<uintptr_t>(state) % alignof(DogState), 0u);
}

TEST(State, OfEveryObjectIsItsOwn) {
  Pool pool;
  auto one = named("Rex"_ns), other = make<Dog, &Dog::initWithName>("Bo"_ns);
  one->setAge(1);
  other->setAge(2);
  EXPECT_EQ(one->age(), 1);
  EXPECT_STREQ(one->name().UTF8String(), "Rex");
  EXPECT_STREQ(other->name().UTF8String(), "Bo");
}

TEST(State, OfAChildLiesBesideItsParents) {
  Pool pool;
  auto puppy = named<Puppy>("Al"_ns);
  auto parents = reinterpret_cast<const char*>(&DogClass::state(puppy.get()));
  auto own = reinterpret_cast<const char*>(&PuppyClass::state(puppy.get()));
  EXPECT_GE(own, parents + sizeof(DogState));
  PuppyClass::state(puppy.get()).toys = -1;
  EXPECT_EQ(DogClass::state(puppy.get()).age, 7);
  EXPECT_STREQ(puppy->name().UTF8String(), "Al!");
  puppy->setAge(-1);
  EXPECT_EQ(PuppyClass::state(puppy.get()).toys, -1);
}

TEST(State, OfChildAndParentAreBothDestroyedOnce) {
  Pool pool;
  auto puppy = named<Puppy>("Al"_ns);
  EXPECT_EQ(built, 2);
  puppy.clear();
  EXPECT_EQ(destroyed, 2);
}

TEST(State, OfAGrandchildWithoutAnyIsItsParents) {
  Pool pool;
  auto pug = named<Pug>("Al"_ns);
  EXPECT_EQ(built, 2);
  pug.clear();
  EXPECT_EQ(destroyed, 2);
}

// A class of ours whose name somebody else has taken.
struct Taken : bridge::Face<"DefineTestTaken", NSObject> {
  static constexpr bridge::ClassMethod<"DefineTestTaken", "answer", int()> answer{};
  MESSAGE Method<"number", int()> number;
};
struct TakenState {
  int number = 2;
};
using TakenClass = Implementation<Taken, TakenState>;
int answer(Class) { return 42; }
int numberOf(Taken self) { return TakenClass::state(self).number; }

// Before it is defined the name has been looked up already.
Class takeName() {
  Class theirs = objc_allocateClassPair(bridge::classNamed<NSObject>(), "DefineTestTaken", 0);
  objc_registerClassPair(theirs);
  EXPECT_EQ(bridge::classNamed<Taken>(), theirs);
  TakenClass::define<NSObject>(method<&Taken::answer, answer>(), method<&Taken::number, numberOf>());
  return theirs;
}

TEST(TakenName, LeavesTheExistingClassAlone) {
  Class theirs = takeName();
  EXPECT_EQ(objc_getClass("DefineTestTaken"), theirs);
  EXPECT_EQ(class_getInstanceMethod(theirs, bridge::selector<"number">()), nullptr);
  EXPECT_EQ(class_getInstanceSize(theirs), class_getInstanceSize(bridge::classNamed<NSObject>()));
}

TEST(TakenName, GivesTheClassOneThatNoCompilerCanGive) {
  takeName();
  EXPECT_STREQ(class_getName(TakenClass::cls), "DefineTestTaken.2");
  EXPECT_EQ(objc_getClass("DefineTestTaken.2"), TakenClass::cls);
}

TEST(TakenName, LeadsToOurClassEverywhere) {
  Class theirs = takeName();
  EXPECT_EQ(bridge::classNamed<Taken>(), TakenClass::cls);
  EXPECT_EQ(Taken::answer(), 42);
  auto object = make<Taken, &NSObject::init>();
  EXPECT_EQ(object->number(), 2);
  EXPECT_TRUE(bridge::isKindOf<Taken>(object.get()));
  EXPECT_FALSE(bridge::isKindOf(object.get(), theirs));
}

TEST(TakenName, OfTwoGivesTheNextNumber) {
  Class other = objc_allocateClassPair(bridge::classNamed<NSObject>(), "DefineTestTaken.2", 0);
  objc_registerClassPair(other);
  takeName();
  EXPECT_STREQ(class_getName(TakenClass::cls), "DefineTestTaken.3");
}

TEST(Claim, IsGivenOnce) {
  EXPECT_TRUE(bridge::claim("define.test"));
  EXPECT_FALSE(bridge::claim("define.test"));
}

struct Nowhere : bridge::Face<"DefineTestNowhere", NSObject> {};
struct Orphan : bridge::Face<"DefineTestOrphan", Nowhere> {};

TEST(Class, OfAMissingParentIsNotMade) {
  Implementation<Orphan>::define<Nowhere>();
  EXPECT_EQ(Implementation<Orphan>::cls, nullptr);
  EXPECT_EQ(objc_getClass("DefineTestOrphan"), nullptr);
}

// A parent that sends a message to an object whose own dealloc has begun.
struct LateParent : bridge::Face<"DefineTestLateParent", NSObject> {};
struct Late : bridge::Face<"DefineTestLate", LateParent> {
  MESSAGE Property<"age", int> age;
};
struct LateState {
  int age = 7;
  std::string name = "nobody, at a length that no short string holds";
};
using LateParentClass = Implementation<LateParent>;
using LateClass = Implementation<Late, LateState>;

int lateAge = 0;
size_t lateName = 0;
void deallocLateParent(LateParent self) {
  lateAge = bridge::as<Late>(self).age();
  lateName = LateClass::state(bridge::as<Late>(self)).name.size();
  LateParentClass::super<&NSObject::dealloc>(self);
}

TEST(State, IsFreshForAMessageThatComesAfterItsEnd) {
  LateParentClass::define<NSObject>(method<&NSObject::dealloc, deallocLateParent>());
  LateClass::define<LateParent>(LateClass::property<&Late::age, &LateState::age>());
  auto late = make<Late, &NSObject::init>();
  late->age.set(3);
  late.clear();
  EXPECT_EQ(lateAge, 7);
  EXPECT_EQ(lateName, std::string(LateState().name).size());
}

}  // namespace
