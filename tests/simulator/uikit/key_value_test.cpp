// Key-value coding and observing of UIKit's properties.
#include "platform/foundation/key_value.hpp"

#include "platform/foundation/number.hpp"
#include "platform/uikit/scroll_view.hpp"
#include "tests/simulator/uikit/fixture.hpp"

namespace test {
namespace {

struct Observer : bridge::Face<"TestObserver", NSObject> {};

std::vector<std::string> observed;

void observe(Observer, NSString key, bridge::Object, NSDictionary, void*) {
  observed.push_back(key.UTF8String());
}

class KeyValues : public UIKit {
 protected:
  KeyValues() {
    bridge::Implementation<Observer>::define<NSObject>(
        method<&NSKeyValueObserving::observeValueForKeyPath_ofObject_change_context, observe>());
    observer = make<Observer, &NSObject::init>();
    observed.clear();
    for (NSString key : keys())
      properties.addObserver_forKeyPath_options_context(observer.get(), key, 0, nullptr);
  }
  ~KeyValues() override {
    for (NSString key : keys()) properties.removeObserver_forKeyPath(observer.get(), key);
  }

  static std::vector<NSString> keys() {
    return {"alpha"_ns, "hidden"_ns, "frame"_ns, "center"_ns, "contentOffset"_ns};
  }

  Strong<UIScrollView> view = make<UIScrollView, &UIView::initWithFrame>(CGRect{{1, 2}, {3, 4}});
  NSKeyValueObserving properties = bridge::as<NSKeyValueObserving>(view.get());
  Strong<Observer> observer;
};

TEST_F(KeyValues, PropertiesAreReadByTheirKeys) {
  view->alpha.set(0.5);
  view->hidden.set(YES);
  EXPECT_EQ(bridge::as<NSNumber>(properties.valueForKey("alpha"_ns)).doubleValue(), 0.5);
  EXPECT_TRUE(bridge::as<NSNumber>(properties.valueForKey("hidden"_ns)).boolValue());
  EXPECT_FALSE(properties.valueForKey("backgroundColor"_ns));
}

TEST_F(KeyValues, PropertiesAreWrittenByTheirKeys) {
  properties.setValue_forKey(NSNumber::numberWithInt(12), "tag"_ns);
  properties.setValue_forKey(UIColor::redColor(), "backgroundColor"_ns);
  EXPECT_EQ(view->tag(), 12);
  EXPECT_TRUE(view->backgroundColor() == UIColor::redColor());
}

TEST_F(KeyValues, SetterIsObservedUnderItsOwnKeyAlone) {
  view->alpha.set(0.5);
  view->frame.set({{5, 6}, {7, 8}});
  view->center.set({1, 1});
  view->contentOffset.set({1, 1});
  EXPECT_EQ(observed, (std::vector<std::string>{"alpha", "frame", "center",
                                                "contentOffset"}));  // confirmed: device-facts 7.6
  EXPECT_EQ(view->frame().size, (CGSize{7, 8}));
}

TEST_F(KeyValues, AnimatedChangeIsObservedOnce) {
  auto window = makeWindow();
  window->addSubview(view);
  const UIView target = view;
  UIView::animateWithDuration_animations(1, Block<void()>([=] { target.alpha.set(0); }));
  pass(1);
  EXPECT_EQ(observed, std::vector<std::string>{"alpha"});  // confirmed: device-facts 7.6
}

TEST_F(KeyValues, ObservedViewIsStillItself) {
  EXPECT_TRUE(bridge::isKindOf<UIScrollView>(view.get()));
  EXPECT_EQ(view->retainCount(), 1u);
}

}  // namespace
}  // namespace test
