// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a control that reports what the program set as if the user had, jumps to another place than was
// clicked, or hides its text from assistive programs.
#include "platform/SettingsKeys.h"
#include "tests/fakes/FakeUserDefaults.h"
#include "views/SearchBar.h"
#include "views/TextDrawing.h"
#include "views/TextLabel.h"
#include "views/Theme.h"
#include "views/Ticker.h"
#include "views/ValueSlider.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QCompleter>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace zib {
namespace {

/// The last percentage that the user chose, and how often.
struct Chosen {
    explicit Chosen(ValueSlider& slider)
    {
        QObject::connect(&slider, &ValueSlider::chosen, [this](double percent) {
            last = percent;
            ++count;
        });
    }
    double last = -1;
    int count = 0;
};

TEST(ValueSlider, GoesStraightToTheClickedPlace)
{
    VolumeSlider slider;
    slider.resize(212, 20); // 200 pixels between the ends of the knob's way
    Chosen chosen(slider);
    QTest::mouseClick(&slider, Qt::LeftButton, {}, QPoint(56, 10));
    EXPECT_NEAR(chosen.last, 25, 0.5);
    EXPECT_EQ(slider.value(), 25);
    QTest::mouseClick(&slider, Qt::LeftButton, {}, QPoint(211, 10));
    EXPECT_EQ(chosen.last, 100);
    QTest::mouseClick(&slider, Qt::LeftButton, {}, QPoint(0, 10));
    EXPECT_EQ(chosen.last, 0);
}

TEST(ValueSlider, BeginsWhereReadingBegins)
{
    VolumeSlider slider;
    slider.setLayoutDirection(Qt::RightToLeft);
    slider.resize(212, 20);
    Chosen chosen(slider);
    QTest::mouseClick(&slider, Qt::LeftButton, {}, QPoint(56, 10));
    EXPECT_NEAR(chosen.last, 75, 0.5);
    const QImage drawn = slider.grab().toImage();
    EXPECT_EQ(drawn.pixelColor(170, 10), Theme::current().accent);
    EXPECT_NE(drawn.pixelColor(20, 10), Theme::current().accent);
    QTest::keyClick(&slider, Qt::Key_Left);
    EXPECT_EQ(chosen.last, 80);
}

TEST(TextDrawing, ReadsATextItsOwnWayOnTheWindowsSide)
{
    constexpr int width = 200;
    const auto drawn = [](Qt::Alignment side, Qt::LayoutDirection ofWindow) {
        QImage image(width, 20, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        drawLine(painter, image.rect(), side | Qt::AlignVCenter, ofWindow, QStringLiteral("Dr. No!"));
        painter.end();
        return image;
    };
    EXPECT_EQ(drawn(Qt::AlignLeft, Qt::RightToLeft), drawn(Qt::AlignRight, Qt::LeftToRight));
    EXPECT_NE(drawn(Qt::AlignLeft, Qt::RightToLeft), drawn(Qt::AlignLeft, Qt::LeftToRight));
}

TEST(ValueSlider, WhatTheProgramShowsIsNoChoice)
{
    ProgressSlider slider;
    slider.setEnabled(true);
    Chosen chosen(slider);
    slider.showValue(40);
    EXPECT_EQ(slider.value(), 40);
    EXPECT_EQ(chosen.count, 0);
    QTest::keyClick(&slider, Qt::Key_Right);
    EXPECT_EQ(chosen.last, 42);
    // An assistive program sets the value as a person would.
    QAccessible::queryAccessibleInterface(&slider)->valueInterface()->setCurrentValue(70);
    EXPECT_EQ(chosen.last, 70);
}

TEST(ValueSlider, ADragOfTheProgressCountsWhereItEndsAndIsNotPulledBack)
{
    ProgressSlider slider;
    slider.setEnabled(true);
    slider.resize(212, 20);
    Chosen chosen(slider);
    QTest::mousePress(&slider, Qt::LeftButton, {}, QPoint(56, 10));
    QTest::mouseMove(&slider, QPoint(106, 10));
    slider.showValue(3); // the song goes on meanwhile
    EXPECT_EQ(slider.value(), 50);
    EXPECT_EQ(chosen.count, 0);
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, QPoint(156, 10));
    EXPECT_EQ(chosen.count, 1);
    EXPECT_NEAR(chosen.last, 75, 0.5);
}

TEST(Ticker, ScrollsOnlyWhatDoesNotFitAndOnlyWhereMotionIsWanted)
{
    FakeUserDefaults defaults;
    applyTheme(*qApp, defaults);
    Ticker ticker;
    ticker.resize(100, 20);
    const QString text = QStringLiteral("A title that is a good deal longer than its place");
    ticker.setText(text);
    EXPECT_FALSE(ticker.isScrolling()) << "nobody sees it";
    ticker.show();
    EXPECT_TRUE(ticker.isScrolling());
    ticker.resize(2000, 20);
    QTest::qWait(0);
    EXPECT_FALSE(ticker.isScrolling());
    defaults.setValue(settings::ReduceMotion, true);
    ticker.resize(100, 20);
    QTest::qWait(0);
    EXPECT_FALSE(ticker.isScrolling());
    EXPECT_EQ(ticker.toolTip(), text) << "so that the whole of it can be read";
    defaults.setValue(settings::ReduceMotion, false);
}

TEST(AccessibleTexts, HaveALastingNameAndTheTextOfTheMoment)
{
    Ticker ticker;
    ticker.setAccessibleName(QStringLiteral("Now playing"));
    ticker.setText(QStringLiteral("Artist - Song"));
    TextLabel label(QStringLiteral("Elapsed time"));
    label.setShownText(QStringLiteral("01:05"));
    const std::tuple<QWidget*, QString, QString> widgets[] = {
        {&ticker, QStringLiteral("Now playing"), QStringLiteral("Artist - Song")},
        {&label, QStringLiteral("Elapsed time"), QStringLiteral("01:05")}};
    for (const auto& [widget, name, text] : widgets) {
        QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(widget);
        ASSERT_NE(interface, nullptr);
        EXPECT_EQ(interface->text(QAccessible::Name), name);
        ASSERT_NE(interface->textInterface(), nullptr);
        EXPECT_EQ(interface->textInterface()->text(0, interface->textInterface()->characterCount()), text);
    }
}

TEST(SearchBar, OffersTheRecentTermsOfItsTypeAndForgetsThem)
{
    FakeUserDefaults defaults;
    SearchBar bar;
    bar.keepTermsIn(defaults);
    bar.show();
    bar.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&bar));
    bar.focusField();
    QStringList searches;
    QObject::connect(&bar, &SearchBar::searchRequested, [&](const QString& text) { searches.append(text); });
    auto* field = bar.findChild<QLineEdit*>();
    const auto search = [&](const QString& text) {
        field->setText(text);
        QTest::keyClick(field, Qt::Key_Return);
    };
    for (int n = 0; n < RecentTerms::termsKept + 2; ++n)
        search(QStringLiteral("Term %1").arg(n));
    search(QStringLiteral("term 5")); // known: comes to the front
    QCoreApplication::processEvents();
    EXPECT_EQ(RecentTerms(defaults).terms(0).size(), RecentTerms::termsKept);
    field->clear();
    QTest::keyClick(field, Qt::Key_Down);
    QAbstractItemView* offered = field->completer()->popup();
    ASSERT_TRUE(offered->isVisible());
    EXPECT_EQ(offered->model()->rowCount(), RecentTerms::termsKept);
    QTest::keyClick(offered, Qt::Key_Down);
    EXPECT_EQ(field->text(), QStringLiteral("term 5"));
    QTest::keyClick(offered, Qt::Key_Delete);
    EXPECT_FALSE(RecentTerms(defaults).terms(0).contains(QStringLiteral("term 5")));
    ASSERT_TRUE(offered->isVisible());
    QTest::keyClick(offered, Qt::Key_Down);
    searches.clear();
    QTest::keyClick(offered, Qt::Key_Return);
    EXPECT_EQ(searches, QStringList{field->text()}) << "once";
    EXPECT_TRUE(field->text().startsWith(QLatin1String("Term ")));
    EXPECT_FALSE(offered->isVisible());

    bar.setSearchType(1);
    EXPECT_TRUE(RecentTerms(defaults).terms(1).isEmpty());
    EXPECT_EQ(field->completer()->model()->rowCount(), 0);
}

TEST(SearchBar, ReportsTypesAndSearchesOfTheUserAlone)
{
    SearchBar bar;
    bar.show();
    QList<int> types;
    QStringList searches;
    QObject::connect(&bar, &SearchBar::searchTypeChosen, [&](int type) { types.append(type); });
    QObject::connect(&bar, &SearchBar::searchRequested, [&](const QString& text) { searches.append(text); });
    bar.setSearchType(2);
    EXPECT_TRUE(types.isEmpty());
    const auto segments = bar.findChildren<QPushButton*>();
    ASSERT_EQ(segments.size(), 3);
    EXPECT_TRUE(segments[2]->isChecked());
    QTest::mouseClick(segments[1], Qt::LeftButton);
    EXPECT_EQ(types, QList<int>{1});
    EXPECT_FALSE(segments[2]->isChecked());
    EXPECT_EQ(QAccessible::queryAccessibleInterface(segments[1])->role(), QAccessible::RadioButton);
    EXPECT_EQ(segments[1]->toolTip(), QStringLiteral("Find songs by tag(s, separated by comma)"));

    auto* field = bar.findChild<QLineEdit*>();
    QTest::keyClicks(field, QStringLiteral("jazz"));
    EXPECT_TRUE(searches.isEmpty());
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_EQ(searches, QStringList{QStringLiteral("jazz")});
}

} // namespace
} // namespace zib
