// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

struct evp_cipher_ctx_st;

namespace zib {

// The envelope of the library file: 16 bytes of initialisation vector, then the framed content in
// AES-128-CBC. Framing content of n bytes: zeros up to 16 * floor(n / 16) + 32 bytes, the last four of them
// n, big-endian. It keeps a file from being edited by chance, and tells a cut or damaged one; it keeps no
// secrets, for its key is built in.

/// Enciphers content that comes in pieces. One thread at a time.
class EnvelopeWriter {
  public:
    using Sink = std::function<void(std::string_view)>;

    explicit EnvelopeWriter(Sink sink);

    void write(std::string_view piece);
    /// Writes the framing. False when the cipher failed or the content is longer than four bytes can count.
    bool finish();

  private:
    struct FreeContext {
        void operator()(evp_cipher_ctx_st* context) const;
    };

    void encipher(std::string_view piece);

    Sink sink_;
    std::unique_ptr<evp_cipher_ctx_st, FreeContext> context_;
    std::vector<unsigned char> output_;
    std::uint64_t length_ = 0;
    bool valid_ = false;
};

/// Deciphers the bytes of a file where they stand and answers the content in them; none when they are no such
/// envelope.
std::optional<QByteArrayView> openEnvelope(std::span<char> file);

} // namespace zib
