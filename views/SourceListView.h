// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/SourceTypes.h"
#include "records/Record.h"

#include <QListView>

class QStandardItemModel;

namespace zib {

/// The list at the left: the library, the playlists and the recent searches.
class SourceListView : public QListView {
    Q_OBJECT

  public:
    explicit SourceListView(QWidget* parent = nullptr);

    /// Lists these playlists and searches.
    void show(const QList<Record>& playlists, const QList<Record>& searches);
    using QListView::show;
    /// Marks the source that is shown. @param listIndex of a playlist or recent search.
    void markCurrent(SourceType source, FilterType filter, int listIndex);

  Q_SIGNALS:
    void libraryChosen(zib::FilterType filter);
    void playlistChosen(int index);
    void searchChosen(int index);

  protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

  private:
    void addHeading(const QString& title);
    void addSource(const QString& title, const QString& iconName, SourceType source, int number);

    QStandardItemModel* model_;
    QStringList shown_;  ///< kinds and names of the playlists and searches
    bool quiet_ = false; ///< the current row changes because the program sets it
};

} // namespace zib
