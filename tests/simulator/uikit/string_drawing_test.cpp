// Measuring strings.
#include "platform/uikit/string_drawing.hpp"

#include "platform/uikit/label.hpp"
#include "tests/simulator/uikit/fixture.hpp"

namespace test {
namespace {

class StringDrawing : public UIKit {
 protected:
  static CGSize measure(const char* text, CGSize room, NSInteger options, double size = 16) {
    const NSDictionary attributes = NSDictionary::dictionaryWithObject_forKey(
        UIFont::boldSystemFontOfSize(size), bridge::as<NSString>(NSFontAttributeName));
    const CGRect rect = bridge::as<NSExtendedStringDrawing>(NSString::stringWithUTF8String(text))
                            .boundingRectWithSize_options_attributes_context(room, options, attributes, {});
    EXPECT_EQ(rect.origin, CGPoint{});
    return rect.size;
  }

  static constexpr NSInteger lines = NSStringDrawingUsesLineFragmentOrigin;
};

TEST_F(StringDrawing, MeasuresWithTheFontOfItsAttributes) {
  auto label = make<UILabel, &UIView::initWithFrame>(CGRect{});
  label->font.set(UIFont::boldSystemFontOfSize(16));
  label->text.set("Exported"_ns);
  const CGSize fits = label->sizeThatFits({1000, 1000});
  const CGSize measured = measure("Exported", {1000, 1000}, lines);
  EXPECT_NEAR(measured.width, fits.width, 0.5);
  EXPECT_NEAR(measured.height, fits.height, 0.5);
  EXPECT_GT(measure("Exported", {1000, 1000}, lines, 32).width, 1.9 * measured.width);
}

TEST_F(StringDrawing, BreaksLinesAtTheWidth) {
  const CGSize one = measure("one two three four", {1000, 1000}, lines);
  const CGSize broken = measure("one two three four", {one.width * 0.6, 1000}, lines);
  EXPECT_LE(broken.width, one.width * 0.6);
  EXPECT_NEAR(broken.height, 2 * one.height, 0.5);
}

TEST_F(StringDrawing, MeasuresOneLineUnlessAskedForMore) {
  const CGSize one = measure("one two three four", {1000, 1000}, lines);
  EXPECT_EQ(measure("one two three four", {10, 1000}, 0), one);  // assumed
}

TEST_F(StringDrawing, OfNothingTakesNoRoom) {
  EXPECT_EQ(measure("", {100, 100}, lines), CGSize{});  // assumed
}

}  // namespace
}  // namespace test
