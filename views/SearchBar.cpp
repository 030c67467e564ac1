// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/SearchBar.h"

#include "views/BusyIndicator.h"
#include "views/Icons.h"
#include "views/Segments.h"
#include "views/Theme.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QStringListModel>
#include <QStyledItemDelegate>
#include <QToolButton>

#include <algorithm>

namespace zib {

SearchBar::SearchBar(QWidget* parent)
    : QWidget(parent)
    , types_(makeTypes())
    , field_(new QLineEdit(this))
    , busy_(new BusyIndicator(this))
{
    field_->setObjectName(QStringLiteral("searchField"));
    field_->setAccessibleName(tr("Search"));
    QAction* glass =
        field_->addAction(icon(QStringLiteral("search"), Tint::Secondary), QLineEdit::LeadingPosition);
    glass->setText(tr("Recent searches"));
    connect(glass, &QAction::triggered, this, &SearchBar::showTerms);
    auto* over = new QHBoxLayout(field_->findChild<QToolButton*>()); // which the glass has made
    over->setContentsMargins(0, 0, 0, 0);
    over->addWidget(busy_, 0, Qt::AlignCenter);
    field_->setClearButtonEnabled(true);
    useOwnClearIcon(*field_);
    field_->setMinimumWidth(140);
    connect(field_, &QLineEdit::returnPressed, this, [this] { search(field_->text()); });

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Theme::between);
    layout->addWidget(types_, 0, Qt::AlignVCenter);
    layout->addWidget(field_, 1);
}

Segments* SearchBar::makeTypes()
{
    auto* types = new Segments(tr("Search type"), this);
    types->addSegment(tr("Artist"), tr("Find songs by artist"));
    types->addSegment(tr("Tags"), tr("Find songs by tag(s, separated by comma)"));
    types->addSegment(tr("Similar"), tr("Find songs by similar artists"));
    connect(types, &Segments::pressed, this, &SearchBar::searchTypeChosen);
    connect(types, &Segments::chosenChanged, this, &SearchBar::offerTerms);
    return types;
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
        terms_->add(text, types_->chosen());
        // Later: the completer has not yet done with the key and the row that led here.
        QMetaObject::invokeMethod(this, &SearchBar::offerTerms, Qt::QueuedConnection);
    }
    Q_EMIT searchRequested(text);
}

void SearchBar::offerTerms()
{
    if (terms_)
        offered_->setStringList(terms_->terms(types_->chosen()));
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
    terms_->remove(chosen.data().toString(), types_->chosen());
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
    types_->setChosen(type);
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
