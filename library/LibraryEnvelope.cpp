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

CipherContext decipheringContext(const Block& vector)
{
    CipherContext context(EVP_CIPHER_CTX_new());
    Block key;
    if (!context || !deriveKey(key) ||
        EVP_DecryptInit_ex(context.get(), EVP_aes_128_cbc(), nullptr, key.data(), vector.data()) != 1)
        return nullptr;
    EVP_CIPHER_CTX_set_padding(context.get(), 0);
    return context;
}

/// Where they stand; whole blocks.
bool decipher(evp_cipher_ctx_st* context, std::span<char> bytes)
{
    auto* const data = reinterpret_cast<unsigned char*>(bytes.data());
    int written = 0;
    return EVP_DecryptUpdate(context, data, &written, data, static_cast<int>(bytes.size())) == 1 &&
           static_cast<std::size_t>(written) == bytes.size();
}

std::span<char> charactersOf(Block& block)
{
    return {reinterpret_cast<char*>(block.data()), block.size()};
}

} // namespace

void FreeCipherContext::operator()(evp_cipher_ctx_st* context) const
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

EnvelopeReader::EnvelopeReader(std::uint64_t fileSize, ReadAt readAt)
    : readAt_(std::move(readAt))
    , length_(readLength(fileSize))
{
    Block vector;
    if (length_ && readAt_(0, charactersOf(vector)))
        context_ = decipheringContext(vector);
    failed_ = !context_;
}

std::optional<std::uint64_t> EnvelopeReader::readLength(std::uint64_t fileSize)
{
    if (fileSize < 3 * blockSize || fileSize % blockSize != 0)
        return std::nullopt;
    // A block needs no more to be deciphered than the one before it.
    Block before;
    Block tail;
    static_assert(zeroesBeforeLength + lengthSize == blockSize);
    if (!readAt_(fileSize - 2 * blockSize, charactersOf(before)) ||
        !readAt_(fileSize - blockSize, charactersOf(tail)))
        return std::nullopt;
    const CipherContext context = decipheringContext(before);
    if (!context || !decipher(context.get(), charactersOf(tail)))
        return std::nullopt;
    const auto* const zeroesEnd = tail.cbegin() + zeroesBeforeLength;
    if (std::any_of(tail.cbegin(), zeroesEnd, [](unsigned char byte) { return byte != 0; }))
        return std::nullopt;
    std::uint64_t length = 0;
    for (const auto* byte = zeroesEnd; byte != tail.cend(); ++byte)
        length = (length << 8U) | *byte;
    if (length > fileSize - 2 * blockSize - 1)
        return std::nullopt;
    return length;
}

std::size_t EnvelopeReader::read(std::span<char> target)
{
    if (failed_)
        return 0;
    const std::uint64_t left = *length_ - done_;
    const std::size_t room = std::min(target.size(), maximalPiece) / blockSize;
    const std::size_t blocks = std::min<std::uint64_t>(room, (left + blockSize - 1) / blockSize);
    const std::span<char> piece = target.first(blocks * blockSize);
    failed_ = !readAt_(blockSize + done_, piece) || !decipher(context_.get(), piece);
    if (failed_)
        return 0;
    const std::size_t count = std::min<std::uint64_t>(piece.size(), left);
    done_ += count;
    return count;
}

} // namespace zib
