// What the Quick Settings panel costs: a frame of the screen while the panel springs in, and a press on a
// plus button from the touch to the stored value.
#include "bench/home_screen.hpp"
#include "platform/uikit/application.hpp"
#include "simulator/app/steps.hpp"
#include "simulator/device/clock.hpp"
#include "simulator/product/product.hpp"
#include "simulator/time/run_loop.hpp"
#include "simulator/uikit/drawing/rendering.hpp"

namespace bench {
namespace {

constexpr double frame = 1.0 / 60;      // seconds
constexpr double springDuration = 0.4;  // of the panel's way in

void step(const char* line) {
  sim::perform(started(), *sim::parseStep(line, "bench", ".", sim::product::program().steps));
}

bool panelIsShown() {
  NSArray views = UIApplication::sharedApplication().keyWindow().subviews();
  const Class panel = objc_getClass("RQPopupView");
  for (NSUInteger i = 0; i < views.count(); ++i)
    if (bridge::isKindOf(views.objectAtIndex(i), panel)) return true;
  return false;
}

void closePanel() {
  if (!panelIsShown()) return;
  step("wait 1");  // a panel on its way in takes no touches
  step("tap \"close\"");
  step("wait 1");
}

}  // namespace

void panelFrame(benchmark::State& state) {
  bridge::Pool pool;
  started();
  double left = 0;
  for (auto _ : state) {
    if (left < frame) {
      state.PauseTiming();
      closePanel();
      step("swipe up 187 500");
      left = springDuration;
      state.ResumeTiming();
    }
    bridge::Pool each;
    sim::letPass(frame);
    left -= frame;
    benchmark::DoNotOptimize(sim::uikit::renderScreen(sim::clock::now()));
  }
  closePanel();
}

void plusPress(benchmark::State& state) {
  bridge::Pool pool;
  started();
  step("swipe up 187 500");
  step("wait 1");
  for (auto _ : state) {
    bridge::Pool each;
    step("increment \"Top Inset\"");
  }
  closePanel();
}

}  // namespace bench
