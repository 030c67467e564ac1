// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/playlists/ListPages.h"

namespace zib {

std::optional<HttpReply> ListPages::page(const QString& key, qint64 changes)
{
    const std::lock_guard lock(mutex_);
    forgetOlder(changes);
    const auto* page = pages_.object(key);
    return page ? std::optional(*page) : std::nullopt;
}

void ListPages::keep(const QString& key, qint64 changes, const HttpReply& page)
{
    const std::lock_guard lock(mutex_);
    forgetOlder(changes);
    pages_.insert(key, new HttpReply(page), page.body.size() + key.size() * qsizetype(sizeof(QChar)));
}

// Not only greater numbers are new: a database may have been put back to what it was.
void ListPages::forgetOlder(qint64 changes)
{
    if (changes == changes_)
        return;
    pages_.clear();
    changes_ = changes;
}

} // namespace zib
