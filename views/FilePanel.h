// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFileDialog>
#include <QStringList>

namespace zib {

/// A panel in which files are chosen: the desktop's own where it has one, else the toolkit's, which gets the
/// look of our windows and the places where music is.
class FilePanel : public QFileDialog {
    Q_OBJECT

  public:
    FilePanel(QWidget* parent, const QString& title, const QString& folder, const QString& filter = {});

    /// Modal; empty when the user cancels.
    /// @{
    QStringList askForFiles();
    QString askForFile();
    /// @}

  protected:
    void showEvent(QShowEvent* event) override;
};

} // namespace zib
