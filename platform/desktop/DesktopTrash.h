// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Trash.h"

#include <QStringList>
#include <QTimer>

namespace zib {

/// The trash that all desktops share: the file goes to where it can stay on its disk, with a note of where it
/// came from.
class DesktopTrash : public Trash {
    Q_OBJECT

  public:
    DesktopTrash();
    ~DesktopTrash() override;

    void moveToTrash(const QString& path) override;

  private:
    void moveNext();

    QStringList waiting_;
    QTimer next_; // one file at a time, so that the window lives while many go
};

} // namespace zib
