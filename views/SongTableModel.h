// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/SongCells.h"
#include "library/SongColumns.h"
#include "records/Record.h"
#include "views/RowsModel.h"

#include <optional>

namespace zib {

class RVDataManager;

/// The shown songs as rows: a view of the library manager's items. Its columns are the SongColumns, by
/// number.
class SongTableModel : public RowsModel {
    Q_OBJECT

  public:
    using RowsModel::RowsModel;

    void setLibrary(const RVDataManager& library);

    [[nodiscard]] CellDecoration decoration(const QModelIndex& index) const;
    /// How far the row's download is, from 0 to 1; less than 0 where nobody knows. Nothing without one.
    [[nodiscard]] std::optional<double> progress(int row) const;
    /// Whether people may edit the column's texts in place.
    [[nodiscard]] static bool isEditable(SongColumn column);
    [[nodiscard]] static QString title(SongColumn column);
    [[nodiscard]] QString songId(int row) const;
    /// The row of the song, at that place or elsewhere; less than 0 when it is not shown.
    [[nodiscard]] int rowOf(const QString& songId, int likely) const;
    /// The next row from that one on, once around, whose song's name begins so; less than 0 for none.
    [[nodiscard]] int rowOfName(const QString& beginning, int from) const;
    /// Of an editor over one of the cells: the song's new text.
    void edit(const QString& songId, int row, SongColumn column, const QString& text);

    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

  Q_SIGNALS:
    void edited(const QString& songId, int row, zib::SongColumn column, const QString& text);

  protected:
    [[nodiscard]] int numberOfRows() const override;

  private:
    [[nodiscard]] Record track(int row) const;
    [[nodiscard]] QString text(SongColumn column, int row) const;
    [[nodiscard]] QString spokenText(SongColumn column, int row) const;
    [[nodiscard]] static QString spokenDuration(int seconds);
    /// The whole row as one would say it.
    [[nodiscard]] QString sentence(int row) const;
    [[nodiscard]] QString toolTip(SongColumn column, int row) const;

    const RVDataManager* library_ = nullptr;
    std::optional<SongCells> cells_;
};

} // namespace zib
