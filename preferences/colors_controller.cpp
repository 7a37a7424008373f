// Swatches at the rows' right ends.
#include "preferences/colors_controller.hpp"

#include "bridge/define.hpp"
#include "platform/preferences/list_controller.hpp"
#include "platform/uikit/color.hpp"
#include "platform/uikit/layer.hpp"
#include "preferences/settings/specifiers.hpp"

namespace tilo::pane {
namespace {

struct ColorsController : bridge::Face<"TiloColorsController", PSListItemsController> {};
using Colors = bridge::Implementation<ColorsController>;

constexpr CGFloat side = 26, fromRight = 50, corner = 6;  // points; the check mark stands behind it
constexpr CGFloat edge = 0.5;                             // by which white is seen on white
constexpr CGFloat edgeWhite = 0.78;
constexpr NSInteger swatchTag = 2604;

int digit(unsigned short character) {
  return character <= '9' ? character - '0' : (character | 0x20) - 'a' + 10;
}

// "#F95473"
UIColor colorIn(NSString text) {
  auto part = [text](NSUInteger place) {
    return static_cast<CGFloat>(digit(text.characterAtIndex(place)) * 16 +
                                digit(text.characterAtIndex(place + 1))) /
           255;
  };
  if (text.length() != 7) return {};
  return UIColor::colorWithRed_green_blue_alpha(part(1), part(3), part(5), 1);
}

bridge::Strong<UIView> rounded(CGRect frame, CGFloat radius) {
  auto made = bridge::make<UIView, &UIView::initWithFrame>(frame);
  made->layer().cornerRadius.set(radius);
  made->userInteractionEnabled.set(NO);
  return made;
}

// Rows are used again for others as they scroll, and keep their swatch.
UIView swatchOf(UIView content) {
  if (UIView found = content.viewWithTag(swatchTag)) return found;
  CGRect room = content.bounds();
  CGPoint place{room.size.width - fromRight - side, (room.size.height - side) / 2};
  auto around =
      rounded({{place.x - edge, place.y - edge}, {side + 2 * edge, side + 2 * edge}}, corner + edge);
  around->autoresizingMask.set(UIViewAutoresizingFlexibleLeftMargin);
  around->backgroundColor.set(UIColor::colorWithWhite_alpha(edgeWhite, 1));
  auto swatch = rounded({{edge, edge}, {side, side}}, corner);
  swatch->tag.set(swatchTag);
  around->addSubview(swatch);
  content.addSubview(around);
  return std::move(swatch).autoreleased();
}

PSTableCell cell(ColorsController self, UIView table, NSIndexPath path) {
  PSTableCell made = Colors::super<&PSListController::tableView_cellForRowAtIndexPath>(self, table, path);
  NSArray colors = listIn(self.specifier().properties(), "validColors"_ns);
  NSUInteger row = path.indexAtPosition(1);
  if (row < colors.count())
    swatchOf(made.contentView())
        .backgroundColor.set(colorIn(bridge::as<NSString>(colors.objectAtIndex(row))));
  return made;
}

}  // namespace

void defineColorsController() {
  Colors::define<PSListItemsController>(
      bridge::method<&PSListController::tableView_cellForRowAtIndexPath, cell>());
}

}  // namespace tilo::pane
