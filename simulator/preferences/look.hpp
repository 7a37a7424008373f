// How Settings looks: lengths in points, colours as people remember them of systems 9 to 12.
#pragma once

#include "platform/uikit/label.hpp"
#include "platform/uikit/screen.hpp"
#include "simulator/quartz/color.hpp"
#include "simulator/uikit/base/configuration.hpp"
#include "simulator/uikit/drawing/color.hpp"

namespace sim::preferences {

inline constexpr Color background = rgb(0xefeff4), cellColor = rgb(0xffffff), separatorColor = rgb(0xc8c7cc);
inline constexpr Color textColor = rgb(0x000000), grey = rgb(0x8e8e93), captionColor = rgb(0x6d6d72);
inline constexpr Color selectedColor = rgb(0xd9d9d9);
inline constexpr Color chevronColor = rgb(0xc7c7cc), blue = rgb(0x007aff), barColor = rgb(0xf7f7f7);
inline constexpr Color barLineColor = rgb(0xb2b2b2);

inline constexpr CGFloat rowHeight = 44, textSize = 17, captionSize = 13, barHeight = 44;
inline constexpr CGFloat largeTitleSize = 34, largeTitleHeight = 52, iconSide = 29;
inline constexpr CGFloat listWidth = 320;  // of the list at the left, on tablets

/** From 11 on the first page has a large title, and texts stand a point further in. */
inline bool isSystemEleven() { return std::stoi(uikit::configuration().systemVersion) >= 11; }

/** From the left edge to texts. */
inline CGFloat margin() {
  return isSystemEleven() || UIScreen::mainScreen().bounds().size.width >= 414 ? 16 : 15;
}
inline CGFloat pixel() { return 1 / UIScreen::mainScreen().scale(); }

inline bridge::Strong<UILabel> makeLabel(NSString text, UIFont font, const Color& color) {
  auto label = bridge::make<UILabel, &UIView::initWithFrame>(CGRect{});
  label->text.set(text);
  label->font.set(font);
  const auto ink = uikit::makeColor(color);
  label->textColor.set(ink);
  return label;
}

inline bridge::Strong<UIView> makeBox(CGRect frame, const Color& color) {
  auto box = bridge::make<UIView, &UIView::initWithFrame>(frame);
  const auto paint = uikit::makeColor(color);
  box->backgroundColor.set(paint);
  return box;
}

}  // namespace sim::preferences
