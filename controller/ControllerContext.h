// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace zib {

class MainWindowView;
class Notices;
class RVDataManager;
class RVWebViewController;
class SongDownloads;
class UndoStack;
class UserDefaults;

/// What the parts of the main controller share; the controller holds it for them.
struct ControllerContext {
    RVDataManager& dataManager;
    const SongDownloads& downloads;
    UserDefaults& defaults;
    MainWindowView& window;
    Notices& notices;
    RVWebViewController& pages;
    UndoStack& undo;
    /// As the connectivity monitor last said.
    bool connectedToInternet = false;
};

} // namespace zib
