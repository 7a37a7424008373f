// What the runtime tells of the library's classes: their properties with their attributes, and their
// protocols.
#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <string>
#include <vector>

#include "controls/progress_hud.hpp"
#include "panel/popup_view.hpp"
#include "platform/uikit/gesture_recognizer.hpp"
#include "settings/gesture_controller.hpp"
#include "settings/store/configuration_manager.hpp"
#include "tests/support/home.hpp"

extern "C" {
struct objc_property;
objc_property** class_copyPropertyList(Class cls, unsigned int* count);
const char* property_getName(objc_property* property);
const char* property_getAttributes(objc_property* property);
}

namespace {

using Records = std::vector<std::pair<std::string, std::string>>;

template <class T>
Records recordsOf() {
  unsigned int count = 0;
  objc_property** list = class_copyPropertyList(bridge::classNamed<T>(), &count);
  Records records;
  for (unsigned int i = 0; i < count; ++i)
    records.emplace_back(property_getName(list[i]), property_getAttributes(list[i]));
  std::free(list);
  return records;
}

// Strong and not atomic.
Records strong(const std::vector<std::pair<std::string, std::string>>& classes) {
  Records records;
  for (auto& [name, cls] : classes) records.emplace_back(name, "T@\"" + cls + "\",&,N,V_" + name);
  return records;
}

TEST(PropertyRecords, OfThePanelAreItsInterface) {
  test::Home home;
  Records expected = strong({{"moveTimer", "NSTimer"},
                             {"toggleButton", "BButton"},
                             {"contentView", "UIView"},
                             {"pickerView", "UIPickerView"},
                             {"toolBar", "UIToolbar"},
                             {"scrollView", "UIScrollView"},
                             {"horSlider", "ColorSlider"},
                             {"vertSlider", "ColorSlider"},
                             {"sideSlider", "ColorSlider"},
                             {"topSlider", "ColorSlider"},
                             {"pan", "UIPanGestureRecognizer"},
                             {"horValue", "UILabel"},
                             {"vertValue", "UILabel"},
                             {"sideValue", "UILabel"},
                             {"topValue", "UILabel"},
                             {"data", "NSMutableArray"},
                             {"configurations", "NSMutableArray"},
                             {"addButton", "BButton"},
                             {"pageControl", "UIPageControl"},
                             {"select", "BButton"},
                             {"pickerLabel", "UILabel"}});
  expected.emplace_back("rowSelected", "Ti,N,V_rowSelected");
  expected.emplace_back("rootObj", "T@\"NSMutableDictionary\",&,N,V_rootObj");
  EXPECT_EQ(recordsOf<tilo::RQPopupView>(), expected);
}

TEST(PropertyRecords, OfTheControllerAreItsInterface) {
  test::Home home;
  EXPECT_EQ(recordsOf<tilo::RQGestureController>(), strong({{"gestureView", "UIView"},
                                                            {"popView", "RQPopupView"},
                                                            {"currentPreset", "NSDictionary"},
                                                            {"rootObj", "NSMutableDictionary"}}));
}

TEST(PropertyRecords, OfTheManagerIsItsDictionary) {
  test::Home home;
  EXPECT_EQ(recordsOf<tilo::ConfigurationManager>(), strong({{"configuration", "NSMutableDictionary"}}));
}

TEST(PropertyRecords, OfTheStepperAreItsInterface) {
  test::Home home;
  EXPECT_EQ(recordsOf<tilo::ColorSlider>(), strong({{"type", "NSString"},
                                                    {"valueLabel", "UITextField"},
                                                    {"errorLabel", "UILabel"},
                                                    {"addButton", "BButton"},
                                                    {"subtractButton", "BButton"}}));
}

TEST(PropertyRecords, OfTheButtonAreItsInterface) {
  test::Home home;
  const std::string boolean = bridge::Encoding<BOOL>::text.text,
                    count = bridge::Encoding<NSUInteger>::text.text;
  EXPECT_EQ(recordsOf<tilo::BButton>(),
            (Records{{"color", "T@\"UIColor\",&,N,V_color"},
                     {"buttonStyle", "T" + count + ",N,V_buttonStyle"},
                     {"buttonCornerRadius", "T@\"NSNumber\",&,N,V_buttonCornerRadius"},
                     {"shouldShowDisabled", "T" + boolean + ",N,V_shouldShowDisabled"}}));
}

// Any thread may use those of the notice box and its progress views.
TEST(PropertyRecords, OfTheNoticeBoxAreItsInterface) {
  test::Home home;
  const std::string boolean = "T" + std::string(bridge::Encoding<BOOL>::text.text);
  const std::string count = "T" + std::string(bridge::Encoding<NSInteger>::text.text);
  std::map<std::string, std::string> found;
  for (auto& [name, attributes] : recordsOf<tilo::RQProgressHUD>()) found[name] = attributes;
  EXPECT_EQ(found, (std::map<std::string, std::string>{
                       {"mode", count + ",V_mode"},
                       {"animationType", count + ",V_animationType"},
                       {"labelText", "T@\"NSString\",C,V_labelText"},
                       {"detailsLabelText", "T@\"NSString\",C,V_detailsLabelText"},
                       {"opacity", "Tf,V_opacity"},
                       {"color", "T@\"UIColor\",&,V_color"},
                       {"labelFont", "T@\"UIFont\",&,V_labelFont"},
                       {"labelColor", "T@\"UIColor\",&,V_labelColor"},
                       {"detailsLabelFont", "T@\"UIFont\",&,V_detailsLabelFont"},
                       {"detailsLabelColor", "T@\"UIColor\",&,V_detailsLabelColor"},
                       {"xOffset", "Tf,V_xOffset"},
                       {"yOffset", "Tf,V_yOffset"},
                       {"dimBackground", boolean + ",V_dimBackground"},
                       {"margin", "Tf,V_margin"},
                       {"cornerRadius", "Tf,V_cornerRadius"},
                       {"graceTime", "Tf,V_graceTime"},
                       {"minShowTime", "Tf,V_minShowTime"},
                       {"removeFromSuperViewOnHide", boolean + ",V_removeFromSuperViewOnHide"},
                       {"minSize", "T{CGSize=dd},V_minSize"},
                       {"square", boolean + ",V_square"},
                       {"progress", "Tf,V_progress"},
                       {"customView", "T@\"UIView\",&,V_customView"},
                       {"taskInProgress", boolean + ",V_taskInProgress"},
                       {"delegate", "T@\"<RQProgressHUDDelegate>\",V_delegate"},
                       {"completionBlock", "T@?,C,N,V_completionBlock"}}));
}

TEST(PropertyRecords, OfTheProgressViewsAreTheirInterfaces) {
  test::Home home;
  const std::string boolean = bridge::Encoding<BOOL>::text.text;
  EXPECT_EQ(recordsOf<tilo::RQRoundProgressView>(),
            (Records{{"progress", "Tf,V_progress"},
                     {"progressTintColor", "T@\"UIColor\",&,V_progressTintColor"},
                     {"backgroundTintColor", "T@\"UIColor\",&,V_backgroundTintColor"},
                     {"annular", "T" + boolean + ",V_annular"}}));
  EXPECT_EQ(recordsOf<tilo::RQBarProgressView>(),
            (Records{{"progress", "Tf,V_progress"},
                     {"lineColor", "T@\"UIColor\",&,V_lineColor"},
                     {"progressColor", "T@\"UIColor\",&,V_progressColor"},
                     {"progressRemainingColor", "T@\"UIColor\",&,V_progressRemainingColor"}}));
}

struct Conforming : bridge::Face<"NSObject", NSObject> {
  MESSAGE Method<"conformsToProtocol:", BOOL(objc_protocol*)> conformsToProtocol;
};

// Which of the platform's protocols an object says it conforms to.
std::vector<std::string> protocolsOf(bridge::Object object) {
  std::vector<std::string> found;
  for (const char* name : {"UIGestureRecognizerDelegate", "UIPickerViewDataSource", "UIPickerViewDelegate",
                           "UIScrollViewDelegate", "UITextFieldDelegate"}) {
    objc_protocol* protocol = objc_getProtocol(name);
    EXPECT_TRUE(protocol) << name;
    if (bridge::as<Conforming>(object).conformsToProtocol(protocol)) found.push_back(name);
  }
  return found;
}

using Names = std::vector<std::string>;

// The panel answers the picker's counts too, but is not its data source.
TEST(Protocols, OfThePanelAreThoseOfItsPartsDelegates) {
  test::Home home;
  EXPECT_EQ(protocolsOf(bridge::make<tilo::RQPopupView, &NSObject::init>().get()),
            (Names{"UIGestureRecognizerDelegate", "UIPickerViewDelegate", "UIScrollViewDelegate"}));
}

TEST(Protocols, OfTheStepperIsThatOfItsFieldsDelegate) {
  test::Home home;
  auto slider =
      bridge::make<tilo::ColorSlider, &tilo::ColorSlider::initWithFrame_type>(CGRect{}, "topIconInset"_ns);
  EXPECT_EQ(protocolsOf(slider.get()), Names{"UITextFieldDelegate"});
}

TEST(Protocols, OfTheControllerIsThatOfTheRecognisersDelegate) {
  test::Home home;
  EXPECT_EQ(protocolsOf(tilo::RQGestureController::sharedInstance()), Names{"UIGestureRecognizerDelegate"});
}

TEST(Protocols, OfTheManagerAreNone) {
  test::Home home;
  EXPECT_EQ(protocolsOf(tilo::ConfigurationManager::sharedManager()), Names{});
}

}  // namespace
