// Makes temporary folders and sees to it that none is left over. A folder is locked as long as its maker
// lives; one without a lock was left by a process that was killed, and goes when the next one is made.
#include "simulator/device/temporary_root.hpp"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <vector>

#include "simulator/device/descriptor.hpp"
#include "simulator/device/redirection.hpp"

namespace sim {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view prefix = "tilo-sim-", pattern = "tilo-sim-XXXXXX";
constexpr int mostTries = 100;

// The folder, locked; none when somebody else has the lock, it has gone, or it is not ours.
Descriptor locked(const fs::path& folder) {
  Descriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
  struct stat status = {}, named = {};
  const bool ours = opened && ::fstat(opened.get(), &status) == 0 && status.st_uid == geteuid() &&
                    ::flock(opened.get(), LOCK_EX | LOCK_NB) == 0;
  // It may have been removed between opening and locking.
  const bool there = ours && ::stat(folder.c_str(), &named) == 0 && named.st_ino == status.st_ino &&
                     named.st_dev == status.st_dev;
  return there ? std::move(opened) : Descriptor();
}

struct Leftover {
  fs::path folder;
  pid_t maker;  // a forked process has the same list, but not the right to end it
  Descriptor lock;

  void remove() const {
    std::error_code ignored;  // at the end of a run nobody is left to tell
    if (maker == getpid()) fs::remove_all(folder, ignored);
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

void removeAbandoned(const fs::path& place) {
  std::error_code ignored;
  for (const auto& entry : fs::directory_iterator(place, ignored)) {
    const std::string name = entry.path().filename();
    if (!name.starts_with(prefix) || name.size() != pattern.size()) continue;
    if (const Descriptor lock = locked(entry.path())) fs::remove_all(entry.path(), ignored);
  }
}

}  // namespace

TemporaryRoot::TemporaryRoot() {
  const fs::path place = fs::canonical(fs::temp_directory_path());
  removeAbandoned(place);
  Descriptor lock;
  // Another process may take a new folder for an abandoned one before it is locked.
  for (int tries = 0; !lock; ++tries) {
    std::string text = place / pattern;
    if (tries == mostTries || !mkdtemp(text.data()))
      throw fs::filesystem_error("no temporary folder", text,
                                 std::error_code(errno, std::generic_category()));
    folder = text;
    lock = locked(folder);
  }
  leftovers().all.push_back({folder, getpid(), std::move(lock)});
}

TemporaryRoot::~TemporaryRoot() {
  const auto mine = std::ranges::find(leftovers().all, folder, &Leftover::folder);
  mine->remove();
  leftovers().all.erase(mine);
}

}  // namespace sim
