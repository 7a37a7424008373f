// What grows with the home screen, and with the notice boxes over it: see script/plot-growth.
#include "bench/home_screen.hpp"
#include "controls/progress_hud.hpp"
#include "platform/foundation/notification_center.hpp"
#include "platform/foundation/number.hpp"
#include "platform/uikit/application.hpp"
#include "settings/gesture_controller.hpp"
#include "simulator/time/run_loop.hpp"
#include "simulator/uikit/drawing/rendering.hpp"

namespace bench {

// Each time to other places.
void relayout(benchmark::State& state) {
  bridge::Pool pool;
  started();
  step("swipe left");  // then the pages have been counted
  step("wait 1");
  constexpr double untilIconsRest = 0.7;  // seconds
  NSMutableDictionary settings = tilo::RQGestureController::sharedInstance().rootObj();
  bool wide = false;
  for (auto _ : state) {
    bridge::Pool each;
    wide = !wide;
    settings.setObject_forKey(NSNumber::numberWithFloat(wide ? 20 : 12), "vertIconPadding"_ns);
    NSNotificationCenter::defaultCenter().postNotificationName_object("PopupViewDidDisappearNotification"_ns,
                                                                      {});
    sim::letPass(untilIconsRest);
    sim::uikit::layoutPass();
  }
}

void noticeBoxes(benchmark::State& state) {
  bridge::Pool pool;
  started();
  const UIWindow window = UIApplication::sharedApplication().keyWindow();
  for (auto _ : state) {
    bridge::Pool each;
    for (long i = 0; i < state.range(0); ++i)
      tilo::RQProgressHUD::showHUDAddedTo_animated(window, NO).labelText.set("Exported"_ns);
    sim::letPass(1.0 / 60);
    tilo::RQProgressHUD::hideAllHUDsForView_animated(window, NO);
    sim::letPass(1.0 / 60);
  }
}

}  // namespace bench
