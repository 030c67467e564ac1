<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>AboutWindow</name>
    <message>
        <source>window, desktop</source>
        <translation>ventana, escritorio</translation>
    </message>
    <message>
        <source>pages about songs</source>
        <translation>páginas sobre canciones</translation>
    </message>
    <message>
        <source>decoding</source>
        <translation>decodificación</translation>
    </message>
    <message>
        <source>sound</source>
        <translation>sonido</translation>
    </message>
    <message>
        <source>web requests</source>
        <translation>peticiones web</translation>
    </message>
    <message>
        <source>tags</source>
        <translation>etiquetas</translation>
    </message>
    <message>
        <source>replies of services</source>
        <translation>respuestas de los servicios</translation>
    </message>
    <message>
        <source>the library file</source>
        <translation>el archivo de la biblioteca</translation>
    </message>
    <message>
        <source>the bundled service</source>
        <translation>el servicio incluido</translation>
    </message>
    <message>
        <source>results and failures</source>
        <translation>resultados y errores</translation>
    </message>
</context>
<context>
    <name>AccessibleText</name>
    <message>
        <source>Edge of a pane</source>
        <translation>Borde de un panel</translation>
    </message>
</context>
<context>
    <name>ApplicationMenu</name>
    <message>
        <source>Add to library…</source>
        <translation>Añadir a la biblioteca…</translation>
    </message>
    <message>
        <source>Import iTunes library…</source>
        <translation>Importar la biblioteca de iTunes…</translation>
    </message>
    <message>
        <source>Remove iTunes items</source>
        <translation>Quitar los elementos de iTunes</translation>
    </message>
    <message>
        <source>Import playlist…</source>
        <translation>Importar lista…</translation>
    </message>
    <message>
        <source>Import library…</source>
        <translation>Importar biblioteca…</translation>
    </message>
    <message>
        <source>Export library…</source>
        <translation>Exportar biblioteca…</translation>
    </message>
    <message>
        <source>Clean up broken links…</source>
        <translation>Limpiar enlaces rotos…</translation>
    </message>
    <message>
        <source>Preferences…</source>
        <translation>Preferencias…</translation>
    </message>
    <message>
        <source>Welcome</source>
        <translation>Bienvenida</translation>
    </message>
    <message>
        <source>Read me</source>
        <translation>Léame</translation>
    </message>
    <message>
        <source>Website</source>
        <translation>Sitio web</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>Ayuda</translation>
    </message>
    <message>
        <source>Shared playlists</source>
        <translation>Listas compartidas</translation>
    </message>
    <message>
        <source>About Zib</source>
        <translation>Acerca de Zib</translation>
    </message>
    <message>
        <source>Close window</source>
        <translation>Cerrar la ventana</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Salir</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Deshacer</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Rehacer</translation>
    </message>
</context>
<context>
    <name>AudioStreamer</name>
    <message>
        <source>Export failed</source>
        <translation>La exportación falló</translation>
    </message>
</context>
<context>
    <name>Database</name>
    <message>
        <source>made by a newer version of this program</source>
        <translation>creado por una versión más reciente de este programa</translation>
    </message>
</context>
<context>
    <name>Errors</name>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>File Error</source>
        <translation>Error de archivo</translation>
    </message>
    <message>
        <source>Unable to configure network read stream.</source>
        <translation>No se pudo configurar el flujo de lectura de red.</translation>
    </message>
</context>
<context>
    <name>FileViewController</name>
    <message>
        <source>“%1” stays as it is. %2</source>
        <translation>«%1» se queda como está. %2</translation>
    </message>
</context>
<context>
    <name>Icons</name>
    <message>
        <source>Clear</source>
        <translation>Borrar</translation>
    </message>
</context>
<context>
    <name>LibraryExport</name>
    <message>
        <source>Writing %1 failed: %2.</source>
        <translation>No se pudo escribir %1: %2.</translation>
    </message>
    <message>
        <source>There is no music library at %1.</source>
        <translation>No hay ninguna biblioteca de música en %1.</translation>
    </message>
    <message>
        <source>The music library at %1 cannot be read: %2.</source>
        <translation>No se puede leer la biblioteca de música de %1: %2.</translation>
    </message>
    <message>
        <source>%1 is the music library itself; choose another file.</source>
        <translation>%1 es la propia biblioteca; elija otro archivo.</translation>
    </message>
</context>
<context>
    <name>LibraryFile</name>
    <message>
        <source>the file cannot be deciphered</source>
        <translation>no se puede descifrar el archivo</translation>
    </message>
</context>
<context>
    <name>ListPanels</name>
    <message>
        <source>XML property list (*.xml)</source>
        <translation>Lista de propiedades XML (*.xml)</translation>
    </message>
    <message>
        <source>Export playlist</source>
        <translation>Exportar lista</translation>
    </message>
    <message>
        <source>M3U8 playlist (*.m3u8)</source>
        <translation>Lista M3U8 (*.m3u8)</translation>
    </message>
    <message>
        <source>XSPF playlist (*.xspf)</source>
        <translation>Lista XSPF (*.xspf)</translation>
    </message>
    <message>
        <source>JSPF playlist (*.jspf)</source>
        <translation>Lista JSPF (*.jspf)</translation>
    </message>
    <message>
        <source>Import playlist</source>
        <translation>Importar lista</translation>
    </message>
    <message>
        <source>Playlists (*.m3u8 *.m3u *.xspf *.jspf)</source>
        <translation>Listas (*.m3u8 *.m3u *.xspf *.jspf)</translation>
    </message>
    <message>
        <source>Export library</source>
        <translation>Exportar biblioteca</translation>
    </message>
    <message>
        <source>Zib Music Library</source>
        <translation>Biblioteca de música de Zib</translation>
    </message>
    <message>
        <source>Import library</source>
        <translation>Importar biblioteca</translation>
    </message>
    <message>
        <source>Format:</source>
        <translation>Formato:</translation>
    </message>
</context>
<context>
    <name>ListeningSocket</name>
    <message>
        <source>%1 is no numeric address</source>
        <translation>%1 no es una dirección numérica</translation>
    </message>
    <message>
        <source>cannot listen on %1 port %2: %3</source>
        <translation>no se puede escuchar en %1, puerto %2: %3</translation>
    </message>
    <message>
        <source>descriptor %1 is no listening socket</source>
        <translation>el descriptor %1 no es un socket a la escucha</translation>
    </message>
    <message>
        <source>descriptor %1 is no TCP socket</source>
        <translation>el descriptor %1 no es un socket TCP</translation>
    </message>
</context>
<context>
    <name>LoveActions</name>
    <message>
        <source>You just loved a song. This is a good thing! The more songs you love, the better recommendations you get.</source>
        <translation>Una canción más entre las favoritas. ¡Eso está bien! Cuantas más favoritas, mejores recomendaciones.</translation>
    </message>
</context>
<context>
    <name>MovieFile</name>
    <message>
        <source>“%1” is not a file.</source>
        <translation>«%1» no es un archivo.</translation>
    </message>
    <message>
        <source>“%1” could not be opened: %2</source>
        <translation>No se pudo abrir «%1»: %2</translation>
    </message>
    <message>
        <source>“%1” holds no sound that can be played.</source>
        <translation>«%1» no contiene ningún sonido que se pueda reproducir.</translation>
    </message>
</context>
<context>
    <name>MusicFolder</name>
    <message>
        <source>The music folder could not be moved: %1.</source>
        <translation>No se pudo mover la carpeta de música: %1.</translation>
    </message>
</context>
<context>
    <name>MusicFolderGuard</name>
    <message>
        <source>No file can have the name “%1”.</source>
        <translation>Ningún archivo puede llamarse «%1».</translation>
    </message>
    <message>
        <source>The name “%1” is too long for a file.</source>
        <translation>El nombre «%1» es demasiado largo para un archivo.</translation>
    </message>
    <message>
        <source>The path “%1” is too long for a file.</source>
        <translation>La ruta «%1» es demasiado larga para un archivo.</translation>
    </message>
    <message>
        <source>“%1” lies outside the music folder.</source>
        <translation>«%1» está fuera de la carpeta de música.</translation>
    </message>
</context>
<context>
    <name>Notices</name>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Zib!</source>
        <translation>¡Zib!</translation>
    </message>
</context>
<context>
    <name>NoticesPage</name>
    <message>
        <source>When a song is loved</source>
        <translation>Al marcar una canción como favorita</translation>
    </message>
    <message>
        <source>Before a song is downloaded</source>
        <translation>Antes de descargar una canción</translation>
    </message>
    <message>
        <source>Before a playlist is removed</source>
        <translation>Antes de quitar una lista</translation>
    </message>
    <message>
        <source>Before songs with broken links are removed</source>
        <translation>Antes de quitar canciones con enlaces rotos</translation>
    </message>
    <message>
        <source>Before an iTunes library is imported</source>
        <translation>Antes de importar una biblioteca de iTunes</translation>
    </message>
    <message>
        <source>When “What&apos;s Hot?” is opened</source>
        <translation>Al abrir «¿Qué está de moda?»</translation>
    </message>
    <message>
        <source>When “Recommended” is opened</source>
        <translation>Al abrir «Recomendadas»</translation>
    </message>
</context>
<context>
    <name>PageTemplates</name>
    <message>
        <source>Now playing &lt;b&gt;%track&lt;/b&gt; by</source>
        <translation>Suena &lt;b&gt;%track&lt;/b&gt;, de</translation>
    </message>
    <message>
        <source>Familiarity</source>
        <translation>Notoriedad</translation>
    </message>
    <message>
        <source>Hotness</source>
        <translation>Tendencia</translation>
    </message>
    <message>
        <source>Tags:</source>
        <translation>Etiquetas:</translation>
    </message>
    <message>
        <source>Similar Artists:</source>
        <translation>Artistas similares:</translation>
    </message>
    <message>
        <source>MORE MUSIC&lt;br&gt;LIKE THIS!</source>
        <translation>¡MÁS MÚSICA&lt;br&gt;COMO ESTA!</translation>
    </message>
    <message>
        <source>by %artist</source>
        <translation>de %artist</translation>
    </message>
    <message>
        <source>Type: &lt;b&gt;%type&lt;/b&gt;</source>
        <translation>Tipo: &lt;b&gt;%type&lt;/b&gt;</translation>
    </message>
    <message>
        <source>Released: &lt;b&gt;%date&lt;/b&gt;</source>
        <translation>Publicación: &lt;b&gt;%date&lt;/b&gt;</translation>
    </message>
    <message>
        <source>Label: &lt;b&gt;%label&lt;/b&gt;</source>
        <translation>Sello: &lt;b&gt;%label&lt;/b&gt;</translation>
    </message>
    <message>
        <source>Artist</source>
        <translation>Artista</translation>
    </message>
</context>
<context>
    <name>PageWords</name>
    <message>
        <source>Artist</source>
        <translation>Artista</translation>
    </message>
    <message>
        <source>Album</source>
        <translation>Álbum</translation>
    </message>
    <message>
        <source>Song</source>
        <translation>Canción</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>Imágenes</translation>
    </message>
    <message>
        <source>Videos</source>
        <translation>Vídeos</translation>
    </message>
    <message>
        <source>Blogs</source>
        <translation>Blogs</translation>
    </message>
    <message>
        <source>News</source>
        <translation>Noticias</translation>
    </message>
    <message>
        <source>Reviews</source>
        <translation>Críticas</translation>
    </message>
    <message>
        <source>Familiarity</source>
        <translation>Notoriedad</translation>
    </message>
    <message>
        <source>Hotness</source>
        <translation>Tendencia</translation>
    </message>
</context>
<context>
    <name>PlaybackQueue</name>
    <message>
        <source>You are not connected to the Internet</source>
        <translation>No hay conexión a Internet</translation>
    </message>
    <message>
        <source>This computer’s Internet connection appears to be offline.</source>
        <translation>Este equipo no parece estar conectado a Internet.</translation>
    </message>
    <message>
        <source>Buffering...</source>
        <translation>Almacenando en búfer...</translation>
    </message>
    <message>
        <source>Idle</source>
        <translation>En reposo</translation>
    </message>
    <message>
        <source>Playing from disk</source>
        <translation>Reproduciendo desde el disco</translation>
    </message>
    <message>
        <source>Streaming...</source>
        <translation>Reproduciendo en streaming...</translation>
    </message>
</context>
<context>
    <name>PlaylistFile</name>
    <message>
        <source>It is no JSPF playlist.</source>
        <translation>No es una lista JSPF.</translation>
    </message>
    <message>
        <source>It is a single stream, not a list of songs.</source>
        <translation>Es una sola transmisión, no una lista de canciones.</translation>
    </message>
    <message>
        <source>The name of the file must end in .m3u8, .xspf or .jspf.</source>
        <translation>El nombre del archivo debe terminar en .m3u8, .xspf o .jspf.</translation>
    </message>
    <message>
        <source>Writing %1 failed: %2.</source>
        <translation>No se pudo escribir %1: %2.</translation>
    </message>
    <message>
        <source>The file is too large.</source>
        <translation>El archivo es demasiado grande.</translation>
    </message>
    <message>
        <source>It holds more than %1 songs.</source>
        <translation>Contiene más de %1 canciones.</translation>
    </message>
    <message>
        <source>It is no XSPF playlist.</source>
        <translation>No es una lista XSPF.</translation>
    </message>
</context>
<context>
    <name>RVDataDownloader</name>
    <message>
        <source>No title</source>
        <translation>Sin título</translation>
    </message>
    <message>
        <source>No summary available</source>
        <translation>Sin resumen disponible</translation>
    </message>
    <message>
        <source>No date</source>
        <translation>Sin fecha</translation>
    </message>
    <message>
        <source>No data found</source>
        <translation>No se encontraron datos</translation>
    </message>
</context>
<context>
    <name>RVFileDownloader</name>
    <message>
        <source>The server answered with error %1.</source>
        <translation>El servidor respondió con el error %1.</translation>
    </message>
    <message>
        <source>Could not establish a connection</source>
        <translation>No se pudo establecer la conexión</translation>
    </message>
</context>
<context>
    <name>RVMainController</name>
    <message>
        <source>You are about to import your iTunes music library. Songs will be added by reference. No songs will be duplicated on disk.</source>
        <translation>Se va a importar la biblioteca de iTunes. Las canciones se añaden por referencia; no se duplica nada en el disco.</translation>
    </message>
    <message>
        <source>The playlist could not be exported.</source>
        <translation>No se pudo exportar la lista.</translation>
    </message>
    <message>
        <source>Are you sure you want to edit information for multiple items?</source>
        <translation>¿Seguro que desea editar la información de varios elementos?</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Editar</translation>
    </message>
    <message>
        <source>Not all songs could be changed.</source>
        <translation>No se pudieron cambiar todas las canciones.</translation>
    </message>
    <message>
        <source>You are about to remove all songs with broken links from your music library and playlists.</source>
        <translation>Se van a quitar de la biblioteca y de las listas todas las canciones con enlaces rotos.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln songs</source>
        <translation>
            <numerusform>%Ln canción</numerusform>
            <numerusform>%Ln canciones</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>RVPlaylistDownloader</name>
    <message>
        <source>no connection</source>
        <translation>sin conexión</translation>
    </message>
    <message>
        <source>Could not connect to server</source>
        <translation>No se pudo conectar con el servidor</translation>
    </message>
    <message>
        <source>No songs found. Please check your spelling or try another search.</source>
        <translation>No se encontraron canciones. Revise la ortografía o pruebe otra búsqueda.</translation>
    </message>
</context>
<context>
    <name>RVPlaylistUploader</name>
    <message>
        <source>Could not connect to server</source>
        <translation>No se pudo conectar con el servidor</translation>
    </message>
</context>
<context>
    <name>RVSongInfoDownloader</name>
    <message>
        <source>Unknown Artist</source>
        <translation>Artista desconocido</translation>
    </message>
    <message>
        <source>Unknown Album</source>
        <translation>Álbum desconocido</translation>
    </message>
    <message>
        <source>Unknown Song</source>
        <translation>Canción desconocida</translation>
    </message>
</context>
<context>
    <name>RVWebViewController</name>
    <message>
        <source>Search for songs by artists like these</source>
        <translation>Buscar canciones de artistas como estos</translation>
    </message>
    <message>
        <source>Search for songs with all of these tags</source>
        <translation>Buscar canciones con todas estas etiquetas</translation>
    </message>
    <message>
        <source>Search for songs by %@</source>
        <translation>Buscar canciones de %@</translation>
    </message>
    <message>
        <source>Search for songs tagged %@</source>
        <translation>Buscar canciones con la etiqueta %@</translation>
    </message>
    <message>
        <source>Click to enlarge</source>
        <translation>Haga clic para ampliar</translation>
    </message>
    <message>
        <source>Or try a tag:</source>
        <translation>O pruebe una etiqueta:</translation>
    </message>
    <message>
        <source>We couldn&apos;t find any wiki, video or lyrics for this song.</source>
        <translation>No se encontró wiki, vídeo ni letra de esta canción.</translation>
    </message>
    <message>
        <source>We couldn&apos;t find any images for %@.</source>
        <translation>No se encontraron imágenes de %@.</translation>
    </message>
    <message>
        <source>What artist do you want to play next?</source>
        <translation>¿Qué artista quiere escuchar ahora?</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Desconocido</translation>
    </message>
    <message>
        <source>Sorry!</source>
        <translation>¡Lo sentimos!</translation>
    </message>
    <message>
        <source>No wiki available</source>
        <translation>No hay wiki disponible</translation>
    </message>
    <message>
        <source>Videos for %@</source>
        <translation>Vídeos de %@</translation>
    </message>
    <message>
        <source>We couldn&apos;t find any Videos for %@.</source>
        <translation>No se encontraron vídeos de %@.</translation>
    </message>
    <message>
        <source>Blogs for %@</source>
        <translation>Blogs sobre %@</translation>
    </message>
    <message>
        <source>We couldn&apos;t find any Blogs for %@.</source>
        <translation>No se encontraron blogs sobre %@.</translation>
    </message>
    <message>
        <source>News for %@</source>
        <translation>Noticias de %@</translation>
    </message>
    <message>
        <source>We couldn&apos;t find any News for %@.</source>
        <translation>No se encontraron noticias de %@.</translation>
    </message>
    <message>
        <source>Reviews for %@</source>
        <translation>Críticas de %@</translation>
    </message>
    <message>
        <source>We couldn&apos;t find any Reviews for %@.</source>
        <translation>No se encontraron críticas de %@.</translation>
    </message>
    <message numerus="yes">
        <source>Showing 1 - %1 of %n images</source>
        <translation>
            <numerusform>Imagen 1 - %1 de %n</numerusform>
            <numerusform>Imágenes 1 - %1 de %n</numerusform>
        </translation>
    </message>
    <message>
        <source>combo search</source>
        <translation>búsqueda combinada</translation>
    </message>
    <message>
        <source>Read less...</source>
        <translation>Leer menos...</translation>
    </message>
    <message>
        <source>Read more...</source>
        <translation>Leer más...</translation>
    </message>
    <message>
        <source>Show more...</source>
        <translation>Mostrar más...</translation>
    </message>
    <message>
        <source>Found on %1</source>
        <translation>Encontrado en %1</translation>
    </message>
    <message>
        <source>Watch video...</source>
        <translation>Ver vídeo...</translation>
    </message>
    <message>
        <source>Source: %1</source>
        <translation>Fuente: %1</translation>
    </message>
</context>
<context>
    <name>RemovedLists</name>
    <message numerus="yes">
        <source>%Ln searches removed. Press Ctrl+Z to undo.</source>
        <translation>
            <numerusform>%Ln búsqueda eliminada. Deshacer con Control+Z.</numerusform>
            <numerusform>%Ln búsquedas eliminadas. Deshacer con Control+Z.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Undo remove %Ln searches</source>
        <translation>
            <numerusform>Deshacer la eliminación de %Ln búsqueda</numerusform>
            <numerusform>Deshacer la eliminación de %Ln búsquedas</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Redo remove %Ln searches</source>
        <translation>
            <numerusform>Rehacer la eliminación de %Ln búsqueda</numerusform>
            <numerusform>Rehacer la eliminación de %Ln búsquedas</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln playlists removed. Press Ctrl+Z to undo.</source>
        <translation>
            <numerusform>%Ln lista eliminada. Deshacer con Control+Z.</numerusform>
            <numerusform>%Ln listas eliminadas. Deshacer con Control+Z.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Undo remove %Ln playlists</source>
        <translation>
            <numerusform>Deshacer la eliminación de %Ln lista</numerusform>
            <numerusform>Deshacer la eliminación de %Ln listas</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Redo remove %Ln playlists</source>
        <translation>
            <numerusform>Rehacer la eliminación de %Ln lista</numerusform>
            <numerusform>Rehacer la eliminación de %Ln listas</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SearchFlow</name>
    <message>
        <source>Tag(s)</source>
        <translation>Etiqueta(s)</translation>
    </message>
    <message>
        <source>Artist</source>
        <translation>Artista</translation>
    </message>
</context>
<context>
    <name>ServiceProbe</name>
    <message>
        <source>The server reports an error of its own (%1).</source>
        <translation>El servidor informa de un error propio (%1).</translation>
    </message>
    <message>
        <source>No request can be made to it.</source>
        <translation>No se le puede hacer ninguna petición.</translation>
    </message>
</context>
<context>
    <name>ServicesPage</name>
    <message>
        <source>Song search</source>
        <translation>Búsqueda de canciones</translation>
    </message>
    <message>
        <source>Is sent what you search for, artists of your library when it recommends songs, and the artist that plays.</source>
        <translation>Recibe lo que se busca, artistas de la biblioteca cuando recomienda canciones y el artista que suena.</translation>
    </message>
    <message>
        <source>Music information</source>
        <translation>Información musical</translation>
    </message>
    <message>
        <source>Is sent artist, album and name of the song that plays.</source>
        <translation>Recibe el artista, el álbum y el nombre de la canción que suena.</translation>
    </message>
    <message>
        <source>Lyrics</source>
        <translation>Letras</translation>
    </message>
    <message>
        <source>Is sent artist and name of the song whose page you look at.</source>
        <translation>Recibe el artista y el nombre de la canción cuya página se muestra.</translation>
    </message>
    <message>
        <source>Releases</source>
        <translation>Lanzamientos</translation>
    </message>
    <message>
        <source>Is sent artist and album of the song whose page you look at.</source>
        <translation>Recibe el artista y el álbum de la canción cuya página se muestra.</translation>
    </message>
    <message>
        <source>Shared playlists</source>
        <translation>Listas compartidas</translation>
    </message>
    <message>
        <source>Is sent the playlists that you share, with your name for others.</source>
        <translation>Recibe las listas que se comparten, con el nombre que ven los demás.</translation>
    </message>
    <message>
        <source>Videos</source>
        <translation>Vídeos</translation>
    </message>
    <message>
        <source>Learns which video you look at.</source>
        <translation>Sabe qué vídeo se ve.</translation>
    </message>
    <message>
        <source>Share on Facebook</source>
        <translation>Compartir en Facebook</translation>
    </message>
    <message>
        <source>Is opened in your browser with the playlist&apos;s link.</source>
        <translation>Se abre en el navegador con el enlace de la lista.</translation>
    </message>
    <message>
        <source>Share on Twitter</source>
        <translation>Compartir en Twitter</translation>
    </message>
</context>
<context>
    <name>SharingFlow</name>
    <message>
        <source>You can only share regular playlists.</source>
        <translation>Solo se pueden compartir listas normales.</translation>
    </message>
    <message>
        <source>A shared playlist must contain at least 1 song</source>
        <translation>Una lista compartida debe contener al menos 1 canción</translation>
    </message>
    <message>
        <source>A shared playlist cannot contain more than 50 songs</source>
        <translation>Una lista compartida no puede contener más de 50 canciones</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Advertencia</translation>
    </message>
    <message>
        <source>The selected playlist contains one or more songs that cannot be played remotely. These songs will be removed from your shared playlist. Do you want to continue?</source>
        <translation>La lista seleccionada contiene una o más canciones que no se pueden reproducir de forma remota. Esas canciones se quitarán de la lista compartida. ¿Desea continuar?</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Continuar</translation>
    </message>
    <message>
        <source>No streamable songs in this playlist</source>
        <translation>No hay canciones para streaming en esta lista</translation>
    </message>
    <message>
        <source>Sharing your playlist</source>
        <translation>Compartiendo la lista</translation>
    </message>
    <message>
        <source>The server&apos;s answer was not understood.</source>
        <translation>No se entendió la respuesta del servidor.</translation>
    </message>
    <message>
        <source>You just shared a playlist. The public link to this playlist is:

%1

The link has been copied to the clipboard.</source>
        <translation>Se ha compartido una lista. El enlace público de esta lista es:

%1

El enlace se ha copiado al portapapeles.</translation>
    </message>
    <message>
        <source>Share on Twitter</source>
        <translation>Compartir en Twitter</translation>
    </message>
    <message>
        <source>Share on Facebook</source>
        <translation>Compartir en Facebook</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>This shared playlist could not be opened.</source>
        <translation>No se pudo abrir esta lista compartida.</translation>
    </message>
</context>
<context>
    <name>SongCells</name>
    <message>
        <source>Unknown Artist</source>
        <translation>Artista desconocido</translation>
    </message>
    <message>
        <source>Unknown Album</source>
        <translation>Álbum desconocido</translation>
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
        <translation>No se pudo cambiar «%1».</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
</context>
<context>
    <name>SongFiles</name>
    <message>
        <source>There is another file at “%1” already.</source>
        <translation>Ya hay otro archivo en «%1».</translation>
    </message>
    <message>
        <source>The file “%1” could not be written: %2.</source>
        <translation>No se pudo escribir el archivo «%1»: %2.</translation>
    </message>
    <message>
        <source>The folder “%1” could not be created: %2.</source>
        <translation>No se pudo crear la carpeta «%1»: %2.</translation>
    </message>
    <message>
        <source>The file “%1” could not be read: %2.</source>
        <translation>No se pudo leer el archivo «%1»: %2.</translation>
    </message>
</context>
<context>
    <name>SongPaths</name>
    <message>
        <source>Unknown Artist</source>
        <translation>Artista desconocido</translation>
    </message>
    <message>
        <source>Unknown Album</source>
        <translation>Álbum desconocido</translation>
    </message>
</context>
<context>
    <name>SongsRemovedFromLibrary</name>
    <message numerus="yes">
        <source>%Ln songs removed from the library. Press Ctrl+Z to undo.</source>
        <translation>
            <numerusform>%Ln canción eliminada de la biblioteca. Deshacer con Control+Z.</numerusform>
            <numerusform>%Ln canciones eliminadas de la biblioteca. Deshacer con Control+Z.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Undo remove %Ln songs</source>
        <translation>
            <numerusform>Deshacer la eliminación de %Ln canción</numerusform>
            <numerusform>Deshacer la eliminación de %Ln canciones</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Redo remove %Ln songs</source>
        <translation>
            <numerusform>Rehacer la eliminación de %Ln canción</numerusform>
            <numerusform>Rehacer la eliminación de %Ln canciones</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files could not be brought back from the trash.</source>
        <translation>
            <numerusform>%Ln archivo no se pudo recuperar de la papelera.</numerusform>
            <numerusform>%Ln archivos no se pudieron recuperar de la papelera.</numerusform>
        </translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
</context>
<context>
    <name>SongsRemovedFromPlaylist</name>
    <message numerus="yes">
        <source>%Ln songs removed from the playlist. Press Ctrl+Z to undo.</source>
        <translation>
            <numerusform>%Ln canción eliminada de la lista. Deshacer con Control+Z.</numerusform>
            <numerusform>%Ln canciones eliminadas de la lista. Deshacer con Control+Z.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Undo remove %Ln songs from the playlist</source>
        <translation>
            <numerusform>Deshacer la eliminación de %Ln canción de la lista</numerusform>
            <numerusform>Deshacer la eliminación de %Ln canciones de la lista</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Redo remove %Ln songs from the playlist</source>
        <translation>
            <numerusform>Rehacer la eliminación de %Ln canción de la lista</numerusform>
            <numerusform>Rehacer la eliminación de %Ln canciones de la lista</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SourceList</name>
    <message>
        <source>Now Playing</source>
        <translation>En reproducción</translation>
    </message>
    <message>
        <source>What&apos;s Hot?</source>
        <translation>¿Qué está de moda?</translation>
    </message>
    <message>
        <source>Recommended</source>
        <translation>Recomendadas</translation>
    </message>
    <message>
        <source>Songs that are talked about now. They come from the web.</source>
        <translation>Canciones de las que se habla ahora. Vienen de la web.</translation>
    </message>
    <message>
        <source>Songs like those that you love. They come from the web.</source>
        <translation>Canciones parecidas a las favoritas. Vienen de la web.</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>Música</translation>
    </message>
    <message>
        <source>Downloads</source>
        <translation>Descargas</translation>
    </message>
    <message>
        <source>Imported</source>
        <translation>Importadas</translation>
    </message>
    <message>
        <source>Favorites</source>
        <translation>Favoritas</translation>
    </message>
    <message>
        <source>This computer’s Internet connection appears to be offline.</source>
        <translation>Este equipo no parece estar conectado a Internet.</translation>
    </message>
    <message>
        <source>This playlist contains songs currently hyped on social networks like Facebook and Twitter.</source>
        <translation>Esta lista contiene canciones que ahora triunfan en redes sociales como Facebook y Twitter.</translation>
    </message>
    <message>
        <source>This playlist contains songs we think you may like. To start getting personal recommendations you must first mark a few songs as favorites. You do this by clicking the Love button next to the song&apos;s title.</source>
        <translation>Esta lista contiene canciones que podrían gustarle. Para recibir recomendaciones personales, primero hay que marcar algunas canciones como favoritas pulsando el corazón junto al título.</translation>
    </message>
    <message>
        <source>Are you sure you want to remove the selected playlist?</source>
        <translation>¿Seguro que desea quitar la lista seleccionada?</translation>
    </message>
    <message>
        <source>This action cannot be undone.</source>
        <translation>Esta acción no se puede deshacer.</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Quitar</translation>
    </message>
    <message>
        <source>Recent Searches</source>
        <translation>Búsquedas recientes</translation>
    </message>
    <message>
        <source>Library</source>
        <translation>Biblioteca</translation>
    </message>
    <message>
        <source>Playlists</source>
        <translation>Listas</translation>
    </message>
    <message>
        <source>Untitled playlist</source>
        <translation>Lista sin título</translation>
    </message>
</context>
<context>
    <name>TimeString</name>
    <message>
        <source>%.1f days</source>
        <translation>%.1f días</translation>
    </message>
</context>
<context>
    <name>UrlConnection</name>
    <message>
        <source>This address cannot be opened.</source>
        <translation>No se puede abrir esta dirección.</translation>
    </message>
    <message>
        <source>The server did not answer in time.</source>
        <translation>El servidor no respondió a tiempo.</translation>
    </message>
    <message>
        <source>The server&apos;s reply is too large.</source>
        <translation>La respuesta del servidor es demasiado grande.</translation>
    </message>
    <message>
        <source>The server could not be found.</source>
        <translation>No se encontró el servidor.</translation>
    </message>
    <message>
        <source>The server could not be reached.</source>
        <translation>No se pudo contactar con el servidor.</translation>
    </message>
    <message>
        <source>The server redirects without end.</source>
        <translation>El servidor redirige sin fin.</translation>
    </message>
    <message>
        <source>The server closed the connection early.</source>
        <translation>El servidor cerró la conexión antes de tiempo.</translation>
    </message>
    <message>
        <source>No secure connection to the server could be made.</source>
        <translation>No se pudo establecer una conexión segura con el servidor.</translation>
    </message>
    <message>
        <source>The server&apos;s reply could not be understood.</source>
        <translation>No se entendió la respuesta del servidor.</translation>
    </message>
</context>
<context>
    <name>WebServiceClient</name>
    <message>
        <source>Connection failed</source>
        <translation>La conexión falló</translation>
    </message>
    <message>
        <source>No server response</source>
        <translation>El servidor no responde</translation>
    </message>
</context>
<context>
    <name>WidgetAlerts</name>
    <message>
        <source>Do not show this message again</source>
        <translation>No volver a mostrar este mensaje</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Speak to the services at this base address (http://HOST[:PORT]).</source>
        <translation>Usar los servicios de esta dirección base (http://HOST[:PORT]).</translation>
    </message>
    <message>
        <source>Write the library as a property list to FILE (- for standard output) and end.</source>
        <translation>Escribir la biblioteca en FILE como lista de propiedades (- es la salida estándar) y terminar.</translation>
    </message>
    <message>
        <source>Play, or pause what plays, without showing the window.</source>
        <translation>Reproducir o pausar sin mostrar la ventana.</translation>
    </message>
    <message>
        <source>Go to the next song.</source>
        <translation>Ir a la canción siguiente.</translation>
    </message>
    <message>
        <source>Go to the beginning of the song, from there to the one before.</source>
        <translation>Ir al principio de la canción y, desde ahí, a la anterior.</translation>
    </message>
    <message>
        <source>Finds, plays and keeps music.</source>
        <translation>Encuentra, reproduce y guarda música.</translation>
    </message>
    <message>
        <source>Show the options and end.</source>
        <translation>Mostrar las opciones y terminar.</translation>
    </message>
    <message>
        <source>Sound files and folders to add to the library, or zib:// addresses.</source>
        <translation>Archivos de sonido y carpetas que añadir a la biblioteca, o direcciones zib://.</translation>
    </message>
    <message>
        <source>there is no file “%1”</source>
        <translation>no existe el archivo «%1»</translation>
    </message>
    <message>
        <source>“%1” is no address such as http://127.0.0.1:8080</source>
        <translation>«%1» no es una dirección como http://127.0.0.1:8080</translation>
    </message>
</context>
<context>
    <name>zib::AboutWindow</name>
    <message>
        <source>About</source>
        <translation>Acerca de</translation>
    </message>
    <message>
        <source>Website</source>
        <translation>Sitio web</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Versión %1</translation>
    </message>
    <message>
        <source>Find music, hear it, keep what you love.</source>
        <translation>Encontrar música, oírla, guardarla.</translation>
    </message>
    <message>
        <source>Free software: use, study, share and improve it under the GNU General Public License, version 3 or later. It comes without any warranty.</source>
        <translation>Software libre: se puede usar, estudiar, compartir y mejorar según la Licencia Pública General de GNU, versión 3 o posterior. Sin ninguna garantía.</translation>
    </message>
    <message>
        <source>Built on</source>
        <translation>Construido con</translation>
    </message>
</context>
<context>
    <name>zib::AddToLibraryPanel</name>
    <message>
        <source>Sound files (%1)</source>
        <translation>Archivos de sonido (%1)</translation>
    </message>
    <message>
        <source>Add to library</source>
        <translation>Añadir a la biblioteca</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Añadir</translation>
    </message>
</context>
<context>
    <name>zib::AppDelegate</name>
    <message>
        <source>Adding songs to your library</source>
        <translation>Añadiendo canciones a la biblioteca</translation>
    </message>
    <message>
        <source>Adding %1</source>
        <translation>Añadiendo %1</translation>
    </message>
    <message>
        <source>No songs were found</source>
        <translation>No se encontraron canciones</translation>
    </message>
    <message>
        <source>Importing your iTunes library</source>
        <translation>Importando la biblioteca de iTunes</translation>
    </message>
    <message>
        <source>No iTunes music library found!</source>
        <translation>¡No se encontró ninguna biblioteca de iTunes!</translation>
    </message>
    <message>
        <source>Songs are being added to the music folder. Please wait for the end of that.</source>
        <translation>Se están añadiendo canciones a la carpeta de música. Espere a que termine.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln songs added</source>
        <translation>
            <numerusform>%Ln canción añadida</numerusform>
            <numerusform>%Ln canciones añadidas</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>zib::BusyGear</name>
    <message>
        <source>Busy</source>
        <translation>Ocupado</translation>
    </message>
</context>
<context>
    <name>zib::BusyIndicator</name>
    <message>
        <source>Busy</source>
        <translation>Ocupado</translation>
    </message>
</context>
<context>
    <name>zib::CatalogueProcess</name>
    <message>
        <source>The song catalogue could not be started, so searches find nothing.</source>
        <translation>No se pudo iniciar el catálogo de canciones, así que las búsquedas no encuentran nada.</translation>
    </message>
</context>
<context>
    <name>zib::ControlBar</name>
    <message>
        <source>Back</source>
        <translation>Anterior</translation>
    </message>
    <message>
        <source>Previous song (Ctrl+Left)</source>
        <translation>Canción anterior (Control+Izquierda)</translation>
    </message>
    <message>
        <source>Play or pause</source>
        <translation>Reproducir o pausar</translation>
    </message>
    <message>
        <source>Play or pause (Space)</source>
        <translation>Reproducir o pausar (Espacio)</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Siguiente</translation>
    </message>
    <message>
        <source>Next song (Ctrl+Right)</source>
        <translation>Canción siguiente (Control+Derecha)</translation>
    </message>
    <message>
        <source>Love</source>
        <translation>Marcar como favorita</translation>
    </message>
    <message>
        <source>Love this song (Ctrl+L)</source>
        <translation>Marcar esta canción como favorita (Control+L)</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Descargar</translation>
    </message>
    <message>
        <source>Download this song (Ctrl+D)</source>
        <translation>Descargar esta canción (Control+D)</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menú</translation>
    </message>
    <message>
        <source>Pause (Space)</source>
        <translation>Pausar (Espacio)</translation>
    </message>
    <message>
        <source>Play (Space)</source>
        <translation>Reproducir (Espacio)</translation>
    </message>
    <message>
        <source>Love this song no more (Ctrl+L)</source>
        <translation>Quitar esta canción de las favoritas (Control+L)</translation>
    </message>
    <message>
        <source>This song is on your disk</source>
        <translation>Esta canción está en el disco</translation>
    </message>
    <message>
        <source>This song is being downloaded</source>
        <translation>Esta canción se está descargando</translation>
    </message>
</context>
<context>
    <name>zib::CoverField</name>
    <message>
        <source>Replace…</source>
        <translation>Reemplazar…</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Quitar</translation>
    </message>
    <message>
        <source>Replace the cover</source>
        <translation>Reemplazar la portada</translation>
    </message>
    <message>
        <source>Only songs with a file of their own have a cover that can be changed</source>
        <translation>Solo se puede cambiar la portada de canciones con archivo propio</translation>
    </message>
    <message>
        <source>Remove the cover</source>
        <translation>Quitar la portada</translation>
    </message>
    <message>
        <source>Choose a cover</source>
        <translation>Elegir una portada</translation>
    </message>
    <message>
        <source>Pictures (%1)</source>
        <translation>Imágenes (%1)</translation>
    </message>
    <message>
        <source>The picture is larger than 6 MB.</source>
        <translation>La imagen ocupa más de 6&#xa0;MB.</translation>
    </message>
    <message>
        <source>A cover is a picture in a PNG or JPEG file.</source>
        <translation>Una portada es una imagen en un archivo PNG o JPEG.</translation>
    </message>
    <message>
        <source>No cover</source>
        <translation>Sin portada</translation>
    </message>
    <message>
        <source>Cover</source>
        <translation>Portada</translation>
    </message>
</context>
<context>
    <name>zib::DesktopNotifications</name>
    <message>
        <source>Show Zib</source>
        <translation>Mostrar Zib</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Siguiente</translation>
    </message>
</context>
<context>
    <name>zib::DesktopPage</name>
    <message>
        <source>Notifications</source>
        <translation>Notificaciones</translation>
    </message>
    <message>
        <source>Show a notification when another song begins</source>
        <translation>Mostrar una notificación cuando empieza otra canción</translation>
    </message>
    <message>
        <source>Only while you work in another program.</source>
        <translation>Solo mientras se trabaja en otro programa.</translation>
    </message>
    <message>
        <source>Energy</source>
        <translation>Energía</translation>
    </message>
    <message>
        <source>Keep the computer awake while music plays</source>
        <translation>Mantener el equipo despierto mientras suena la música</translation>
    </message>
    <message>
        <source>The screen may still go dark, and you can always send the computer to sleep yourself.</source>
        <translation>La pantalla puede apagarse igualmente, y siempre se puede suspender el equipo a mano.</translation>
    </message>
</context>
<context>
    <name>zib::DesktopSound</name>
    <message>
        <source>There is no sound server, so songs play without being heard.</source>
        <translation>No hay servidor de sonido, así que las canciones suenan sin oírse.</translation>
    </message>
</context>
<context>
    <name>zib::DownloadActions</name>
    <message>
        <source>You are about to download a song. Please make sure the song is not subject to copyright before proceeding. Downloading copyrighted material is a crime in many countries.</source>
        <translation>Se va a descargar una canción. Antes de continuar, asegúrese de que no está sujeta a derechos de autor. Descargar material protegido es un delito en muchos países.</translation>
    </message>
</context>
<context>
    <name>zib::FilePanel</name>
    <message>
        <source>Folder:</source>
        <translation>Carpeta:</translation>
    </message>
</context>
<context>
    <name>zib::FilterField</name>
    <message>
        <source>Filter</source>
        <translation>Filtrar</translation>
    </message>
    <message>
        <source>Show only the songs that hold these words (Ctrl+Shift+F)</source>
        <translation>Mostrar solo las canciones con estas palabras (Control+Mayúsculas+F)</translation>
    </message>
    <message>
        <source>Filter songs</source>
        <translation>Filtrar canciones</translation>
    </message>
</context>
<context>
    <name>zib::GeneralPage</name>
    <message>
        <source>Music folder</source>
        <translation>Carpeta de música</translation>
    </message>
    <message>
        <source>Copy files into the music folder when they are added to the library</source>
        <translation>Copiar en la carpeta de música los archivos que se añaden a la biblioteca</translation>
    </message>
    <message>
        <source>Playing</source>
        <translation>Reproducción</translation>
    </message>
    <message>
        <source>When a song ends, go on with the next one of any list</source>
        <translation>Al terminar una canción, seguir con la siguiente de cualquier lista</translation>
    </message>
    <message>
        <source>Keep a copy of songs of the web that were played to their end</source>
        <translation>Guardar una copia de las canciones de la web oídas hasta el final</translation>
    </message>
    <message>
        <source>Change…</source>
        <translation>Cambiar…</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Restablecer</translation>
    </message>
    <message>
        <source>Moves the music back to its default folder</source>
        <translation>Devuelve la música a su carpeta predeterminada</translation>
    </message>
    <message>
        <source>Imported and downloaded songs are stored here, sorted by artist and album.</source>
        <translation>Aquí se guardan las canciones importadas y descargadas, ordenadas por artista y álbum.</translation>
    </message>
    <message>
        <source>As the desktop</source>
        <translation>Como el escritorio</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Claro</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Oscuro</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>Apariencia</translation>
    </message>
    <message>
        <source>Keep moving texts still</source>
        <translation>Dejar quietos los textos en movimiento</translation>
    </message>
    <message>
        <source>Choose a folder for your music</source>
        <translation>Elegir una carpeta para la música</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
</context>
<context>
    <name>zib::LibraryImporter</name>
    <message>
        <source>The file cannot be opened.</source>
        <translation>No se puede abrir el archivo.</translation>
    </message>
    <message>
        <source>The file is too large.</source>
        <translation>El archivo es demasiado grande.</translation>
    </message>
    <message>
        <source>It is no exported library.</source>
        <translation>No es una biblioteca exportada.</translation>
    </message>
</context>
<context>
    <name>zib::LibraryPanes</name>
    <message>
        <source>Artists</source>
        <translation>Artistas</translation>
    </message>
    <message>
        <source>Albums</source>
        <translation>Álbumes</translation>
    </message>
</context>
<context>
    <name>zib::LibraryPlace</name>
    <message>
        <source>You are offline. Songs on this computer still play; those on the web are shown in grey.</source>
        <translation>Sin conexión. Las canciones de este equipo siguen sonando; las de la web aparecen en gris.</translation>
    </message>
    <message>
        <source>No song here holds “%1”</source>
        <translation>Ninguna canción contiene aquí «%1»</translation>
    </message>
    <message>
        <source>Press Escape to see all songs again. To find others on the web, try a tag:</source>
        <translation>Pulse Escape para ver de nuevo todas las canciones. Para encontrar otras en la web, pruebe una etiqueta:</translation>
    </message>
    <message>
        <source>No songs found</source>
        <translation>No se encontraron canciones</translation>
    </message>
    <message>
        <source>Try another spelling, a well-known artist, or a tag:</source>
        <translation>Pruebe otra ortografía, un artista conocido o una etiqueta:</translation>
    </message>
    <message>
        <source>This playlist is empty</source>
        <translation>Esta lista está vacía</translation>
    </message>
    <message>
        <source>Drag songs from anywhere else onto its name at the left, or add them from their menu. To find some, try a tag:</source>
        <translation>Arrastre canciones a su nombre, a la izquierda, o añádalas desde su menú. Para encontrar alguna, pruebe una etiqueta:</translation>
    </message>
    <message>
        <source>No loved songs yet</source>
        <translation>Aún no hay favoritas</translation>
    </message>
    <message>
        <source>Press the heart beside a song, and it is kept here and in Music. To find some, try a tag:</source>
        <translation>Pulse el corazón junto a una canción para guardarla aquí y en Música. Para encontrar alguna, pruebe una etiqueta:</translation>
    </message>
    <message>
        <source>No downloads yet</source>
        <translation>Aún no hay descargas</translation>
    </message>
    <message>
        <source>Press the arrow beside a song from the web, and it is kept on this computer and plays offline. To find some, try a tag:</source>
        <translation>Pulse la flecha junto a una canción de la web para guardarla en este equipo y oírla sin conexión. Para encontrar alguna, pruebe una etiqueta:</translation>
    </message>
    <message>
        <source>No songs of your own yet</source>
        <translation>Aún no hay canciones propias</translation>
    </message>
    <message>
        <source>Drop files or folders on this window, or press Ctrl+O. To find songs on the web, try a tag:</source>
        <translation>Suelte archivos o carpetas en esta ventana, o pulse Control+O. Para encontrar canciones en la web, pruebe una etiqueta:</translation>
    </message>
    <message>
        <source>Your library is empty</source>
        <translation>La biblioteca está vacía</translation>
    </message>
    <message>
        <source>Type an artist into the search field and press Return. Play what you find, and press the heart beside a song to keep it here. Or try a tag:</source>
        <translation>Escriba un artista en el campo de búsqueda y pulse Intro. Escuche lo que encuentre y pulse el corazón junto a una canción para guardarla aquí. O pruebe una etiqueta:</translation>
    </message>
</context>
<context>
    <name>zib::ListExchange</name>
    <message>
        <source>The library could not be exported.</source>
        <translation>No se pudo exportar la biblioteca.</translation>
    </message>
    <message>
        <source>Library exported</source>
        <translation>Biblioteca exportada</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>Adding songs to your library</source>
        <translation>Añadiendo canciones a la biblioteca</translation>
    </message>
    <message>
        <source>The playlist “%1” could not be imported.</source>
        <translation>No se pudo importar la lista «%1».</translation>
    </message>
    <message>
        <source>The library could not be imported.</source>
        <translation>No se pudo importar la biblioteca.</translation>
    </message>
    <message>
        <source>%1 and %2 added</source>
        <extracomment>Two counts: “2 songs”, “1 playlist”.</extracomment>
        <translation>Se añadieron %1 y %2</translation>
    </message>
    <message>
        <source>Importing a library</source>
        <translation>Importando una biblioteca</translation>
    </message>
    <message>
        <source>Exporting your library</source>
        <translation>Exportando la biblioteca</translation>
    </message>
    <message numerus="yes">
        <source>and %Ln more</source>
        <translation>
            <numerusform>y %Ln más</numerusform>
            <numerusform>y %Ln más</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln songs of the playlist “%1” were not found.</source>
        <translation>
            <numerusform>No se encontró %Ln canción de la lista «%1».</numerusform>
            <numerusform>No se encontraron %Ln canciones de la lista «%1».</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln songs</source>
        <translation>
            <numerusform>%Ln canción</numerusform>
            <numerusform>%Ln canciones</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln playlists</source>
        <translation>
            <numerusform>%Ln lista</numerusform>
            <numerusform>%Ln listas</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>zib::LoginPowerEvents</name>
    <message>
        <source>Playback is paused first</source>
        <translation>Antes se pausa la reproducción</translation>
    </message>
</context>
<context>
    <name>zib::NoticesPage</name>
    <message>
        <source>Show all again</source>
        <translation>Volver a mostrar todo</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>Mensajes</translation>
    </message>
    <message>
        <source>These messages and questions are shown. Without its question, what you ask for is done at once.</source>
        <translation>Estos mensajes y preguntas se muestran. Sin su pregunta, lo que se pide se hace al momento.</translation>
    </message>
</context>
<context>
    <name>zib::NowPlayingDisplay</name>
    <message>
        <source>Now Playing</source>
        <translation>En reproducción</translation>
    </message>
    <message>
        <source>Powered by</source>
        <translation>Con la tecnología de</translation>
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
        <translation>Título de la reproducción</translation>
    </message>
    <message>
        <source>Elapsed time</source>
        <translation>Tiempo transcurrido</translation>
    </message>
    <message>
        <source>Remaining time</source>
        <translation>Tiempo restante</translation>
    </message>
    <message>
        <source>Now playing</source>
        <translation>Sonando ahora</translation>
    </message>
    <message>
        <source>Streaming</source>
        <translation>Streaming</translation>
    </message>
    <message>
        <source>Streaming from the web</source>
        <translation>En streaming desde la web</translation>
    </message>
</context>
<context>
    <name>zib::OfferedTags</name>
    <message>
        <source>Find songs tagged %1</source>
        <translation>Buscar canciones con la etiqueta %1</translation>
    </message>
</context>
<context>
    <name>zib::PlaylistImporter</name>
    <message>
        <source>It is no playlist file.</source>
        <translation>No es un archivo de lista.</translation>
    </message>
    <message>
        <source>It holds no songs.</source>
        <translation>No contiene canciones.</translation>
    </message>
</context>
<context>
    <name>zib::PreferencesWindow</name>
    <message>
        <source>Preferences</source>
        <translation>Preferencias</translation>
    </message>
    <message>
        <source>Sections</source>
        <translation>Secciones</translation>
    </message>
    <message>
        <source>General</source>
        <translation>General</translation>
    </message>
    <message>
        <source>Sharing</source>
        <translation>Compartir</translation>
    </message>
    <message>
        <source>Notices</source>
        <translation>Avisos</translation>
    </message>
    <message>
        <source>Desktop</source>
        <translation>Escritorio</translation>
    </message>
    <message>
        <source>Services</source>
        <translation>Servicios</translation>
    </message>
</context>
<context>
    <name>zib::ProgressSlider</name>
    <message>
        <source>Song progress</source>
        <translation>Progreso de la canción</translation>
    </message>
</context>
<context>
    <name>zib::RVDataManager</name>
    <message>
        <source>Your music library has been corrupted.</source>
        <translation>La biblioteca de música está dañada.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>Exported to disk</source>
        <translation>Exportada al disco</translation>
    </message>
</context>
<context>
    <name>zib::RVPlayer</name>
    <message>
        <source>File not found</source>
        <translation>Archivo no encontrado</translation>
    </message>
    <message>
        <source>The file at path %1 could not be located.</source>
        <translation>No se encontró el archivo en la ruta %1.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
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
        <translation>Buscar</translation>
    </message>
    <message>
        <source>Recent searches</source>
        <translation>Búsquedas recientes</translation>
    </message>
    <message>
        <source>Search type</source>
        <translation>Tipo de búsqueda</translation>
    </message>
    <message>
        <source>Artist</source>
        <translation>Artista</translation>
    </message>
    <message>
        <source>Find songs by artist</source>
        <translation>Buscar canciones por artista</translation>
    </message>
    <message>
        <source>Tags</source>
        <translation>Etiquetas</translation>
    </message>
    <message>
        <source>Find songs by tag(s, separated by comma)</source>
        <translation>Buscar canciones por etiqueta(s, separadas por comas)</translation>
    </message>
    <message>
        <source>Similar</source>
        <translation>Similar</translation>
    </message>
    <message>
        <source>Find songs by similar artists</source>
        <translation>Buscar canciones de artistas similares</translation>
    </message>
    <message>
        <source>Recent terms</source>
        <translation>Términos recientes</translation>
    </message>
</context>
<context>
    <name>zib::ServiceRow</name>
    <message>
        <source>This is no host that can be spoken to over HTTP, such as music.example or 192.168.1.9:8080.</source>
        <translation>No es un servidor al que se pueda acceder por HTTP, como music.example o 192.168.1.9:8080.</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Restablecer</translation>
    </message>
    <message>
        <source>Host of %1</source>
        <translation>Servidor de %1</translation>
    </message>
    <message>
        <source>Bundled service, on this computer</source>
        <translation>Servicio incluido, en este equipo</translation>
    </message>
    <message>
        <source>Reset the host of %1</source>
        <translation>Restablecer el servidor de %1</translation>
    </message>
    <message>
        <source>Back to the service that comes with the program</source>
        <translation>Volver al servicio incluido en el programa</translation>
    </message>
    <message>
        <source>Asking…</source>
        <translation>Consultando…</translation>
    </message>
    <message>
        <source>Answers</source>
        <translation>Responde</translation>
    </message>
    <message>
        <source>Has an error of its own</source>
        <translation>Tiene un error propio</translation>
    </message>
    <message>
        <source>Does not answer</source>
        <translation>No responde</translation>
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
        <translation>Consultar de nuevo</translation>
    </message>
    <message>
        <source>Unless you name another host, the service that comes with Zib answers, on this computer. Another host is asked from the next request on.</source>
        <translation>Si no se indica otro servidor, responde el servicio incluido en Zib, en este equipo. Otro servidor se consulta a partir de la siguiente petición.</translation>
    </message>
    <message>
        <source>Web sites</source>
        <translation>Sitios web</translation>
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
        <translation>Está sonando música</translation>
    </message>
</context>
<context>
    <name>zib::ShareDialog</name>
    <message>
        <source>Tags</source>
        <translation>Etiquetas</translation>
    </message>
    <message>
        <source>Share playlist</source>
        <translation>Compartir lista</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Título</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Descripción</translation>
    </message>
    <message>
        <source>What is it about?</source>
        <translation>¿De qué trata?</translation>
    </message>
    <message>
        <source>Up to five, with commas between</source>
        <translation>Hasta cinco, separadas por comas</translation>
    </message>
    <message>
        <source>Your name</source>
        <translation>Nombre</translation>
    </message>
    <message>
        <source>Others see this name beside your playlists. You are asked for it this once.</source>
        <translation>Los demás ven este nombre junto a las listas. Solo se pregunta esta vez.</translation>
    </message>
</context>
<context>
    <name>zib::SharingPage</name>
    <message>
        <source>Your name</source>
        <translation>Nombre</translation>
    </message>
    <message>
        <source>You are asked when you first share</source>
        <translation>Se pregunta la primera vez</translation>
    </message>
    <message>
        <source>Others see it beside the playlists that you share from now on. Playlists shared before keep the name that they have.</source>
        <translation>Los demás lo ven junto a las listas que se compartan desde ahora. Las ya compartidas conservan el nombre que tienen.</translation>
    </message>
    <message>
        <source>Shared playlists</source>
        <translation>Listas compartidas</translation>
    </message>
    <message>
        <source>List my shared playlists where everybody finds them</source>
        <translation>Mostrar mis listas compartidas donde todos las encuentren</translation>
    </message>
    <message>
        <source>Without this, only those find a playlist who have its link.</source>
        <translation>Si no, solo encuentra una lista quien tiene su enlace.</translation>
    </message>
</context>
<context>
    <name>zib::SongDownloads</name>
    <message>
        <source>Zib!</source>
        <translation>¡Zib!</translation>
    </message>
    <message>
        <source>A song like this has already been downloaded. Do you want to overwrite it?</source>
        <translation>Ya se ha descargado una canción como esta. ¿Desea sobrescribirla?</translation>
    </message>
    <message>
        <source>Overwrite</source>
        <translation>Sobrescribir</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Download cancelled</source>
        <translation>Descarga cancelada</translation>
    </message>
    <message>
        <source>Downloading... (%1 %2)</source>
        <translation>Descargando... (%1&#xa0;%2)</translation>
    </message>
    <message>
        <source>“%1” could not be downloaded.</source>
        <translation>No se pudo descargar «%1».</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
</context>
<context>
    <name>zib::SongInformationWindow</name>
    <message>
        <source>Song information</source>
        <translation>Información de la canción</translation>
    </message>
    <message>
        <source>Information for several songs</source>
        <translation>Información de varias canciones</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nombre</translation>
    </message>
    <message>
        <source>Artist</source>
        <translation>Artista</translation>
    </message>
    <message>
        <source>Album</source>
        <translation>Álbum</translation>
    </message>
    <message>
        <source>Genre</source>
        <translation>Género</translation>
    </message>
    <message>
        <source>Composer</source>
        <translation>Compositor</translation>
    </message>
    <message>
        <source>Year</source>
        <translation>Año</translation>
    </message>
    <message>
        <source>Track number</source>
        <translation>Número de pista</translation>
    </message>
    <message>
        <source>Tracks in total</source>
        <translation>Total de pistas</translation>
    </message>
    <message>
        <source>Disc number</source>
        <translation>Número de disco</translation>
    </message>
    <message>
        <source>Discs in total</source>
        <translation>Total de discos</translation>
    </message>
    <message>
        <source>Track</source>
        <translation>Pista</translation>
    </message>
    <message>
        <source>Disc</source>
        <translation>Disco</translation>
    </message>
    <message>
        <source>Ctrl+Return</source>
        <translation>Control+Intro</translation>
    </message>
    <message>
        <source>of</source>
        <translation>de</translation>
    </message>
    <message>
        <source>An empty field leaves each song what it has. Only the year is set in any case: empty, the songs have none.</source>
        <translation>Un campo vacío deja a cada canción lo que tiene. Solo el año se aplica siempre: si está vacío, las canciones no tienen ninguno.</translation>
    </message>
    <message>
        <source>A new cover goes into all of them.</source>
        <translation>Una portada nueva se pone en todas.</translation>
    </message>
</context>
<context>
    <name>zib::SongMenu</name>
    <message>
        <source>Play</source>
        <translation>Reproducir</translation>
    </message>
    <message>
        <source>Love no more</source>
        <translation>Quitar de las favoritas</translation>
    </message>
    <message>
        <source>Love</source>
        <translation>Marcar como favorita</translation>
    </message>
    <message>
        <source>Stop downloading</source>
        <translation>Detener la descarga</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Descargar</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Editar</translation>
    </message>
    <message>
        <source>Information…</source>
        <translation>Información…</translation>
    </message>
    <message>
        <source>Sort by</source>
        <translation>Ordenar por</translation>
    </message>
    <message>
        <source>Columns</source>
        <translation>Columnas</translation>
    </message>
    <message>
        <source>Remove from playlist</source>
        <translation>Quitar de la lista</translation>
    </message>
    <message>
        <source>Remove from library…</source>
        <translation>Quitar de la biblioteca…</translation>
    </message>
    <message>
        <source>Add to playlist</source>
        <translation>Añadir a una lista</translation>
    </message>
    <message>
        <source>New playlist</source>
        <translation>Lista nueva</translation>
    </message>
    <message>
        <source>Song</source>
        <translation>Canción</translation>
    </message>
</context>
<context>
    <name>zib::SongRemoval</name>
    <message>
        <source>%1 could not be moved to the trash</source>
        <translation>No se pudo mover %1 a la papelera</translation>
    </message>
    <message>
        <source>Are you sure you want to remove the selected songs from your music library?</source>
        <translation>¿Seguro que desea quitar de la biblioteca las canciones seleccionadas?</translation>
    </message>
    <message>
        <source>Any local files will be moved to the trash.</source>
        <translation>Los archivos locales se moverán a la papelera.</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Quitar</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
</context>
<context>
    <name>zib::SongTable</name>
    <message>
        <source>Songs</source>
        <translation>Canciones</translation>
    </message>
    <message numerus="yes">
        <source>%Ln songs</source>
        <translation>
            <numerusform>%Ln canción</numerusform>
            <numerusform>%Ln canciones</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>zib::SongTableLayout</name>
    <message>
        <source>Columns</source>
        <translation>Columnas</translation>
    </message>
</context>
<context>
    <name>zib::SongTableModel</name>
    <message>
        <source>Now playing</source>
        <translation>Sonando ahora</translation>
    </message>
    <message>
        <source>Loved</source>
        <translation>Favorita</translation>
    </message>
    <message>
        <source>Not loved</source>
        <translation>No favorita</translation>
    </message>
    <message>
        <source>Stop downloading</source>
        <translation>Detener la descarga</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Descargar</translation>
    </message>
    <message>
        <source>Downloading</source>
        <translation>Descargando</translation>
    </message>
    <message>
        <source>%1% downloaded</source>
        <translation>%1&#xa0;% descargado</translation>
    </message>
    <message>
        <source>%1 (broken link)</source>
        <translation>%1 (enlace roto)</translation>
    </message>
    <message numerus="yes">
        <source>%n seconds</source>
        <translation>
            <numerusform>%n segundo</numerusform>
            <numerusform>%n segundos</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n minutes</source>
        <translation>
            <numerusform>%n minuto</numerusform>
            <numerusform>%n minutos</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 by %2 from %3</source>
        <translation>%1 de %2, en %3</translation>
    </message>
    <message>
        <source>loved</source>
        <translation>favorita</translation>
    </message>
    <message>
        <source>now playing</source>
        <translation>sonando ahora</translation>
    </message>
    <message>
        <source>You are offline: this song is on the web and can’t be played now.</source>
        <translation>Sin conexión: esta canción está en la web y ahora no se puede reproducir.</translation>
    </message>
    <message>
        <source>This song could not be opened at its address. Play it to try again.</source>
        <translation>No se pudo abrir esta canción en su dirección. Reprodúzcala para volver a intentarlo.</translation>
    </message>
    <message>
        <source>Row number</source>
        <translation>Número de fila</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nombre</translation>
    </message>
    <message>
        <source>Artist</source>
        <translation>Artista</translation>
    </message>
    <message>
        <source>Album</source>
        <translation>Álbum</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Progreso</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Duración</translation>
    </message>
    <message>
        <source>Genre</source>
        <translation>Género</translation>
    </message>
    <message>
        <source>Year</source>
        <translation>Año</translation>
    </message>
    <message>
        <source>Track number</source>
        <translation>Número de pista</translation>
    </message>
    <message>
        <source>Play count</source>
        <translation>Número de reproducciones</translation>
    </message>
    <message>
        <source>Last played</source>
        <translation>Última reproducción</translation>
    </message>
    <message>
        <source>Hotness</source>
        <translation>Tendencia</translation>
    </message>
    <message>
        <source>Familiarity</source>
        <translation>Notoriedad</translation>
    </message>
    <message>
        <source>Found</source>
        <translation>Encontrada</translation>
    </message>
    <message>
        <source>#</source>
        <translation>N.º</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Tiempo</translation>
    </message>
    <message>
        <source>Track</source>
        <translation>Pista</translation>
    </message>
    <message>
        <source>Plays</source>
        <translation>Veces</translation>
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
        <translation>Nombre de la lista</translation>
    </message>
</context>
<context>
    <name>zib::SourceListView</name>
    <message>
        <source>Sources</source>
        <translation>Fuentes</translation>
    </message>
    <message numerus="yes">
        <source>%n rows</source>
        <translation>
            <numerusform>%n fila</numerusform>
            <numerusform>%n filas</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>zib::SourceModel</name>
    <message>
        <source>Separator</source>
        <translation>Separador</translation>
    </message>
    <message>
        <source>Sources</source>
        <translation>Fuentes</translation>
    </message>
</context>
<context>
    <name>zib::SourcePane</name>
    <message>
        <source>New playlist</source>
        <translation>Lista nueva</translation>
    </message>
    <message>
        <source>New playlist (%1)</source>
        <translation>Lista nueva (%1)</translation>
    </message>
    <message>
        <source>Playlist actions</source>
        <translation>Acciones de la lista</translation>
    </message>
    <message>
        <source>What can be done with it</source>
        <translation>Qué se puede hacer con ella</translation>
    </message>
    <message>
        <source>New playlist from selection</source>
        <translation>Lista nueva con la selección</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Cambiar nombre</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Quitar</translation>
    </message>
    <message>
        <source>Show the song that plays</source>
        <translation>Mostrar la canción que suena</translation>
    </message>
    <message>
        <source>Share…</source>
        <translation>Compartir…</translation>
    </message>
    <message>
        <source>Share on Facebook…</source>
        <translation>Compartir en Facebook…</translation>
    </message>
    <message>
        <source>Share on Twitter…</source>
        <translation>Compartir en Twitter…</translation>
    </message>
    <message>
        <source>Export playlist…</source>
        <translation>Exportar lista…</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Reproducir</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Fuente</translation>
    </message>
</context>
<context>
    <name>zib::StatusLine</name>
    <message>
        <source>Status</source>
        <translation>Estado</translation>
    </message>
    <message>
        <source>About the shown songs or link</source>
        <translation>Sobre las canciones mostradas o el enlace</translation>
    </message>
</context>
<context>
    <name>zib::TokenField</name>
    <message>
        <source>Remove %1</source>
        <translation>Quitar %1</translation>
    </message>
    <message>
        <source>Click to remove this tag</source>
        <translation>Haga clic para quitar esta etiqueta</translation>
    </message>
</context>
<context>
    <name>zib::TrackBrowser</name>
    <message>
        <source>All (%1 %2)</source>
        <translation>Todos (%1 %2)</translation>
    </message>
    <message numerus="yes">
        <source>Artists</source>
        <translation>
            <numerusform>artista</numerusform>
            <numerusform>artistas</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Albums</source>
        <translation>
            <numerusform>álbum</numerusform>
            <numerusform>álbumes</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>zib::UndoStack</name>
    <message>
        <source>Undone. Press Ctrl+Shift+Z to do it again.</source>
        <translation>Deshecho. Rehacer con Control+Mayúsculas+Z.</translation>
    </message>
</context>
<context>
    <name>zib::VolumeSlider</name>
    <message>
        <source>Volume</source>
        <translation>Volumen</translation>
    </message>
    <message>
        <source>Volume %1%</source>
        <translation>Volumen: %1&#xa0;%</translation>
    </message>
</context>
<context>
    <name>zib::WebPane</name>
    <message>
        <source>Information about the song cannot be shown: Zib’s web engine is missing.</source>
        <translation>No se puede mostrar información sobre la canción: falta el motor web de Zib.</translation>
    </message>
</context>
<context>
    <name>zib::WelcomePlace</name>
    <message>
        <source>Welcome</source>
        <translation>Bienvenida</translation>
    </message>
    <message>
        <source>Welcome to Zib</source>
        <translation>Bienvenida a Zib</translation>
    </message>
    <message>
        <source>Try a tag:</source>
        <translation>Pruebe una etiqueta:</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Encontrar</translation>
    </message>
    <message>
        <source>Type an artist, some tags, or an artist that others should be similar to. Songs that can be played appear.</source>
        <translation>Escriba un artista, algunas etiquetas o un artista al que otros deban parecerse. Aparecen canciones que se pueden reproducir.</translation>
    </message>
    <message>
        <source>Hear</source>
        <translation>Escuchar</translation>
    </message>
    <message>
        <source>Double-click a song and it plays. “Now Playing” tells of it, of its artist and of its album.</source>
        <translation>Haga doble clic en una canción y suena. «En reproducción» habla de ella, de su artista y de su álbum.</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>Guardar</translation>
    </message>
    <message>
        <source>The heart puts a song into your library. Make playlists, download songs, and bring the music that you have.</source>
        <translation>El corazón pone una canción en la biblioteca. Cree listas, descargue canciones y traiga la música que ya tiene.</translation>
    </message>
    <message>
        <source>Add your music…</source>
        <translation>Añadir música propia…</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Empezar</translation>
    </message>
    <message>
        <source>Closes this page (Escape)</source>
        <translation>Cierra esta página (Escape)</translation>
    </message>
</context>
<context>
    <name>zib::WidgetBusyPanel</name>
    <message>
        <source>What is being done</source>
        <translation>Qué se está haciendo</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Detener</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Progreso</translation>
    </message>
</context>
<context>
    <name>zib_catalogue</name>
    <message>
        <source>The song-search service of Zib: finds and streams demo songs and the songs of your own music folders.</source>
        <translation>El servicio de búsqueda de Zib: encuentra y transmite canciones de muestra y las de las carpetas de música propias.</translation>
    </message>
    <message>
        <source>Answer requests until told to stop.</source>
        <translation>Atender peticiones hasta que se ordene parar.</translation>
    </message>
    <message>
        <source>Listen on port N; 0 takes a free one.</source>
        <translation>Escuchar en el puerto N; 0 toma uno libre.</translation>
    </message>
    <message>
        <source>Listen on this numeric address. Others than 127.0.0.1 and ::1 can be reached from outside.</source>
        <translation>Escuchar en esta dirección numérica. A las que no son 127.0.0.1 ni ::1 se puede acceder desde fuera.</translation>
    </message>
    <message>
        <source>Take over this descriptor of a listening socket, in place of --port and --bind.</source>
        <translation>Usar este descriptor de un socket a la escucha, en lugar de --port y --bind.</translation>
    </message>
    <message>
        <source>Index the songs in this folder; may stand several times.</source>
        <translation>Indexar las canciones de esta carpeta; se puede repetir.</translation>
    </message>
    <message>
        <source>Keep the index and the demo songs in this folder.</source>
        <translation>Guardar el índice y las canciones de muestra en esta carpeta.</translation>
    </message>
    <message>
        <source>Keep the published playlists on this PostgreSQL server, which several services may share, in place of a file in the data folder.</source>
        <translation>Guardar las listas publicadas en este servidor PostgreSQL, que varios servicios pueden compartir, en lugar de un archivo en la carpeta de datos.</translation>
    </message>
    <message>
        <source>The pages&apos; public addresses begin with this. A proxy on this machine then tells the clients&apos; addresses in X-Forwarded-For.</source>
        <translation>Así empiezan las direcciones públicas de las páginas. Un proxy en este equipo indica entonces las direcciones de los clientes en X-Forwarded-For.</translation>
    </message>
    <message>
        <source>What each address may ask about playlists a minute; publishing counts 20; 0 for no bound.</source>
        <translation>Lo que cada dirección puede pedir sobre listas por minuto; publicar cuenta 20; 0 es sin límite.</translation>
    </message>
    <message>
        <source>Stop when standard input closes, as it does when the parent process ends.</source>
        <translation>Parar cuando se cierre la entrada estándar, como al terminar el proceso padre.</translation>
    </message>
    <message>
        <source>--%1 %2: not a number from 0 to %3</source>
        <translation>--%1 %2: no es un número de 0 a %3</translation>
    </message>
    <message>
        <source>--music %1: no such folder</source>
        <translation>--music %1: no existe esa carpeta</translation>
    </message>
    <message>
        <source>--database: not an address that begins with postgresql://</source>
        <translation>--database: no es una dirección que empiece por postgresql://</translation>
    </message>
    <message>
        <source>cannot make the folder %1</source>
        <translation>no se puede crear la carpeta %1</translation>
    </message>
    <message>
        <source>cannot start the server</source>
        <translation>no se puede iniciar el servidor</translation>
    </message>
    <message>
        <source>say &quot;zib-catalogue serve&quot;, or --help to see the options</source>
        <translation>use «zib-catalogue serve», o --help para ver las opciones</translation>
    </message>
</context>
</TS>
