// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "views/RowDelegate.h"

#include <QIcon>

namespace zib {

class SongTableModel;

/// Draws the cells of the song table: the marks and buttons, the running downloads, and the text in the
/// colour of the song's state. Edits the names in their cells.
class SongDelegate : public RowDelegate {
    Q_OBJECT

  public:
    SongDelegate(SongTableModel& model, QObject* parent);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    /// The editor has the text from the start: a reload must not take away what the user types.
    void setEditorData(QWidget* /*editor*/, const QModelIndex& /*index*/) const override {}
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;

  private:
    void paintSongText(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index,
                       Ground ground) const;

    SongTableModel& model_;
    QIcon speaker_;
    QIcon heart_;
    QIcon loved_;
    QIcon broken_;
    QIcon download_;
    QIcon stop_;
};

} // namespace zib
