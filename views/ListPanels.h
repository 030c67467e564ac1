// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

class QWidget;

/// File panels for playlists and libraries as files. Modal; empty when the user cancels.
namespace zib {

/// Where a playlist of that name is to be written; the extension tells the format.
QString playlistExportPath(QWidget* parent, const QString& name);
QStringList playlistImportPaths(QWidget* parent);
QString libraryExportPath(QWidget* parent);
QString libraryImportPath(QWidget* parent);

} // namespace zib
