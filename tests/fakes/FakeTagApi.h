// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/TagApi.h"

#include <QHash>
#include <QVariantMap>

namespace zib {

/// Files with tags that are kept in memory. A file opens when it stands in `files`.
class FakeTagAPIs : public TagAPIs {
  public:
    std::unique_ptr<TagAPI> open(const QString& path) override
    {
        return files.contains(path) ? std::make_unique<Tags>(*this, path) : nullptr;
    }

    /// path -> what was written: "title", "artist", "album", "genres", "composer", "year", "track",
    /// "trackTotal", "disc", "discTotal", "cover".
    QHash<QString, QVariantMap> files;
    bool writesFail = false;

  private:
    class Tags : public TagAPI {
      public:
        Tags(FakeTagAPIs& owner, QString path)
            : owner_(owner)
            , path_(std::move(path))
            , tags_(owner.files.value(path_))
        {
        }
        void setTitle(const QString& title) override { set("title", title); }
        void setArtist(const QString& artist) override { set("artist", artist); }
        void setAlbum(const QString& album) override { set("album", album); }
        void setGenreList(const QStringList& genres) override { set("genres", genres); }
        void setComposer(const QString& composer) override { set("composer", composer); }
        void setYear(int year) override { set("year", year); }
        void setTrack(int number, int total) override
        {
            set("track", number);
            set("trackTotal", total);
        }
        void setDisc(int number, int total) override
        {
            set("disc", number);
            set("discTotal", total);
        }
        void setCover(const QByteArray& picture) override { set("cover", picture); }
        QByteArray cover() const override { return get("cover").toByteArray(); }
        QString composer() const override { return get("composer").toString(); }
        int trackTotal() const override { return get("trackTotal").toInt(); }
        int discNumber() const override { return get("disc").toInt(); }
        int discTotal() const override { return get("discTotal").toInt(); }
        bool write() override
        {
            if (owner_.writesFail)
                return false;
            owner_.files[path_] = tags_;
            return true;
        }

      private:
        void set(const char* key, const QVariant& value) { tags_.insert(QString::fromLatin1(key), value); }
        QVariant get(const char* key) const { return tags_.value(QString::fromLatin1(key)); }

        FakeTagAPIs& owner_;
        QString path_;
        QVariantMap tags_;
    };
};

} // namespace zib
