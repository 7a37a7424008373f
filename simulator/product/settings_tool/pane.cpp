// Loading the page's bundle.
#include "simulator/product/settings_tool/pane.hpp"

#include <dlfcn.h>

#include <filesystem>

#include "simulator/device/usage_error.hpp"

namespace sim::product {

void loadPane() {
  const std::filesystem::path bundle =
      std::filesystem::canonical("/proc/self/exe").parent_path() / "Tilo.bundle";
  if (!dlopen((bundle / "Tilo").c_str(), RTLD_NOW)) throw UsageError(dlerror());
  TiloSettings::useSpecifierFile(NSString::stringWithUTF8String((bundle / "Root.plist").c_str()));
}

}  // namespace sim::product
