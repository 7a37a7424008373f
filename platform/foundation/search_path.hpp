// NSSearchPathForDirectoriesInDomains.
#pragma once

#include "platform/foundation/array.hpp"

enum : NSUInteger { NSDocumentDirectory = 9, NSUserDomainMask = 1 };

extern "C" id NSSearchPathForDirectoriesInDomains(NSUInteger directory, NSUInteger domains, BOOL expandTilde);
