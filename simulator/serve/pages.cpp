// Queues of pages, bounded, so that no page takes more than its share.
#include "simulator/serve/pages.hpp"

#include "simulator/serve/connection.hpp"

namespace sim::serve {
namespace {

constexpr std::size_t longestMessage = 1 << 20;  // bytes
constexpr std::size_t longestQueue = 32u << 20;  // bytes that a page has not taken yet
constexpr std::size_t mostPages = 8;

}  // namespace

Page* Pages::add(lws* connection, Place home) {
  if (pages.size() >= mostPages) return nullptr;
  return &(pages[connection] = {.number = ++last, .home = home, .received = {}, .queue = {}});
}

Page* Pages::of(lws* connection) {
  const auto found = pages.find(connection);
  return found == pages.end() ? nullptr : &found->second;
}

std::vector<std::uint32_t> Pages::at(Place home) const {
  std::vector<std::uint32_t> numbers;
  for (const auto& [connection, page] : pages)
    if (page.home == home) numbers.push_back(page.number);
  return numbers;
}

void Pages::queue(lws* connection, Page& page, bool isText, const std::string& contents) {
  page.queued += contents.size();
  page.queue.emplace_back(isText, std::string(LWS_PRE, '\0') + contents);
  // One that takes nothing is let go.
  if (page.queued > longestQueue) drop(connection);
  lws_callback_on_writable(connection);
}

void Pages::tell(lws* connection, const Json& message) {
  if (Page* page = of(connection)) queue(connection, *page, true, message.dump());
}

void Pages::tellAll(Place home, const Json& message) {
  for (auto& [connection, page] : pages) {
    if (page.home != home) continue;
    Json own = message;
    own["asked"] = page.asked;
    queue(connection, page, true, own.dump());
  }
}

void Pages::pass(Place home, const Envelope& envelope) {
  for (auto& [connection, page] : pages)
    if (page.home == home && (envelope.page == 0 || envelope.page == page.number))
      queue(connection, page, envelope.isText, envelope.contents);
}

int Pages::write(lws* connection) {
  Page* page = of(connection);
  if (!page || page->queue.empty()) return 0;
  auto [isText, bytes] = std::move(page->queue.front());
  page->queue.pop_front();
  const std::size_t count = bytes.size() - LWS_PRE;
  page->queued -= count;
  const int written = lws_write(connection, reinterpret_cast<unsigned char*>(bytes.data()) + LWS_PRE, count,
                                isText ? LWS_WRITE_TEXT : LWS_WRITE_BINARY);
  if (written < static_cast<int>(count)) return -1;
  if (!page->queue.empty()) lws_callback_on_writable(connection);
  return 0;
}

Pages::Received Pages::receive(lws* connection, Page& page, const char* bytes, std::size_t count) {
  if (page.received.size() + count > longestMessage) return Received::tooLong;
  page.received.append(bytes, count);
  const bool isWhole = lws_is_final_fragment(connection) && lws_remaining_packet_payload(connection) == 0;
  return isWhole ? Received::whole : Received::more;
}

}  // namespace sim::serve
