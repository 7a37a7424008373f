// RQPopupView: the Quick Settings panel, a rounded card over the home screen with two pages side by side.
// shell.cpp builds and moves the card, adjustment_page.cpp is its first page, presets_page.cpp its second.
#pragma once

#include "bridge/property.hpp"
#include "platform/foundation/timer.hpp"
#include "platform/uikit/page_control.hpp"
#include "platform/uikit/picker_view.hpp"
#include "platform/uikit/scroll_view.hpp"
#include "platform/uikit/toolbar.hpp"
#include "settings/slider/color_slider.hpp"

namespace tilo {

struct RQPopupView : bridge::Face<"RQPopupView", UIView> {
  MESSAGE Property<"moveTimer", NSTimer> moveTimer;
  MESSAGE Property<"toggleButton", BButton> toggleButton;
  MESSAGE Property<"contentView", UIView> contentView;
  MESSAGE Property<"pickerView", UIPickerView> pickerView;
  MESSAGE Property<"toolBar", UIToolbar> toolBar;
  MESSAGE Property<"scrollView", UIScrollView> scrollView;
  MESSAGE Property<"horSlider", ColorSlider> horSlider;
  MESSAGE Property<"vertSlider", ColorSlider> vertSlider;
  MESSAGE Property<"sideSlider", ColorSlider> sideSlider;
  MESSAGE Property<"topSlider", ColorSlider> topSlider;
  MESSAGE Property<"pan", UIPanGestureRecognizer> pan;
  MESSAGE Property<"horValue", UILabel> horValue;
  MESSAGE Property<"vertValue", UILabel> vertValue;
  MESSAGE Property<"sideValue", UILabel> sideValue;
  MESSAGE Property<"topValue", UILabel> topValue;
  // Names of the presets, and their records.
  MESSAGE Property<"data", NSMutableArray> data;
  MESSAGE Property<"configurations", NSMutableArray> configurations;
  MESSAGE Property<"addButton", BButton> addButton;
  MESSAGE Property<"pageControl", UIPageControl> pageControl;
  MESSAGE Property<"select", BButton> select;
  MESSAGE Property<"pickerLabel", UILabel> pickerLabel;
  MESSAGE Property<"rowSelected", int> rowSelected;
  // The very dictionary of ConfigurationManager.
  MESSAGE Property<"rootObj", NSMutableDictionary> rootObj;

  // Slides the panel in from below the key window; the argument is ignored.
  MESSAGE Method<"show:", void(bridge::Object)> show;
  // Slides it out, takes it down and announces that.
  MESSAGE Method<"hide", void()> hide;
  // Collapses it to its header, or expands it again.
  MESSAGE Method<"toggleHeight", void()> toggleHeight;
  MESSAGE Method<"handlePanGesture:", void(UIPanGestureRecognizer)> handlePanGesture;
  // Steps of construction and styling.
  MESSAGE Method<"styleView", void()> styleView;
  MESSAGE Method<"isDarkMode", BOOL()> isDarkMode;
  MESSAGE Method<"controlColor", UIColor()> controlColor;
  MESSAGE Method<"getBackgroundColor", UIColor()> getBackgroundColor;
  MESSAGE Method<"addStyle", void()> addStyle;
  MESSAGE Method<"loadMyCustomFont", void()> loadMyCustomFont;
  MESSAGE Method<"setupChevronView", void()> setupChevronView;
  MESSAGE Method<"setupScrollView", void()> setupScrollView;
  MESSAGE Method<"setupPageControl", void()> setupPageControl;
  MESSAGE Method<"setupPanGesture", void()> setupPanGesture;

  // The adjustment page.
  MESSAGE Method<"setupControlsForScrollView", void()> setupControlsForScrollView;
  MESSAGE Method<"moveIcons:", void(ColorSlider)> moveIcons;
  MESSAGE Method<"moveIconsNotification:", void(bridge::Object)> moveIconsNotification;
  MESSAGE Method<"endSliding:", void(bridge::Object)> endSliding;
  // Slides the panel out; changes stay, and nothing is announced.
  MESSAGE Method<"didHitCancel", void()> didHitCancel;

  // The presets page.
  MESSAGE Method<"setupPickerView", void()> setupPickerView;
  MESSAGE Method<"getData", void()> getData;
  MESSAGE Method<"items", NSMutableArray()> items;
  MESSAGE Method<"didHitDone", void()> didHitDone;
  MESSAGE Method<"deleteSelectedLayout:", void(bridge::Object)> deleteSelectedLayout;
  MESSAGE Method<"saveCurrentLayout:", void(bridge::Object)> saveCurrentLayout;
  MESSAGE Method<"saveWithTitle:", void(NSString)> saveWithTitle;
  MESSAGE Method<"exportSettings", void()> exportSettings;
  MESSAGE Method<"openSettings", void()> openSettings;
};

void definePopupView();

}  // namespace tilo
