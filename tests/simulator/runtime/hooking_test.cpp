// MSHookMessageEx, as libraries expect it of the process that they are loaded into.
#include "simulator/runtime/hooking.hpp"

#include <gtest/gtest.h>

#include "tests/bridge/animals.hpp"

extern "C" void MSHookMessageEx(Class cls, SEL selector, IMP implementation, IMP* previous);

namespace {

using test::Animals;

using AgeFunction = int (*)(id, SEL);

SEL age() { return bridge::selector<"age">(); }
SEL legs() { return bridge::selector<"legs">(); }

IMP untouched() { return reinterpret_cast<IMP>(0x1234); }

IMP implementation(AgeFunction function) { return reinterpret_cast<IMP>(function); }

// What a replacement finds of the method before; each test has one, since each runs in a process of its own.
IMP previous = untouched(), laterPrevious = untouched();

int oneMore(id self, SEL selector) { return reinterpret_cast<AgeFunction>(previous)(self, selector) + 1; }
int tenfold(id self, SEL selector) {
  return reinterpret_cast<AgeFunction>(laterPrevious)(self, selector) * 10;
}

using Own = Animals<"HookOwn">;
TEST(Hooking, ReplacesAMethodOfTheClassItself) {
  auto animal = Own::make<Own::Animal>();
  IMP before = class_getMethodImplementation(Own::AnimalClass::cls, age());
  MSHookMessageEx(Own::AnimalClass::cls, age(), implementation(oneMore), &previous);
  EXPECT_EQ(previous, before);
  EXPECT_EQ(animal->age(), 8);
  // Those that inherit it get the replacement, those that override it keep their own above it.
  EXPECT_EQ(Own::make<Own::Fish>()->age(), 8);
  EXPECT_EQ(Own::make<Own::Cat>()->age(), 800);
}

using Inherited = Animals<"HookInherited">;
TEST(Hooking, OfAnInheritedMethodLeavesTheParentItsOwn) {
  auto fish = Inherited::make<Inherited::Fish>();
  IMP before = class_getMethodImplementation(Inherited::AnimalClass::cls, age());
  MSHookMessageEx(Inherited::FishClass::cls, age(), implementation(oneMore), &previous);
  EXPECT_EQ(previous, before);
  EXPECT_EQ(fish->age(), 8);
  EXPECT_EQ(Inherited::make<Inherited::Animal>()->age(), 7);
  EXPECT_EQ(Inherited::make<Inherited::Cat>()->age(), 700);
}

using OfClass = Animals<"HookClass">;
TEST(Hooking, OfAClassMethodGoesThroughTheMetaclass) {
  OfClass::define();
  Class meta = bridge::classOf(reinterpret_cast<id>(OfClass::AnimalClass::cls));
  MSHookMessageEx(meta, legs(), implementation(oneMore), &previous);
  EXPECT_EQ(OfClass::Animal::legs(), 5);
  EXPECT_EQ(OfClass::Animal::legs.on(OfClass::CatClass::cls), 5);
  EXPECT_EQ(OfClass::Animal::legs.on(OfClass::FishClass::cls), 0);
}

using Twice = Animals<"HookTwice">;
TEST(Hooking, TwiceMakesAChain) {
  auto animal = Twice::make<Twice::Animal>();
  MSHookMessageEx(Twice::AnimalClass::cls, age(), implementation(oneMore), &previous);
  MSHookMessageEx(Twice::AnimalClass::cls, age(), implementation(tenfold), &laterPrevious);
  EXPECT_EQ(laterPrevious, implementation(oneMore));
  EXPECT_EQ(animal->age(), (7 + 1) * 10);
}

using Chain = Animals<"HookChain">;
TEST(Hooking, OfParentAndChildAreIndependent) {
  auto fish = Chain::make<Chain::Fish>();
  MSHookMessageEx(Chain::FishClass::cls, age(), implementation(tenfold), &laterPrevious);
  MSHookMessageEx(Chain::AnimalClass::cls, age(), implementation(oneMore), &previous);
  EXPECT_EQ(Chain::make<Chain::Animal>()->age(), 8);
  EXPECT_EQ(fish->age(), 70);
}

using Unknown = Animals<"HookUnknown">;
TEST(HookingDeathTest, OfAnUnknownSelectorEndsTheProcess) {
  Unknown::define();
  EXPECT_DEATH(MSHookMessageEx(Unknown::AnimalClass::cls, bridge::selector<"fly">(), implementation(oneMore),
                               &previous),
               "MSHookMessageEx: AnimalHookUnknown has no method 'fly'");
}

// A class method is none of the instances' and the other way round.
TEST(HookingDeathTest, OfAClassMethodAsAnInstancesEndsTheProcess) {
  Unknown::define();
  EXPECT_DEATH(MSHookMessageEx(Unknown::AnimalClass::cls, legs(), implementation(oneMore), &previous),
               "AnimalHookUnknown has no method 'legs'");
}

TEST(Hooking, OfAnUnknownClassChangesNothing) {
  MSHookMessageEx(objc_getClass("NoSuchClass"), age(), implementation(oneMore), &previous);
  EXPECT_EQ(previous, untouched());
}

using Discarding = Animals<"HookDiscarding">;
int hundred(id, SEL) { return 100; }
TEST(Hooking, NeedsNoPlaceForThePreviousMethod) {
  auto animal = Discarding::make<Discarding::Animal>();
  MSHookMessageEx(Discarding::AnimalClass::cls, age(), implementation(hundred), nullptr);
  EXPECT_EQ(animal->age(), 100);
}

using Eager = Animals<"HookEager">;
TEST(Hooking, IsCountedWhereItReplacedSomething) {
  Eager::define();
  MSHookMessageEx(Eager::AnimalClass::cls, age(), implementation(oneMore), &previous);
  MSHookMessageEx(Eager::FishClass::cls, age(), implementation(tenfold), &laterPrevious);
  MSHookMessageEx(nullptr, age(), implementation(hundred), nullptr);
  EXPECT_EQ(sim::replacements().size(), 2u);
}

}  // namespace
