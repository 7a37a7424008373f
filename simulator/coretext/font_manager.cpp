// CTFontManager: fonts of the process's own.
#include "platform/coretext/font_manager.hpp"

#include <fmt/format.h>

#include <map>

#include "platform/foundation/dictionary.hpp"
#include "simulator/coregraphics/font.hpp"
#include "simulator/runtime/export.hpp"
#include "simulator/uikit/text/font.hpp"

extern "C" const id NSLocalizedDescriptionKey;

namespace {

// CTFontManagerError
enum : NSInteger { invalidFontData = 104, alreadyRegistered = 105 };

struct NSError : bridge::Face<"NSError", NSObject> {
  MESSAGE Method<"initWithDomain:code:userInfo:", NSError(NSString, NSInteger, NSDictionary)>
      initWithDomain_code_userInfo;
};

// By name. They stay for as long as the process.
std::map<std::string, std::shared_ptr<sim::FontFile>>& registered() {
  static auto& fonts = *new std::map<std::string, std::shared_ptr<sim::FontFile>>();
  return fonts;
}

bool fail(id* error, NSInteger code, const std::string& reason) {
  if (!error) return false;
  const NSString domain = "com.apple.CoreText.CTFontManagerErrorDomain"_ns;
  const std::string text = fmt::format("The operation couldn't be completed. ({} error {} - {})",
                                       domain.UTF8String(), code, reason);
  auto info = bridge::make<NSMutableDictionary, &NSObject::init>();
  info->setObject_forKey(NSString::stringWithUTF8String(text.c_str()),
                         bridge::as<NSString>(NSLocalizedDescriptionKey));
  *error = bridge::make<NSError, &NSError::initWithDomain_code_userInfo>(domain, code, info.get()).leak();
  return false;
}

}  // namespace

SIMULATOR_EXPORT bool CTFontManagerRegisterGraphicsFont(CGFont* font, id* error) {
  if (!font) return fail(error, invalidFontData, "there is no font");
  const sim::FontFile& file = *font->file;
  if (!registered().emplace(file.name(), font->file).second)
    return fail(error, alreadyRegistered, fmt::format("the font '{}' is already registered", file.name()));
  sim::addTextFont(file.path(), file.family());
  sim::uikit::registerFont(file.name(), file.family());
  return true;
}
