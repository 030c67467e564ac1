// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/LibrarySaver.h"

#include <utility>

namespace zib {

LibrarySaver::LibrarySaver(LibraryFile file, SearchesDropped searchesDropped)
    : file_(std::move(file))
    , searchesDropped_(std::move(searchesDropped))
{
}

LibrarySaver::~LibrarySaver()
{
    wait();
}

void LibrarySaver::save(LibrarySnapshot snapshot)
{
    {
        const std::scoped_lock lock(mutex_);
        waiting_ = std::move(snapshot);
        if (std::exchange(running_, true))
            return; // the thread looks for more before it ends
    }
    if (thread_.joinable())
        thread_.join();
    thread_ = std::thread(&LibrarySaver::run, this);
}

void LibrarySaver::wait()
{
    if (thread_.joinable())
        thread_.join();
}

void LibrarySaver::run()
{
    for (;;) {
        std::optional<LibrarySnapshot> next;
        {
            const std::scoped_lock lock(mutex_);
            next.swap(waiting_);
            if (!next) {
                running_ = false;
                return;
            }
        }
        write(*std::move(next));
    }
}

void LibrarySaver::write(LibrarySnapshot snapshot) const
{
    QList<Record> dropped;
    while (snapshot.searches.size() > keptSearches)
        dropped.append(snapshot.searches.takeLast());
    if (!dropped.isEmpty())
        searchesDropped_(dropped);
    file_.save(snapshot);
}

} // namespace zib
