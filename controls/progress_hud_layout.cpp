// Where indicator and texts go, and how large the box around them is.
#include <algorithm>
#include <cmath>

#include "controls/progress_hud_parts.hpp"
#include "platform/uikit/string_drawing.hpp"

namespace tilo::hud {
namespace {

CGFloat roundedUp(CGFloat length) {
  const CGFloat whole = static_cast<CGFloat>(static_cast<int>(length));
  return whole < length ? whole + 1 : whole;
}

// Of lengths below zero too.
CGFloat rounded(CGFloat length) {
  return static_cast<CGFloat>(static_cast<int>(length + std::copysign(CGFloat{0.5f}, length)));
}

// The room that a label's text takes, at most `room`. Texts wrap: a notice is to be read, not guessed.
CGSize measure(UILabel label, CGSize room) {
  NSString text = label.text();
  if (text.length() == 0) return {};
  const NSDictionary attributes =
      NSDictionary::dictionaryWithObject_forKey(label.font(), bridge::as<NSString>(NSFontAttributeName));
  const CGRect rect =
      bridge::as<NSExtendedStringDrawing>(text).boundingRectWithSize_options_attributes_context(
          room, NSStringDrawingUsesLineFragmentOrigin, attributes, {});
  return {std::min(roundedUp(rect.size.width), room.width),
          std::min(roundedUp(rect.size.height), room.height)};
}

// Views one below the other.
class Column {
 public:
  // Nothing takes no room, and no padding either.
  void add(UIView view, CGSize size) {
    if (size.width > 0 && size.height > 0) {
      if (total.height > 0) total.height += padding;
      total = {std::max(total.width, size.width), total.height + size.height};
    }
    views[count] = view;
    sizes[count++] = size;
  }

  CGSize size() const { return total; }

  void place(CGPoint middle) const {
    CGFloat y = rounded(middle.y - total.height / 2);
    for (int i = 0; i < count; ++i) {
      const CGSize size = sizes[i];
      UIView view = views[i];
      if (!(view.bounds().size == size)) view.bounds.set({{0, 0}, size});
      view.center.set({rounded(middle.x - size.width / 2) + size.width / 2, y + size.height / 2});
      if (size.width > 0 && size.height > 0) y += size.height + padding;
    }
  }

 private:
  CGSize total{};
  UIView views[3];
  CGSize sizes[3];
  int count = 0;
};

CGSize boxAround(CGSize content, CGSize room, RQProgressHUD self) {
  const CGFloat margin = static_cast<CGFloat>(self.margin());
  CGSize box{content.width + 2 * margin, content.height + 2 * margin};
  if (self.square()) {
    const CGFloat side = std::max(box.width, box.height);
    // The view's own margins come before the square.
    box.width = std::max(box.width, std::min(side, room.width - 2 * margin));
    box.height = std::max(box.height, std::min(side, room.height - 2 * margin));
  }
  const CGSize minimum = self.minSize();
  return {std::max(box.width, minimum.width), std::max(box.height, minimum.height)};
}

}  // namespace

void layoutSubviews(RQProgressHUD self) {
  HUDState& state = HUD::state(self);
  const CGRect bounds = self.bounds();
  const CGFloat margin = static_cast<CGFloat>(self.margin());
  const CGSize room{std::max<CGFloat>(bounds.size.width - 4 * margin, 0),
                    std::max<CGFloat>(bounds.size.height - 4 * margin, 0)};

  Column column;
  if (state.indicator) column.add(state.indicator, state.indicator->bounds().size);
  column.add(state.label, measure(state.label, room));
  const CGSize rest{room.width, std::max<CGFloat>(room.height - column.size().height - padding, 0)};
  column.add(state.detailsLabel, measure(state.detailsLabel, rest));
  column.place({bounds.origin.x + bounds.size.width / 2 + static_cast<CGFloat>(self.xOffset()),
                bounds.origin.y + bounds.size.height / 2 + static_cast<CGFloat>(self.yOffset())});

  const CGSize box = boxAround(column.size(), bounds.size, self);
  if (box == state.size) return;
  state.size = box;
  self.setNeedsDisplay();
}

}  // namespace tilo::hud
