// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace zib {

// The name under which a user's playlists are shared is NAME-SECRET: what is shown, and 32 hexadecimal digits
// by which the service knows its user again. NAME is letters and digits, "_" for each blank, and goes into a
// form as it stands; whatever follows the last "-" is never shown to anybody.

/// A new name with a secret of its own. What is shown of it are the letters, the digits and the blanks of the
/// given one, or "listener" when it has none.
QString makeShareUserName(const QString& shownName);
/// What others see of it.
QString shownOf(const QString& shareUserName);
/// The same user by another name: the secret stays. Without one it is a new name.
QString renamed(const QString& shareUserName, const QString& shownName);
/// The name without its secret.
QString withoutSecret(const QString& shareUserName);

} // namespace zib
