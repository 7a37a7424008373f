// Alerts, and what they are presented over.
#include <algorithm>

#include "platform/uikit/alert_controller.hpp"
#include "simulator/runtime/console.hpp"
#include "simulator/uikit/alerts/alert_layout.hpp"
#include "simulator/uikit/text/keyboard.hpp"
#include "tests/simulator/uikit/touch_fixture.hpp"
#include "tests/support/raised.hpp"

namespace test {
namespace {

using sim::uikit::AlertContent;
using sim::uikit::AlertLayout;
using sim::uikit::layOutAlert;

class Alert : public Fingers {
 protected:
  Alert() : root(make<UIViewController, &NSObject::init>()) { window->rootViewController.set(root); }

  static Strong<UIAlertController> makeAlert(NSString title = "Title"_ns, NSString message = "Message"_ns) {
    return retained(UIAlertController::alertControllerWithTitle_message_preferredStyle(
        title, message, UIAlertControllerStyleAlert));
  }

  // An action that is logged by its title.
  static void addAction(UIAlertController alert, NSString title,
                        NSInteger style = UIAlertActionStyleDefault) {
    alert.addAction(UIAlertAction::actionWithTitle_style_handler(
        title, style, Block<void(UIAlertAction)>([](UIAlertAction action) {
          note("handled " + std::string(action.title().UTF8String()));
        })));
  }

  void present(UIAlertController alert, const char* done = nullptr) {
    root->presentViewController_animated_completion(
        alert, YES, done ? Block<void()>([done] { note(done); }) : Block<void()>());
  }

  // The label with that text in the tree below the view; none where there is none.
  static UIView labelled(UIView view, const std::string& text) {
    UIView found;
    sim::uikit::forEachInTree(view, [&](UIView one) {
      if (!bridge::isKindOf<UILabel>(one)) return;
      const NSString own = bridge::as<UILabel>(one).text();
      if (own && own.UTF8String() == text) found = one;
    });
    return found;
  }

  CGRect onScreen(UIView view) { return view.convertRect_toView(view.bounds(), {}); }

  CGPoint middleOf(const std::string& text) {
    sim::uikit::layoutPass();
    const UIView label = labelled(window.get(), text);
    EXPECT_TRUE(label) << text;
    const CGRect frame = onScreen(label);
    return {frame.origin.x + frame.size.width / 2, frame.origin.y + frame.size.height / 2};
  }

  Strong<UIViewController> root;
};

TEST_F(Alert, HasWhatItWasMadeWith) {
  auto alert = makeAlert("One"_ns, "Two"_ns);
  addAction(alert, "Three"_ns, UIAlertActionStyleDestructive);
  EXPECT_STREQ(alert->title().UTF8String(), "One");
  EXPECT_STREQ(alert->message().UTF8String(), "Two");
  EXPECT_EQ(alert->preferredStyle(), UIAlertControllerStyleAlert);
  ASSERT_EQ(alert->actions().count(), 1u);
  const auto action = bridge::as<UIAlertAction>(alert->actions().objectAtIndex(0));
  EXPECT_STREQ(action.title().UTF8String(), "Three");
  EXPECT_EQ(action.style(), UIAlertActionStyleDestructive);
}

TEST_F(Alert, StandsInTheMiddleOfTheWindowWithRoundedCorners) {
  auto alert = makeAlert();
  addAction(alert, "Okay"_ns);
  present(alert);
  pass(1);
  const CGRect frame = onScreen(alert->view());
  EXPECT_EQ(frame.size.width, 270);  // confirmed: measured widely on these systems
  EXPECT_EQ(frame.origin.x, 52.5);   // confirmed: alerts are centred
  EXPECT_NEAR(frame.origin.y + frame.size.height / 2, 333.5, 0.5);
  EXPECT_EQ(alert->view().layer().cornerRadius(), 14);  // assumed
  EXPECT_TRUE(alert->view().clipsToBounds());
}

TEST_F(Alert, IsInFrontOfEverythingInTheWindow) {
  auto card = touchView({{0, 0}, {375, 667}}, "card");
  auto alert = makeAlert();
  present(alert);
  const NSArray views = window->subviews();
  const auto front = bridge::as<UIView>(views.objectAtIndex(views.count() - 1));
  EXPECT_TRUE(alert->view().isDescendantOfView(front));  // confirmed: a presentation lies over the window
  EXPECT_EQ(front.frame(), window->bounds());
}

TEST_F(Alert, KeepsTouchesFromWhatIsBelow) {
  auto card = touchView({{0, 0}, {375, 667}}, "card");
  tap({20, 50});
  EXPECT_EQ(takeLog().size(), 2u);
  auto alert = makeAlert();
  addAction(alert, "Okay"_ns);
  present(alert);
  tap({20, 50});
  pass(1);
  tap({20, 50});
  EXPECT_EQ(takeLog(), Log{});
  EXPECT_TRUE(root->presentedViewController() == alert);  // confirmed: a touch beside an alert does nothing
}

TEST_F(Alert, FadesInFromALargerSize) {
  auto alert = makeAlert();
  present(alert);
  EXPECT_EQ(shown(alert->view()).opacity, 0);
  EXPECT_EQ(shown(alert->view()).transform.a, 1.2);  // assumed
  pass(0.2);
  EXPECT_NEAR(shown(alert->view()).opacity, 0.5, 1e-3);  // assumed
  pass(0.2);
  EXPECT_EQ(shown(alert->view()).opacity, 1);
  EXPECT_EQ(shown(alert->view()).transform.a, 1);
}

TEST_F(Alert, CallsTheCompletionOnceItHasCome) {
  auto alert = makeAlert();
  present(alert, "come");
  pass(0.39);
  EXPECT_EQ(takeLog(), Log{});
  pass(0.02);
  EXPECT_EQ(takeLog(), Log{"come"});  // confirmed: Apple documentation of presentViewController
}

TEST_F(Alert, IsPresentedWithoutACompletionToo) {
  auto alert = makeAlert();
  root->presentViewController_animated_completion(alert, NO, Block<void()>());
  turn();
  EXPECT_EQ(shown(alert->view()).opacity, 1);
  EXPECT_TRUE(alert->presentingViewController() == root);
}

TEST_F(Alert, GoesBeforeItsActionIsHandled) {
  auto alert = makeAlert();
  addAction(alert, "Add"_ns);
  addAction(alert, "Cancel"_ns, UIAlertActionStyleDestructive);
  present(alert);
  pass(1);
  tap(middleOf("Cancel"));
  pass(0.2);
  EXPECT_EQ(takeLog(), Log{});
  EXPECT_TRUE(alert->view().window());
  pass(0.1);
  EXPECT_EQ(takeLog(), Log{"handled Cancel"});  // confirmed: the handler follows the dismissal
  EXPECT_FALSE(alert->view().window());
  EXPECT_FALSE(root->presentedViewController());
  EXPECT_FALSE(alert->presentingViewController());
}

TEST_F(Alert, TakesTheFirstOfTwoTaps) {
  auto alert = makeAlert();
  addAction(alert, "Add"_ns);
  addAction(alert, "Cancel"_ns);
  present(alert);
  pass(1);
  const CGPoint add = middleOf("Add"), cancel = middleOf("Cancel");
  tap(add);
  tap(cancel);
  pass(1);
  EXPECT_EQ(takeLog(), Log{"handled Add"});  // assumed
}

TEST_F(Alert, MayBeAnsweredWhileItIsStillComing) {
  auto alert = makeAlert();
  addAction(alert, "Okay"_ns);
  present(alert);
  pass(0.05);
  tap(middleOf("Okay"));
  pass(0.3);
  EXPECT_EQ(takeLog(), Log{"handled Okay"});  // assumed
}

TEST_F(Alert, TakesAnActionWithoutAHandler) {
  auto alert = makeAlert();
  alert->addAction(UIAlertAction::actionWithTitle_style_handler("Okay"_ns, 0, Block<void(UIAlertAction)>()));
  present(alert);
  pass(1);
  tap(middleOf("Okay"));
  pass(1);
  EXPECT_FALSE(root->presentedViewController());
}

TEST_F(Alert, MayBePresentedByAHandler) {
  auto first = makeAlert("First"_ns);
  auto second = makeAlert("Second"_ns);
  first->addAction(UIAlertAction::actionWithTitle_style_handler(
      "More"_ns, 0, Block<void(UIAlertAction)>([this, second](UIAlertAction) { present(second); })));
  present(first);
  pass(1);
  tap(middleOf("More"));
  pass(1);
  EXPECT_TRUE(root->presentedViewController() == second);  // confirmed: handlers may present
  EXPECT_TRUE(second->view().window());
}

TEST_F(Alert, IsNotPresentedBesideAnother) {
  auto first = makeAlert("First"_ns);
  auto second = makeAlert("Second"_ns);
  present(first);
  present(second, "second");
  pass(1);
  EXPECT_TRUE(root->presentedViewController() == first);
  EXPECT_FALSE(second->isViewLoaded() && second->view().window());
  EXPECT_EQ(takeLog(), Log{});
  ASSERT_FALSE(sim::console().empty());
  const std::string line = sim::console().back();
  EXPECT_TRUE(line.starts_with("Warning: Attempt to present <UIAlertController: 0x")) << line;
  EXPECT_NE(line.find("which is already presenting <UIAlertController: 0x"), std::string::npos)
      << line;  // confirmed: the wording of system 9 to 12
}

TEST_F(Alert, IsNotPresentedOverAViewThatIsInNoWindow) {
  auto loose = make<UIViewController, &NSObject::init>();
  loose->view();
  auto alert = makeAlert();
  loose->presentViewController_animated_completion(alert, YES, Block<void()>());
  EXPECT_FALSE(loose->presentedViewController());
  EXPECT_NE(sim::console().back().find("whose view is not in the window hierarchy!"),
            std::string::npos);  // confirmed: the wording of system 9 to 12
}

TEST_F(Alert, CanBeDismissedByItself) {
  auto alert = makeAlert();
  present(alert);
  pass(1);
  alert->dismissViewControllerAnimated_completion(YES, Block<void()>([] { note("gone"); }));
  pass(1);
  EXPECT_EQ(takeLog(), Log{"gone"});  // confirmed: Apple documentation of dismissViewController
  EXPECT_FALSE(root->presentedViewController());
}

TEST_F(Alert, LivesNoLongerThanItIsShown) {
  NSUInteger before = 0;
  auto alert = makeAlert();
  addAction(alert, "Okay"_ns);
  {
    const Pool inner;
    before = alert->retainCount();
    present(alert);
    pass(1);
    EXPECT_GT(alert->retainCount(), before);
    tap(middleOf("Okay"));
    pass(1);
  }
  EXPECT_EQ(alert->retainCount(), before);
}

TEST_F(Alert, StaysInTheMiddleWhenTheWindowTurns) {
  auto alert = makeAlert();
  present(alert);
  pass(1);
  window->frame.set({{0, 0}, {667, 375}});
  sim::uikit::layoutPass();
  const CGRect frame = onScreen(alert->view());
  EXPECT_NEAR(frame.origin.x + frame.size.width / 2, 333.5, 0.5);
  EXPECT_NEAR(frame.origin.y + frame.size.height / 2, 187.5, 0.5);
  EXPECT_EQ(alert->view().superview().bounds().size, (CGSize{667, 375}));
}

TEST_F(Alert, HasOneActionForCancellingAtMost) {
  auto alert = makeAlert();
  addAction(alert, "One"_ns, UIAlertActionStyleCancel);
  EXPECT_EQ(raisedName([&] { addAction(alert, "Two"_ns, UIAlertActionStyleCancel); }),
            "NSInternalInconsistencyException");  // confirmed: device behaviour, known widely
}

TEST_F(Alert, OfTheOtherStyleSaysThatItIsMissing) {
  EXPECT_EQ(raisedName([] {
              UIAlertController::alertControllerWithTitle_message_preferredStyle(
                  "Title"_ns, {}, UIAlertControllerStyleActionSheet);
            }),
            "NSInternalInconsistencyException");
}

TEST_F(Alert, ThatIsNoneIsNotPresented) {
  EXPECT_EQ(raisedName([&] { root->presentViewController_animated_completion({}, YES, Block<void()>()); }),
            "NSInvalidArgumentException");  // confirmed: device behaviour, known widely
}

TEST_F(Alert, ButtonIsDarkWhileAFingerIsOnIt) {
  auto alert = makeAlert();
  addAction(alert, "Okay"_ns);
  present(alert);
  pass(1);
  const CGPoint okay = middleOf("Okay");
  const UIView button = labelled(window.get(), "Okay").superview();
  auto darkness = [&] {
    sim::uikit::layoutPass();
    return sim::uikit::layerOf(button).backgroundColor.alpha;
  };
  EXPECT_EQ(darkness(), 0);
  down(okay);
  EXPECT_GT(darkness(), 0);  // assumed
  move({20, 20});
  EXPECT_EQ(darkness(), 0);
  up({20, 20});
  pass(1);
  EXPECT_EQ(takeLog(), Log{});
}

TEST_F(Alert, ColoursItsButtonsByStyle) {
  auto alert = makeAlert();
  addAction(alert, "Plain"_ns);
  addAction(alert, "Cancel"_ns, UIAlertActionStyleCancel);
  addAction(alert, "Erase"_ns, UIAlertActionStyleDestructive);
  present(alert);
  auto look = [&](const char* text) {
    const auto label = bridge::as<UILabel>(labelled(window.get(), text));
    CGFloat red = 0, green = 0, blue = 0, alpha = 0;
    label.textColor().getRed_green_blue_alpha(&red, &green, &blue, &alpha);
    return std::pair(red > blue ? "red" : "blue", std::string(label.font().fontName().UTF8String()));
  };
  using Look = std::pair<const char*, std::string>;
  EXPECT_EQ(look("Plain"), Look("blue", ".SFUIText"));            // confirmed: known widely
  EXPECT_EQ(look("Cancel"), Look("blue", ".SFUIText-Semibold"));  // confirmed: known widely
  EXPECT_EQ(look("Erase"), Look("red", ".SFUIText"));             // confirmed: known widely
}

TEST_F(Alert, PutsTheActionForCancellingFirstOfTwoAndLastOfThree) {
  auto two = makeAlert();
  addAction(two, "Do"_ns);
  addAction(two, "Cancel"_ns, UIAlertActionStyleCancel);
  present(two);
  EXPECT_LT(middleOf("Cancel").x, middleOf("Do").x);  // confirmed: known widely
  EXPECT_EQ(middleOf("Cancel").y, middleOf("Do").y);
  root->dismissViewControllerAnimated_completion(NO, Block<void()>());
  turn();
  auto three = makeAlert();
  addAction(three, "Cancel"_ns, UIAlertActionStyleCancel);
  addAction(three, "Do"_ns);
  addAction(three, "Undo"_ns);
  present(three);
  EXPECT_LT(middleOf("Do").y, middleOf("Undo").y);
  EXPECT_LT(middleOf("Undo").y, middleOf("Cancel").y);  // confirmed: known widely
}

class AlertWithField : public Alert {
 protected:
  AlertWithField() {
    alert = makeAlert();
    alert->addTextFieldWithConfigurationHandler(
        Block<void(UITextField)>([](UITextField field) { field.placeholder.set("Name"_ns); }));
    addAction(alert, "Okay"_ns);
  }
  ~AlertWithField() override {
    root->dismissViewControllerAnimated_completion(NO, Block<void()>());
    pass(1);
  }

  UITextField field() { return bridge::as<UITextField>(alert->textFields().objectAtIndex(0)); }
  double middle() {
    sim::uikit::layoutPass();
    const CGRect frame = onScreen(alert->view());
    return frame.origin.y + frame.size.height / 2;
  }

  Strong<UIAlertController> alert;
};

TEST_F(AlertWithField, ConfiguresItAtOnce) {
  ASSERT_EQ(alert->textFields().count(), 1u);
  EXPECT_STREQ(field().placeholder().UTF8String(), "Name");  // confirmed: Apple documentation
}

TEST_F(AlertWithField, ShowsItBelowTheTextsAndAboveTheButtons) {
  present(alert);
  pass(1);
  const CGRect frame = onScreen(field());
  EXPECT_GT(frame.origin.y, middleOf("Message").y);
  EXPECT_LT(frame.origin.y + frame.size.height, middleOf("Okay").y);
  EXPECT_GT(frame.size.width, 200);
}

TEST_F(AlertWithField, IsReadyToBeTypedInto) {
  present(alert);
  EXPECT_TRUE(field().isFirstResponder());  // confirmed: known widely
  pass(1);
  field().insertText("Home"_ns);
  EXPECT_STREQ(field().text().UTF8String(), "Home");
}

TEST_F(AlertWithField, StandsInTheMiddleOfWhatTheKeyboardLeaves) {
  present(alert);
  pass(1);
  const double keys = sim::uikit::keyboardFrame().origin.y;
  EXPECT_GT(keys, 300);
  EXPECT_NEAR(middle(), keys / 2, 0.5);  // confirmed: known widely
  EXPECT_LT(onScreen(alert->view()).origin.y + onScreen(alert->view()).size.height, keys);
}

TEST_F(AlertWithField, ComesDownWhenTheKeyboardGoes) {
  present(alert);
  pass(1);
  field().resignFirstResponder();
  EXPECT_LT(shown(alert->view()).position.y, 300);
  pass(1);
  EXPECT_NEAR(middle(), 333.5, 0.5);  // confirmed: known widely
}

TEST_F(AlertWithField, GivesUpTheKeyboardWhenItGoes) {
  present(alert);
  pass(1);
  const double before = shown(alert->view()).position.y;
  tap(middleOf("Okay"));
  EXPECT_FALSE(field().isFirstResponder());
  pass(0.2);
  EXPECT_EQ(shown(alert->view()).position.y, before);  // assumed: it fades where it stands
  pass(0.1);
  EXPECT_EQ(sim::uikit::keyboardFrame().size.height, 0);
  EXPECT_EQ(takeLog(), Log{"handled Okay"});
}

TEST_F(AlertWithField, KeepsItsTextForTheHandler) {
  alert->addAction(UIAlertAction::actionWithTitle_style_handler(
      "Add"_ns, 0,
      Block<void(UIAlertAction)>([text = field()](UIAlertAction) { note(text.text().UTF8String()); })));
  present(alert);
  pass(1);
  field().insertText("Home"_ns);
  tap(middleOf("Add"));
  pass(1);
  EXPECT_EQ(takeLog(), Log{"Home"});
}

TEST(AlertParts, PutsTwoShortButtonsSideBySide) {
  const AlertLayout layout =
      layOutAlert({.titleHeight = 20, .messageHeight = 16, .buttonWidths = {60, 80}}, 600, 0.5);
  EXPECT_EQ(layout.buttons[0], (CGRect{{0, 80.5}, {134.75, 44}}));
  EXPECT_EQ(layout.buttons[1], (CGRect{{135.25, 80.5}, {134.75, 44}}));
  EXPECT_EQ(layout.size, (CGSize{270, 124.5}));
  EXPECT_EQ(layout.message, (CGRect{{16, 44}, {238, 16}}));
}

TEST(AlertParts, StacksTwoButtonsOfWhichOneIsLong) {
  const AlertLayout layout = layOutAlert({.titleHeight = 20, .buttonWidths = {60, 135}}, 600, 0.5);
  EXPECT_EQ(layout.buttons[0], (CGRect{{0, 60.5}, {270, 44}}));
  EXPECT_EQ(layout.buttons[1], (CGRect{{0, 105}, {270, 44}}));
}

TEST(AlertParts, LetsLongTextsScroll) {
  const AlertLayout layout =
      layOutAlert({.titleHeight = 20, .messageHeight = 5000, .buttonWidths = {60}}, 600, 0.5);
  EXPECT_EQ(layout.size.height, 600);
  EXPECT_EQ(layout.header.size.height, 555.5);
  EXPECT_EQ(layout.headerContentHeight, 5064);
}

TEST(AlertParts, PutsFieldsBelowTheTexts) {
  const AlertLayout layout = layOutAlert(
      {.titleHeight = 20, .messageHeight = 16, .fields = 2, .buttonWidths = {60}, .fieldHeight = 30}, 600,
      0.5);
  ASSERT_EQ(layout.fields.size(), 2u);
  EXPECT_EQ(layout.fields[0], (CGRect{{16, 76}, {238, 30}}));
  EXPECT_EQ(layout.fields[1], (CGRect{{16, 105.5}, {238, 30}}));
  EXPECT_EQ(layout.header.size.height, 155.5);
}

}  // namespace
}  // namespace test
