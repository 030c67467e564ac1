// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace zib::settings {

// The search mode of the search field: 0 artist, 1 tags, 2 similar artists.
inline const QString CurrentSearchType = QStringLiteral("CurrentSearchType");
inline const QString MusicFolder = QStringLiteral("MusicFolder");
inline const QString SoundLevel = QStringLiteral("SoundLevel"); // 0.0 to 1.0
inline const QString CopyImportedFilesToLibrary = QStringLiteral("CopyImportedFilesToLibrary");
inline const QString WantsPublicShare = QStringLiteral("WantsPublicShare");
inline const QString PlayAllSourcesContinuously = QStringLiteral("PlayAllSourcesContinuously");
inline const QString RecordAudioStreams = QStringLiteral("RecordAudioStreams");
// The status line's text; removed at quit, so that a stale one never shows at the next start.
inline const QString BriefStatusMessage = QStringLiteral("BriefStatusMessage");
inline const QString SelectedNowPlayingPage = QStringLiteral("SelectedNowPlayingPage");

// Notices that the user has silenced. The one "p" is the stored spelling.
inline const QString SupressDialogRemovePlaylist = QStringLiteral("SupressDialogRemovePlaylist");
inline const QString SupressDialogCleanUp = QStringLiteral("SupressDialogCleanUp");
inline const QString SupressDialogFavorites = QStringLiteral("SupressDialogFavorites");
inline const QString SupressDialogTopHot = QStringLiteral("SupressDialogTopHot");
inline const QString SupressDialogRecommended = QStringLiteral("SupressDialogRecommended");
inline const QString SupressDialogDownload = QStringLiteral("SupressDialogDownload");
inline const QString SupressDialogITunes = QStringLiteral("SupressDialogITunes");

// The outside services as HOST[:PORT][/PATH], spoken to over HTTP; their defaults are in ServiceHosts.h.
inline const QString SongSearchHost = QStringLiteral("SongSearchHost"); // artist search and profile
inline const QString MusicInfoHost = QStringLiteral("MusicInfoHost");   // artist, album and track info
inline const QString LyricsHost = QStringLiteral("LyricsHost");         // lyrics
inline const QString ReleaseHost = QStringLiteral("ReleaseHost");       // releases
inline const QString PlaylistHost = QStringLiteral("PlaylistHost");     // shared playlists
// The port that the bundled service had last; song addresses in the library name it.
inline const QString CataloguePort = QStringLiteral("CataloguePort");

// Where the music-information service has its pages for people, as a host like those above.
inline const QString MusicInfoSite = QStringLiteral("MusicInfoSite");

// The same for the pages of shared playlists.
inline const QString PlaylistSite = QStringLiteral("PlaylistSite");

// Web sites on which a shared playlist is passed on, as addresses without a path.
inline const QString FacebookSite = QStringLiteral("FacebookSite");
inline const QString TwitterSite = QStringLiteral("TwitterSite");
// The site whose player shows a video in the page of a track, likewise.
inline const QString VideoSite = QStringLiteral("VideoSite");

// Web pages, complete addresses.
inline const QString SupportPage = QStringLiteral("SupportPage");
inline const QString SharedPlaylistsPage = QStringLiteral("SharedPlaylistsPage");
inline const QString HomePage = QStringLiteral("HomePage");

// The look: "light", "dark", or nothing for what the desktop has.
inline const QString Appearance = QStringLiteral("Appearance");
// Keeps the ticker still, whatever the desktop says.
inline const QString ReduceMotion = QStringLiteral("ReduceMotion");
// A notification tells of each new song while another program is in front.
inline const QString NotifiesOfSongs = QStringLiteral("NotifiesOfSongs");
// The machine does not go to sleep by itself while a song plays.
inline const QString KeepsAwakeWhilePlaying = QStringLiteral("KeepsAwakeWhilePlaying");
// The newcomer has seen what the program says of itself at its first start.
inline const QString WelcomeShown = QStringLiteral("WelcomeShown");

// How the window was left.
inline const QString WindowGeometry = QStringLiteral("WindowGeometry");
inline const QString SourceListWidth = QStringLiteral("SourceListWidth"); // pixels
inline const QString ArtistsWidth = QStringLiteral("ArtistsWidth");       // pixels
inline const QString AlbumsWidth = QStringLiteral("AlbumsWidth");         // pixels
inline const QString SelectedSource = QStringLiteral("SelectedSource");
inline const QString SelectedArtist = QStringLiteral("SelectedArtist"); // empty for all
inline const QString SelectedAlbum = QStringLiteral("SelectedAlbum");   // empty for all
inline const QString SelectedSong = QStringLiteral("SelectedSong");     // its ID
inline const QString SongsScrolled = QStringLiteral("SongsScrolled");   // pixels
// Begins the key of what was searched for, one term a line, the newest first; the search type follows.
inline const QString RecentTerms = QStringLiteral("RecentTerms ");

// Begins the key of a saved song-table layout; its name follows.
inline const QString SongTableLayout = QStringLiteral("SongTableLayout ");

} // namespace zib::settings
