// Every key of the preferences, of a named layout and of a message from the settings, once, with the kind of
// its value.
#pragma once

#include "bridge/string.hpp"
#include "platform/foundation/string.hpp"

namespace tilo {

// How a value is read: as a truth value, a single-precision number, a whole number as wide as a pointer, one
// of 32 bits; or not as a number at all.
enum class Kind { flag, number, count, index, text, object };

template <Kind>
struct Key {
  id (*constant)();
  operator NSString() const { return bridge::as<NSString>(constant()); }
};

namespace keys {

template <bridge::Name Text, Kind kind>
inline constexpr Key<kind> key{&bridge::constant<Text>};

// The preference domain.
inline constexpr auto enabled = key<"enabled", Kind::flag>;
inline constexpr auto icons = key<"icons", Kind::flag>;  // use the stored rows and columns
inline constexpr auto rows = key<"rows", Kind::count>;
inline constexpr auto columns = key<"columns", Kind::count>;
// Points, for the 4-inch screen.
inline constexpr auto vertIconPadding = key<"vertIconPadding", Kind::number>;
inline constexpr auto horiIconPadding = key<"horiIconPadding", Kind::number>;
inline constexpr auto sideIconInset = key<"sideIconInset", Kind::number>;
inline constexpr auto topIconInset = key<"topIconInset", Kind::number>;
// The position of the layout in force; below 0 there is none.
inline constexpr auto customPreset = key<"custom_preset", Kind::count>;
// Which factors a tablet keeps when it turns.
inline constexpr auto preset = key<"preset", Kind::count>;
inline constexpr auto numOfPages = key<"numOfPages", Kind::number>;
inline constexpr auto dock = key<"dock", Kind::flag>;  // hide it
inline constexpr auto dockIconsEnabled = key<"dockIconsEnabled", Kind::flag>;
inline constexpr auto dockIcons = key<"dockIcons", Kind::count>;
inline constexpr auto square = key<"square", Kind::flag>;
inline constexpr auto labels = key<"labels", Kind::flag>;  // show them
inline constexpr auto page = key<"page", Kind::flag>;      // show the page dots
inline constexpr auto quick = key<"quick", Kind::flag>;    // the panel can be opened
inline constexpr auto twoFinger = key<"twoFinger", Kind::flag>;
inline constexpr auto forceTouch = key<"forceTouch", Kind::flag>;
inline constexpr auto isDarkMode = key<"isDarkMode", Kind::flag>;
inline constexpr auto qsBackgroundColor = key<"qsBackgroundColor", Kind::index>;  // in the panel's palette
inline constexpr auto showedSetup = key<"showed-setup", Kind::flag>;

// The presets file: its list of layouts, and a layout.
inline constexpr auto configurations = key<"configurations", Kind::object>;
inline constexpr auto name = key<"name", Kind::text>;
inline constexpr auto value = key<"value", Kind::index>;  // its position in the list
// Used as it is, not scaled to the screen.
inline constexpr auto configurable = key<"configurable", Kind::flag>;
inline constexpr auto configuration = key<"configuration", Kind::object>;
inline constexpr auto verticalPadding = key<"vertical_padding", Kind::number>;  // points
inline constexpr auto horizontalPadding = key<"horizontal_padding", Kind::number>;
inline constexpr auto sideInset = key<"side_inset", Kind::number>;
inline constexpr auto topInset = key<"top_inset", Kind::number>;

// A message has a `name` of its own and a `value`, or its value as `index`.
inline constexpr auto index = key<"index", Kind::object>;

}  // namespace keys
}  // namespace tilo
