// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/FilterField.h"

#include "controller/RVMainController.h"
#include "library/RVDataManager.h"
#include "views/Icons.h"

#include <QKeyEvent>

namespace zib {

FilterField::FilterField(QWidget* parent)
    : QLineEdit(parent)
{
    setObjectName(QStringLiteral("filterField"));
    setAccessibleName(tr("Filter"));
    setPlaceholderText(tr("Filter"));
    setToolTip(tr("Show only the songs that hold these words (Ctrl+Shift+F)"));
    setClearButtonEnabled(true);
    addAction(icon(QStringLiteral("filter"), Tint::Secondary), LeadingPosition)->setText(tr("Filter songs"));
    useOwnClearIcon(*this);
}

void FilterField::attach(RVMainController& controller)
{
    controller_ = &controller;
    connect(this, &QLineEdit::textChanged, this,
            [this] { controller_->dataManager().browser().setFilterText(text().simplified()); });
    connect(&controller.dataManager(), &RVDataManager::sourceChanged, this,
            [this] { setText(controller_->dataManager().browser().filterText()); });
}

void FilterField::focusInEvent(QFocusEvent* event)
{
    QLineEdit::focusInEvent(event);
    if (controller_)
        controller_->dataManager().browser().prepareFilterText();
}

void FilterField::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Escape:
        clear();
        Q_EMIT left();
        break;
    case Qt::Key_Down:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Q_EMIT left();
        break;
    default:
        QLineEdit::keyPressEvent(event);
    }
}

} // namespace zib
