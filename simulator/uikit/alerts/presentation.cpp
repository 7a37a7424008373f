// View controllers that are shown over others, in the window of those.
#include "simulator/uikit/alerts/presentation.hpp"

#include <fmt/format.h>

#include "bridge/define.hpp"
#include "platform/corefoundation/log.hpp"
#include "platform/foundation/notification_center.hpp"
#include "platform/uikit/alert_controller.hpp"
#include "platform/uikit/color.hpp"
#include "simulator/uikit/alerts/alert_view.hpp"
#include "simulator/uikit/base/exception.hpp"
#include "simulator/uikit/views/view_controller.hpp"

namespace sim::uikit {
namespace {

using bridge::Strong;

constexpr double presentingDuration = 0.4, keyboardDuration = 0.25;  // seconds
constexpr double dimming = 0.4;                                      // the alpha of the black around an alert
constexpr double firstScale = 1.2;  // from which an alert shrinks to its size

// Lies over everything else in the window and keeps touches from it.
// The view that a presented controller stands on; it covers the window.
struct StageView : bridge::Face<"UITransitionView", UIView> {
  MESSAGE Method<"sim_keyboardMoves:", void(NSNotification)> _keyboardMoves;
};

struct StageState {
  StageView self;
  Strong<UIView> shade, content;
  bool isAlert = false;
  bool followsKeyboard = false;  // from when the alert has its place until it goes

  StageState() = default;
  ~StageState() { NSNotificationCenter::defaultCenter().removeObserver(self); }
  StageState(const StageState&) = delete;
  StageState& operator=(const StageState&) = delete;
};

using StageClass = bridge::Implementation<StageView, StageState>;

void layoutSubviews(StageView self) {
  const StageState& state = StageClass::state(self);
  const CGRect bounds = self.bounds();
  state.shade->frame.set(bounds);
  if (!state.isAlert) return state.content->frame.set(bounds);
  const CGRect room = roomForAlerts(self);
  const CGSize size = state.content->sizeThatFits(room.size);
  state.content->bounds.set({{}, size});
  state.content->center.set(alertCenter(room, size));
}

void animate(double duration, NSUInteger options, auto changes, auto completion) {
  UIView::animateWithDuration_delay_options_animations_completion(
      duration, 0, options, bridge::Block<void()>(std::move(changes)),
      bridge::Block<void(BOOL)>(std::move(completion)));
}

void keyboardMoves(StageView self, NSNotification) {
  if (!StageClass::state(self).followsKeyboard) return;
  animate(
      keyboardDuration, UIViewAnimationOptionAllowUserInteraction,
      [self] {
        self.setNeedsLayout();
        self.layoutIfNeeded();
      },
      [](BOOL) {});
}

void listenToKeyboard(StageView self) {
  const auto center = NSNotificationCenter::defaultCenter();
  for (const NSString name : {"UIKeyboardWillShowNotification"_ns, "UIKeyboardWillHideNotification"_ns,
                              "UIKeyboardDidChangeFrameNotification"_ns})
    center.addObserver_selector_name_object(self, bridge::Descriptor<&StageView::_keyboardMoves>::selector(),
                                            name, {});
}

Strong<StageView> makeStage(UIViewController presented, CGRect frame) {
  auto stage = bridge::make<StageView, &UIView::initWithFrame>(frame);
  StageState& state = StageClass::state(stage);
  state.self = stage;
  state.isAlert = bridge::isKindOf<UIAlertController>(presented);
  state.shade = bridge::make<UIView, &UIView::initWithFrame>(CGRect{{}, frame.size});
  state.content = retained(presented.view());
  if (state.isAlert) state.shade->backgroundColor.set(UIColor::colorWithWhite_alpha(0, dimming));
  stage->autoresizingMask.set(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
  stage->addSubview(state.shade);
  stage->addSubview(state.content);
  if (state.isAlert) listenToKeyboard(stage);
  return stage;
}

// How the stage looks before its content has come, or after it has gone.
void setGone(UIView stage, bool gone, double scale) {
  const StageState& state = StageClass::state(bridge::as<StageView>(stage));
  state.shade->alpha.set(gone ? 0 : 1);
  state.content->alpha.set(gone ? 0 : 1);
  if (state.isAlert) state.content->transform.set({scale, 0, 0, scale, 0, 0});
}

void warn(UIViewController self, UIViewController other, const std::string& why) {
  auto describe = [](bridge::Object object) {
    return fmt::format("<{}: {}>", class_getName(bridge::classOf(object.raw)),
                       static_cast<const void*>(object.raw));
  };
  const std::string line =
      fmt::format("Warning: Attempt to present {} on {} {}", describe(other), describe(self), why);
  CFLog(0, "%s"_ns.raw, line.c_str());
}

constinit bool refusing = false;

// A controller that may present, and its window; otherwise the warning says why not.
bool mayPresent(UIViewController self, UIViewController other) {
  if (refusing) {
    warn(self, other, "while a presentation is in progress!");
    return false;
  }
  if (const Strong<UIViewController>& presented = stateOf(self).presented) {
    warn(self, other,
         fmt::format("which is already presenting <{}: {}>", class_getName(bridge::classOf(presented->raw)),
                     static_cast<const void*>(presented->raw)));
    return false;
  }
  if (self.isViewLoaded() && self.view().window()) return true;
  warn(self, other, "whose view is not in the window hierarchy!");
  return false;
}

void run(const bridge::Block<void()>& block) {
  if (block) block();
}

void end(UIViewController presenter) {
  ViewControllerState& state = stateOf(presenter);
  const Strong<UIViewController> presented = std::exchange(state.presented, {});
  const Strong<UIView> stage = std::exchange(state.stage, {});
  stateOf(presented.get()).presenting = {};
  stateOf(presented.get()).beingDismissed = false;
  presented->view().removeFromSuperview();
  stage->removeFromSuperview();
}

void endAll(UIViewController presenter) {
  const UIViewController presented = stateOf(presenter).presented;
  if (!presented) return;
  endAll(presented);
  end(presenter);
}

// Takes down what `presenter` presents, and at once whatever stands on that.
void takeDown(UIViewController presenter, BOOL animated, bridge::Block<void()> completion) {
  const UIViewController presented = stateOf(presenter).presented;
  if (stateOf(presented).beingDismissed) return;
  endAll(presented);
  stateOf(presented).beingDismissed = true;
  const Strong<UIView> stage = stateOf(presenter).stage;
  StageClass::state(bridge::as<StageView>(stage.get())).followsKeyboard = false;
  presented.view().userInteractionEnabled.set(NO);
  presented.view().endEditing(YES);
  animate(
      animated ? dismissingDuration : 0, UIViewAnimationOptionAllowUserInteraction,
      [stage] { setGone(stage, true, 1); },
      [presenter = retained(presenter), completion](BOOL) {
        end(presenter);
        run(completion);
      });
}

}  // namespace

void refusePresentations(bool refuse) { refusing = refuse; }

void present(UIViewController self, UIViewController other, BOOL animated,
             bridge::BlockRef<void()> completion) {
  if (!other)
    raise("NSInvalidArgumentException"_ns, "Application tried to present a nil modal view controller");
  if (stateOf(other).presenting)
    raise("NSInvalidArgumentException"_ns, "Application tried to present modally an active controller");
  if (!mayPresent(self, other)) return;
  const UIWindow window = self.view().window();
  const Strong<StageView> stage = makeStage(other, window.bounds());
  stateOf(self).presented = retained(other);
  stateOf(self).stage = retained(UIView(stage));
  stateOf(other).presenting = self;
  other.view().userInteractionEnabled.set(YES);
  window.addSubview(stage);
  stage->layoutIfNeeded();
  StageClass::state(stage).followsKeyboard = StageClass::state(stage).isAlert;
  setGone(stage, true, firstScale);
  animate(
      animated ? presentingDuration : 0, UIViewAnimationOptionAllowUserInteraction,
      [stage = retained(UIView(stage))] { setGone(stage, false, 1); },
      [done = bridge::Block<void()>(completion)](BOOL) { run(done); });
}

// Sent to what is presented, the message is its presenter's.
void dismiss(UIViewController self, BOOL animated, bridge::BlockRef<void()> completion) {
  const UIViewController presenter = stateOf(self).presented ? self : stateOf(self).presenting;
  if (presenter) takeDown(presenter, animated, bridge::Block<void()>(completion));
}

void defineStageView() {
  StageClass::define<UIView>(bridge::method<&UIView::layoutSubviews, layoutSubviews>(),
                             bridge::method<&StageView::_keyboardMoves, keyboardMoves>());
}

}  // namespace sim::uikit
