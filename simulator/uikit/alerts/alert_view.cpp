// The card that an alert is: texts that scroll when they are long, and buttons below them.
#include "simulator/uikit/alerts/alert_view.hpp"

#include <algorithm>
#include <cmath>
#include <vector>

#include "bridge/define.hpp"
#include "platform/uikit/color.hpp"
#include "platform/uikit/layer.hpp"
#include "platform/uikit/scroll_view.hpp"
#include "simulator/uikit/alerts/alert_layout.hpp"
#include "simulator/uikit/base/configuration.hpp"
#include "simulator/uikit/text/keyboard.hpp"
#include "simulator/uikit/views/view.hpp"

namespace sim::uikit {
namespace {

using bridge::Strong;

constexpr double cornerRadius = 14, titleSize = 17, messageSize = 13;  // points
constexpr double fieldHeight = 26, fieldMargin = 5;
constexpr double screenMargin = 24;  // above and below the highest alert

constexpr Color fieldBorderColor = rgb(0x4d4d4d, 0.6);

struct AlertState {
  Strong<UIScrollView> header;
  Strong<UILabel> title, message;
  std::vector<Strong<UIView>> fields;        // each holds a text field
  std::vector<Strong<AlertButton>> buttons;  // in the order of the actions
  std::vector<Strong<UIView>> lines;
};

using AlertClass = bridge::Implementation<AlertView, AlertState>;

double pixel() { return 1 / configuration().scale; }

Strong<UILabel> makeText(NSString text, UIFont font) {
  auto label = bridge::make<UILabel, &UIView::initWithFrame>(CGRect{});
  label->text.set(text);
  label->font.set(font);
  label->numberOfLines.set(0);
  label->lineBreakMode.set(NSLineBreakByWordWrapping);
  label->textAlignment.set(NSTextAlignmentCenter);
  return label;
}

double heightOf(UILabel label) {
  return label.text().length() ? label.sizeThatFits({alertTextWidth, 0}).height : 0;
}

bool cancels(const Strong<AlertButton>& button) {
  return actionOf(button).style() == UIAlertActionStyleCancel;
}

// The one that cancels comes first of two, and last of more.
std::vector<Strong<AlertButton>> inOrder(AlertView self) {
  std::vector<Strong<AlertButton>> buttons = AlertClass::state(self).buttons;
  const auto cancelling = std::ranges::find_if(buttons, cancels);
  if (cancelling == buttons.end()) return buttons;
  if (buttons.size() == 2)
    std::rotate(buttons.begin(), cancelling, cancelling + 1);
  else
    std::rotate(cancelling, cancelling + 1, buttons.end());
  return buttons;
}

AlertLayout layoutWithin(AlertView self, double greatestHeight) {
  const AlertState& state = AlertClass::state(self);
  AlertContent content{.titleHeight = heightOf(state.title),
                       .messageHeight = heightOf(state.message),
                       .fields = static_cast<int>(state.fields.size()),
                       .fieldHeight = fieldHeight};
  for (const auto& button : inOrder(self)) content.buttonWidths.push_back(titleWidth(button));
  return layOutAlert(content, greatestHeight, pixel());
}

CGSize sizeThatFits(AlertView self, CGSize room) {
  return layoutWithin(self, room.height - 2 * screenMargin).size;
}

void placeLines(AlertView self, const std::vector<CGRect>& frames) {
  auto& lines = AlertClass::state(self).lines;
  while (lines.size() < frames.size()) {
    auto line = bridge::make<UIView, &UIView::initWithFrame>(CGRect{});
    line->backgroundColor.set(UIColor::colorWithWhite_alpha(0, 0.2));
    self.addSubview(line);
    lines.push_back(std::move(line));
  }
  for (std::size_t i = 0; i < frames.size(); ++i) lines[i]->frame.set(frames[i]);
}

void layoutSubviews(AlertView self) {
  const AlertState& state = AlertClass::state(self);
  const AlertLayout layout = layoutWithin(self, self.bounds().size.height);
  state.header->frame.set(layout.header);
  state.header->contentSize.set({layout.header.size.width, layout.headerContentHeight});
  state.title->frame.set(layout.title);
  state.message->frame.set(layout.message);
  for (std::size_t i = 0; i < state.fields.size(); ++i) state.fields[i]->frame.set(layout.fields[i]);
  const auto buttons = inOrder(self);
  for (std::size_t i = 0; i < buttons.size(); ++i) buttons[i]->frame.set(layout.buttons[i]);
  placeLines(self, layout.lines);
}

}  // namespace

Strong<AlertView> makeAlertView(NSString title, NSString message) {
  auto card = bridge::make<AlertView, &UIView::initWithFrame>(CGRect{});
  card->backgroundColor.set(UIColor::colorWithWhite_alpha(0.973, 1));
  card->clipsToBounds.set(YES);
  card->layer().cornerRadius.set(cornerRadius);
  AlertState& state = AlertClass::state(card);
  state.header = bridge::make<UIScrollView, &UIView::initWithFrame>(CGRect{});
  state.title = makeText(title, UIFont::boldSystemFontOfSize(titleSize));
  state.message = makeText(message, UIFont::systemFontOfSize(messageSize));
  state.header->addSubview(state.title);
  state.header->addSubview(state.message);
  card->addSubview(state.header);
  return card;
}

void addButton(AlertView card, Strong<AlertButton> button) {
  card.addSubview(button);
  AlertClass::state(card).buttons.push_back(std::move(button));
  card.setNeedsLayout();
}

void addField(AlertView card, UITextField field) {
  auto box = bridge::make<UIView, &UIView::initWithFrame>(CGRect{{}, {alertTextWidth, fieldHeight}});
  box->backgroundColor.set(UIColor::whiteColor());
  layerOf(box.get()).borderWidth = pixel();
  layerOf(box.get()).borderColor = fieldBorderColor;
  field.frame.set({{fieldMargin, 0}, {alertTextWidth - 2 * fieldMargin, fieldHeight}});
  field.autoresizingMask.set(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
  box->addSubview(field);
  AlertState& state = AlertClass::state(card);
  state.header->addSubview(box);
  state.fields.push_back(std::move(box));
  card.setNeedsLayout();
}

CGRect roomForAlerts(UIView stage) {
  CGRect room = stage.bounds();
  if (const CGRect keys = keyboardFrame(); keys.size.height > 0)
    room.size.height = std::min(room.size.height, keys.origin.y);
  return room;
}

CGPoint alertCenter(const CGRect& room, CGSize size) {
  auto start = [](double origin, double length, double own) {
    return origin + std::floor((length - own) / 2 / pixel()) * pixel();
  };
  return {start(room.origin.x, room.size.width, size.width) + size.width / 2,
          start(room.origin.y, room.size.height, size.height) + size.height / 2};
}

void defineAlertView() {
  using bridge::method;
  AlertClass::define<UIView>(method<&UIView::sizeThatFits, sizeThatFits>(),
                             method<&UIView::layoutSubviews, layoutSubviews>());
}

}  // namespace sim::uikit
