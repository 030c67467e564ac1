// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "services/WebServiceClient.h"

#include <QList>
#include <QWidget>

class QBoxLayout;

namespace zib {

class ServiceRow;
class UserDefaults;

/// Every outside service that the program speaks to. Whenever the page appears, the services are asked
/// whether they answer; web sites are not, since they hear of the user only by what the user does.
class ServicesPage : public QWidget {
    Q_OBJECT

  public:
    /// The settings and what the services need outlive the page.
    ServicesPage(UserDefaults& defaults, const WebServices& services);

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void probeAll();
    void addSites(QBoxLayout& layout);

    UserDefaults& defaults_;
    QList<ServiceRow*> rows_;
};

} // namespace zib
