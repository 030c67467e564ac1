// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/utilities/StringUtilities.h"

#include <QCryptographicHash>
#include <QList>

#include <charconv>
#include <cmath>
#include <limits>

namespace zib {
namespace {

/// A number read from the start of the text, after blanks and a sign; the default value where there is none.
template <typename Number>
Number leadingNumber(QStringView text, Number valueBeyondRange)
{
    const QByteArray bytes = text.toUtf8().trimmed();
    const char* begin = bytes.begin();
    if (begin != bytes.end() && *begin == '+' && bytes.size() > 1 && begin[1] != '-')
        ++begin;
    Number number{};
    const auto [end, error] = std::from_chars(begin, bytes.end(), number);
    return error == std::errc::result_out_of_range ? valueBeyondRange : number;
}

} // namespace

qint64 integerValue(QStringView text)
{
    using Limits = std::numeric_limits<qint64>;
    return leadingNumber(text, text.trimmed().startsWith(u'-') ? Limits::min() : Limits::max());
}

double doubleValue(QStringView text)
{
    const double number = leadingNumber(text, 0.0);
    return std::isfinite(number) ? number : 0.0;
}

QString capitalizedString(QStringView text)
{
    QString output;
    output.reserve(text.size());
    bool atWordStart = true;
    const QList<uint> characters = text.toString().toLower().toUcs4();
    for (const char32_t character : characters) {
        if (QChar::isSpace(character)) {
            atWordStart = true;
        } else if (atWordStart && QChar::isLetterOrNumber(character)) {
            output += QChar::fromUcs4(QChar::toTitleCase(character));
            atWordStart = false;
            continue;
        }
        output += QChar::fromUcs4(character);
    }
    return output;
}

QString md5HexDigest(QStringView text)
{
    QByteArray bytes = text.toUtf8();
    if (const qsizetype zero = bytes.indexOf('\0'); zero >= 0)
        bytes.truncate(zero);
    return QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex());
}

} // namespace zib
