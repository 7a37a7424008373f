// Telling one state of a file from another without reading it.
#pragma once

#include <sys/types.h>
#include <time.h>

#include <optional>
#include <string>

namespace sim {

/** Whoever changes the file, even back, moves the last of these on. */
struct FileState {
  dev_t device = 0;
  ino_t node = 0;
  off_t size = 0;
  timespec changed{};

  /** Not changed so lately before `now` that it might change again within the same tick of the disk's clock.
   */
  bool isSettled(const timespec& now) const;
  bool operator==(const FileState& other) const;
};

/** Of a device's file that is there and that nobody refuses to read; a folder or a pipe has none. */
std::optional<FileState> stateOf(const std::string& path);
/** Of an open one. */
std::optional<FileState> stateOf(int descriptor);

}  // namespace sim
