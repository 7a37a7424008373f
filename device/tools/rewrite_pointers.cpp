// rewrite_pointers: makes armv7 assembly fit for the armv7 linker, which drops the symbols of __nl_symbol_ptr
// and leaves null pointers where imported data should be. Every such pointer becomes a plain word of
// __DATA,__const, which the linker binds rightly; its label starts with 'l', because an 'L' label loses its
// place in the section.
//
//   rewrite_pointers <in.s> <out.s>
//
// Fails on what no rewriting can repair: weak references (the linker makes them strong) and thread-local
// data.
#include <fmt/format.h>

#include <cctype>
#include <cstdio>
#include <exception>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace {

constexpr std::string_view suffix = "$non_lazy_ptr";

std::string_view trim(std::string_view text) {
  size_t begin = text.find_first_not_of(" \t");
  if (begin == text.npos) return {};
  return text.substr(begin, text.find_last_not_of(" \t") - begin + 1);
}

// "movw r0, :lower16:(L_x$non_lazy_ptr-(LPC0_0+8))" with "l_x$non_lazy_ptr". A name is either quoted or made
// of letters, digits and "_.$".
std::string withPrivateLabels(std::string line) {
  for (size_t at = line.find(suffix); at != line.npos; at = line.find(suffix, at + suffix.size())) {
    size_t end = at + suffix.size();
    size_t begin = at;
    if (end < line.size() && line[end] == '"') {
      begin = line.rfind('"', at);
      begin = begin == line.npos ? at : begin + 1;
    } else {
      while (begin > 0 && (std::isalnum(static_cast<unsigned char>(line[begin - 1])) ||
                           std::string_view("_.$").find(line[begin - 1]) != std::string_view::npos))
        --begin;
    }
    if (line[begin] != 'L') throw std::runtime_error("unexpected pointer label: " + line);
    line[begin] = 'l';
  }
  return line;
}

// One line of the pointers' section; the symbol of an entry is kept until its word follows.
std::string pointerLine(std::string_view line, std::string& symbol) {
  std::string_view text = trim(line);
  constexpr std::string_view indirect = ".indirect_symbol";
  if (text.starts_with(indirect)) {
    symbol = trim(text.substr(indirect.size()));
    return {};
  }
  if (text.starts_with(".long")) {
    if (symbol.empty()) throw std::runtime_error("pointer without a symbol: " + std::string(line));
    return "\t.long\t" + std::exchange(symbol, {}) + "\n";
  }
  if (text.empty() || text.starts_with(".p2align") || text.ends_with(':'))
    return withPrivateLabels(std::string(line)) + "\n";
  throw std::runtime_error("unexpected among pointers: " + std::string(line));
}

std::string rewritten(std::istream& in) {
  std::string out;
  bool pointers = false;
  std::string symbol;
  for (std::string line; std::getline(in, line);) {
    std::string_view text = trim(line);
    if (text.starts_with(".weak_reference"))
      throw std::runtime_error("weak import, which would become a strong one: " + std::string(text));
    if (text.find("__thread_") != text.npos && (text.starts_with(".section") || text.starts_with(".tbss")))
      throw std::runtime_error("thread-local data, which the linker lays out wrongly: " + std::string(text));
    if (text.starts_with(".section") && text.find("__nl_symbol_ptr") != text.npos) {
      pointers = true;
      out += "\t.section\t__DATA,__const\n";
    } else if (text.starts_with(".section") || text == ".subsections_via_symbols") {
      pointers = false;
      out += line + "\n";
    } else {
      out += pointers ? pointerLine(line, symbol) : withPrivateLabels(line) + "\n";
    }
  }
  return out;
}

}  // namespace

int main(int count, char** arguments) try {
  if (count != 3) {
    fmt::print(stderr, "usage: rewrite_pointers <in.s> <out.s>\n");
    return 2;
  }
  std::ifstream in(arguments[1]);
  if (!in) throw std::runtime_error(fmt::format("{}: cannot be read", arguments[1]));
  std::string text = rewritten(in);
  std::ofstream out(arguments[2]);
  out << text;
  out.close();
  if (!out) throw std::runtime_error(fmt::format("{}: cannot be written", arguments[2]));
  return 0;
} catch (const std::exception& error) {
  fmt::print(stderr, "{}: {}\n", arguments[1], error.what());
  return 1;
}
