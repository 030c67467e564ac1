// SPDX-License-Identifier: GPL-3.0-or-later
// A library of 100,000 songs of 15 fields: what it takes in memory and in time to load, to change and to
// save.
#include "bench/Measuring.h"
#include "bench/NoServices.h"
#include "bench/Songs.h"
#include "library/LibraryFile.h"
#include "library/RVDataManager.h"
#include "platform/desktop/SystemClock.h"
#include "tests/fakes/FakeLibraryView.h"

#include <QFile>
#include <QTemporaryDir>

#include <pugixml.hpp>

#include <vector>

#include <malloc.h>
#include <unistd.h>

namespace zib {
namespace {

LibraryContents makeContents()
{
    LibraryContents contents;
    for (int number = 0; number < songCount; ++number) {
        const Record song = makeSong(number);
        contents.library.insert(song.string(keys::Id), song);
    }
    return contents;
}

LibrarySnapshot snapshotOf(LibraryContents& contents)
{
    return {contents.library.snapshot(), contents.playlists, contents.searches, contents.userInfo};
}

qsizetype residentBytes()
{
    QFile statm(QStringLiteral("/proc/self/statm"));
    if (!statm.open(QIODevice::ReadOnly))
        return 0;
    return statm.readAll().split(' ').value(1).toLongLong() * sysconf(_SC_PAGESIZE);
}

/// A library file of the size in question, and its content in plain.
class Sample {
  public:
    Sample()
    {
        LibraryContents contents = makeContents();
        file().save(snapshotOf(contents));
        plain_ = file().readPlain().value();
    }
    [[nodiscard]] LibraryFile file() const
    {
        return LibraryFile(folder_.filePath(QStringLiteral("Zib Music Library.zib")));
    }
    [[nodiscard]] const QByteArray& plain() const { return plain_; }

  private:
    QTemporaryDir folder_;
    QByteArray plain_;
};

double loadMilliseconds(const Sample& sample)
{
    tl::expected<LibraryContents, QString> loaded;
    const double taken = milliseconds([&] { loaded = sample.file().load(); });
    if (!loaded || loaded->library.size() != songCount)
        qFatal("the library was not loaded");
    return taken;
}

class CountNodes : public pugi::xml_tree_walker {
  public:
    bool for_each(pugi::xml_node& node) override
    {
        length += std::char_traits<char>::length(node.value());
        return true;
    }
    std::size_t length = 0;
};

/// Another reader's time for the same list, a yardstick for what handles the whole library.
double yardstickMilliseconds(const Sample& sample)
{
    QByteArray bytes = sample.plain();
    bytes.detach();
    pugi::xml_document document;
    CountNodes walker;
    malloc_trim(0); // as a program begins
    const double taken = milliseconds([&] {
        document.load_buffer_inplace(bytes.data(), std::size_t(bytes.size()));
        document.traverse(walker);
    });
    if (walker.length == 0)
        qFatal("the yardstick read nothing");
    return taken;
}

constexpr const char* yardstickName = "pugixml in place, every node visited";

void benchLoad()
{
    const Sample sample;
    std::vector<double> ours;
    std::vector<double> yardstick;
    for (int round = 0; round < rounds; ++round) {
        yardstick.push_back(yardstickMilliseconds(sample));
        malloc_trim(0);
        ours.push_back(loadMilliseconds(sample));
    }
    report("library-load", median(ours) / median(yardstick), 1.0, yardstickName);
}

void benchMemory()
{
    const Sample sample;
    malloc_trim(0);
    const qsizetype before = residentBytes();
    const auto loaded = sample.file().load();
    malloc_trim(0);
    const qsizetype grown = residentBytes() - before;
    if (!loaded || loaded->library.size() != songCount)
        qFatal("the library was not loaded");
    report("library-memory", double(grown) / songCount / 900, 1.0, "900 bytes of resident memory a song");
}

void benchSave()
{
    const Sample sample;
    auto contents = sample.file().load();
    std::vector<double> yardstick;
    std::vector<double> save;
    for (int round = 0; round < rounds; ++round) {
        yardstick.push_back(yardstickMilliseconds(sample));
        const LibrarySnapshot snapshot = snapshotOf(*contents);
        save.push_back(milliseconds([&] {
            if (!sample.file().save(snapshot))
                qFatal("the library was not saved");
        }));
    }
    report("library-save", median(save) / median(yardstick), 0.8, yardstickName);
}

/// The main thread's time for loving one song of the whole library that is shown, saved in the background.
void benchStall()
{
    const Sample sample;
    NoSettings defaults;
    NoAlerts alerts;
    const SystemClock clock;
    FakeLibraryView view;
    RVDataManager manager(defaults, alerts, clock, view, sample.file().path());
    manager.setSource(SourceType::Library);
    std::vector<double> stalls;
    for (int round = 0; round < 20; ++round)
        stalls.push_back(milliseconds([&] { manager.markFavoriteAtIndex(round * 4999); }));
    report("library-stall", median(stalls) / 8, 1.0, "8 ms, half a picture at 60 a second");
}

constexpr std::pair<const char*, void (*)()> benchmarks[] = {{"library-memory", benchMemory},
                                                             {"library-load", benchLoad},
                                                             {"library-stall", benchStall},
                                                             {"library-save", benchSave}};

} // namespace
} // namespace zib

int main(int argc, char** argv)
{
    return zib::runBenchmarks(argc, argv, zib::benchmarks);
}
