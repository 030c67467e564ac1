// SPDX-License-Identifier: GPL-3.0-or-later
#include "controller/NowPlayingDisplay.h"

#include "controller/ControllerContext.h"
#include "controller/MainWindowView.h"
#include "controller/NowPlayingSnapshot.h"
#include "platform/SettingsKeys.h"
#include "platform/UserDefaults.h"
#include "services/PictureDownloader.h"

#include <QLoggingCategory>

namespace zib {

namespace {

Q_LOGGING_CATEGORY(log, "zib.controller.display")

QString albumOf(const Record& track)
{
    const QString album = track.string(keys::Album);
    return album.isEmpty() ? QString() : track.string(keys::Artist) + QLatin1Char('\n') + album;
}

} // namespace

NowPlayingDisplay::NowPlayingDisplay(ControllerContext& context, const WebServices& services)
    : context_(context)
    , services_(services)
{
}

NowPlayingDisplay::~NowPlayingDisplay() = default;

void NowPlayingDisplay::request(const Record& track)
{
    const QString song = artistAndName(track);
    if (request_ && song == song_)
        return;
    const QString album = albumOf(track);
    if (album.isEmpty() || album != album_)
        forgetPicture();
    song_ = song;
    album_ = album;
    answered_ = false;
    request_ = std::make_unique<RVSongInfoDownloader>(services_, track, this);
}

void NowPlayingDisplay::drop()
{
    request_.reset();
    answered_ = false;
    album_.clear();
    picture_.reset();
    pictureAddress_.clear();
}

void NowPlayingDisplay::showSong(const Record& track)
{
    context_.window.setTickerHeader(tr("Now Playing"));
    context_.window.setTickerText(answered_
                                      ? QStringLiteral("%1 - %2").arg(request_->artist(), request_->name())
                                      : artistAndName(track));
    showArtwork();
}

void NowPlayingDisplay::showIdleBanner()
{
    context_.window.setTickerHeader(tr("Powered by"));
    context_.window.setArtwork(Artwork::SearchService);
    context_.window.setTickerText(tr("The Echo Nest"));
    const QString host = context_.defaults.string(settings::SongSearchHost);
    context_.defaults.setValue(settings::BriefStatusMessage,
                               host.isEmpty() ? context_.defaults.string(settings::HomePage)
                                              : QStringLiteral("http://") + host);
}

void NowPlayingDisplay::showArtwork()
{
    if (request_ == nullptr)
        return forgetPicture();
    if (!answered_)
        return;
    const QString address = request_->artwork();
    if (address.isEmpty())
        return forgetPicture();
    if (address == pictureAddress_)
        return;
    pictureAddress_ = address;
    picture_.reset();
    auto picture = std::make_unique<PictureDownloader>(services_, address,
                                                       [this](const QByteArray& file) { showPicture(file); });
    // An address that nobody can be asked for has been answered within the call.
    if (!pictureAddress_.isEmpty())
        picture_ = std::move(picture);
}

void NowPlayingDisplay::showPicture(const QByteArray& file)
{
    if (file.isEmpty())
        return forgetPicture();
    context_.window.setArtworkPicture(file);
    picture_.reset();
}

void NowPlayingDisplay::forgetPicture()
{
    picture_.reset();
    pictureAddress_.clear();
    context_.window.setArtwork(Artwork::Standard);
}

void NowPlayingDisplay::webServiceCompletedForRequest(RVSongInfoDownloader&)
{
    answered_ = true;
    Q_EMIT completed();
}

void NowPlayingDisplay::webServiceFailedForRequest(RVSongInfoDownloader& request, const ServiceError& error)
{
    qCWarning(log).noquote() << "Web service failed for request:" << error.text;
    if (&request == request_.get()) // and not one that fails while it is made
        request_.reset();
}

} // namespace zib
