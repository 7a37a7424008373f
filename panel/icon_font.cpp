// Registering the icon font.
#include "panel/icon_font.hpp"

#include "panel/resource_bundle.hpp"
#include "platform/corefoundation/error.hpp"
#include "platform/coretext/font_manager.hpp"
#include "platform/foundation/data.hpp"
#include "settings/log/console_log.hpp"
#include "settings/log/logger.hpp"

namespace tilo {
namespace {

// The description of what went wrong; nil where the system does not say.
NSString copyReason(id error) {
  return bridge::as<NSString>(error ? CFErrorCopyDescription(error) : nullptr);
}

void logFailure(id error) {
  auto reason = bridge::adopt<NSString>(copyReason(error).raw);
  DPHLogger::sharedLogger().error("Failed to load font: "_ns.stringByAppendingString(described(reason)));
  if (error) CFRelease(error);
}

}  // namespace

void registerIconFont() {
  const bridge::Pool pool;  // the file's bytes go at once
  NSString path = resourceBundle().pathForResource_ofType("FontAwesome"_ns, "ttf"_ns);
  NSData data = NSData::dataWithContentsOfFile(path);
  // Nothing is asked of the system with what could not be read or made: not all of it takes null.
  CGDataProvider* provider = data ? CGDataProviderCreateWithCFData(data.raw) : nullptr;
  CGFont* font = provider ? CGFontCreateWithDataProvider(provider) : nullptr;
  id error = nullptr;
  if (font && CTFontManagerRegisterGraphicsFont(font, &error))
    DPHLogger::sharedLogger().info("LOADED"_ns);
  else
    logFailure(error);
  CGFontRelease(font);
  CGDataProviderRelease(provider);
}

}  // namespace tilo
