// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace zib {

/// What makes the view want to go to another address.
enum class NavigationType {
    LinkClicked,
    FormSubmitted,
    Other, ///< the page itself, a frame in it, a redirect: nothing that the user did
};

enum class NavigationPolicy {
    Load,   ///< the view goes there itself
    Refuse, ///< the page stays as it is; whoever was asked may have done something in its place
};

/// Told by the view what happens in it, on the main thread.
class WebViewDelegate {
  public:
    virtual ~WebViewDelegate() = default;

    /// The view is about to go to an address.
    /// @param address as it stands in the page, escapes kept
    /// @param body of a submitted form, as application/x-www-form-urlencoded; empty for any other navigation
    virtual NavigationPolicy decidePolicyForNavigationAction(const QString& /*address*/,
                                                             NavigationType /*type*/,
                                                             const QByteArray& /*body*/)
    {
        return NavigationPolicy::Refuse;
    }
    /// @param link the address under the mouse; empty for none
    virtual void mouseDidMoveOverElement(const QString& /*link*/) {}
};

/// The pane that shows pages. It may start whatever it needs for that when the first page is loaded, not
/// before. Values of unknown origin stand in the pages unescaped, so the view is the wall: of the scripts in
/// a page it runs only those that carry the page's own mark (see loadHtml), and it opens no windows, reads no
/// files but the page resources, and lets nobody but the user follow a link. Main thread.
class WebView {
  public:
    virtual ~WebView() = default;

    /// The delegate may be null and outlives the view.
    virtual void setDelegate(WebViewDelegate* delegate) = 0;

    /// Shows a page in place of the one before; of any size. Returns at once.
    /// @param html UTF-8
    /// @param scriptMark the nonce attribute of the page's own scripts, unguessable and new for each page; no
    /// other script runs
    /// @param baseUrl the folder, with a slash at its end, against which relative addresses are resolved
    virtual void loadHtml(const QByteArray& html, const QByteArray& scriptMark, const QString& baseUrl) = 0;
    /// Clears the pane at once.
    virtual void clear() = 0;

    /// A turning gear of 32 x 32 over the middle of the pane, for as long as it is on.
    /// @{
    virtual void setBusyGearShown(bool shown) = 0;
    [[nodiscard]] virtual bool isBusyGearShown() const = 0;
    /// @}
};

} // namespace zib
