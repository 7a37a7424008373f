// What the installer tells of each row of a method table, and what is replaced instead of a method that a
// class lacks, or along with one. The same holds with and without a hooking library in the process.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/bridge/animals.hpp"

namespace {

using bridge::add;
using bridge::along;
using bridge::install;
using bridge::instead;
using bridge::original;
using bridge::Outcome;
using bridge::replace;
using bridge::Row;
using test::Animals;

void expectTold(const Outcome& told, const std::string& outcome, const char* successor = nullptr) {
  EXPECT_EQ(told.outcome, outcome);
  EXPECT_STREQ(told.successor, successor);
}

using Told = Animals<"Told">;
int toldAge(Told::Animal self) { return original<toldAge>(self) + 1; }
int toldLegs(Class self) { return original<toldLegs>(self) + 1; }
int toldFlight(Told::Animal) { return 1; }

TEST(Outcome, NamesTheRow) {
  Told::define();
  Outcome told = install(replace<Told::Animal, &Told::Animal::age, toldAge>());
  EXPECT_STREQ(told.className, "AnimalTold");
  EXPECT_STREQ(told.method, "-age");
  EXPECT_STREQ(install(replace<Told::Animal, &Told::Animal::legs, toldLegs>()).method, "+legs");
}

TEST(Outcome, OfAReplacementIsReplaced) {
  Told::define();
  expectTold(install(replace<Told::Animal, &Told::Animal::age, toldAge>()), "replaced");
  expectTold(install(replace<Told::Animal, &Told::Animal::legs, toldLegs>()), "replaced");
}

TEST(Outcome, OfAnInheritedMethodIsReplaced) {
  Told::define();
  expectTold(install(replace<Told::Fish, &Told::Animal::age, toldAge>()), "replaced");
}

TEST(Outcome, OfAnAdditionIsAdded) {
  Told::define();
  expectTold(install(add<Told::Animal, &Told::Animal::fly, toldFlight>("i@:")), "added");
}

TEST(Outcome, OfAnAdditionThatTheClassHasIsRefused) {
  Told::define();
  install(add<Told::Animal, &Told::Animal::fly, toldFlight>("i@:"));
  expectTold(install(add<Told::Animal, &Told::Animal::fly, toldFlight>("i@:")), "refused");
}

TEST(Outcome, OfAMissingMethodSaysSo) {
  Told::define();
  expectTold(install(replace<Told::Animal, &Told::Animal::fly, toldFlight>()), "method missing");
}

struct Nowhere : bridge::Face<"OutcomeTestNowhere", NSObject> {
  MESSAGE Method<"age", int()> age;
};
int nowheresAge(Nowhere) { return 1; }
TEST(Outcome, OfAMissingClassSaysSo) {
  expectTold(install(replace<Nowhere, &Nowhere::age, nowheresAge>()), "class missing");
  expectTold(install(add<Nowhere, &Nowhere::age, nowheresAge>("i@:")), "class missing");
}

// A table of one row with what belongs to it, and the outcome of that row.
template <size_t Count>
Outcome installed(const Row (&rows)[Count]) {
  Outcome told[Count + 1] = {};
  install(rows, Count, told);
  EXPECT_EQ(told[1].className, nullptr);
  return told[0];
}

using Instead = Animals<"Instead">;
int insteadFly(Instead::Animal self) { return original<insteadFly>(self); }
int insteadAge(Instead::Animal self) { return original<insteadAge>(self) + 1; }
int insteadAgePlus(Instead::Animal self, int years) { return original<insteadAgePlus>(self, years) + 1000; }
constexpr Row insteadOfFlying[] = {replace<Instead::Animal, &Instead::Animal::fly, insteadFly>(),
                                   instead<&Instead::Animal::age, insteadAge>()};

TEST(Successor, IsReplacedInsteadOfAMissingMethod) {
  auto animal = Instead::make<Instead::Animal>();
  expectTold(installed(insteadOfFlying), "successor", "-age");
  EXPECT_EQ(animal->age(), 8);
}

TEST(Successor, MayBeTwo) {
  auto animal = Instead::make<Instead::Animal>();
  const Row rows[] = {insteadOfFlying[0], insteadOfFlying[1],
                      instead<&Instead::Animal::agePlus, insteadAgePlus>()};
  expectTold(installed(rows), "successor", "-age, -agePlus:");
  EXPECT_EQ(animal->age(), 8);
  EXPECT_EQ(animal->agePlus(2), 1010);
}

TEST(Successor, StaysWhereTheClassHasTheMethodItself) {
  auto animal = Instead::make<Instead::Animal>();
  const Row rows[] = {replace<Instead::Animal, &Instead::Animal::age, insteadAge>(),
                      instead<&Instead::Animal::agePlus, insteadAgePlus>()};
  expectTold(installed(rows), "replaced");
  EXPECT_EQ(animal->age(), 8);
  EXPECT_EQ(animal->agePlus(2), 10);
}

// Fish has no age of its own, and legs of its own.
using Bypassed = Animals<"Bypassed">;
int bypassedAge(Bypassed::Fish self) { return original<bypassedAge>(self) + 1; }
int bypassedSwim(Bypassed::Fish self) { return original<bypassedSwim>(self) + 100; }
struct Swimming : bridge::Face<"Swimming", Bypassed::Animal> {
  MESSAGE Method<"swim", int()> swim;
};
int swims(id, SEL) { return 5; }

TEST(Successor, IsReplacedInsteadOfAnInheritedMethod) {
  auto fish = Bypassed::make<Bypassed::Fish>();
  SEL swim = sel_registerName("swim");
  class_addMethod(Bypassed::FishClass::cls, swim, reinterpret_cast<IMP>(swims), "i@:");
  const Row rows[] = {replace<Bypassed::Fish, &Bypassed::Animal::age, bypassedAge>(),
                      instead<&Swimming::swim, bypassedSwim>()};
  expectTold(installed(rows), "successor", "-swim");
  EXPECT_EQ((bridge::Message<"swim", int()>::send(fish->raw)), 105);
  EXPECT_EQ(fish->age(), 7);
}

int bypassedPlus(Bypassed::Fish self, int years) { return original<bypassedPlus>(self, years) + 1000; }
TEST(Successor, ThatIsInheritedItselfStandsInForNothing) {
  auto fish = Bypassed::make<Bypassed::Fish>();
  const Row rows[] = {replace<Bypassed::Fish, &Bypassed::Animal::age, bypassedAge>(),
                      instead<&Bypassed::Animal::agePlus, bypassedPlus>()};
  expectTold(installed(rows), "replaced");
  EXPECT_EQ(fish->age(), 8);
  EXPECT_EQ(fish->agePlus(2), 10);
}

TEST(Successor, ThatIsMissingTooLeavesTheMethodMissing) {
  Instead::define();
  const Row rows[] = {insteadOfFlying[0], instead<&Swimming::swim, bypassedSwim>()};
  expectTold(installed(rows), "method missing");
}

using Along = Animals<"Along">;
int alongAge(Along::Animal self) { return original<alongAge>(self) + 1; }
int alongPlus(Along::Fish self, int years) { return original<alongPlus>(self, years) + 1000; }
int alongSwim(Along::Animal self) { return original<alongSwim>(self); }
TEST(Companion, IsReplacedAlongWithTheRow) {
  auto fish = Along::make<Along::Fish>();
  auto animal = Along::make<Along::Animal>();
  const Row rows[] = {replace<Along::Fish, &Along::Animal::age, alongAge>(),
                      along<&Along::Animal::agePlus, alongPlus>()};
  expectTold(installed(rows), "replaced");
  EXPECT_EQ(fish->age(), 8);
  EXPECT_EQ(fish->agePlus(2), 1010);
  EXPECT_EQ(animal->agePlus(2), 9);
}

TEST(Companion, ThatIsMissingIsLeftOut) {
  auto fish = Along::make<Along::Fish>();
  const Row rows[] = {replace<Along::Fish, &Along::Animal::age, alongAge>(),
                      along<&Swimming::swim, alongSwim>()};
  expectTold(installed(rows), "replaced");
  EXPECT_EQ(fish->age(), 8);
}

TEST(Table, IsToldInTheOrderOfItsRowsWithoutThoseThatBelongToOthers) {
  Told::define();
  const Row rows[] = {
      replace<Told::Animal, &Told::Animal::fly, toldFlight>(), instead<&Swimming::swim, bypassedSwim>(),
      replace<Told::Animal, &Told::Animal::age, toldAge>(), along<&Told::Animal::legs, toldLegs>(),
      add<Told::Fish, &Told::Animal::fly, toldFlight>("i@:")};
  Outcome told[4] = {};
  install(rows, std::size(rows), told);
  EXPECT_STREQ(told[0].method, "-fly");
  EXPECT_STREQ(told[1].method, "-age");
  EXPECT_STREQ(told[2].className, "FishTold");
  EXPECT_EQ(told[3].className, nullptr);
}

}  // namespace
