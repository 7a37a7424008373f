// Rows of a page of numbers: a caption, and below it a slider with a button at either end and a number field.
#pragma once

#include <string>
#include <string_view>

#include "platform/uikit/button.hpp"
#include "platform/uikit/slider.hpp"
#include "platform/uikit/text_field.hpp"

namespace sim::product {

/** What a row is made of; a part that it has not is nothing. Borrowed. */
struct Row {
  std::string caption;
  UISlider slider;
  UIButton minus, plus;  // at the left and the right end of the slider, or without one
  UITextField field;
};

/**
 * The row whose caption is that, the frontmost one of several, laid out. Throws UsageError when there is
 * none.
 */
Row rowNamed(std::string_view caption);

/**
 * Where to put a finger for a part of a row, in points of the screen: its middle. Throws UsageError that
 * names row and part when the row has no such part, and when something is in the finger's way.
 */
CGPoint placeOf(const Row& row, UIView part, std::string_view name);
/** The same for the thumb, where it stands or would stand for another value. */
CGPoint placeOfThumb(const Row& row);
CGPoint placeOfThumb(const Row& row, float value);

}  // namespace sim::product
