// The panel's card: its construction, its header and its looks.
#include "controls/described_views.hpp"
#include "panel/color_manager.hpp"
#include "panel/icon_font.hpp"
#include "panel/popup_state.hpp"
#include "platform/foundation/notification_center.hpp"
#include "platform/springboard/panel_parts.hpp"
#include "platform/uikit/device.hpp"
#include "platform/uikit/layer.hpp"
#include "platform/uikit/screen.hpp"
#include "settings/store/configuration_manager.hpp"
#include "settings/store/values.hpp"

namespace tilo::panel {
namespace {

// Points.
constexpr CGRect cardFrame{{0, 0}, {300, 390}};
constexpr CGFloat cardCornerRadius = 20;
constexpr CGFloat shadowRadius = 10;
constexpr CGSize shadowOffset{3, 3};
constexpr float shadowOpacity = 0.5f;

constexpr CGRect upperChevronFrame{{135, 10}, {50, 30}}, lowerChevronFrame{{135, 17}, {50, 30}};
constexpr CGFloat chevronAlpha = 0.4;
constexpr CGFloat closeBoxFromRight = 35, closeBoxTop = 8, closeBoxSide = 24;
constexpr CGRect toggleFrame{{10, 6}, {30, 30}};
constexpr CGFloat toggleFontSize = 25, toggleAlpha = 0.7;
constexpr NSUInteger circledChevronUp = 0xF139;  // of Font Awesome
constexpr CGFloat separatorHeight = 1, separatorCenterY = 43, separatorAlpha = 0.6;

constexpr CGFloat scrollViewTop = 30, scrollViewLess = 40;  // less high than the card
constexpr CGFloat pages = 2;
constexpr CGFloat pageControlFromMiddle = 50, pageControlFromBottom = 25;
constexpr CGSize pageControlSize{100, 30};

bool systemIsAtLeast(NSString version) {
  return UIDevice::currentDevice().systemVersion().compare_options(version, NSNumericSearch) !=
         NSOrderedAscending;
}

CGSize sizeOf(UIView view) { return view.frame().size; }

void addContentView(RQPopupView self) {
  auto content = bridge::make<UIView, &UIView::initWithFrame>(cardFrame);
  self.contentView.set(content);
  content->clipsToBounds.set(YES);
  content->autoresizingMask.set(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
  self.layer().cornerRadius.set(cardCornerRadius);
  // The settings are not known yet: the palette's first colour, until the card is styled.
  self.backgroundColor.set(self.getBackgroundColor());
  self.addSubview(content);
  self.userInteractionEnabled.set(YES);
}

void setUp(RQPopupView self) {
  self.addStyle();
  self.loadMyCustomFont();
  self.setupChevronView();
  self.setupScrollView();
  self.setupPageControl();
  self.setupPickerView();
  self.setupPanGesture();
  self.getData();
  self.styleView();
}

void addChevron(RQPopupView self, const CGRect& frame) {
  UIColor color = self.controlColor();
  bridge::Strong<SBChevronView> chevron;
  if (systemIsAtLeast("10.0"_ns))
    chevron = bridge::make<SBUIChevronView, &SBChevronView::initWithColor>(color);
  else
    chevron = bridge::make<SBChevronView, &SBChevronView::initWithColor>(color);
  chevron->alpha.set(chevronAlpha);
  chevron->frame.set(frame);
  self.contentView().addSubview(chevron);
}

void addCloseBox(RQPopupView self) {
  CGRect frame{{sizeOf(self).width - closeBoxFromRight, closeBoxTop}, {closeBoxSide, closeBoxSide}};
  bridge::Strong<SBCloseBoxView> box;
  if (systemIsAtLeast("11.0"_ns))
    box = bridge::make<SBXCloseBoxView, &UIView::initWithFrame>(frame);
  else
    box = bridge::make<SBCloseBoxView, &UIView::initWithFrame>(frame);
  box->addTarget_action_forControlEvents(self, bridge::selector<"didHitCancel">(),
                                         UIControlEventTouchUpInside);
  self.contentView().addSubview(box);
}

void addToggle(RQPopupView self) {
  auto toggle = build(IconButton{.frame = toggleFrame,
                                 .icon = circledChevronUp,
                                 .fontSize = toggleFontSize,
                                 .color = self.controlColor(),
                                 .alpha = toggleAlpha,
                                 .target = self,
                                 .action = bridge::selector<"toggleHeight">()});
  self.toggleButton.set(toggle);
  self.contentView().addSubview(toggle);
}

void addSeparator(RQPopupView self) {
  auto line = bridge::make<UIView, &UIView::initWithFrame>(CGRect{{}, {sizeOf(self).width, separatorHeight}});
  line->center.set({self.center().x, separatorCenterY});
  line->backgroundColor.set(self.controlColor());
  line->alpha.set(separatorAlpha);
  self.contentView().addSubview(line);
}

Values settingsOf(RQPopupView self) { return Values(self.rootObj()); }

}  // namespace

bridge::Strong<NSObject> init(RQPopupView self) {
  auto made = Popup::superInit<&UIView::initWithFrame>(self, cardFrame);
  if (!made) return nullptr;
  made->autoresizesSubviews.set(YES);
  addContentView(made);
  made->rootObj.set(ConfigurationManager::sharedManager().configuration());
  setUp(made);
  NSNotificationCenter::defaultCenter().addObserver_selector_name_object(
      made.get(), bridge::selector<"moveIconsNotification:">(), "slider_buttons_pressed"_ns, {});
  return made;
}

// What follows the settings after construction. Header and captions keep the colour they were built with.
void styleView(RQPopupView self) {
  self.backgroundColor.set(self.getBackgroundColor());
  self.pickerLabel().textColor.set(self.controlColor());
  BOOL dark = self.isDarkMode();
  for (ColorSlider slider : {self.horSlider(), self.topSlider(), self.vertSlider(), self.sideSlider()})
    slider.setDarkMode(dark);
}

BOOL isDarkMode(RQPopupView self) { return settingsOf(self).flag(keys::isDarkMode); }

UIColor controlColor(RQPopupView self) {
  return self.isDarkMode() ? UIColor::whiteColor() : UIColor::blackColor();
}

// An index beyond the palette, which an edited file may hold, takes its first colour.
UIColor getBackgroundColor(RQPopupView self) {
  UIColor dark = RQColorManager::darkModeBlack();
  NSArray colors = RQColorManager::colors();
  auto index = static_cast<NSUInteger>(settingsOf(self).index(keys::qsBackgroundColor));
  if (index >= colors.count()) index = 0;
  return self.isDarkMode() ? dark : bridge::as<UIColor>(colors.objectAtIndex(index));
}

void addStyle(RQPopupView self) {
  CALayer layer = self.layer();
  layer.shadowColor.set(UIColor::blackColor().CGColor());
  layer.shadowOpacity.set(shadowOpacity);
  layer.shadowRadius.set(shadowRadius);
  layer.shadowOffset.set(shadowOffset);
  layer.shouldRasterize.set(YES);
  layer.rasterizationScale.set(UIScreen::mainScreen().scale());
}

void loadMyCustomFont(RQPopupView) { registerIconFont(); }

void setupChevronView(RQPopupView self) {
  addChevron(self, upperChevronFrame);
  addChevron(self, lowerChevronFrame);
  addCloseBox(self);
  addToggle(self);
  addSeparator(self);
}

void setupScrollView(RQPopupView self) {
  CGSize card = sizeOf(self);
  auto view = bridge::make<UIScrollView, &UIView::initWithFrame>(
      CGRect{{0, scrollViewTop}, {card.width, card.height - scrollViewLess}});
  self.scrollView.set(view);
  view->showsHorizontalScrollIndicator.set(NO);
  view->scrollEnabled.set(YES);
  view->pagingEnabled.set(YES);
  view->userInteractionEnabled.set(YES);
  view->backgroundColor.set(UIColor::clearColor());
  CGSize page = sizeOf(view);
  view->contentSize.set({pages * page.width, page.height});
  view->delegate.set(self);
  self.contentView().addSubview(view);
  self.setupControlsForScrollView();
}

void setupPageControl(RQPopupView self) {
  CGSize card = sizeOf(self);
  CGPoint origin{card.width / 2 - pageControlFromMiddle, card.height - pageControlFromBottom};
  auto control = bridge::make<UIPageControl, &UIView::initWithFrame>(CGRect{origin, pageControlSize});
  self.pageControl.set(control);
  control->numberOfPages.set(static_cast<NSInteger>(pages));
  control->currentPage.set(0);
  self.contentView().addSubview(control);
}

void setupPanGesture(RQPopupView self) {
  auto pan = bridge::make<UIPanGestureRecognizer, &UIGestureRecognizer::initWithTarget_action>(
      self, bridge::selector<"handlePanGesture:">());
  self.pan.set(pan);
  self.addGestureRecognizer(pan);
  pan->delegate.set(self);
}

void scrollViewDidScroll(RQPopupView self, UIScrollView view) {
  const CGFloat width = sizeOf(view).width;
  if (!(width > 0)) return;
  // The page that has the middle; left of the first there is none.
  const CGFloat middle = view.contentOffset().x + width / 2;
  self.pageControl().currentPage.set(static_cast<NSInteger>(middle / width));
}

}  // namespace tilo::panel
