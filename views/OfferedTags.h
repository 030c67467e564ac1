// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

namespace zib {

/// A row of tags to try a search with: each is a button.
class OfferedTags : public QWidget {
    Q_OBJECT

  public:
    explicit OfferedTags(QWidget* parent = nullptr);

  Q_SIGNALS:
    /// One of them was pressed.
    void tagChosen(const QString& tag);
};

} // namespace zib
