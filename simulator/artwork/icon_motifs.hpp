// Icon pictures that the icon font has no glyph for, each drawn into a square of side 1.
#pragma once

#include <cairo.h>

namespace sim {

/** The day of the simulated device's calendar: a Tuesday, the 9th. */
void drawCalendarMotif(cairo_t* context);
/** A clock face that shows nine minutes past ten. */
void drawClockMotif(cairo_t* context);
void drawNotesMotif(cairo_t* context);
void drawPhotosMotif(cairo_t* context);
void drawWeatherMotif(cairo_t* context);

}  // namespace sim
