// What is drawn of an icon, and when it is drawn anew.
#include <gtest/gtest.h>

#include "platform/uikit/application.hpp"
#include "simulator/device/clock.hpp"
#include "simulator/springboard/icon_image_view.hpp"
#include "simulator/uikit/drawing/rendering.hpp"
#include "simulator/uikit/views/view.hpp"
#include "tests/support/home.hpp"

namespace {

constexpr int scale = 2, left = 100, top = 300;  // of the icon, in points

// Its middle, as it is on screen once it has been laid out.
std::string picture(SBIconImageView icon) {
  icon.setNeedsLayout();
  sim::uikit::layoutPass();
  const sim::Surface screen = sim::uikit::renderScreen(sim::clock::now());
  const unsigned char* bytes = cairo_image_surface_get_data(screen.get());
  const int stride = cairo_image_surface_get_stride(screen.get());
  std::string rows;
  for (int y = scale * (top + 10); y < scale * (top + 50); ++y)
    rows.append(reinterpret_cast<const char*>(bytes) + y * stride + 4 * scale * (left + 10),
                std::size_t(4) * scale * 40);
  return rows;
}

TEST(IconPicture, OfACalendarIsDrawnAnewOnANewDay) {
  test::Home home({"--stock", "--device", "iPhone 7"});
  auto calendar = sim::springboard::makeIconImageView("Calendar");
  calendar->frame.set({{left, top}, {60, 60}});
  UIApplication::sharedApplication().keyWindow().addSubview(calendar);
  const std::string before = picture(calendar);
  sim::clock::advanceTo(51539);  // a second before midnight
  EXPECT_TRUE(picture(calendar) == before);
  sim::clock::advanceTo(51540);
  EXPECT_TRUE(picture(calendar) != before);
}

}  // namespace
