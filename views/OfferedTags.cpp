// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/OfferedTags.h"

#include "pages/SuggestedTags.h"
#include "views/Theme.h"

#include <QHBoxLayout>
#include <QPushButton>

namespace zib {

OfferedTags::OfferedTags(QWidget* parent)
    : QWidget(parent)
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Theme::between);
    for (const char* const name : suggestedTags) {
        const QString tag = QString::fromLatin1(name);
        auto* button = new QPushButton(tag, this);
        button->setObjectName(QStringLiteral("offeredTag"));
        button->setAccessibleName(tr("Find songs tagged %1").arg(tag));
        button->setToolTip(button->accessibleName());
        connect(button, &QPushButton::clicked, this, [this, tag] { Q_EMIT tagChosen(tag); });
        layout->addWidget(button);
    }
}

} // namespace zib
