// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/AboutWindow.h"

#include "views/Theme.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

namespace zib {

namespace {

constexpr int windowWidth = 440;
constexpr int emblemSize = 96;

struct Library {
    const char* name;
    const char* purpose;
    const char* licence;
};

const Library libraries[] = {
    {"Qt", QT_TRANSLATE_NOOP("AboutWindow", "window, desktop"), "LGPL-3.0"},
    {"Qt WebEngine", QT_TRANSLATE_NOOP("AboutWindow", "pages about songs"), "LGPL-3.0, BSD"},
    {"FFmpeg", QT_TRANSLATE_NOOP("AboutWindow", "decoding"), "GPL-2.0+"},
    {"PulseAudio", QT_TRANSLATE_NOOP("AboutWindow", "sound"), "LGPL-2.1+"},
    {"curl", QT_TRANSLATE_NOOP("AboutWindow", "web requests"), "curl"},
    {"TagLib", QT_TRANSLATE_NOOP("AboutWindow", "tags"), "LGPL-2.1, MPL-1.1"},
    {"pugixml", QT_TRANSLATE_NOOP("AboutWindow", "replies of services"), "MIT"},
    {"OpenSSL", QT_TRANSLATE_NOOP("AboutWindow", "the library file"), "Apache-2.0"},
    {"libmicrohttpd", QT_TRANSLATE_NOOP("AboutWindow", "the bundled service"), "LGPL-2.1+"},
    {"tl::expected", QT_TRANSLATE_NOOP("AboutWindow", "results and failures"), "CC0-1.0"},
};

QLabel* makeLabel(const QString& text, const QString& objectName)
{
    auto* label = new QLabel(text);
    label->setObjectName(objectName);
    return label;
}

} // namespace

AboutWindow::AboutWindow()
{
    setWindowTitle(tr("About"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(makeHead());
    layout->addWidget(makeLibraries());
    setFixedWidth(windowWidth);
}

QWidget* AboutWindow::makeHead()
{
    auto* emblem = new QLabel;
    emblem->setPixmap(
        QIcon(QStringLiteral(":/zib/zib.svg")).pixmap(QSize(emblemSize, emblemSize), devicePixelRatioF()));
    auto* website = new QPushButton(tr("Website"));
    website->setAutoDefault(false);
    auto* words = new QVBoxLayout;
    words->setSpacing(Theme::within);
    words->addStretch();
    words->addWidget(makeLabel(QStringLiteral("Zib"), QStringLiteral("aboutName")));
    words->addWidget(
        makeLabel(tr("Version %1").arg(QCoreApplication::applicationVersion()), QStringLiteral("hint")));
    auto* promise = makeLabel(tr("Find music, hear it, keep what you love."), QString());
    promise->setWordWrap(true);
    words->addWidget(promise);
    words->addSpacing(Theme::between);
    words->addWidget(website, 0, Qt::AlignLeft);
    words->addStretch();
    auto* head = new QWidget(this);
    head->setObjectName(QStringLiteral("aboutHead"));
    head->setAttribute(Qt::WA_StyledBackground);
    auto* layout = new QHBoxLayout(head);
    layout->setContentsMargins(3 * Theme::between, 3 * Theme::between, 3 * Theme::between,
                               3 * Theme::between);
    layout->setSpacing(3 * Theme::between);
    layout->addWidget(emblem, 0, Qt::AlignTop);
    layout->addLayout(words, 1);
    connect(website, &QPushButton::clicked, this, &AboutWindow::websiteWanted);
    return head;
}

QWidget* AboutWindow::makeLibraries()
{
    auto* part = new QWidget(this);
    auto* layout = new QVBoxLayout(part);
    layout->setContentsMargins(3 * Theme::between, Theme::groups, 3 * Theme::between, 3 * Theme::between);
    layout->setSpacing(Theme::between);
    auto* licence =
        makeLabel(tr("Free software: use, study, share and improve it under the GNU General Public License, "
                     "version 3 or later. It comes without any warranty."),
                  QString());
    licence->setWordWrap(true);
    layout->addWidget(licence);
    layout->addSpacing(Theme::between);
    layout->addWidget(makeLabel(tr("Built on"), QStringLiteral("heading")));
    auto* table = new QGridLayout;
    table->setHorizontalSpacing(Theme::groups);
    table->setVerticalSpacing(Theme::within);
    for (const Library& library : libraries) {
        const int row = table->rowCount();
        table->addWidget(makeLabel(QString::fromLatin1(library.name), QString()), row, 0);
        table->addWidget(
            makeLabel(QCoreApplication::translate("AboutWindow", library.purpose), QStringLiteral("hint")),
            row, 1);
        table->addWidget(makeLabel(QString::fromLatin1(library.licence), QStringLiteral("hint")), row, 2);
    }
    table->setColumnStretch(1, 1);
    layout->addLayout(table);
    return part;
}

void AboutWindow::showCentred()
{
    // The style sheet's fonts, which come with polishing, decide how high the rows are.
    for (QWidget* part : findChildren<QWidget*>())
        part->ensurePolished();
    resize(windowWidth, heightForWidth(windowWidth));
    move(screen()->availableGeometry().center() - rect().center());
    show();
    setFocus(); // nothing waits to be pressed
    raise();
    activateWindow();
}

} // namespace zib
