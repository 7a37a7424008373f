// The number control: its parts, and its plus and minus buttons.
#include "platform/uikit/toolbar.hpp"
#include "tests/library/color_slider_fixture.hpp"

namespace test {
namespace {

TEST_F(ColorSlider, PlusStepsUpByOne) {
  show();
  tap(slider->addButton());
  EXPECT_EQ(slider->value(), 6);
  EXPECT_EQ(fieldText(), "6.0");
}

}  // namespace
}  // namespace test
