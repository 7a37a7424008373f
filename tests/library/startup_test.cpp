// What happens when the library is loaded: the order of its steps, the system log, and what it leaves behind.
#include <dlfcn.h>
#include <elf.h>
#include <gtest/gtest.h>
#include <link.h>

#include <regex>
#include <span>

#include "bridge/define.hpp"
#include "bridge/replace.hpp"
#include "panel/popup_view.hpp"
#include "platform/iconsupport/icon_support.hpp"
#include "platform/springboard/icon_scroll_view.hpp"
#include "settings/gesture_controller.hpp"
#include "settings/store/configuration_manager.hpp"
#include "simulator/device/image.hpp"
#include "simulator/runtime/console.hpp"
#include "simulator/runtime/hooking.hpp"
#include "tests/library/device_files.hpp"

namespace {

using test::Home;
using tilo::ConfigurationManager;
using tilo::RQGestureController;

// A SpringBoard that lacks nothing: what it lacks has a line of its own on the console.
const std::vector<std::string> everyMethod{"--springboard", "complete"};

// How far start-up has come, by what can be seen from outside.
struct Progress {
  bool preferences, presets;
  size_t consoleLines;
  size_t replaced;
  bool layoutAdded;
  bool operator==(const Progress&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Progress& p) {
  return out << "{preferences " << p.preferences << ", presets " << p.presets << ", console "
             << p.consoleLines << ", replaced " << p.replaced << ", layout: " << p.layoutAdded << "}";
}

sim::Simulation* device = nullptr;

Progress progress() {
  using Layout = bridge::Descriptor<&SBIconScrollView::layout>;
  Class scrollView = bridge::classNamed<SBIconScrollView>();
  return {test::stateOf(*device, test::preferencesPath).exists,
          test::stateOf(*device, test::presetsPath).exists, sim::console().size(), sim::replacements().size(),
          class_getInstanceMethod(scrollView, Layout::selector()) != nullptr};
}

std::vector<Progress> descriptions;
bridge::Slot description;

id describe(id self, SEL selector) {
  descriptions.push_back(progress());
  return reinterpret_cast<id (*)(id, SEL)>(description.implementation())(self, selector);
}

// Notes how far start-up is whenever a dictionary is described, as it is for a line of the system log.
void watchDescriptions(sim::Simulation& simulation) {
  device = &simulation;
  bridge::replaceMethod(bridge::classNamed<NSDictionary>(), bridge::selector<"description">(),
                        reinterpret_cast<IMP>(&describe), description);
}

TEST(StartUp, SeedsThenLogsThenInstallsMethodsThenMakesTheGestureController) {
  Home home(everyMethod, watchDescriptions);
  size_t replaced = sim::replacements().size();
  ASSERT_GT(replaced, 0u);
  ASSERT_EQ(descriptions.size(), 2u);
  EXPECT_EQ(
      descriptions[0],
      (Progress{
          .preferences = true, .presets = false, .consoleLines = 0, .replaced = 0, .layoutAdded = false}));
  EXPECT_EQ(descriptions[1], (Progress{.preferences = true,
                                       .presets = true,
                                       .consoleLines = 1,
                                       .replaced = replaced,
                                       .layoutAdded = true}));
}

// An IconSupport that is there already, in place of the one that is loaded from the device.
std::vector<std::pair<std::string, Progress>> registrations;

ISIconSupport support(Class) {
  static id shared = bridge::make<ISIconSupport, &NSObject::init>().leak();
  return bridge::as<ISIconSupport>(shared);
}

BOOL noteExtension(ISIconSupport, NSString name) {
  registrations.emplace_back(name.UTF8String(), progress());
  return NO;
}

TEST(StartUp, RegistersWithIconSupportBeforeAnythingElse) {
  Home home({}, [](sim::Simulation& simulation) {
    device = &simulation;
    bridge::Implementation<ISIconSupport>::define<NSObject>(
        bridge::method<&ISIconSupport::sharedInstance, support>(),
        bridge::method<&ISIconSupport::addExtension, noteExtension>());
  });
  ASSERT_EQ(registrations.size(), 1u);
  EXPECT_EQ(registrations[0].first, "Tilo");
  EXPECT_EQ(
      registrations[0].second,
      (Progress{
          .preferences = false, .presets = false, .consoleLines = 0, .replaced = 0, .layoutAdded = false}));
}

TEST(StartUp, RegistersOnceWithTheInstalledIconSupport) {
  Home home({"--icon-support"});
  EXPECT_EQ(home.report()["iconSupport"], sim::Json::array({"Tilo"}));
}

TEST(StartUp, DoesWithoutIconSupport) {
  Home home;
  sim::Json report = home.report();
  EXPECT_FALSE(objc_getClass("ISIconSupport"));
  EXPECT_EQ(report["iconSupport"], sim::Json::array());
  EXPECT_EQ(report["loaded"], true);
  EXPECT_GT(report["hooks"]["replaced"], 0);
}

TEST(StartUp, IgnoresAnIconSupportThatCannotBeLoaded) {
  Home home({}, test::having("/Library/MobileSubstrate/DynamicLibraries/IconSupport.dylib", "no library"));
  sim::Json report = home.report();
  EXPECT_EQ(report["iconSupport"], sim::Json::array());
  EXPECT_GT(report["hooks"]["replaced"], 0);
  EXPECT_EQ(report["preferences"].size(), 20);
}

// "ESC[1;36m[Tilo3] ESC[mESC[0;36mNAME:LINEESC[m ESC[0;30;46mDEBUG:ESC[m MESSAGE"
void expectLine(const std::string& line, const std::string& source, const std::string& message) {
  static const std::regex format(
      "\033\\[1;36m\\[Tilo3\\] \033\\[m\033\\[0;36m([A-Za-z]+):([0-9]+)\033\\[m "
      "\033\\[0;30;46mDEBUG:\033\\[m ([^]*)");
  std::smatch parts;
  ASSERT_TRUE(std::regex_match(line, parts, format)) << line;
  EXPECT_EQ(parts[1], source);
  EXPECT_GT(std::stoi(parts[2]), 0);
  EXPECT_EQ(parts[3], message);
}

std::string described(bridge::Object object) {
  return bridge::as<NSObject>(object).description().UTF8String();
}

TEST(Console, HasOneLineOfEachLoadRoutineInTheirOrder) {
  Home home({"--springboard", "complete", "--set", "rows=5", "--set", "quick=YES"});
  std::vector<std::string> lines = sim::console();
  ASSERT_EQ(lines.size(), 2u);
  std::string values = described(ConfigurationManager::sharedManager().configuration());
  EXPECT_NE(values.find("rows"), std::string::npos);
  EXPECT_NE(values.find("quick"), std::string::npos);
  expectLine(lines[0], "Tweak", "got preferences " + values);
  expectLine(lines[1], "RQGestureController", "got preferences from gesture " + values);
  EXPECT_EQ(sim::consoleLevels(), (std::vector<int>{5, 5})) << "notices";
}

TEST(Console, IsNotWrittenByWhatComesAfterLoading) {
  Home home(everyMethod);
  RQGestureController::sharedInstance();
  ConfigurationManager::sharedManager();
  home.save("rows"_ns, 4);
  RQGestureController::sharedInstance().updateConfigWithValue(0);
  home.step("rotate landscape");
  home.step("wait 1");
  home.report();
  EXPECT_EQ(sim::console().size(), 2u);
}

TEST(Console, HasALineOfEveryUpdateOfTheGestureController) {
  Home home({"--springboard", "complete", "--set", "rows=5"});
  RQGestureController::sharedInstance().update();
  ASSERT_EQ(sim::console().size(), 3u);
  EXPECT_EQ(sim::console()[2], sim::console()[1]);
}

TEST(Console, SaysNullForADomainWithoutKeys) {
  Home home(everyMethod, test::having(test::preferencesPath, test::propertyList("")));
  std::vector<std::string> lines = sim::console();
  ASSERT_EQ(lines.size(), 2u);
  expectLine(lines[0], "Tweak", "got preferences (null)");
  expectLine(lines[1], "RQGestureController", "got preferences from gesture (null)");
}

TEST(Console, ShowsPercentSignsOfAValueAsTheyAre) {
  std::string text = "100% %@ %s %d %n";
  Home home({"--springboard", "complete", "--set", "note=" + text});
  ASSERT_EQ(sim::console().size(), 2u);
  EXPECT_NE(sim::console()[0].find(text), std::string::npos) << sim::console()[0];
  EXPECT_NE(sim::console()[1].find(text), std::string::npos) << sim::console()[1];
}

TEST(SharedState, IsOneDictionaryEverywhere) {
  Home home;
  id configuration = ConfigurationManager::sharedManager().configuration().raw;
  ASSERT_TRUE(configuration);
  EXPECT_EQ(test::libraryVariable<id>("tilo::rootObj"), configuration);
  EXPECT_EQ(RQGestureController::sharedInstance().rootObj().raw, configuration);
  EXPECT_EQ(test::libraryVariable<id>("tilo::gestController"), RQGestureController::sharedInstance().raw);
}

TEST(SharedState, ShowsASavedValueToEveryReaderAtOnce) {
  Home home({"--set", "enabled=YES", "--set", "custom_preset=-1", "--set", "topIconInset=20"});
  EXPECT_EQ(home.page(0).topIconInset(), 20);
  home.save("topIconInset"_ns, 31);
  EXPECT_EQ(home.page(0).topIconInset(), 31);
  auto root = bridge::as<NSDictionary>(test::libraryVariable<id>("tilo::rootObj"));
  EXPECT_EQ(bridge::as<NSNumber>(root.objectForKey("topIconInset"_ns)).intValue(), 31);
}

TEST(SharedState, HasNoDictionaryForADomainWithoutKeys) {
  Home home({}, test::having(test::preferencesPath, test::propertyList("")));
  EXPECT_EQ(test::libraryVariable<id>("tilo::rootObj"), nullptr);
  EXPECT_FALSE(ConfigurationManager::sharedManager().configuration());
  EXPECT_FALSE(RQGestureController::sharedInstance().rootObj());
  EXPECT_EQ(test::libraryVariable<id>("tilo::gestController"), RQGestureController::sharedInstance().raw);
  EXPECT_EQ(test::layoutOf(home), test::stockLayout());
}

TEST(Loading, TwiceRunsNothingASecondTime) {
  Home home;
  sim::Json before = home.report();
  std::string error;
  void* again = sim::image::open("/Library/MobileSubstrate/DynamicLibraries/Tilo.dylib", error);
  EXPECT_EQ(again, home.simulation().libraries().front());
  EXPECT_EQ(home.report(), before);
}

// The library's functions that the dynamic linker calls by itself, from one of its two lists.
struct Routines {
  ElfW(Addr) base;
  ElfW(Sxword) list, size;
  std::set<void*> found;
};

int findRoutines(dl_phdr_info* image, size_t, void* result) {
  auto& routines = *static_cast<Routines*>(result);
  if (image->dlpi_addr != routines.base) return 0;
  void** first = nullptr;
  size_t bytes = 0;
  for (int i = 0; i < image->dlpi_phnum; ++i) {
    if (image->dlpi_phdr[i].p_type != PT_DYNAMIC) continue;
    auto* entry = reinterpret_cast<const ElfW(Dyn)*>(image->dlpi_addr + image->dlpi_phdr[i].p_vaddr);
    for (; entry->d_tag != DT_NULL; ++entry) {
      if (entry->d_tag == routines.list)
        first = reinterpret_cast<void**>(image->dlpi_addr + entry->d_un.d_ptr);
      if (entry->d_tag == routines.size) bytes = entry->d_un.d_val;
    }
  }
  for (void* routine : std::span(first, bytes / sizeof(void*))) routines.found.insert(routine);
  return 1;
}

std::set<void*> routines(ElfW(Sxword) list, ElfW(Sxword) size) {
  Dl_info library{};
  dladdr(dlsym(RTLD_DEFAULT, "iconGridCalc"), &library);
  Routines routines{reinterpret_cast<ElfW(Addr)>(library.dli_fbase), list, size, {}};
  EXPECT_EQ(dl_iterate_phdr(findRoutines, &routines), 1);
  return routines.found;
}

TEST(Loading, RunsTwoRoutinesBesideTheCompilersOwn) {
  Home home;
  std::set<void*> initialisers = routines(DT_INIT_ARRAY, DT_INIT_ARRAYSZ);
  EXPECT_EQ(initialisers.erase(test::librarySymbol("frame_dummy")), 1u);
#if __has_feature(address_sanitizer)
  EXPECT_EQ(initialisers.erase(test::librarySymbol("asan.module_ctor")), 1u);
#endif
  EXPECT_EQ(initialisers.size(), 2u);
}

TEST(Loading, LeavesNothingToDoAtExit) {
  Home home;
  std::set<void*> finalisers = routines(DT_FINI_ARRAY, DT_FINI_ARRAYSZ);
  EXPECT_EQ(finalisers.erase(test::librarySymbol("__do_global_dtors_aux")), 1u);
#if __has_feature(address_sanitizer)
  EXPECT_EQ(finalisers.erase(test::librarySymbol("asan.module_dtor")), 1u);
#endif
  EXPECT_TRUE(finalisers.empty());
}

}  // namespace
