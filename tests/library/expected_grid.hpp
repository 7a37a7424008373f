// What a home screen is to answer and to show, worked out from the settings, the presets and the screen.
//
// Nothing of the library is used here. SpringBoard's own numbers come from the report of a run without it.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "simulator/app/report_values.hpp"
#include "simulator/device/catalogue.hpp"

namespace test {

// The main screen as it was measured when SpringBoard started. Points, and pixels where it says native.
struct ExpectedScreen {
  double width, height;
  double nativeWidth, nativeHeight;
  double scale;
  bool tablet;
  double heightFactor, widthFactor;  // of tablets

  ExpectedScreen(const sim::Device& device, sim::Orientation start)
      : width(device.points.width),
        height(device.points.height),
        nativeWidth(device.nativePixels.width),
        nativeHeight(device.nativePixels.height),
        scale(device.scale),
        tablet(device.idiom == sim::Idiom::pad) {
    if (start == sim::Orientation::landscape && device.homeScreenTurns) std::swap(width, height);
    heightFactor = height * 2.0 / 568.0;
    widthFactor = width * 2.0 / 320.0;
  }

  // The device was turned away from `left`; `preset` is the setting of that name.
  void turnFrom(sim::Orientation left, long preset) {
    if (!tablet) return;
    if (left == sim::Orientation::portrait) {
      heightFactor = width * 2.0 / (568.0 + 120.0);
      bool widthStays = preset == -2 || preset == 1 || preset == 8 || preset == 9;
      if (!widthStays) widthFactor = height * 2.0 / 320.0;
    } else {
      heightFactor = (height + height) / 568.0;
      widthFactor = (width + width) / 320.0;
    }
  }
};

// Values as the settings hold them: booleans, integers and real numbers; an absent one reads as zero.
inline double real(const sim::Json& values, const std::string& key) {
  if (!values.isObject() || !values.contains(key)) return 0;
  const sim::Json& value = values[key];
  return value.isBoolean() ? (value.get<bool>() ? 1 : 0) : value.get<double>();
}
inline double single(const sim::Json& values, const std::string& key) {
  return static_cast<float>(real(values, key));
}
inline long whole(const sim::Json& values, const std::string& key) {
  return static_cast<long>(real(values, key));
}
inline bool flag(const sim::Json& values, const std::string& key) { return real(values, key) != 0; }

// What every home-screen page answers, and the class of lists for portrait.
struct ExpectedAnswers {
  long rows, columns, classRows, classColumns;
  double vertical, horizontal, side, top;
};

struct ExpectedHome {
  const sim::Json& system;    // report of the same device without the library
  const sim::Json& settings;  // what the preference domain holds
  const sim::Json& layout;    // the selected record of the presets file, or null
  ExpectedScreen screen;

  long count(const char* key, long systemCount) const {
    bool custom = flag(settings, "icons") && flag(settings, "enabled") && settings.contains(key);
    return custom ? whole(settings, key) : systemCount;
  }

  bool unscaled(double pixels, double threshold) const { return pixels <= threshold || screen.scale == 3.0; }

  double scaledHeight(double value) const {
    if (unscaled(screen.nativeHeight, 1136.0)) return value;
    if (screen.tablet) return screen.heightFactor * value + 20.0;
    auto rows = static_cast<double>(static_cast<uint32_t>(count("rows", system["classRows"])));
    return value * (screen.nativeHeight / 1136.0) * 1.4 * (5.0 / rows);
  }

  double scaledWidth(double value) const {
    if (unscaled(screen.nativeWidth, 640.0)) return value;
    if (screen.tablet) return screen.widthFactor * value + 20.0;
    auto columns = static_cast<double>(static_cast<uint32_t>(count("columns", system["classColumns"])));
    return value * (screen.nativeWidth / 640.0) * 1.4 * (4.0 / columns);
  }

  double spacing(const char* key, const char* layoutKey, double systemValue, bool isHeight) const {
    if (!flag(settings, "enabled")) return systemValue;
    if (whole(settings, "custom_preset") < 0) return single(settings, key);
    sim::Json values;
    if (layout.isObject() && layout.contains("configuration")) values = layout["configuration"];
    double value = single(values, layoutKey);
    if (flag(layout, "configurable")) return value;
    return isHeight ? scaledHeight(value) : scaledWidth(value);
  }

  ExpectedAnswers answers() const {
    const sim::Json& page = system["pages"][0];
    return {count("rows", page["rows"]),
            count("columns", page["columns"]),
            count("rows", system["classRows"]),
            count("columns", system["classColumns"]),
            spacing("vertIconPadding", "vertical_padding", page["verticalPadding"], true),
            spacing("horiIconPadding", "horizontal_padding", page["horizontalPadding"], false),
            spacing("sideIconInset", "side_inset", page["sideInset"], false),
            spacing("topIconInset", "top_inset", page["topInset"], true)};
  }
};

// A number of a report, where infinite ones are written out.
inline double reported(const sim::Json& value) {
  constexpr double infinite = std::numeric_limits<double>::infinity();
  if (value == "inf") return infinite;
  if (value == "-inf") return -infinite;
  return value == "nan" ? std::numeric_limits<double>::quiet_NaN() : value.get<double>();
}

// Apart by no more than rounding, seen against the numbers or, if it is larger, `magnitude`.
inline bool close(double one, double other, double magnitude = 0) {
  if (one == other || (std::isnan(one) && std::isnan(other))) return true;
  return std::abs(one - other) <= 1e-9 * std::max({std::abs(one), std::abs(other), magnitude});
}

inline void expectClose(double found, double expected, const std::string& what) {
  EXPECT_TRUE(close(found, expected)) << what << ": " << found << ", expected " << expected;
}

// Place `index` of a page that answers so; lists without columns have one.
inline CGRect expectedFrame(const ExpectedAnswers& answers, CGSize size, long index) {
  long across = std::max(1L, answers.columns), column = index % across, row = index / across;
  // The first column and row stand at the insets, whatever the padding.
  double x = answers.side, y = answers.top;
  if (column > 0) x += static_cast<double>(column) * (size.width + answers.horizontal);
  if (row > 0) y += static_cast<double>(row) * (size.height + answers.vertical);
  return {{x, y}, size};
}

// `found` is one of a report's pages.
inline void expectAnswers(const sim::Json& found, const ExpectedAnswers& expected) {
  EXPECT_EQ(found["rows"], expected.rows);
  EXPECT_EQ(found["columns"], expected.columns);
  EXPECT_EQ(found["rowsForSpacing"], expected.rows);
  expectClose(reported(found["verticalPadding"]), expected.vertical, "vertical padding");
  expectClose(reported(found["horizontalPadding"]), expected.horizontal, "horizontal padding");
  expectClose(reported(found["sideInset"]), expected.side, "side inset");
  expectClose(reported(found["topInset"]), expected.top, "top inset");
}

// `size` is that of an icon's view, with its label.
inline void expectFrames(const sim::Json& page, const ExpectedAnswers& answers, CGSize size) {
  for (size_t i = 0; i < page["icons"].size(); ++i) {
    const sim::Json& found = page["icons"][i]["frame"];
    CGRect place = expectedFrame(answers, size, static_cast<long>(i));
    const double expected[] = {place.origin.x, place.origin.y, size.width, size.height};
    for (size_t n = 0; n < 4; ++n)
      EXPECT_TRUE(close(reported(found[n]), expected[n], size.height))
          << "icon " << i << ": " << found << ", expected " << expected[n] << " at " << n;
  }
}

inline CGSize iconViewSize(const sim::Json& system) {
  const sim::Json& frame = system["pages"][0]["icons"][0]["frame"];
  return {frame[2], frame[3]};
}

// How many icons each page takes at the start: no more than SpringBoard's grid or the one in force holds.
inline std::vector<size_t> expectedPageSizes(const sim::Json& system, const ExpectedAnswers& answers) {
  long icons = 0;
  for (const sim::Json& page : system["pages"]) icons += static_cast<long>(page["icons"].size());
  long places = system["pages"][0]["rows"].get<long>() * system["pages"][0]["columns"].get<long>();
  long capacity = std::max(1L, std::min(places, answers.rows * answers.columns));
  std::vector<size_t> sizes;
  for (; icons > 0; icons -= capacity) sizes.push_back(static_cast<size_t>(std::min(icons, capacity)));
  return sizes;
}

// Folders and the dock keep what SpringBoard has for them; only a folder's class is always three rows high.
inline void expectFolderAndDockAsInStock(const sim::Json& report, const sim::Json& system) {
  sim::Json folder = system["folder"];
  folder["classRows"] = 3;
  EXPECT_EQ(report["folder"], folder);
  for (const char* key : {"verticalPadding", "horizontalPadding"})
    EXPECT_EQ(report["dock"][key], system["dock"][key]) << "dock's " << key;
}

}  // namespace test
