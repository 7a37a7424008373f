// refused: constant strings are ASCII
#include "platform/foundation/string.hpp"

#ifdef CORRECTED
NSString greeting() { return "Gruess Gott"_ns; }
#else
NSString greeting() { return "Grüß Gott"_ns; }
#endif
