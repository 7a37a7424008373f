// UIControl.
#pragma once

#include "platform/uikit/view.hpp"

struct UIControl : bridge::Face<"UIControl", UIView> {};
