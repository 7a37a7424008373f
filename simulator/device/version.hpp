// Versions of the device's system.
#pragma once

#include <compare>
#include <optional>
#include <string>
#include <string_view>

namespace sim {

/** A system version; parts that are not written count as zero, as in 12.0 and 12.0.0. */
struct Version {
  int major, minor = 0, patch = 0;

  constexpr auto operator<=>(const Version&) const = default;

  /** As UIDevice reports it: the third part only where it is not zero. */
  std::string text() const;
  /** `digits.digits` or `digits.digits.digits`, at most three digits a part and none of them a leading zero.
   */
  static std::optional<Version> parse(std::string_view text);
  /** Whether there was such a system: a major version has only so many minor ones, and no minor one ten
   * patches. */
  bool existed() const;
};

}  // namespace sim
