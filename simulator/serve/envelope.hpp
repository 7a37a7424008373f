// What the server and the process with the home screen hand each other over a socket: messages from and to
// pages.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace sim::serve {

/** A message of a page, or for one. Text is JSON; what is not text is a frame. */
struct Envelope {
  std::uint32_t page = 0;  // 0 stands for every page
  bool isText = true;
  std::string contents;
};

/** Takes bytes as they come and gives back whole envelopes. */
class EnvelopeReader {
 public:
  /** Reads what there is without waiting; false when the other side has gone. */
  bool fill(int socket);
  /** The next one that is whole; none until more has come. */
  std::optional<Envelope> next();

 private:
  std::string bytes;
  std::size_t taken = 0;  // of them, by envelopes that have been given back
};

/** The envelope as it travels. */
std::string sealed(const Envelope& envelope);

}  // namespace sim::serve
