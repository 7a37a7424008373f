// Copies rather than maps the file, so that it works whatever the size of this machine's pages.
#include "device/loader/memory.hpp"

#include <sys/mman.h>

#include <cstring>

#include "device/loader/pages.hpp"

namespace device::loader {
namespace {

constexpr uint64_t largestPage = 0x4000;

uint64_t wholePages(uint64_t size) { return (size + largestPage - 1) / largestPage * largestPage; }

// In every process the same, so that a trace of what is executed can be read; another when something is
// there.
constexpr uintptr_t usualPlace = sizeof(void*) == 8 ? 0x200000000 : 0x90000000;

// Pages at a boundary of the largest ones; what is over is given back by nobody, being address space alone.
uint8_t* reserve(uint64_t size) {
  auto* wish = reinterpret_cast<void*>(usualPlace);
  void* pages = newPages(wish, size + largestPage, PROT_READ | PROT_WRITE);
  return reinterpret_cast<uint8_t*>(wholePages(reinterpret_cast<uintptr_t>(pages)));
}

// Words are as wide as the slice's.
void add(uint8_t* place, size_t word, uint64_t value) {
  uint64_t sum = 0;
  std::memcpy(&sum, place, word);
  sum += value;
  std::memcpy(place, &sum, word);
}

void set(uint8_t* place, size_t word, uint64_t value) { std::memcpy(place, &value, word); }

// What a segment says of itself, the host is told in the same bits.
static_assert(PROT_READ == 1 && PROT_WRITE == 2 && PROT_EXEC == 4);

}  // namespace

uint8_t* intoMemory(const Layout& layout, const Resolver& resolve) {
  uint8_t* base = reserve(wholePages(layout.size));
  const auto address = reinterpret_cast<uintptr_t>(base);
  for (const Piece& piece : layout.pieces)
    std::memcpy(base + piece.address, piece.bytes.data(), piece.bytes.size());
  for (uint64_t place : layout.rebases) add(base + place, layout.word, address);
  for (const Filling& filling : layout.fillings) {
    void* found = resolve(filling.symbol);
    if (!found) throw Refusal(filling.symbol + " is not in " + filling.library);
    set(base + filling.address, layout.word,
        reinterpret_cast<uintptr_t>(found) + static_cast<uint64_t>(filling.addend));
  }
  asCode(base, layout.size);
  for (const Piece& piece : layout.pieces)
    if (mprotect(base + piece.address, piece.size, static_cast<int>(piece.protection)) != 0)
      throw Refusal("segment " + piece.name + " cannot be protected");
  return base;
}

void initialise(const Layout& layout, uint8_t* base, void* (*callable)(void* code)) {
  using Initialiser = void (*)(int, const char**, const char**, const char**, const void*);
  for (uint64_t address : layout.initialisers)
    reinterpret_cast<Initialiser>(callable(base + address))(0, nullptr, nullptr, nullptr, nullptr);
}

}  // namespace device::loader
