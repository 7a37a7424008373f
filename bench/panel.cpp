// What the Quick Settings panel costs: a press on a plus or minus button in turn, from the touch to the
// stored value and the icons in their places. At the end of its range a button would store nothing.
#include <dlfcn.h>

#include "bench/home_screen.hpp"
#include "bridge/runtime.hpp"
#include "simulator/input/fingers.hpp"
#include "simulator/product/rows.hpp"
#include "simulator/time/run_loop.hpp"

namespace bench {

void plusPress(benchmark::State& state) {
  constexpr double pause = 0.25;  // seconds of the home screen, until a finger presses again
  bridge::Pool pool;
  started();
  openPanel();
  step("wait 1");
  const auto row = sim::product::rowNamed("Top Inset");
  const CGPoint plus = sim::product::placeOf(row, row.plus, "plus button"),
                minus = sim::product::placeOf(row, row.minus, "minus button");
  const auto* const sent = static_cast<unsigned long*>(dlsym(RTLD_DEFAULT, "messagesSent"));
  const unsigned long before = sent ? *sent : 0;
  bool up = false;
  for (auto _ : state) {
    bridge::Pool each;
    up = !up;
    sim::input::tap(up ? plus : minus);
    sim::letPass(pause);
  }
  if (sent)
    state.counters["messages"] =
        benchmark::Counter(static_cast<double>(*sent - before), benchmark::Counter::kAvgIterations);
  closePanel();
}

}  // namespace bench
