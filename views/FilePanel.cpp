// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/FilePanel.h"

#include <QAbstractButton>
#include <QDialogButtonBox>
#include <QDir>
#include <QStandardPaths>
#include <QUrl>

namespace zib {

namespace {

constexpr QSize comfortableSize(880, 560);

QList<QUrl> usualPlaces()
{
    QList<QUrl> places{QUrl(QStringLiteral("file:"))}; // the whole computer
    for (const auto place : {QStandardPaths::HomeLocation, QStandardPaths::MusicLocation,
                             QStandardPaths::DownloadLocation, QStandardPaths::DocumentsLocation}) {
        const QUrl url = QUrl::fromLocalFile(QStandardPaths::writableLocation(place));
        if (!places.contains(url) && QDir(url.toLocalFile()).exists())
            places.append(url);
    }
    return places;
}

} // namespace

FilePanel::FilePanel(QWidget* parent, const QString& title, const QString& folder, const QString& filter)
    : QFileDialog(parent, title, folder, filter)
{
    resize(comfortableSize);
    setFileMode(QFileDialog::ExistingFile);
    setLabelText(QFileDialog::LookIn, tr("Folder:"));
    setSidebarUrls(usualPlaces());
}

QStringList FilePanel::askForFiles()
{
    return exec() == QDialog::Accepted ? selectedFiles() : QStringList();
}

QString FilePanel::askForFile()
{
    return askForFiles().value(0);
}

/// Of the toolkit's own panel only.
void FilePanel::showEvent(QShowEvent* event)
{
    if (auto* box = findChild<QDialogButtonBox*>())
        for (QAbstractButton* button : box->buttons())
            button->setIcon({}); // the words say it
    QFileDialog::showEvent(event);
}

} // namespace zib
