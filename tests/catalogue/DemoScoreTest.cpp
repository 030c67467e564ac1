// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts for demo songs that cannot be found (ids that change, tags nobody shares) and for wrong notes: tunes
// out of the chord, leaps nobody can sing, endings that do not end. Every song's score is read as a teacher
// would.
#include "catalogue/demo/Artists.h"
#include "catalogue/demo/Composer.h"
#include "catalogue/demo/Melody.h"

#include <QCryptographicHash>
#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace zib::demo {
namespace {

std::vector<TrackPlan> plansInOrder()
{
    std::vector<TrackPlan> plans;
    for (const DemoArtist& artist : demoPlan().artists)
        for (const DemoAlbum& album : artist.albums)
            for (const DemoTrack& track : album.tracks)
                plans.push_back(demoPlan().tracks.value(track.id));
    return plans;
}

TEST(DemoArtists, AreComplete)
{
    const auto& artists = demoPlan().artists;
    EXPECT_GE(artists.size(), 24);
    QHash<QString, int> artistsOfTag;
    QSet<QString> names;
    for (const DemoArtist& artist : artists) {
        SCOPED_TRACE(artist.name.toStdString());
        names.insert(artist.name.toCaseFolded());
        EXPECT_TRUE(artist.tags.size() >= 3 && artist.tags.size() <= 6);
        for (const QString& tag : artist.tags) {
            ++artistsOfTag[tag];
            EXPECT_EQ(styleOf(tag.toStdString()).tag, tag.toStdString());
        }
        EXPECT_TRUE(artist.hotness > 0 && artist.hotness < 1 && artist.familiarity > 0 &&
                    artist.familiarity < 1);
        EXPECT_TRUE(artist.albums.size() == 1 || artist.albums.size() == 2);
        for (const DemoAlbum& album : artist.albums) {
            EXPECT_EQ(album.tracks.size(), 3);
            EXPECT_TRUE(album.year >= 1990 && album.year <= 2025);
        }
    }
    EXPECT_EQ(names.size(), artists.size());
    for (auto tag = artistsOfTag.cbegin(); tag != artistsOfTag.cend(); ++tag)
        EXPECT_GE(tag.value(), 2) << tag.key().toStdString() << " finds nobody similar";
}

TEST(DemoArtists, TracksAreSoundAndKeepTheirIds)
{
    const QRegularExpression hexadecimal(QStringLiteral("^[0-9a-f]{32}$"));
    QSet<QString> ids;
    QSet<QString> extensions;
    QCryptographicHash digest(QCryptographicHash::Md5);
    for (const TrackPlan& plan : plansInOrder()) {
        SCOPED_TRACE(plan.track.title.toStdString());
        EXPECT_TRUE(hexadecimal.match(plan.track.id).hasMatch());
        EXPECT_TRUE(plan.track.seconds >= 40 && plan.track.seconds <= 120);
        EXPECT_FALSE(plan.track.title.isEmpty());
        ids.insert(plan.track.id);
        extensions.insert(plan.track.extension);
        digest.addData(plan.track.id.toLatin1());
    }
    EXPECT_EQ(ids.size(), demoPlan().tracks.size());
    EXPECT_EQ(extensions, (QSet<QString>{QStringLiteral("mp3"), QStringLiteral("wav"), QStringLiteral("m4a"),
                                         QStringLiteral("aac")}));
    // Libraries of users refer to these ids: add artists at the end of the table only, and then renew this.
    EXPECT_EQ(digest.result().toHex().toStdString(), "2ef035eb2771517735d8cfac7c1c4a36");
}

struct NumeralCase {
    const char* numeral;
    Mode mode;
    int root; ///< over the tonic C
    std::vector<int> tones;
};

TEST(DemoHarmony, ReadsNumerals)
{
    const std::vector<NumeralCase> cases = {
        {"I", Mode::Major, 0, {0, 4, 7}},        {"vi7", Mode::Major, 9, {0, 3, 7, 10}},
        {"VI", Mode::Minor, 8, {0, 4, 7}},       {"bVII9", Mode::Major, 10, {0, 4, 7, 10, 14}},
        {"iih7", Mode::Minor, 2, {0, 3, 6, 10}}, {"V7b9", Mode::Minor, 7, {0, 4, 7, 10, 13}},
        {"IV", Mode::Lydian, 6, {0, 4, 7}},      {"iv6", Mode::Major, 5, {0, 3, 7, 9}},
    };
    for (const NumeralCase& c : cases) {
        const Chord chord = chordFromNumeral(c.numeral, 0, c.mode);
        EXPECT_EQ(chord.root, c.root) << c.numeral;
        EXPECT_EQ(chord.tones, c.tones) << c.numeral;
    }
}

TEST(DemoHarmony, BendsTheScaleToTheChord)
{
    struct Case {
        const char* numeral;
        Mode mode;
        std::array<int, 7> scale; ///< over the tonic A
    };
    const std::vector<Case> cases = {
        {"V7", Mode::Minor, {9, 11, 0, 2, 4, 5, 8}},  // the leading tone, not a lower tonic
        {"iv", Mode::Major, {9, 11, 1, 2, 4, 5, 8}},  // the borrowed flat sixth
        {"II7", Mode::Major, {9, 11, 1, 3, 4, 6, 8}}, // the way to the dominant
        {"VI7", Mode::Major, {10, 11, 1, 2, 4, 6, 8}}, {"i6", Mode::Minor, {9, 11, 0, 2, 4, 6, 7}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(scaleUnder(chordFromNumeral(c.numeral, 9, c.mode), 9, c.mode), c.scale) << c.numeral;
}

class EveryScore : public testing::Test {
  protected:
    static const std::vector<std::pair<TrackPlan, Score>>& all()
    {
        static const auto scores = [] {
            std::vector<std::pair<TrackPlan, Score>> list;
            for (const TrackPlan& plan : plansInOrder())
                list.emplace_back(plan, compose(plan.commission));
            return list;
        }();
        return scores;
    }

    static std::string nameOf(const TrackPlan& plan)
    {
        return (plan.artist + QLatin1String(": ") + plan.track.title).toStdString();
    }
};

TEST_F(EveryScore, HasKnownChordsAndFitsItsLength)
{
    for (const auto& [plan, score] : all()) {
        SCOPED_TRACE(nameOf(plan));
        double beat = 0;
        for (const ChordSpan& span : score.chords) {
            EXPECT_GE(span.chord.tones.size(), 3U);
            EXPECT_NEAR(span.beat, beat, 1e-6);
            beat += span.length;
        }
        EXPECT_NEAR(beat, score.beats(), 1e-6);
        const double music = score.secondsAt(score.beats());
        EXPECT_LT(music, score.seconds - 1.5) << "no time for the last chord to fade";
        EXPECT_GT(music, score.seconds - 6.0);
        EXPECT_GE(score.sections.size(), 3U);
        EXPECT_EQ(score.sections.back().letter, 'o');
    }
}

TEST_F(EveryScore, SingsInTheScaleAndDwellsOnChordTones)
{
    for (const auto& [plan, score] : all()) {
        SCOPED_TRACE(nameOf(plan));
        const auto& tune = score.part(Part::Lead);
        ASSERT_GE(tune.size(), 8U);
        const Note* before = nullptr;
        for (const Note& note : tune) {
            const Chord& chord = score.chordAt(note.beat).chord;
            const auto scale = scaleUnder(chord, score.tonic, score.mode);
            EXPECT_TRUE(chord.contains(note.pitch) ||
                        std::find(scale.begin(), scale.end(), note.pitch % 12) != scale.end())
                << "beat " << note.beat << " pitch " << note.pitch;
            if (note.length >= 1.0) {
                EXPECT_TRUE(chord.contains(note.pitch)) << "beat " << note.beat << " pitch " << note.pitch;
            }
            EXPECT_TRUE(note.pitch >= 60 && note.pitch <= 91);
            if (before != nullptr) {
                EXPECT_LE(std::abs(note.pitch - before->pitch), 16) << "beat " << note.beat;
                EXPECT_GE(note.beat, before->beat + before->length - 0.35);
            }
            before = &note;
        }
    }
}

TEST_F(EveryScore, ReturnsToItsTheme)
{
    for (const auto& [plan, score] : all()) {
        std::vector<double> halves[2];
        for (const Section& section : score.sections) {
            if (section.occurrence > 0 || (section.letter != 'A' && section.letter != 'a'))
                continue;
            for (const Note& note : score.part(Part::Lead))
                if (note.beat >= section.beat && note.beat < section.beat + 2 * score.beatsPerBar)
                    halves[section.letter == 'A' ? 0 : 1].push_back(note.beat - section.beat);
        }
        ASSERT_FALSE(halves[0].empty()) << nameOf(plan);
        ASSERT_EQ(halves[0].size(), halves[1].size()) << nameOf(plan);
        for (std::size_t i = 0; i < halves[0].size(); ++i)
            EXPECT_NEAR(halves[0][i], halves[1][i], 1e-6) << nameOf(plan);
    }
}

TEST_F(EveryScore, EndsAtHome)
{
    for (const auto& [plan, score] : all()) {
        SCOPED_TRACE(nameOf(plan));
        const Chord& last = score.chords.back().chord;
        EXPECT_EQ(last.root, score.tonic);
        EXPECT_EQ(score.part(Part::Bass).back().pitch % 12, score.tonic);
        EXPECT_EQ(score.part(Part::Lead).back().pitch % 12, score.tonic);
    }
}

} // namespace
} // namespace zib::demo
