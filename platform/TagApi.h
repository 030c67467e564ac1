// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <memory>

namespace zib {

/// The opened tags of one audio file. What is set is written by write() alone; destroying it releases the
/// file. Main thread.
class TagAPI {
  public:
    virtual ~TagAPI() = default;

    virtual void setTitle(const QString& title) = 0;
    virtual void setArtist(const QString& artist) = 0;
    virtual void setAlbum(const QString& album) = 0;
    virtual void setGenreList(const QStringList& genres) = 0;
    virtual void setComposer(const QString& composer) = 0;
    virtual void setYear(int year) = 0;
    /// A number or total of 0 is unknown.
    /// @{
    virtual void setTrack(int number, int total) = 0;
    virtual void setDisc(int number, int total) = 0;
    /// @}

    /// The picture of the cover, a PNG or JPEG file, in place of the one that cover() tells; an empty one
    /// removes that. Longer ones than this are not taken.
    /// @{
    static constexpr qsizetype maximumCoverBytes = qsizetype(6) * 1024 * 1024;
    virtual void setCover(const QByteArray& picture) = 0;
    /// @}

    /// What the file's tags say now, for showing.
    /// @{
    [[nodiscard]] virtual QString composer() const = 0;
    [[nodiscard]] virtual int trackTotal() const = 0;
    [[nodiscard]] virtual int discNumber() const = 0;
    [[nodiscard]] virtual int discTotal() const = 0;
    /// The front cover, else the first picture of any kind, as the bytes of a picture file from outside; none
    /// when there is none or it is longer than maximumCoverBytes.
    [[nodiscard]] virtual QByteArray cover() const = 0;
    /// @}

    /// Writes what was set back into the file; all other tags stay. Whether that worked.
    virtual bool write() = 0;
};

/// Opens the tags of files. Main thread.
class TagAPIs {
  public:
    virtual ~TagAPIs() = default;
    /// Null when there is no such file or it has no tags that can be written.
    [[nodiscard]] virtual std::unique_ptr<TagAPI> open(const QString& path) = 0;
};

} // namespace zib
