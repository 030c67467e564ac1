// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

namespace zib {

class ShareWindow;
class ShareWindowController;

class ShareWindowControllerDelegate {
  public:
    virtual ~ShareWindowControllerDelegate() = default;
    /// The user agreed; what they entered stands in the controller, which may be destroyed within the call.
    virtual void performShare(ShareWindowController& window) = 0;
};

/// Asks for the details of one share. Texts are null until they are set; whatever the user agrees to is set,
/// even when it is empty. Main thread.
class ShareWindowController {
  public:
    /// How a playlist is passed on; the numbers are the tags of buttons and requests.
    enum Tag { Plain = 0, Facebook = 1, Twitter = 2 };
    static constexpr int tagsKept = 5;

    /// Both outlive it.
    ShareWindowController(ShareWindow& window, ShareWindowControllerDelegate& delegate, int tag);

    [[nodiscard]] int tag() const { return tag_; }
    [[nodiscard]] const QString& title() const { return title_; }
    void setTitle(const QString& title) { title_ = title; }
    [[nodiscard]] const QString& description() const { return description_; }
    void setDescription(const QString& description) { description_ = description; }
    /// The tags, separated by ",".
    [[nodiscard]] const QString& tagstring() const { return tagstring_; }
    void setTagstring(const QString& tags) { tagstring_ = tags; }
    /// The name under which others see what is shared; only asked for when it was set.
    [[nodiscard]] const std::optional<QString>& userName() const { return userName_; }
    void setUserName(const QString& name) { userName_ = name; }

    /// Shows the window and returns when it is closed. Of the tags the first five are kept.
    void showWindow();

  private:
    ShareWindow& window_;
    ShareWindowControllerDelegate& delegate_;
    int tag_;
    QString title_;
    QString description_;
    QString tagstring_;
    std::optional<QString> userName_;
};

} // namespace zib
