// The loader of the slices, with images that somebody has changed: a small one of each processor, in which
// some bytes are others. Whatever is not refused lies within itself. The image is signed after it was
// changed, for else the signature alone would be found wrong.
//
// An input's first byte chooses the image; behind it stand changes of five bytes each: where, counted from
// the image's start or from what its last segment holds, how, and what.
#include <cstring>
#include <fstream>
#include <iterator>

#include "device/loader/layout.hpp"
#include "device/signature/sign.hpp"
#include "device/tools/macho_image.hpp"

namespace {

using Bytes = std::vector<uint8_t>;
using device::loader::Layout;
using device::loader::Piece;

constexpr const char* architectures[] = {"armv7", "arm64"};

struct Image {
  Bytes bytes;
  size_t tables = 0;  // where the last segment begins in the file
};

Image read(const char* architecture) {
  std::ifstream in(std::string(IMAGES) + "/good-" + architecture + ".dylib", std::ios::binary);
  Image image{{std::istreambuf_iterator<char>(in), {}}};
  image.tables = device::readImage(image.bytes).front().segments.back().fileOffset;
  return image;
}

const device::Policy& policy() {
  static const device::Policy only{device::readImportLists(LISTS "/strict"), {"_framing", "_iconGridCalc"}};
  return only;
}

void change(Bytes& bytes, size_t at, uint8_t how, uint16_t what) {
  uint32_t word = 0;
  if (at + sizeof word > bytes.size()) return;
  std::memcpy(&word, &bytes[at], sizeof word);
  switch (how % 4) {
    case 0:
      bytes[at] = static_cast<uint8_t>(what);
      return;
    case 1:
      word += static_cast<uint32_t>(static_cast<int16_t>(what));
      break;
    case 2:
      word = what;
      break;
    default:
      word = static_cast<uint32_t>(what) << 16 | (word & 0xffff);
  }
  std::memcpy(&bytes[at], &word, sizeof word);
}

void mustHold(bool condition) {
  if (!condition) __builtin_trap();
}

void mustLieWithin(const Layout& layout, const Bytes& file) {
  for (const Piece& piece : layout.pieces) {
    mustHold(piece.bytes.empty() || (piece.bytes.data() >= file.data() &&
                                     piece.bytes.data() + piece.bytes.size() <= file.data() + file.size()));
    mustHold(piece.bytes.size() <= piece.size && piece.address + piece.size <= layout.size);
  }
  for (const uint64_t place : layout.rebases) mustHold(place + layout.word <= layout.size);
  for (const auto& filling : layout.fillings) mustHold(filling.address + layout.word <= layout.size);
  for (const uint64_t code : layout.initialisers) mustHold(code < layout.size);
}

void load(const Bytes& bytes, const char* architecture) {
  try {
    mustLieWithin(device::loader::layOut(bytes, architecture, policy()), bytes);
  } catch (const device::loader::Refusal&) {
  }
}

}  // namespace

// Unchanged they are taken, or else nothing would be tried behind what refuses them.
extern "C" int LLVMFuzzerInitialize(int*, char***) {
  for (const char* architecture : architectures) {
    const Bytes good = device::signature::withSignature(read(architecture).bytes, "com.wexor.tilo");
    mustLieWithin(device::loader::layOut(good, architecture, policy()), good);
  }
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* input, std::size_t length) {
  static const Image images[] = {read("armv7"), read("arm64")};
  const size_t chosen = length ? input[0] % 2 : 0;
  Bytes bytes = images[chosen].bytes;
  for (size_t i = 1; i + 5 <= length; i += 5) {
    const size_t where = input[i] | (input[i + 1] & 0x7f) << 8;
    change(bytes, where + (input[i + 1] & 0x80 ? images[chosen].tables : 0), input[i + 2],
           static_cast<uint16_t>(input[i + 3] | input[i + 4] << 8));
  }
  load(bytes, architectures[chosen]);
  try {
    bytes = device::signature::withSignature(std::move(bytes), "com.wexor.tilo");
  } catch (const std::runtime_error&) {
    return 0;
  }
  load(bytes, architectures[chosen]);
  return 0;
}
