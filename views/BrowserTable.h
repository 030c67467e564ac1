// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/TableView.h"

#include <QListView>

#include <functional>

namespace zib {

/// A list of names, one of them chosen: the artists, or the albums.
class BrowserTable : public QListView, public TableView {
    Q_OBJECT

  public:
    explicit BrowserTable(const QString& name, QWidget* parent = nullptr);
    ~BrowserTable() override;

    struct Source {
        std::function<int()> rowCount;
        std::function<QString(int)> text;
    };
    void setSource(Source source);

    // From the library manager
    void reloadData() override;
    void reloadCell(int row, const QString& column) override;
    void scrollRowToVisible(int row) override;
    [[nodiscard]] QList<int> selectedRows() const override;
    void selectRows(const QList<int>& rows) override;
    void deselectAll() override;
    void setAutosaveName(const QString& /*name*/) override {} // one column, of one width
    [[nodiscard]] QList<SortDescriptor> sortDescriptors() const override { return {}; }
    void setSortDescriptors(const QList<SortDescriptor>& /*descriptors*/) override {}
    void setColumnAvailable(const QString& /*column*/, bool /*available*/) override {}
    void removeSubviews() override {}

  Q_SIGNALS:
    /// The user has chosen another name.
    void chosen();

  protected:
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

  private:
    class Model;

    Model* model_;
    bool selecting_ = false; ///< the program selects
};

} // namespace zib
