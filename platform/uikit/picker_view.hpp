// UIPickerView, and what its delegate and data source may answer.
#pragma once

#include "platform/foundation/attributed_string.hpp"
#include "platform/uikit/view.hpp"

struct UIPickerView : bridge::Face<"UIPickerView", UIView> {
  MESSAGE Property<"delegate", bridge::Object> delegate;      // not retained
  MESSAGE Property<"dataSource", bridge::Object> dataSource;  // not retained
  MESSAGE Property<"showsSelectionIndicator", BOOL> showsSelectionIndicator;
  MESSAGE Method<"numberOfComponents", NSInteger()> numberOfComponents;
  MESSAGE Method<"numberOfRowsInComponent:", NSInteger(NSInteger)> numberOfRowsInComponent;
  MESSAGE Method<"reloadAllComponents", void()> reloadAllComponents;
  MESSAGE Method<"selectedRowInComponent:", NSInteger(NSInteger)> selectedRowInComponent;  // -1: none
  MESSAGE Method<"selectRow:inComponent:animated:", void(NSInteger, NSInteger, BOOL)>
      selectRow_inComponent_animated;
};

// Asked only what they respond to. Widths and heights in points.
struct UIPickerViewDataSource : bridge::Protocol<"UIPickerViewDataSource"> {
  MESSAGE Method<"numberOfComponentsInPickerView:", NSInteger(UIPickerView)> numberOfComponentsInPickerView;
  MESSAGE Method<"pickerView:numberOfRowsInComponent:", NSInteger(UIPickerView, NSInteger)>
      pickerView_numberOfRowsInComponent;
};
struct UIPickerViewDelegate : bridge::Protocol<"UIPickerViewDelegate"> {
  MESSAGE Method<"pickerView:titleForRow:forComponent:", NSString(UIPickerView, NSInteger, NSInteger)>
      pickerView_titleForRow_forComponent;
  MESSAGE Method<"pickerView:attributedTitleForRow:forComponent:",
                 NSAttributedString(UIPickerView, NSInteger, NSInteger)>
      pickerView_attributedTitleForRow_forComponent;
  MESSAGE Method<"pickerView:widthForComponent:", CGFloat(UIPickerView, NSInteger)>
      pickerView_widthForComponent;
  MESSAGE Method<"pickerView:rowHeightForComponent:", CGFloat(UIPickerView, NSInteger)>
      pickerView_rowHeightForComponent;
  MESSAGE Method<"pickerView:didSelectRow:inComponent:", void(UIPickerView, NSInteger, NSInteger)>
      pickerView_didSelectRow_inComponent;
};
