// The process with the home screen, apart from the server's: it may end at any time, as SpringBoard may.
#pragma once

#include <sys/types.h>

#include <deque>
#include <string>

#include "simulator/app/options.hpp"
#include "simulator/app/program.hpp"
#include "simulator/device/descriptor.hpp"
#include "simulator/serve/envelope.hpp"

namespace sim::serve {

struct Fault {
  std::string reason;  // a line
  std::string trace;   // the lines of crash::tellOfFaults; none where it was killed, or said goodbye itself
};

class HomeProcess {
 public:
  /** Starts SpringBoard in a process of its own, which has nothing of this one's but the standard streams. */
  HomeProcess(const Options& options, const Program& program);
  /** Ends it. */
  ~HomeProcess();
  HomeProcess(const HomeProcess&) = delete;
  HomeProcess& operator=(const HomeProcess&) = delete;

  int messages() const { return channel.get(); }
  int errors() const { return complaints.get(); }

  /** Keeps a message until it can be written. */
  void send(const Envelope& envelope);
  bool hasToWrite() const { return !unwritten.empty(); }
  std::size_t unwrittenLength() const { return unwritten.size(); }
  void write();
  /** Reads what there is; false when the process has gone. */
  bool read() { return reader.fill(channel.get()); }
  std::optional<Envelope> next() { return reader.next(); }
  /** Passes on what the process complains of, and remembers the last of it. */
  bool readErrors();

  /** Waits for its end and tells why it has ended; nothing when it is to start anew. */
  std::optional<Fault> end();

 private:
  pid_t process = -1;
  Descriptor channel, complaints;
  EnvelopeReader reader;
  std::string unwritten, lastWords;
};

}  // namespace sim::serve
