// The panel's properties, as they are to anybody who only knows their names.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>

#include "tests/library/key_value.hpp"
#include "tests/library/panel_home.hpp"

namespace {

using test::PanelHome;
using tilo::RQPopupView;

const std::vector<std::string> names{
    "moveTimer",   "toggleButton", "contentView",    "pickerView", "toolBar",     "scrollView", "horSlider",
    "vertSlider",  "sideSlider",   "topSlider",      "pan",        "horValue",    "vertValue",  "sideValue",
    "topValue",    "data",         "configurations", "addButton",  "pageControl", "select",     "pickerLabel",
    "rowSelected", "rootObj"};

std::string setterOf(const std::string& name) {
  std::string setter = "set" + name + ":";
  setter[3] = static_cast<char>(std::toupper(static_cast<unsigned char>(setter[3])));
  return setter;
}

bool isNumber(const std::string& name) { return name == "rowSelected"; }

objc_method* method(const std::string& selector) {
  return class_getInstanceMethod(bridge::classNamed<RQPopupView>(), sel_registerName(selector.c_str()));
}

// The type's letter, at that place of the method's encoding; offsets are left out.
std::string letters(const std::string& selector) {
  std::string all = method_getTypeEncoding(method(selector)), kept;
  for (char c : all)
    if (!std::isdigit(static_cast<unsigned char>(c))) kept += c;
  return kept;
}

std::vector<std::string> namesBut(const char* one) {
  std::vector<std::string> others = names;
  std::erase(others, one);
  return others;
}

// The key "data" leads to -getData, which loads the names of the presets anew.
class PanelKey : public testing::TestWithParam<std::string> {};
class PanelObject : public testing::TestWithParam<std::string> {};
class PanelProperty : public testing::TestWithParam<std::string> {};

TEST_P(PanelProperty, HasAccessorsOfItsType) {
  PanelHome home;
  const std::string& name = GetParam();
  ASSERT_TRUE(method(name));
  ASSERT_TRUE(method(setterOf(name)));
  EXPECT_EQ(letters(name), isNumber(name) ? "i@:" : "@@:");
  EXPECT_EQ(letters(setterOf(name)), isNumber(name) ? "v@:i" : "v@:@");
}

TEST_P(PanelKey, FindsItsPropertyAndCanBeObserved) {
  PanelHome home;
  auto panel = bridge::make<RQPopupView, &NSObject::init>();
  NSString key = NSString::stringWithUTF8String(GetParam().c_str());
  bridge::Strong<NSObject> value;
  if (isNumber(GetParam()))
    value = bridge::retained(bridge::as<NSObject>(NSNumber::numberWithInt(-7)));
  else
    value = bridge::make<UIView, &UIView::initWithFrame>(CGRect{});
  {
    test::Observation observation(panel.get(), {key});
    test::coding(panel.get()).setValue_forKey(value.get(), key);
  }
  EXPECT_EQ(test::witnessed, std::vector<std::string>{GetParam()});
  bridge::Object found = test::coding(panel.get()).valueForKey(key);
  if (isNumber(GetParam()))
    EXPECT_EQ(bridge::as<NSNumber>(found).intValue(), -7);
  else
    EXPECT_EQ(found.raw, value.get().raw);
}

TEST_P(PanelObject, IsHeldByOneReference) {
  PanelHome home;
  auto panel = bridge::make<RQPopupView, &NSObject::init>();
  const bridge::Pool pool;
  auto value = bridge::make<UIView, &UIView::initWithFrame>(CGRect{});
  auto set = reinterpret_cast<void (*)(id, SEL, id)>(method_getImplementation(method(setterOf(GetParam()))));
  SEL setter = sel_registerName(setterOf(GetParam()).c_str());
  NSUInteger before = value->retainCount();
  set(panel.get().raw, setter, value.get().raw);
  EXPECT_EQ(value->retainCount(), before + 1);
  set(panel.get().raw, setter, value.get().raw);
  EXPECT_EQ(value->retainCount(), before + 1);
  set(panel.get().raw, setter, nullptr);
  EXPECT_EQ(value->retainCount(), before);
}

INSTANTIATE_TEST_SUITE_P(Names, PanelProperty, testing::ValuesIn(names),
                         [](const auto& test) { return test.param; });

INSTANTIATE_TEST_SUITE_P(Names, PanelKey, testing::ValuesIn(namesBut("data")),
                         [](const auto& test) { return test.param; });
INSTANTIATE_TEST_SUITE_P(Names, PanelObject, testing::ValuesIn(namesBut("rowSelected")),
                         [](const auto& test) { return test.param; });

TEST(PanelProperties, IncludeTheSettingsThatItWritesInto) {
  PanelHome home;
  home.open();
  auto other = bridge::retained(NSMutableDictionary::dictionary());
  home.panel().rootObj.set(other);
  home.panel().moveIcons(home.panel().topSlider());
  EXPECT_EQ(sim::plain(other.get()), (sim::Json{{"custom_preset", -1}, {"topIconInset", 30}}));
}

TEST(PanelProperties, StandInTheOrderOfTheInterface) {
  PanelHome home;
  unsigned int count = 0;
  objc_method** methods = class_copyMethodList(bridge::classNamed<RQPopupView>(), &count);
  std::vector<std::string> found;
  for (unsigned int i = 0; i < count; ++i) {
    std::string name = sel_getName(method_getName(methods[i]));
    if (std::ranges::find(names, name) != names.end()) found.push_back(name);
  }
  std::free(methods);
  // The runtime lists what was added last first.
  std::ranges::reverse(found);
  EXPECT_EQ(found, names);
}

TEST(PanelClass, IsAView) {
  PanelHome home;
  EXPECT_EQ(class_getSuperclass(bridge::classNamed<RQPopupView>()), bridge::classNamed<UIView>());
}

}  // namespace
