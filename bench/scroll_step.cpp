// What a step of scrolling costs: SpringBoard's own, and with the count of pages that the library takes and
// stores at each.
#include "bench/home_screen.hpp"
#include "platform/springboard/icon_list_view.hpp"
#include "platform/springboard/icon_scroll_view.hpp"

namespace bench {
namespace {

constexpr int pages = 3;
constexpr CGSize screen{375, 667};  // points

// Outside any window, so that nothing is drawn.
void step(benchmark::State& state) {
  bridge::Pool pool;
  auto view = bridge::make<SBIconScrollView, &NSObject::init>();
  view->frame.set({{}, screen});
  view->contentSize.set({pages * screen.width, screen.height});
  for (int i = 0; i < pages; ++i) {
    auto page = bridge::make<SBRootIconListView, &UIView::initWithFrame>(CGRect{{}, screen});
    view->addSubview(page);
  }
  CGFloat x = 0;
  for (auto _ : state) {
    bridge::Pool each;
    x = x > screen.width ? 0 : x + 1;
    view->contentOffset.set({x, 0});
  }
}

}  // namespace

void scrollStepStock(benchmark::State& state) {
  simulation();
  step(state);
}

void scrollStepReplaced(benchmark::State& state) {
  started();
  step(state);
}

}  // namespace bench
