// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/InfoText.h"

#include <QRegularExpression>
#include <QUrl>

namespace zib {

namespace {

/// "[[Name]]" or "{{tag}}" in a text.
const QRegularExpression& mark()
{
    static const QRegularExpression expression(QStringLiteral(R"(\[\[([^\]]+)\]\]|\{\{([^}]+)\}\})"));
    return expression;
}

QString address(const QString& base, QLatin1String kind, const QString& name)
{
    return base + kind + QString::fromLatin1(QUrl::toPercentEncoding(name));
}

QString link(const QString& address, const QString& name)
{
    return QStringLiteral("<a href=\"%1\">%2</a>").arg(address, name.toHtmlEscaped());
}

} // namespace

QString artistAddress(const QString& base, const QString& name)
{
    return address(base, QLatin1String("/music/"), name);
}

QString tagAddress(const QString& base, const QString& tag)
{
    return address(base, QLatin1String("/tag/"), tag);
}

QString artistLink(const QString& base, const QString& name)
{
    return link(artistAddress(base, name), name);
}

QString tagLink(const QString& base, const QString& tag)
{
    return link(tagAddress(base, tag), tag);
}

QString linkedHtml(const MarkedText& text, const QString& base)
{
    QString html;
    qsizetype done = 0;
    for (auto marks = mark().globalMatch(text); marks.hasNext();) {
        const auto match = marks.next();
        html += text.mid(done, match.capturedStart() - done).toHtmlEscaped();
        html += match.captured(1).isEmpty() ? tagLink(base, match.captured(2))
                                            : artistLink(base, match.captured(1));
        done = match.capturedEnd();
    }
    return html + text.mid(done).toHtmlEscaped();
}

QString plainText(const MarkedText& text)
{
    QString plain = text;
    return plain.replace(mark(), QStringLiteral("\\1\\2"));
}

QString enumeration(QStringList parts)
{
    if (parts.size() < 2)
        return parts.value(0);
    const QString last = parts.takeLast();
    return parts.join(QStringLiteral(", ")) + QStringLiteral(" and ") + last;
}

} // namespace zib
