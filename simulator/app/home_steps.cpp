// Icons are tapped where they are; the home button leaves the nearest thing that can be left.
#include "simulator/app/home_steps.hpp"

#include <string>

#include "platform/springboard/icon_controller.hpp"
#include "simulator/app/run_loop.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/input/find.hpp"
#include "simulator/input/fingers.hpp"
#include "simulator/springboard/applications.hpp"
#include "simulator/springboard/folder.hpp"

namespace sim {
namespace {

void launch(const std::string& name) {
  input::tap(input::findNamed(name));
  if (!springboard::shownApplication()) throw UsageError("'" + name + "' launched no application");
}

void open(const std::string& name) {
  input::tap(input::findNamed(name));
  if (!springboard::folderIsOpen()) throw UsageError("'" + name + "' is no folder");
}

void pressHome() {
  SBIconController controller = SBIconController::sharedInstance();
  if (springboard::shownApplication())
    springboard::leaveApplication();
  else if (springboard::folderIsOpen())
    springboard::closeFolder();
  else
    controller.setIsEditing(NO);
  settle();
}

void edit() {
  SBIconController::sharedInstance().setIsEditing(YES);
  settle();
}

void act(const Step& step) {
  switch (step.kind) {
    case StepKind::launch:
      return launch(step.text(0));
    case StepKind::open:
      return open(step.text(0));
    case StepKind::home:
      return pressHome();
    default:
      return edit();
  }
}

}  // namespace

void performHome(const Step& step) {
  try {
    act(step);
  } catch (const UsageError& error) {
    throw UsageError(step.place + ": " + error.what());
  }
}

}  // namespace sim
