// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

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

struct FreeCipherContext {
    void operator()(evp_cipher_ctx_st* context) const;
};
using CipherContext = std::unique_ptr<evp_cipher_ctx_st, FreeCipherContext>;

/// Enciphers content that comes in pieces. One thread at a time.
class EnvelopeWriter {
  public:
    using Sink = std::function<void(std::string_view)>;

    explicit EnvelopeWriter(Sink sink);

    void write(std::string_view piece);
    /// Writes the framing. False when the cipher failed or the content is longer than four bytes can count.
    bool finish();

  private:
    void encipher(std::string_view piece);

    Sink sink_;
    CipherContext context_;
    std::vector<unsigned char> output_;
    std::uint64_t length_ = 0;
    bool valid_ = false;
};

/// Deciphers a file piece by piece, so that the content of a large one never stands in memory whole. One
/// thread at a time.
class EnvelopeReader {
  public:
    /// Fills the span with the file's bytes from that place on; false when they cannot be had.
    using ReadAt = std::function<bool(std::uint64_t offset, std::span<char> target)>;

    EnvelopeReader(std::uint64_t fileSize, ReadAt readAt);

    /// The length of the content, as the framing says, which is looked at first; none when that is not the
    /// framing of such a file.
    [[nodiscard]] std::optional<std::uint64_t> length() const { return length_; }
    /// The next bytes of the content, at the front of the span, which has room for 16 at least. 0 is the end,
    /// or a failure.
    std::size_t read(std::span<char> target);
    /// Whether not all could be read.
    [[nodiscard]] bool hasFailed() const { return failed_; }

  private:
    std::optional<std::uint64_t> readLength(std::uint64_t fileSize);

    ReadAt readAt_;
    CipherContext context_;
    std::optional<std::uint64_t> length_;
    std::uint64_t done_ = 0; // of the content
    bool failed_ = false;
};

} // namespace zib
