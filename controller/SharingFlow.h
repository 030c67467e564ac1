// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controller/ShareWindowController.h"
#include "records/Record.h"
#include "services/RVPlaylistUploader.h"

#include <memory>

namespace zib {

class Desktop;
class Pasteboard;
class RVBusyPanel;
class SourceList;
struct ControllerContext;

/// What sharing needs of the world beyond the other parts. All of it outlives them.
struct SharingPorts {
    ShareWindow& window;
    Pasteboard& pasteboard;
    RVBusyPanel& busyPanel;
};

/// Publishes playlists, passes their links on, and opens what others have published. Main thread.
class SharingFlow : public ShareWindowControllerDelegate, public RVPlaylistUploaderDelegate {
  public:
    static constexpr int mostSongs = 50;

    SharingFlow(ControllerContext& context, SourceList& sources, const WebServices& services,
                Desktop& desktop, const SharingPorts& ports);
    ~SharingFlow() override;

    /// Asks for the details of sharing the selected playlist and publishes it. Nothing happens while another
    /// one is on its way. @param tag a ShareWindowController::Tag.
    void sharePlaylistAction(int tag);
    /// Fetches a published playlist and adds it to the user's. Waits for the service, up to ten seconds.
    void openSharedPlaylist(const QString& identifier);

  private:
    void performShare(ShareWindowController& window) override;
    void uploadCompletedWithResult(const QString& result, RVPlaylistUploader& request) override;
    void uploadFailedWithError(const QString& error, RVPlaylistUploader& request) override;

    [[nodiscard]] QList<Record> songsOfPlaylist() const;
    /// The songs that others can play, without what is nobody else's business.
    [[nodiscard]] QList<Record> sharedSongs() const;
    void keepUserName(const ShareWindowController& window);
    [[nodiscard]] Record uploadRecord(const ShareWindowController& window, const QList<Record>& songs) const;
    void keepDetails(const ShareWindowController& window);
    void upload(const Record& record, int tag);
    void passOn(const QString& link, int tag);
    void openOn(const QString& siteKey, const QString& pathAndQuery, const QString& link);

    ControllerContext& context_;
    SourceList& sources_;
    WebServices services_;
    Desktop& desktop_;
    SharingPorts ports_;
    std::unique_ptr<ShareWindowController> shareWindow_;
    Record playlist_; ///< the one that is being shared: another may be selected meanwhile
    std::unique_ptr<RVPlaylistUploader> uploader_;
    bool uploading_ = false;
};

} // namespace zib
