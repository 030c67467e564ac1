// SPDX-License-Identifier: GPL-3.0-or-later
#include "pages/Log.h"
#include "pages/PageAddress.h"
#include "pages/RVWebViewController.h"
#include "platform/Desktop.h"
#include "platform/SettingsKeys.h"
#include "platform/UserDefaults.h"

#include <QUrl>

namespace zib {

NavigationPolicy RVWebViewController::decidePolicyForNavigationAction(const QString& address,
                                                                      NavigationType type,
                                                                      const QByteArray& body)
{
    if (address.startsWith(QLatin1String("file://")) || isOnVideoSite(address))
        return NavigationPolicy::Load;
    if (type == NavigationType::Other)
        return NavigationPolicy::Refuse;
    if (isZibAddress(address))
        handleURLString(type == NavigationType::FormSubmitted ? addressOfForm(address, body) : address);
    else if (isWebAddress(address)) // the desktop would start any program for an address of another kind
        desktop_.openUrl(QUrl::fromEncoded(address.toUtf8()));
    return NavigationPolicy::Refuse;
}

void RVWebViewController::mouseDidMoveOverElement(const QString& link)
{
    const auto hint = hoverHint(link, currentPage() == int(Page::Images));
    if (hint && delegate_ != nullptr)
        delegate_->setUrlField(*hint);
}

void RVWebViewController::handleURLString(const QString& address)
{
    using Kind = PageAddress::Kind;
    const auto read = readPageAddress(address);
    if (!read) {
        qCWarning(pagesLog, "Unknown URL event: %s", qUtf8Printable(address));
        return;
    }
    static RVWebViewControllerDelegate nobody;
    RVWebViewControllerDelegate& delegate = delegate_ != nullptr ? *delegate_ : nobody;
    switch (read->kind) {
    case Kind::ShowPage:
        showPage(read->page);
        break;
    case Kind::ShowMoreOfPage:
        if (read->page == Page::Images)
            loadImagesPage();
        else
            loadArtistPage(true, false);
        break;
    case Kind::SearchTag:
        delegate.beginSearchForTags({read->text});
        break;
    case Kind::SearchSimilarArtists: {
        QStringList artists{artist()};
        for (const SimilarArtist& each : similar())
            artists += each.artist;
        delegate.beginSearchForArtists(artists);
        break;
    }
    case Kind::SearchAllTags:
        delegate.beginSearchForTags(tags());
        break;
    case Kind::SearchArtist:
        delegate.beginSearchForArtists({read->text});
        break;
    case Kind::SearchAllTrackTags:
        delegate.beginSearchForTags(track_tags());
        break;
    case Kind::OpenPlaylist:
        delegate.openSharedPlaylist(read->text);
        break;
    }
}

void RVWebViewController::showPage(Page page)
{
    switch (page) {
    case Page::Artist:
        return loadArtistPage(false, false);
    case Page::Album:
        return loadAlbumPage();
    case Page::Track:
        return loadTrackPage();
    case Page::Images:
        setImageIndex(0);
        return loadImagesPage();
    case Page::Videos:
    case Page::Blogs:
    case Page::News:
    case Page::Reviews:
        return loadFeedPage(page);
    }
}

bool RVWebViewController::isOnVideoSite(const QString& address) const
{
    const QString site = userDefaults_.string(settings::VideoSite);
    return !site.isEmpty() && address.startsWith(site + u'/');
}

} // namespace zib
