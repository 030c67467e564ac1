// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/LibraryEnvelope.h"

#include <openssl/evp.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <ctime>
#include <limits>

namespace zib {
namespace {

constexpr std::size_t blockSize = 16;
constexpr std::size_t zeroesBeforeLength = 12;
constexpr std::size_t lengthSize = 4;
constexpr std::size_t maximalPiece = std::size_t(1) << 20U; // the cipher counts in int

using Block = std::array<unsigned char, blockSize>;

/// The first bytes of the digest of a fixed word.
bool deriveKey(Block& key)
{
    static constexpr std::string_view word = "zibmusic";
    std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
    if (EVP_Digest(word.data(), word.size(), digest.data(), nullptr, EVP_sha1(), nullptr) != 1)
        return false;
    std::copy_n(digest.begin(), key.size(), key.begin());
    return true;
}

Block makeVector()
{
    Block vector;
    std::srand(static_cast<unsigned>(std::time(nullptr))); // NOLINT(bugprone-random-generator-seed)
    for (unsigned char& byte : vector)
        byte = static_cast<unsigned char>(std::rand() & 0xFF);
    return vector;
}

bool decipher(unsigned char* bytes, std::size_t size, const unsigned char* vector)
{
    const std::unique_ptr<EVP_CIPHER_CTX, decltype(&EVP_CIPHER_CTX_free)> context(EVP_CIPHER_CTX_new(),
                                                                                  EVP_CIPHER_CTX_free);
    Block key;
    if (!context || !deriveKey(key) ||
        EVP_DecryptInit_ex(context.get(), EVP_aes_128_cbc(), nullptr, key.data(), vector) != 1)
        return false;
    EVP_CIPHER_CTX_set_padding(context.get(), 0);
    while (size > 0) {
        const std::size_t piece = std::min(size, maximalPiece);
        int written = 0;
        if (EVP_DecryptUpdate(context.get(), bytes, &written, bytes, static_cast<int>(piece)) != 1 ||
            static_cast<std::size_t>(written) != piece)
            return false;
        bytes += piece;
        size -= piece;
    }
    return true;
}

} // namespace

void EnvelopeWriter::FreeContext::operator()(evp_cipher_ctx_st* context) const
{
    EVP_CIPHER_CTX_free(context);
}

EnvelopeWriter::EnvelopeWriter(Sink sink)
    : sink_(std::move(sink))
    , context_(EVP_CIPHER_CTX_new())
{
    Block key;
    const Block vector = makeVector();
    valid_ = context_ && deriveKey(key) &&
             EVP_EncryptInit_ex(context_.get(), EVP_aes_128_cbc(), nullptr, key.data(), vector.data()) == 1;
    if (!valid_)
        return;
    EVP_CIPHER_CTX_set_padding(context_.get(), 0);
    sink_({reinterpret_cast<const char*>(vector.data()), vector.size()});
}

void EnvelopeWriter::write(std::string_view piece)
{
    length_ += piece.size();
    while (!piece.empty()) {
        encipher(piece.substr(0, maximalPiece));
        piece.remove_prefix(std::min(piece.size(), maximalPiece));
    }
}

void EnvelopeWriter::encipher(std::string_view piece)
{
    if (!valid_)
        return;
    output_.resize(std::max(output_.size(), piece.size() + blockSize));
    int written = 0;
    valid_ = EVP_EncryptUpdate(context_.get(), output_.data(), &written,
                               reinterpret_cast<const unsigned char*>(piece.data()),
                               static_cast<int>(piece.size())) == 1;
    if (valid_)
        sink_({reinterpret_cast<const char*>(output_.data()), static_cast<std::size_t>(written)});
}

bool EnvelopeWriter::finish()
{
    if (length_ > std::numeric_limits<std::uint32_t>::max())
        return false;
    std::array<char, 2 * blockSize> framing{};
    const std::size_t size = framing.size() - length_ % blockSize;
    for (std::size_t i = 0; i < lengthSize; ++i)
        framing[size - 1 - i] = static_cast<char>((length_ >> (8 * i)) & 0xFFU);
    encipher({framing.data(), size});
    return valid_;
}

std::optional<QByteArrayView> openEnvelope(std::span<char> file)
{
    const std::size_t size = file.size();
    if (size < 3 * blockSize || size % blockSize != 0)
        return std::nullopt;
    auto* const vector = reinterpret_cast<unsigned char*>(file.data());
    unsigned char* const framed = vector + blockSize;
    const std::size_t framedSize = size - blockSize;
    if (!decipher(framed, framedSize, vector))
        return std::nullopt;
    const unsigned char* const tail = framed + framedSize - lengthSize - zeroesBeforeLength;
    if (std::any_of(tail, tail + zeroesBeforeLength, [](unsigned char byte) { return byte != 0; }))
        return std::nullopt;
    std::size_t length = 0;
    for (std::size_t i = 0; i < lengthSize; ++i)
        length = (length << 8U) | tail[zeroesBeforeLength + i];
    if (length > framedSize - blockSize - 1)
        return std::nullopt;
    return QByteArrayView(framed, static_cast<qsizetype>(length));
}

} // namespace zib
