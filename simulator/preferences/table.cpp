// Laying a page's rows out.
#include "simulator/preferences/table.hpp"

#include <algorithm>
#include <cctype>
#include <cmath>

#include "bridge/define.hpp"
#include "simulator/preferences/look.hpp"
#include "simulator/preferences/specifier.hpp"
#include "simulator/preferences/table_cell.hpp"

namespace sim::preferences {
namespace {

using bridge::Strong;

struct Table : bridge::Face<"PSTable", UIScrollView> {};

struct RowPath : bridge::Face<"NSIndexPath", NSIndexPath> {
  MESSAGE Method<"indexPathByAddingIndex:", NSIndexPath(NSUInteger)> indexPathByAddingIndex;
};

struct TableState {
  std::function<void()> build, scrolled;
  CGFloat width = 0;
};

using TableClass = bridge::Implementation<Table, TableState>;

// Points between groups, and between their texts and their rows.
constexpr CGFloat firstSpace = 35, groupSpace = 22, captionSpace = 8, lastSpace = 35;

struct Builder {
  UIScrollView table;
  PSListController controller;
  CGFloat width, y = 0;
  NSUInteger section = 0, row = 0;  // of the next cell
  bool first = true;
  Strong<NSString> footer;
  std::vector<PSTableCell> cells;

  void line(CGFloat left) {
    const auto made = makeBox({{left, y}, {width - left, pixel()}}, separatorColor);
    table.addSubview(made);
  }

  // Part of the bar, as high as what is drawn down while the page is at its top.
  void largeTitle(NSString text) {
    const auto ground = makeBox({{0, -width}, {width, width + largeTitleHeight}}, barColor);
    table.addSubview(ground);
    const auto label = makeLabel(text, UIFont::boldSystemFontOfSize(largeTitleSize), textColor);
    label->frame.set({{margin(), 0}, {width - 2 * margin(), largeTitleHeight - 8}});
    table.addSubview(label);
    y = largeTitleHeight;
    const auto made = makeBox({{0, y - pixel()}, {width, pixel()}}, barLineColor);
    table.addSubview(made);
  }

  // A paragraph in the captions' style, from y on.
  void caption(NSString text) {
    const auto label = makeLabel(text, UIFont::systemFontOfSize(captionSize), captionColor);
    label->numberOfLines.set(0);
    const CGFloat room = width - 2 * margin();
    const CGSize size = label->sizeThatFits({room, 10000});
    label->frame.set({{margin(), y}, {room, std::ceil(size.height)}});
    table.addSubview(label);
    y += std::ceil(size.height);
  }

  void endGroup() {
    if (row > 0) line(0);
    if (footer) {
      y += captionSpace;
      caption(footer);
    }
    footer.clear();
    row = 0;
  }

  void beginGroup(PSSpecifier group) {
    if (!first) endGroup(), ++section;
    y += first ? firstSpace : groupSpace;
    first = false;
    if (const NSString name = group.name(); name && name.length()) {
      std::string upper = name.UTF8String();
      std::ranges::transform(upper, upper.begin(), [](unsigned char c) { return std::toupper(c); });
      caption(NSString::stringWithUTF8String(upper.c_str()));
      y += captionSpace;
    }
    const bridge::Object text = group.propertyForKey("footerText"_ns);
    footer = bridge::retained(bridge::as<NSString>(text));
  }

  void addRow() {
    if (first) y += firstSpace, first = false;
    const auto sectionPath = bridge::as<RowPath>(NSIndexPath::indexPathWithIndex(section));
    const NSIndexPath path = sectionPath.indexPathByAddingIndex(row);
    const PSTableCell cell = controller.tableView_cellForRowAtIndexPath(table, path);
    cell.frame.set({{0, y}, {width, rowHeight}});
    table.addSubview(cell);
    line(row == 0 ? 0 : textLeft(cell.specifier()));
    cells.push_back(cell);
    y += rowHeight;
    ++row;
  }
};

void layoutSubviews(Table self) {
  TableClass::super<&UIView::layoutSubviews>(self);
  // One whose page has gone, where Settings were opened anew, may be seen for a while: nobody is to be asked.
  if (!bridge::isKindOf<UIViewController>(self.nextResponder())) return;
  TableState& state = TableClass::state(self);
  const CGFloat width = self.bounds().size.width;
  state.scrolled();
  if (width == state.width) return;
  state.width = width;
  state.build();
}

}  // namespace

Strong<UIScrollView> makeTable(std::function<void()> build, std::function<void()> scrolled) {
  const auto made = bridge::make<Table, &UIView::initWithFrame>(UIScreen::mainScreen().bounds());
  TableClass::state(made.get()).build = std::move(build);
  TableClass::state(made.get()).scrolled = std::move(scrolled);
  const auto paint = uikit::makeColor(background);
  made->backgroundColor.set(paint);
  made->autoresizingMask.set(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
  made->alwaysBounceVertical.set(YES);
  return made;
}

std::vector<PSTableCell> buildTable(UIScrollView table, PSListController controller, NSString title) {
  const NSArray old = table.subviews();
  for (NSUInteger i = old.count(); i > 0; --i)
    bridge::as<UIView>(old.objectAtIndex(i - 1)).removeFromSuperview();
  Builder builder{table, controller, table.bounds().size.width, 0, 0, 0, true, {}, {}};
  if (title) builder.largeTitle(title);
  const NSArray rows = controller.specifiers();
  for (NSUInteger i = 0; i < rows.count(); ++i) {
    const auto row = bridge::as<PSSpecifier>(rows.objectAtIndex(i));
    if (rowOf(row).cell == Cell::group)
      builder.beginGroup(row);
    else
      builder.addRow();
  }
  builder.endGroup();
  table.contentSize.set({builder.width, builder.y + lastSpace});
  return std::move(builder.cells);
}

PSSpecifier rowAt(NSArray specifiers, NSIndexPath path) {
  NSUInteger section = 0, row = 0;
  bool any = false;
  for (NSUInteger i = 0; i < specifiers.count(); ++i) {
    const auto each = bridge::as<PSSpecifier>(specifiers.objectAtIndex(i));
    if (rowOf(each).cell == Cell::group) {
      section += any;
      row = 0;
    } else if (section == path.indexAtPosition(0) && row++ == path.indexAtPosition(1)) {
      return each;
    }
    any = true;
  }
  return {};
}

void defineTable() {
  TableClass::define<UIScrollView>(bridge::method<&UIView::layoutSubviews, layoutSubviews>());
}

}  // namespace sim::preferences
