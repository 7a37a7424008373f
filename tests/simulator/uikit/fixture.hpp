// A device with UIKit on it, and what the tests look for.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "bridge/define.hpp"
#include "platform/uikit/application.hpp"
#include "platform/uikit/color.hpp"
#include "platform/uikit/layer.hpp"
#include "platform/uikit/screen.hpp"
#include "simulator/device/clock.hpp"
#include "simulator/uikit/animation/animation.hpp"
#include "simulator/uikit/base/classes.hpp"
#include "simulator/uikit/base/configuration.hpp"
#include "simulator/uikit/drawing/layer.hpp"
#include "simulator/uikit/drawing/rendering.hpp"
#include "simulator/uikit/views/view.hpp"

inline std::ostream& operator<<(std::ostream& out, CGPoint p) {
  return out << '(' << p.x << ", " << p.y << ')';
}
inline std::ostream& operator<<(std::ostream& out, CGSize s) { return out << s.width << " x " << s.height; }
inline std::ostream& operator<<(std::ostream& out, const CGRect& r) {
  return out << r.origin << ' ' << r.size;
}

namespace test {

using bridge::Block;
using bridge::make;
using bridge::method;
using bridge::Pool;
using bridge::retained;
using bridge::Strong;

inline sim::uikit::Configuration phone() {
  sim::uikit::Configuration phone;
  phone.systemVersion = "10.3.3";
  phone.size = {375, 667};
  phone.scale = 2;
  phone.nativeSize = {750, 1334};
  return phone;
}

class UIKit : public testing::Test {
 protected:
  UIKit() {
    sim::uikit::configure(phone());
    sim::uikit::registerClasses();
  }

  // Lets time pass as whoever owns the clock does.
  static void pass(double seconds) {
    const double end = sim::clock::now() + seconds;
    for (auto next = sim::uikit::nextAnimationEvent(); next && *next <= end;
         next = sim::uikit::nextAnimationEvent()) {
      sim::clock::advanceTo(*next);
      sim::uikit::runAnimationEvents(sim::clock::now());
    }
    sim::clock::advanceTo(end);
    sim::uikit::runAnimationEvents(end);
  }

  // One turn of the run loop, in which no time passes.
  static void turn() { sim::uikit::runAnimationEvents(sim::clock::now()); }

  static sim::LayerValues shown(UIView view) {
    return sim::uikit::layerOf(view).presentation(sim::clock::now());
  }

  Pool pool;
};

inline Strong<UIView> makeView(CGRect frame = {}) { return make<UIView, &UIView::initWithFrame>(frame); }

inline Strong<UIWindow> makeWindow() {
  auto window = make<UIWindow, &UIView::initWithFrame>(UIScreen::mainScreen().bounds());
  window->makeKeyAndVisible();
  return window;
}

// A view that writes down what it is told.
struct RecordingView : bridge::Face<"TestRecordingView", UIView> {};

struct Records {
  std::vector<std::string> lines;
};

using RecordingClass = bridge::Implementation<RecordingView, Records>;

inline std::vector<std::string>& linesOf(RecordingView view) { return RecordingClass::state(view).lines; }

inline Strong<RecordingView> makeRecordingView(CGRect frame = {}) {
  struct Functions {
    static void note(RecordingView self, const char* line) { linesOf(self).push_back(line); }
    static void willMoveToSuperview(RecordingView self, UIView view) {
      note(self, view ? "will move to superview" : "will leave superview");
    }
    static void didMoveToSuperview(RecordingView self) { note(self, "did move to superview"); }
    static void willMoveToWindow(RecordingView self, UIWindow window) {
      note(self, window ? "will move to window" : "will leave window");
    }
    static void didMoveToWindow(RecordingView self) { note(self, "did move to window"); }
    static void didAddSubview(RecordingView self, UIView) { note(self, "did add subview"); }
    static void willRemoveSubview(RecordingView self, UIView) { note(self, "will remove subview"); }
    static void layoutSubviews(RecordingView self) { note(self, "layout"); }
    static void setFrame(RecordingView self, CGRect frame) {
      note(self, "frame");
      RecordingClass::super<bridge::setterOf<&UIView::frame>>(self, frame);
    }
  };
  RecordingClass::define<UIView>(method<&UIView::willMoveToSuperview, Functions::willMoveToSuperview>(),
                                 method<&UIView::didMoveToSuperview, Functions::didMoveToSuperview>(),
                                 method<&UIView::willMoveToWindow, Functions::willMoveToWindow>(),
                                 method<&UIView::didMoveToWindow, Functions::didMoveToWindow>(),
                                 method<&UIView::didAddSubview, Functions::didAddSubview>(),
                                 method<&UIView::willRemoveSubview, Functions::willRemoveSubview>(),
                                 method<&UIView::layoutSubviews, Functions::layoutSubviews>(),
                                 method<bridge::setterOf<&UIView::frame>, Functions::setFrame>());
  return make<RecordingView, &UIView::initWithFrame>(frame);
}

}  // namespace test
