// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "services/WebServiceClient.h"

#include <functional>

namespace zib {

/// Asks once whether a service's host answers at all, with a request for nothing in particular, past the
/// cache. Any answer but one of the server's own failure counts; the rest of it is not read.
class ServiceProbe : public WebServiceClient {
  public:
    enum class Outcome { Answers, Fails, Silent };
    /// Called once; from within the constructor when no request can be made at all. It may destroy the probe.
    /// @param reason for people, empty when it answers.
    using Report = std::function<void(Outcome outcome, const QString& reason)>;

    ServiceProbe(const WebServices& services, const QString& hostKey, Report report);

  private:
    void responseReceived(const UrlResponse& response) override;
    void requestFinished() override;
    void requestFailed(const ServiceError& error) override;
    void tell(Outcome outcome, const QString& reason);

    Report report_;
};

} // namespace zib
