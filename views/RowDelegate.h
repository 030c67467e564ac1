// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QStyledItemDelegate>

namespace zib {

/// Draws the cells of a RowTable. A selection stands out in the table that has the keyboard, and is quiet in
/// the others, so that one sees where the keys go.
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
    /// Draws the cell's text on it, from `left` on.
    static void paintText(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index,
                          const QColor& colour, int left);
    [[nodiscard]] static QColor textColour(Ground ground);
    [[nodiscard]] static QRect textArea(const QRect& cell);
};

} // namespace zib
