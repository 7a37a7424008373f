// The steps of a keyboard that is plugged in.
#include "simulator/app/steps.hpp"
#include "simulator/input/typing.hpp"

namespace sim {
namespace {

void keys(Simulation&, const Step& step) { input::typeByKeyboard(step.text(0)); }

void key(Simulation&, const Step& step) {
  input::press(step.text(0) == "delete" ? input::PluggedKey::remove : input::PluggedKey::enter);
}

constexpr StepRow rows[] = {
    {"keys", keys, with(kinds::text),
     "a keyboard that is plugged in types into the field that is being edited", "0.1 s a key"},
    {"key", key, with(kinds::choice("delete|return")), "that key of it is pressed", "0.1 s"},
};

}  // namespace

StepTable keySteps() { return rows; }

}  // namespace sim
