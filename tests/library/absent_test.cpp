// A SpringBoard that lacks one class of the method table, or one method: the row says so, all other rows are
// as they were, and whatever somebody does then goes on.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <cstring>

#include "simulator/device/usage_error.hpp"
#include "tests/library/hidden_class.hpp"
#include "tests/library/method_rows.hpp"
#include "tests/support/home.hpp"

namespace {

// What the library does not find; the home screen, which has it, does.
const test::Row* absent = nullptr;

template <class Function>
Function* next(const char* name, Function*) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

bool isAbsent(Class cls, const char* selector) {
  return absent && cls == absent->owner() && std::strcmp(selector, absent->selector) == 0;
}

}  // namespace

// The runtime's own, for all else.
#pragma GCC visibility push(default)
extern "C" {

objc_method* class_getInstanceMethod(Class cls, SEL selector) {
  static const auto runtimes = next("class_getInstanceMethod", &class_getInstanceMethod);
  const bool hidden = absent && isAbsent(cls, sel_getName(selector));
  return hidden && test::isCodeOfTheLibrary(__builtin_return_address(0)) ? nullptr : runtimes(cls, selector);
}

objc_method** class_copyMethodList(Class cls, unsigned int* count) {
  static const auto runtimes = next("class_copyMethodList", &class_copyMethodList);
  objc_method** list = runtimes(cls, count);
  if (!list || !absent || !test::isCodeOfTheLibrary(__builtin_return_address(0))) return list;
  const auto end = std::remove_if(list, list + *count, [&](objc_method* method) {
    return isAbsent(cls, sel_getName(method_getName(method)));
  });
  *count = static_cast<unsigned int>(end - list);
  return list;
}

}  // extern "C"
#pragma GCC visibility pop

namespace {

using sim::Json;
using test::Home;
using test::Row;

// What can be done is done: a home screen without its scroll view's methods has no panel.
void useAll(Home& home) {
  for (const char* step : {"swipe up",
                           "wait 1",
                           "increment \"Top Inset\"",
                           "slide \"Side Inset\" 40",
                           "page 1",
                           "call exportSettings",
                           "wait 3",
                           "tap \"close\"",
                           "wait 1",
                           "press 5 200 300",
                           "edit",
                           "home",
                           "swipe left",
                           "wait 1",
                           "message ListPreferencesDidChangeNotification name=dock index=YES",
                           "launch \"Calendar\"",
                           "wait 1",
                           "home",
                           "lock",
                           "unlock",
                           "rotate landscape",
                           "wait 1"}) {
    try {
      home.step(step);
    } catch (const sim::UsageError&) {
    }
  }
}

// Outcomes by class and method.
std::map<std::string, std::string> outcomes(Home& home) {
  std::map<std::string, std::string> all;
  for (const Json& row : home.report()["hooks"]["rows"])
    all[row["class"].get<std::string>() + " " + row["method"].get<std::string>()] =
        row["outcome"].get<std::string>();
  return all;
}

std::string nameOf(const Row& row) {
  return std::string(row.className) + (row.ofClass ? " +" : " -") + row.selector;
}

// Whoever reads the log finds what is missing; all else is replaced or added as ever.
void expectMissing(const std::function<bool(const Row&)>& isMissing, const char* outcome) {
  Home home({"--springboard", "complete", "--device", "iPhone 8 Plus", "--pages", "1", "--set", "enabled=YES",
             "--set", "quick=YES", "--set", "icons=YES", "--set", "custom_preset=-1", "--set",
             "dockIconsEnabled=YES"});
  const std::map<std::string, std::string> found = outcomes(home);
  const std::string console = home.report()["console"].dump();
  EXPECT_EQ(found.size(), std::size(test::table));
  for (const Row& row : test::table) {
    const std::string name = nameOf(row), told = found.at(name);
    const char* const effect = row.addedTypes ? "added" : "replaced";
    // Another method stands in for some rows.
    EXPECT_TRUE(told == (isMissing(row) ? outcome : effect) || told == "successor") << name << ": " << told;
    if (told == outcome) EXPECT_TRUE(console.contains(name)) << name;
  }
  useAll(home);
  EXPECT_EQ(home.report()["pages"].size(), 1u);
}

constexpr const char* classes[] = {"SBIconImageView",
                                   "SBIconListView",
                                   "SBFolderIconListView",
                                   "SBRootIconListView",
                                   "SBIconLabelImageParameters",
                                   "SBUIController",
                                   "SBIconListPageControl",
                                   "SBIconLabelImage",
                                   "SBIconScrollView",
                                   "SBDockIconListView",
                                   "SBIconController",
                                   "SBDockView"};

class AnAbsentClass : public testing::TestWithParam<const char*> {};

TEST_P(AnAbsentClass, IsToldAndLeavesTheOtherRowsAsTheyAre) {
  test::hiddenClass = GetParam();
  expectMissing([](const Row& row) { return std::strcmp(row.className, GetParam()) == 0; }, "class missing");
}

INSTANTIATE_TEST_SUITE_P(Being, AnAbsentClass, testing::ValuesIn(classes),
                         [](const auto& test) { return std::string(test.param); });

std::vector<const Row*> replacements() {
  std::vector<const Row*> all;
  for (const Row& row : test::table)
    if (!row.addedTypes) all.push_back(&row);
  return all;
}

class AnAbsentMethod : public testing::TestWithParam<const Row*> {};

TEST_P(AnAbsentMethod, IsToldAndLeavesTheOtherRowsAsTheyAre) {
  ASSERT_EQ(replacements().size(), 36u);
  absent = GetParam();
  expectMissing([](const Row& row) { return &row == GetParam(); }, "method missing");
}

INSTANTIATE_TEST_SUITE_P(Being, AnAbsentMethod, testing::ValuesIn(replacements()), [](const auto& test) {
  std::string name;
  for (const char c : nameOf(*test.param))
    if (std::isalnum(static_cast<unsigned char>(c))) name += c;
  return name;
});

}  // namespace
