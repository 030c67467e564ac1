// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "records/RecordKeys.h"

#include <QAbstractTableModel>
#include <QList>
#include <QSet>

#include <optional>

namespace zib {

class Record;
class RVMainController;

/// The shown songs as rows: a view of the library manager's items that holds nothing itself.
class SongTableModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    enum Column {
        Speaker,
        Index,
        Love,
        Name,
        Artist,
        Album,
        Duration,
        Genre,
        Year,
        PlayCount,
        PlayDate,
        Hotness,
        Familiarity,
        FoundDate,
        ColumnCount
    };
    enum Role {
        LovedRole = Qt::UserRole, ///< whether the song is loved
        PlayingRole,              ///< whether this row is the one now playing
        BrokenRole,
        UnplayableRole, ///< whether the song can't be played because the machine is offline
        DownloadRole,   ///< what can be done about having the song on disk, in words; or nothing
    };

    using QAbstractTableModel::QAbstractTableModel;

    void setController(RVMainController* controller);
    /// The items have changed. Selection and scrolling stay by row number.
    void reload();
    /// Whether the source shown now has that column.
    [[nodiscard]] bool hasColumn(int column) const { return !missing_.contains(column); }
    /// Whether that is news. Of a column that this model does not know, nothing is.
    bool setColumnAvailable(const QString& identifier, bool available);
    /// The column that the library knows by that identifier, or none.
    [[nodiscard]] static std::optional<int> columnOf(const QString& identifier);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// What removing songs from the shown list is called; nothing where they can't be removed.
    [[nodiscard]] QString removalText() const;

  private:
    [[nodiscard]] QString text(const Record& track, int row, int column) const;
    [[nodiscard]] QString spokenText(const Record& track, const QModelIndex& index) const;
    [[nodiscard]] QString toolTip(const Record& track) const;
    [[nodiscard]] bool isPlaying(const Record& track) const;
    [[nodiscard]] QString downloadText(const Record& track) const;
    [[nodiscard]] bool isUnplayable(const Record& track) const;

    RVMainController* controller_ = nullptr;
    QSet<int> missing_; ///< columns that the source shown now has not
    int rows_ = 0;      ///< as last reported to the views
};

} // namespace zib
