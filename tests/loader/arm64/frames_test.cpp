// Exceptions that the system raises below the slice's frames.
#include <gtest/gtest.h>

#include "bridge/method.hpp"
#include "platform/uikit/view.hpp"
#include "tests/loader/home_screen.hpp"

namespace {

TEST(FramesOfTheSlice, LetAnExceptionPass) {
  test::HomeScreen home;
  using Make = bridge::ClassMethod<"RQProgressHUD", "showHUDAddedTo:animated:", NSObject(UIView, BOOL)>;
  EXPECT_ANY_THROW(Make()(UIView(), false));
}

}  // namespace
