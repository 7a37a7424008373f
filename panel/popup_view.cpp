// RQPopupView's class table.
#include "panel/popup_view.hpp"

#include "panel/popup_state.hpp"

namespace tilo {
namespace {

using namespace panel;
using Face = RQPopupView;

template <auto Getter, auto Setter, auto Field>
bridge::PropertyEntry property() {
  return Popup::property<Getter, Setter, Field>();
}

}  // namespace

void definePopupView() {
  using bridge::method;
  using State = PopupState;
  Popup::define<UIView>(
      property<&Face::moveTimer, &Face::setMoveTimer, &State::moveTimer>(),
      property<&Face::toggleButton, &Face::setToggleButton, &State::toggleButton>(),
      property<&Face::contentView, &Face::setContentView, &State::contentView>(),
      property<&Face::pickerView, &Face::setPickerView, &State::pickerView>(),
      property<&Face::toolBar, &Face::setToolBar, &State::toolBar>(),
      property<&Face::scrollView, &Face::setScrollView, &State::scrollView>(),
      property<&Face::horSlider, &Face::setHorSlider, &State::horSlider>(),
      property<&Face::vertSlider, &Face::setVertSlider, &State::vertSlider>(),
      property<&Face::sideSlider, &Face::setSideSlider, &State::sideSlider>(),
      property<&Face::topSlider, &Face::setTopSlider, &State::topSlider>(),
      property<&Face::pan, &Face::setPan, &State::pan>(),
      property<&Face::horValue, &Face::setHorValue, &State::horValue>(),
      property<&Face::vertValue, &Face::setVertValue, &State::vertValue>(),
      property<&Face::sideValue, &Face::setSideValue, &State::sideValue>(),
      property<&Face::topValue, &Face::setTopValue, &State::topValue>(),
      property<&Face::data, &Face::setData, &State::data>(),
      property<&Face::configurations, &Face::setConfigurations, &State::configurations>(),
      property<&Face::addButton, &Face::setAddButton, &State::addButton>(),
      property<&Face::pageControl, &Face::setPageControl, &State::pageControl>(),
      property<&Face::select, &Face::setSelect, &State::select>(),
      property<&Face::pickerLabel, &Face::setPickerLabel, &State::pickerLabel>(),
      property<&Face::rowSelected, &Face::setRowSelected, &State::rowSelected>(),
      property<&Face::rootObj, &Face::setRootObj, &State::rootObj>(),
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
