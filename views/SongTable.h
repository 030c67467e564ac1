// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/TableView.h"

#include <QHash>
#include <QTableView>
#include <QTimer>

namespace zib {

class RVMainController;
class SongTableModel;
class UserDefaults;

/// The table of the shown songs.
class SongTable : public QTableView, public TableView {
    Q_OBJECT

  public:
    /// The settings keep the column layouts.
    explicit SongTable(UserDefaults& defaults, QWidget* parent = nullptr);
    ~SongTable() override;

    /// Whose items it shows; null for none.
    void setController(RVMainController* controller);

    // From the library manager
    void reloadData() override;
    void scrollRowToVisible(int row) override;
    [[nodiscard]] QList<int> selectedRows() const override;
    void selectRows(const QList<int>& rows) override;
    void deselectAll() override;
    void reloadCell(int row, const QString& column) override;
    void setAutosaveName(const QString& name) override;
    [[nodiscard]] QList<SortDescriptor> sortDescriptors() const override { return descriptors_; }
    void setSortDescriptors(const QList<SortDescriptor>& descriptors) override;
    void setColumnAvailable(const QString& column, bool available) override;
    void removeSubviews() override;

  Q_SIGNALS:
    /// The selected song is to be played.
    void activated();
    /// The heart of that row was pressed.
    void loveToggled(int row);
    /// That row's song is to be downloaded, or no longer.
    void downloadPressed(int row);
    /// What is known of the selected songs is to be shown and edited.
    void informationPressed();
    /// The selected songs are to be removed from what is shown.
    void deletePressed();
    void reloaded();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    void applyLayout();
    void saveLayout();
    void saveUnsavedLayout();
    void setColumnShown(int column, bool shown);
    /// Gives the columns of text the width that is left.
    void fitColumns();
    /// The text columns' widths of now are the proportions to keep.
    void takeShares();
    void showColumnMenu(const QPoint& position);

    UserDefaults& defaults_;
    SongTableModel* model_;
    QList<SortDescriptor> descriptors_;
    QString autosaveName_;
    QTimer saveSoon_;
    QHash<int, double> shares_; ///< of the text columns, by column
    bool arranging_ = false;    ///< widths change because the program sets them
};

} // namespace zib
