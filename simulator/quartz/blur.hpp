// Soft edges for shadows.
#pragma once

#include "simulator/quartz/surface.hpp"

namespace sim {

/** How far beyond a shape a blur of this standard deviation reaches, in the same unit. */
double blurReach(double deviation);

/**
 * The alpha of an ARGB32 image, blurred, as an A8 image of the same size. Three box blurs stand for a
 * Gaussian of the given standard deviation (pixels); outside the image counts as clear. Not to be painted on:
 * the last few are kept.
 */
Surface blurredAlpha(cairo_surface_t* image, double deviation);

}  // namespace sim
