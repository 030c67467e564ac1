// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/controller/ControllerFixture.h"
#include "tests/fakes/FakeWebView.h"
#include "views/MainWindow.h"
#include "views/SongTable.h"
#include "views/SongTableModel.h"

#include <QAccessible>

namespace zib {

/// The real window over the controller.
class WindowFixture : public ControllerWorld {
  protected:
    WindowFixture() { open(); }
    ~WindowFixture() override { close(); }

    void open()
    {
        window = std::make_unique<MainWindow>(defaults, PagePane{new QWidget, &pages});
        makeController(window->libraryView(), *window);
        window->attach(*controller);
        comeOnline();
        window->show();
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }
    void close()
    {
        if (window)
            window->close();
        quit();
        window.reset();
    }

    SongTable& table() { return *window->findChild<SongTable*>(); }
    QModelIndex cell(int row, SongColumn column) { return table().model()->index(row, int(column)); }
    CellDecoration decoration(int row, SongColumn column)
    {
        return static_cast<SongTableModel*>(table().model())->decoration(cell(row, column));
    }
    void click(int row, SongColumn column, bool twice = false)
    {
        const QPoint place = table().visualRect(cell(row, column)).center();
        QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, place);
        if (twice)
            QTest::mouseDClick(table().viewport(), Qt::LeftButton, {}, place);
    }
    /// The accessible control of that name, anywhere in the window.
    QAccessibleInterface* control(const QString& name)
    {
        return find(QAccessible::queryAccessibleInterface(window.get()), name);
    }
    template <typename Widget>
    Widget* widget(const QString& name)
    {
        QAccessibleInterface* found = control(name);
        return found ? qobject_cast<Widget*>(found->object()) : nullptr;
    }
    QString textOf(const QString& name)
    {
        QAccessibleTextInterface* text = control(name)->textInterface();
        return text->text(0, text->characterCount());
    }

    FakeWebView pages;
    std::unique_ptr<MainWindow> window;

  private:
    static QAccessibleInterface* find(QAccessibleInterface* from, const QString& name)
    {
        if (!from || from->text(QAccessible::Name) == name)
            return from;
        if (from->role() == QAccessible::Table)
            return nullptr;
        for (int child = 0; child < from->childCount(); ++child)
            if (QAccessibleInterface* found = find(from->child(child), name))
                return found;
        return nullptr;
    }
};

} // namespace zib
