// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "services/RVPlaylistDownloader.h"

#include <functional>
#include <memory>
#include <set>
#include <vector>

namespace zib {

class PlaybackQueue;
struct ControllerContext;

/// From the text of the search field to the recent searches. Main thread.
class SearchFlow : public RVPlaylistDownloaderDelegate {
  public:
    static constexpr int searchesKept = 5;

    SearchFlow(ControllerContext& context, PlaybackQueue& playback, const WebServices& services);
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

    void searchCompletedWithResult(const QList<Record>& result, RVPlaylistDownloader& request) override;
    void searchFailedWithError(const QString& error, RVPlaylistDownloader& request) override;

  private:
    void begin(const std::function<std::unique_ptr<RVPlaylistDownloader>()>& makeRequest);
    void fileSearch(const QList<Record>& result, const RVPlaylistDownloader& request);
    void release(RVPlaylistDownloader& request);

    ControllerContext& context_;
    PlaybackQueue& playback_;
    WebServices services_;
    /// Every search under way: one that a newer search has overtaken is filed all the same.
    std::vector<std::unique_ptr<RVPlaylistDownloader>> requests_;
    /// Those that reported before they were in the list above.
    std::set<const RVPlaylistDownloader*> endedWhileStarting_;
};

} // namespace zib
