// SPDX-License-Identifier: GPL-3.0-or-later
#include "controller/SearchFlow.h"

#include "controller/ControllerContext.h"
#include "controller/MainWindowView.h"
#include "controller/Notices.h"
#include "controller/PlaybackQueue.h"
#include "controller/SourceKinds.h"
#include "controller/SourceListing.h"
#include "library/RVDataManager.h"
#include "platform/SettingsKeys.h"
#include "platform/TableView.h"
#include "platform/UserDefaults.h"
#include "records/Record.h"

#include <QCoreApplication>
#include <QLoggingCategory>

#include <algorithm>

namespace zib {

namespace {

enum SearchFieldType { ByArtist = 0, ByTags = 1, BySimilarArtists = 2 };

constexpr int tagsSearched = 5;

Q_LOGGING_CATEGORY(log, "zib.controller.search")

/// Songs as a service sends them, with the heart, the file and the plays of those that the library has.
QList<Record> withWhatIsKept(const QList<Record>& songs, const RecordTable& library)
{
    for (Record song : songs)
        if (const Record kept = library.find(song.utf8(keys::Id)))
            for (const RecordKey key : {keys::Favorite, keys::Downloaded, keys::PlayCount, keys::PlayDate})
                if (kept.contains(key))
                    song.set(key, kept.value(key));
    return songs;
}

} // namespace

SearchFlow::SearchFlow(ControllerContext& context, PlaybackQueue& playback, SourceListing& sources,
                       const WebServices& services)
    : context_(context)
    , playback_(playback)
    , sources_(sources)
    , services_(services)
{
}

SearchFlow::~SearchFlow() = default;

void SearchFlow::showSearchType()
{
    const int type = context_.defaults.integer(settings::CurrentSearchType);
    context_.window.setSearchType(type);
    context_.window.setSearchPlaceholder(type == ByTags
                                             ? QCoreApplication::translate("SearchFlow", "Tag(s)")
                                             : QCoreApplication::translate("SearchFlow", "Artist"));
}

void SearchFlow::radioTypeSelected(int type)
{
    context_.defaults.setValue(settings::CurrentSearchType, type);
    showSearchType();
}

void SearchFlow::performSearchAction(const QString& text)
{
    if (text.isEmpty())
        return;
    if (context_.defaults.integer(settings::CurrentSearchType) == ByTags)
        beginSearchForTags(text.split(QStringLiteral(", ")));
    else
        beginSearchForArtists({text});
}

void SearchFlow::beginSearchForArtists(const QStringList& artists)
{
    const bool similar = context_.defaults.integer(settings::CurrentSearchType) == BySimilarArtists;
    begin([&] { return std::make_unique<RVPlaylistDownloader>(services_, artists, similar, this); });
}

void SearchFlow::beginSearchForTags(const QStringList& tags)
{
    begin([&] {
        return std::make_unique<RVPlaylistDownloader>(services_, tags.first(qMin(tags.size(), tagsSearched)),
                                                      this);
    });
}

void SearchFlow::begin(const std::function<std::unique_ptr<RVPlaylistDownloader>()>& makeRequest)
{
    context_.window.setLoaderAnimating(true);
    std::unique_ptr<RVPlaylistDownloader> request = makeRequest();
    if (endedWhileStarting_.erase(request.get()) == 0)
        requests_.push_back(std::move(request));
}

void SearchFlow::connectedToInternetNotification()
{
    context_.connectedToInternet = true;
    beginAutomaticLists();
    showConnectivity();
}

void SearchFlow::disconnectedFromInternetNotification()
{
    context_.connectedToInternet = false;
    for (const SourceType list : {SourceType::Recommended, SourceType::TopHot})
        sources_.setNodeEnabled(list, false);
    sources_.reloadRows();
    showConnectivity();
}

/// Which songs can be played now shows in the rows, and what is known of the playing one in its pages.
void SearchFlow::showConnectivity()
{
    context_.window.setConnected(context_.connectedToInternet);
    context_.dataManager.playlistsTableView().reloadData();
    if (sources_.categoryOfSelectedNode() == int(SourceType::NowPlaying))
        sources_.changeItemView();
}

void SearchFlow::beginAutomaticLists()
{
    using enum SourceType;
    if (!sources_.isNodeEnabled(TopHot) && !isUnderWay(RVPlaylistDownloader::TopHot))
        begin([this] {
            auto request = std::make_unique<RVPlaylistDownloader>(services_, this);
            request->beginSearchForTopHot();
            return request;
        });
    if (sources_.isNodeEnabled(Recommended) || isUnderWay(RVPlaylistDownloader::Recommended))
        return;
    const QList<Record> favorites = context_.dataManager.favorites();
    if (favorites.isEmpty()) {
        // Left turning: whichever request is under way stops it.
        context_.window.setLoaderAnimating(true);
        enableList(Recommended);
    } else {
        begin(
            [&] { return std::make_unique<RVPlaylistDownloader>(services_, keys::Artist, favorites, this); });
    }
}

bool SearchFlow::isUnderWay(RVPlaylistDownloader::SearchType type) const
{
    return std::ranges::any_of(requests_,
                               [type](const auto& request) { return request->searchType() == type; });
}

void SearchFlow::searchCompletedWithResult(const QList<Record>& found, RVPlaylistDownloader& request)
{
    const QList<Record> result = withWhatIsKept(found, context_.dataManager.library());
    switch (request.searchType()) {
    case RVPlaylistDownloader::TopHot:
        fillList(SourceType::TopHot, result);
        break;
    case RVPlaylistDownloader::Recommended:
        fillList(SourceType::Recommended, result);
        break;
    default:
        fileSearch(result, request);
    }
    release(request);
    context_.window.setLoaderAnimating(false);
}

void SearchFlow::fillList(SourceType list, const QList<Record>& songs)
{
    RVDataManager& library = context_.dataManager;
    RecordTable& table = list == SourceType::TopHot ? library.tophot() : library.recommended();
    for (const Record& song : songs)
        table.insert(song.string(keys::Id), song);
    enableList(list);
    if (library.currentSourceType() == list)
        library.reloadData();
}

void SearchFlow::enableList(SourceType list)
{
    // An answer that was still on its way when the machine went offline: its songs are kept, but cannot be
    // played now.
    if (!context_.connectedToInternet)
        return;
    sources_.setNodeEnabled(list, true);
    sources_.reloadRow(list);
}

void SearchFlow::fileSearch(const QList<Record>& result, const RVPlaylistDownloader& request)
{
    RVDataManager& library = context_.dataManager;
    while (library.searches().size() >= searchesKept) {
        const Record oldest = library.searches().takeLast();
        sources_.removeNode(SourceType::RecentSearches, int(library.searches().size()));
        library.removeAutosaveForTableColumnWithUID(QString::number(oldest.integer(keys::Id)));
    }
    library.setSource(SourceType::RecentSearches);
    library.addPlaylistWithTitle(request.searchString(), result, request.searchType());
    sources_.insertNode(SourceType::RecentSearches, 0, request.searchString(),
                        kindTagOfSearch(request.searchType()));
    // What plays from a recent search still does: that search is now one place further down.
    if (playback_.nowplayingSourceType() == int(SourceType::RecentSearches))
        playback_.setNowplayingPlaylistIndex(playback_.nowplayingPlaylistIndex() + 1);
    library.setCurrentPlaylistIndex(0);
}

void SearchFlow::searchFailedWithError(const QString& error, RVPlaylistDownloader& request)
{
    // Nobody has asked for the automatic lists, so nobody is told that they could not be had.
    const bool askedFor = request.searchType() != RVPlaylistDownloader::TopHot &&
                          request.searchType() != RVPlaylistDownloader::Recommended;
    release(request); // the text outlives it
    context_.window.setLoaderAnimating(false);
    if (askedFor)
        context_.notices.runErrorAlert(error);
    else
        qCWarning(log).noquote() << "no automatic list:" << error;
}

void SearchFlow::release(RVPlaylistDownloader& request)
{
    const auto found = std::find_if(requests_.begin(), requests_.end(),
                                    [&](const auto& owned) { return owned.get() == &request; });
    if (found != requests_.end())
        requests_.erase(found);
    else
        endedWhileStarting_.insert(&request);
}

} // namespace zib
