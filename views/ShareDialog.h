// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/ShareWindow.h"

#include <QDialog>

class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace zib {

class TokenField;

/// Asks how a playlist is to be shared.
class ShareDialog : public QDialog {
    Q_OBJECT

  public:
    ShareDialog(const ShareForm& form, QWidget* parent);

    /// What stands in it now.
    [[nodiscard]] ShareForm form() const;

  private:
    void enableOk();

    QLineEdit* title_;
    QPlainTextEdit* description_;
    TokenField* tags_;
    QLineEdit* userName_ = nullptr; ///< none when the name is known
    QPushButton* ok_ = nullptr;
};

/// The share window as a dialog of its own.
class WidgetShareWindow : public ShareWindow {
  public:
    std::optional<ShareForm> runModal(const ShareForm& form) override;
};

} // namespace zib
