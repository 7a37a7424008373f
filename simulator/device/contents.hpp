// All that is in a file.
#pragma once

#include <filesystem>
#include <string>

namespace sim {

/**
 * The bytes of a file, or those that come out of a pipe until its last writer closes it; nothing of a pipe
 * that nobody writes. Throws UsageError when it cannot be read.
 */
std::string contents(const std::filesystem::path& file);

}  // namespace sim
