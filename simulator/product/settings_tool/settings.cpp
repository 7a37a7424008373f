// The table of settings. The titles of the switches that are announced by title are fixed: the home screen
// knows the switches by them.
#include "simulator/product/settings_tool/settings.hpp"

#include <algorithm>

namespace sim::product {
namespace {

constexpr SettingRow rows[] = {
    {"enabled", "Enabled"},
    {"icons", "Custom Rows and Columns"},
    {"rows", "Rows"},
    {"columns", "Columns"},
    {"horiIconPadding", "Horizontal Padding"},
    {"vertIconPadding", "Vertical Padding"},
    {"sideIconInset", "Side Inset"},
    {"topIconInset", "Top Inset"},
    {"labels", "Show Icon Labels"},
    {"page", "Show Page Dots"},
    {"dock", "Hide Dock"},
    {"dockIconsEnabled", "Custom Number of Dock Icons"},
    {"dockIcons", "Dock Icons"},
    {"quick", "Enable Quick Settings", Announcement::byTitle},
    {"twoFinger", "Use Two Finger Tap Instead", Announcement::byTitle},
    {"forceTouch", "Open With Force Touch"},
    {"isDarkMode", "Quick Settings Dark Mode", Announcement::byTitle},
    {"qsBackgroundColor", "Quick Settings Background Color"},
    {"numOfPages", "Number of Pages"},
    {"preset", "Preset"},
};

}  // namespace

std::span<const SettingRow> settingRows() { return rows; }

const SettingRow* findSettingRow(std::string_view key) {
  const auto* const found = std::ranges::find(rows, key, &SettingRow::key);
  return found == std::end(rows) ? nullptr : found;
}

}  // namespace sim::product
