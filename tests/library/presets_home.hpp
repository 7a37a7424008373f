// Home screens with saved layouts, whose panel is open at its second page.
#pragma once

#include "tests/library/device_files.hpp"
#include "tests/library/panel_home.hpp"

namespace test {

// A layout as the panel saves it.
inline sim::Json layout(const std::string& name, int value = 0, double spacing = 1) {
  sim::Json record = preset(name, 1, spacing + 1, spacing, spacing + 2, spacing + 3);
  record["value"] = value;
  return record;
}

// Whether two documents hold the same, whatever the order of their keys.
inline bool same(const sim::Json& one, const sim::Json& other) { return one.sorted() == other.sorted(); }

// Layouts of these names, at the positions that they were saved at.
inline std::vector<sim::Json> layouts(const std::vector<std::string>& names) {
  std::vector<sim::Json> records;
  for (size_t i = 0; i < names.size(); ++i)
    records.push_back(layout(names[i], static_cast<int>(i), static_cast<double>(i)));
  return records;
}

class PresetsHome : public PanelHome {
 public:
  explicit PresetsHome(const std::vector<sim::Json>& records, const std::vector<std::string>& settings = {},
                       const std::string& device = "iPhone 7")
      : PanelHome(settings, withPresets(records), device) {}

  void openPresets() {
    open();
    step("page 1");
  }

  sim::Json names() { return shown()["presets"]; }
  sim::Json stored() { return report()["presets"]["configurations"]; }

  // Saves the sliders' values under a name, by the alert.
  void saveAs(const std::string& name) {
    step("page 0");
    step("tap \"Add\"");
    step("enter \"" + name + "\"");
    step("choose \"Add\"");
    wait(0.5);
  }

  // The names in the stored list, and the values beside them.
  std::vector<std::pair<std::string, int>> records() {
    std::vector<std::pair<std::string, int>> all;
    for (const sim::Json& record : stored()) all.emplace_back(record["name"], record["value"]);
    return all;
  }
};

using Records = std::vector<std::pair<std::string, int>>;

}  // namespace test
