// Image surfaces and PNG files.
#include "simulator/quartz/surface.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <exception>
#include <fstream>
#include <stdexcept>

namespace sim {
namespace {

cairo_status_t appendBytes(void* target, const unsigned char* bytes, unsigned int count) {
  auto& data = *static_cast<std::vector<unsigned char>*>(target);
  data.insert(data.end(), bytes, bytes + count);
  return CAIRO_STATUS_SUCCESS;
}

bool isOpaque(cairo_surface_t* image) {
  if (cairo_image_surface_get_format(image) != CAIRO_FORMAT_ARGB32) return false;
  const unsigned char* row = cairo_image_surface_get_data(image);
  const int width = cairo_image_surface_get_width(image), stride = cairo_image_surface_get_stride(image);
  for (int y = cairo_image_surface_get_height(image); y > 0; --y, row += stride) {
    const auto* pixels = reinterpret_cast<const std::uint32_t*>(row);
    if (!std::all_of(pixels, pixels + width, [](std::uint32_t pixel) { return pixel >> 24 == 0xff; })) {
      return false;
    }
  }
  return true;
}

}  // namespace

Surface adoptSurface(cairo_surface_t* surface) {
  Surface owned(surface, cairo_surface_destroy);
  const cairo_status_t status = cairo_surface_status(surface);
  if (status != CAIRO_STATUS_SUCCESS) {
    throw std::runtime_error(fmt::format("cannot make an image: {}", cairo_status_to_string(status)));
  }
  return owned;
}

Context::~Context() noexcept(false) {
  const cairo_status_t status = cairo_status(context);
  cairo_destroy(context);
  if (status != CAIRO_STATUS_SUCCESS && std::uncaught_exceptions() == 0)
    throw std::runtime_error(fmt::format("cannot draw: {}", cairo_status_to_string(status)));
}

Surface makeImage(int width, int height) {
  return adoptSurface(
      cairo_image_surface_create(CAIRO_FORMAT_ARGB32, std::max(width, 1), std::max(height, 1)));
}

std::size_t bytesOf(cairo_surface_t* image) {
  return static_cast<std::size_t>(cairo_image_surface_get_stride(image)) *
         static_cast<std::size_t>(cairo_image_surface_get_height(image));
}

Surface readPng(const std::filesystem::path& file) {
  Surface image(cairo_image_surface_create_from_png(file.c_str()), cairo_surface_destroy);
  const cairo_status_t status = cairo_surface_status(image.get());
  if (status != CAIRO_STATUS_SUCCESS) {
    throw std::runtime_error(fmt::format("{}: {}", file.string(), cairo_status_to_string(status)));
  }
  return image;
}

std::vector<unsigned char> encodePng(cairo_surface_t* image) {
  cairo_surface_flush(image);
  Surface opaque;
  if (isOpaque(image)) {
    // The same pixels seen as a format without alpha: cairo then writes three channels.
    opaque = adoptSurface(cairo_image_surface_create_for_data(
        cairo_image_surface_get_data(image), CAIRO_FORMAT_RGB24, cairo_image_surface_get_width(image),
        cairo_image_surface_get_height(image), cairo_image_surface_get_stride(image)));
  }
  std::vector<unsigned char> bytes;
  const cairo_status_t status =
      cairo_surface_write_to_png_stream(opaque ? opaque.get() : image, appendBytes, &bytes);
  if (status != CAIRO_STATUS_SUCCESS) {
    throw std::runtime_error(fmt::format("cannot encode a PNG: {}", cairo_status_to_string(status)));
  }
  return bytes;
}

void writePng(cairo_surface_t* image, const std::filesystem::path& file) {
  const std::vector<unsigned char> bytes = encodePng(image);
  std::ofstream out(file, std::ios::binary);
  out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  out.close();
  if (!out) throw std::runtime_error(fmt::format("{}: cannot be written", file.string()));
}

}  // namespace sim
