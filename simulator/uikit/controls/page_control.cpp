// UIPageControl.
#include "simulator/uikit/controls/page_control.hpp"

#include <algorithm>
#include <numbers>
#include <utility>
#include <vector>

#include "bridge/define.hpp"
#include "simulator/quartz/color.hpp"
#include "simulator/uikit/base/configuration.hpp"
#include "simulator/uikit/drawing/image.hpp"
#include "simulator/uikit/views/view.hpp"

namespace sim::uikit {
namespace {

using bridge::Strong;

// Measures of system 7 and later, points.
constexpr double dotSize = 7;
constexpr double dotPitch = 16;
constexpr double otherDotAlpha = 0.2;

struct PageControlState {
  NSInteger numberOfPages = 0;
  NSInteger currentPage = 0;
  std::vector<Strong<UIImageView>> indicators;
};

using PageControlClass = bridge::Implementation<UIPageControl, PageControlState>;

Strong<UIImage> dot(const Color& color) {
  return makeImage(CGSize{dotSize, dotSize}, configuration().scale, [color](cairo_t* context, CGSize size) {
    cairo_arc(context, size.width / 2, size.height / 2, size.width / 2, 0, 2 * std::numbers::pi);
    setSource(context, color);
    cairo_fill(context);
  });
}

void setIndicatorImage(UIPageControl, UIImageView indicator, BOOL enabled, NSInteger) {
  const Strong<UIImage> image = dot(withAlpha(whiteColor, enabled ? 1 : otherDotAlpha));
  indicator.image.set(image);
}

void showIndicator(UIPageControl self, NSInteger page) {
  const PageControlState& state = PageControlClass::state(self);
  if (page < 0 || page >= state.numberOfPages) return;
  const UIImageView indicator = state.indicators[static_cast<std::size_t>(page)];
  bridge::as<PageIndicators>(self).setIndicatorImage_toEnabled_index(indicator, page == state.currentPage,
                                                                     page);
}

NSInteger numberOfPages(UIPageControl self) { return PageControlClass::state(self).numberOfPages; }
NSInteger currentPage(UIPageControl self) { return PageControlClass::state(self).currentPage; }

void setCurrentPage(UIPageControl self, NSInteger page) {
  PageControlState& state = PageControlClass::state(self);
  const NSInteger last = std::max<NSInteger>(state.numberOfPages - 1, 0);
  const NSInteger old = std::exchange(state.currentPage, std::clamp<NSInteger>(page, 0, last));
  if (old == state.currentPage) return;
  showIndicator(self, old);
  showIndicator(self, state.currentPage);
}

void setNumberOfPages(UIPageControl self, NSInteger count) {
  PageControlState& state = PageControlClass::state(self);
  count = std::max<NSInteger>(count, 0);
  if (count == state.numberOfPages) return;
  for (const auto& indicator : state.indicators) indicator->removeFromSuperview();
  state.indicators.clear();
  state.numberOfPages = count;
  state.currentPage = std::clamp<NSInteger>(state.currentPage, 0, std::max<NSInteger>(count - 1, 0));
  for (NSInteger page = 0; page < count; ++page) {
    auto indicator = bridge::make<UIImageView, &UIView::initWithFrame>(CGRect{{}, {dotSize, dotSize}});
    self.addSubview(indicator);
    state.indicators.push_back(std::move(indicator));
    showIndicator(self, page);
  }
  self.setNeedsLayout();
}

CGRect indicatorFrame(CGSize room, NSInteger page, NSInteger count) {
  const double width = static_cast<double>(count - 1) * dotPitch + dotSize;
  return {{(room.width - width) / 2 + static_cast<double>(page) * dotPitch, (room.height - dotSize) / 2},
          {dotSize, dotSize}};
}

void layoutSubviews(UIPageControl self) {
  const PageControlState& state = PageControlClass::state(self);
  const CGSize room = self.bounds().size;
  for (std::size_t page = 0; page < state.indicators.size(); ++page)
    state.indicators[page]->frame.set(
        indicatorFrame(room, static_cast<NSInteger>(page), state.numberOfPages));
}

}  // namespace

std::vector<UIImageView> indicatorsOf(UIPageControl control) {
  const auto& indicators = PageControlClass::state(control).indicators;
  return {indicators.begin(), indicators.end()};
}

void definePageControl() {
  using bridge::method;
  PageControlClass::define<UIControl>(
      bridge::property<&UIPageControl::numberOfPages, numberOfPages, setNumberOfPages>(),
      bridge::property<&UIPageControl::currentPage, currentPage, setCurrentPage>(),
      method<&PageIndicators::setIndicatorImage_toEnabled_index, setIndicatorImage>(),
      method<&UIView::layoutSubviews, layoutSubviews>());
}

}  // namespace sim::uikit
