// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace zib {

/// The words of the song, perhaps none; nothing when the reply is not about it. The artist must be the same
/// to the letter, while the title may say more than the reply ("Song (Live)" for "Song").
std::optional<QString> lyricsOfReply(const QByteArray& reply, const QString& artist, const QString& title);

} // namespace zib
