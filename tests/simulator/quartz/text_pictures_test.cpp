// Texts that are kept as pictures look as if they were painted anew.
#include "simulator/quartz/text_pictures.hpp"

#include <gtest/gtest.h>

#include <cstring>
#include <functional>

#include "simulator/quartz/fonts.hpp"
#include "simulator/quartz/surface.hpp"
#include "simulator/quartz/text.hpp"

namespace sim {
namespace {

// A text on its way into a picture.
struct Sheet {
  Text text{.runs = {{"Side Inset", {.size = 17}}}};
  CGRect rect{{3.5, 2}, {90, 24}};
  VerticalPlacement placement = VerticalPlacement::middle;
  double scale = 2;
  std::function<void(cairo_t*)> before = [](cairo_t*) {};

  using Draw = void (*)(cairo_t*, const Text&, const CGRect&, VerticalPlacement);
  Surface by(Draw draw) const {
    Surface image = makeImage(200, 60);
    {
      const Context context(image.get());
      cairo_scale(context, scale, scale);
      before(context);
      draw(context, text, rect, placement);
      // Goes on as if the text had been painted.
      cairo_rectangle(context, 90, 0, 4, 4);
      cairo_fill(context);
    }
    cairo_surface_flush(image.get());
    return image;
  }
};

void expectSame(const Sheet& sheet) {
  const Surface anew = sheet.by(paintText);
  for (int i = 0; i < 2; ++i) {
    const Surface drawn = sheet.by(drawText);
    EXPECT_EQ(0, std::memcmp(cairo_image_surface_get_data(drawn.get()),
                             cairo_image_surface_get_data(anew.get()), bytesOf(anew.get())))
        << i;
  }
}

TEST(TextPicture, IsTheSameAgain) { expectSame({}); }

TEST(TextPicture, IsAnotherWhenAnythingIs) {
  expectSame({});
  const std::function<void(Sheet&)> changes[] = {
      [](Sheet& sheet) { sheet.text.runs[0].text = "Top Inset"; },
      [](Sheet& sheet) { sheet.text.runs[0].color = {0, 0, 1, 1}; },
      [](Sheet& sheet) { sheet.text.runs[0].font.size = 18; },
      [](Sheet& sheet) { sheet.text.runs[0].font.weight = FontWeight::bold; },
      [](Sheet& sheet) { sheet.text.runs.push_back({"!"}); },
      [](Sheet& sheet) { sheet.text.alignment = TextAlignment::right; },
      [](Sheet& sheet) { sheet.text.lineLimit = 0, sheet.rect.size.width = 40; },
      [](Sheet& sheet) { sheet.text.shadow = TextShadow{blackColor, {1, 1}, 2}; },
      [](Sheet& sheet) { sheet.rect.origin.x += 0.25; },
      [](Sheet& sheet) { sheet.placement = VerticalPlacement::top; },
      [](Sheet& sheet) { sheet.scale = 2.5; },
  };
  for (const auto& change : changes) {
    Sheet sheet;
    change(sheet);
    expectSame(sheet);
  }
}

TEST(TextPicture, IsOnlyForWhatIsClear) {
  expectSame({});
  const std::function<void(cairo_t*)> grounds[] = {
      [](cairo_t* context) {
        cairo_set_source_rgba(context, 1, 0, 0, 0.5);
        cairo_rectangle(context, 80, 20, 1, 1);
        cairo_fill(context);
      },
      [](cairo_t* context) {
        cairo_rectangle(context, 0, 0, 30, 30);
        cairo_clip(context);
      },
      [](cairo_t* context) { cairo_set_operator(context, CAIRO_OPERATOR_DEST_OUT); },
      [](cairo_t* context) { cairo_set_fill_rule(context, CAIRO_FILL_RULE_EVEN_ODD); },
      [](cairo_t* context) { cairo_rectangle(context, 10, 0, 30, 30); },
  };
  for (const auto& ground : grounds) {
    Sheet sheet;
    sheet.before = ground;
    expectSame(sheet);
  }
}

// Until then another family stands in.
TEST(TextPicture, IsForgottenWhenAFontIsAdded) {
  Sheet sheet;
  sheet.text.runs = {{utf8(0xf013), {.size = 17, .family = iconFontFamily}}};
  const Surface before = sheet.by(drawText);
  addTextFont("/usr/share/fonts/opentype/font-awesome/FontAwesome.otf", iconFontFamily);
  const Surface after = sheet.by(drawText);
  EXPECT_NE(0, std::memcmp(cairo_image_surface_get_data(before.get()),
                           cairo_image_surface_get_data(after.get()), bytesOf(after.get())));
}

}  // namespace
}  // namespace sim
