// Ownership of cairo image surfaces, and pictures as PNG files.
#pragma once

#include <cairo.h>

#include <cstddef>
#include <filesystem>
#include <memory>
#include <vector>

namespace sim {

/** A shared cairo surface; destroyed with its last owner. */
using Surface = std::shared_ptr<cairo_surface_t>;

/** Takes over the reference that a cairo call returned; throws std::runtime_error if that call failed. */
Surface adoptSurface(cairo_surface_t* surface);
/** A clear ARGB32 image, in pixels, at least 1 by 1. Throws std::runtime_error when cairo cannot make it. */
Surface makeImage(int width, int height);
/** Of an image's pixels. */
std::size_t bytesOf(cairo_surface_t* image);
/** An image read from a PNG file. Throws std::runtime_error naming the file. */
Surface readPng(const std::filesystem::path& file);

/**
 * The image as a PNG file, without an alpha channel when every pixel is opaque. The same pixels give the same
 * bytes. Throws std::runtime_error.
 */
std::vector<unsigned char> encodePng(cairo_surface_t* image);
/** Writes encodePng's bytes. Throws std::runtime_error naming the file. */
void writePng(cairo_surface_t* image, const std::filesystem::path& file);

/**
 * A cairo context that is destroyed at the end of its scope, which throws std::runtime_error where cairo
 * could not draw all that it was told to: from its first failure on it draws nothing and says so only when
 * asked.
 */
class Context {
 public:
  explicit Context(cairo_surface_t* target) : context(cairo_create(target)) {}
  ~Context() noexcept(false);
  Context(const Context&) = delete;
  Context& operator=(const Context&) = delete;
  operator cairo_t*() const { return context; }

 private:
  cairo_t* context;
};

/** Saves a context's state and restores it at the end of the scope. */
class SavedState {
 public:
  explicit SavedState(cairo_t* of) : context(of) { cairo_save(context); }
  ~SavedState() { cairo_restore(context); }
  SavedState(const SavedState&) = delete;
  SavedState& operator=(const SavedState&) = delete;

 private:
  cairo_t* context;
};

/** Destroys a pattern with its owner. */
struct PatternDeleter {
  void operator()(cairo_pattern_t* pattern) const { cairo_pattern_destroy(pattern); }
};
using Pattern = std::unique_ptr<cairo_pattern_t, PatternDeleter>;

}  // namespace sim
