// The web server of a home screen: its page, and a WebSocket between each page and the process with the home
// screen.
#pragma once

#include "simulator/app/options.hpp"
#include "simulator/app/program.hpp"

namespace sim::serve {

struct Listening {
  std::string address = "127.0.0.1";
  int port = 0;        // 0: any that is free
  bool watch = false;  // start anew when the library's file changes
};

/**
 * Serves until a page quits or the process is interrupted; the first line on standard output is the address.
 * Throws UsageError when nothing can listen there.
 */
void serve(const Options& options, const Program& program, const Listening& listening);

}  // namespace sim::serve
