// The appearance proxy: values that are wanted of all objects of a class.
#pragma once

#include "bridge/runtime.hpp"

namespace sim::uikit {

/** Gives UIView its class method `appearance`. Call when UIView is defined. */
void defineAppearance();

}  // namespace sim::uikit
