// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QtEndian>

namespace zib {

/// The bytes of a silent WAV file, 8000 frames a second of one byte.
inline QByteArray wavFile(int seconds)
{
    const auto number = [](auto value) {
        const auto little = qToLittleEndian(value);
        return QByteArray(reinterpret_cast<const char*>(&little), sizeof little);
    };
    const QByteArray samples(seconds * 8000, char(0x80));
    const QByteArray format = number(quint16(1)) + number(quint16(1)) + number(quint32(8000)) +
                              number(quint32(8000)) + number(quint16(1)) + number(quint16(8));
    const QByteArray chunks = "WAVEfmt " + number(quint32(format.size())) + format + "data" +
                              number(quint32(samples.size())) + samples;
    return "RIFF" + number(quint32(chunks.size())) + chunks;
}

} // namespace zib
