// Laying rows over others: what is plain is mixed once for all of it, or left out; the rest pixel by pixel.
#include "simulator/quartz/spans.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <utility>
#include <vector>

#include "simulator/quartz/mixing.hpp"

namespace sim {
namespace {

using Byte = std::uint8_t;

// An image's pixels, row by row.
struct Image {
  explicit Image(cairo_surface_t* of)
      : data(cairo_image_surface_get_data(of)),
        stride(cairo_image_surface_get_stride(of)),
        width(cairo_image_surface_get_width(of)),
        height(cairo_image_surface_get_height(of)) {}

  Byte* at(int x, int y) const { return data + y * stride + std::ptrdiff_t{x} * channels; }

  Byte* data;
  std::ptrdiff_t stride;
  int width, height;
};

// A row of the image with clear pixels about it, as far as it is asked for.
class Rows {
 public:
  explicit Rows(cairo_surface_t* of) : image(of) {}

  // The pixels from `begin` up to `end`, which may lie beyond the row.
  const Byte* at(int y, int begin, int end, std::vector<Byte>& room) const {
    const bool exists = y >= 0 && y < image.height;
    if (exists && begin >= 0 && end <= image.width) return image.at(begin, y);
    room.assign(static_cast<std::size_t>(end - begin) * channels, 0);
    const int first = std::max(begin, 0), last = std::min(end, image.width);
    if (exists && first < last)
      std::memcpy(&room[static_cast<std::size_t>(first - begin) * channels], image.at(first, y),
                  static_cast<std::size_t>(last - first) * channels);
    return room.data();
  }

  /** Has the pixels on their way to the caches: the row below will want them, and memory is far. */
  void fetch(int y, int begin, int end) const {
    constexpr int line = 64 / channels;  // pixels
    if (y >= image.height) return;
    for (int x = std::max(begin, 0); x < std::min(end, image.width); x += line)
      __builtin_prefetch(image.at(x, y));
  }

  const Image image;
};

// A kind of row in pixels of the target.
struct Plan {
  std::vector<Run> runs;
  int opaqueBegin, opaqueEnd;
};

// What is mixed at once, of a row and the one below it.
struct Stretch {
  int begin, end, row;
  bool areAlike;
};

class Laying {
 public:
  Laying(cairo_surface_t* onto, const PixelRect& within, cairo_surface_t* image, const Runs& runsOfIt,
         const Sampling& sampling)
      : target(onto),
        across(sampling.x),
        down(sampling.y),
        rows(image),
        runs(runsOfIt),
        next(across.isWhole() && across.share(0) == 0 ? 0 : 1),
        left(std::max(within.x, across.firstAt(-next))),
        right(std::min(within.x + within.width, across.firstAt(rows.image.width))),
        innerBegin(across.firstAt(0)),
        innerEnd(across.firstAt(rows.image.width - next)),
        mixed(static_cast<std::size_t>(within.width) * channels) {
    if (across.isWhole()) return;
    for (int x = left; x < right; ++x) places.emplace_back(across.pixel(x), across.share(x));
  }

  void row(int y) {
    const int from = down.pixel(y);
    if (!runs.has(from) || left >= right) return;
    if (const std::size_t kind = runs.kindOf(from); kind != planned) plan(planned = kind);
    mixes = 0;
    int at = left;
    for (const Run& run : current.runs) {
      mixAll(y, at, run.begin);
      if (!run.isClear()) layPlain(y, run);
      at = run.end;
    }
    mixAll(y, at, right);
  }

 private:
  void plan(std::size_t kind) {
    const auto& [all, opaqueBegin, opaqueEnd] = runs.kind(kind);
    current.runs.clear();
    for (const Run& run : all) {
      const int begin = std::max(across.firstAt(run.begin), left);
      const int end = std::min(across.firstAt(run.end - next), right);
      if (begin < end) current.runs.push_back({begin, end, run.upper, run.lower});
    }
    current.opaqueBegin = across.firstAt(opaqueBegin);
    current.opaqueEnd = across.firstAt(std::max(opaqueEnd - next, opaqueBegin));
  }

  // Of one pixel between one other and the one below it.
  void layPlain(int y, const Run& run) {
    std::uint32_t pixel = run.upper;
    if (run.lower != run.upper)
      mixRows(reinterpret_cast<const Byte*>(&run.upper), reinterpret_cast<const Byte*>(&run.lower),
              reinterpret_cast<Byte*>(&pixel), 1, 0, down.share(y));
    const bool isOpaque = pixel >> 24 == 0xff;
    Byte* const out = target.at(run.begin, y);
    Byte* const all = isOpaque ? out : &mixed[static_cast<std::size_t>(run.begin - left) * channels];
    std::fill_n(reinterpret_cast<std::uint32_t*>(all), run.end - run.begin, pixel);
    if (!isOpaque) layRowOver(all, out, run.end - run.begin);
  }

  void mixAll(int y, int begin, int end) {
    if (begin >= end) return;
    const auto mixUpTo = [&](int limit, bool isOpaque) {
      if (limit <= begin) return false;
      const int stop = std::min(limit, end);
      mix(y, std::exchange(begin, stop), stop, isOpaque);
      return begin == end;
    };
    mixUpTo(innerBegin, false) || mixUpTo(current.opaqueBegin, false) || mixUpTo(current.opaqueEnd, true) ||
        mixUpTo(innerEnd, false) || mixUpTo(end, false);
  }

  void mix(int y, int begin, int end, bool isOpaque) {
    const int pixels = end - begin, row = down.pixel(y);
    const int first = across.pixel(begin), last = across.pixel(end - 1) + 1 + next;
    Byte* const out = target.at(begin, y);
    const Byte* const one = rows.at(row, first, last, above);
    const Byte* const other = rows.at(row + 1, first, last, below);
    rows.fetch(row + 2, first, last);
    const bool areAlike = runs.isLikeNext(row, first, last);
    const int share = areAlike ? 0 : down.share(y);
    if (next == 0 && share == 0) {
      if (isOpaque)
        std::memcpy(out, one, static_cast<std::size_t>(pixels) * channels);
      else
        layRowOver(one, out, pixels);
      return;
    }
    const auto at = static_cast<std::size_t>(begin - left);
    Byte* const result = isOpaque ? out : &mixed[at * channels];
    const Stretch stretch{begin, end, row, areAlike && !isOpaque};
    if (!isAsAbove(stretch)) {
      if (across.isWhole())
        mixRows(one, other, result, pixels, across.share(begin), share);
      else
        mixScaled(one, other, result, std::span(places).subspan(at, static_cast<std::size_t>(pixels)), share,
                  room);
    }
    if (!isOpaque) layRowOver(result, out, pixels);
  }

  // What was mixed for the row above is there still, and is the same where the picture's rows are: as beside
  // a card, where its shadow falls.
  bool isAsAbove(const Stretch& now) {
    const std::size_t place = mixes++;
    if (place == mixedAbove.size()) mixedAbove.push_back({});
    const Stretch was = std::exchange(mixedAbove[place], now);
    return now.areAlike && was.areAlike && was.begin == now.begin && was.end == now.end &&
           now.row <= was.row + 1;
  }

  const Image target;
  const Axis across, down;
  const Rows rows;
  const Runs& runs;
  const int next;                  // 1 if a pixel is mixed with the next one of its row, otherwise 0
  const int left, right;           // where the picture shows
  const int innerBegin, innerEnd;  // where nothing beyond its edges does
  std::size_t planned = SIZE_MAX;
  Plan current{};
  std::vector<Byte> above, below;  // rooms for pixels beyond the edges
  std::vector<Byte> mixed;         // a row
  std::vector<Stretch> mixedAbove;
  std::size_t mixes = 0;      // of this row, until now
  std::vector<Place> places;  // of a picture that is scaled
  std::vector<std::uint16_t> room;
};

}  // namespace

void layOver(cairo_surface_t* target, const PixelRect& rect, cairo_surface_t* image, const Runs& runs,
             const Sampling& sampling) {
  cairo_surface_flush(target);
  Laying laying(target, rect, image, runs, sampling);
  for (int y = rect.y; y < rect.y + rect.height; ++y) laying.row(y);
  cairo_surface_mark_dirty_rectangle(target, rect.x, rect.y, rect.width, rect.height);
}

}  // namespace sim
