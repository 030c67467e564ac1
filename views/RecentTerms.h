// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace zib {

class UserDefaults;

/// What the user has searched for, by search type. Kept in the settings.
class RecentTerms {
  public:
    static constexpr int termsKept = 20;

    /// The settings outlive it.
    explicit RecentTerms(UserDefaults& defaults)
        : defaults_(defaults)
    {
    }

    /// The newest first.
    [[nodiscard]] QStringList terms(int searchType) const;
    /// Puts the term to the front, in the spelling given last. An empty one is ignored.
    void add(const QString& term, int searchType);
    void remove(const QString& term, int searchType);

  private:
    void store(const QStringList& terms, int searchType);

    UserDefaults& defaults_;
};

} // namespace zib
