// Blocks from lambdas. The block is laid out on the stack and copied to the heap by the platform, which is
// the one way that every block runtime supports. A block is never retained as an object.
#pragma once

#include <new>
#include <type_traits>
#include <utility>

#include "bridge/wire.hpp"

extern "C" {
void* _Block_copy(const void* block);
void _Block_release(const void* block);
extern void* _NSConcreteStackBlock[];
}

namespace bridge {

struct BlockDescriptor {
  unsigned long reserved;
  unsigned long size;
  void (*copy)(void* destination, const void* source);
  void (*dispose)(const void* block);
  const char* signature;
};

struct BlockHeader {
  void* isa;
  int flags;
  int reserved;
  void (*invoke)();
  const BlockDescriptor* descriptor;
};

enum : int { blockHasCopyDispose = 1 << 25, blockHasSignature = 1 << 30 };

template <class R, class... A>
constexpr const char* blockSignature();

template <class Signature>
class Block;

// A block that somebody else holds, as it travels through messages; may be nothing.
template <class Signature>
struct BlockRef;

template <class R, class... A>
struct BlockRef<R(A...)> {
  BlockHeader* raw = nullptr;

  explicit operator bool() const { return raw != nullptr; }

  R operator()(A... arguments) const {
    auto invoke = reinterpret_cast<Wire<R> (*)(BlockHeader*, Wire<A>...)>(raw->invoke);
    if constexpr (std::is_void_v<R>)
      invoke(raw, WireFormat<A>::out(arguments)...);
    else
      return WireFormat<R>::in(invoke(raw, WireFormat<A>::out(arguments)...));
  }
};

template <class T>
inline constexpr bool isBlockRef = false;
template <class Signature>
inline constexpr bool isBlockRef<BlockRef<Signature>> = true;

template <class R, class... A>
class Block<R(A...)> {
 public:
  Block() = default;

  // Takes over any callable, move-only ones included; but a block that came with a message has to be kept.
  template <class F>
    requires(std::is_invocable_r_v<R, F&, A...> && !isBlockRef<F>)
  Block(F callable) {
    struct Literal {
      BlockHeader header;
      F callable;
    };
    static constexpr BlockDescriptor descriptor{
        0, sizeof(Literal),
        [](void* destination, const void* source) {
          new (&static_cast<Literal*>(destination)->callable)
              F(std::move(const_cast<Literal*>(static_cast<const Literal*>(source))->callable));
        },
        [](const void* block) { const_cast<Literal*>(static_cast<const Literal*>(block))->callable.~F(); },
        blockSignature<R, A...>()};
    Wire<R> (*invoke)(BlockHeader*, Wire<A>...) = [](BlockHeader* self, Wire<A>... arguments) -> Wire<R> {
      F& target = reinterpret_cast<Literal*>(self)->callable;
      if constexpr (std::is_void_v<R>)
        target(WireFormat<A>::in(arguments)...);
      else
        return WireFormat<R>::out(target(WireFormat<A>::in(arguments)...));
    };
    Literal literal{{_NSConcreteStackBlock, blockHasCopyDispose | blockHasSignature, 0,
                     reinterpret_cast<void (*)()>(invoke), &descriptor},
                    std::move(callable)};
    block.raw = static_cast<BlockHeader*>(_Block_copy(&literal));
  }

  // Keeps a block that came with a message.
  explicit Block(BlockRef<R(A...)> other) {
    if (other) block.raw = static_cast<BlockHeader*>(_Block_copy(other.raw));
  }

  Block(const Block& other) : Block(other.block) {}
  Block(Block&& other) noexcept : block(std::exchange(other.block, {})) {}
  Block& operator=(Block other) noexcept {
    std::swap(block, other.block);
    return *this;
  }
  ~Block() {
    if (block) _Block_release(block.raw);
  }

  explicit operator bool() const { return static_cast<bool>(block); }
  R operator()(A... arguments) const { return block(arguments...); }
  operator BlockRef<R(A...)>() const& { return block; }
  void* raw() const { return block.raw; }

 private:
  BlockRef<R(A...)> block;
};

}  // namespace bridge
