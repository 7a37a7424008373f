// Pictures of the screen at even moments of the stepped clock, as one WebP animation.
#include "simulator/serve/recording.hpp"

#include <fmt/format.h>
#include <webp/encode.h>
#include <webp/mux.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <fstream>

#include "simulator/app/simulation.hpp"
#include "simulator/device/clock.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/time/run_loop.hpp"
#include "simulator/uikit/drawing/rendering.hpp"

namespace sim::serve {
namespace {

constexpr int usualRate = 30, highestRate = 60;  // pictures a second
constexpr float quality = 80;                    // of WebP's 100

class Recording : public Companion {
 public:
  Recording(std::string name, int picturesPerSecond)
      : file(std::move(name)), interval(1.0 / picturesPerSecond), start(clock::now()) {
    keepTimeBy([this](double end) { pass(end); });
    take();
  }
  ~Recording() override {
    keepTimeBy({});
    WebPAnimEncoderDelete(encoder);
  }

  void finish() override {
    take();
    check(WebPAnimEncoderAdd(encoder, nullptr, milliseconds() + 1, nullptr));
    WebPData data;
    WebPDataInit(&data);
    const std::unique_ptr<WebPData, decltype(&WebPDataClear)> owner(&data, WebPDataClear);
    check(WebPAnimEncoderAssemble(encoder, &data));
    std::ofstream out(file, std::ios::binary);
    out.write(reinterpret_cast<const char*>(data.bytes), static_cast<std::streamsize>(data.size));
    if (!out.flush()) throw UsageError(fmt::format("--record: '{}' cannot be written", file));
  }

 private:
  // A picture at each of its moments on the way, whatever steps the way is made of.
  void pass(double end) {
    for (double next = start + pictures * interval; next <= end; next = start + pictures * interval) {
      stepTo(next);
      take();
    }
    stepTo(end);
  }

  int milliseconds() const { return static_cast<int>(std::lround((clock::now() - start) * 1000)); }

  void take() {
    Surface screen = uikit::renderScreen(clock::now());
    if (!encoder)
      open(cairo_image_surface_get_width(screen.get()), cairo_image_surface_get_height(screen.get()));
    screen = inShape(screen);
    cairo_surface_flush(screen.get());
    WebPPicture picture;
    check(WebPPictureInit(&picture));
    picture.use_argb = 1;
    picture.width = width;
    picture.height = height;
    const bool done = WebPPictureImportBGRX(&picture, cairo_image_surface_get_data(screen.get()),
                                            cairo_image_surface_get_stride(screen.get())) &&
                      WebPAnimEncoderAdd(encoder, &picture, milliseconds(), &config);
    WebPPictureFree(&picture);
    check(done);
    pictures = static_cast<long>(std::floor((clock::now() - start) / interval + 1e-6)) + 1;
  }

  // A recording keeps its shape: a screen that has turned lies in the middle of it, as large as fits.
  Surface inShape(const Surface& screen) const {
    const double across = cairo_image_surface_get_width(screen.get());
    const double down = cairo_image_surface_get_height(screen.get());
    if (across == width && down == height) return screen;
    Surface shaped = makeImage(width, height);
    const Context context(shaped.get());
    const double scale = std::min(width / across, height / down);
    cairo_translate(context, (width - across * scale) / 2, (height - down * scale) / 2);
    cairo_scale(context, scale, scale);
    cairo_set_source_surface(context, screen.get(), 0, 0);
    cairo_paint(context);
    return shaped;
  }

  void open(int across, int down) {
    width = across;
    height = down;
    WebPAnimEncoderOptions options;
    check(WebPAnimEncoderOptionsInit(&options) && WebPConfigInit(&config));
    options.allow_mixed = 1;
    config.quality = quality;
    config.method = 2;
    encoder = WebPAnimEncoderNew(width, height, &options);
    check(encoder != nullptr);
  }

  void check(bool done) const {
    if (!done) throw std::runtime_error("--record: the WebP encoder failed");
  }

  const std::string file;
  const double interval, start;  // seconds
  long pictures = 0;             // how many moments have passed
  int width = 0, height = 0;
  WebPConfig config{};
  WebPAnimEncoder* encoder = nullptr;
};

int rateOf(const std::string& text) {
  int rate = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), rate);
  if (error != std::errc{} || end != text.data() + text.size() || rate < 1 || rate > highestRate)
    throw UsageError(fmt::format("--fps: '{}' is not a whole number from 1 to {}", text, highestRate));
  return rate;
}

constexpr OptionRow rows[] = {
    {"--record", "FILE", "the screen over time as a WebP animation, while time passes by the script's steps",
     "", keepWritableFile},
    {"--fps", "N", "with `--record`: pictures a second, 1 to 60", "30",
     [](Options& options, const OptionRow& row, const std::string& text) {
       keepText(options, row, std::to_string(rateOf(text)));
     }},
};

std::unique_ptr<Companion> record(Simulation& simulation) {
  const auto& more = simulation.startOptions().more;
  const auto file = more.find("--record"), rate = more.find("--fps");
  if (file == more.end()) {
    if (rate != more.end()) throw UsageError("--fps is for --record");
    return nullptr;
  }
  return std::make_unique<Recording>(file->second.back(),
                                     rate == more.end() ? usualRate : std::stoi(rate->second.back()));
}

}  // namespace

void addRecording(Program& program) {
  add(program.options, std::span<const OptionRow>(rows));
  program.companion = record;
}

}  // namespace sim::serve
