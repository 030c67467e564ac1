// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/WebView.h"

#include <QList>

namespace zib {

/// A view that keeps what it was shown; the test is the user in front of it.
class FakeWebView : public WebView {
  public:
    struct Shown {
        QString html;
        QByteArray scriptMark;
        QString baseUrl;
    };

    void setDelegate(WebViewDelegate* delegate) override { delegate_ = delegate; }
    void loadHtml(const QByteArray& html, const QByteArray& scriptMark, const QString& baseUrl) override
    {
        pages.append({QString::fromUtf8(html), scriptMark, baseUrl});
    }
    void clear() override { pages.append(Shown()); }
    void setBusyGearShown(bool shown) override { busyGear_ = shown; }
    [[nodiscard]] bool isBusyGearShown() const override { return busyGear_; }

    /// The page asks to go somewhere. @return whether it goes there.
    bool navigate(const QString& address, NavigationType type = NavigationType::LinkClicked,
                  const QByteArray& body = {})
    {
        return delegate_->decidePolicyForNavigationAction(address, type, body) == NavigationPolicy::Load;
    }
    void moveMouseOver(const QString& link) { delegate_->mouseDidMoveOverElement(link); }

    QList<Shown> pages; ///< all of them, in order; an empty one for each clearing

  private:
    WebViewDelegate* delegate_ = nullptr;
    bool busyGear_ = false;
};

} // namespace zib
