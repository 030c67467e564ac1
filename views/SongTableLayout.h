// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/SongColumns.h"
#include "platform/TableView.h"

#include <QObject>
#include <QTimer>

#include <array>
#include <optional>

class QHeaderView;
class QJsonObject;
class QMenu;
class QTableView;

namespace zib {

class UserDefaults;

/// The columns of the song table as the user arranges them: which are shown, their order and widths, and by
/// what the rows are sorted. Kept in the settings under a name per list of songs.
class SongTableLayout : public QObject {
    Q_OBJECT

  public:
    /// The table has its model and, like the settings, outlives the layout.
    SongTableLayout(QTableView& table, UserDefaults& defaults);

    /// Keeps the layout under that name from now on, and applies the one that is kept there, or the first
    /// one. Under an empty name nothing is kept.
    void setName(const QString& name);

    [[nodiscard]] const QList<SortDescriptor>& sortDescriptors() const { return descriptors_; }
    void setSortDescriptors(const QList<SortDescriptor>& descriptors);
    /// Whether there is such a column in what is shown now.
    void setAvailable(SongColumn column, bool available);
    /// Gives the columns of text the width that is left in the table, and hides what there is no room for.
    void fit();

    /// For the choice of columns, and of what the rows are sorted by, without a mouse.
    /// @{
    void addColumns(QMenu& menu);
    void addSorting(QMenu& menu);
    /// @}

  Q_SIGNALS:
    /// The user sorts otherwise.
    void sorted();

  private:
    [[nodiscard]] QHeaderView& header() const;
    void applyFirst();
    void apply(const QJsonObject& saved);
    void save();
    void saveUnsaved();
    void changed();
    void setShown(SongColumn column, bool shown);
    void showWhatFits(int room);
    void shareOut(int room);
    /// The user has resized that column.
    void takeWidths(SongColumn resized);
    void sortBy(int section, Qt::SortOrder order);
    void showIndicator();
    /// Whether the column is to be shown when there is room.
    [[nodiscard]] bool isWanted(SongColumn column) const;
    void showMenu(const QPoint& position);

    QTableView& table_;
    UserDefaults& defaults_;
    QString name_;
    QTimer saveSoon_;
    QList<SortDescriptor> descriptors_;
    /// Whether the user wants the column; nothing while it is the program's to say.
    std::array<std::optional<bool>, std::size_t(songColumnCount)> wanted_{};
    std::array<bool, std::size_t(songColumnCount)> available_{}; ///< in what is shown
    std::array<int, std::size_t(songColumnCount)> widths_{};     ///< as the user has them
    bool arranging_ = false;                                     ///< what changes is changed by the program
};

} // namespace zib
