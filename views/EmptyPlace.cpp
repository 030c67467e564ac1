// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/EmptyPlace.h"

#include "views/OfferedTags.h"
#include "views/Theme.h"

#include <QLabel>
#include <QVBoxLayout>

namespace zib {

namespace {

constexpr int textWidth = 400;

} // namespace

EmptyPlace::EmptyPlace(QWidget* parent)
    : QWidget(parent)
    , title_(new QLabel(this))
    , text_(new QLabel(this))
{
    setObjectName(QStringLiteral("emptyPlace"));
    setAttribute(Qt::WA_StyledBackground);
    title_->setObjectName(QStringLiteral("emptyTitle"));
    title_->setAlignment(Qt::AlignCenter);
    text_->setObjectName(QStringLiteral("emptyText"));
    text_->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    text_->setWordWrap(true);
    text_->setFixedWidth(textWidth);
    auto* tags = new OfferedTags(this);
    connect(tags, &OfferedTags::tagChosen, this, &EmptyPlace::tagChosen);
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(Theme::between);
    layout->addStretch(2);
    layout->addWidget(title_, 0, Qt::AlignHCenter);
    layout->addWidget(text_, 0, Qt::AlignHCenter);
    layout->addSpacing(Theme::between);
    layout->addWidget(tags, 0, Qt::AlignHCenter);
    layout->addStretch(3);
}

void EmptyPlace::say(const QString& title, const QString& text)
{
    title_->setText(title);
    text_->setText(text);
    text_->ensurePolished(); // its font decides how high it is
    text_->setFixedHeight(text_->heightForWidth(textWidth));
}

} // namespace zib
