// UIFont.
#pragma once

#include <string>

#include "bridge/strong.hpp"
#include "platform/uikit/font.hpp"
#include "simulator/quartz/fonts.hpp"

namespace sim::uikit {

/** The system font at its usual size for nil. */
Font fontOf(UIFont font);

/**
 * Makes a font known to fontWithName:size: under a name, as registering its file does on the device. The
 * family is one that the pictures know.
 */
void registerFont(const std::string& name, const std::string& family);

}  // namespace sim::uikit
