// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>
#include <QWebEngineUrlSchemeHandler>

namespace zib {

/// Serves the page that is shown, of any size, and the files of its folder.
class PageServer : public QWebEngineUrlSchemeHandler {
    Q_OBJECT

  public:
    using QWebEngineUrlSchemeHandler::QWebEngineUrlSchemeHandler;

    /// @return where the page is from now on; the one before is gone.
    QUrl show(const QByteArray& html, const QString& folder);
    void forget() { show({}, {}); }
    /// Where the page is.
    [[nodiscard]] QUrl address() const;

    void requestStarted(QWebEngineUrlRequestJob* job) override;

  private:
    /// @return null when the folder has no such file for pages.
    [[nodiscard]] QByteArray fileInFolder(const QString& path) const;

    QByteArray html_;
    QString folder_; ///< links resolved
    quint64 serial_ = 0;
};

} // namespace zib
