// How views, layers and controllers die.
#include "bridge/replace.hpp"
#include "platform/foundation/string.hpp"
#include "tests/simulator/uikit/fixture.hpp"

namespace test {
namespace {

using Life = UIKit;

// A view that counts its deaths.
struct MortalView : bridge::Face<"TestMortalView", UIView> {};

int deaths = 0;

struct Mortal {
  int* counter = &deaths;
  ~Mortal() { ++*counter; }
};

using MortalClass = bridge::Implementation<MortalView, Mortal>;

Strong<MortalView> makeMortalView() {
  MortalClass::define<UIView>();
  deaths = 0;
  auto view = make<MortalView, &UIView::initWithFrame>(CGRect{});
  MortalClass::state(view);
  return view;
}

TEST_F(Life, RemovingTheLastReferenceEndsAView) {
  auto parent = makeView();
  auto view = makeMortalView();
  parent->addSubview(view);
  const UIView weak = view;
  view.clear();
  EXPECT_EQ(deaths, 0);
  weak.removeFromSuperview();
  EXPECT_EQ(deaths, 1);
  EXPECT_TRUE(sim::uikit::layerOf(parent.get()).children().empty());
}

TEST_F(Life, SuperviewTakesItsSubviewsAlong) {
  auto parent = makeView();
  auto view = makeMortalView();
  parent->addSubview(view);
  view.clear();
  parent.clear();
  EXPECT_EQ(deaths, 1);
}

TEST_F(Life, SubviewThatSurvivesHasNoSuperview) {
  auto parent = makeView(), child = makeView();
  parent->addSubview(child);
  parent.clear();
  EXPECT_FALSE(child->superview());
  EXPECT_EQ(sim::uikit::layerOf(child.get()).parent(), nullptr);
  EXPECT_EQ(child->retainCount(), 1u);
  child->removeFromSuperview();
}

TEST_F(Life, LayerThatSurvivesShowsNothingOfTheView) {
  auto parent = makeRecordingView({{0, 0}, {10, 10}});
  auto child = makeView();
  parent->addSubview(child);
  const Strong<CALayer> layer = retained(parent->layer());
  parent.clear();
  EXPECT_TRUE(sim::uikit::layerOf(layer.get()).children().empty());
  layer->bounds.set({{0, 0}, {20, 20}});
  EXPECT_EQ(layer->bounds().size.width, 20);
}

TEST_F(Life, ViewThatWasNeverInitialisedDiesQuietly) {
  auto view = bridge::allocate<UIView>();
  auto window = bridge::allocate<UIWindow>();
  auto label = bridge::allocate<UIViewController>();
  view.clear();
  window.clear();
  label.clear();
}

TEST_F(Life, ViewOutlivesItsController) {
  auto controller = make<UIViewController, &NSObject::init>();
  const Strong<UIView> view = retained(controller->view());
  controller.clear();
  EXPECT_FALSE(view->nextResponder());
}

TEST_F(Life, WindowsAreNotKeptByTheApplication) {
  const auto before = UIApplication::sharedApplication().windows().count();
  auto window = makeWindow();
  EXPECT_EQ(window->retainCount(), 1u);  // assumed
  EXPECT_EQ(UIApplication::sharedApplication().windows().count(), before + 1);
  window.clear();
  // The array borrowed the window above.
  EXPECT_EQ(sim::uikit::nextAnimationEvent(), std::nullopt);
}

TEST_F(Life, KeyWindowThatDiesIsForgotten) {
  {
    const Pool inner;
    auto window = makeWindow();
    EXPECT_TRUE(UIApplication::sharedApplication().keyWindow() == window);
  }
  EXPECT_FALSE(UIApplication::sharedApplication().keyWindow());
  EXPECT_EQ(UIApplication::sharedApplication().windows().count(), 0u);
}

TEST_F(Life, AnimationDoesNotKeepTheView) {
  auto window = makeWindow();
  auto view = makeMortalView();
  window->addSubview(view);
  int finished = -1;
  const UIView weak = view;
  UIView::animateWithDuration_animations_completion(1, Block<void()>([=] { weak.alpha.set(0); }),
                                                    Block<void(BOOL)>([&](BOOL f) { finished = f; }));
  EXPECT_EQ(view->retainCount(), 2u);
  view.clear();
  weak.removeFromSuperview();
  EXPECT_EQ(deaths, 1);
  turn();
  EXPECT_EQ(finished, NO);  // confirmed: device-facts 7.5
}

struct NSException : bridge::Face<"NSException", NSObject> {
  MESSAGE Method<"reason", NSString()> reason;
  MESSAGE Method<"raise", void()> raise;
};

std::string reasonGiven;

void noteReason(NSException self) {
  reasonGiven = self.reason().UTF8String();
  bridge::original<noteReason>(self);
}

TEST_F(Life, UnknownMessageRaisesWithClassAndSelector) {
  bridge::install(bridge::replace<NSException, &NSException::raise, noteReason>());
  auto view = makeView();
  using Unknown = bridge::Message<"setMagic:", void(int)>;
  EXPECT_ANY_THROW(Unknown::send(view.get().raw, 1));
  EXPECT_NE(reasonGiven.find("UIView"), std::string::npos) << reasonGiven;
  EXPECT_NE(reasonGiven.find("setMagic:"), std::string::npos) << reasonGiven;
}

}  // namespace
}  // namespace test
