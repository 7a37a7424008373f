// refused: include the result's own header
#include "platform/foundation/object.hpp"
#ifdef CORRECTED
#include "platform/foundation/string.hpp"
#endif

void describe(NSObject object) { (void)object.description(); }
