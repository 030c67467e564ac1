// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/utilities/PathUtilities.h"

#include "services/utilities/StringUtilities.h"

#include <QDir>
#include <QUrl>

#include <algorithm>

namespace zib {
namespace {

QStringView withoutTrailingSlashes(QStringView path)
{
    while (path.size() > 1 && path.endsWith(u'/'))
        path.chop(1);
    return path;
}

/// Where the last component begins. The path has no slashes at its end.
qsizetype lastComponentBegin(QStringView path)
{
    return path == u"/" ? 0 : path.lastIndexOf(u'/') + 1;
}

/// The full stop that begins the extension, or -1. The path has no slashes at its end.
qsizetype extensionStop(QStringView path)
{
    const qsizetype stop = path.lastIndexOf(u'.');
    return stop > lastComponentBegin(path) && stop < path.size() - 1 ? stop : -1;
}

qsizetype endOfPath(QStringView url, QChar mark)
{
    const qsizetype end = url.indexOf(mark);
    return end < 0 ? url.size() : end;
}

} // namespace

QString lastPathComponent(QStringView path)
{
    const QStringView trimmed = withoutTrailingSlashes(path);
    return trimmed.sliced(lastComponentBegin(trimmed)).toString();
}

QString pathExtension(QStringView path)
{
    const QStringView trimmed = withoutTrailingSlashes(path);
    const qsizetype stop = extensionStop(trimmed);
    return stop < 0 ? QString() : trimmed.sliced(stop + 1).toString();
}

QString stringByDeletingPathExtension(QStringView path)
{
    const QStringView trimmed = withoutTrailingSlashes(path);
    const qsizetype stop = extensionStop(trimmed);
    return (stop < 0 ? trimmed : trimmed.first(stop)).toString();
}

QString stringByAppendingPathComponent(QStringView path, QStringView component)
{
    while (component.startsWith(u'/'))
        component = component.sliced(1);
    if (path.isEmpty() || component.isEmpty())
        return (path.isEmpty() ? component : withoutTrailingSlashes(path)).toString();
    QString joined = withoutTrailingSlashes(path).toString();
    if (joined != QLatin1String("/"))
        joined += QLatin1Char('/');
    joined += component;
    return joined;
}

QString stringByExpandingTildeInPath(const QString& path)
{
    if (path == QLatin1String("~") || path.startsWith(QLatin1String("~/")))
        return stringByAppendingPathComponent(QDir::homePath(), QStringView(path).sliced(1));
    return path;
}

QString fileUrlString(const QString& path)
{
    return QString::fromLatin1(QUrl::fromLocalFile(path).toEncoded());
}

QString pathOfFileUrl(QStringView url)
{
    static const QLatin1String scheme("file:");
    if (!url.startsWith(scheme, Qt::CaseInsensitive))
        return {};
    QStringView path = url.mid(scheme.size());
    if (path.startsWith(u"//")) {
        const qsizetype hostEnd = path.indexOf(u'/', 2);
        path = hostEnd < 0 ? QStringView() : path.mid(hostEnd);
    }
    path = path.left(std::min(endOfPath(path, u'?'), endOfPath(path, u'#')));
    const QString decoded = URLDecodedString(path).value_or(path.toString());
    return decoded.startsWith(QLatin1Char('/')) && !decoded.contains(QChar(u'\0')) ? decoded : QString();
}

} // namespace zib
