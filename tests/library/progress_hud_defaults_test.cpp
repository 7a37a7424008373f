// What a new notice box is, how one is made, and which of them a view has.
#include "platform/uikit/activity_indicator.hpp"
#include "platform/uikit/layer.hpp"
#include "tests/library/grid_home.hpp"
#include "tests/library/hud_fixture.hpp"
#include "tests/support/raised.hpp"

namespace test {
namespace {

class ProgressHUD : public HUD {};

bool isWhite(UIColor color, double alpha = 1) {
  CGFloat red, green, blue, own;
  color.getRed_green_blue_alpha(&red, &green, &blue, &own);
  return red == 1 && green == 1 && blue == 1 && std::abs(own - alpha) < 1e-6;
}

TEST_F(ProgressHUD, BeginsWithItsDefaults) {
  EXPECT_EQ(hud->mode(), 0);
  EXPECT_EQ(hud->animationType(), 0);
  EXPECT_FALSE(hud->labelText());
  EXPECT_FALSE(hud->detailsLabelText());
  EXPECT_EQ(hud->opacity(), 0.8f);
  EXPECT_FALSE(hud->color());
  EXPECT_EQ(hud->labelFont().pointSize(), 16);
  EXPECT_STREQ(hud->labelFont().fontName().UTF8String(),
               UIFont::boldSystemFontOfSize(16).fontName().UTF8String());
  EXPECT_TRUE(isWhite(hud->labelColor()));
  EXPECT_EQ(hud->detailsLabelFont().pointSize(), 12);
  EXPECT_STREQ(hud->detailsLabelFont().fontName().UTF8String(),
               UIFont::boldSystemFontOfSize(12).fontName().UTF8String());
  EXPECT_TRUE(isWhite(hud->detailsLabelColor()));
  EXPECT_EQ(hud->xOffset(), 0);
  EXPECT_EQ(hud->yOffset(), 0);
  EXPECT_FALSE(hud->dimBackground());
  EXPECT_EQ(hud->margin(), 20);
  EXPECT_EQ(hud->cornerRadius(), 10);
  EXPECT_EQ(hud->graceTime(), 0);
  EXPECT_EQ(hud->minShowTime(), 0);
  EXPECT_FALSE(hud->removeFromSuperViewOnHide());
  EXPECT_EQ(hud->minSize(), CGSize{});
  EXPECT_FALSE(hud->square());
  EXPECT_EQ(hud->progress(), 0);
  EXPECT_FALSE(hud->customView());
  EXPECT_FALSE(hud->taskInProgress());
  EXPECT_FALSE(hud->delegate());
  EXPECT_FALSE(hud->completionBlock());
  EXPECT_FALSE(hud->isFinished());
}

TEST_F(ProgressHUD, IsAnInvisibleViewThatLetsItsViewThrough) {
  EXPECT_EQ(hud->autoresizingMask(), 45u);
  EXPECT_FALSE(hud->opaque());
  EXPECT_TRUE(hud->backgroundColor() == UIColor::clearColor());
  EXPECT_EQ(hud->alpha(), 0);
  EXPECT_EQ(hud->transform(), identityTransform);
}

TEST_F(ProgressHUD, TakesTheBoundsOfItsView) {
  view->bounds.set({{5, 6}, {200, 100}});
  auto made = bridge::make<RQProgressHUD, &RQProgressHUD::initWithView>(view.get());
  EXPECT_EQ(made->frame(), (CGRect{{5, 6}, {200, 100}}));
}

TEST_F(ProgressHUD, TakesTheBoundsOfItsWindow) {
  auto made = bridge::make<RQProgressHUD, &RQProgressHUD::initWithWindow>(window());
  EXPECT_EQ(made->frame(), window().bounds());
}

TEST_F(ProgressHUD, MustHaveAView) {
  EXPECT_EQ(raised([] { (void)bridge::make<RQProgressHUD, &RQProgressHUD::initWithView>(UIView()); }),
            "NSInternalInconsistencyException: View must not be nil.");
  EXPECT_EQ(raised([] { (void)bridge::make<RQProgressHUD, &RQProgressHUD::initWithWindow>(UIWindow()); }),
            "NSInternalInconsistencyException: View must not be nil.");
}

TEST_F(ProgressHUD, KeepsACopyOfItsTexts) {
  using Mutable = bridge::ClassMethod<"NSMutableString", "stringWithUTF8String:", NSString(const char*)>;
  using Append = bridge::Message<"appendString:", void(NSString)>;
  NSString text = Mutable()("Loading");
  hud->labelText.set(text);
  hud->detailsLabelText.set(text);
  Append::send(text.raw, " more"_ns);
  EXPECT_STREQ(hud->labelText().UTF8String(), "Loading");
  EXPECT_STREQ(hud->detailsLabelText().UTF8String(), "Loading");
}

TEST_F(ProgressHUD, DiesWithItsView) {
  const NSUInteger before = view->retainCount();
  hud->customView.set(bridge::make<UIView, &NSObject::init>().autoreleased());
  {
    const bridge::Pool pool;
    auto other = bridge::make<RQProgressHUD, &RQProgressHUD::initWithView>(view.get());
    view->addSubview(other);
    other->mode.set(2);
    other->removeFromSuperview();
    EXPECT_EQ(other->retainCount(), 1u);
  }
  EXPECT_EQ(view->retainCount(), before);
  home.step("wait 1");
}

std::vector<std::string> forgotten;
void noteForgotten(NSKeyValueObserving self, bridge::Object observer, NSString key) {
  forgotten.push_back(key.UTF8String());
  bridge::original<noteForgotten>(self, observer, key);
}

// Systems before 11 end a process in which an object dies that is still observed.
TEST_F(ProgressHUD, NoLongerObservesItselfWhenItDies) {
  standIn<NSKeyValueObserving, &NSKeyValueObserving::removeObserver_forKeyPath, noteForgotten>();
  {
    bridge::make<RQProgressHUD, &RQProgressHUD::initWithView>(view.get());
  }
  std::sort(forgotten.begin(), forgotten.end());
  EXPECT_EQ(forgotten, (std::vector<std::string>{"customView", "detailsLabelColor", "detailsLabelFont",
                                                 "detailsLabelText", "labelColor", "labelFont", "labelText",
                                                 "mode", "progress"}));
}

// Which ones a view has.

TEST_F(ProgressHUD, IsShownInAViewInOneGo) {
  auto shownHud = RQProgressHUD::showHUDAddedTo_animated(view.get(), NO);
  EXPECT_TRUE(shownHud.superview() == view.get());
  EXPECT_EQ(shownHud.frame(), view->bounds());
  EXPECT_EQ(shownHud.alpha(), 1);
}

TEST_F(ProgressHUD, IsShownInAViewAnimatedInOneGo) {
  auto shownHud = RQProgressHUD::showHUDAddedTo_animated(view.get(), YES);
  EXPECT_EQ(shown(shownHud).opacity, 0);
  pass(0.3);
  EXPECT_EQ(shown(shownHud).opacity, 1);
}

TEST_F(ProgressHUD, ForAViewIsTheTopmost) {
  auto second = RQProgressHUD::showHUDAddedTo_animated(view.get(), NO);
  view->addSubview(bridge::make<UIView, &NSObject::init>().autoreleased());
  EXPECT_TRUE(RQProgressHUD::HUDForView(view.get()) == second);
  view->bringSubviewToFront(hud);
  EXPECT_TRUE(RQProgressHUD::HUDForView(view.get()) == hud.get());
}

TEST_F(ProgressHUD, ForAViewLiesDirectlyInIt) {
  EXPECT_FALSE(RQProgressHUD::HUDForView(window()));
  EXPECT_EQ(RQProgressHUD::allHUDsForView(window()).count(), 0u);
}

TEST_F(ProgressHUD, ForAViewAreAllThatItHasBackToFront) {
  auto second = RQProgressHUD::showHUDAddedTo_animated(view.get(), NO);
  view->addSubview(bridge::make<UIView, &NSObject::init>().autoreleased());
  NSArray all = RQProgressHUD::allHUDsForView(view.get());
  ASSERT_EQ(all.count(), 2u);
  EXPECT_TRUE(all.objectAtIndex(0) == hud.get());
  EXPECT_TRUE(all.objectAtIndex(1) == second);
}

struct OwnHUD : bridge::Face<"TestOwnHUD", RQProgressHUD> {};

TEST_F(ProgressHUD, IsOfTheClassThatIsAskedToShowIt) {
  bridge::Implementation<OwnHUD>::define<RQProgressHUD>();
  const Class own = bridge::classNamed<OwnHUD>();
  EXPECT_TRUE(bridge::isKindOf<OwnHUD>(RQProgressHUD::showHUDAddedTo_animated.on(own, view.get(), NO)));
}

TEST_F(ProgressHUD, ForAViewIsOfAnyClassWhicheverIsAsked) {
  bridge::Implementation<OwnHUD>::define<RQProgressHUD>();
  const Class own = bridge::classNamed<OwnHUD>();
  EXPECT_TRUE(RQProgressHUD::HUDForView.on(own, view.get()) == hud.get());
  EXPECT_EQ(RQProgressHUD::allHUDsForView.on(own, view.get()).count(), 1u);
  EXPECT_TRUE(RQProgressHUD::hideHUDForView_animated.on(own, view.get(), NO));
  EXPECT_FALSE(hud->superview());
}

TEST_F(ProgressHUD, IsHiddenForItsViewAndTakenDown) {
  auto second = RQProgressHUD::showHUDAddedTo_animated(view.get(), NO);
  EXPECT_TRUE(RQProgressHUD::hideHUDForView_animated(view.get(), NO));
  EXPECT_FALSE(second.superview());
  EXPECT_TRUE(hud->superview() == view.get());
}

TEST_F(ProgressHUD, IsHiddenForItsViewByAnAnimation) {
  hud->show(NO);
  EXPECT_TRUE(RQProgressHUD::hideHUDForView_animated(view.get(), YES));
  pass(0.299);
  EXPECT_TRUE(hud->superview());
  pass(0.002);
  EXPECT_FALSE(hud->superview());
}

TEST_F(ProgressHUD, ThatAViewDoesNotHaveIsNotHidden) {
  EXPECT_FALSE(RQProgressHUD::hideHUDForView_animated(window(), NO));
  EXPECT_FALSE(RQProgressHUD::hideAllHUDsForView_animated(window(), NO));
}

TEST_F(ProgressHUD, OfAViewThatHasOneIsHiddenWithAll) {
  EXPECT_TRUE(RQProgressHUD::hideAllHUDsForView_animated(view.get(), NO));
  EXPECT_FALSE(hud->superview());
}

TEST_F(ProgressHUD, OfAViewAreHiddenAllTogether) {
  RQProgressHUD::showHUDAddedTo_animated(view.get(), NO);
  EXPECT_TRUE(RQProgressHUD::hideAllHUDsForView_animated(view.get(), NO));
  EXPECT_EQ(RQProgressHUD::allHUDsForView(view.get()).count(), 0u);
  EXPECT_FALSE(hud->superview());
}

}  // namespace
}  // namespace test
