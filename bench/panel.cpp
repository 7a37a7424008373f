// What the Quick Settings panel costs: a press on a plus button, from the touch to the stored value.
#include "bench/home_screen.hpp"
#include "bridge/runtime.hpp"

namespace bench {

void plusPress(benchmark::State& state) {
  bridge::Pool pool;
  started();
  openPanel();
  step("wait 1");
  for (auto _ : state) {
    bridge::Pool each;
    step("increment \"Top Inset\"");
  }
  closePanel();
}

}  // namespace bench
