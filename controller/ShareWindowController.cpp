// SPDX-License-Identifier: GPL-3.0-or-later
#include "controller/ShareWindowController.h"

#include "platform/ShareWindow.h"

#include <QStringList>

namespace zib {

namespace {

QString notNull(const QString& text)
{
    return text.isNull() ? QStringLiteral("") : text;
}

} // namespace

ShareWindowController::ShareWindowController(ShareWindow& window, ShareWindowControllerDelegate& delegate,
                                             int tag)
    : window_(window)
    , delegate_(delegate)
    , tag_(tag)
{
}

void ShareWindowController::showWindow()
{
    const auto entered = window_.runModal({title_, description_, tagstring_, userName_});
    if (!entered)
        return;
    const QLatin1Char separator(',');
    title_ = notNull(entered->title);
    description_ = notNull(entered->description);
    tagstring_ = notNull(entered->tags.split(separator).mid(0, tagsKept).join(separator));
    if (userName_)
        userName_ = entered->userName;
    delegate_.performShare(*this);
}

} // namespace zib
