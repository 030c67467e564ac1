// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/utilities/WildcardMatch.h"

#include <algorithm>

namespace zib {
namespace {

/// How many units the character at that place takes.
qsizetype characterLength(QStringView text, qsizetype at)
{
    return text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate() ? 2 : 1;
}

bool isAscii(QStringView text)
{
    return std::ranges::all_of(text, [](QChar character) { return character.unicode() < 0x80; });
}

} // namespace

WildcardMatch::WildcardMatch(QStringView pattern, Options options)
    : options_(options)
    , pattern_(folded(pattern))
{
}

QString WildcardMatch::folded(QStringView text) const
{
    QString result = text.toString();
    if (!isAscii(text)) {
        if (options_ & DiacriticInsensitive) {
            result = result.normalized(QString::NormalizationForm_D);
            result.removeIf([](QChar character) { return character.category() == QChar::Mark_NonSpacing; });
        }
        result = result.normalized(QString::NormalizationForm_C);
    }
    return options_ & CaseInsensitive ? result.toCaseFolded() : result;
}

bool WildcardMatch::matches(QStringView text) const
{
    const QString subject = folded(text);
    qsizetype at = 0;
    qsizetype patternAt = 0;
    // Where to go on after a mismatch: behind the last star, which takes one character more each time.
    qsizetype starAt = -1;
    qsizetype starEnd = 0;
    while (at < subject.size()) {
        if (patternAt < pattern_.size() && pattern_[patternAt] == u'*') {
            starAt = patternAt++;
            starEnd = at;
        } else if (patternAt < pattern_.size() && pattern_[patternAt] == u'?') {
            at += characterLength(subject, at);
            ++patternAt;
        } else if (patternAt < pattern_.size() && pattern_[patternAt] == subject[at]) {
            ++at;
            ++patternAt;
        } else if (starAt >= 0) {
            starEnd += characterLength(subject, starEnd);
            at = starEnd;
            patternAt = starAt + 1;
        } else {
            return false;
        }
    }
    return std::all_of(pattern_.begin() + patternAt, pattern_.end(), [](QChar c) { return c == u'*'; });
}

} // namespace zib
