// UIEdgeInsets.
#pragma once

#include "platform/coregraphics/encoding.hpp"

// Points, from each edge inwards.
struct UIEdgeInsets {
  CGFloat top, left, bottom, right;
  bool operator==(const UIEdgeInsets&) const = default;
};

template <>
struct bridge::Encoding<UIEdgeInsets> {
  static constexpr auto text = structure<"UIEdgeInsets", CGFloat, CGFloat, CGFloat, CGFloat>();
};
