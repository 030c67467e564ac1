// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/BrowserTable.h"

#include "views/RowDelegate.h"
#include "views/RowsModel.h"

#include <QHeaderView>
#include <QKeyEvent>

#include <utility>

namespace zib {

class BrowserTable::Model : public RowsModel {
  public:
    explicit Model(QString title)
        : title_(std::move(title))
    {
    }

    void setSource(Source source)
    {
        source_ = std::move(source);
        reload();
    }
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : 1;
    }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override
    {
        if (!index.isValid())
            return {};
        if (role == Qt::TextAlignmentRole)
            return int(Qt::AlignLeft | Qt::AlignVCenter);
        return role == Qt::DisplayRole ? source_.text(index.row()) : QVariant();
    }
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override
    {
        if (section != 0 || orientation != Qt::Horizontal)
            return {};
        if (role == Qt::TextAlignmentRole)
            return int(Qt::AlignLeft | Qt::AlignVCenter);
        return role == Qt::DisplayRole ? title_ : QVariant();
    }

  protected:
    [[nodiscard]] int numberOfRows() const override { return source_.rowCount ? source_.rowCount() : 0; }

  private:
    QString title_;
    Source source_;
};

BrowserTable::BrowserTable(const QString& title, QWidget* parent)
    : BrowserTable(new Model(title), title, parent)
{
}

BrowserTable::BrowserTable(Model* model, const QString& title, QWidget* parent)
    : RowTable(model, 0, parent)
    , model_(model)
{
    setAccessibleName(title);
    setItemDelegate(new RowDelegate(this));
    setSelectionMode(SingleSelection);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    horizontalHeader()->setSectionsClickable(false);
}

BrowserTable::~BrowserTable() = default;

void BrowserTable::setSource(Source source)
{
    model_->setSource(std::move(source));
}

void BrowserTable::reloadCell(int row, const QString& /*column*/)
{
    update(model_->index(row, 0));
}

void BrowserTable::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Space) // plays or pauses, for the window
        event->ignore();
    else
        RowTable::keyPressEvent(event);
}

} // namespace zib
