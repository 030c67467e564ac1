// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QStyledItemDelegate>

class QIcon;

namespace zib {

/// Draws the cells of a RowTable: text, marks, text behind a mark, and progress. A selection stands out in
/// the table that has the keyboard, and is quiet in the others, so that one sees where the keys go. Where
/// people read from the right, cells are mirrored.
class RowDelegate : public QStyledItemDelegate {
    Q_OBJECT

  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    /// Shows a text that does not fit, where the cell has no tip of its own.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

  protected:
    enum class Ground { Plain, Quiet, Accent };

    /// Draws the cell's ground.
    Ground paintGround(QPainter* painter, const QStyleOptionViewItem& option) const;
    /// Draws the cell's text on it; with a mark, behind that.
    static void paintText(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index,
                          const QColor& colour);
    static void paintMarkedText(QPainter* painter, const QStyleOptionViewItem& option,
                                const QModelIndex& index, const QColor& colour, const QIcon& mark,
                                Ground ground);
    /// Draws a mark in the middle of the cell.
    static void paintMark(QPainter* painter, const QRect& cell, const QIcon& mark, Ground ground);
    /// Draws how far something is, with the number.
    /// @param part from 0 to 1; less than 0 where nobody knows.
    static void paintProgress(QPainter* painter, const QStyleOptionViewItem& option, double part,
                              Ground ground);
    [[nodiscard]] static QColor textColour(Ground ground);
    [[nodiscard]] static QRect textArea(const QRect& cell);

  private:
    static void paintTextIn(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index,
                            const QColor& colour, const QRect& area);
};

} // namespace zib
