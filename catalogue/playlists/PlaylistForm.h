// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringList>

#include <tl/expected.hpp>

#include <optional>

namespace zib {

/// What somebody asks to be published.
struct PlaylistForm {
    QString user; ///< "NAME-SECRET": what is before the last dash may be shown, what is behind it never
    QString name;
    QString description;
    QString artists; ///< a few of them, separated by a comma and a blank
    QStringList tags = {};
    bool hidden = false;
    QByteArray archive = {};    ///< the playlist record as a keyed archive
    std::optional<int> id = {}; ///< of the publication that is to be replaced
};

/// The longest texts that are taken, in characters.
constexpr qsizetype longestPlaylistName = 300;
constexpr qsizetype longestPlaylistDescription = 10000;
/// More tags than these are dropped.
constexpr qsizetype mostPlaylistTags = 5;

/// Reads what the program posts: fields "user name description hidden data [id] [tags] description" in that
/// order, joined with '&', their values as they are, so that the name and the first description may hold
/// anything. The second description counts, with "^AMP;" for '&' and the artists behind "^1;". In the data,
/// percent escapes are undone and blanks are '+'.
/// @return what to tell the user when it cannot be understood
tl::expected<PlaylistForm, QString> parsedPlaylistForm(QByteArrayView body);

/// The name that is shown of a user: what stands before the secret, with blanks for '_'.
QString shownUserName(const QString& user);

/// The name as a part of an address: lower-case ASCII words joined with dashes, never empty.
QString addressName(const QString& name);

} // namespace zib
