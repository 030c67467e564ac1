// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "records/Record.h"
#include "services/WebServiceClient.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace zib {

class RVPlaylistDownloader;

/// Told once how a song search ended, on the main thread; the client may be destroyed from within the call.
/// searchFailedWithError can come from within the client's constructor, before anybody owns the client: then
/// the request is good for being read during the call, and its owner gets a client that has reported.
class RVPlaylistDownloaderDelegate {
  public:
    virtual ~RVPlaylistDownloaderDelegate() = default;
    /// @param result track records; none only when artists were found but no song of theirs.
    virtual void searchCompletedWithResult(const QList<Record>& /*result*/,
                                           RVPlaylistDownloader& /*forRequest*/)
    {
    }
    /// @param error a text for people.
    virtual void searchFailedWithError(const QString& /*error*/, RVPlaylistDownloader& /*forRequest*/) {}
};

/// Asks the song-search service for artists and turns every song of theirs into a track record. One object is
/// one request, under way from its construction on (for "What's Hot?": from beginSearchForTopHot on). The
/// delegate may be null and outlives the client. Main thread.
class RVPlaylistDownloader final : public WebServiceClient {
  public:
    enum SearchType : qint32 {
        None = 0,
        Artist = 1,
        SimilarArtists = 2,
        TopHot = 3,
        Recommended = 4,
        Tags = 5
    };

    /// For beginSearchForTopHot.
    RVPlaylistDownloader(const WebServices& services, RVPlaylistDownloaderDelegate* delegate);
    /// Songs by one artist; with several names, or the flag, songs by artists similar to them. The first five
    /// names count.
    RVPlaylistDownloader(const WebServices& services, const QStringList& artists, bool similarArtists,
                         RVPlaylistDownloaderDelegate* delegate);
    /// Songs by artists whom all of the tags describe.
    RVPlaylistDownloader(const WebServices& services, const QStringList& tags,
                         RVPlaylistDownloaderDelegate* delegate);
    /// Songs by artists similar to those whom the tracks name under the key, the most played ones weighing
    /// most.
    RVPlaylistDownloader(const WebServices& services, RecordKey key, const QList<Record>& tracks,
                         RVPlaylistDownloaderDelegate* delegate);

    /// Asks for the songs that are hot now.
    void beginSearchForTopHot();

    /// The request's terms for display, joined with ", "; empty for "What's Hot?".
    [[nodiscard]] const QString& searchString() const { return searchString_; }
    [[nodiscard]] qint32 searchType() const { return searchType_; }
    [[nodiscard]] RVPlaylistDownloaderDelegate* delegate() const { return delegate_; }
    void setDelegate(RVPlaylistDownloaderDelegate* delegate) { delegate_ = delegate; }

    // The parts of a request, before escaping.
    static QString parameterStringForArtists(const QStringList& artists);
    static QString parameterStringForTags(const QStringList& tags);
    /// The names under the key, each with a boost that grows with how often its tracks were played. Of more
    /// than five names the time of day picks five.
    static QString boostedArtistsParameterStringForKey(RecordKey key, const QList<Record>& andTracks,
                                                       const Clock& clock);

  private:
    void sendRequestWithURLString(const QString& pathAndQuery);
    void requestFinished() override;
    void requestFailed(const ServiceError& error) override;

    RVPlaylistDownloaderDelegate* delegate_ = nullptr;
    QString searchString_;
    qint32 searchType_ = None;
};

} // namespace zib
