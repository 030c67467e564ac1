// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "views/RowTable.h"

#include <functional>

namespace zib {

/// A list of names, one of them chosen: the artists, or the albums.
class BrowserTable : public RowTable {
    Q_OBJECT

  public:
    explicit BrowserTable(const QString& title, QWidget* parent = nullptr);
    ~BrowserTable() override;

    struct Source {
        std::function<int()> rowCount;
        std::function<QString(int)> text;
    };
    void setSource(Source source);

    // From the library manager
    void reloadCell(int row, const QString& column) override;
    void setAutosaveName(const QString& /*name*/) override {} // one column, of one width
    [[nodiscard]] QList<SortDescriptor> sortDescriptors() const override { return {}; }
    void setSortDescriptors(const QList<SortDescriptor>& /*descriptors*/) override {}
    void setColumnAvailable(const QString& /*column*/, bool /*available*/) override {}
    void removeSubviews() override {}

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    class Model;

    explicit BrowserTable(Model* model, const QString& title, QWidget* parent);

    Model* model_;
};

} // namespace zib
