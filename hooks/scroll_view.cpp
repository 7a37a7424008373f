// The methods replaced in SBIconScrollView, and those added to it.
#include "hooks/scroll_view.hpp"

#include "bridge/replace.hpp"
#include "platform/appsupport/messaging_center.hpp"
#include "platform/dispatch/dispatch.hpp"
#include "platform/foundation/notification_center.hpp"
#include "platform/springboard/icon_list_view.hpp"
#include "platform/uikit/device.hpp"
#include "settings/gesture_controller.hpp"
#include "settings/log/console_log.hpp"
#include "settings/store/configuration_manager.hpp"
#include "settings/store/values.hpp"
#include "startup/grid/geometry.hpp"
#include "startup/grid/relayout.hpp"

namespace tilo::hooks {
namespace {

using bridge::original;
using bridge::selector;

constexpr uintptr_t retainAtomically = 01401;  // OBJC_ASSOCIATION_RETAIN
constexpr uintptr_t assign = 0;                // OBJC_ASSOCIATION_ASSIGN
constexpr CGFloat firmPress = 3;               // an average touch has the force 1
constexpr NSUInteger twoFingers = 2;

// Associated objects are told apart by these addresses.
constinit char swipeGestureKey, tapGestureKey, setUpKey;

// A firm press has opened the panel and goes on: it opens it only once.
constinit bool show = false;

bool panelIsWanted() { return settings().flag(keys::enabled) && settings().flag(keys::quick); }

// Settings that change elsewhere are told to the first scroll view, for the life of the process: the centre
// neither keeps nor forgets it, so it never dies.
void serveMessages(SBIconScrollView first) {
  bridge::retain(first.raw);
  auto center = CPDistributedMessagingCenter::centerNamed("com.wexor.tilo3.preferences.updated"_ns);
  center.runServerOnCurrentThread();
  center.registerForMessageName_target_selector("PreferencesDidChangeNotification"_ns, first,
                                                selector<"preferencesUpdated:withUserInfo:">());
  center.registerForMessageName_target_selector("ListPreferencesDidChangeNotification"_ns, first,
                                                selector<"listCellPreferencesUpdated:withUserInfo:">());
}

// A view without recognisers, made while the panel was not wanted, stays without.
void attach(SBIconScrollView self, UIGestureRecognizer recognizer) {
  if (recognizer) self.addGestureRecognizer(recognizer);
}

void attachGestures(SBIconScrollView self, bool twoFingerTap) {
  SEL action = selector<"swipe:">();
  auto swipe =
      bridge::make<UISwipeGestureRecognizer, &UIGestureRecognizer::initWithTarget_action>(self, action);
  setSwipeGesture(self, swipe);
  swipe->direction.set(UISwipeGestureRecognizerDirectionUp);
  swipe->delegate.set(gestController);
  auto tap = bridge::make<UITapGestureRecognizer, &UIGestureRecognizer::initWithTarget_action>(self, action);
  setTapGesture(self, tap);
  tap->numberOfTouchesRequired.set(twoFingers);
  tap->delegate.set(gestController);
  attach(self, twoFingerTap ? UIGestureRecognizer(tap) : UIGestureRecognizer(swipe));
}

// Once for each view, whichever initialisers it is sent: one may lead to the other.
void setUp(SBIconScrollView self) {
  if (objc_getAssociatedObject(self.raw, &setUpKey)) return;
  objc_setAssociatedObject(self.raw, &setUpKey, self.raw, assign);
  static constinit long once = 0;
  dispatch_once_f(&once, self.raw,
                  [](void* first) { serveMessages(bridge::as<SBIconScrollView>(static_cast<id>(first))); });
  NSNotificationCenter::defaultCenter().addObserver_selector_name_object(
      self, selector<"layout:">(), "PopupViewDidDisappearNotification"_ns, {});
  bool wanted = panelIsWanted();
  bool twoFingerTap = settings().flag(keys::twoFinger);
  if (wanted && !cont->isEditing()) attachGestures(self, twoFingerTap);
}

bool feelsForce(UITouch touch) {
  return touch.respondsToSelector(selector<"force">()) &&
         UIDevice::currentDevice().systemVersion().compare_options("9.0"_ns, NSNumericSearch) !=
             NSOrderedAscending;
}

NSString nameIn(NSDictionary info) { return described(bridge::as<NSObject>(info.objectForKey(keys::name))); }

void exchangeGestures(SBIconScrollView self, bool twoFingerTap) {
  UIGestureRecognizer swipe = swipeGesture(self), tap = tapGesture(self);
  self.removeGestureRecognizer(twoFingerTap ? swipe : tap);
  attach(self, twoFingerTap ? tap : swipe);
}

// A message may carry nothing, but nothing of another kind than these.
bool isStorable(bridge::Object value) {
  return bridge::isKindOf<NSNumber>(value) || bridge::isKindOf<NSString>(value);
}

// Stores what a message carries; one that carries nothing changes nothing. It takes effect when something is
// laid out again.
void store(bridge::Object value, NSString key) {
  if (isStorable(value)) ConfigurationManager::sharedManager().configuration().setObject_forKey(value, key);
}

// The same object for as long as the count is the same, as it is from one step of scrolling to the next.
NSNumber numberOf(int pages) {
  static int of;
  [[clang::no_destroy]] static constinit bridge::Strong<NSNumber> number;
  if (!number || of != pages) {
    number = bridge::retained(NSNumber::numberWithFloat(static_cast<float>(pages)));
    of = pages;
  }
  return number;
}

}  // namespace

void listCellPreferencesUpdated(SBIconScrollView, NSString, NSDictionary info) {
  store(info.objectForKey(keys::index), nameIn(info));
}

void preferencesUpdated(SBIconScrollView self, NSString, NSDictionary info) {
  NSString title = nameIn(info);
  bridge::Object value = info.objectForKey(keys::value);
  BOOL flag = truthIn(value);
  if (!panelIsWanted() || (value && !isStorable(value))) return;
  if (title.isEqualToString("Use Two Finger Tap Instead"_ns)) {
    exchangeGestures(self, flag);
  } else if (title.isEqualToString("Enable Quick Settings"_ns)) {
    swipeGesture(self).enabled.set(flag);
    tapGesture(self).enabled.set(flag);
  } else if (title.isEqualToString("Quick Settings Dark Mode"_ns)) {
    store(value, keys::isDarkMode);
  }
}

void layout(SBIconScrollView, bridge::Object) { layoutIcons(false); }

void swipe(SBIconScrollView, bridge::Object) { gestController->showPopup(); }

UISwipeGestureRecognizer swipeGesture(SBIconScrollView self) {
  return bridge::as<UISwipeGestureRecognizer>(objc_getAssociatedObject(self.raw, &swipeGestureKey));
}

void setSwipeGesture(SBIconScrollView self, UISwipeGestureRecognizer recognizer) {
  objc_setAssociatedObject(self.raw, &swipeGestureKey, recognizer.raw, retainAtomically);
}

UITapGestureRecognizer tapGesture(SBIconScrollView self) {
  return bridge::as<UITapGestureRecognizer>(objc_getAssociatedObject(self.raw, &tapGestureKey));
}

void setTapGesture(SBIconScrollView self, UITapGestureRecognizer recognizer) {
  objc_setAssociatedObject(self.raw, &tapGestureKey, recognizer.raw, retainAtomically);
}

// Before SpringBoard's own initialiser has run.
bridge::Strong<NSObject> initScrollView(SBIconScrollView self) {
  setUp(self);
  return original<initScrollView>(self);
}

bridge::Strong<UIView> initScrollViewWithFrame(SBIconScrollView self, CGRect frame) {
  setUp(self);
  return original<initScrollViewWithFrame>(self, frame);
}

void deallocScrollView(SBIconScrollView self) {
  NSNotificationCenter::defaultCenter().removeObserver(self);
  original<deallocScrollView>(self);
}

void setContentOffset(SBIconScrollView self, CGPoint offset) {
  NSArray subviews = self.subviews();
  int pages = 0;
  const NSUInteger all = subviews.count();
  for (NSUInteger i = 0; i < all; ++i)
    pages += bridge::isKindOf<SBRootIconListView>(subviews.objectAtIndex(i));
  numOfPages = pages;
  ConfigurationManager::sharedManager().saveWithKey_value(keys::numOfPages, numberOf(pages));
  original<setContentOffset>(self, offset);
}

void touchesMoved(SBIconScrollView, NSSet touches, UIEvent) {
  auto touch = bridge::as<UITouch>(touches.anyObject());
  bool wanted = settings().flag(keys::forceTouch);
  if (!feelsForce(touch) || !wanted || touch.force() < firmPress || show) return;
  gestController->showPopup();
  show = true;
}

void touchesEnded(SBIconScrollView, NSSet, UIEvent) { show = false; }

}  // namespace tilo::hooks
