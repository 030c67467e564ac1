// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/CurlReadStreams.h"

#include "platform/desktop/CurlReadStream.h"
#include "platform/desktop/CurlRunLoop.h"

namespace zib {

CurlReadStreams::CurlReadStreams(std::chrono::milliseconds patience)
    : patience_(patience)
    , share_(std::make_shared<CurlShare>())
{
}

CurlReadStreams::~CurlReadStreams() = default;

std::unique_ptr<RunLoop> CurlReadStreams::makeRunLoop()
{
    return std::make_unique<CurlRunLoop>();
}

std::unique_ptr<HttpReadStream> CurlReadStreams::makeReadStream(const HttpReadRequest& request)
{
    if (!isRequestableUrl(request.url))
        return nullptr;
    return std::make_unique<CurlReadStream>(request, patience_, share_);
}

} // namespace zib
