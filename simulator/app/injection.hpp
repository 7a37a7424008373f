// What the injection loader finds in its folder.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace sim::injection {

/** The libraries of a folder that SpringBoard gets, by their names' order: those whose filter (the property
 * list beside them) lets SpringBoard through, and those that have none, which everything gets. */
std::vector<std::filesystem::path> librariesForSpringBoard(const std::filesystem::path& folder);

/** Whether a file is a library for devices, which the host's own linker knows nothing of. */
bool isDeviceLibrary(const std::filesystem::path& file);

}  // namespace sim::injection
