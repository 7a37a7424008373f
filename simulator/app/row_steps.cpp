// The steps that use a row of the panel.
#include "simulator/app/row_steps.hpp"

#include <fmt/format.h>

#include <cmath>

#include "simulator/app/run_loop.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/input/find.hpp"
#include "simulator/input/fingers.hpp"
#include "simulator/input/rows.hpp"
#include "simulator/input/typing.hpp"

namespace sim {
namespace {

using input::Row;

constexpr double pauseAfterPress = 0.25;  // seconds
constexpr int slideMoves = 10;            // of the finger on its way
constexpr double mostDeviation = 1e-3;    // of the range, by which a thumb may miss its value

// Takes the thumb there in even moves, without letting time pass.
void slide(const Row& row, float value) {
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

double timesOf(const Step& step) { return step.arguments.size() > 1 ? step.number(1) : 1; }

void make(const Step& step) {
  const Row row = input::rowNamed(step.text(0));
  switch (step.kind) {
    case StepKind::increment:
      return press(row, row.plus, "plus button", timesOf(step));
    case StepKind::decrement:
      return press(row, row.minus, "minus button", timesOf(step));
    case StepKind::slide:
      return slide(row, static_cast<float>(step.number(1)));
    case StepKind::type:
      return input::typeText(editAnew(row), step.text(1));
    case StepKind::paste:
      return input::pasteText(editAnew(row), step.text(1));
    case StepKind::apply:
      return pressBarButton(row, "Apply");
    default:
      return pressBarButton(row, "Cancel");
  }
}

}  // namespace

void performRow(const Step& step) {
  try {
    make(step);
  } catch (const UsageError& error) {
    throw UsageError(step.place + ": " + error.what());
  }
}

}  // namespace sim
