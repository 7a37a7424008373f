// The simulated device's fonts: a private set, so that the fonts and settings of the machine change no
// picture.
#pragma once

#include <cairo.h>

#include <string>

#include "platform/coregraphics/geometry.hpp"
#include "simulator/quartz/color.hpp"

typedef struct _PangoContext PangoContext;
typedef struct _PangoLayoutLine PangoLayoutLine;
typedef struct _PangoFontDescription PangoFontDescription;

namespace sim {

/**
 * Names of the two families that are there from the start; any other is shown in the system family, unless it
 * was added. The icon family is for glyphs alone: a text has it when the device was given the font.
 */
inline constexpr char systemFontFamily[] = "Inter";
inline constexpr char iconFontFamily[] = "FontAwesome";

/** Values as in font files. */
enum class FontWeight {
  thin = 100,
  ultraLight = 200,
  light = 300,
  regular = 400,
  medium = 500,
  semibold = 600,
  bold = 700,
  heavy = 800,
  black = 900
};

struct Font {
  double size = 17;  // points
  FontWeight weight = FontWeight::regular;
  std::string family = systemFontFamily;
  bool italic = false;
  bool operator==(const Font&) const = default;
};

/** In points; the descent is positive. */
struct FontMetrics {
  double ascent, descent, lineHeight;
  double capHeight, xHeight;  // of "H" and "x" as drawn
};

FontMetrics fontMetrics(const Font& font);

/** Whether the font itself, without any fallback, can show the character. */
bool fontHasCharacter(const Font& font, char32_t character);

/**
 * Draws one character so that what is inked of it lies in the middle of the rectangle (points). It has the
 * font's size, or less where that would not fit. Throws std::runtime_error where the font has nothing to
 * show.
 */
void drawGlyph(cairo_t* context, char32_t character, const Font& font, const CGRect& rect,
               const Color& color);

/** UTF-8 of one character. */
std::string utf8(char32_t character);

/**
 * Reads the files of the fonts for texts, so that processes which are forked from this one need not: it is a
 * fifth of a short script's run. Nothing of Pango's is made, whose threads no fork takes along. Throws as
 * textContext does.
 */
void readFonts();

/**
 * Pango's context over the private fonts, with hinting off. Borrowed; lives as long as the program. Throws
 * std::runtime_error that names the file of the first font that is not installed, and its package.
 */
PangoContext* textContext();

/** Lets texts be shown in the family of a font file, which must stay as long as the program. */
void addTextFont(const std::string& file, const std::string& family);

/** Throws std::runtime_error where a font's glyphs could not be read: Pango takes them for empty then. */
void expectGlyphs(const PangoLayoutLine* line);

/** Pango's description of a font for texts; the caller frees it. */
PangoFontDescription* describeFont(const Font& font);

}  // namespace sim
