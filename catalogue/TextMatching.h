// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringView>

namespace zib {

/// What remains of a name when case, accents, punctuation, a leading "the" and the number of blanks do not
/// count. A name of nothing but punctuation keeps it.
QString folded(QStringView text);

/// How well a name answers to a query; the better, the greater.
enum class NameMatch {
    None,
    Typo,     ///< one or two letters wrong, missing, too many or exchanged, by the query's length
    Words,    ///< the query's words stand in the name, one after another
    Folded,   ///< equal but for case, accents and punctuation
    SameText, ///< equal but for case
};

/// A query made ready for many comparisons.
class NameQuery {
  public:
    explicit NameQuery(const QString& text);

    [[nodiscard]] bool isEmpty() const { return folded_.isEmpty(); }
    /// @param foldedName folded(name), which the caller keeps
    [[nodiscard]] NameMatch match(QStringView name, QStringView foldedName) const;

  private:
    QString text_;
    QString folded_;
};

/// Whether at most that many letters must be changed, added, removed or exchanged with their neighbour to
/// turn one text into the other.
bool withinEdits(QStringView a, QStringView b, int most);

} // namespace zib
