// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/ServiceProbe.h"

#include "services/ServiceHosts.h"

#include <QCoreApplication>

#include <utility>

using namespace std::chrono_literals;

namespace zib {

ServiceProbe::ServiceProbe(const WebServices& services, const QString& hostKey, Report report)
    : WebServiceClient(services)
    , report_(std::move(report))
{
    sendRequest({.url = serviceAddress(services.userDefaults, hostKey, QStringLiteral("/")),
                 .returnCacheDataElseLoad = false,
                 .timeout = 5s});
}

void ServiceProbe::responseReceived(const UrlResponse& response)
{
    constexpr int firstServerError = 500;
    cancelRequest();
    if (response.status < firstServerError)
        tell(Outcome::Answers, {});
    else
        tell(Outcome::Fails,
             QCoreApplication::translate("ServiceProbe", "The server reports an error of its own (%1).")
                 .arg(response.status));
}

void ServiceProbe::requestFinished()
{
    tell(Outcome::Answers, {});
}

void ServiceProbe::requestFailed(const ServiceError& error)
{
    tell(Outcome::Silent, error.kind == ServiceError::Kind::NoConnection
                              ? QCoreApplication::translate("ServiceProbe", "No request can be made to it.")
                              : error.text);
}

void ServiceProbe::tell(Outcome outcome, const QString& reason)
{
    const Report report = std::move(report_); // whoever hears it may destroy the probe
    report(outcome, reason);
}

} // namespace zib
