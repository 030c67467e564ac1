// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/HttpMessage.h"

#include <QCache>

#include <mutex>

namespace zib {

/// The pages with lists that were asked for lately, as long as nothing has been published since: nearly all
/// who look at a list look at the same few. Any thread.
class ListPages {
  public:
    /// @param changes PlaylistStore::changes() of now
    std::optional<HttpReply> page(const QString& key, qint64 changes);
    /// @param changes what the store said before the page was made
    void keep(const QString& key, qint64 changes, const HttpReply& page);

  private:
    void forgetOlder(qint64 changes);

    static constexpr int mostBytes = 4 * 1024 * 1024;

    std::mutex mutex_; ///< guards what follows
    qint64 changes_ = 0;
    QCache<QString, HttpReply> pages_{mostBytes};
};

} // namespace zib
