// Writing what was asked for.
#pragma once

#include <string>

namespace sim {

// To a file, or to standard output for "-". Throws UsageError when the file cannot be written.
void writeText(const std::string& file, const std::string& text);

}  // namespace sim
