// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/webview/engine/PageServer.h"

#include "platform/desktop/webview/engine/PageAddresses.h"
#include "platform/desktop/webview/engine/PageHead.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QWebEngineUrlRequestJob>

#include <array>
#include <memory>
#include <utility>

namespace zib {
namespace {

constexpr qint64 kMaxFileBytes = 16 * 1024 * 1024;

/// Null for what has no business in a page.
QByteArray contentType(const QString& path)
{
    static const std::array<std::pair<QLatin1String, const char*>, 5> types{{
        {QLatin1String(".png"), "image/png"},
        {QLatin1String(".jpg"), "image/jpeg"},
        {QLatin1String(".svg"), "image/svg+xml"},
        {QLatin1String(".css"), "text/css"},
        {QLatin1String(".js"), "text/javascript"},
    }};
    for (const auto& [ending, type] : types)
        if (path.endsWith(ending))
            return type;
    return {};
}

void reply(QWebEngineUrlRequestJob& job, const QByteArray& type, const QByteArray& bytes)
{
    // Read on another thread for as long as the request lives.
    auto buffer = std::make_unique<QBuffer>();
    buffer->setData(bytes);
    QObject::connect(&job, &QObject::destroyed, buffer.get(), &QObject::deleteLater);
    job.reply(type, buffer.release());
}

} // namespace

QUrl PageServer::show(const QByteArray& html, const QString& folder, bool dark)
{
    dark_ = dark;
    html_ = html;
    folder_ = QFileInfo(folder).canonicalFilePath();
    ++serial_;
    return address();
}

QUrl PageServer::address() const
{
    return QUrl(QString::fromLatin1(pageRoot(dark_) + '?' + QByteArray::number(serial_)));
}

QByteArray PageServer::fileInFolder(const QString& path) const
{
    // An empty folder would be the root of all.
    const QString real = QFileInfo(folder_ + path).canonicalFilePath();
    if (folder_.isEmpty() || !real.startsWith(folder_ + QLatin1Char('/')))
        return {};
    QFile file(real);
    if (!QFileInfo(real).isFile() || file.size() > kMaxFileBytes || !file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll();
}

PageServer::File PageServer::file(const QString& path) const
{
    const QByteArray type = contentType(path);
    if (type.isNull())
        return {};
    const QByteArray bytes = fileInFolder(path);
    if (type == "text/javascript")
        return {type, inLanguage(bytes)};
    if (!bytes.isNull() || !type.startsWith("image/"))
        return {type, bytes};
    const QString drawing = path.left(path.lastIndexOf(QLatin1Char('.'))) + QLatin1String(".svg");
    return {contentType(drawing), inLanguage(inColorScheme(fileInFolder(drawing), dark_))};
}

void PageServer::requestStarted(QWebEngineUrlRequestJob* job)
{
    const QUrl url = job->requestUrl();
    if (isWeb(job->initiator()) || job->requestMethod() != "GET") {
        job->fail(QWebEngineUrlRequestJob::RequestDenied);
        return;
    }
    if (url.adjusted(QUrl::RemoveFragment) == address()) {
        reply(*job, "text/html;charset=utf-8", html_);
        return;
    }
    const File found = file(url.path());
    if (found.bytes.isNull())
        job->fail(QWebEngineUrlRequestJob::UrlNotFound);
    else
        reply(*job, found.type, found.bytes);
}

} // namespace zib
