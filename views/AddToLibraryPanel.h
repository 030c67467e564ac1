// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "views/FilePanel.h"

class QAbstractItemView;

namespace zib {

/// The panel in which files and folders are picked for the library, several at once. The desktops' own panels
/// pick either files or folders, so this is Qt's.
class AddToLibraryPanel : public FilePanel {
    Q_OBJECT

  public:
    explicit AddToLibraryPanel(QWidget* parent);

    /// The absolute paths picked, with links resolved; none before the panel was accepted.
    [[nodiscard]] QStringList pickedPaths() const { return picked_; }

  public Q_SLOTS:
    void accept() override;

  private:
    [[nodiscard]] QStringList selectedPaths() const;

    QAbstractItemView* list_;
    QStringList picked_;
};

} // namespace zib
