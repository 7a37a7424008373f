// The pages that are open: what has come of their messages, and what waits until they take it.
#pragma once

#include <libwebsockets.h>

#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <string>

#include "simulator/json/json.hpp"
#include "simulator/serve/envelope.hpp"

namespace sim::serve {

/** Which home screen a page looks at: the one that is served, or another beside it for comparing. */
enum class Place { first, second };
inline constexpr std::size_t places = 2;

struct Page {
  std::uint32_t number;
  Place home;
  std::string received;
  std::deque<std::pair<bool, std::string>> queue;  // text or not, with room for the library in front
  std::size_t queued = 0;                          // bytes
  double asked = 0;                                // the highest number of its questions so far
};

class Pages {
 public:
  /** Null when there are as many as are served. */
  Page* add(lws* connection, Place home);
  /** Null for what is no page, or none any more. */
  Page* of(lws* connection);
  void remove(lws* connection) { pages.erase(connection); }
  std::vector<std::uint32_t> at(Place home) const;

  void tell(lws* connection, const Json& message);
  /** Of the end or the start of a home screen. In "asked" each is told which questions nobody answers any
   * more. */
  void tellAll(Place home, const Json& message);
  /** On to the page that it is for, or to all. */
  void pass(Place home, const Envelope& envelope);
  /** Hands the library what waits first; what its callback is to return. */
  int write(lws* connection);

  enum class Received { more, whole, tooLong };
  /** Adds to what has come of a page's message. */
  Received receive(lws* connection, Page& page, const char* bytes, std::size_t count);

 private:
  void queue(lws* connection, Page& page, bool isText, const std::string& contents);

  std::map<lws*, Page> pages;
  std::uint32_t last = 0;
};

}  // namespace sim::serve
