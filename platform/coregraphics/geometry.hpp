// Points, sizes, rectangles and affine transforms, laid out as CoreGraphics lays them out.
#pragma once

#include <type_traits>

#ifdef __LP64__
using CGFloat = double;
#else
using CGFloat = float;
#endif

struct CGPoint {
  CGFloat x, y;
  bool operator==(const CGPoint&) const = default;
};

struct CGSize {
  CGFloat width, height;
  bool operator==(const CGSize&) const = default;
};

struct CGRect {
  CGPoint origin;
  CGSize size;
  bool operator==(const CGRect&) const = default;
};

// x' = a·x + c·y + tx, y' = b·x + d·y + ty.
struct CGAffineTransform {
  CGFloat a, b, c, d, tx, ty;
  bool operator==(const CGAffineTransform&) const = default;
};

inline constexpr CGAffineTransform identityTransform{1, 0, 0, 1, 0, 0};

static_assert(sizeof(CGPoint) == 2 * sizeof(CGFloat));
static_assert(sizeof(CGSize) == 2 * sizeof(CGFloat));
static_assert(sizeof(CGRect) == 4 * sizeof(CGFloat));
static_assert(sizeof(CGAffineTransform) == 6 * sizeof(CGFloat));
static_assert(std::is_trivially_copyable_v<CGRect>);
