// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace zib {

struct ServiceError;

/// Told once how a request for information ended, on the main thread; the client may be destroyed from within
/// the call. webServiceFailedForRequest can come from within the client's constructor, before anybody owns
/// the client. Who uses several kinds of clients inherits this once for each.
template <class Request>
class InfoServiceDelegate {
  public:
    virtual ~InfoServiceDelegate() = default;
    virtual void webServiceCompletedForRequest(Request& /*request*/) {}
    /// @param error its text is for people.
    virtual void webServiceFailedForRequest(Request& /*request*/, const ServiceError& /*error*/) {}
};

} // namespace zib
