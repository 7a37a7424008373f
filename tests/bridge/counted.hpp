// A class of ours whose every retain, release, autorelease and dealloc is counted.
#pragma once

#include "bridge/define.hpp"
#include "platform/foundation/object.hpp"

namespace test {

struct Counts {
  int retains = 0, releases = 0, autoreleases = 0, deallocs = 0;
  bool operator==(const Counts&) const = default;
};

struct Counted : bridge::Face<"BridgeTestCounted", NSObject> {
  MESSAGE Method<"retain", bridge::Object()> retain;
  MESSAGE Method<"release", void()> release;
  MESSAGE Method<"autorelease", bridge::Object()> autorelease;
};

struct CountedChild : bridge::Face<"BridgeTestCountedChild", Counted> {};

// What happened to all Counted objects since `freshCounts`.
inline Counts counts;

// Runs within the next dealloc of a Counted.
inline void (*atDealloc)() = nullptr;

inline void freshCounts() {
  counts = {};
  atDealloc = nullptr;
}

using CountedClass = bridge::Implementation<Counted>;

inline bridge::Object countRetain(Counted self) {
  ++counts.retains;
  return CountedClass::super<&Counted::retain>(self);
}

inline void countRelease(Counted self) {
  ++counts.releases;
  CountedClass::super<&Counted::release>(self);
}

inline bridge::Object countAutorelease(Counted self) {
  ++counts.autoreleases;
  return CountedClass::super<&Counted::autorelease>(self);
}

inline void countDealloc(Counted self) {
  ++counts.deallocs;
  if (auto once = std::exchange(atDealloc, nullptr)) once();
  CountedClass::super<&Counted::dealloc>(self);
}

inline void defineCounted() {
  if (CountedClass::cls) return;
  CountedClass::define<NSObject>(bridge::method<&Counted::retain, countRetain>(),
                                 bridge::method<&Counted::release, countRelease>(),
                                 bridge::method<&Counted::autorelease, countAutorelease>(),
                                 bridge::method<&Counted::dealloc, countDealloc>());
  bridge::Implementation<CountedChild>::define<Counted>();
}

// A new object with nothing counted yet; its one reference is the caller's.
template <class T = Counted>
id newCounted() {
  defineCounted();
  id made = bridge::make<T, &NSObject::init>().leak();
  freshCounts();
  return made;
}

}  // namespace test
