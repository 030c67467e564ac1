// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/playlists/PlaylistReading.h"

#include "catalogue/HttpMessage.h"
#include "catalogue/TagProcess.h"

#include <QFile>
#include <QProcess>

#include <cstdio>

namespace zib {

namespace {

constexpr int mostMilliseconds = 10000;
constexpr int refusedExit = 3;

bool written(const QByteArray& bytes)
{
    const auto size = size_t(bytes.size());
    return std::fwrite(bytes.constData(), 1, size, stdout) == size && std::fflush(stdout) == 0;
}

} // namespace

tl::expected<QList<PlaylistSong>, QString> PlaylistReading::songs(const QByteArray& archive) const
{
    if (program_.isEmpty())
        return songsOfPlaylist(archive);
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(program_, {QStringLiteral("read-playlist")});
    process.write(archive);
    process.closeWriteChannel();
    if (!process.waitForFinished(mostMilliseconds)) {
        process.kill();
        process.waitForFinished();
    } else if (process.exitStatus() == QProcess::NormalExit) {
        const auto output = process.readAllStandardOutput();
        if (process.exitCode() == 0)
            return songsFromJson(output);
        if (process.exitCode() == refusedExit)
            return tl::unexpected(QString::fromUtf8(output));
    }
    return tl::unexpected(QStringLiteral("The playlist service could not read this playlist."));
}

int PlaylistReading::run()
{
    TagProcess::limitMemory();
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly))
        return 1;
    const auto songs = songsOfPlaylist(input.read(longestRequestBody));
    if (!songs)
        return written(songs.error().toUtf8()) ? refusedExit : 1;
    return written(songsAsJson(*songs)) ? 0 : 1;
}

} // namespace zib
