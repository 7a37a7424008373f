// One key of the keyboard: a cap in the middle of the area in which a finger hits it.
#include "simulator/uikit/text/keyboard_key.hpp"

#include <algorithm>
#include <cmath>

#include "bridge/define.hpp"
#include "platform/uikit/label.hpp"
#include "simulator/quartz/color.hpp"
#include "simulator/quartz/shapes.hpp"
#include "simulator/quartz/surface.hpp"
#include "simulator/uikit/drawing/color.hpp"
#include "simulator/uikit/drawing/drawing_context.hpp"

namespace sim::uikit {
namespace {

using bridge::Strong;

// Points, as of a phone held upright; those of larger keys grow with them.
constexpr double sideMargin = 3, topMargin = 8, bottomMargin = 4, usualHeight = 54;
constexpr double cornerRadius = 5, edge = 1;
constexpr double letterSize = 22.5, wordSize = 16, glyphSize = 20, glyphLine = 1.5;

struct Colors {
  Color cap, pressed, text, edge;
};

constexpr Color blue = rgb(0x007aff);
constexpr Colors light{rgb(0xffffff), rgb(0xacb3bd), blackColor, rgb(0x898a8d)};
constexpr Colors lightSpecial{rgb(0xacb3bd), rgb(0xffffff), blackColor, rgb(0x898a8d)};
constexpr Colors dark{rgb(0x6a6a6c), rgb(0x464648), whiteColor, rgb(0x1c1c1d)};
constexpr Colors darkSpecial{rgb(0x464648), rgb(0x6a6a6c), whiteColor, rgb(0x1c1c1d)};
constexpr Colors prominent{blue, rgb(0xffffff), whiteColor, rgb(0x898a8d)};
constexpr double disabledAlpha = 0.4;  // of what is written on it

struct KeyView : bridge::Face<"UIKBKeyView", UIControl> {};

struct KeyState {
  Key key;
  Colors colors;
  Strong<UILabel> label;
  void (*pressed)(const Key& key) = nullptr;
};

using KeyClass = bridge::Implementation<KeyView, KeyState>;

bool isSpecial(KeyKind kind) { return kind != KeyKind::text && kind != KeyKind::space; }
bool isGlyph(KeyKind kind) {
  return kind == KeyKind::shift || kind == KeyKind::remove || kind == KeyKind::hide;
}

CGRect capRect(KeyView self) {
  const CGSize size = self.bounds().size;
  const double scale = std::min(size.height / usualHeight, 1.4);
  return {{sideMargin * scale, topMargin * scale},
          {size.width - 2 * sideMargin * scale, size.height - (topMargin + bottomMargin) * scale}};
}

Color inkOf(KeyView self) {
  const Color ink = KeyClass::state(self).colors.text;
  return self.enabled() ? ink : withAlpha(ink, disabledAlpha);
}

void layoutSubviews(KeyView self) {
  const KeyState& state = KeyClass::state(self);
  self.setNeedsDisplay();
  if (!state.label) return;
  const auto ink = makeColor(inkOf(self));
  state.label->frame.set(capRect(self));
  state.label->textColor.set(ink);
}

void polygon(cairo_t* context, std::initializer_list<CGPoint> points) {
  cairo_new_path(context);
  for (const CGPoint& point : points) cairo_line_to(context, point.x, point.y);
  cairo_close_path(context);
}

void drawCross(cairo_t* context, double x, double arm) {
  for (const double side : {-1.0, 1.0}) {
    cairo_move_to(context, x - arm, -side * arm);
    cairo_line_to(context, x + arm, side * arm);
  }
  cairo_stroke(context);
}

// The glyphs are drawn about the origin, within 20 points.
void drawGlyph(cairo_t* context, const Key& key) {
  cairo_set_line_width(context, glyphLine);
  cairo_set_line_join(context, CAIRO_LINE_JOIN_ROUND);
  if (key.kind == KeyKind::shift) {
    polygon(context, {{0, -9}, {9, 1}, {4, 1}, {4, 8}, {-4, 8}, {-4, 1}, {-9, 1}});
    // Filled while it holds.
    key.page == KeyboardPage::letters ? cairo_fill(context) : cairo_stroke(context);
  } else if (key.kind == KeyKind::remove) {
    polygon(context, {{-11, 0}, {-4, -8}, {10, -8}, {10, 8}, {-4, 8}});
    cairo_stroke(context);
    drawCross(context, 3, 3);
  } else {
    addRoundedRect(context, {{-10, -8}, {20, 11}}, 2);
    cairo_stroke(context);
    polygon(context, {{-4, 6}, {4, 6}, {0, 10}});
    cairo_fill(context);
  }
}

void drawRect(KeyView self, CGRect) {
  const KeyState& state = KeyClass::state(self);
  cairo_t* const context = currentContext();
  const CGRect cap = capRect(self);
  addRoundedRect(context, {{cap.origin.x, cap.origin.y + edge}, cap.size}, cornerRadius);
  setSource(context, state.colors.edge);
  cairo_fill(context);
  addRoundedRect(context, cap, cornerRadius);
  setSource(context, self.highlighted() ? state.colors.pressed : state.colors.cap);
  cairo_fill(context);
  if (!isGlyph(state.key.kind)) return;
  const SavedState saved(context);
  cairo_translate(context, std::round(cap.origin.x + cap.size.width / 2),
                  std::round(cap.origin.y + cap.size.height / 2));
  const double scale = std::min({1.0, cap.size.width / (1.3 * glyphSize), cap.size.height / glyphSize});
  cairo_scale(context, scale, scale);
  setSource(context, inkOf(self));
  drawGlyph(context, state.key);
}

void endTracking(KeyView self, UITouch, UIEvent) {
  const Key key = KeyClass::state(self).key;
  if (self.isTouchInside()) KeyClass::state(self).pressed(key);
}

Strong<UILabel> makeLabel(const Key& key) {
  auto label = bridge::make<UILabel, &UIView::initWithFrame>(CGRect{});
  const bool isWord = key.kind != KeyKind::text;
  label->text.set(NSString::stringWithUTF8String(key.text.c_str()));
  label->font.set(UIFont::systemFontOfSize(isWord ? wordSize : letterSize));
  label->textAlignment.set(NSTextAlignmentCenter);
  return label;
}

Colors colorsOf(const Key& key, bool isDark, bool isProminent) {
  if (isProminent) return prominent;
  if (isDark) return isSpecial(key.kind) ? darkSpecial : dark;
  return isSpecial(key.kind) ? lightSpecial : light;
}

}  // namespace

const Key& keyOf(UIControl key) { return KeyClass::state(bridge::as<KeyView>(key)).key; }

Strong<UIControl> makeKey(const Key& key, bool isDark, bool isProminent, void (*pressed)(const Key& key)) {
  auto view = bridge::make<KeyView, &UIView::initWithFrame>(key.frame);
  KeyState& state = KeyClass::state(view.get());
  state.key = key;
  state.colors = colorsOf(key, isDark, isProminent);
  state.pressed = pressed;
  if (!isGlyph(key.kind)) {
    state.label = makeLabel(key);
    view->addSubview(state.label);
  }
  return view;
}

void defineKeyboardKey() {
  using bridge::method;
  KeyClass::define<UIControl>(method<&UIView::layoutSubviews, layoutSubviews>(),
                              method<&UIView::drawRect, drawRect>(),
                              method<&UIControl::endTrackingWithTouch_withEvent, endTracking>());
}

}  // namespace sim::uikit
