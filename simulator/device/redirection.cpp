// Decides which paths are the device's and which of them are refused.
#include "simulator/device/redirection.hpp"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstring>
#include <string>
#include <vector>

namespace sim::redirection {
namespace {

// Plain memory, empty from the start of the process: there is a root when the length is not zero.
constinit char rootPath[PATH_MAX] = {};
constinit std::size_t rootPathLength = 0;

struct Fault {
  std::string devicePath;
  Faults faults;
  int error;
};

// Made with the first refusal and never destroyed: files are still opened when static objects are gone.
constinit std::vector<Fault>* faultList = nullptr;

std::string_view root() { return {rootPath, rootPathLength}; }

// Whether a path is that folder, or in it.
bool isAtOrBelow(std::string_view path, std::string_view folder) {
  return path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == '/');
}

// An absolute path without empty, "." and ".." parts, written into the buffer; links are not followed.
std::string_view normalized(std::string_view path, char (&buffer)[PATH_MAX]) {
  std::size_t length = 0;
  while (!path.empty()) {
    const std::size_t slash = std::min(path.find('/'), path.size());
    const std::string_view part = path.substr(0, slash);
    path.remove_prefix(std::min(slash + 1, path.size()));
    if (part.empty() || part == ".") continue;
    if (part == "..") {
      while (length > 0 && buffer[--length] != '/') {
      }
      continue;
    }
    if (length + 1 + part.size() >= sizeof buffer) break;
    buffer[length++] = '/';
    std::memcpy(buffer + length, part.data(), part.size());
    length += part.size();
  }
  return length == 0 ? std::string_view("/") : std::string_view(buffer, length);
}

// The error that a use of this path is refused with, or 0. The path may be the device's, the host's or
// relative, which counts from the root: the process works in that folder.
int refusal(std::string_view path, Faults use) {
  if (!faultList || rootPathLength == 0) return 0;
  if (path.starts_with('/')) {
    const bool belowRoot = isAtOrBelow(path, root());
    if (!belowRoot && !isDevicePath(path)) return 0;
    if (belowRoot) path.remove_prefix(rootPathLength);
  }
  char buffer[PATH_MAX];
  const std::string_view device = normalized(path, buffer);
  for (const Fault& fault : *faultList)
    if ((fault.faults & use) && isAtOrBelow(device, fault.devicePath)) return fault.error;
  return 0;
}

}  // namespace

void setRoot(std::string_view newRoot) {
  std::memcpy(rootPath, newRoot.data(), newRoot.size());
  rootPath[newRoot.size()] = '\0';
  rootPathLength = newRoot.size();
}

void addFault(std::string_view devicePath, Faults faults, int error) {
  char buffer[PATH_MAX];
  const std::string_view path = normalized(devicePath, buffer);
  // "/" is written as nothing, so that everything lies below it.
  if (!faultList) faultList = new std::vector<Fault>;
  faultList->push_back({path == "/" ? std::string() : std::string(path), faults, error});
}

void clearFaults() {
  if (faultList) faultList->clear();
}

bool isDevicePath(std::string_view path) {
  // Not all of /var: the host keeps things of its own there, such as font caches.
  constexpr std::string_view folders[] = {"/var/mobile", "/Library", "/bootstrap", "/System/Library",
                                          "/Applications"};
  for (const std::string_view folder : folders)
    if (isAtOrBelow(path, folder)) return true;
  return false;
}

HostPath::HostPath(const char* original, Faults use) : path(original), wasNull(original == nullptr) {
  if (wasNull || rootPathLength == 0) return;
  const std::string_view text(original);
  if (const int error = refusal(text, use)) {
    errno = error;
    path = nullptr;
    return;
  }
  // A root that itself lies in such a folder of the host is not looked for below itself.
  if (isAtOrBelow(text, root()) || !isDevicePath(text)) return;
  if (rootPathLength + text.size() >= sizeof buffer) {
    errno = ENAMETOOLONG;
    path = nullptr;
    return;
  }
  rootLength = rootPathLength;
  std::memcpy(buffer, rootPath, rootLength);
  std::memcpy(buffer + rootLength, original, text.size() + 1);
  path = buffer;
}

bool HostPath::isPipe() const {
  if (!path || rootPathLength == 0 || (*path == '/' && !isAtOrBelow(path, root()))) return false;
  struct stat status = {};
  return ::fstatat(AT_FDCWD, path, &status, 0) == 0 && S_ISFIFO(status.st_mode);
}

std::string_view withoutRoot(std::string_view hostPath) {
  if (rootPathLength == 0 || !isAtOrBelow(hostPath, root())) return hostPath;
  hostPath.remove_prefix(rootPathLength);
  return hostPath.empty() ? "/" : hostPath;
}

}  // namespace sim::redirection
