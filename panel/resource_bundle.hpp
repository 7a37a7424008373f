// NSBundle(custom): where the library's resources are.
#pragma once

#include "platform/foundation/bundle.hpp"

namespace tilo {

// The bundle beside the library, by the loader that the device has; looked for once. Nil where it is missing.
NSBundle resourceBundle();

// The same for others.
struct ResourceBundle : bridge::Face<"NSBundle", NSBundle> {
  static constexpr bridge::ClassMethod<"NSBundle", "frameworkBundle", NSBundle()> frameworkBundle{};
};

// Gives NSBundle this method.
void addResourceBundle();

}  // namespace tilo
