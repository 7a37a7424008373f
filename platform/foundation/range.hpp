// NSRange, counted in UTF-16 units.
#pragma once

#include "bridge/encoding.hpp"

struct NSRange {
  NSUInteger location, length;
  bool operator==(const NSRange&) const = default;
};

// Location of a range that was not found.
inline constexpr NSUInteger NSNotFound = static_cast<NSUInteger>(-1) >> 1;

template <>
struct bridge::Encoding<NSRange> {
  static constexpr auto text = structure<"_NSRange", NSUInteger, NSUInteger>();
};
