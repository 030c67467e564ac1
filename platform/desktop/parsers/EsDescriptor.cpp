// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/parsers/EsDescriptor.h"

#include <algorithm>

namespace zib {

namespace {

/// The body of the descriptor with this tag that begins the bytes.
std::optional<std::span<const std::byte>> body(std::span<const std::byte> bytes, std::byte tag)
{
    constexpr std::size_t kMostLengthBytes = 4;
    if (bytes.empty() || bytes[0] != tag)
        return std::nullopt;
    std::size_t length = 0;
    for (std::size_t i = 1; i <= kMostLengthBytes && i < bytes.size(); ++i) {
        length = length << 7 | std::to_integer<std::size_t>(bytes[i] & std::byte{0x7f});
        if ((bytes[i] & std::byte{0x80}) == std::byte{0}) {
            bytes = bytes.subspan(i + 1);
            if (length > bytes.size())
                return std::nullopt;
            return bytes.first(length);
        }
    }
    return std::nullopt;
}

/// What follows an optional field.
std::span<const std::byte> behind(std::span<const std::byte> bytes, std::size_t fieldBytes)
{
    return bytes.subspan(std::min(fieldBytes, bytes.size()));
}

} // namespace

std::optional<EsDescriptor> EsDescriptor::parse(std::span<const std::byte> bytes)
{
    constexpr std::byte kStreamTag{3};
    constexpr std::byte kDecoderTag{4};
    constexpr std::byte kConfigurationTag{5};
    constexpr std::byte kDependsOnStream{0x80};
    constexpr std::byte kHasAddress{0x40};
    constexpr std::byte kHasClockStream{0x20};
    constexpr std::size_t kDecoderFields = 13;

    const auto stream = body(bytes, kStreamTag);
    if (!stream || stream->size() < 3)
        return std::nullopt;
    const std::byte flags = (*stream)[2];
    auto rest = stream->subspan(3);
    if ((flags & kDependsOnStream) != std::byte{0})
        rest = behind(rest, 2);
    if ((flags & kHasAddress) != std::byte{0} && !rest.empty())
        rest = behind(rest, 1 + std::to_integer<std::size_t>(rest[0]));
    if ((flags & kHasClockStream) != std::byte{0})
        rest = behind(rest, 2);

    const auto decoder = body(rest, kDecoderTag);
    if (!decoder || decoder->size() < kDecoderFields)
        return std::nullopt;
    EsDescriptor descriptor;
    descriptor.objectType = std::to_integer<std::uint8_t>((*decoder)[0]);
    if (const auto configuration = body(decoder->subspan(kDecoderFields), kConfigurationTag))
        descriptor.decoderConfiguration = *configuration;
    return descriptor;
}

} // namespace zib
