// UILabel.
#include "platform/uikit/label.hpp"

#include <algorithm>
#include <cmath>

#include "bridge/define.hpp"
#include "simulator/quartz/text.hpp"
#include "simulator/uikit/base/configuration.hpp"
#include "simulator/uikit/drawing/color.hpp"
#include "simulator/uikit/drawing/drawing_context.hpp"
#include "simulator/uikit/text/font.hpp"
#include "simulator/uikit/views/view.hpp"

namespace sim::uikit {
namespace {

using bridge::Strong;

struct LabelState {
  Strong<NSString> text;  // a copy
  Strong<UIFont> font;
  Strong<UIColor> textColor, shadowColor;
  CGSize shadowOffset{0, -1};
  NSInteger textAlignment = NSTextAlignmentNatural;
  NSInteger lineBreakMode = NSLineBreakByTruncatingTail;
  NSInteger numberOfLines = 1;
};

using LabelClass = bridge::Implementation<UILabel, LabelState>;

struct Copied : bridge::Face<"NSString", NSObject> {
  MESSAGE Method<"copy", NSString()> copy;
};

TextAlignment alignmentOf(NSInteger alignment) {
  switch (alignment) {
    case NSTextAlignmentCenter:
      return TextAlignment::center;
    case NSTextAlignmentRight:
      return TextAlignment::right;
    default:  // natural is left in the languages that the simulator speaks
      return TextAlignment::left;
  }
}

LineBreak lineBreakOf(NSInteger mode) {
  switch (mode) {
    case NSLineBreakByWordWrapping:
      return LineBreak::wordWrap;
    case NSLineBreakByCharWrapping:
      return LineBreak::characterWrap;
    case NSLineBreakByClipping:
      return LineBreak::clip;
    case NSLineBreakByTruncatingHead:
      return LineBreak::truncateHead;
    case NSLineBreakByTruncatingMiddle:
      return LineBreak::truncateMiddle;
    default:
      return LineBreak::truncateTail;
  }
}

Text textOf(UILabel self) {
  const LabelState& state = LabelClass::state(self);
  Text text{.runs = {},
            .alignment = alignmentOf(state.textAlignment),
            .lineBreak = lineBreakOf(state.lineBreakMode),
            .lineLimit = static_cast<int>(std::max<NSInteger>(state.numberOfLines, 0))};
  if (state.text)
    text.runs.push_back({state.text->UTF8String(), fontOf(state.font), colorOf(self.textColor())});
  // Faint text casts a faint shadow; one that lies right behind the text is not drawn.
  if (state.shadowColor && !(state.shadowOffset == CGSize{})) {
    const Color color = colorOf(state.shadowColor);
    const double alpha = color.alpha * colorOf(self.textColor()).alpha;
    text.shadow = TextShadow{withAlpha(color, alpha), state.shadowOffset};
  }
  return text;
}

// What is shown is out of date.
void changed(UILabel self) { self.setNeedsDisplay(); }

NSString text(UILabel self) { return LabelClass::state(self).text; }

void setText(UILabel self, NSString text) {
  LabelClass::state(self).text = bridge::as<Copied>(text).copy();
  changed(self);
}

UIFont font(UILabel self) {
  Strong<UIFont>& font = LabelClass::state(self).font;
  if (!font) font = retained(UIFont::systemFontOfSize(17));
  return font;
}

void setFont(UILabel self, UIFont font) {
  LabelClass::state(self).font = retained(font);
  changed(self);
}

UIColor textColor(UILabel self) {
  const Strong<UIColor>& color = LabelClass::state(self).textColor;
  return color ? color.get() : UIColor::blackColor();
}

void setTextColor(UILabel self, UIColor color) {
  LabelClass::state(self).textColor = retained(color);
  changed(self);
}

Strong<UIView> initWithFrame(UILabel self, CGRect frame) {
  auto made = LabelClass::super<&UIView::initWithFrame>(self, frame);
  made->userInteractionEnabled.set(NO);
  made->contentMode.set(UIViewContentModeRedraw);
  return made;
}

void drawRect(UILabel self, CGRect) { drawText(currentContext(), textOf(self), self.bounds()); }

// Whole pixels, so that the text is never cut by a fraction of one.
CGSize sizeThatFits(UILabel self, CGSize limit) {
  const Text text = textOf(self);
  // A single line asks for all the room it needs.
  const CGSize room = measureText(text, text.lineLimit == 1 ? CGSize{} : limit);
  const double scale = configuration().scale;
  auto up = [scale](double length) { return std::ceil(length * scale - 1e-6) / scale; };
  return {up(room.width), up(room.height)};
}

}  // namespace

void defineLabel() {
  using bridge::method;
  LabelClass::define<UIView>(
      method<&UIView::initWithFrame, initWithFrame>(), method<&UIView::drawRect, drawRect>(),
      method<&UIView::sizeThatFits, sizeThatFits>(), bridge::property<&UILabel::text, text, setText>(),
      bridge::property<&UILabel::font, font, setFont>(),
      bridge::property<&UILabel::textColor, textColor, setTextColor>(),
      LabelClass::property<&UILabel::shadowColor, &LabelState::shadowColor, changed>(),
      LabelClass::property<&UILabel::shadowOffset, &LabelState::shadowOffset, changed>(),
      LabelClass::property<&UILabel::textAlignment, &LabelState::textAlignment, changed>(),
      LabelClass::property<&UILabel::lineBreakMode, &LabelState::lineBreakMode, changed>(),
      LabelClass::property<&UILabel::numberOfLines, &LabelState::numberOfLines, changed>());
}

}  // namespace sim::uikit
