// What the Quick Settings panel costs: a press on a plus or minus button in turn, from the touch to the
// stored value. At the end of its range a button would store nothing.
#include <dlfcn.h>

#include "bench/home_screen.hpp"
#include "bridge/runtime.hpp"

namespace bench {

void plusPress(benchmark::State& state) {
  bridge::Pool pool;
  started();
  openPanel();
  step("wait 1");
  const auto* const sent = static_cast<unsigned long*>(dlsym(RTLD_DEFAULT, "messagesSent"));
  const unsigned long before = sent ? *sent : 0;
  bool up = false;
  for (auto _ : state) {
    bridge::Pool each;
    up = !up;
    step(up ? "increment \"Top Inset\"" : "decrement \"Top Inset\"");
  }
  if (sent)
    state.counters["messages"] =
        benchmark::Counter(static_cast<double>(*sent - before), benchmark::Counter::kAvgIterations);
  closePanel();
}

}  // namespace bench
