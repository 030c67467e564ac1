// SPDX-License-Identifier: GPL-3.0-or-later
#include "controller/SourceList.h"

#include "controller/ControllerContext.h"
#include "controller/MainWindowView.h"
#include "controller/Notices.h"
#include "controller/PlaybackQueue.h"
#include "controller/SourceKinds.h"
#include "controller/TreeAdditionObj.h"
#include "library/RVDataManager.h"
#include "pages/RVWebViewController.h"
#include "platform/SettingsKeys.h"
#include "platform/TableView.h"

#include <QCoreApplication>

#include <algorithm>
#include <limits>

namespace zib {

namespace {

constexpr int separatorHeight = 20;
constexpr int topHeight = 46;
constexpr int groupHeight = 25;
constexpr int rowHeight = 20;
constexpr int fixedRows = 3; // above the separator

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(SourceList)
};

} // namespace

SourceList::SourceList(ControllerContext& context, PlaybackQueue& playback, OutlineView& view)
    : context_(context)
    , playback_(playback)
    , view_(view)
    , tree_(view)
    , dragging_(context.dataManager, tree_)
{
}

// The rows

void SourceList::populateOutlineContents()
{
    view_.setHidden(true);
    tree_.removeAll();
    tree_.addChild(QStringLiteral("nowplaying"), Texts::tr("Now Playing"), false);
    tree_.addChild(QStringLiteral("tophot"), Texts::tr("What's Hot?"), false);
    tree_.addChild(QStringLiteral("recommended"), Texts::tr("Recommended"), false);
    tree_.nodeAt({int(SourceType::TopHot)})
        ->setDescription(Texts::tr("Songs that are talked about now. They come from the web."));
    tree_.nodeAt({int(SourceType::Recommended)})
        ->setDescription(Texts::tr("Songs like those that you love. They come from the web."));
    setNodeEnabled(SourceType::Recommended, false);
    setNodeEnabled(SourceType::TopHot, false);
    tree_.addSeparatorItem();
    addRecentSection();
    addLibrarySection();
    addPlaylistsSection();
    view_.setHidden(false);
    select({int(SourceType::NowPlaying)});
}

void SourceList::addRecentSection()
{
    tree_.performAddFolder(SourceTree::recentSearchesTitle());
    for (const Record& search : std::as_const(context_.dataManager.searches()))
        tree_.addChild(kindTagOfSearch(search.integer(keys::Kind)), search.string(keys::Name), true);
}

void SourceList::addLibrarySection()
{
    tree_.performAddFolder(SourceTree::libraryTitle());
    // Their places in the group are the filters.
    tree_.addChild(QStringLiteral("music"), Texts::tr("Music"), true);
    tree_.addChild(QStringLiteral("downloads"), Texts::tr("Downloads"), true);
    tree_.addChild(QStringLiteral("imports"), Texts::tr("Imported"), true);
    tree_.addChild(QStringLiteral("favorites"), Texts::tr("Favorites"), true);
}

void SourceList::addPlaylistsSection()
{
    tree_.performAddFolder(SourceTree::playlistsTitle());
    for (const Record& playlist : std::as_const(context_.dataManager.playlists()))
        tree_.addChild(playlist.integer(keys::Kind) != 0 ? QStringLiteral("smart")
                                                         : QStringLiteral("playlist"),
                       playlist.string(keys::Name), true);
}

bool SourceList::shouldSelectItem(const NodePath& path) const
{
    const auto node = tree_.nodeAt(path);
    return node && !SourceTree::isSeparator(*node) && node->isEnabled() && !SourceTree::isSpecialGroup(*node);
}

bool SourceList::isGroupItem(const NodePath& path) const
{
    const auto node = tree_.nodeAt(path);
    return node && SourceTree::isSpecialGroup(*node);
}

bool SourceList::shouldEditItem(const NodePath& path) const
{
    const auto node = tree_.nodeAt(path);
    return node && node->urlString() == QLatin1String("playlist");
}

int SourceList::heightOfRowByItem(const NodePath& path) const
{
    const auto node = tree_.nodeAt(path);
    if (node && SourceTree::isSeparator(*node))
        return separatorHeight;
    if (path.value(0) < fixedRows)
        return topHeight;
    return isGroupItem(path) ? groupHeight : rowHeight;
}

int SourceList::categoryOfSelectedNode() const
{
    const QList<NodePath> selected = tree_.selectedPaths();
    return selected.isEmpty() ? std::numeric_limits<int>::max()
                              : tree_.categoryOfNode(*tree_.nodeAt(selected.first()));
}

bool SourceList::isNodeEnabled(SourceType position) const
{
    const auto node = tree_.nodeAt({int(position)});
    return node && node->isEnabled();
}

void SourceList::setNodeEnabled(SourceType position, bool enabled)
{
    if (const auto node = tree_.nodeAt({int(position)})) {
        node->setEnabled(enabled);
        reloadRow(position);
    }
}

void SourceList::reloadRow(SourceType position)
{
    view_.reloadItem({int(position)});
}

void SourceList::insertNode(SourceType group, int index, const QString& title, const QString& kindTag)
{
    tree_.performAddChild({.nodeURL = kindTag, .nodeName = title, .indexPath = {int(group), index}});
    showSelection();
}

// Selection

void SourceList::select(const NodePath& path)
{
    if (!shouldSelectItem(path))
        return;
    tree_.setSelectedPaths({path});
    showSelection();
}

void SourceList::showSelection()
{
    view_.selectPaths(tree_.selectedPaths());
    outlineViewSelectionDidChange(tree_.selectedPaths());
}

void SourceList::outlineViewSelectionDidChange(const QList<NodePath>& selected)
{
    tree_.setSelectedPaths(selected);
    if (selected.size() == 1) {
        changeItemView();
        return;
    }
    songsShown_ = false;
    context_.window.setCurrentView(MainView::None);
    actionEnabled_ = false;
    removeEnabled_ = std::ranges::any_of(selected, [this](const NodePath& path) { return isList(path); });
}

void SourceList::changeItemView()
{
    const QList<NodePath> selected = tree_.selectedPaths();
    if (view_.isHidden() || selected.isEmpty())
        return;
    songsShown_ = false;
    actionEnabled_ = false;
    removeEnabled_ = isList(selected.first());
    if (tree_.nodeAt(selected.first())->urlString().isEmpty())
        context_.window.setCurrentView(MainView::None);
    else
        showRow(selected.first());
}

void SourceList::showRow(const NodePath& path)
{
    const auto source = SourceType(path.first());
    switch (source) {
    case SourceType::NowPlaying:
        context_.window.setCurrentView(MainView::NowPlaying);
        context_.window.setUrlFieldText({});
        if (context_.connectedToInternet)
            context_.pages.loadDataForTrack(playback_.nowplayingTrack());
        else
            context_.pages.loadErrorPage(
                Texts::tr("This computer’s Internet connection appears to be offline."));
        break;
    case SourceType::TopHot:
    case SourceType::Recommended:
        showSongs(source, FilterType::All);
        noticeFixedList(source);
        break;
    case SourceType::Library:
        showSongs(source, FilterType(path.last()));
        break;
    case SourceType::RecentSearches:
        showSongs(source, path.last());
        break;
    case SourceType::Playlists:
        actionEnabled_ = true;
        showSongs(source, path.last());
        break;
    }
}

void SourceList::showSongs(SourceType source, FilterType filter)
{
    songsShown_ = true;
    context_.window.setCurrentView(MainView::Songs);
    context_.dataManager.setCurrentFilterType(filter);
    context_.dataManager.setSource(source);
}

void SourceList::showSongs(SourceType source, int listIndex)
{
    songsShown_ = true;
    context_.window.setCurrentView(MainView::Songs);
    context_.dataManager.setSource(source);
    context_.dataManager.setCurrentPlaylistIndex(listIndex);
}

void SourceList::noticeFixedList(SourceType source)
{
    if (source == SourceType::TopHot)
        context_.notices.runSuppressibleNotice(
            Texts::tr("This playlist contains songs currently hyped on social networks like Facebook and "
                      "Twitter."),
            settings::SupressDialogTopHot);
    else
        context_.notices.runSuppressibleNotice(
            Texts::tr("This playlist contains songs we think you may like. To start getting personal "
                      "recommendations you must first mark a few songs as favorites. You do this by "
                      "clicking the Love button next to the song's title."),
            settings::SupressDialogRecommended);
}

bool SourceList::canPlaySelectedSource() const
{
    return songsShown_ && !context_.dataManager.items().isEmpty();
}

void SourceList::playSelectedSource()
{
    if (!canPlaySelectedSource())
        return;
    context_.dataManager.playlistsTableView().deselectAll();
    playback_.songSelected();
}

void SourceList::revealSource(SourceType type)
{
    const int position = int(type);
    select(position > fixedRows ? NodePath{position, 0} : NodePath{position});
}

void SourceList::revealCurrentTrack()
{
    if (!playback_.snapshot())
        return;
    const NowPlayingSnapshot snapshot = *playback_.snapshot();
    NodePath path{int(snapshot.sourceType)};
    if (snapshot.sourceType == SourceType::Library)
        path.append(int(snapshot.filterType));
    else if (isListSource(snapshot.sourceType))
        path.append(snapshot.playlistIndex);
    if (!tree_.nodeAt(path))
        return; // a list that was removed plays on
    select(path);
    if (!isListSource(snapshot.sourceType)) {
        RVDataManager& library = context_.dataManager;
        const auto choose = [](TableView& table, int row) {
            if (row < 0)
                return;
            table.selectRows({row});
            table.scrollRowToVisible(row);
        };
        choose(library.artistsTableView(), snapshot.indexPath.artist);
        library.updateAlbumsBrowser();
        choose(library.albumsTableView(), snapshot.indexPath.album);
        library.updateTracksBrowser();
    }
    selectPlayingSong();
}

void SourceList::selectPlayingSong()
{
    const QList<Record>& items = context_.dataManager.items();
    const bool byIndex = !context_.dataManager.sourceHasBrowser(); // a song may stand there twice
    const auto found = std::ranges::find_if(items, [&](const Record& song) {
        return song.string(keys::Id) == playback_.nowplayingTrackID() &&
               (!byIndex || song.integer(keys::Index) == playback_.nowplayingTrackIndex());
    });
    if (found == items.end())
        return;
    const int row = int(found - items.begin());
    TableView& table = context_.dataManager.playlistsTableView();
    table.selectRows({row});
    table.scrollRowToVisible(row);
}

} // namespace zib
