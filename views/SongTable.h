// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "views/RowTable.h"
#include "views/SongTableLayout.h"

#include <QElapsedTimer>

#include <memory>

namespace zib {

class RVDataManager;
class SongReordering;
class SongTableModel;
class UserDefaults;

/// The table of the shown songs.
class SongTable : public RowTable {
    Q_OBJECT

  public:
    /// The settings keep the column layouts.
    explicit SongTable(UserDefaults& defaults, QWidget* parent = nullptr);
    ~SongTable() override;

    /// Whose items it shows.
    void setLibrary(RVDataManager& library);
    [[nodiscard]] SongTableLayout& layout() { return layout_; }

    /// As a click on that cell: does nothing where there is no button.
    void press(SongColumn column, int row);
    /// Opens an editor in the current cell, or on the name where that cell has no text to edit.
    void editCurrent();

    // From the library manager
    void reloadData() override;
    void reloadCell(int row, const QString& column) override;
    void setAutosaveName(const QString& name) override { layout_.setName(name); }
    [[nodiscard]] QList<SortDescriptor> sortDescriptors() const override { return layout_.sortDescriptors(); }
    void setSortDescriptors(const QList<SortDescriptor>& descriptors) override;
    void setColumnAvailable(const QString& column, bool available) override;
    void removeSubviews() override;

    void keyboardSearch(const QString& typed) override;

  Q_SIGNALS:
    /// The selected song is to be played.
    void activated();
    /// The heart of that row was pressed.
    void loveToggled(int row);
    /// That row's song is to be downloaded, or no longer.
    void downloadPressed(int row);
    /// The selected songs are to be removed from what is shown.
    void deletePressed();
    /// The song in that row has a new text there.
    void edited(int row, zib::SongColumn column, const QString& text);
    /// The user sorts otherwise.
    void sorted();
    /// The menu of the selected rows is wanted there, in global coordinates.
    void menuRequested(const QPoint& at);
    void reloaded();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
    void startDrag(Qt::DropActions actions) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    explicit SongTable(SongTableModel* model, UserDefaults& defaults, QWidget* parent);

    void takeEdit(const QString& songId, int row, SongColumn column, const QString& text);
    void editNeighbour(int column, int step);
    [[nodiscard]] int rowAbove(const QPoint& place) const;
    void setDropRow(int row);

    SongTableModel* model_;
    SongTableLayout layout_;
    std::unique_ptr<SongReordering> reordering_;
    int dropRow_ = NoRow;        ///< above which a drop would put what is dragged
    bool clickedButton_ = false; ///< by the last click
    QString typed_;
    QElapsedTimer sinceTyped_;
};

} // namespace zib
