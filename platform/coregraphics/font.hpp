// Fonts made of the bytes of a font file.
#pragma once

#include "bridge/runtime.hpp"

struct CGDataProvider;
struct CGFont;

// Create gives a reference away, which the matching Release takes back; null where the bytes are no font.
// Releasing null does nothing.
extern "C" {
CGDataProvider* CGDataProviderCreateWithCFData(id data);
void CGDataProviderRelease(CGDataProvider* provider);
CGFont* CGFontCreateWithDataProvider(CGDataProvider* provider);
void CGFontRelease(CGFont* font);
}
