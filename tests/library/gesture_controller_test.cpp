// RQGestureController: the preference values, the selected preset, and writing settings.
#include "settings/gesture_controller.hpp"

#include <gtest/gtest.h>

#include <climits>

#include "bridge/replace.hpp"
#include "panel/popup_view.hpp"
#include "settings/store/configuration_manager.hpp"
#include "tests/library/device_files.hpp"
#include "tests/library/key_value.hpp"

namespace {

using test::Home;
using tilo::ConfigurationManager;
using tilo::RQGestureController;

RQGestureController controller() { return RQGestureController::sharedInstance(); }

sim::Json currentPreset() { return sim::plain(controller().currentPreset()); }

std::string currentName() {
  return currentPreset().isNull() ? "none" : currentPreset()["name"].get<std::string>();
}

// Three presets, of which the third was saved when there were five.
test::Preparation threePresets() {
  sim::Json records = {test::preset("first", 1, 1, 2, 3, 4), test::preset("second", 1, 5, 6, 7, 8),
                       test::preset("third", 1, 9, 10, 11, 12)};
  records[0]["value"] = 0;
  records[1]["value"] = 1;
  records[2]["value"] = 5;
  return test::having(test::presetsPath, test::presetsDocument(records));
}

TEST(GestureController, IsOneObject) {
  Home home;
  ASSERT_TRUE(controller());
  EXPECT_EQ(controller(), RQGestureController::sharedInstance());
  EXPECT_EQ(class_getSuperclass(bridge::classOf(controller().raw)), bridge::classNamed<NSObject>());
  EXPECT_STREQ(class_getName(bridge::classOf(controller().raw)), "RQGestureController");
}

TEST(GestureController, IsUpdatedOnceWhenItIsMade) {
  Home home({"--set", "custom_preset=1"}, threePresets());
  ASSERT_EQ(currentName(), "second");
  home.save("custom_preset"_ns, NSNumber::numberWithInt(0));
  RQGestureController::sharedInstance();
  EXPECT_EQ(currentName(), "second");
  controller().update();
  EXPECT_EQ(currentName(), "first");
}

TEST(GestureController, StartsWithoutViews) {
  Home home;
  EXPECT_FALSE(controller().gestureView());
  EXPECT_FALSE(controller().popView());
  home.step("wait 1");
  EXPECT_FALSE(controller().gestureView());
}

TEST(GestureController, ImplementsNoDelegateMethods) {
  Home home;
  for (const char* name : {"gestureRecognizerShouldBegin:", "gestureRecognizer:shouldReceiveTouch:",
                           "gestureRecognizer:shouldRecognizeSimultaneouslyWithGestureRecognizer:",
                           "gestureRecognizer:shouldRequireFailureOfGestureRecognizer:",
                           "gestureRecognizer:shouldBeRequiredToFailByGestureRecognizer:"})
    EXPECT_FALSE(controller().respondsToSelector(sel_registerName(name))) << name;
}

TEST(Values, AreTheVeryDictionaryOfTheManager) {
  Home home;
  EXPECT_EQ(controller().rootObj(), ConfigurationManager::sharedManager().configuration());
  home.save("rows"_ns, NSNumber::numberWithInt(2));
  EXPECT_EQ(bridge::as<NSNumber>(controller().rootObj().objectForKey("rows"_ns)).intValue(), 2);
}

TEST(Values, FollowNoOtherProcess) {
  Home home({"--set", "rows=5"});
  home.write(test::preferencesPath, test::propertyList("<key>rows</key><integer>9</integer>"));
  EXPECT_EQ(test::withoutPageCount(sim::plain(controller().rootObj())), (sim::Json{{"rows", 5}}));
}

TEST(Values, AreBoundAnewByAnUpdate) {
  Home home({"--set", "rows=5"});
  controller().rootObj.set({});
  controller().update();
  EXPECT_EQ(controller().rootObj(), ConfigurationManager::sharedManager().configuration());
}

class SelectedAtStart : public testing::TestWithParam<std::pair<std::string, std::string>> {};

TEST_P(SelectedAtStart, IsThePresetAtTheStoredPosition) {
  Home home({"--set", GetParam().first}, threePresets());
  EXPECT_EQ(currentName(), GetParam().second);
}

using Selection = SelectedAtStart::ParamType;
INSTANTIATE_TEST_SUITE_P(
    Positions, SelectedAtStart,
    testing::Values(Selection{"custom_preset=0", "first"}, Selection{"custom_preset=1", "second"},
                    Selection{"custom_preset=2", "third"}, Selection{"custom_preset=2.0", "third"},
                    Selection{"custom_preset=two", "first"}, Selection{"rows=5", "first"},
                    Selection{"custom_preset=3", "none"}, Selection{"custom_preset=5", "none"},
                    Selection{"custom_preset=-1", "none"}));

TEST(SelectedPreset, IsFoundByPositionAndNotByStoredValue) {
  Home home({"--set", "custom_preset=-1"}, threePresets());
  controller().updateConfigWithValue(5);
  EXPECT_FALSE(controller().currentPreset());
  controller().updateConfigWithValue(2);
  sim::Json expected = test::preset("third", 1, 9, 10, 11, 12);
  expected["value"] = 2;
  // Compared without regard to the order of keys.
  EXPECT_EQ(currentPreset().sorted(), expected.sorted());
}

TEST(SelectedPreset, HasAnIntegerForItsPosition) {
  Home home({"--set", "custom_preset=2"}, threePresets());
  auto position = bridge::as<NSNumber>(controller().currentPreset().objectForKey("value"_ns));
  EXPECT_EQ(position.intValue(), 2);
  EXPECT_FALSE(std::string("fd").contains(*position.objCType())) << position.objCType();
}

TEST(SelectedPreset, ReachesTheHomeScreen) {
  Home home({"--set", "custom_preset=1", "--set", "enabled=YES"}, threePresets());
  EXPECT_EQ(home.page(0).verticalIconPadding(), 5);
  EXPECT_EQ(home.page(0).horizontalIconPadding(), 6);
  controller().updateConfigWithValue(2);
  EXPECT_EQ(home.page(0).sideIconInset(), 11);
  EXPECT_EQ(home.page(0).topIconInset(), 12);
}

TEST(SelectedPreset, StaysTheVeryOneForAPositionThatTheFileDoesNotHave) {
  Home home({"--set", "custom_preset=1"}, threePresets());
  NSDictionary before = controller().currentPreset();
  ASSERT_TRUE(before);
  for (int position : {3, 4, 5, 1000, INT_MAX, -1, -2, INT_MIN}) {
    controller().updateConfigWithValue(position);
    EXPECT_EQ(controller().currentPreset(), before) << position;
  }
  EXPECT_EQ(currentName(), "second");
}

TEST(SelectedPreset, IsReadFromTheFileAsItIsAtThatMoment) {
  Home home({"--set", "custom_preset=0"}, threePresets());
  home.write(test::presetsPath,
             test::presetsDocument(sim::Json::array({test::preset("newer", 1, 0, 0, 0, 0)})));
  EXPECT_EQ(currentName(), "first");
  controller().updateConfigWithValue(0);
  EXPECT_EQ(currentName(), "newer");
}

TEST(SavingSettings, GoesThroughTheManager) {
  Home home({"--set", "rows=5"});
  controller().savePrefsWithKey_value("sideIconInset"_ns, NSNumber::numberWithFloat(12.5f));
  EXPECT_EQ(test::withoutPageCount(sim::plain(ConfigurationManager::sharedManager().configuration())),
            (sim::Json{{"rows", 5}, {"sideIconInset", 12.5}}));
  EXPECT_EQ(test::withoutPageCount(sim::plain(controller().rootObj())),
            (sim::Json{{"rows", 5}, {"sideIconInset", 12.5}}));
  EXPECT_EQ(test::preferencesOf(home), (sim::Json{{"rows", 5}, {"sideIconInset", 12.5}}));
}

std::vector<std::pair<id, id>> passedOn;
void notePassed(id, SEL, id key, id value) { passedOn.emplace_back(key, value); }

TEST(SavingSettings, PassesKeyAndValueOnUnchanged) {
  Home home({"--set", "rows=5"});
  bridge::Slot slot;
  bridge::replaceMethod(bridge::classNamed<ConfigurationManager>(), bridge::selector<"saveWithKey:value:">(),
                        reinterpret_cast<IMP>(&notePassed), slot);
  NSNumber value = NSNumber::numberWithDouble(1.25);
  NSString key = NSString::stringWithUTF8String("a key of its own");
  controller().savePrefsWithKey_value(key, value);
  controller().savePrefsWithKey_value(key, {});
  EXPECT_EQ(passedOn, (std::vector<std::pair<id, id>>{{key.raw, value.raw}, {key.raw, nullptr}}));
}

TEST(SavingSettings, OfNilRemovesTheValue) {
  Home home({"--set", "rows=5", "--set", "columns=4"});
  controller().savePrefsWithKey_value("rows"_ns, {});
  EXPECT_EQ(test::preferencesOf(home), (sim::Json{{"columns", 4}}));
}

TEST(SavingSettings, DoesNothingElse) {
  Home home({"--set", "custom_preset=1", "--set", "enabled=YES"}, threePresets());
  test::Listening listening;
  controller().savePrefsWithKey_value("custom_preset"_ns, NSNumber::numberWithInt(0));
  home.step("wait 1");
  EXPECT_EQ(test::witnessed, std::vector<std::string>{});
  EXPECT_EQ(home.report()["relayouts"], sim::Json::array());
  EXPECT_EQ(home.report()["console"].size(), 3);  // the start's two, and what SpringBoard lacks
  EXPECT_EQ(currentName(), "second");
}

// The accessors as they are to anybody who only knows their names.
struct Properties : bridge::Face<"RQGestureController", NSObject> {
  MESSAGE Method<"gestureView", bridge::Object()> gestureView;
  MESSAGE Method<"setGestureView:", void(bridge::Object)> setGestureView;
  MESSAGE Method<"popView", bridge::Object()> popView;
  MESSAGE Method<"setPopView:", void(bridge::Object)> setPopView;
  MESSAGE Method<"currentPreset", bridge::Object()> currentPreset;
  MESSAGE Method<"setCurrentPreset:", void(bridge::Object)> setCurrentPreset;
  MESSAGE Method<"rootObj", bridge::Object()> rootObj;
  MESSAGE Method<"setRootObj:", void(bridge::Object)> setRootObj;
};

// Sets, reads and gives up an object: the property holds one reference.
template <auto Getter, auto Setter>
void expectRetained(NSObject object) {
  id self = controller().raw;
  using Get = bridge::Descriptor<Getter>;
  using Set = bridge::Descriptor<Setter>;
  NSUInteger before = object.retainCount();
  Set::send(self, object);
  EXPECT_EQ(object.retainCount(), before + 1) << Get::name;
  EXPECT_EQ(Get::send(self), object) << Get::name;
  EXPECT_EQ(object.retainCount(), before + 1) << Get::name;
  Set::send(self, object);
  EXPECT_EQ(object.retainCount(), before + 1) << Get::name;
  Set::send(self, {});
  EXPECT_EQ(object.retainCount(), before) << Get::name;
  EXPECT_FALSE(Get::send(self)) << Get::name;
}

TEST(Accessors, HoldOneReference) {
  Home home;
  bridge::Pool pool;
  auto view = bridge::make<UIView, &UIView::initWithFrame>(CGRect{});
  expectRetained<&Properties::gestureView, &Properties::setGestureView>(view.get());
  expectRetained<&Properties::popView, &Properties::setPopView>(view.get());
  auto values = bridge::make<NSMutableDictionary, &NSObject::init>();
  expectRetained<&Properties::rootObj, &Properties::setRootObj>(values.get());
  expectRetained<&Properties::currentPreset, &Properties::setCurrentPreset>(values.get());
}

TEST(Accessors, AreFoundByKeyAndCanBeObserved) {
  Home home;
  std::vector<NSString> keys = {"gestureView"_ns, "popView"_ns, "currentPreset"_ns, "rootObj"_ns};
  {
    test::Observation observation(controller(), keys);
    auto view = bridge::make<UIView, &UIView::initWithFrame>(CGRect{});
    auto values = bridge::make<NSMutableDictionary, &NSObject::init>();
    controller().gestureView.set(view);
    bridge::as<Properties>(controller()).setPopView(view.get());
    controller().currentPreset.set(values.get());
    test::coding(controller()).setValue_forKey(values, "rootObj"_ns);
    EXPECT_EQ(test::coding(controller()).valueForKey("gestureView"_ns).raw, view.get().raw);
    EXPECT_EQ(test::coding(controller()).valueForKey("popView"_ns).raw, view.get().raw);
    EXPECT_EQ(test::coding(controller()).valueForKey("currentPreset"_ns).raw, values.get().raw);
    EXPECT_EQ(test::coding(controller()).valueForKey("rootObj"_ns).raw, values.get().raw);
  }
  EXPECT_EQ(test::witnessed,
            (std::vector<std::string>{"gestureView", "popView", "currentPreset", "rootObj"}));
}

}  // namespace
