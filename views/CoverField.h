// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include <optional>

class QLabel;
class QPushButton;

namespace zib {

class PictureReader;

/// The cover of songs' files: shows it, and lets it be replaced by a picture file or removed.
class CoverField : public QWidget {
    Q_OBJECT

  public:
    /// @param cover the bytes of a picture, none when there is none.
    /// @param canChange whether there are files that can keep another.
    CoverField(const QByteArray& cover, bool canChange, QWidget* parent);

    /// Puts the picture file in the cover's place; one that is none, or is too large, is refused with a word
    /// to the user.
    void take(const QString& path);
    /// The new cover, empty when it was removed; nothing when it stays.
    [[nodiscard]] const std::optional<QByteArray>& newCover() const { return newCover_; }

  Q_SIGNALS:
    void changed();

  protected:
    void changeEvent(QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void choose();
    void setCover(const QByteArray& cover);
    void showCover(const QByteArray& cover);
    void showNone();

    bool hasPicture_ = false;
    std::optional<QByteArray> newCover_;
    PictureReader* reader_;
    QLabel* picture_;
    QPushButton* replace_;
    QPushButton* remove_;
    QLabel* wrong_;
};

} // namespace zib
