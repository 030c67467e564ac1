// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/CoverProcess.h"

#include "catalogue/SongPictures.h"
#include "catalogue/TagProcess.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QProcess>

#include <cstdio>

namespace zib {

namespace {

constexpr int mostMilliseconds = 20000;

} // namespace

QByteArray CoverProcess::read(const QByteArray& path) const
{
    if (program_.isEmpty())
        return {};
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(program_, {QStringLiteral("read-cover"), QFile::decodeName(path)});
    QByteArray picture;
    const QDeadlineTimer deadline(mostMilliseconds);
    while (process.waitForReadyRead(int(deadline.remainingTime())) && picture.size() <= largestPicture)
        picture += process.readAll();
    const bool ended =
        picture.size() <= largestPicture && process.waitForFinished(int(deadline.remainingTime()));
    if (!ended && process.state() != QProcess::NotRunning) {
        process.kill();
        process.waitForFinished();
    }
    picture += process.readAll();
    const bool whole = process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
    return whole && !pictureType(picture).isEmpty() ? picture : QByteArray();
}

int CoverProcess::run(const char* path)
{
    TagProcess::limitMemory();
    const QByteArray picture = embeddedPicture(path);
    const auto size = size_t(picture.size());
    return std::fwrite(picture.constData(), 1, size, stdout) == size && std::fflush(stdout) == 0 ? 0 : 1;
}

} // namespace zib
