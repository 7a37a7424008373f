// SBIconLabelImage and its parameters. Colours and rectangle are asked of the classes' own methods, so that
// whoever replaces these changes the label.
#include "simulator/springboard/icon_label.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <string>

#include "simulator/quartz/text.hpp"
#include "simulator/springboard/drawn_image.hpp"
#include "simulator/springboard/system_class.hpp"
#include "simulator/uikit/base/configuration.hpp"
#include "simulator/uikit/drawing/color.hpp"
#include "simulator/uikit/drawing/drawing_context.hpp"
#include "simulator/uikit/drawing/image.hpp"

namespace sim::springboard {
namespace {

constexpr double fontSize = 12;  // points

struct ParametersState {
  bridge::Strong<NSString> text;
};

using Parameters = bridge::Implementation<SBIconLabelImageParameters, ParametersState>;
using LabelImage = bridge::Implementation<SBIconLabelImage>;

NSString text(SBIconLabelImageParameters self) { return Parameters::state(self).text.get(); }
UIColor textColor(SBIconLabelImageParameters) { return UIColor::whiteColor(); }
UIColor shadowColor(SBIconLabelImageParameters) { return UIColor::colorWithWhite_alpha(0, 0.35); }

UIColor shadowOf(SBIconLabelImageParameters parameters) {
  return parameters.shadowColor.isAnswered() ? parameters.shadowColor.ifAnswered() : shadowColor(parameters);
}

Text styled(SBIconLabelImageParameters parameters) {
  Text label;
  label.runs = {
      {parameters.text().UTF8String(), Font{.size = fontSize}, uikit::colorOf(parameters.textColor())}};
  label.alignment = TextAlignment::center;
  label.lineBreak = LineBreak::truncateTail;
  label.lineLimit = 1;
  label.shadow = TextShadow{uikit::colorOf(shadowOf(parameters)), {0, 1}};
  return label;
}

// What was drawn of late, by what it looks like and its place on the picture: a page draws its labels anew
// whenever it is laid out, and mostly the same ones.
Surface pictureOf(const Text& label, CGSize size, double scale) {
  constexpr std::size_t most = 300;
  static auto& drawn = *new std::map<std::string, Surface>();
  const auto& [text, font, color] = label.runs.front();
  const Color& shadow = label.shadow->color;
  std::string key = fmt::format("{} {} {} {} {} {} {} {} {} {} {} {}", size.width, size.height, scale,
                                color.red, color.green, color.blue, color.alpha, shadow.red, shadow.green,
                                shadow.blue, shadow.alpha, text);
  if (auto found = drawn.find(key); found != drawn.end()) return found->second;
  if (drawn.size() == most) drawn.clear();
  const CGSize pixels{std::ceil(size.width * scale), std::ceil(size.height * scale)};
  Surface picture = makeImage(static_cast<int>(pixels.width), static_cast<int>(pixels.height));
  Context context(picture.get());
  cairo_scale(context, scale, scale);
  drawText(context, label, {{0, 0}, size});
  return drawn[std::move(key)] = picture;
}

// Draws the label at the origin of a context that shows points at the screen's scale; any other way of asking
// is served without a picture kept.
void drawLabel(cairo_t* context, const Text& label, CGRect rect) {
  cairo_matrix_t matrix;
  cairo_get_matrix(context, &matrix);
  const double scale = uikit::configuration().scale;
  const bool isUsual = matrix.xx == scale && matrix.yy == scale && matrix.xy == 0 && matrix.yx == 0 &&
                       matrix.x0 == 0 && matrix.y0 == 0 && rect.origin == CGPoint{};
  if (!isUsual) return drawText(context, label, rect);
  const SavedState saved(context);
  cairo_identity_matrix(context);
  cairo_set_source_surface(context, pictureOf(label, rect.size, scale).get(), 0, 0);
  cairo_paint(context);
}

// Centred in the rectangle; as wide as the text, or as the rectangle where the text is cut short.
CGRect rectWithDrawing(Class, BOOL drawing, CGRect rect, SBIconLabelImageParameters parameters) {
  Text label = styled(parameters);
  CGSize size = measureText(label, rect.size);
  CGFloat width = std::min(rect.size.width, std::ceil(size.width));
  CGRect place{{rect.origin.x + (rect.size.width - width) / 2, rect.origin.y}, {width, rect.size.height}};
  if (drawing && uikit::currentContext()) drawLabel(uikit::currentContext(), label, rect);
  return place;
}

}  // namespace

bridge::Strong<SBIconLabelImageParameters> makeLabelParameters(NSString text) {
  auto parameters = bridge::make<SBIconLabelImageParameters, &NSObject::init>();
  Parameters::state(parameters.get()).text = bridge::retained(text);
  return parameters;
}

LabelPicture labelPicture(SBIconLabelImageParameters parameters, CGRect room) {
  CGRect frame = SBIconLabelImage::_rectWithDrawing_inRect_fromParameters(NO, room, parameters);
  bool clear = uikit::colorOf(parameters.textColor()).alpha == 0;
  if (!(frame.size.width > 0 && frame.size.height > 0)) return {{}, frame, clear};
  // Drawn in the coordinates of the room.
  UIImage image =
      drawnImage(room.size, [parameters = bridge::retained(parameters)](cairo_t* context, CGSize size) {
        bridge::Pool pool;
        uikit::DrawingContext current(context);
        SBIconLabelImage::_rectWithDrawing_inRect_fromParameters(YES, {{0, 0}, size}, parameters.get());
      });
  // Drawn now: colours and rectangle are those of this layout, whatever their owner answers later.
  uikit::pixelsOf(image);
  return {image, frame, clear};
}

void defineIconLabel() {
  using Face = SBIconLabelImageParameters;
  defineSystemClass<Parameters>(own<&Face::text, text>(), own<&Face::textColor, textColor>(),
                                own<&Face::shadowColor, shadowColor>());
  defineSystemClass<LabelImage>(
      own<&SBIconLabelImage::_rectWithDrawing_inRect_fromParameters, rectWithDrawing>());
}

}  // namespace sim::springboard
