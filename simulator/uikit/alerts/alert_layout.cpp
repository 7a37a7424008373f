// Where the parts of an alert stand, as numbers.
#include "simulator/uikit/alerts/alert_layout.hpp"

#include <algorithm>

namespace sim::uikit {
namespace {

constexpr double edge = 20;      // above and below the header's content
constexpr double textGap = 4;    // between title and message
constexpr double fieldGap = 16;  // between the texts and the first field
constexpr double side = (alertWidth - alertTextWidth) / 2;

// Lays the parts of the header from the top down.
void layOutHeader(const AlertContent& content, double hairline, AlertLayout& layout) {
  double y = edge;
  layout.title = {{side, y}, {alertTextWidth, content.titleHeight}};
  y += content.titleHeight;
  if (content.titleHeight > 0 && content.messageHeight > 0) y += textGap;
  layout.message = {{side, y}, {alertTextWidth, content.messageHeight}};
  y += content.messageHeight;
  if (content.fields > 0 && y > edge) y += fieldGap;
  // Fields share the line between them.
  for (int field = 0; field < content.fields; ++field) {
    layout.fields.push_back({{side, y}, {alertTextWidth, content.fieldHeight}});
    y += content.fieldHeight - (field + 1 < content.fields ? hairline : 0);
  }
  layout.headerContentHeight = y + edge;
}

bool standSideBySide(const std::vector<double>& widths, double hairline) {
  const double half = (alertWidth - hairline) / 2;
  return widths.size() == 2 && std::ranges::all_of(widths, [half](double width) { return width <= half; });
}

double buttonsHeight(const AlertContent& content, bool sideBySide, double hairline) {
  const double rows = sideBySide ? 1 : static_cast<double>(content.buttonWidths.size());
  return rows * (alertRowHeight + hairline);
}

void layOutButtons(const AlertContent& content, bool sideBySide, double y, double hairline,
                   AlertLayout& layout) {
  if (sideBySide) {
    const double half = (alertWidth - hairline) / 2;
    layout.lines.push_back({{0, y}, {alertWidth, hairline}});
    layout.lines.push_back({{half, y + hairline}, {hairline, alertRowHeight}});
    layout.buttons = {{{0, y + hairline}, {half, alertRowHeight}},
                      {{half + hairline, y + hairline}, {half, alertRowHeight}}};
    return;
  }
  for (std::size_t row = 0; row < content.buttonWidths.size(); ++row) {
    layout.lines.push_back({{0, y}, {alertWidth, hairline}});
    layout.buttons.push_back({{0, y + hairline}, {alertWidth, alertRowHeight}});
    y += hairline + alertRowHeight;
  }
}

}  // namespace

AlertLayout layOutAlert(const AlertContent& content, double greatestHeight, double hairline) {
  AlertLayout layout;
  layOutHeader(content, hairline, layout);
  const bool sideBySide = standSideBySide(content.buttonWidths, hairline);
  const double below = buttonsHeight(content, sideBySide, hairline);
  // However little room there is, something of the header is to be seen.
  const double headerHeight =
      std::min(layout.headerContentHeight, std::max(greatestHeight - below, alertRowHeight));
  layout.header = {{0, 0}, {alertWidth, headerHeight}};
  layOutButtons(content, sideBySide, headerHeight, hairline, layout);
  layout.size = {alertWidth, headerHeight + below};
  return layout;
}

}  // namespace sim::uikit
