// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>

namespace zib {

/// The desktop's trash, from which the user can bring a file back. Main thread.
class Trash : public QObject {
    Q_OBJECT

  public:
    /// Moves the file there, later, from the event loop; what is still to be moved when this object goes is
    /// moved then.
    /// @param path absolute. A link is moved itself, not what it leads to.
    virtual void moveToTrash(const QString& path) = 0;
    /// Brings back the file that this object last moved there from that path, or was still to move. It takes
    /// no other file's place.
    /// @return whether it is where it was; not so when the trash has it no more.
    [[nodiscard]] virtual bool restore(const QString& path) = 0;

  Q_SIGNALS:
    /// The file could not be moved, and is where it was.
    void failed(const QString& path);
};

} // namespace zib
