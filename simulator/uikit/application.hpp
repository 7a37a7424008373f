// UIApplication.
#pragma once

namespace sim::uikit {

void defineApplication();

}  // namespace sim::uikit
