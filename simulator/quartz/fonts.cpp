// The private set of fonts, found where their Debian packages put them.
#include "simulator/quartz/fonts.hpp"

#include <fmt/format.h>
#include <fontconfig/fontconfig.h>
#include <pango/pangocairo.h>
#include <pango/pangofc-fontmap.h>

#include <algorithm>
#include <memory>
#include <set>
#include <stdexcept>

#include "simulator/quartz/surface.hpp"
#include "simulator/quartz/text_pictures.hpp"

namespace sim {
namespace {

constexpr char fallbackFamily[] = "DejaVu Sans";

struct DescriptionDeleter {
  void operator()(PangoFontDescription* description) const { pango_font_description_free(description); }
};
struct ObjectDeleter {
  void operator()(gpointer object) const { g_object_unref(object); }
};
using Description = std::unique_ptr<PangoFontDescription, DescriptionDeleter>;
using FontHandle = std::unique_ptr<PangoFont, ObjectDeleter>;
using Layout = std::unique_ptr<PangoLayout, ObjectDeleter>;

void addFont(FcConfig* config, const std::string& file, const char* package) {
  if (!FcConfigAppFontAddFile(config, reinterpret_cast<const FcChar8*>(file.c_str()))) {
    throw std::runtime_error(
        fmt::format("font {} cannot be read: is the package {} installed?", file, package));
  }
}

// Built in memory from single files: no settings are read and no cache is written.
FcConfig* makeTextFonts() {
  FcConfig* config = FcConfigCreate();
  for (const char* style : {"Thin", "ExtraLight", "Light", "Regular", "Medium", "SemiBold", "Bold",
                            "ExtraBold", "Black", "Italic", "MediumItalic", "SemiBoldItalic", "BoldItalic"}) {
    addFont(config, fmt::format("/usr/share/fonts/opentype/inter/Inter-{}.otf", style), "fonts-inter");
  }
  addFont(config, "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf", "fonts-dejavu-core");
  addFont(config, "/usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf", "fonts-dejavu-core");
  return config;
}

FcConfig* textFonts() {
  static FcConfig* fonts = makeTextFonts();
  return fonts;
}

// A set of its own, so that no text finds an icon in it.
FcConfig* iconFonts() {
  FcConfig* config = FcConfigCreate();
  addFont(config, "/usr/share/fonts/opentype/font-awesome/FontAwesome.otf", "fonts-font-awesome");
  return config;
}

// Never given back: a thread of Pango's may still be reading the fonts when the program ends.
PangoContext* makeContext(FcConfig* config) {
  PangoFontMap* map = pango_cairo_font_map_new_for_font_type(CAIRO_FONT_TYPE_FT);
  pango_fc_font_map_set_config(PANGO_FC_FONT_MAP(map), config);
  PangoContext* context = pango_font_map_create_context(map);
  // Else Pango and fontconfig take the language from the environment, and with it another fallback.
  pango_context_set_language(context, pango_language_from_string("en"));
  pango_context_set_base_dir(context, PANGO_DIRECTION_LTR);
  pango_context_set_round_glyph_positions(context, FALSE);
  cairo_font_options_t* options = cairo_font_options_create();
  cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
  cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
  cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
  pango_cairo_context_set_font_options(context, options);
  cairo_font_options_destroy(options);
  return context;
}

// Families that were added, beside the system's.
std::set<std::string>& addedFamilies() {
  static auto& families = *new std::set<std::string>();
  return families;
}

PangoContext* makeTextContext() {
  FcConfig* config = textFonts();
  // As the process's own as well: Pango initialises fontconfig, which would otherwise load the machine's.
  FcConfigSetCurrent(config);
  return makeContext(config);
}

PangoContext* iconContext() {
  static PangoContext* context = makeContext(iconFonts());
  return context;
}

Description describe(const Font& font, const std::string& families) {
  Description description(pango_font_description_new());
  pango_font_description_set_family(description.get(), families.c_str());
  // Point sizes as user units, whatever the resolution.
  pango_font_description_set_absolute_size(description.get(), std::max(font.size, 0.1) * PANGO_SCALE);
  pango_font_description_set_weight(description.get(), static_cast<PangoWeight>(font.weight));
  pango_font_description_set_style(description.get(), font.italic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
  return description;
}

// For single glyphs, which may be icons.
PangoContext* glyphContext(const Font& font) {
  PangoContext* texts = textContext();  // first: it keeps fontconfig from the machine's fonts
  return font.family == iconFontFamily ? iconContext() : texts;
}

Description describeGlyph(const Font& font) {
  return font.family == iconFontFamily ? describe(font, iconFontFamily) : Description(describeFont(font));
}

FontHandle load(const Font& font) {
  const Description description = describeGlyph(font);
  FontHandle loaded(pango_context_load_font(glyphContext(font), description.get()));
  if (!loaded) throw std::runtime_error(fmt::format("font {} cannot be loaded", font.family));
  return loaded;
}

Layout layoutOf(char32_t character, const Font& font) {
  Layout layout(pango_layout_new(glyphContext(font)));
  const Description description = describeGlyph(font);
  pango_layout_set_font_description(layout.get(), description.get());
  pango_layout_set_text(layout.get(), utf8(character).c_str(), -1);
  return layout;
}

// Size, in points, at which glyphs are measured: Pango counts in 1/1024 of a point, coarse for a small glyph.
constexpr double measuringSize = 100;

Font atMeasuringSize(Font font) {
  font.size = measuringSize;
  return font;
}

// The box of what is inked, relative to the start of the baseline, with y growing downwards.
CGRect inkBox(PangoLayout* layout) {
  PangoRectangle ink;
  PangoLayoutLine* const line = pango_layout_get_line_readonly(layout, 0);
  pango_layout_line_get_extents(line, &ink, nullptr);
  expectGlyphs(line);
  constexpr double unit = PANGO_SCALE;
  return {{ink.x / unit, ink.y / unit}, {ink.width / unit, ink.height / unit}};
}

double heightAboveBaseline(char32_t character, const Font& font) {
  const Layout layout = layoutOf(character, atMeasuringSize(font));
  return -inkBox(layout.get()).origin.y * font.size / measuringSize;
}

}  // namespace

void readFonts() { textFonts(); }

PangoContext* textContext() {
  static PangoContext* context = makeTextContext();
  return context;
}

void addTextFont(const std::string& file, const std::string& family) {
  PangoFontMap* map = pango_context_get_font_map(textContext());
  FcConfigAppFontAddFile(pango_fc_font_map_get_config(PANGO_FC_FONT_MAP(map)),
                         reinterpret_cast<const FcChar8*>(file.c_str()));
  pango_fc_font_map_config_changed(PANGO_FC_FONT_MAP(map));
  forgetTextPictures();
  addedFamilies().insert(family);
}

// What an added family lacks is the system family's.
PangoFontDescription* describeFont(const Font& font) {
  std::string families = systemFontFamily;
  if (font.family == fallbackFamily) families = fallbackFamily;
  if (addedFamilies().contains(font.family)) families = font.family + "," + systemFontFamily;
  return describe(font, families).release();
}

FontMetrics fontMetrics(const Font& font) {
  const FontHandle loaded = load(font);
  PangoFontMetrics* metrics = pango_font_get_metrics(loaded.get(), nullptr);
  constexpr double unit = PANGO_SCALE;
  FontMetrics result{};
  result.ascent = pango_font_metrics_get_ascent(metrics) / unit;
  result.descent = pango_font_metrics_get_descent(metrics) / unit;
  result.lineHeight = pango_font_metrics_get_height(metrics) / unit;
  pango_font_metrics_unref(metrics);
  result.capHeight = heightAboveBaseline(U'H', font);
  result.xHeight = heightAboveBaseline(U'x', font);
  return result;
}

bool fontHasCharacter(const Font& font, char32_t character) {
  return pango_font_has_char(load(font).get(), character);
}

void drawGlyph(cairo_t* context, char32_t character, const Font& font, const CGRect& rect,
               const Color& color) {
  const Layout layout = layoutOf(character, atMeasuringSize(font));
  const CGRect ink = inkBox(layout.get());
  // Whoever wants a glyph wants to see it; one that could not be read is empty.
  if (ink.size.width <= 0 || ink.size.height <= 0)
    throw std::runtime_error(fmt::format("font {} shows nothing for U+{:04X}", font.family,
                                         static_cast<std::uint32_t>(character)));
  const double factor = std::min<double>(
      {font.size / measuringSize, rect.size.width / ink.size.width, rect.size.height / ink.size.height});
  if (!(factor > 0)) return;
  const SavedState saved(context);
  cairo_translate(context, rect.origin.x + rect.size.width / 2, rect.origin.y + rect.size.height / 2);
  cairo_scale(context, factor, factor);
  cairo_new_path(context);
  cairo_move_to(context, -ink.origin.x - ink.size.width / 2, -ink.origin.y - ink.size.height / 2);
  // As an outline, which unlike a cached glyph may stand between the pixels.
  pango_cairo_layout_line_path(context, pango_layout_get_line_readonly(layout.get(), 0));
  setSource(context, color);
  cairo_fill(context);
}

void expectGlyphs(const PangoLayoutLine* line) {
  for (const GSList* link = line->runs; link; link = link->next) {
    PangoFont* const font = static_cast<const PangoGlyphItem*>(link->data)->item->analysis.font;
    cairo_scaled_font_t* const scaled = pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(font));
    const cairo_status_t status = scaled ? cairo_scaled_font_status(scaled) : CAIRO_STATUS_NO_MEMORY;
    if (status != CAIRO_STATUS_SUCCESS)
      throw std::runtime_error(
          fmt::format("a font's glyphs cannot be read: {}", cairo_status_to_string(status)));
  }
}

std::string utf8(char32_t character) {
  char bytes[6];
  return {bytes, static_cast<std::size_t>(g_unichar_to_utf8(character, bytes))};
}

}  // namespace sim
