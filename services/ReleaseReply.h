// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

namespace zib {

/// The album came out.
struct ReleaseEvent {
    std::optional<QString> date; ///< YYYY, YYYY-MM or YYYY-MM-DD
    std::optional<QString> country;
    QString label; ///< perhaps empty
};

struct ReleaseTrack {
    QString name;     ///< perhaps empty
    QString duration; ///< milliseconds, as the service writes them; perhaps empty
};

/// What the release service knows of an album.
struct ReleaseInfo {
    QString type; ///< like "Album Official"; empty when it is not told
    QList<ReleaseEvent> releases;
    QList<ReleaseTrack> tracks;
};

/// A reply that says nothing, or is none, is no failure.
ReleaseInfo releaseInfoOfReply(const QByteArray& reply);

} // namespace zib
