// Fingers on the glass of a test's device, and a log of what they bring about.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/uikit/gesture_recognizer.hpp"
#include "simulator/uikit/gestures/touch_dispatch.hpp"
#include "tests/simulator/uikit/fixture.hpp"

namespace test {

using Log = std::vector<std::string>;

// What has happened, and what delegates answer, in the test that is running.
struct Happenings {
  Log log;
  std::map<id, std::string> names;  // of recognisers and views
  std::function<bool(UIGestureRecognizer, UITouch)> shouldReceive;
  std::function<bool(UIGestureRecognizer)> shouldBegin;
  std::function<bool(UIGestureRecognizer, UIGestureRecognizer)> simultaneous, shouldRequire, shouldBeRequired;
};

inline Happenings& happenings() {
  static auto& all = *new Happenings();
  return all;
}

inline std::string nameOf(bridge::Object object) { return happenings().names[object.raw]; }
inline void note(const std::string& line) { happenings().log.push_back(line); }

inline std::string nameOfState(NSInteger state) {
  constexpr const char* names[] = {"possible", "began", "changed", "ended", "cancelled", "failed"};
  return names[state];
}

// The target of every recogniser, and the delegate of those that want one.
struct Listener : bridge::Face<"TestListener", NSObject> {
  MESSAGE Method<"fired:", void(UIGestureRecognizer)> fired;
};
using ListenerClass = bridge::Implementation<Listener>;

// A delegate that implements none of the questions.
struct SilentDelegate : bridge::Face<"TestSilentDelegate", NSObject> {};

// A view that writes down its touches and how many come together.
struct TouchView : bridge::Face<"TestTouchView", UIView> {};
using TouchViewClass = bridge::Implementation<TouchView>;

inline void defineTouchClasses() {
  struct Functions {
    static void fired(Listener, UIGestureRecognizer recognizer) {
      note(nameOf(recognizer) + " " + nameOfState(recognizer.state()));
    }
    static BOOL shouldReceive(Listener, UIGestureRecognizer one, UITouch touch) {
      return !happenings().shouldReceive || happenings().shouldReceive(one, touch);
    }
    static BOOL shouldBegin(Listener, UIGestureRecognizer one) {
      return !happenings().shouldBegin || happenings().shouldBegin(one);
    }
    static BOOL simultaneous(Listener, UIGestureRecognizer one, UIGestureRecognizer other) {
      return happenings().simultaneous && happenings().simultaneous(one, other);
    }
    static BOOL shouldRequire(Listener, UIGestureRecognizer one, UIGestureRecognizer other) {
      return happenings().shouldRequire && happenings().shouldRequire(one, other);
    }
    static BOOL shouldBeRequired(Listener, UIGestureRecognizer one, UIGestureRecognizer other) {
      return happenings().shouldBeRequired && happenings().shouldBeRequired(one, other);
    }
    static void noteTouches(TouchView self, const char* phase, NSSet touches) {
      note(nameOf(self) + " " + phase + " " + std::to_string(touches.count()));
    }
    static void began(TouchView self, NSSet touches, UIEvent) { noteTouches(self, "began", touches); }
    static void moved(TouchView self, NSSet touches, UIEvent) { noteTouches(self, "moved", touches); }
    static void ended(TouchView self, NSSet touches, UIEvent) { noteTouches(self, "ended", touches); }
    static void cancelled(TouchView self, NSSet touches, UIEvent) { noteTouches(self, "cancelled", touches); }
  };
  using F = Functions;
  using D = UIGestureRecognizerDelegate;
  ListenerClass::define<NSObject>(
      method<&Listener::fired, F::fired>(),
      method<&D::gestureRecognizer_shouldReceiveTouch, F::shouldReceive>(),
      method<&D::gestureRecognizerShouldBegin, F::shouldBegin>(),
      method<&D::gestureRecognizer_shouldRecognizeSimultaneouslyWithGestureRecognizer, F::simultaneous>(),
      method<&D::gestureRecognizer_shouldRequireFailureOfGestureRecognizer, F::shouldRequire>(),
      method<&D::gestureRecognizer_shouldBeRequiredToFailByGestureRecognizer, F::shouldBeRequired>());
  bridge::Implementation<SilentDelegate>::define<NSObject>();
  TouchViewClass::define<UIView>(method<&UIResponder::touchesBegan_withEvent, F::began>(),
                                 method<&UIResponder::touchesMoved_withEvent, F::moved>(),
                                 method<&UIResponder::touchesEnded_withEvent, F::ended>(),
                                 method<&UIResponder::touchesCancelled_withEvent, F::cancelled>());
}

class Fingers : public UIKit {
 protected:
  Fingers() {
    defineTouchClasses();
    happenings() = {};
    listener = make<Listener, &NSObject::init>();
    window = makeWindow();
  }
  // No finger stays on the glass for the next test.
  ~Fingers() override {
    sim::uikit::cancelFingers();
    pass(1);
    window->hidden.set(YES);
  }

  static void send(const std::vector<sim::uikit::FingerChange>& changes) { sim::uikit::sendFingers(changes); }
  static void down(CGPoint at, int finger = 0) { send({{finger, UITouchPhaseBegan, at}}); }
  static void move(CGPoint to, int finger = 0) { send({{finger, UITouchPhaseMoved, to}}); }
  static void up(CGPoint at, int finger = 0) { send({{finger, UITouchPhaseEnded, at}}); }

  static void tap(CGPoint at) {
    down(at);
    pass(0.05);
    up(at);
  }

  // Moves at even speed, 60 times a second.
  static void travel(CGPoint from, CGPoint to, double seconds) {
    const int moves = static_cast<int>(seconds * 60 + 0.5);
    for (int i = 1; i <= moves; ++i) {
      pass(1.0 / 60);
      move({from.x + (to.x - from.x) * i / moves, from.y + (to.y - from.y) * i / moves});
    }
  }

  Strong<TouchView> touchView(CGRect frame, const char* name) {
    auto view = make<TouchView, &UIView::initWithFrame>(frame);
    happenings().names[view->raw] = name;
    window->addSubview(view);
    return view;
  }

  // A recogniser whose every action is logged.
  template <class T>
  Strong<T> attach(UIView view, const char* name) {
    auto recognizer = make<T, &UIGestureRecognizer::initWithTarget_action>(
        listener, bridge::Descriptor<&Listener::fired>::selector());
    happenings().names[recognizer->raw] = name;
    view.addGestureRecognizer(recognizer);
    return bridge::adopt<T>(recognizer.leak());
  }

  static Log takeLog() { return std::exchange(happenings().log, {}); }

  Strong<Listener> listener;
  Strong<UIWindow> window;
};

}  // namespace test
