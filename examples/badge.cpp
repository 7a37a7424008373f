// A badge on every icon of the home screen: the row and the column that it stands in.
#include <cstdio>

#include "bridge/replace.hpp"
#include "platform/foundation/array.hpp"
#include "platform/springboard/icon_list_view.hpp"
#include "platform/uikit/label.hpp"

namespace {

constexpr NSInteger ours = 4711;  // the tag that tells our view from SpringBoard's

UILabel badgeOf(SBIconView icon) {
  if (UIView made = icon.viewWithTag(ours)) return bridge::as<UILabel>(made);
  auto badge = bridge::make<UILabel, &UIView::initWithFrame>(CGRect{{-6, -6}, {30, 16}});
  badge->tag.set(ours);
  badge->backgroundColor.set(UIColor::redColor());
  badge->textColor.set(UIColor::whiteColor());
  badge->textAlignment.set(NSTextAlignmentCenter);
  badge->font.set(UIFont::boldSystemFontOfSize(11));
  icon.addSubview(badge);
  return badge.get();
}

void layOutIcon(SBIconView self) {
  bridge::original<layOutIcon>(self);
  if (!bridge::isKindOf<SBIconListView>(self.superview())) return;
  const auto list = bridge::as<SBIconListView>(self.superview());
  const NSArray icons = list.icons();
  const int columns = static_cast<int>(list.iconColumnsForCurrentOrientation());
  int row = 1, column = 1;
  for (NSUInteger i = 0; i < icons.count(); ++i) {
    if (list.viewForIcon(bridge::as<SBIcon>(icons.objectAtIndex(i))) == self) break;
    if (++column > columns) ++row, column = 1;
  }
  char text[32];
  std::snprintf(text, sizeof text, "%d,%d", row, column);
  badgeOf(self).text.set(NSString::stringWithUTF8String(text));
}

[[gnu::constructor]] void load() {
  bridge::Pool pool;
  bridge::install(bridge::replace<SBIconView, &UIView::layoutSubviews, layOutIcon>());
}

}  // namespace
