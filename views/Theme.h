// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QString>

class QApplication;
class QPalette;
class QWidget;

namespace zib {

class UserDefaults;

/// The colours by role and the measures of the look. This header and style.qss, which takes its colours from
/// here, are the only places that name any.
struct Theme {
    QColor window;    ///< ground of tables and text fields
    QColor alternate; ///< every other row
    QColor bar;       ///< bars and panels
    QColor source;    ///< ground of the source list
    QColor border;    ///< separators
    QColor quiet;     ///< ground of what is pressed, or chosen where the keyboard is not
    QColor outline;   ///< edge of a control, apart from its ground by 3 to 1
    QColor text;
    QColor secondary; ///< text of less weight, on any of the grounds
    QColor accent;    ///< selection, links, progress
    QColor onAccent;  ///< text on the accent
    QColor loved;
    QColor error;      ///< broken songs and errors
    QColor unplayable; ///< songs that can't be played now
    QColor disabled;   ///< what can't be used now
    bool dark = false;
    bool highContrast = false;

    static const Theme& light()
    {
        static const Theme theme{0xffffff, 0xf6f8f9, 0xeceff1, 0xe3e8eb, 0xc9d1d6, 0xc9d1d6,
                                 0x7c888f, 0x2f3437, 0x59646a, 0x4f6d7d, 0xffffff, 0xc8453b,
                                 0xb3261e, 0x6a7378, 0x7c888f, false};
        return theme;
    }
    static const Theme& darkTheme()
    {
        static const Theme theme{0x1d2225, 0x22282b, 0x262d31, 0x20272b, 0x38424a, 0x38424a,
                                 0x77848c, 0xe6eaec, 0x9aa6ad, 0x8fb0c1, 0x1d2225, 0xe2685e,
                                 0xef8a80, 0x84919a, 0x77848c, true};
        return theme;
    }
    /// That of a desktop whose palette leaves black and white only: its own colours, edges of everything in
    /// that of the text, and no colour that is hard to tell from its ground.
    static Theme highContrastOf(const QPalette& desktop);
    /// The one in use.
    static const Theme& current();

    // Pixels
    static constexpr int rowHeight = 24;
    static constexpr int tableText = 13;
    static constexpr int secondaryText = 12;
    static constexpr int headerText = 11;
    static constexpr int titleText = 15;
    static constexpr int within = 4;  ///< space within a control
    static constexpr int between = 8; ///< between controls
    static constexpr int groups = 16; ///< between groups
    static constexpr int corner = 6;
};

/// How two colours stand out from each other, from 1 to 21 as the accessibility guidelines for the web count
/// it.
[[nodiscard]] double contrast(const QColor& a, const QColor& b);

/// Gives the program its look: that of high contrast when the desktop's palette is, else dark when that is,
/// unless the setting "Appearance" says "light" or "dark"; follows later changes of that setting. Once,
/// before the first window.
void applyTheme(QApplication& application, UserDefaults& defaults);

/// Gives the program that look, whatever the settings say.
void useTheme(QApplication& application, const Theme& theme);
/// The same for whether things that move have to stand still.
void useMotion(bool reduced);

/// Whether things that move have to stand still: the desktop asks for it, or the setting "ReduceMotion" does.
bool motionReduced(const QWidget& widget);

} // namespace zib
