// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHeaderView>

namespace zib {

/// The headings of a RowTable. The mark of the sorted column stands above its title, where there is room in
/// the narrowest column.
class RowHeader : public QHeaderView {
    Q_OBJECT

  public:
    explicit RowHeader(QWidget* parent)
        : QHeaderView(Qt::Horizontal, parent)
    {
    }

  protected:
    void initStyleOptionForIndex(QStyleOptionHeader* option, int logicalIndex) const override;
    void paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const override;
};

} // namespace zib
