// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/PulseConnection.h"

#include <QCoreApplication>

#include <utility>

Q_LOGGING_CATEGORY(lcSound, "zib.sound", QtInfoMsg)

namespace zib {

PulseConnection::PulseConnection()
    : loop_(pa_threaded_mainloop_new())
{
    pa_threaded_mainloop_set_name(loop_, "zib-sound");
    pa_threaded_mainloop_start(loop_);
}

PulseConnection::~PulseConnection()
{
    {
        const Guard guard(*this);
        leave();
    }
    pa_threaded_mainloop_stop(loop_);
    pa_threaded_mainloop_free(loop_);
}

void PulseConnection::leave()
{
    if (!context_)
        return;
    pa_context_set_state_callback(context_, nullptr, nullptr);
    pa_context_disconnect(context_);
    pa_context_unref(std::exchange(context_, nullptr));
}

void PulseConnection::connect(SoundOutput::Search search)
{
    const Guard guard(*this);
    if (presence_ != SoundOutput::Presence::Absent)
        return;
    leave();
    auto* api = pa_threaded_mainloop_get_api(loop_);
    pa_proplist* properties = pa_proplist_new();
    pa_proplist_sets(properties, PA_PROP_APPLICATION_NAME,
                     QCoreApplication::applicationName().toUtf8().constData());
    context_ = pa_context_new_with_proplist(api, nullptr, properties);
    pa_proplist_free(properties);
    if (!context_)
        return;
    presence_ = SoundOutput::Presence::Connecting;
    flags_ = search == SoundOutput::Search::Start ? PA_CONTEXT_NOFLAGS : PA_CONTEXT_NOAUTOSPAWN;
    pa_context_set_state_callback(
        context_, [](pa_context*, void* self) { static_cast<PulseConnection*>(self)->contextChanged(); },
        this);
    // On the mainloop's thread, because starting a server takes its time.
    pa_mainloop_api_once(
        api,
        [](pa_mainloop_api*, void* self) {
            auto& connection = *static_cast<PulseConnection*>(self);
            if (connection.context_ &&
                pa_context_connect(connection.context_, nullptr, connection.flags_, nullptr) < 0)
                connection.contextChanged();
        },
        this);
}

SoundOutput::Presence PulseConnection::presence()
{
    const Guard guard(*this);
    return presence_;
}

void PulseConnection::contextChanged()
{
    const auto state = pa_context_get_state(context_);
    if (state == PA_CONTEXT_READY) {
        presence_ = SoundOutput::Presence::Ready;
        qCInfo(lcSound) << "connected to the sound server" << pa_context_get_server(context_);
    } else if (!PA_CONTEXT_IS_GOOD(state) || state == PA_CONTEXT_UNCONNECTED) {
        if (presence_ == SoundOutput::Presence::Ready)
            qCWarning(lcSound) << "the sound server is gone:" << pa_strerror(pa_context_errno(context_));
        presence_ = SoundOutput::Presence::Absent;
    } else {
        return;
    }
    settleWaiting();
}

void PulseConnection::settleWaiting()
{
    for (Waiting* who : std::exchange(waiting_, {}))
        who->settle();
}

} // namespace zib
