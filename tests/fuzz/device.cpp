// The device that fuzzers share.
#include "tests/fuzz/device.hpp"

#include <fstream>
#include <iterator>

#include "bridge/runtime.hpp"
#include "simulator/device/file_system.hpp"
#include "simulator/device/temporary_root.hpp"
#include "simulator/runtime/foundation.hpp"

namespace fuzz {
namespace {

namespace fs = std::filesystem;

struct Device {
  sim::TemporaryRoot root;
  fs::path before = fs::current_path();
  sim::FileSystem files{root.path()};

  Device() {
    // The corpora's folders may be named from where the fuzzer was started.
    fs::current_path(before);
    sim::prepareFoundation();
    fs::create_directories(files.hostPath(presetsFolder));
  }
};

}  // namespace

fs::path onHost(const char* devicePath) {
  static Device device;
  return device.files.hostPath(devicePath);
}

std::string textOf(const unsigned char* bytes, std::size_t length) {
  return {reinterpret_cast<const char*>(bytes), length};
}

void write(const char* devicePath, const std::string& contents) {
  std::ofstream(onHost(devicePath), std::ios::binary) << contents;
}

std::string contents(const char* devicePath) {
  std::ifstream file(onHost(devicePath), std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void mustHold(bool condition) {
  if (!condition) __builtin_trap();
}

}  // namespace fuzz
