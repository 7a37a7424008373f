// Serving other processes that send the home screen messages.
#pragma once

namespace sim {

// Hands over the messages that have arrived, and does what they make due. Time stands still.
void serve();

// Serves until there is something to read from the descriptor, or nothing more to come.
void serveUntilInput(int descriptor);

}  // namespace sim
