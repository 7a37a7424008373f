// SpringBoard's chevrons and close boxes. Each class took another name in a later system.
#pragma once

#include "platform/uikit/color.hpp"
#include "platform/uikit/control.hpp"

// A chevron in one colour, up to 9.x; then SBUIChevronView.
struct SBChevronView : bridge::Face<"SBChevronView", UIView> {
  MESSAGE Method<"initWithColor:", SBChevronView(UIColor)> initWithColor;
};
struct SBUIChevronView : bridge::Face<"SBUIChevronView", SBChevronView> {};

// A round button with a cross, up to 10.x; then SBXCloseBoxView.
struct SBCloseBoxView : bridge::Face<"SBCloseBoxView", UIControl> {};
struct SBXCloseBoxView : bridge::Face<"SBXCloseBoxView", SBCloseBoxView> {};
