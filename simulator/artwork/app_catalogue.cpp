// Names, colours and glyphs of the invented applications.
#include "simulator/artwork/app_catalogue.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <span>

namespace sim {
namespace {

struct Entry {
  std::string_view name;
  AppLook look;
};

constexpr AppLook look(unsigned top, unsigned bottom, char32_t glyph) {
  return {rgb(top), rgb(bottom), glyph, whiteColor, IconMotif::glyph};
}

constexpr AppLook tinted(unsigned top, unsigned bottom, char32_t glyph, unsigned tint) {
  return {rgb(top), rgb(bottom), glyph, rgb(tint), IconMotif::glyph};
}

constexpr AppLook drawn(unsigned top, unsigned bottom, IconMotif motif) {
  return {rgb(top), rgb(bottom), 0, whiteColor, motif};
}

// Glyphs by their code points in Font Awesome 4.7.
constexpr Entry pageApps[] = {
    {"Messages", look(0x7df06f, 0x1fc43a, 0xf075)},
    {"Calendar", drawn(0xffffff, 0xffffff, IconMotif::calendar)},
    {"Photos", drawn(0xffffff, 0xf6f6f6, IconMotif::photos)},
    {"Camera", tinted(0xe3e4e6, 0xb4b7bc, 0xf030, 0x2b2c2e)},
    {"Weather", drawn(0x1d7ff2, 0x6fcdfb, IconMotif::weather)},
    {"Clock", drawn(0x2a2a2c, 0x0b0b0c, IconMotif::clock)},
    {"Maps", look(0x6fdc7c, 0x1c9fe0, 0xf124)},
    {"Videos", look(0x6ad7fb, 0x1a86ee, 0xf008)},
    {"Notes", drawn(0xffffff, 0xf7f5ee, IconMotif::notes)},
    {"Reminders", tinted(0xffffff, 0xf1f1f3, 0xf0ca, 0xff9500)},
    {"Stocks", tinted(0x2c2c2e, 0x080809, 0xf201, 0x4cd964)},
    {"Games", look(0xb86bff, 0x5a3df0, 0xf11b)},
    {"News", tinted(0xffffff, 0xf1f1f3, 0xf1ea, 0xff3b57)},
    {"Books", look(0xffb14a, 0xff7a1a, 0xf02d)},
    {"Store", look(0x2bc3fb, 0x1b6df2, 0xf290)},
    {"Podcasts", look(0xd780f7, 0x8f3be0, 0xf2ce)},
    {"Health", tinted(0xffffff, 0xf5f1f3, 0xf004, 0xff2d63)},
    {"Home", tinted(0xffffff, 0xf5f3ee, 0xf015, 0xff9f0a)},
    {"Tickets", look(0xff8f6b, 0xe8443e, 0xf145)},
    {"Settings", tinted(0xd4d6da, 0x8d9097, 0xf085, 0x3c3d42)},
    {"Library", look(0x57c7b6, 0x16887f, 0xf02e)},
    {"Contacts", look(0xcdb79d, 0x957b60, 0xf2bb)},
    {"Calculator", tinted(0x4a4a4d, 0x1f1f21, 0xf1ec, 0xff9f0a)},
    {"Compass", tinted(0x3a3a3d, 0x111113, 0xf14e, 0xf4f4f6)},
    {"Recorder", look(0xff7d70, 0xe02f3f, 0xf130)},
    {"Translate", look(0x5fb7ff, 0x2a5fe0, 0xf1ab)},
    {"Flights", look(0x4fd0f0, 0x1594c9, 0xf072)},
    {"Fitness", tinted(0x2b2b2d, 0x060607, 0xf21e, 0xb7f63b)},
    {"Recipes", look(0xffa45b, 0xf0562d, 0xf0f5)},
    {"Coffee", look(0xb98a66, 0x6e4630, 0xf0f4)},
    {"Radio", look(0xff6fa1, 0xe0245e, 0xf028)},
    {"Shopping", look(0xffc94d, 0xf79a16, 0xf07a)},
    {"Bank", look(0x4c79b8, 0x1e3f75, 0xf19c)},
    {"Taxi", tinted(0xffdc4a, 0xf6b90c, 0xf1ba, 0x2b2b2d)},
    {"Trains", look(0x7bd66b, 0x2a9a46, 0xf238)},
    {"Hotels", look(0x7fa6f7, 0x4152c8, 0xf236)},
    {"Puzzles", look(0x66e0c0, 0x18a68c, 0xf12e)},
    {"Sketch", look(0xff8ed0, 0xc23ddb, 0xf1fc)},
    {"Gifts", look(0xff7f8a, 0xd92b52, 0xf06b)},
    {"Travel", look(0x6cc8f5, 0x2f7ac6, 0xf0f2)},
    {"Garden", look(0xa5dc5a, 0x4c9f2a, 0xf06c)},
    {"Pets", look(0xf3b98a, 0xc97b45, 0xf1b0)},
    {"Sleep", tinted(0x3b3f86, 0x15173f, 0xf186, 0xf6e7a8)},
    {"Torch", tinted(0x55575c, 0x1e1f22, 0xf0eb, 0xffd84a)},
    {"Passwords", look(0x9aa4b5, 0x56617a, 0xf084)},
};

constexpr Entry dockApps[] = {
    {"Phone", look(0x82f06b, 0x13c22f, 0xf095)},
    {"Browser", look(0x3fc4fb, 0x1660e8, 0xf0ac)},
    {"Mail", look(0x4bd2fb, 0x1a7bf0, 0xf0e0)},
    {"Music", tinted(0xffffff, 0xf5f1f3, 0xf001, 0xfb3c68)},
    {"Files", tinted(0xffffff, 0xf0f3f7, 0xf07b, 0x1f8ff5)},
    {"Wallet", look(0x3a3d44, 0x0f1013, 0xf09d)},
};

constexpr char32_t spareGlyphs[] = {0xf005, 0xf0e7, 0xf135, 0xf0c3, 0xf1e3, 0xf219, 0xf0e9, 0xf13d,
                                    0xf1b2, 0xf0d0, 0xf043, 0xf091, 0xf140, 0xf206, 0xf1fd, 0xf025};

constexpr AppLook spareColors[] = {
    look(0x6ad7fb, 0x1a86ee, 0), look(0xff9a6b, 0xe8443e, 0), look(0x7df06f, 0x1fa43a, 0),
    look(0xd780f7, 0x7a3be0, 0), look(0xffc94d, 0xf28a16, 0), look(0x66e0c0, 0x18948c, 0),
    look(0xff8ab0, 0xd92b72, 0), look(0x8f9cf7, 0x4152c8, 0), look(0x9aa4b5, 0x4b566d, 0)};

// FNV-1a: unlike std::hash the same everywhere.
std::uint32_t hashOf(std::string_view name) {
  std::uint32_t hash = 2166136261u;
  for (const unsigned char byte : name) hash = (hash ^ byte) * 16777619u;
  return hash;
}

// Of a name like "App 46"; numbers follow one another, so that neighbours differ.
std::uint32_t seedOf(std::string_view name) {
  const std::size_t digits = name.find_last_not_of("0123456789") + 1;
  if (digits == name.size()) return hashOf(name);
  std::uint32_t number = 0;
  for (const char digit : name.substr(digits)) number = number * 10 + static_cast<unsigned>(digit - '0');
  return number;
}

}  // namespace

int appCatalogueSize() { return static_cast<int>(std::size(pageApps)); }

std::string appName(int index) {
  if (index >= 0 && index < appCatalogueSize()) return std::string(pageApps[index].name);
  return fmt::format("App {}", index + 1);
}

std::string dockAppName(int index) {
  if (index >= 0 && index < static_cast<int>(std::size(dockApps))) return std::string(dockApps[index].name);
  return fmt::format("Dock {}", index + 1);
}

AppLook appLook(std::string_view name) {
  for (const std::span<const Entry> entries :
       {std::span<const Entry>(pageApps), std::span<const Entry>(dockApps)}) {
    const auto entry = std::ranges::find(entries, name, &Entry::name);
    if (entry != entries.end()) return entry->look;
  }
  const std::uint32_t seed = seedOf(name);
  AppLook made = spareColors[seed % std::size(spareColors)];
  made.glyph = spareGlyphs[seed % std::size(spareGlyphs)];
  return made;
}

}  // namespace sim
