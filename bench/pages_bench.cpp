// SPDX-License-Identifier: GPL-3.0-or-later
// What it takes to make the longest pages: the view waits for it after a click.
#include "bench/Measuring.h"
#include "pages/PageComposer.h"

namespace zib {
namespace {

constexpr double allowedMs = 2.0;
constexpr int imageCount = 1'000;
constexpr qsizetype bioLength = 200 * 1024;

PageFields longestSong()
{
    PageFields song;
    song.setArtist(QStringLiteral("The Artist"));
    song.setTrack(QStringLiteral("The Track"));
    const QString sentence = QStringLiteral("She sang 100% of <a href=\"zib://search/tag/jazz\">jazz</a>. ");
    song.setBio(sentence.repeated(bioLength / sentence.size() + 1).first(bioLength));
    QStringList images;
    for (int i = 0; i < imageCount; ++i)
        images += QStringLiteral("http://images.example/artist/%1/large.jpg").arg(i);
    song.setImages(images);
    song.setImageIndex(imageCount);
    for (int i = 0; i < 10; ++i)
        song.setTags(song.tags() + QStringList{QStringLiteral("tag")});
    song.setSimilar(
        QList<SimilarArtist>(8, {QStringLiteral("Near"), QStringLiteral("http://images.example/1")}));
    return song;
}

/// The slower of the two pages counts.
void benchPageComposition()
{
    const PageFields song = longestSong();
    const PageSurroundings surroundings{.resourceFolder = QStringLiteral("file:///usr/share/zib/pages/"),
                                        .musicInfoHome = {},
                                        .artistProfileHome = {},
                                        .releaseHome = {},
                                        .lyricsHome = {}};
    const PageComposer composer(song, surroundings, "5f3a0c9e5f3a0c9e5f3a0c9e5f3a0c9e");
    std::vector<double> images;
    std::vector<double> artist;
    for (int round = 0; round < rounds; ++round) {
        qsizetype bytes = 0;
        images.push_back(milliseconds([&] { bytes += composer.imagesPage().toUtf8().size(); }));
        artist.push_back(milliseconds([&] { bytes += composer.artistPage(true, true).toUtf8().size(); }));
        if (bytes < bioLength + imageCount)
            qFatal("the pages are not whole");
    }
    report("page-composition", std::max(median(images), median(artist)) / allowedMs, 1.0, "2-ms");
}

constexpr std::pair<const char*, void (*)()> benchmarks[] = {{"page-composition", benchPageComposition}};

} // namespace
} // namespace zib

int main(int argc, char** argv)
{
    return zib::runBenchmarks(argc, argv, zib::benchmarks);
}
