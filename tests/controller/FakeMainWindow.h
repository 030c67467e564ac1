// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controller/MainWindowView.h"
#include "tests/fakes/FakeOutlineView.h"
#include "tests/fakes/FakeWebView.h"

namespace zib {

/// A window that keeps what it was last told to show.
class FakeMainWindow : public MainWindowView {
  public:
    void setPlaying(bool on) override { playing = on; }
    void setFavorite(bool on) override { favorite = on; }
    void setFavoriteEnabled(bool on) override { favoriteEnabled = on; }
    void setDownloaded(bool on) override { downloaded = on; }
    void setDownloadEnabled(bool on) override { downloadEnabled = on; }
    void setArtwork(Artwork picture) override
    {
        artwork = picture;
        artworkPicture.clear();
    }
    void setArtworkPicture(const QByteArray& file) override { artworkPicture = file; }
    void setTickerHeader(const QString& text) override { tickerHeader = text; }
    void setTickerText(const QString& text) override { tickerText = text; }
    void setProgress(int value) override { progress = value; }
    void setProgressEnabled(bool on) override { progressEnabled = on; }
    void setElapsedText(const QString& text) override { elapsed = text; }
    void setRemainingText(const QString& text) override { remaining = text; }
    void setStreamingMarkVisible(bool on) override { streamingMark = on; }
    void setSearchType(int type) override { searchType = type; }
    void setSearchPlaceholder(const QString& text) override { placeholder = text; }
    void setLoaderAnimating(bool on) override { loaderAnimating = on; }
    std::optional<SongInformation> editInformation(FileViewController& songs) override
    {
        ++informations;
        songs.textDidChange();
        return edited;
    }
    FakeOutlineView& outlineView() override { return outline; }
    FakeWebView& webView() override { return pages; }
    void setCurrentView(MainView view) override { shownView = view; }
    void setUrlFieldText(const QString& text) override { urlField = text; }
    void setConnected(bool on) override { connected = on; }

    bool playing = false;
    bool favorite = false;
    bool favoriteEnabled = false;
    bool downloaded = false;
    bool downloadEnabled = false;
    Artwork artwork = Artwork::Standard;
    QByteArray artworkPicture; ///< shown in place of artwork unless it is empty
    QString tickerHeader;
    QString tickerText;
    int progress = -1;
    bool progressEnabled = false;
    QString elapsed;
    QString remaining;
    bool streamingMark = false;
    int searchType = -1;
    QString placeholder;
    bool loaderAnimating = false;
    FakeWebView pages;
    QString urlField;
    int informations = 0;
    std::optional<SongInformation> edited; ///< what the user saves
    FakeOutlineView outline;
    MainView shownView = MainView::None;
    bool connected = false;
};

} // namespace zib
