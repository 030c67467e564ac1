// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QString>

class QLineEdit;

namespace zib {

enum class Tint { Text, Secondary, Accent, Loved, Error, OnAccent };

/// The line drawing resources/icons/NAME.svg in a colour of the theme in use, sharp at any size and ratio.
/// A change of theme recolours it at its next painting. Where people read from the right, drawings that point
/// along the reading are mirrored.
QIcon icon(const QString& name, Tint tint = Tint::Text);

/// Gives the field's clear button our drawing: it comes with a picture of the desktop's, which does not
/// follow the theme.
void useOwnClearIcon(QLineEdit& field);

} // namespace zib
