// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/CoverField.h"
#include "views/EmptyPlace.h"
#include "views/Icons.h"
#include "views/NowPlayingPanel.h"
#include "views/gallery/Demos.h"

#include <QBuffer>
#include <QDialog>
#include <QDir>
#include <QGridLayout>
#include <QLabel>
#include <QLinearGradient>
#include <QPainter>

namespace zib {

namespace {

/// A picture as a song's file may hold it.
QByteArray someCover()
{
    QImage picture(288, 288, QImage::Format_RGB32);
    QPainter painter(&picture);
    QLinearGradient sky(0, 0, 0, 288);
    sky.setColorAt(0, QColor(0x2a4d69));
    sky.setColorAt(1, QColor(0xf2b880));
    painter.fillRect(picture.rect(), sky);
    painter.end();
    QByteArray file;
    QBuffer buffer(&file);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "PNG");
    return file;
}

NowPlayingPanel* makePanel(const QString& header, const QString& title, int percent)
{
    auto* panel = new NowPlayingPanel;
    panel->setFixedWidth(440);
    panel->setHeader(header);
    panel->setTickerText(title);
    panel->setProgressEnabled(percent > 0);
    panel->setProgress(percent);
    panel->setElapsedText(percent > 0 ? QStringLiteral("01:28") : QString());
    panel->setRemainingText(percent > 0 ? QStringLiteral("-02:13") : QString());
    return panel;
}

void fillPanel(Page& page)
{
    page.add(QStringLiteral("Empty"), makePanel(QString(), QStringLiteral("Find some music"), 0));
    NowPlayingPanel* plays =
        makePanel(QStringLiteral("Night Roads"), QStringLiteral("Kestrel Motorway - Home"), 40);
    plays->setArtwork(Artwork::Standard);
    plays->setStreamingMarkVisible(true);
    page.add(QStringLiteral("From the web"), plays);
    NowPlayingPanel* withCover = makePanel(longText, longText, 40);
    withCover->setArtworkPicture(someCover());
    page.add(QStringLiteral("With a cover,\nlong text"), withCover);
}

void addCover(Page& page, const QString& caption, const QByteArray& cover, bool canChange)
{
    auto* dialog = new QDialog;
    dialog->setWindowFlags(Qt::Widget);
    auto* layout = new QGridLayout(dialog);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(new CoverField(cover, canChange, dialog));
    page.add(caption, dialog);
}

void fillCover(Page& page)
{
    addCover(page, QStringLiteral("Empty"), {}, true);
    addCover(page, QStringLiteral("With a cover"), someCover(), true);
    addCover(page, QStringLiteral("Not to be changed"), someCover(), false);
}

void fillEmpty(Page& page)
{
    auto* place = new EmptyPlace;
    place->say(QStringLiteral("No songs found"),
               QStringLiteral("Check the spelling, or try a tag such as one of these."));
    place->setFixedSize(520, 220);
    page.add(QStringLiteral("With tags"), place);
    auto* wordy = new EmptyPlace;
    wordy->say(QStringLiteral("Your library is empty"), longText + QStringLiteral(". ") + longText +
                                                            QStringLiteral(". ") + longText +
                                                            QLatin1Char('.'));
    wordy->setFixedSize(520, 220);
    page.add(QStringLiteral("Long text"), wordy);
}

void fillIcons(Page& page)
{
    const std::tuple<QString, Tint, int, bool> kinds[] = {
        {QStringLiteral("Small"), Tint::Secondary, 16, true},
        {QStringLiteral("Of the bar"), Tint::Text, 20, true},
        {QStringLiteral("Large"), Tint::Accent, 28, true},
        {QStringLiteral("Disabled"), Tint::Text, 20, false}};
    for (const auto& [caption, tint, size, enabled] : kinds) {
        auto* sheet = new QWidget;
        auto* grid = new QGridLayout(sheet);
        grid->setContentsMargins(0, 0, 0, 0);
        int number = 0;
        const QStringList files = QDir(QStringLiteral(":/zib/icons")).entryList();
        for (const QString& file : files) {
            auto* label = new QLabel;
            label->setPixmap(icon(file.chopped(4), tint)
                                 .pixmap(QSize(size, size), sheet->devicePixelRatioF(),
                                         enabled ? QIcon::Normal : QIcon::Disabled));
            label->setToolTip(file.chopped(4));
            grid->addWidget(label, number / 14, number % 14);
            ++number;
        }
        page.add(caption, sheet);
    }
}

} // namespace

QList<Demo> placeDemos()
{
    return {{QStringLiteral("now-playing"), QStringLiteral("Now playing"), fillPanel},
            {QStringLiteral("cover"), QStringLiteral("Cover"), fillCover},
            {QStringLiteral("empty-place"), QStringLiteral("Empty place"), fillEmpty},
            {QStringLiteral("icons"), QStringLiteral("Drawings"), fillIcons}};
}

} // namespace zib
