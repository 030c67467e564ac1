// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/TextMatching.h"

#include <QList>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace zib {

namespace {

constexpr qsizetype shortestWords = 3; ///< a shorter query is found inside too many names
constexpr qsizetype longestTypoQuery = 64;

/// Letters that are one with a stroke or a ligature rather than an accent, so that they have no
/// decomposition.
QStringView plainLetter(QChar c)
{
    switch (c.unicode()) {
    case u'ø':
        return u"o";
    case u'ł':
        return u"l";
    case u'đ':
    case u'ð':
        return u"d";
    case u'ı':
        return u"i";
    case u'æ':
        return u"ae";
    case u'œ':
        return u"oe";
    case u'ß':
        return u"ss";
    case u'þ':
        return u"th";
    default:
        return {};
    }
}

int editsAllowed(qsizetype length)
{
    if (length < 4)
        return 0;
    return length < 8 ? 1 : 2;
}

} // namespace

QString folded(QStringView text)
{
    const QString decomposed = text.toString()
                                   .normalized(QString::NormalizationForm_KD)
                                   .toCaseFolded()
                                   .normalized(QString::NormalizationForm_KD);
    QString result;
    result.reserve(decomposed.size());
    for (const QChar c : decomposed) {
        if (c.isMark() || c == u'\'' || c == u'\u2019')
            continue;
        if (const auto plain = plainLetter(c); !plain.isEmpty())
            result += plain;
        else if (c.isLetterOrNumber() || c.isSurrogate())
            result += c;
        else
            result += u' ';
    }
    result = result.simplified();
    if (result.startsWith(u"the "))
        result.remove(0, 4);
    return result.isEmpty() ? text.toString().toCaseFolded().simplified() : result;
}

bool withinEdits(QStringView a, QStringView b, int most)
{
    if (std::abs(a.size() - b.size()) > most)
        return false;
    const qsizetype width = b.size() + 1;
    std::array<QList<int>, 3> rows; // the row before the last, the last, the one in work
    rows.fill(QList<int>(width, 0));
    for (qsizetype j = 0; j < width; ++j)
        rows[1][j] = int(j);
    for (qsizetype i = 1; i <= a.size(); ++i) {
        auto& row = rows[2];
        row[0] = int(i);
        int least = row[0];
        for (qsizetype j = 1; j < width; ++j) {
            const int changed = rows[1][j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
            row[j] = std::min({changed, rows[1][j] + 1, row[j - 1] + 1});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                row[j] = std::min(row[j], rows[0][j - 2] + 1);
            least = std::min(least, row[j]);
        }
        if (least > most)
            return false;
        std::rotate(rows.begin(), rows.begin() + 1, rows.end());
    }
    return rows[1][b.size()] <= most;
}

NameQuery::NameQuery(const QString& text)
    : text_(text.simplified())
    , folded_(folded(text))
{
}

NameMatch NameQuery::match(QStringView name, QStringView foldedName) const
{
    if (isEmpty())
        return NameMatch::None;
    if (name.compare(text_, Qt::CaseInsensitive) == 0)
        return NameMatch::SameText;
    if (foldedName == folded_)
        return NameMatch::Folded;
    if (folded_.size() >= shortestWords) {
        const QString inside = u' ' + foldedName.toString() + u' ';
        if (inside.contains(u' ' + folded_ + u' '))
            return NameMatch::Words;
    }
    if (folded_.size() <= longestTypoQuery && withinEdits(folded_, foldedName, editsAllowed(folded_.size())))
        return NameMatch::Typo;
    return NameMatch::None;
}

} // namespace zib
