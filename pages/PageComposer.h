// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pages/Page.h"
#include "pages/PageFields.h"
#include "pages/PageText.h"

#include <QByteArray>
#include <QString>

namespace zib {

/// What pages refer to outside of themselves.
struct PageSurroundings {
    QString resourceFolder; ///< address of the page resources, with a slash at its end
    // The home pages of the services, for the footers.
    QString musicInfoHome;
    QString artistProfileHome;
    QString releaseHome;
    QString lyricsHome;
};

/// Makes the pages from what is known of the song: the templates, filled. Each page is HTML for one script
/// mark (see WebView::loadHtml). The composer keeps references to the fields and the surroundings.
class PageComposer {
  public:
    PageComposer(const PageFields& fields, const PageSurroundings& surroundings, QByteArray scriptMark);

    [[nodiscard]] QString artistPage(bool fullBio, bool animate) const;
    [[nodiscard]] QString albumPage() const;
    [[nodiscard]] QString trackPage() const;
    /// With five images more than have been shown already.
    [[nodiscard]] QString imagesPage() const;
    /// @param page one of feedPages
    [[nodiscard]] QString feedPage(Page page) const;
    [[nodiscard]] QString startPage() const;
    [[nodiscard]] QString busyPage() const;
    [[nodiscard]] QString errorPage(const QString& message) const;

  private:
    [[nodiscard]] PageText gray(const QString& pageTemplate) const;
    [[nodiscard]] PageText blue(const QString& pageTemplate) const;
    [[nodiscard]] QString profileFooter() const;
    [[nodiscard]] QString artworkAddress() const;

    const PageFields& fields_;
    const PageSurroundings& surroundings_;
    QByteArray scriptMark_;
};

/// How many images more each page of images shows.
inline constexpr int imagesPerStep = 5;

} // namespace zib
