// Keys that a page types, into a text field or nowhere.
#include "platform/uikit/screen.hpp"
#include "platform/uikit/text_field.hpp"
#include "platform/uikit/window.hpp"
#include "tests/simulator/serve/living_home.hpp"

namespace test {
namespace {

sim::Json key(const sim::Json& name) { return {{"type", "key"}, {"id", 1}, {"key", name}}; }

class AKey : public LivingHome {
 protected:
  // Types them, and tells of each whether it was typed.
  std::vector<bool> typed(const std::vector<std::string>& names) {
    std::vector<bool> all;
    live([&](Pages& pages) {
      for (const std::string& name : names) {
        const sim::Json told = pages.ask(key(name));
        EXPECT_EQ(told["type"], "answer");
        EXPECT_EQ(told["id"], 1);
        all.push_back(told["answer"].get<bool>());
      }
    });
    return all;
  }
  void edit() {
    window = bridge::make<UIWindow, &UIView::initWithFrame>(UIScreen::mainScreen().bounds());
    window->makeKeyAndVisible();
    field = bridge::make<UITextField, &UIView::initWithFrame>(CGRect{{20, 60}, {200, 30}});
    window->addSubview(field);
    field->becomeFirstResponder();
  }
  std::string text() { return field->text().UTF8String(); }

  bridge::Strong<UIWindow> window;
  bridge::Strong<UITextField> field;
};

TEST_F(AKey, IsTypedIntoTheFieldThatIsEdited) {
  edit();
  EXPECT_EQ(typed({"a", "\xc3\xa9", "bc"}), (std::vector{true, true, true}));
  EXPECT_EQ(text(),
            "a\xc3\xa9"
            "bc");
}

TEST_F(AKey, MayTakeTheLastCharacterAway) {
  edit();
  EXPECT_EQ(typed({"a", "b", "Backspace"}), (std::vector{true, true, true}));
  EXPECT_EQ(text(), "a");
}

// What the field makes of it is its delegate's.
TEST_F(AKey, MayBeReturn) {
  edit();
  EXPECT_EQ(typed({"a", "Enter"}), (std::vector{true, true}));
  EXPECT_EQ(text(), "a");
}

TEST_F(AKey, IsTypedNowhereWithoutAField) { EXPECT_EQ(typed({"a"}), std::vector{false}); }

TEST_F(AKey, IsNotTypedWhenItIsNoText) {
  edit();
  EXPECT_EQ(typed({"", std::string("a\0b", 3)}), (std::vector{false, false}));
  EXPECT_EQ(text(), "");
}

TEST_F(AKey, IsAnsweredToWhoAsksAlone) {
  edit();
  live([](Pages& pages) {
    pages.say({{"type", "key"}, {"key", "a"}});
    EXPECT_EQ(pages.ask({{"type", "report"}})["type"], "report");
  });
  EXPECT_EQ(text(), "a");
}

TEST_F(AKey, OfAnotherKindIsRefused) {
  EXPECT_EQ(toldFor(key(3))["type"], "refused");
  EXPECT_EQ(toldFor({{"type", "key"}})["type"], "refused");
}

}  // namespace
}  // namespace test
