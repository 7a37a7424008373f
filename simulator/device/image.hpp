// The library as an image of the process: what the injection loader does with its file, and what of it can be
// asked for by name.
#pragma once

#include <string>

namespace sim::image {

// dlopen, as SpringBoard's process has it: of a path on the device. Null when it fails, for the reason that
// `error` gets.
void* open(const std::string& path, std::string& error);

// Lets whoever asks the whole process for a name find those that this image exports. Until then images are
// linked without regard to each other, as those of a device are: two may have functions of one name.
void publish(const std::string& path);

// dlsym: an exported function or variable; null when there is none. RTLD_DEFAULT for that of any image.
void* symbol(void* image, const char* name);

// What loads images that are not the host's own kind of file.
struct Loader {
  void* (*open)(const char* path, std::string& error);
  void* (*symbol)(void* image, const char* name);
  bool deviceFiles = false;  // that devices load, too
};

// Whether images can be the very files that devices load.
bool takesDeviceFiles();

// From now on every image goes through `loader`. Answers what they went through before.
Loader use(const Loader& loader);

}  // namespace sim::image
