// Reading the names of a font.
#include "simulator/quartz/font_file.hpp"

#include <fmt/format.h>
#include <fontconfig/fontconfig.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace sim {
namespace {

[[noreturn]] void fail(const char* what) { throw std::system_error(errno, std::generic_category(), what); }

void write(int descriptor, std::span<const std::byte> bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
    if (written < 0 && errno != EINTR) fail("a font cannot be kept in memory");
    if (written > 0) bytes = bytes.subspan(static_cast<std::size_t>(written));
  }
}

std::string text(const FcPattern* pattern, const char* object) {
  FcChar8* value = nullptr;
  if (FcPatternGetString(pattern, object, 0, &value) != FcResultMatch) return {};
  return reinterpret_cast<const char*>(value);
}

}  // namespace

std::shared_ptr<FontFile> FontFile::read(std::span<const std::byte> bytes) {
  const int descriptor = ::memfd_create("font", MFD_CLOEXEC);
  if (descriptor < 0) fail("a font cannot be kept in memory");
  std::shared_ptr<FontFile> font(new FontFile(descriptor));
  write(descriptor, bytes);
  int faces = 0;
  const std::string path = font->path();
  FcPattern* pattern = FcFreeTypeQuery(reinterpret_cast<const FcChar8*>(path.c_str()), 0, nullptr, &faces);
  if (!pattern) return nullptr;
  font->postscriptName = text(pattern, FC_POSTSCRIPT_NAME);
  font->familyName = text(pattern, FC_FAMILY);
  FcPatternDestroy(pattern);
  return font;
}

FontFile::~FontFile() { ::close(descriptor); }

std::string FontFile::path() const { return fmt::format("/proc/self/fd/{}", descriptor); }

}  // namespace sim
