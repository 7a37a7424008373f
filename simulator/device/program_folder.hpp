// Where the program that runs lies, and beside it what was built with it.
#pragma once

#include <filesystem>

namespace sim {

/** The same after a build has put another program in its place. */
inline std::filesystem::path programFolder() {
  return std::filesystem::read_symlink("/proc/self/exe").parent_path();
}

}  // namespace sim
