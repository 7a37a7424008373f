// Where the sockets of a device's messaging centres lie: in a folder below its root that only its owner may
// enter. Sockets are addressed through an open folder, since the name of a socket may have no more than 107
// bytes and a root may be longer.
#pragma once

#include <sys/un.h>

#include <filesystem>
#include <optional>
#include <string_view>

#include "simulator/device/descriptor.hpp"

namespace sim::appsupport {

std::filesystem::path socketFolder(const std::filesystem::path& root);

/** A centre's socket in an open folder; none when a name is empty, has a slash or is longer than 70 bytes. */
std::optional<sockaddr_un> socketAddress(int folder, std::string_view centre);

/** The folder opened to find sockets in; none when the device has none, or it may not be entered. */
Descriptor findSocketFolder(const std::filesystem::path& root);

/** The folder while this process serves the device's centres, which one process at a time does. */
class OwnedSocketFolder {
 public:
  /**
   * Makes the folder and takes it over from a process that has ended without clearing up. None when a living
   * process has it. Throws std::system_error when it cannot be made.
   */
  static std::optional<OwnedSocketFolder> take(const std::filesystem::path& root);

  OwnedSocketFolder(OwnedSocketFolder&&) = default;
  /** Removes the sockets and the folder. */
  ~OwnedSocketFolder();

  int descriptor() const { return folder.get(); }

 private:
  OwnedSocketFolder(std::filesystem::path where, Descriptor opened);
  void removeSockets() const;

  std::filesystem::path path;
  Descriptor folder;  // locked
  pid_t owner;        // a forked process has a copy, but not the right to clear up
};

}  // namespace sim::appsupport
