// States of files, as the host's file system keeps them.
#include "simulator/device/file_state.hpp"

#include <sys/stat.h>

#include "simulator/device/redirection.hpp"

namespace sim {
namespace {

std::optional<FileState> stateIn(const struct stat& status) {
  if (!S_ISREG(status.st_mode)) return {};
  return FileState{status.st_dev, status.st_ino, status.st_size, status.st_ctim};
}

}  // namespace

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

// `stat` answers for files too that are refused.
std::optional<FileState> stateOf(const std::string& path) {
  struct stat status;
  if (!redirection::HostPath(path.c_str(), Faults::reading)) return {};
  return ::stat(path.c_str(), &status) == 0 ? stateIn(status) : std::nullopt;
}

std::optional<FileState> stateOf(int descriptor) {
  struct stat status;
  return ::fstat(descriptor, &status) == 0 ? stateIn(status) : std::nullopt;
}

}  // namespace sim
