// Gives the simulator a loader of the slices that ship, beside the host's own for the host's own files.
#include <dlfcn.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <optional>
#include <ranges>
#include <vector>

#include "device/loader/crash.hpp"
#include "device/loader/crossings.hpp"
#include "device/loader/imports.hpp"
#include "device/loader/memory.hpp"
#include "simulator/device/file_state.hpp"
#include "simulator/device/image.hpp"

namespace device::loader {
namespace {

#ifdef __aarch64__
constexpr const char* architecture = "arm64";
#else
constexpr const char* architecture = "armv7";
#endif

struct Slice {
  std::optional<sim::FileState> state;
  std::vector<uint8_t> file;
  Layout layout;
  uint8_t* base = nullptr;
};

std::map<void*, std::unique_ptr<Slice>> loaded;
sim::image::Loader host;

bool isUniversal(const std::vector<uint8_t>& file) {
  constexpr uint8_t magic[]{0xca, 0xfe, 0xba, 0xbe};
  return std::ranges::equal(file | std::views::take(4), magic);
}

constexpr const char* pane = "/Library/PreferenceBundles/Tilo.bundle/Tilo";

bool isPane(const std::vector<uint8_t>& file) { return readImage(file).front().installName == pane; }

// Of the library, or of the page in Settings.
Policy policyFor(bool ofPane) {
  const std::string folder = ofPane ? TILO_DEVICE "/preferences" : TILO_DEVICE;
  std::ifstream in(folder + "/exports.txt");
  Policy policy{readImportLists(folder + "/imports"), {std::istream_iterator<std::string>(in), {}}};
  if (ofPane) policy.installName = pane, policy.initialisers = 1;
  return policy;
}

// As a phone's loader has it: a file is loaded once.
void* loadedFrom(const std::optional<sim::FileState>& file) {
  for (const auto& [base, slice] : loaded)
    if (file && slice->state == file) return base;
  return nullptr;
}

void* open(const char* path, std::string& error) try {
  auto slice = std::make_unique<Slice>();
  slice->state = sim::stateOf(path);
  if (void* image = loadedFrom(slice->state)) return image;
  std::ifstream in(path, std::ios::binary);
  slice->file.assign(std::istreambuf_iterator<char>(in), {});
  if (!isUniversal(slice->file)) return host.open(path, error);
  const bool ofPane = isPane(slice->file);
  slice->layout = layOut(slice->file, architecture, policyFor(ofPane));
  slice->base = intoMemory(slice->layout, importNamed);
  void* image = slice->base;
  const Slice& kept = *(loaded[image] = std::move(slice));
  if (!ofPane) nameCrashes(kept.base, kept.layout.size, TILO_SYMBOLS, architecture);
  letUnwind(kept.layout, kept.base);
  initialise(kept.layout, kept.base, asFunction);
  return image;
} catch (const std::runtime_error& reason) {
  error = std::string(architecture) + ": " + reason.what();
  return nullptr;
}

// For data: a function would have to be made callable first.
void* symbol(void* image, const char* name) {
  for (const auto& [base, slice] : loaded)
    for (const Export& found : slice->layout.exports)
      if ((image == base || image == RTLD_DEFAULT) && found.name == std::string("_") + name)
        return slice->base + found.address;
  return loaded.contains(image) ? nullptr : host.symbol(image, name);
}

[[maybe_unused]] const sim::image::Loader& before = host = sim::image::use({open, symbol, true});

}  // namespace
}  // namespace device::loader
