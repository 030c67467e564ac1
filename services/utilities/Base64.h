// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QStringView>

// Pure functions, usable from any thread.
namespace zib {

/// The standard alphabet with "=" padding, without line breaks.
QByteArray base64Encoding(QByteArrayView data);
/// The same with a line feed whenever at least lineLength characters have come since the last one; 0 breaks
/// nowhere. Groups of four are never broken, and text that fills its last line ends with a line feed.
QByteArray base64EncodingWithLineLength(QByteArrayView data, unsigned lineLength);
/// Reads base64 and skips whatever is not of its alphabet. The first "=" ends it, after the bytes of the
/// group begun: one for one or two characters, two for three. A group that the end of the text cuts short is
/// dropped.
QByteArray dataWithBase64EncodedString(QStringView text);

} // namespace zib
