// The sockets' folder, its rights and its lock.
#include "simulator/appsupport/socket_folder.hpp"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>

#include <cerrno>
#include <system_error>

namespace sim::appsupport {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t longestName = 70;  // leaves room for "/proc/self/fd/2147483647/" and ".sock"

[[noreturn]] void fail(const fs::path& path) {
  throw std::system_error(errno, std::generic_category(), path.string());
}

// Ours and nobody else's, whoever made it.
void restrict(int folder, const fs::path& path) {
  struct stat status = {};
  if (fstat(folder, &status) != 0) fail(path);
  if (status.st_uid != geteuid()) {
    errno = EPERM;
    fail(path);
  }
  if ((status.st_mode & 07777) != 0700 && fchmod(folder, 0700) != 0) fail(path);
}

bool isStillAt(int folder, const fs::path& path) {
  struct stat opened = {}, named = {};
  return fstat(folder, &opened) == 0 && ::stat(path.c_str(), &named) == 0 && opened.st_dev == named.st_dev &&
         opened.st_ino == named.st_ino;
}

}  // namespace

fs::path socketFolder(const fs::path& root) { return root / "var/run/tilo-messages"; }

std::optional<sockaddr_un> socketAddress(int folder, std::string_view centre) {
  if (centre.empty() || centre.size() > longestName || centre.find('/') != std::string_view::npos)
    return std::nullopt;
  sockaddr_un address = {};
  address.sun_family = AF_UNIX;
  fmt::format("/proc/self/fd/{}/{}.sock", folder, centre).copy(address.sun_path, sizeof address.sun_path - 1);
  return address;
}

Descriptor findSocketFolder(const fs::path& root) {
  return Descriptor(::open(socketFolder(root).c_str(), O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

std::optional<OwnedSocketFolder> OwnedSocketFolder::take(const fs::path& root) {
  const fs::path path = socketFolder(root);
  for (;;) {
    fs::create_directories(path.parent_path());
    if (::mkdir(path.c_str(), 0700) != 0 && errno != EEXIST) fail(path);
    Descriptor folder(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    if (!folder && errno == ENOENT) continue;  // its last owner has just removed it
    if (!folder) fail(path);
    restrict(folder.get(), path);
    if (flock(folder.get(), LOCK_EX | LOCK_NB) != 0) {
      if (errno != EWOULDBLOCK) fail(path);
      return std::nullopt;
    }
    if (!isStillAt(folder.get(), path)) continue;  // removed between opening and locking
    OwnedSocketFolder taken(path, std::move(folder));
    taken.removeSockets();
    return taken;
  }
}

OwnedSocketFolder::OwnedSocketFolder(fs::path where, Descriptor opened)
    : path(std::move(where)), folder(std::move(opened)), owner(getpid()) {}

void OwnedSocketFolder::removeSockets() const {
  std::error_code ignored;
  for (const auto& entry : fs::directory_iterator(path, ignored))
    if (entry.is_socket(ignored)) ::unlink(entry.path().c_str());
}

OwnedSocketFolder::~OwnedSocketFolder() {
  if (!folder || owner != getpid()) return;
  removeSockets();
  ::rmdir(path.c_str());
}

}  // namespace sim::appsupport
