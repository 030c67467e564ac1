// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/SearchBar.h"

#include "views/BusyIndicator.h"
#include "views/Icons.h"
#include "views/Theme.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

namespace zib {

namespace {

constexpr QPoint busyPlace(6, 3);

} // namespace

SearchBar::SearchBar(QWidget* parent)
    : QWidget(parent)
    , types_(new QButtonGroup(this))
    , field_(new QLineEdit(this))
    , busy_(new BusyIndicator(field_))
{
    field_->setObjectName(QStringLiteral("searchField"));
    field_->setAccessibleName(tr("Search"));
    field_->setClearButtonEnabled(true);
    field_->addAction(icon(QStringLiteral("search"), Tint::Secondary), QLineEdit::LeadingPosition);
    useOwnClearIcon(*field_);
    field_->setMinimumWidth(140);
    busy_->move(busyPlace); // over the magnifying glass
    connect(field_, &QLineEdit::returnPressed, this, [this] { Q_EMIT searchRequested(field_->text()); });

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Theme::between);
    layout->addWidget(makeSegments(), 0, Qt::AlignVCenter);
    layout->addWidget(field_, 1);
}

QWidget* SearchBar::makeSegments()
{
    auto* group = new QWidget(this);
    group->setObjectName(QStringLiteral("segments"));
    group->setAttribute(Qt::WA_StyledBackground);
    group->setAccessibleName(tr("Search type"));
    auto* layout = new QHBoxLayout(group);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    const std::pair<QString, QString> segments[] = {
        {tr("Artist"), tr("Find songs by artist")},
        {tr("Tags"), tr("Find songs by tag(s, separated by comma)")},
        {tr("Similar"), tr("Find songs by similar artists")}};
    for (const auto& [title, tip] : segments) {
        auto* button = new QPushButton(title, group);
        button->setCheckable(true);
        button->setAutoExclusive(true);
        button->setAutoDefault(false);
        button->setToolTip(tip);
        button->setAccessibleDescription(tip);
        types_->addButton(button, layout->count());
        layout->addWidget(button);
    }
    types_->button(0)->setChecked(true);
    connect(types_, &QButtonGroup::idClicked, this, &SearchBar::searchTypeChosen);
    return group;
}

void SearchBar::setSearchType(int type)
{
    if (auto* button = types_->button(type))
        button->setChecked(true);
}

void SearchBar::setPlaceholder(const QString& text)
{
    field_->setPlaceholderText(text);
}

void SearchBar::setBusy(bool busy)
{
    busy_->setBusy(busy);
}

void SearchBar::focusField()
{
    field_->setFocus(Qt::ShortcutFocusReason);
    field_->selectAll();
}

} // namespace zib
