// By the times of their last changes.
#include "simulator/serve/library_watch.hpp"

#include <utility>

namespace sim::serve {

// A file that has just been changed may still be written: it counts when it has been the same for an
// interval.
bool LibraryWatch::haveChanged() {
  Times written;
  for (const std::filesystem::path& file : files) {
    std::error_code error;
    written.push_back(std::filesystem::last_write_time(file, error));
    if (error) return false;
  }
  if (written != std::exchange(lastSeen, written)) return false;
  const Times told = std::exchange(lastTold, written);
  return !told.empty() && told != written;
}

}  // namespace sim::serve
