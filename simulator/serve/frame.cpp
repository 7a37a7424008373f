// Comparing pictures tile by tile, and compressing what differs.
#include "simulator/serve/frame.hpp"

#include <turbojpeg.h>
#include <webp/encode.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>
#include <stdexcept>

namespace sim::serve {
namespace {

constexpr int bytesPerPixel = 4;
constexpr int jpegQuality = 90;

const unsigned char* pixelAt(cairo_surface_t* picture, int x, int y) {
  return cairo_image_surface_get_data(picture) + std::ptrdiff_t{y} * cairo_image_surface_get_stride(picture) +
         std::ptrdiff_t{x} * bytesPerPixel;
}

bool sameSize(cairo_surface_t* a, cairo_surface_t* b) {
  return cairo_image_surface_get_width(a) == cairo_image_surface_get_width(b) &&
         cairo_image_surface_get_height(a) == cairo_image_surface_get_height(b);
}

bool differ(cairo_surface_t* a, cairo_surface_t* b, const PixelRect& rect) {
  const auto length = static_cast<std::size_t>(rect.width) * bytesPerPixel;
  for (int y = rect.y; y < rect.y + rect.height; ++y)
    if (std::memcmp(pixelAt(a, rect.x, y), pixelAt(b, rect.x, y), length) != 0) return true;
  return false;
}

template <class Number>
void append(std::string& message, Number number) {
  for (std::size_t i = 0; i < sizeof number; ++i)
    message.push_back(static_cast<char>(static_cast<std::uint64_t>(number) >> (8 * i) & 0xff));
}

void append(std::string& message, const void* bytes, std::size_t count) {
  message.append(static_cast<const char*>(bytes), count);
}

// Tiles side by side, in rows. A page decodes one picture many times as quickly as one for each of them.
struct Sheet {
  int across, width, height;
  std::vector<std::uint32_t> pixels;

  Sheet(cairo_surface_t* picture, const std::vector<PixelRect>& tiles, int mostAcross)
      : across(std::min(mostAcross, static_cast<int>(tiles.size()))),
        width(across * tileSide),
        height((static_cast<int>(tiles.size()) + across - 1) / across * tileSide),
        pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {
    for (int i = 0; i < static_cast<int>(tiles.size()); ++i)
      for (int y = 0; y < tileSide; ++y)
        put(picture, tiles[static_cast<std::size_t>(i)], y,
            pixels.data() + std::ptrdiff_t{i / across * tileSide + y} * width + i % across * tileSide);
  }
  const unsigned char* bytes() const { return reinterpret_cast<const unsigned char*>(pixels.data()); }
  int stride() const { return width * bytesPerPixel; }

 private:
  // What a smaller tile lacks is its edge again, which changes nothing about the rest of it when it is
  // compressed.
  static void put(cairo_surface_t* picture, const PixelRect& tile, int y, std::uint32_t* row) {
    std::memcpy(row, pixelAt(picture, tile.x, tile.y + std::min(y, tile.height - 1)),
                static_cast<std::size_t>(tile.width) * bytesPerPixel);
    std::fill(row + tile.width, row + tileSide, row[tile.width - 1]);
  }
};

struct JpegEnd {
  void operator()(void* compressor) const { tjDestroy(compressor); }
};

// Every pixel has its own colour, or small coloured text would smear; and a tile is whole blocks, so that its
// neighbours in the sheet do not show in it.
void appendJpeg(std::string& message, const Sheet& sheet) {
  static const std::unique_ptr<void, JpegEnd> compressor(tjInitCompress());
  unsigned char* bytes = nullptr;
  unsigned long count = 0;
  const int failed = tjCompress2(compressor.get(), sheet.bytes(), sheet.width, sheet.stride(), sheet.height,
                                 TJPF_BGRX, &bytes, &count, TJSAMP_444, jpegQuality, TJFLAG_FASTDCT);
  const std::unique_ptr<unsigned char, decltype(&tjFree)> owner(bytes, tjFree);
  if (failed != 0) throw std::runtime_error("no frame: the JPEG compressor has no memory");
  append(message, bytes, count);
}

void appendWebP(std::string& message, const Sheet& sheet) {
  WebPConfig config;
  WebPPicture image{};
  WebPMemoryWriter written{};
  // A few per cent larger than the best, and many times as quick.
  const bool begun =
      WebPConfigInit(&config) && WebPConfigLosslessPreset(&config, 0) && WebPPictureInit(&image);
  const std::unique_ptr<WebPMemoryWriter, decltype(&WebPMemoryWriterClear)> owner(&written,
                                                                                  WebPMemoryWriterClear);
  const std::unique_ptr<WebPPicture, decltype(&WebPPictureFree)> imageOwner(&image, WebPPictureFree);
  image.use_argb = true;
  image.width = sheet.width;
  image.height = sheet.height;
  image.writer = WebPMemoryWrite;
  image.custom_ptr = &written;
  if (!begun || !WebPPictureImportBGRX(&image, sheet.bytes(), sheet.stride()) || !WebPEncode(&config, &image))
    throw std::runtime_error("no frame: the WebP compressor has no memory");
  append(message, written.mem, written.size);
}

}  // namespace

Tiles::Tiles(int across, int down)
    : width(across),
      height(down),
      columns((across + tileSide - 1) / tileSide),
      rows((down + tileSide - 1) / tileSide),
      marked(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows)) {}

PixelRect Tiles::tileAt(int column, int row) const {
  const int x = column * tileSide, y = row * tileSide;
  return {x, y, std::min(tileSide, width - x), std::min(tileSide, height - y)};
}

Tiles Tiles::changed(cairo_surface_t* before, cairo_surface_t* now, const Region& within) {
  cairo_surface_flush(now);
  Tiles tiles(cairo_image_surface_get_width(now), cairo_image_surface_get_height(now));
  const bool whole = !before || !sameSize(before, now);
  const auto mayDiffer = [&](const PixelRect& tile) {
    return std::ranges::any_of(within.rectangles(), [&](const PixelRect& rect) {
      const PixelRect common = intersection(rect, tile);
      return !isEmpty(common) && differ(before, now, common);
    });
  };
  for (int row = 0; row < tiles.rows; ++row)
    for (int column = 0; column < tiles.columns; ++column)
      if (whole || mayDiffer(tiles.tileAt(column, row)))
        tiles.marked[static_cast<std::size_t>(row * tiles.columns + column)] = true;
  return tiles;
}

bool Tiles::any() const { return std::ranges::find(marked, true) != marked.end(); }

long Tiles::count() const { return std::ranges::count(marked, true); }

void Tiles::add(const Tiles& others) {
  if (!isShapedAs(others)) return;
  for (std::size_t i = 0; i < marked.size(); ++i) marked[i] = marked[i] || others.marked[i];
}

void Tiles::remove(const Tiles& others) {
  if (!isShapedAs(others)) return;
  for (std::size_t i = 0; i < marked.size(); ++i) marked[i] = marked[i] && !others.marked[i];
}

std::vector<PixelRect> Tiles::rectangles() const {
  std::vector<PixelRect> found;
  for (int row = 0; row < rows; ++row)
    for (int column = 0; column < columns; ++column)
      if (marked[static_cast<std::size_t>(row * columns + column)]) found.push_back(tileAt(column, row));
  return found;
}

std::string encodeFrame(std::uint32_t number, cairo_surface_t* picture, CGSize points, const Tiles& tiles,
                        Codec codec) {
  const std::vector<PixelRect> places = tiles.rectangles();
  const Sheet sheet(picture, places, tiles.across());
  std::string message;
  append(message, number);
  append(message, static_cast<std::uint16_t>(cairo_image_surface_get_width(picture)));
  append(message, static_cast<std::uint16_t>(cairo_image_surface_get_height(picture)));
  append(message, static_cast<std::uint16_t>(std::lround(points.width)));
  append(message, static_cast<std::uint16_t>(std::lround(points.height)));
  append(message, static_cast<std::uint8_t>(codec));
  append(message, static_cast<std::uint8_t>(tileSide));
  append(message, static_cast<std::uint16_t>(sheet.across));
  append(message, static_cast<std::uint16_t>(places.size()));
  for (const PixelRect& place : places) {
    append(message, static_cast<std::uint8_t>(place.x / tileSide));
    append(message, static_cast<std::uint8_t>(place.y / tileSide));
  }
  codec == Codec::jpeg ? appendJpeg(message, sheet) : appendWebP(message, sheet);
  return message;
}

}  // namespace sim::serve
