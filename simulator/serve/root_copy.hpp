// A device's files for another device.
#pragma once

#include <filesystem>

namespace sim::serve {

/**
 * Makes what is below `to` the same as what is below `from`: folders, files and links; not sockets and pipes,
 * which belong to whoever made them. What cannot be read or written is left out.
 */
void copyRoot(const std::filesystem::path& from, const std::filesystem::path& to);

}  // namespace sim::serve
