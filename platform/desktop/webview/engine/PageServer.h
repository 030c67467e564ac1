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
    QUrl show(const QByteArray& html, const QString& folder, bool dark);
    void forget() { show({}, {}, dark_); }
    /// Where the page is.
    [[nodiscard]] QUrl address() const;

    void requestStarted(QWebEngineUrlRequestJob* job) override;

  private:
    struct File {
        QByteArray type;
        QByteArray bytes; ///< null when the folder has no such file for pages
    };
    /// A picture that is not there as pixels may be there as the drawing of its name.
    [[nodiscard]] File file(const QString& path) const;
    [[nodiscard]] QByteArray fileInFolder(const QString& path) const;

    QByteArray html_;
    QString folder_; ///< links resolved
    quint64 serial_ = 0;
    bool dark_ = false;
};

} // namespace zib
