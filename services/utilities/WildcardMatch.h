// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFlags>
#include <QString>
#include <QStringView>

namespace zib {

/// A pattern for whole texts: "*" stands for any characters, none included, "?" for exactly one; every other
/// character, the backslash too, stands for itself. Any thread.
class WildcardMatch {
  public:
    enum Option {
        CaseInsensitive = 1,
        DiacriticInsensitive = 2,
    };
    Q_DECLARE_FLAGS(Options, Option)

    explicit WildcardMatch(QStringView pattern, Options options = {});

    /// Whether the pattern describes the text from its start to its end. Characters that Unicode counts as
    /// the same, composed or not, match.
    [[nodiscard]] bool matches(QStringView text) const;

  private:
    [[nodiscard]] QString folded(QStringView text) const;

    Options options_;
    QString pattern_;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(WildcardMatch::Options)

} // namespace zib
