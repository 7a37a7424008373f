// refused: superInit wants an initialiser
#include "bridge/define.hpp"
#include "platform/foundation/string.hpp"

struct Cat : bridge::Face<"Cat", NSObject> {};

using CatClass = bridge::Implementation<Cat>;

#ifdef CORRECTED
bridge::Strong<NSObject> init(Cat self) { return CatClass::superInit<&NSObject::init>(self); }
#else
bridge::Strong<NSObject> init(Cat self) { return CatClass::superInit<&NSObject::dealloc>(self); }
#endif
