<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>RVMainController</name>
    <message numerus="yes">
        <source>%Ln songs</source>
        <translation>
            <numerusform>%Ln song</numerusform>
            <numerusform>%Ln songs</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>RVWebViewController</name>
    <message numerus="yes">
        <source>Showing 1 - %1 of %n images</source>
        <translation>
            <numerusform>Showing 1 - %1 of %n images</numerusform>
            <numerusform>Showing 1 - %1 of %n images</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>RemovedLists</name>
    <message numerus="yes">
        <source>%Ln searches removed. Press Ctrl+Z to undo.</source>
        <translation>
            <numerusform>%Ln search removed. Press Ctrl+Z to undo.</numerusform>
            <numerusform>%Ln searches removed. Press Ctrl+Z to undo.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Undo remove %Ln searches</source>
        <translation>
            <numerusform>Undo remove %Ln search</numerusform>
            <numerusform>Undo remove %Ln searches</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Redo remove %Ln searches</source>
        <translation>
            <numerusform>Redo remove %Ln search</numerusform>
            <numerusform>Redo remove %Ln searches</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln playlists removed. Press Ctrl+Z to undo.</source>
        <translation>
            <numerusform>%Ln playlist removed. Press Ctrl+Z to undo.</numerusform>
            <numerusform>%Ln playlists removed. Press Ctrl+Z to undo.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Undo remove %Ln playlists</source>
        <translation>
            <numerusform>Undo remove %Ln playlist</numerusform>
            <numerusform>Undo remove %Ln playlists</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Redo remove %Ln playlists</source>
        <translation>
            <numerusform>Redo remove %Ln playlist</numerusform>
            <numerusform>Redo remove %Ln playlists</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SongsRemovedFromLibrary</name>
    <message numerus="yes">
        <source>%Ln songs removed from the library. Press Ctrl+Z to undo.</source>
        <translation>
            <numerusform>%Ln song removed from the library. Press Ctrl+Z to undo.</numerusform>
            <numerusform>%Ln songs removed from the library. Press Ctrl+Z to undo.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Undo remove %Ln songs</source>
        <translation>
            <numerusform>Undo remove %Ln song</numerusform>
            <numerusform>Undo remove %Ln songs</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Redo remove %Ln songs</source>
        <translation>
            <numerusform>Redo remove %Ln song</numerusform>
            <numerusform>Redo remove %Ln songs</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files could not be brought back from the trash.</source>
        <translation>
            <numerusform>%Ln file could not be brought back from the trash.</numerusform>
            <numerusform>%Ln files could not be brought back from the trash.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SongsRemovedFromPlaylist</name>
    <message numerus="yes">
        <source>%Ln songs removed from the playlist. Press Ctrl+Z to undo.</source>
        <translation>
            <numerusform>%Ln song removed from the playlist. Press Ctrl+Z to undo.</numerusform>
            <numerusform>%Ln songs removed from the playlist. Press Ctrl+Z to undo.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Undo remove %Ln songs from the playlist</source>
        <translation>
            <numerusform>Undo remove %Ln song from the playlist</numerusform>
            <numerusform>Undo remove %Ln songs from the playlist</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Redo remove %Ln songs from the playlist</source>
        <translation>
            <numerusform>Redo remove %Ln song from the playlist</numerusform>
            <numerusform>Redo remove %Ln songs from the playlist</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>zib::AppDelegate</name>
    <message numerus="yes">
        <source>%Ln songs added</source>
        <translation>
            <numerusform>%Ln song added</numerusform>
            <numerusform>%Ln songs added</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>zib::ListExchange</name>
    <message numerus="yes">
        <source>and %Ln more</source>
        <translation>
            <numerusform>and %Ln more</numerusform>
            <numerusform>and %Ln more</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln songs of the playlist “%1” were not found.</source>
        <translation>
            <numerusform>%Ln song of the playlist “%1” was not found.</numerusform>
            <numerusform>%Ln songs of the playlist “%1” were not found.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln songs</source>
        <translation>
            <numerusform>%Ln song</numerusform>
            <numerusform>%Ln songs</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln playlists</source>
        <translation>
            <numerusform>%Ln playlist</numerusform>
            <numerusform>%Ln playlists</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>zib::SongTable</name>
    <message numerus="yes">
        <source>%Ln songs</source>
        <translation>
            <numerusform>%Ln song</numerusform>
            <numerusform>%Ln songs</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>zib::SongTableModel</name>
    <message numerus="yes">
        <source>%n seconds</source>
        <translation>
            <numerusform>%n second</numerusform>
            <numerusform>%n seconds</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n minutes</source>
        <translation>
            <numerusform>%n minute</numerusform>
            <numerusform>%n minutes</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>zib::SourceListView</name>
    <message numerus="yes">
        <source>%n rows</source>
        <translation>
            <numerusform>%n row</numerusform>
            <numerusform>%n rows</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>zib::TrackBrowser</name>
    <message numerus="yes">
        <source>Artists</source>
        <translation>
            <numerusform>Artists</numerusform>
            <numerusform>Artists</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Albums</source>
        <translation>
            <numerusform>Albums</numerusform>
            <numerusform>Albums</numerusform>
        </translation>
    </message>
</context>
</TS>
