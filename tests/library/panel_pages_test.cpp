// The dots below the panel's pages, while a finger moves them.
#include <gtest/gtest.h>

#include "tests/library/panel_home.hpp"

namespace {

using test::PanelHome;

TEST(PanelDots, TellThePageOfWhichThereIsMoreToSee) {
  PanelHome home;
  home.open();
  const UIScrollView pages = home.panel().scrollView();
  const struct {
    CGFloat offset;
    NSInteger page;
  } places[] = {{149, 0}, {151, 1}, {300, 1}, {151, 1}, {149, 0}, {0, 0}, {-60, 0}};
  for (const auto& [offset, page] : places) {
    pages.contentOffset.set({offset, 0});
    EXPECT_EQ(home.panel().pageControl().currentPage(), page) << offset;
  }
}

}  // namespace
