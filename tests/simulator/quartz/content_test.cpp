// Contents that look alike are one, and so are the pictures that are painted of them.
#include "simulator/quartz/content.hpp"

#include <gtest/gtest.h>

#include <cstring>

#include "simulator/quartz/display_list.hpp"
#include "tests/simulator/quartz/composite.hpp"
#include "tests/simulator/quartz/pixels.hpp"

namespace sim {
namespace {

Surface filled(int side, const Color& color) {
  Surface image = makeImage(side, side);
  const Context context(image.get());
  setSource(context, color);
  cairo_paint(context);
  return image;
}

constexpr Color red{1, 0, 0, 1}, green{0, 1, 0, 1};

TEST(Content, ThatLooksAlikeIsOne) {
  const Content first = contentOf(filled(8, red), {8, 8}, 1);
  const Content second = contentOf(filled(8, red), {8, 8}, 1);
  EXPECT_EQ(first.id, second.id);
  EXPECT_EQ(first.image, second.image);
}

TEST(Content, OfOtherPixelsIsAnother) {
  EXPECT_NE(contentOf(filled(8, red), {8, 8}, 1).id, contentOf(filled(8, green), {8, 8}, 1).id);
}

TEST(Content, OfAnotherSizeIsAnother) {
  const auto first = contentOf(filled(8, red), {8, 8}, 1).id;
  EXPECT_NE(contentOf(filled(9, red), {8, 8}, 1).id, first);
  EXPECT_NE(contentOf(filled(8, red), {7.9, 8}, 1).id, first);
}

TEST(Content, OfAnotherScaleIsAnother) {
  EXPECT_NE(contentOf(filled(8, red), {8, 8}, 1).id, contentOf(filled(8, red), {8, 8}, 2).id);
}

// A panel of which only the looks count: with a drawing of its own and a shadow.
struct Panel {
  explicit Panel(const Color& color) {
    root.setFrame({{0, 0}, {60, 60}});
    card.setFrame({{10, 10}, {40, 40}});
    card.shouldRasterize = true;
    card.shadowOpacity = 0.5;
    leaf.setFrame({{5, 5}, {20, 20}});
    leaf.setDraw([this, color](cairo_t* context, CGSize) {
      ++draws;
      setSource(context, color);
      cairo_paint(context);
    });
    card.addChild(plain);
    card.addChild(leaf);
    root.addChild(card);
  }

  // What the whole of it is known by.
  double picture(double scale = 1) {
    Layer* const roots[] = {&root};
    const int side = static_cast<int>(60 * scale);
    const DisplayList list = listOf(roots, 0, {0, 0, side, side}, scale);
    return list.numbersOf(list.entries.size() - 1)[0];
  }

  int draws = 0;
  Layer root, card, plain, leaf;
};

TEST(Panels, ThatLookAlikeAreOnePicture) {
  Panel first(red), second(red);
  EXPECT_EQ(first.picture(), second.picture());
}

TEST(Panels, ArePaintedOnceHoweverOftenTheyAreMade) {
  const double first = Panel(green).picture();
  EXPECT_EQ(Panel(green).picture(), first);
}

TEST(Panels, OfOtherColorsAreOtherPictures) {
  Panel first(red), second({1, 0, 0.5, 1}), dark(red);
  dark.card.backgroundColor = {0.1, 0.1, 0.1, 1};
  EXPECT_NE(first.picture(), second.picture());
  EXPECT_NE(first.picture(), dark.picture());
}

TEST(Panels, OfAnotherScaleAreOtherPictures) {
  Panel first(red), second(red);
  for (Panel* each : {&first, &second}) each->card.shouldRasterize = false;
  EXPECT_NE(first.picture(1), second.picture(2));
}

TEST(Panels, ThatHaveChangedAreOtherPictures) {
  Panel first(red), second(red);
  const double before = first.picture();
  second.leaf.position.x += 1;
  EXPECT_NE(second.picture(), before);
  second.leaf.position.x -= 1;
  EXPECT_EQ(second.picture(), before);
}

// As many as there is no room for.
TEST(Panels, AreNotKeptForEver) {
  const double first = Panel(red).picture();
  for (int i = 0; i < 300; ++i) {
    Panel other(green);
    other.card.cornerRadius = 1 + i / 100.0;
    other.picture();
  }
  EXPECT_NE(Panel(red).picture(), first);
}

TEST(Drawing, ThatComesOutAsBeforeChangesNothing) {
  Panel panel(red);
  Layer* const roots[] = {&panel.root};
  PaintedScreen screen;
  screen.draw(roots, 0, 60, 60, 1);
  panel.leaf.setNeedsDisplay();
  screen.draw(roots, 0, 60, 60, 1);
  EXPECT_EQ(panel.draws, 2);
  EXPECT_TRUE(screen.changed().isEmpty());
}

}  // namespace
}  // namespace sim
