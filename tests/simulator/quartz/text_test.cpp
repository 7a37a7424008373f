// Text: measures, line breaks, truncation and drawing.
#include "simulator/quartz/text.hpp"

#include <gtest/gtest.h>

#include <cmath>

#include "simulator/quartz/fonts.hpp"
#include "simulator/quartz/surface.hpp"
#include "tests/simulator/quartz/pixels.hpp"

namespace sim {
namespace {

Text plain(const std::string& words, double size = 17, FontWeight weight = FontWeight::regular) {
  return {.runs = {{words, {.size = size, .weight = weight}}}};
}

Surface drawn(const Text& text, const CGRect& rect, int width, int height, double scale = 1) {
  Surface image = makeImage(width, height);
  const Context context(image.get());
  cairo_scale(context, scale, scale);
  drawText(context, text, rect);
  return image;
}

TEST(Font, MetricsGrowWithTheSize) {
  const FontMetrics small = fontMetrics({.size = 10}), large = fontMetrics({.size = 20});
  EXPECT_NEAR(large.ascent, 2 * small.ascent, 0.01);
  EXPECT_NEAR(large.capHeight, 2 * small.capHeight, 0.01);
  EXPECT_NEAR(small.lineHeight, small.ascent + small.descent, 0.01);
  EXPECT_GT(small.ascent, small.capHeight);
  EXPECT_GT(small.capHeight, small.xHeight);
  // Capital letters of the system font are 8/11 of its size.
  EXPECT_NEAR(fontMetrics({.size = 100}).capHeight, 72.7, 0.2);
}

TEST(Font, UnknownFamilyIsShownInTheSystemFont) {
  Text unknown = plain("Sample");
  unknown.runs[0].font.family = "No Such Family";
  EXPECT_EQ(measureText(unknown), measureText(plain("Sample")));
}

TEST(Font, IconsAreInTheIconFontOnly) {
  EXPECT_TRUE(fontHasCharacter({.family = iconFontFamily}, 0xf013));
  EXPECT_FALSE(fontHasCharacter({}, 0xf013));
  EXPECT_TRUE(fontHasCharacter({}, U'A'));
  EXPECT_FALSE(fontHasCharacter({.family = iconFontFamily}, 0xf8ff));
}

TEST(Font, HeavierWeightsAreWider) {
  double last = 0;
  for (const FontWeight weight :
       {FontWeight::light, FontWeight::regular, FontWeight::medium, FontWeight::semibold, FontWeight::bold}) {
    const double width = measureText(plain("Handgloves", 40, weight)).width;
    EXPECT_GT(width, last);
    last = width;
  }
}

TEST(Text, EmptyTakesNoRoom) {
  EXPECT_EQ(measureText(plain("")), (CGSize{0, 0}));
  EXPECT_EQ(measureText(Text{}), (CGSize{0, 0}));
}

TEST(Text, SizeGrowsWithTheFont) {
  const CGSize small = measureText(plain("Calendar", 12)), large = measureText(plain("Calendar", 24));
  EXPECT_NEAR(large.width, 2 * small.width, 0.1);
  EXPECT_NEAR(large.height, 2 * small.height, 0.1);
  EXPECT_NEAR(small.height, fontMetrics({.size = 12}).lineHeight, 0.01);
}

TEST(Text, WidthsOfRunsAddUp) {
  Text both = plain("Hours");
  both.runs.push_back({"&", {.size = 30, .weight = FontWeight::bold}, whiteColor});
  const double sign = measureText({.runs = {both.runs[1]}}).width;
  EXPECT_GT(sign, 15);
  EXPECT_NEAR(measureText(both).width, measureText(plain("Hours")).width + sign, 0.01);
}

TEST(Text, FitsIntoTheWidthMeasuredForIt) {
  for (const char* words : {"Calendar", "Voice Recorder", "AVA To", "1234567890"}) {
    Text text = plain(words, 13.3);
    const CGSize size = measureText(text);
    EXPECT_EQ(measureText(text, size), size);
  }
}

TEST(Text, WrapsBetweenWords) {
  Text text = plain("one two three four");
  text.lineBreak = LineBreak::wordWrap;
  text.lineLimit = 0;
  const CGSize single = measureText(text);
  const CGSize wrapped = measureText(text, {single.width * 0.6, 0});
  EXPECT_NEAR(wrapped.height, 2 * single.height, 0.01);
  EXPECT_LE(wrapped.width, single.width * 0.6);
}

TEST(Text, BreaksLongWordsRatherThanOverflow) {
  Text text = plain("Incomprehensibilities");
  text.lineBreak = LineBreak::wordWrap;
  text.lineLimit = 0;
  EXPECT_LE(measureText(text, {60, 0}).width, 60);
}

TEST(Text, LineLimitCutsOff) {
  Text text = plain("one two three four five six seven eight nine ten");
  const double line = measureText(text).height;
  for (const LineBreak mode : {LineBreak::wordWrap, LineBreak::characterWrap, LineBreak::truncateTail}) {
    text.lineBreak = mode;
    text.lineLimit = 2;
    EXPECT_NEAR(measureText(text, {80, 0}).height, 2 * line, 0.01);
    text.lineLimit = 0;
    EXPECT_GT(measureText(text, {80, 0}).height, 3.9 * line);
  }
}

TEST(Text, NewlinesBeginLines) {
  Text text = plain("one\ntwo\nthree");
  text.lineLimit = 0;
  EXPECT_NEAR(measureText(text).height, 3 * measureText(plain("one")).height, 0.01);
  text.lineLimit = 2;
  EXPECT_NEAR(measureText(text, {200, 0}).height, 2 * measureText(plain("one")).height, 0.01);
}

TEST(Text, TruncationKeepsWithinTheWidth) {
  Text text = plain("A very long name of an application");
  for (const LineBreak mode : {LineBreak::truncateHead, LineBreak::truncateMiddle, LineBreak::truncateTail}) {
    text.lineBreak = mode;
    const CGSize size = measureText(text, {90, 0});
    EXPECT_LE(size.width, 90);
    EXPECT_GT(size.width, 60);
    EXPECT_NEAR(size.height, measureText(text).height, 0.01);
  }
}

// The ink of a truncated text begins like the whole one and ends in the low dots of an ellipsis.
TEST(Text, TruncatedTailEndsInAnEllipsis) {
  const Text text = plain("HHHHHHHHHHHHHHHH", 20);
  const Surface image = drawn(text, {{0, 0}, {100, 24}}, 100, 24);
  const test::InkBounds ink = test::inkBounds(image.get());
  bool highInk = false, lowInk = false;
  for (int x = ink.right - 3; x <= ink.right; ++x) {
    for (int y = 0; y < 24; ++y) (y < 14 ? highInk : lowInk) |= test::pixelAt(image.get(), x, y).alpha > 0;
  }
  EXPECT_TRUE(lowInk);
  EXPECT_FALSE(highInk);
}

TEST(Text, EllipsisStandsInTheLastLineThatFitsTheHeight) {
  Text text = plain("one two three four five six seven eight nine ten");
  text.lineLimit = 0;
  const double line = measureText(text).height;
  const CGSize limited = measureText(text, {80, 2.5 * line});
  EXPECT_NEAR(limited.height, 2 * line, 0.01);
  Text two = text;
  two.lineLimit = 2;
  EXPECT_EQ(limited, measureText(two, {80, 0}));
}

TEST(Text, IsAlignedInItsRect) {
  Text text = plain("HH", 20);
  const auto bounds = [&](TextAlignment alignment) {
    text.alignment = alignment;
    return test::inkBounds(drawn(text, {{0, 0}, {100, 24}}, 100, 24).get());
  };
  EXPECT_LT(bounds(TextAlignment::left).left, 4);
  EXPECT_GT(bounds(TextAlignment::right).right, 95);
  const test::InkBounds center = bounds(TextAlignment::center);
  EXPECT_NEAR(center.left, 99 - center.right, 1);
}

TEST(Text, StandsInTheMiddleOfItsHeightOrAtTheTop) {
  const Text text = plain("H", 20);
  const Surface middle = drawn(text, {{0, 0}, {40, 80}}, 40, 80);
  const Surface top = makeImage(40, 80);
  drawText(Context(top.get()), text, {{0, 0}, {40, 80}}, VerticalPlacement::top);
  const int shift = test::inkBounds(middle.get()).top - test::inkBounds(top.get()).top;
  EXPECT_NEAR(shift, (80 - measureText(text).height) / 2, 1);
}

TEST(Text, NothingIsDrawnIntoAnEmptyRect) {
  EXPECT_TRUE(test::inkBounds(drawn(plain("Hidden"), {{10, 10}, {0, 0}}, 60, 40).get()).empty);
}

TEST(Text, ClipCutsAtTheEdgeOfTheRect) {
  Text text = plain("HHHHHHHHHH", 20);
  text.lineBreak = LineBreak::clip;
  const test::InkBounds ink = test::inkBounds(drawn(text, {{0, 0}, {50, 24}}, 200, 24).get());
  EXPECT_EQ(ink.right, 49);
}

TEST(Text, HasTheColourOfItsRun) {
  Text text{.runs = {{"HHH", {.size = 30, .weight = FontWeight::black}, {1, 0, 0, 1}},
                     {"HHH", {.size = 30, .weight = FontWeight::black}, {0, 0, 1, 1}}}};
  const Surface image = drawn(text, {{0, 0}, {200, 40}}, 200, 40);
  const int width = static_cast<int>(measureText(text).width);
  bool redLeft = false, redRight = false, blueLeft = false, blueRight = false;
  for (int x = 0; x < 200; ++x) {
    const test::Pixel pixel = test::pixelAt(image.get(), x, 20);
    (x < width / 2 ? redLeft : redRight) |= pixel.red > 0;
    (x < width / 2 ? blueLeft : blueRight) |= pixel.blue > 0;
  }
  EXPECT_TRUE(redLeft && blueRight);
  EXPECT_FALSE(redRight || blueLeft);
}

TEST(Text, ShadowLiesBehindAtItsOffset) {
  Text text{.runs = {{"H", {.size = 40, .weight = FontWeight::bold}, whiteColor}}};
  const test::InkBounds bare = test::inkBounds(drawn(text, {{20, 20}, {60, 60}}, 100, 100).get());
  text.shadow = TextShadow{blackColor, {0, 10}, 0};
  const test::InkBounds hard = test::inkBounds(drawn(text, {{20, 20}, {60, 60}}, 100, 100).get());
  EXPECT_EQ(hard.top, bare.top);
  EXPECT_NEAR(hard.bottom, bare.bottom + 10, 1);
  text.shadow->radius = 2;
  const test::InkBounds soft = test::inkBounds(drawn(text, {{20, 20}, {60, 60}}, 100, 100).get());
  EXPECT_GT(soft.bottom, hard.bottom + 2);
  EXPECT_LT(soft.left, hard.left - 2);
}

TEST(Text, IsLaidOutTheSameAtEveryScale) {
  const Text text = plain("Scale", 20);
  const test::InkBounds one = test::inkBounds(drawn(text, {{0, 0}, {80, 30}}, 80, 30).get());
  const test::InkBounds three = test::inkBounds(drawn(text, {{0, 0}, {80, 30}}, 240, 90, 3).get());
  EXPECT_NEAR(three.right / 3.0, one.right, 1);
  EXPECT_NEAR(three.bottom / 3.0, one.bottom, 1);
}

TEST(Text, InvalidBytesAreShownAsReplacements) {
  EXPECT_GT(measureText(plain("a\xff\xfe z")).width, measureText(plain("a z")).width);
}

TEST(Text, SameTextGivesTheSameBytes) {
  const auto bytes = [] {
    return encodePng(drawn(plain("Determinism", 13), {{3.3, 1.7}, {100, 20}}, 210, 50, 2).get());
  };
  EXPECT_EQ(bytes(), bytes());
}

TEST(Glyph, StandsInTheMiddleAndFits) {
  const Surface image = makeImage(60, 60);
  drawGlyph(Context(image.get()), 0xf013, {.size = 500, .family = iconFontFamily}, {{10, 10}, {40, 40}},
            blackColor);
  const test::InkBounds ink = test::inkBounds(image.get());
  EXPECT_NEAR(ink.left, 10, 1);
  EXPECT_NEAR(ink.right, 49, 1);
  EXPECT_NEAR(ink.top + ink.bottom, 59, 2);
}

}  // namespace
}  // namespace sim
