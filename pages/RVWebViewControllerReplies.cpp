// SPDX-License-Identifier: GPL-3.0-or-later
#include "pages/Log.h"
#include "pages/RVWebViewController.h"
#include "platform/UserDefaults.h"
#include "records/PropertyValue.h"
#include "services/ServiceHosts.h"
#include "services/WikiText.h"
#include "services/utilities/StringUtilities.h"

#include <QCoreApplication>

namespace zib {
namespace {

constexpr int countedReplies = 4; // lyrics are not waited for
constexpr int noPage = 3;

} // namespace

void RVWebViewController::resetParameters()
{
    ++resets_;
    dataRequest_.reset();
    artistRequest_.reset();
    albumRequest_.reset();
    releaseRequest_.reset();
    lyricsRequest_.reset();
    reset();
}

void RVWebViewController::loadDataForTrack(const Record& track)
{
    if (track.isNull()) {
        loadStoppedPage();
        return;
    }
    if (dataLoaded())
        return;
    view_.clear();
    storePage(Page::Artist);
    loadBusyPage();
    if (!artist().isEmpty())
        gatherData();
}

/// Requests that are still under way give place to the new ones. One that cannot even be started shows the
/// error page, and then none of the others is wanted.
void RVWebViewController::gatherData()
{
    setReplyCount(0);
    const QString name = artist();
    const Record song = Record::make(
        {{keys::Artist, name}, {keys::Album, album()}, {keys::Name, track()}, {keys::Mbid, mbid()}});
    [[maybe_unused]] const bool allStarted =
        startRequest(dataRequest_, name) && startRequest(artistRequest_, name) &&
        startRequest(albumRequest_, song) && startRequest(releaseRequest_, song) &&
        startRequest(lyricsRequest_, song);
}

template <class Client, class Subject>
bool RVWebViewController::startRequest(std::unique_ptr<Client>& request, const Subject& subject)
{
    const int resetsBefore = resets_;
    std::unique_ptr<Client> started(new Client(services_, subject, this)); // only here is this a delegate
    if (resets_ != resetsBefore)
        return false;
    request = std::move(started);
    return true;
}

void RVWebViewController::webServiceCompletedForRequest(RVDataDownloader& request)
{
    setFamiliarity(request.familiarity());
    setHotness(request.hotness());
    setLinks(request.links());
    setBlogs(request.blogs());
    setReviews(request.reviews());
    setNews(request.news());
    setVideos(request.videos());
    setImages(request.images());
    setTags(request.tags());
    dataRequest_.reset();
    countReply();
}

void RVWebViewController::webServiceCompletedForRequest(RVArtistInfoDownloader& request)
{
    const QString text =
        wikiText(request.bio(), musicInfoWebSite(userDefaults_), WikiLinks::ToArtistsAndTags);
    setBio(text.isEmpty() ? QCoreApplication::translate("RVWebViewController", "No wiki available") : text);
    setSimilar(request.similar());
    artistRequest_.reset();
    countReply();
}

void RVWebViewController::webServiceCompletedForRequest(RVAlbumInfoDownloader& request)
{
    if (!request.wiki().isEmpty())
        setAlbum_wiki(wikiText(request.wiki(), musicInfoWebSite(userDefaults_), WikiLinks::ToArtists));
    albumRequest_.reset();
    countReply();
}

void RVWebViewController::webServiceCompletedForRequest(RVMusicBrainzDownloader& request)
{
    if (!request.releases().isEmpty()) {
        const ReleaseEvent& first = request.releases().constFirst();
        if (!first.label.isEmpty())
            setLabel(first.label);
        if (first.date && !first.date->isEmpty())
            setDate(*first.date);
    }
    if (!request.type().isEmpty())
        setType(request.type());
    setTracklist(request.tracks());
    releaseRequest_.reset();
    countReply();
}

void RVWebViewController::webServiceFailedForRequest(RVDataDownloader& /*request*/, const ServiceError& error)
{
    loadErrorPage(error.text);
}

void RVWebViewController::webServiceFailedForRequest(RVArtistInfoDownloader& /*request*/,
                                                     const ServiceError& error)
{
    loadErrorPage(error.text);
}

void RVWebViewController::webServiceFailedForRequest(RVAlbumInfoDownloader& /*request*/,
                                                     const ServiceError& error)
{
    loadErrorPage(error.text);
}

void RVWebViewController::webServiceFailedForRequest(RVMusicBrainzDownloader& /*request*/,
                                                     const ServiceError& error)
{
    loadErrorPage(error.text);
}

void RVWebViewController::lyricsServiceCompletedForRequest(RVLyricsDownloader& request)
{
    setLyrics(stringByReplacingNewlineCharactersWithHTMLTags(request.lyrics()));
    lyricsRequest_.reset();
}

void RVWebViewController::lyricsServiceFailedForRequest(RVLyricsDownloader& /*request*/)
{
    qCInfo(pagesLog, "Lyrics service failed");
    lyricsRequest_.reset();
}

void RVWebViewController::countReply()
{
    setReplyCount(replyCount() + 1);
    if (replyCount() < countedReplies)
        return;
    setReplyCount(0);
    setDataLoaded(true);
    if (currentPage() != noPage)
        loadCurrentPage();
}

} // namespace zib
