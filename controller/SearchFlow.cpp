// SPDX-License-Identifier: GPL-3.0-or-later
#include "controller/SearchFlow.h"

#include "controller/ControllerContext.h"
#include "controller/MainWindowView.h"
#include "controller/Notices.h"
#include "controller/PlaybackQueue.h"
#include "library/RVDataManager.h"
#include "platform/SettingsKeys.h"
#include "platform/UserDefaults.h"
#include "records/Record.h"

#include <QCoreApplication>

#include <algorithm>

namespace zib {

namespace {

enum SearchFieldType { ByArtist = 0, ByTags = 1, BySimilarArtists = 2 };

constexpr int tagsSearched = 5;

} // namespace

SearchFlow::SearchFlow(ControllerContext& context, PlaybackQueue& playback, const WebServices& services)
    : context_(context)
    , playback_(playback)
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

void SearchFlow::searchCompletedWithResult(const QList<Record>& result, RVPlaylistDownloader& request)
{
    fileSearch(result, request);
    release(request);
    context_.window.setLoaderAnimating(false);
}

void SearchFlow::fileSearch(const QList<Record>& result, const RVPlaylistDownloader& request)
{
    RVDataManager& library = context_.dataManager;
    while (library.searches().size() >= searchesKept) {
        const Record oldest = library.searches().takeLast();
        library.removeAutosaveForTableColumnWithUID(QString::number(oldest.integer(keys::Id)));
    }
    library.setSource(SourceType::RecentSearches);
    library.addPlaylistWithTitle(request.searchString(), result, request.searchType());
    // What plays from a recent search still does: that search is now one place further down.
    if (playback_.nowplayingSourceType() == int(SourceType::RecentSearches))
        playback_.setNowplayingPlaylistIndex(playback_.nowplayingPlaylistIndex() + 1);
    library.setCurrentPlaylistIndex(0);
    context_.window.reloadSources();
}

void SearchFlow::searchFailedWithError(const QString& error, RVPlaylistDownloader& request)
{
    release(request); // the text outlives it
    context_.window.setLoaderAnimating(false);
    context_.notices.runErrorAlert(error);
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
