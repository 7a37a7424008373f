// The screen and the device.
#include "platform/uikit/screen.hpp"

#include "platform/uikit/device.hpp"
#include "tests/simulator/uikit/fixture.hpp"

namespace test {
namespace {

using Screen = UIKit;
using DeviceObject = UIKit;

TEST_F(Screen, BoundsFollowTheOrientationAndNativeBoundsDoNot) {
  const UIScreen screen = UIScreen::mainScreen();
  EXPECT_EQ(screen.bounds(), (CGRect{{0, 0}, {375, 667}}));
  EXPECT_EQ(screen.scale(), 2);
  sim::uikit::setInterfaceOrientation(UIInterfaceOrientationLandscapeRight);
  EXPECT_EQ(screen.bounds(), (CGRect{{0, 0}, {667, 375}}));  // confirmed: device-facts 6
  EXPECT_EQ(screen.nativeBounds(), (CGRect{{0, 0}, {750, 1334}}));
  EXPECT_EQ(UIApplication::sharedApplication().statusBarOrientation(), UIInterfaceOrientationLandscapeRight);
  sim::uikit::setInterfaceOrientation(UIInterfaceOrientationPortraitUpsideDown);
  EXPECT_EQ(screen.bounds(), (CGRect{{0, 0}, {375, 667}}));
}

TEST_F(Screen, IsOneObject) {
  EXPECT_TRUE(UIScreen::mainScreen() == UIScreen::mainScreen());
  EXPECT_TRUE(UIApplication::sharedApplication() == UIApplication::sharedApplication());
  EXPECT_TRUE(UIDevice::currentDevice() == UIDevice::currentDevice());
}

TEST_F(DeviceObject, TellsWhatItWasConfiguredAs) {
  const UIDevice device = UIDevice::currentDevice();
  EXPECT_STREQ(device.systemVersion().UTF8String(), "10.3.3");
  EXPECT_EQ(device.userInterfaceIdiom(), UIUserInterfaceIdiomPhone);
  EXPECT_EQ(device.orientation(), UIDeviceOrientationPortrait);
  auto pad = phone();
  pad.idiom = UIUserInterfaceIdiomPad;
  sim::uikit::configure(pad);
  sim::uikit::setDeviceOrientation(UIDeviceOrientationLandscapeLeft);
  EXPECT_EQ(device.userInterfaceIdiom(), UIUserInterfaceIdiomPad);
  EXPECT_EQ(device.orientation(), UIDeviceOrientationLandscapeLeft);
}

}  // namespace
}  // namespace test
