// The library side of the probe. It is also opened by its path below a device's root.
#include "probe.hpp"

#include <fcntl.h>
#include <sys/time.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

int probeWrite(const char* path, const char* text) {
  const int descriptor = open(path, O_WRONLY | O_CREAT | O_TRUNC, 0640);
  if (descriptor < 0) return errno;
  const ssize_t length = static_cast<ssize_t>(std::strlen(text));
  const int error = write(descriptor, text, std::strlen(text)) == length ? 0 : errno;
  close(descriptor);
  return error;
}

std::string probeRead(const char* path) {
  FILE* file = std::fopen(path, "r");
  if (!file) return "[" + std::to_string(errno) + "]";
  std::string text;
  for (int c; (c = std::fgetc(file)) != EOF;) text += static_cast<char>(c);
  std::fclose(file);
  return text;
}

long long probeTime() {
  timeval time;
  gettimeofday(&time, nullptr);
  return time.tv_sec * 1'000'000LL + time.tv_usec;
}
