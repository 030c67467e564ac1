// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/RecentTerms.h"

#include "platform/SettingsKeys.h"
#include "platform/UserDefaults.h"

namespace zib {
namespace {

QString keyOf(int searchType)
{
    return settings::RecentTerms + QString::number(searchType);
}

void removeFrom(QStringList& terms, const QString& term)
{
    terms.removeIf([&term](const QString& one) { return one.compare(term, Qt::CaseInsensitive) == 0; });
}

} // namespace

QStringList RecentTerms::terms(int searchType) const
{
    return defaults_.string(keyOf(searchType)).split(QLatin1Char('\n'), Qt::SkipEmptyParts).mid(0, termsKept);
}

void RecentTerms::add(const QString& term, int searchType)
{
    const QString line = term.simplified(); // without the line breaks of a text that was pasted
    if (line.isEmpty())
        return;
    QStringList all = terms(searchType);
    removeFrom(all, line);
    all.prepend(line);
    store(all.mid(0, termsKept), searchType);
}

void RecentTerms::remove(const QString& term, int searchType)
{
    QStringList all = terms(searchType);
    removeFrom(all, term);
    store(all, searchType);
}

void RecentTerms::store(const QStringList& terms, int searchType)
{
    defaults_.setValue(keyOf(searchType), terms.join(QLatin1Char('\n')));
}

} // namespace zib
