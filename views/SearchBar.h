// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QButtonGroup;
class QLineEdit;

namespace zib {

class BusyIndicator;

/// The search-type control with the search field beside it.
class SearchBar : public QWidget {
    Q_OBJECT

  public:
    explicit SearchBar(QWidget* parent = nullptr);

    /// @param type 0 artist, 1 tags, 2 similar artists.
    void setSearchType(int type);
    void setPlaceholder(const QString& text);
    void setBusy(bool busy);
    /// Puts the cursor into the field, all text selected.
    void focusField();

  Q_SIGNALS:
    void searchTypeChosen(int type);
    void searchRequested(const QString& text);

  private:
    QWidget* makeSegments();

    QButtonGroup* types_;
    QLineEdit* field_;
    BusyIndicator* busy_;
};

} // namespace zib
