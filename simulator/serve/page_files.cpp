// The page's files, taken in when this is compiled.
#include "simulator/serve/page_files.hpp"

#include <algorithm>

namespace sim::serve {
namespace {

#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wc23-extensions"
constexpr char html[] = {
#embed "page/index.html"
};
constexpr char style[] = {
#embed "page/page.css"
};
constexpr char page[] = {
#embed "page/page.js"
};
constexpr char devices[] = {
#embed "page/devices.js"
};
constexpr char dom[] = {
#embed "page/dom.js"
};
constexpr char hands[] = {
#embed "page/hands.js"
};
constexpr char link[] = {
#embed "page/link.js"
};
constexpr char notes[] = {
#embed "page/notes.js"
};
constexpr char screen[] = {
#embed "page/screen.js"
};
constexpr char settings[] = {
#embed "page/settings.js"
};
constexpr char steps[] = {
#embed "page/steps.js"
};
constexpr char facts[] = {
#embed "page/facts.js"
};
constexpr char inspector[] = {
#embed "page/inspector.js"
};
constexpr char tabs[] = {
#embed "page/tabs.js"
};
constexpr char tree[] = {
#embed "page/tree.js"
};
constexpr char tools[] = {
#embed "page/tools.css"
};
constexpr char console[] = {
#embed "page/console.js"
};
constexpr char layouts[] = {
#embed "page/layouts.js"
};
constexpr char animation[] = {
#embed "page/animation.js"
};
constexpr char compare[] = {
#embed "page/compare.js"
};
constexpr char record[] = {
#embed "page/record.js"
};
#pragma clang diagnostic pop

template <std::size_t count>
constexpr std::string_view text(const char (&bytes)[count]) {
  return {bytes, count};
}

struct Row {
  std::string_view name, contents;
};

constexpr Row rows[] = {
    {"", text(html)},
    {"page.css", text(style)},
    {"page.js", text(page)},
    {"devices.js", text(devices)},
    {"dom.js", text(dom)},
    {"hands.js", text(hands)},
    {"link.js", text(link)},
    {"notes.js", text(notes)},
    {"screen.js", text(screen)},
    {"settings.js", text(settings)},
    {"steps.js", text(steps)},
    {"facts.js", text(facts)},
    {"animation.js", text(animation)},
    {"compare.js", text(compare)},
    {"record.js", text(record)},
    {"console.js", text(console)},
    {"layouts.js", text(layouts)},
    {"inspector.js", text(inspector)},
    {"tabs.js", text(tabs)},
    {"tree.js", text(tree)},
    {"tools.css", text(tools)},
};

std::string_view typeOf(std::string_view name) {
  if (name.ends_with(".css")) return "text/css; charset=utf-8";
  return name.ends_with(".js") ? "text/javascript; charset=utf-8" : "text/html; charset=utf-8";
}

}  // namespace

std::optional<PageFile> pageFile(std::string_view name) {
  const auto row = std::ranges::find(rows, name, &Row::name);
  if (row == std::end(rows)) return std::nullopt;
  return PageFile{typeOf(name), row->contents};
}

}  // namespace sim::serve
