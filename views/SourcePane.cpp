// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/SourcePane.h"

#include "controller/RVMainController.h"
#include "library/RVDataManager.h"
#include "views/Icons.h"
#include "views/ListPanels.h"
#include "views/SourceListView.h"
#include "views/Theme.h"

#include <QAction>
#include <QBoxLayout>
#include <QMenu>
#include <QShortcut>
#include <QToolButton>

namespace zib {

namespace {

constexpr QKeyCombination newPlaylistKeys = Qt::CTRL | Qt::Key_N;
constexpr QKeyCombination fromSelectionKeys = Qt::CTRL | Qt::SHIFT | Qt::Key_N;
constexpr QKeyCombination revealKeys = Qt::CTRL | Qt::Key_R;

/// An entry of a menu beside which the keys stand that do the same. They belong to the window or to the list.
QAction* addEntry(QMenu& menu, const QString& text, const QKeySequence& keys)
{
    QAction* entry = menu.addAction(text);
    entry->setShortcut(keys);
    entry->setShortcutContext(Qt::WidgetShortcut);
    entry->setShortcutVisibleInContextMenu(true);
    return entry;
}

QToolButton* makeButton(const QString& iconName, const QString& name, const QString& tip, QWidget* parent)
{
    auto* button = new QToolButton(parent);
    button->setIcon(icon(iconName));
    button->setIconSize(QSize(16, 16));
    button->setAccessibleName(name);
    button->setToolTip(tip);
    button->setFocusPolicy(Qt::StrongFocus);
    return button;
}

} // namespace

SourcePane::SourcePane(QWidget* parent)
    : QWidget(parent)
    , list_(new SourceListView(this))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(list_, 1);
    layout->addWidget(makeButtons());
}

QWidget* SourcePane::makeButtons()
{
    auto* line = new QWidget(this);
    line->setObjectName(QStringLiteral("sourceButtons"));
    line->setAttribute(Qt::WA_StyledBackground);
    add_ = makeButton(
        QStringLiteral("add"), tr("New playlist"),
        tr("New playlist (%1)").arg(QKeySequence(newPlaylistKeys).toString(QKeySequence::NativeText)), line);
    QToolButton* gear =
        makeButton(QStringLiteral("gear"), tr("Playlist actions"), tr("What can be done with it"), line);
    actions_ = new QMenu(gear);
    actions_->setAccessibleName(gear->accessibleName());
    gear->setMenu(actions_);
    gear->setPopupMode(QToolButton::InstantPopup);
    auto* layout = new QHBoxLayout(line);
    layout->setContentsMargins(Theme::between, Theme::within, Theme::between, Theme::within);
    layout->setSpacing(Theme::within);
    layout->addWidget(add_);
    layout->addWidget(gear);
    layout->addStretch();
    return line;
}

void SourcePane::attach(RVMainController& controller)
{
    controller_ = &controller;
    list_->attach(controller.sources());
    connect(add_, &QToolButton::clicked, this, &SourcePane::addPlaylist);
    connect(list_, &SourceListView::playRequested, this,
            [&controller] { controller.sources().playSelectedSource(); });
    connect(list_, &SourceListView::menuRequested, this, &SourcePane::showMenu);
    connect(actions_, &QMenu::aboutToShow, this, [this] {
        actions_->clear();
        fillActions(*actions_);
    });
    const auto shortcut = [this](const QKeySequence& keys, auto action) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
    };
    shortcut(newPlaylistKeys, [this] { addPlaylist(); });
    shortcut(fromSelectionKeys, [&controller] { controller.addPlaylistFromSelectionAction(); });
    shortcut(revealKeys, [&controller] { controller.sources().revealCurrentTrack(); });
}

void SourcePane::addPlaylist()
{
    controller_->sources().addPlaylistAction();
    controller_->sources().editPlaylistAction(); // nobody wants it to be untitled
}

void SourcePane::fillActions(QMenu& menu)
{
    list_->reportSelection();
    SourceList& sources = controller_->sources();
    const auto add = [&menu, this](const QString& text, const QKeySequence& keys, bool enabled, auto action) {
        QAction* entry = addEntry(menu, text, keys);
        entry->setEnabled(enabled);
        connect(entry, &QAction::triggered, this, action);
    };
    add(tr("New playlist from selection"), fromSelectionKeys, !sources.selectedSongs().isEmpty(),
        [&sources] { sources.addPlaylistFromSelectionAction(); });
    add(tr("Rename"), Qt::Key_F2, sources.actionEnabled(), [&sources] { sources.editPlaylistAction(); });
    add(tr("Remove"), Qt::Key_Delete, sources.removeEnabled(),
        [&sources] { sources.removePlaylistAction(); });
    menu.addSeparator();
    addSharing(menu, sources.actionEnabled());
    menu.addSeparator();
    add(tr("Show the song that plays"), revealKeys, controller_->playback().snapshot().has_value(),
        [&sources] { sources.revealCurrentTrack(); });
}

void SourcePane::addSharing(QMenu& menu, bool enabled)
{
    const auto add = [&menu, enabled, this](const QString& text, int tag) {
        QAction* entry = menu.addAction(text);
        entry->setEnabled(enabled);
        connect(entry, &QAction::triggered, this,
                [this, tag] { controller_->sharing().sharePlaylistAction(tag); });
    };
    add(tr("Share…"), ShareWindowController::Plain);
    add(tr("Share on Facebook…"), ShareWindowController::Facebook);
    add(tr("Share on Twitter…"), ShareWindowController::Twitter);
    QAction* entry = menu.addAction(tr("Export playlist…"), this, &SourcePane::exportPlaylist);
    entry->setEnabled(enabled);
}

void SourcePane::exportPlaylist()
{
    const Record playlist = controller_->dataManager().currentPlaylist();
    const QString path = playlistExportPath(window(), playlist.string(keys::Name));
    if (!path.isEmpty())
        controller_->exportPlaylist(playlist, path);
}

void SourcePane::showMenu(const QPoint& at, bool ofRows)
{
    SourceList& sources = controller_->sources();
    QMenu menu(this);
    menu.setAccessibleName(tr("Source"));
    const auto add = [&menu, this](bool applies, const QString& text, const QKeySequence& keys, auto action) {
        if (applies)
            connect(addEntry(menu, text, keys), &QAction::triggered, this, action);
    };
    add(ofRows && sources.canPlaySelectedSource(), tr("Play"), Qt::Key_Return,
        [&sources] { sources.playSelectedSource(); });
    add(ofRows && sources.actionEnabled(), tr("Rename"), Qt::Key_F2,
        [&sources] { sources.editPlaylistAction(); });
    add(ofRows && sources.removeEnabled(), tr("Remove"), Qt::Key_Delete,
        [&sources] { sources.removePlaylistAction(); });
    if (ofRows && sources.actionEnabled()) {
        menu.addSeparator();
        addSharing(menu, true);
    }
    if (!menu.isEmpty())
        menu.addSeparator();
    add(true, tr("New playlist"), newPlaylistKeys, [this] { addPlaylist(); });
    menu.exec(at);
}

} // namespace zib
