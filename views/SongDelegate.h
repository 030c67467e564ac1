// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QStyledItemDelegate>

namespace zib {

/// Draws the cells of the song table: the marks, and the text in the colour of the song's state.
class SongDelegate : public QStyledItemDelegate {
    Q_OBJECT

  public:
    explicit SongDelegate(QObject* parent = nullptr);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

  private:
    void paintText(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;
    void paintMark(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;

    QIcon speaker_;
    QIcon heart_;
    QIcon loved_;
    QIcon broken_;
};

} // namespace zib
