// Arithmetic of affine transforms, rows and names as in CoreGraphics: p' = p · t.
#pragma once

#include <optional>

#include "platform/coregraphics/geometry.hpp"

namespace sim {

/** The transform that applies `first`, then `second`. */
CGAffineTransform concat(const CGAffineTransform& first, const CGAffineTransform& second);
CGAffineTransform translation(double x, double y);
CGAffineTransform scaling(double x, double y);
/** Radians; positive turns x towards y, which is clockwise on the screen. */
CGAffineTransform rotation(double radians);
/** Not when the transform flattens the plane to a line or a point, or holds a number that is not finite. */
bool hasInverse(const CGAffineTransform& transform);
/** None when there is none. */
std::optional<CGAffineTransform> inverse(const CGAffineTransform& transform);

CGPoint apply(const CGAffineTransform& transform, CGPoint point);
/** The smallest upright rectangle around the transformed one. */
CGRect boundingBox(const CGAffineTransform& transform, const CGRect& rect);

/** The same area with sizes that are not negative. */
CGRect standardized(const CGRect& rect);
/** The smallest rectangle that holds both; an empty one counts for nothing. */
CGRect unionOf(const CGRect& a, const CGRect& b);

/**
 * A transform taken apart, so that parts can be interpolated each for itself: a half turn passes through a
 * quarter turn, not through zero size. Applied in the order scale, shear (x by y), rotation, translation.
 */
struct TransformParts {
  double x, y;            // points
  double angle;           // radians, in (-π, π]
  double scaleX, scaleY;  // a mirror image has a negative scaleY
  double shear;
};

TransformParts partsOf(const CGAffineTransform& transform);
CGAffineTransform transformOf(const TransformParts& parts);

}  // namespace sim
