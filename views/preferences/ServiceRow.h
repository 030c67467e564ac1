// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "services/ServiceProbe.h"

#include <QWidget>

#include <memory>

class QLabel;
class QLineEdit;
class QPushButton;

namespace zib {

class IconLabel;
class UserDefaults;

/// One outside service: what it is sent, its host, which can be another, and whether it answers now.
class ServiceRow : public QWidget {
    Q_OBJECT

  public:
    struct Service {
        QString hostKey;
        QString name;
        QString whatItIsSent; ///< a sentence
    };
    /// The settings and what the services need outlive the row.
    ServiceRow(const Service& service, UserDefaults& defaults, const WebServices& services);

    /// Asks anew whether the service answers.
    void probe();

  private:
    QWidget* makeTitle();
    void takeHost();
    void showHost();
    void showOutcome(ServiceProbe::Outcome outcome, const QString& reason);
    void say(const QString& words, const QString& reason = {});

    const Service service_;
    UserDefaults& defaults_;
    const WebServices services_;
    IconLabel* mark_;
    QLabel* state_;
    QLineEdit* host_;
    QLabel* wrong_; ///< why what was typed is no host
    QPushButton* reset_;
    std::unique_ptr<ServiceProbe> probe_;
};

} // namespace zib
