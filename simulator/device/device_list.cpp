// Writes the catalogue as a table and as JSON.
#include "simulator/device/device_list.hpp"

#include <fmt/format.h>

#include "simulator/device/catalogue.hpp"

namespace sim {
namespace {

std::string times(double a, double b) { return fmt::format("{}×{}", a, b); }

std::string_view idiomName(Idiom idiom) { return idiom == Idiom::phone ? "phone" : "pad"; }

std::string gridText(const Device& device) {
  const std::string portrait = times(device.portrait.rows, device.portrait.columns);
  if (!device.homeScreenTurns) return portrait;
  return portrait + ", landscape " + times(device.landscape.rows, device.landscape.columns);
}

}  // namespace

std::string deviceTable() {
  constexpr const char* line = "{:<24}{:<11}{:<7}{:<15}{:<7}{:<16}{}\n";
  std::string table = fmt::format(line, "name", "points", "scale", "native pixels", "idiom",
                                  "system versions", "stock rows×columns");
  for (const Device& device : catalogue()) {
    table +=
        fmt::format(line, device.name, times(device.points.width, device.points.height), device.scale,
                    times(device.nativePixels.width, device.nativePixels.height), idiomName(device.idiom),
                    device.first.text() + "-" + device.last.text(), gridText(device));
  }
  return table;
}

Json deviceJson() {
  Json list = Json::array();
  for (const Device& device : catalogue()) {
    Json landscape;
    if (device.homeScreenTurns)
      landscape = {{"rows", device.landscape.rows}, {"columns", device.landscape.columns}};
    list.push_back({{"name", device.name},
                    {"points", {device.points.width, device.points.height}},
                    {"scale", device.scale},
                    {"nativePixels", {device.nativePixels.width, device.nativePixels.height}},
                    {"idiom", idiomName(device.idiom)},
                    {"systemVersions", {device.first.text(), device.last.text()}},
                    {"rows", device.portrait.rows},
                    {"columns", device.portrait.columns},
                    {"landscape", landscape}});
  }
  return list;
}

}  // namespace sim
