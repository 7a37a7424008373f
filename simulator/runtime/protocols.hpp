// Formal protocols made while the program runs.
#pragma once

#include <initializer_list>

namespace sim {

// Makes protocols of these names known, so that classes may conform to them. They name no methods.
void declareProtocols(std::initializer_list<const char*> names);

}  // namespace sim
