// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/RVBusyPanel.h"

#include <QDialog>
#include <QTimer>

class QLabel;
class QProgressBar;
class QPushButton;

namespace zib {

class TextLabel;

/// The busy panel as a small window above its parent, which stays usable. What is over at once never shows
/// it, and texts that come in quick succession are shown a few times a second.
class WidgetBusyPanel : public QDialog, public RVBusyPanel {
    Q_OBJECT

  public:
    explicit WidgetBusyPanel(QWidget* parent);

    void open(const QString& title, std::function<void()> stop) override;
    void close() override;
    void setInformativeText(const QString& text) override;
    void setProgress(int done, int total) override;

  protected:
    void reject() override;

  private:
    void stopWork();
    void refresh();

    QLabel* title_;
    TextLabel* text_;
    QProgressBar* bar_;
    QPushButton* stop_;
    std::function<void()> stopAction_;
    QTimer appearance_;
    QTimer refreshment_;
    QString latestText_;
    int done_ = 0;
    int total_ = 0;
};

} // namespace zib
