// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QWidget;

namespace zib {

/// A widget that shows a text which changes. To assistive programs it has two things: a lasting name
/// ("Elapsed time") and the text of the moment, which an ordinary label would give up for its name.
class ShowsText {
  public:
    virtual ~ShowsText() = default;
    [[nodiscard]] virtual QString shownText() const = 0;

    /// To be called whenever the text has changed.
    static void textChanged(QWidget& widget, const QString& text);
};

/// Makes the accessible interfaces of all widgets that show text, and of what parts two panes. Once, before
/// the first window.
void installAccessibleTexts();

} // namespace zib
