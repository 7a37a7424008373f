// Entries and bundles of the preference loader.
#include "simulator/preferences/bundle_loading.hpp"

#include <algorithm>
#include <filesystem>
#include <set>
#include <string_view>

#include "platform/foundation/data.hpp"
#include "platform/foundation/file_manager.hpp"
#include "simulator/device/image.hpp"
#include "simulator/device/program_folder.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/preferences/look.hpp"
#include "simulator/preferences/specifier.hpp"
#include "simulator/quartz/surface.hpp"
#include "simulator/springboard/drawn_image.hpp"

namespace sim::preferences {
namespace {

constexpr const char* bundleFolders[] = {"/Library/PreferenceBundles/", "/System/Library/PreferenceBundles/"};

NSString string(const std::string& text) { return NSString::stringWithUTF8String(text.c_str()); }

std::string textAt(NSDictionary entry, NSString key) {
  const bridge::Object found = entry.objectForKey(key);
  return bridge::isKindOf<NSString>(found) ? bridge::as<NSString>(found).UTF8String() : "";
}

// Empty when there is none.
std::string pathOfBundle(const std::string& name) {
  for (const char* folder : bundleFolders)
    if (const std::string path = folder + name + ".bundle";
        NSFileManager::defaultManager().fileExistsAtPath(string(path)))
      return path;
  return "";
}

// "icon.png", or "icon@2x.png" beside it where the screen wants that; nil when it is no picture.
UIImage iconNamed(const std::string& file) {
  const auto times = static_cast<int>(UIScreen::mainScreen().scale());
  const std::filesystem::path plain(file);
  const std::string scaled =
      (plain.parent_path() / plain.stem()).string() + "@" + std::to_string(times) + "x.png";
  const bool isThere = times > 1 && NSFileManager::defaultManager().fileExistsAtPath(string(scaled));
  try {
    const Surface picture = readPng(isThere ? scaled : file);
    return springboard::drawnImage({iconSide, iconSide}, [picture](cairo_t* context, CGSize size) {
      cairo_scale(context, size.width / cairo_image_surface_get_width(picture.get()),
                  size.height / cairo_image_surface_get_height(picture.get()));
      cairo_set_source_surface(context, picture.get(), 0, 0);
      cairo_paint(context);
    });
  } catch (const std::exception&) {
    return {};
  }
}

bridge::Strong<PSSpecifier> entryIn(NSString file) {
  const NSDictionary list = NSDictionary::dictionaryWithContentsOfFile(file);
  const bridge::Object found = list.objectForKey("entry"_ns);
  if (!bridge::isKindOf<NSDictionary>(found)) return nullptr;
  const auto entry = bridge::as<NSDictionary>(found);
  const std::string bundle = pathOfBundle(textAt(entry, "bundle"_ns));
  if (bundle.empty()) return nullptr;
  auto made = makeSpecifier(bridge::as<NSString>(entry.objectForKey("label"_ns)), {},
                            {.cell = Cell::link, .detail = textAt(entry, "detail"_ns)});
  made->setProperty_forKey(string(bundle), "bundlePath"_ns);
  made->setProperty_forKey(iconNamed(bundle + "/" + textAt(entry, "icon"_ns)), "iconImage"_ns);
  return made;
}

// A universal file for devices begins so; the host's own of that name lies beside the program then.
bool isForDevices(NSString file) {
  const NSData bytes = NSData::dataWithContentsOfFile(file);
  constexpr std::string_view universal = "\xCA\xFE\xBA\xBE";
  return bytes.length() >= universal.size() &&
         std::string_view(static_cast<const char*>(bytes.bytes()), universal.size()) == universal;
}

std::string executableOf(const std::string& bundle) {
  const NSDictionary info = NSDictionary::dictionaryWithContentsOfFile(string(bundle + "/Info.plist"));
  const std::string name = textAt(info, "CFBundleExecutable"_ns), file = bundle + "/" + name;
  if (image::takesDeviceFiles() || !isForDevices(string(file))) return file;
  return programFolder() / std::filesystem::path(bundle).filename() / name;
}

}  // namespace

NSArray loaderEntries() {
  const NSString folder = "/Library/PreferenceLoader/Preferences"_ns;
  const NSArray files = NSFileManager::defaultManager().contentsOfDirectoryAtPath_error(folder, nullptr);
  const NSArray sorted = files.sortedArrayUsingSelector(bridge::selector<"compare:">());
  auto entries = bridge::make<NSMutableArray, &NSObject::init>();
  for (NSUInteger i = 0; i < sorted.count(); ++i) {
    const auto name = bridge::as<NSString>(sorted.objectAtIndex(i));
    if (!name.hasSuffix(".plist"_ns)) continue;
    if (const auto entry = entryIn(folder.stringByAppendingPathComponent(name)))
      entries->addObject(entry.get());
  }
  return std::move(entries).autoreleased();
}

void loadBundle(const std::string& path) {
  static auto& loaded = *new std::set<std::string>();
  if (loaded.contains(path)) return;
  std::string reason;
  if (!image::open(executableOf(path), reason))
    throw UsageError("the page '" + path + "' cannot be loaded: " + reason);
  loaded.insert(path);
}

}  // namespace sim::preferences
