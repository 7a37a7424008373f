// UIViewController.
#pragma once

namespace sim::uikit {

void defineViewController();

}  // namespace sim::uikit
