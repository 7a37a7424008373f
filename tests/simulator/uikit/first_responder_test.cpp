// The first responder: who becomes it, and when it has to give up.
#include "simulator/uikit/views/first_responder.hpp"

#include "tests/simulator/uikit/text_field_fixture.hpp"

namespace test {
namespace {

// A view that may become the first responder and may refuse to give that up.
struct EagerView : bridge::Face<"TestEagerView", UIView> {};
using EagerClass = bridge::Implementation<EagerView>;
bool becomes = true, resigns = true;

class FirstResponder : public Fields {
 protected:
  FirstResponder() {
    struct Functions {
      static BOOL canBecome(EagerView) { return becomes; }
      static BOOL canResign(EagerView) { return resigns; }
    };
    EagerClass::define<UIView>(method<&UIResponder::canBecomeFirstResponder, Functions::canBecome>(),
                               method<&UIResponder::canResignFirstResponder, Functions::canResign>());
    becomes = resigns = true;
    eager = make<EagerView, &UIView::initWithFrame>(CGRect{{0, 0}, {200, 200}});
    window->addSubview(eager);
  }

  Strong<EagerView> eager;
};

TEST_F(FirstResponder, IsNoPlainView) {
  auto view = makeView();
  window->addSubview(view);
  EXPECT_FALSE(view->canBecomeFirstResponder());  // confirmed: documentation of canBecomeFirstResponder
  EXPECT_FALSE(view->becomeFirstResponder());
  EXPECT_FALSE(view->isFirstResponder());
}

TEST_F(FirstResponder, IsTheOneThatBecameItLast) {
  EXPECT_FALSE(eager->isFirstResponder());
  EXPECT_TRUE(eager->becomeFirstResponder());
  EXPECT_TRUE(eager->isFirstResponder());
  EXPECT_TRUE(eager->becomeFirstResponder());  // confirmed: YES when it is it already
  EXPECT_TRUE(field->becomeFirstResponder());
  EXPECT_FALSE(eager->isFirstResponder());
  EXPECT_TRUE(sim::uikit::firstResponder() == UIResponder(field));
}

TEST_F(FirstResponder, IsInAWindow) {
  eager->removeFromSuperview();
  EXPECT_FALSE(eager->becomeFirstResponder());  // confirmed: documentation of becomeFirstResponder
}

TEST_F(FirstResponder, MayKeepThat) {
  eager->becomeFirstResponder();
  resigns = false;
  EXPECT_FALSE(eager->resignFirstResponder());
  EXPECT_FALSE(field->becomeFirstResponder());  // confirmed: as above
  EXPECT_TRUE(eager->isFirstResponder());
}

TEST_F(FirstResponder, NeedNotBeItToResign) {
  EXPECT_TRUE(eager->resignFirstResponder());  // confirmed: UIResponder answers YES by default
  EXPECT_FALSE(eager->isFirstResponder());
}

TEST_F(FirstResponder, LeavesTheWindowWithItsView) {
  resigns = false;
  auto parent = makeView({{0, 0}, {300, 300}});
  window->addSubview(parent);
  parent->addSubview(eager);
  eager->becomeFirstResponder();
  parent->removeFromSuperview();
  EXPECT_FALSE(eager->isFirstResponder());  // assumed
}

TEST_F(FirstResponder, EndsEditingWhenAViewAboveItSaysSo) {
  field->becomeFirstResponder();
  EXPECT_FALSE(other->endEditing(NO));
  EXPECT_TRUE(field->isFirstResponder());
  EXPECT_TRUE(window->endEditing(NO));  // confirmed: documentation of endEditing:
  EXPECT_FALSE(field->isFirstResponder());
  EXPECT_FALSE(window->endEditing(NO));
}

TEST_F(FirstResponder, EndsEditingAgainstItsWillOnlyByForce) {
  listen();
  fieldAnswers().ends = false;
  field->becomeFirstResponder();
  EXPECT_FALSE(window->endEditing(NO));
  EXPECT_TRUE(field->isFirstResponder());
  EXPECT_TRUE(window->endEditing(YES));  // confirmed: documentation of endEditing:
  EXPECT_FALSE(field->isFirstResponder());
}

TEST_F(FirstResponder, HasNoViewsOfItsOwnForInput) {
  EXPECT_FALSE(eager->inputView());  // confirmed: documentation of inputView
  EXPECT_FALSE(eager->inputAccessoryView());
}

}  // namespace
}  // namespace test
