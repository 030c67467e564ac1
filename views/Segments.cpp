// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/Segments.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QPushButton>

namespace zib {

Segments::Segments(const QString& accessibleName, QWidget* parent)
    : QWidget(parent)
    , buttons_(new QButtonGroup(this))
{
    setObjectName(QStringLiteral("segments"));
    setAttribute(Qt::WA_StyledBackground);
    setAccessibleName(accessibleName);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    connect(buttons_, &QButtonGroup::idToggled, this, [this](int number, bool checked) {
        buttons_->button(number)->setFocusPolicy(checked ? Qt::StrongFocus : Qt::ClickFocus);
        if (checked)
            Q_EMIT chosenChanged(number);
    });
    connect(buttons_, &QButtonGroup::idClicked, this, &Segments::pressed);
}

void Segments::addSegment(const QString& title, const QString& tip)
{
    auto* button = new QPushButton(title, this);
    button->setCheckable(true);
    button->setAutoExclusive(true);
    button->setAutoDefault(false);
    button->setFocusPolicy(Qt::ClickFocus);
    button->setToolTip(tip);
    button->setAccessibleDescription(tip);
    const int number = layout()->count();
    buttons_->addButton(button, number);
    layout()->addWidget(button);
    if (number == 0)
        button->setChecked(true);
}

void Segments::setChosen(int number)
{
    if (auto* button = buttons_->button(number))
        button->setChecked(true);
}

int Segments::chosen() const
{
    return buttons_->checkedId();
}

} // namespace zib
