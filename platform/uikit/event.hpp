// UIEvent.
#pragma once

#include "platform/foundation/object.hpp"

struct UIEvent : bridge::Face<"UIEvent", NSObject> {};
