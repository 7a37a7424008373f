// UIColor.
#pragma once

#include "platform/coregraphics/color.hpp"
#include "platform/foundation/object.hpp"

// Components from 0 to 1.
struct UIColor : bridge::Face<"UIColor", NSObject> {
  static constexpr bridge::ClassMethod<"UIColor", "colorWithRed:green:blue:alpha:",
                                       UIColor(CGFloat, CGFloat, CGFloat, CGFloat)>
      colorWithRed_green_blue_alpha{};
  static constexpr bridge::ClassMethod<"UIColor", "colorWithWhite:alpha:", UIColor(CGFloat, CGFloat)>
      colorWithWhite_alpha{};
  static constexpr bridge::ClassMethod<"UIColor", "colorWithHue:saturation:brightness:alpha:",
                                       UIColor(CGFloat, CGFloat, CGFloat, CGFloat)>
      colorWithHue_saturation_brightness_alpha{};
  static constexpr bridge::ClassMethod<"UIColor", "blackColor", UIColor()> blackColor{};
  static constexpr bridge::ClassMethod<"UIColor", "darkGrayColor", UIColor()> darkGrayColor{};
  static constexpr bridge::ClassMethod<"UIColor", "lightGrayColor", UIColor()> lightGrayColor{};
  static constexpr bridge::ClassMethod<"UIColor", "whiteColor", UIColor()> whiteColor{};
  static constexpr bridge::ClassMethod<"UIColor", "grayColor", UIColor()> grayColor{};
  static constexpr bridge::ClassMethod<"UIColor", "redColor", UIColor()> redColor{};
  static constexpr bridge::ClassMethod<"UIColor", "greenColor", UIColor()> greenColor{};
  static constexpr bridge::ClassMethod<"UIColor", "blueColor", UIColor()> blueColor{};
  static constexpr bridge::ClassMethod<"UIColor", "cyanColor", UIColor()> cyanColor{};
  static constexpr bridge::ClassMethod<"UIColor", "yellowColor", UIColor()> yellowColor{};
  static constexpr bridge::ClassMethod<"UIColor", "magentaColor", UIColor()> magentaColor{};
  static constexpr bridge::ClassMethod<"UIColor", "orangeColor", UIColor()> orangeColor{};
  static constexpr bridge::ClassMethod<"UIColor", "purpleColor", UIColor()> purpleColor{};
  static constexpr bridge::ClassMethod<"UIColor", "brownColor", UIColor()> brownColor{};
  static constexpr bridge::ClassMethod<"UIColor", "clearColor", UIColor()> clearColor{};
  MESSAGE Method<"initWithRed:green:blue:alpha:", UIColor(CGFloat, CGFloat, CGFloat, CGFloat)>
      initWithRed_green_blue_alpha;
  MESSAGE Method<"initWithWhite:alpha:", UIColor(CGFloat, CGFloat)> initWithWhite_alpha;
  MESSAGE Method<"colorWithAlphaComponent:", UIColor(CGFloat)> colorWithAlphaComponent;
  // The arguments receive the components and may be null.
  MESSAGE Method<"getRed:green:blue:alpha:", BOOL(CGFloat*, CGFloat*, CGFloat*, CGFloat*)>
      getRed_green_blue_alpha;
  MESSAGE Method<"getHue:saturation:brightness:alpha:", BOOL(CGFloat*, CGFloat*, CGFloat*, CGFloat*)>
      getHue_saturation_brightness_alpha;
  MESSAGE Method<"CGColor", CGColorRef()> CGColor;  // belongs to the colour
  MESSAGE Method<"set", void()> set;                // for filling and stroking
  MESSAGE Method<"setFill", void()> setFill;
  MESSAGE Method<"setStroke", void()> setStroke;
};
