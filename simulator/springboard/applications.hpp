// Applications on screen.
#pragma once

#include "platform/springboard/icon.hpp"
#include "platform/springboard/ui_controller.hpp"

namespace sim::springboard {

// What an icon launches.
bridge::Strong<SBApplication> applicationOf(SBIcon icon);

// The application on screen; nil when there is none.
SBApplication shownApplication();

// The home button: the application leaves the screen.
void leaveApplication();

// How long an application takes to cover the screen, or to leave it.
inline constexpr double launchDuration = 0.4;  // seconds

void defineApplications();

}  // namespace sim::springboard
