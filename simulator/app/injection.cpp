// Filters as the loaders of devices read them: of bundles, of programs and of classes, all of which must let
// a process through, or any with the mode "Any". A list that cannot be read lets nothing through.
#include "simulator/app/injection.hpp"

#include <algorithm>
#include <array>
#include <fstream>

#include "bridge/runtime.hpp"
#include "platform/foundation/array.hpp"
#include "platform/foundation/dictionary.hpp"
#include "platform/foundation/string.hpp"
#include "simulator/runtime/property_list.hpp"

namespace sim::injection {
namespace {

namespace fs = std::filesystem;

NSString string(const std::string& text) { return NSString::stringWithUTF8String(text.c_str()); }

// The value as what it should be, else nil: somebody may have written anything.
template <class T>
T valueOf(NSDictionary dictionary, const char* key) {
  const bridge::Object value = dictionary.objectForKey(string(key));
  return bridge::isKindOf<T>(value) ? bridge::as<T>(value) : T();
}

bool hasAny(NSArray list, bool (*wanted)(NSString)) {
  for (NSUInteger i = 0; i < list.count(); ++i) {
    const bridge::Object name = list.objectAtIndex(i);
    if (bridge::isKindOf<NSString>(name) && wanted(bridge::as<NSString>(name))) return true;
  }
  return false;
}

bool letsThrough(NSDictionary filter) {
  struct Part {
    const char* key;
    bool (*wanted)(NSString);
  };
  constexpr Part parts[] = {
      {"Bundles",
       [](NSString name) -> bool { return name.isEqualToString(string("com.apple.springboard")); }},
      {"Executables", [](NSString name) -> bool { return name.isEqualToString(string("SpringBoard")); }},
      {"Classes", [](NSString name) -> bool { return objc_getClass(name.UTF8String()) != nullptr; }}};
  int asked = 0, met = 0;
  for (const Part& part : parts)
    if (NSArray list = valueOf<NSArray>(filter, part.key)) {
      ++asked;
      met += hasAny(list, part.wanted);
    }
  const bool any = valueOf<NSString>(filter, "Mode").isEqualToString(string("Any"));
  return any ? met > 0 || asked == 0 : met == asked;
}

bool reachesSpringBoard(const fs::path& library) {
  const fs::path list = fs::path(library).replace_extension(".plist");
  if (!fs::exists(list)) return true;
  NSDictionary read = propertyList(string(list.string()));
  return read && letsThrough(valueOf<NSDictionary>(read, "Filter"));
}

}  // namespace

std::vector<fs::path> librariesForSpringBoard(const fs::path& folder) {
  bridge::Pool pool;
  std::vector<fs::path> found;
  std::error_code error;
  for (const auto& entry : fs::directory_iterator(folder, error))
    if (entry.path().extension() == ".dylib" && fs::exists(entry.path()) && reachesSpringBoard(entry.path()))
      found.push_back(entry.path());
  std::ranges::sort(found);
  return found;
}

bool isDeviceLibrary(const fs::path& file) {
  std::array<unsigned char, 4> magic{};
  std::ifstream(file, std::ios::binary).read(reinterpret_cast<char*>(magic.data()), magic.size());
  constexpr std::array<unsigned char, 4> universal{0xca, 0xfe, 0xba, 0xbe}, narrow{0xce, 0xfa, 0xed, 0xfe},
      wide{0xcf, 0xfa, 0xed, 0xfe};
  return magic == universal || magic == narrow || magic == wide;
}

}  // namespace sim::injection
