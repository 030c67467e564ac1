// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "views/gallery/Demos.h"

namespace zib {

/// All pages of the gallery in one window, settled: what takes a moment to appear has appeared.
class ShownPages {
  public:
    ShownPages();
    ~ShownPages();

    struct Shown {
        Demo demo;
        Page* page;
    };
    [[nodiscard]] const QList<Shown>& pages() const { return pages_; }
    /// Shows that page alone, and takes its picture.
    [[nodiscard]] QPixmap shoot(Page& page);

  private:
    QWidget window_;
    QList<Shown> pages_;
};

/// Writes a picture per control into the folder, which is made when it is missing.
/// @returns how many, or less than 0 when one could not be written.
[[nodiscard]] int shootAll(const QString& folder);

} // namespace zib
