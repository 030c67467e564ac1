// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controller/MainWindowView.h"

#include <QFrame>
#include <QImage>

#include <functional>

class QLabel;

namespace zib {

class PictureReader;
class ProgressSlider;
class TextLabel;
class Ticker;

/// What plays: artwork, header line, ticker, and how far the song has got.
class NowPlayingPanel : public QFrame {
    Q_OBJECT

  public:
    explicit NowPlayingPanel(QWidget* parent = nullptr);

    void setArtwork(Artwork artwork);
    /// The same with a picture of the song's own; see MainWindowView.
    void setArtworkPicture(const QByteArray& file);
    void setHeader(const QString& text);
    void setTickerText(const QString& text);
    void setProgress(int percent);
    void setProgressEnabled(bool enabled);
    void setElapsedText(const QString& text);
    void setRemainingText(const QString& text);
    void setStreamingMarkVisible(bool visible);
    /// Where the length of the song, in seconds, is to be asked for, for the tip of the progress.
    void setDurationSource(std::function<int()> seconds) { duration_ = std::move(seconds); }

  Q_SIGNALS:
    /// The user wants to hear the song from there, in percent.
    void scanRequested(double percent);

  private:
    void showArtwork();
    void showStreamingMark();
    [[nodiscard]] QString timeAt(double percent) const;
    void changeEvent(QEvent* event) override;

    std::function<int()> duration_;
    Artwork artwork_ = Artwork::SearchService;
    QImage cover_; ///< shown in place of artwork_ unless it is null
    PictureReader* reader_;
    QLabel* picture_;
    TextLabel* header_;
    QLabel* streaming_;
    Ticker* ticker_;
    TextLabel* elapsed_;
    TextLabel* remaining_;
    ProgressSlider* progress_;
};

} // namespace zib
