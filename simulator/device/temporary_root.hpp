// A folder for a device that is not kept.
#pragma once

#include <filesystem>

namespace sim {

/**
 * A new folder in the host's place for temporary files, empty at first. It goes with all that is in it when
 * this is destroyed, or else at exit; where the process is killed, when the next one is made.
 */
class TemporaryRoot {
 public:
  /** Throws std::filesystem::filesystem_error when no folder can be made. */
  TemporaryRoot();
  ~TemporaryRoot();
  TemporaryRoot(const TemporaryRoot&) = delete;
  TemporaryRoot& operator=(const TemporaryRoot&) = delete;

  /** Absolute, and without links. */
  const std::filesystem::path& path() const { return folder; }

 private:
  std::filesystem::path folder;
};

}  // namespace sim
