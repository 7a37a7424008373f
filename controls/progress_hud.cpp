// RQProgressHUD's class.
#include "controls/progress_hud.hpp"

#include "controls/atomic_property.hpp"
#include "controls/described_views.hpp"
#include "controls/progress_hud_parts.hpp"
#include "controls/redrawing_view.hpp"
#include "platform/foundation/exception.hpp"

namespace tilo {
namespace {

using bridge::Block;
using bridge::Strong;
using hud::HUD;
using hud::HUDState;
using Face = RQProgressHUD;

constexpr CGFloat labelFontSize = 16, detailsLabelFontSize = 12;
constexpr NSUInteger flexibleMargins =
    UIViewAutoresizingFlexibleLeftMargin | UIViewAutoresizingFlexibleRightMargin |
    UIViewAutoresizingFlexibleTopMargin | UIViewAutoresizingFlexibleBottomMargin;

Strong<UILabel> makeLabel(RQProgressHUD self, UIFont font, UIColor color) {
  auto label = build(Label{.color = color, .font = font, .centred = true});
  label->numberOfLines.set(0);
  label->opaque.set(NO);
  self.addSubview(label);
  return label;
}

void setUp(RQProgressHUD self) {
  HUDState& state = HUD::state(self);
  self.autoresizingMask.set(flexibleMargins);
  self.contentMode.set(UIViewContentModeRedraw);
  beTransparent(self);
  self.alpha.set(0);
  self.labelFont.set(UIFont::boldSystemFontOfSize(labelFontSize));
  self.labelColor.set(UIColor::whiteColor());
  self.detailsLabelFont.set(UIFont::boldSystemFontOfSize(detailsLabelFontSize));
  self.detailsLabelColor.set(UIColor::whiteColor());
  state.label = makeLabel(self, self.labelFont(), self.labelColor());
  state.detailsLabel = makeLabel(self, self.detailsLabelFont(), self.detailsLabelColor());
  hud::updateIndicator(self);
  hud::observeOwnProperties(self);
  hud::listenToOrientation(self);
}

Strong<UIView> initWithFrame(RQProgressHUD self, CGRect frame) {
  auto made = HUD::super<&UIView::initWithFrame>(self, frame);
  if (made) setUp(bridge::as<RQProgressHUD>(made.get()));
  return made;
}

Strong<RQProgressHUD> initWithView(RQProgressHUD self, UIView view) {
  if (!view)
    NSException::exceptionWithName_reason_userInfo("NSInternalInconsistencyException"_ns,
                                                   "View must not be nil."_ns, {})
        .raise();
  return bridge::initialised<&UIView::initWithFrame>(self, view.bounds());
}

Strong<RQProgressHUD> initWithWindow(RQProgressHUD self, UIWindow window) {
  return bridge::Descriptor<&Face::initWithView>::send(self.raw, window);
}

// Class methods.

RQProgressHUD showAddedTo(Class self, UIView view, BOOL animated) {
  auto made = bridge::makeOf<RQProgressHUD, &Face::initWithView>(self, view);
  view.addSubview(made);
  made->show(animated);
  return std::move(made).autoreleased();
}

void hideAndRemove(RQProgressHUD self, BOOL animated) {
  self.removeFromSuperViewOnHide.set(YES);
  self.hide(animated);
}

RQProgressHUD topmostIn(Class, UIView view) {
  NSArray subviews = view.subviews();
  for (NSUInteger i = subviews.count(); i-- > 0;)
    if (bridge::isKindOf<RQProgressHUD>(subviews.objectAtIndex(i)))
      return bridge::as<RQProgressHUD>(subviews.objectAtIndex(i));
  return {};
}

NSArray allIn(Class, UIView view) {
  auto found = bridge::make<NSMutableArray, &NSObject::init>();
  NSArray subviews = view.subviews();
  for (NSUInteger i = 0; i < subviews.count(); ++i)
    if (bridge::isKindOf<RQProgressHUD>(subviews.objectAtIndex(i)))
      found->addObject(subviews.objectAtIndex(i));
  return std::move(found).autoreleased();
}

BOOL hideTopmostIn(Class self, UIView view, BOOL animated) {
  RQProgressHUD found = Face::HUDForView.on(self, view);
  if (!found) return NO;
  hideAndRemove(found, animated);
  return YES;
}

BOOL hideAllIn(Class self, UIView view, BOOL animated) {
  NSArray all = Face::allHUDsForView.on(self, view);
  for (NSUInteger i = 0; i < all.count(); ++i)
    hideAndRemove(bridge::as<RQProgressHUD>(all.objectAtIndex(i)), animated);
  return all.count() > 0;
}

// Properties.

template <auto Member, auto Field>
bridge::PropertyEntry property() {
  return atomicProperty<HUD, Member, Field>();
}

bridge::BlockRef<void()> completionBlock(RQProgressHUD self) { return HUD::state(self).completionBlock; }

void setCompletionBlock(RQProgressHUD self, bridge::BlockRef<void()> block) {
  HUD::state(self).completionBlock = Block<void()>(block);
}

BOOL isFinished(RQProgressHUD self) { return HUD::state(self).isFinished; }

}  // namespace

void defineProgressHUD() {
  using bridge::method;
  using hud::Own;
  using State = HUDState;
  defineRoundProgressView();
  defineBarProgressView();
  HUD::define<UIView>(
      method<&Face::showHUDAddedTo_animated, showAddedTo>(),
      method<&Face::hideHUDForView_animated, hideTopmostIn>(),
      method<&Face::hideAllHUDsForView_animated, hideAllIn>(), method<&Face::HUDForView, topmostIn>(),
      method<&Face::allHUDsForView, allIn>(), method<&hud::Own::release, hud::release>(),
      method<&UIView::initWithFrame, initWithFrame>(), method<&Face::initWithView, initWithView>(),
      method<&Face::initWithWindow, initWithWindow>(),
      // Showing and hiding.
      method<&Face::show, hud::show>(), method<&Face::hide, hud::hide>(),
      method<&Face::hide_afterDelay, hud::hideLater>(), method<&Own::hideDelayed, hud::hideDelayed>(),
      method<&Own::handleGraceTimer, hud::handleGraceTimer>(),
      method<&Own::handleMinShowTimer, hud::handleMinShowTimer>(), method<&Own::done, hud::done>(),
      // Tasks.
      method<&Face::showWhileExecuting_onTarget_withObject_animated, hud::showWhileExecuting>(),
      method<&Own::launchExecution, hud::launchExecution>(), method<&Own::cleanUp, hud::cleanUp>(),
      method<&Face::showAnimated_whileExecutingBlock, hud::showWithBlock>(),
      method<&Face::showAnimated_whileExecutingBlock_completionBlock, hud::showWithBlockThen>(),
      method<&Face::showAnimated_whileExecutingBlock_onQueue, hud::showWithBlockOnQueue>(),
      method<&Face::showAnimated_whileExecutingBlock_onQueue_completionBlock,
             hud::showWithBlockOnQueueThen>(),
      // Following properties and the device.
      method<&NSKeyValueObserving::observeValueForKeyPath_ofObject_change_context, hud::observeValue>(),
      method<&Own::updateForKeyPath, hud::updateForKeyPath>(),
      method<&Own::deviceOrientationDidChange, hud::deviceOrientationDidChange>(),
      method<&UIView::didMoveToSuperview, hud::didMoveToSuperview>(),
      method<&UIView::layoutSubviews, hud::layoutSubviews>(), method<&UIView::drawRect, hud::drawRect>(),
      // Properties.
      property<&Face::mode, &State::mode>(), property<&Face::animationType, &State::animationType>(),
      atomicCopyProperty<HUD, &Face::labelText, &State::labelText>(),
      atomicCopyProperty<HUD, &Face::detailsLabelText, &State::detailsLabelText>(),
      property<&Face::opacity, &State::opacity>(), property<&Face::color, &State::color>(),
      property<&Face::labelFont, &State::labelFont>(), property<&Face::labelColor, &State::labelColor>(),
      property<&Face::detailsLabelFont, &State::detailsLabelFont>(),
      property<&Face::detailsLabelColor, &State::detailsLabelColor>(),
      property<&Face::xOffset, &State::xOffset>(), property<&Face::yOffset, &State::yOffset>(),
      property<&Face::dimBackground, &State::dimBackground>(), property<&Face::margin, &State::margin>(),
      property<&Face::cornerRadius, &State::cornerRadius>(), property<&Face::graceTime, &State::graceTime>(),
      property<&Face::minShowTime, &State::minShowTime>(),
      property<&Face::removeFromSuperViewOnHide, &State::removeFromSuperViewOnHide>(),
      property<&Face::minSize, &State::minSize>(), property<&Face::square, &State::square>(),
      property<&Face::progress, &State::progress>(), property<&Face::customView, &State::customView>(),
      property<&Face::taskInProgress, &State::taskInProgress>(),
      property<&Face::delegate, &State::delegate>(),
      bridge::property<&Face::completionBlock, completionBlock, setCompletionBlock>(),
      method<&Face::isFinished, isFinished>());
}

}  // namespace tilo
