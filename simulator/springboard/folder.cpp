// The folder's panel: its name, and its icons in a second icon scroll view, over a dimmed home screen and
// dock.
#include "simulator/springboard/folder.hpp"

#include "platform/uikit/color.hpp"
#include "platform/uikit/font.hpp"
#include "platform/uikit/label.hpp"
#include "simulator/springboard/drawn_image.hpp"
#include "simulator/springboard/icon_controller.hpp"
#include "simulator/springboard/orientation.hpp"
#include "simulator/springboard/stock.hpp"
#include "simulator/uikit/views/view.hpp"

namespace sim::springboard {
namespace {

constexpr CGFloat dimming = 0.3;                                    // of the home screen
constexpr CGFloat dimmedDock = 0.3;                                 // alpha of the dock's background
constexpr CGFloat cornerRadius = 28;                                // points
constexpr CGFloat titleSize = 30, titleHeight = 44, titleGap = 12;  // points

bridge::Strong<UIView>& overlay() {
  static auto& view = *new bridge::Strong<UIView>();
  return view;
}

void showPages(bool shown) {
  homeScreen().scrollView->alpha.set(shown ? 1 : 0);
  homeScreen().pageDots->alpha.set(shown ? 1 : 0);
}

// As large as its grid takes.
CGSize panelSize() {
  Grid grid = stockGrid(ListKind::folder, currentOrientation());
  CGSize icon = iconViewSize();
  auto across = static_cast<CGFloat>(grid.columns), down = static_cast<CGFloat>(grid.rows);
  return {2 * grid.sideInset + across * icon.width + (across - 1) * grid.horizontalPadding,
          2 * grid.topInset + down * icon.height + (down - 1) * grid.verticalPadding};
}

bridge::Strong<UIView> makePanel(const CGRect& frame) {
  auto panel = bridge::make<UIView, &UIView::initWithFrame>(frame);
  panel->backgroundColor.set(UIColor::colorWithWhite_alpha(1, 0.35));
  uikit::layerOf(panel.get()).cornerRadius = cornerRadius;
  panel->clipsToBounds.set(YES);
  auto scrollView = makeScrollView();
  scrollView->frame.set({{0, 0}, frame.size});
  scrollView->contentSize.set(frame.size);
  homeScreen().folder->frame.set({{0, 0}, frame.size});
  scrollView->addSubview(homeScreen().folder);
  panel->addSubview(scrollView);
  return panel;
}

bridge::Strong<UILabel> makeTitle(const CGRect& panel) {
  auto title = bridge::make<UILabel, &UIView::initWithFrame>(
      CGRect{{panel.origin.x, panel.origin.y - titleGap - titleHeight}, {panel.size.width, titleHeight}});
  title->text.set(NSString::stringWithUTF8String(folderName));
  title->font.set(UIFont::systemFontOfSize(titleSize));
  title->textColor.set(UIColor::whiteColor());
  title->textAlignment.set(NSTextAlignmentCenter);
  return title;
}

}  // namespace

bool folderIsOpen() { return static_cast<bool>(overlay()); }

void openFolder() {
  if (folderIsOpen()) return;
  UIView home = homeScreen().scrollView->superview();
  CGRect whole = home.bounds();
  auto dim = bridge::make<UIView, &UIView::initWithFrame>(whole);
  dim->backgroundColor.set(UIColor::colorWithWhite_alpha(0, dimming));
  CGSize size = panelSize();
  CGRect frame{{(whole.size.width - size.width) / 2, (whole.size.height - size.height) / 2}, size};
  auto panel = makePanel(frame);
  auto title = makeTitle(frame);
  dim->addSubview(panel);
  dim->addSubview(title);
  dim->alpha.set(0);
  home.insertSubview_atIndex(dim, 2);  // over pages and dots, under the dock
  overlay() = dim;
  homeScreen().dockView->setBackgroundAlpha(dimmedDock);
  UIView::animateWithDuration_animations(folderDuration, bridge::Block<void()>([dim] {
                                           showPages(false);
                                           dim->alpha.set(1);
                                         }));
}

void closeFolder() {
  if (!folderIsOpen()) return;
  bridge::Strong<UIView> dim = overlay();
  overlay().clear();
  homeScreen().dockView->setBackgroundAlpha(1);
  UIView::animateWithDuration_animations_completion(folderDuration, bridge::Block<void()>([dim] {
                                                      showPages(true);
                                                      dim->alpha.set(0);
                                                    }),
                                                    bridge::Block<void(BOOL)>([dim](BOOL) {
                                                      homeScreen().folder->removeFromSuperview();
                                                      dim->removeFromSuperview();
                                                    }));
}

}  // namespace sim::springboard
