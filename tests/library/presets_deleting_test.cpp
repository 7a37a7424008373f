// Deleting a layout.
#include <gtest/gtest.h>

#include "tests/library/presets_home.hpp"

namespace {

using sim::Json;
using test::layout;
using test::layouts;
using test::PresetsHome;
using test::Records;

void remove(PresetsHome& home, int row) {
  home.step("pick " + std::to_string(row));
  home.step("tap \"Delete\"");
}

TEST(Deleting, TheSecondOfThreeLeavesTheOthersTheirValues) {
  PresetsHome home(layouts({"one", "two", "three"}));
  home.openPresets();
  remove(home, 1);
  EXPECT_EQ(home.records(), (Records{{"one", 0}, {"three", 2}}));
  EXPECT_EQ(home.names(), Json({"one", "three"}));
  EXPECT_EQ(home.panel().pickerView().numberOfRowsInComponent(0), 2);
}

TEST(Deleting, WithoutTouchingThePickerTakesTheFirst) {
  PresetsHome home(layouts({"one", "two"}));
  home.openPresets();
  home.step("tap \"Delete\"");
  EXPECT_EQ(home.records(), (Records{{"two", 1}}));
}

TEST(Deleting, LeavesTheSelectionAsItWas) {
  PresetsHome home(layouts({"one", "two", "three"}), {"custom_preset=2"});
  home.openPresets();
  remove(home, 1);
  EXPECT_EQ(home.panel().rowSelected(), 1);
  EXPECT_EQ(home.report()["preferences"]["custom_preset"], 2);
}

TEST(Deleting, OneOfTwoOfANameTakesTheFirstInTheFile) {
  PresetsHome home(layouts({"same", "other", "same"}));
  home.openPresets();
  remove(home, 2);
  EXPECT_EQ(home.records(), (Records{{"other", 1}, {"same", 2}}));
}

TEST(Deleting, TakesEveryRecordThatIsEqual) {
  PresetsHome home({layout("same"), layout("other"), layout("same")});
  home.openPresets();
  remove(home, 0);
  EXPECT_EQ(home.records(), (Records{{"other", 0}}));
}

// Another library may show rows of its own.
TEST(Deleting, OfARowThatIsNoLayoutsDeletesNothing) {
  PresetsHome home(layouts({"one", "two"}));
  home.openPresets();
  bridge::Slot slot;
  bridge::replaceMethod(bridge::classNamed<tilo::RQPopupView>(), bridge::selector<"getData">(),
                        reinterpret_cast<IMP>(+[](id panel, SEL) {
                          const auto rows = bridge::make<NSMutableArray, &NSObject::init>();
                          rows->addObject("another's"_ns);
                          bridge::as<tilo::RQPopupView>(panel).data.set(rows);
                        }),
                        slot);
  home.step("tap \"Delete\"");
  EXPECT_EQ(home.records(), (Records{{"one", 0}, {"two", 1}}));
}

TEST(Deleting, TheOnlyOneEmptiesThePage) {
  PresetsHome home(layouts({"one"}));
  home.openPresets();
  home.step("tap \"Delete\"");
  EXPECT_EQ(home.contents(test::presetsPath), test::emptyPresets);
  EXPECT_EQ(home.names(), Json::array());
  EXPECT_EQ(home.shown()["caption"], "No Saved Presets");
}

TEST(Deleting, WhereThereIsNoneRewritesTheSame) {
  PresetsHome home({});
  home.openPresets();
  const test::FileState before = test::stateOf(home.simulation(), test::presetsPath);
  home.step("tap \"Delete\"");
  const test::FileState after = test::stateOf(home.simulation(), test::presetsPath);
  EXPECT_EQ(after.contents, test::emptyPresets);
  EXPECT_FALSE(after == before);
}

TEST(Deleting, TwiceTakesTheRowThatThePickerShowsAfterTheLast) {
  PresetsHome home(layouts({"one", "two", "three"}));
  home.openPresets();
  remove(home, 2);
  home.wait(1);
  home.step("tap \"Delete\"");
  EXPECT_EQ(home.records(), (Records{{"one", 0}}));
  home.wait(1);
  home.step("tap \"Delete\"");
  EXPECT_EQ(home.records(), Records{});
  home.wait(1);
  home.step("tap \"Delete\"");
  EXPECT_EQ(home.panel().rowSelected(), 2);
}

TEST(Selecting, AfterTheLastRowWasDeletedTakesTheOneThatThePickerShows) {
  PresetsHome home(layouts({"one", "two"}));
  home.openPresets();
  remove(home, 1);
  home.wait(1);
  home.step("tap \"Select\"");
  EXPECT_EQ(home.report()["preferences"]["custom_preset"], 0);
  EXPECT_EQ(sim::plain(home.controller().currentPreset())["name"], "one");
  EXPECT_EQ(home.panel().rowSelected(), 1);
}

TEST(Deleting, BlinksThePanel) {
  PresetsHome home(layouts({"one", "two"}));
  home.openPresets();
  home.step("tap \"Delete\"");
  auto alpha = [&] { return home.shown()["alpha"].get<double>(); };
  EXPECT_EQ(alpha(), 1);
  home.wait(0.2);
  EXPECT_NEAR(alpha(), 0.75, 1e-3);
  home.wait(0.2);
  EXPECT_NEAR(alpha(), 0.5, 1e-3);
  home.wait(0.2);
  EXPECT_NEAR(alpha(), 0.75, 1e-3);
  home.wait(0.2);
  EXPECT_EQ(alpha(), 1);
}

TEST(Deleting, BeginsWithWhatTheFileHoldsNow) {
  PresetsHome home(layouts({"one", "two"}));
  home.openPresets();
  home.write(test::presetsPath, test::presetsDocument(Json(layouts({"new", "one", "two"}))));
  home.step("tap \"Delete\"");
  EXPECT_EQ(home.records(), (Records{{"one", 1}, {"two", 2}}));
}

TEST(Deleting, LeavesThePanelOpenAndTheIconsWhereTheyAre) {
  PresetsHome home(layouts({"one", "two"}));
  home.openPresets();
  home.step("tap \"Delete\"");
  home.wait(1);
  EXPECT_NE(home.report()["panel"], nullptr);
  EXPECT_TRUE(home.report()["relayouts"].empty());
}

TEST(Deleting, AllOneByOneEndsWithNone) {
  PresetsHome home(layouts({"a", "b", "c", "d"}));
  home.openPresets();
  for (int left = 3; left >= 0; --left) {
    home.step("tap \"Delete\"");
    home.wait(1);
    EXPECT_EQ(home.stored().size(), static_cast<size_t>(left));
  }
}

}  // namespace
