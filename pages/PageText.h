// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QLatin1String>
#include <QString>

namespace zib {

/// A template on its way to a page. Values are put in as they are, in an order that counts: a placeholder
/// that a value brings along is replaced with the later ones. Scripts get their mark first, so that no value
/// can.
class PageText {
  public:
    /// @param scriptMark see WebView::loadHtml
    PageText(const QString& pageTemplate, const QString& style, const QByteArray& scriptMark);

    /// Puts the value in place of every occurrence of the placeholder; nothing is put there when the page
    /// would become longer than maximumLength.
    /// @param placeholder begins with a percent sign
    PageText& replace(QLatin1String placeholder, const QString& value);
    [[nodiscard]] const QString& text() const { return text_; }

    /// In characters. Values that name placeholders multiply each other.
    static constexpr qsizetype maximumLength = qsizetype(32) * 1024 * 1024;

  private:
    QString text_;
};

} // namespace zib
