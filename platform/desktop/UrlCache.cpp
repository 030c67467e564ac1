// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/UrlCache.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QSaveFile>

namespace zib {

namespace {

constexpr quint32 kFormat = 0x5a434831; // changes when the layout does, so that old files are not misread
constexpr qsizetype kDigestBytes = 32;
constexpr qint64 kMostHeaderBytes = qint64{512} * 1024;

QByteArray digest(QByteArrayView bytes)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(bytes);
    return hash.result();
}

/// A digest, so that a file cut short or damaged is noticed, and what it covers.
QByteArray pack(const QByteArray& url, const CachedReply& reply)
{
    QByteArray payload;
    QDataStream stream(&payload, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_6_0);
    stream << kFormat << url << reply.response.status << reply.response.expectedContentLength
           << reply.response.headers << reply.body;
    return digest(payload) + payload;
}

std::optional<CachedReply> unpack(const QByteArray& url, const QByteArray& file)
{
    if (file.size() < kDigestBytes)
        return std::nullopt;
    const QByteArray payload = file.sliced(kDigestBytes);
    if (!file.startsWith(digest(payload)))
        return std::nullopt;
    QDataStream stream(payload);
    stream.setVersion(QDataStream::Qt_6_0);
    quint32 format = 0;
    QByteArray storedUrl;
    CachedReply reply;
    stream >> format;
    if (format != kFormat)
        return std::nullopt;
    stream >> storedUrl >> reply.response.status >> reply.response.expectedContentLength >>
        reply.response.headers >> reply.body;
    if (stream.status() != QDataStream::Ok || storedUrl != url)
        return std::nullopt;
    return reply;
}

} // namespace

UrlCache::UrlCache(QString folder, qint64 maximumBytes)
    : folder_(std::move(folder))
    , maximumBytes_(maximumBytes)
{
}

std::optional<CachedReply> UrlCache::find(const QByteArray& url)
{
    QFile file(pathOf(url));
    if (!file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly))
        return std::nullopt;
    std::optional<CachedReply> reply;
    if (file.size() <= maximumBodyBytes() + kMostHeaderBytes)
        reply = unpack(url, file.readAll());
    if (reply)
        file.setFileTime(nextUse(), QFileDevice::FileModificationTime);
    else
        remove(url);
    return reply;
}

void UrlCache::store(const QByteArray& url, const CachedReply& reply)
{
    if (reply.body.size() > maximumBodyBytes() || !QDir().mkpath(folder_))
        return;
    remove(url);
    const QByteArray packed = pack(url, reply);
    QSaveFile file(pathOf(url));
    if (!file.open(QIODevice::WriteOnly))
        return;
    file.write(packed);
    file.setFileTime(nextUse(), QFileDevice::FileModificationTime);
    if (!file.commit())
        return;
    if (bytes_ >= 0)
        bytes_ += packed.size();
    if (bytes_ < 0 || bytes_ > maximumBytes_)
        trim();
}

void UrlCache::remove(const QByteArray& url)
{
    QFile file(pathOf(url));
    const qint64 size = file.size();
    if (file.remove() && bytes_ >= 0)
        bytes_ -= size;
}

qint64 UrlCache::maximumBodyBytes() const
{
    return maximumBytes_ / 8;
}

QString UrlCache::pathOf(const QByteArray& url) const
{
    return folder_ + QLatin1Char('/') + QString::fromLatin1(digest(url).toHex());
}

/// Now, but later than ever before: the order of use must survive a coarse or wandering clock.
QDateTime UrlCache::nextUse()
{
    lastUse_ = std::max(QDateTime::currentDateTimeUtc(),
                        lastUse_.isValid() ? lastUse_.addMSecs(1) : QDateTime::fromMSecsSinceEpoch(0));
    return lastUse_;
}

void UrlCache::trim()
{
    const QFileInfoList files = QDir(folder_).entryInfoList(QDir::Files, QDir::Time); // newest first
    bytes_ = 0;
    for (const QFileInfo& file : files)
        bytes_ += file.size();
    if (bytes_ <= maximumBytes_)
        return;
    // Somewhat below the limit, so that not every reply has to make room again.
    const qint64 goal = maximumBytes_ - maximumBytes_ / 10;
    for (auto file = files.crbegin(); file != files.crend() && bytes_ > goal; ++file) {
        if (QFile::remove(file->filePath()))
            bytes_ -= file->size();
    }
}

} // namespace zib
