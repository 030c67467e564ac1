// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "views/gallery/Page.h"

#include <functional>

namespace zib {

/// A control of the gallery.
struct Demo {
    QString name; ///< of its picture's file, without the ending
    QString title;
    std::function<void(Page&)> fill;
};

/// All of them, in the order of the gallery's list.
[[nodiscard]] QList<Demo> allDemos();

/// Their parts, a file each.
/// @{
[[nodiscard]] QList<Demo> buttonDemos();
[[nodiscard]] QList<Demo> valueDemos();
[[nodiscard]] QList<Demo> fieldDemos();
[[nodiscard]] QList<Demo> tableDemos();
[[nodiscard]] QList<Demo> placeDemos();
/// @}

/// What stands for a text that is longer than its place.
extern const QString longText;

/// A surrounding that the style sheet knows by name, with the control in it.
[[nodiscard]] QWidget* surrounded(const QString& name, QWidget* control);

/// The ways to look at the controls.
enum class Scheme { Light, Dark, LightContrast, DarkContrast };
void useScheme(Scheme scheme);

} // namespace zib
