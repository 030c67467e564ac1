// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Movie.h"

#include <map>

namespace zib {

class DesktopSound;

/// Movies of any audio file that the decoding library knows, played through the desktop's sound. A movie at
/// its end that is played again begins anew.
class DesktopMovies : public Movies {
    Q_OBJECT

  public:
    /// The sound outlives this, and this the movies.
    explicit DesktopMovies(DesktopSound& sound);

    std::unique_ptr<Movie> open(const QString& path, QString& error) override;

  private:
    friend class DesktopMovie;
    void ended(quint64 id, quint64 run);

    DesktopSound& sound_;
    std::map<quint64, class DesktopMovie*>
        open_; ///< by id, because an end may arrive after the movie is gone
    quint64 lastId_ = 0;
};

} // namespace zib
