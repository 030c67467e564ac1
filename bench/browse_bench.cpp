// SPDX-License-Identifier: GPL-3.0-or-later
// What a click costs in a library of 100,000 songs: choosing, filtering, sorting and loving.
#include "bench/Measuring.h"
#include "bench/NoServices.h"
#include "bench/Songs.h"
#include "library/RVDataManager.h"
#include "library/SongCells.h"
#include "platform/desktop/SystemClock.h"
#include "tests/fakes/FakeLibraryView.h"

#include <QCollator>
#include <QTemporaryDir>

namespace zib {
namespace {

constexpr double bar = 3.0;
constexpr int visibleRows = 40;

/// A table that asks for every visible cell when it is reloaded, as a window would.
class PaintedTable : public FakeTableView {
  public:
    void reloadData() override
    {
        FakeTableView::reloadData();
        if (cells)
            paint();
    }
    void paint()
    {
        for (int row = 0; row < std::min(visibleRows, cells->numberOfRows()); ++row)
            for (int column = 0; column < songColumnCount; ++column)
                painted += cells->objectValueForTableColumn(SongColumn(column), row).isValid() +
                           cells->willDisplayCell(SongColumn(column), row).heartActive;
    }

    std::optional<SongCells> cells;
    std::int64_t painted = 0;
};

class PaintedView : public LibraryView {
  public:
    FakeTableView& artistsTableView() override { return artists; }
    FakeTableView& albumsTableView() override { return albums; }
    PaintedTable& playlistsTableView() override { return songs; }
    void setBrowsersShown(bool) override {}

    FakeTableView artists;
    FakeTableView albums;
    PaintedTable songs;
};

/// The whole library is shown. Its songs came in no order.
struct World {
    World()
    {
        constexpr int stride = 77'773; // prime, so that every number comes once
        for (int place = 0; place < songCount; ++place) {
            Record song = makeSong(int(qint64(place) * stride % songCount));
            if (place % 50 == 0)
                song.set(keys::Favorite, true);
            library.library().insert(song.string(keys::Id), song);
        }
        plain = library.library().records();
        library.setSource(SourceType::Library);
        library.waitForSaves();
    }
    void choose(FakeTableView& table, int row)
    {
        table.selectRows({row});
        library.browser().selectionDidChange(table);
    }

    QTemporaryDir folder;
    NoSettings defaults;
    NoAlerts alerts;
    SystemClock clock;
    PaintedView view;
    RVDataManager library{defaults, alerts, clock, view, folder.filePath(QStringLiteral("l.zib"))};
    QList<Record> plain; ///< the same songs, in an array
};

/// The rows that a plain loop keeps take the place of those it kept before.
template <typename Predicate>
void keep(const World& world, QList<Record>& kept, Predicate predicate)
{
    QList<Record> rows;
    for (const Record& song : world.plain)
        if (predicate(song))
            rows.append(song);
    kept = std::move(rows);
}

/// Both start from the whole library being shown.
template <typename Ours, typename Loop>
void benchAgainstLoop(const char* name, World& world, Ours ours, Loop loop)
{
    std::vector<double> taken;
    std::vector<double> yardstick;
    QList<Record> kept;
    for (int round = 0; round < rounds; ++round) {
        world.library.setCurrentFilterType(FilterType::All);
        world.choose(world.view.artists, 0);
        kept = world.plain;
        kept.detach();
        taken.push_back(milliseconds(ours));
        yardstick.push_back(milliseconds([&] { loop(kept); }));
        if (kept.size() != world.library.items().size())
            qFatal("%s: %d rows, not %d", name, int(world.library.items().size()), int(kept.size()));
    }
    std::fprintf(stderr, "%s: ours %.1f ms, at most %.1f; the loop %.1f ms\n", name, median(taken),
                 *std::ranges::max_element(taken), median(yardstick));
    report(name, median(taken) / median(yardstick), bar, "a loop over an array that keeps the same rows");
}

void benchLibrary()
{
    World world;
    benchAgainstLoop(
        "browse-library", world, [&] { world.library.setSource(SourceType::Library); },
        [&](QList<Record>& kept) { keep(world, kept, [](const Record&) { return true; }); });
}

void benchArtist()
{
    World world;
    const QByteArray artist = world.library.allArtists()[78].toUtf8();
    benchAgainstLoop(
        "browse-artist", world, [&] { world.choose(world.view.artists, 78); },
        [&](QList<Record>& kept) {
            keep(world, kept,
                 [&artist](const Record& song) { return song.utf8(keys::Artist) == artist.constData(); });
        });
}

void benchAlbum()
{
    World world;
    const QByteArray album = world.library.allAlbums()[78].toUtf8();
    benchAgainstLoop(
        "browse-album", world, [&] { world.choose(world.view.albums, 78); },
        [&](QList<Record>& kept) {
            keep(world, kept,
                 [&album](const Record& song) { return song.utf8(keys::Album) == album.constData(); });
        });
}

void benchFavorites()
{
    World world;
    benchAgainstLoop(
        "filter-favorites", world,
        [&] {
            world.library.setCurrentFilterType(FilterType::Favorites);
            world.library.setSource(SourceType::Library);
        },
        [&](QList<Record>& kept) {
            keep(world, kept, [](const Record& song) { return song.boolean(keys::Favorite); });
        });
}

/// Sorts keys that are there already.
template <typename Key>
double sortMilliseconds(const std::vector<std::pair<Key, int>>& ready)
{
    std::vector<std::pair<Key, int>> keys = ready;
    return milliseconds([&] {
        std::sort(keys.begin(), keys.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    });
}

/// The first sort by that column: nothing about its order is known yet.
template <typename Key>
void benchSort(const char* name, const char* column, Key keyOf(const Record&))
{
    std::vector<double> taken;
    std::vector<double> yardstick;
    for (int round = 0; round < rounds; ++round) {
        World world;
        std::vector<std::pair<Key, int>> ready;
        for (const Record& song : world.plain)
            ready.emplace_back(keyOf(song), int(ready.size()));
        yardstick.push_back(sortMilliseconds(ready));
        world.view.songs.setSortDescriptors({{QString::fromLatin1(column), true}});
        taken.push_back(milliseconds([&] { world.library.browser().sortDescriptorsDidChange(); }));
    }
    report(name, median(taken) / median(yardstick), bar, "std::sort over collation keys that are there");
}

QCollatorSortKey nameKey(const Record& song)
{
    static const QCollator collator = [] {
        QCollator made{QLocale(QLocale::English)};
        made.setCaseSensitivity(Qt::CaseInsensitive);
        made.setNumericMode(true);
        return made;
    }();
    return collator.sortKey(song.string(keys::Name));
}

qint64 dateKey(const Record& song)
{
    return song.date(keys::FoundDate).toSecsSinceEpoch();
}

void benchSortName()
{
    benchSort<QCollatorSortKey>("sort-name", "Name", nameKey);
}

void benchSortDate()
{
    benchSort<qint64>("sort-date", "Found Date", dateKey);
}

void benchLove()
{
    World world;
    world.view.songs.cells.emplace(world.library.browser());
    std::vector<double> taken;
    std::vector<double> yardstick;
    for (int round = 0; round < 101; ++round) {
        const int row = round * 991;
        const QString id = world.library.items()[row].string(keys::Id);
        bool found = false;
        yardstick.push_back(milliseconds([&] {
            found = bool(world.library.library().find(id));
            world.view.songs.paint();
        }));
        if (!found)
            qFatal("the song is not there");
        taken.push_back(milliseconds([&] { world.library.markFavoriteAtIndex(row); }));
        world.library.waitForSaves();
    }
    report("love-song", median(taken) / median(yardstick), bar, "one look-up and a table repaint");
}

/// Each round types a word; every letter counts.
void benchFilterText()
{
    World world;
    world.view.songs.cells.emplace(world.library.browser());
    std::string plain;
    for (const Record& song : world.plain)
        for (const RecordKey key : {keys::Name, keys::Artist, keys::Album, keys::Genre})
            plain.append(song.utf8(key)).append(1, '\n');
    std::vector<double> taken;
    std::vector<double> yardstick;
    world.library.browser().prepareFilterText();
    const QString word = QStringLiteral("number 77");
    for (int round = 0; round < rounds; ++round) {
        for (qsizetype length = 1; length <= word.size(); ++length) {
            const QString typed = word.first(length);
            taken.push_back(milliseconds([&] { world.library.browser().setFilterText(typed.simplified()); }));
            const std::string searched = typed.toStdString();
            std::size_t found = 0;
            yardstick.push_back(milliseconds([&] {
                for (std::size_t at = plain.find(searched); at != std::string::npos;
                     at = plain.find(searched, at + 1))
                    ++found;
            }));
            if (found == 0)
                qFatal("no song holds the text");
        }
        world.library.browser().setFilterText({});
    }
    std::fprintf(stderr, "filter-text: a letter %.1f ms, at most %.1f; the scan %.1f ms\n", median(taken),
                 *std::ranges::max_element(taken), median(yardstick));
    report("filter-text", median(taken) / median(yardstick), bar, "a plain scan of the same text");
}

constexpr std::pair<const char*, void (*)()> benchmarks[] = {
    {"browse-library", benchLibrary}, {"browse-artist", benchArtist},
    {"browse-album", benchAlbum},     {"filter-favorites", benchFavorites},
    {"sort-name", benchSortName},     {"sort-date", benchSortDate},
    {"love-song", benchLove},         {"filter-text", benchFilterText}};

} // namespace
} // namespace zib

int main(int argc, char** argv)
{
    return zib::runBenchmarks(argc, argv, zib::benchmarks);
}
