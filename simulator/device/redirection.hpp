// Where the device's file system lies at the moment, and what the replaced functions of the C library ask of
// it.
#pragma once

#include <limits.h>

#include <cstddef>
#include <string_view>

namespace sim {

/** What a refusal concerns; the values can be joined. */
enum class Faults : unsigned { none = 0, reading = 1, writing = 2, both = 3 };

constexpr Faults operator|(Faults a, Faults b) { return Faults(unsigned(a) | unsigned(b)); }
constexpr bool operator&(Faults a, Faults b) { return (unsigned(a) & unsigned(b)) != 0; }

namespace redirection {

/** An absolute path of the host without a slash at the end, and shorter than PATH_MAX; empty ends the
 * redirection. */
void setRoot(std::string_view root);
void addFault(std::string_view devicePath, Faults faults, int error);
void clearFaults();

/** Whether an absolute path belongs to the device: it lies in a folder that only devices have. */
bool isDevicePath(std::string_view path);

/**
 * A path as the host knows it: one of the device's is put below the root, any other stays as it is. It lives
 * on the stack and allocates nothing, since the functions that use it are called before anything is
 * initialised.
 */
class HostPath {
 public:
  /** `path` may be null and must outlive this. `use` is what the caller is about to do, for refusals. */
  HostPath(const char* path, Faults use);

  /** False with errno set when the path is refused, or is too long. */
  explicit operator bool() const { return path != nullptr || wasNull; }
  operator const char*() const { return path; }

  bool isRedirected() const { return path == buffer; }
  /** Whether it is a pipe of the device: whoever opens one waits until somebody opens its other end, for ever
   * if need be, and the device has nobody. */
  bool isPipe() const;
  /** Of a redirected path: what the caller wrote, in a buffer of its own. */
  char* devicePart() { return buffer + rootLength; }
  char* writable() { return buffer; }

 private:
  const char* path;
  bool wasNull;
  std::size_t rootLength = 0;
  char buffer[PATH_MAX];
};

/** The device's name for a host path at or below the root ("/" for the root); any other path as it is. */
std::string_view withoutRoot(std::string_view hostPath);

/** Makes the linker take the replaced functions into the program; does nothing else. */
void keepReplacedFunctions();

}  // namespace redirection
}  // namespace sim
