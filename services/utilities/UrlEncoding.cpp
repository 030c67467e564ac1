// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/utilities/StringUtilities.h"

#include <QByteArray>
#include <QList>
#include <QStringDecoder>

namespace zib {
namespace {

bool isLegalInUrl(char32_t character)
{
    static constexpr QLatin1String illegal("\"#%<>[\\]^`{|}");
    return character > 0x20 && character < 0x7f && !illegal.contains(QChar(char16_t(character)));
}

void appendEscaped(QString& output, char32_t character)
{
    static constexpr char digits[] = "0123456789ABCDEF";
    const QByteArray bytes = QString::fromUcs4(&character, 1).toUtf8();
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        output += QLatin1Char('%');
        output += QLatin1Char(digits[value >> 4]);
        output += QLatin1Char(digits[value & 0xf]);
    }
}

QString escaped(QStringView text, QStringView also = {}, QStringView butNot = {})
{
    const QList<uint> alsoEscaped = also.toUcs4();
    const QList<uint> leftAlone = butNot.toUcs4();
    QString output;
    output.reserve(text.size());
    const QList<uint> characters = text.toUcs4();
    for (const char32_t character : characters) {
        const bool escapes = !isLegalInUrl(character) || alsoEscaped.contains(character);
        if (escapes && !leftAlone.contains(character))
            appendEscaped(output, character);
        else
            output += QChar::fromUcs4(character);
    }
    return output;
}

/// The value of a hexadecimal digit, negative for anything else.
int hexValue(char character)
{
    if (character >= '0' && character <= '9')
        return character - '0';
    if (character >= 'a' && character <= 'f')
        return character - 'a' + 10;
    if (character >= 'A' && character <= 'F')
        return character - 'A' + 10;
    return -1;
}

} // namespace

QString urlEncodedString(QStringView text)
{
    return escaped(text, u"()[]!@#$^*&?+-\"'.,;");
}

QString URLEncodedString(QStringView text)
{
    return escaped(text, u"!*'();:@&=+$,/?%#[]");
}

QString stringWithPercentEscape(QStringView text)
{
    return escaped(text, u"\uFFFC=,!$&'()*+;@?\n\"<>#\t :/");
}

QString encodePercentEscapesPerRFC2396ButNot(QStringView butNot, QStringView butAlso, QStringView withString)
{
    return escaped(withString, butAlso, butNot);
}

QString stringByAddingPercentEscapes(QStringView urlText)
{
    return escaped(urlText);
}

std::optional<QString> URLDecodedString(QStringView text)
{
    const QByteArray utf8 = text.toUtf8();
    QByteArray bytes;
    bytes.reserve(utf8.size());
    for (qsizetype i = 0; i < utf8.size(); ++i) {
        if (utf8[i] != '%') {
            bytes += utf8[i];
            continue;
        }
        if (utf8.size() - i < 3)
            return std::nullopt;
        const int high = hexValue(utf8[i + 1]);
        const int low = hexValue(utf8[i + 2]);
        if (high < 0 || low < 0)
            return std::nullopt;
        bytes += char(high << 4 | low);
        i += 2;
    }
    // A byte-order mark is text like any other here.
    QStringDecoder decoder(QStringDecoder::Utf8,
                           QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    QString decoded = decoder.decode(bytes);
    if (decoder.hasError())
        return std::nullopt;
    return decoded;
}

} // namespace zib
