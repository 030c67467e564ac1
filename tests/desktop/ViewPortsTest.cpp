// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a fake of an alert, of the desktop or of a table that answers otherwise than the real one.
#include "tests/views/WindowFixture.h"
#include "views/WidgetAlerts.h"
#include "views/WidgetDesktop.h"
#include "views/WidgetPasteboard.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QDesktopServices>
#include <QMessageBox>

namespace zib {
namespace {

/// An implementation of Alerts, and somebody who answers.
struct AlertsUnderTest {
    virtual ~AlertsUnderTest() = default;
    virtual Alerts& alerts() = 0;
    virtual void answerNextWith(AlertResult answer) = 0;
};

struct FakeAlertsUnderTest : AlertsUnderTest {
    Alerts& alerts() override { return fake; }
    void answerNextWith(AlertResult answer) override { fake.answers.append(answer); }
    FakeAlerts fake;
};

struct RealAlertsUnderTest : AlertsUnderTest {
    Alerts& alerts() override { return real; }
    void answerNextWith(AlertResult answer) override
    {
        QTimer::singleShot(0, qApp, [answer] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            if (box->checkBox())
                box->checkBox()->setChecked(answer.suppressed);
            QList<QAbstractButton*> buttons = box->buttons();
            for (QAbstractButton* button : buttons)
                if (button->text() == QString::number(answer.button))
                    return button->click();
            FAIL() << "no such button";
        });
    }
    WidgetAlerts real;
};

template <typename Type>
class AlertsContract : public testing::Test {
  protected:
    Type under;
};
using AlertsTypes = testing::Types<FakeAlertsUnderTest, RealAlertsUnderTest>;
TYPED_TEST_SUITE(AlertsContract, AlertsTypes);

TYPED_TEST(AlertsContract, TellTheButtonAndTheBox)
{
    const QStringList buttons{QStringLiteral("0"), QStringLiteral("1"), QStringLiteral("2")};
    for (const int button : {0, 1, 2}) {
        for (const bool suppressed : {false, true}) {
            this->under.answerNextWith({.button = button, .suppressed = suppressed});
            const AlertResult result = this->under.alerts().runModal({.style = Alert::Style::Warning,
                                                                      .messageText = QStringLiteral("m"),
                                                                      .informativeText = QStringLiteral("i"),
                                                                      .buttons = buttons,
                                                                      .showsSuppressionButton = true});
            EXPECT_EQ(result.button, button);
            EXPECT_EQ(result.suppressed, suppressed);
        }
    }
}

TEST(WidgetAlerts, ReturnPressesTheFirstButtonEscapeTheLastAndMarkupIsText)
{
    WidgetAlerts alerts;
    for (const auto& [key, expected] : {std::pair(Qt::Key_Return, 0), std::pair(Qt::Key_Escape, 1)}) {
        QTimer::singleShot(0, qApp, [key = key] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            EXPECT_EQ(box->textFormat(), Qt::PlainText);
            QTest::keyClick(box, key);
        });
        EXPECT_EQ(alerts
                      .runModal({.messageText = QStringLiteral("<b>m</b>"),
                                 .informativeText = {},
                                 .buttons = {QStringLiteral("OK"), QStringLiteral("Cancel")}})
                      .button,
                  expected);
    }
}

/// An implementation of Desktop that has a program for addresses of the scheme "zib-known" and for no other.
struct FakeDesktopUnderTest {
    bool openUrl(const QUrl& url)
    {
        fake.opens = url.scheme() == QLatin1String("zib-known");
        return fake.openUrl(url);
    }
    QList<QUrl> opened() const { return fake.opened; }
    Desktop& desktop() { return fake; }
    FakeDesktop fake;
};

class RealDesktopUnderTest : public QObject {
    Q_OBJECT

  public:
    RealDesktopUnderTest() { QDesktopServices::setUrlHandler(QStringLiteral("zib-known"), this, "take"); }
    ~RealDesktopUnderTest() override { QDesktopServices::unsetUrlHandler(QStringLiteral("zib-known")); }
    Q_SLOT void take(const QUrl& url) { opened_.append(url); }
    bool openUrl(const QUrl& url) { return real.openUrl(url); }
    QList<QUrl> opened() const { return opened_; }
    Desktop& desktop() { return real; }
    WidgetDesktop real;

  private:
    QList<QUrl> opened_;
};

template <typename Type>
class DesktopContract : public testing::Test {
  protected:
    Type under;
};
using DesktopTypes = testing::Types<FakeDesktopUnderTest, RealDesktopUnderTest>;
TYPED_TEST_SUITE(DesktopContract, DesktopTypes);

TYPED_TEST(DesktopContract, OpensWhatThereIsAProgramForAndSaysWhetherThereIs)
{
    const QUrl known(QStringLiteral("zib-known:there"));
    EXPECT_TRUE(this->under.openUrl(known));
    EXPECT_EQ(this->under.opened(), QList<QUrl>{known});
    EXPECT_FALSE(this->under.openUrl(QUrl(QStringLiteral("zib-unknown:there"))));
    this->under.desktop().beep();
    this->under.desktop().bringToFront(); // also without a window
}

TEST(WidgetDesktop, BringsAHiddenOrMinimizedWindowBack)
{
    QWidget window;
    WidgetDesktop desktop;
    desktop.setMainWindow(&window);
    desktop.bringToFront();
    EXPECT_TRUE(window.isVisible());
    window.setWindowState(Qt::WindowMaximized | Qt::WindowMinimized);
    desktop.bringToFront();
    EXPECT_EQ(window.windowState() & ~Qt::WindowActive, Qt::WindowMaximized);
}

/// A table of as many rows as the test says.
class FakeTableUnderTest : public testing::Test {
  protected:
    FakeTableUnderTest()
    {
        fake.rowCount = [this] { return rows_; };
    }
    TableView& tableView() { return fake; }
    void setRows(int rows)
    {
        rows_ = rows;
        fake.reloadData();
    }

  private:
    FakeTableView fake;
    int rows_ = 0;
};

class RealTableUnderTest : public WindowFixture {
  protected:
    TableView& tableView() { return table(); }
    /// The same search over and over, with another number of songs.
    void setRows(int rows)
    {
        QList<Record> songs;
        for (int row = 0; row < rows; ++row)
            songs.append(webSong(row + 1));
        if (library->searches().isEmpty()) {
            showAsSearch(songs);
            return;
        }
        const QList<int> selected = table().selectedRows();
        library->searches().first().set(keys::Tracks, songs);
        library->setCurrentPlaylistIndex(0); // deselects
        table().selectRows(selected);
    }
};

template <typename Fixture>
class TableViewContract : public Fixture {
};
using TableTypes = testing::Types<FakeTableUnderTest, RealTableUnderTest>;
TYPED_TEST_SUITE(TableViewContract, TableTypes);

TYPED_TEST(TableViewContract, SelectionStandsByRowAndInOrder)
{
    TableView& table = this->tableView();
    this->setRows(5);
    EXPECT_EQ(table.selectedRows(), QList<int>());
    table.selectRows({3, 1});
    EXPECT_EQ(table.selectedRows(), (QList<int>{1, 3}));
    table.reloadData();
    EXPECT_EQ(table.selectedRows(), (QList<int>{1, 3}));
    table.selectRows({2, 2, 7, -1});
    EXPECT_EQ(table.selectedRows(), QList<int>{2});
    table.selectRows({0, 4});
    this->setRows(3);
    EXPECT_EQ(table.selectedRows(), QList<int>{0}) << "rows that are gone are not selected";
    table.deselectAll();
    EXPECT_EQ(table.selectedRows(), QList<int>());
    table.scrollRowToVisible(2);
    table.scrollRowToVisible(99);
    table.setAutosaveName(QString());
    this->setRows(0);
    EXPECT_EQ(table.selectedRows(), QList<int>());
}

TEST(WidgetPasteboard, HoldsWhatWasPutThereLast)
{
    WidgetPasteboard pasteboard;
    pasteboard.setString(QStringLiteral("first"));
    pasteboard.setString(QStringLiteral("http://lists.example/playlists/1/x"));
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("http://lists.example/playlists/1/x"));
}

} // namespace
} // namespace zib

#include "ViewPortsTest.moc"
