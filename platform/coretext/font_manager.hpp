// Making a font known to the whole process.
#pragma once

#include "platform/coregraphics/font.hpp"

extern "C" {
// False when the font is known already or is none; then `error`, if given, receives a CFError that the caller
// releases.
bool CTFontManagerRegisterGraphicsFont(CGFont* font, id* error);
}
