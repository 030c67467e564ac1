// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/preferences/ServicesPage.h"

#include "platform/SettingsKeys.h"
#include "platform/UserDefaults.h"
#include "views/Theme.h"
#include "views/preferences/ServiceRow.h"
#include "views/preferences/SettingControls.h"

#include <QBoxLayout>
#include <QCoreApplication>
#include <QLabel>
#include <QPushButton>
#include <QShowEvent>
#include <QUrl>

namespace zib {

namespace {

struct Text {
    QString key;
    const char* name;
    const char* sent;
};

const Text serviceTexts[] = {
    {settings::SongSearchHost, QT_TRANSLATE_NOOP("ServicesPage", "Song search"),
     QT_TRANSLATE_NOOP("ServicesPage", "Is sent what you search for, artists of your library when it "
                                       "recommends songs, and the artist that plays.")},
    {settings::MusicInfoHost, QT_TRANSLATE_NOOP("ServicesPage", "Music information"),
     QT_TRANSLATE_NOOP("ServicesPage", "Is sent artist, album and name of the song that plays.")},
    {settings::LyricsHost, QT_TRANSLATE_NOOP("ServicesPage", "Lyrics"),
     QT_TRANSLATE_NOOP("ServicesPage", "Is sent artist and name of the song whose page you look at.")},
    {settings::ReleaseHost, QT_TRANSLATE_NOOP("ServicesPage", "Releases"),
     QT_TRANSLATE_NOOP("ServicesPage", "Is sent artist and album of the song whose page you look at.")},
    {settings::PlaylistHost, QT_TRANSLATE_NOOP("ServicesPage", "Shared playlists"),
     QT_TRANSLATE_NOOP("ServicesPage", "Is sent the playlists that you share, with your name for others.")},
};

const Text siteTexts[] = {
    {settings::VideoSite, QT_TRANSLATE_NOOP("ServicesPage", "Videos"),
     QT_TRANSLATE_NOOP("ServicesPage", "Learns which video you look at.")},
    {settings::FacebookSite, QT_TRANSLATE_NOOP("ServicesPage", "Share on Facebook"),
     QT_TRANSLATE_NOOP("ServicesPage", "Is opened in your browser with the playlist's link.")},
    {settings::TwitterSite, QT_TRANSLATE_NOOP("ServicesPage", "Share on Twitter"),
     QT_TRANSLATE_NOOP("ServicesPage", "Is opened in your browser with the playlist's link.")},
};

QString translated(const char* text)
{
    return QCoreApplication::translate("ServicesPage", text);
}

} // namespace

ServicesPage::ServicesPage(UserDefaults& defaults, const WebServices& services)
    : defaults_(defaults)
{
    auto* again = new QPushButton(tr("Ask again"));
    again->setAutoDefault(false);
    auto* intro = new QHBoxLayout;
    intro->setSpacing(Theme::groups);
    intro->addWidget(makeHint(tr("Unless you name another host, the service that comes with Zib answers, on "
                                 "this computer. Another host is asked from the next request on.")),
                     1);
    intro->addWidget(again, 0, Qt::AlignTop);
    auto* layout = makePageLayout(this);
    layout->setSpacing(Theme::groups);
    layout->addLayout(intro);
    for (const Text& text : serviceTexts) {
        auto* row =
            new ServiceRow({text.key, translated(text.name), translated(text.sent)}, defaults, services);
        rows_.append(row);
        layout->addWidget(row);
    }
    addSites(*layout);
    layout->addStretch();
    connect(again, &QPushButton::clicked, this, &ServicesPage::probeAll);
}

void ServicesPage::addSites(QBoxLayout& layout)
{
    auto* sites = new QVBoxLayout;
    sites->setSpacing(Theme::within);
    sites->addWidget(makeHeading(tr("Web sites")));
    for (const Text& text : siteTexts)
        sites->addWidget(makeHint(
            tr("%1 · %2: %3")
                .arg(translated(text.name), QUrl(defaults_.string(text.key)).host(), translated(text.sent))));
    layout.addLayout(sites);
}

void ServicesPage::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (!event->spontaneous())
        probeAll();
}

void ServicesPage::probeAll()
{
    for (ServiceRow* row : rows_)
        row->probe();
}

} // namespace zib
