// Three classes for one test to replace methods of: a parent, a child that overrides, and one that only
// inherits. Every test has its own, named after it, since what is replaced stays replaced.
#pragma once

#include "bridge/define.hpp"
#include "bridge/replace.hpp"
#include "platform/coregraphics/encoding.hpp"
#include "platform/foundation/object.hpp"

namespace test {

template <bridge::Name Test>
struct Animals {
  static constexpr auto animalName = bridge::Name("Animal") + Test;
  static constexpr auto catName = bridge::Name("Cat") + Test;
  static constexpr auto fishName = bridge::Name("Fish") + Test;

  struct Animal : bridge::Face<animalName, NSObject> {
    static constexpr bridge::ClassMethod<animalName, "legs", int()> legs{};
    MESSAGE Method<"age", int()> age;
    MESSAGE Method<"agePlus:", int(int)> agePlus;
    MESSAGE Method<"frame", CGRect()> frame;
    MESSAGE Method<"frameIn:", CGRect(CGRect)> frameIn;
    MESSAGE Method<"height", float()> height;
    MESSAGE Method<"weight", double()> weight;
    MESSAGE Method<"weightWith:and:", double(double, float)> weightWith_and;
    MESSAGE Method<"isSame:", BOOL(BOOL)> isSame;
    MESSAGE Method<"remember:", void(int)> remember;
    MESSAGE Method<"myself", NSObject()> myself;
    MESSAGE Method<"copy", NSObject()> copy;
    MESSAGE Method<"callAge", int()> callAge;
    MESSAGE Method<"fly", int()> fly;  // which none of them does
  };
  struct Cat : bridge::Face<catName, Animal> {};
  struct Fish : bridge::Face<fishName, Animal> {};

  using AnimalClass = bridge::Implementation<Animal>;
  using CatClass = bridge::Implementation<Cat>;
  using FishClass = bridge::Implementation<Fish>;

  static inline int remembered = 0;

  static int four(Class) { return 4; }
  static int none(Class) { return 0; }
  static int seven(Animal) { return 7; }
  static int plus(Animal self, int years) { return self.age() + years; }
  static CGRect frame(Animal) { return {{1, 2}, {3, 4}}; }
  static CGRect frameIn(Animal, CGRect outer) { return {outer.origin, {1, 1}}; }
  static float height(Animal) { return 1.5f; }
  static double weight(Animal) { return 2.5; }
  static double weightWith(Animal, double one, float other) { return one - other; }
  static BOOL isSame(Animal, BOOL value) { return value; }
  static void remember(Animal, int value) { remembered = value; }
  static NSObject myself(Animal self) { return self; }
  static bridge::Strong<NSObject> copy(Animal self) { return bridge::retained<NSObject>(self); }
  static int callAge(Animal self) { return self.age(); }
  static int catsAge(Cat self) { return CatClass::template super<&Animal::age>(self) * 100; }

  // Defined when first asked for: Animal has everything, Cat overrides age, Fish overrides legs.
  static void define() {
    using bridge::method;
    if (AnimalClass::cls) return;
    AnimalClass::template define<NSObject>(
        method<&Animal::legs, four>(), method<&Animal::age, seven>(), method<&Animal::agePlus, plus>(),
        method<&Animal::frame, frame>(), method<&Animal::frameIn, frameIn>(),
        method<&Animal::height, height>(), method<&Animal::weight, weight>(),
        method<&Animal::weightWith_and, weightWith>(), method<&Animal::isSame, isSame>(),
        method<&Animal::remember, remember>(), method<&Animal::myself, myself>(),
        method<&Animal::copy, copy>(), method<&Animal::callAge, callAge>());
    CatClass::template define<Animal>(method<&Animal::age, catsAge>());
    FishClass::template define<Animal>(method<&Animal::legs, none>());
  }

  template <class T>
  static bridge::Strong<T> make() {
    define();
    return bridge::make<T, &NSObject::init>();
  }
};

}  // namespace test
