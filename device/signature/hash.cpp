// By GLib, which the simulator draws with anyway.
#include "device/signature/hash.hpp"

#include <glib.h>

#include <memory>

namespace device::signature {
namespace {

GChecksumType typeOf(HashKind kind) { return kind == HashKind::sha1 ? G_CHECKSUM_SHA1 : G_CHECKSUM_SHA256; }

}  // namespace

std::string hashName(HashKind kind) { return kind == HashKind::sha1 ? "SHA-1" : "SHA-256"; }

size_t hashSize(HashKind kind) { return static_cast<size_t>(g_checksum_type_get_length(typeOf(kind))); }

std::vector<uint8_t> hash(HashKind kind, std::span<const uint8_t> bytes) {
  const std::unique_ptr<GChecksum, decltype(&g_checksum_free)> sum(g_checksum_new(typeOf(kind)),
                                                                   g_checksum_free);
  g_checksum_update(sum.get(), bytes.data(), static_cast<gssize>(bytes.size()));
  std::vector<uint8_t> digest(hashSize(kind));
  gsize size = digest.size();
  g_checksum_get_digest(sum.get(), digest.data(), &size);
  return digest;
}

}  // namespace device::signature
