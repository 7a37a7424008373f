// Which libraries a home screen is to have, and where each lies on the device.
#pragma once

#include <filesystem>
#include <vector>

namespace sim {

struct Options;
struct Program;

struct Library {
  std::filesystem::path file;   // of the host
  std::filesystem::path place;  // a path of the device
};

/** Those that the options ask for, in their order; the program's own where they name none. */
std::vector<Library> librariesToLoad(const Options& options, const Program& program);

/** What takes the place of libraries that cannot be loaded here since they are for devices: those that the
 * options ask for, and the program's own. */
std::vector<Library> librariesToStandIn(const Options& options, const Program& program);

/** In place of whatever an earlier run left in a kept root. Throws UsageError when there is no such file. */
void linkLibrary(const std::filesystem::path& file, const std::filesystem::path& place);

}  // namespace sim
