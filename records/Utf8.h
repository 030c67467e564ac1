// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zib {

/// One character at the start of a text: its code and its length, 0 when it is not UTF-8 (cut off, longer
/// than need be, a surrogate, beyond the last code).
struct Utf8Character {
    std::uint32_t code = 0;
    std::size_t length = 0;
};

constexpr Utf8Character firstCharacter(std::string_view text)
{
    const auto byte = [text](std::size_t i) {
        return static_cast<std::uint32_t>(static_cast<unsigned char>(text[i]));
    };
    if (text.empty())
        return {};
    const std::uint32_t lead = byte(0);
    if (lead < 0x80)
        return {lead, 1};
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() < length)
        return {};
    std::uint32_t code = lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0U) != 0x80)
            return {};
        code = (code << 6U) | (byte(i) & 0x3FU);
    }
    const bool tooLong = (length == 3 && code < 0x800) || (length == 4 && code < 0x10000);
    if (tooLong || (code >= 0xD800 && code <= 0xDFFF) || code > 0x10FFFF)
        return {};
    return {code, length};
}

constexpr bool isUtf8(std::string_view text)
{
    while (!text.empty()) {
        const Utf8Character character = firstCharacter(text);
        if (character.length == 0)
            return false;
        text.remove_prefix(character.length);
    }
    return true;
}

/// Whether the code is a character that a text may hold: not zero, no surrogate, no more than the last code.
/// If so, its bytes are appended.
inline bool appendUtf8(std::string& text, std::uint32_t code)
{
    if (code == 0 || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF))
        return false;
    if (code < 0x80) {
        text.push_back(static_cast<char>(code));
        return true;
    }
    const unsigned continuations = code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
    const std::uint32_t lead = 0xF00U >> (continuations + 1);
    text.push_back(static_cast<char>((lead & 0xFFU) | (code >> (6 * continuations))));
    for (unsigned i = continuations; i-- > 0;)
        text.push_back(static_cast<char>(0x80U | ((code >> (6 * i)) & 0x3FU)));
    return true;
}

} // namespace zib
