<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>ApplicationMenus</name>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Clip</source>
        <translation>&amp;Clip</translation>
    </message>
    <message>
        <source>C&amp;onnect</source>
        <translation>&amp;Verknüpfen</translation>
    </message>
    <message>
        <source>&amp;Record</source>
        <translation>A&amp;ufnahme</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <translation>&amp;Fenster</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
</context>
<context>
    <name>Atom</name>
    <message>
        <source>An atom of type &apos;%1&apos; has the impossible size %2.</source>
        <translation>Ein Atom vom Typ „%1“ hat die unmögliche Größe %2.</translation>
    </message>
    <message>
        <source>The file ends within the header of an atom.</source>
        <translation>Die Datei endet mitten im Kopf eines Atoms.</translation>
    </message>
    <message>
        <source>In the atom &apos;%1&apos;: %2</source>
        <translation>Im Atom „%1“: %2</translation>
    </message>
    <message>
        <source>Version %1 is not known.</source>
        <translation>Version %1 ist unbekannt.</translation>
    </message>
    <message>
        <source>An atom has the impossible size %1.</source>
        <translation>Ein Atom hat die unmögliche Größe %1.</translation>
    </message>
</context>
<context>
    <name>AtomStream</name>
    <message>
        <source>A field of %1 bytes is cut off after %2.</source>
        <translation>Ein Feld von %1 Bytes ist nach %2 abgeschnitten.</translation>
    </message>
    <message>
        <source>%1 bytes are announced, and %2 remain.</source>
        <translation>%1 Bytes sind angekündigt, und %2 sind noch übrig.</translation>
    </message>
    <message>
        <source>A list of %1 elements announces %2.</source>
        <translation>Eine Liste mit %1 Elementen kündigt %2 an.</translation>
    </message>
    <message>
        <source>%1 entries of %2 bytes are announced, and %3 bytes remain.</source>
        <translation>%1 Einträge zu %2 Bytes sind angekündigt, und %3 Bytes sind noch übrig.</translation>
    </message>
</context>
<context>
    <name>BatchConnect</name>
    <message>
        <source>connect Clips</source>
        <translation>Clips verknüpfen</translation>
    </message>
    <message>
        <source>Could not connect all clips</source>
        <translation>Nicht alle Clips konnten verknüpft werden</translation>
    </message>
    <message>
        <source>Only %1 of %2 clips could be connected.</source>
        <translation>Nur %1 von %2 Clips konnten verknüpft werden.</translation>
    </message>
    <message>
        <source>Red files not found</source>
        <translation>RED-Dateien nicht gefunden</translation>
    </message>
    <message>
        <source>For one or more clips the original &apos;.r3d&apos; clip could not be found. As a result the matching result might be incorrect.</source>
        <translation>Für einen oder mehrere Clips konnte der originale „.r3d“-Clip nicht gefunden werden. Die Zuordnung kann deshalb falsch sein.</translation>
    </message>
</context>
<context>
    <name>ByteSource</name>
    <message>
        <source>%1 bytes are needed here, and %2 are there.</source>
        <translation>%1 Bytes werden hier gebraucht, und %2 sind da.</translation>
    </message>
    <message>
        <source>An atom of type &apos;%1&apos; is larger than what holds it.</source>
        <translation>Ein Atom vom Typ „%1“ ist größer als das, was es enthält.</translation>
    </message>
</context>
<context>
    <name>ClipFilter</name>
    <message>
        <source>rating: needs a number from 0 to 5</source>
        <translation>rating: braucht eine Zahl von 0 bis 5</translation>
    </message>
    <message>
        <source>connected: needs yes, no or offline</source>
        <translation>connected: braucht yes, no oder offline</translation>
    </message>
</context>
<context>
    <name>ClipManager</name>
    <message>
        <source>Clip Manager</source>
        <translation>Clip-Manager</translation>
    </message>
    <message>
        <source>Record folders</source>
        <translation>Aufnahmeordner</translation>
    </message>
    <message>
        <source>Clips of the selected folder</source>
        <translation>Clips des ausgewählten Ordners</translation>
    </message>
    <message>
        <source>Movie of the selected clip</source>
        <translation>Film des ausgewählten Clips</translation>
    </message>
    <message>
        <source>Set the clip&apos;s in marker at the current time</source>
        <translation>Den In-Punkt des Clips an die aktuelle Stelle setzen</translation>
    </message>
    <message>
        <source>&amp;In</source>
        <translation>&amp;In</translation>
    </message>
    <message>
        <source>Time code</source>
        <translation>Timecode</translation>
    </message>
    <message>
        <source>Set the clip&apos;s out marker at the current time</source>
        <translation>Den Out-Punkt des Clips an die aktuelle Stelle setzen</translation>
    </message>
    <message>
        <source>&amp;Out</source>
        <translation>&amp;Out</translation>
    </message>
    <message>
        <source>Clip</source>
        <translation>Clip</translation>
    </message>
    <message>
        <source>&amp;Name</source>
        <translation>&amp;Name</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>&amp;Scene</source>
        <translation>&amp;Szene</translation>
    </message>
    <message>
        <source>Scene</source>
        <translation>Szene</translation>
    </message>
    <message>
        <source>&amp;Take</source>
        <translation>&amp;Take</translation>
    </message>
    <message>
        <source>Take</source>
        <translation>Take</translation>
    </message>
    <message>
        <source>&amp;Label</source>
        <translation>&amp;Label</translation>
    </message>
    <message>
        <source>Label</source>
        <translation>Label</translation>
    </message>
    <message>
        <source>Edit the list of labels</source>
        <translation>Die Liste der Labels bearbeiten</translation>
    </message>
    <message>
        <source>Edit labels</source>
        <translation>Labels bearbeiten</translation>
    </message>
    <message>
        <source>Ratin&amp;g</source>
        <translation>&amp;Wertung</translation>
    </message>
    <message>
        <source>Rating</source>
        <translation>Wertung</translation>
    </message>
    <message>
        <source>Co&amp;mment</source>
        <translation>Ko&amp;mmentar</translation>
    </message>
    <message>
        <source>Comment</source>
        <translation>Kommentar</translation>
    </message>
    <message>
        <source>File and Log</source>
        <translation>Datei und Protokoll</translation>
    </message>
    <message>
        <source>File of the clip</source>
        <translation>Datei des Clips</translation>
    </message>
    <message>
        <source>Path of the clip</source>
        <translation>Pfad des Clips</translation>
    </message>
    <message>
        <source>Log of the clip</source>
        <translation>Protokoll des Clips</translation>
    </message>
    <message>
        <source>Markers of the clip</source>
        <translation>Marker des Clips</translation>
    </message>
    <message>
        <source>Add a marker at the current time</source>
        <translation>Einen Marker an der aktuellen Stelle hinzufügen</translation>
    </message>
    <message>
        <source>Add marker</source>
        <translation>Marker hinzufügen</translation>
    </message>
    <message>
        <source>Delete the selected markers</source>
        <translation>Die ausgewählten Marker löschen</translation>
    </message>
    <message>
        <source>Delete markers</source>
        <translation>Marker löschen</translation>
    </message>
    <message>
        <source>Move the marker&apos;s start to the current time</source>
        <translation>Den Anfang des Markers an die aktuelle Stelle setzen</translation>
    </message>
    <message>
        <source>Set St&amp;art</source>
        <translation>Sta&amp;rt setzen</translation>
    </message>
    <message>
        <source>End the marker at the current time</source>
        <translation>Den Marker an der aktuellen Stelle enden lassen</translation>
    </message>
    <message>
        <source>Set Sto&amp;p</source>
        <translation>&amp;Ende setzen</translation>
    </message>
    <message>
        <source>Double-click to collapse or expand the window</source>
        <translation>Doppelklicken, um das Fenster ein- oder auszuklappen</translation>
    </message>
    <message>
        <source>Reading clips</source>
        <translation>Clips werden gelesen</translation>
    </message>
</context>
<context>
    <name>ClipMarkerModel</name>
    <message>
        <source>Number</source>
        <translation>Nummer</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>Comment</source>
        <translation>Kommentar</translation>
    </message>
</context>
<context>
    <name>ClipMedia</name>
    <message>
        <source>Clip not connected</source>
        <translation>Clip nicht verknüpft</translation>
    </message>
    <message>
        <source>Clip not found</source>
        <translation>Clip nicht gefunden</translation>
    </message>
</context>
<context>
    <name>ClipStore</name>
    <message>
        <source>The clip&apos;s file is a link out of its folder, and what it leads to is left as it is. Put the file itself into the folder.</source>
        <translation>Die Datei des Clips ist eine Verknüpfung aus ihrem Ordner hinaus; worauf sie zeigt, bleibt, wie es ist. Legen Sie die Datei selbst in den Ordner.</translation>
    </message>
    <message>
        <source>The clip&apos;s file is not there any more.</source>
        <translation>Die Datei des Clips ist nicht mehr da.</translation>
    </message>
    <message>
        <source>No clip is named “%1”.</source>
        <translation>Kein Clip heißt „%1“.</translation>
    </message>
    <message>
        <source>No place holder clip can have this name. Choose another one.</source>
        <translation>Kein Platzhalter-Clip kann diesen Namen haben. Wählen Sie einen anderen.</translation>
    </message>
    <message>
        <source>The movie has no user data to keep a record in.</source>
        <translation>Der Film hat keine Nutzerdaten, die einen Eintrag aufnehmen könnten.</translation>
    </message>
    <message>
        <source>N/A, externally recorded</source>
        <translation>Keine Angabe, extern aufgenommen</translation>
    </message>
    <message>
        <source>%1 frame drop(s) at frame no:
</source>
        <translation>%1 ausgefallene(s) Bild(er), Bild Nr.:
</translation>
    </message>
    <message>
        <source>No frame drops
</source>
        <translation>Keine ausgefallenen Bilder
</translation>
    </message>
    <message>
        <source>%1 frame(s) dropped due to corruption at frame no:
</source>
        <translation>%1 wegen Beschädigung ausgefallene(s) Bild(er), Bild Nr.:
</translation>
    </message>
    <message>
        <source>No corrupted frames
</source>
        <translation>Keine beschädigten Bilder
</translation>
    </message>
    <message>
        <source>Clip not connected
</source>
        <translation>Clip nicht verknüpft
</translation>
    </message>
    <message>
        <source>Clip not found
</source>
        <translation>Clip nicht gefunden
</translation>
    </message>
    <message>
        <source>Duration: %1
File Size: %2 MB
Created: %3
Modified: %3
</source>
        <translation>Dauer: %1
Dateigröße: %2 MB
Erstellt: %3
Geändert: %3
</translation>
    </message>
    <message>
        <source>Path: %1
</source>
        <translation>Pfad: %1
</translation>
    </message>
    <message>
        <source>Another program has written the movie meanwhile. Try again.</source>
        <translation>Ein anderes Programm hat den Film inzwischen geschrieben. Versuchen Sie es noch einmal.</translation>
    </message>
</context>
<context>
    <name>ClipTableModel</name>
    <message>
        <source>Number</source>
        <translation>Nummer</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>Clip</source>
        <translation>Clip</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>Creation Date</source>
        <translation>Erstellungsdatum</translation>
    </message>
    <message>
        <source>File Size</source>
        <translation>Dateigröße</translation>
    </message>
    <message>
        <source>Rating</source>
        <translation>Wertung</translation>
    </message>
    <message>
        <source>Label</source>
        <translation>Label</translation>
    </message>
    <message>
        <source>Comment</source>
        <translation>Kommentar</translation>
    </message>
    <message>
        <source>Scene</source>
        <translation>Szene</translation>
    </message>
    <message>
        <source>Take</source>
        <translation>Take</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Bild</translation>
    </message>
</context>
<context>
    <name>ClipTexts</name>
    <message>
        <source>Clip %1 holds the character &quot;%2&quot;, which ASCII does not have. Replace it.</source>
        <translation>Clip %1 enthält das Zeichen „%2“, das es in ASCII nicht gibt. Ersetzen Sie es.</translation>
    </message>
</context>
<context>
    <name>ClipViewer</name>
    <message>
        <source>Clip Viewer</source>
        <translation>Clip-Betrachter</translation>
    </message>
    <message>
        <source>Time code</source>
        <translation>Timecode</translation>
    </message>
</context>
<context>
    <name>CompressedHeader</name>
    <message>
        <source>The compressed header is too large (%1 bytes).</source>
        <translation>Der komprimierte Kopf ist zu groß (%1 Bytes).</translation>
    </message>
    <message>
        <source>The compressed header cannot hold %1 bytes.</source>
        <translation>Der komprimierte Kopf kann keine %1 Bytes enthalten.</translation>
    </message>
    <message>
        <source>The compressed header does not inflate.</source>
        <translation>Der komprimierte Kopf lässt sich nicht entpacken.</translation>
    </message>
    <message>
        <source>The compressed header is not complete.</source>
        <translation>Der komprimierte Kopf ist unvollständig.</translation>
    </message>
    <message>
        <source>The header is compressed with &apos;%1&apos;.</source>
        <translation>Der Kopf ist mit „%1“ komprimiert.</translation>
    </message>
</context>
<context>
    <name>ConnectCommand</name>
    <message>
        <source>No Clips found</source>
        <translation>Keine Clips gefunden</translation>
    </message>
    <message>
        <source>No Clips could be found in the specified folder, please choose another folder.</source>
        <translation>Im angegebenen Ordner wurden keine Clips gefunden. Bitte wählen Sie einen anderen Ordner.</translation>
    </message>
    <message>
        <source>No P2 files found</source>
        <translation>Keine P2-Dateien gefunden</translation>
    </message>
    <message>
        <source>Please try again and choose a P2 root folder.</source>
        <translation>Bitte versuchen Sie es noch einmal und wählen Sie den Stammordner einer P2-Karte.</translation>
    </message>
    <message>
        <source>No clips found in the specified folder. Please try again and choose a P2 root folder.</source>
        <translation>Im angegebenen Ordner wurden keine Clips gefunden. Bitte versuchen Sie es noch einmal und wählen Sie den Stammordner einer P2-Karte.</translation>
    </message>
    <message>
        <source>Connect placeholders to their media by dates</source>
        <translation>Platzhalter nach dem Datum mit ihren Medien verknüpfen</translation>
    </message>
    <message>
        <source>The record folder</source>
        <translation>Der Aufnahmeordner</translation>
    </message>
    <message>
        <source>What the camera made: qt, red-h, red-p, red-m, red-raw or p2</source>
        <translation>Was die Kamera gemacht hat: qt, red-h, red-p, red-m, red-raw oder p2</translation>
    </message>
    <message>
        <source>Where the media are; of p2 the card&apos;s root folder</source>
        <translation>Wo die Medien liegen; bei p2 der Stammordner der Karte</translation>
    </message>
    <message>
        <source>Where the movies are that they were converted to</source>
        <translation>Wo die Filme liegen, in die sie umgewandelt wurden</translation>
    </message>
    <message>
        <source>Only these clips of the folder</source>
        <translation>Nur diese Clips des Ordners</translation>
    </message>
    <message>
        <source>Tell what would be connected and change nothing</source>
        <translation>Nur sagen, was verknüpft würde, und nichts ändern</translation>
    </message>
    <message>
        <source>Print it as JSON</source>
        <translation>Als JSON ausgeben</translation>
    </message>
    <message>
        <source>--converted (a P2 card holds no movies) is required</source>
        <translation>--converted fehlt (eine P2-Karte enthält keine Filme)</translation>
    </message>
    <message>
        <source>No Place Holder selected</source>
        <translation>Kein Platzhalter ausgewählt</translation>
    </message>
    <message>
        <source>Please select at least one place holder clip to connect to a file based clip.</source>
        <translation>Bitte wählen Sie mindestens einen Platzhalter-Clip aus, um ihn mit einem Clip aus einer Datei zu verknüpfen.</translation>
    </message>
</context>
<context>
    <name>DemoShoot</name>
    <message>
        <source>The demo is open already, or its folder cannot be written. Close the other one.</source>
        <translation>Die Demo ist schon geöffnet, oder ihr Ordner kann nicht geschrieben werden. Schließen Sie die andere.</translation>
    </message>
</context>
<context>
    <name>Dialogs</name>
    <message>
        <source>%1 already exists. Do you want to replace it?</source>
        <translation>%1 existiert bereits. Möchten Sie die Datei ersetzen?</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>DisconnectCommand</name>
    <message>
        <source>Part placeholders from their media</source>
        <translation>Platzhalter von ihren Medien trennen</translation>
    </message>
    <message>
        <source>The record folder</source>
        <translation>Der Aufnahmeordner</translation>
    </message>
    <message>
        <source>Only these clips of the folder</source>
        <translation>Nur diese Clips des Ordners</translation>
    </message>
</context>
<context>
    <name>Error</name>
    <message>
        <source>%1 (at byte %2)</source>
        <translation>%1 (bei Byte %2)</translation>
    </message>
</context>
<context>
    <name>ExportCommand</name>
    <message>
        <source>Write the clips of a record folder as a document</source>
        <translation>Die Clips eines Aufnahmeordners als Dokument schreiben</translation>
    </message>
    <message>
        <source>The record folder</source>
        <translation>Der Aufnahmeordner</translation>
    </message>
    <message>
        <source>What is written: xmeml, text, tab or comma</source>
        <translation>Was geschrieben wird: xmeml, text, tab oder comma</translation>
    </message>
    <message>
        <source>The document; a file of that name is replaced</source>
        <translation>Das Dokument; eine Datei dieses Namens wird ersetzt</translation>
    </message>
    <message>
        <source>The labels of xmeml, by commas; otherwise those of the preferences</source>
        <translation>Die Labels von xmeml, durch Kommas getrennt; sonst die der Einstellungen</translation>
    </message>
    <message>
        <source>No Clips to export</source>
        <translation>Keine Clips zum Exportieren</translation>
    </message>
    <message>
        <source>There are no clips to export in the selected folder.</source>
        <translation>Im ausgewählten Ordner gibt es keine Clips zum Exportieren.</translation>
    </message>
    <message>
        <source>Export failed</source>
        <translation>Export fehlgeschlagen</translation>
    </message>
    <message>
        <source>Couldn&apos;t write xml file.</source>
        <translation>Die XML-Datei konnte nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>Couldn&apos;t write text file.</source>
        <translation>Die Textdatei konnte nicht geschrieben werden.</translation>
    </message>
</context>
<context>
    <name>ExportDocument</name>
    <message>
        <source>The export was cancelled.</source>
        <translation>Der Export wurde abgebrochen.</translation>
    </message>
</context>
<context>
    <name>FileLock</name>
    <message>
        <source>Another running program uses the file.</source>
        <translation>Ein anderes laufendes Programm verwendet die Datei.</translation>
    </message>
    <message>
        <source>The volume knows no file locks.</source>
        <translation>Das Volume kennt keine Dateisperren.</translation>
    </message>
    <message>
        <source>A folder or a link stands where a file is wanted.</source>
        <translation>Wo eine Datei gebraucht wird, ist ein Ordner oder ein Link.</translation>
    </message>
</context>
<context>
    <name>FileSystem</name>
    <message>
        <source>The volume keeps no extended attributes.</source>
        <translation>Das Volume speichert keine erweiterten Attribute.</translation>
    </message>
    <message>
        <source>The link points to a name that is no text.</source>
        <translation>Der Link zeigt auf einen Namen, der kein Text ist.</translation>
    </message>
    <message>
        <source>A folder or a device stands where a file is wanted.</source>
        <translation>Wo eine Datei gebraucht wird, ist ein Ordner oder ein Gerät.</translation>
    </message>
</context>
<context>
    <name>Files</name>
    <message>
        <source>The file is larger than 1 GiB, which no file of its kind is.</source>
        <translation>Die Datei ist größer als 1 GiB; so groß ist keine Datei ihrer Art.</translation>
    </message>
    <message>
        <source>The links on the way to it lead in a circle. Remove one of them.</source>
        <translation>Die Links auf dem Weg dorthin führen im Kreis. Entfernen Sie einen davon.</translation>
    </message>
    <message>
        <source>A folder, pipe or device stands where a file is wanted.</source>
        <translation>Wo eine Datei gebraucht wird, ist ein Ordner, eine Pipe oder ein Gerät.</translation>
    </message>
    <message>
        <source>Another program has written the file meanwhile. Try again.</source>
        <translation>Ein anderes Programm hat die Datei inzwischen geschrieben. Versuchen Sie es noch einmal.</translation>
    </message>
</context>
<context>
    <name>ImportCommand</name>
    <message>
        <source>Make placeholders that stand for movies</source>
        <translation>Platzhalter anlegen, die für Filme stehen</translation>
    </message>
    <message>
        <source>The record folder</source>
        <translation>Der Aufnahmeordner</translation>
    </message>
    <message>
        <source>The movies; they stay where they are</source>
        <translation>Die Filme; sie bleiben, wo sie sind</translation>
    </message>
    <message>
        <source>Could not load one or more Clips</source>
        <translation>Ein oder mehrere Clips konnten nicht geladen werden</translation>
    </message>
    <message>
        <source>%1 of %2 were not imported.</source>
        <translation>%1 von %2 wurden nicht importiert.</translation>
    </message>
</context>
<context>
    <name>LeftOutMovies</name>
    <message>
        <source>Left-Out Movies</source>
        <translation>Ausgelassene Filme</translation>
    </message>
    <message>
        <source>These movies of the folder are not in the list of clips. “List” gives a movie room for a clip’s record; picture and sound stay as they are. “Import as Placeholder” leaves the movie untouched and writes a placeholder that is connected to it.</source>
        <translation>Diese Filme des Ordners stehen nicht in der Liste der Clips. „In die Liste“ schafft in einem Film Platz für den Eintrag eines Clips; Bild und Ton bleiben, wie sie sind. „Als Platzhalter importieren“ lässt den Film unberührt und schreibt einen Platzhalter, der mit ihm verknüpft ist.</translation>
    </message>
    <message>
        <source>Left-out movies</source>
        <translation>Ausgelassene Filme</translation>
    </message>
    <message>
        <source>Number of left-out movies</source>
        <translation>Anzahl der ausgelassenen Filme</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>&amp;List</source>
        <translation>&amp;In die Liste</translation>
    </message>
    <message>
        <source>List</source>
        <translation>In die Liste</translation>
    </message>
    <message>
        <source>Gives the selected movies room for a clip’s record</source>
        <translation>Schafft in den ausgewählten Filmen Platz für den Eintrag eines Clips</translation>
    </message>
    <message>
        <source>&amp;Import as Placeholder</source>
        <translation>Als &amp;Platzhalter importieren</translation>
    </message>
    <message>
        <source>Import as Placeholder</source>
        <translation>Als Platzhalter importieren</translation>
    </message>
    <message>
        <source>Writes placeholders connected to the selected movies</source>
        <translation>Schreibt Platzhalter, die mit den ausgewählten Filmen verknüpft sind</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>It cannot be opened: %1</source>
        <translation>Er lässt sich nicht öffnen: %1</translation>
    </message>
    <message>
        <source>It has no user data to keep the clip’s record in.</source>
        <translation>Er hat keine Nutzerdaten, die den Eintrag des Clips aufnehmen könnten.</translation>
    </message>
    <message>
        <source>Its record cannot be read: %1</source>
        <translation>Sein Eintrag ist nicht lesbar: %1</translation>
    </message>
</context>
<context>
    <name>ListCommand</name>
    <message>
        <source>List the clips of a record folder</source>
        <translation>Die Clips eines Aufnahmeordners auflisten</translation>
    </message>
    <message>
        <source>The record folder</source>
        <translation>Der Aufnahmeordner</translation>
    </message>
    <message>
        <source>Print the whole records as JSON</source>
        <translation>Die vollständigen Einträge als JSON ausgeben</translation>
    </message>
</context>
<context>
    <name>LogFile</name>
    <message>
        <source>The log cannot be written: %1</source>
        <translation>Das Protokoll kann nicht geschrieben werden: %1</translation>
    </message>
</context>
<context>
    <name>ManualPages</name>
    <message>
        <source>The manual was not installed with the program. It was looked for in:
%1</source>
        <translation>Das Handbuch wurde nicht mit dem Programm installiert. Gesucht wurde es in:
%1</translation>
    </message>
</context>
<context>
    <name>MarkerSetStore</name>
    <message>
        <source>there is no marker button %1</source>
        <translation>es gibt keine Markertaste %1</translation>
    </message>
    <message>
        <source>the marker set &quot;%1&quot; is read-only; duplicate it to change its titles</source>
        <translation>der Markersatz „%1“ ist schreibgeschützt; duplizieren Sie ihn, um seine Titel zu ändern</translation>
    </message>
</context>
<context>
    <name>MediaSamples</name>
    <message>
        <source>The movie has more samples than are handled (%1).</source>
        <translation>Der Film hat mehr Samples, als verarbeitet werden (%1).</translation>
    </message>
</context>
<context>
    <name>Movie</name>
    <message>
        <source>The movie header says neither duration nor time scale.</source>
        <translation>Der Kopf des Films nennt weder Dauer noch Zeitskala.</translation>
    </message>
    <message>
        <source>The file ends within an atom of type &apos;%1&apos;, before the movie header.</source>
        <translation>Die Datei endet mitten in einem Atom vom Typ „%1“, vor dem Kopf des Films.</translation>
    </message>
    <message>
        <source>The file has no movie header (&apos;moov&apos;).</source>
        <translation>Die Datei hat keinen Filmkopf („moov“).</translation>
    </message>
    <message>
        <source>The file ends within the movie header.</source>
        <translation>Die Datei endet mitten im Filmkopf.</translation>
    </message>
    <message>
        <source>The compressed header holds no movie header.</source>
        <translation>Der komprimierte Kopf enthält keinen Filmkopf.</translation>
    </message>
    <message>
        <source>The movie&apos;s user data are too large (%1 bytes).</source>
        <translation>Die Nutzerdaten des Films sind zu groß (%1 Bytes).</translation>
    </message>
    <message>
        <source>The file has too many atoms.</source>
        <translation>Die Datei hat zu viele Atome.</translation>
    </message>
    <message>
        <source>The movie header is not what it was; read the movie again.</source>
        <translation>Der Filmkopf ist nicht mehr, wie er war; lesen Sie den Film neu ein.</translation>
    </message>
    <message>
        <source>Another program has changed the movie; read it again.</source>
        <translation>Ein anderes Programm hat den Film geändert; lesen Sie ihn neu ein.</translation>
    </message>
    <message>
        <source>The movie header is not where it was; read the movie again.</source>
        <translation>Der Filmkopf ist nicht mehr, wo er war; lesen Sie den Film neu ein.</translation>
    </message>
    <message>
        <source>The file has too many movie headers.</source>
        <translation>Die Datei hat zu viele Filmköpfe.</translation>
    </message>
    <message>
        <source>The movie header is too large to be written anew.</source>
        <translation>Der Filmkopf ist zu groß, um neu geschrieben zu werden.</translation>
    </message>
    <message>
        <source>The file has two different movie headers.</source>
        <translation>Die Datei hat zwei verschiedene Filmköpfe.</translation>
    </message>
    <message>
        <source>The file only refers to other movies; nothing is written to it.</source>
        <translation>Die Datei verweist nur auf andere Filme; in sie wird nichts geschrieben.</translation>
    </message>
    <message>
        <source>The movie has no list of user data.</source>
        <translation>Der Film hat keine Liste von Nutzerdaten.</translation>
    </message>
</context>
<context>
    <name>MovieStill</name>
    <message>
        <source>The movie has no picture that can be shown.</source>
        <translation>Der Film hat kein Bild, das gezeigt werden kann.</translation>
    </message>
    <message>
        <source>It was given up.</source>
        <translation>Es wurde aufgegeben.</translation>
    </message>
</context>
<context>
    <name>OfflineRecorder</name>
    <message>
        <source>Place Holder Clip Recorder</source>
        <translation>Platzhalter-Clip-Rekorder</translation>
    </message>
    <message>
        <source>Recorder state</source>
        <translation>Zustand des Rekorders</translation>
    </message>
    <message>
        <source>Shot clock</source>
        <translation>Takeuhr</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Clip name</source>
        <translation>Clipname</translation>
    </message>
    <message>
        <source>Name of the next clips</source>
        <translation>Name der nächsten Clips</translation>
    </message>
    <message>
        <source>Take</source>
        <translation>Take</translation>
    </message>
    <message>
        <source>Next take</source>
        <translation>Nächster Take</translation>
    </message>
    <message>
        <source>Take number of the next clip</source>
        <translation>Takenummer des nächsten Clips</translation>
    </message>
    <message>
        <source>Scene</source>
        <translation>Szene</translation>
    </message>
    <message>
        <source>Scene of the next clips</source>
        <translation>Szene der nächsten Clips</translation>
    </message>
    <message>
        <source>Recorder warning</source>
        <translation>Warnung des Rekorders</translation>
    </message>
</context>
<context>
    <name>Options</name>
    <message>
        <source>Usage</source>
        <translation>Aufruf</translation>
    </message>
    <message>
        <source>OPTIONS</source>
        <translation>OPTIONEN</translation>
    </message>
    <message>
        <source>SUBCOMMAND</source>
        <translation>BEFEHL</translation>
    </message>
    <message>
        <source>REQUIRED</source>
        <translation>NÖTIG</translation>
    </message>
    <message>
        <source>Positionals</source>
        <translation>Argumente</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Optionen</translation>
    </message>
    <message>
        <source>Print this help message and exit</source>
        <translation>Diese Hilfe zeigen</translation>
    </message>
    <message>
        <source>Display program version information and exit</source>
        <translation>Die Version des Programms zeigen</translation>
    </message>
    <message>
        <source>Keep the settings in this file instead of the user&apos;s own</source>
        <translation>Die Einstellungen in dieser Datei halten statt in der des Benutzers</translation>
    </message>
    <message>
        <source>Colours of the windows: system, dark or light</source>
        <translation>Farben der Fenster: system, dark oder light</translation>
    </message>
    <message>
        <source>Language of all texts: %1; otherwise the desktop&apos;s</source>
        <translation>Sprache aller Texte: %1; sonst die des Desktops</translation>
    </message>
    <message>
        <source>Open a small sample shoot, made anew at every start, with settings of its own</source>
        <translation>Einen kleinen Beispieldreh öffnen, bei jedem Start neu gemacht, mit eigenen Einstellungen</translation>
    </message>
    <message>
        <source>Quit when the main window has been painted, to measure how long a start takes</source>
        <translation>Beenden, sobald das Hauptfenster gezeichnet ist, um zu messen, wie lange ein Start dauert</translation>
    </message>
    <message>
        <source>Marquill logs video shots while they are filmed.</source>
        <translation>Marquill protokolliert Takes, während sie gedreht werden.</translation>
    </message>
    <message>
        <source>Subcommands</source>
        <translation>Befehle</translation>
    </message>
    <message>
        <source>Folders, movies and clips to open</source>
        <translation>Ordner, Filme und Clips, die geöffnet werden</translation>
    </message>
    <message>
        <source>%1: no such file or folder, nor a command</source>
        <translation>%1: keine Datei, kein Ordner und kein Befehl</translation>
    </message>
    <message>
        <source>No desktop to show windows on</source>
        <translation>Kein Desktop, auf dem sich Fenster zeigen lassen</translation>
    </message>
    <message>
        <source>start Marquill in a desktop session, or use its commands; --help lists them</source>
        <translation>Marquill in einer Desktop-Sitzung starten oder seine Befehle verwenden; --help nennt sie</translation>
    </message>
</context>
<context>
    <name>PanaP2</name>
    <message>
        <source>There is more than one element at the top.</source>
        <translation>Auf der obersten Ebene steht mehr als ein Element.</translation>
    </message>
</context>
<context>
    <name>PlaceholderChoice</name>
    <message>
        <source>the folder holds no place holder clip &quot;%1&quot;; `marquill list` tells those that it holds</source>
        <translation>der Ordner enthält keinen Platzhalter-Clip „%1“; `marquill list` nennt die, die er enthält</translation>
    </message>
    <message>
        <source>its record is that of &quot;%1&quot;; give the file this name back to change the clip</source>
        <translation>sein Eintrag gehört zu „%1“; geben Sie der Datei diesen Namen zurück, um den Clip zu ändern</translation>
    </message>
    <message>
        <source>holds no clip record and was left as it is</source>
        <translation>enthält keinen Clip-Eintrag und blieb, wie es war</translation>
    </message>
    <message>
        <source>another program has meanwhile changed in it what was to be changed, and it was left as it is; look at it, and give the command again</source>
        <translation>ein anderes Programm hat darin inzwischen geändert, was geändert werden sollte, und sie wurde gelassen, wie sie ist; sehen Sie sie an und geben Sie den Befehl erneut ein</translation>
    </message>
</context>
<context>
    <name>PosterCache</name>
    <message>
        <source>The picture cannot be encoded.</source>
        <translation>Das Bild kann nicht kodiert werden.</translation>
    </message>
</context>
<context>
    <name>Preferences</name>
    <message>
        <source>Preferences</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Labels</source>
        <translation>Labels</translation>
    </message>
    <message>
        <source>The labels a clip can be given, in the order of the label menus. Drag one to move it, double-click to rename it.</source>
        <translation>Die Labels, die ein Clip bekommen kann, in der Reihenfolge der Label-Menüs. Ziehen verschiebt ein Label, Doppelklicken benennt es um.</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Add label</source>
        <translation>Label hinzufügen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Delete label</source>
        <translation>Label löschen</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>&amp;Theme</source>
        <translation>&amp;Darstellung</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>Darstellung</translation>
    </message>
    <message>
        <source>Audio &amp;volume</source>
        <translation>&amp;Lautstärke</translation>
    </message>
    <message>
        <source>Audio volume</source>
        <translation>Lautstärke</translation>
    </message>
    <message>
        <source>Off again after every start of the program.</source>
        <translation>Nach jedem Start des Programms wieder aus.</translation>
    </message>
    <message>
        <source>&amp;Settings file</source>
        <translation>&amp;Einstellungsdatei</translation>
    </message>
    <message>
        <source>Settings file</source>
        <translation>Einstellungsdatei</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>Copy the path of the settings file</source>
        <translation>Den Pfad der Einstellungsdatei kopieren</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Follow the system</source>
        <translation>Wie das System</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Dunkel</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Hell</translation>
    </message>
</context>
<context>
    <name>ProbeCommand</name>
    <message>
        <source>duration   %1 s (%2 / %3)%4</source>
        <translation>Dauer      %1 s (%2 / %3)%4</translation>
    </message>
    <message>
        <source>, fragmented</source>
        <translation>, fragmentiert</translation>
    </message>
    <message>
        <source>header     %1 bytes at %2, before the media%3</source>
        <translation>Kopf       %1 Bytes bei %2, vor den Medien%3</translation>
    </message>
    <message>
        <source>header     %1 bytes at %2, after the media%3</source>
        <translation>Kopf       %1 Bytes bei %2, hinter den Medien%3</translation>
    </message>
    <message>
        <source>, compressed</source>
        <translation>, komprimiert</translation>
    </message>
    <message>
        <source>reference  names other movies, has no media of its own</source>
        <translation>Verweis    nennt andere Filme, hat keine eigenen Medien</translation>
    </message>
    <message>
        <source>track %1    %2 %3, %4 samples, %5 × %6</source>
        <translation>Spur %1     %2 %3, %4 Samples, %5 × %6</translation>
    </message>
    <message>
        <source>user data  none: the movie cannot hold a clip record</source>
        <translation>Nutzerdat. keine: der Film kann keinen Clip-Eintrag enthalten</translation>
    </message>
    <message>
        <source>user data  %1, %2 bytes</source>
        <translation>Nutzerdat. %1, %2 Bytes</translation>
    </message>
    <message>
        <source>Tell what the header of a movie file says</source>
        <translation>Sagen, was im Kopf einer Filmdatei steht</translation>
    </message>
    <message>
        <source>The movie</source>
        <translation>Der Film</translation>
    </message>
    <message>
        <source>Print it as JSON</source>
        <translation>Als JSON ausgeben</translation>
    </message>
    <message>
        <source>Also the time codes at these times, in units of the movie</source>
        <translation>Auch die Timecodes zu diesen Zeiten, in Einheiten des Films</translation>
    </message>
    <message>
        <source>time code  %1</source>
        <translation>Timecode   %1</translation>
    </message>
</context>
<context>
    <name>ProgressSheet</name>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>PropertyList</name>
    <message>
        <source>There is text where only elements may stand.</source>
        <translation>Wo nur Elemente stehen dürfen, steht Text.</translation>
    </message>
    <message>
        <source>The property list holds no value.</source>
        <translation>Die Eigenschaftsliste enthält keinen Wert.</translation>
    </message>
    <message>
        <source>The property list holds more than one value.</source>
        <translation>Die Eigenschaftsliste enthält mehr als einen Wert.</translation>
    </message>
    <message>
        <source>The property list is nested too deeply.</source>
        <translation>Die Eigenschaftsliste ist zu tief verschachtelt.</translation>
    </message>
    <message>
        <source>A key stands where a value is expected.</source>
        <translation>Wo ein Wert erwartet wird, steht ein Schlüssel.</translation>
    </message>
    <message>
        <source>A property list has no element &lt;%1&gt;.</source>
        <translation>Eine Eigenschaftsliste hat kein Element &lt;%1&gt;.</translation>
    </message>
    <message>
        <source>The content of &lt;%1&gt; is wrong.</source>
        <translation>Der Inhalt von &lt;%1&gt; ist falsch.</translation>
    </message>
    <message>
        <source>A value of the dictionary has no key.</source>
        <translation>Ein Wert des Wörterbuchs hat keinen Schlüssel.</translation>
    </message>
    <message>
        <source>A key of the dictionary has no value.</source>
        <translation>Ein Schlüssel des Wörterbuchs hat keinen Wert.</translation>
    </message>
    <message>
        <source>There is an element where only text may stand.</source>
        <translation>Wo nur Text stehen darf, steht ein Element.</translation>
    </message>
    <message>
        <source>An entity is wrong or not one of XML&apos;s own.</source>
        <translation>Eine Entität ist falsch oder keine von XML selbst.</translation>
    </message>
    <message>
        <source>There is not enough memory to read it.</source>
        <translation>Der Speicher reicht nicht, um sie zu lesen.</translation>
    </message>
    <message>
        <source>The property list ends before it is complete.</source>
        <translation>Die Eigenschaftsliste endet, bevor sie vollständig ist.</translation>
    </message>
    <message>
        <source>The XML is damaged: %1.</source>
        <translation>Das XML ist beschädigt: %1.</translation>
    </message>
    <message>
        <source>Binary property lists are not supported.</source>
        <translation>Binäre Eigenschaftslisten werden nicht unterstützt.</translation>
    </message>
    <message>
        <source>The property list is empty.</source>
        <translation>Die Eigenschaftsliste ist leer.</translation>
    </message>
    <message>
        <source>The property list holds no dictionary.</source>
        <translation>Die Eigenschaftsliste enthält kein Wörterbuch.</translation>
    </message>
    <message>
        <source>the root</source>
        <translation>der Wurzel</translation>
    </message>
    <message>
        <source>The value at %1 cannot be written: it is missing, or holds a character or date that a property list has no way to write.</source>
        <translation>Der Wert bei %1 kann nicht geschrieben werden: Er fehlt, oder er enthält ein Zeichen oder Datum, das eine Eigenschaftsliste nicht schreiben kann.</translation>
    </message>
</context>
<context>
    <name>RecordCommand</name>
    <message>
        <source>Record a take: digits fire markers, Enter or Escape stops and writes the placeholder</source>
        <translation>Einen Take aufnehmen: Ziffern setzen Marker, Eingabe oder Escape beendet ihn und schreibt den Platzhalter</translation>
    </message>
    <message>
        <source>The record folder</source>
        <translation>Der Aufnahmeordner</translation>
    </message>
    <message>
        <source>Name of the clip; otherwise the recorder&apos;s last one</source>
        <translation>Name des Clips; sonst der letzte des Rekorders</translation>
    </message>
    <message>
        <source>Scene of the clip; otherwise the recorder&apos;s last one</source>
        <translation>Szene des Clips; sonst die letzte des Rekorders</translation>
    </message>
    <message>
        <source>Title of the marker set; otherwise the current one</source>
        <translation>Titel des Markersatzes; sonst der aktuelle</translation>
    </message>
    <message>
        <source>Couldn&apos;t create Place Holder Clip</source>
        <translation>Platzhalter-Clip konnte nicht angelegt werden</translation>
    </message>
    <message>
        <source>The place holder file couldn&apos;t be created. Please check your user permissions.</source>
        <translation>Die Platzhalter-Datei konnte nicht angelegt werden. Bitte prüfen Sie Ihre Zugriffsrechte.</translation>
    </message>
    <message>
        <source>no marker set is called &quot;%1&quot;; there are: %2</source>
        <translation>kein Markersatz heißt „%1“; es gibt: %2</translation>
    </message>
</context>
<context>
    <name>RecoverTakesDialog</name>
    <message>
        <source>Recover Takes</source>
        <translation>Takes retten</translation>
    </message>
    <message>
        <source>The clips of these takes could not be written. Nothing of them is lost until you discard them: choose a folder to save them into.</source>
        <translation>Die Clips dieser Takes konnten nicht geschrieben werden. Nichts davon ist verloren, solange Sie sie nicht verwerfen: Wählen Sie einen Ordner, in dem sie gesichert werden.</translation>
    </message>
    <message>
        <source>Takes to recover</source>
        <translation>Zu rettende Takes</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Scene</source>
        <translation>Szene</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>Markers</source>
        <translation>Marker</translation>
    </message>
    <message>
        <source>Discard…</source>
        <translation>Verwerfen…</translation>
    </message>
    <message>
        <source>Discard selected takes</source>
        <translation>Ausgewählte Takes verwerfen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Recover…</source>
        <translation>Retten…</translation>
    </message>
    <message>
        <source>Recover selected takes</source>
        <translation>Ausgewählte Takes retten</translation>
    </message>
</context>
<context>
    <name>RotatingFile</name>
    <message>
        <source>Other programs keep replacing the file.</source>
        <translation>Andere Programme ersetzen die Datei immer wieder.</translation>
    </message>
</context>
<context>
    <name>SampleTableAtoms</name>
    <message>
        <source>A sample description has the impossible size %1.</source>
        <translation>Eine Sample-Beschreibung hat die unmögliche Größe %1.</translation>
    </message>
</context>
<context>
    <name>SampleTimes</name>
    <message>
        <source>The edit list shows too many samples.</source>
        <translation>Die Schnittliste zeigt zu viele Samples.</translation>
    </message>
    <message>
        <source>The movie or its video has no time scale.</source>
        <translation>Der Film oder sein Video hat keine Zeitskala.</translation>
    </message>
</context>
<context>
    <name>SetCommand</name>
    <message>
        <source>&quot;%1&quot; is not KEY=VALUE with a key of scene, take, rating, label, comment</source>
        <translation>„%1“ ist nicht SCHLÜSSEL=WERT mit einem der Schlüssel scene, take, rating, label, comment</translation>
    </message>
    <message>
        <source>a rating is a number from 0 to 5, not &quot;%1&quot;</source>
        <translation>eine Wertung ist eine Zahl von 0 bis 5, nicht „%1“</translation>
    </message>
    <message>
        <source>the %1 holds a character that no clip record can</source>
        <translation>%1 enthält ein Zeichen, das kein Clip-Eintrag enthalten kann</translation>
    </message>
    <message>
        <source>no label is called &quot;%1&quot;; there are: %2</source>
        <translation>kein Label heißt „%1“; es gibt: %2</translation>
    </message>
    <message>
        <source>holds no clip record; see what `marquill probe` tells of it</source>
        <translation>enthält keinen Clip-Eintrag; `marquill probe` sagt mehr darüber</translation>
    </message>
    <message>
        <source>Change what is logged of a clip</source>
        <translation>Ändern, was zu einem Clip notiert ist</translation>
    </message>
    <message>
        <source>The clip file: a placeholder or a movie</source>
        <translation>Die Clip-Datei: ein Platzhalter oder ein Film</translation>
    </message>
    <message>
        <source>Keys: scene, take, rating (0 to 5), label, comment</source>
        <translation>Schlüssel: scene, take, rating (0 bis 5), label, comment</translation>
    </message>
</context>
<context>
    <name>ShowCommand</name>
    <message>
        <source>Show the record of a clip and the texts about it</source>
        <translation>Den Eintrag eines Clips und die Texte dazu zeigen</translation>
    </message>
    <message>
        <source>The clip file: a placeholder or a movie</source>
        <translation>Die Clip-Datei: ein Platzhalter oder ein Film</translation>
    </message>
    <message>
        <source>Print it as JSON</source>
        <translation>Als JSON ausgeben</translation>
    </message>
    <message>
        <source>holds no clip record; see what `marquill probe` tells of it</source>
        <translation>enthält keinen Clip-Eintrag; `marquill probe` sagt mehr darüber</translation>
    </message>
</context>
<context>
    <name>ShownMovie</name>
    <message>
        <source>This movie is gone. Was it moved or deleted?</source>
        <translation>Dieser Film ist weg. Wurde er verschoben oder gelöscht?</translation>
    </message>
    <message>
        <source>This movie was replaced, and cannot be shown any more.</source>
        <translation>Dieser Film wurde ersetzt und kann nicht mehr gezeigt werden.</translation>
    </message>
</context>
<context>
    <name>Subpaths</name>
    <message>
        <source>The search was cancelled.</source>
        <translation>Die Suche wurde abgebrochen.</translation>
    </message>
</context>
<context>
    <name>SystemError</name>
    <message>
        <source>There is no file or folder of that name. Was it moved or deleted?</source>
        <translation>Es gibt keine Datei und keinen Ordner dieses Namens. Wurde etwas verschoben oder gelöscht?</translation>
    </message>
    <message>
        <source>There is no such folder; a part of the path is a file.</source>
        <translation>Diesen Ordner gibt es nicht; ein Teil des Pfades ist eine Datei.</translation>
    </message>
    <message>
        <source>The links on the way to it lead in a circle. Remove one of them.</source>
        <translation>Die Links auf dem Weg dorthin führen im Kreis. Entfernen Sie einen davon.</translation>
    </message>
    <message>
        <source>You are not allowed to do this. Change the permissions of the file or of its folder.</source>
        <translation>Sie dürfen das nicht. Ändern Sie die Zugriffsrechte der Datei oder ihres Ordners.</translation>
    </message>
    <message>
        <source>The system does not permit this. The file may be locked, or belong to somebody else.</source>
        <translation>Das System erlaubt das nicht. Die Datei ist vielleicht gesperrt oder gehört jemand anderem.</translation>
    </message>
    <message>
        <source>The volume is read-only. Unlock it or choose another folder.</source>
        <translation>Das Volume ist schreibgeschützt. Entsperren Sie es oder wählen Sie einen anderen Ordner.</translation>
    </message>
    <message>
        <source>The volume is full. Free some space and try again.</source>
        <translation>Das Volume ist voll. Schaffen Sie Platz und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>Your share of the volume is used up. Free some space and try again.</source>
        <translation>Ihr Anteil am Volume ist aufgebraucht. Schaffen Sie Platz und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>Something of that name is there already. Choose another name.</source>
        <translation>Etwas dieses Namens gibt es dort schon. Wählen Sie einen anderen Namen.</translation>
    </message>
    <message>
        <source>The folder is not empty.</source>
        <translation>Der Ordner ist nicht leer.</translation>
    </message>
    <message>
        <source>A folder stands where a file is wanted.</source>
        <translation>Wo eine Datei gebraucht wird, ist ein Ordner.</translation>
    </message>
    <message>
        <source>A pipe, socket or device stands where a file is wanted.</source>
        <translation>Wo eine Datei gebraucht wird, ist eine Pipe, ein Socket oder ein Gerät.</translation>
    </message>
    <message>
        <source>A device stands where a file is wanted.</source>
        <translation>Wo eine Datei gebraucht wird, ist ein Gerät.</translation>
    </message>
    <message>
        <source>The operation was interrupted. Try again.</source>
        <translation>Der Vorgang wurde unterbrochen. Versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>The operation was cancelled.</source>
        <translation>Der Vorgang wurde abgebrochen.</translation>
    </message>
    <message>
        <source>The name is too long for this volume. Shorten it.</source>
        <translation>Der Name ist zu lang für dieses Volume. Kürzen Sie ihn.</translation>
    </message>
    <message>
        <source>The file would be larger than this volume allows.</source>
        <translation>Die Datei würde größer, als dieses Volume erlaubt.</translation>
    </message>
    <message>
        <source>The two places are on different volumes.</source>
        <translation>Die beiden Orte liegen auf verschiedenen Volumes.</translation>
    </message>
    <message>
        <source>The volume does not support this.</source>
        <translation>Das Volume unterstützt das nicht.</translation>
    </message>
    <message>
        <source>The system does not support this.</source>
        <translation>Das System unterstützt das nicht.</translation>
    </message>
    <message>
        <source>Too many files are open. Close some windows and try again.</source>
        <translation>Zu viele Dateien sind geöffnet. Schließen Sie einige Fenster und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>Too many files are open. Close other programs and try again.</source>
        <translation>Zu viele Dateien sind geöffnet. Schließen Sie andere Programme und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>It is in use by the system. Try again later.</source>
        <translation>Das System benutzt es gerade. Versuchen Sie es später noch einmal.</translation>
    </message>
    <message>
        <source>The device failed. Check its connection, and copy what you can.</source>
        <translation>Das Gerät hat versagt. Prüfen Sie seinen Anschluss und kopieren Sie, was Sie können.</translation>
    </message>
    <message>
        <source>The server lost the file. Connect to it again.</source>
        <translation>Der Server hat die Datei verloren. Verbinden Sie sich neu mit ihm.</translation>
    </message>
    <message>
        <source>The system failed: %1.</source>
        <translation>Das System hat versagt: %1.</translation>
    </message>
</context>
<context>
    <name>TakeJournalFormat</name>
    <message>
        <source>This is no journal of a take.</source>
        <translation>Das ist kein Journal eines Takes.</translation>
    </message>
    <message>
        <source>A later version of Marquill wrote this journal.</source>
        <translation>Eine neuere Version von Marquill hat dieses Journal geschrieben.</translation>
    </message>
    <message>
        <source>The journal does not say when its take began.</source>
        <translation>Das Journal sagt nicht, wann sein Take begann.</translation>
    </message>
    <message>
        <source>The journal ends before it tells of a take.</source>
        <translation>Das Journal endet, bevor es von einem Take berichtet.</translation>
    </message>
</context>
<context>
    <name>TakeRecovery</name>
    <message>
        <source>The folder does not exist or is offline.</source>
        <translation>Der Ordner existiert nicht oder ist offline.</translation>
    </message>
</context>
<context>
    <name>TakeRescue</name>
    <message>
        <source>1 take could not be saved where recorded</source>
        <translation>1 Take konnte nicht dort gesichert werden, wo er aufgenommen wurde</translation>
    </message>
    <message>
        <source>%1 takes could not be saved where recorded</source>
        <translation>%1 Takes konnten nicht dort gesichert werden, wo sie aufgenommen wurden</translation>
    </message>
</context>
<context>
    <name>TakeWriter</name>
    <message>
        <source>No file of that name can stand in the folder.</source>
        <translation>Eine Datei dieses Namens kann in dem Ordner nicht stehen.</translation>
    </message>
    <message>
        <source>Other programs keep taking the names of clips.</source>
        <translation>Andere Programme nehmen den Clips immer wieder die Namen weg.</translation>
    </message>
</context>
<context>
    <name>TerminalRecorder</name>
    <message>
        <source>Recording %1, take %2, into %3
</source>
        <translation>Aufnahme von %1, Take %2, in %3
</translation>
    </message>
    <message>
        <source>A digit fires its marker; Enter or Escape stops.
</source>
        <translation>Eine Ziffer setzt ihren Marker; Eingabe oder Escape beendet.
</translation>
    </message>
</context>
<context>
    <name>TextExportOptions</name>
    <message>
        <source>Export as Text</source>
        <translation>Als Text exportieren</translation>
    </message>
    <message>
        <source>Write the clips of the folder as</source>
        <translation>Die Clips des Ordners schreiben als</translation>
    </message>
    <message>
        <source>&amp;User readable text</source>
        <translation>&amp;Lesbarer Text</translation>
    </message>
    <message>
        <source>&amp;Tab delimited table</source>
        <translation>Tabelle mit &amp;Tabulatoren</translation>
    </message>
    <message>
        <source>&amp;Comma delimited table</source>
        <translation>Tabelle mit &amp;Kommas</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>TrashQuestion</name>
    <message>
        <source>Deleting the clips in the trash…</source>
        <translation>Die Clips im Papierkorb werden gelöscht…</translation>
    </message>
    <message>
        <source>Delete Clips in the Trash?</source>
        <translation>Clips im Papierkorb löschen?</translation>
    </message>
    <message>
        <source>There are clips in the trash folder in one or more recording folders. You can either delete these clips or keep them in the trash folder(s). Deleting clips cannot be undone.</source>
        <translation>In den Papierkörben eines oder mehrerer Aufnahmeordner liegen Clips. Sie können diese Clips löschen oder im Papierkorb lassen. Gelöschte Clips lassen sich nicht zurückholen.</translation>
    </message>
    <message>
        <source>Keep Clips</source>
        <translation>Clips behalten</translation>
    </message>
    <message>
        <source>Cancel Quitting</source>
        <translation>Nicht beenden</translation>
    </message>
    <message>
        <source>Delete Clips</source>
        <translation>Clips löschen</translation>
    </message>
    <message>
        <source>Could not delete Clips</source>
        <translation>Clips konnten nicht gelöscht werden</translation>
    </message>
    <message>
        <source>%1 clips of %2 clips could not be deleted. Please try to delete them manually in the Finder.</source>
        <translation>%1 Clips von %2 Clips konnten nicht gelöscht werden. Bitte versuchen Sie, sie von Hand im Dateimanager zu löschen.</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>UpdatePlan</name>
    <message>
        <source>The movie was recorded in fragments and has no room before them for a longer header.</source>
        <translation>Der Film wurde in Fragmenten aufgenommen und hat vor ihnen keinen Platz für einen längeren Kopf.</translation>
    </message>
    <message>
        <source>The file ends within its last atom; nothing is added to it.</source>
        <translation>Die Datei endet mitten in ihrem letzten Atom; es wird nichts angehängt.</translation>
    </message>
    <message>
        <source>The file ends with bytes that are no atom; nothing is added to it.</source>
        <translation>Die Datei endet mit Bytes, die kein Atom sind; es wird nichts angehängt.</translation>
    </message>
    <message>
        <source>The last atom has no size, and cannot be given one safely.</source>
        <translation>Das letzte Atom hat keine Größe und kann nicht gefahrlos eine bekommen.</translation>
    </message>
    <message>
        <source>The free atom at the end of the file is too large to be used.</source>
        <translation>Das freie Atom am Ende der Datei ist zu groß, um benutzt zu werden.</translation>
    </message>
    <message>
        <source>The movie header is too large to be written anew.</source>
        <translation>Der Filmkopf ist zu groß, um neu geschrieben zu werden.</translation>
    </message>
</context>
<context>
    <name>UserData</name>
    <message>
        <source>There is no user-data item &apos;%1&apos; with the index %2.</source>
        <translation>Es gibt keinen Eintrag „%1“ mit der Nummer %2 in den Nutzerdaten.</translation>
    </message>
</context>
<context>
    <name>UserDefaults</name>
    <message>
        <source>There are too many damaged settings files beside it.</source>
        <translation>Daneben liegen zu viele beschädigte Einstellungsdateien.</translation>
    </message>
</context>
<context>
    <name>WindowDescription</name>
    <message>
        <source>the window description is missing; install Marquill again</source>
        <translation>die Fensterbeschreibung fehlt; installieren Sie Marquill neu</translation>
    </message>
    <message>
        <source>the window description holds widgets of unknown classes: %1</source>
        <translation>die Fensterbeschreibung enthält Bedienelemente unbekannter Klassen: %1</translation>
    </message>
    <message>
        <source>the window description lacks %1</source>
        <translation>in der Fensterbeschreibung fehlt %1</translation>
    </message>
</context>
<context>
    <name>XmemlExport</name>
    <message>
        <source>The clip is not connected to media. Connect it.</source>
        <translation>Der Clip ist nicht mit Medien verknüpft. Verknüpfen Sie ihn.</translation>
    </message>
    <message>
        <source>The movie has no pictures.</source>
        <translation>Der Film hat keine Bilder.</translation>
    </message>
</context>
<context>
    <name>XmlEncoding</name>
    <message>
        <source>The text is not in the encoding it claims to be in.</source>
        <translation>Der Text hat nicht die Kodierung, die er angibt.</translation>
    </message>
    <message>
        <source>The encoding &quot;%1&quot; is not supported.</source>
        <translation>Die Kodierung „%1“ wird nicht unterstützt.</translation>
    </message>
    <message>
        <source>A NUL character stands in the text.</source>
        <translation>Im Text steht ein NUL-Zeichen.</translation>
    </message>
</context>
<context>
    <name>_markerPanel</name>
    <message>
        <source>Real Time Markers</source>
        <translation>Echtzeit-Marker</translation>
    </message>
    <message>
        <source>Marker Sets</source>
        <translation>Markersätze</translation>
    </message>
    <message>
        <source>Edit…</source>
        <translation>Bearbeiten…</translation>
    </message>
    <message>
        <source>Edit the marker sets</source>
        <translation>Die Markersätze bearbeiten</translation>
    </message>
</context>
<context>
    <name>_markerSetEditor</name>
    <message>
        <source>Marker Sets</source>
        <translation>Markersätze</translation>
    </message>
    <message>
        <source>The sets of marker buttons, in the order of the popup. Drag one to move it, double-click to rename it.</source>
        <translation>Die Sätze der Markertasten, in der Reihenfolge des Menüs. Ziehen verschiebt einen Satz, Doppelklicken benennt ihn um.</translation>
    </message>
    <message>
        <source>Marker sets</source>
        <translation>Markersätze</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Add set</source>
        <translation>Satz hinzufügen</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>Duplizieren</translation>
    </message>
    <message>
        <source>Duplicate set</source>
        <translation>Satz duplizieren</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Delete set</source>
        <translation>Satz löschen</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>marquill::Application</name>
    <message>
        <source>Show Log</source>
        <translation>Protokoll anzeigen</translation>
    </message>
    <message>
        <source>Nothing has been written into the log yet, or its disk could not take it.
%1</source>
        <translation>Noch wurde nichts ins Protokoll geschrieben, oder seine Festplatte konnte es nicht aufnehmen.
%1</translation>
    </message>
    <message>
        <source>There is no log</source>
        <translation>Es gibt kein Protokoll</translation>
    </message>
    <message>
        <source>Quit Marquill?</source>
        <translation>Marquill beenden?</translation>
    </message>
    <message>
        <source>Marquill is currently busy with recording a clip. To quit Vistacue please stop recording and try again to quit.</source>
        <translation>Marquill nimmt gerade einen Clip auf. Um Marquill zu beenden, stoppen Sie bitte die Aufnahme und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>Undo Typing</source>
        <translation>Rückgängig: Eingabe</translation>
    </message>
    <message>
        <source>Redo Typing</source>
        <translation>Wiederholen: Eingabe</translation>
    </message>
    <message>
        <source>About Marquill</source>
        <translation>Über Marquill</translation>
    </message>
    <message>
        <source>Logs video shots while they are filmed.</source>
        <translation>Protokolliert Takes, während sie gedreht werden.</translation>
    </message>
    <message>
        <source>Feedback:</source>
        <translation>Feedback:</translation>
    </message>
    <message>
        <source>Hide %1</source>
        <translation>%1 ausblenden</translation>
    </message>
    <message>
        <source>Show %1</source>
        <translation>%1 einblenden</translation>
    </message>
    <message>
        <source>Clip Manager</source>
        <translation>Clip-Manager</translation>
    </message>
    <message>
        <source>Real Time Markers Window</source>
        <translation>Echtzeit-Marker</translation>
    </message>
    <message>
        <source>Place Holder Clip Recorder Window</source>
        <translation>Platzhalter-Clip-Rekorder</translation>
    </message>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Add Folder…</source>
        <translation>Ordner hinzufügen…</translation>
    </message>
    <message>
        <source>Remove Folder from List</source>
        <translation>Ordner aus der Liste entfernen</translation>
    </message>
    <message>
        <source>Import Movies…</source>
        <translation>Filme importieren…</translation>
    </message>
    <message>
        <source>Export Clips as XML…</source>
        <translation>Clips als XML exportieren…</translation>
    </message>
    <message>
        <source>Export Clips as Text…</source>
        <translation>Clips als Text exportieren…</translation>
    </message>
    <message>
        <source>Preferences…</source>
        <translation>Einstellungen…</translation>
    </message>
    <message>
        <source>Hide Marquill</source>
        <translation>Marquill ausblenden</translation>
    </message>
    <message>
        <source>Quit Marquill</source>
        <translation>Marquill beenden</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Ausschneiden</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Alles auswählen</translation>
    </message>
    <message>
        <source>Go to Recorder</source>
        <translation>Zum Rekorder</translation>
    </message>
    <message>
        <source>Go to Folders</source>
        <translation>Zu den Ordnern</translation>
    </message>
    <message>
        <source>Go to Clips</source>
        <translation>Zu den Clips</translation>
    </message>
    <message>
        <source>Go to Movie</source>
        <translation>Zum Film</translation>
    </message>
    <message>
        <source>Go to Clip Attributes</source>
        <translation>Zu den Clip-Attributen</translation>
    </message>
    <message>
        <source>Go to Markers</source>
        <translation>Zu den Markern</translation>
    </message>
    <message>
        <source>Go to Marker Buttons</source>
        <translation>Zu den Markertasten</translation>
    </message>
    <message>
        <source>Collapse Window</source>
        <translation>Fenster einklappen</translation>
    </message>
    <message>
        <source>Open in Viewer</source>
        <translation>Im Betrachter öffnen</translation>
    </message>
    <message>
        <source>Open in Default Player</source>
        <translation>Im Standard-Player öffnen</translation>
    </message>
    <message>
        <source>Show in File Browser</source>
        <translation>Im Dateimanager zeigen</translation>
    </message>
    <message>
        <source>Rename Clip</source>
        <translation>Clip umbenennen</translation>
    </message>
    <message>
        <source>Delete Clips</source>
        <translation>Clips löschen</translation>
    </message>
    <message>
        <source>Select Next Clip</source>
        <translation>Nächsten Clip auswählen</translation>
    </message>
    <message>
        <source>Select Previous Clip</source>
        <translation>Vorigen Clip auswählen</translation>
    </message>
    <message>
        <source>Set In Point</source>
        <translation>In-Punkt setzen</translation>
    </message>
    <message>
        <source>Set Out Point</source>
        <translation>Out-Punkt setzen</translation>
    </message>
    <message>
        <source>Add Marker</source>
        <translation>Marker hinzufügen</translation>
    </message>
    <message>
        <source>Edit Labels…</source>
        <translation>Labels bearbeiten…</translation>
    </message>
    <message>
        <source>Left-Out Movies…</source>
        <translation>Ausgelassene Filme…</translation>
    </message>
    <message>
        <source>Connect Clip…</source>
        <translation>Clip verknüpfen…</translation>
    </message>
    <message>
        <source>Disconnect Clips</source>
        <translation>Clips trennen</translation>
    </message>
    <message>
        <source>Batch Connect QuickTime Clips…</source>
        <translation>QuickTime-Clips verknüpfen…</translation>
    </message>
    <message>
        <source>Batch Connect RED Clips (H Proxies)…</source>
        <translation>RED-Clips verknüpfen (H-Proxys)…</translation>
    </message>
    <message>
        <source>Batch Connect RED Clips (P Proxies)…</source>
        <translation>RED-Clips verknüpfen (P-Proxys)…</translation>
    </message>
    <message>
        <source>Batch Connect RED Clips (M Proxies)…</source>
        <translation>RED-Clips verknüpfen (M-Proxys)…</translation>
    </message>
    <message>
        <source>Batch Connect Log and Transfer RED Clips…</source>
        <translation>RED-Clips aus Log and Transfer verknüpfen…</translation>
    </message>
    <message>
        <source>Batch Connect P2 Clips…</source>
        <translation>P2-Clips verknüpfen…</translation>
    </message>
    <message>
        <source>Start Recording</source>
        <translation>Aufnahme starten</translation>
    </message>
    <message>
        <source>Stop Recording</source>
        <translation>Aufnahme stoppen</translation>
    </message>
    <message>
        <source>Recover Takes…</source>
        <translation>Takes retten…</translation>
    </message>
    <message>
        <source>Show or Hide Clip Manager</source>
        <translation>Clip-Manager ein- oder ausblenden</translation>
    </message>
    <message>
        <source>Show or Hide Place Holder Clip Recorder Window</source>
        <translation>Platzhalter-Clip-Rekorder ein- oder ausblenden</translation>
    </message>
    <message>
        <source>Show or Hide Real Time Markers Window</source>
        <translation>Echtzeit-Marker ein- oder ausblenden</translation>
    </message>
    <message>
        <source>Show or Hide Keyboard Shortcuts</source>
        <translation>Tastenkürzel ein- oder ausblenden</translation>
    </message>
    <message>
        <source>Trouble Shooting ...</source>
        <translation>Problemlösung ...</translation>
    </message>
    <message>
        <source>Visit Website</source>
        <translation>Website besuchen</translation>
    </message>
    <message>
        <source>Send Feedback…</source>
        <translation>Feedback senden…</translation>
    </message>
    <message>
        <source>About Marquill ...</source>
        <translation>Über Marquill ...</translation>
    </message>
    <message>
        <source>Show Day Timeline</source>
        <translation>Tagesverlauf einblenden</translation>
    </message>
    <message>
        <source>Find…</source>
        <translation>Suchen…</translation>
    </message>
    <message>
        <source>Show Pictures</source>
        <translation>Bilder einblenden</translation>
    </message>
    <message>
        <source>There is no manual</source>
        <translation>Es gibt kein Handbuch</translation>
    </message>
    <message>
        <source>Manual</source>
        <translation>Handbuch</translation>
    </message>
</context>
<context>
    <name>marquill::ClipAttributes</name>
    <message>
        <source>1 star</source>
        <translation>1 Stern</translation>
    </message>
    <message>
        <source>%1 stars</source>
        <translation>%1 Sterne</translation>
    </message>
    <message>
        <source>not rated</source>
        <translation>nicht bewertet</translation>
    </message>
</context>
<context>
    <name>marquill::ClipConflicts</name>
    <message>
        <source>%1: yours is %2, theirs is %3.</source>
        <translation>%1: bei Ihnen %2, dort %3.</translation>
    </message>
    <message>
        <source>Somebody else has changed “%1” too.</source>
        <translation>Jemand anders hat „%1“ auch geändert.</translation>
    </message>
    <message>
        <source>Compare…</source>
        <translation>Vergleichen…</translation>
    </message>
    <message>
        <source>Which changes of “%1” shall stay?</source>
        <translation>Welche Änderungen an „%1“ sollen bleiben?</translation>
    </message>
    <message>
        <source>Keep Mine</source>
        <translation>Meine behalten</translation>
    </message>
    <message>
        <source>Take Theirs</source>
        <translation>Die anderen übernehmen</translation>
    </message>
    <message>
        <source>Decide Later</source>
        <translation>Später entscheiden</translation>
    </message>
    <message>
        <source>Scene</source>
        <translation>Szene</translation>
    </message>
    <message>
        <source>Take</source>
        <translation>Take</translation>
    </message>
    <message>
        <source>Rating</source>
        <translation>Wertung</translation>
    </message>
    <message>
        <source>Label</source>
        <translation>Label</translation>
    </message>
    <message>
        <source>Comment</source>
        <translation>Kommentar</translation>
    </message>
    <message>
        <source>Markers</source>
        <translation>Marker</translation>
    </message>
    <message>
        <source>Media</source>
        <translation>Medien</translation>
    </message>
    <message>
        <source>1 marker</source>
        <translation>1 Marker</translation>
    </message>
    <message>
        <source>%1 markers</source>
        <translation>%1 Marker</translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>nichts</translation>
    </message>
</context>
<context>
    <name>marquill::ClipConnecting</name>
    <message>
        <source>Please select at least one place holder clip to connect to a file based clip.</source>
        <translation>Bitte wählen Sie mindestens einen Platzhalter-Clip aus, um ihn mit einem Clip aus einer Datei zu verknüpfen.</translation>
    </message>
    <message>
        <source>Choose folder with clips converted by FCP</source>
        <translation>Ordner mit von FCP umgewandelten Clips wählen</translation>
    </message>
    <message>
        <source>No Place Holder selected</source>
        <translation>Kein Platzhalter ausgewählt</translation>
    </message>
    <message>
        <source>Choose folder with QuickTime clips</source>
        <translation>Ordner mit QuickTime-Clips wählen</translation>
    </message>
    <message>
        <source>Choose folder with RED clips</source>
        <translation>Ordner mit RED-Clips wählen</translation>
    </message>
    <message>
        <source>No Clips found</source>
        <translation>Keine Clips gefunden</translation>
    </message>
    <message>
        <source>No Clips could be found in the specified folder, please choose another folder.</source>
        <translation>Im angegebenen Ordner wurden keine Clips gefunden. Bitte wählen Sie einen anderen Ordner.</translation>
    </message>
    <message>
        <source>No Place Holder Clips selected</source>
        <translation>Keine Platzhalter-Clips ausgewählt</translation>
    </message>
    <message>
        <source>Choose root folder with P2 clips</source>
        <translation>Stammordner mit P2-Clips wählen</translation>
    </message>
    <message>
        <source>No P2 files found</source>
        <translation>Keine P2-Dateien gefunden</translation>
    </message>
    <message>
        <source>No clips found in the specified folder. Please try again and choose a P2 root folder.</source>
        <translation>Im angegebenen Ordner wurden keine Clips gefunden. Bitte versuchen Sie es noch einmal und wählen Sie den Stammordner einer P2-Karte.</translation>
    </message>
    <message>
        <source>Please try again and choose a P2 root folder.</source>
        <translation>Bitte versuchen Sie es noch einmal und wählen Sie den Stammordner einer P2-Karte.</translation>
    </message>
    <message>
        <source>Connecting clips…</source>
        <translation>Clips werden verknüpft…</translation>
    </message>
    <message>
        <source>Connect Clip</source>
        <translation>Clip verknüpfen</translation>
    </message>
    <message>
        <source>Could not connect Clip</source>
        <translation>Clip konnte nicht verknüpft werden</translation>
    </message>
    <message>
        <source>An error has occured while reconciling the clip.</source>
        <translation>Beim Abgleichen des Clips ist ein Fehler aufgetreten.</translation>
    </message>
    <message>
        <source>connect Clip</source>
        <translation>Clip verknüpfen</translation>
    </message>
    <message>
        <source>unconnect Clips</source>
        <translation>Clips trennen</translation>
    </message>
</context>
<context>
    <name>marquill::ClipExports</name>
    <message>
        <source>No Folder selected</source>
        <translation>Kein Ordner ausgewählt</translation>
    </message>
    <message>
        <source>Please select a folder to export.</source>
        <translation>Bitte wählen Sie einen Ordner zum Exportieren aus.</translation>
    </message>
    <message>
        <source>No Clips to export</source>
        <translation>Keine Clips zum Exportieren</translation>
    </message>
    <message>
        <source>There are no clips to export in the selected folder.</source>
        <translation>Im ausgewählten Ordner gibt es keine Clips zum Exportieren.</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>Export failed</source>
        <translation>Export fehlgeschlagen</translation>
    </message>
    <message>
        <source>Couldn&apos;t write xml file.</source>
        <translation>Die XML-Datei konnte nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>The export was cancelled.</source>
        <translation>Der Export wurde abgebrochen.</translation>
    </message>
    <message>
        <source>Error writing File</source>
        <translation>Fehler beim Schreiben der Datei</translation>
    </message>
    <message>
        <source>An error occured while creating or writing the text file.</source>
        <translation>Beim Anlegen oder Schreiben der Textdatei ist ein Fehler aufgetreten.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Couldn&apos;t write text file.</source>
        <translation>Die Textdatei konnte nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>Exporting the clips of %1…</source>
        <translation>Die Clips von %1 werden exportiert…</translation>
    </message>
    <message>
        <source>the window description holds no dialog</source>
        <translation>die Fensterbeschreibung enthält keinen Dialog</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Export – %1</source>
        <translation>Exportieren – %1</translation>
    </message>
</context>
<context>
    <name>marquill::ClipManager</name>
    <message>
        <source>Add a folder to record into</source>
        <translation>Fügen Sie einen Ordner hinzu, in den aufgenommen wird</translation>
    </message>
    <message>
        <source>Add a folder to see its clips</source>
        <translation>Fügen Sie einen Ordner hinzu, um seine Clips zu sehen</translation>
    </message>
    <message>
        <source>Select a folder to see its clips</source>
        <translation>Wählen Sie einen Ordner aus, um seine Clips zu sehen</translation>
    </message>
    <message>
        <source>Reading clips…</source>
        <translation>Clips werden gelesen…</translation>
    </message>
    <message>
        <source>No clips in this folder.
Press Control-Space to start a take, or import movies.</source>
        <translation>Keine Clips in diesem Ordner.
Drücken Sie Strg-Leertaste, um einen Take zu beginnen, oder importieren Sie Filme.</translation>
    </message>
    <message>
        <source>This folder does not exist or is offline</source>
        <translation>Dieser Ordner existiert nicht oder ist offline</translation>
    </message>
    <message>
        <source>Current Folder: Nothing selected</source>
        <translation>Aktueller Ordner: nichts ausgewählt</translation>
    </message>
    <message>
        <source>Current Folder: %1 items selected</source>
        <translation>Aktueller Ordner: %1 Objekte ausgewählt</translation>
    </message>
    <message>
        <source>Current Folder: does not exist or is offline</source>
        <translation>Aktueller Ordner: existiert nicht oder ist offline</translation>
    </message>
    <message>
        <source>Current Folder: %1</source>
        <translation>Aktueller Ordner: %1</translation>
    </message>
    <message>
        <source>%1 clips selected</source>
        <translation>%1 Clips ausgewählt</translation>
    </message>
    <message>
        <source>Select a clip to see its movie</source>
        <translation>Wählen Sie einen Clip aus, um seinen Film zu sehen</translation>
    </message>
    <message>
        <source>change Clip</source>
        <translation>Clip ändern</translation>
    </message>
    <message>
        <source>Collapse Window</source>
        <translation>Fenster einklappen</translation>
    </message>
    <message>
        <source>Expand Window</source>
        <translation>Fenster ausklappen</translation>
    </message>
    <message>
        <source>Import Movies</source>
        <translation>Filme importieren</translation>
    </message>
    <message>
        <source>Could not load one or more Clips</source>
        <translation>Ein oder mehrere Clips konnten nicht geladen werden</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>No markers</source>
        <translation>Keine Marker</translation>
    </message>
    <message>
        <source>the window description holds no main window</source>
        <translation>die Fensterbeschreibung enthält kein Hauptfenster</translation>
    </message>
    <message>
        <source>Add Folder</source>
        <translation>Ordner hinzufügen</translation>
    </message>
    <message>
        <source>Add recording folder</source>
        <translation>Aufnahmeordner hinzufügen</translation>
    </message>
    <message>
        <source>Remove Folder</source>
        <translation>Ordner entfernen</translation>
    </message>
    <message>
        <source>Remove recording folder</source>
        <translation>Aufnahmeordner entfernen</translation>
    </message>
    <message>
        <source>Delete Clips</source>
        <translation>Clips löschen</translation>
    </message>
    <message>
        <source>Delete clips</source>
        <translation>Clips löschen</translation>
    </message>
    <message>
        <source>Hide Day Timeline</source>
        <translation>Tagesverlauf ausblenden</translation>
    </message>
    <message>
        <source>Show Day Timeline</source>
        <translation>Tagesverlauf einblenden</translation>
    </message>
    <message>
        <source>Clear Search</source>
        <translation>Suche löschen</translation>
    </message>
    <message>
        <source>No clip matches</source>
        <translation>Kein Clip passt</translation>
    </message>
    <message>
        <source>Hide Pictures</source>
        <translation>Bilder ausblenden</translation>
    </message>
    <message>
        <source>Show Pictures</source>
        <translation>Bilder einblenden</translation>
    </message>
</context>
<context>
    <name>marquill::ClipManagerToolbar</name>
    <message>
        <source>Tool Bar</source>
        <translation>Symbolleiste</translation>
    </message>
</context>
<context>
    <name>marquill::ClipMarkerController</name>
    <message>
        <source>Markers of the clip</source>
        <translation>Marker des Clips</translation>
    </message>
    <message>
        <source>Add Marker</source>
        <translation>Marker hinzufügen</translation>
    </message>
    <message>
        <source>Add a marker at the current time</source>
        <translation>Einen Marker an der aktuellen Stelle hinzufügen</translation>
    </message>
    <message>
        <source>Delete Marker(s)</source>
        <translation>Marker löschen</translation>
    </message>
    <message>
        <source>Delete the selected markers</source>
        <translation>Die ausgewählten Marker löschen</translation>
    </message>
    <message>
        <source>Set Start</source>
        <translation>Start setzen</translation>
    </message>
    <message>
        <source>Start the selected marker at the current time</source>
        <translation>Den ausgewählten Marker an der aktuellen Stelle beginnen lassen</translation>
    </message>
    <message>
        <source>Set Stop</source>
        <translation>Ende setzen</translation>
    </message>
    <message>
        <source>End the selected marker at the current time</source>
        <translation>Den ausgewählten Marker an der aktuellen Stelle enden lassen</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>%1 of %2 Marker Selected</source>
        <translation>%1 von %2 Marker ausgewählt</translation>
    </message>
    <message>
        <source>%1 of %2 Markers Selected</source>
        <translation>%1 von %2 Markern ausgewählt</translation>
    </message>
    <message>
        <source>add Marker(s)</source>
        <translation>Marker hinzufügen</translation>
    </message>
    <message>
        <source>delete Marker(s)</source>
        <translation>Marker löschen</translation>
    </message>
    <message>
        <source>change Marker Name</source>
        <translation>Markername ändern</translation>
    </message>
    <message>
        <source>change Marker Comment</source>
        <translation>Markerkommentar ändern</translation>
    </message>
    <message>
        <source>change Marker Start</source>
        <translation>Markerstart ändern</translation>
    </message>
    <message>
        <source>change Marker Stop</source>
        <translation>Markerende ändern</translation>
    </message>
</context>
<context>
    <name>marquill::ClipSearch</name>
    <message>
        <source>All %1 clips of the folder are exported; the search shows %2.</source>
        <translation>Alle %1 Clips des Ordners werden exportiert; die Suche zeigt %2.</translation>
    </message>
</context>
<context>
    <name>marquill::ClipSearchField</name>
    <message>
        <source>Search clips</source>
        <translation>Clips suchen</translation>
    </message>
    <message>
        <source>Clear Search</source>
        <translation>Suche löschen</translation>
    </message>
    <message>
        <source>Search clips (%1)</source>
        <translation>Clips suchen (%1)</translation>
    </message>
    <message>
        <source>Words, “-word” for what is not wanted, “&quot;two words&quot;”, or a field:
name: file: scene: take: label: comment: marker:
rating:&gt;=4 rating:none connected:no connected:offline</source>
        <translation>Wörter, „-wort“ für das, was nicht gewünscht ist, „&quot;zwei Wörter&quot;“, oder ein Feld:
name: file: scene: take: label: comment: marker:
rating:&gt;=4 rating:none connected:no connected:offline</translation>
    </message>
</context>
<context>
    <name>marquill::ClipTableController</name>
    <message>
        <source>What has this name is no trash folder. Rename or remove it.</source>
        <translation>Was diesen Namen hat, ist kein Papierkorb-Ordner. Benennen Sie es um, oder entfernen Sie es.</translation>
    </message>
    <message>
        <source>“%1” is not opened: its name is not that of a movie.</source>
        <translation>„%1“ wird nicht geöffnet: Der Name ist nicht der eines Films.</translation>
    </message>
    <message>
        <source>This is no movie</source>
        <translation>Das ist kein Film</translation>
    </message>
    <message>
        <source>Please connect to clip again.</source>
        <translation>Bitte verknüpfen Sie den Clip neu.</translation>
    </message>
    <message>
        <source>Open in Viewer</source>
        <translation>Im Betrachter öffnen</translation>
    </message>
    <message>
        <source>Open in Default Player</source>
        <translation>Im Standard-Player öffnen</translation>
    </message>
    <message>
        <source>Show in File Browser</source>
        <translation>Im Dateimanager zeigen</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <translation>In den Papierkorb legen</translation>
    </message>
    <message>
        <source>Could not find Clip</source>
        <translation>Clip nicht gefunden</translation>
    </message>
    <message>
        <source>Please connect to clip in order to open the clip.</source>
        <translation>Bitte verknüpfen Sie den Clip, um ihn zu öffnen.</translation>
    </message>
    <message>
        <source>Clip not connected</source>
        <translation>Clip nicht verknüpft</translation>
    </message>
    <message>
        <source>Please connect to clip and try again.</source>
        <translation>Bitte verknüpfen Sie den Clip und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>Labels</source>
        <translation>Labels</translation>
    </message>
    <message>
        <source>%1 of %2 Clip Selected</source>
        <translation>%1 von %2 Clip ausgewählt</translation>
    </message>
    <message>
        <source>%1 of %2 Clips Selected</source>
        <translation>%1 von %2 Clips ausgewählt</translation>
    </message>
    <message>
        <source>change Clip</source>
        <translation>Clip ändern</translation>
    </message>
    <message>
        <source>No clip can have that name.</source>
        <translation>Kein Clip kann diesen Namen haben.</translation>
    </message>
    <message>
        <source>Couldn&apos;t change name</source>
        <translation>Name konnte nicht geändert werden</translation>
    </message>
    <message>
        <source>The clip name could not be changed.</source>
        <translation>Der Name des Clips konnte nicht geändert werden.</translation>
    </message>
    <message>
        <source>rename Clip</source>
        <translation>Clip umbenennen</translation>
    </message>
    <message>
        <source>add Clip(s)</source>
        <translation>Clip(s) hinzufügen</translation>
    </message>
    <message>
        <source>move Clip(s) to Trash</source>
        <translation>Clip(s) in den Papierkorb legen</translation>
    </message>
    <message>
        <source>No clip can have the name “%1”.</source>
        <translation>Kein Clip kann „%1“ heißen.</translation>
    </message>
    <message>
        <source>%1 shown</source>
        <translation>%1 gezeigt</translation>
    </message>
    <message>
        <source>%1 shown, %2 outside the search</source>
        <translation>%1 gezeigt, %2 außerhalb der Suche</translation>
    </message>
</context>
<context>
    <name>marquill::ClipTableModel</name>
    <message>
        <source>%1 MB</source>
        <translation>%1 MB</translation>
    </message>
    <message>
        <source>Movie</source>
        <translation>Film</translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation>Nicht verknüpft</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>Verknüpft</translation>
    </message>
    <message>
        <source>Media not found</source>
        <translation>Medien nicht gefunden</translation>
    </message>
    <message>
        <source>1 star</source>
        <translation>1 Stern</translation>
    </message>
    <message>
        <source>%1 stars</source>
        <translation>%1 Sterne</translation>
    </message>
    <message>
        <source>not connected</source>
        <translation>nicht verknüpft</translation>
    </message>
    <message>
        <source>“%1” is not in the label list</source>
        <translation>„%1“ steht nicht in der Label-Liste</translation>
    </message>
</context>
<context>
    <name>marquill::ClipViewer</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Clip file not specified</source>
        <translation>Keine Clip-Datei angegeben</translation>
    </message>
    <message>
        <source>Could not find Clip</source>
        <translation>Clip nicht gefunden</translation>
    </message>
    <message>
        <source>Please connect to clip again or mount the volume where the clip resides.</source>
        <translation>Bitte verknüpfen Sie den Clip neu, oder binden Sie das Volume ein, auf dem er liegt.</translation>
    </message>
</context>
<context>
    <name>marquill::ClipWriter</name>
    <message>
        <source>“%1” could not be saved: %2</source>
        <translation>„%1“ konnte nicht gesichert werden: %2</translation>
    </message>
    <message>
        <source>“%1” and 1 other clip could not be saved: %2</source>
        <translation>„%1“ und 1 weiterer Clip konnten nicht gesichert werden: %2</translation>
    </message>
    <message>
        <source>“%1” and %2 other clips could not be saved: %3</source>
        <translation>„%1“ und %2 weitere Clips konnten nicht gesichert werden: %3</translation>
    </message>
    <message>
        <source>“%1” could not be saved: Somebody else has changed it too.</source>
        <translation>„%1“ konnte nicht gesichert werden: Jemand anders hat ihn auch geändert.</translation>
    </message>
</context>
<context>
    <name>marquill::DayStrip</name>
    <message>
        <source>Previous day</source>
        <translation>Voriger Tag</translation>
    </message>
    <message>
        <source>Next day</source>
        <translation>Nächster Tag</translation>
    </message>
    <message>
        <source>1 take</source>
        <translation>1 Take</translation>
    </message>
    <message>
        <source>%1 takes</source>
        <translation>%1 Takes</translation>
    </message>
    <message>
        <source>No take selected</source>
        <translation>Kein Take ausgewählt</translation>
    </message>
    <message>
        <source>Take %1 of %2, %3, %4</source>
        <translation>Take %1 von %2, %3, %4</translation>
    </message>
    <message>
        <source>%1, take %2</source>
        <translation>%1, Take %2</translation>
    </message>
    <message>
        <source>%1, duration %2</source>
        <translation>%1, Dauer %2</translation>
    </message>
    <message>
        <source>1 marker</source>
        <translation>1 Marker</translation>
    </message>
    <message>
        <source>%1 markers</source>
        <translation>%1 Marker</translation>
    </message>
    <message>
        <source>Not among the clips found</source>
        <translation>Nicht unter den gefundenen Clips</translation>
    </message>
    <message>
        <source>Day %1 of %2</source>
        <translation>Tag %1 von %2</translation>
    </message>
    <message>
        <source>1 clip without a date is not shown</source>
        <translation>1 Clip ohne Datum wird nicht gezeigt</translation>
    </message>
    <message>
        <source>%1 clips without a date are not shown</source>
        <translation>%1 Clips ohne Datum werden nicht gezeigt</translation>
    </message>
    <message>
        <source>Scene %1</source>
        <translation>Szene %1</translation>
    </message>
</context>
<context>
    <name>marquill::DayTimelineView</name>
    <message>
        <source>Day timeline</source>
        <translation>Tagesverlauf</translation>
    </message>
</context>
<context>
    <name>marquill::KeyboardShortcuts</name>
    <message>
        <source>In Every Window</source>
        <translation>In jedem Fenster</translation>
    </message>
    <message>
        <source>Start a take</source>
        <translation>Einen Take beginnen</translation>
    </message>
    <message>
        <source>Stop the take</source>
        <translation>Den Take stoppen</translation>
    </message>
    <message>
        <source>Fire marker 1 … 10</source>
        <translation>Marker 1 … 10 setzen</translation>
    </message>
    <message>
        <source>In the Clip List</source>
        <translation>In der Clipliste</translation>
    </message>
    <message>
        <source>Rate the clip</source>
        <translation>Den Clip bewerten</translation>
    </message>
    <message>
        <source>Move the clips to the trash</source>
        <translation>Die Clips in den Papierkorb legen</translation>
    </message>
    <message>
        <source>In the Marker List</source>
        <translation>In der Markerliste</translation>
    </message>
    <message>
        <source>Edit the next cell of the marker</source>
        <translation>Die nächste Zelle des Markers bearbeiten</translation>
    </message>
    <message>
        <source>Delete the markers</source>
        <translation>Die Marker löschen</translation>
    </message>
    <message>
        <source>In the Folder List</source>
        <translation>In der Ordnerliste</translation>
    </message>
    <message>
        <source>Record into the folder</source>
        <translation>In den Ordner aufnehmen</translation>
    </message>
    <message>
        <source>On a Movie</source>
        <translation>Auf einem Film</translation>
    </message>
    <message>
        <source>Play or pause</source>
        <translation>Abspielen oder anhalten</translation>
    </message>
    <message>
        <source>One frame back or on</source>
        <translation>Ein Bild zurück oder weiter</translation>
    </message>
    <message>
        <source>Play backward, stop, play; again for faster</source>
        <translation>Rückwärts, Stopp, Wiedergabe; nochmals für schneller</translation>
    </message>
    <message>
        <source>To the start, to the end</source>
        <translation>Zum Anfang, zum Ende</translation>
    </message>
    <message>
        <source>On a Marker Button</source>
        <translation>Auf einer Markertaste</translation>
    </message>
    <message>
        <source>Change the title</source>
        <translation>Den Titel ändern</translation>
    </message>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
</context>
<context>
    <name>marquill::LabelCell</name>
    <message>
        <source>Label</source>
        <translation>Label</translation>
    </message>
</context>
<context>
    <name>marquill::LabelTableController</name>
    <message>
        <source>No labels</source>
        <translation>Keine Labels</translation>
    </message>
    <message>
        <source>Add Label</source>
        <translation>Label hinzufügen</translation>
    </message>
    <message>
        <source>Delete Label</source>
        <translation>Label löschen</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>Nach oben</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Nach unten</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>add Label</source>
        <translation>Label hinzufügen</translation>
    </message>
    <message>
        <source>delete Label</source>
        <translation>Label löschen</translation>
    </message>
    <message>
        <source>move Item</source>
        <translation>Eintrag verschieben</translation>
    </message>
    <message>
        <source>change Label Title</source>
        <translation>Label umbenennen</translation>
    </message>
</context>
<context>
    <name>marquill::LabelTableModel</name>
    <message>
        <source>Label</source>
        <translation>Label</translation>
    </message>
</context>
<context>
    <name>marquill::LeftOutMoviesDialog</name>
    <message>
        <source>1 movie</source>
        <translation>1 Film</translation>
    </message>
    <message>
        <source>%1 movies</source>
        <translation>%1 Filme</translation>
    </message>
    <message>
        <source>the window of the left-out movies is no dialog</source>
        <translation>das Fenster der ausgelassenen Filme ist kein Dialog</translation>
    </message>
    <message>
        <source>Movie</source>
        <translation>Film</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>Grund</translation>
    </message>
    <message>
        <source>Could not list one or more Movies</source>
        <translation>Ein oder mehrere Filme konnten nicht in die Liste</translation>
    </message>
    <message>
        <source>Could not load one or more Clips</source>
        <translation>Ein oder mehrere Clips konnten nicht geladen werden</translation>
    </message>
    <message>
        <source>And %1 more.</source>
        <translation>Und %1 weitere.</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Reading movies…</source>
        <translation>Filme werden gelesen…</translation>
    </message>
    <message>
        <source>This folder does not exist or is offline</source>
        <translation>Dieser Ordner existiert nicht oder ist offline</translation>
    </message>
    <message>
        <source>No movie of this folder is left out</source>
        <translation>Kein Film dieses Ordners ist ausgelassen</translation>
    </message>
</context>
<context>
    <name>marquill::ManualWindow</name>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Vorwärts</translation>
    </message>
    <message>
        <source>Marquill Manual</source>
        <translation>Marquill-Handbuch</translation>
    </message>
    <message>
        <source>To the page before (Alt+Left)</source>
        <translation>Zur vorigen Seite (Alt+Links)</translation>
    </message>
    <message>
        <source>To the page after (Alt+Right)</source>
        <translation>Zur nächsten Seite (Alt+Rechts)</translation>
    </message>
    <message>
        <source>Find on this page</source>
        <translation>Auf dieser Seite suchen</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>Seiten</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>Seite</translation>
    </message>
    <message>
        <source>The text is not on this page.</source>
        <translation>Der Text steht nicht auf dieser Seite.</translation>
    </message>
</context>
<context>
    <name>marquill::MarkerButton</name>
    <message>
        <source>Untitled marker %1</source>
        <translation>Marker %1 ohne Titel</translation>
    </message>
    <message>
        <source>Title of marker %1</source>
        <translation>Titel von Marker %1</translation>
    </message>
</context>
<context>
    <name>marquill::MarkerSetEditTableController</name>
    <message>
        <source>Add Set</source>
        <translation>Satz hinzufügen</translation>
    </message>
    <message>
        <source>Duplicate Set</source>
        <translation>Satz duplizieren</translation>
    </message>
    <message>
        <source>Delete Set</source>
        <translation>Satz löschen</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>Nach oben</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Nach unten</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>add New Set</source>
        <translation>neuen Satz hinzufügen</translation>
    </message>
    <message>
        <source>duplicate Set</source>
        <translation>Satz duplizieren</translation>
    </message>
    <message>
        <source>Not allowed</source>
        <translation>Nicht erlaubt</translation>
    </message>
    <message>
        <source>At least one marker set is required. You cannot delete the only one.</source>
        <translation>Mindestens ein Markersatz ist nötig. Den einzigen können Sie nicht löschen.</translation>
    </message>
    <message>
        <source>delete Set</source>
        <translation>Satz löschen</translation>
    </message>
    <message>
        <source>change Set Title</source>
        <translation>Titel des Satzes ändern</translation>
    </message>
    <message>
        <source>move Set</source>
        <translation>Satz verschieben</translation>
    </message>
</context>
<context>
    <name>marquill::MarkerSetEditTableModel</name>
    <message>
        <source>Marker set</source>
        <translation>Markersatz</translation>
    </message>
</context>
<context>
    <name>marquill::MarkerSetSheet</name>
    <message>
        <source>the description of the marker set editor is of no dialog</source>
        <translation>die Beschreibung des Markersatz-Editors enthält keinen Dialog</translation>
    </message>
</context>
<context>
    <name>marquill::MarkerSets</name>
    <message>
        <source>the description of the marker window is of no panel</source>
        <translation>die Beschreibung des Markerfensters enthält kein Fenster dieser Art</translation>
    </message>
    <message>
        <source>the description of the marker window gives a button a wrong tag</source>
        <translation>die Beschreibung des Markerfensters gibt einer Taste eine falsche Nummer</translation>
    </message>
    <message>
        <source>the description of the marker window lacks marker buttons</source>
        <translation>in der Beschreibung des Markerfensters fehlen Markertasten</translation>
    </message>
</context>
<context>
    <name>marquill::MovieControlBar</name>
    <message>
        <source>Play</source>
        <translation>Abspielen</translation>
    </message>
    <message>
        <source>Play (Space)</source>
        <translation>Abspielen (Leertaste)</translation>
    </message>
    <message>
        <source>Step Back</source>
        <translation>Einzelbild zurück</translation>
    </message>
    <message>
        <source>One frame back (Left Arrow)</source>
        <translation>Ein Bild zurück (Pfeil links)</translation>
    </message>
    <message>
        <source>Step Forward</source>
        <translation>Einzelbild weiter</translation>
    </message>
    <message>
        <source>One frame forward (Right Arrow)</source>
        <translation>Ein Bild weiter (Pfeil rechts)</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Stumm</translation>
    </message>
    <message>
        <source>Sound off</source>
        <translation>Ton aus</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Lautstärke</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Pause (Space)</source>
        <translation>Pause (Leertaste)</translation>
    </message>
    <message>
        <source>Unmute</source>
        <translation>Nicht mehr stumm</translation>
    </message>
    <message>
        <source>Sound on</source>
        <translation>Ton an</translation>
    </message>
</context>
<context>
    <name>marquill::MoviePlayer</name>
    <message>
        <source>the movie player is not available</source>
        <translation>der Filmspieler ist nicht verfügbar</translation>
    </message>
    <message>
        <source>nothing to play</source>
        <translation>es gibt nichts abzuspielen</translation>
    </message>
    <message>
        <source>its picture cannot be decoded</source>
        <translation>sein Bild kann nicht dekodiert werden</translation>
    </message>
    <message>
        <source>This movie cannot be shown: %1.</source>
        <translation>Dieser Film kann nicht gezeigt werden: %1.</translation>
    </message>
</context>
<context>
    <name>marquill::MoviePreview</name>
    <message>
        <source>Open Clip in Viewer</source>
        <translation>Clip im Betrachter öffnen</translation>
    </message>
</context>
<context>
    <name>marquill::MovieScrubber</name>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Drag to another moment of the movie, or click a marker&apos;s tick</source>
        <translation>Ziehen Sie zu einer anderen Stelle des Films, oder klicken Sie auf den Strich eines Markers</translation>
    </message>
</context>
<context>
    <name>marquill::MovieView</name>
    <message>
        <source>Movie</source>
        <translation>Film</translation>
    </message>
</context>
<context>
    <name>marquill::NoticeBar</name>
    <message>
        <source>Close Notice</source>
        <translation>Meldung schließen</translation>
    </message>
    <message>
        <source>Notice</source>
        <translation>Meldung</translation>
    </message>
</context>
<context>
    <name>marquill::OfflineRecorder</name>
    <message>
        <source>Recording destination folder not selected</source>
        <translation>Kein Zielordner für die Aufnahme ausgewählt</translation>
    </message>
    <message>
        <source>Please specify a folder to record to by clicking in the column on the left of your destination folder&apos;s name in the Clip Manager. When properly selected a red bulls-eye icon will appear to the left of the currently selected Project Folder.</source>
        <translation>Bitte bestimmen Sie einen Ordner, in den aufgenommen wird: Klicken Sie im Clip-Manager in die Spalte links vom Namen Ihres Zielordners. Ist er richtig ausgewählt, erscheint links vom aktuellen Projektordner eine rote Zielscheibe.</translation>
    </message>
    <message>
        <source>Couldn&apos;t create Place Holder Clip</source>
        <translation>Platzhalter-Clip konnte nicht angelegt werden</translation>
    </message>
    <message>
        <source>The place holder file couldn&apos;t be created. Please check your user permissions.</source>
        <translation>Die Platzhalter-Datei konnte nicht angelegt werden. Bitte prüfen Sie Ihre Zugriffsrechte.</translation>
    </message>
    <message>
        <source>A crash would cost this take: its journal cannot be written. %1</source>
        <translation>Ein Absturz würde diesen Take kosten: Sein Journal kann nicht geschrieben werden. %1</translation>
    </message>
    <message>
        <source>Stop Recording (Esc)</source>
        <translation>Aufnahme stoppen (Esc)</translation>
    </message>
    <message>
        <source>Start Recording (Ctrl+Space)</source>
        <translation>Aufnahme starten (Strg+Leertaste)</translation>
    </message>
    <message>
        <source>Stop Recording</source>
        <translation>Aufnahme stoppen</translation>
    </message>
    <message>
        <source>Start Recording</source>
        <translation>Aufnahme starten</translation>
    </message>
    <message>
        <source>RECORDING</source>
        <translation>AUFNAHME</translation>
    </message>
    <message>
        <source>READY</source>
        <translation>BEREIT</translation>
    </message>
    <message>
        <source>Can&apos;t close Window</source>
        <translation>Fenster kann nicht geschlossen werden</translation>
    </message>
    <message>
        <source>Please stop recording before closing the window.</source>
        <translation>Bitte stoppen Sie die Aufnahme, bevor Sie das Fenster schließen.</translation>
    </message>
</context>
<context>
    <name>marquill::OpenedFiles</name>
    <message>
        <source>“%1” cannot be found</source>
        <translation>„%1“ ist nicht zu finden</translation>
    </message>
    <message>
        <source>%1 files cannot be found</source>
        <translation>%1 Dateien sind nicht zu finden</translation>
    </message>
    <message>
        <source>“%1” is neither a movie nor a clip</source>
        <translation>„%1“ ist weder ein Film noch ein Clip</translation>
    </message>
    <message>
        <source>“%1” has no clip yet</source>
        <translation>„%1“ hat noch keinen Clip</translation>
    </message>
    <message>
        <source>%1 movies have no clip yet</source>
        <translation>%1 Filme haben noch keinen Clip</translation>
    </message>
    <message>
        <source>Import as Placeholder</source>
        <translation>Als Platzhalter importieren</translation>
    </message>
</context>
<context>
    <name>marquill::Preferences</name>
    <message>
        <source>the preferences window is no dialog</source>
        <translation>das Einstellungsfenster ist kein Dialog</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
</context>
<context>
    <name>marquill::ProgressSheet</name>
    <message>
        <source>the window description holds no dialog</source>
        <translation>die Fensterbeschreibung enthält keinen Dialog</translation>
    </message>
</context>
<context>
    <name>marquill::RecordFolderController</name>
    <message>
        <source>Record into This Folder</source>
        <translation>In diesen Ordner aufnehmen</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>Show in File Browser</source>
        <translation>Im Dateimanager zeigen</translation>
    </message>
    <message>
        <source>Add Folder…</source>
        <translation>Ordner hinzufügen…</translation>
    </message>
    <message>
        <source>Remove Folder</source>
        <translation>Ordner entfernen</translation>
    </message>
    <message>
        <source>No Valid Recording Folder</source>
        <translation>Kein gültiger Aufnahmeordner</translation>
    </message>
    <message>
        <source>The selected folder does not exist or is offline and cannot be used for recording. Please select another folder.</source>
        <translation>Der ausgewählte Ordner existiert nicht oder ist offline und kann nicht für die Aufnahme benutzt werden. Bitte wählen Sie einen anderen Ordner aus.</translation>
    </message>
    <message>
        <source>Recording Folder Busy</source>
        <translation>Aufnahmeordner beschäftigt</translation>
    </message>
    <message>
        <source>The current recording folder is busy and cannot be changed now. Please stop recording and try again.</source>
        <translation>Der aktuelle Aufnahmeordner ist beschäftigt und kann jetzt nicht geändert werden. Bitte stoppen Sie die Aufnahme und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>Add Folder</source>
        <translation>Ordner hinzufügen</translation>
    </message>
    <message>
        <source>Duplicate Folders</source>
        <translation>Doppelte Ordner</translation>
    </message>
    <message>
        <source>One or more folders were already in the folder list and have not been added.</source>
        <translation>Ein oder mehrere Ordner standen schon in der Ordnerliste und wurden nicht hinzugefügt.</translation>
    </message>
    <message>
        <source>Couldn&apos;t remove/delete Folder!</source>
        <translation>Ordner konnte nicht entfernt oder gelöscht werden!</translation>
    </message>
    <message>
        <source>One or more folders could not be deleted because the folder is busy. Please try again later</source>
        <translation>Ein oder mehrere Ordner konnten nicht gelöscht werden, weil der Ordner beschäftigt ist. Bitte versuchen Sie es später noch einmal</translation>
    </message>
    <message>
        <source>Folder Busy</source>
        <translation>Ordner beschäftigt</translation>
    </message>
    <message>
        <source>This folder is busy and cannot be renamed now. Please stop recording and try again.</source>
        <translation>Dieser Ordner ist beschäftigt und kann jetzt nicht umbenannt werden. Bitte stoppen Sie die Aufnahme und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>no folder can have that name</source>
        <translation>kein Ordner kann diesen Namen haben</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>The selected folder could not be renamed.</source>
        <translation>Der ausgewählte Ordner konnte nicht umbenannt werden.</translation>
    </message>
</context>
<context>
    <name>marquill::RecordFolderModel</name>
    <message>
        <source>Recording folder</source>
        <translation>Aufnahmeordner</translation>
    </message>
    <message>
        <source>Not the recording folder</source>
        <translation>Nicht der Aufnahmeordner</translation>
    </message>
    <message>
        <source>New clips are recorded into this folder</source>
        <translation>Neue Clips werden in diesen Ordner aufgenommen</translation>
    </message>
    <message>
        <source>Click to record new clips into this folder</source>
        <translation>Klicken, um neue Clips in diesen Ordner aufzunehmen</translation>
    </message>
    <message>
        <source>%1 does not exist or is offline</source>
        <translation>%1 existiert nicht oder ist offline</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Aufnahme</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Ordner</translation>
    </message>
</context>
<context>
    <name>marquill::RecoverTakesDialog</name>
    <message>
        <source>Discard 1 take?</source>
        <translation>1 Take verwerfen?</translation>
    </message>
    <message>
        <source>Discard %1 takes?</source>
        <translation>%1 Takes verwerfen?</translation>
    </message>
    <message>
        <source>Recorded into %1</source>
        <translation>Aufgenommen in %1</translation>
    </message>
    <message>
        <source>The window description holds no dialog.</source>
        <translation>Die Fensterbeschreibung enthält keinen Dialog.</translation>
    </message>
    <message>
        <source>Save Recovered Takes</source>
        <translation>Gerettete Takes sichern</translation>
    </message>
    <message>
        <source>Couldn&apos;t recover all takes</source>
        <translation>Nicht alle Takes konnten gerettet werden</translation>
    </message>
    <message>
        <source>What was not recovered is still in the list.</source>
        <translation>Was nicht gerettet wurde, steht noch in der Liste.</translation>
    </message>
    <message>
        <source>Their start times, durations and markers are lost. This cannot be undone.</source>
        <translation>Ihre Startzeiten, Dauern und Marker gehen verloren. Das lässt sich nicht rückgängig machen.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Verwerfen</translation>
    </message>
    <message>
        <source>Couldn&apos;t discard all takes</source>
        <translation>Nicht alle Takes konnten verworfen werden</translation>
    </message>
</context>
<context>
    <name>marquill::TakeRescue</name>
    <message>
        <source>Show</source>
        <translation>Zeigen</translation>
    </message>
    <message>
        <source>Recover Takes…</source>
        <translation>Takes retten…</translation>
    </message>
    <message>
        <source>%1 in %2</source>
        <translation>%1 in %2</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>und %1 weitere</translation>
    </message>
    <message>
        <source>Recovered 1 take: %1</source>
        <translation>1 Take gerettet: %1</translation>
    </message>
    <message>
        <source>Recovered %1 takes: %2</source>
        <translation>%1 Takes gerettet: %2</translation>
    </message>
</context>
<context>
    <name>marquill::UndoManager</name>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Undo %1</source>
        <translation>Rückgängig: %1</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>Redo %1</source>
        <translation>Wiederholen: %1</translation>
    </message>
</context>
<context>
    <name>marquill::UnwrittenClips</name>
    <message>
        <source>Try Again</source>
        <translation>Noch einmal versuchen</translation>
    </message>
    <message>
        <source>Quit without saving?</source>
        <translation>Ohne zu sichern beenden?</translation>
    </message>
    <message>
        <source>%1 If you quit now, the last changes are lost.</source>
        <translation>%1 Wenn Sie jetzt beenden, gehen die letzten Änderungen verloren.</translation>
    </message>
    <message>
        <source>Cancel Quitting</source>
        <translation>Nicht beenden</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
</context>
<context>
    <name>marquill::VolumeWatch</name>
    <message>
        <source>The recording folder is on a read-only volume. Takes cannot be saved there.</source>
        <translation>Der Aufnahmeordner liegt auf einem schreibgeschützten Volume. Takes können dort nicht gesichert werden.</translation>
    </message>
    <message>
        <source>Only %1 MB are free where takes are saved.</source>
        <translation>Wo Takes gesichert werden, sind nur noch %1 MB frei.</translation>
    </message>
</context>
<context>
    <name>marquill::WritingSheet</name>
    <message>
        <source>Saving clips…</source>
        <translation>Clips werden gesichert…</translation>
    </message>
</context>
</TS>
