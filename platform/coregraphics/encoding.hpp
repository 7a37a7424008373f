// How geometry is encoded in method types.
#pragma once

#include "bridge/encoding.hpp"
#include "platform/coregraphics/geometry.hpp"

template <>
struct bridge::Encoding<CGPoint> {
  static constexpr auto text = structure<"CGPoint", CGFloat, CGFloat>();
};
template <>
struct bridge::Encoding<CGSize> {
  static constexpr auto text = structure<"CGSize", CGFloat, CGFloat>();
};
template <>
struct bridge::Encoding<CGRect> {
  static constexpr auto text = structure<"CGRect", CGPoint, CGSize>();
};
template <>
struct bridge::Encoding<CGAffineTransform> {
  static constexpr auto text =
      structure<"CGAffineTransform", CGFloat, CGFloat, CGFloat, CGFloat, CGFloat, CGFloat>();
};
