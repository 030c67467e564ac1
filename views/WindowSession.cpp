// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/WindowSession.h"

#include "controller/RVMainController.h"
#include "library/RVDataManager.h"
#include "platform/SettingsKeys.h"
#include "platform/UserDefaults.h"
#include "views/LibraryPanes.h"
#include "views/SongTable.h"
#include "views/SourceListView.h"

#include <QApplication>
#include <QEvent>
#include <QScrollBar>
#include <QSplitter>

#include <algorithm>
#include <chrono>
#include <utility>

using namespace std::chrono_literals;

namespace zib {
namespace {

/// Scrolling changes the place many times a second; with the delay of the settings file it is on disk in one.
constexpr auto saveDelay = 400ms;
constexpr int widestSources = 600;
constexpr int widestBrowser = 1000;

/// The setting that silences what is said when that source is chosen; empty where nothing is.
QString noticeOf(SourceType source)
{
    switch (source) {
    case SourceType::TopHot:
        return settings::SupressDialogTopHot;
    case SourceType::Recommended:
        return settings::SupressDialogRecommended;
    default:
        return {};
    }
}

} // namespace

WindowSession::WindowSession(UserDefaults& defaults, const Parts& parts)
    : defaults_(defaults)
    , parts_(parts)
{
    saveSoon_.setSingleShot(true);
    connect(&saveSoon_, &QTimer::timeout, this, &WindowSession::save);
    const int sources = std::min(defaults_.integer(settings::SourceListWidth), widestSources);
    if (sources > 0)
        parts_.panes.setSizes({sources, parts_.panes.sizes().value(1)});
    const int artists = std::min(defaults_.integer(settings::ArtistsWidth), widestBrowser);
    const int albums = std::min(defaults_.integer(settings::AlbumsWidth), widestBrowser);
    if (artists > 0 && albums > 0)
        parts_.library.setBrowserWidths(artists, albums);
}

bool WindowSession::restoreGeometry()
{
    const auto geometry = QByteArray::fromBase64(defaults_.string(settings::WindowGeometry).toLatin1());
    return !geometry.isEmpty() && parts_.window.restoreGeometry(geometry);
}

void WindowSession::attach(RVMainController& controller)
{
    controller_ = &controller;
    connect(&controller.playback(), &QObject::destroyed, this, [this] {
        controller_ = nullptr;
        saveSoon_.stop();
    });
    connect(qApp, &QCoreApplication::aboutToQuit, this, &WindowSession::save);
    QMetaObject::invokeMethod(this, &WindowSession::restorePlace, Qt::QueuedConnection);
}

// Bringing back

void WindowSession::restorePlace()
{
    if (!controller_)
        return;
    const Place place{.source = sourceNamed(defaults_.string(settings::SelectedSource)),
                      .artist = defaults_.string(settings::SelectedArtist),
                      .album = defaults_.string(settings::SelectedAlbum),
                      .song = defaults_.string(settings::SelectedSong),
                      .scrolled = defaults_.integer(settings::SongsScrolled)};
    watch();
    if (place.source.isEmpty() || !isAtStart()) // something else was asked for at the start
        return;
    // Their notice would stand in the way of whoever has just started the program.
    const QString notice = noticeOf(SourceType(place.source.first()));
    if (!notice.isEmpty() && !defaults_.boolean(notice))
        return;
    if (controller_->sources().shouldSelectItem(place.source))
        show(place);
    else
        awaited_ = place;
}

bool WindowSession::isAtStart() const
{
    return controller_->sources().categoryOfSelectedNode() == int(SourceType::NowPlaying);
}

void WindowSession::show(const Place& place)
{
    controller_->sources().select(place.source);
    TrackBrowser& browser = controller_->dataManager().browser();
    if (browser.hasBrowser() && !place.artist.isEmpty())
        browser.selectArtist(place.artist);
    if (browser.hasBrowser() && !place.album.isEmpty())
        browser.selectAlbum(place.album);
    if (!place.song.isEmpty())
        browser.selectSong(place.song.toStdString());
    // The table knows its height only when the window has been laid out.
    QTimer::singleShot(0, this, [this, scrolled = place.scrolled] {
        parts_.library.songTable().verticalScrollBar()->setValue(scrolled);
    });
}

/// The songs of "What's Hot?" and "Recommended" come from the web after the start.
void WindowSession::showAwaited()
{
    if (!controller_ || awaited_.source.isEmpty())
        return;
    if (!isAtStart())
        awaited_ = {};
    else if (controller_->sources().shouldSelectItem(awaited_.source))
        show(std::exchange(awaited_, {}));
}

// Keeping

void WindowSession::watch()
{
    const auto soon = [this] {
        if (controller_ && !saveSoon_.isActive())
            saveSoon_.start(saveDelay);
    };
    parts_.window.installEventFilter(this);
    connect(&parts_.panes, &QSplitter::splitterMoved, this, soon);
    connect(&parts_.library.panes(), &QSplitter::splitterMoved, this, soon);
    connect(parts_.sources.selectionModel(), &QItemSelectionModel::selectionChanged, this, soon);
    connect(parts_.sources.selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &WindowSession::showAwaited, Qt::QueuedConnection);
    connect(parts_.sources.model(), &QAbstractItemModel::dataChanged, this, &WindowSession::showAwaited,
            Qt::QueuedConnection);
    const auto tables = parts_.library.findChildren<RowTable*>();
    for (const RowTable* table : tables)
        connect(table->selectionModel(), &QItemSelectionModel::selectionChanged, this, soon);
    connect(parts_.library.songTable().verticalScrollBar(), &QScrollBar::valueChanged, this, soon);
}

bool WindowSession::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::WindowStateChange:
        if (controller_ && !saveSoon_.isActive())
            saveSoon_.start(saveDelay);
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void WindowSession::save()
{
    saveSoon_.stop();
    keep(settings::WindowGeometry, QString::fromLatin1(parts_.window.saveGeometry().toBase64()));
    savePanes();
    if (controller_ && awaited_.source.isEmpty())
        savePlace();
}

void WindowSession::keep(const QString& key, const QVariant& value)
{
    if (defaults_.value(key) != value) // what stays the same is not written again
        defaults_.setValue(key, value);
}

void WindowSession::savePanes()
{
    if (!parts_.window.isVisible())
        return;
    keep(settings::SourceListWidth, parts_.panes.sizes().value(0));
    if (!parts_.library.panes().widget(0)->isVisible())
        return; // the songs fill the place
    const QList<int> widths = parts_.library.panes().sizes();
    keep(settings::ArtistsWidth, widths[0]);
    keep(settings::AlbumsWidth, widths[1]);
}

void WindowSession::savePlace()
{
    const QList<NodePath> selected = controller_->sources().tree().selectedPaths();
    if (selected.size() != 1)
        return;
    keep(settings::SelectedSource, nameOf(selected.first()));
    if (isAtStart())
        return; // no songs are shown
    const RVDataManager& library = controller_->dataManager();
    const IndexPath chosen = library.currentIndexPath();
    const bool browsed = library.sourceHasBrowser();
    keep(settings::SelectedArtist,
         browsed && chosen.artist > 0 ? library.allArtists().value(chosen.artist) : QString());
    keep(settings::SelectedAlbum,
         browsed && chosen.album > 0 ? library.allAlbums().value(chosen.album) : QString());
    const SongTable& table = parts_.library.songTable();
    const Record song = library.items().value(table.selectedRow());
    keep(settings::SelectedSong, song ? song.string(keys::Id) : QString());
    keep(settings::SongsScrolled, table.verticalScrollBar()->value());
}

/// Under which it is found again after its row has moved: its kind, and which of the lists it is.
QString WindowSession::nameOf(const NodePath& source) const
{
    const auto node = controller_->sources().tree().nodeAt(source);
    if (!node || node->urlString().isEmpty())
        return {};
    const RVDataManager& library = controller_->dataManager();
    switch (SourceType(source.first())) {
    case SourceType::RecentSearches:
        return QStringLiteral("search %1").arg(library.searches().value(source.value(1)).integer(keys::Id));
    case SourceType::Playlists:
        return QStringLiteral("playlist %1")
            .arg(library.playlists().value(source.value(1)).integer(keys::Id));
    default:
        return node->urlString();
    }
}

/// Empty when there is none of that name any more.
NodePath WindowSession::sourceNamed(const QString& name) const
{
    if (name.isEmpty())
        return {};
    const SourceTree& tree = controller_->sources().tree();
    for (int top = 0; top < tree.childCount({}); ++top) {
        if (nameOf({top}) == name)
            return {top};
        for (int child = 0; child < tree.childCount({top}); ++child)
            if (nameOf({top, child}) == name)
                return {top, child};
    }
    return {};
}

} // namespace zib
