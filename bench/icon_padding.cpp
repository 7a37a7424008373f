// What it costs to ask a page for its vertical padding: SpringBoard's own answer, and the library's.
#include "bench/home_screen.hpp"
#include "platform/springboard/icon_list_view.hpp"
#include "simulator/springboard/icon_controller.hpp"

namespace bench {

void verticalPaddingStock(benchmark::State& state) {
  bridge::Pool pool;
  simulation();
  auto list = bridge::make<SBRootIconListView, &UIView::initWithFrame>(CGRect{});
  for (auto _ : state) {
    bridge::Pool each;
    benchmark::DoNotOptimize(list->verticalIconPadding());
  }
}

void verticalPaddingReplaced(benchmark::State& state) {
  bridge::Pool pool;
  started();
  SBRootIconListView list = sim::springboard::homeScreen().pages.at(0).get();
  for (auto _ : state) {
    bridge::Pool each;
    benchmark::DoNotOptimize(list.verticalIconPadding());
  }
}

}  // namespace bench
