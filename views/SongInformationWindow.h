// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/FileViewController.h"

#include <QDialog>

class QFormLayout;
class QLayout;
class QLineEdit;

namespace zib {

class CoverField;

/// Shows what is known of one song, or of several at once, and lets it be edited.
class SongInformationWindow : public QDialog {
    Q_OBJECT

  public:
    /// @param songs outlives the window.
    SongInformationWindow(FileViewController& songs, QWidget* parent);

    /// The texts as they are now.
    [[nodiscard]] SongInformation information() const;

  private:
    QLineEdit* makeField(const QString& name, const QString& text, int greatest = 0);
    void addOneSongOnly(QFormLayout* form, const SongInformation& shown);
    [[nodiscard]] QLayout* makeButtons();
    void addHint(QFormLayout* form, const QString& text);
    void addPair(QFormLayout* form, const QString& label, QLineEdit* first, QLineEdit* second);

    FileViewController& songs_;
    QLineEdit* name_ = nullptr;
    QLineEdit* artist_;
    QLineEdit* album_;
    QLineEdit* genre_;
    QLineEdit* composer_;
    QLineEdit* year_;
    QLineEdit* trackNumber_ = nullptr;
    QLineEdit* trackTotal_ = nullptr;
    QLineEdit* discNumber_ = nullptr;
    QLineEdit* discTotal_ = nullptr;
    CoverField* cover_;
};

} // namespace zib
