// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QCheckBox;
class QLabel;
class QVBoxLayout;
class QWidget;

namespace zib {

class UserDefaults;

/// What a box says of its setting: that it is on, or, of a setting that silences something, that it is off.
enum class BoxShows { On, Off };

/// A box that stands for a setting, both ways.
QCheckBox* makeSettingBox(UserDefaults& defaults, const QString& key, const QString& text,
                          BoxShows shows = BoxShows::On);
/// What a group of settings is about.
QLabel* makeHeading(const QString& text);
/// A sentence of less weight that explains the control above it; that of a box stands below the box's words.
/// @{
QLabel* makeHint(const QString& text);
QLabel* makeBoxHint(const QString& text);
/// @}
/// The layout of a page of settings, from top to bottom.
QVBoxLayout* makePageLayout(QWidget* page);

} // namespace zib
