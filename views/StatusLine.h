// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

namespace zib {

class FilterField;
class TextLabel;
class UserDefaults;

/// The line at the window's bottom: what the program does, the filter while songs are shown, and what the
/// shown songs or the link under the mouse are.
class StatusLine : public QWidget {
    Q_OBJECT

  public:
    /// The settings, which hold the text of the status, outlive it.
    explicit StatusLine(UserDefaults& defaults, QWidget* parent = nullptr);

    [[nodiscard]] FilterField& filter() { return *filter_; }
    void setUrlFieldText(const QString& text);

  private:
    TextLabel* status_;
    FilterField* filter_;
    TextLabel* urlField_;
};

} // namespace zib
