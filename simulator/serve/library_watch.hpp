// Libraries' files that are looked at from time to time: whether there are others in their places.
#pragma once

#include <filesystem>
#include <vector>

namespace sim::serve {

class LibraryWatch {
 public:
  explicit LibraryWatch(std::vector<std::filesystem::path> libraries) : files(std::move(libraries)) {}

  /** To be called at even intervals: whether any file has changed since the last change that was told. */
  bool haveChanged();

 private:
  using Times = std::vector<std::filesystem::file_time_type>;

  const std::vector<std::filesystem::path> files;
  Times lastSeen, lastTold;
};

}  // namespace sim::serve
