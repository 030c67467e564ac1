// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/SearchBar.h"

#include "views/BusyIndicator.h"
#include "views/Icons.h"
#include "views/Theme.h"

#include <QAbstractItemView>
#include <QButtonGroup>
#include <QCompleter>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QStringListModel>
#include <QStyledItemDelegate>

#include <algorithm>

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
    QAction* glass =
        field_->addAction(icon(QStringLiteral("search"), Tint::Secondary), QLineEdit::LeadingPosition);
    glass->setText(tr("Recent searches"));
    connect(glass, &QAction::triggered, this, &SearchBar::showTerms);
    useOwnClearIcon(*field_);
    field_->setMinimumWidth(140);
    busy_->move(busyPlace); // over the magnifying glass
    connect(field_, &QLineEdit::returnPressed, this, [this] { search(field_->text()); });

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
    // The Tab key leads to the chosen one, however it was chosen, and the arrows on from there.
    connect(types_, &QButtonGroup::idToggled, this, [this](int id, bool checked) {
        types_->button(id)->setFocusPolicy(checked ? Qt::StrongFocus : Qt::ClickFocus);
    });
    for (QAbstractButton* button : types_->buttons())
        button->setFocusPolicy(Qt::ClickFocus);
    types_->button(0)->setChecked(true);
    connect(types_, &QButtonGroup::idClicked, this, &SearchBar::searchTypeChosen);
    connect(types_, &QButtonGroup::idToggled, this, &SearchBar::offerTerms);
    return group;
}

// What was searched for before

void SearchBar::keepTermsIn(UserDefaults& defaults)
{
    terms_.emplace(defaults);
    offered_ = new QStringListModel(this);
    completer_ = new QCompleter(offered_, this);
    completer_->setCaseSensitivity(Qt::CaseInsensitive);
    completer_->setFilterMode(Qt::MatchContains);
    completer_->setMaxVisibleItems(RecentTerms::termsKept);
    field_->setCompleter(completer_);
    QAbstractItemView* list = completer_->popup();
    list->setObjectName(QStringLiteral("recentTerms"));
    list->setItemDelegate(new QStyledItemDelegate(list)); // which the style sheet gives its measures
    list->setAccessibleName(tr("Recent terms"));
    // The Return key is the field's own, into which the arrows have put the term.
    connect(list, &QAbstractItemView::clicked, this, [this](const QModelIndex& term) {
        const QString text = term.data().toString();
        field_->setText(text);
        search(text);
    });
    list->installEventFilter(this);
    field_->installEventFilter(this);
    offerTerms();
}

void SearchBar::search(const QString& text)
{
    if (terms_) {
        completer_->popup()->hide();
        terms_->add(text, types_->checkedId());
        // Later: the completer has not yet done with the key and the row that led here.
        QMetaObject::invokeMethod(this, &SearchBar::offerTerms, Qt::QueuedConnection);
    }
    Q_EMIT searchRequested(text);
}

void SearchBar::offerTerms()
{
    if (terms_)
        offered_->setStringList(terms_->terms(types_->checkedId()));
}

void SearchBar::showTerms()
{
    if (!terms_)
        return;
    field_->setFocus();
    completer_->setCompletionPrefix(field_->text());
    if (completer_->completionCount() == 0)
        completer_->setCompletionPrefix({}); // what stands there was searched for with another type
    completer_->complete();
}

void SearchBar::removeOfferedTerm()
{
    const QModelIndex chosen = completer_->popup()->currentIndex();
    const int row = chosen.row();
    terms_->remove(chosen.data().toString(), types_->checkedId());
    offerTerms();
    field_->clear();
    completer_->setCompletionPrefix({});
    if (completer_->completionCount() == 0) {
        completer_->popup()->hide();
        return;
    }
    completer_->complete();
    const int next = std::min(row, completer_->completionCount() - 1);
    completer_->popup()->setCurrentIndex(completer_->completionModel()->index(next, 0));
}

bool SearchBar::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        const bool isOffering = completer_->popup()->isVisible();
        if (watched == completer_->popup() && key == Qt::Key_Delete &&
            completer_->popup()->currentIndex().isValid()) {
            removeOfferedTerm();
            return true;
        }
        if (watched == field_ && key == Qt::Key_Down && !isOffering) {
            showTerms();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
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
