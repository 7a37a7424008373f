// UIFont.
#include "simulator/uikit/text/font.hpp"

#include <map>

#include "bridge/define.hpp"

namespace sim::uikit {
namespace {

using bridge::Strong;

struct FontState {
  std::string name;
  Font font{};
};

using FontClass = bridge::Implementation<UIFont, FontState>;

struct KnownFont {
  std::string family;
  FontWeight weight = FontWeight::regular;
};

// Names that every device of the time knows, shown in the system's family, and those that were registered.
std::map<std::string, KnownFont>& knownFonts() {
  static auto& fonts = *new std::map<std::string, KnownFont>{
      {".SFUIText", {systemFontFamily, FontWeight::regular}},
      {".SFUIText-Semibold", {systemFontFamily, FontWeight::semibold}},
      {"Helvetica", {systemFontFamily, FontWeight::regular}},
      {"Helvetica-Bold", {systemFontFamily, FontWeight::bold}},
      {"Helvetica-Light", {systemFontFamily, FontWeight::light}},
      {"HelveticaNeue", {systemFontFamily, FontWeight::regular}},
      {"HelveticaNeue-Light", {systemFontFamily, FontWeight::light}},
      {"HelveticaNeue-Medium", {systemFontFamily, FontWeight::medium}},
      {"HelveticaNeue-Bold", {systemFontFamily, FontWeight::bold}},
  };
  return fonts;
}

UIFont makeFont(const std::string& name, CGFloat size) {
  const auto known = knownFonts().find(name);
  if (known == knownFonts().end()) return {};
  auto font = bridge::make<UIFont, &NSObject::init>();
  FontClass::state(font) = {name,
                            {.size = size, .weight = known->second.weight, .family = known->second.family}};
  return std::move(font).autoreleased();
}

UIFont systemFont(Class, CGFloat size) { return makeFont(".SFUIText", size); }
// The bold system font is semibold since system 7.
UIFont boldSystemFont(Class, CGFloat size) { return makeFont(".SFUIText-Semibold", size); }
UIFont fontWithName(Class, NSString name, CGFloat size) {
  return name ? makeFont(name.UTF8String(), size) : UIFont();
}

NSString fontName(UIFont self) { return NSString::stringWithUTF8String(FontClass::state(self).name.c_str()); }
CGFloat pointSize(UIFont self) { return FontClass::state(self).font.size; }

}  // namespace

Font fontOf(UIFont font) { return font ? FontClass::state(font).font : Font{}; }

void registerFont(const std::string& name, const std::string& family) { knownFonts()[name] = {family}; }

void defineFont() {
  using bridge::method;
  FontClass::define<NSObject>(method<&UIFont::systemFontOfSize, systemFont>(),
                              method<&UIFont::boldSystemFontOfSize, boldSystemFont>(),
                              method<&UIFont::fontWithName_size, fontWithName>(),
                              method<&UIFont::fontName, fontName>(), method<&UIFont::pointSize, pointSize>());
}

}  // namespace sim::uikit
