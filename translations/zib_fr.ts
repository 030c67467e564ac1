<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>AboutWindow</name>
    <message>
        <source>window, desktop</source>
        <translation>fenêtre, bureau</translation>
    </message>
    <message>
        <source>pages about songs</source>
        <translation>pages sur les morceaux</translation>
    </message>
    <message>
        <source>decoding</source>
        <translation>décodage</translation>
    </message>
    <message>
        <source>sound</source>
        <translation>son</translation>
    </message>
    <message>
        <source>web requests</source>
        <translation>requêtes web</translation>
    </message>
    <message>
        <source>tags</source>
        <translation>étiquettes</translation>
    </message>
    <message>
        <source>replies of services</source>
        <translation>réponses des services</translation>
    </message>
    <message>
        <source>the library file</source>
        <translation>la bibliothèque</translation>
    </message>
    <message>
        <source>the bundled service</source>
        <translation>le service fourni</translation>
    </message>
    <message>
        <source>results and failures</source>
        <translation>résultats et échecs</translation>
    </message>
</context>
<context>
    <name>AccessibleText</name>
    <message>
        <source>Edge of a pane</source>
        <translation>Bord d’un volet</translation>
    </message>
</context>
<context>
    <name>ApplicationMenu</name>
    <message>
        <source>Add to library…</source>
        <translation>Ajouter à la bibliothèque…</translation>
    </message>
    <message>
        <source>Import iTunes library…</source>
        <translation>Importer la bibliothèque iTunes…</translation>
    </message>
    <message>
        <source>Remove iTunes items</source>
        <translation>Retirer les morceaux d’iTunes</translation>
    </message>
    <message>
        <source>Import playlist…</source>
        <translation>Importer une playlist…</translation>
    </message>
    <message>
        <source>Import library…</source>
        <translation>Importer une bibliothèque…</translation>
    </message>
    <message>
        <source>Export library…</source>
        <translation>Exporter la bibliothèque…</translation>
    </message>
    <message>
        <source>Clean up broken links…</source>
        <translation>Nettoyer les liens rompus…</translation>
    </message>
    <message>
        <source>Preferences…</source>
        <translation>Préférences…</translation>
    </message>
    <message>
        <source>Welcome</source>
        <translation>Bienvenue</translation>
    </message>
    <message>
        <source>Read me</source>
        <translation>Lisez-moi</translation>
    </message>
    <message>
        <source>Website</source>
        <translation>Site web</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>Assistance</translation>
    </message>
    <message>
        <source>Shared playlists</source>
        <translation>Playlists partagées</translation>
    </message>
    <message>
        <source>About Zib</source>
        <translation>À propos de Zib</translation>
    </message>
    <message>
        <source>Close window</source>
        <translation>Fermer la fenêtre</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quitter</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Rétablir</translation>
    </message>
</context>
<context>
    <name>AudioStreamer</name>
    <message>
        <source>Export failed</source>
        <translation>Échec de l’exportation</translation>
    </message>
</context>
<context>
    <name>Database</name>
    <message>
        <source>made by a newer version of this program</source>
        <translation>créé par une version plus récente de ce programme</translation>
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
        <translation>Erreur de fichier</translation>
    </message>
    <message>
        <source>Unable to configure network read stream.</source>
        <translation>Impossible de configurer le flux de lecture réseau.</translation>
    </message>
</context>
<context>
    <name>FileViewController</name>
    <message>
        <source>“%1” stays as it is. %2</source>
        <translation>«&#xa0;%1&#xa0;» reste inchangé. %2</translation>
    </message>
</context>
<context>
    <name>Icons</name>
    <message>
        <source>Clear</source>
        <translation>Effacer</translation>
    </message>
</context>
<context>
    <name>LibraryExport</name>
    <message>
        <source>Writing %1 failed: %2.</source>
        <translation>Échec de l’écriture de %1&#xa0;: %2.</translation>
    </message>
    <message>
        <source>There is no music library at %1.</source>
        <translation>Il n’y a pas de bibliothèque musicale à l’emplacement %1.</translation>
    </message>
    <message>
        <source>The music library at %1 cannot be read: %2.</source>
        <translation>La bibliothèque musicale %1 ne peut pas être lue&#xa0;: %2.</translation>
    </message>
    <message>
        <source>%1 is the music library itself; choose another file.</source>
        <translation>%1 est la bibliothèque elle-même&#xa0;; choisir un autre fichier.</translation>
    </message>
</context>
<context>
    <name>LibraryFile</name>
    <message>
        <source>the file cannot be deciphered</source>
        <translation>le fichier ne peut pas être déchiffré</translation>
    </message>
</context>
<context>
    <name>ListPanels</name>
    <message>
        <source>XML property list (*.xml)</source>
        <translation>Liste de propriétés XML (*.xml)</translation>
    </message>
    <message>
        <source>Export playlist</source>
        <translation>Exporter la playlist</translation>
    </message>
    <message>
        <source>M3U8 playlist (*.m3u8)</source>
        <translation>Playlist M3U8 (*.m3u8)</translation>
    </message>
    <message>
        <source>XSPF playlist (*.xspf)</source>
        <translation>Playlist XSPF (*.xspf)</translation>
    </message>
    <message>
        <source>JSPF playlist (*.jspf)</source>
        <translation>Playlist JSPF (*.jspf)</translation>
    </message>
    <message>
        <source>Import playlist</source>
        <translation>Importer une playlist</translation>
    </message>
    <message>
        <source>Playlists (*.m3u8 *.m3u *.xspf *.jspf)</source>
        <translation>Playlists (*.m3u8 *.m3u *.xspf *.jspf)</translation>
    </message>
    <message>
        <source>Export library</source>
        <translation>Exporter la bibliothèque</translation>
    </message>
    <message>
        <source>Zib Music Library</source>
        <translation>Bibliothèque musicale Zib</translation>
    </message>
    <message>
        <source>Import library</source>
        <translation>Importer une bibliothèque</translation>
    </message>
    <message>
        <source>Format:</source>
        <translation>Format&#xa0;:</translation>
    </message>
</context>
<context>
    <name>ListeningSocket</name>
    <message>
        <source>%1 is no numeric address</source>
        <translation>%1 n’est pas une adresse numérique</translation>
    </message>
    <message>
        <source>cannot listen on %1 port %2: %3</source>
        <translation>impossible d’écouter sur %1, port %2&#xa0;: %3</translation>
    </message>
    <message>
        <source>descriptor %1 is no listening socket</source>
        <translation>le descripteur %1 n’est pas un socket en écoute</translation>
    </message>
    <message>
        <source>descriptor %1 is no TCP socket</source>
        <translation>le descripteur %1 n’est pas un socket TCP</translation>
    </message>
</context>
<context>
    <name>LoveActions</name>
    <message>
        <source>You just loved a song. This is a good thing! The more songs you love, the better recommendations you get.</source>
        <translation>Un morceau vient de rejoindre les favoris. C’est une bonne chose&#xa0;! Plus il y a de favoris, meilleures sont les recommandations.</translation>
    </message>
</context>
<context>
    <name>MovieFile</name>
    <message>
        <source>“%1” is not a file.</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas un fichier.</translation>
    </message>
    <message>
        <source>“%1” could not be opened: %2</source>
        <translation>«&#xa0;%1&#xa0;» n’a pas pu être ouvert&#xa0;: %2</translation>
    </message>
    <message>
        <source>“%1” holds no sound that can be played.</source>
        <translation>«&#xa0;%1&#xa0;» ne contient aucun son lisible.</translation>
    </message>
</context>
<context>
    <name>MusicFolder</name>
    <message>
        <source>The music folder could not be moved: %1.</source>
        <translation>Le dossier de musique n’a pas pu être déplacé&#xa0;: %1.</translation>
    </message>
</context>
<context>
    <name>MusicFolderGuard</name>
    <message>
        <source>No file can have the name “%1”.</source>
        <translation>Aucun fichier ne peut s’appeler «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>The name “%1” is too long for a file.</source>
        <translation>Le nom «&#xa0;%1&#xa0;» est trop long pour un fichier.</translation>
    </message>
    <message>
        <source>The path “%1” is too long for a file.</source>
        <translation>Le chemin «&#xa0;%1&#xa0;» est trop long pour un fichier.</translation>
    </message>
    <message>
        <source>“%1” lies outside the music folder.</source>
        <translation>«&#xa0;%1&#xa0;» se trouve hors du dossier de musique.</translation>
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
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Zib!</source>
        <translation>Zib&#xa0;!</translation>
    </message>
</context>
<context>
    <name>NoticesPage</name>
    <message>
        <source>When a song is loved</source>
        <translation>Quand un morceau est ajouté aux favoris</translation>
    </message>
    <message>
        <source>Before a song is downloaded</source>
        <translation>Avant de télécharger un morceau</translation>
    </message>
    <message>
        <source>Before a playlist is removed</source>
        <translation>Avant de supprimer une playlist</translation>
    </message>
    <message>
        <source>Before songs with broken links are removed</source>
        <translation>Avant de retirer les morceaux aux liens rompus</translation>
    </message>
    <message>
        <source>Before an iTunes library is imported</source>
        <translation>Avant d’importer une bibliothèque iTunes</translation>
    </message>
    <message>
        <source>When “What&apos;s Hot?” is opened</source>
        <translation>À l’ouverture de «&#xa0;À la mode&#xa0;»</translation>
    </message>
    <message>
        <source>When “Recommended” is opened</source>
        <translation>À l’ouverture de «&#xa0;Recommandés&#xa0;»</translation>
    </message>
</context>
<context>
    <name>PageTemplates</name>
    <message>
        <source>Now playing &lt;b&gt;%track&lt;/b&gt; by</source>
        <translation>Lecture en cours&#xa0;: &lt;b&gt;%track&lt;/b&gt;, par</translation>
    </message>
    <message>
        <source>Familiarity</source>
        <translation>Notoriété</translation>
    </message>
    <message>
        <source>Hotness</source>
        <translation>Tendance</translation>
    </message>
    <message>
        <source>Tags:</source>
        <translation>Tags&#xa0;:</translation>
    </message>
    <message>
        <source>Similar Artists:</source>
        <translation>Artistes similaires&#xa0;:</translation>
    </message>
    <message>
        <source>MORE MUSIC&lt;br&gt;LIKE THIS!</source>
        <translation>PLUS DE MUSIQUE&lt;br&gt;DE CE GENRE&#xa0;!</translation>
    </message>
    <message>
        <source>by %artist</source>
        <translation>par %artist</translation>
    </message>
    <message>
        <source>Type: &lt;b&gt;%type&lt;/b&gt;</source>
        <translation>Type&#xa0;: &lt;b&gt;%type&lt;/b&gt;</translation>
    </message>
    <message>
        <source>Released: &lt;b&gt;%date&lt;/b&gt;</source>
        <translation>Sortie&#xa0;: &lt;b&gt;%date&lt;/b&gt;</translation>
    </message>
    <message>
        <source>Label: &lt;b&gt;%label&lt;/b&gt;</source>
        <translation>Label&#xa0;: &lt;b&gt;%label&lt;/b&gt;</translation>
    </message>
    <message>
        <source>Artist</source>
        <translation>Artiste</translation>
    </message>
</context>
<context>
    <name>PageWords</name>
    <message>
        <source>Artist</source>
        <translation>Artiste</translation>
    </message>
    <message>
        <source>Album</source>
        <translation>Album</translation>
    </message>
    <message>
        <source>Song</source>
        <translation>Morceau</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>Images</translation>
    </message>
    <message>
        <source>Videos</source>
        <translation>Vidéos</translation>
    </message>
    <message>
        <source>Blogs</source>
        <translation>Blogs</translation>
    </message>
    <message>
        <source>News</source>
        <translation>Actualités</translation>
    </message>
    <message>
        <source>Reviews</source>
        <translation>Critiques</translation>
    </message>
    <message>
        <source>Familiarity</source>
        <translation>Notoriété</translation>
    </message>
    <message>
        <source>Hotness</source>
        <translation>Tendance</translation>
    </message>
</context>
<context>
    <name>PlaybackQueue</name>
    <message>
        <source>You are not connected to the Internet</source>
        <translation>Aucune connexion à Internet</translation>
    </message>
    <message>
        <source>This computer’s Internet connection appears to be offline.</source>
        <translation>Cet ordinateur ne semble pas être connecté à Internet.</translation>
    </message>
    <message>
        <source>Buffering...</source>
        <translation>Mise en mémoire tampon...</translation>
    </message>
    <message>
        <source>Idle</source>
        <translation>Au repos</translation>
    </message>
    <message>
        <source>Playing from disk</source>
        <translation>Lecture depuis le disque</translation>
    </message>
    <message>
        <source>Streaming...</source>
        <translation>Lecture en streaming...</translation>
    </message>
</context>
<context>
    <name>PlaylistFile</name>
    <message>
        <source>It is no JSPF playlist.</source>
        <translation>Ce n’est pas une playlist JSPF.</translation>
    </message>
    <message>
        <source>It is a single stream, not a list of songs.</source>
        <translation>C’est un flux unique, pas une liste de morceaux.</translation>
    </message>
    <message>
        <source>The name of the file must end in .m3u8, .xspf or .jspf.</source>
        <translation>Le nom du fichier doit se terminer par .m3u8, .xspf ou .jspf.</translation>
    </message>
    <message>
        <source>Writing %1 failed: %2.</source>
        <translation>Échec de l’écriture de %1&#xa0;: %2.</translation>
    </message>
    <message>
        <source>The file is too large.</source>
        <translation>Le fichier est trop volumineux.</translation>
    </message>
    <message>
        <source>It holds more than %1 songs.</source>
        <translation>Elle contient plus de %1 morceaux.</translation>
    </message>
    <message>
        <source>It is no XSPF playlist.</source>
        <translation>Ce n’est pas une playlist XSPF.</translation>
    </message>
</context>
<context>
    <name>RVDataDownloader</name>
    <message>
        <source>No title</source>
        <translation>Sans titre</translation>
    </message>
    <message>
        <source>No summary available</source>
        <translation>Aucun résumé disponible</translation>
    </message>
    <message>
        <source>No date</source>
        <translation>Sans date</translation>
    </message>
    <message>
        <source>No data found</source>
        <translation>Aucune donnée trouvée</translation>
    </message>
</context>
<context>
    <name>RVFileDownloader</name>
    <message>
        <source>The server answered with error %1.</source>
        <translation>Le serveur a répondu par l’erreur %1.</translation>
    </message>
    <message>
        <source>Could not establish a connection</source>
        <translation>Impossible d’établir une connexion</translation>
    </message>
</context>
<context>
    <name>RVMainController</name>
    <message>
        <source>You are about to import your iTunes music library. Songs will be added by reference. No songs will be duplicated on disk.</source>
        <translation>La bibliothèque iTunes va être importée. Les morceaux restent où ils sont&#xa0;; rien n’est copié sur le disque.</translation>
    </message>
    <message>
        <source>The playlist could not be exported.</source>
        <translation>La playlist n’a pas pu être exportée.</translation>
    </message>
    <message>
        <source>Are you sure you want to edit information for multiple items?</source>
        <translation>Modifier vraiment les informations de plusieurs morceaux&#xa0;?</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Modifier</translation>
    </message>
    <message>
        <source>Not all songs could be changed.</source>
        <translation>Tous les morceaux n’ont pas pu être modifiés.</translation>
    </message>
    <message>
        <source>You are about to remove all songs with broken links from your music library and playlists.</source>
        <translation>Tous les morceaux aux liens rompus vont être retirés de la bibliothèque et des playlists.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln songs</source>
        <translation>
            <numerusform>%Ln morceau</numerusform>
            <numerusform>%Ln morceaux</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>RVPlaylistDownloader</name>
    <message>
        <source>no connection</source>
        <translation>pas de connexion</translation>
    </message>
    <message>
        <source>Could not connect to server</source>
        <translation>Connexion au serveur impossible</translation>
    </message>
    <message>
        <source>No songs found. Please check your spelling or try another search.</source>
        <translation>Aucun morceau trouvé. Vérifier l’orthographe ou essayer une autre recherche.</translation>
    </message>
</context>
<context>
    <name>RVPlaylistUploader</name>
    <message>
        <source>Could not connect to server</source>
        <translation>Connexion au serveur impossible</translation>
    </message>
</context>
<context>
    <name>RVSongInfoDownloader</name>
    <message>
        <source>Unknown Artist</source>
        <translation>Artiste inconnu</translation>
    </message>
    <message>
        <source>Unknown Album</source>
        <translation>Album inconnu</translation>
    </message>
    <message>
        <source>Unknown Song</source>
        <translation>Morceau inconnu</translation>
    </message>
</context>
<context>
    <name>RVWebViewController</name>
    <message>
        <source>Search for songs by artists like these</source>
        <translation>Chercher des morceaux d’artistes comme ceux-ci</translation>
    </message>
    <message>
        <source>Search for songs with all of these tags</source>
        <translation>Chercher des morceaux qui portent tous ces tags</translation>
    </message>
    <message>
        <source>Search for songs by %@</source>
        <translation>Chercher des morceaux de %@</translation>
    </message>
    <message>
        <source>Search for songs tagged %@</source>
        <translation>Chercher des morceaux avec le tag %@</translation>
    </message>
    <message>
        <source>Click to enlarge</source>
        <translation>Cliquer pour agrandir</translation>
    </message>
    <message>
        <source>Or try a tag:</source>
        <translation>Ou essayer un tag&#xa0;:</translation>
    </message>
    <message>
        <source>We couldn&apos;t find any wiki, video or lyrics for this song.</source>
        <translation>Aucun wiki, aucune vidéo et aucune parole trouvés pour ce morceau.</translation>
    </message>
    <message>
        <source>We couldn&apos;t find any images for %@.</source>
        <translation>Aucune image trouvée pour %@.</translation>
    </message>
    <message>
        <source>What artist do you want to play next?</source>
        <translation>Quel artiste écouter maintenant&#xa0;?</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Inconnu</translation>
    </message>
    <message>
        <source>Sorry!</source>
        <translation>Désolé&#xa0;!</translation>
    </message>
    <message>
        <source>No wiki available</source>
        <translation>Aucun wiki disponible</translation>
    </message>
    <message>
        <source>Videos for %@</source>
        <translation>Vidéos pour %@</translation>
    </message>
    <message>
        <source>We couldn&apos;t find any Videos for %@.</source>
        <translation>Aucune vidéo trouvée pour %@.</translation>
    </message>
    <message>
        <source>Blogs for %@</source>
        <translation>Blogs pour %@</translation>
    </message>
    <message>
        <source>We couldn&apos;t find any Blogs for %@.</source>
        <translation>Aucun blog trouvé pour %@.</translation>
    </message>
    <message>
        <source>News for %@</source>
        <translation>Actualités pour %@</translation>
    </message>
    <message>
        <source>We couldn&apos;t find any News for %@.</source>
        <translation>Aucune actualité trouvée pour %@.</translation>
    </message>
    <message>
        <source>Reviews for %@</source>
        <translation>Critiques pour %@</translation>
    </message>
    <message>
        <source>We couldn&apos;t find any Reviews for %@.</source>
        <translation>Aucune critique trouvée pour %@.</translation>
    </message>
    <message numerus="yes">
        <source>Showing 1 - %1 of %n images</source>
        <translation>
            <numerusform>Image 1 - %1 sur %n</numerusform>
            <numerusform>Images 1 - %1 sur %n</numerusform>
        </translation>
    </message>
    <message>
        <source>combo search</source>
        <translation>tous à la fois</translation>
    </message>
    <message>
        <source>Read less...</source>
        <translation>Lire moins...</translation>
    </message>
    <message>
        <source>Read more...</source>
        <translation>Lire la suite...</translation>
    </message>
    <message>
        <source>Show more...</source>
        <translation>Afficher plus...</translation>
    </message>
    <message>
        <source>Found on %1</source>
        <translation>Trouvé sur %1</translation>
    </message>
    <message>
        <source>Watch video...</source>
        <translation>Voir la vidéo...</translation>
    </message>
    <message>
        <source>Source: %1</source>
        <translation>Source&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>RemovedLists</name>
    <message numerus="yes">
        <source>%Ln searches removed. Press Ctrl+Z to undo.</source>
        <translation>
            <numerusform>%Ln recherche supprimée. Annuler avec Ctrl+Z.</numerusform>
            <numerusform>%Ln recherches supprimées. Annuler avec Ctrl+Z.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Undo remove %Ln searches</source>
        <translation>
            <numerusform>Annuler la suppression de %Ln recherche</numerusform>
            <numerusform>Annuler la suppression de %Ln recherches</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Redo remove %Ln searches</source>
        <translation>
            <numerusform>Rétablir la suppression de %Ln recherche</numerusform>
            <numerusform>Rétablir la suppression de %Ln recherches</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln playlists removed. Press Ctrl+Z to undo.</source>
        <translation>
            <numerusform>%Ln playlist supprimée. Annuler avec Ctrl+Z.</numerusform>
            <numerusform>%Ln playlists supprimées. Annuler avec Ctrl+Z.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Undo remove %Ln playlists</source>
        <translation>
            <numerusform>Annuler la suppression de %Ln playlist</numerusform>
            <numerusform>Annuler la suppression de %Ln playlists</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Redo remove %Ln playlists</source>
        <translation>
            <numerusform>Rétablir la suppression de %Ln playlist</numerusform>
            <numerusform>Rétablir la suppression de %Ln playlists</numerusform>
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
        <translation>Artiste</translation>
    </message>
</context>
<context>
    <name>ServiceProbe</name>
    <message>
        <source>The server reports an error of its own (%1).</source>
        <translation>Le serveur signale une erreur interne (%1).</translation>
    </message>
    <message>
        <source>No request can be made to it.</source>
        <translation>Aucune requête ne peut lui être adressée.</translation>
    </message>
</context>
<context>
    <name>ServicesPage</name>
    <message>
        <source>Song search</source>
        <translation>Recherche de morceaux</translation>
    </message>
    <message>
        <source>Is sent what you search for, artists of your library when it recommends songs, and the artist that plays.</source>
        <translation>Reçoit les recherches, des artistes de la bibliothèque pour ses recommandations et l’artiste en cours de lecture.</translation>
    </message>
    <message>
        <source>Music information</source>
        <translation>Informations musicales</translation>
    </message>
    <message>
        <source>Is sent artist, album and name of the song that plays.</source>
        <translation>Reçoit l’artiste, l’album et le nom du morceau en cours.</translation>
    </message>
    <message>
        <source>Lyrics</source>
        <translation>Paroles</translation>
    </message>
    <message>
        <source>Is sent artist and name of the song whose page you look at.</source>
        <translation>Reçoit l’artiste et le nom du morceau dont la page est affichée.</translation>
    </message>
    <message>
        <source>Releases</source>
        <translation>Parutions</translation>
    </message>
    <message>
        <source>Is sent artist and album of the song whose page you look at.</source>
        <translation>Reçoit l’artiste et l’album du morceau dont la page est affichée.</translation>
    </message>
    <message>
        <source>Shared playlists</source>
        <translation>Playlists partagées</translation>
    </message>
    <message>
        <source>Is sent the playlists that you share, with your name for others.</source>
        <translation>Reçoit les playlists partagées, avec le nom visible par les autres.</translation>
    </message>
    <message>
        <source>Videos</source>
        <translation>Vidéos</translation>
    </message>
    <message>
        <source>Learns which video you look at.</source>
        <translation>Sait quelle vidéo est regardée.</translation>
    </message>
    <message>
        <source>Share on Facebook</source>
        <translation>Partager sur Facebook</translation>
    </message>
    <message>
        <source>Is opened in your browser with the playlist&apos;s link.</source>
        <translation>S’ouvre dans le navigateur avec le lien de la playlist.</translation>
    </message>
    <message>
        <source>Share on Twitter</source>
        <translation>Partager sur Twitter</translation>
    </message>
</context>
<context>
    <name>SharingFlow</name>
    <message>
        <source>You can only share regular playlists.</source>
        <translation>Seules les playlists ordinaires peuvent être partagées.</translation>
    </message>
    <message>
        <source>A shared playlist must contain at least 1 song</source>
        <translation>Une playlist partagée doit contenir au moins 1 morceau</translation>
    </message>
    <message>
        <source>A shared playlist cannot contain more than 50 songs</source>
        <translation>Une playlist partagée ne peut pas contenir plus de 50 morceaux</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Avertissement</translation>
    </message>
    <message>
        <source>The selected playlist contains one or more songs that cannot be played remotely. These songs will be removed from your shared playlist. Do you want to continue?</source>
        <translation>La playlist sélectionnée contient au moins un morceau qui ne peut pas être lu à distance. Ces morceaux seront retirés de la playlist partagée. Continuer&#xa0;?</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Continuer</translation>
    </message>
    <message>
        <source>No streamable songs in this playlist</source>
        <translation>Aucun morceau de cette playlist n’est lisible en streaming</translation>
    </message>
    <message>
        <source>Sharing your playlist</source>
        <translation>Partage de la playlist</translation>
    </message>
    <message>
        <source>The server&apos;s answer was not understood.</source>
        <translation>La réponse du serveur n’a pas été comprise.</translation>
    </message>
    <message>
        <source>You just shared a playlist. The public link to this playlist is:

%1

The link has been copied to the clipboard.</source>
        <translation>La playlist est partagée. Son lien public est&#xa0;:

%1

Le lien a été copié dans le presse-papiers.</translation>
    </message>
    <message>
        <source>Share on Twitter</source>
        <translation>Partager sur Twitter</translation>
    </message>
    <message>
        <source>Share on Facebook</source>
        <translation>Partager sur Facebook</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>This shared playlist could not be opened.</source>
        <translation>Cette playlist partagée n’a pas pu être ouverte.</translation>
    </message>
</context>
<context>
    <name>SongCells</name>
    <message>
        <source>Unknown Artist</source>
        <translation>Artiste inconnu</translation>
    </message>
    <message>
        <source>Unknown Album</source>
        <translation>Album inconnu</translation>
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
        <translation>«&#xa0;%1&#xa0;» n’a pas pu être modifié.</translation>
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
        <translation>Il y a déjà un autre fichier à l’emplacement «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>The file “%1” could not be written: %2.</source>
        <translation>Le fichier «&#xa0;%1&#xa0;» n’a pas pu être écrit&#xa0;: %2.</translation>
    </message>
    <message>
        <source>The folder “%1” could not be created: %2.</source>
        <translation>Le dossier «&#xa0;%1&#xa0;» n’a pas pu être créé&#xa0;: %2.</translation>
    </message>
    <message>
        <source>The file “%1” could not be read: %2.</source>
        <translation>Le fichier «&#xa0;%1&#xa0;» n’a pas pu être lu&#xa0;: %2.</translation>
    </message>
</context>
<context>
    <name>SongPaths</name>
    <message>
        <source>Unknown Artist</source>
        <translation>Artiste inconnu</translation>
    </message>
    <message>
        <source>Unknown Album</source>
        <translation>Album inconnu</translation>
    </message>
</context>
<context>
    <name>SongsRemovedFromLibrary</name>
    <message numerus="yes">
        <source>%Ln songs removed from the library. Press Ctrl+Z to undo.</source>
        <translation>
            <numerusform>%Ln morceau supprimé de la bibliothèque. Annuler avec Ctrl+Z.</numerusform>
            <numerusform>%Ln morceaux supprimés de la bibliothèque. Annuler avec Ctrl+Z.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Undo remove %Ln songs</source>
        <translation>
            <numerusform>Annuler la suppression de %Ln morceau</numerusform>
            <numerusform>Annuler la suppression de %Ln morceaux</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Redo remove %Ln songs</source>
        <translation>
            <numerusform>Rétablir la suppression de %Ln morceau</numerusform>
            <numerusform>Rétablir la suppression de %Ln morceaux</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files could not be brought back from the trash.</source>
        <translation>
            <numerusform>%Ln fichier n’a pas pu être récupéré de la corbeille.</numerusform>
            <numerusform>%Ln fichiers n’ont pas pu être récupérés de la corbeille.</numerusform>
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
            <numerusform>%Ln morceau supprimé de la playlist. Annuler avec Ctrl+Z.</numerusform>
            <numerusform>%Ln morceaux supprimés de la playlist. Annuler avec Ctrl+Z.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Undo remove %Ln songs from the playlist</source>
        <translation>
            <numerusform>Annuler la suppression de %Ln morceau de la playlist</numerusform>
            <numerusform>Annuler la suppression de %Ln morceaux de la playlist</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Redo remove %Ln songs from the playlist</source>
        <translation>
            <numerusform>Rétablir la suppression de %Ln morceau de la playlist</numerusform>
            <numerusform>Rétablir la suppression de %Ln morceaux de la playlist</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SourceList</name>
    <message>
        <source>Now Playing</source>
        <translation>En cours de lecture</translation>
    </message>
    <message>
        <source>What&apos;s Hot?</source>
        <translation>À la mode</translation>
    </message>
    <message>
        <source>Recommended</source>
        <translation>Recommandés</translation>
    </message>
    <message>
        <source>Songs that are talked about now. They come from the web.</source>
        <translation>Les morceaux dont on parle en ce moment. Ils viennent du web.</translation>
    </message>
    <message>
        <source>Songs like those that you love. They come from the web.</source>
        <translation>Des morceaux proches des favoris. Ils viennent du web.</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>Musique</translation>
    </message>
    <message>
        <source>Downloads</source>
        <translation>Téléchargements</translation>
    </message>
    <message>
        <source>Imported</source>
        <translation>Importés</translation>
    </message>
    <message>
        <source>Favorites</source>
        <translation>Favoris</translation>
    </message>
    <message>
        <source>This computer’s Internet connection appears to be offline.</source>
        <translation>Cet ordinateur ne semble pas être connecté à Internet.</translation>
    </message>
    <message>
        <source>This playlist contains songs currently hyped on social networks like Facebook and Twitter.</source>
        <translation>Cette playlist contient les morceaux dont on parle sur les réseaux sociaux comme Facebook et Twitter.</translation>
    </message>
    <message>
        <source>This playlist contains songs we think you may like. To start getting personal recommendations you must first mark a few songs as favorites. You do this by clicking the Love button next to the song&apos;s title.</source>
        <translation>Cette playlist contient des morceaux susceptibles de plaire. Pour obtenir des recommandations personnelles, il faut d’abord ajouter quelques morceaux aux favoris, en cliquant sur le cœur à côté du titre.</translation>
    </message>
    <message>
        <source>Are you sure you want to remove the selected playlist?</source>
        <translation>Supprimer vraiment la playlist sélectionnée&#xa0;?</translation>
    </message>
    <message>
        <source>This action cannot be undone.</source>
        <translation>Cette action est irréversible.</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Supprimer</translation>
    </message>
    <message>
        <source>Recent Searches</source>
        <translation>Recherches récentes</translation>
    </message>
    <message>
        <source>Library</source>
        <translation>Bibliothèque</translation>
    </message>
    <message>
        <source>Playlists</source>
        <translation>Playlists</translation>
    </message>
    <message>
        <source>Untitled playlist</source>
        <translation>Playlist sans titre</translation>
    </message>
</context>
<context>
    <name>TimeString</name>
    <message>
        <source>%.1f days</source>
        <translation>%.1f jours</translation>
    </message>
</context>
<context>
    <name>UrlConnection</name>
    <message>
        <source>This address cannot be opened.</source>
        <translation>Cette adresse ne peut pas être ouverte.</translation>
    </message>
    <message>
        <source>The server did not answer in time.</source>
        <translation>Le serveur n’a pas répondu à temps.</translation>
    </message>
    <message>
        <source>The server&apos;s reply is too large.</source>
        <translation>La réponse du serveur est trop volumineuse.</translation>
    </message>
    <message>
        <source>The server could not be found.</source>
        <translation>Le serveur est introuvable.</translation>
    </message>
    <message>
        <source>The server could not be reached.</source>
        <translation>Le serveur est injoignable.</translation>
    </message>
    <message>
        <source>The server redirects without end.</source>
        <translation>Le serveur redirige sans fin.</translation>
    </message>
    <message>
        <source>The server closed the connection early.</source>
        <translation>Le serveur a fermé la connexion trop tôt.</translation>
    </message>
    <message>
        <source>No secure connection to the server could be made.</source>
        <translation>Aucune connexion sécurisée au serveur n’a pu être établie.</translation>
    </message>
    <message>
        <source>The server&apos;s reply could not be understood.</source>
        <translation>La réponse du serveur n’a pas été comprise.</translation>
    </message>
</context>
<context>
    <name>WebServiceClient</name>
    <message>
        <source>Connection failed</source>
        <translation>Échec de la connexion</translation>
    </message>
    <message>
        <source>No server response</source>
        <translation>Pas de réponse du serveur</translation>
    </message>
</context>
<context>
    <name>WidgetAlerts</name>
    <message>
        <source>Do not show this message again</source>
        <translation>Ne plus afficher ce message</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Speak to the services at this base address (http://HOST[:PORT]).</source>
        <translation>S’adresser aux services à cette adresse de base (http://HOST[:PORT]).</translation>
    </message>
    <message>
        <source>Write the library as a property list to FILE (- for standard output) and end.</source>
        <translation>Écrire la bibliothèque dans FILE sous forme de liste de propriétés (- est la sortie standard), puis quitter.</translation>
    </message>
    <message>
        <source>Play, or pause what plays, without showing the window.</source>
        <translation>Lire ou mettre en pause, sans afficher la fenêtre.</translation>
    </message>
    <message>
        <source>Go to the next song.</source>
        <translation>Passer au morceau suivant.</translation>
    </message>
    <message>
        <source>Go to the beginning of the song, from there to the one before.</source>
        <translation>Revenir au début du morceau, et de là au précédent.</translation>
    </message>
    <message>
        <source>Finds, plays and keeps music.</source>
        <translation>Trouve, lit et garde la musique.</translation>
    </message>
    <message>
        <source>Show the options and end.</source>
        <translation>Afficher les options et quitter.</translation>
    </message>
    <message>
        <source>Sound files and folders to add to the library, or zib:// addresses.</source>
        <translation>Fichiers audio et dossiers à ajouter à la bibliothèque, ou adresses zib://.</translation>
    </message>
    <message>
        <source>there is no file “%1”</source>
        <translation>il n’y a pas de fichier «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>“%1” is no address such as http://127.0.0.1:8080</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas une adresse telle que http://127.0.0.1:8080</translation>
    </message>
</context>
<context>
    <name>zib::AboutWindow</name>
    <message>
        <source>About</source>
        <translation>À propos</translation>
    </message>
    <message>
        <source>Website</source>
        <translation>Site web</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>Find music, hear it, keep what you love.</source>
        <translation>Trouver, écouter et garder la musique.</translation>
    </message>
    <message>
        <source>Free software: use, study, share and improve it under the GNU General Public License, version 3 or later. It comes without any warranty.</source>
        <translation>Logiciel libre&#xa0;: l’utiliser, l’étudier, le partager et l’améliorer selon la licence publique générale GNU, version 3 ou ultérieure. Sans aucune garantie.</translation>
    </message>
    <message>
        <source>Built on</source>
        <translation>Construit avec</translation>
    </message>
</context>
<context>
    <name>zib::AddToLibraryPanel</name>
    <message>
        <source>Sound files (%1)</source>
        <translation>Fichiers audio (%1)</translation>
    </message>
    <message>
        <source>Add to library</source>
        <translation>Ajouter à la bibliothèque</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Ajouter</translation>
    </message>
</context>
<context>
    <name>zib::AppDelegate</name>
    <message>
        <source>Adding songs to your library</source>
        <translation>Ajout de morceaux à la bibliothèque</translation>
    </message>
    <message>
        <source>Adding %1</source>
        <translation>Ajout de %1</translation>
    </message>
    <message>
        <source>No songs were found</source>
        <translation>Aucun morceau trouvé</translation>
    </message>
    <message>
        <source>Importing your iTunes library</source>
        <translation>Importation de la bibliothèque iTunes</translation>
    </message>
    <message>
        <source>No iTunes music library found!</source>
        <translation>Aucune bibliothèque iTunes trouvée&#xa0;!</translation>
    </message>
    <message>
        <source>Songs are being added to the music folder. Please wait for the end of that.</source>
        <translation>Des morceaux sont en cours d’ajout au dossier de musique. Attendre la fin.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln songs added</source>
        <translation>
            <numerusform>%Ln morceau ajouté</numerusform>
            <numerusform>%Ln morceaux ajoutés</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>zib::BusyGear</name>
    <message>
        <source>Busy</source>
        <translation>Occupé</translation>
    </message>
</context>
<context>
    <name>zib::BusyIndicator</name>
    <message>
        <source>Busy</source>
        <translation>Occupé</translation>
    </message>
</context>
<context>
    <name>zib::CatalogueProcess</name>
    <message>
        <source>The song catalogue could not be started, so searches find nothing.</source>
        <translation>Le catalogue de morceaux n’a pas pu démarrer&#xa0;: les recherches ne trouvent rien.</translation>
    </message>
</context>
<context>
    <name>zib::ControlBar</name>
    <message>
        <source>Back</source>
        <translation>Précédent</translation>
    </message>
    <message>
        <source>Previous song (Ctrl+Left)</source>
        <translation>Morceau précédent (Ctrl+Gauche)</translation>
    </message>
    <message>
        <source>Play or pause</source>
        <translation>Lire ou mettre en pause</translation>
    </message>
    <message>
        <source>Play or pause (Space)</source>
        <translation>Lire ou mettre en pause (Espace)</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Suivant</translation>
    </message>
    <message>
        <source>Next song (Ctrl+Right)</source>
        <translation>Morceau suivant (Ctrl+Droite)</translation>
    </message>
    <message>
        <source>Love</source>
        <translation>Ajouter aux favoris</translation>
    </message>
    <message>
        <source>Love this song (Ctrl+L)</source>
        <translation>Ajouter ce morceau aux favoris (Ctrl+L)</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Télécharger</translation>
    </message>
    <message>
        <source>Download this song (Ctrl+D)</source>
        <translation>Télécharger ce morceau (Ctrl+D)</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menu</translation>
    </message>
    <message>
        <source>Pause (Space)</source>
        <translation>Mettre en pause (Espace)</translation>
    </message>
    <message>
        <source>Play (Space)</source>
        <translation>Lire (Espace)</translation>
    </message>
    <message>
        <source>Love this song no more (Ctrl+L)</source>
        <translation>Retirer ce morceau des favoris (Ctrl+L)</translation>
    </message>
    <message>
        <source>This song is on your disk</source>
        <translation>Ce morceau est sur le disque</translation>
    </message>
    <message>
        <source>This song is being downloaded</source>
        <translation>Ce morceau est en cours de téléchargement</translation>
    </message>
</context>
<context>
    <name>zib::CoverField</name>
    <message>
        <source>Replace…</source>
        <translation>Remplacer…</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Retirer</translation>
    </message>
    <message>
        <source>Replace the cover</source>
        <translation>Remplacer la pochette</translation>
    </message>
    <message>
        <source>Only songs with a file of their own have a cover that can be changed</source>
        <translation>Seuls les morceaux qui ont leur propre fichier ont une pochette modifiable</translation>
    </message>
    <message>
        <source>Remove the cover</source>
        <translation>Retirer la pochette</translation>
    </message>
    <message>
        <source>Choose a cover</source>
        <translation>Choisir une pochette</translation>
    </message>
    <message>
        <source>Pictures (%1)</source>
        <translation>Images (%1)</translation>
    </message>
    <message>
        <source>The picture is larger than 6 MB.</source>
        <translation>L’image dépasse 6&#xa0;Mo.</translation>
    </message>
    <message>
        <source>A cover is a picture in a PNG or JPEG file.</source>
        <translation>Une pochette est une image au format PNG ou JPEG.</translation>
    </message>
    <message>
        <source>No cover</source>
        <translation>Pas de pochette</translation>
    </message>
    <message>
        <source>Cover</source>
        <translation>Pochette</translation>
    </message>
</context>
<context>
    <name>zib::DesktopNotifications</name>
    <message>
        <source>Show Zib</source>
        <translation>Afficher Zib</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Suivant</translation>
    </message>
</context>
<context>
    <name>zib::DesktopPage</name>
    <message>
        <source>Notifications</source>
        <translation>Notifications</translation>
    </message>
    <message>
        <source>Show a notification when another song begins</source>
        <translation>Afficher une notification quand un autre morceau commence</translation>
    </message>
    <message>
        <source>Only while you work in another program.</source>
        <translation>Seulement quand un autre programme est au premier plan.</translation>
    </message>
    <message>
        <source>Energy</source>
        <translation>Énergie</translation>
    </message>
    <message>
        <source>Keep the computer awake while music plays</source>
        <translation>Garder l’ordinateur éveillé pendant la lecture</translation>
    </message>
    <message>
        <source>The screen may still go dark, and you can always send the computer to sleep yourself.</source>
        <translation>L’écran peut tout de même s’éteindre, et la mise en veille manuelle reste toujours possible.</translation>
    </message>
</context>
<context>
    <name>zib::DesktopSound</name>
    <message>
        <source>There is no sound server, so songs play without being heard.</source>
        <translation>Il n’y a pas de serveur de son&#xa0;: les morceaux sont lus sans être entendus.</translation>
    </message>
</context>
<context>
    <name>zib::DownloadActions</name>
    <message>
        <source>You are about to download a song. Please make sure the song is not subject to copyright before proceeding. Downloading copyrighted material is a crime in many countries.</source>
        <translation>Un morceau va être téléchargé. S’assurer auparavant qu’il n’est pas protégé par le droit d’auteur. Télécharger des œuvres protégées est un délit dans de nombreux pays.</translation>
    </message>
</context>
<context>
    <name>zib::FilePanel</name>
    <message>
        <source>Folder:</source>
        <translation>Dossier&#xa0;:</translation>
    </message>
</context>
<context>
    <name>zib::FilterField</name>
    <message>
        <source>Filter</source>
        <translation>Filtrer</translation>
    </message>
    <message>
        <source>Show only the songs that hold these words (Ctrl+Shift+F)</source>
        <translation>N’afficher que les morceaux qui contiennent ces mots (Ctrl+Maj+F)</translation>
    </message>
    <message>
        <source>Filter songs</source>
        <translation>Filtrer les morceaux</translation>
    </message>
</context>
<context>
    <name>zib::GeneralPage</name>
    <message>
        <source>Music folder</source>
        <translation>Dossier de musique</translation>
    </message>
    <message>
        <source>Copy files into the music folder when they are added to the library</source>
        <translation>Copier dans le dossier de musique les fichiers ajoutés à la bibliothèque</translation>
    </message>
    <message>
        <source>Playing</source>
        <translation>Lecture</translation>
    </message>
    <message>
        <source>When a song ends, go on with the next one of any list</source>
        <translation>À la fin d’un morceau, passer au suivant, quelle que soit la liste</translation>
    </message>
    <message>
        <source>Keep a copy of songs of the web that were played to their end</source>
        <translation>Garder une copie des morceaux du web écoutés jusqu’au bout</translation>
    </message>
    <message>
        <source>Change…</source>
        <translation>Modifier…</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Réinitialiser</translation>
    </message>
    <message>
        <source>Moves the music back to its default folder</source>
        <translation>Remet la musique dans son dossier par défaut</translation>
    </message>
    <message>
        <source>Imported and downloaded songs are stored here, sorted by artist and album.</source>
        <translation>Les morceaux importés et téléchargés sont rangés ici, par artiste et par album.</translation>
    </message>
    <message>
        <source>As the desktop</source>
        <translation>Comme le bureau</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Clair</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Sombre</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>Apparence</translation>
    </message>
    <message>
        <source>Keep moving texts still</source>
        <translation>Immobiliser les textes défilants</translation>
    </message>
    <message>
        <source>Choose a folder for your music</source>
        <translation>Choisir un dossier pour la musique</translation>
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
        <translation>Le fichier ne peut pas être ouvert.</translation>
    </message>
    <message>
        <source>The file is too large.</source>
        <translation>Le fichier est trop volumineux.</translation>
    </message>
    <message>
        <source>It is no exported library.</source>
        <translation>Ce n’est pas une bibliothèque exportée.</translation>
    </message>
</context>
<context>
    <name>zib::LibraryPanes</name>
    <message>
        <source>Artists</source>
        <translation>Artistes</translation>
    </message>
    <message>
        <source>Albums</source>
        <translation>Albums</translation>
    </message>
</context>
<context>
    <name>zib::LibraryPlace</name>
    <message>
        <source>You are offline. Songs on this computer still play; those on the web are shown in grey.</source>
        <translation>Hors ligne. Les morceaux de cet ordinateur restent lisibles&#xa0;; ceux du web sont en gris.</translation>
    </message>
    <message>
        <source>No song here holds “%1”</source>
        <translation>Aucun morceau ici ne contient «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>Press Escape to see all songs again. To find others on the web, try a tag:</source>
        <translation>Appuyer sur Échap pour revoir tous les morceaux. Pour en trouver d’autres sur le web, essayer un tag&#xa0;:</translation>
    </message>
    <message>
        <source>No songs found</source>
        <translation>Aucun morceau trouvé</translation>
    </message>
    <message>
        <source>Try another spelling, a well-known artist, or a tag:</source>
        <translation>Essayer une autre orthographe, un artiste connu ou un tag&#xa0;:</translation>
    </message>
    <message>
        <source>This playlist is empty</source>
        <translation>Cette playlist est vide</translation>
    </message>
    <message>
        <source>Drag songs from anywhere else onto its name at the left, or add them from their menu. To find some, try a tag:</source>
        <translation>Faire glisser des morceaux sur son nom à gauche, ou les ajouter depuis leur menu. Pour en trouver, essayer un tag&#xa0;:</translation>
    </message>
    <message>
        <source>No loved songs yet</source>
        <translation>Pas encore de favoris</translation>
    </message>
    <message>
        <source>Press the heart beside a song, and it is kept here and in Music. To find some, try a tag:</source>
        <translation>Cliquer sur le cœur à côté d’un morceau pour le garder ici et dans Musique. Pour en trouver, essayer un tag&#xa0;:</translation>
    </message>
    <message>
        <source>No downloads yet</source>
        <translation>Pas encore de téléchargements</translation>
    </message>
    <message>
        <source>Press the arrow beside a song from the web, and it is kept on this computer and plays offline. To find some, try a tag:</source>
        <translation>Cliquer sur la flèche à côté d’un morceau du web pour le garder sur cet ordinateur et l’écouter hors ligne. Pour en trouver, essayer un tag&#xa0;:</translation>
    </message>
    <message>
        <source>No songs of your own yet</source>
        <translation>Pas encore de morceaux personnels</translation>
    </message>
    <message>
        <source>Drop files or folders on this window, or press Ctrl+O. To find songs on the web, try a tag:</source>
        <translation>Déposer des fichiers ou des dossiers sur cette fenêtre, ou appuyer sur Ctrl+O. Pour trouver des morceaux sur le web, essayer un tag&#xa0;:</translation>
    </message>
    <message>
        <source>Your library is empty</source>
        <translation>La bibliothèque est vide</translation>
    </message>
    <message>
        <source>Type an artist into the search field and press Return. Play what you find, and press the heart beside a song to keep it here. Or try a tag:</source>
        <translation>Taper un artiste dans le champ de recherche et appuyer sur Entrée. Écouter ce qui est trouvé, et cliquer sur le cœur à côté d’un morceau pour le garder ici. Ou essayer un tag&#xa0;:</translation>
    </message>
</context>
<context>
    <name>zib::ListExchange</name>
    <message>
        <source>The library could not be exported.</source>
        <translation>La bibliothèque n’a pas pu être exportée.</translation>
    </message>
    <message>
        <source>Library exported</source>
        <translation>Bibliothèque exportée</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Adding songs to your library</source>
        <translation>Ajout de morceaux à la bibliothèque</translation>
    </message>
    <message>
        <source>The playlist “%1” could not be imported.</source>
        <translation>La playlist «&#xa0;%1&#xa0;» n’a pas pu être importée.</translation>
    </message>
    <message>
        <source>The library could not be imported.</source>
        <translation>La bibliothèque n’a pas pu être importée.</translation>
    </message>
    <message>
        <source>%1 and %2 added</source>
        <extracomment>Two counts: “2 songs”, “1 playlist”.</extracomment>
        <translation>Ajouts&#xa0;: %1 et %2</translation>
    </message>
    <message>
        <source>Importing a library</source>
        <translation>Importation d’une bibliothèque</translation>
    </message>
    <message>
        <source>Exporting your library</source>
        <translation>Exportation de la bibliothèque</translation>
    </message>
    <message numerus="yes">
        <source>and %Ln more</source>
        <translation>
            <numerusform>et %Ln autre</numerusform>
            <numerusform>et %Ln autres</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln songs of the playlist “%1” were not found.</source>
        <translation>
            <numerusform>%Ln morceau de la playlist «&#xa0;%1&#xa0;» est introuvable.</numerusform>
            <numerusform>%Ln morceaux de la playlist «&#xa0;%1&#xa0;» sont introuvables.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln songs</source>
        <translation>
            <numerusform>%Ln morceau</numerusform>
            <numerusform>%Ln morceaux</numerusform>
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
    <name>zib::LoginPowerEvents</name>
    <message>
        <source>Playback is paused first</source>
        <translation>La lecture est d’abord mise en pause</translation>
    </message>
</context>
<context>
    <name>zib::NoticesPage</name>
    <message>
        <source>Show all again</source>
        <translation>Tout afficher à nouveau</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>Messages</translation>
    </message>
    <message>
        <source>These messages and questions are shown. Without its question, what you ask for is done at once.</source>
        <translation>Ces messages et questions sont affichés. Sans sa question, une action s’exécute aussitôt.</translation>
    </message>
</context>
<context>
    <name>zib::NowPlayingDisplay</name>
    <message>
        <source>Now Playing</source>
        <translation>En cours de lecture</translation>
    </message>
    <message>
        <source>Powered by</source>
        <translation>Propulsé par</translation>
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
        <translation>Titre de la lecture en cours</translation>
    </message>
    <message>
        <source>Elapsed time</source>
        <translation>Temps écoulé</translation>
    </message>
    <message>
        <source>Remaining time</source>
        <translation>Temps restant</translation>
    </message>
    <message>
        <source>Now playing</source>
        <translation>En cours de lecture</translation>
    </message>
    <message>
        <source>Streaming</source>
        <translation>Streaming</translation>
    </message>
    <message>
        <source>Streaming from the web</source>
        <translation>En streaming depuis le web</translation>
    </message>
</context>
<context>
    <name>zib::OfferedTags</name>
    <message>
        <source>Find songs tagged %1</source>
        <translation>Chercher des morceaux avec le tag %1</translation>
    </message>
</context>
<context>
    <name>zib::PlaylistImporter</name>
    <message>
        <source>It is no playlist file.</source>
        <translation>Ce n’est pas un fichier de playlist.</translation>
    </message>
    <message>
        <source>It holds no songs.</source>
        <translation>Elle ne contient aucun morceau.</translation>
    </message>
</context>
<context>
    <name>zib::PreferencesWindow</name>
    <message>
        <source>Preferences</source>
        <translation>Préférences</translation>
    </message>
    <message>
        <source>Sections</source>
        <translation>Sections</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Général</translation>
    </message>
    <message>
        <source>Sharing</source>
        <translation>Partage</translation>
    </message>
    <message>
        <source>Notices</source>
        <translation>Avis</translation>
    </message>
    <message>
        <source>Desktop</source>
        <translation>Bureau</translation>
    </message>
    <message>
        <source>Services</source>
        <translation>Services</translation>
    </message>
</context>
<context>
    <name>zib::ProgressSlider</name>
    <message>
        <source>Song progress</source>
        <translation>Progression du morceau</translation>
    </message>
</context>
<context>
    <name>zib::RVDataManager</name>
    <message>
        <source>Your music library has been corrupted.</source>
        <translation>La bibliothèque musicale est endommagée.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Exported to disk</source>
        <translation>Exporté sur le disque</translation>
    </message>
</context>
<context>
    <name>zib::RVPlayer</name>
    <message>
        <source>File not found</source>
        <translation>Fichier introuvable</translation>
    </message>
    <message>
        <source>The file at path %1 could not be located.</source>
        <translation>Le fichier à l’emplacement %1 est introuvable.</translation>
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
        <translation>Rechercher</translation>
    </message>
    <message>
        <source>Recent searches</source>
        <translation>Recherches récentes</translation>
    </message>
    <message>
        <source>Search type</source>
        <translation>Type de recherche</translation>
    </message>
    <message>
        <source>Artist</source>
        <translation>Artiste</translation>
    </message>
    <message>
        <source>Find songs by artist</source>
        <translation>Chercher des morceaux par artiste</translation>
    </message>
    <message>
        <source>Tags</source>
        <translation>Tags</translation>
    </message>
    <message>
        <source>Find songs by tag(s, separated by comma)</source>
        <translation>Chercher des morceaux par tag(s, séparés par une virgule)</translation>
    </message>
    <message>
        <source>Similar</source>
        <translation>Similaire</translation>
    </message>
    <message>
        <source>Find songs by similar artists</source>
        <translation>Chercher des morceaux d’artistes similaires</translation>
    </message>
    <message>
        <source>Recent terms</source>
        <translation>Termes récents</translation>
    </message>
</context>
<context>
    <name>zib::ServiceRow</name>
    <message>
        <source>This is no host that can be spoken to over HTTP, such as music.example or 192.168.1.9:8080.</source>
        <translation>Ce n’est pas un hôte joignable par HTTP, comme music.example ou 192.168.1.9:8080.</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Réinitialiser</translation>
    </message>
    <message>
        <source>Host of %1</source>
        <translation>Hôte de %1</translation>
    </message>
    <message>
        <source>Bundled service, on this computer</source>
        <translation>Service fourni, sur cet ordinateur</translation>
    </message>
    <message>
        <source>Reset the host of %1</source>
        <translation>Réinitialiser l’hôte de %1</translation>
    </message>
    <message>
        <source>Back to the service that comes with the program</source>
        <translation>Revenir au service fourni avec le programme</translation>
    </message>
    <message>
        <source>Asking…</source>
        <translation>Interrogation…</translation>
    </message>
    <message>
        <source>Answers</source>
        <translation>Répond</translation>
    </message>
    <message>
        <source>Has an error of its own</source>
        <translation>A une erreur interne</translation>
    </message>
    <message>
        <source>Does not answer</source>
        <translation>Ne répond pas</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1&#xa0;: %2</translation>
    </message>
</context>
<context>
    <name>zib::ServicesPage</name>
    <message>
        <source>Ask again</source>
        <translation>Réinterroger</translation>
    </message>
    <message>
        <source>Unless you name another host, the service that comes with Zib answers, on this computer. Another host is asked from the next request on.</source>
        <translation>Sans autre hôte indiqué, c’est le service fourni avec Zib qui répond, sur cet ordinateur. Un autre hôte est interrogé dès la requête suivante.</translation>
    </message>
    <message>
        <source>Web sites</source>
        <translation>Sites web</translation>
    </message>
    <message>
        <source>%1 · %2: %3</source>
        <translation>%1 · %2&#xa0;: %3</translation>
    </message>
</context>
<context>
    <name>zib::SessionSleepInhibitor</name>
    <message>
        <source>Music is playing</source>
        <translation>De la musique est en cours de lecture</translation>
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
        <translation>Partager la playlist</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titre</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Description</translation>
    </message>
    <message>
        <source>What is it about?</source>
        <translation>De quoi s’agit-il&#xa0;?</translation>
    </message>
    <message>
        <source>Up to five, with commas between</source>
        <translation>Jusqu’à cinq, séparés par des virgules</translation>
    </message>
    <message>
        <source>Your name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>Others see this name beside your playlists. You are asked for it this once.</source>
        <translation>Les autres voient ce nom à côté des playlists. Il n’est demandé que cette fois.</translation>
    </message>
</context>
<context>
    <name>zib::SharingPage</name>
    <message>
        <source>Your name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>You are asked when you first share</source>
        <translation>Demandé au premier partage</translation>
    </message>
    <message>
        <source>Others see it beside the playlists that you share from now on. Playlists shared before keep the name that they have.</source>
        <translation>Les autres le voient à côté des playlists partagées à partir de maintenant. Celles déjà partagées gardent leur nom.</translation>
    </message>
    <message>
        <source>Shared playlists</source>
        <translation>Playlists partagées</translation>
    </message>
    <message>
        <source>List my shared playlists where everybody finds them</source>
        <translation>Publier les playlists partagées là où tout le monde les trouve</translation>
    </message>
    <message>
        <source>Without this, only those find a playlist who have its link.</source>
        <translation>Sinon, seuls ceux qui ont le lien d’une playlist la trouvent.</translation>
    </message>
</context>
<context>
    <name>zib::SongDownloads</name>
    <message>
        <source>Zib!</source>
        <translation>Zib&#xa0;!</translation>
    </message>
    <message>
        <source>A song like this has already been downloaded. Do you want to overwrite it?</source>
        <translation>Un morceau comme celui-ci a déjà été téléchargé. Le remplacer&#xa0;?</translation>
    </message>
    <message>
        <source>Overwrite</source>
        <translation>Remplacer</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Download cancelled</source>
        <translation>Téléchargement annulé</translation>
    </message>
    <message>
        <source>Downloading... (%1 %2)</source>
        <translation>Téléchargement... (%1&#xa0;%2)</translation>
    </message>
    <message>
        <source>“%1” could not be downloaded.</source>
        <translation>«&#xa0;%1&#xa0;» n’a pas pu être téléchargé.</translation>
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
        <translation>Informations sur le morceau</translation>
    </message>
    <message>
        <source>Information for several songs</source>
        <translation>Informations pour plusieurs morceaux</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>Artist</source>
        <translation>Artiste</translation>
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
        <translation>Compositeur</translation>
    </message>
    <message>
        <source>Year</source>
        <translation>Année</translation>
    </message>
    <message>
        <source>Track number</source>
        <translation>Numéro de piste</translation>
    </message>
    <message>
        <source>Tracks in total</source>
        <translation>Nombre total de pistes</translation>
    </message>
    <message>
        <source>Disc number</source>
        <translation>Numéro de disque</translation>
    </message>
    <message>
        <source>Discs in total</source>
        <translation>Nombre total de disques</translation>
    </message>
    <message>
        <source>Track</source>
        <translation>Piste</translation>
    </message>
    <message>
        <source>Disc</source>
        <translation>Disque</translation>
    </message>
    <message>
        <source>Ctrl+Return</source>
        <translation>Ctrl+Entrée</translation>
    </message>
    <message>
        <source>of</source>
        <translation>sur</translation>
    </message>
    <message>
        <source>An empty field leaves each song what it has. Only the year is set in any case: empty, the songs have none.</source>
        <translation>Un champ vide laisse à chaque morceau ce qu’il a. Seule l’année est toujours appliquée&#xa0;: vide, les morceaux n’en ont pas.</translation>
    </message>
    <message>
        <source>A new cover goes into all of them.</source>
        <translation>Une nouvelle pochette va à tous.</translation>
    </message>
</context>
<context>
    <name>zib::SongMenu</name>
    <message>
        <source>Play</source>
        <translation>Lire</translation>
    </message>
    <message>
        <source>Love no more</source>
        <translation>Retirer des favoris</translation>
    </message>
    <message>
        <source>Love</source>
        <translation>Ajouter aux favoris</translation>
    </message>
    <message>
        <source>Stop downloading</source>
        <translation>Arrêter le téléchargement</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Télécharger</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Modifier</translation>
    </message>
    <message>
        <source>Information…</source>
        <translation>Informations…</translation>
    </message>
    <message>
        <source>Sort by</source>
        <translation>Trier par</translation>
    </message>
    <message>
        <source>Columns</source>
        <translation>Colonnes</translation>
    </message>
    <message>
        <source>Remove from playlist</source>
        <translation>Retirer de la playlist</translation>
    </message>
    <message>
        <source>Remove from library…</source>
        <translation>Retirer de la bibliothèque…</translation>
    </message>
    <message>
        <source>Add to playlist</source>
        <translation>Ajouter à une playlist</translation>
    </message>
    <message>
        <source>New playlist</source>
        <translation>Nouvelle playlist</translation>
    </message>
    <message>
        <source>Song</source>
        <translation>Morceau</translation>
    </message>
</context>
<context>
    <name>zib::SongRemoval</name>
    <message>
        <source>%1 could not be moved to the trash</source>
        <translation>%1 n’a pas pu être mis à la corbeille</translation>
    </message>
    <message>
        <source>Are you sure you want to remove the selected songs from your music library?</source>
        <translation>Retirer vraiment les morceaux sélectionnés de la bibliothèque&#xa0;?</translation>
    </message>
    <message>
        <source>Any local files will be moved to the trash.</source>
        <translation>Les fichiers locaux seront mis à la corbeille.</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Retirer</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
</context>
<context>
    <name>zib::SongTable</name>
    <message>
        <source>Songs</source>
        <translation>Morceaux</translation>
    </message>
    <message numerus="yes">
        <source>%Ln songs</source>
        <translation>
            <numerusform>%Ln morceau</numerusform>
            <numerusform>%Ln morceaux</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>zib::SongTableLayout</name>
    <message>
        <source>Columns</source>
        <translation>Colonnes</translation>
    </message>
</context>
<context>
    <name>zib::SongTableModel</name>
    <message>
        <source>Now playing</source>
        <translation>En cours de lecture</translation>
    </message>
    <message>
        <source>Loved</source>
        <translation>Favori</translation>
    </message>
    <message>
        <source>Not loved</source>
        <translation>Pas favori</translation>
    </message>
    <message>
        <source>Stop downloading</source>
        <translation>Arrêter le téléchargement</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Télécharger</translation>
    </message>
    <message>
        <source>Downloading</source>
        <translation>En téléchargement</translation>
    </message>
    <message>
        <source>%1% downloaded</source>
        <translation>%1&#xa0;% téléchargés</translation>
    </message>
    <message>
        <source>%1 (broken link)</source>
        <translation>%1 (lien rompu)</translation>
    </message>
    <message numerus="yes">
        <source>%n seconds</source>
        <translation>
            <numerusform>%n seconde</numerusform>
            <numerusform>%n secondes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n minutes</source>
        <translation>
            <numerusform>%n minute</numerusform>
            <numerusform>%n minutes</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 by %2 from %3</source>
        <translation>%1 par %2, de %3</translation>
    </message>
    <message>
        <source>loved</source>
        <translation>favori</translation>
    </message>
    <message>
        <source>now playing</source>
        <translation>en cours de lecture</translation>
    </message>
    <message>
        <source>You are offline: this song is on the web and can’t be played now.</source>
        <translation>Hors ligne&#xa0;: ce morceau est sur le web et ne peut pas être lu maintenant.</translation>
    </message>
    <message>
        <source>This song could not be opened at its address. Play it to try again.</source>
        <translation>Ce morceau n’a pas pu être ouvert à son adresse. Le lire pour réessayer.</translation>
    </message>
    <message>
        <source>Row number</source>
        <translation>Numéro de ligne</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>Artist</source>
        <translation>Artiste</translation>
    </message>
    <message>
        <source>Album</source>
        <translation>Album</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Progression</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Durée</translation>
    </message>
    <message>
        <source>Genre</source>
        <translation>Genre</translation>
    </message>
    <message>
        <source>Year</source>
        <translation>Année</translation>
    </message>
    <message>
        <source>Track number</source>
        <translation>Numéro de piste</translation>
    </message>
    <message>
        <source>Play count</source>
        <translation>Nombre de lectures</translation>
    </message>
    <message>
        <source>Last played</source>
        <translation>Dernière lecture</translation>
    </message>
    <message>
        <source>Hotness</source>
        <translation>Tendance</translation>
    </message>
    <message>
        <source>Familiarity</source>
        <translation>Notoriété</translation>
    </message>
    <message>
        <source>Found</source>
        <translation>Trouvé</translation>
    </message>
    <message>
        <source>#</source>
        <translation>Nº</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Durée</translation>
    </message>
    <message>
        <source>Track</source>
        <translation>Piste</translation>
    </message>
    <message>
        <source>Plays</source>
        <translation>Lectures</translation>
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
        <translation>Nom de la playlist</translation>
    </message>
</context>
<context>
    <name>zib::SourceListView</name>
    <message>
        <source>Sources</source>
        <translation>Sources</translation>
    </message>
    <message numerus="yes">
        <source>%n rows</source>
        <translation>
            <numerusform>%n ligne</numerusform>
            <numerusform>%n lignes</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>zib::SourceModel</name>
    <message>
        <source>Separator</source>
        <translation>Séparateur</translation>
    </message>
    <message>
        <source>Sources</source>
        <translation>Sources</translation>
    </message>
</context>
<context>
    <name>zib::SourcePane</name>
    <message>
        <source>New playlist</source>
        <translation>Nouvelle playlist</translation>
    </message>
    <message>
        <source>New playlist (%1)</source>
        <translation>Nouvelle playlist (%1)</translation>
    </message>
    <message>
        <source>Playlist actions</source>
        <translation>Actions de la playlist</translation>
    </message>
    <message>
        <source>What can be done with it</source>
        <translation>Ce qu’il est possible d’en faire</translation>
    </message>
    <message>
        <source>New playlist from selection</source>
        <translation>Nouvelle playlist à partir de la sélection</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Renommer</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Supprimer</translation>
    </message>
    <message>
        <source>Show the song that plays</source>
        <translation>Afficher le morceau en cours</translation>
    </message>
    <message>
        <source>Share…</source>
        <translation>Partager…</translation>
    </message>
    <message>
        <source>Share on Facebook…</source>
        <translation>Partager sur Facebook…</translation>
    </message>
    <message>
        <source>Share on Twitter…</source>
        <translation>Partager sur Twitter…</translation>
    </message>
    <message>
        <source>Export playlist…</source>
        <translation>Exporter la playlist…</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Lire</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Source</translation>
    </message>
</context>
<context>
    <name>zib::StatusLine</name>
    <message>
        <source>Status</source>
        <translation>État</translation>
    </message>
    <message>
        <source>About the shown songs or link</source>
        <translation>À propos des morceaux affichés ou du lien</translation>
    </message>
</context>
<context>
    <name>zib::TokenField</name>
    <message>
        <source>Remove %1</source>
        <translation>Retirer %1</translation>
    </message>
    <message>
        <source>Click to remove this tag</source>
        <translation>Cliquer pour retirer ce tag</translation>
    </message>
</context>
<context>
    <name>zib::TrackBrowser</name>
    <message>
        <source>All (%1 %2)</source>
        <translation>Tous (%1 %2)</translation>
    </message>
    <message numerus="yes">
        <source>Artists</source>
        <translation>
            <numerusform>artiste</numerusform>
            <numerusform>artistes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Albums</source>
        <translation>
            <numerusform>album</numerusform>
            <numerusform>albums</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>zib::UndoStack</name>
    <message>
        <source>Undone. Press Ctrl+Shift+Z to do it again.</source>
        <translation>Annulé. Rétablir avec Ctrl+Maj+Z.</translation>
    </message>
</context>
<context>
    <name>zib::VolumeSlider</name>
    <message>
        <source>Volume</source>
        <translation>Volume</translation>
    </message>
    <message>
        <source>Volume %1%</source>
        <translation>Volume %1&#xa0;%</translation>
    </message>
</context>
<context>
    <name>zib::WebPane</name>
    <message>
        <source>Information about the song cannot be shown: Zib’s web engine is missing.</source>
        <translation>Les informations sur le morceau ne peuvent pas être affichées&#xa0;: le moteur web de Zib est absent.</translation>
    </message>
</context>
<context>
    <name>zib::WelcomePlace</name>
    <message>
        <source>Welcome</source>
        <translation>Bienvenue</translation>
    </message>
    <message>
        <source>Welcome to Zib</source>
        <translation>Bienvenue dans Zib</translation>
    </message>
    <message>
        <source>Try a tag:</source>
        <translation>Essayer un tag&#xa0;:</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Trouver</translation>
    </message>
    <message>
        <source>Type an artist, some tags, or an artist that others should be similar to. Songs that can be played appear.</source>
        <translation>Taper un artiste, quelques tags, ou un artiste auquel d’autres doivent ressembler. Des morceaux prêts à écouter apparaissent.</translation>
    </message>
    <message>
        <source>Hear</source>
        <translation>Écouter</translation>
    </message>
    <message>
        <source>Double-click a song and it plays. “Now Playing” tells of it, of its artist and of its album.</source>
        <translation>Double-cliquer sur un morceau pour le lire. «&#xa0;En cours de lecture&#xa0;» parle de lui, de son artiste et de son album.</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>Garder</translation>
    </message>
    <message>
        <source>The heart puts a song into your library. Make playlists, download songs, and bring the music that you have.</source>
        <translation>Le cœur met un morceau dans la bibliothèque. Créer des playlists, télécharger des morceaux et apporter sa propre musique.</translation>
    </message>
    <message>
        <source>Add your music…</source>
        <translation>Ajouter de la musique…</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Commencer</translation>
    </message>
    <message>
        <source>Closes this page (Escape)</source>
        <translation>Ferme cette page (Échap)</translation>
    </message>
</context>
<context>
    <name>zib::WidgetBusyPanel</name>
    <message>
        <source>What is being done</source>
        <translation>Ce qui est en cours</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Arrêter</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Progression</translation>
    </message>
</context>
<context>
    <name>zib_catalogue</name>
    <message>
        <source>The song-search service of Zib: finds and streams demo songs and the songs of your own music folders.</source>
        <translation>Le service de recherche de Zib&#xa0;: trouve et diffuse des morceaux de démonstration et ceux des dossiers de musique indiqués.</translation>
    </message>
    <message>
        <source>Answer requests until told to stop.</source>
        <translation>Répondre aux requêtes jusqu’à l’ordre d’arrêt.</translation>
    </message>
    <message>
        <source>Listen on port N; 0 takes a free one.</source>
        <translation>Écouter sur le port N&#xa0;; 0 prend un port libre.</translation>
    </message>
    <message>
        <source>Listen on this numeric address. Others than 127.0.0.1 and ::1 can be reached from outside.</source>
        <translation>Écouter sur cette adresse numérique. Les autres que 127.0.0.1 et ::1 sont joignables de l’extérieur.</translation>
    </message>
    <message>
        <source>Take over this descriptor of a listening socket, in place of --port and --bind.</source>
        <translation>Reprendre ce descripteur d’un socket en écoute, à la place de --port et --bind.</translation>
    </message>
    <message>
        <source>Index the songs in this folder; may stand several times.</source>
        <translation>Indexer les morceaux de ce dossier&#xa0;; peut être répété.</translation>
    </message>
    <message>
        <source>Keep the index and the demo songs in this folder.</source>
        <translation>Garder l’index et les morceaux de démonstration dans ce dossier.</translation>
    </message>
    <message>
        <source>Keep the published playlists on this PostgreSQL server, which several services may share, in place of a file in the data folder.</source>
        <translation>Garder les playlists publiées sur ce serveur PostgreSQL, que plusieurs services peuvent partager, au lieu d’un fichier du dossier de données.</translation>
    </message>
    <message>
        <source>The pages&apos; public addresses begin with this. A proxy on this machine then tells the clients&apos; addresses in X-Forwarded-For.</source>
        <translation>Les adresses publiques des pages commencent ainsi. Un proxy sur cette machine indique alors les adresses des clients dans X-Forwarded-For.</translation>
    </message>
    <message>
        <source>What each address may ask about playlists a minute; publishing counts 20; 0 for no bound.</source>
        <translation>Ce que chaque adresse peut demander par minute sur les playlists&#xa0;; une publication compte 20&#xa0;; 0 pour aucune limite.</translation>
    </message>
    <message>
        <source>Stop when standard input closes, as it does when the parent process ends.</source>
        <translation>S’arrêter quand l’entrée standard se ferme, comme à la fin du processus parent.</translation>
    </message>
    <message>
        <source>--%1 %2: not a number from 0 to %3</source>
        <translation>--%1 %2&#xa0;: pas un nombre de 0 à %3</translation>
    </message>
    <message>
        <source>--music %1: no such folder</source>
        <translation>--music %1&#xa0;: dossier inexistant</translation>
    </message>
    <message>
        <source>--database: not an address that begins with postgresql://</source>
        <translation>--database&#xa0;: pas une adresse qui commence par postgresql://</translation>
    </message>
    <message>
        <source>cannot make the folder %1</source>
        <translation>impossible de créer le dossier %1</translation>
    </message>
    <message>
        <source>cannot start the server</source>
        <translation>impossible de démarrer le serveur</translation>
    </message>
    <message>
        <source>say &quot;zib-catalogue serve&quot;, or --help to see the options</source>
        <translation>utiliser «&#xa0;zib-catalogue serve&#xa0;», ou --help pour voir les options</translation>
    </message>
</context>
</TS>
