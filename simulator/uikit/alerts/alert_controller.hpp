// UIAlertController and its actions.
#pragma once

#include "platform/uikit/alert_controller.hpp"

namespace sim::uikit {

void defineAlertController();

}  // namespace sim::uikit
