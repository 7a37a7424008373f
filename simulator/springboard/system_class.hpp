// Defining SpringBoard's classes as the system version in use has them: a class that it lacks is not defined,
// and of the methods given those that are not the class's own are left out.
//
//   using List = bridge::Implementation<SBIconListView, ListState>;
//   defineSystemClass<List>(own<&SBIconListView::icons, icons>(), …);
#pragma once

#include "bridge/define.hpp"
#include "simulator/springboard/class_facts.hpp"

namespace sim::springboard {

struct SystemMethod {
  bridge::MethodEntry entry;
};

// `Function` is what the class answers to `Member`, in the versions in which that is a method of its own.
template <auto Member, auto Function>
SystemMethod own() {
  return {bridge::method<Member, Function>()};
}

// Found by bridge::Implementation for its rows. With every method wanted, those that the version lacks
// altogether are there too, and those that the library takes for the class's own; what else it inherits stays
// inherited.
void addRow(Class cls, const SystemMethod& method);

template <class T, class State>
void defineUnderParent(bridge::Implementation<T, State>, auto... methods) {
  if (const char* parent = superclassOf(T::className.text))
    bridge::Implementation<T, State>::defineUnder(objc_getClass(parent), methods...);
}

template <class Implementation>
void defineSystemClass(auto... methods) {
  defineUnderParent(Implementation(), methods...);
}

}  // namespace sim::springboard
