// Images by way of the host's dynamic linker, unless another loader is there.
#include "simulator/device/image.hpp"

#include <dlfcn.h>

#include <utility>

namespace sim::image {
namespace {

void* openHere(const char* path, std::string& error) {
  void* image = dlopen(path, RTLD_NOW | RTLD_LOCAL);
  if (!image) error = dlerror();
  return image;
}

void* symbolHere(void* image, const char* name) { return dlsym(image, name); }

constinit Loader current{openHere, symbolHere};

}  // namespace

Loader use(const Loader& loader) { return std::exchange(current, loader); }

bool takesDeviceFiles() { return current.deviceFiles; }

void* open(const std::string& path, std::string& error) { return current.open(path.c_str(), error); }

void publish(const std::string& path) { dlopen(path.c_str(), RTLD_NOW | RTLD_NOLOAD | RTLD_GLOBAL); }

void* symbol(void* image, const char* name) { return current.symbol(image, name); }

}  // namespace sim::image
