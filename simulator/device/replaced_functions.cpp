// The C library's functions that take a path, replaced by ones that know the device's file system. They stand
// in the executable, so that every library in the process, Foundation among them, finds these before the C
// library's own.
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <type_traits>

#include "simulator/device/redirection.hpp"

namespace {

using sim::Faults;
using sim::redirection::HostPath;

template <std::size_t size>
struct Name {
  char text[size];
  consteval Name(const char (&name)[size]) { std::copy_n(name, size, text); }
};

// The definition that this one hides, of the given function's type. No guarded static: a sanitizer may call
// in the middle of its own start. Two threads that look it up at once find the same.
template <Name name, typename Function>
Function* next(Function*) {
  static constinit std::atomic<Function*> found = nullptr;
  Function* function = found.load(std::memory_order_relaxed);
  if (!function) {
    function = reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name.text));
    if (!function) std::abort();  // a C library without it would not have let the program start
    found.store(function, std::memory_order_relaxed);
  }
  return function;
}

Faults useOfOpen(int flags) {
  const int access = flags & O_ACCMODE;
  const Faults reads = access == O_WRONLY ? Faults::none : Faults::reading;
  const bool writes = access != O_RDONLY || (flags & (O_CREAT | O_TRUNC)) != 0;
  return reads | (writes ? Faults::writing : Faults::none);
}

Faults useOfMode(const char* mode) {
  if (std::strchr(mode, '+')) return Faults::both;
  return *mode == 'r' ? Faults::reading : Faults::writing;
}

bool takesMode(int flags) { return (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE; }

// A pipe of the device is not waited at.
template <typename Function>
FILE* openStream(Function* function, const HostPath& host, const char* mode) {
  if (!host.isPipe()) return function(host, mode);
  const int access = std::strchr(mode, '+') ? O_RDWR : *mode == 'r' ? O_RDONLY : O_WRONLY;
  const int descriptor = next<"open">(&::open)(host, access | O_NONBLOCK | O_CLOEXEC);
  return descriptor < 0 ? nullptr : ::fdopen(descriptor, mode);
}

// What answers 0 or -1, with the device's file in the place of `path`.
template <Name name, typename... More>
int onFile(int (*function)(const char*, More...), Faults use, const char* path,
           std::type_identity_t<More>... more) {
  HostPath host(path, use);
  return host ? next<name>(function)(host, more...) : -1;
}

// The X's become letters in the caller's own text.
template <typename Function>
int makeTemporary(Function* function, char* text) {
  HostPath host(text, Faults::writing);
  if (!host) return -1;
  if (!host.isRedirected()) return function(text);
  const int descriptor = function(host.writable());
  std::strcpy(text, host.devicePart());
  return descriptor;
}

// What a path of the device resolves to is named as the device names it.
template <typename Function>
char* resolve(const Function& function, const char* path, char* resolved) {
  HostPath host(path, Faults::none);
  if (!host) return nullptr;
  char* const result = function(host, resolved);
  if (!result || !host.isRedirected()) return result;
  const std::string_view device = sim::redirection::withoutRoot(result);
  if (device.data() != result) {
    // The text may lie in the result itself; "/" does not.
    const std::size_t length = device.size();
    std::memmove(result, device.data(), length);
    result[length] = '\0';
  }
  return result;
}

}  // namespace

void sim::redirection::keepReplacedFunctions() {}

#pragma GCC visibility push(default)
extern "C" {

int access(const char* path, int mode) noexcept {
  const Faults use =
      ((mode & R_OK) ? Faults::reading : Faults::none) | ((mode & W_OK) ? Faults::writing : Faults::none);
  return onFile<"access">(&::access, use, path, mode);
}

int chdir(const char* path) noexcept { return onFile<"chdir">(&::chdir, Faults::none, path); }

int chmod(const char* path, mode_t mode) noexcept {
  return onFile<"chmod">(&::chmod, Faults::writing, path, mode);
}

int chown(const char* path, uid_t owner, gid_t group) noexcept {
  return onFile<"chown">(&::chown, Faults::writing, path, owner, group);
}

// The dynamic linker opens files by itself, so refusals do not reach it; a path too long is left to fail
// there.
void* dlopen(const char* path, int mode) noexcept {
  HostPath host(path, Faults::none);
  return next<"dlopen">(&::dlopen)(host ? static_cast<const char*>(host) : path, mode);
}

FILE* fopen(const char* path, const char* mode) {
  HostPath host(path, useOfMode(mode));
  return host ? openStream(next<"fopen">(&::fopen), host, mode) : nullptr;
}

FILE* fopen64(const char* path, const char* mode) {
  HostPath host(path, useOfMode(mode));
  return host ? openStream(next<"fopen64">(&::fopen64), host, mode) : nullptr;
}

int link(const char* from, const char* to) noexcept {
  HostPath hostFrom(from, Faults::none), hostTo(to, Faults::writing);
  return hostFrom && hostTo ? next<"link">(&::link)(hostFrom, hostTo) : -1;
}

int lstat(const char* path, struct stat* result) noexcept {
  return onFile<"lstat">(&::lstat, Faults::none, path, result);
}

int lstat64(const char* path, struct stat64* result) noexcept {
  return onFile<"lstat64">(&::lstat64, Faults::none, path, result);
}

int mkdir(const char* path, mode_t mode) noexcept {
  return onFile<"mkdir">(&::mkdir, Faults::writing, path, mode);
}

int mkstemp(char* text) { return makeTemporary(next<"mkstemp">(&::mkstemp), text); }

int mkstemp64(char* text) { return makeTemporary(next<"mkstemp64">(&::mkstemp64), text); }

int open(const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = takesMode(flags) ? va_arg(arguments, mode_t) : 0;
  va_end(arguments);
  HostPath host(path, useOfOpen(flags));
  return host ? next<"open">(&::open)(host, host.isPipe() ? flags | O_NONBLOCK : flags, mode) : -1;
}

int open64(const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = takesMode(flags) ? va_arg(arguments, mode_t) : 0;
  va_end(arguments);
  HostPath host(path, useOfOpen(flags));
  return host ? next<"open64">(&::open64)(host, host.isPipe() ? flags | O_NONBLOCK : flags, mode) : -1;
}

DIR* opendir(const char* path) {
  HostPath host(path, Faults::reading);
  return host ? next<"opendir">(&::opendir)(host) : nullptr;
}

// A link to a place of the device is named as the device names it: `symlink` has put it below the root.
ssize_t readlink(const char* path, char* text, size_t size) noexcept {
  HostPath host(path, Faults::reading);
  if (!host) return -1;
  const auto function = next<"readlink">(&::readlink);
  if (!host.isRedirected()) return function(path, text, size);
  char target[PATH_MAX];
  const ssize_t length = function(host, target, sizeof target);
  if (length < 0) return length;
  const std::string_view device = sim::redirection::withoutRoot({target, static_cast<std::size_t>(length)});
  return static_cast<ssize_t>(device.copy(text, size));
}

char* realpath(const char* path, char* resolved) noexcept {
  return resolve(next<"realpath">(&::realpath), path, resolved);
}

// What `realpath` becomes in a library that was built with the C library's overflow checks.
char* __realpath_chk(const char* path, char* resolved, size_t size) noexcept;
char* __realpath_chk(const char* path, char* resolved, size_t size) noexcept {
  const auto function = next<"__realpath_chk">(&::__realpath_chk);
  return resolve([&](const char* host, char* buffer) { return function(host, buffer, size); }, path,
                 resolved);
}

int rename(const char* from, const char* to) noexcept {
  HostPath hostFrom(from, Faults::writing), hostTo(to, Faults::writing);
  return hostFrom && hostTo ? next<"rename">(&::rename)(hostFrom, hostTo) : -1;
}

int rmdir(const char* path) noexcept { return onFile<"rmdir">(&::rmdir, Faults::writing, path); }

int stat(const char* path, struct stat* result) noexcept {
  return onFile<"stat">(&::stat, Faults::none, path, result);
}

int stat64(const char* path, struct stat64* result) noexcept {
  return onFile<"stat64">(&::stat64, Faults::none, path, result);
}

int statvfs(const char* path, struct statvfs* result) noexcept {
  return onFile<"statvfs">(&::statvfs, Faults::none, path, result);
}

int statvfs64(const char* path, struct statvfs64* result) noexcept {
  return onFile<"statvfs64">(&::statvfs64, Faults::none, path, result);
}

int symlink(const char* target, const char* path) noexcept {
  HostPath hostTarget(target, Faults::none), host(path, Faults::writing);
  return hostTarget && host ? next<"symlink">(&::symlink)(hostTarget, host) : -1;
}

int unlink(const char* path) noexcept { return onFile<"unlink">(&::unlink, Faults::writing, path); }

int utimensat(int folder, const char* path, const struct timespec times[2], int flags) noexcept {
  HostPath host(path, Faults::writing);
  return host ? next<"utimensat">(&::utimensat)(folder, host, times, flags) : -1;
}

}  // extern "C"
#pragma GCC visibility pop
