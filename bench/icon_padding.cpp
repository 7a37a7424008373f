// What it costs to ask a page for its vertical padding: SpringBoard's own answer, and the library's.
#include <benchmark/benchmark.h>

#include "platform/springboard/icon_list_view.hpp"
#include "simulator/app/simulation.hpp"
#include "simulator/springboard/icon_controller.hpp"

namespace {

sim::Simulation& simulation() {
  static const char* arguments[] = {"tilo-bench",       "--set", "enabled=YES",         "--set",
                                    "custom_preset=-1", "--set", "vertIconPadding=12.0"};
  static auto& only = *new sim::Simulation(sim::parseOptions(7, arguments));
  return only;
}

// Runs first, while nothing is replaced.
void verticalPaddingStock(benchmark::State& state) {
  bridge::Pool pool;
  simulation();
  static auto& list = *new auto(bridge::make<SBRootIconListView, &UIView::initWithFrame>(CGRect{}));
  for (auto _ : state) benchmark::DoNotOptimize(list->verticalIconPadding());
}
BENCHMARK(verticalPaddingStock);

// Loads the library; from here on there is no way back.
void verticalPaddingReplaced(benchmark::State& state) {
  bridge::Pool pool;
  if (!simulation().library()) simulation().start();
  SBRootIconListView list = sim::springboard::homeScreen().pages.at(0).get();
  for (auto _ : state) {
    bridge::Pool each;
    benchmark::DoNotOptimize(list.verticalIconPadding());
  }
}
BENCHMARK(verticalPaddingReplaced);

}  // namespace

BENCHMARK_MAIN();
