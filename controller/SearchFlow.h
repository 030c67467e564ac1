// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/SourceTypes.h"
#include "services/RVPlaylistDownloader.h"

#include <functional>
#include <memory>
#include <set>
#include <vector>

namespace zib {

class PlaybackQueue;
class SourceListing;
struct ControllerContext;

/// From the text of the search field to the recent searches, and the songs of "What's Hot?" and
/// "Recommended". Main thread.
class SearchFlow : public RVPlaylistDownloaderDelegate {
  public:
    static constexpr int searchesKept = 5;

    SearchFlow(ControllerContext& context, PlaybackQueue& playback, SourceListing& sources,
               const WebServices& services);
    ~SearchFlow() override;

    /// The search type as the setting has it, shown in the window.
    void showSearchType();
    /// @param type 0 artist, 1 tags, 2 similar artists.
    void radioTypeSelected(int type);
    /// Searches for the text of the search field by the chosen type; an empty text is ignored.
    void performSearchAction(const QString& text);
    void beginSearchForArtists(const QStringList& artists);
    /// The first five tags count.
    void beginSearchForTags(const QStringList& tags);

    /// The machine came online: asks for the songs of "What's Hot?" and "Recommended" where their rows cannot
    /// be selected yet.
    void connectedToInternetNotification();
    /// The machine went offline: those rows cannot be selected until their songs have been asked for anew.
    void disconnectedFromInternetNotification();

    void searchCompletedWithResult(const QList<Record>& found, RVPlaylistDownloader& request) override;
    void searchFailedWithError(const QString& error, RVPlaylistDownloader& request) override;

  private:
    void begin(const std::function<std::unique_ptr<RVPlaylistDownloader>()>& makeRequest);
    void fileSearch(const QList<Record>& result, const RVPlaylistDownloader& request);
    void beginAutomaticLists();
    void showConnectivity();
    void fillList(SourceType list, const QList<Record>& songs);
    void enableList(SourceType list);
    [[nodiscard]] bool isUnderWay(RVPlaylistDownloader::SearchType type) const;
    void release(RVPlaylistDownloader& request);

    ControllerContext& context_;
    PlaybackQueue& playback_;
    SourceListing& sources_;
    WebServices services_;
    /// Every search under way: one that a newer search has overtaken is filed all the same.
    std::vector<std::unique_ptr<RVPlaylistDownloader>> requests_;
    /// Those that reported before they were in the list above.
    std::set<const RVPlaylistDownloader*> endedWhileStarting_;
};

} // namespace zib
