// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: an order that people would not expect, equal songs that change places, a selection or a playing
// order that sorting loses, and an order that is remembered although the names have changed.
#include "records/PropertyValue.h"
#include "tests/library/BrowserFixture.h"

#include <QRandomGenerator>

#include <algorithm>

namespace zib {
namespace {

class SongSortingTest : public BrowserFixture {};

TEST_F(SongSortingTest, ColumnsByTheirKindOfValue)
{
    const auto more = [](Record track, int year, int plays, int playedSecond) {
        if (year > 0)
            track.set(keys::Year, year);
        if (plays > 0)
            track.set(keys::PlayCount, plays);
        if (playedSecond > 0)
            track.set(keys::PlayDate, QDateTime::fromSecsSinceEpoch(playedSecond, Qt::UTC));
    };
    more(add("1", "b", "X", "Track 10"), 1999, 0, 30);
    more(add("2", "A", "X", "track 9"), 0, 3, 0);
    more(add("3", "B", "", "Émile"), 101, 12, 20);
    more(add("4", nullptr, "Y", "Zoo"), 2000, 0, 10);
    more(add("5", "a", "x", "emil"), 0, 3, 0);
    const struct {
        QList<SortDescriptor> descriptors;
        const char* order;
    } cases[] = {
        {{}, "1 2 3 4 5"},
        {{{text("Name"), true}}, "5 3 2 1 4"},
        {{{text("Name"), false}}, "4 1 2 3 5"},
        {{{text("Artist"), true}}, "2 5 1 3 4"}, // equal but for case: as they stood; without one: last
        {{{text("Artist"), false}}, "1 3 2 5 4"},
        {{{text("Album"), true}, {text("Year"), false}}, "1 2 5 4 3"},
        {{{text("Year"), true}}, "3 1 4 2 5"},
        {{{text("Play Count"), true}}, "1 4 2 5 3"},
        {{{text("Play Date"), false}}, "1 3 4 2 5"},
        {{{text("Index"), false}}, "5 4 3 2 1"},
        {{{text("No such column"), true}}, "1 2 3 4 5"},
    };
    for (const auto& test : cases) {
        view.songs.setSortDescriptors(test.descriptors);
        library.setSource(SourceType::Library);
        EXPECT_EQ(shown(), text(test.order))
            << (test.descriptors.isEmpty() ? "" : qUtf8Printable(test.descriptors.first().key));
    }
    library.setSource(SourceType::RecentSearches);
    library.addPlaylistWithTitle(text("S"), library.library().records(), 1);
    view.songs.setSortDescriptors({{text("Name"), true}});
    library.setCurrentPlaylistIndex(0);
    EXPECT_EQ(shown(), text("5 3 2 1 4")) << "also what does not come from the library";
}

TEST_F(SongSortingTest, TheSelectionStaysAndTheLastOrderDecidesAmongEqualSongs)
{
    add("1", "A", "X", "c");
    add("2", "B", "X", "b");
    add("3", "A", "X", "a");
    library.setSource(SourceType::Library);
    view.songs.selectRows({0, 1});
    sortBy({{text("Name"), true}});
    EXPECT_EQ(shown(), text("3 2 1"));
    EXPECT_EQ(view.songs.selectedRows(), (QList<int>{1, 2}));
    sortBy({{text("Artist"), true}});
    EXPECT_EQ(shown(), text("3 1 2"));
    EXPECT_EQ(view.songs.selectedRows(), (QList<int>{1, 2}));
}

TEST_F(SongSortingTest, WhatPlaysNextFollowsTheOrderOnScreen)
{
    add("1", "A", "X", "c");
    add("2", "B", "X", "b");
    showPlaylist({text("1"), text("2")});
    sortBy({{text("Name"), true}});
    EXPECT_TRUE(controller.items.isEmpty()) << "nothing plays";
    controller.play(library.items()[0], library);
    sortBy({{text("Name"), false}});
    EXPECT_EQ(idsOf(controller.items), text("1 2"));
    showPlaylist({text("2"), text("1")}, 78);
    sortBy({{text("Name"), true}});
    EXPECT_EQ(idsOf(controller.items), text("1 2")) << "another playlist";
    library.setSource(SourceType::Library);
    controller.play(library.items()[0], library);
    sortBy({{text("Name"), true}});
    EXPECT_EQ(idsOf(controller.items), text("1 2")) << "the library plays on in the order it began with";
}

// The remembered order of the names is mended change by change; it has to be the one made from nothing.
TEST_F(SongSortingTest, TheRememberedOrderFollowsEveryChange)
{
    const TextCollation collation(QLocale(QLocale::English));
    std::vector<std::string> texts(40);
    const auto at = [&texts](std::size_t number) { return std::string_view(texts[number]); };
    QRandomGenerator random(1);
    TextOrder mended(collation);
    mended.build(texts.size(), at);
    for (int round = 0; round < 300; ++round) {
        std::vector<std::uint32_t> changed;
        for (int change = 0; change < 3; ++change) {
            const auto number = std::uint32_t(random.bounded(int(texts.size()) + (round % 10 == 0 ? 1 : 0)));
            if (number == texts.size())
                texts.emplace_back();
            // Few letters, so that many are equal; long ones between two others, so that room runs out.
            texts[number] = std::string(std::size_t(random.bounded(9)), 'a') + "Aab"[random.bounded(3)];
            if (random.bounded(5) == 0)
                texts[number].clear();
            changed.push_back(number);
        }
        mended.change(changed, at);
        TextOrder fresh(collation);
        fresh.build(texts.size(), at);
        for (std::size_t a = 0; a < texts.size(); ++a)
            for (std::size_t b = 0; b < texts.size(); ++b)
                ASSERT_EQ(mended.label(a) < mended.label(b), fresh.label(a) < fresh.label(b))
                    << round << ": " << texts[a] << ", " << texts[b];
    }
}

TEST_F(SongSortingTest, AChangedNameFindsItsPlace)
{
    add("1", "A", "X", "a");
    add("2", "A", "X", "b");
    library.setSource(SourceType::Library);
    sortBy({{text("Name"), true}});
    add("3", "A", "X", "aa");
    library.library().find(text("1")).set(keys::Name, text("c"));
    library.reloadData();
    EXPECT_EQ(shown(), text("3 2 1"));
    library.library().remove(text("2"));
    library.reloadData();
    EXPECT_EQ(shown(), text("3 1"));
}

} // namespace
} // namespace zib
