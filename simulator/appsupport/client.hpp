// Sending a message to a home screen that runs on a device.
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <string_view>

#include "simulator/appsupport/message.hpp"

namespace sim::appsupport {

enum class Outcome {
  delivered,  // its handler has returned
  dropped,    // the home screen has nobody for messages of this name
  unserved,   // no home screen runs there, or it does not serve this centre
  refused,    // not made of property-list objects, or too long
  lost,       // the home screen ended before it was done with the message
  late,       // the home screen was not done with it in time
};

struct Sending {
  std::chrono::milliseconds patience = std::chrono::seconds(10);  // of real time
  /** Called while there is nothing to do but wait: by the process that serves the centre itself. */
  std::function<void()> whileWaiting = {};
};

/** Sends to a centre of the device whose root this is, and waits until the home screen is done with it. */
Outcome send(const std::filesystem::path& root, std::string_view centre, const Message& message,
             const Sending& sending = {});

/** A sentence's predicate: "the message …". */
std::string_view description(Outcome outcome);

}  // namespace sim::appsupport
