// Replacing methods in a process that has a hooking library, which here is this program's own: it finds
// methods as the usual ones do, and remembers what it was asked for.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/bridge/animals.hpp"

namespace {

struct Asked {
  Class cls;
  std::string selector;
  IMP implementation;
  IMP* previous;
};
std::vector<Asked> asked;

}  // namespace

extern "C" __attribute__((visibility("default"))) void MSHookMessageEx(Class cls, SEL selector,
                                                                       IMP implementation, IMP* previous) {
  asked.push_back({cls, sel_getName(selector), implementation, previous});
  objc_method* known = class_getInstanceMethod(cls, selector);
  if (!known) return;
  *previous = method_getImplementation(known);
  bridge::Slot slot;
  bridge::replaceMethod(cls, selector, implementation, slot);
}

namespace {

using bridge::add;
using bridge::install;
using bridge::original;
using bridge::replace;
using test::Animals;

TEST(HookingLibrary, IsFound) { EXPECT_EQ(bridge::hookFunction(), &MSHookMessageEx); }

using Asking = Animals<"Asking">;
int asksAge(Asking::Fish self) { return original<asksAge>(self) + 1; }
TEST(HookingLibrary, ReplacesEveryMethod) {
  auto fish = Asking::make<Asking::Fish>();
  IMP before = class_getMethodImplementation(Asking::FishClass::cls, sel_registerName("age"));
  asked.clear();
  constexpr auto row = replace<Asking::Fish, &Asking::Animal::age, asksAge>();
  install(row);
  ASSERT_EQ(asked.size(), 1u);
  EXPECT_EQ(asked[0].cls, Asking::FishClass::cls);
  EXPECT_EQ(asked[0].selector, "age");
  EXPECT_EQ(asked[0].implementation, row.implementation());
  EXPECT_EQ(asked[0].previous, &bridge::slot<asksAge>.previous);
  EXPECT_EQ(bridge::slot<asksAge>.previous, before);
  EXPECT_EQ(fish->age(), 8);
}

using AskingClass = Animals<"AskingClass">;
int asksLegs(Class self) { return original<asksLegs>(self) + 1; }
TEST(HookingLibrary, IsGivenTheMetaclassForAClassMethod) {
  AskingClass::define();
  asked.clear();
  install(replace<AskingClass::Animal, &AskingClass::Animal::legs, asksLegs>());
  ASSERT_EQ(asked.size(), 1u);
  EXPECT_EQ(asked[0].cls, bridge::classOf(reinterpret_cast<id>(AskingClass::AnimalClass::cls)));
  EXPECT_EQ(AskingClass::Animal::legs(), 5);
}

struct Nowhere : bridge::Face<"HookTestNowhere", NSObject> {
  MESSAGE Method<"age", int()> age;
};
int nowheresAge(Nowhere self) { return original<nowheresAge>(self); }
TEST(HookingLibrary, IsNotAskedForAMissingClass) {
  asked.clear();
  install(replace<Nowhere, &Nowhere::age, nowheresAge>());
  EXPECT_TRUE(asked.empty());
}

using Lacking = Animals<"Lacking">;
int lacksFlying(Lacking::Animal self) { return original<lacksFlying>(self); }
TEST(HookingLibrary, IsNotAskedForAMissingMethod) {
  Lacking::define();
  asked.clear();
  install(replace<Lacking::Animal, &Lacking::Animal::fly, lacksFlying>());
  EXPECT_TRUE(asked.empty());
}

using Adding = Animals<"Adding">;
int flies(Adding::Animal) { return 3; }
TEST(HookingLibrary, IsNotAskedForAnAddition) {
  auto animal = Adding::make<Adding::Animal>();
  asked.clear();
  install(add<Adding::Animal, &Adding::Animal::fly, flies>("i@:"));
  EXPECT_TRUE(asked.empty());
  EXPECT_EQ(animal->fly(), 3);
}

}  // namespace
