// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "views/Icons.h"

#include <QWidget>

namespace zib {

/// One of our drawings where there is nothing to press. It follows the theme; screen readers pass it by.
class IconLabel : public QWidget {
    Q_OBJECT

  public:
    /// @param size of its sides, in pixels.
    IconLabel(const QString& name, Tint tint, int size, QWidget* parent = nullptr);
    void setIcon(const QString& name, Tint tint);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QIcon icon_;
};

} // namespace zib
