// The invented applications of the simulated device: their names and looks.
#pragma once

#include <string>
#include <string_view>

#include "simulator/quartz/color.hpp"

namespace sim {

/** Pictures that are drawn rather than taken from the icon font. */
enum class IconMotif { glyph, calendar, clock, notes, photos, weather };

struct AppLook {
  Color top, bottom;   // of the background's gradient
  char32_t glyph = 0;  // in the icon font
  Color glyphColor = whiteColor;
  IconMotif motif = IconMotif::glyph;
};

/** How many applications of the home screen's pages have a name and look of their own. */
int appCatalogueSize();

/** Name of the home screen's application `index`, from 0; beyond the catalogue "App 46" and so on. */
std::string appName(int index);

/** Name of the dock's application `index`, from 0; beyond those with a name of their own "Dock 7" and so on.
 */
std::string dockAppName(int index);

/** The look by name. A name that is not in the catalogue gets one made of its letters, always the same. */
AppLook appLook(std::string_view name);

}  // namespace sim
