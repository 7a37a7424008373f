// CGColor: components from 0 to 1, the last of them alpha.
#pragma once

#include "bridge/encoding.hpp"
#include "platform/coregraphics/geometry.hpp"

struct CGColor;
using CGColorRef = CGColor*;

template <>
struct bridge::Encoding<CGColor> {
  static constexpr Name text = "{CGColor=}";
};

extern "C" {
// Two for greys, four for colours.
size_t CGColorGetNumberOfComponents(CGColorRef color);
// Belongs to the colour.
const CGFloat* CGColorGetComponents(CGColorRef color);
}
