// SPDX-License-Identifier: GPL-3.0-or-later
#include "pages/PageFields.h"

#include <QCoreApplication>

namespace zib {

void PageFields::reset()
{
    for (QString* text : {&artist_, &album_, &track_, &bio_, &familiarity_, &hotness_, &lyrics_, &track_wiki_,
                          &album_wiki_, &mbid_})
        text->clear();
    tags_.clear();
    similar_.clear();
    blogs_.clear();
    news_.clear();
    reviews_.clear();
    videos_.clear();
    images_.clear();
    links_.clear();
    tracklist_.clear();
    label_ = date_ = type_ = QCoreApplication::translate("RVWebViewController", "Unknown");
    dataLoaded_ = false;
    replyCount_ = 0;
    imageIndex_ = 0;
}

} // namespace zib
