// Replacing methods in a process without a hooking library.
#include <gtest/gtest.h>

#include <string>

#include "tests/bridge/animals.hpp"

namespace {

using bridge::install;
using bridge::original;
using bridge::replace;
using test::Animals;

TEST(NoHookingLibrary, IsFound) { EXPECT_EQ(bridge::hookFunction(), nullptr); }

// What an inherited method's replacement replaced is looked up at the time of the call.
using Later = Animals<"Later">;
int fishAge(Later::Fish self) { return original<fishAge>(self) + 1; }
int parentsAge(Later::Animal self) { return original<parentsAge>(self) * 10; }
TEST(NoHookingLibrary, InheritedReplacementHonoursALaterOneOfTheParent) {
  auto animal = Later::make<Later::Animal>();
  auto fish = Later::make<Later::Fish>();
  install(replace<Later::Fish, &Later::Animal::age, fishAge>());
  ASSERT_EQ(fish->age(), 8);
  install(replace<Later::Animal, &Later::Animal::age, parentsAge>());
  EXPECT_EQ(animal->age(), 70);
  EXPECT_EQ(fish->age(), 71);
}

using LaterOfClass = Animals<"LaterOfClass">;
int catsLegs(Class self) { return original<catsLegs>(self) + 1; }
int parentsLegs(Class self) { return original<parentsLegs>(self) * 10; }
TEST(NoHookingLibrary, InheritedClassMethodReplacementHonoursALaterOneOfTheParent) {
  LaterOfClass::define();
  install(replace<LaterOfClass::Cat, &LaterOfClass::Animal::legs, catsLegs>());
  install(replace<LaterOfClass::Animal, &LaterOfClass::Animal::legs, parentsLegs>());
  EXPECT_EQ(LaterOfClass::Animal::legs.on(LaterOfClass::CatClass::cls), 41);
}

using Slots = Animals<"Slots">;
int ownAge(Slots::Animal self) { return original<ownAge>(self); }
int inheritedAge(Slots::Fish self) { return original<inheritedAge>(self); }
int missing(Slots::Animal self) { return original<missing>(self); }
TEST(NoHookingLibrary, SlotKeepsTheImplementationOrTheClassToLookItUpIn) {
  Slots::define();
  SEL age = bridge::Descriptor<&Slots::Animal::age>::selector();
  IMP before = class_getMethodImplementation(Slots::AnimalClass::cls, age);
  install(replace<Slots::Fish, &Slots::Animal::age, inheritedAge>());
  EXPECT_EQ(bridge::slot<inheritedAge>.previous, nullptr);
  EXPECT_EQ(bridge::slot<inheritedAge>.above, Slots::AnimalClass::cls);
  EXPECT_EQ(bridge::slot<inheritedAge>.implementation(), before);
  install(replace<Slots::Animal, &Slots::Animal::age, ownAge>());
  EXPECT_EQ(bridge::slot<ownAge>.previous, before);
  EXPECT_EQ(bridge::slot<ownAge>.above, nullptr);
  EXPECT_NE(bridge::slot<inheritedAge>.implementation(), before);
  install(replace<Slots::Animal, &Slots::Animal::fly, missing>());
  EXPECT_EQ(bridge::slot<missing>.implementation(), nullptr);
}

// The desktop runtime keeps a class's methods in groups of 32 and copies a group for a child that overrides
// one of them; the others of the group must still follow the parent.
int one(id, SEL) { return 1; }
int two(id, SEL) { return 2; }
int three(id, SEL) { return 3; }
TEST(NoHookingLibrary, ReplacedMethodsOfAParentReachAChildThatOverridesTheirNeighbour) {
  auto implementation = [](int (*function)(id, SEL)) { return reinterpret_cast<IMP>(function); };
  constexpr int count = 64, overridden = 20;
  SEL selectors[count];
  Class parent = objc_allocateClassPair(bridge::classNamed<NSObject>(), "ReplaceTestParent", 0);
  for (int i = 0; i < count; ++i) {
    selectors[i] = sel_registerName(("replaceTest" + std::to_string(i)).c_str());
    class_addMethod(parent, selectors[i], implementation(one), "i@:");
  }
  objc_registerClassPair(parent);
  Class child = objc_allocateClassPair(parent, "ReplaceTestChild", 0);
  class_addMethod(child, selectors[overridden], implementation(three), "i@:");
  objc_registerClassPair(child);
  id object = bridge::Message<"new", bridge::Object()>::send(reinterpret_cast<id>(child)).leak();
  auto answer = [&](int i) {
    auto found = reinterpret_cast<int (*)(id, SEL)>(bridge::messenger(object, selectors[i], false));
    return found(object, selectors[i]);
  };
  for (int i = 0; i < count; ++i) ASSERT_EQ(answer(i), i == overridden ? 3 : 1) << i;
  for (SEL selector : selectors) {
    bridge::Slot slot;
    bridge::replaceMethod(parent, selector, implementation(two), slot);
  }
  for (int i = 0; i < count; ++i) EXPECT_EQ(answer(i), i == overridden ? 3 : 2) << i;
  bridge::release(object);
}

using Direct = Animals<"Direct">;
int directAge(Direct::Animal self) { return original<directAge>(self) + 1; }
TEST(NoHookingLibrary, ReplaceMethodWorksByItself) {
  auto animal = Direct::make<Direct::Animal>();
  using Age = bridge::Descriptor<&Direct::Animal::age>;
  bridge::replaceMethod(Direct::AnimalClass::cls, Age::selector(),
                        bridge::Thunk<Age, directAge>::implementation(), bridge::slot<directAge>);
  EXPECT_EQ(animal->age(), 8);
}

}  // namespace
