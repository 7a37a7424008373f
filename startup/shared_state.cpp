// The shared values. They are never destroyed: SpringBoard asks for layouts until its process ends.
#include "startup/shared_state.hpp"

namespace tilo {

[[clang::no_destroy]] constinit bridge::Strong<NSMutableDictionary> rootObj;
[[clang::no_destroy]] constinit bridge::Strong<RQGestureController> gestController;
[[clang::no_destroy]] constinit bridge::Strong<SBIconController> cont;

}  // namespace tilo
