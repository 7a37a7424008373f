// What the files of the panel's class share: its state, its sliding, and the methods that each file provides.
#pragma once

#include "bridge/define.hpp"
#include "panel/popup_view.hpp"

namespace tilo::panel {

// The properties, in the order of the interface.
struct PopupState {
  bridge::Strong<NSTimer> moveTimer;
  bridge::Strong<BButton> toggleButton;
  bridge::Strong<UIView> contentView;
  bridge::Strong<UIPickerView> pickerView;
  bridge::Strong<UIToolbar> toolBar;
  bridge::Strong<UIScrollView> scrollView;
  bridge::Strong<ColorSlider> horSlider, vertSlider, sideSlider, topSlider;
  bridge::Strong<UIPanGestureRecognizer> pan;
  bridge::Strong<UILabel> horValue, vertValue, sideValue, topValue;
  bridge::Strong<NSMutableArray> data;
  bridge::Strong<NSMutableArray> configurations;
  bridge::Strong<BButton> addButton;
  bridge::Strong<UIPageControl> pageControl;
  bridge::Strong<BButton> select;
  bridge::Strong<UILabel> pickerLabel;
  int rowSelected = 0;
  bool cancelled = false;
  bridge::Strong<NSMutableDictionary> rootObj;

  int question = 0;  // for a layout's name that has been asked last; another number once it is answered
};

using Popup = bridge::Implementation<RQPopupView, PopupState>;

// shell.cpp: the card, its header and its looks.
bridge::Strong<NSObject> init(RQPopupView self);
void styleView(RQPopupView self);
BOOL isDarkMode(RQPopupView self);
UIColor controlColor(RQPopupView self);
UIColor getBackgroundColor(RQPopupView self);
void addStyle(RQPopupView self);
void loadMyCustomFont(RQPopupView self);
void setupChevronView(RQPopupView self);
void setupScrollView(RQPopupView self);
void setupPageControl(RQPopupView self);
void setupPanGesture(RQPopupView self);
void scrollViewDidScroll(RQPopupView self, UIScrollView view);

// motion.cpp: coming and going, collapsing, dragging.
void show(RQPopupView self, bridge::Object ignored);
void hide(RQPopupView self);
void toggleHeight(RQPopupView self);
void handlePanGesture(RQPopupView self, UIPanGestureRecognizer recognizer);
UIView hitTest(RQPopupView self, CGPoint point, UIEvent event);
// Animates the panel's opacity.
void fadeTo(RQPopupView self, CGFloat alpha, double seconds);
// Slides the panel straight down below the window, then does `gone`.
void slideOut(RQPopupView self, const bridge::Block<void(BOOL)>& gone);

// adjustment_page.cpp
void setupControlsForScrollView(RQPopupView self);
void moveIcons(RQPopupView self, ColorSlider slider);
void moveIconsNotification(RQPopupView self, bridge::Object notification);
void endSliding(RQPopupView self, bridge::Object ignored);
void didHitCancel(RQPopupView self);
// Another value for a preference, in the live dictionary and in the stored ones.
void store(RQPopupView self, NSString key, NSNumber value);

// presets_page.cpp
void setupPickerView(RQPopupView self);
void getData(RQPopupView self);
NSMutableArray items(RQPopupView self);
NSInteger numberOfComponents(RQPopupView self, UIPickerView picker);
NSInteger numberOfRows(RQPopupView self, UIPickerView picker, NSInteger component);
NSString titleForRow(RQPopupView self, UIPickerView picker, NSInteger row, NSInteger component);
NSAttributedString attributedTitleForRow(RQPopupView self, UIPickerView picker, NSInteger row,
                                         NSInteger component);
CGFloat widthForComponent(RQPopupView self, UIPickerView picker, NSInteger component);
void didSelectRow(RQPopupView self, UIPickerView picker, NSInteger row, NSInteger component);
void didHitDone(RQPopupView self);
void deleteSelectedLayout(RQPopupView self, bridge::Object ignored);
void saveCurrentLayout(RQPopupView self, bridge::Object ignored);
void saveWithTitle(RQPopupView self, NSString title);
void exportSettings(RQPopupView self);
void openSettings(RQPopupView self);

}  // namespace tilo::panel
