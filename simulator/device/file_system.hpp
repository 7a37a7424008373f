// The device's file system: a folder of the host.
#pragma once

#include <filesystem>
#include <string_view>

#include "simulator/device/redirection.hpp"

namespace sim {

/** Which injection loader the device has; it decides where libraries and their bundles lie. */
enum class InjectionLoader { substrate, sbinject };

/** The folder of the device in which that loader looks for libraries. */
std::string_view libraryFolder(InjectionLoader loader);

/**
 * While one exists, every path of the device that the process gives to the C library ("/var/mobile/…",
 * "/Library/…",
 * "/bootstrap/…", "/System/Library/…", "/Applications/…") means the place below the root, the root is the
 * working folder, and all other absolute paths mean what they always do. There is one at a time. To be made
 * and changed while the process has one thread.
 */
class FileSystem {
 public:
  /**
   * Makes the root if there is none, and the folders that every device has. Throws
   * std::filesystem::filesystem_error when that fails or the
   * root is the host's own, and std::logic_error when there is such a file system
   * already.
   */
  explicit FileSystem(const std::filesystem::path& root, InjectionLoader loader = InjectionLoader::substrate);
  /** Paths mean the host's again, and the working folder is the one of before. The files stay. */
  ~FileSystem();
  FileSystem(const FileSystem&) = delete;
  FileSystem& operator=(const FileSystem&) = delete;

  /** Absolute, and without links. */
  const std::filesystem::path& root() const { return folder; }
  /** Where an absolute path of the device lies on the host. */
  std::filesystem::path hostPath(std::string_view devicePath) const;

  /**
   * From now on reading or writing at or below an absolute path of the device ("/" for all of it) fails with
   * this errno, root user or not: a full disk, an unreadable file. Making, moving, removing and changing
   * count as writing; asking whether a file exists is always answered. Paths are compared as written; links
   * are not followed.
   */
  void refuse(std::string_view devicePath, Faults faults, int error);
  /** Ends all refusals. */
  void allowAll();

 private:
  std::filesystem::path folder, before;
};

}  // namespace sim
