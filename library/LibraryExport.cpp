// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/LibraryExport.h"

#include "library/AtomicFile.h"
#include "library/LibraryFile.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdio>
#include <filesystem>

namespace zib {
namespace {

/// Whether both paths name one file, by whatever links.
bool isSameFile(const QString& a, const QString& b)
{
    std::error_code error;
    return std::filesystem::equivalent(QFile::encodeName(a).constData(), QFile::encodeName(b).constData(),
                                       error);
}

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(LibraryExport)
};

QString writingFailed(const QString& destination, const QString& reason)
{
    return Texts::tr("Writing %1 failed: %2.").arg(destination, reason);
}

} // namespace

tl::expected<void, QString> exportLibrary(const QString& libraryPath, const QString& destination)
{
    const LibraryFile library(libraryPath);
    if (!library.exists())
        return tl::unexpected(Texts::tr("There is no music library at %1.").arg(libraryPath));
    const auto plain = library.readPlain();
    if (!plain)
        return tl::unexpected(
            Texts::tr("The music library at %1 cannot be read: %2.").arg(libraryPath, plain.error()));
    if (destination == QLatin1String("-")) {
        QFile output;
        const bool written = output.open(stdout, QIODevice::WriteOnly) &&
                             output.write(*plain) == plain->size() && output.flush();
        if (!written)
            return tl::unexpected(writingFailed(destination, output.errorString()));
        return {};
    }
    if (isSameFile(libraryPath, destination))
        return tl::unexpected(
            Texts::tr("%1 is the music library itself; choose another file.").arg(destination));
    AtomicFile file(destination);
    file.write({plain->constData(), static_cast<std::size_t>(plain->size())});
    if (!file.commit())
        return tl::unexpected(writingFailed(destination, file.error()));
    return {};
}

} // namespace zib
