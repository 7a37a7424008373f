// One node of the tree of layers: what it shows, where, and the animations that run on it.
#pragma once

#include <cairo.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "simulator/quartz/animation.hpp"
#include "simulator/quartz/surface.hpp"

namespace sim {

/**
 * How a content of another size than the bounds is placed: stretched; as large as fits or as small as covers,
 * centred; or in its own size, in the middle, at an edge or in a corner (top is above).
 */
enum class ContentsGravity {
  resize,
  resizeAspect,
  resizeAspectFill,
  center,
  top,
  bottom,
  left,
  right,
  topLeft,
  topRight,
  bottomLeft,
  bottomRight
};

/** Draws a content of that size in points, from (0,0), into a clear picture. */
using DrawFunction = std::function<void(cairo_t* context, CGSize size)>;

struct Content;
struct RenderCache;

/**
 * A layer. Whoever wraps one owns it, by value or otherwise; the tree only links layers and a layer that dies
 * unlinks itself from its parent and its children, so no link ever dangles. It stays at its address.
 *
 * The values inherited from LayerValues are the model: they hold their new values at once. What is seen at a
 * time is `presentation(now)`. Times are seconds, lengths points, angles radians.
 */
struct Layer : LayerValues {
  CGPoint anchorPoint{0.5, 0.5};  // fraction of the bounds
  bool hidden = false;
  bool masksToBounds = false;
  double borderWidth = 0;  // inside the bounds, over content and children
  Color borderColor = blackColor;
  Color shadowColor = blackColor;
  double shadowOpacity = 0;
  CGSize shadowOffset{0, -3};
  double shadowRadius = 3;  // standard deviation of the blur
  bool shouldRasterize = false;
  double rasterizationScale = 1;  // pixels per point of the rasterized picture
  ContentsGravity contentsGravity = ContentsGravity::resize;
  // Whether a drawn content is drawn again, rather than placed by its gravity, when the model's size changes.
  bool redrawsOnResize = true;

  Layer();
  ~Layer();
  Layer(const Layer&) = delete;
  Layer& operator=(const Layer&) = delete;

  // The tree. The last child is in front.

  Layer* parent() const { return superlayer; }
  std::span<Layer* const> children() const { return sublayers; }
  /** Puts `child` in front of the other children; takes it out of its old parent. */
  void addChild(Layer& child);
  /**
   * Puts `child` before the child that has that index once `child` is out of its old place; an index beyond
   * the end means in front. Throws std::logic_error when `child` is this layer or one of its ancestors.
   */
  void insertChild(Layer& child, std::size_t index);
  void removeFromParent();

  // Content: a drawing or an image.

  /** Drawn when next shown, then kept until setNeedsDisplay(). None takes the content away. */
  void setDraw(DrawFunction function);
  /** An image of `imageScale` pixels per point; none takes the content away. Shared, not copied. */
  void setContents(Surface pixels, double imageScale);
  /** An image of `pixels` that is asked for when it is first shown. */
  void setContents(std::function<Surface()> due, CGSize pixels, double imageScale);
  /** The drawn content is out of date; for an image: its pixels were changed. */
  void setNeedsDisplay();
  /** Of the content as it is kept, in points; of a drawing that was not shown yet, what it will have. */
  CGSize contentSize() const;

  // Geometry.

  /** The bounding box in the parent of the bounds, transformed about the anchor point. */
  CGRect frame() const { return frameOf(*this); }
  /** The frame as presented at `now`. */
  CGRect frame(double now) const { return frameOf(presentation(now)); }
  /**
   * Moves the layer and sizes its bounds, keeping transform and bounds origin, so that frame() answers
   * `frame`. Under a transform that turns by other than right angles the size is only near. Negative sizes
   * are standardized.
   */
  void setFrame(const CGRect& frame);
  /** From this layer's coordinates to the parent's, of the model or as presented. */
  CGAffineTransform toParent() const { return toParent(*this); }
  CGAffineTransform toParent(const LayerValues& values) const;

  // Animations.

  const LayerValues& values() const { return *this; }
  LayerValues presentation(double now) const;
  /**
   * Animates each value in which the model now differs from `old` (taken from values() or presentation()
   * before the change). Adds to what already runs. Gives the number of animations added.
   */
  int animateFrom(const LayerValues& old, const AnimationTiming& timing, std::uint64_t group = 0);
  void addAnimation(LayerAnimation animation);
  std::span<const LayerAnimation> animations() const { return running; }
  /** Takes all animations (of one property) away and gives them back. The model's value shows at once. */
  std::vector<LayerAnimation> removeAnimations();
  std::vector<LayerAnimation> removeAnimations(LayerProperty property);
  /** Takes away, and gives back, the animations that are over at `now`. */
  std::vector<LayerAnimation> removeFinishedAnimations(double now);
  /** Whether any has not come to its end; one still in its delay counts. */
  bool hasAnimations(double now) const;
  /** When the last of the animations is over; none without animations. */
  std::optional<double> animationsEnd() const;

 private:
  friend class Inside;

  CGRect frameOf(const LayerValues& values) const;
  void drawContent(double scale);
  void take(Content content);

  Layer* superlayer = nullptr;
  std::vector<Layer*> sublayers;
  std::vector<LayerAnimation> running;
  DrawFunction draw;
  Surface contents;                // the image, or the drawing's picture
  std::function<Surface()> image;  // asks for the image that has not been shown yet
  CGSize contentsSize{};           // points
  double drawnScale = 0;           // pixels per point of the drawing's picture; 0 when it has to be drawn
  const std::uint64_t id;          // another one for every layer that ever was
  std::uint64_t contentsId;        // another one for every other content, over all layers
  std::shared_ptr<RenderCache> cache;
};

/**
 * A point of `from`'s coordinates in `to`'s, by the models' values; no layer means the coordinates outside
 * the root. There is no way down into a layer that its transform flattens: the point then stays in the
 * coordinates of the layers' nearest common ancestor.
 */
CGPoint convertPoint(CGPoint point, const Layer* from, const Layer* to);
/** The same as presented at `now`. */
CGPoint convertPoint(CGPoint point, const Layer* from, const Layer* to, double now);
/** The bounding box of the converted rectangle. */
CGRect convertRect(const CGRect& rect, const Layer* from, const Layer* to);
CGRect convertRect(const CGRect& rect, const Layer* from, const Layer* to, double now);

}  // namespace sim
