// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/utilities/StringUtilities.h"

#include <QCoreApplication>
#include <QLocale>
#include <QStringList>

#include <algorithm>

namespace zib {
namespace {

bool isNewline(QChar character)
{
    return character == u'\n' || character == u'\r' || character == u'\u0085' || character == u'\u2028' ||
           character == u'\u2029';
}

bool isSkipped(QChar character)
{
    return character == u' ' || character == u'\t' || isNewline(character);
}

/// Reads a text from its start to its end. White space where a run begins is not part of it.
class Scanner {
  public:
    explicit Scanner(QStringView text)
        : text_(text)
    {
    }

    [[nodiscard]] bool isAtEnd() const { return location_ >= text_.size(); }
    [[nodiscard]] qsizetype location() const { return location_; }
    void skipOne() { location_ = std::min(location_ + 1, text_.size()); }

    /// The text up to that character, or to the end.
    QStringView scanUpTo(QChar end)
    {
        while (!isAtEnd() && isSkipped(text_[location_]))
            ++location_;
        const qsizetype begin = location_;
        const qsizetype found = text_.indexOf(end, begin);
        location_ = found < 0 ? text_.size() : found;
        return text_.sliced(begin, location_ - begin);
    }

  private:
    QStringView text_;
    qsizetype location_ = 0;
};

/// Tells which links into the application survive. It remembers where it found what it looked for, so that a
/// long text of many open quotes is still read once.
class LinkJudge {
  public:
    explicit LinkJudge(QStringView text)
        : text_(text)
    {
    }

    /// @param begin where "zib://" stands; the link ends before the next double quote. Begins must ascend.
    bool keepsLinkAt(qsizetype begin)
    {
        const qsizetype end = nextFrom(begin, quote_, u"\"");
        if (nextFrom(begin, tagWord_, u"/tag/") + 5 <= end)
            return true;
        return hasFourComponents(text_.sliced(begin, end - begin));
    }

  private:
    qsizetype nextFrom(qsizetype begin, qsizetype& known, QStringView wanted)
    {
        if (known < begin) {
            const qsizetype found = text_.indexOf(wanted, begin);
            known = found < 0 ? text_.size() : found;
        }
        return known;
    }

    static bool hasFourComponents(QStringView link)
    {
        int components = 0;
        for (qsizetype i = 0; i < link.size() && components <= 4; ++i)
            if (link[i] != u'/' && (i == 0 || link[i - 1] == u'/'))
                ++components;
        return components == 4;
    }

    QStringView text_;
    qsizetype quote_ = -1;
    qsizetype tagWord_ = -1;
};

} // namespace

QString timeString(qint64 seconds)
{
    if (seconds >= 86400) {
        const float days = float(seconds) / 86400.0F;
        return QCoreApplication::translate("TimeString", "%.1f days")
            .replace(QLatin1String("%.1f"), QLocale().toString(days, 'f', 1));
    }
    const auto padded = [](qint64 number) {
        return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0'));
    };
    QStringList parts;
    if (seconds >= 3600) {
        parts += QString::number(seconds / 3600);
        seconds %= 3600;
    }
    if (seconds >= 60 || !parts.isEmpty()) {
        parts += padded(seconds / 60);
        seconds %= 60;
    }
    parts += padded(seconds);
    if (parts.size() == 1)
        parts.prepend(QStringLiteral("00"));
    return parts.join(QLatin1Char(':'));
}

QString timeString(QStringView seconds)
{
    return timeString(integerValue(seconds));
}

QString stringByReplacingNewlineCharactersWithHTMLTags(QStringView text)
{
    QStringList pieces;
    qsizetype begin = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (isNewline(text[i])) {
            pieces += text.sliced(begin, i - begin).toString();
            begin = i + 1;
        }
    }
    if (pieces.isEmpty())
        return text.toString();
    return pieces.join(QLatin1String("<br>"));
}

QString flattenHTMLIgnoringZibLinks(QStringView html)
{
    QString output;
    Scanner scanner(html);
    LinkJudge judge(html);
    while (!scanner.isAtEnd()) {
        output += scanner.scanUpTo(u'<');
        const qsizetype tagBegin = scanner.location();
        const QStringView tag = scanner.scanUpTo(u'>');
        const qsizetype link = tag.indexOf(QLatin1String("zib://"));
        if (link >= 0 && judge.keepsLinkAt(tagBegin + link)) {
            output += tag;
            output += scanner.scanUpTo(u'<');
            output += scanner.scanUpTo(u'>');
        } else {
            scanner.skipOne();
        }
    }
    return output;
}

} // namespace zib
