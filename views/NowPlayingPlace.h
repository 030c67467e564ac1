// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controller/MainWindowView.h"

#include <QImage>
#include <QStackedWidget>

class QLabel;

namespace zib {

class EmptyPlace;
class PictureReader;
class RVMainController;
class TextLabel;

/// The main area while it shows the song now playing, large; without one, how to get one.
class NowPlayingPlace : public QStackedWidget {
    Q_OBJECT

  public:
    explicit NowPlayingPlace(QWidget* parent = nullptr);

    void attach(RVMainController& controller);
    /// The song has no cover that is known.
    void setArtwork();
    /// @param file as it came from the web.
    void setArtworkPicture(const QByteArray& file);

  private:
    QWidget* makeSong();
    void showSong();
    void showArtwork();
    void changeEvent(QEvent* event) override;

    RVMainController* controller_ = nullptr;
    PictureReader* reader_;
    QImage cover_;
    QLabel* picture_ = nullptr;
    TextLabel* title_ = nullptr;
    TextLabel* artist_ = nullptr;
    TextLabel* album_ = nullptr;
    QWidget* song_;
    EmptyPlace* empty_;
};

} // namespace zib
