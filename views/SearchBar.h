// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "views/RecentTerms.h"

#include <QWidget>

#include <optional>

class QCompleter;
class QLineEdit;
class QStringListModel;

namespace zib {

class BusyIndicator;
class Segments;
class UserDefaults;

/// The search-type control with the search field beside it.
class SearchBar : public QWidget {
    Q_OBJECT

  public:
    explicit SearchBar(QWidget* parent = nullptr);

    /// Keeps there what is searched for, and offers it while something is typed and at the down arrow; the
    /// Delete key takes an offered term away. The settings outlive the bar.
    void keepTermsIn(UserDefaults& defaults);

    /// @param type 0 artist, 1 tags, 2 similar artists.
    void setSearchType(int type);
    void setPlaceholder(const QString& text);
    void setBusy(bool busy);
    /// Puts the cursor into the field, all text selected.
    void focusField();

  Q_SIGNALS:
    void searchTypeChosen(int type);
    void searchRequested(const QString& text);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    Segments* makeTypes();
    void search(const QString& text);
    void offerTerms();
    void showTerms();
    void removeOfferedTerm();

    Segments* types_;
    QLineEdit* field_;
    BusyIndicator* busy_; ///< over the magnifying glass
    std::optional<RecentTerms> terms_;
    QStringListModel* offered_ = nullptr;
    QCompleter* completer_ = nullptr;
};

} // namespace zib
