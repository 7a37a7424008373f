// The steps that send messages to objects, for what no touch reaches.
#include <fmt/format.h>

#include <map>

#include "bridge/strong.hpp"
#include "platform/foundation/string.hpp"
#include "simulator/app/invocation.hpp"
#include "simulator/app/replaced_answers.hpp"
#include "simulator/app/simulation.hpp"
#include "simulator/app/steps.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/runtime/setting_object.hpp"
#include "simulator/time/run_loop.hpp"
#include "simulator/uikit/views/view.hpp"
#include "simulator/uikit/views/window.hpp"

namespace sim {
namespace {

using bridge::Object;

// By the names that the script gives them. They live as long as the process, unless they are dropped.
std::map<std::string, bridge::Strong<Object>>& kept() {
  static auto& all = *new std::map<std::string, bridge::Strong<Object>>();
  return all;
}

Json& told() {
  static auto& all = *new Json(Json::array());
  return all;
}

Class classNamed(const std::string& name) {
  const Class found = objc_getClass(name.c_str());
  if (!found) throw UsageError(fmt::format("nothing is called '{}'", name));
  return found;
}

Object targetNamed(const std::string& name) {
  if (const auto found = kept().find(name); found != kept().end()) return found->second.get();
  return {reinterpret_cast<id>(classNamed(name))};
}

Object meaningOf(const std::string& word) {
  if (word == "nil") return {};
  if (const auto found = kept().find(word); found != kept().end()) return found->second.get();
  return settingObject(settingValue(word));
}

std::vector<std::string> wordsFrom(const Step& step, std::size_t first) {
  std::vector<std::string> words;
  for (std::size_t i = first; i < step.arguments.size(); ++i) words.push_back(step.text(i));
  return words;
}

// What stands in the step from there on: a message and its arguments.
Answer send(Object target, const Step& step, std::size_t first) {
  return invoke(target, step.text(first), wordsFrom(step, first + 1), meaningOf);
}

void sendAndTell(Simulation&, const Step& step) {
  const Answer answer = send(targetNamed(step.text(0)), step, 1);
  if (answer.type[0] != 'v') told().push_back(Json{{"message", step.text(1)}, {"value", answer.value}});
  settle();
}

void traceAndTell(Simulation&, const Step& step) {
  Json given = replacedAnswers(targetNamed(step.text(0)), step.text(1), wordsFrom(step, 2), meaningOf);
  const Json value = given.back().at("value");
  told().push_back(Json{{"message", step.text(1)}, {"value", value}, {"given", std::move(given)}});
  settle();
}

void keep(Simulation&, const Step& step) {
  const Answer answer = send(targetNamed(step.text(1)), step, 2);
  if (!answer.object) throw UsageError(fmt::format("{} answers no object", step.text(2)));
  kept()[step.text(0)] = bridge::retained(answer.object);
  settle();
}

void make(Simulation&, const Step& step) {
  const Class cls = classNamed(step.text(1));
  const Object place = invoke({reinterpret_cast<id>(cls)}, "alloc", {}, meaningOf).object;
  const Answer made = send(place, step, 2);
  if (!made.object) throw UsageError(fmt::format("{} makes no {}", step.text(2), step.text(1)));
  kept()[step.text(0)] = bridge::adopt<Object>(made.object.raw);
  settle();
}

void find(Simulation&, const Step& step) {
  const Class cls = classNamed(step.text(1));
  Object found;
  for (const UIWindow window : uikit::windows())
    uikit::forEachInTree(window, [&](UIView view) {
      if (bridge::isKindOf(view, cls)) found = view;
    });
  if (!found) throw UsageError(fmt::format("no {} is in a window", step.text(1)));
  kept()[step.text(0)] = bridge::retained(found);
}

void drop(Simulation&, const Step& step) {
  if (kept().erase(step.text(0)) == 0) throw UsageError(fmt::format("nothing is called '{}'", step.text(0)));
  settle();
}

constexpr Kind kindOfThing{"OBJECT", kinds::readWord}, kindOfClass{"CLASS", kinds::readWord},
    message{"MESSAGE", kinds::readWord}, value{"VALUE", kinds::readAny};

constexpr StepRow rows[] = {
    {"find", find, with(kinds::word, kindOfClass),
     "the foremost view of that class, wherever it is, gets the name", "none"},
    {"make", make, withMany(value, kinds::word, kindOfClass, message),
     "a new object, initialised by that message, gets the name", "none"},
    {"keep", keep, withMany(value, kinds::word, kindOfThing, message),
     "a message to what has that name or to a class; the object that it answers gets the name", "none"},
    {"send", sendAndTell, withMany(value, kindOfThing, message),
     "a message; what it answers goes into the report's `answers`", "none"},
    {"trace", traceAndTell, withMany(value, kindOfThing, message),
     "the same, along with `given`: what SpringBoard answers by itself, and what each library that has "
     "replaced the method makes of it, in their order",
     "none"},
    {"drop", drop, with(kinds::word), "what has that name is released, and the name free", "none"},
};

}  // namespace

StepTable objectSteps() { return rows; }

Json answers() { return told(); }

}  // namespace sim
