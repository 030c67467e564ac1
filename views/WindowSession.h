// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/OutlineView.h"

#include <QObject>
#include <QTimer>

class QSplitter;
class QWidget;

namespace zib {

class LibraryPanes;
class RVMainController;
class SourceListView;
class UserDefaults;

/// How the user left the window: its place and its panes, the source shown, what was chosen in it, and how
/// far it was scrolled. Kept in the settings all the while, so that a crash loses none of it.
class WindowSession : public QObject {
    Q_OBJECT

  public:
    /// They outlive the session.
    struct Parts {
        QWidget& window;
        QSplitter& panes; ///< the sources, and the main area
        SourceListView& sources;
        LibraryPanes& library;
    };
    /// Brings the panes back as they were.
    WindowSession(UserDefaults& defaults, const Parts& parts);

    /// Brings the window back to where it was. Whether that is known.
    bool restoreGeometry();
    /// Shows the source that was shown last, once the event loop runs: the window is there before a large
    /// library is sorted for it. From then on what the user does is kept, until the controller ends.
    void attach(RVMainController& controller);
    /// Keeps what is the case now.
    void save();

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    struct Place {
        NodePath source;
        QString artist; ///< empty for all
        QString album;  ///< empty for all
        QString song;   ///< its ID; empty for none
        int scrolled = 0;
    };

    void restorePlace();
    void show(const Place& place);
    void showAwaited();
    void watch();
    void keep(const QString& key, const QVariant& value);
    void savePanes();
    void savePlace();
    [[nodiscard]] QString nameOf(const NodePath& source) const;
    [[nodiscard]] NodePath sourceNamed(const QString& name) const;
    [[nodiscard]] bool isAtStart() const;

    UserDefaults& defaults_;
    Parts parts_;
    RVMainController* controller_ = nullptr;
    QTimer saveSoon_;
    Place awaited_; ///< the source is empty, or cannot be selected before its songs are there
};

} // namespace zib
