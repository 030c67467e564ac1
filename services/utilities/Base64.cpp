// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/utilities/Base64.h"

#include <QString>

#include <array>
#include <cstdint>

namespace zib {
namespace {

constexpr char alphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

constexpr std::array<std::int16_t, 256> alphabetValues = [] {
    std::array<std::int16_t, 256> values{};
    values.fill(-1);
    for (std::int16_t i = 0; i < 64; ++i)
        values[static_cast<unsigned char>(alphabet[i])] = i;
    return values;
}();

} // namespace

QByteArray base64Encoding(QByteArrayView data)
{
    return base64EncodingWithLineLength(data, 0);
}

QByteArray base64EncodingWithLineLength(QByteArrayView data, unsigned lineLength)
{
    QByteArray output;
    output.reserve((data.size() + 2) / 3 * 4);
    unsigned lineCharacters = 0;
    for (qsizetype i = 0; i < data.size(); i += 3) {
        const qsizetype count = std::min<qsizetype>(3, data.size() - i);
        std::uint32_t group = 0;
        for (qsizetype k = 0; k < 3; ++k)
            group = group << 8 | (k < count ? static_cast<unsigned char>(data[i + k]) : 0U);
        output += alphabet[group >> 18];
        output += alphabet[group >> 12 & 63];
        output += count > 1 ? alphabet[group >> 6 & 63] : '=';
        output += count > 2 ? alphabet[group & 63] : '=';
        lineCharacters += 4;
        if (lineLength > 0 && lineCharacters >= lineLength) {
            output += '\n';
            lineCharacters = 0;
        }
    }
    return output;
}

QByteArray dataWithBase64EncodedString(QStringView text)
{
    const QByteArray characters = text.toUtf8();
    QByteArray output;
    output.reserve(characters.size() / 4 * 3 + 2);
    std::uint32_t group = 0;
    int collected = 0;
    for (const char character : characters) {
        if (character == '=')
            break;
        const int value = alphabetValues[static_cast<unsigned char>(character)];
        if (value < 0)
            continue;
        group = group << 6 | std::uint32_t(value);
        if (++collected == 4) {
            output += char(group >> 16);
            output += char(group >> 8);
            output += char(group);
            group = 0;
            collected = 0;
        }
    }
    if (collected > 0 && characters.contains('=')) {
        group <<= 6 * (4 - collected);
        output += char(group >> 16);
        if (collected == 3)
            output += char(group >> 8);
    }
    return output;
}

} // namespace zib
