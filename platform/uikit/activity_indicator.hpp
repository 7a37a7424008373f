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
  MESSAGE Method<"activityIndicatorViewStyle", NSInteger()> activityIndicatorViewStyle;
  MESSAGE Method<"setActivityIndicatorViewStyle:", void(NSInteger)> setActivityIndicatorViewStyle;
  MESSAGE Method<"hidesWhenStopped", BOOL()> hidesWhenStopped;
  MESSAGE Method<"setHidesWhenStopped:", void(BOOL)> setHidesWhenStopped;
  MESSAGE Method<"startAnimating", void()> startAnimating;
  MESSAGE Method<"stopAnimating", void()> stopAnimating;
  MESSAGE Method<"isAnimating", BOOL()> isAnimating;
};
