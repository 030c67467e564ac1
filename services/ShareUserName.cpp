// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/ShareUserName.h"

#include <QRandomGenerator>
#include <QRegularExpression>

#include <array>

namespace zib {

namespace {

QString sentName(const QString& shownName)
{
    constexpr int mostCharacters = 40;
    QString name;
    for (const QChar c : shownName.simplified().normalized(QString::NormalizationForm_C)) {
        if (c.isLetterOrNumber())
            name += c;
        else if (c.isSpace())
            name += QLatin1Char('_');
    }
    name.truncate(mostCharacters);
    return name.isEmpty() ? QStringLiteral("listener") : name;
}

} // namespace

QString makeShareUserName(const QString& shownName)
{
    std::array<quint32, 4> secret{};
    QRandomGenerator::system()->fillRange(secret.data(), qsizetype(secret.size()));
    const QByteArrayView bytes(reinterpret_cast<const char*>(secret.data()), sizeof secret);
    return sentName(shownName) + QLatin1Char('-') + QString::fromLatin1(bytes.toByteArray().toHex());
}

QString shownOf(const QString& shareUserName)
{
    return withoutSecret(shareUserName).replace(QLatin1Char('_'), QLatin1Char(' '));
}

QString renamed(const QString& shareUserName, const QString& shownName)
{
    const QString secret = shareUserName.mid(withoutSecret(shareUserName).size());
    return secret.isEmpty() ? makeShareUserName(shownName) : sentName(shownName) + secret;
}

QString withoutSecret(const QString& shareUserName)
{
    static const QRegularExpression secret(QStringLiteral("-[0-9a-f]{32}$"));
    return QString(shareUserName).remove(secret);
}

} // namespace zib
