// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "services/ArtistInfoReply.h"
#include "services/ProfileReply.h"
#include "services/ReleaseReply.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace zib {

/// What is known of the current song, as far as it has come: what the pages are made of. Texts may hold HTML;
/// none of it can be trusted.
class PageFields {
  public:
    PageFields() { reset(); }

    /// Forgets the song, but for the track's tags and the artwork: whoever announces a song sets them,
    /// perhaps before.
    void reset();

    [[nodiscard]] const QString& artist() const { return artist_; }
    void setArtist(const QString& artist) { artist_ = artist; }
    [[nodiscard]] const QString& album() const { return album_; }
    void setAlbum(const QString& album) { album_ = album; }
    [[nodiscard]] const QString& track() const { return track_; }
    void setTrack(const QString& track) { track_ = track; }
    /// The artist's biography, HTML.
    [[nodiscard]] const QString& bio() const { return bio_; }
    void setBio(const QString& bio) { bio_ = bio; }
    /// Scores of the artist, numbers from 0 to 1 as text.
    [[nodiscard]] const QString& familiarity() const { return familiarity_; }
    void setFamiliarity(const QString& familiarity) { familiarity_ = familiarity; }
    [[nodiscard]] const QString& hotness() const { return hotness_; }
    void setHotness(const QString& hotness) { hotness_ = hotness; }
    /// Of the artist.
    [[nodiscard]] const QStringList& tags() const { return tags_; }
    void setTags(const QStringList& tags) { tags_ = tags; }
    [[nodiscard]] const QList<SimilarArtist>& similar() const { return similar_; }
    void setSimilar(const QList<SimilarArtist>& similar) { similar_ = similar; }
    [[nodiscard]] const QList<WebArticle>& blogs() const { return blogs_; }
    void setBlogs(const QList<WebArticle>& blogs) { blogs_ = blogs; }
    [[nodiscard]] const QList<WebArticle>& news() const { return news_; }
    void setNews(const QList<WebArticle>& news) { news_ = news; }
    [[nodiscard]] const QList<WebArticle>& reviews() const { return reviews_; }
    void setReviews(const QList<WebArticle>& reviews) { reviews_ = reviews; }
    [[nodiscard]] const QList<WebVideo>& videos() const { return videos_; }
    void setVideos(const QList<WebVideo>& videos) { videos_ = videos; }
    /// Addresses of pictures.
    [[nodiscard]] const QStringList& images() const { return images_; }
    void setImages(const QStringList& images) { images_ = images; }
    [[nodiscard]] const QList<ArtistLink>& links() const { return links_; }
    void setLinks(const QList<ArtistLink>& links) { links_ = links; }
    /// HTML.
    [[nodiscard]] const QString& lyrics() const { return lyrics_; }
    void setLyrics(const QString& lyrics) { lyrics_ = lyrics; }
    [[nodiscard]] const QStringList& track_tags() const { return track_tags_; }
    void setTrack_tags(const QStringList& tags) { track_tags_ = tags; }
    /// Descriptions, HTML.
    [[nodiscard]] const QString& track_wiki() const { return track_wiki_; }
    void setTrack_wiki(const QString& wiki) { track_wiki_ = wiki; }
    [[nodiscard]] const QString& album_wiki() const { return album_wiki_; }
    void setAlbum_wiki(const QString& wiki) { album_wiki_ = wiki; }
    /// Address of the album's large cover, or path of the built-in picture that stands for none.
    [[nodiscard]] const QString& artwork() const { return artwork_; }
    void setArtwork(const QString& artwork) { artwork_ = artwork; }
    /// By which the release is looked up.
    [[nodiscard]] const QString& mbid() const { return mbid_; }
    void setMbid(const QString& mbid) { mbid_ = mbid; }
    [[nodiscard]] const QList<ReleaseTrack>& tracklist() const { return tracklist_; }
    void setTracklist(const QList<ReleaseTrack>& tracklist) { tracklist_ = tracklist; }
    /// Of the album's release.
    [[nodiscard]] const QString& label() const { return label_; }
    void setLabel(const QString& label) { label_ = label; }
    [[nodiscard]] const QString& date() const { return date_; }
    void setDate(const QString& date) { date_ = date; }
    [[nodiscard]] const QString& type() const { return type_; }
    void setType(const QString& type) { type_ = type; }
    /// Whether all that is counted has arrived.
    [[nodiscard]] bool dataLoaded() const { return dataLoaded_; }
    void setDataLoaded(bool loaded) { dataLoaded_ = loaded; }
    /// Completed requests of those that are counted.
    [[nodiscard]] int replyCount() const { return replyCount_; }
    void setReplyCount(int count) { replyCount_ = count; }
    /// How many images have been shown already.
    [[nodiscard]] int imageIndex() const { return imageIndex_; }
    void setImageIndex(int index) { imageIndex_ = index; }

  private:
    QString artist_;
    QString album_;
    QString track_;
    QString bio_;
    QString familiarity_;
    QString hotness_;
    QStringList tags_;
    QList<SimilarArtist> similar_;
    QList<WebArticle> blogs_;
    QList<WebArticle> news_;
    QList<WebArticle> reviews_;
    QList<WebVideo> videos_;
    QStringList images_;
    QList<ArtistLink> links_;
    QString lyrics_;
    QStringList track_tags_;
    QString track_wiki_;
    QString album_wiki_;
    QString artwork_;
    QString mbid_;
    QList<ReleaseTrack> tracklist_;
    QString label_;
    QString date_;
    QString type_;
    bool dataLoaded_ = false;
    int replyCount_ = 0;
    int imageIndex_ = 0;
};

} // namespace zib
