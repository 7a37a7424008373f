// In place of everything else here on processors for which the web server's libraries are not at hand.
#include "simulator/serve/recording.hpp"
#include "simulator/serve/serving.hpp"

namespace sim::serve {

void addRecording(Program&) {}
void addServing(Program&) {}

}  // namespace sim::serve
