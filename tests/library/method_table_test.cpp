// Which of SpringBoard's methods the library replaces and adds: these rows, and no others.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <set>
#include <string>

#include "bridge/method.hpp"
#include "platform/springboard/icon_scroll_view.hpp"
#include "platform/springboard/ui_controller.hpp"
#include "simulator/springboard/icon_controller.hpp"
#include "tests/library/device_files.hpp"
#include "tests/library/method_rows.hpp"

extern "C" int objc_getClassList(Class* buffer, int size);

namespace {

using test::Home;

using test::Row;
using test::table;

// A SpringBoard that has all of them; what others have is told elsewhere.
const std::vector<std::string> everyMethod{"--springboard", "complete"};

int replacements() {
  int count = 0;
  for (const Row& row : table) count += row.addedTypes == nullptr;
  return count;
}
int additions() { return static_cast<int>(std::size(table)) - replacements(); }

// Whether the code at that address is the library's.
bool isOurs(IMP implementation) {
  Dl_info code{}, library{};
  return dladdr(reinterpret_cast<void*>(implementation), &code) &&
         dladdr(dlsym(RTLD_DEFAULT, "iconGridCalc"), &library) && code.dli_fbase == library.dli_fbase;
}

void collectOurs(Class cls, const std::string& sign, std::set<std::string>& names) {
  Class owner = sign == "+" ? bridge::classOf(reinterpret_cast<id>(cls)) : cls;
  unsigned int count = 0;
  std::unique_ptr<objc_method*, decltype(&std::free)> methods(class_copyMethodList(owner, &count), std::free);
  for (unsigned int i = 0; i < count; ++i)
    if (isOurs(method_getImplementation(methods.get()[i])))
      names.insert(sign + "[" + class_getName(cls) + " " + sel_getName(method_getName(methods.get()[i])) +
                   "]");
}

TEST(MethodTable, HasTheseRowsAndNoOthersOfSpringBoardsClasses) {
  Home home(everyMethod);
  std::vector<Class> classes(static_cast<size_t>(objc_getClassList(nullptr, 0)));
  classes.resize(static_cast<size_t>(objc_getClassList(classes.data(), static_cast<int>(classes.size()))));
  std::set<std::string> found, wanted;
  for (Class cls : classes) {
    if (!std::string(class_getName(cls)).starts_with("SB")) continue;
    collectOurs(cls, "-", found);
    collectOurs(cls, "+", found);
  }
  for (const Row& row : table) wanted.insert(row.name());
  wanted.insert("-[SBIconScrollView initWithFrame:]");  // along with its init
  EXPECT_EQ(found, wanted);
}

TEST(MethodTable, AddsMethodsUnderTheirFixedTypes) {
  Home home(everyMethod);
  EXPECT_EQ(replacements(), 36);
  EXPECT_EQ(additions(), 10);
  for (const Row& row : table) {
    if (!row.addedTypes) continue;
    objc_method* method = class_getInstanceMethod(row.owner(), row.sel());
    ASSERT_TRUE(method) << row.name();
    EXPECT_STREQ(method_getTypeEncoding(method), row.addedTypes) << row.name();
  }
}

// An object of the home screen that has the row's method, where one is at hand.
bridge::Object objectOf(Home& home, const Row& row) {
  std::string name = row.className;
  if (row.ofClass) return bridge::as<bridge::Object>(reinterpret_cast<id>(objc_getClass(row.className)));
  if (name == "SBIconListView" || name == "SBRootIconListView") return home.page(0);
  if (name == "SBDockIconListView") return home.dock();
  if (name == "SBIconController") return SBIconController::sharedInstance();
  if (name == "SBIconScrollView") return sim::springboard::homeScreen().scrollView.get();
  return {};
}

TEST(MethodTable, IsReachedByMessagesToTheHomeScreen) {
  Home home(everyMethod);
  for (const Row& row : table) {
    bridge::Object object = objectOf(home, row);
    IMP reached = object ? bridge::messenger(object.raw, row.sel(), false)
                         : class_getMethodImplementation(row.owner(), row.sel());
    EXPECT_TRUE(isOurs(reached)) << row.name();
  }
}

TEST(MethodTable, LeavesTheTypesOfWhatItReplacesAsTheyWere) {
  std::vector<std::string> before;
  Home home(everyMethod, [&](sim::Simulation&) {
    for (const Row& row : table)
      if (!row.addedTypes)
        before.push_back(method_getTypeEncoding(class_getInstanceMethod(row.owner(), row.sel())));
  });
  std::vector<std::string> after;
  for (const Row& row : table)
    if (!row.addedTypes)
      after.push_back(method_getTypeEncoding(class_getInstanceMethod(row.owner(), row.sel())));
  EXPECT_EQ(after, before);
}

int ownLayouts = 0;
void ownLayout(id, SEL, id) { ++ownLayouts; }

TEST(MethodTable, AddsNoMethodThatSpringBoardHasAlready) {
  using Layout = bridge::Descriptor<&SBIconScrollView::layout>;
  Home home(everyMethod, [](sim::Simulation&) {
    class_addMethod(bridge::classNamed<SBIconScrollView>(), Layout::selector(),
                    reinterpret_cast<IMP>(&ownLayout), "v@:@");
  });
  sim::Json hooks = home.report()["hooks"];
  EXPECT_EQ(hooks["replaced"], replacements());
  EXPECT_EQ(hooks["added"], additions() - 1);
  for (const sim::Json& row : hooks["rows"])
    if (row["method"] == "-layout:") EXPECT_EQ(row["outcome"], "refused");
  Layout::send(bridge::allocate<SBIconScrollView>().get().raw, {});
  home.step("wait 1");
  EXPECT_EQ(ownLayouts, 1);
  EXPECT_EQ(home.report()["relayouts"], sim::Json::array());
}

void nothing(id, SEL, id, id, int) {}

// Of which a system has some: a stranger's library brings another.
TEST(MethodTable, TakesAllThatStandsInForARowInTheOrderOfSystems) {
  using FromIcon = bridge::Descriptor<&SBUIController::activateApplication_fromIcon_location>;
  Home home({"--ios", "11.1"}, [](sim::Simulation&) {
    class_addMethod(bridge::classNamed<SBUIController>(), FromIcon::selector(),
                    reinterpret_cast<IMP>(&nothing), FromIcon::types());
  });
  for (const sim::Json& row : home.report()["hooks"]["rows"])
    if (row["method"] == "-activateApplicationAnimated:")
      EXPECT_EQ(row["successor"],
                "-activateApplication:fromIcon:location:, "
                "-activateApplication:fromIcon:location:activationSettings:actions:");
}

TEST(MethodTable, TellsWhatBecameOfEachRowInItsOrder) {
  Home home(everyMethod);
  sim::Json rows = sim::Json::array();
  for (const Row& row : table)
    rows.push_back({{"class", row.className},
                    {"method", (row.ofClass ? "+" : "-") + std::string(row.selector)},
                    {"outcome", row.addedTypes ? "added" : "replaced"},
                    {"successor", nullptr}});
  EXPECT_EQ(home.report()["hooks"]["rows"], rows);
}

// What the library exports for whoever wants to know, as C reads it.
struct Outcome {
  const char* className;
  const char* method;
  const char* outcome;
  const char* successor;
};

TEST(MethodTable, IsToldInAnExportedArrayThatAnEmptyRowEnds) {
  Home home(everyMethod);
  auto* told = static_cast<const Outcome*>(test::exportedSymbol("hookOutcomes"));
  ASSERT_TRUE(told);
  for (const Row& row : table) {
    EXPECT_STREQ(told->className, row.className);
    EXPECT_EQ(told->method, (row.ofClass ? "+" : "-") + std::string(row.selector));
    ++told;
  }
  EXPECT_EQ(told->className, nullptr);
  EXPECT_EQ(told->method, nullptr);
  EXPECT_EQ(told->outcome, nullptr);
  EXPECT_EQ(told->successor, nullptr);
}

// Everything that decides which classes, files and loaders there are.
class MethodTableEverywhere : public testing::TestWithParam<std::vector<std::string>> {};

TEST_P(MethodTableEverywhere, IsInstalledWhole) {
  std::vector<std::string> options = GetParam();
  options.insert(options.end(), everyMethod.begin(), everyMethod.end());
  Home home(options);
  sim::Json report = home.report();
  EXPECT_EQ(report["loaded"], true);
  EXPECT_EQ(report["hooks"]["replaced"], replacements());
  EXPECT_EQ(report["hooks"]["added"], additions());
  EXPECT_EQ(report["console"].size(), 2);
  EXPECT_EQ(report["preferences"].size(), 20);
}

INSTANTIATE_TEST_SUITE_P(Devices, MethodTableEverywhere,
                         testing::Values(std::vector<std::string>{"--device", "iPhone 6", "--ios", "9.2"},
                                         std::vector<std::string>{"--device", "iPhone 6", "--ios", "10.3.3"},
                                         std::vector<std::string>{"--device", "iPhone 6", "--ios", "11.4.1"},
                                         std::vector<std::string>{"--device", "iPhone 6", "--ios", "12.4"},
                                         std::vector<std::string>{"--device", "iPad Air 2", "--orientation",
                                                                  "landscape"},
                                         std::vector<std::string>{"--icon-support"},
                                         std::vector<std::string>{"--loader", "sbinject", "--icon-support"}));

TEST(MethodTable, IsNotThereWithoutTheLibrary) {
  Home home({"--stock"});
  sim::Json report = home.report();
  EXPECT_EQ(report["loaded"], false);
  EXPECT_EQ(report["hooks"], (sim::Json{{"replaced", 0}, {"added", 0}, {"rows", sim::Json::array()}}));
  EXPECT_EQ(report["console"], sim::Json::array());
  EXPECT_EQ(report["preferences"], nullptr);
  EXPECT_EQ(report["presets"], nullptr);
}

}  // namespace
