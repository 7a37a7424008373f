// The command line, read with CLI11; what it yields as text is checked here.
#include "simulator/app/options.hpp"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cerrno>
#include <cstring>

#include "simulator/device/usage_error.hpp"

namespace sim {
namespace {

namespace fs = std::filesystem;

constexpr int mostPages = 15;

struct Texts {
  std::string device = "iPhone 7", ios, orientation = "portrait", loader = "substrate";
  std::string root, prefs, presets, library, script, snapshot, report;
  std::vector<std::string> settings;
  int icons = 0;
};

fs::path readableFile(std::string_view option, const std::string& name) {
  std::error_code error;
  if (fs::is_directory(name, error)) throw UsageError(fmt::format("{}: '{}' is a folder", option, name));
  const int descriptor = ::open(name.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (descriptor < 0) throw UsageError(fmt::format("{}: '{}': {}", option, name, std::strerror(errno)));
  ::close(descriptor);
  return fs::absolute(name);
}

fs::path writableFile(std::string_view option, const std::string& name) {
  std::error_code error;
  const fs::path path = fs::absolute(name, error);
  if (name.empty() || fs::is_directory(path, error) || !fs::is_directory(path.parent_path(), error))
    throw UsageError(fmt::format("{}: no file can be written at '{}'", option, name));
  return path;
}

fs::path rootFolder(const std::string& name) {
  std::error_code error;
  const fs::path path = fs::absolute(name, error).lexically_normal();
  if (name.empty() || path == "/" || (fs::exists(path, error) && !fs::is_directory(path, error)))
    throw UsageError(fmt::format("--root: '{}' cannot be the device's folder", name));
  return path;
}

template <typename Value>
Value choice(std::string_view option, const std::string& text,
             std::initializer_list<std::pair<const char*, Value>> all) {
  for (const auto& [name, value] : all)
    if (text == name) return value;
  throw UsageError(fmt::format("{}: unknown value '{}'", option, text));
}

void addSetting(std::vector<Setting>& settings, const std::string& text) {
  Setting setting = [&] {
    try {
      return parseSetting(text);
    } catch (const UsageError& error) {
      throw UsageError(fmt::format("--set: {}", error.what()));
    }
  }();
  const auto old = std::ranges::find(settings, setting.key, &Setting::key);
  if (old != settings.end())
    old->value = std::move(setting.value);
  else
    settings.push_back(std::move(setting));
}

// CLI11 may say more than a line can hold, and breaks lines.
std::string oneLine(std::string text) {
  std::ranges::replace(text, '\n', ' ');
  return text;
}

void declare(CLI::App& app, Texts& texts, Options& options) {
  app.add_option("--device", texts.device, "model to be, one of --list-devices")->capture_default_str();
  app.add_flag("--list-devices", options.listDevices, "print the models (with --report FILE also as JSON)");
  app.add_flag("--list-steps", options.listSteps, "print the steps of a script, and what they do");
  app.add_option("--ios", texts.ios, "system version (default: 10.3.3, or the nearest that the device ran)");
  app.add_option("--orientation", texts.orientation, "portrait or landscape, at the start")
      ->capture_default_str();
  app.add_option("--pages", options.pages, "home-screen pages")->capture_default_str();
  app.add_option("--icons", texts.icons, "icons in all, filled in order (default: all pages full)");
  app.add_option("--root", texts.root,
                 "folder that is the device's file system, kept (default: a temporary one)");
  app.add_option("--prefs", texts.prefs, "property list to start with in the preference domain");
  app.add_option("--set", texts.settings, "KEY=VALUE in the preference domain; may repeat")
      ->allow_extra_args(false);
  app.add_option("--presets", texts.presets, "presets file to start with");
  app.add_flag("--stock", options.stock, "do not load the library");
  app.add_flag("--icon-support", options.iconSupport, "the device has IconSupport");
  app.add_option("--loader", texts.loader, "injection loader: substrate or sbinject")->capture_default_str();
  app.add_option("--library", texts.library, "library to load (default: the one beside the simulator)");
  app.add_option("--script", texts.script, "steps, one a line; - reads standard input");
  app.add_option("--snapshot", texts.snapshot, "picture of the screen at the end (PNG)");
  app.add_option("--report", texts.report, "report at the end (JSON); - prints it");
}

void check(const CLI::App& app, const Texts& texts, Options& options) {
  const auto given = [&](const char* option) { return app.count(option) > 0; };
  options.device = &findDevice(texts.device);
  options.ios = given("--ios") ? findVersion(*options.device, texts.ios) : options.device->defaultVersion();
  options.orientation =
      choice<Orientation>("--orientation", texts.orientation,
                          {{"portrait", Orientation::portrait}, {"landscape", Orientation::landscape}});
  options.loader = choice<InjectionLoader>(
      "--loader", texts.loader,
      {{"substrate", InjectionLoader::substrate}, {"sbinject", InjectionLoader::sbinject}});
  if (options.pages < 1 || options.pages > mostPages)
    throw UsageError(fmt::format("--pages: {} is not between 1 and {}", options.pages, mostPages));
  if (given("--icons")) {
    const int most = mostPages * options.device->portrait.rows * options.device->portrait.columns;
    if (texts.icons < 1 || texts.icons > most)
      throw UsageError(fmt::format("--icons: {} is not between 1 and {}", texts.icons, most));
    options.icons = texts.icons;
    if (!given("--pages")) options.pages = 1;
  }
  for (const std::string& setting : texts.settings) addSetting(options.settings, setting);
  if (given("--root")) options.root = rootFolder(texts.root);
  if (given("--prefs")) options.prefs = readableFile("--prefs", texts.prefs);
  if (given("--presets")) options.presets = readableFile("--presets", texts.presets);
  if (given("--library")) options.library = readableFile("--library", texts.library);
  if (given("--script"))
    options.script = texts.script == "-" ? fs::path("-") : readableFile("--script", texts.script);
  if (given("--snapshot")) options.snapshot = writableFile("--snapshot", texts.snapshot);
  if (given("--report"))
    options.report = texts.report == "-" ? fs::path("-") : writableFile("--report", texts.report);
}

}  // namespace

Options parseOptions(int count, const char* const* arguments) {
  Options options;
  Texts texts;
  CLI::App app("The home screen of a phone or tablet, with the library loaded into it.", "tilo-sim");
  declare(app, texts, options);
  try {
    app.parse(count, arguments);
  } catch (const CLI::CallForHelp&) {
    options.help = app.help();
  } catch (const CLI::ParseError& error) {
    throw UsageError(oneLine(error.what()));
  }
  if (options.help.empty()) check(app, texts, options);
  return options;
}

}  // namespace sim
