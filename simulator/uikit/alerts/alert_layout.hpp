// Where the parts of an alert stand, as numbers.
#pragma once

#include <vector>

#include "platform/coregraphics/geometry.hpp"

namespace sim::uikit {

inline constexpr double alertWidth = 270;  // points, on every device
inline constexpr double alertTextWidth = 238;
inline constexpr double alertRowHeight = 44;

/** What an alert shows, as sizes in points. */
struct AlertContent {
  double titleHeight = 0, messageHeight = 0;  // 0 for a text that is missing
  int fields = 0;
  std::vector<double> buttonWidths{};  // that their titles want
  double fieldHeight = 0;
};

/** Frames within the alert, whose upper part scrolls; lengths in points. */
struct AlertLayout {
  CGSize size{};
  CGRect header{};               // the part that scrolls
  CGRect title{}, message{};     // in the header's content
  std::vector<CGRect> fields{};  // as well
  double headerContentHeight = 0;
  std::vector<CGRect> buttons{};
  std::vector<CGRect> lines{};  // between header and buttons and among these
};

/** An alert no higher than `greatestHeight`, where its buttons allow that; `hairline` is a pixel's width. */
AlertLayout layOutAlert(const AlertContent& content, double greatestHeight, double hairline);

}  // namespace sim::uikit
