// SPDX-License-Identifier: GPL-3.0-or-later
#include "pages/PageText.h"

#include "pages/Log.h"

#include <QVarLengthArray>

namespace zib {

PageText::PageText(const QString& pageTemplate, const QString& style, const QByteArray& scriptMark)
    : text_(pageTemplate)
{
    replace(QLatin1String("%mark"), QString::fromLatin1(scriptMark));
    replace(QLatin1String("%style"), style);
}

PageText& PageText::replace(QLatin1String placeholder, const QString& value)
{
    // A search for one character is the quickest there is, and percent signs are rare.
    QVarLengthArray<qsizetype> places;
    for (qsizetype at = text_.indexOf(u'%'); at >= 0; at = text_.indexOf(u'%', at)) {
        if (QStringView(text_).sliced(at).startsWith(placeholder)) {
            places.append(at);
            at += placeholder.size();
        } else {
            ++at;
        }
    }
    if (places.isEmpty())
        return *this;
    const qsizetype rest = text_.size() - places.size() * placeholder.size();
    const bool fits = value.size() <= (maximumLength - rest) / places.size();
    if (!fits)
        qCWarning(pagesLog, "A page would be too long with its %s", placeholder.data());
    QString filled;
    filled.reserve(rest + (fits ? places.size() * value.size() : 0));
    qsizetype begin = 0;
    for (const qsizetype place : places) {
        filled += QStringView(text_).sliced(begin, place - begin);
        if (fits)
            filled += value;
        begin = place + placeholder.size();
    }
    filled += QStringView(text_).sliced(begin);
    text_ = std::move(filled);
    return *this;
}

} // namespace zib
