// SBIconLabelImage and its parameters. Colours and rectangle are asked of the classes' own methods, so that
// whoever replaces these changes the label.
#include "simulator/springboard/icon_label.hpp"

#include <algorithm>
#include <cmath>

#include "bridge/define.hpp"
#include "simulator/quartz/text.hpp"
#include "simulator/springboard/drawn_image.hpp"
#include "simulator/uikit/color.hpp"
#include "simulator/uikit/drawing_context.hpp"

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

Text styled(SBIconLabelImageParameters parameters) {
  Text label;
  label.runs = {
      {parameters.text().UTF8String(), Font{.size = fontSize}, uikit::colorOf(parameters.textColor())}};
  label.alignment = TextAlignment::center;
  label.lineBreak = LineBreak::truncateTail;
  label.lineLimit = 1;
  label.shadow = TextShadow{uikit::colorOf(parameters.shadowColor()), {0, 1}};
  return label;
}

// Centred in the rectangle; as wide as the text, or as the rectangle where the text is cut short.
CGRect rectWithDrawing(Class, BOOL drawing, CGRect rect, SBIconLabelImageParameters parameters) {
  Text label = styled(parameters);
  CGSize size = measureText(label, rect.size);
  CGFloat width = std::min(rect.size.width, std::ceil(size.width));
  CGRect place{{rect.origin.x + (rect.size.width - width) / 2, rect.origin.y}, {width, rect.size.height}};
  if (drawing && uikit::currentContext()) drawText(uikit::currentContext(), label, rect);
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
  return {image, frame, clear};
}

void defineIconLabel() {
  using bridge::method;
  using Face = SBIconLabelImageParameters;
  Parameters::define<NSObject>(method<&Face::text, text>(), method<&Face::textColor, textColor>(),
                               method<&Face::shadowColor, shadowColor>());
  LabelImage::define<UIImage>(
      method<&SBIconLabelImage::_rectWithDrawing_inRect_fromParameters, rectWithDrawing>());
}

}  // namespace sim::springboard
