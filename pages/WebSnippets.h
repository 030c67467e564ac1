// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace zib {

/// The style sheets and templates of the pages, constant texts. A template has the placeholder "%style", the
/// placeholders of its values, and "%mark" in the nonce of each of its scripts. PageComposer fills them.
///
/// The scripts that the templates name are page resources. They define gradualFader with init(), which fades
/// the images of class "gradualfader" in and out under the mouse, and
/// ProgressBar(element, percentage, {animate, boxImage, barImage}), a constructor that draws a bar into the
/// element; the thumbnail viewer takes care of the links of relation "thumbnail" by itself.
class WebSnippets {
  public:
    /// The sheet of the start and error pages.
    static const QString& blueStyle();
    /// The sheet of all other pages.
    static const QString& grayStyle();

    static const QString& errorPage();
    static const QString& busyPage();
    static const QString& startPage();
    static const QString& artistPage();
    static const QString& albumPage();
    static const QString& trackPage();
    static const QString& imagesPage();
    /// Of the videos, blogs, news and reviews; the entries of these four in the menu are the placeholder
    /// "%menu".
    static const QString& feedPage();
};

} // namespace zib
