// Replacing methods of classes that exist. The same tests hold with and without a hooking library in the
// process, so this file is part of a program of either kind.
#include "bridge/replace.hpp"

#include <gtest/gtest.h>

#include "tests/bridge/animals.hpp"

namespace {

using bridge::add;
using bridge::install;
using bridge::original;
using bridge::replace;
using bridge::Row;
using test::Animals;

using Own = Animals<"Own">;
int ageDoubled(Own::Animal self) { return original<ageDoubled>(self) * 2; }
TEST(Replacement, OfAnOwnMethodHasWhatItReplaced) {
  auto animal = Own::make<Own::Animal>();
  install(replace<Own::Animal, &Own::Animal::age, ageDoubled>());
  EXPECT_EQ(animal->age(), 14);
}

using Argument = Animals<"Argument">;
int onePlusAge(Argument::Animal self, int years) { return original<onePlusAge>(self, years + 1) * 10; }
TEST(Replacement, PassesArgumentsOn) {
  auto animal = Argument::make<Argument::Animal>();
  install(replace<Argument::Animal, &Argument::Animal::agePlus, onePlusAge>());
  EXPECT_EQ(animal->agePlus(2), 100);
}

using Inherited = Animals<"Inherited">;
int fishAge(Inherited::Fish self) { return original<fishAge>(self) + 1; }
TEST(Replacement, OfAnInheritedMethodIsTheChildsAlone) {
  auto animal = Inherited::make<Inherited::Animal>();
  auto cat = Inherited::make<Inherited::Cat>();
  auto fish = Inherited::make<Inherited::Fish>();
  install(replace<Inherited::Fish, &Inherited::Animal::age, fishAge>());
  EXPECT_EQ(fish->age(), 8);
  EXPECT_EQ(animal->age(), 7);
  EXPECT_EQ(cat->age(), 700);
}

using Types = Animals<"Types">;
CGRect framed(Types::Fish self, CGRect rect) { return original<framed>(self, rect); }
TEST(Replacement, OfAnInheritedMethodKeepsItsTypes) {
  Types::define();
  install(replace<Types::Fish, &Types::Animal::frameIn, framed>());
  SEL selector = bridge::Descriptor<&Types::Animal::frameIn>::selector();
  objc_method* parents = class_getInstanceMethod(Types::AnimalClass::cls, selector);
  objc_method* own = class_getInstanceMethod(Types::FishClass::cls, selector);
  ASSERT_NE(own, parents);
  EXPECT_STREQ(method_getTypeEncoding(own), method_getTypeEncoding(parents));
}

using OfClass = Animals<"OfClass">;
int morelegs(Class self) { return original<morelegs>(self) + 1; }
TEST(Replacement, OfAClassMethod) {
  OfClass::define();
  install(replace<OfClass::Animal, &OfClass::Animal::legs, morelegs>());
  EXPECT_EQ(OfClass::Animal::legs(), 5);
  EXPECT_EQ(OfClass::Animal::legs.on(OfClass::CatClass::cls), 5);
  EXPECT_EQ(OfClass::Animal::legs.on(OfClass::FishClass::cls), 0);
}

using OfClassInherited = Animals<"OfClassInherited">;
int catlegs(Class self) { return original<catlegs>(self) * 10; }
TEST(Replacement, OfAnInheritedClassMethodIsTheChildsAlone) {
  OfClassInherited::define();
  install(replace<OfClassInherited::Cat, &OfClassInherited::Animal::legs, catlegs>());
  EXPECT_EQ(OfClassInherited::Animal::legs(), 4);
  EXPECT_EQ(OfClassInherited::Animal::legs.on(OfClassInherited::CatClass::cls), 40);
  EXPECT_EQ(OfClassInherited::Animal::legs.on(OfClassInherited::FishClass::cls), 0);
}

using Warm = Animals<"Warm">;
int warmAge(Warm::Animal self) { return original<warmAge>(self) + 1; }
int warmFishAge(Warm::Fish self) { return original<warmFishAge>(self) + 10; }
TEST(Replacement, ReachesObjectsThatWereSentTheMessageBefore) {
  auto animal = Warm::make<Warm::Animal>();
  auto cat = Warm::make<Warm::Cat>();
  auto fish = Warm::make<Warm::Fish>();
  for (int i = 0; i < 3; ++i) ASSERT_EQ(animal->age() + cat->age() + fish->age(), 714);
  ASSERT_EQ(animal->callAge(), 7);
  install(replace<Warm::Animal, &Warm::Animal::age, warmAge>());
  EXPECT_EQ(animal->age(), 8);
  EXPECT_EQ(animal->callAge(), 8);
  EXPECT_EQ(cat->age(), 800);
  EXPECT_EQ(fish->age(), 8);
  install(replace<Warm::Fish, &Warm::Animal::age, warmFishAge>());
  EXPECT_EQ(fish->age(), 18);
  EXPECT_EQ(fish->callAge(), 18);
  EXPECT_EQ(animal->age(), 8);
}

using WarmOverrider = Animals<"WarmOverrider">;
int warmPlus(WarmOverrider::Animal self, int years) { return original<warmPlus>(self, years) + 1000; }
CGRect warmFrame(WarmOverrider::Animal) { return {}; }
TEST(Replacement, ReachesAChildThatOverridesOtherMethods) {
  auto cat = WarmOverrider::make<WarmOverrider::Cat>();
  ASSERT_EQ(cat->agePlus(1), 701);
  ASSERT_EQ(cat->frame(), (CGRect{{1, 2}, {3, 4}}));
  install(replace<WarmOverrider::Animal, &WarmOverrider::Animal::agePlus, warmPlus>());
  install(replace<WarmOverrider::Animal, &WarmOverrider::Animal::frame, warmFrame>());
  EXPECT_EQ(cat->agePlus(1), 1701);
  EXPECT_EQ(cat->frame(), CGRect{});
}

// A class that has been sent nothing yet, whose method others of the same selector must not notice.
using Cold = Animals<"Cold">;
using OtherCold = Animals<"OtherCold">;
int coldAge(Cold::Animal self) { return original<coldAge>(self) + 1; }
int coldLegs(Class self) { return original<coldLegs>(self) + 1; }
TEST(Replacement, BeforeTheFirstMessageLeavesOtherClassesAlone) {
  Cold::define();
  OtherCold::define();
  install(replace<Cold::Animal, &Cold::Animal::age, coldAge>());
  install(replace<Cold::Animal, &Cold::Animal::legs, coldLegs>());
  EXPECT_EQ(OtherCold::Animal::legs(), 4);
  EXPECT_EQ(OtherCold::make<OtherCold::Animal>()->age(), 7);
  EXPECT_EQ(OtherCold::make<OtherCold::Cat>()->age(), 700);
  EXPECT_EQ(Cold::Animal::legs.on(Cold::FishClass::cls), 0);
  EXPECT_EQ(Cold::Animal::legs.on(Cold::CatClass::cls), 5);
  EXPECT_EQ(Cold::make<Cold::Cat>()->age(), 800);
  EXPECT_EQ(Cold::make<Cold::Fish>()->age(), 8);
  EXPECT_EQ(Cold::make<Cold::Animal>()->respondsToSelector(sel_registerName("fly")), NO);
}

using Overridden = Animals<"Overridden">;
int parentsAge(Overridden::Animal self) { return original<parentsAge>(self) + 2; }
TEST(Replacement, OfAParentsMethodIsReachedThroughSuper) {
  auto cat = Overridden::make<Overridden::Cat>();
  install(replace<Overridden::Animal, &Overridden::Animal::age, parentsAge>());
  EXPECT_EQ(cat->age(), 900);
  EXPECT_EQ(cat->agePlus(1), 901);
}

using Overriding = Animals<"Overriding">;
int overridersAge(Overriding::Cat self) { return original<overridersAge>(self) + 2; }
TEST(Replacement, OfAnOverridingMethodLeavesTheOverridden) {
  auto animal = Overriding::make<Overriding::Animal>();
  auto cat = Overriding::make<Overriding::Cat>();
  install(replace<Overriding::Cat, &Overriding::Animal::age, overridersAge>());
  EXPECT_EQ(cat->age(), 702);
  EXPECT_EQ(animal->age(), 7);
}

using Results = Animals<"Results">;
using R = Results::Animal;
CGRect wider(R self) {
  CGRect rect = original<wider>(self);
  rect.size.width += 10;
  return rect;
}
CGRect inner(R self, CGRect outer) {
  outer.origin.x += 1;
  return original<inner>(self, outer);
}
float taller(R self) { return original<taller>(self) + 0.25f; }
double heavier(R self) { return original<heavier>(self) + 0.125; }
double heavierWith(R self, double one, float other) { return original<heavierWith>(self, one, other) * 2; }
BOOL isNot(R self, BOOL value) { return !original<isNot>(self, value); }
void rememberMore(R self, int value) { original<rememberMore>(self, value + 1); }
NSObject selfSame(R self) { return original<selfSame>(self); }
bridge::Strong<NSObject> copyToo(R self) { return original<copyToo>(self); }

TEST(Replacement, AnswersAStructure) {
  auto animal = Results::make<R>();
  install(replace<R, &R::frame, wider>());
  install(replace<R, &R::frameIn, inner>());
  EXPECT_EQ(animal->frame(), (CGRect{{1, 2}, {13, 4}}));
  EXPECT_EQ(animal->frameIn({{5, 6}, {7, 8}}), (CGRect{{6, 6}, {1, 1}}));
}
TEST(Replacement, AnswersAFloatAndADouble) {
  auto animal = Results::make<R>();
  install(replace<R, &R::height, taller>());
  install(replace<R, &R::weight, heavier>());
  install(replace<R, &R::weightWith_and, heavierWith>());
  EXPECT_EQ(animal->height(), 1.75f);
  EXPECT_EQ(animal->weight(), 2.625);
  EXPECT_EQ(animal->weightWith_and(3.5, 0.5f), 6.0);
}
TEST(Replacement, TakesAndAnswersABool) {
  auto animal = Results::make<R>();
  install(replace<R, &R::isSame, isNot>());
  EXPECT_EQ(animal->isSame(YES), NO);
  EXPECT_EQ(animal->isSame(NO), YES);
}
TEST(Replacement, AnswersNothing) {
  auto animal = Results::make<R>();
  install(replace<R, &R::remember, rememberMore>());
  animal->remember(4);
  EXPECT_EQ(Results::remembered, 5);
}
TEST(Replacement, AnswersAnObject) {
  auto animal = Results::make<R>();
  install(replace<R, &R::myself, selfSame>());
  EXPECT_EQ(animal->myself(), animal.get());
  EXPECT_EQ(animal->retainCount(), 1u);
}
TEST(Replacement, HandsAReferenceThrough) {
  auto animal = Results::make<R>();
  install(replace<R, &R::copy, copyToo>());
  {
    auto copy = animal->copy();
    EXPECT_EQ(animal->retainCount(), 2u);
  }
  EXPECT_EQ(animal->retainCount(), 1u);
}

using Twice = Animals<"Twice">;
int firstAge(Twice::Animal self) { return original<firstAge>(self) + 1; }
int secondAge(Twice::Animal self) { return original<secondAge>(self) * 10; }
TEST(Replacement, OfAReplacedMethodChains) {
  auto animal = Twice::make<Twice::Animal>();
  install(replace<Twice::Animal, &Twice::Animal::age, firstAge>());
  install(replace<Twice::Animal, &Twice::Animal::age, secondAge>());
  EXPECT_EQ(animal->age(), 80);
}

using TwiceInherited = Animals<"TwiceInherited">;
int firstFishAge(TwiceInherited::Fish self) { return original<firstFishAge>(self) + 1; }
int secondFishAge(TwiceInherited::Fish self) { return original<secondFishAge>(self) * 10; }
TEST(Replacement, OfAReplacedInheritedMethodChains) {
  auto animal = TwiceInherited::make<TwiceInherited::Animal>();
  auto fish = TwiceInherited::make<TwiceInherited::Fish>();
  install(replace<TwiceInherited::Fish, &TwiceInherited::Animal::age, firstFishAge>());
  install(replace<TwiceInherited::Fish, &TwiceInherited::Animal::age, secondFishAge>());
  EXPECT_EQ(fish->age(), 80);
  EXPECT_EQ(animal->age(), 7);
}

struct Nowhere : bridge::Face<"ReplaceTestNowhere", NSObject> {
  static constexpr bridge::ClassMethod<"ReplaceTestNowhere", "legs", int()> legs{};
  MESSAGE Method<"age", int()> age;
  MESSAGE Method<"frame", CGRect()> frame;
  MESSAGE Method<"copy", NSObject()> copy;
  MESSAGE Method<"forget", void()> forget;
};
int noAge(Nowhere self) { return original<noAge>(self) + 1; }
int noLegs(Class self) { return original<noLegs>(self) + 1; }
CGRect noFrame(Nowhere self) { return original<noFrame>(self); }
bridge::Strong<NSObject> noCopy(Nowhere self) { return original<noCopy>(self); }
void noForget(Nowhere self) { original<noForget>(self); }
TEST(Replacement, OfAMissingClassReplacesNothing) {
  install(replace<Nowhere, &Nowhere::age, noAge>());
  install(replace<Nowhere, &Nowhere::legs, noLegs>());
  install(replace<Nowhere, &Nowhere::frame, noFrame>());
  install(replace<Nowhere, &Nowhere::copy, noCopy>());
  install(replace<Nowhere, &Nowhere::forget, noForget>());
  EXPECT_EQ(objc_getClass("ReplaceTestNowhere"), nullptr);
}
TEST(Replacement, ThatReplacesNothingHasAnOriginalThatAnswersZero) {
  Nowhere nobody;
  EXPECT_EQ(original<noAge>(nobody), 0);
  EXPECT_EQ(original<noLegs>(nullptr), 0);
  EXPECT_EQ(original<noFrame>(nobody), CGRect{});
  EXPECT_FALSE(original<noCopy>(nobody));
  original<noForget>(nobody);
}

using NoMethod = Animals<"NoMethod">;
int fly(NoMethod::Animal self) { return original<fly>(self) + 1; }
TEST(Replacement, OfAMissingMethodReplacesNothing) {
  auto animal = NoMethod::make<NoMethod::Animal>();
  install(replace<NoMethod::Animal, &NoMethod::Animal::fly, fly>());
  EXPECT_EQ(animal->respondsToSelector(bridge::Descriptor<&NoMethod::Animal::fly>::selector()), NO);
  EXPECT_EQ(original<fly>(animal.get()), 0);
}

using Added = Animals<"Added">;
int flies(Added::Animal) { return 12; }
TEST(Addition, GivesTheClassAndItsChildrenAMethod) {
  auto animal = Added::make<Added::Animal>();
  auto cat = Added::make<Added::Cat>();
  ASSERT_EQ(animal->respondsToSelector(bridge::Descriptor<&Added::Animal::fly>::selector()), NO);
  install(add<Added::Animal, &Added::Animal::fly, flies>("i@:"));
  EXPECT_EQ(animal->fly(), 12);
  EXPECT_EQ(cat->fly(), 12);
}

using AddedTypes = Animals<"AddedTypes">;
int fliesFar(AddedTypes::Animal) { return 12; }
TEST(Addition, GoesOutWithTheTypesAsGiven) {
  AddedTypes::define();
  install(add<AddedTypes::Animal, &AddedTypes::Animal::fly, fliesFar>("B@:"));
  SEL selector = bridge::Descriptor<&AddedTypes::Animal::fly>::selector();
  objc_method* added = class_getInstanceMethod(AddedTypes::AnimalClass::cls, selector);
  ASSERT_NE(added, nullptr);
  EXPECT_STREQ(method_getTypeEncoding(added), "B@:");
}

using AddedOfClass = Animals<"AddedOfClass">;
struct Winged : bridge::Face<AddedOfClass::animalName, NSObject> {
  static constexpr bridge::ClassMethod<AddedOfClass::animalName, "wings", int()> wings{};
};
int wings(Class) { return 2; }
TEST(Addition, OfAClassMethod) {
  AddedOfClass::define();
  install(add<Winged, &Winged::wings, wings>("i@:"));
  EXPECT_EQ(Winged::wings(), 2);
}

using Existing = Animals<"Existing">;
int otherAge(Existing::Animal) { return -1; }
TEST(Addition, OfAMethodThatExistsDoesNothing) {
  auto animal = Existing::make<Existing::Animal>();
  install(add<Existing::Animal, &Existing::Animal::age, otherAge>("i@:"));
  EXPECT_EQ(animal->age(), 7);
}

int nowheresAge(Nowhere) { return 1; }
TEST(Addition, ToAMissingClassDoesNothing) {
  install(add<Nowhere, &Nowhere::age, nowheresAge>("i@:"));
  EXPECT_EQ(objc_getClass("ReplaceTestNowhere"), nullptr);
}

TEST(Row, TellsWhatItInstalls) {
  constexpr Row row = replace<Own::Animal, &Own::Animal::age, ageDoubled>();
  EXPECT_STREQ(row.className, "AnimalOwn");
  EXPECT_STREQ(row.method, "-age");
  EXPECT_EQ(row.slot, &bridge::slot<ageDoubled>);
  EXPECT_STREQ((replace<OfClass::Animal, &OfClass::Animal::legs, morelegs>().method), "+legs");
  EXPECT_STREQ((replace<Argument::Animal, &Argument::Animal::agePlus, onePlusAge>().method), "-agePlus:");
  EXPECT_EQ((add<Own::Animal, &Own::Animal::fly, ageDoubled>("B@:").slot), nullptr);
  EXPECT_STREQ((add<Own::Animal, &Own::Animal::fly, ageDoubled>("B@:").types), "B@:");
}

}  // namespace
