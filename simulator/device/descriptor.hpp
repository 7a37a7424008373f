// A file descriptor that is closed when its owner goes.
#pragma once

#include <unistd.h>

#include <utility>

namespace sim {

class Descriptor {
 public:
  Descriptor() = default;
  /** Takes it over; a negative number is none. */
  explicit Descriptor(int descriptor) : number(descriptor) {}
  Descriptor(Descriptor&& other) noexcept : number(std::exchange(other.number, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number, other.number);
    return *this;
  }
  ~Descriptor() {
    if (number >= 0) ::close(number);
  }

  explicit operator bool() const { return number >= 0; }
  int get() const { return number; }

 private:
  int number = -1;
};

}  // namespace sim
