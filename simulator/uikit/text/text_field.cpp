// UITextField: the class and its looks.
#include "simulator/uikit/text/text_field.hpp"

#include <algorithm>

#include "bridge/define.hpp"
#include "simulator/quartz/shapes.hpp"
#include "simulator/quartz/text.hpp"
#include "simulator/uikit/drawing/color.hpp"
#include "simulator/uikit/drawing/drawing_context.hpp"
#include "simulator/uikit/text/clear_button.hpp"
#include "simulator/uikit/text/font.hpp"
#include "simulator/uikit/text/keyboard.hpp"
#include "simulator/uikit/views/view.hpp"

namespace sim::uikit {
namespace {

using bridge::Strong;
using TextFieldClass = bridge::Implementation<UITextField, TextFieldState>;

// Measures of system 7 and later, points.
constexpr CGFloat roundedMargin = 7;  // between a rounded border and the text
constexpr CGFloat cornerRadius = 5, borderWidth = 0.5;
constexpr CGFloat caretWidth = 2;
constexpr Color borderColor = rgb(0xcdcdcd), placeholderColor = rgb(0xc7c7cd);

struct Copied : bridge::Face<"NSString", NSObject> {
  MESSAGE Method<"copy", NSString()> copy;
};

bool showsClearButton(UITextField self) {
  const TextFieldState& state = stateOf(self);
  if (!self.hasText()) return false;
  switch (state.clearButtonMode) {
    case UITextFieldViewModeWhileEditing:
      return state.editing;
    case UITextFieldViewModeUnlessEditing:
      return !state.editing;
    default:
      return state.clearButtonMode == UITextFieldViewModeAlways;
  }
}

bool hasBorder(UITextField self) { return stateOf(self).borderStyle != UITextBorderStyleNone; }

// Where text goes, beside the clear button.
CGRect textRect(UITextField self) {
  const CGSize size = self.bounds().size;
  const CGFloat margin = hasBorder(self) ? roundedMargin : 0;
  const CGFloat right = showsClearButton(self) ? clearButtonWidth : margin;
  return {{margin, 0}, {std::max<CGFloat>(size.width - margin - right, 0.0), size.height}};
}

Text makeText(UITextField self, NSString words, const Color& color) {
  const NSInteger alignment = stateOf(self).textAlignment;
  Text text{.runs = {},
            .alignment = alignment == NSTextAlignmentCenter  ? TextAlignment::center
                         : alignment == NSTextAlignmentRight ? TextAlignment::right
                                                             : TextAlignment::left,
            .lineBreak = LineBreak::truncateTail,
            .lineLimit = 1};
  text.runs.push_back({words.UTF8String(), fontOf(self.font()), color});
  return text;
}

Text ownText(UITextField self) { return makeText(self, self.text(), colorOf(self.textColor())); }

double widthOf(const Text& text) { return measureText(text).width; }

// While it is edited, a text that is too long is moved to the left so that its end can be seen.
CGRect shownRect(UITextField self, const Text& text) {
  CGRect rect = textRect(self);
  const double width = widthOf(text) + caretWidth;
  if (!stateOf(self).editing || width <= rect.size.width) return rect;
  rect.origin.x += rect.size.width - width;
  rect.size.width = width;
  return rect;
}

CGFloat endOfText(UITextField self) {
  const Text text = ownText(self);
  const CGRect rect = shownRect(self, text);
  const double width = widthOf(text);
  const double room = rect.size.width - width;
  if (text.alignment == TextAlignment::center) return rect.origin.x + room / 2 + width;
  if (text.alignment == TextAlignment::right) return rect.origin.x + rect.size.width - caretWidth;
  return rect.origin.x + width;
}

void placeCaret(UITextField self) {
  const TextFieldState& state = stateOf(self);
  state.caret->hidden.set(!state.editing);
  if (!state.editing) return;
  const CGFloat height = fontMetrics(fontOf(self.font())).lineHeight;
  state.caret->backgroundColor.set(self.tintColor());
  state.caret->frame.set({{endOfText(self), (self.bounds().size.height - height) / 2}, {caretWidth, height}});
}

void layoutSubviews(UITextField self) {
  const CGSize size = self.bounds().size;
  const Strong<UIControl>& clear = stateOf(self).clearButton;
  clear->hidden.set(!showsClearButton(self));
  clear->frame.set({{size.width - clearButtonWidth, 0}, {clearButtonWidth, size.height}});
  placeCaret(self);
}

void drawBorder(UITextField self) {
  cairo_t* const context = currentContext();
  const CGSize size = self.bounds().size;
  const bool isRounded = stateOf(self).borderStyle == UITextBorderStyleRoundedRect;
  addRoundedRect(context,
                 {{borderWidth / 2, borderWidth / 2}, {size.width - borderWidth, size.height - borderWidth}},
                 isRounded ? cornerRadius : 0);
  setSource(context, isRounded ? whiteColor : clearColor);
  cairo_fill_preserve(context);
  setSource(context, borderColor);
  cairo_set_line_width(context, borderWidth);
  cairo_stroke(context);
}

void drawRect(UITextField self, CGRect) {
  if (hasBorder(self)) drawBorder(self);
  const SavedState saved(currentContext());
  const CGRect clip = textRect(self);
  cairo_rectangle(currentContext(), clip.origin.x, clip.origin.y, clip.size.width, clip.size.height);
  cairo_clip(currentContext());
  const NSString placeholder = self.placeholder();
  if (self.hasText()) {
    const Text text = ownText(self);
    drawText(currentContext(), text, shownRect(self, text));
  } else if (placeholder) {
    drawText(currentContext(), makeText(self, placeholder, placeholderColor), clip);
  }
}

// Looks.

NSString text(UITextField self) {
  const Strong<NSString>& text = stateOf(self).text;
  return text ? text.get() : ""_ns;
}

void setText(UITextField self, NSString text) {
  stateOf(self).text = bridge::as<Copied>(text).copy();
  textFieldChanged(self);
}

NSString placeholder(UITextField self) { return stateOf(self).placeholder; }

void setPlaceholder(UITextField self, NSString placeholder) {
  stateOf(self).placeholder = bridge::as<Copied>(placeholder).copy();
  textFieldChanged(self);
}

UIFont font(UITextField self) {
  Strong<UIFont>& font = stateOf(self).font;
  if (!font) font = retained(UIFont::systemFontOfSize(17));
  return font;
}

void setFont(UITextField self, UIFont font) {
  stateOf(self).font = retained(font);
  textFieldChanged(self);
}

UIView inputView(UITextField self) { return stateOf(self).inputView; }
void setInputView(UITextField self, UIView view) { stateOf(self).inputView = retained(view); }
UIView inputAccessoryView(UITextField self) { return stateOf(self).inputAccessoryView; }
void setInputAccessoryView(UITextField self, UIView view) {
  stateOf(self).inputAccessoryView = retained(view);
}

UIColor textColor(UITextField self) {
  const Strong<UIColor>& color = stateOf(self).textColor;
  return color ? color.get() : UIColor::blackColor();
}

void setTextColor(UITextField self, UIColor color) {
  stateOf(self).textColor = retained(color);
  textFieldChanged(self);
}

// Editing.

BOOL isEditing(UITextField self) { return stateOf(self).editing; }
BOOL hasText(UITextField self) { return self.text().length() > 0; }
BOOL canBecomeFirstResponder(UITextField self) { return self.enabled(); }

// A tap begins to edit.
void endTracking(UITextField self, UITouch, UIEvent) {
  if (self.isTouchInside()) self.becomeFirstResponder();
}

Strong<UIView> initWithFrame(UITextField self, CGRect frame) {
  auto made = TextFieldClass::super<&UIView::initWithFrame>(self, frame);
  const auto field = bridge::as<UITextField>(made.get());
  field.contentMode.set(UIViewContentModeRedraw);
  TextFieldState& state = stateOf(field);
  state.caret = bridge::make<UIView, &UIView::initWithFrame>(CGRect{});
  state.caret->userInteractionEnabled.set(NO);
  state.clearButton = makeClearButton();
  field.addSubview(state.caret);
  field.addSubview(state.clearButton);
  return made;
}

}  // namespace

TextFieldState& stateOf(UITextField field) { return TextFieldClass::state(field); }

void textFieldChanged(UITextField field) {
  field.setNeedsDisplay();
  field.setNeedsLayout();
  keyboardHears(field);
}

void defineTextField() {
  using bridge::method;
  using Face = UITextField;
  using State = TextFieldState;
  defineClearButton();
  TextFieldClass::define<UIControl>(
      method<&UIView::initWithFrame, initWithFrame>(), method<&UIView::drawRect, drawRect>(),
      method<&UIView::layoutSubviews, layoutSubviews>(), bridge::property<&Face::text, text, setText>(),
      bridge::property<&Face::placeholder, placeholder, setPlaceholder>(),
      bridge::property<&Face::font, font, setFont>(),
      bridge::property<&Face::textColor, textColor, setTextColor>(),
      TextFieldClass::property<&Face::textAlignment, &State::textAlignment, textFieldChanged>(),
      TextFieldClass::property<&Face::borderStyle, &State::borderStyle, textFieldChanged>(),
      TextFieldClass::property<&Face::clearButtonMode, &State::clearButtonMode, textFieldChanged>(),
      // Editing.
      TextFieldClass::property<&Face::delegate, &State::delegate>(), method<&Face::isEditing, isEditing>(),
      method<&Face::hasText, hasText>(), method<&UIControl::endTrackingWithTouch_withEvent, endTracking>(),
      method<&UIResponder::canBecomeFirstResponder, canBecomeFirstResponder>(),
      method<&UIResponder::becomeFirstResponder, text_field::becomeFirstResponder>(),
      method<&UIResponder::resignFirstResponder, text_field::resignFirstResponder>(),
      method<&Face::insertText, text_field::insertText>(),
      method<&Face::deleteBackward, text_field::deleteBackward>(),
      method<&UIResponder::paste, text_field::paste>(),
      // The keyboard.
      method<&Face::inputView, inputView>(), method<&Face::setInputView, setInputView>(),
      method<&Face::inputAccessoryView, inputAccessoryView>(),
      method<&Face::setInputAccessoryView, setInputAccessoryView>(),
      TextFieldClass::property<&Face::keyboardType, &State::keyboardType>(),
      TextFieldClass::property<&Face::keyboardAppearance, &State::keyboardAppearance>(),
      TextFieldClass::property<&Face::returnKeyType, &State::returnKeyType>(),
      TextFieldClass::property<&Face::enablesReturnKeyAutomatically,
                               &State::enablesReturnKeyAutomatically>());
}

}  // namespace sim::uikit
