// A library that raises an exception which nobody catches, or crashes. RAISE_FROM names the place.
#include <cstdlib>
#include <string_view>

#include "bridge/define.hpp"
#include "bridge/replace.hpp"
#include "platform/dispatch/dispatch.hpp"
#include "platform/foundation/notification_center.hpp"
#include "platform/springboard/icon_controller.hpp"

namespace {

struct NSException : bridge::Face<"NSException", NSObject> {
  static constexpr bridge::ClassMethod<"NSException", "exceptionWithName:reason:userInfo:",
                                       NSException(NSString, NSString, bridge::Object)>
      exceptionWithName_reason_userInfo{};
  MESSAGE Method<"raise", void()> raise;
};

struct Raiser : bridge::Face<"TestRaiser", NSObject> {
  MESSAGE Method<"raise:", void(bridge::Object)> raise;
  MESSAGE Method<"noSuchThing", void()> noSuchThing;
  MESSAGE Method<"performSelector:withObject:afterDelay:", void(SEL, bridge::Object, double)> performLater;
};

struct NSTimer : bridge::Face<"NSTimer", NSObject> {
  static constexpr bridge::ClassMethod<"NSTimer",
                                       "scheduledTimerWithTimeInterval:target:selector:userInfo:repeats:",
                                       NSTimer(double, bridge::Object, SEL, bridge::Object, BOOL)>
      scheduled{};
};

void raise() {
  NSException::exceptionWithName_reason_userInfo("TestException"_ns, "too many spoons"_ns, {}).raise();
}

void raiseFor(Raiser, bridge::Object) { raise(); }

CGFloat raiseForPadding(SBIconListView) {
  raise();
  return 0;
}

CGFloat faultForPadding(SBIconListView) { return *reinterpret_cast<volatile CGFloat*>(4096); }

CGFloat deeperForPadding(SBIconListView self) { return self.verticalIconPadding() + 1; }

void raiseForAppearance(SBIconController, BOOL) { raise(); }

SEL action() { return bridge::selector<"raise:">(); }

// Kept until the process ends.
Raiser raiser() {
  bridge::Implementation<Raiser>::define<NSObject>(bridge::method<&Raiser::raise, raiseFor>());
  return bridge::as<Raiser>(bridge::make<Raiser, &NSObject::init>().leak());
}

__attribute__((constructor)) void choosePlace() {
  bridge::Pool pool;
  std::string_view place = std::getenv("RAISE_FROM");
  if (place == "load") raise();
  if (place == "message") raiser().noSuchThing();
  if (place == "queue") dispatch::onMainQueue([] { raise(); });
  if (place == "timer") NSTimer::scheduled(0.5, raiser(), action(), {}, NO);
  if (place == "delayed") raiser().performLater(action(), {}, 0.5);
  if (place == "animation")
    dispatch::onMainQueue(
        [] { UIView::animateWithDuration_animations(0.5, bridge::Block<void()>([] { raise(); })); });
  if (place == "layout")
    bridge::install(bridge::replace<SBIconListView, &SBIconListView::verticalIconPadding, raiseForPadding>());
  if (place == "fault")
    bridge::install(bridge::replace<SBIconListView, &SBIconListView::verticalIconPadding, faultForPadding>());
  if (place == "depth")
    bridge::install(
        bridge::replace<SBIconListView, &SBIconListView::verticalIconPadding, deeperForPadding>());
  if (place == "appearance")
    bridge::install(
        bridge::replace<SBIconController, &UIViewController::viewDidAppear, raiseForAppearance>());
  if (place == "notification") {
    NSNotificationCenter::defaultCenter().addObserver_selector_name_object(raiser(), action(), "Spoons"_ns,
                                                                           {});
    dispatch::onMainQueue(
        [] { NSNotificationCenter::defaultCenter().postNotificationName_object("Spoons"_ns, {}); });
  }
}

}  // namespace
