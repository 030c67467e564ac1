// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace zib {

/// Texts of several paragraphs, parted by '\n'. "[[Name]]" stands for a link to that artist and "{{tag}}" for
/// one to that tag, see linkedHtml().
using MarkedText = QString;

struct DemoTrack {
    QString id; ///< 32 lower-case hexadecimal characters, the same for ever
    QString title;
    int seconds = 0;
    QString extension; ///< "mp3", "wav", "m4a" or "aac"
    QString mediaType;
    QString about = {};  ///< some sentences about the artist and the song, plain text
    QString lyrics = {}; ///< lines parted by '\n'; empty for instrumental music
};

struct DemoAlbum {
    QString title;
    int year = 0;
    QList<DemoTrack> tracks;
    QString id = {}; ///< in the form of a UUID, the same for ever
    QDate released = {};
    QString label = {};
    QString country = {}; ///< two letters
    MarkedText about = {};
};

/// Something that was written about an artist.
struct DemoArticle {
    enum Kind { Blog, News, Review };

    QString id; ///< 32 lower-case hexadecimal characters, the same for ever
    Kind kind = Blog;
    QString title;
    QString source; ///< who published it
    QDate date;
    MarkedText text;
    QString album = {}; ///< what is reviewed
};

struct DemoArtist {
    QString name;
    QStringList tags;       ///< most fitting first
    double hotness = 0;     ///< 0 to 1
    double familiarity = 0; ///< 0 to 1
    QList<DemoAlbum> albums;
    MarkedText biography = {};
    QList<DemoArticle> articles = {}; ///< newest first
    QString pictureId = {};           ///< 32 lower-case hexadecimal characters, for DemoSongs::picture()
    int pictures = 0;
};

/// How large a picture of an artist is asked for.
enum class PictureSize {
    Tile,  ///< for a list of artists
    Whole, ///< to be looked at
};

/// What the service asks of the demo songs. Every operation may be called on any thread.
class DemoSongs {
  public:
    virtual ~DemoSongs() = default;

    /// All artists: known at once, before anything is rendered, and the same for the life of the object.
    [[nodiscard]] virtual const QList<DemoArtist>& artists() const = 0;

    /// The path of the track's finished file. Blocks while it is being rendered, which happens ahead of all
    /// tracks that nobody waits for. Nothing when there is no such track or it cannot be made.
    virtual std::optional<QString> file(const QString& trackId) = 0;

    /// The path of the cover of the track's album, a PNG or JPEG picture, under the terms of file().
    virtual std::optional<QString> cover(const QString& trackId) = 0;

    /// The path of an artist's picture, a JPEG picture, under the terms of file().
    /// @param number from 1 to DemoArtist::pictures
    virtual std::optional<QString> picture(const QString& pictureId, int number, PictureSize size) = 0;
};

/// The songs that come with the program: invented artists whose music and covers are computed, the same every
/// time, and kept as files in a folder.
class DemoCatalogue final : public DemoSongs {
  public:
    /// Called on a background thread after each finished track.
    using Progress = std::function<void(int done, int total)>;

    /// @param folder where the finished files lie; made when it is missing. Nothing is rendered yet.
    explicit DemoCatalogue(const QString& folder);
    /// Stops first.
    ~DemoCatalogue() override;
    DemoCatalogue(const DemoCatalogue&) = delete;
    DemoCatalogue& operator=(const DemoCatalogue&) = delete;

    [[nodiscard]] const QList<DemoArtist>& artists() const override;
    std::optional<QString> file(const QString& trackId) override;
    std::optional<QString> cover(const QString& trackId) override;
    std::optional<QString> picture(const QString& pictureId, int number, PictureSize size) override;

    /// How much of the machine the background takes.
    struct Pace {
        std::chrono::milliseconds first{0}; ///< it begins so much later
        int rest = 0; ///< times the processor time of a song it rests before the next one
    };

    /// Starts to render what is missing, in the background with only the processor and disk time that nobody
    /// else wants, and returns at once. What follows a song that was asked for on its artist's albums comes
    /// first and without rest, as it is likely to be heard next.
    void renderAll(Progress progress, Pace pace);

    /// Ends the rendering soon, leaving no half file behind; who waits for a file gets nothing.
    /// Returns when all background work has ended; nothing is rendered afterwards.
    void stop();

  private:
    struct Renderer;
    std::unique_ptr<Renderer> renderer_;
};

} // namespace zib
