// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/FileViewController.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace zib {

class OutlineView;
class WebView;

/// The picture in the now-playing panel.
enum class Artwork {
    SearchService, ///< nothing plays: the mark of the song search
    Standard,      ///< a song whose cover is not known
};

/// What the main area shows.
enum class MainView { None, NowPlaying, Songs };

/// What the controller shows in the main window. The status line is no part of it: the window shows the
/// setting "BriefStatusMessage" whenever that changes. Main thread.
class MainWindowView {
  public:
    virtual ~MainWindowView() = default;

    // Transport
    virtual void setPlaying(bool playing) = 0;
    virtual void setFavorite(bool loved) = 0;
    virtual void setFavoriteEnabled(bool enabled) = 0;
    /// Whether the song now playing is on disk, or on its way there.
    virtual void setDownloaded(bool downloaded) = 0;
    virtual void setDownloadEnabled(bool enabled) = 0;

    // Now-playing panel
    virtual void setArtwork(Artwork artwork) = 0;
    /// The same with a picture of the song's own.
    /// @param file as it came from the web; whatever it holds, the window stays as it is until it is read.
    virtual void setArtworkPicture(const QByteArray& file) = 0;
    virtual void setTickerHeader(const QString& text) = 0;
    virtual void setTickerText(const QString& text) = 0;
    /// @param percent 0 to 100.
    virtual void setProgress(int percent) = 0;
    virtual void setProgressEnabled(bool enabled) = 0;
    virtual void setElapsedText(const QString& text) = 0;
    virtual void setRemainingText(const QString& text) = 0;
    /// The mark that sound is streaming in.
    virtual void setStreamingMarkVisible(bool visible) = 0;

    // Search
    /// @param type 0 artist, 1 tags, 2 similar artists.
    virtual void setSearchType(int type) = 0;
    virtual void setSearchPlaceholder(const QString& text) = 0;
    /// The sign that something is being fetched.
    virtual void setLoaderAnimating(bool animating) = 0;

    /// Shows what is known of the opened songs until the user has edited it. The event loop runs meanwhile.
    /// @return what to save; nothing when the user changed their mind.
    [[nodiscard]] virtual std::optional<SongInformation> editInformation(FileViewController& songs) = 0;

    // Sources
    /// The source list's outline; it lives as long as the window.
    [[nodiscard]] virtual OutlineView& outlineView() = 0;
    /// The pane of the pages about the song now playing; it lives as long as the window.
    [[nodiscard]] virtual WebView& webView() = 0;
    virtual void setCurrentView(MainView view) = 0;
    /// The field at the right of the status line: what the shown songs are, or where the link under the mouse
    /// leads.
    virtual void setUrlFieldText(const QString& text) = 0;
    virtual void setConnected(bool connected) = 0;
};

} // namespace zib
