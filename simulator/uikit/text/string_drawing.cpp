// Measuring strings.
#include "platform/uikit/string_drawing.hpp"

#include "bridge/replace.hpp"
#include "simulator/quartz/text.hpp"
#include "simulator/runtime/export.hpp"
#include "simulator/uikit/text/font.hpp"

SIMULATOR_EXPORT const id NSFontAttributeName = "NSFont"_ns.raw;

namespace sim::uikit {
namespace {

constexpr double defaultSize = 12;  // points, of text without a font

UIFont fontIn(NSDictionary attributes) {
  const auto font = bridge::as<UIFont>(attributes.objectForKey(bridge::as<NSString>(NSFontAttributeName)));
  return font ? font : UIFont::fontWithName_size("Helvetica"_ns, defaultSize);
}

CGRect boundingRect(NSString self, CGSize size, NSInteger options, NSDictionary attributes, bridge::Object) {
  const bool oneLine = !(options & NSStringDrawingUsesLineFragmentOrigin);
  const Text text{.runs = {{.text = self.UTF8String(), .font = fontOf(fontIn(attributes))}},
                  .lineBreak = LineBreak::wordWrap,
                  .lineLimit = oneLine ? 1 : 0};
  return {{}, measureText(text, oneLine ? CGSize{} : size)};
}

}  // namespace

void defineStringDrawing() {
  using Face = NSExtendedStringDrawing;
  using Measuring = bridge::Descriptor<&Face::boundingRectWithSize_options_attributes_context>;
  bridge::install(bridge::add<NSString, &Face::boundingRectWithSize_options_attributes_context, boundingRect>(
      Measuring::types()));
}

}  // namespace sim::uikit
