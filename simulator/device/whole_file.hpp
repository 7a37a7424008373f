// Files that are read and replaced as a whole, with no more calls of the system than that takes.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "simulator/device/file_state.hpp"

namespace sim {

struct WholeFile {
  std::string bytes;
  /** When they were read. */
  FileState state;
};

/** Nothing where there is no such file, it may not be read, or is a folder or a pipe. */
std::optional<WholeFile> wholeFile(const std::string& path);

/**
 * Puts the bytes in the place of what the file holds, in one go: whoever opens it finds all of the old ones
 * or all of these. Who may read it and whose it is stay as they were. False, with nothing changed, when the
 * disk refuses. A process that is killed meanwhile leaves a file behind that removeUnfinishedFiles knows.
 */
bool replaceFile(const std::string& path, std::string_view bytes);

}  // namespace sim
