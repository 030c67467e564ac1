// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringView>

#include <optional>

// Pure functions, usable from any thread.
namespace zib {

// Escaping. Every function replaces a character by the percent-escapes of its UTF-8 bytes, in upper-case
// hexadecimal. "Illegal" are the characters that no URL may hold: everything beyond ASCII, control
// characters, the space and "#%<>[\]^`{|} and the double quote. Half of a surrogate pair counts as U+FFFD.

/// Also escapes every one of ()[]!@#$^*&?+-"'.,; but neither slash, colon, equals sign nor tilde.
QString urlEncodedString(QStringView text);
/// Also escapes every one of !*'();:@&=+$,/?%#[]
QString URLEncodedString(QStringView text);
/// Also escapes every one of =,!$&'()*+;@?"<>#:/ line feed, tab and space.
QString stringWithPercentEscape(QStringView text);
/// Also escapes the characters of butAlso; those of butNot are left as they are, whatever they are.
QString encodePercentEscapesPerRFC2396ButNot(QStringView butNot, QStringView butAlso, QStringView withString);
/// The text of a whole URL with nothing but its illegal characters escaped: what separates the parts of a URL
/// stays, save "#", and a percent sign is text, not the beginning of an escape.
QString stringByAddingPercentEscapes(QStringView urlText);
/// Every percent-escape replaced by what it stands for, read as UTF-8.
/// @return nothing when a percent sign lacks its two hexadecimal digits or the bytes are not UTF-8.
std::optional<QString> URLDecodedString(QStringView text);

/// The whole number at the start of the text, after blanks and a sign; 0 where there is none. Values beyond
/// 64 bits become the nearest that fits.
qint64 integerValue(QStringView text);
/// The real number at the start of the text, after blanks and a sign, with a decimal point in every locale; 0
/// where there is none or it is not finite.
double doubleValue(QStringView text);
/// Every word, as blanks part them, with its first letter in title case, the rest in lower case.
QString capitalizedString(QStringView text);

/// Seconds as a clock (00:05, 1:00:05), from one day on as days ("1.5 days", localized).
QString timeString(qint64 seconds);
/// The same for the whole number that the text begins with.
QString timeString(QStringView seconds);

/// The lines joined by "<br>", without the last one: what follows the last line break, usually nothing, is
/// dropped. A text without a line break stays as it is.
QString stringByReplacingNewlineCharactersWithHTMLTags(QStringView text);
/// The text without its tags, except links into the application itself that name an artist or a tag. White
/// space that directly follows a removed tag goes with it.
QString flattenHTMLIgnoringZibLinks(QStringView html);

/// The MD5 digest of the UTF-8 bytes before the first zero byte, as 32 lower-case hexadecimal digits.
QString md5HexDigest(QStringView text);

} // namespace zib
