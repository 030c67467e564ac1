// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pages/Page.h"
#include "pages/PageComposer.h"
#include "pages/PageFields.h"
#include "platform/WebView.h"
#include "services/RVAlbumInfoDownloader.h"
#include "services/RVArtistInfoDownloader.h"
#include "services/RVDataDownloader.h"
#include "services/RVLyricsDownloader.h"
#include "services/RVMusicBrainzDownloader.h"

#include <memory>

namespace zib {

class Desktop;
class UserDefaults;

/// What the pages ask of the main controller.
class RVWebViewControllerDelegate {
  public:
    virtual ~RVWebViewControllerDelegate() = default;
    /// Songs by the one artist, or similar ones for several.
    virtual void beginSearchForArtists(const QStringList& /*artists*/) {}
    virtual void beginSearchForTags(const QStringList& /*tags*/) {}
    virtual void openSharedPlaylist(const QString& /*identifier*/) {}
    /// What the mouse is over, in words; empty for nothing.
    virtual void setUrlField(const QString& /*text*/) {}
};

/// The pages about the current song: gathers from five services what they show, and follows their links. The
/// main controller announces a song with resetParameters, the setters of what it knows already, and
/// loadDataForTrack. All of it on the main thread.
///
/// Values of unknown origin stand in the pages as they are (see WebView). Therefore nothing happens but by
/// the user's own click: a page that goes somewhere by itself is refused, except to the program's own files
/// and to the video site, whose player the page of the track has.
class RVWebViewController final : public PageFields,
                                  private WebViewDelegate,
                                  private InfoServiceDelegate<RVDataDownloader>,
                                  private InfoServiceDelegate<RVArtistInfoDownloader>,
                                  private InfoServiceDelegate<RVAlbumInfoDownloader>,
                                  private InfoServiceDelegate<RVMusicBrainzDownloader>,
                                  private LyricsServiceDelegate {
  public:
    /// All that is referred to outlives the controller.
    /// @param resourceFolder address of the page resources, with a slash at its end
    RVWebViewController(WebView& view, const WebServices& services, UserDefaults& userDefaults,
                        Desktop& desktop, QString resourceFolder);
    ~RVWebViewController() override;
    RVWebViewController(const RVWebViewController&) = delete;
    RVWebViewController& operator=(const RVWebViewController&) = delete;

    /// May be null.
    void setDelegate(RVWebViewControllerDelegate* delegate) { delegate_ = delegate; }

    /// Forgets the song, see PageFields::reset, and the requests about it.
    void resetParameters();
    /// Shows the start page when there is no track; the busy page and then, when all has come, the page about
    /// the artist when the track's data is not there yet.
    void loadDataForTrack(const Record& track);

    /// Does what a zib:// address says, wherever it comes from: a page or, through the desktop, another
    /// program. Other addresses are only logged.
    void handleURLString(const QString& address);

    /// The page in the settings. It need not be one.
    [[nodiscard]] int currentPage() const;

    /// Each shows a page, made from what is known by now. Those about the song become the current page.
    /// @{
    void loadCurrentPage();
    void loadArtistPage(bool fullBio, bool animate);
    void loadAlbumPage();
    void loadTrackPage();
    void loadImagesPage();
    /// @param page one of feedPages
    void loadFeedPage(Page page);
    void loadStoppedPage();
    /// With the busy gear over it. Nothing happens when the gear turns already.
    void loadBusyPage();
    /// @param message for people
    void loadErrorPage(const QString& message);
    void loadWithHTMLString(const QString& html, const QByteArray& scriptMark);
    /// @}

  private:
    NavigationPolicy decidePolicyForNavigationAction(const QString& address, NavigationType type,
                                                     const QByteArray& body) override;
    void mouseDidMoveOverElement(const QString& link) override;

    void webServiceCompletedForRequest(RVDataDownloader& request) override;
    void webServiceCompletedForRequest(RVArtistInfoDownloader& request) override;
    void webServiceCompletedForRequest(RVAlbumInfoDownloader& request) override;
    void webServiceCompletedForRequest(RVMusicBrainzDownloader& request) override;
    void webServiceFailedForRequest(RVDataDownloader& request, const ServiceError& error) override;
    void webServiceFailedForRequest(RVArtistInfoDownloader& request, const ServiceError& error) override;
    void webServiceFailedForRequest(RVAlbumInfoDownloader& request, const ServiceError& error) override;
    void webServiceFailedForRequest(RVMusicBrainzDownloader& request, const ServiceError& error) override;
    void lyricsServiceCompletedForRequest(RVLyricsDownloader& request) override;
    void lyricsServiceFailedForRequest(RVLyricsDownloader& request) override;

    void gatherData();
    template <class Client, class Subject>
    bool startRequest(std::unique_ptr<Client>& request, const Subject& subject);
    void countReply();

    void storePage(Page page);
    template <typename Compose>
    void loadComposed(Compose compose);
    [[nodiscard]] PageSurroundings surroundings() const;

    void showPage(Page page);
    [[nodiscard]] bool isOnVideoSite(const QString& address) const;

    WebView& view_;
    WebServices services_;
    UserDefaults& userDefaults_;
    Desktop& desktop_;
    QString resourceFolder_;
    RVWebViewControllerDelegate* delegate_ = nullptr;

    std::unique_ptr<RVDataDownloader> dataRequest_;
    std::unique_ptr<RVArtistInfoDownloader> artistRequest_;
    std::unique_ptr<RVAlbumInfoDownloader> albumRequest_;
    std::unique_ptr<RVMusicBrainzDownloader> releaseRequest_;
    std::unique_ptr<RVLyricsDownloader> lyricsRequest_;
    int resets_ = 0; ///< by which a request that fails from its constructor is noticed
};

} // namespace zib
