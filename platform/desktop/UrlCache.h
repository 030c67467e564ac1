// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/UrlConnection.h"

#include <QDateTime>

#include <optional>

namespace zib {

struct CachedReply {
    UrlResponse response;
    QByteArray body;
};

/// Web replies in a folder, one file each, by the bytes of their address. One thread. What can't be written
/// is not kept, and what can't be read was never there: a cache has no errors.
class UrlCache {
  public:
    /// @param maximumBytes what the files may take together; those used longest ago leave first.
    UrlCache(QString folder, qint64 maximumBytes);

    /// The reply stored last for the address, however long ago.
    [[nodiscard]] std::optional<CachedReply> find(const QByteArray& url);
    void store(const QByteArray& url, const CachedReply& reply);
    void remove(const QByteArray& url);
    /// A larger body is not worth the many replies that it would drive out.
    [[nodiscard]] qint64 maximumBodyBytes() const;

  private:
    [[nodiscard]] QString pathOf(const QByteArray& url) const;
    [[nodiscard]] QDateTime nextUse();
    void trim();

    const QString folder_;
    const qint64 maximumBytes_;
    qint64 bytes_ = -1; ///< of all files; -1 before they were counted
    QDateTime lastUse_;
};

} // namespace zib
