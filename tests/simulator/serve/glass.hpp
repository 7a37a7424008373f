// A view in front of everything, which writes down how it is touched.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "bridge/strong.hpp"
#include "platform/uikit/window.hpp"

namespace test {

class Glass {
 public:
  Glass();
  ~Glass();
  Glass(const Glass&) = delete;

  /** "began 10 20 force 1", a line for each finger and each thing that it does. */
  std::vector<std::string> touches;
  /** Called for each. */
  std::function<void()> whenTouched = [] {};

  UIView view() const { return pane; }
  /** There is a rectangle of another colour on it now. */
  void paint(CGRect place);

 private:
  bridge::Strong<UIWindow> window;
  bridge::Strong<UIView> pane;
  int painted = 0;
};

}  // namespace test
