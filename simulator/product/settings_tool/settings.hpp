// The settings that a settings pane shows.
#pragma once

#include <span>
#include <string_view>

namespace sim::product {

/** How a change is announced to the home screen. */
enum class Announcement {
  byTitle,  // "PreferencesDidChangeNotification" with the title and the value
  byKey,    // "ListPreferencesDidChangeNotification" with the key and the value
};

struct SettingRow {
  std::string_view key, title;
  Announcement announcement = Announcement::byKey;
};

std::span<const SettingRow> settingRows();

/** The row of that key; none when the pane has none. */
const SettingRow* findSettingRow(std::string_view key);

}  // namespace sim::product
