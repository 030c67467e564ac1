// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/ListPanels.h"

#include "library/playlists/PlaylistFile.h"
#include "services/utilities/PathUtilities.h"
#include "views/FilePanel.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

namespace zib {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(ListPanels)
};

QString startFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::MusicLocation);
}

QString libraryFilter()
{
    return Texts::tr("XML property list (*.xml)");
}

/// Asks for a file to write; a name without an extension gets the chosen format's.
QString exportPath(QWidget* parent, const QString& title, const QString& name, const QStringList& filters,
                   const QStringList& suffixes)
{
    FilePanel panel(parent, title, startFolder());
    panel.setFileMode(QFileDialog::AnyFile);
    panel.setAcceptMode(QFileDialog::AcceptSave);
    panel.setLabelText(QFileDialog::FileType, Texts::tr("Format:"));
    panel.setNameFilters(filters);
    panel.setDefaultSuffix(suffixes.first());
    QObject::connect(&panel, &QFileDialog::filterSelected, &panel, [&](const QString& filter) {
        const QString suffix = suffixes.value(filters.indexOf(filter));
        panel.setDefaultSuffix(suffix);
        const QString typed = panel.selectedFiles().value(0);
        if (suffixes.contains(pathExtension(typed)))
            panel.selectFile(lastPathComponent(stringByDeletingPathExtension(typed)) + QLatin1Char('.') +
                             suffix);
    });
    QString fileName = name;
    fileName.replace(QLatin1Char('/'), QLatin1Char('-'));
    panel.selectFile(fileName + QLatin1Char('.') + suffixes.first());
    return panel.askForFile();
}

} // namespace

QString playlistExportPath(QWidget* parent, const QString& name)
{
    return exportPath(parent, Texts::tr("Export playlist"), name,
                      {Texts::tr("M3U8 playlist (*.m3u8)"), Texts::tr("XSPF playlist (*.xspf)"),
                       Texts::tr("JSPF playlist (*.jspf)")},
                      {QStringLiteral("m3u8"), QStringLiteral("xspf"), QStringLiteral("jspf")});
}

QStringList playlistImportPaths(QWidget* parent)
{
    FilePanel panel(parent, Texts::tr("Import playlist"), startFolder(),
                    Texts::tr("Playlists (*.m3u8 *.m3u *.xspf *.jspf)"));
    panel.setFileMode(QFileDialog::ExistingFiles);
    return panel.askForFiles();
}

QString libraryExportPath(QWidget* parent)
{
    return exportPath(parent, Texts::tr("Export library"), Texts::tr("Zib Music Library"), {libraryFilter()},
                      {QStringLiteral("xml")});
}

QString libraryImportPath(QWidget* parent)
{
    return FilePanel(parent, Texts::tr("Import library"), startFolder(), libraryFilter()).askForFile();
}

} // namespace zib
