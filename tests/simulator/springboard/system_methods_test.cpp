// The simulator gives the system's classes no method that they have on no system: what a library finds here,
// it finds on a device.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include "tests/support/home.hpp"

extern "C" int objc_getClassList(Class* buffer, int size);

namespace {

bool isOfThisProgram(IMP implementation) {
  Dl_info found{}, own{};
  return dladdr(reinterpret_cast<void*>(implementation), &found) &&
         dladdr(reinterpret_cast<void*>(&isOfThisProgram), &own) && found.dli_fbase == own.dli_fbase;
}

using Methods = std::map<std::string, std::set<std::string>>;

// Of each class that is listed: its methods, "-addSubview:" and the like.
Methods listed() {
  std::ifstream file(SYSTEM_METHODS);
  Methods all;
  std::string line, name, word;
  while (std::getline(file, line)) {
    if (line.starts_with('#')) continue;
    std::istringstream words(line);
    if (!line.starts_with(' ')) words >> name;
    while (words >> word) all[name].insert(word);
  }
  return all;
}

bool isListed(const Methods& known, Class cls, const std::string& method) {
  for (; cls; cls = class_getSuperclass(cls))
    if (auto found = known.find(class_getName(cls)); found != known.end() && found->second.contains(method))
      return true;
  return false;
}

// What is found nowhere, of the classes' own methods that are implemented here. Those with the prefix are the
// simulator's, and nobody takes them for others.
void findUnknown(Class cls, char kind, const Methods& known, std::set<std::string>& unknown) {
  Class owner = kind == '+' ? bridge::classOf(reinterpret_cast<id>(cls)) : cls;
  unsigned int count = 0;
  objc_method** list = class_copyMethodList(owner, &count);
  for (unsigned int i = 0; i < count; ++i) {
    const std::string selector = sel_getName(method_getName(list[i]));
    if (!selector.starts_with("sim_") && isOfThisProgram(method_getImplementation(list[i])) &&
        !isListed(known, cls, kind + selector))
      unknown.insert(std::string(class_getName(cls)) + ' ' + kind + selector);
  }
  std::free(list);
}

std::set<std::string> unknownMethods() {
  const Methods known = listed();
  std::vector<Class> classes(static_cast<size_t>(objc_getClassList(nullptr, 0)));
  objc_getClassList(classes.data(), static_cast<int>(classes.size()));
  std::set<std::string> unknown;
  for (Class cls : classes)
    for (char kind : {'-', '+'}) findUnknown(cls, kind, known, unknown);
  return unknown;
}

std::vector<std::string> realOptions(const char* version) {
  return {"--stock", "--springboard", "real", "--device", "iPad Air 2", "--ios", version};
}

class SystemMethods : public testing::TestWithParam<const char*> {};

TEST_P(SystemMethods, AreKnownFromRealSystems) {
  test::Home home(realOptions(GetParam()));
  EXPECT_EQ(unknownMethods(), std::set<std::string>{});
}

INSTANTIATE_TEST_SUITE_P(Versions, SystemMethods, testing::Values("9.3", "10.3.3", "12.1"));

// A method of ours is found, in UIKit as in Foundation and SpringBoard.
TEST(SystemMethodsCheck, NamesAMethodThatNoSystemHas) {
  test::Home home(realOptions("10.3.3"));
  for (const char* name : {"UIView", "NSString", "SBDockView"})
    class_addMethod(objc_getClass(name), sel_registerName("tidyUp:"), reinterpret_cast<IMP>(&isOfThisProgram),
                    "v@:@");
  EXPECT_EQ(unknownMethods(),
            (std::set<std::string>{"NSString -tidyUp:", "SBDockView -tidyUp:", "UIView -tidyUp:"}));
}

TEST(SystemMethodsCheck, NamesWhatOnlyTheLibraryExpects) {
  auto options = realOptions("10.3.3");
  options[2] = "complete";
  test::Home home(options);
  EXPECT_TRUE(unknownMethods().contains("SBUIController -activateApplicationAnimated:"));
}

}  // namespace
