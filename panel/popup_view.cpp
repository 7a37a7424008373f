// RQPopupView's class table.
#include "panel/popup_view.hpp"

#include "panel/popup_state.hpp"

namespace tilo {
namespace {

using namespace panel;
using Face = RQPopupView;

template <auto Member, auto Field>
bridge::PropertyEntry property() {
  return Popup::property<Member, Field>();
}

}  // namespace

void definePopupView() {
  using bridge::adopts;
  using bridge::method;
  using State = PopupState;
  Popup::define<UIView>(
      adopts<UIPickerViewDelegate>(), adopts<UIGestureRecognizerDelegate>(), adopts<UIScrollViewDelegate>(),
      property<&Face::moveTimer, &State::moveTimer>(), property<&Face::toggleButton, &State::toggleButton>(),
      property<&Face::contentView, &State::contentView>(), property<&Face::pickerView, &State::pickerView>(),
      property<&Face::toolBar, &State::toolBar>(), property<&Face::scrollView, &State::scrollView>(),
      property<&Face::horSlider, &State::horSlider>(), property<&Face::vertSlider, &State::vertSlider>(),
      property<&Face::sideSlider, &State::sideSlider>(), property<&Face::topSlider, &State::topSlider>(),
      property<&Face::pan, &State::pan>(), property<&Face::horValue, &State::horValue>(),
      property<&Face::vertValue, &State::vertValue>(), property<&Face::sideValue, &State::sideValue>(),
      property<&Face::topValue, &State::topValue>(), property<&Face::data, &State::data>(),
      property<&Face::configurations, &State::configurations>(),
      property<&Face::addButton, &State::addButton>(), property<&Face::pageControl, &State::pageControl>(),
      property<&Face::select, &State::select>(), property<&Face::pickerLabel, &State::pickerLabel>(),
      property<&Face::rowSelected, &State::rowSelected>(), property<&Face::rootObj, &State::rootObj>(),
      // The card.
      method<&NSObject::init, init>(), method<&Face::styleView, styleView>(),
      method<&Face::isDarkMode, isDarkMode>(), method<&Face::controlColor, controlColor>(),
      method<&Face::getBackgroundColor, getBackgroundColor>(), method<&Face::addStyle, addStyle>(),
      method<&Face::loadMyCustomFont, loadMyCustomFont>(),
      method<&Face::setupChevronView, setupChevronView>(), method<&Face::setupScrollView, setupScrollView>(),
      method<&Face::setupPageControl, setupPageControl>(), method<&Face::setupPanGesture, setupPanGesture>(),
      method<&UIScrollViewDelegate::scrollViewDidScroll, scrollViewDidScroll>(), method<&Face::show, show>(),
      method<&Face::hide, hide>(), method<&Face::toggleHeight, toggleHeight>(),
      method<&Face::handlePanGesture, handlePanGesture>(), method<&UIView::hitTest_withEvent, hitTest>(),
      // The adjustment page.
      method<&Face::setupControlsForScrollView, setupControlsForScrollView>(),
      method<&Face::moveIcons, moveIcons>(), method<&Face::moveIconsNotification, moveIconsNotification>(),
      method<&Face::endSliding, endSliding>(), method<&Face::didHitCancel, didHitCancel>(),
      // The presets page.
      method<&Face::setupPickerView, setupPickerView>(), method<&Face::getData, getData>(),
      method<&Face::items, items>(),
      method<&UIPickerViewDataSource::numberOfComponentsInPickerView, numberOfComponents>(),
      method<&UIPickerViewDataSource::pickerView_numberOfRowsInComponent, numberOfRows>(),
      method<&UIPickerViewDelegate::pickerView_titleForRow_forComponent, titleForRow>(),
      method<&UIPickerViewDelegate::pickerView_attributedTitleForRow_forComponent, attributedTitleForRow>(),
      method<&UIPickerViewDelegate::pickerView_widthForComponent, widthForComponent>(),
      method<&UIPickerViewDelegate::pickerView_didSelectRow_inComponent, didSelectRow>(),
      method<&Face::didHitDone, didHitDone>(), method<&Face::deleteSelectedLayout, deleteSelectedLayout>(),
      method<&Face::saveCurrentLayout, saveCurrentLayout>(), method<&Face::saveWithTitle, saveWithTitle>(),
      method<&Face::exportSettings, exportSettings>(), method<&Face::openSettings, openSettings>());
}

}  // namespace tilo
