// Icons are tapped where they are; the home button leaves the nearest thing that can be left.
#include <string>

#include "platform/springboard/icon_controller.hpp"
#include "simulator/app/steps.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/input/find.hpp"
#include "simulator/input/fingers.hpp"
#include "simulator/springboard/applications.hpp"
#include "simulator/springboard/folder.hpp"
#include "simulator/time/run_loop.hpp"

namespace sim {
namespace {

void launch(Simulation&, const Step& step) {
  const std::string& name = step.text(0);
  input::tap(input::findNamed(name));
  if (!springboard::shownApplication()) throw UsageError("'" + name + "' launched no application");
}

void open(Simulation&, const Step& step) {
  const std::string& name = step.text(0);
  input::tap(input::findNamed(name));
  if (!springboard::folderIsOpen()) throw UsageError("'" + name + "' is no folder");
}

void home(Simulation&, const Step&) {
  SBIconController controller = SBIconController::sharedInstance();
  if (springboard::shownApplication())
    springboard::leaveApplication();
  else if (springboard::folderIsOpen())
    springboard::closeFolder();
  else
    controller.setIsEditing(NO);
  settle();
}

void edit(Simulation&, const Step&) {
  SBIconController::sharedInstance().setIsEditing(YES);
  settle();
}

constexpr StepRow rows[] = {
    {"launch", launch, with(kinds::name), "taps the icon; the application opens while time passes", "0.05 s"},
    {"open", open, with(kinds::name), "taps the folder, which opens while time passes", "0.05 s"},
    {"home", home, with(), "the home button: leaves the application, closes the folder, or ends editing",
     "none"},
    {"edit", edit, with(), "the home screen's editing mode, until `home`", "none"},
};

}  // namespace

StepTable homeSteps() { return rows; }

}  // namespace sim
