// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringView>

// Pure functions on the text of a path or of an address, usable from any thread. They ask no file system.
namespace zib {

/// What stands after the last slash, slashes at the very end aside; "/" for a text of slashes alone.
QString lastPathComponent(QStringView path);
/// What stands after the last full stop of the last component; empty where there is none, or where it is the
/// component's first or last character.
QString pathExtension(QStringView path);
/// The path without slashes at its end and without its extension and the full stop before it.
QString stringByDeletingPathExtension(QStringView path);
/// The two with exactly one slash between them; an empty one adds nothing.
QString stringByAppendingPathComponent(QStringView path, QStringView component);
/// A "~" that is the first component stands for the user's home.
QString stringByExpandingTildeInPath(const QString& path);
/// The address of the file, escaped: the form in which a track's location names a local file.
QString fileUrlString(const QString& path);
/// The path of a file's address, whatever machine it names; the way back from fileUrlString(). Empty for any
/// other address and for what no path can be. QUrl's own way back loses characters that are noncharacters to
/// it.
QString pathOfFileUrl(QStringView url);

} // namespace zib
