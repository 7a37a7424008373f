// Numbers little-endian, then the sheet.
#include "tests/simulator/serve/shown_frame.hpp"

#include <gtest/gtest.h>
#include <turbojpeg.h>
#include <webp/decode.h>

#include <memory>

namespace test {
namespace {

constexpr std::uint32_t opaque = 0xff000000;

}  // namespace

std::uint32_t ShownFrame::pixel(std::size_t tile, int x, int y) const {
  const int left = static_cast<int>(tile) % across * tileSide,
            top = static_cast<int>(tile) / across * tileSide;
  return sheet.at(static_cast<std::size_t>((top + y) * sheetWidth + left + x));
}

ShownFrame readFrame(const std::string& message) {
  std::size_t at = 0;
  const auto number = [&](int bytes) {
    std::uint32_t value = 0;
    for (int i = 0; i < bytes; ++i)
      value |= std::uint32_t{static_cast<unsigned char>(message.at(at++))} << (8 * i);
    return value;
  };
  const auto whole = [&](int bytes) { return static_cast<int>(number(bytes)); };
  ShownFrame frame;
  frame.number = number(4);
  for (int* each : {&frame.width, &frame.height, &frame.pointsAcross, &frame.pointsDown}) *each = whole(2);
  frame.codec = whole(1);
  frame.tileSide = whole(1);
  frame.across = whole(2);
  for (int left = whole(2); left > 0; --left) {
    const int column = whole(1), row = whole(1);
    frame.places.emplace_back(column, row);
  }
  const auto* bytes = reinterpret_cast<const unsigned char*>(message.data()) + at;
  const std::size_t length = message.size() - at;
  const auto take = [&](int width, int height) {
    frame.sheetWidth = width;
    frame.sheetHeight = height;
    frame.sheet.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    return reinterpret_cast<unsigned char*>(frame.sheet.data());
  };
  int width = 0, height = 0;
  if (frame.codec == exact) {
    if (WebPGetInfo(bytes, length, &width, &height)) {
      unsigned char* const pixels = take(width, height);
      EXPECT_TRUE(WebPDecodeBGRAInto(bytes, length, pixels, frame.sheet.size() * 4, width * 4));
    }
  } else {
    const std::unique_ptr<void, decltype(&tjDestroy)> decoder(tjInitDecompress(), tjDestroy);
    int subsampling = 0, colours = 0;
    if (tjDecompressHeader3(decoder.get(), bytes, length, &width, &height, &subsampling, &colours) == 0) {
      unsigned char* const pixels = take(width, height);
      EXPECT_EQ(tjDecompress2(decoder.get(), bytes, length, pixels, width, 0, height, TJPF_BGRX, 0), 0);
    }
  }
  EXPECT_FALSE(frame.sheet.empty());
  for (std::uint32_t& pixel : frame.sheet) pixel |= opaque;
  return frame;
}

}  // namespace test
