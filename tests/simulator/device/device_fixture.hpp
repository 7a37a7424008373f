// A device's file system in a temporary folder, for tests.
#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

#include "simulator/device/file_system.hpp"
#include "simulator/device/temporary_root.hpp"

namespace sim {

class DeviceTest : public testing::Test {
 protected:
  TemporaryRoot temporary;
  FileSystem files{temporary.path()};

  /** What lies at a path of the host, none of the device's; empty when nothing does. */
  static std::string contents(const std::filesystem::path& hostPath) {
    std::ifstream file(hostPath);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  static void write(const std::filesystem::path& path, const std::string& text) {
    std::ofstream(path) << text;
  }
};

}  // namespace sim
