<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>AboutWindow</name>
    <message>
        <source>window, desktop</source>
        <translation>Fenster, Desktop</translation>
    </message>
    <message>
        <source>pages about songs</source>
        <translation>Seiten über Songs</translation>
    </message>
    <message>
        <source>decoding</source>
        <translation>Dekodierung</translation>
    </message>
    <message>
        <source>sound</source>
        <translation>Ton</translation>
    </message>
    <message>
        <source>web requests</source>
        <translation>Web-Anfragen</translation>
    </message>
    <message>
        <source>tags</source>
        <translation>Metadaten</translation>
    </message>
    <message>
        <source>replies of services</source>
        <translation>Antworten der Dienste</translation>
    </message>
    <message>
        <source>the library file</source>
        <translation>die Mediathek-Datei</translation>
    </message>
    <message>
        <source>the bundled service</source>
        <translation>der mitgelieferte Dienst</translation>
    </message>
    <message>
        <source>results and failures</source>
        <translation>Ergebnisse und Fehler</translation>
    </message>
</context>
<context>
    <name>AccessibleText</name>
    <message>
        <source>Edge of a pane</source>
        <translation>Rand eines Bereichs</translation>
    </message>
</context>
<context>
    <name>ApplicationMenu</name>
    <message>
        <source>Add to library…</source>
        <translation>Zur Mediathek hinzufügen&#xa0;…</translation>
    </message>
    <message>
        <source>Import iTunes library…</source>
        <translation>iTunes-Mediathek importieren&#xa0;…</translation>
    </message>
    <message>
        <source>Remove iTunes items</source>
        <translation>iTunes-Songs entfernen</translation>
    </message>
    <message>
        <source>Import playlist…</source>
        <translation>Playlist importieren&#xa0;…</translation>
    </message>
    <message>
        <source>Import library…</source>
        <translation>Mediathek importieren&#xa0;…</translation>
    </message>
    <message>
        <source>Export library…</source>
        <translation>Mediathek exportieren&#xa0;…</translation>
    </message>
    <message>
        <source>Clean up broken links…</source>
        <translation>Defekte Verweise aufräumen&#xa0;…</translation>
    </message>
    <message>
        <source>Preferences…</source>
        <translation>Einstellungen&#xa0;…</translation>
    </message>
    <message>
        <source>Welcome</source>
        <translation>Willkommen</translation>
    </message>
    <message>
        <source>Read me</source>
        <translation>Bitte lesen</translation>
    </message>
    <message>
        <source>Website</source>
        <translation>Website</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>Shared playlists</source>
        <translation>Geteilte Playlists</translation>
    </message>
    <message>
        <source>About Zib</source>
        <translation>Über Zib</translation>
    </message>
    <message>
        <source>Close window</source>
        <translation>Fenster schließen</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
</context>
<context>
    <name>AudioStreamer</name>
    <message>
        <source>Export failed</source>
        <translation>Export fehlgeschlagen</translation>
    </message>
</context>
<context>
    <name>Database</name>
    <message>
        <source>made by a newer version of this program</source>
        <translation>von einer neueren Version dieses Programms angelegt</translation>
    </message>
</context>
<context>
    <name>Errors</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>File Error</source>
        <translation>Dateifehler</translation>
    </message>
    <message>
        <source>Unable to configure network read stream.</source>
        <translation>Der Datenstrom aus dem Netz konnte nicht eingerichtet werden.</translation>
    </message>
</context>
<context>
    <name>FileViewController</name>
    <message>
        <source>“%1” stays as it is. %2</source>
        <translation>„%1“ bleibt, wie es ist. %2</translation>
    </message>
</context>
<context>
    <name>Icons</name>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
</context>
<context>
    <name>LibraryExport</name>
    <message>
        <source>Writing %1 failed: %2.</source>
        <translation>%1 konnte nicht geschrieben werden: %2.</translation>
    </message>
    <message>
        <source>There is no music library at %1.</source>
        <translation>Unter %1 gibt es keine Mediathek.</translation>
    </message>
    <message>
        <source>The music library at %1 cannot be read: %2.</source>
        <translation>Die Mediathek unter %1 kann nicht gelesen werden: %2.</translation>
    </message>
    <message>
        <source>%1 is the music library itself; choose another file.</source>
        <translation>%1 ist die Mediathek selbst; bitte eine andere Datei wählen.</translation>
    </message>
</context>
<context>
    <name>LibraryFile</name>
    <message>
        <source>the file cannot be deciphered</source>
        <translation>die Datei lässt sich nicht entschlüsseln</translation>
    </message>
</context>
<context>
    <name>ListPanels</name>
    <message>
        <source>XML property list (*.xml)</source>
        <translation>XML-Eigenschaftsliste (*.xml)</translation>
    </message>
    <message>
        <source>Export playlist</source>
        <translation>Playlist exportieren</translation>
    </message>
    <message>
        <source>M3U8 playlist (*.m3u8)</source>
        <translation>M3U8-Playlist (*.m3u8)</translation>
    </message>
    <message>
        <source>XSPF playlist (*.xspf)</source>
        <translation>XSPF-Playlist (*.xspf)</translation>
    </message>
    <message>
        <source>JSPF playlist (*.jspf)</source>
        <translation>JSPF-Playlist (*.jspf)</translation>
    </message>
    <message>
        <source>Import playlist</source>
        <translation>Playlist importieren</translation>
    </message>
    <message>
        <source>Playlists (*.m3u8 *.m3u *.xspf *.jspf)</source>
        <translation>Playlists (*.m3u8 *.m3u *.xspf *.jspf)</translation>
    </message>
    <message>
        <source>Export library</source>
        <translation>Mediathek exportieren</translation>
    </message>
    <message>
        <source>Zib Music Library</source>
        <translation>Zib-Mediathek</translation>
    </message>
    <message>
        <source>Import library</source>
        <translation>Mediathek importieren</translation>
    </message>
    <message>
        <source>Format:</source>
        <translation>Format:</translation>
    </message>
</context>
<context>
    <name>ListeningSocket</name>
    <message>
        <source>%1 is no numeric address</source>
        <translation>%1 ist keine numerische Adresse</translation>
    </message>
    <message>
        <source>cannot listen on %1 port %2: %3</source>
        <translation>Lauschen auf %1, Port %2, nicht möglich: %3</translation>
    </message>
    <message>
        <source>descriptor %1 is no listening socket</source>
        <translation>Deskriptor %1 ist kein lauschender Socket</translation>
    </message>
    <message>
        <source>descriptor %1 is no TCP socket</source>
        <translation>Deskriptor %1 ist kein TCP-Socket</translation>
    </message>
</context>
<context>
    <name>LoveActions</name>
    <message>
        <source>You just loved a song. This is a good thing! The more songs you love, the better recommendations you get.</source>
        <translation>Ein Song ist jetzt ein Favorit. Das ist gut so! Je mehr Favoriten, desto besser die Empfehlungen.</translation>
    </message>
</context>
<context>
    <name>MovieFile</name>
    <message>
        <source>“%1” is not a file.</source>
        <translation>„%1“ ist keine Datei.</translation>
    </message>
    <message>
        <source>“%1” could not be opened: %2</source>
        <translation>„%1“ konnte nicht geöffnet werden: %2</translation>
    </message>
    <message>
        <source>“%1” holds no sound that can be played.</source>
        <translation>„%1“ enthält keinen abspielbaren Ton.</translation>
    </message>
</context>
<context>
    <name>MusicFolder</name>
    <message>
        <source>The music folder could not be moved: %1.</source>
        <translation>Der Musikordner konnte nicht verschoben werden: %1.</translation>
    </message>
</context>
<context>
    <name>MusicFolderGuard</name>
    <message>
        <source>No file can have the name “%1”.</source>
        <translation>Keine Datei kann „%1“ heißen.</translation>
    </message>
    <message>
        <source>The name “%1” is too long for a file.</source>
        <translation>Der Name „%1“ ist zu lang für eine Datei.</translation>
    </message>
    <message>
        <source>The path “%1” is too long for a file.</source>
        <translation>Der Pfad „%1“ ist zu lang für eine Datei.</translation>
    </message>
    <message>
        <source>“%1” lies outside the music folder.</source>
        <translation>„%1“ liegt außerhalb des Musikordners.</translation>
    </message>
</context>
<context>
    <name>Notices</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Zib!</source>
        <translation>Zib!</translation>
    </message>
</context>
<context>
    <name>NoticesPage</name>
    <message>
        <source>When a song is loved</source>
        <translation>Wenn ein Song zum Favoriten wird</translation>
    </message>
    <message>
        <source>Before a song is downloaded</source>
        <translation>Bevor ein Song heruntergeladen wird</translation>
    </message>
    <message>
        <source>Before a playlist is removed</source>
        <translation>Bevor eine Playlist entfernt wird</translation>
    </message>
    <message>
        <source>Before songs with broken links are removed</source>
        <translation>Bevor Songs mit defekten Verweisen entfernt werden</translation>
    </message>
    <message>
        <source>Before an iTunes library is imported</source>
        <translation>Bevor eine iTunes-Mediathek importiert wird</translation>
    </message>
    <message>
        <source>When “What&apos;s Hot?” is opened</source>
        <translation>Wenn „Was ist angesagt?“ geöffnet wird</translation>
    </message>
    <message>
        <source>When “Recommended” is opened</source>
        <translation>Wenn „Empfohlen“ geöffnet wird</translation>
    </message>
</context>
<context>
    <name>PageTemplates</name>
    <message>
        <source>Now playing &lt;b&gt;%track&lt;/b&gt; by</source>
        <translation>Es läuft &lt;b&gt;%track&lt;/b&gt; von</translation>
    </message>
    <message>
        <source>Familiarity</source>
        <translation>Bekanntheit</translation>
    </message>
    <message>
        <source>Hotness</source>
        <translation>Trend</translation>
    </message>
    <message>
        <source>Tags:</source>
        <translation>Tags:</translation>
    </message>
    <message>
        <source>Similar Artists:</source>
        <translation>Ähnliche Interpreten:</translation>
    </message>
    <message>
        <source>MORE MUSIC&lt;br&gt;LIKE THIS!</source>
        <translation>MEHR MUSIK&lt;br&gt;WIE DIESE!</translation>
    </message>
    <message>
        <source>by %artist</source>
        <translation>von %artist</translation>
    </message>
    <message>
        <source>Type: &lt;b&gt;%type&lt;/b&gt;</source>
        <translation>Art: &lt;b&gt;%type&lt;/b&gt;</translation>
    </message>
    <message>
        <source>Released: &lt;b&gt;%date&lt;/b&gt;</source>
        <translation>Erschienen: &lt;b&gt;%date&lt;/b&gt;</translation>
    </message>
    <message>
        <source>Label: &lt;b&gt;%label&lt;/b&gt;</source>
        <translation>Label: &lt;b&gt;%label&lt;/b&gt;</translation>
    </message>
    <message>
        <source>Artist</source>
        <translation>Interpret</translation>
    </message>
</context>
<context>
    <name>PageWords</name>
    <message>
        <source>Artist</source>
        <translation>Interpret</translation>
    </message>
    <message>
        <source>Album</source>
        <translation>Album</translation>
    </message>
    <message>
        <source>Song</source>
        <translation>Song</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>Videos</source>
        <translation>Videos</translation>
    </message>
    <message>
        <source>Blogs</source>
        <translation>Blogs</translation>
    </message>
    <message>
        <source>News</source>
        <translation>Neues</translation>
    </message>
    <message>
        <source>Reviews</source>
        <translation>Kritiken</translation>
    </message>
    <message>
        <source>Familiarity</source>
        <translation>Bekanntheit</translation>
    </message>
    <message>
        <source>Hotness</source>
        <translation>Trend</translation>
    </message>
</context>
<context>
    <name>PlaybackQueue</name>
    <message>
        <source>You are not connected to the Internet</source>
        <translation>Keine Verbindung zum Internet</translation>
    </message>
    <message>
        <source>This computer’s Internet connection appears to be offline.</source>
        <translation>Dieser Computer scheint nicht mit dem Internet verbunden zu sein.</translation>
    </message>
    <message>
        <source>Buffering...</source>
        <translation>Wird gepuffert ...</translation>
    </message>
    <message>
        <source>Idle</source>
        <translation>Bereit</translation>
    </message>
    <message>
        <source>Playing from disk</source>
        <translation>Wiedergabe von der Festplatte</translation>
    </message>
    <message>
        <source>Streaming...</source>
        <translation>Wird gestreamt ...</translation>
    </message>
</context>
<context>
    <name>PlaylistFile</name>
    <message>
        <source>It is no JSPF playlist.</source>
        <translation>Das ist keine JSPF-Playlist.</translation>
    </message>
    <message>
        <source>It is a single stream, not a list of songs.</source>
        <translation>Das ist ein einzelner Stream, keine Liste von Songs.</translation>
    </message>
    <message>
        <source>The name of the file must end in .m3u8, .xspf or .jspf.</source>
        <translation>Der Name der Datei muss auf .m3u8, .xspf oder .jspf enden.</translation>
    </message>
    <message>
        <source>Writing %1 failed: %2.</source>
        <translation>%1 konnte nicht geschrieben werden: %2.</translation>
    </message>
    <message>
        <source>The file is too large.</source>
        <translation>Die Datei ist zu groß.</translation>
    </message>
    <message>
        <source>It holds more than %1 songs.</source>
        <translation>Sie enthält mehr als %1 Songs.</translation>
    </message>
    <message>
        <source>It is no XSPF playlist.</source>
        <translation>Das ist keine XSPF-Playlist.</translation>
    </message>
</context>
<context>
    <name>RVDataDownloader</name>
    <message>
        <source>No title</source>
        <translation>Ohne Titel</translation>
    </message>
    <message>
        <source>No summary available</source>
        <translation>Keine Zusammenfassung vorhanden</translation>
    </message>
    <message>
        <source>No date</source>
        <translation>Ohne Datum</translation>
    </message>
    <message>
        <source>No data found</source>
        <translation>Keine Daten gefunden</translation>
    </message>
</context>
<context>
    <name>RVFileDownloader</name>
    <message>
        <source>The server answered with error %1.</source>
        <translation>Der Server hat mit dem Fehler %1 geantwortet.</translation>
    </message>
    <message>
        <source>Could not establish a connection</source>
        <translation>Es konnte keine Verbindung hergestellt werden</translation>
    </message>
</context>
<context>
    <name>RVMainController</name>
    <message>
        <source>You are about to import your iTunes music library. Songs will be added by reference. No songs will be duplicated on disk.</source>
        <translation>Die iTunes-Mediathek wird importiert. Die Songs bleiben, wo sie sind; auf der Festplatte wird nichts kopiert.</translation>
    </message>
    <message>
        <source>The playlist could not be exported.</source>
        <translation>Die Playlist konnte nicht exportiert werden.</translation>
    </message>
    <message>
        <source>Are you sure you want to edit information for multiple items?</source>
        <translation>Wirklich die Angaben mehrerer Songs bearbeiten?</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>Not all songs could be changed.</source>
        <translation>Nicht alle Songs konnten geändert werden.</translation>
    </message>
    <message>
        <source>You are about to remove all songs with broken links from your music library and playlists.</source>
        <translation>Alle Songs mit defekten Verweisen werden aus der Mediathek und den Playlists entfernt.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln songs</source>
        <translation>
            <numerusform>%Ln Song</numerusform>
            <numerusform>%Ln Songs</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>RVPlaylistDownloader</name>
    <message>
        <source>no connection</source>
        <translation>keine Verbindung</translation>
    </message>
    <message>
        <source>Could not connect to server</source>
        <translation>Der Server ist nicht erreichbar</translation>
    </message>
    <message>
        <source>No songs found. Please check your spelling or try another search.</source>
        <translation>Keine Songs gefunden. Bitte die Schreibweise prüfen oder anders suchen.</translation>
    </message>
</context>
<context>
    <name>RVPlaylistUploader</name>
    <message>
        <source>Could not connect to server</source>
        <translation>Der Server ist nicht erreichbar</translation>
    </message>
</context>
<context>
    <name>RVSongInfoDownloader</name>
    <message>
        <source>Unknown Artist</source>
        <translation>Unbekannter Interpret</translation>
    </message>
    <message>
        <source>Unknown Album</source>
        <translation>Unbekanntes Album</translation>
    </message>
    <message>
        <source>Unknown Song</source>
        <translation>Unbekannter Song</translation>
    </message>
</context>
<context>
    <name>RVWebViewController</name>
    <message>
        <source>Search for songs by artists like these</source>
        <translation>Songs von Interpreten wie diesen suchen</translation>
    </message>
    <message>
        <source>Search for songs with all of these tags</source>
        <translation>Songs mit allen diesen Tags suchen</translation>
    </message>
    <message>
        <source>Search for songs by %@</source>
        <translation>Songs von %@ suchen</translation>
    </message>
    <message>
        <source>Search for songs tagged %@</source>
        <translation>Songs mit dem Tag %@ suchen</translation>
    </message>
    <message>
        <source>Click to enlarge</source>
        <translation>Zum Vergrößern klicken</translation>
    </message>
    <message>
        <source>Or try a tag:</source>
        <translation>Oder ein Tag probieren:</translation>
    </message>
    <message>
        <source>We couldn&apos;t find any wiki, video or lyrics for this song.</source>
        <translation>Zu diesem Song wurden weder Wiki noch Video noch Songtext gefunden.</translation>
    </message>
    <message>
        <source>We couldn&apos;t find any images for %@.</source>
        <translation>Es wurden keine Bilder zu %@ gefunden.</translation>
    </message>
    <message>
        <source>What artist do you want to play next?</source>
        <translation>Welcher Interpret soll als Nächstes laufen?</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Unbekannt</translation>
    </message>
    <message>
        <source>Sorry!</source>
        <translation>Schade!</translation>
    </message>
    <message>
        <source>No wiki available</source>
        <translation>Kein Wiki vorhanden</translation>
    </message>
    <message>
        <source>Videos for %@</source>
        <translation>Videos zu %@</translation>
    </message>
    <message>
        <source>We couldn&apos;t find any Videos for %@.</source>
        <translation>Es wurden keine Videos zu %@ gefunden.</translation>
    </message>
    <message>
        <source>Blogs for %@</source>
        <translation>Blogs zu %@</translation>
    </message>
    <message>
        <source>We couldn&apos;t find any Blogs for %@.</source>
        <translation>Es wurden keine Blogs zu %@ gefunden.</translation>
    </message>
    <message>
        <source>News for %@</source>
        <translation>Neues zu %@</translation>
    </message>
    <message>
        <source>We couldn&apos;t find any News for %@.</source>
        <translation>Es wurde nichts Neues zu %@ gefunden.</translation>
    </message>
    <message>
        <source>Reviews for %@</source>
        <translation>Kritiken zu %@</translation>
    </message>
    <message>
        <source>We couldn&apos;t find any Reviews for %@.</source>
        <translation>Es wurden keine Kritiken zu %@ gefunden.</translation>
    </message>
    <message numerus="yes">
        <source>Showing 1 - %1 of %n images</source>
        <translation>
            <numerusform>Bild 1 - %1 von %n</numerusform>
            <numerusform>Bilder 1 - %1 von %n</numerusform>
        </translation>
    </message>
    <message>
        <source>combo search</source>
        <translation>alle zusammen</translation>
    </message>
    <message>
        <source>Read less...</source>
        <translation>Weniger lesen ...</translation>
    </message>
    <message>
        <source>Read more...</source>
        <translation>Weiterlesen ...</translation>
    </message>
    <message>
        <source>Show more...</source>
        <translation>Mehr zeigen ...</translation>
    </message>
    <message>
        <source>Found on %1</source>
        <translation>Gefunden bei %1</translation>
    </message>
    <message>
        <source>Watch video...</source>
        <translation>Video ansehen ...</translation>
    </message>
    <message>
        <source>Source: %1</source>
        <translation>Quelle: %1</translation>
    </message>
</context>
<context>
    <name>RemovedLists</name>
    <message numerus="yes">
        <source>%Ln searches removed. Press Ctrl+Z to undo.</source>
        <translation>
            <numerusform>%Ln Suche entfernt. Rückgängig mit Strg+Z.</numerusform>
            <numerusform>%Ln Suchen entfernt. Rückgängig mit Strg+Z.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Undo remove %Ln searches</source>
        <translation>
            <numerusform>Entfernen von %Ln Suche rückgängig machen</numerusform>
            <numerusform>Entfernen von %Ln Suchen rückgängig machen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Redo remove %Ln searches</source>
        <translation>
            <numerusform>Entfernen von %Ln Suche wiederholen</numerusform>
            <numerusform>Entfernen von %Ln Suchen wiederholen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln playlists removed. Press Ctrl+Z to undo.</source>
        <translation>
            <numerusform>%Ln Playlist entfernt. Rückgängig mit Strg+Z.</numerusform>
            <numerusform>%Ln Playlists entfernt. Rückgängig mit Strg+Z.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Undo remove %Ln playlists</source>
        <translation>
            <numerusform>Entfernen von %Ln Playlist rückgängig machen</numerusform>
            <numerusform>Entfernen von %Ln Playlists rückgängig machen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Redo remove %Ln playlists</source>
        <translation>
            <numerusform>Entfernen von %Ln Playlist wiederholen</numerusform>
            <numerusform>Entfernen von %Ln Playlists wiederholen</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SearchFlow</name>
    <message>
        <source>Tag(s)</source>
        <translation>Tag(s)</translation>
    </message>
    <message>
        <source>Artist</source>
        <translation>Interpret</translation>
    </message>
</context>
<context>
    <name>ServiceProbe</name>
    <message>
        <source>The server reports an error of its own (%1).</source>
        <translation>Der Server meldet einen eigenen Fehler (%1).</translation>
    </message>
    <message>
        <source>No request can be made to it.</source>
        <translation>Es kann keine Anfrage an ihn gestellt werden.</translation>
    </message>
</context>
<context>
    <name>ServicesPage</name>
    <message>
        <source>Song search</source>
        <translation>Songsuche</translation>
    </message>
    <message>
        <source>Is sent what you search for, artists of your library when it recommends songs, and the artist that plays.</source>
        <translation>Erhält die Suchbegriffe, für Empfehlungen Interpreten der Mediathek und den Interpreten, der gerade läuft.</translation>
    </message>
    <message>
        <source>Music information</source>
        <translation>Musikinformationen</translation>
    </message>
    <message>
        <source>Is sent artist, album and name of the song that plays.</source>
        <translation>Erhält Interpret, Album und Name des laufenden Songs.</translation>
    </message>
    <message>
        <source>Lyrics</source>
        <translation>Songtexte</translation>
    </message>
    <message>
        <source>Is sent artist and name of the song whose page you look at.</source>
        <translation>Erhält Interpret und Name des Songs, dessen Seite gezeigt wird.</translation>
    </message>
    <message>
        <source>Releases</source>
        <translation>Veröffentlichungen</translation>
    </message>
    <message>
        <source>Is sent artist and album of the song whose page you look at.</source>
        <translation>Erhält Interpret und Album des Songs, dessen Seite gezeigt wird.</translation>
    </message>
    <message>
        <source>Shared playlists</source>
        <translation>Geteilte Playlists</translation>
    </message>
    <message>
        <source>Is sent the playlists that you share, with your name for others.</source>
        <translation>Erhält die geteilten Playlists mit dem Namen, den andere sehen.</translation>
    </message>
    <message>
        <source>Videos</source>
        <translation>Videos</translation>
    </message>
    <message>
        <source>Learns which video you look at.</source>
        <translation>Erfährt, welches Video angesehen wird.</translation>
    </message>
    <message>
        <source>Share on Facebook</source>
        <translation>Auf Facebook teilen</translation>
    </message>
    <message>
        <source>Is opened in your browser with the playlist&apos;s link.</source>
        <translation>Wird mit dem Link der Playlist im Browser geöffnet.</translation>
    </message>
    <message>
        <source>Share on Twitter</source>
        <translation>Auf Twitter teilen</translation>
    </message>
</context>
<context>
    <name>SharingFlow</name>
    <message>
        <source>You can only share regular playlists.</source>
        <translation>Nur gewöhnliche Playlists lassen sich teilen.</translation>
    </message>
    <message>
        <source>A shared playlist must contain at least 1 song</source>
        <translation>Eine geteilte Playlist muss mindestens 1 Song enthalten</translation>
    </message>
    <message>
        <source>A shared playlist cannot contain more than 50 songs</source>
        <translation>Eine geteilte Playlist kann höchstens 50 Songs enthalten</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>The selected playlist contains one or more songs that cannot be played remotely. These songs will be removed from your shared playlist. Do you want to continue?</source>
        <translation>Die ausgewählte Playlist enthält mindestens einen Song, den andere nicht abspielen können. Solche Songs werden in der geteilten Playlist weggelassen. Fortfahren?</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Fortfahren</translation>
    </message>
    <message>
        <source>No streamable songs in this playlist</source>
        <translation>Keine Songs zum Streamen in dieser Playlist</translation>
    </message>
    <message>
        <source>Sharing your playlist</source>
        <translation>Playlist wird geteilt</translation>
    </message>
    <message>
        <source>The server&apos;s answer was not understood.</source>
        <translation>Die Antwort des Servers war nicht verständlich.</translation>
    </message>
    <message>
        <source>You just shared a playlist. The public link to this playlist is:

%1

The link has been copied to the clipboard.</source>
        <translation>Die Playlist ist geteilt. Ihr öffentlicher Link ist:

%1

Der Link wurde in die Zwischenablage kopiert.</translation>
    </message>
    <message>
        <source>Share on Twitter</source>
        <translation>Auf Twitter teilen</translation>
    </message>
    <message>
        <source>Share on Facebook</source>
        <translation>Auf Facebook teilen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>This shared playlist could not be opened.</source>
        <translation>Diese geteilte Playlist konnte nicht geöffnet werden.</translation>
    </message>
</context>
<context>
    <name>SongCells</name>
    <message>
        <source>Unknown Artist</source>
        <translation>Unbekannter Interpret</translation>
    </message>
    <message>
        <source>Unknown Album</source>
        <translation>Unbekanntes Album</translation>
    </message>
    <message>
        <source>%1%</source>
        <translation>%1&#xa0;%</translation>
    </message>
</context>
<context>
    <name>SongEditing</name>
    <message>
        <source>“%1” could not be changed.</source>
        <translation>„%1“ konnte nicht geändert werden.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>SongFiles</name>
    <message>
        <source>There is another file at “%1” already.</source>
        <translation>Unter „%1“ gibt es bereits eine andere Datei.</translation>
    </message>
    <message>
        <source>The file “%1” could not be written: %2.</source>
        <translation>Die Datei „%1“ konnte nicht geschrieben werden: %2.</translation>
    </message>
    <message>
        <source>The folder “%1” could not be created: %2.</source>
        <translation>Der Ordner „%1“ konnte nicht angelegt werden: %2.</translation>
    </message>
    <message>
        <source>The file “%1” could not be read: %2.</source>
        <translation>Die Datei „%1“ konnte nicht gelesen werden: %2.</translation>
    </message>
</context>
<context>
    <name>SongPaths</name>
    <message>
        <source>Unknown Artist</source>
        <translation>Unbekannter Interpret</translation>
    </message>
    <message>
        <source>Unknown Album</source>
        <translation>Unbekanntes Album</translation>
    </message>
</context>
<context>
    <name>SongsRemovedFromLibrary</name>
    <message numerus="yes">
        <source>%Ln songs removed from the library. Press Ctrl+Z to undo.</source>
        <translation>
            <numerusform>%Ln Song aus der Mediathek entfernt. Rückgängig mit Strg+Z.</numerusform>
            <numerusform>%Ln Songs aus der Mediathek entfernt. Rückgängig mit Strg+Z.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Undo remove %Ln songs</source>
        <translation>
            <numerusform>Entfernen von %Ln Song rückgängig machen</numerusform>
            <numerusform>Entfernen von %Ln Songs rückgängig machen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Redo remove %Ln songs</source>
        <translation>
            <numerusform>Entfernen von %Ln Song wiederholen</numerusform>
            <numerusform>Entfernen von %Ln Songs wiederholen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files could not be brought back from the trash.</source>
        <translation>
            <numerusform>%Ln Datei konnte nicht aus dem Papierkorb geholt werden.</numerusform>
            <numerusform>%Ln Dateien konnten nicht aus dem Papierkorb geholt werden.</numerusform>
        </translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>SongsRemovedFromPlaylist</name>
    <message numerus="yes">
        <source>%Ln songs removed from the playlist. Press Ctrl+Z to undo.</source>
        <translation>
            <numerusform>%Ln Song aus der Playlist entfernt. Rückgängig mit Strg+Z.</numerusform>
            <numerusform>%Ln Songs aus der Playlist entfernt. Rückgängig mit Strg+Z.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Undo remove %Ln songs from the playlist</source>
        <translation>
            <numerusform>Entfernen von %Ln Song aus der Playlist rückgängig machen</numerusform>
            <numerusform>Entfernen von %Ln Songs aus der Playlist rückgängig machen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Redo remove %Ln songs from the playlist</source>
        <translation>
            <numerusform>Entfernen von %Ln Song aus der Playlist wiederholen</numerusform>
            <numerusform>Entfernen von %Ln Songs aus der Playlist wiederholen</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SourceList</name>
    <message>
        <source>Now Playing</source>
        <translation>Aktuelle Wiedergabe</translation>
    </message>
    <message>
        <source>What&apos;s Hot?</source>
        <translation>Was ist angesagt?</translation>
    </message>
    <message>
        <source>Recommended</source>
        <translation>Empfohlen</translation>
    </message>
    <message>
        <source>Songs that are talked about now. They come from the web.</source>
        <translation>Songs, über die gerade gesprochen wird. Sie kommen aus dem Web.</translation>
    </message>
    <message>
        <source>Songs like those that you love. They come from the web.</source>
        <translation>Songs, die den Favoriten ähneln. Sie kommen aus dem Web.</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>Musik</translation>
    </message>
    <message>
        <source>Downloads</source>
        <translation>Downloads</translation>
    </message>
    <message>
        <source>Imported</source>
        <translation>Importiert</translation>
    </message>
    <message>
        <source>Favorites</source>
        <translation>Favoriten</translation>
    </message>
    <message>
        <source>This computer’s Internet connection appears to be offline.</source>
        <translation>Dieser Computer scheint nicht mit dem Internet verbunden zu sein.</translation>
    </message>
    <message>
        <source>This playlist contains songs currently hyped on social networks like Facebook and Twitter.</source>
        <translation>Diese Playlist enthält Songs, die in sozialen Netzwerken wie Facebook und Twitter gerade angesagt sind.</translation>
    </message>
    <message>
        <source>This playlist contains songs we think you may like. To start getting personal recommendations you must first mark a few songs as favorites. You do this by clicking the Love button next to the song&apos;s title.</source>
        <translation>Diese Playlist enthält Songs, die gefallen könnten. Persönliche Empfehlungen gibt es, sobald einige Songs Favoriten sind. Dazu auf das Herz neben dem Titel des Songs klicken.</translation>
    </message>
    <message>
        <source>Are you sure you want to remove the selected playlist?</source>
        <translation>Die ausgewählte Playlist wirklich entfernen?</translation>
    </message>
    <message>
        <source>This action cannot be undone.</source>
        <translation>Das lässt sich nicht rückgängig machen.</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Recent Searches</source>
        <translation>Letzte Suchen</translation>
    </message>
    <message>
        <source>Library</source>
        <translation>Mediathek</translation>
    </message>
    <message>
        <source>Playlists</source>
        <translation>Playlists</translation>
    </message>
    <message>
        <source>Untitled playlist</source>
        <translation>Neue Playlist</translation>
    </message>
</context>
<context>
    <name>TimeString</name>
    <message>
        <source>%.1f days</source>
        <translation>%.1f Tage</translation>
    </message>
</context>
<context>
    <name>UrlConnection</name>
    <message>
        <source>This address cannot be opened.</source>
        <translation>Diese Adresse kann nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>The server did not answer in time.</source>
        <translation>Der Server hat nicht rechtzeitig geantwortet.</translation>
    </message>
    <message>
        <source>The server&apos;s reply is too large.</source>
        <translation>Die Antwort des Servers ist zu groß.</translation>
    </message>
    <message>
        <source>The server could not be found.</source>
        <translation>Der Server wurde nicht gefunden.</translation>
    </message>
    <message>
        <source>The server could not be reached.</source>
        <translation>Der Server ist nicht erreichbar.</translation>
    </message>
    <message>
        <source>The server redirects without end.</source>
        <translation>Der Server leitet endlos weiter.</translation>
    </message>
    <message>
        <source>The server closed the connection early.</source>
        <translation>Der Server hat die Verbindung vorzeitig beendet.</translation>
    </message>
    <message>
        <source>No secure connection to the server could be made.</source>
        <translation>Es konnte keine sichere Verbindung zum Server hergestellt werden.</translation>
    </message>
    <message>
        <source>The server&apos;s reply could not be understood.</source>
        <translation>Die Antwort des Servers war nicht verständlich.</translation>
    </message>
</context>
<context>
    <name>WebServiceClient</name>
    <message>
        <source>Connection failed</source>
        <translation>Verbindung fehlgeschlagen</translation>
    </message>
    <message>
        <source>No server response</source>
        <translation>Keine Antwort vom Server</translation>
    </message>
</context>
<context>
    <name>WidgetAlerts</name>
    <message>
        <source>Do not show this message again</source>
        <translation>Diese Meldung nicht mehr anzeigen</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Speak to the services at this base address (http://HOST[:PORT]).</source>
        <translation>Die Dienste unter dieser Basisadresse ansprechen (http://HOST[:PORT]).</translation>
    </message>
    <message>
        <source>Write the library as a property list to FILE (- for standard output) and end.</source>
        <translation>Die Mediathek als Eigenschaftsliste in FILE schreiben (- ist die Standardausgabe) und enden.</translation>
    </message>
    <message>
        <source>Play, or pause what plays, without showing the window.</source>
        <translation>Abspielen oder anhalten, ohne das Fenster zu zeigen.</translation>
    </message>
    <message>
        <source>Go to the next song.</source>
        <translation>Zum nächsten Song gehen.</translation>
    </message>
    <message>
        <source>Go to the beginning of the song, from there to the one before.</source>
        <translation>Zum Anfang des Songs gehen, von dort zum vorigen.</translation>
    </message>
    <message>
        <source>Finds, plays and keeps music.</source>
        <translation>Findet, spielt und bewahrt Musik.</translation>
    </message>
    <message>
        <source>Show the options and end.</source>
        <translation>Die Optionen zeigen und enden.</translation>
    </message>
    <message>
        <source>Sound files and folders to add to the library, or zib:// addresses.</source>
        <translation>Tondateien und Ordner, die in die Mediathek sollen, oder zib://-Adressen.</translation>
    </message>
    <message>
        <source>there is no file “%1”</source>
        <translation>es gibt keine Datei „%1“</translation>
    </message>
    <message>
        <source>“%1” is no address such as http://127.0.0.1:8080</source>
        <translation>„%1“ ist keine Adresse wie http://127.0.0.1:8080</translation>
    </message>
</context>
<context>
    <name>zib::AboutWindow</name>
    <message>
        <source>About</source>
        <translation>Über Zib</translation>
    </message>
    <message>
        <source>Website</source>
        <translation>Website</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>Find music, hear it, keep what you love.</source>
        <translation>Musik finden, hören und behalten.</translation>
    </message>
    <message>
        <source>Free software: use, study, share and improve it under the GNU General Public License, version 3 or later. It comes without any warranty.</source>
        <translation>Freie Software: Nutzen, untersuchen, weitergeben und verbessern unter der GNU General Public License, Version 3 oder neuer. Ohne jede Gewährleistung.</translation>
    </message>
    <message>
        <source>Built on</source>
        <translation>Gebaut mit</translation>
    </message>
</context>
<context>
    <name>zib::AddToLibraryPanel</name>
    <message>
        <source>Sound files (%1)</source>
        <translation>Tondateien (%1)</translation>
    </message>
    <message>
        <source>Add to library</source>
        <translation>Zur Mediathek hinzufügen</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
</context>
<context>
    <name>zib::AppDelegate</name>
    <message>
        <source>Adding songs to your library</source>
        <translation>Songs werden zur Mediathek hinzugefügt</translation>
    </message>
    <message>
        <source>Adding %1</source>
        <translation>%1 wird hinzugefügt</translation>
    </message>
    <message>
        <source>No songs were found</source>
        <translation>Keine Songs gefunden</translation>
    </message>
    <message>
        <source>Importing your iTunes library</source>
        <translation>iTunes-Mediathek wird importiert</translation>
    </message>
    <message>
        <source>No iTunes music library found!</source>
        <translation>Keine iTunes-Mediathek gefunden!</translation>
    </message>
    <message>
        <source>Songs are being added to the music folder. Please wait for the end of that.</source>
        <translation>Gerade werden Songs zum Musikordner hinzugefügt. Bitte das Ende abwarten.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln songs added</source>
        <translation>
            <numerusform>%Ln Song hinzugefügt</numerusform>
            <numerusform>%Ln Songs hinzugefügt</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>zib::BusyGear</name>
    <message>
        <source>Busy</source>
        <translation>Beschäftigt</translation>
    </message>
</context>
<context>
    <name>zib::BusyIndicator</name>
    <message>
        <source>Busy</source>
        <translation>Beschäftigt</translation>
    </message>
</context>
<context>
    <name>zib::CatalogueProcess</name>
    <message>
        <source>The song catalogue could not be started, so searches find nothing.</source>
        <translation>Der Songkatalog konnte nicht gestartet werden, deshalb finden Suchen nichts.</translation>
    </message>
</context>
<context>
    <name>zib::ControlBar</name>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Previous song (Ctrl+Left)</source>
        <translation>Voriger Song (Strg+Links)</translation>
    </message>
    <message>
        <source>Play or pause</source>
        <translation>Abspielen oder anhalten</translation>
    </message>
    <message>
        <source>Play or pause (Space)</source>
        <translation>Abspielen oder anhalten (Leertaste)</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>Next song (Ctrl+Right)</source>
        <translation>Nächster Song (Strg+Rechts)</translation>
    </message>
    <message>
        <source>Love</source>
        <translation>Als Favorit markieren</translation>
    </message>
    <message>
        <source>Love this song (Ctrl+L)</source>
        <translation>Diesen Song als Favoriten markieren (Strg+L)</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Herunterladen</translation>
    </message>
    <message>
        <source>Download this song (Ctrl+D)</source>
        <translation>Diesen Song herunterladen (Strg+D)</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menü</translation>
    </message>
    <message>
        <source>Pause (Space)</source>
        <translation>Anhalten (Leertaste)</translation>
    </message>
    <message>
        <source>Play (Space)</source>
        <translation>Abspielen (Leertaste)</translation>
    </message>
    <message>
        <source>Love this song no more (Ctrl+L)</source>
        <translation>Diesen Song aus den Favoriten nehmen (Strg+L)</translation>
    </message>
    <message>
        <source>This song is on your disk</source>
        <translation>Dieser Song liegt auf der Festplatte</translation>
    </message>
    <message>
        <source>This song is being downloaded</source>
        <translation>Dieser Song wird heruntergeladen</translation>
    </message>
</context>
<context>
    <name>zib::CoverField</name>
    <message>
        <source>Replace…</source>
        <translation>Ersetzen&#xa0;…</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Replace the cover</source>
        <translation>Cover ersetzen</translation>
    </message>
    <message>
        <source>Only songs with a file of their own have a cover that can be changed</source>
        <translation>Nur bei Songs mit eigener Datei lässt sich das Cover ändern</translation>
    </message>
    <message>
        <source>Remove the cover</source>
        <translation>Cover entfernen</translation>
    </message>
    <message>
        <source>Choose a cover</source>
        <translation>Cover wählen</translation>
    </message>
    <message>
        <source>Pictures (%1)</source>
        <translation>Bilder (%1)</translation>
    </message>
    <message>
        <source>The picture is larger than 6 MB.</source>
        <translation>Das Bild ist größer als 6&#xa0;MB.</translation>
    </message>
    <message>
        <source>A cover is a picture in a PNG or JPEG file.</source>
        <translation>Ein Cover ist ein Bild in einer PNG- oder JPEG-Datei.</translation>
    </message>
    <message>
        <source>No cover</source>
        <translation>Kein Cover</translation>
    </message>
    <message>
        <source>Cover</source>
        <translation>Cover</translation>
    </message>
</context>
<context>
    <name>zib::DesktopNotifications</name>
    <message>
        <source>Show Zib</source>
        <translation>Zib anzeigen</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Nächster Song</translation>
    </message>
</context>
<context>
    <name>zib::DesktopPage</name>
    <message>
        <source>Notifications</source>
        <translation>Benachrichtigungen</translation>
    </message>
    <message>
        <source>Show a notification when another song begins</source>
        <translation>Benachrichtigen, wenn ein anderer Song beginnt</translation>
    </message>
    <message>
        <source>Only while you work in another program.</source>
        <translation>Nur, solange ein anderes Programm im Vordergrund ist.</translation>
    </message>
    <message>
        <source>Energy</source>
        <translation>Energie</translation>
    </message>
    <message>
        <source>Keep the computer awake while music plays</source>
        <translation>Computer wach halten, solange Musik läuft</translation>
    </message>
    <message>
        <source>The screen may still go dark, and you can always send the computer to sleep yourself.</source>
        <translation>Der Bildschirm darf sich abschalten, und von Hand lässt sich der Computer jederzeit in Bereitschaft versetzen.</translation>
    </message>
</context>
<context>
    <name>zib::DesktopSound</name>
    <message>
        <source>There is no sound server, so songs play without being heard.</source>
        <translation>Es gibt keinen Sound-Server, deshalb laufen Songs unhörbar.</translation>
    </message>
</context>
<context>
    <name>zib::DownloadActions</name>
    <message>
        <source>You are about to download a song. Please make sure the song is not subject to copyright before proceeding. Downloading copyrighted material is a crime in many countries.</source>
        <translation>Ein Song wird heruntergeladen. Bitte vorher sicherstellen, dass er nicht urheberrechtlich geschützt ist. Geschützte Werke herunterzuladen ist in vielen Ländern strafbar.</translation>
    </message>
</context>
<context>
    <name>zib::FilePanel</name>
    <message>
        <source>Folder:</source>
        <translation>Ordner:</translation>
    </message>
</context>
<context>
    <name>zib::FilterField</name>
    <message>
        <source>Filter</source>
        <translation>Filtern</translation>
    </message>
    <message>
        <source>Show only the songs that hold these words (Ctrl+Shift+F)</source>
        <translation>Nur die Songs mit diesen Wörtern zeigen (Strg+Umschalt+F)</translation>
    </message>
    <message>
        <source>Filter songs</source>
        <translation>Songs filtern</translation>
    </message>
</context>
<context>
    <name>zib::GeneralPage</name>
    <message>
        <source>Music folder</source>
        <translation>Musikordner</translation>
    </message>
    <message>
        <source>Copy files into the music folder when they are added to the library</source>
        <translation>Dateien in den Musikordner kopieren, wenn sie zur Mediathek kommen</translation>
    </message>
    <message>
        <source>Playing</source>
        <translation>Wiedergabe</translation>
    </message>
    <message>
        <source>When a song ends, go on with the next one of any list</source>
        <translation>Nach einem Song in jeder Liste mit dem nächsten weitermachen</translation>
    </message>
    <message>
        <source>Keep a copy of songs of the web that were played to their end</source>
        <translation>Kopien von Songs aus dem Web behalten, die bis zum Ende liefen</translation>
    </message>
    <message>
        <source>Change…</source>
        <translation>Ändern&#xa0;…</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>Moves the music back to its default folder</source>
        <translation>Verschiebt die Musik zurück in den Standardordner</translation>
    </message>
    <message>
        <source>Imported and downloaded songs are stored here, sorted by artist and album.</source>
        <translation>Importierte und heruntergeladene Songs liegen hier, nach Interpret und Album sortiert.</translation>
    </message>
    <message>
        <source>As the desktop</source>
        <translation>Wie der Desktop</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Hell</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Dunkel</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>Aussehen</translation>
    </message>
    <message>
        <source>Keep moving texts still</source>
        <translation>Laufende Texte anhalten</translation>
    </message>
    <message>
        <source>Choose a folder for your music</source>
        <translation>Ordner für die Musik wählen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>zib::LibraryImporter</name>
    <message>
        <source>The file cannot be opened.</source>
        <translation>Die Datei kann nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>The file is too large.</source>
        <translation>Die Datei ist zu groß.</translation>
    </message>
    <message>
        <source>It is no exported library.</source>
        <translation>Das ist keine exportierte Mediathek.</translation>
    </message>
</context>
<context>
    <name>zib::LibraryPanes</name>
    <message>
        <source>Artists</source>
        <translation>Interpreten</translation>
    </message>
    <message>
        <source>Albums</source>
        <translation>Alben</translation>
    </message>
</context>
<context>
    <name>zib::LibraryPlace</name>
    <message>
        <source>You are offline. Songs on this computer still play; those on the web are shown in grey.</source>
        <translation>Offline. Songs auf diesem Computer laufen weiterhin; die aus dem Web sind grau.</translation>
    </message>
    <message>
        <source>No song here holds “%1”</source>
        <translation>Kein Song hier enthält „%1“</translation>
    </message>
    <message>
        <source>Press Escape to see all songs again. To find others on the web, try a tag:</source>
        <translation>Mit Esc sind alle Songs wieder da. Um andere im Web zu finden, ein Tag probieren:</translation>
    </message>
    <message>
        <source>No songs found</source>
        <translation>Keine Songs gefunden</translation>
    </message>
    <message>
        <source>Try another spelling, a well-known artist, or a tag:</source>
        <translation>Eine andere Schreibweise, einen bekannten Interpreten oder ein Tag probieren:</translation>
    </message>
    <message>
        <source>This playlist is empty</source>
        <translation>Diese Playlist ist leer</translation>
    </message>
    <message>
        <source>Drag songs from anywhere else onto its name at the left, or add them from their menu. To find some, try a tag:</source>
        <translation>Songs von überall auf ihren Namen links ziehen oder über ihr Menü hinzufügen. Um welche zu finden, ein Tag probieren:</translation>
    </message>
    <message>
        <source>No loved songs yet</source>
        <translation>Noch keine Favoriten</translation>
    </message>
    <message>
        <source>Press the heart beside a song, and it is kept here and in Music. To find some, try a tag:</source>
        <translation>Ein Klick auf das Herz neben einem Song bewahrt ihn hier und unter Musik. Um welche zu finden, ein Tag probieren:</translation>
    </message>
    <message>
        <source>No downloads yet</source>
        <translation>Noch keine Downloads</translation>
    </message>
    <message>
        <source>Press the arrow beside a song from the web, and it is kept on this computer and plays offline. To find some, try a tag:</source>
        <translation>Ein Klick auf den Pfeil neben einem Song aus dem Web legt ihn auf diesem Computer ab, und er läuft auch offline. Um welche zu finden, ein Tag probieren:</translation>
    </message>
    <message>
        <source>No songs of your own yet</source>
        <translation>Noch keine eigenen Songs</translation>
    </message>
    <message>
        <source>Drop files or folders on this window, or press Ctrl+O. To find songs on the web, try a tag:</source>
        <translation>Dateien oder Ordner auf dieses Fenster ziehen oder Strg+O drücken. Um Songs im Web zu finden, ein Tag probieren:</translation>
    </message>
    <message>
        <source>Your library is empty</source>
        <translation>Die Mediathek ist leer</translation>
    </message>
    <message>
        <source>Type an artist into the search field and press Return. Play what you find, and press the heart beside a song to keep it here. Or try a tag:</source>
        <translation>Einen Interpreten ins Suchfeld tippen und die Eingabetaste drücken. Das Gefundene abspielen, und mit dem Herz neben einem Song bleibt er hier. Oder ein Tag probieren:</translation>
    </message>
</context>
<context>
    <name>zib::ListExchange</name>
    <message>
        <source>The library could not be exported.</source>
        <translation>Die Mediathek konnte nicht exportiert werden.</translation>
    </message>
    <message>
        <source>Library exported</source>
        <translation>Mediathek exportiert</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Adding songs to your library</source>
        <translation>Songs werden zur Mediathek hinzugefügt</translation>
    </message>
    <message>
        <source>The playlist “%1” could not be imported.</source>
        <translation>Die Playlist „%1“ konnte nicht importiert werden.</translation>
    </message>
    <message>
        <source>The library could not be imported.</source>
        <translation>Die Mediathek konnte nicht importiert werden.</translation>
    </message>
    <message>
        <source>%1 and %2 added</source>
        <extracomment>Two counts: “2 songs”, “1 playlist”.</extracomment>
        <translation>%1 und %2 hinzugefügt</translation>
    </message>
    <message>
        <source>Importing a library</source>
        <translation>Mediathek wird importiert</translation>
    </message>
    <message>
        <source>Exporting your library</source>
        <translation>Mediathek wird exportiert</translation>
    </message>
    <message numerus="yes">
        <source>and %Ln more</source>
        <translation>
            <numerusform>und %Ln weiterer</numerusform>
            <numerusform>und %Ln weitere</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln songs of the playlist “%1” were not found.</source>
        <translation>
            <numerusform>%Ln Song der Playlist „%1“ wurde nicht gefunden.</numerusform>
            <numerusform>%Ln Songs der Playlist „%1“ wurden nicht gefunden.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln songs</source>
        <translation>
            <numerusform>%Ln Song</numerusform>
            <numerusform>%Ln Songs</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln playlists</source>
        <translation>
            <numerusform>%Ln Playlist</numerusform>
            <numerusform>%Ln Playlists</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>zib::LoginPowerEvents</name>
    <message>
        <source>Playback is paused first</source>
        <translation>Vorher wird die Wiedergabe angehalten</translation>
    </message>
</context>
<context>
    <name>zib::NoticesPage</name>
    <message>
        <source>Show all again</source>
        <translation>Alle wieder zeigen</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>Meldungen</translation>
    </message>
    <message>
        <source>These messages and questions are shown. Without its question, what you ask for is done at once.</source>
        <translation>Diese Meldungen und Fragen werden gezeigt. Ohne seine Frage geschieht das Gewünschte sofort.</translation>
    </message>
</context>
<context>
    <name>zib::NowPlayingDisplay</name>
    <message>
        <source>Now Playing</source>
        <translation>Aktuelle Wiedergabe</translation>
    </message>
    <message>
        <source>Powered by</source>
        <translation>Ermöglicht durch</translation>
    </message>
    <message>
        <source>The Echo Nest</source>
        <translation>The Echo Nest</translation>
    </message>
</context>
<context>
    <name>zib::NowPlayingPanel</name>
    <message>
        <source>Now playing header</source>
        <translation>Überschrift der Wiedergabe</translation>
    </message>
    <message>
        <source>Elapsed time</source>
        <translation>Verstrichene Zeit</translation>
    </message>
    <message>
        <source>Remaining time</source>
        <translation>Verbleibende Zeit</translation>
    </message>
    <message>
        <source>Now playing</source>
        <translation>Läuft gerade</translation>
    </message>
    <message>
        <source>Streaming</source>
        <translation>Streaming</translation>
    </message>
    <message>
        <source>Streaming from the web</source>
        <translation>Wird aus dem Web gestreamt</translation>
    </message>
</context>
<context>
    <name>zib::OfferedTags</name>
    <message>
        <source>Find songs tagged %1</source>
        <translation>Songs mit dem Tag %1 suchen</translation>
    </message>
</context>
<context>
    <name>zib::PlaylistImporter</name>
    <message>
        <source>It is no playlist file.</source>
        <translation>Das ist keine Playlist-Datei.</translation>
    </message>
    <message>
        <source>It holds no songs.</source>
        <translation>Sie enthält keine Songs.</translation>
    </message>
</context>
<context>
    <name>zib::PreferencesWindow</name>
    <message>
        <source>Preferences</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Sections</source>
        <translation>Abschnitte</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Sharing</source>
        <translation>Teilen</translation>
    </message>
    <message>
        <source>Notices</source>
        <translation>Hinweise</translation>
    </message>
    <message>
        <source>Desktop</source>
        <translation>Desktop</translation>
    </message>
    <message>
        <source>Services</source>
        <translation>Dienste</translation>
    </message>
</context>
<context>
    <name>zib::ProgressSlider</name>
    <message>
        <source>Song progress</source>
        <translation>Fortschritt des Songs</translation>
    </message>
</context>
<context>
    <name>zib::RVDataManager</name>
    <message>
        <source>Your music library has been corrupted.</source>
        <translation>Die Mediathek ist beschädigt.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Exported to disk</source>
        <translation>Auf die Festplatte exportiert</translation>
    </message>
</context>
<context>
    <name>zib::RVPlayer</name>
    <message>
        <source>File not found</source>
        <translation>Datei nicht gefunden</translation>
    </message>
    <message>
        <source>The file at path %1 could not be located.</source>
        <translation>Die Datei unter dem Pfad %1 wurde nicht gefunden.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>zib::RowDelegate</name>
    <message>
        <source>%1%</source>
        <translation>%1&#xa0;%</translation>
    </message>
</context>
<context>
    <name>zib::SearchBar</name>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Recent searches</source>
        <translation>Letzte Suchen</translation>
    </message>
    <message>
        <source>Search type</source>
        <translation>Art der Suche</translation>
    </message>
    <message>
        <source>Artist</source>
        <translation>Interpret</translation>
    </message>
    <message>
        <source>Find songs by artist</source>
        <translation>Songs nach Interpret suchen</translation>
    </message>
    <message>
        <source>Tags</source>
        <translation>Tags</translation>
    </message>
    <message>
        <source>Find songs by tag(s, separated by comma)</source>
        <translation>Songs nach Tag(s, durch Komma getrennt) suchen</translation>
    </message>
    <message>
        <source>Similar</source>
        <translation>Ähnlich</translation>
    </message>
    <message>
        <source>Find songs by similar artists</source>
        <translation>Songs ähnlicher Interpreten suchen</translation>
    </message>
    <message>
        <source>Recent terms</source>
        <translation>Letzte Begriffe</translation>
    </message>
</context>
<context>
    <name>zib::ServiceRow</name>
    <message>
        <source>This is no host that can be spoken to over HTTP, such as music.example or 192.168.1.9:8080.</source>
        <translation>Das ist kein Host, der sich über HTTP ansprechen lässt, wie music.example oder 192.168.1.9:8080.</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>Host of %1</source>
        <translation>Host für %1</translation>
    </message>
    <message>
        <source>Bundled service, on this computer</source>
        <translation>Mitgelieferter Dienst, auf diesem Computer</translation>
    </message>
    <message>
        <source>Reset the host of %1</source>
        <translation>Host für %1 zurücksetzen</translation>
    </message>
    <message>
        <source>Back to the service that comes with the program</source>
        <translation>Zurück zum mitgelieferten Dienst</translation>
    </message>
    <message>
        <source>Asking…</source>
        <translation>Frage läuft&#xa0;…</translation>
    </message>
    <message>
        <source>Answers</source>
        <translation>Antwortet</translation>
    </message>
    <message>
        <source>Has an error of its own</source>
        <translation>Hat einen eigenen Fehler</translation>
    </message>
    <message>
        <source>Does not answer</source>
        <translation>Antwortet nicht</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>zib::ServicesPage</name>
    <message>
        <source>Ask again</source>
        <translation>Erneut fragen</translation>
    </message>
    <message>
        <source>Unless you name another host, the service that comes with Zib answers, on this computer. Another host is asked from the next request on.</source>
        <translation>Ist kein anderer Host angegeben, antwortet der mitgelieferte Dienst auf diesem Computer. Ein anderer Host wird ab der nächsten Anfrage gefragt.</translation>
    </message>
    <message>
        <source>Web sites</source>
        <translation>Websites</translation>
    </message>
    <message>
        <source>%1 · %2: %3</source>
        <translation>%1 · %2: %3</translation>
    </message>
</context>
<context>
    <name>zib::SessionSleepInhibitor</name>
    <message>
        <source>Music is playing</source>
        <translation>Es läuft Musik</translation>
    </message>
</context>
<context>
    <name>zib::ShareDialog</name>
    <message>
        <source>Tags</source>
        <translation>Tags</translation>
    </message>
    <message>
        <source>Share playlist</source>
        <translation>Playlist teilen</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>What is it about?</source>
        <translation>Worum geht es?</translation>
    </message>
    <message>
        <source>Up to five, with commas between</source>
        <translation>Bis zu fünf, durch Kommas getrennt</translation>
    </message>
    <message>
        <source>Your name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Others see this name beside your playlists. You are asked for it this once.</source>
        <translation>Andere sehen diesen Namen bei den Playlists. Die Frage kommt nur dieses eine Mal.</translation>
    </message>
</context>
<context>
    <name>zib::SharingPage</name>
    <message>
        <source>Your name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>You are asked when you first share</source>
        <translation>Wird beim ersten Teilen erfragt</translation>
    </message>
    <message>
        <source>Others see it beside the playlists that you share from now on. Playlists shared before keep the name that they have.</source>
        <translation>Andere sehen ihn bei Playlists, die ab jetzt geteilt werden. Früher geteilte behalten ihren Namen.</translation>
    </message>
    <message>
        <source>Shared playlists</source>
        <translation>Geteilte Playlists</translation>
    </message>
    <message>
        <source>List my shared playlists where everybody finds them</source>
        <translation>Geteilte Playlists aufführen, wo alle sie finden</translation>
    </message>
    <message>
        <source>Without this, only those find a playlist who have its link.</source>
        <translation>Andernfalls findet eine Playlist nur, wer ihren Link hat.</translation>
    </message>
</context>
<context>
    <name>zib::SongDownloads</name>
    <message>
        <source>Zib!</source>
        <translation>Zib!</translation>
    </message>
    <message>
        <source>A song like this has already been downloaded. Do you want to overwrite it?</source>
        <translation>Ein solcher Song ist schon heruntergeladen. Überschreiben?</translation>
    </message>
    <message>
        <source>Overwrite</source>
        <translation>Überschreiben</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Download cancelled</source>
        <translation>Download abgebrochen</translation>
    </message>
    <message>
        <source>Downloading... (%1 %2)</source>
        <translation>Wird heruntergeladen ... (%1&#xa0;%2)</translation>
    </message>
    <message>
        <source>“%1” could not be downloaded.</source>
        <translation>„%1“ konnte nicht heruntergeladen werden.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>zib::SongInformationWindow</name>
    <message>
        <source>Song information</source>
        <translation>Songinformationen</translation>
    </message>
    <message>
        <source>Information for several songs</source>
        <translation>Informationen für mehrere Songs</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Artist</source>
        <translation>Interpret</translation>
    </message>
    <message>
        <source>Album</source>
        <translation>Album</translation>
    </message>
    <message>
        <source>Genre</source>
        <translation>Genre</translation>
    </message>
    <message>
        <source>Composer</source>
        <translation>Komponist</translation>
    </message>
    <message>
        <source>Year</source>
        <translation>Jahr</translation>
    </message>
    <message>
        <source>Track number</source>
        <translation>Titelnummer</translation>
    </message>
    <message>
        <source>Tracks in total</source>
        <translation>Titel insgesamt</translation>
    </message>
    <message>
        <source>Disc number</source>
        <translation>CD-Nummer</translation>
    </message>
    <message>
        <source>Discs in total</source>
        <translation>CDs insgesamt</translation>
    </message>
    <message>
        <source>Track</source>
        <translation>Titelnr.</translation>
    </message>
    <message>
        <source>Disc</source>
        <translation>CD</translation>
    </message>
    <message>
        <source>Ctrl+Return</source>
        <translation>Strg+Eingabe</translation>
    </message>
    <message>
        <source>of</source>
        <translation>von</translation>
    </message>
    <message>
        <source>An empty field leaves each song what it has. Only the year is set in any case: empty, the songs have none.</source>
        <translation>Ein leeres Feld lässt jedem Song, was er hat. Nur das Jahr wird immer gesetzt: Ist es leer, haben die Songs keines.</translation>
    </message>
    <message>
        <source>A new cover goes into all of them.</source>
        <translation>Ein neues Cover bekommen alle.</translation>
    </message>
</context>
<context>
    <name>zib::SongMenu</name>
    <message>
        <source>Play</source>
        <translation>Abspielen</translation>
    </message>
    <message>
        <source>Love no more</source>
        <translation>Aus den Favoriten nehmen</translation>
    </message>
    <message>
        <source>Love</source>
        <translation>Als Favorit markieren</translation>
    </message>
    <message>
        <source>Stop downloading</source>
        <translation>Herunterladen abbrechen</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Herunterladen</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>Information…</source>
        <translation>Informationen&#xa0;…</translation>
    </message>
    <message>
        <source>Sort by</source>
        <translation>Sortieren nach</translation>
    </message>
    <message>
        <source>Columns</source>
        <translation>Spalten</translation>
    </message>
    <message>
        <source>Remove from playlist</source>
        <translation>Aus der Playlist entfernen</translation>
    </message>
    <message>
        <source>Remove from library…</source>
        <translation>Aus der Mediathek entfernen&#xa0;…</translation>
    </message>
    <message>
        <source>Add to playlist</source>
        <translation>Zu Playlist hinzufügen</translation>
    </message>
    <message>
        <source>New playlist</source>
        <translation>Neue Playlist</translation>
    </message>
    <message>
        <source>Song</source>
        <translation>Song</translation>
    </message>
</context>
<context>
    <name>zib::SongRemoval</name>
    <message>
        <source>%1 could not be moved to the trash</source>
        <translation>%1 konnte nicht in den Papierkorb verschoben werden</translation>
    </message>
    <message>
        <source>Are you sure you want to remove the selected songs from your music library?</source>
        <translation>Die ausgewählten Songs wirklich aus der Mediathek entfernen?</translation>
    </message>
    <message>
        <source>Any local files will be moved to the trash.</source>
        <translation>Lokale Dateien kommen in den Papierkorb.</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>zib::SongTable</name>
    <message>
        <source>Songs</source>
        <translation>Songs</translation>
    </message>
    <message numerus="yes">
        <source>%Ln songs</source>
        <translation>
            <numerusform>%Ln Song</numerusform>
            <numerusform>%Ln Songs</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>zib::SongTableLayout</name>
    <message>
        <source>Columns</source>
        <translation>Spalten</translation>
    </message>
</context>
<context>
    <name>zib::SongTableModel</name>
    <message>
        <source>Now playing</source>
        <translation>Läuft gerade</translation>
    </message>
    <message>
        <source>Loved</source>
        <translation>Favorit</translation>
    </message>
    <message>
        <source>Not loved</source>
        <translation>Kein Favorit</translation>
    </message>
    <message>
        <source>Stop downloading</source>
        <translation>Herunterladen abbrechen</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Herunterladen</translation>
    </message>
    <message>
        <source>Downloading</source>
        <translation>Wird heruntergeladen</translation>
    </message>
    <message>
        <source>%1% downloaded</source>
        <translation>%1&#xa0;% heruntergeladen</translation>
    </message>
    <message>
        <source>%1 (broken link)</source>
        <translation>%1 (defekter Verweis)</translation>
    </message>
    <message numerus="yes">
        <source>%n seconds</source>
        <translation>
            <numerusform>%n Sekunde</numerusform>
            <numerusform>%n Sekunden</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n minutes</source>
        <translation>
            <numerusform>%n Minute</numerusform>
            <numerusform>%n Minuten</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 by %2 from %3</source>
        <translation>%1 von %2 aus %3</translation>
    </message>
    <message>
        <source>loved</source>
        <translation>Favorit</translation>
    </message>
    <message>
        <source>now playing</source>
        <translation>läuft gerade</translation>
    </message>
    <message>
        <source>You are offline: this song is on the web and can’t be played now.</source>
        <translation>Offline: Dieser Song liegt im Web und kann gerade nicht abgespielt werden.</translation>
    </message>
    <message>
        <source>This song could not be opened at its address. Play it to try again.</source>
        <translation>Dieser Song konnte unter seiner Adresse nicht geöffnet werden. Abspielen versucht es erneut.</translation>
    </message>
    <message>
        <source>Row number</source>
        <translation>Zeilennummer</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Artist</source>
        <translation>Interpret</translation>
    </message>
    <message>
        <source>Album</source>
        <translation>Album</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>Genre</source>
        <translation>Genre</translation>
    </message>
    <message>
        <source>Year</source>
        <translation>Jahr</translation>
    </message>
    <message>
        <source>Track number</source>
        <translation>Titelnummer</translation>
    </message>
    <message>
        <source>Play count</source>
        <translation>Anzahl der Wiedergaben</translation>
    </message>
    <message>
        <source>Last played</source>
        <translation>Zuletzt gespielt</translation>
    </message>
    <message>
        <source>Hotness</source>
        <translation>Trend</translation>
    </message>
    <message>
        <source>Familiarity</source>
        <translation>Bekanntheit</translation>
    </message>
    <message>
        <source>Found</source>
        <translation>Gefunden</translation>
    </message>
    <message>
        <source>#</source>
        <translation>Nr.</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Track</source>
        <translation>Titelnr.</translation>
    </message>
    <message>
        <source>Plays</source>
        <translation>Gespielt</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <extracomment>Minutes and seconds as a screen reader says them: “3 minutes 20 seconds”.</extracomment>
        <translation>%1 %2</translation>
    </message>
</context>
<context>
    <name>zib::SourceDelegate</name>
    <message>
        <source>Name of the playlist</source>
        <translation>Name der Playlist</translation>
    </message>
</context>
<context>
    <name>zib::SourceListView</name>
    <message>
        <source>Sources</source>
        <translation>Quellen</translation>
    </message>
    <message numerus="yes">
        <source>%n rows</source>
        <translation>
            <numerusform>%n Zeile</numerusform>
            <numerusform>%n Zeilen</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>zib::SourceModel</name>
    <message>
        <source>Separator</source>
        <translation>Trennlinie</translation>
    </message>
    <message>
        <source>Sources</source>
        <translation>Quellen</translation>
    </message>
</context>
<context>
    <name>zib::SourcePane</name>
    <message>
        <source>New playlist</source>
        <translation>Neue Playlist</translation>
    </message>
    <message>
        <source>New playlist (%1)</source>
        <translation>Neue Playlist (%1)</translation>
    </message>
    <message>
        <source>Playlist actions</source>
        <translation>Playlist-Aktionen</translation>
    </message>
    <message>
        <source>What can be done with it</source>
        <translation>Was sich damit tun lässt</translation>
    </message>
    <message>
        <source>New playlist from selection</source>
        <translation>Neue Playlist aus Auswahl</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Show the song that plays</source>
        <translation>Laufenden Song zeigen</translation>
    </message>
    <message>
        <source>Share…</source>
        <translation>Teilen&#xa0;…</translation>
    </message>
    <message>
        <source>Share on Facebook…</source>
        <translation>Auf Facebook teilen&#xa0;…</translation>
    </message>
    <message>
        <source>Share on Twitter…</source>
        <translation>Auf Twitter teilen&#xa0;…</translation>
    </message>
    <message>
        <source>Export playlist…</source>
        <translation>Playlist exportieren&#xa0;…</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Abspielen</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Quelle</translation>
    </message>
</context>
<context>
    <name>zib::StatusLine</name>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>About the shown songs or link</source>
        <translation>Zu den gezeigten Songs oder zum Link</translation>
    </message>
</context>
<context>
    <name>zib::TokenField</name>
    <message>
        <source>Remove %1</source>
        <translation>%1 entfernen</translation>
    </message>
    <message>
        <source>Click to remove this tag</source>
        <translation>Klicken, um dieses Tag zu entfernen</translation>
    </message>
</context>
<context>
    <name>zib::TrackBrowser</name>
    <message>
        <source>All (%1 %2)</source>
        <translation>Alle (%1 %2)</translation>
    </message>
    <message numerus="yes">
        <source>Artists</source>
        <translation>
            <numerusform>Interpret</numerusform>
            <numerusform>Interpreten</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Albums</source>
        <translation>
            <numerusform>Album</numerusform>
            <numerusform>Alben</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>zib::UndoStack</name>
    <message>
        <source>Undone. Press Ctrl+Shift+Z to do it again.</source>
        <translation>Rückgängig gemacht. Wiederholen mit Strg+Umschalt+Z.</translation>
    </message>
</context>
<context>
    <name>zib::VolumeSlider</name>
    <message>
        <source>Volume</source>
        <translation>Lautstärke</translation>
    </message>
    <message>
        <source>Volume %1%</source>
        <translation>Lautstärke %1&#xa0;%</translation>
    </message>
</context>
<context>
    <name>zib::WebPane</name>
    <message>
        <source>Information about the song cannot be shown: Zib’s web engine is missing.</source>
        <translation>Informationen zum Song können nicht gezeigt werden: Zibs Web-Engine fehlt.</translation>
    </message>
</context>
<context>
    <name>zib::WelcomePlace</name>
    <message>
        <source>Welcome</source>
        <translation>Willkommen</translation>
    </message>
    <message>
        <source>Welcome to Zib</source>
        <translation>Willkommen bei Zib</translation>
    </message>
    <message>
        <source>Try a tag:</source>
        <translation>Ein Tag probieren:</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Finden</translation>
    </message>
    <message>
        <source>Type an artist, some tags, or an artist that others should be similar to. Songs that can be played appear.</source>
        <translation>Einen Interpreten eingeben, ein paar Tags oder einen Interpreten, dem andere ähneln sollen. Dann erscheinen Songs zum Abspielen.</translation>
    </message>
    <message>
        <source>Hear</source>
        <translation>Hören</translation>
    </message>
    <message>
        <source>Double-click a song and it plays. “Now Playing” tells of it, of its artist and of its album.</source>
        <translation>Ein Doppelklick auf einen Song spielt ihn ab. „Aktuelle Wiedergabe“ erzählt von ihm, seinem Interpreten und seinem Album.</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>Behalten</translation>
    </message>
    <message>
        <source>The heart puts a song into your library. Make playlists, download songs, and bring the music that you have.</source>
        <translation>Das Herz legt einen Song in die Mediathek. Playlists anlegen, Songs herunterladen und die eigene Musik mitbringen.</translation>
    </message>
    <message>
        <source>Add your music…</source>
        <translation>Eigene Musik hinzufügen&#xa0;…</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Los geht’s</translation>
    </message>
    <message>
        <source>Closes this page (Escape)</source>
        <translation>Schließt diese Seite (Esc)</translation>
    </message>
</context>
<context>
    <name>zib::WidgetBusyPanel</name>
    <message>
        <source>What is being done</source>
        <translation>Was gerade geschieht</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
</context>
<context>
    <name>zib_catalogue</name>
    <message>
        <source>The song-search service of Zib: finds and streams demo songs and the songs of your own music folders.</source>
        <translation>Der Songsuchdienst von Zib: findet und streamt Demo-Songs und die Songs der eigenen Musikordner.</translation>
    </message>
    <message>
        <source>Answer requests until told to stop.</source>
        <translation>Anfragen beantworten, bis das Ende verlangt wird.</translation>
    </message>
    <message>
        <source>Listen on port N; 0 takes a free one.</source>
        <translation>Auf Port N lauschen; 0 nimmt einen freien.</translation>
    </message>
    <message>
        <source>Listen on this numeric address. Others than 127.0.0.1 and ::1 can be reached from outside.</source>
        <translation>Auf dieser numerischen Adresse lauschen. Andere als 127.0.0.1 und ::1 sind von außen erreichbar.</translation>
    </message>
    <message>
        <source>Take over this descriptor of a listening socket, in place of --port and --bind.</source>
        <translation>Diesen Deskriptor eines lauschenden Sockets übernehmen, anstelle von --port und --bind.</translation>
    </message>
    <message>
        <source>Index the songs in this folder; may stand several times.</source>
        <translation>Die Songs in diesem Ordner indizieren; mehrfach möglich.</translation>
    </message>
    <message>
        <source>Keep the index and the demo songs in this folder.</source>
        <translation>Den Index und die Demo-Songs in diesem Ordner halten.</translation>
    </message>
    <message>
        <source>Keep the published playlists on this PostgreSQL server, which several services may share, in place of a file in the data folder.</source>
        <translation>Die veröffentlichten Playlists auf diesem PostgreSQL-Server halten, den mehrere Dienste teilen können, statt in einer Datei im Datenordner.</translation>
    </message>
    <message>
        <source>The pages&apos; public addresses begin with this. A proxy on this machine then tells the clients&apos; addresses in X-Forwarded-For.</source>
        <translation>Damit beginnen die öffentlichen Adressen der Seiten. Ein Proxy auf diesem Rechner nennt dann die Adressen der Clients in X-Forwarded-For.</translation>
    </message>
    <message>
        <source>What each address may ask about playlists a minute; publishing counts 20; 0 for no bound.</source>
        <translation>Was jede Adresse in der Minute zu Playlists fragen darf; Veröffentlichen zählt 20; 0 für unbegrenzt.</translation>
    </message>
    <message>
        <source>Stop when standard input closes, as it does when the parent process ends.</source>
        <translation>Enden, wenn die Standardeingabe schließt, wie beim Ende des Elternprozesses.</translation>
    </message>
    <message>
        <source>--%1 %2: not a number from 0 to %3</source>
        <translation>--%1 %2: keine Zahl von 0 bis %3</translation>
    </message>
    <message>
        <source>--music %1: no such folder</source>
        <translation>--music %1: kein solcher Ordner</translation>
    </message>
    <message>
        <source>--database: not an address that begins with postgresql://</source>
        <translation>--database: keine Adresse, die mit postgresql:// beginnt</translation>
    </message>
    <message>
        <source>cannot make the folder %1</source>
        <translation>der Ordner %1 lässt sich nicht anlegen</translation>
    </message>
    <message>
        <source>cannot start the server</source>
        <translation>der Server lässt sich nicht starten</translation>
    </message>
    <message>
        <source>say &quot;zib-catalogue serve&quot;, or --help to see the options</source>
        <translation>„zib-catalogue serve“ aufrufen, oder --help für die Optionen</translation>
    </message>
</context>
</TS>
