// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QObject>
#include <QPixmap>

#include <map>
#include <thread>

namespace zib {

/// The picture with round corners. @param corner their radius in pixels of the window.
[[nodiscard]] QPixmap roundedPicture(const QImage& picture, qreal corner, qreal devicePixelRatio);

/// Reads pictures that came from outside, on threads of its own, so that none can hold the window up. Main
/// thread.
class PictureReader : public QObject {
    Q_OBJECT

  public:
    explicit PictureReader(QObject* parent = nullptr);
    /// Waits for what is being read.
    ~PictureReader() override;

    /// Reads the file in place of the one before.
    /// @param pixels the size wanted: the picture's middle fills it.
    void read(const QByteArray& file, QSize pixels);
    /// Nothing follows any more of what is being read.
    void cancel() { ++latest_; }

  Q_SIGNALS:
    /// @param picture null when the file holds none that can be read.
    void finished(const QImage& picture);

  private:
    void deliver(int number, const QImage& picture);

    int latest_ = 0;
    std::map<int, std::thread> threads_;
};

} // namespace zib
