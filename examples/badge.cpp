// A badge on every icon of the home screen: the row and the column that it stands in.
#include <cstdio>

#include "bridge/replace.hpp"
#include "platform/springboard/icon_list_view.hpp"
#include "platform/uikit/label.hpp"

static constexpr NSInteger ours = 4711;  // the tag that tells our view from SpringBoard's

static UILabel badgeOf(SBIconView icon) {
  if (UIView made = icon.viewWithTag(ours)) return bridge::as<UILabel>(made);
  auto badge = bridge::make<UILabel, &UIView::initWithFrame>(CGRect{{-6, -6}, {32, 20}});
  badge->tag.set(ours);
  badge->backgroundColor.set(UIColor::redColor());
  badge->textColor.set(UIColor::whiteColor());
  icon.addSubview(badge);
  return badge.get();
}

static void layOutIcon(SBIconView self) {
  bridge::original<layOutIcon>(self);
  if (!bridge::isKindOf<SBIconListView>(self.superview())) return;
  const auto list = bridge::as<SBIconListView>(self.superview());
  int row = 1, column = 1;
  for (NSUInteger i = 0; i < list.icons().count(); ++i) {
    if (list.viewForIcon(bridge::as<SBIcon>(list.icons().objectAtIndex(i))) == self) break;
    if (static_cast<NSUInteger>(++column) > list.iconColumnsForCurrentOrientation()) ++row, column = 1;
  }
  char text[32];
  std::snprintf(text, sizeof text, "%d,%d", row, column);
  badgeOf(self).text.set(NSString::stringWithUTF8String(text));
}

[[gnu::constructor]] static void load() {
  bridge::install(bridge::replace<SBIconView, &UIView::layoutSubviews, layOutIcon>());
}
