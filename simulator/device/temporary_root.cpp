// Makes temporary folders and sees to it that none is left over.
#include "simulator/device/temporary_root.hpp"

#include <stdlib.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <vector>

#include "simulator/device/redirection.hpp"

namespace sim {
namespace {

struct Leftover {
  std::filesystem::path folder;
  pid_t maker;  // a forked process has the same list, but not the right to end it

  void remove() const {
    std::error_code ignored;  // at the end of a run nobody is left to tell
    if (maker == getpid()) std::filesystem::remove_all(folder, ignored);
  }
};

// Folders still there. Destroyed at exit, also when `exit` is called in the middle of things and no owner is.
struct Leftovers {
  std::vector<Leftover> all;
  ~Leftovers() {
    redirection::clearFaults();  // a disk that refuses for the device's sake must not refuse this
    std::ranges::for_each(all, &Leftover::remove);
  }
};

Leftovers& leftovers() {
  static Leftovers list;
  return list;
}

}  // namespace

TemporaryRoot::TemporaryRoot() {
  const std::filesystem::path place = std::filesystem::canonical(std::filesystem::temp_directory_path());
  std::string text = place / "tilo-XXXXXX";
  if (!mkdtemp(text.data()))
    throw std::filesystem::filesystem_error("no temporary folder", text,
                                            std::error_code(errno, std::generic_category()));
  folder = text;
  leftovers().all.push_back({folder, getpid()});
}

TemporaryRoot::~TemporaryRoot() {
  const auto mine = std::ranges::find(leftovers().all, folder, &Leftover::folder);
  mine->remove();
  leftovers().all.erase(mine);
}

}  // namespace sim
