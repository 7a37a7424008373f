// The current preference values.
#include "settings/store/values.hpp"

namespace tilo {

[[clang::no_destroy]] constinit bridge::Strong<NSMutableDictionary> rootObj;

}  // namespace tilo
