// SpringBoard's icons and the views that show them.
#pragma once

#include "platform/foundation/string.hpp"
#include "platform/uikit/view.hpp"

struct SBIcon : bridge::Face<"SBIcon", NSObject> {
  MESSAGE OptionalMethod<"displayName", NSString()> displayName;
};

struct SBIconImageView : bridge::Face<"SBIconImageView", UIView> {
  static constexpr bridge::ClassMethod<"SBIconImageView", "cornerRadius", CGFloat()>
      cornerRadius{};  // points
  MESSAGE Method<"showsSquareCorners", BOOL()> showsSquareCorners;
  MESSAGE Method<"setShowsSquareCorners:", void(BOOL)> setShowsSquareCorners;
};

struct SBIconView : bridge::Face<"SBIconView", UIView> {
  static constexpr bridge::ClassMethod<"SBIconView", "defaultIconImageSize", CGSize()> defaultIconImageSize{};
};
