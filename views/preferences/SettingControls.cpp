// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/preferences/SettingControls.h"

#include "platform/UserDefaults.h"
#include "views/Theme.h"

#include <QCheckBox>
#include <QLabel>
#include <QVBoxLayout>

namespace zib {

QCheckBox* makeSettingBox(UserDefaults& defaults, const QString& key, const QString& text, BoxShows shows)
{
    auto* box = new QCheckBox(text);
    const auto refresh = [box, &defaults, key, shows] {
        box->setChecked(defaults.boolean(key) == (shows == BoxShows::On));
    };
    QObject::connect(box, &QCheckBox::clicked, box, [&defaults, key, shows](bool on) {
        defaults.setValue(key, on == (shows == BoxShows::On));
    });
    QObject::connect(&defaults, &UserDefaults::changed, box, [refresh, key](const QString& changed) {
        if (changed == key)
            refresh();
    });
    refresh();
    return box;
}

QLabel* makeHeading(const QString& text)
{
    auto* heading = new QLabel(text);
    heading->setObjectName(QStringLiteral("heading"));
    return heading;
}

QLabel* makeHint(const QString& text)
{
    auto* hint = new QLabel(text);
    hint->setObjectName(QStringLiteral("hint"));
    hint->setWordWrap(true);
    return hint;
}

QLabel* makeBoxHint(const QString& text)
{
    constexpr int boxWidth = 26;
    QLabel* hint = makeHint(text);
    hint->setContentsMargins(boxWidth, 0, 0, 0);
    return hint;
}

QVBoxLayout* makePageLayout(QWidget* page)
{
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(3 * Theme::between, Theme::groups, 3 * Theme::between, Theme::groups);
    layout->setSpacing(Theme::between);
    return layout;
}

} // namespace zib
