// Views described: what is on screen as a table of values, in place of a run of setters.
//
//   auto caption = build(Label{.frame = {{10, 15}, {130, 30}}, .text = "Top Inset"_ns, .color = color});
#pragma once

#include "controls/button.hpp"
#include "platform/uikit/label.hpp"

namespace tilo {

// Text without a background.
struct Label {
  CGRect frame{};
  NSString text{};
  UIColor color{};
  UIFont font{};  // the platform's, without one
  bool centred = false;
};

// An icon of Font Awesome to press, its title behind it.
struct IconButton {
  CGRect frame{};
  NSUInteger icon;
  CGFloat fontSize;
  NSString title{};
  UIColor color{};
  CGFloat alpha = 1;
  bridge::Object target{};
  SEL action = nullptr;
};

bridge::Strong<UILabel> build(const Label& described);
bridge::Strong<BButton> build(const IconButton& described);

}  // namespace tilo
