// The panel's second page: the saved layouts. It is empty so far.
#include "panel/popup_state.hpp"

namespace tilo::panel {

void setupPickerView(RQPopupView) {}
void getData(RQPopupView) {}
NSMutableArray items(RQPopupView self) { return self.data(); }
void didHitDone(RQPopupView self) { self.hide(); }
void deleteSelectedLayout(RQPopupView, bridge::Object) {}
void saveCurrentLayout(RQPopupView, bridge::Object) {}
void saveWithTitle(RQPopupView, NSString) {}
void exportSettings(RQPopupView) {}
void openSettings(RQPopupView) {}

}  // namespace tilo::panel
