// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/HttpExchange.h"

#include <fcntl.h>
#include <netdb.h>
#include <sys/socket.h>

namespace zib {

namespace {

MHD_Result collectHeader(void* closure, MHD_ValueKind, const char* name, const char* value)
{
    static_cast<HttpHeaders*>(closure)->append({QByteArray(name), QByteArray(value)});
    return MHD_YES;
}

MHD_Response* madeResponse(const HttpReply& reply)
{
    if (!reply.file) {
        return MHD_create_response_from_buffer(
            size_t(reply.body.size()), const_cast<char*>(reply.body.constData()), MHD_RESPMEM_MUST_COPY);
    }
    const int descriptor =
        ::fcntl(reply.file->descriptor(), F_DUPFD_CLOEXEC, 0); // the response closes its own
    if (descriptor < 0)
        return nullptr;
    return MHD_create_response_from_fd_at_offset64(uint64_t(reply.length), descriptor,
                                                   uint64_t(reply.offset));
}

} // namespace

HttpHeaders headersOf(MHD_Connection* connection)
{
    HttpHeaders headers;
    MHD_get_connection_values(connection, MHD_HEADER_KIND, collectHeader, &headers);
    return headers;
}

QByteArray peerOf(MHD_Connection* connection)
{
    const auto* info = MHD_get_connection_info(connection, MHD_CONNECTION_INFO_CLIENT_ADDRESS);
    char text[NI_MAXHOST] = {};
    if (!info || ::getnameinfo(info->client_addr, sizeof(sockaddr_storage), text, sizeof text, nullptr, 0,
                               NI_NUMERICHOST) != 0)
        return {};
    return text;
}

MHD_Result HttpExchange::queue(MHD_Connection* connection, const HttpReply& answer, bool last)
{
    status = answer.status;
    replySize = answer.file ? answer.length : answer.body.size();
    MHD_Response* response = madeResponse(answer);
    if (!response)
        return MHD_NO;
    if (!answer.contentType.isEmpty())
        MHD_add_response_header(response, "Content-Type", answer.contentType.constData());
    MHD_add_response_header(response, "X-Content-Type-Options", "nosniff");
    for (const auto& [name, value] : answer.headers)
        MHD_add_response_header(response, name.constData(), value.constData());
    if (last)
        MHD_add_response_header(response, "Connection", "close");
    const auto result = MHD_queue_response(connection, unsigned(answer.status), response);
    MHD_destroy_response(response);
    return result;
}

} // namespace zib
