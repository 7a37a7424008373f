// Text of one or more fonts and colours: measured, broken into lines and drawn.
#pragma once

#include <cairo.h>

#include <optional>
#include <string>
#include <vector>

#include "platform/coregraphics/geometry.hpp"
#include "simulator/quartz/color.hpp"
#include "simulator/quartz/fonts.hpp"

namespace sim {

enum class TextAlignment { left, center, right };

enum class LineBreak {
  wordWrap,       // what is beyond the limit of lines is left out
  characterWrap,  // the same
  clip,           // one line, cut off at the edge
  truncateHead,   // "…end": lines are broken between words, an ellipsis stands in a last one that is too long
  truncateMiddle,  // "begin…end"
  truncateTail     // "begin…"
};

struct TextShadow {
  Color color;
  CGSize offset{};    // points
  double radius = 0;  // standard deviation of the blur, points
  bool operator==(const TextShadow&) const = default;
};

/** A stretch of UTF-8 text in one font and colour. Invalid bytes are shown as replacement characters. */
struct TextRun {
  std::string text;
  Font font{};
  Color color = blackColor;
  bool operator==(const TextRun&) const = default;
};

struct Text {
  std::vector<TextRun> runs;
  TextAlignment alignment = TextAlignment::left;
  LineBreak lineBreak = LineBreak::truncateTail;
  int lineLimit = 1;  // 0: as many lines as it takes
  std::optional<TextShadow> shadow{};
  bool operator==(const Text&) const = default;
};

enum class VerticalPlacement { top, middle };

/**
 * The room the text takes within a width (points; 0, negative or infinite: unlimited): the widest line's
 * width and the sum of line heights, not rounded. Empty text takes none. A height limit, if positive, leaves
 * out lines that do not fit, save the first. The shadow does not count.
 */
CGSize measureText(const Text& text, CGSize limit = {});

/**
 * Draws within the rectangle (points), as measureText lays out; nothing into an empty one. Only
 * LineBreak::clip cuts at its edges. What was drawn onto a clear picture lately is copied.
 */
void drawText(cairo_t* context, const Text& text, const CGRect& rect,
              VerticalPlacement placement = VerticalPlacement::middle);
/** The same, laid out and painted. */
void paintText(cairo_t* context, const Text& text, const CGRect& rect, VerticalPlacement placement);

}  // namespace sim
