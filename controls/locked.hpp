// One lock for each object, so that a property may be read on one thread while another writes it.
#pragma once

#include "bridge/runtime.hpp"

extern "C" {
int objc_sync_enter(id object);
int objc_sync_exit(id object);
}

namespace tilo {

// Holds an object's lock, which nests, for as long as it lives.
class Locked {
 public:
  explicit Locked(id locked) : object(locked) { objc_sync_enter(object); }
  ~Locked() { objc_sync_exit(object); }
  Locked(const Locked&) = delete;
  Locked& operator=(const Locked&) = delete;

 private:
  id object;
};

}  // namespace tilo
