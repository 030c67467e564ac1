// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts pages that do more than show: what people on the web write stands in them unescaped, and the real
// engine is asked here what comes of it.
#include "platform/desktop/webview/WebPane.h"
#include "tests/desktop/Eventually.h"
#include "tests/desktop/HostilePages.h"
#include "tests/support/TestHttpServer.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QTemporaryDir>
#include <QTest>
#include <QUrlQuery>

#include <gtest/gtest.h>

#include <algorithm>

namespace zib {
namespace {

struct Asked : WebViewDelegate {
    NavigationPolicy decidePolicyForNavigationAction(const QString& address, NavigationType type,
                                                     const QByteArray& body) override
    {
        static const char* const names[] = {"click", "form", "other"};
        actions << QStringLiteral("%1 %2 %3")
                       .arg(QLatin1String(names[int(type)]), address, QString::fromUtf8(body))
                       .trimmed();
        return policy;
    }
    void mouseDidMoveOverElement(const QString& link) override { hovered << link; }

    QStringList actions;
    QStringList hovered;
    NavigationPolicy policy = NavigationPolicy::Refuse;
};

void write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

class WebPaneTest : public testing::Test {
  protected:
    void SetUp() override
    {
        QDir(around_.path()).mkdir(QStringLiteral("files"));
        QImage picture(3, 3, QImage::Format_RGB32);
        picture.fill(Qt::red);
        picture.save(around_.filePath(QStringLiteral("secret.png")));
        picture.save(files(QStringLiteral("inside.png")));
        QFile::link(around_.filePath(QStringLiteral("secret.png")), files(QStringLiteral("link.png")));
        write(files(QStringLiteral("own.js")), "window.own = 1;");
        for (const QString& place :
             {around_.filePath(QStringLiteral("hit.js")), files(QStringLiteral("hit.js"))})
            write(place, "window.hit = 1;");
        write(files(QStringLiteral("drawn.svg")),
              "<svg xmlns='http://www.w3.org/2000/svg' width='5' height='5'/>");
        write(around_.filePath(QStringLiteral("hit.html")), "<script>top.hit = 1</script>");
        QFile png(files(QStringLiteral("inside.png")));
        ASSERT_TRUE(png.open(QIODevice::ReadOnly));
        video_.serve("/picture.png", {.body = png.readAll(), .headers = {{"Content-Type", "image/png"}}});

        pane().setDelegate(&asked_);
        pane().show();
        QApplication::setActiveWindow(&pane());
    }
    void TearDown() override { pane().setDelegate(nullptr); }

    /// One for all tests, as the program has one.
    static WebPane& pane()
    {
        static auto* const pane = [] {
            auto* made =
                new WebPane({QStringLiteral(ZIB_WEB_ENGINE), QString::fromLatin1(videoSite()), true});
            made->resize(800, 600);
            return made;
        }();
        return *pane;
    }
    static TestHttpServer& videoServer()
    {
        static TestHttpServer server;
        return server;
    }
    static QByteArray videoSite() { return videoServer().url("").mid(7); }

    [[nodiscard]] QString files(const QString& name) const
    {
        return around_.filePath(QStringLiteral("files/")) + name;
    }
    [[nodiscard]] QByteArray filled(QByteArray value) const
    {
        const QByteArray host = evil_.url("").mid(7);
        value.replace("WSEVIL", "ws://" + host).replace("'//EVIL", "'//" + host).replace("EVILHOST", host);
        return value.replace("EVIL", "http://" + host)
            .replace("VIDEO", "http://" + videoSite())
            .replace("OUTSIDE", around_.path().toUtf8())
            .replace("HIT", "window.hit=1")
            .replace("STYLE", "style='position:fixed;inset:0;display:block;width:100%;height:100%'");
    }
    /// Shows a page with the value in it and waits for what the page's own script tells of it: the pictures
    /// that show and whatever else it is asked to add.
    QUrlQuery show(const QByteArray& value, const QByteArray& script = {}, const QByteArray& add = "''")
    {
        const QByteArray mark = QByteArray::number(++serial_) + "mark";
        const QByteArray tell = "/tell" + QByteArray::number(serial_);
        const QByteArray html =
            "<!DOCTYPE html><html><head><meta charset=utf-8><script nonce='" + mark +
            "' src='own.js'></script></head><body>" + value + "<script nonce='" + mark + "'>" + script +
            "</script></body></html><!--'>\"--><script nonce='" + mark +
            "'>setTimeout(() => { new Image().src = '" + reports_.url(tell) +
            "?' + new URLSearchParams({ own: String(window.own), hit: String(window.hit), "
            "pictures: [...document.images].map(i => i.naturalWidth).join(), add: " +
            add + "}) }, 150)</script>";
        pane().loadHtml(html, mark, QUrl::fromLocalFile(files({})).toString());
        QUrlQuery told;
        EXPECT_TRUE(eventually([&] {
            for (const TestRequest& request : reports_.requests())
                if (request.target.startsWith(tell + '?')) {
                    told = QUrlQuery(QString::fromUtf8(request.target.mid(tell.size() + 1)));
                    return true;
                }
            return false;
        })) << "the page's own script did not run";
        return told;
    }
    static QString field(const QUrlQuery& told, const char* name)
    {
        return told.queryItemValue(QLatin1String(name), QUrl::FullyDecoded);
    }
    /// The widget that takes the mouse in the middle of the pane.
    static QWidget* target()
    {
        QWidget* child = nullptr;
        eventually([&] {
            child = pane().childAt(pane().rect().center());
            return child && child->isVisible();
        });
        return child;
    }
    static void click() { QTest::mouseClick(target(), Qt::LeftButton); }
    void expectNothingHappened(const QUrlQuery& told)
    {
        EXPECT_EQ(field(told, "hit"), QStringLiteral("undefined"));
        EXPECT_TRUE(evil_.requests().empty()) << evil_.requests().front().target.toStdString();
        EXPECT_EQ(asked_.actions, QStringList());
        EXPECT_EQ(QApplication::topLevelWidgets().count(&pane()), 1);
    }

    QTemporaryDir around_;
    TestHttpServer evil_;    ///< whoever asks here has got out
    TestHttpServer reports_; ///< hears what pages tell
    TestHttpServer& video_ = videoServer();
    Asked asked_;
    int serial_ = 0;
};

// Has to be the first: the engine is loaded once a process.
TEST(WebPaneBeforeTheFirstPage, HasNoEngine)
{
    WebPane pane({QStringLiteral(ZIB_WEB_ENGINE), {}, true});
    pane.show();
    pane.clear();
    pane.setBusyGearShown(true);
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&pane));
    QFile libraries(QStringLiteral("/proc/self/maps"));
    ASSERT_TRUE(libraries.open(QIODevice::ReadOnly));
    EXPECT_FALSE(libraries.readAll().contains("WebEngineCore"));
}

TEST_F(WebPaneTest, AHostileValueOnlyShows)
{
    for (const HostileValue& hostile : kHostileValues) {
        SCOPED_TRACE(hostile.name);
        // An open tag swallows the page's own script, which then tells nothing: the page's end does.
        const QUrlQuery told = show(filled(hostile.value));
        expectNothingHappened(told);
        for (const QString& width : field(told, "pictures").split(QLatin1Char(',')))
            EXPECT_TRUE(width.isEmpty() || width == QLatin1String("0")) << width.toStdString();
        const QUrlQuery next = show("<img src='inside.png'>");
        EXPECT_EQ(field(next, "own"), QStringLiteral("1"));
        EXPECT_EQ(field(next, "pictures"), QStringLiteral("3"));
        expectNothingHappened(next);
    }
}

TEST_F(WebPaneTest, AClickIntoATrapDoesNothing)
{
    for (const HostileValue& hostile : kHostileTraps) {
        SCOPED_TRACE(hostile.name);
        show(filled(hostile.value));
        click();
        expectNothingHappened(show("after"));
    }
}

TEST_F(WebPaneTest, ThePagesOwnScriptIsNotTrustedEither)
{
    for (const HostileValue& refused : kRefusedScripts) {
        SCOPED_TRACE(refused.name);
        expectNothingHappened(show({}, filled(refused.value)));
    }
}

TEST_F(WebPaneTest, PicturesAndScriptsOfThePageWork)
{
    const QByteArray byAddress = QUrl::fromLocalFile(files(QStringLiteral("inside.png"))).toEncoded();
    const QUrlQuery told = show("<img src='inside.png'><img src='" + video_.url("/picture.png") +
                                "'><img src='" + byAddress + "'><img src='drawn.png'>");
    EXPECT_EQ(field(told, "own"), QStringLiteral("1"));
    EXPECT_EQ(field(told, "pictures"), QStringLiteral("3,3,3,5"));
}

TEST_F(WebPaneTest, AClickIsAskedAbout)
{
    const std::pair<QByteArray, QString> links[] = {
        {"zib://search/artist/Two Words", QStringLiteral("click zib://search/artist/Two%20Words")},
        {"zib://search/artist/AC%2FDC+x", QStringLiteral("click zib://search/artist/AC%2FDC+x")},
        {"zib://search/tag/Björk", QStringLiteral("click zib://search/tag/Bj%C3%B6rk")},
        {"http://example.org/a?b=c", QStringLiteral("click http://example.org/a?b=c")},
    };
    for (const auto& [link, action] : links) {
        SCOPED_TRACE(link.toStdString());
        show(filled("<a STYLE href=\"" + link + "\">x</a>"));
        asked_.actions.clear();
        click();
        EXPECT_TRUE(eventually([&] { return !asked_.actions.isEmpty(); }));
        EXPECT_EQ(asked_.actions, QStringList{action});
    }
    show(filled("<a STYLE target=_blank href='http://example.org/new'>x</a>"));
    asked_.actions.clear();
    click();
    EXPECT_TRUE(eventually([&] { return !asked_.actions.isEmpty(); }));
    EXPECT_EQ(asked_.actions, QStringList{QStringLiteral("click http://example.org/new")});
}

TEST_F(WebPaneTest, ASubmittedFormTellsWhatWasTyped)
{
    show(filled("<form action='zib://search/artist/' method=post><input STYLE name=Artist></form>"));
    click();
    QTest::keyClicks(target(), QStringLiteral("two words"));
    QTest::keyClick(target(), Qt::Key_Return);
    EXPECT_TRUE(eventually([&] { return !asked_.actions.isEmpty(); }));
    EXPECT_EQ(asked_.actions, QStringList{QStringLiteral("form zib://search/artist/ Artist=two+words")});
}

TEST_F(WebPaneTest, TheLinkUnderTheMouseIsTold)
{
    show(filled("<a STYLE href='zib://search/tag/jazz'>x</a>"));
    QTest::mouseMove(target(), QPoint(100, 100));
    QTest::mouseMove(target(), QPoint(120, 120));
    EXPECT_TRUE(eventually([&] { return asked_.hovered.contains(QLatin1String("zib://search/tag/jazz")); }));
    show("nothing");
    QTest::mouseMove(target(), QPoint(140, 140));
    EXPECT_TRUE(eventually([&] { return asked_.hovered.last().isEmpty(); }));
}

TEST_F(WebPaneTest, APageOfAnySizeShows)
{
    // The length is the whole text's, in characters; laying it out would take the time.
    const QUrlQuery told = show("<div hidden>" + QByteArray("canção ").repeated(750'000) + "</div>", {},
                                "document.querySelector('div').textContent.length");
    EXPECT_EQ(field(told, "add"), QString::number(7 * 750'000));
}

TEST_F(WebPaneTest, OnlyTheVideoSiteStandsInAFrame)
{
    video_.serve("/embed", {.body = "<img src='/framed.png'>", .headers = {{"Content-Type", "text/html"}}});
    const auto framed = [this] {
        return std::ranges::any_of(
            video_.requests(), [](const TestRequest& request) { return request.target == "/framed.png"; });
    };
    const QByteArray page = "<iframe src='" + video_.url("/embed") + "'></iframe>";
    show(page);
    EXPECT_EQ(asked_.actions,
              QStringList{QStringLiteral("other ") + QString::fromLatin1(video_.url("/embed"))});
    EXPECT_FALSE(framed());
    asked_.policy = NavigationPolicy::Load;
    show(page);
    EXPECT_TRUE(eventually(framed));
}

TEST_F(WebPaneTest, ThePageFollowsThePaletteIntoTheDark)
{
    const QByteArray page = "<style>p{opacity:1}@media (prefers-color-scheme: dark){p{opacity:0.5}}"
                            "</style><p>x</p>";
    const QByteArray shown = "getComputedStyle(document.querySelector('p')).opacity";
    pane().setPalette(QPalette(Qt::white));
    EXPECT_EQ(field(show(page, {}, shown), "add"), QStringLiteral("1"));
    pane().setPalette(QPalette(Qt::black));
    EXPECT_EQ(field(show(page, {}, shown), "add"), QStringLiteral("0.5"));
}

TEST_F(WebPaneTest, TheGearStandsInTheMiddle)
{
    EXPECT_FALSE(pane().isBusyGearShown());
    pane().setBusyGearShown(true);
    EXPECT_TRUE(pane().isBusyGearShown());
    EXPECT_EQ(pane().findChild<BusyGear*>()->geometry(), QRect((800 - 32) / 2, (600 - 32) / 2, 32, 32));
    pane().setBusyGearShown(false);
}

TEST(WebPaneWithoutEngine, SaysSo)
{
    WebPane pane({QStringLiteral("/no/such/library.so"), {}, true});
    pane.loadHtml("<p>", "mark", QStringLiteral("file:///"));
    pane.show();
    ASSERT_TRUE(QTest::qWaitFor([&] { return pane.findChild<QLabel*>() != nullptr; }));
    EXPECT_EQ(pane.childAt(pane.rect().center())->objectName(), QStringLiteral("noEngine"));
}

} // namespace
} // namespace zib
