// Icon pictures that the icon font has no glyph for, each drawn into a square of side 1.
#pragma once

#include <cairo.h>

#include <chrono>

namespace sim {

/** The day of the week and of the month. */
void drawCalendarMotif(cairo_t* context, std::chrono::sys_days today);
/** A clock face that shows nine minutes past ten. */
void drawClockMotif(cairo_t* context);
void drawNotesMotif(cairo_t* context);
void drawPhotosMotif(cairo_t* context);
void drawWeatherMotif(cairo_t* context);

}  // namespace sim
