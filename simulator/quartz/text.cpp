// Text layout by Pango, painted as outlines.
#include "simulator/quartz/text.hpp"

#include <pango/pangocairo.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <memory>

#include "simulator/quartz/blur.hpp"
#include "simulator/quartz/surface.hpp"

namespace sim {
namespace {

constexpr double unit = PANGO_SCALE;

struct ObjectDeleter {
  void operator()(gpointer object) const { g_object_unref(object); }
};

struct Line {
  PangoLayoutLine* line;
  double x, width;          // from the left edge of the layout
  double baseline, bottom;  // from its top
};

// A text laid out in a width, and the byte at which each run ends.
class TextLayout {
 public:
  TextLayout(const Text& given, CGSize limit) : text(given), layout(pango_layout_new(textContext())) {
    addRuns();
    const bool limited = limit.width > 0 && limit.width < INT_MAX / unit / 2;
    const bool wraps = text.lineBreak != LineBreak::clip && limited;
    pango_layout_set_wrap(
        layout.get(), text.lineBreak == LineBreak::characterWrap ? PANGO_WRAP_CHAR : PANGO_WRAP_WORD_CHAR);
    // Rounded up: a text must fit into the width that was measured for it.
    if (wraps) pango_layout_set_width(layout.get(), static_cast<int>(std::ceil(limit.width * unit)));
    pango_layout_set_ellipsize(layout.get(), ellipsis());
    // Pango puts an ellipsis into the last of a number of lines, or lines up to a height; "no limit" is a
    // height.
    pango_layout_set_height(layout.get(), text.lineLimit > 0 ? -text.lineLimit : G_MAXINT / 2);
    collectLines(limit.height);
    if (leftOut && ellipsis() != PANGO_ELLIPSIZE_NONE) {
      pango_layout_set_height(layout.get(), -static_cast<int>(lines.size()));
      collectLines(limit.height);
    }
    // Pango aligns within a width only; of unlimited text the caller's rectangle is the width.
    for (Line& line : lines) line.x = alignedStart(limited ? limit.width : widest(), line.width);
  }

  double widest() const {
    double result = 0;
    for (const Line& line : lines) result = std::max(result, line.width);
    return result;
  }
  double height() const { return lines.empty() ? 0 : lines.back().bottom; }

  // With the top left corner at (x, y); with one colour for all when given.
  void paint(cairo_t* context, double x, double y, const Color* color) const {
    for (const Line& line : lines) {
      double penX = x + line.x;
      for (const GSList* link = line.line->runs; link; link = link->next) {
        const auto* run = static_cast<const PangoGlyphItem*>(link->data);
        cairo_new_path(context);
        cairo_move_to(context, penX, y + line.baseline);
        // Outlines may stand between the pixels, where glyph pictures would be moved onto them.
        pango_cairo_glyph_string_path(context, run->item->analysis.font, run->glyphs);
        setSource(context, color ? *color : colorAt(run->item->offset));
        cairo_fill(context);
        penX += pango_glyph_string_get_width(run->glyphs) / unit;
      }
    }
  }

 private:
  void addRuns() {
    PangoAttrList* attributes = pango_attr_list_new();
    std::string all;
    for (const TextRun& run : text.runs) {
      char* valid = g_utf8_make_valid(run.text.data(), static_cast<gssize>(run.text.size()));
      PangoFontDescription* description = describeFont(run.font);
      PangoAttribute* attribute = pango_attr_font_desc_new(description);
      pango_font_description_free(description);
      attribute->start_index = static_cast<guint>(all.size());
      all += valid;
      g_free(valid);
      attribute->end_index = static_cast<guint>(all.size());
      ends.push_back(all.size());
      pango_attr_list_insert(attributes, attribute);
    }
    pango_layout_set_text(layout.get(), all.data(), static_cast<int>(all.size()));
    pango_layout_set_attributes(layout.get(), attributes);
    pango_attr_list_unref(attributes);
  }

  PangoEllipsizeMode ellipsis() const {
    switch (text.lineBreak) {
      case LineBreak::truncateHead:
        return PANGO_ELLIPSIZE_START;
      case LineBreak::truncateMiddle:
        return PANGO_ELLIPSIZE_MIDDLE;
      case LineBreak::truncateTail:
        return PANGO_ELLIPSIZE_END;
      default:
        return PANGO_ELLIPSIZE_NONE;
    }
  }

  void collectLines(double heightLimit) {
    lines.clear();
    leftOut = false;
    if (ends.empty() || ends.back() == 0) return;
    const int lineLimit = text.lineBreak == LineBreak::clip ? 1 : text.lineLimit;
    PangoLayoutIter* iterator = pango_layout_get_iter(layout.get());
    do {
      if (lineLimit > 0 && std::ssize(lines) == lineLimit) break;
      PangoRectangle extents;
      pango_layout_iter_get_line_extents(iterator, nullptr, &extents);
      expectGlyphs(pango_layout_iter_get_line_readonly(iterator));
      const double bottom = (extents.y + extents.height) / unit;
      if (heightLimit > 0 && !lines.empty() && bottom > heightLimit + 1 / unit) {
        leftOut = true;
        break;
      }
      lines.push_back({pango_layout_iter_get_line_readonly(iterator), 0, extents.width / unit,
                       pango_layout_iter_get_baseline(iterator) / unit, bottom});
    } while (pango_layout_iter_next_line(iterator));
    pango_layout_iter_free(iterator);
  }

  double alignedStart(double available, double width) const {
    switch (text.alignment) {
      case TextAlignment::center:
        return (available - width) / 2;
      case TextAlignment::right:
        return available - width;
      case TextAlignment::left:
        break;
    }
    return 0;
  }

  Color colorAt(int offset) const {
    const auto run = std::upper_bound(ends.begin(), ends.end(), static_cast<std::size_t>(offset));
    return text.runs[std::min<std::size_t>(run - ends.begin(), text.runs.size() - 1)].color;
  }

  const Text& text;
  std::unique_ptr<PangoLayout, ObjectDeleter> layout;
  std::vector<std::size_t> ends;
  std::vector<Line> lines;
  bool leftOut = false;  // whether lines did not fit into the height
};

void paintShadow(cairo_t* context, const TextLayout& layout, CGPoint origin, CGSize size,
                 const TextShadow& shadow) {
  const CGPoint at{origin.x + shadow.offset.width, origin.y + shadow.offset.height};
  if (shadow.radius <= 0) {
    layout.paint(context, at.x, at.y, &shadow.color);
    return;
  }
  double scaleX = 1, scaleY = 0;
  cairo_user_to_device_distance(context, &scaleX, &scaleY);
  const double scale = std::hypot(scaleX, scaleY);
  if (!(scale > 0)) return;
  const double deviation = shadow.radius * scale;
  // Italics and accents overhang their line's box.
  const double margin = std::ceil(blurReach(deviation) + size.height * scale / 4) / scale;
  const Surface picture = makeImage(static_cast<int>(std::ceil((size.width + 2 * margin) * scale)),
                                    static_cast<int>(std::ceil((size.height + 2 * margin) * scale)));
  {
    const Context inside(picture.get());
    cairo_scale(inside, scale, scale);
    layout.paint(inside, margin, margin, &blackColor);
  }
  const Surface soft = blurredAlpha(picture.get(), deviation);
  const SavedState saved(context);
  cairo_translate(context, at.x - margin, at.y - margin);
  cairo_scale(context, 1 / scale, 1 / scale);
  setSource(context, shadow.color);
  cairo_mask_surface(context, soft.get(), 0, 0);
}

}  // namespace

CGSize measureText(const Text& text, CGSize limit) {
  const TextLayout layout(text, limit);
  return {layout.widest(), layout.height()};
}

void paintText(cairo_t* context, const Text& text, const CGRect& rect, VerticalPlacement placement) {
  if (!(rect.size.width > 0 && rect.size.height > 0)) return;
  const TextLayout layout(text, rect.size);
  const SavedState saved(context);
  if (text.lineBreak == LineBreak::clip) {
    cairo_rectangle(context, rect.origin.x, rect.origin.y, rect.size.width, rect.size.height);
    cairo_clip(context);
  }
  const double spare = placement == VerticalPlacement::middle ? (rect.size.height - layout.height()) / 2 : 0;
  const CGPoint origin{rect.origin.x, rect.origin.y + spare};
  if (text.shadow) paintShadow(context, layout, origin, {rect.size.width, layout.height()}, *text.shadow);
  layout.paint(context, origin.x, origin.y, nullptr);
}

}  // namespace sim
