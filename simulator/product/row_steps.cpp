// The steps that use a row of the panel.
#include <fmt/format.h>

#include <cmath>
#include <limits>

#include "simulator/device/usage_error.hpp"
#include "simulator/input/find.hpp"
#include "simulator/input/fingers.hpp"
#include "simulator/input/typing.hpp"
#include "simulator/product/product.hpp"
#include "simulator/product/rows.hpp"
#include "simulator/time/run_loop.hpp"

namespace sim::product {
namespace {

constexpr double pauseAfterPress = 0.25;  // seconds
constexpr int slideMoves = 10;            // of the finger on its way
constexpr double mostDeviation = 1e-3;    // of the range, by which a thumb may miss its value

// Takes the thumb there in even moves, without letting time pass.
void slideTo(const Row& row, float value) {
  if (!row.slider) placeOf(row, row.slider, "slider");  // which says so
  const float minimum = row.slider.minimumValue(), maximum = row.slider.maximumValue();
  if (value < minimum || value > maximum)
    throw UsageError(
        fmt::format("\"{}\" goes from {} to {}, not to {}", row.caption, minimum, maximum, value));
  const CGPoint from = placeOfThumb(row), to = placeOfThumb(row, value);
  input::dragAtOnce(from, to, slideMoves);
  if (std::abs(row.slider.value() - value) > mostDeviation * (maximum - minimum))
    throw UsageError(fmt::format("the thumb of \"{}\" does not go to {}", row.caption, value));
}

// A finger presses, and waits before it presses again.
void press(const Row& row, UIView button, const char* name, double times) {
  for (int i = 0; i < times; ++i) {
    input::tap(placeOf(row, button, name));
    letPass(pauseAfterPress);
  }
}

std::string fieldName(const Row& row) { return fmt::format("the number field of \"{}\"", row.caption); }

// Into the row's field, empty.
UITextField editAnew(const Row& row) {
  if (!row.field) placeOf(row, row.field, "number field");  // which says so
  input::edit(row.field, fieldName(row));
  input::deleteText(row.field);
  return row.field;
}

// A button of the bar above the keyboard, while the row's field is edited.
void pressBarButton(const Row& row, std::string_view title) {
  if (!row.field || !row.field.isFirstResponder())
    throw UsageError(fmt::format("{} is not being edited", fieldName(row)));
  input::tapAtOnce(input::findNamed(title));
}

double timesOf(const Step& step) { return step.has(1) ? step.number(1) : 1; }

Row rowOf(const Step& step) { return rowNamed(step.text(0)); }

void increment(Simulation&, const Step& step) {
  const Row row = rowOf(step);
  press(row, row.plus, "plus button", timesOf(step));
}

void decrement(Simulation&, const Step& step) {
  const Row row = rowOf(step);
  press(row, row.minus, "minus button", timesOf(step));
}

void slide(Simulation&, const Step& step) { slideTo(rowOf(step), static_cast<float>(step.number(1))); }

void type(Simulation&, const Step& step) { input::typeText(editAnew(rowOf(step)), step.text(1)); }

void paste(Simulation&, const Step& step) { input::pasteText(editAnew(rowOf(step)), step.text(1)); }

void apply(Simulation&, const Step& step) { pressBarButton(rowOf(step), "Apply"); }

void cancel(Simulation&, const Step& step) { pressBarButton(rowOf(step), "Cancel"); }

constexpr Kind times = kinds::whole("TIMES", 1, 10000);
constexpr double mostValue = std::numeric_limits<float>::max();
constexpr Kind value = kinds::number("VALUE", -mostValue, mostValue);

constexpr StepRow rows[] = {
    {"increment", increment, with(kinds::name),
     "presses the plus button of the row with that caption, of the panel or of Settings", "0.3 s each",
     with(kinds::name, times)},
    {"decrement", decrement, with(kinds::name), "the minus button", "0.3 s each", with(kinds::name, times)},
    {"slide", slide, with(kinds::name, value), "a finger drags the row's thumb to that value, in ten moves",
     "none"},
    {"type", type, with(kinds::name, kinds::text),
     "taps the row's number field, empties it with the delete key and presses a key for each character, "
     "those that lead to other keys included; what the keyboard lacks comes as from one that is plugged in",
     "0.1 s a key"},
    {"paste", paste, with(kinds::name, kinds::text),
     "the same, but the text comes from the pasteboard at once", "0.1 s a deletion"},
    {"apply", apply, with(kinds::name),
     "presses that button above the keyboard, while the row's number field is edited", "none"},
    {"cancel", cancel, with(kinds::name), "likewise", "none"},
};

}  // namespace

StepTable rowSteps() { return rows; }

}  // namespace sim::product
