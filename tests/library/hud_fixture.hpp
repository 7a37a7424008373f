// A notice box on the home screen.
#pragma once

#include <gtest/gtest.h>

#include "controls/progress_hud.hpp"
#include "platform/uikit/application.hpp"
#include "simulator/device/clock.hpp"
#include "simulator/time/run_loop.hpp"
#include "simulator/uikit/drawing/rendering.hpp"
#include "simulator/uikit/views/view.hpp"
#include "tests/support/home.hpp"

namespace test {

using bridge::Block;
using bridge::Strong;
using tilo::RQProgressHUD;

class HUD : public testing::Test {
 protected:
  explicit HUD(std::vector<std::string> options = {}) : home(std::move(options)) {
    view = bridge::make<UIView, &UIView::initWithFrame>(window().bounds());
    window().addSubview(view);
    hud = bridge::make<RQProgressHUD, &RQProgressHUD::initWithView>(view.get());
    view->addSubview(hud);
  }

  static UIWindow window() { return UIApplication::sharedApplication().keyWindow(); }

  static void pass(double seconds) { sim::letPass(seconds); }
  static double now() { return sim::clock::now(); }

  // What is on screen at this moment.
  static sim::LayerValues shown(UIView of) { return sim::uikit::layerOf(of).presentation(now()); }
  double alpha() const { return shown(hud.get()).opacity; }
  // How large the box is drawn, 1 being its own size.
  double scale() const {
    const auto turned = shown(hud.get()).transform;
    EXPECT_EQ(turned.a, turned.d);
    return turned.a;
  }

  static void layOut() { sim::uikit::layoutPass(); }

  // The subview of that class, if any.
  template <class T>
  T part() const {
    NSArray parts = hud->subviews();
    for (NSUInteger i = 0; i < parts.count(); ++i)
      if (bridge::isKindOf<T>(parts.objectAtIndex(i))) return bridge::as<T>(parts.objectAtIndex(i));
    return {};
  }
  UILabel label(NSUInteger which) const { return bridge::as<UILabel>(hud->subviews().objectAtIndex(which)); }

  Home home;
  Strong<UIView> view;
  Strong<RQProgressHUD> hud;
};

}  // namespace test
