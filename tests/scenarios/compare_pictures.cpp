// compare_pictures ONE OTHER: whether two pictures, as act-scenarios keeps them, are the same but for
// rounding: each channel of each pixel within 1 of 255, save at edges, where the first picture's pixels
// differ among each other. A line with how many differ and by how much; exit status 1 when there is more than
// that, 2 when a file is no picture.
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

namespace {

constexpr int rounding = 1;  // of 255, anywhere
constexpr int edge = 8;      // between pixels side by side
constexpr int atEdges = 16;  // a line that lies a hundredth of a pixel further, and its smoothing

struct Picture {
  int width = 0, height = 0;
  std::vector<uint32_t> pixels;

  uint32_t at(int x, int y) const {
    return pixels[static_cast<size_t>(y) * static_cast<size_t>(width) + static_cast<size_t>(x)];
  }
};

Picture read(const char* path) {
  std::ifstream in(path, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(in), {}};
  const auto* words = reinterpret_cast<const uint32_t*>(bytes.data());
  const size_t count = bytes.size() / sizeof *words;
  if (count < 2 || uint64_t{words[0]} * words[1] != count - 2) {
    std::cerr << "compare_pictures: " << path << " is no picture\n";
    std::exit(2);
  }
  return {static_cast<int>(words[0]), static_cast<int>(words[1]), {words + 2, words + count}};
}

// The channel that differs most.
int difference(uint32_t one, uint32_t other) {
  int most = 0;
  for (int shift = 0; shift < 32; shift += 8)
    most = std::max(most,
                    std::abs(static_cast<int>(one >> shift & 255) - static_cast<int>(other >> shift & 255)));
  return most;
}

bool isEdge(const Picture& picture, int x, int y) {
  for (int row = std::max(y - 1, 0); row <= std::min(y + 1, picture.height - 1); ++row)
    for (int column = std::max(x - 1, 0); column <= std::min(x + 1, picture.width - 1); ++column)
      if (difference(picture.at(x, y), picture.at(column, row)) > edge) return true;
  return false;
}

}  // namespace

int main(int count, char** words) {
  if (count != 3) {
    std::cerr << "compare_pictures: takes two pictures\n";
    return 2;
  }
  const Picture one = read(words[1]), other = read(words[2]);
  if (one.width != other.width || one.height != other.height) {
    std::cout << one.width << " x " << one.height << " and " << other.width << " x " << other.height << '\n';
    return 1;
  }
  size_t rounded = 0, edges = 0, wrong = 0;
  int most = 0;
  for (int y = 0; y < one.height; ++y)
    for (int x = 0; x < one.width; ++x) {
      const int differs = difference(one.at(x, y), other.at(x, y));
      if (!differs) continue;
      most = std::max(most, differs);
      if (differs <= rounding)
        ++rounded;
      else if (differs <= atEdges && isEdge(one, x, y))
        ++edges;
      else if (++wrong == 1)
        std::cout << "at " << x << ", " << y << ": by " << differs << '\n';
    }
  std::cout << "of " << one.pixels.size() << " pixels " << rounded << " differ by 1, " << edges
            << " more at edges, " << wrong << " otherwise, by " << most << " at most\n";
  return wrong == 0 ? 0 : 1;
}
