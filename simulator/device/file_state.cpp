// States of files, as the host's file system keeps them.
#include "simulator/device/file_state.hpp"

#include <sys/stat.h>
#include <unistd.h>

namespace sim {

bool FileState::isSettled(const timespec& now) const {
  constexpr double tick = 0.02;  // seconds; Linux stamps files at least a hundred times a second
  return static_cast<double>(now.tv_sec - changed.tv_sec) +
             1e-9 * static_cast<double>(now.tv_nsec - changed.tv_nsec) >
         tick;
}

bool FileState::operator==(const FileState& other) const {
  return device == other.device && node == other.node && size == other.size &&
         changed.tv_sec == other.changed.tv_sec && changed.tv_nsec == other.changed.tv_nsec;
}

// `stat` answers for files too that may not be read.
std::optional<FileState> stateOf(const std::string& path) {
  struct stat status;
  if (::stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return {};
  if (::access(path.c_str(), R_OK) != 0) return {};
  return FileState{status.st_dev, status.st_ino, status.st_size, status.st_ctim};
}

}  // namespace sim
