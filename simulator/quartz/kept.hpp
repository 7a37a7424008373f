// The last things of a kind that were wanted, for when one like them is wanted again.
#pragma once

#include <algorithm>
#include <cstddef>
#include <list>
#include <utility>

namespace sim {

template <class Value>
class Kept {
 public:
  /** Of that many bytes in all, and no more than `most` of them. */
  explicit Kept(std::size_t bytes) : room(bytes) {}

  /** The one that `isLike` says yes to, which from now on is the last to go; null when there is none. */
  template <class Predicate>
  const Value* find(const Predicate& isLike) {
    const auto found = std::ranges::find_if(entries, isLike, &Entry::value);
    if (found == entries.end()) return nullptr;
    entries.splice(entries.begin(), entries, found);
    return &found->value;
  }

  /** Those that were wanted longest ago make room for it. What is larger than all the room is not kept. */
  void add(Value value, std::size_t bytes) {
    bytes = std::max(bytes, room / most);
    if (bytes > room) return;
    entries.push_front({std::move(value), bytes});
    for (taken += bytes; taken > room; entries.pop_back()) taken -= entries.back().bytes;
  }

  void clear() {
    entries.clear();
    taken = 0;
  }

  static constexpr std::size_t most = 256;  // so that they are looked through quickly

 private:
  struct Entry {
    Value value;
    std::size_t bytes;
  };

  std::list<Entry> entries;  // the one that was wanted last comes first
  std::size_t room, taken = 0;
};

}  // namespace sim
