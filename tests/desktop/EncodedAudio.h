// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/desktop/AudioFiles.h"

#include <QCryptographicHash>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

namespace zib::audiofiles {

/// The program's output; it must succeed.
inline QByteArray run(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished(120'000)) << qPrintable(program);
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return process.readAllStandardOutput();
}

class EncodedAudioTest : public testing::Test {
  protected:
    /// Four seconds of tones with silence between them, so that a variable rate varies.
    QString encode(const QString& name, const char* options)
    {
        const QString path = folder.filePath(name);
        QStringList arguments{
            QStringLiteral("-v"),
            QStringLiteral("error"),
            QStringLiteral("-f"),
            QStringLiteral("lavfi"),
            QStringLiteral("-i"),
            QStringLiteral("aevalsrc=exprs='0.4*sin(2000*t*t)*gt(mod(t\\,1)\\,0.5)':d=4:s=44100")};
        arguments += QString::fromLatin1(options).split(QLatin1Char(' '), Qt::SkipEmptyParts);
        arguments += path;
        run(QStringLiteral("ffmpeg"), arguments);
        return path;
    }
    static QByteArray contents(const QString& path)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    AudioFileStreamParsers parsers;
    AudioStatus status = kAudioOk;
    QTemporaryDir folder;
};

/// Digests of the packets, as the other demuxer finds them.
inline QList<QByteArray> packetDigests(const QString& path, const QString& stream = QStringLiteral("a"))
{
    const QByteArray output = run(QStringLiteral("ffprobe"),
                                  {QStringLiteral("-v"), QStringLiteral("error"),
                                   QStringLiteral("-select_streams"), stream, QStringLiteral("-show_packets"),
                                   QStringLiteral("-show_data_hash"), QStringLiteral("MD5"), path});
    QList<QByteArray> digests;
    for (const QByteArray& line : output.split('\n')) {
        if (line.startsWith("data_hash=MD5:"))
            digests.append(line.mid(14));
    }
    return digests;
}

inline QList<QByteArray> packetDigests(const QList<QByteArray>& packets)
{
    QList<QByteArray> digests;
    for (const QByteArray& packet : packets)
        digests.append(QCryptographicHash::hash(packet, QCryptographicHash::Md5).toHex());
    return digests;
}

} // namespace zib::audiofiles
