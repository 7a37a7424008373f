// UIActivityIndicatorView.
#pragma once

#include "platform/uikit/view.hpp"

// UIActivityIndicatorViewStyle
enum : NSInteger {
  UIActivityIndicatorViewStyleWhiteLarge = 0,
  UIActivityIndicatorViewStyleWhite,
  UIActivityIndicatorViewStyleGray
};

struct UIActivityIndicatorView : bridge::Face<"UIActivityIndicatorView", UIView> {
  MESSAGE Method<"initWithActivityIndicatorStyle:", UIActivityIndicatorView(NSInteger)>
      initWithActivityIndicatorStyle;
  MESSAGE Property<"activityIndicatorViewStyle", NSInteger> activityIndicatorViewStyle;
  MESSAGE Property<"hidesWhenStopped", BOOL> hidesWhenStopped;
  MESSAGE Method<"startAnimating", void()> startAnimating;
  MESSAGE Method<"stopAnimating", void()> stopAnimating;
  MESSAGE Method<"isAnimating", BOOL()> isAnimating;
};
