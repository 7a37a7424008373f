// Making views of their descriptions.
#include "controls/described_views.hpp"

namespace tilo {

bridge::Strong<UILabel> build(const Label& described) {
  auto label = bridge::make<UILabel, &UIView::initWithFrame>(described.frame);
  if (described.centred) label->textAlignment.set(NSTextAlignmentCenter);
  if (described.font) label->font.set(described.font);
  label->text.set(described.text);
  label->textColor.set(described.color);
  label->backgroundColor.set(UIColor::clearColor());
  return label;
}

// The icon goes before the title that is there.
bridge::Strong<BButton> build(const IconButton& described) {
  auto button = bridge::make<BButton, &BButton::initWithFrame_type_style>(described.frame, BButtonTypeClear,
                                                                          BButtonStyleBootstrapV3);
  if (described.title) button->setTitle_forState(described.title, UIControlStateNormal);
  button->addAwesomeIcon_beforeTitle(described.icon, YES);
  button->titleLabel().font.set(UIFont::fontWithName_size("FontAwesome"_ns, described.fontSize));
  button->setTitleColor_forState(described.color, UIControlStateNormal);
  button->addTarget_action_forControlEvents(described.target, described.action, UIControlEventTouchUpInside);
  button->alpha.set(described.alpha);
  return button;
}

}  // namespace tilo
