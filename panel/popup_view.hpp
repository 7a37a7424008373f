// RQPopupView: the Quick Settings panel, a rounded card over the home screen with two pages side by side.
// shell.cpp builds and moves the card, adjustment_page.cpp is its first page, presets_page.cpp its second.
#pragma once

#include "platform/foundation/timer.hpp"
#include "platform/uikit/page_control.hpp"
#include "platform/uikit/picker_view.hpp"
#include "platform/uikit/scroll_view.hpp"
#include "platform/uikit/toolbar.hpp"
#include "settings/slider/color_slider.hpp"

namespace tilo {

struct RQPopupView : bridge::Face<"RQPopupView", UIView> {
  MESSAGE Method<"moveTimer", NSTimer()> moveTimer;
  MESSAGE Method<"setMoveTimer:", void(NSTimer)> setMoveTimer;
  MESSAGE Method<"toggleButton", BButton()> toggleButton;
  MESSAGE Method<"setToggleButton:", void(BButton)> setToggleButton;
  MESSAGE Method<"contentView", UIView()> contentView;
  MESSAGE Method<"setContentView:", void(UIView)> setContentView;
  MESSAGE Method<"pickerView", UIPickerView()> pickerView;
  MESSAGE Method<"setPickerView:", void(UIPickerView)> setPickerView;
  MESSAGE Method<"toolBar", UIToolbar()> toolBar;
  MESSAGE Method<"setToolBar:", void(UIToolbar)> setToolBar;
  MESSAGE Method<"scrollView", UIScrollView()> scrollView;
  MESSAGE Method<"setScrollView:", void(UIScrollView)> setScrollView;
  MESSAGE Method<"horSlider", ColorSlider()> horSlider;
  MESSAGE Method<"setHorSlider:", void(ColorSlider)> setHorSlider;
  MESSAGE Method<"vertSlider", ColorSlider()> vertSlider;
  MESSAGE Method<"setVertSlider:", void(ColorSlider)> setVertSlider;
  MESSAGE Method<"sideSlider", ColorSlider()> sideSlider;
  MESSAGE Method<"setSideSlider:", void(ColorSlider)> setSideSlider;
  MESSAGE Method<"topSlider", ColorSlider()> topSlider;
  MESSAGE Method<"setTopSlider:", void(ColorSlider)> setTopSlider;
  MESSAGE Method<"pan", UIPanGestureRecognizer()> pan;
  MESSAGE Method<"setPan:", void(UIPanGestureRecognizer)> setPan;
  MESSAGE Method<"horValue", UILabel()> horValue;
  MESSAGE Method<"setHorValue:", void(UILabel)> setHorValue;
  MESSAGE Method<"vertValue", UILabel()> vertValue;
  MESSAGE Method<"setVertValue:", void(UILabel)> setVertValue;
  MESSAGE Method<"sideValue", UILabel()> sideValue;
  MESSAGE Method<"setSideValue:", void(UILabel)> setSideValue;
  MESSAGE Method<"topValue", UILabel()> topValue;
  MESSAGE Method<"setTopValue:", void(UILabel)> setTopValue;
  // Names of the presets, and their records.
  MESSAGE Method<"data", NSMutableArray()> data;
  MESSAGE Method<"setData:", void(NSMutableArray)> setData;
  MESSAGE Method<"configurations", NSMutableArray()> configurations;
  MESSAGE Method<"setConfigurations:", void(NSMutableArray)> setConfigurations;
  MESSAGE Method<"addButton", BButton()> addButton;
  MESSAGE Method<"setAddButton:", void(BButton)> setAddButton;
  MESSAGE Method<"pageControl", UIPageControl()> pageControl;
  MESSAGE Method<"setPageControl:", void(UIPageControl)> setPageControl;
  MESSAGE Method<"select", BButton()> select;
  MESSAGE Method<"setSelect:", void(BButton)> setSelect;
  MESSAGE Method<"pickerLabel", UILabel()> pickerLabel;
  MESSAGE Method<"setPickerLabel:", void(UILabel)> setPickerLabel;
  MESSAGE Method<"rowSelected", int()> rowSelected;
  MESSAGE Method<"setRowSelected:", void(int)> setRowSelected;
  // The very dictionary of ConfigurationManager.
  MESSAGE Method<"rootObj", NSMutableDictionary()> rootObj;
  MESSAGE Method<"setRootObj:", void(NSMutableDictionary)> setRootObj;

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
