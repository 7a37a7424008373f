// A font file that is in memory.
#pragma once

#include <memory>
#include <span>
#include <string>

namespace sim {

/** The bytes of a font file, and the names in it. */
class FontFile {
 public:
  /** Null when the bytes are no font. Throws std::system_error when there is no memory to keep them in. */
  static std::shared_ptr<FontFile> read(std::span<const std::byte> bytes);
  ~FontFile();
  FontFile(const FontFile&) = delete;
  FontFile& operator=(const FontFile&) = delete;

  /** The name that PostScript knows it by, which is also the name on the device. */
  const std::string& name() const { return postscriptName; }
  const std::string& family() const { return familyName; }
  /** A name that opens the bytes as a file, as long as this lives. */
  std::string path() const;

 private:
  explicit FontFile(int of) : descriptor(of) {}

  int descriptor;
  std::string postscriptName, familyName;
};

}  // namespace sim
