// The settings are held under the very strings that layouts ask for them by, so that no letters are compared.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "bridge/replace.hpp"
#include "settings/store/configuration_manager.hpp"
#include "tests/support/home.hpp"

namespace {

std::map<std::string, id> asked;
bridge::Slot slot;

id noteKey(id self, SEL selector, id key) {
  Dl_info caller;
  const bool byLibrary = dladdr(__builtin_return_address(0), &caller) &&
                         std::string_view(caller.dli_fname).ends_with("/Tilo.dylib");
  if (byLibrary && bridge::isKindOf<NSString>(bridge::as<bridge::Object>(key)))
    asked[bridge::as<NSString>(key).UTF8String()] = key;
  return reinterpret_cast<decltype(&noteKey)>(slot.implementation())(self, selector, key);
}

TEST(KnownKeys, AreTheStringsThatTheyAreAskedForBy) {
  std::vector<std::string> options{"--device", "iPhone 7 Plus"};
  for (const char* setting : {"enabled=YES", "icons=YES", "columns=5", "custom_preset=-1",
                              "vertIconPadding=1", "horiIconPadding=2", "sideIconInset=3", "topIconInset=4",
                              "dock=NO", "dockIconsEnabled=YES", "dockIcons=3", "square=YES", "labels=YES"})
    options.insert(options.end(), {"--set", setting});
  test::Home home(options);
  const NSMutableDictionary held = tilo::ConfigurationManager::sharedManager().configuration();
  bridge::replaceMethod(bridge::classOf(held.raw), bridge::selector<"objectForKey:">(),
                        reinterpret_cast<IMP>(&noteKey), slot);
  home.step("rotate landscape");
  home.step("rotate portrait");
  const NSArray keys = held.allKeys();
  std::map<std::string, id> found;
  for (NSUInteger i = 0; i < keys.count(); ++i)
    found[bridge::as<NSString>(keys.objectAtIndex(i)).UTF8String()] = keys.objectAtIndex(i).raw;
  EXPECT_GE(asked.size(), 13u);
  for (const auto& [key, string] : asked) EXPECT_EQ(found[key], string) << key;
}

}  // namespace
