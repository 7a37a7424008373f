// UIResponder.
#pragma once

#include "platform/foundation/object.hpp"

struct UIResponder : bridge::Face<"UIResponder", NSObject> {
  MESSAGE Method<"nextResponder", UIResponder()> nextResponder;
};
