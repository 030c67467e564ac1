// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/WelcomePlace.h"

#include "views/IconLabel.h"
#include "views/OfferedTags.h"
#include "views/Theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

namespace zib {

namespace {

constexpr int pictureSize = 64;
constexpr int wordsWidth = 440;

QLabel* makeLabel(const QString& text, const QString& objectName)
{
    auto* label = new QLabel(text);
    label->setObjectName(objectName);
    label->setWordWrap(true);
    return label;
}

} // namespace

WelcomePlace::WelcomePlace(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("welcome"));
    setAttribute(Qt::WA_StyledBackground);
    setAccessibleName(tr("Welcome"));
    auto* tags = new OfferedTags(this);
    auto* column = new QVBoxLayout;
    column->setSpacing(Theme::groups);
    column->addStretch(2);
    column->addWidget(makeLabel(tr("Welcome to Zib"), QStringLiteral("welcomeTitle")));
    column->addSpacing(Theme::between);
    column->addLayout(makeLines());
    column->addSpacing(Theme::between);
    column->addWidget(makeLabel(tr("Try a tag:"), QStringLiteral("emptyText")));
    column->addWidget(tags, 0, Qt::AlignLeft);
    column->addSpacing(Theme::between);
    column->addLayout(makeButtons());
    column->addStretch(3);
    auto* layout = new QHBoxLayout(this);
    layout->addStretch();
    layout->addLayout(column);
    layout->addStretch();
    connect(tags, &OfferedTags::tagChosen, this, &WelcomePlace::tagChosen);
    // Wherever the keyboard is: the place is only there until it is not wanted.
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &WelcomePlace::closeWanted);
}

QBoxLayout* WelcomePlace::makeLines()
{
    auto* lines = new QVBoxLayout;
    lines->setSpacing(Theme::groups);
    lines->addLayout(makeLine(QStringLiteral("welcome-find"), tr("Find"),
                              tr("Type an artist, some tags, or an artist that others should be similar to. "
                                 "Songs that can be played appear.")));
    lines->addLayout(makeLine(QStringLiteral("welcome-hear"), tr("Hear"),
                              tr("Double-click a song and it plays. “Now Playing” tells of it, of its artist "
                                 "and of its album.")));
    lines->addLayout(makeLine(QStringLiteral("welcome-keep"), tr("Keep"),
                              tr("The heart puts a song into your library. Make playlists, download songs, "
                                 "and bring the music that you have.")));
    return lines;
}

QBoxLayout* WelcomePlace::makeLine(const QString& picture, const QString& title, const QString& text)
{
    auto* words = new QVBoxLayout;
    words->setSpacing(Theme::within);
    words->addStretch();
    words->addWidget(makeLabel(title, QStringLiteral("emptyTitle")));
    auto* sentence = makeLabel(text, QStringLiteral("emptyText"));
    sentence->setFixedWidth(wordsWidth);
    words->addWidget(sentence);
    words->addStretch();
    auto* line = new QHBoxLayout;
    line->setSpacing(3 * Theme::between);
    line->addWidget(new IconLabel(picture, Tint::Accent, pictureSize, this));
    line->addLayout(words, 1);
    return line;
}

QBoxLayout* WelcomePlace::makeButtons()
{
    auto* add = new QPushButton(tr("Add your music…"), this);
    add->setObjectName(QStringLiteral("strongButton"));
    auto* close = new QPushButton(tr("Start"), this);
    close->setObjectName(QStringLiteral("plainButton"));
    close->setToolTip(tr("Closes this page (Escape)"));
    auto* row = new QHBoxLayout;
    row->setSpacing(Theme::between);
    row->addWidget(add);
    row->addWidget(close);
    row->addStretch();
    connect(add, &QPushButton::clicked, this, &WelcomePlace::addMusicWanted);
    connect(close, &QPushButton::clicked, this, &WelcomePlace::closeWanted);
    return row;
}

} // namespace zib
