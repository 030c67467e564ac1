// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/DesktopTagApi.h"

#include "platform/desktop/TagCovers.h"
#include "platform/desktop/metadata/SoundFile.h"

#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>

#include <taglib/aifffile.h>
#include <taglib/flacfile.h>
#include <taglib/id3v1tag.h>
#include <taglib/id3v2header.h>
#include <taglib/id3v2tag.h>
#include <taglib/infotag.h>
#include <taglib/mpegfile.h>
#include <taglib/oggfile.h>
#include <taglib/tfilestream.h>
#include <taglib/tpropertymap.h>
#include <taglib/wavfile.h>

#include <cerrno>
#include <exception>
#include <filesystem>
#include <optional>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

namespace zib {

namespace {

Q_LOGGING_CATEGORY(log, "zib.platform.tags")

namespace fs = std::filesystem;

// More than any tag grows by: the tag library does not tell when it could not write.
constexpr off_t headroom = off_t(16) << 20;

TagLib::String fromText(const QString& text)
{
    return {text.toStdString(), TagLib::String::UTF8};
}

QString toText(const TagLib::String& text)
{
    return QString::fromUtf8(text.toCString(true));
}

/// Kinds of tags that keep a number and its total apart; the others have "7/12".
bool keepsTotalsApart(const TagLib::File& file)
{
    return dynamic_cast<const TagLib::FLAC::File*>(&file) != nullptr ||
           dynamic_cast<const TagLib::Ogg::File*>(&file) != nullptr;
}

/// An older tag stays as old, for the programs that can read no newer.
TagLib::ID3v2::Version versionOf(const TagLib::ID3v2::Tag* tag)
{
    const bool old = tag != nullptr && !tag->isEmpty() && tag->header()->majorVersion() == 3;
    return old ? TagLib::ID3v2::v3 : TagLib::ID3v2::v4;
}

bool save(TagLib::File& file, TagLib::ID3v2::Version version)
{
    if (auto* mpeg = dynamic_cast<TagLib::MPEG::File*>(&file)) {
        const int kinds = TagLib::MPEG::File::ID3v2 | (mpeg->hasID3v1Tag() ? TagLib::MPEG::File::ID3v1 : 0) |
                          (mpeg->hasAPETag() ? TagLib::MPEG::File::APE : 0);
        return mpeg->save(kinds, TagLib::File::StripNone, version, TagLib::File::DoNotDuplicate);
    }
    if (auto* wave = dynamic_cast<TagLib::RIFF::WAV::File*>(&file))
        return wave->save(TagLib::RIFF::WAV::File::AllTags, TagLib::File::StripNone, version);
    if (auto* aiff = dynamic_cast<TagLib::RIFF::AIFF::File*>(&file))
        return aiff->save(version);
    return file.save();
}

TagLib::ID3v2::Version id3VersionOf(TagLib::File& file)
{
    if (auto* mpeg = dynamic_cast<TagLib::MPEG::File*>(&file))
        return versionOf(mpeg->ID3v2Tag());
    if (auto* wave = dynamic_cast<TagLib::RIFF::WAV::File*>(&file))
        return versionOf(wave->tag());
    if (auto* aiff = dynamic_cast<TagLib::RIFF::AIFF::File*>(&file))
        return versionOf(aiff->tag());
    return TagLib::ID3v2::v4;
}

/// The number that the first of the texts begins with.
unsigned leadingNumber(const TagLib::PropertyMap& tags, const char* key)
{
    const TagLib::StringList texts = tags.contains(key) ? tags[key] : TagLib::StringList();
    const QString text = texts.isEmpty() ? QString() : toText(texts.front());
    return text.section(QLatin1Char('/'), 0, 0).section(QLatin1Char('-'), 0, 0).toUInt();
}

/// The tags of the oldest kind know plain numbers only, and the tag library gives them none of "7/12" or of a
/// whole date.
void setPlainNumbers(TagLib::Tag* tag, const TagLib::PropertyMap& tags)
{
    if (tag == nullptr)
        return;
    tag->setTrack(leadingNumber(tags, "TRACKNUMBER"));
    tag->setYear(leadingNumber(tags, "DATE"));
}

void setTags(TagLib::File& file, const TagLib::PropertyMap& tags)
{
    file.setProperties(tags);
    if (auto* mpeg = dynamic_cast<TagLib::MPEG::File*>(&file))
        setPlainNumbers(mpeg->ID3v1Tag(), tags);
    else if (auto* wave = dynamic_cast<TagLib::RIFF::WAV::File*>(&file))
        setPlainNumbers(wave->InfoTag(), tags);
}

/// A copy of a file beside it, to be changed and then to take its place, or to go.
class WorkingCopy {
  public:
    explicit WorkingCopy(const QByteArray& path)
        : path_(path)
        , copy_(path.left(path.lastIndexOf('/') + 1) + ".zib-tags-XXXXXX")
        , descriptor_(::mkostemp(copy_.data(), O_CLOEXEC))
    {
        std::error_code error;
        ready_ = descriptor_ >= 0 &&
                 fs::copy_file(path_.constData(), copy_.constData(), fs::copy_options::overwrite_existing,
                               error) &&
                 hasRoomToGrow();
    }
    ~WorkingCopy()
    {
        if (descriptor_ < 0)
            return;
        ::close(descriptor_);
        if (!committed_)
            ::unlink(copy_.constData());
    }
    WorkingCopy(const WorkingCopy&) = delete;
    WorkingCopy& operator=(const WorkingCopy&) = delete;

    [[nodiscard]] bool isReady() const { return ready_; }
    [[nodiscard]] const char* path() const { return copy_.constData(); }
    bool commit()
    {
        // Cutting it to its own length returns the room that it did not need.
        const off_t size = ::lseek(descriptor_, 0, SEEK_END);
        committed_ = size > 0 && ::ftruncate(descriptor_, size) == 0 && ::fsync(descriptor_) == 0 &&
                     ::rename(copy_.constData(), path_.constData()) == 0;
        return committed_;
    }

  private:
    [[nodiscard]] bool hasRoomToGrow() const
    {
        const off_t size = ::lseek(descriptor_, 0, SEEK_END);
        if (::fallocate(descriptor_, FALLOC_FL_KEEP_SIZE, 0, size + headroom) == 0)
            return true;
        std::error_code error;
        const bool unsupported = errno == EOPNOTSUPP;
        return unsupported && fs::space(copy_.constData(), error).available > std::uintmax_t(headroom);
    }

    const QByteArray path_;
    QByteArray copy_;
    int descriptor_;
    bool ready_ = false;
    bool committed_ = false;
};

class FileTags : public TagAPI {
  public:
    /// @param path with links resolved.
    FileTags(QByteArray path, TagLib::File& file)
        : path_(std::move(path))
        , totalsApart_(keepsTotalsApart(file))
        , tags_(file.properties())
        , cover_(coverOf(file))
    {
    }

    void setTitle(const QString& title) override { set("TITLE", {title}); }
    void setArtist(const QString& artist) override { set("ARTIST", {artist}); }
    void setAlbum(const QString& album) override { set("ALBUM", {album}); }
    void setGenreList(const QStringList& genres) override { set("GENRE", genres); }
    void setComposer(const QString& composer) override { set("COMPOSER", {composer}); }
    void setYear(int year) override
    {
        const QString text = year > 0 ? QString::number(year) : QString();
        if (text.isEmpty() || first("DATE").left(4) != text) // a whole date says the year as well
            set("DATE", {text});
    }
    void setTrack(int number, int total) override { setPlace("TRACKNUMBER", "TRACKTOTAL", number, total); }
    void setDisc(int number, int total) override { setPlace("DISCNUMBER", "DISCTOTAL", number, total); }

    void setCover(const QByteArray& picture) override
    {
        if (picture.size() <= maximumCoverBytes)
            newCover_ = picture;
    }

    [[nodiscard]] QByteArray cover() const override { return newCover_.value_or(cover_); }
    [[nodiscard]] QString composer() const override { return first("COMPOSER"); }
    [[nodiscard]] int trackTotal() const override
    {
        return totalOf("TRACKNUMBER", "TRACKTOTAL", "TOTALTRACKS");
    }
    [[nodiscard]] int discNumber() const override
    {
        return first("DISCNUMBER").section(QLatin1Char('/'), 0, 0).toInt();
    }
    [[nodiscard]] int discTotal() const override { return totalOf("DISCNUMBER", "DISCTOTAL", "TOTALDISCS"); }

    bool write() override
    {
        WorkingCopy copy(path_);
        try {
            if (copy.isReady() && writeInto(copy.path()) && copy.commit())
                return true;
        } catch (const std::exception& exception) {
            qCWarning(log, "%s", exception.what());
        }
        qCWarning(log, "the tags of %s could not be written", path_.constData());
        return false;
    }

  private:
    /// An empty text removes the tag.
    void set(const char* key, const QStringList& texts)
    {
        TagLib::StringList values;
        for (const QString& text : texts)
            if (!text.isEmpty())
                values.append(fromText(text));
        changes_.replace(key, values);
    }
    void setPlace(const char* numberKey, const char* totalKey, int number, int total)
    {
        const auto text = [](int value) { return value > 0 ? QString::number(value) : QString(); };
        const bool together = !totalsApart_ && total > 0;
        set(numberKey,
            {together ? QString(QString::number(std::max(number, 0)) + QLatin1Char('/') + text(total))
                      : text(number)});
        if (totalsApart_)
            set(totalKey, {text(total)});
    }

    [[nodiscard]] QString first(const char* key) const
    {
        const auto& source = changes_.contains(key) ? changes_ : tags_;
        const TagLib::StringList values = source.contains(key) ? source[key] : TagLib::StringList();
        return values.isEmpty() ? QString() : toText(values.front());
    }
    [[nodiscard]] int totalOf(const char* numberKey, const char* totalKey, const char* otherKey) const
    {
        const QString together = first(numberKey).section(QLatin1Char('/'), 1, 1);
        if (!together.isEmpty())
            return together.toInt();
        return first(contains(totalKey) ? totalKey : otherKey).toInt();
    }
    [[nodiscard]] bool contains(const char* key) const
    {
        return changes_.contains(key) || tags_.contains(key);
    }

    bool writeInto(const char* path) const
    {
        TagLib::FileStream stream(path);
        const auto file = openSoundFile(stream, TagLib::AudioProperties::Fast);
        if (!file || !file->isValid() || stream.readOnly())
            return false;
        TagLib::PropertyMap tags = file->properties();
        for (const auto& [key, values] : changes_) {
            tags.erase(key);
            if (!values.isEmpty())
                tags.insert(key, values);
        }
        const auto version = id3VersionOf(*file);
        setTags(*file, tags);
        if (newCover_)
            replaceCover(*file, *newCover_);
        return save(*file, version);
    }

    const QByteArray path_;
    const bool totalsApart_;
    const TagLib::PropertyMap tags_; // as they were when it was opened
    const QByteArray cover_;
    TagLib::PropertyMap changes_;
    std::optional<QByteArray> newCover_;
};

} // namespace

std::unique_ptr<TagAPI> DesktopTagAPIs::open(const QString& path)
{
    const QFileInfo info(path);
    if (!info.isFile() || !info.isWritable())
        return nullptr;
    const QByteArray canonical = QFile::encodeName(info.canonicalFilePath());
    try {
        TagLib::FileStream stream(canonical.constData(), true);
        const auto file = openSoundFile(stream, TagLib::AudioProperties::Fast);
        if (file && file->isValid())
            return std::make_unique<FileTags>(canonical, *file);
    } catch (const std::exception& exception) {
        qCWarning(log, "%s: %s", canonical.constData(), exception.what());
    }
    return nullptr;
}

} // namespace zib
