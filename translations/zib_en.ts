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
