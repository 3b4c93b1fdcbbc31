<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>ApplicationMenus</name>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Fichier</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>É&amp;dition</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>Affic&amp;hage</translation>
    </message>
    <message>
        <source>&amp;Clip</source>
        <translation>&amp;Clip</translation>
    </message>
    <message>
        <source>C&amp;onnect</source>
        <translation>Co&amp;nnecter</translation>
    </message>
    <message>
        <source>&amp;Record</source>
        <translation>Enre&amp;gistrement</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <translation>Fenêt&amp;re</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Aide</translation>
    </message>
</context>
<context>
    <name>Atom</name>
    <message>
        <source>An atom of type &apos;%1&apos; has the impossible size %2.</source>
        <translation>Un atome de type «&#xa0;%1&#xa0;» a la taille impossible %2.</translation>
    </message>
    <message>
        <source>The file ends within the header of an atom.</source>
        <translation>Le fichier se termine dans l’en-tête d’un atome.</translation>
    </message>
    <message>
        <source>In the atom &apos;%1&apos;: %2</source>
        <translation>Dans l’atome «&#xa0;%1&#xa0;»&#xa0;: %2</translation>
    </message>
    <message>
        <source>Version %1 is not known.</source>
        <translation>La version %1 n’est pas connue.</translation>
    </message>
    <message>
        <source>An atom has the impossible size %1.</source>
        <translation>Un atome a la taille impossible %1.</translation>
    </message>
</context>
<context>
    <name>AtomStream</name>
    <message>
        <source>A field of %1 bytes is cut off after %2.</source>
        <translation>Un champ de %1 octets est coupé après %2.</translation>
    </message>
    <message>
        <source>%1 bytes are announced, and %2 remain.</source>
        <translation>%1 octets sont annoncés, et il en reste %2.</translation>
    </message>
    <message>
        <source>A list of %1 elements announces %2.</source>
        <translation>Une liste de %1 éléments en annonce %2.</translation>
    </message>
    <message>
        <source>%1 entries of %2 bytes are announced, and %3 bytes remain.</source>
        <translation>%1 entrées de %2 octets sont annoncées, et il reste %3 octets.</translation>
    </message>
</context>
<context>
    <name>BatchConnect</name>
    <message>
        <source>connect Clips</source>
        <translation>connecter les clips</translation>
    </message>
    <message>
        <source>Could not connect all clips</source>
        <translation>Les clips n’ont pas tous pu être connectés</translation>
    </message>
    <message>
        <source>Only %1 of %2 clips could be connected.</source>
        <translation>Seuls %1 clips sur %2 ont pu être connectés.</translation>
    </message>
    <message>
        <source>Red files not found</source>
        <translation>Fichiers RED introuvables</translation>
    </message>
    <message>
        <source>For one or more clips the original &apos;.r3d&apos; clip could not be found. As a result the matching result might be incorrect.</source>
        <translation>Pour un ou plusieurs clips, le clip «&#xa0;.r3d&#xa0;» d’origine est introuvable. La correspondance peut donc être inexacte.</translation>
    </message>
</context>
<context>
    <name>ByteSource</name>
    <message>
        <source>%1 bytes are needed here, and %2 are there.</source>
        <translation>Il faut ici %1 octets, et il y en a %2.</translation>
    </message>
    <message>
        <source>An atom of type &apos;%1&apos; is larger than what holds it.</source>
        <translation>Un atome de type «&#xa0;%1&#xa0;» est plus grand que ce qui le contient.</translation>
    </message>
</context>
<context>
    <name>ClipFilter</name>
    <message>
        <source>rating: needs a number from 0 to 5</source>
        <translation>rating: demande un nombre de 0 à 5</translation>
    </message>
    <message>
        <source>connected: needs yes, no or offline</source>
        <translation>connected: demande yes, no ou offline</translation>
    </message>
</context>
<context>
    <name>ClipManager</name>
    <message>
        <source>Clip Manager</source>
        <translation>Gestionnaire de clips</translation>
    </message>
    <message>
        <source>Record folders</source>
        <translation>Dossiers d’enregistrement</translation>
    </message>
    <message>
        <source>Clips of the selected folder</source>
        <translation>Clips du dossier sélectionné</translation>
    </message>
    <message>
        <source>Movie of the selected clip</source>
        <translation>Film du clip sélectionné</translation>
    </message>
    <message>
        <source>Set the clip&apos;s in marker at the current time</source>
        <translation>Placer le point d’entrée du clip au moment actuel</translation>
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
        <translation>Placer le point de sortie du clip au moment actuel</translation>
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
        <translation>No&amp;m</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>&amp;Scene</source>
        <translation>&amp;Séquence</translation>
    </message>
    <message>
        <source>Scene</source>
        <translation>Séquence</translation>
    </message>
    <message>
        <source>&amp;Take</source>
        <translation>&amp;Prise</translation>
    </message>
    <message>
        <source>Take</source>
        <translation>Prise</translation>
    </message>
    <message>
        <source>&amp;Label</source>
        <translation>Éti&amp;quette</translation>
    </message>
    <message>
        <source>Label</source>
        <translation>Étiquette</translation>
    </message>
    <message>
        <source>Edit the list of labels</source>
        <translation>Modifier la liste des étiquettes</translation>
    </message>
    <message>
        <source>Edit labels</source>
        <translation>Modifier les étiquettes</translation>
    </message>
    <message>
        <source>Ratin&amp;g</source>
        <translation>&amp;Note</translation>
    </message>
    <message>
        <source>Rating</source>
        <translation>Note</translation>
    </message>
    <message>
        <source>Co&amp;mment</source>
        <translation>Comm&amp;entaire</translation>
    </message>
    <message>
        <source>Comment</source>
        <translation>Commentaire</translation>
    </message>
    <message>
        <source>File and Log</source>
        <translation>Fichier et journal</translation>
    </message>
    <message>
        <source>File of the clip</source>
        <translation>Fichier du clip</translation>
    </message>
    <message>
        <source>Path of the clip</source>
        <translation>Chemin du clip</translation>
    </message>
    <message>
        <source>Log of the clip</source>
        <translation>Journal du clip</translation>
    </message>
    <message>
        <source>Markers of the clip</source>
        <translation>Marqueurs du clip</translation>
    </message>
    <message>
        <source>Add a marker at the current time</source>
        <translation>Ajouter un marqueur au moment actuel</translation>
    </message>
    <message>
        <source>Add marker</source>
        <translation>Ajouter un marqueur</translation>
    </message>
    <message>
        <source>Delete the selected markers</source>
        <translation>Supprimer les marqueurs sélectionnés</translation>
    </message>
    <message>
        <source>Delete markers</source>
        <translation>Supprimer les marqueurs</translation>
    </message>
    <message>
        <source>Move the marker&apos;s start to the current time</source>
        <translation>Placer le début du marqueur au moment actuel</translation>
    </message>
    <message>
        <source>Set St&amp;art</source>
        <translation>Définir le dé&amp;but</translation>
    </message>
    <message>
        <source>End the marker at the current time</source>
        <translation>Terminer le marqueur au moment actuel</translation>
    </message>
    <message>
        <source>Set Sto&amp;p</source>
        <translation>Définir &amp;la fin</translation>
    </message>
    <message>
        <source>Double-click to collapse or expand the window</source>
        <translation>Double-cliquer pour réduire ou déployer la fenêtre</translation>
    </message>
    <message>
        <source>Reading clips</source>
        <translation>Lecture des clips</translation>
    </message>
</context>
<context>
    <name>ClipMarkerModel</name>
    <message>
        <source>Number</source>
        <translation>Numéro</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Début</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Durée</translation>
    </message>
    <message>
        <source>Comment</source>
        <translation>Commentaire</translation>
    </message>
</context>
<context>
    <name>ClipMedia</name>
    <message>
        <source>Clip not connected</source>
        <translation>Clip non connecté</translation>
    </message>
    <message>
        <source>Clip not found</source>
        <translation>Clip introuvable</translation>
    </message>
</context>
<context>
    <name>ClipStore</name>
    <message>
        <source>The clip&apos;s file is a link out of its folder, and what it leads to is left as it is. Put the file itself into the folder.</source>
        <translation>Le fichier du clip est un lien qui mène hors de son dossier&#xa0;; ce à quoi il mène reste tel quel. Placez le fichier lui-même dans le dossier.</translation>
    </message>
    <message>
        <source>The clip&apos;s file is not there any more.</source>
        <translation>Le fichier du clip n’est plus là.</translation>
    </message>
    <message>
        <source>No clip is named “%1”.</source>
        <translation>Aucun clip ne s’appelle «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>No place holder clip can have this name. Choose another one.</source>
        <translation>Aucun clip provisoire ne peut porter ce nom. Choisissez-en un autre.</translation>
    </message>
    <message>
        <source>The movie has no user data to keep a record in.</source>
        <translation>Le film n’a pas de données utilisateur où garder une fiche.</translation>
    </message>
    <message>
        <source>N/A, externally recorded</source>
        <translation>Sans objet, enregistré en externe</translation>
    </message>
    <message>
        <source>%1 frame drop(s) at frame no:
</source>
        <translation>%1 image(s) perdue(s), image nº&#xa0;:
</translation>
    </message>
    <message>
        <source>No frame drops
</source>
        <translation>Aucune image perdue
</translation>
    </message>
    <message>
        <source>%1 frame(s) dropped due to corruption at frame no:
</source>
        <translation>%1 image(s) perdue(s) car abîmée(s), image nº&#xa0;:
</translation>
    </message>
    <message>
        <source>No corrupted frames
</source>
        <translation>Aucune image abîmée
</translation>
    </message>
    <message>
        <source>Clip not connected
</source>
        <translation>Clip non connecté
</translation>
    </message>
    <message>
        <source>Clip not found
</source>
        <translation>Clip introuvable
</translation>
    </message>
    <message>
        <source>Duration: %1
File Size: %2 MB
Created: %3
Modified: %3
</source>
        <translation>Durée&#xa0;: %1
Taille du fichier&#xa0;: %2 Mo
Créé&#xa0;: %3
Modifié&#xa0;: %3
</translation>
    </message>
    <message>
        <source>Path: %1
</source>
        <translation>Chemin&#xa0;: %1
</translation>
    </message>
    <message>
        <source>Another program has written the movie meanwhile. Try again.</source>
        <translation>Un autre programme a écrit le film entre-temps. Réessayez.</translation>
    </message>
</context>
<context>
    <name>ClipTableModel</name>
    <message>
        <source>Number</source>
        <translation>Numéro</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>État</translation>
    </message>
    <message>
        <source>Clip</source>
        <translation>Clip</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Fichier</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Durée</translation>
    </message>
    <message>
        <source>Creation Date</source>
        <translation>Date de création</translation>
    </message>
    <message>
        <source>File Size</source>
        <translation>Taille</translation>
    </message>
    <message>
        <source>Rating</source>
        <translation>Note</translation>
    </message>
    <message>
        <source>Label</source>
        <translation>Étiquette</translation>
    </message>
    <message>
        <source>Comment</source>
        <translation>Commentaire</translation>
    </message>
    <message>
        <source>Scene</source>
        <translation>Séquence</translation>
    </message>
    <message>
        <source>Take</source>
        <translation>Prise</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Image</translation>
    </message>
</context>
<context>
    <name>ClipTexts</name>
    <message>
        <source>Clip %1 holds the character &quot;%2&quot;, which ASCII does not have. Replace it.</source>
        <translation>Le clip %1 contient le caractère «&#xa0;%2&#xa0;», qui n’existe pas en ASCII. Remplacez-le.</translation>
    </message>
</context>
<context>
    <name>ClipViewer</name>
    <message>
        <source>Clip Viewer</source>
        <translation>Visionneuse de clips</translation>
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
        <translation>L’en-tête compressé est trop grand (%1 octets).</translation>
    </message>
    <message>
        <source>The compressed header cannot hold %1 bytes.</source>
        <translation>L’en-tête compressé ne peut pas contenir %1 octets.</translation>
    </message>
    <message>
        <source>The compressed header does not inflate.</source>
        <translation>L’en-tête compressé ne se décompresse pas.</translation>
    </message>
    <message>
        <source>The compressed header is not complete.</source>
        <translation>L’en-tête compressé est incomplet.</translation>
    </message>
    <message>
        <source>The header is compressed with &apos;%1&apos;.</source>
        <translation>L’en-tête est compressé avec «&#xa0;%1&#xa0;».</translation>
    </message>
</context>
<context>
    <name>ConnectCommand</name>
    <message>
        <source>No Clips found</source>
        <translation>Aucun clip trouvé</translation>
    </message>
    <message>
        <source>No Clips could be found in the specified folder, please choose another folder.</source>
        <translation>Aucun clip n’a été trouvé dans le dossier indiqué, veuillez choisir un autre dossier.</translation>
    </message>
    <message>
        <source>No P2 files found</source>
        <translation>Aucun fichier P2 trouvé</translation>
    </message>
    <message>
        <source>Please try again and choose a P2 root folder.</source>
        <translation>Veuillez réessayer en choisissant le dossier racine d’une carte P2.</translation>
    </message>
    <message>
        <source>No clips found in the specified folder. Please try again and choose a P2 root folder.</source>
        <translation>Aucun clip trouvé dans le dossier indiqué. Veuillez réessayer en choisissant le dossier racine d’une carte P2.</translation>
    </message>
    <message>
        <source>Connect placeholders to their media by dates</source>
        <translation>Connecter les clips provisoires à leurs médias d’après les dates</translation>
    </message>
    <message>
        <source>The record folder</source>
        <translation>Le dossier d’enregistrement</translation>
    </message>
    <message>
        <source>What the camera made: qt, red-h, red-p, red-m, red-raw or p2</source>
        <translation>Ce qu’a produit la caméra&#xa0;: qt, red-h, red-p, red-m, red-raw ou p2</translation>
    </message>
    <message>
        <source>Where the media are; of p2 the card&apos;s root folder</source>
        <translation>Où sont les médias&#xa0;; pour p2, le dossier racine de la carte</translation>
    </message>
    <message>
        <source>Where the movies are that they were converted to</source>
        <translation>Où sont les films issus de leur conversion</translation>
    </message>
    <message>
        <source>Only these clips of the folder</source>
        <translation>Seulement ces clips du dossier</translation>
    </message>
    <message>
        <source>Tell what would be connected and change nothing</source>
        <translation>Dire ce qui serait connecté, sans rien modifier</translation>
    </message>
    <message>
        <source>Print it as JSON</source>
        <translation>Afficher en JSON</translation>
    </message>
    <message>
        <source>--converted (a P2 card holds no movies) is required</source>
        <translation>--converted est nécessaire (une carte P2 ne contient pas de films)</translation>
    </message>
    <message>
        <source>No Place Holder selected</source>
        <translation>Aucun clip provisoire sélectionné</translation>
    </message>
    <message>
        <source>Please select at least one place holder clip to connect to a file based clip.</source>
        <translation>Veuillez sélectionner au moins un clip provisoire à connecter à un clip enregistré dans un fichier.</translation>
    </message>
</context>
<context>
    <name>DemoShoot</name>
    <message>
        <source>The demo is open already, or its folder cannot be written. Close the other one.</source>
        <translation>La démo est déjà ouverte, ou son dossier ne peut pas être écrit. Fermez l’autre.</translation>
    </message>
</context>
<context>
    <name>Dialogs</name>
    <message>
        <source>%1 already exists. Do you want to replace it?</source>
        <translation>%1 existe déjà. Voulez-vous le remplacer&#xa0;?</translation>
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
        <translation>Déconnecter les clips provisoires de leurs médias</translation>
    </message>
    <message>
        <source>The record folder</source>
        <translation>Le dossier d’enregistrement</translation>
    </message>
    <message>
        <source>Only these clips of the folder</source>
        <translation>Seulement ces clips du dossier</translation>
    </message>
</context>
<context>
    <name>Error</name>
    <message>
        <source>%1 (at byte %2)</source>
        <translation>%1 (à l’octet %2)</translation>
    </message>
</context>
<context>
    <name>ExportCommand</name>
    <message>
        <source>Write the clips of a record folder as a document</source>
        <translation>Écrire les clips d’un dossier d’enregistrement dans un document</translation>
    </message>
    <message>
        <source>The record folder</source>
        <translation>Le dossier d’enregistrement</translation>
    </message>
    <message>
        <source>What is written: xmeml, text, tab or comma</source>
        <translation>Ce qui est écrit&#xa0;: xmeml, text, tab ou comma</translation>
    </message>
    <message>
        <source>The document; a file of that name is replaced</source>
        <translation>Le document&#xa0;; un fichier de ce nom est remplacé</translation>
    </message>
    <message>
        <source>The labels of xmeml, by commas; otherwise those of the preferences</source>
        <translation>Les étiquettes de xmeml, séparées par des virgules&#xa0;; sinon celles des préférences</translation>
    </message>
    <message>
        <source>No Clips to export</source>
        <translation>Aucun clip à exporter</translation>
    </message>
    <message>
        <source>There are no clips to export in the selected folder.</source>
        <translation>Le dossier sélectionné ne contient aucun clip à exporter.</translation>
    </message>
    <message>
        <source>Export failed</source>
        <translation>Échec de l’exportation</translation>
    </message>
    <message>
        <source>Couldn&apos;t write xml file.</source>
        <translation>Impossible d’écrire le fichier XML.</translation>
    </message>
    <message>
        <source>Couldn&apos;t write text file.</source>
        <translation>Impossible d’écrire le fichier texte.</translation>
    </message>
</context>
<context>
    <name>ExportDocument</name>
    <message>
        <source>The export was cancelled.</source>
        <translation>L’exportation a été annulée.</translation>
    </message>
</context>
<context>
    <name>FileLock</name>
    <message>
        <source>Another running program uses the file.</source>
        <translation>Un autre programme en cours utilise le fichier.</translation>
    </message>
    <message>
        <source>The volume knows no file locks.</source>
        <translation>Le volume ne connaît pas les verrous de fichiers.</translation>
    </message>
    <message>
        <source>A folder or a link stands where a file is wanted.</source>
        <translation>Un dossier ou un lien se trouve là où il faut un fichier.</translation>
    </message>
</context>
<context>
    <name>FileSystem</name>
    <message>
        <source>The volume keeps no extended attributes.</source>
        <translation>Le volume ne garde pas d’attributs étendus.</translation>
    </message>
    <message>
        <source>The link points to a name that is no text.</source>
        <translation>Le lien désigne un nom qui n’est pas du texte.</translation>
    </message>
    <message>
        <source>A folder or a device stands where a file is wanted.</source>
        <translation>Un dossier ou un périphérique se trouve là où il faut un fichier.</translation>
    </message>
</context>
<context>
    <name>Files</name>
    <message>
        <source>The file is larger than 1 GiB, which no file of its kind is.</source>
        <translation>Le fichier dépasse 1 Gio, ce qu’aucun fichier de ce genre ne fait.</translation>
    </message>
    <message>
        <source>The links on the way to it lead in a circle. Remove one of them.</source>
        <translation>Les liens qui y mènent tournent en rond. Supprimez l’un d’eux.</translation>
    </message>
    <message>
        <source>A folder, pipe or device stands where a file is wanted.</source>
        <translation>Un dossier, un tube ou un périphérique se trouve là où il faut un fichier.</translation>
    </message>
    <message>
        <source>Another program has written the file meanwhile. Try again.</source>
        <translation>Un autre programme a écrit le fichier entre-temps. Réessayez.</translation>
    </message>
</context>
<context>
    <name>ImportCommand</name>
    <message>
        <source>Make placeholders that stand for movies</source>
        <translation>Créer des clips provisoires qui représentent des films</translation>
    </message>
    <message>
        <source>The record folder</source>
        <translation>Le dossier d’enregistrement</translation>
    </message>
    <message>
        <source>The movies; they stay where they are</source>
        <translation>Les films&#xa0;; ils restent où ils sont</translation>
    </message>
    <message>
        <source>Could not load one or more Clips</source>
        <translation>Un ou plusieurs clips n’ont pas pu être chargés</translation>
    </message>
    <message>
        <source>%1 of %2 were not imported.</source>
        <translation>%1 sur %2 n’ont pas été importés.</translation>
    </message>
</context>
<context>
    <name>LeftOutMovies</name>
    <message>
        <source>Left-Out Movies</source>
        <translation>Films laissés de côté</translation>
    </message>
    <message>
        <source>These movies of the folder are not in the list of clips. “List” gives a movie room for a clip’s record; picture and sound stay as they are. “Import as Placeholder” leaves the movie untouched and writes a placeholder that is connected to it.</source>
        <translation>Ces films du dossier ne sont pas dans la liste des clips. «&#xa0;Lister&#xa0;» fait de la place dans un film pour la fiche d’un clip&#xa0;; l’image et le son restent tels quels. «&#xa0;Importer comme clip provisoire&#xa0;» ne touche pas au film et écrit un clip provisoire qui lui est connecté.</translation>
    </message>
    <message>
        <source>Left-out movies</source>
        <translation>Films laissés de côté</translation>
    </message>
    <message>
        <source>Number of left-out movies</source>
        <translation>Nombre de films laissés de côté</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Progression</translation>
    </message>
    <message>
        <source>&amp;List</source>
        <translation>&amp;Lister</translation>
    </message>
    <message>
        <source>List</source>
        <translation>Lister</translation>
    </message>
    <message>
        <source>Gives the selected movies room for a clip’s record</source>
        <translation>Fait de la place dans les films sélectionnés pour la fiche d’un clip</translation>
    </message>
    <message>
        <source>&amp;Import as Placeholder</source>
        <translation>&amp;Importer comme clip provisoire</translation>
    </message>
    <message>
        <source>Import as Placeholder</source>
        <translation>Importer comme clip provisoire</translation>
    </message>
    <message>
        <source>Writes placeholders connected to the selected movies</source>
        <translation>Écrit des clips provisoires connectés aux films sélectionnés</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>It cannot be opened: %1</source>
        <translation>Impossible de l’ouvrir&#xa0;: %1</translation>
    </message>
    <message>
        <source>It has no user data to keep the clip’s record in.</source>
        <translation>Il n’a pas de données utilisateur où garder la fiche du clip.</translation>
    </message>
    <message>
        <source>Its record cannot be read: %1</source>
        <translation>Sa fiche est illisible&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>ListCommand</name>
    <message>
        <source>List the clips of a record folder</source>
        <translation>Lister les clips d’un dossier d’enregistrement</translation>
    </message>
    <message>
        <source>The record folder</source>
        <translation>Le dossier d’enregistrement</translation>
    </message>
    <message>
        <source>Print the whole records as JSON</source>
        <translation>Afficher les fiches entières en JSON</translation>
    </message>
</context>
<context>
    <name>LogFile</name>
    <message>
        <source>The log cannot be written: %1</source>
        <translation>Le journal ne peut pas être écrit&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>ManualPages</name>
    <message>
        <source>The manual was not installed with the program. It was looked for in:
%1</source>
        <translation>Le manuel n’a pas été installé avec le programme. Il a été cherché dans&#xa0;:
%1</translation>
    </message>
</context>
<context>
    <name>MarkerSetStore</name>
    <message>
        <source>there is no marker button %1</source>
        <translation>il n’y a pas de bouton de marqueur %1</translation>
    </message>
    <message>
        <source>the marker set &quot;%1&quot; is read-only; duplicate it to change its titles</source>
        <translation>le jeu de marqueurs «&#xa0;%1&#xa0;» est en lecture seule&#xa0;; dupliquez-le pour changer ses titres</translation>
    </message>
</context>
<context>
    <name>MediaSamples</name>
    <message>
        <source>The movie has more samples than are handled (%1).</source>
        <translation>Le film a plus d’échantillons que le maximum géré (%1).</translation>
    </message>
</context>
<context>
    <name>Movie</name>
    <message>
        <source>The movie header says neither duration nor time scale.</source>
        <translation>L’en-tête du film n’indique ni durée ni échelle de temps.</translation>
    </message>
    <message>
        <source>The file ends within an atom of type &apos;%1&apos;, before the movie header.</source>
        <translation>Le fichier se termine dans un atome de type «&#xa0;%1&#xa0;», avant l’en-tête du film.</translation>
    </message>
    <message>
        <source>The file has no movie header (&apos;moov&apos;).</source>
        <translation>Le fichier n’a pas d’en-tête de film (&apos;moov&apos;).</translation>
    </message>
    <message>
        <source>The file ends within the movie header.</source>
        <translation>Le fichier se termine dans l’en-tête du film.</translation>
    </message>
    <message>
        <source>The compressed header holds no movie header.</source>
        <translation>L’en-tête compressé ne contient pas d’en-tête de film.</translation>
    </message>
    <message>
        <source>The movie&apos;s user data are too large (%1 bytes).</source>
        <translation>Les données utilisateur du film sont trop volumineuses (%1 octets).</translation>
    </message>
    <message>
        <source>The file has too many atoms.</source>
        <translation>Le fichier a trop d’atomes.</translation>
    </message>
    <message>
        <source>The movie header is not what it was; read the movie again.</source>
        <translation>L’en-tête du film n’est plus ce qu’il était&#xa0;; relisez le film.</translation>
    </message>
    <message>
        <source>Another program has changed the movie; read it again.</source>
        <translation>Un autre programme a modifié le film&#xa0;; relisez-le.</translation>
    </message>
    <message>
        <source>The movie header is not where it was; read the movie again.</source>
        <translation>L’en-tête du film n’est plus où il était&#xa0;; relisez le film.</translation>
    </message>
    <message>
        <source>The file has too many movie headers.</source>
        <translation>Le fichier a trop d’en-têtes de film.</translation>
    </message>
    <message>
        <source>The movie header is too large to be written anew.</source>
        <translation>L’en-tête du film est trop grand pour être réécrit.</translation>
    </message>
    <message>
        <source>The file has two different movie headers.</source>
        <translation>Le fichier a deux en-têtes de film différents.</translation>
    </message>
    <message>
        <source>The file only refers to other movies; nothing is written to it.</source>
        <translation>Le fichier ne fait que renvoyer à d’autres films&#xa0;; rien n’y est écrit.</translation>
    </message>
    <message>
        <source>The movie has no list of user data.</source>
        <translation>Le film n’a pas de liste de données utilisateur.</translation>
    </message>
</context>
<context>
    <name>MovieStill</name>
    <message>
        <source>The movie has no picture that can be shown.</source>
        <translation>Le film n’a pas d’image qui puisse être montrée.</translation>
    </message>
    <message>
        <source>It was given up.</source>
        <translation>Abandonné.</translation>
    </message>
</context>
<context>
    <name>OfflineRecorder</name>
    <message>
        <source>Place Holder Clip Recorder</source>
        <translation>Enregistreur de clips provisoires</translation>
    </message>
    <message>
        <source>Recorder state</source>
        <translation>État de l’enregistreur</translation>
    </message>
    <message>
        <source>Shot clock</source>
        <translation>Chronomètre de la prise</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>Clip name</source>
        <translation>Nom du clip</translation>
    </message>
    <message>
        <source>Name of the next clips</source>
        <translation>Nom des prochains clips</translation>
    </message>
    <message>
        <source>Take</source>
        <translation>Prise</translation>
    </message>
    <message>
        <source>Next take</source>
        <translation>Prise suivante</translation>
    </message>
    <message>
        <source>Take number of the next clip</source>
        <translation>Numéro de prise du prochain clip</translation>
    </message>
    <message>
        <source>Scene</source>
        <translation>Séquence</translation>
    </message>
    <message>
        <source>Scene of the next clips</source>
        <translation>Séquence des prochains clips</translation>
    </message>
    <message>
        <source>Recorder warning</source>
        <translation>Avertissement de l’enregistreur</translation>
    </message>
</context>
<context>
    <name>Options</name>
    <message>
        <source>Usage</source>
        <translation>Usage</translation>
    </message>
    <message>
        <source>OPTIONS</source>
        <translation>OPTIONS</translation>
    </message>
    <message>
        <source>SUBCOMMAND</source>
        <translation>COMMANDE</translation>
    </message>
    <message>
        <source>REQUIRED</source>
        <translation>NÉCESSAIRE</translation>
    </message>
    <message>
        <source>Positionals</source>
        <translation>Arguments</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Options</translation>
    </message>
    <message>
        <source>Print this help message and exit</source>
        <translation>Afficher cette aide</translation>
    </message>
    <message>
        <source>Display program version information and exit</source>
        <translation>Afficher la version du programme</translation>
    </message>
    <message>
        <source>Keep the settings in this file instead of the user&apos;s own</source>
        <translation>Garder les réglages dans ce fichier au lieu de celui de l’utilisateur</translation>
    </message>
    <message>
        <source>Colours of the windows: system, dark or light</source>
        <translation>Couleurs des fenêtres&#xa0;: system, dark ou light</translation>
    </message>
    <message>
        <source>Language of all texts: %1; otherwise the desktop&apos;s</source>
        <translation>Langue de tous les textes&#xa0;: %1&#xa0;; sinon celle du bureau</translation>
    </message>
    <message>
        <source>Open a small sample shoot, made anew at every start, with settings of its own</source>
        <translation>Ouvrir un petit tournage d’exemple, refait à chaque démarrage, avec ses propres réglages</translation>
    </message>
    <message>
        <source>Quit when the main window has been painted, to measure how long a start takes</source>
        <translation>Quitter dès que la fenêtre principale est dessinée, pour mesurer la durée du démarrage</translation>
    </message>
    <message>
        <source>Marquill logs video shots while they are filmed.</source>
        <translation>Marquill note les prises pendant le tournage.</translation>
    </message>
    <message>
        <source>Subcommands</source>
        <translation>Commandes</translation>
    </message>
    <message>
        <source>Folders, movies and clips to open</source>
        <translation>Dossiers, films et clips à ouvrir</translation>
    </message>
    <message>
        <source>%1: no such file or folder, nor a command</source>
        <translation>%1&#xa0;: ni fichier, ni dossier, ni commande</translation>
    </message>
    <message>
        <source>No desktop to show windows on</source>
        <translation>Aucun bureau où afficher des fenêtres</translation>
    </message>
    <message>
        <source>start Marquill in a desktop session, or use its commands; --help lists them</source>
        <translation>lancez Marquill dans une session de bureau, ou servez-vous de ses commandes ; --help les énumère</translation>
    </message>
</context>
<context>
    <name>PanaP2</name>
    <message>
        <source>There is more than one element at the top.</source>
        <translation>Il y a plus d’un élément à la racine.</translation>
    </message>
</context>
<context>
    <name>PlaceholderChoice</name>
    <message>
        <source>the folder holds no place holder clip &quot;%1&quot;; `marquill list` tells those that it holds</source>
        <translation>le dossier ne contient pas de clip provisoire «&#xa0;%1&#xa0;»&#xa0;; `marquill list` indique ceux qu’il contient</translation>
    </message>
    <message>
        <source>its record is that of &quot;%1&quot;; give the file this name back to change the clip</source>
        <translation>sa fiche est celle de «&#xa0;%1&#xa0;»&#xa0;; redonnez ce nom au fichier pour modifier le clip</translation>
    </message>
    <message>
        <source>holds no clip record and was left as it is</source>
        <translation>ne contient pas de fiche de clip et a été laissé tel quel</translation>
    </message>
    <message>
        <source>another program has meanwhile changed in it what was to be changed, and it was left as it is; look at it, and give the command again</source>
        <translation>un autre programme y a modifié entre-temps ce qui devait l’être, et il a été laissé tel quel ; examinez-le, puis relancez la commande</translation>
    </message>
</context>
<context>
    <name>PosterCache</name>
    <message>
        <source>The picture cannot be encoded.</source>
        <translation>L’image ne peut pas être encodée.</translation>
    </message>
</context>
<context>
    <name>Preferences</name>
    <message>
        <source>Preferences</source>
        <translation>Préférences</translation>
    </message>
    <message>
        <source>Labels</source>
        <translation>Étiquettes</translation>
    </message>
    <message>
        <source>The labels a clip can be given, in the order of the label menus. Drag one to move it, double-click to rename it.</source>
        <translation>Les étiquettes qu’un clip peut recevoir, dans l’ordre des menus d’étiquettes. Faites-en glisser une pour la déplacer, double-cliquez pour la renommer.</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Ajouter</translation>
    </message>
    <message>
        <source>Add label</source>
        <translation>Ajouter une étiquette</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Supprimer</translation>
    </message>
    <message>
        <source>Delete label</source>
        <translation>Supprimer l’étiquette</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Rétablir</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Général</translation>
    </message>
    <message>
        <source>&amp;Theme</source>
        <translation>&amp;Thème</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>Thème</translation>
    </message>
    <message>
        <source>Audio &amp;volume</source>
        <translation>&amp;Volume audio</translation>
    </message>
    <message>
        <source>Audio volume</source>
        <translation>Volume audio</translation>
    </message>
    <message>
        <source>Off again after every start of the program.</source>
        <translation>De nouveau coupé à chaque démarrage du programme.</translation>
    </message>
    <message>
        <source>&amp;Settings file</source>
        <translation>&amp;Fichier des réglages</translation>
    </message>
    <message>
        <source>Settings file</source>
        <translation>Fichier des réglages</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Copier</translation>
    </message>
    <message>
        <source>Copy the path of the settings file</source>
        <translation>Copier le chemin du fichier des réglages</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Follow the system</source>
        <translation>Suivre le système</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Sombre</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Clair</translation>
    </message>
</context>
<context>
    <name>ProbeCommand</name>
    <message>
        <source>duration   %1 s (%2 / %3)%4</source>
        <translation>durée      %1 s (%2 / %3)%4</translation>
    </message>
    <message>
        <source>, fragmented</source>
        <translation>, fragmenté</translation>
    </message>
    <message>
        <source>header     %1 bytes at %2, before the media%3</source>
        <translation>en-tête    %1 octets à %2, avant les médias%3</translation>
    </message>
    <message>
        <source>header     %1 bytes at %2, after the media%3</source>
        <translation>en-tête    %1 octets à %2, après les médias%3</translation>
    </message>
    <message>
        <source>, compressed</source>
        <translation>, compressé</translation>
    </message>
    <message>
        <source>reference  names other movies, has no media of its own</source>
        <translation>référence  nomme d’autres films, n’a pas de médias propres</translation>
    </message>
    <message>
        <source>track %1    %2 %3, %4 samples, %5 × %6</source>
        <translation>piste %1    %2 %3, %4 échantillons, %5 × %6</translation>
    </message>
    <message>
        <source>user data  none: the movie cannot hold a clip record</source>
        <translation>données    aucune&#xa0;: le film ne peut pas contenir de fiche de clip</translation>
    </message>
    <message>
        <source>user data  %1, %2 bytes</source>
        <translation>données    %1, %2 octets</translation>
    </message>
    <message>
        <source>Tell what the header of a movie file says</source>
        <translation>Dire ce que contient l’en-tête d’un fichier de film</translation>
    </message>
    <message>
        <source>The movie</source>
        <translation>Le film</translation>
    </message>
    <message>
        <source>Print it as JSON</source>
        <translation>Afficher en JSON</translation>
    </message>
    <message>
        <source>Also the time codes at these times, in units of the movie</source>
        <translation>Aussi les timecodes de ces moments, en unités du film</translation>
    </message>
    <message>
        <source>time code  %1</source>
        <translation>timecode   %1</translation>
    </message>
</context>
<context>
    <name>ProgressSheet</name>
    <message>
        <source>Progress</source>
        <translation>Progression</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
</context>
<context>
    <name>PropertyList</name>
    <message>
        <source>There is text where only elements may stand.</source>
        <translation>Il y a du texte là où seuls des éléments sont permis.</translation>
    </message>
    <message>
        <source>The property list holds no value.</source>
        <translation>La liste de propriétés ne contient aucune valeur.</translation>
    </message>
    <message>
        <source>The property list holds more than one value.</source>
        <translation>La liste de propriétés contient plus d’une valeur.</translation>
    </message>
    <message>
        <source>The property list is nested too deeply.</source>
        <translation>La liste de propriétés est trop profondément imbriquée.</translation>
    </message>
    <message>
        <source>A key stands where a value is expected.</source>
        <translation>Il y a une clé là où une valeur est attendue.</translation>
    </message>
    <message>
        <source>A property list has no element &lt;%1&gt;.</source>
        <translation>Une liste de propriétés n’a pas d’élément &lt;%1&gt;.</translation>
    </message>
    <message>
        <source>The content of &lt;%1&gt; is wrong.</source>
        <translation>Le contenu de &lt;%1&gt; est incorrect.</translation>
    </message>
    <message>
        <source>A value of the dictionary has no key.</source>
        <translation>Une valeur du dictionnaire n’a pas de clé.</translation>
    </message>
    <message>
        <source>A key of the dictionary has no value.</source>
        <translation>Une clé du dictionnaire n’a pas de valeur.</translation>
    </message>
    <message>
        <source>There is an element where only text may stand.</source>
        <translation>Il y a un élément là où seul du texte est permis.</translation>
    </message>
    <message>
        <source>An entity is wrong or not one of XML&apos;s own.</source>
        <translation>Une entité est incorrecte ou n’est pas l’une de celles d’XML.</translation>
    </message>
    <message>
        <source>There is not enough memory to read it.</source>
        <translation>Il n’y a pas assez de mémoire pour la lire.</translation>
    </message>
    <message>
        <source>The property list ends before it is complete.</source>
        <translation>La liste de propriétés se termine avant d’être complète.</translation>
    </message>
    <message>
        <source>The XML is damaged: %1.</source>
        <translation>Le XML est endommagé&#xa0;: %1.</translation>
    </message>
    <message>
        <source>Binary property lists are not supported.</source>
        <translation>Les listes de propriétés binaires ne sont pas prises en charge.</translation>
    </message>
    <message>
        <source>The property list is empty.</source>
        <translation>La liste de propriétés est vide.</translation>
    </message>
    <message>
        <source>The property list holds no dictionary.</source>
        <translation>La liste de propriétés ne contient pas de dictionnaire.</translation>
    </message>
    <message>
        <source>the root</source>
        <translation>la racine</translation>
    </message>
    <message>
        <source>The value at %1 cannot be written: it is missing, or holds a character or date that a property list has no way to write.</source>
        <translation>La valeur à %1 ne peut pas être écrite&#xa0;: elle manque, ou contient un caractère ou une date qu’une liste de propriétés ne sait pas écrire.</translation>
    </message>
</context>
<context>
    <name>RecordCommand</name>
    <message>
        <source>Record a take: digits fire markers, Enter or Escape stops and writes the placeholder</source>
        <translation>Enregistrer une prise&#xa0;: les chiffres posent les marqueurs, Entrée ou Échap arrête et écrit le clip provisoire</translation>
    </message>
    <message>
        <source>The record folder</source>
        <translation>Le dossier d’enregistrement</translation>
    </message>
    <message>
        <source>Name of the clip; otherwise the recorder&apos;s last one</source>
        <translation>Nom du clip&#xa0;; sinon le dernier de l’enregistreur</translation>
    </message>
    <message>
        <source>Scene of the clip; otherwise the recorder&apos;s last one</source>
        <translation>Séquence du clip&#xa0;; sinon la dernière de l’enregistreur</translation>
    </message>
    <message>
        <source>Title of the marker set; otherwise the current one</source>
        <translation>Titre du jeu de marqueurs&#xa0;; sinon le jeu actuel</translation>
    </message>
    <message>
        <source>Couldn&apos;t create Place Holder Clip</source>
        <translation>Impossible de créer le clip provisoire</translation>
    </message>
    <message>
        <source>The place holder file couldn&apos;t be created. Please check your user permissions.</source>
        <translation>Le fichier du clip provisoire n’a pas pu être créé. Veuillez vérifier vos droits d’accès.</translation>
    </message>
    <message>
        <source>no marker set is called &quot;%1&quot;; there are: %2</source>
        <translation>aucun jeu de marqueurs ne s’appelle «&#xa0;%1&#xa0;»&#xa0;; il y a&#xa0;: %2</translation>
    </message>
</context>
<context>
    <name>RecoverTakesDialog</name>
    <message>
        <source>Recover Takes</source>
        <translation>Récupérer des prises</translation>
    </message>
    <message>
        <source>The clips of these takes could not be written. Nothing of them is lost until you discard them: choose a folder to save them into.</source>
        <translation>Les clips de ces prises n’ont pas pu être écrits. Rien n’en est perdu tant que vous ne les supprimez pas&#xa0;: choisissez un dossier où les enregistrer.</translation>
    </message>
    <message>
        <source>Takes to recover</source>
        <translation>Prises à récupérer</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>Scene</source>
        <translation>Séquence</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Début</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Durée</translation>
    </message>
    <message>
        <source>Markers</source>
        <translation>Marqueurs</translation>
    </message>
    <message>
        <source>Discard…</source>
        <translation>Supprimer…</translation>
    </message>
    <message>
        <source>Discard selected takes</source>
        <translation>Supprimer les prises sélectionnées</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Recover…</source>
        <translation>Récupérer…</translation>
    </message>
    <message>
        <source>Recover selected takes</source>
        <translation>Récupérer les prises sélectionnées</translation>
    </message>
</context>
<context>
    <name>RotatingFile</name>
    <message>
        <source>Other programs keep replacing the file.</source>
        <translation>D’autres programmes ne cessent de remplacer le fichier.</translation>
    </message>
</context>
<context>
    <name>SampleTableAtoms</name>
    <message>
        <source>A sample description has the impossible size %1.</source>
        <translation>Une description d’échantillon a la taille impossible %1.</translation>
    </message>
</context>
<context>
    <name>SampleTimes</name>
    <message>
        <source>The edit list shows too many samples.</source>
        <translation>La liste de montage montre trop d’échantillons.</translation>
    </message>
    <message>
        <source>The movie or its video has no time scale.</source>
        <translation>Le film ou sa vidéo n’a pas d’échelle de temps.</translation>
    </message>
</context>
<context>
    <name>SetCommand</name>
    <message>
        <source>&quot;%1&quot; is not KEY=VALUE with a key of scene, take, rating, label, comment</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas CLÉ=VALEUR avec l’une des clés scene, take, rating, label, comment</translation>
    </message>
    <message>
        <source>a rating is a number from 0 to 5, not &quot;%1&quot;</source>
        <translation>une note est un nombre de 0 à 5, et non «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>the %1 holds a character that no clip record can</source>
        <translation>%1 contient un caractère qu’aucune fiche de clip ne peut contenir</translation>
    </message>
    <message>
        <source>no label is called &quot;%1&quot;; there are: %2</source>
        <translation>aucune étiquette ne s’appelle «&#xa0;%1&#xa0;»&#xa0;; il y a&#xa0;: %2</translation>
    </message>
    <message>
        <source>holds no clip record; see what `marquill probe` tells of it</source>
        <translation>ne contient pas de fiche de clip&#xa0;; `marquill probe` en dit plus</translation>
    </message>
    <message>
        <source>Change what is logged of a clip</source>
        <translation>Modifier ce qui est noté d’un clip</translation>
    </message>
    <message>
        <source>The clip file: a placeholder or a movie</source>
        <translation>Le fichier du clip&#xa0;: un clip provisoire ou un film</translation>
    </message>
    <message>
        <source>Keys: scene, take, rating (0 to 5), label, comment</source>
        <translation>Clés&#xa0;: scene, take, rating (0 à 5), label, comment</translation>
    </message>
</context>
<context>
    <name>ShowCommand</name>
    <message>
        <source>Show the record of a clip and the texts about it</source>
        <translation>Montrer la fiche d’un clip et les textes à son sujet</translation>
    </message>
    <message>
        <source>The clip file: a placeholder or a movie</source>
        <translation>Le fichier du clip&#xa0;: un clip provisoire ou un film</translation>
    </message>
    <message>
        <source>Print it as JSON</source>
        <translation>Afficher en JSON</translation>
    </message>
    <message>
        <source>holds no clip record; see what `marquill probe` tells of it</source>
        <translation>ne contient pas de fiche de clip&#xa0;; `marquill probe` en dit plus</translation>
    </message>
</context>
<context>
    <name>ShownMovie</name>
    <message>
        <source>This movie is gone. Was it moved or deleted?</source>
        <translation>Ce film a disparu. A-t-il été déplacé ou supprimé&#xa0;?</translation>
    </message>
    <message>
        <source>This movie was replaced, and cannot be shown any more.</source>
        <translation>Ce film a été remplacé et ne peut plus être montré.</translation>
    </message>
</context>
<context>
    <name>Subpaths</name>
    <message>
        <source>The search was cancelled.</source>
        <translation>La recherche a été annulée.</translation>
    </message>
</context>
<context>
    <name>SystemError</name>
    <message>
        <source>There is no file or folder of that name. Was it moved or deleted?</source>
        <translation>Il n’y a ni fichier ni dossier de ce nom. A-t-il été déplacé ou supprimé&#xa0;?</translation>
    </message>
    <message>
        <source>There is no such folder; a part of the path is a file.</source>
        <translation>Ce dossier n’existe pas&#xa0;; une partie du chemin est un fichier.</translation>
    </message>
    <message>
        <source>The links on the way to it lead in a circle. Remove one of them.</source>
        <translation>Les liens qui y mènent tournent en rond. Supprimez l’un d’eux.</translation>
    </message>
    <message>
        <source>You are not allowed to do this. Change the permissions of the file or of its folder.</source>
        <translation>Vous n’en avez pas le droit. Modifiez les droits d’accès du fichier ou de son dossier.</translation>
    </message>
    <message>
        <source>The system does not permit this. The file may be locked, or belong to somebody else.</source>
        <translation>Le système ne le permet pas. Le fichier est peut-être verrouillé, ou appartient à quelqu’un d’autre.</translation>
    </message>
    <message>
        <source>The volume is read-only. Unlock it or choose another folder.</source>
        <translation>Le volume est en lecture seule. Déverrouillez-le ou choisissez un autre dossier.</translation>
    </message>
    <message>
        <source>The volume is full. Free some space and try again.</source>
        <translation>Le volume est plein. Libérez de la place et réessayez.</translation>
    </message>
    <message>
        <source>Your share of the volume is used up. Free some space and try again.</source>
        <translation>Votre part du volume est épuisée. Libérez de la place et réessayez.</translation>
    </message>
    <message>
        <source>Something of that name is there already. Choose another name.</source>
        <translation>Quelque chose porte déjà ce nom. Choisissez un autre nom.</translation>
    </message>
    <message>
        <source>The folder is not empty.</source>
        <translation>Le dossier n’est pas vide.</translation>
    </message>
    <message>
        <source>A folder stands where a file is wanted.</source>
        <translation>Un dossier se trouve là où il faut un fichier.</translation>
    </message>
    <message>
        <source>A pipe, socket or device stands where a file is wanted.</source>
        <translation>Un tube, une socket ou un périphérique se trouve là où il faut un fichier.</translation>
    </message>
    <message>
        <source>A device stands where a file is wanted.</source>
        <translation>Un périphérique se trouve là où il faut un fichier.</translation>
    </message>
    <message>
        <source>The operation was interrupted. Try again.</source>
        <translation>L’opération a été interrompue. Réessayez.</translation>
    </message>
    <message>
        <source>The operation was cancelled.</source>
        <translation>L’opération a été annulée.</translation>
    </message>
    <message>
        <source>The name is too long for this volume. Shorten it.</source>
        <translation>Le nom est trop long pour ce volume. Raccourcissez-le.</translation>
    </message>
    <message>
        <source>The file would be larger than this volume allows.</source>
        <translation>Le fichier serait plus grand que ce que permet ce volume.</translation>
    </message>
    <message>
        <source>The two places are on different volumes.</source>
        <translation>Les deux emplacements sont sur des volumes différents.</translation>
    </message>
    <message>
        <source>The volume does not support this.</source>
        <translation>Le volume ne le permet pas.</translation>
    </message>
    <message>
        <source>The system does not support this.</source>
        <translation>Le système ne le permet pas.</translation>
    </message>
    <message>
        <source>Too many files are open. Close some windows and try again.</source>
        <translation>Trop de fichiers sont ouverts. Fermez des fenêtres et réessayez.</translation>
    </message>
    <message>
        <source>Too many files are open. Close other programs and try again.</source>
        <translation>Trop de fichiers sont ouverts. Fermez d’autres programmes et réessayez.</translation>
    </message>
    <message>
        <source>It is in use by the system. Try again later.</source>
        <translation>Le système s’en sert. Réessayez plus tard.</translation>
    </message>
    <message>
        <source>The device failed. Check its connection, and copy what you can.</source>
        <translation>Le périphérique a échoué. Vérifiez sa connexion et copiez ce que vous pouvez.</translation>
    </message>
    <message>
        <source>The server lost the file. Connect to it again.</source>
        <translation>Le serveur a perdu le fichier. Reconnectez-vous.</translation>
    </message>
    <message>
        <source>The system failed: %1.</source>
        <translation>Le système a échoué&#xa0;: %1.</translation>
    </message>
</context>
<context>
    <name>TakeJournalFormat</name>
    <message>
        <source>This is no journal of a take.</source>
        <translation>Ce n’est pas le journal d’une prise.</translation>
    </message>
    <message>
        <source>A later version of Marquill wrote this journal.</source>
        <translation>Une version plus récente de Marquill a écrit ce journal.</translation>
    </message>
    <message>
        <source>The journal does not say when its take began.</source>
        <translation>Le journal ne dit pas quand sa prise a commencé.</translation>
    </message>
    <message>
        <source>The journal ends before it tells of a take.</source>
        <translation>Le journal se termine avant de parler d’une prise.</translation>
    </message>
</context>
<context>
    <name>TakeRecovery</name>
    <message>
        <source>The folder does not exist or is offline.</source>
        <translation>Le dossier n’existe pas ou est hors ligne.</translation>
    </message>
</context>
<context>
    <name>TakeRescue</name>
    <message>
        <source>1 take could not be saved where recorded</source>
        <translation>1 prise n’a pas pu être enregistrée à sa place</translation>
    </message>
    <message>
        <source>%1 takes could not be saved where recorded</source>
        <translation>%1 prises n’ont pas pu être enregistrées à leur place</translation>
    </message>
</context>
<context>
    <name>TakeWriter</name>
    <message>
        <source>No file of that name can stand in the folder.</source>
        <translation>Aucun fichier de ce nom ne peut se trouver dans le dossier.</translation>
    </message>
    <message>
        <source>Other programs keep taking the names of clips.</source>
        <translation>D’autres programmes ne cessent de prendre les noms des clips.</translation>
    </message>
</context>
<context>
    <name>TerminalRecorder</name>
    <message>
        <source>Recording %1, take %2, into %3
</source>
        <translation>Enregistrement de %1, prise %2, dans %3
</translation>
    </message>
    <message>
        <source>A digit fires its marker; Enter or Escape stops.
</source>
        <translation>Un chiffre pose son marqueur&#xa0;; Entrée ou Échap arrête.
</translation>
    </message>
</context>
<context>
    <name>TextExportOptions</name>
    <message>
        <source>Export as Text</source>
        <translation>Exporter en texte</translation>
    </message>
    <message>
        <source>Write the clips of the folder as</source>
        <translation>Écrire les clips du dossier comme</translation>
    </message>
    <message>
        <source>&amp;User readable text</source>
        <translation>&amp;Texte lisible</translation>
    </message>
    <message>
        <source>&amp;Tab delimited table</source>
        <translation>Tableau à ta&amp;bulations</translation>
    </message>
    <message>
        <source>&amp;Comma delimited table</source>
        <translation>Tableau à &amp;virgules</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
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
        <translation>Suppression des clips de la corbeille…</translation>
    </message>
    <message>
        <source>Delete Clips in the Trash?</source>
        <translation>Supprimer les clips de la corbeille&#xa0;?</translation>
    </message>
    <message>
        <source>There are clips in the trash folder in one or more recording folders. You can either delete these clips or keep them in the trash folder(s). Deleting clips cannot be undone.</source>
        <translation>Il y a des clips dans la corbeille d’un ou de plusieurs dossiers d’enregistrement. Vous pouvez supprimer ces clips ou les y laisser. La suppression de clips est irréversible.</translation>
    </message>
    <message>
        <source>Keep Clips</source>
        <translation>Garder les clips</translation>
    </message>
    <message>
        <source>Cancel Quitting</source>
        <translation>Ne pas quitter</translation>
    </message>
    <message>
        <source>Delete Clips</source>
        <translation>Supprimer les clips</translation>
    </message>
    <message>
        <source>Could not delete Clips</source>
        <translation>Impossible de supprimer des clips</translation>
    </message>
    <message>
        <source>%1 clips of %2 clips could not be deleted. Please try to delete them manually in the Finder.</source>
        <translation>%1 clips sur %2 n’ont pas pu être supprimés. Veuillez essayer de les supprimer à la main dans le gestionnaire de fichiers.</translation>
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
        <translation>Le film a été enregistré en fragments et n’a pas de place avant eux pour un en-tête plus long.</translation>
    </message>
    <message>
        <source>The file ends within its last atom; nothing is added to it.</source>
        <translation>Le fichier se termine dans son dernier atome&#xa0;; rien n’y est ajouté.</translation>
    </message>
    <message>
        <source>The file ends with bytes that are no atom; nothing is added to it.</source>
        <translation>Le fichier se termine par des octets qui ne sont pas un atome&#xa0;; rien n’y est ajouté.</translation>
    </message>
    <message>
        <source>The last atom has no size, and cannot be given one safely.</source>
        <translation>Le dernier atome n’a pas de taille et ne peut en recevoir une sans risque.</translation>
    </message>
    <message>
        <source>The free atom at the end of the file is too large to be used.</source>
        <translation>L’atome libre à la fin du fichier est trop grand pour être utilisé.</translation>
    </message>
    <message>
        <source>The movie header is too large to be written anew.</source>
        <translation>L’en-tête du film est trop grand pour être réécrit.</translation>
    </message>
</context>
<context>
    <name>UserData</name>
    <message>
        <source>There is no user-data item &apos;%1&apos; with the index %2.</source>
        <translation>Il n’y a pas d’élément «&#xa0;%1&#xa0;» numéro %2 dans les données utilisateur.</translation>
    </message>
</context>
<context>
    <name>UserDefaults</name>
    <message>
        <source>There are too many damaged settings files beside it.</source>
        <translation>Il y a trop de fichiers de réglages endommagés à côté.</translation>
    </message>
</context>
<context>
    <name>WindowDescription</name>
    <message>
        <source>the window description is missing; install Marquill again</source>
        <translation>la description de la fenêtre manque&#xa0;; réinstallez Marquill</translation>
    </message>
    <message>
        <source>the window description holds widgets of unknown classes: %1</source>
        <translation>la description de la fenêtre contient des éléments de classes inconnues&#xa0;: %1</translation>
    </message>
    <message>
        <source>the window description lacks %1</source>
        <translation>il manque à la description de la fenêtre %1</translation>
    </message>
</context>
<context>
    <name>XmemlExport</name>
    <message>
        <source>The clip is not connected to media. Connect it.</source>
        <translation>Le clip n’est pas connecté à un média. Connectez-le.</translation>
    </message>
    <message>
        <source>The movie has no pictures.</source>
        <translation>Le film n’a pas d’images.</translation>
    </message>
</context>
<context>
    <name>XmlEncoding</name>
    <message>
        <source>The text is not in the encoding it claims to be in.</source>
        <translation>Le texte n’est pas dans l’encodage qu’il annonce.</translation>
    </message>
    <message>
        <source>The encoding &quot;%1&quot; is not supported.</source>
        <translation>L’encodage «&#xa0;%1&#xa0;» n’est pas pris en charge.</translation>
    </message>
    <message>
        <source>A NUL character stands in the text.</source>
        <translation>Le texte contient un caractère NUL.</translation>
    </message>
</context>
<context>
    <name>_markerPanel</name>
    <message>
        <source>Real Time Markers</source>
        <translation>Marqueurs en direct</translation>
    </message>
    <message>
        <source>Marker Sets</source>
        <translation>Jeux de marqueurs</translation>
    </message>
    <message>
        <source>Edit…</source>
        <translation>Modifier…</translation>
    </message>
    <message>
        <source>Edit the marker sets</source>
        <translation>Modifier les jeux de marqueurs</translation>
    </message>
</context>
<context>
    <name>_markerSetEditor</name>
    <message>
        <source>Marker Sets</source>
        <translation>Jeux de marqueurs</translation>
    </message>
    <message>
        <source>The sets of marker buttons, in the order of the popup. Drag one to move it, double-click to rename it.</source>
        <translation>Les jeux de boutons de marqueurs, dans l’ordre du menu. Faites-en glisser un pour le déplacer, double-cliquez pour le renommer.</translation>
    </message>
    <message>
        <source>Marker sets</source>
        <translation>Jeux de marqueurs</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Ajouter</translation>
    </message>
    <message>
        <source>Add set</source>
        <translation>Ajouter un jeu</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>Dupliquer</translation>
    </message>
    <message>
        <source>Duplicate set</source>
        <translation>Dupliquer le jeu</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Supprimer</translation>
    </message>
    <message>
        <source>Delete set</source>
        <translation>Supprimer le jeu</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Défaire</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Refaire</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
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
        <translation>Afficher le journal</translation>
    </message>
    <message>
        <source>Nothing has been written into the log yet, or its disk could not take it.
%1</source>
        <translation>Rien n’a encore été écrit dans le journal, ou son disque n’a pas pu le recevoir.
%1</translation>
    </message>
    <message>
        <source>There is no log</source>
        <translation>Il n’y a pas de journal</translation>
    </message>
    <message>
        <source>Quit Marquill?</source>
        <translation>Quitter Marquill&#xa0;?</translation>
    </message>
    <message>
        <source>Marquill is currently busy with recording a clip. To quit Vistacue please stop recording and try again to quit.</source>
        <translation>Marquill est en train d’enregistrer un clip. Pour quitter Marquill, veuillez arrêter l’enregistrement et réessayer.</translation>
    </message>
    <message>
        <source>Undo Typing</source>
        <translation>Annuler la saisie</translation>
    </message>
    <message>
        <source>Redo Typing</source>
        <translation>Rétablir la saisie</translation>
    </message>
    <message>
        <source>About Marquill</source>
        <translation>À propos de Marquill</translation>
    </message>
    <message>
        <source>Logs video shots while they are filmed.</source>
        <translation>Note les prises pendant le tournage.</translation>
    </message>
    <message>
        <source>Feedback:</source>
        <translation>Commentaires&#xa0;:</translation>
    </message>
    <message>
        <source>Hide %1</source>
        <translation>Masquer %1</translation>
    </message>
    <message>
        <source>Show %1</source>
        <translation>Afficher %1</translation>
    </message>
    <message>
        <source>Clip Manager</source>
        <translation>Gestionnaire de clips</translation>
    </message>
    <message>
        <source>Real Time Markers Window</source>
        <translation>les marqueurs en direct</translation>
    </message>
    <message>
        <source>Place Holder Clip Recorder Window</source>
        <translation>l’enregistreur de clips provisoires</translation>
    </message>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>Raccourcis clavier</translation>
    </message>
    <message>
        <source>Add Folder…</source>
        <translation>Ajouter un dossier…</translation>
    </message>
    <message>
        <source>Remove Folder from List</source>
        <translation>Retirer le dossier de la liste</translation>
    </message>
    <message>
        <source>Import Movies…</source>
        <translation>Importer des films…</translation>
    </message>
    <message>
        <source>Export Clips as XML…</source>
        <translation>Exporter les clips en XML…</translation>
    </message>
    <message>
        <source>Export Clips as Text…</source>
        <translation>Exporter les clips en texte…</translation>
    </message>
    <message>
        <source>Preferences…</source>
        <translation>Préférences…</translation>
    </message>
    <message>
        <source>Hide Marquill</source>
        <translation>Masquer Marquill</translation>
    </message>
    <message>
        <source>Quit Marquill</source>
        <translation>Quitter Marquill</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Rétablir</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Couper</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copier</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Coller</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Tout sélectionner</translation>
    </message>
    <message>
        <source>Go to Recorder</source>
        <translation>Aller à l’enregistreur</translation>
    </message>
    <message>
        <source>Go to Folders</source>
        <translation>Aller aux dossiers</translation>
    </message>
    <message>
        <source>Go to Clips</source>
        <translation>Aller aux clips</translation>
    </message>
    <message>
        <source>Go to Movie</source>
        <translation>Aller au film</translation>
    </message>
    <message>
        <source>Go to Clip Attributes</source>
        <translation>Aller aux attributs du clip</translation>
    </message>
    <message>
        <source>Go to Markers</source>
        <translation>Aller aux marqueurs</translation>
    </message>
    <message>
        <source>Go to Marker Buttons</source>
        <translation>Aller aux boutons de marqueurs</translation>
    </message>
    <message>
        <source>Collapse Window</source>
        <translation>Réduire la fenêtre</translation>
    </message>
    <message>
        <source>Open in Viewer</source>
        <translation>Ouvrir dans la visionneuse</translation>
    </message>
    <message>
        <source>Open in Default Player</source>
        <translation>Ouvrir dans le lecteur par défaut</translation>
    </message>
    <message>
        <source>Show in File Browser</source>
        <translation>Montrer dans le gestionnaire de fichiers</translation>
    </message>
    <message>
        <source>Rename Clip</source>
        <translation>Renommer le clip</translation>
    </message>
    <message>
        <source>Delete Clips</source>
        <translation>Supprimer les clips</translation>
    </message>
    <message>
        <source>Select Next Clip</source>
        <translation>Sélectionner le clip suivant</translation>
    </message>
    <message>
        <source>Select Previous Clip</source>
        <translation>Sélectionner le clip précédent</translation>
    </message>
    <message>
        <source>Set In Point</source>
        <translation>Définir le point d’entrée</translation>
    </message>
    <message>
        <source>Set Out Point</source>
        <translation>Définir le point de sortie</translation>
    </message>
    <message>
        <source>Add Marker</source>
        <translation>Ajouter un marqueur</translation>
    </message>
    <message>
        <source>Edit Labels…</source>
        <translation>Modifier les étiquettes…</translation>
    </message>
    <message>
        <source>Left-Out Movies…</source>
        <translation>Films laissés de côté…</translation>
    </message>
    <message>
        <source>Connect Clip…</source>
        <translation>Connecter le clip…</translation>
    </message>
    <message>
        <source>Disconnect Clips</source>
        <translation>Déconnecter les clips</translation>
    </message>
    <message>
        <source>Batch Connect QuickTime Clips…</source>
        <translation>Connecter des clips QuickTime en lot…</translation>
    </message>
    <message>
        <source>Batch Connect RED Clips (H Proxies)…</source>
        <translation>Connecter des clips RED en lot (proxys H)…</translation>
    </message>
    <message>
        <source>Batch Connect RED Clips (P Proxies)…</source>
        <translation>Connecter des clips RED en lot (proxys P)…</translation>
    </message>
    <message>
        <source>Batch Connect RED Clips (M Proxies)…</source>
        <translation>Connecter des clips RED en lot (proxys M)…</translation>
    </message>
    <message>
        <source>Batch Connect Log and Transfer RED Clips…</source>
        <translation>Connecter des clips RED de Log and Transfer en lot…</translation>
    </message>
    <message>
        <source>Batch Connect P2 Clips…</source>
        <translation>Connecter des clips P2 en lot…</translation>
    </message>
    <message>
        <source>Start Recording</source>
        <translation>Démarrer l’enregistrement</translation>
    </message>
    <message>
        <source>Stop Recording</source>
        <translation>Arrêter l’enregistrement</translation>
    </message>
    <message>
        <source>Recover Takes…</source>
        <translation>Récupérer des prises…</translation>
    </message>
    <message>
        <source>Show or Hide Clip Manager</source>
        <translation>Afficher ou masquer le gestionnaire de clips</translation>
    </message>
    <message>
        <source>Show or Hide Place Holder Clip Recorder Window</source>
        <translation>Afficher ou masquer l’enregistreur de clips provisoires</translation>
    </message>
    <message>
        <source>Show or Hide Real Time Markers Window</source>
        <translation>Afficher ou masquer les marqueurs en direct</translation>
    </message>
    <message>
        <source>Show or Hide Keyboard Shortcuts</source>
        <translation>Afficher ou masquer les raccourcis clavier</translation>
    </message>
    <message>
        <source>Trouble Shooting ...</source>
        <translation>Dépannage ...</translation>
    </message>
    <message>
        <source>Visit Website</source>
        <translation>Visiter le site web</translation>
    </message>
    <message>
        <source>Send Feedback…</source>
        <translation>Envoyer vos commentaires…</translation>
    </message>
    <message>
        <source>About Marquill ...</source>
        <translation>À propos de Marquill ...</translation>
    </message>
    <message>
        <source>Show Day Timeline</source>
        <translation>Afficher la frise du jour</translation>
    </message>
    <message>
        <source>Find…</source>
        <translation>Rechercher…</translation>
    </message>
    <message>
        <source>Show Pictures</source>
        <translation>Afficher les images</translation>
    </message>
    <message>
        <source>There is no manual</source>
        <translation>Il n’y a pas de manuel</translation>
    </message>
    <message>
        <source>Manual</source>
        <translation>Manuel</translation>
    </message>
</context>
<context>
    <name>marquill::ClipAttributes</name>
    <message>
        <source>1 star</source>
        <translation>1 étoile</translation>
    </message>
    <message>
        <source>%1 stars</source>
        <translation>%1 étoiles</translation>
    </message>
    <message>
        <source>not rated</source>
        <translation>sans note</translation>
    </message>
</context>
<context>
    <name>marquill::ClipConflicts</name>
    <message>
        <source>%1: yours is %2, theirs is %3.</source>
        <translation>%1&#xa0;: chez vous %2, chez l’autre %3.</translation>
    </message>
    <message>
        <source>Somebody else has changed “%1” too.</source>
        <translation>Quelqu’un d’autre a aussi modifié «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>Compare…</source>
        <translation>Comparer…</translation>
    </message>
    <message>
        <source>Which changes of “%1” shall stay?</source>
        <translation>Quelles modifications de «&#xa0;%1&#xa0;» garder&#xa0;?</translation>
    </message>
    <message>
        <source>Keep Mine</source>
        <translation>Garder les miennes</translation>
    </message>
    <message>
        <source>Take Theirs</source>
        <translation>Prendre les autres</translation>
    </message>
    <message>
        <source>Decide Later</source>
        <translation>Décider plus tard</translation>
    </message>
    <message>
        <source>Scene</source>
        <translation>Séquence</translation>
    </message>
    <message>
        <source>Take</source>
        <translation>Prise</translation>
    </message>
    <message>
        <source>Rating</source>
        <translation>Note</translation>
    </message>
    <message>
        <source>Label</source>
        <translation>Étiquette</translation>
    </message>
    <message>
        <source>Comment</source>
        <translation>Commentaire</translation>
    </message>
    <message>
        <source>Markers</source>
        <translation>Marqueurs</translation>
    </message>
    <message>
        <source>Media</source>
        <translation>Média</translation>
    </message>
    <message>
        <source>1 marker</source>
        <translation>1 marqueur</translation>
    </message>
    <message>
        <source>%1 markers</source>
        <translation>%1 marqueurs</translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>rien</translation>
    </message>
</context>
<context>
    <name>marquill::ClipConnecting</name>
    <message>
        <source>Please select at least one place holder clip to connect to a file based clip.</source>
        <translation>Veuillez sélectionner au moins un clip provisoire à connecter à un clip enregistré dans un fichier.</translation>
    </message>
    <message>
        <source>Choose folder with clips converted by FCP</source>
        <translation>Choisir le dossier des clips convertis par FCP</translation>
    </message>
    <message>
        <source>No Place Holder selected</source>
        <translation>Aucun clip provisoire sélectionné</translation>
    </message>
    <message>
        <source>Choose folder with QuickTime clips</source>
        <translation>Choisir le dossier des clips QuickTime</translation>
    </message>
    <message>
        <source>Choose folder with RED clips</source>
        <translation>Choisir le dossier des clips RED</translation>
    </message>
    <message>
        <source>No Clips found</source>
        <translation>Aucun clip trouvé</translation>
    </message>
    <message>
        <source>No Clips could be found in the specified folder, please choose another folder.</source>
        <translation>Aucun clip n’a été trouvé dans le dossier indiqué, veuillez choisir un autre dossier.</translation>
    </message>
    <message>
        <source>No Place Holder Clips selected</source>
        <translation>Aucun clip provisoire sélectionné</translation>
    </message>
    <message>
        <source>Choose root folder with P2 clips</source>
        <translation>Choisir le dossier racine des clips P2</translation>
    </message>
    <message>
        <source>No P2 files found</source>
        <translation>Aucun fichier P2 trouvé</translation>
    </message>
    <message>
        <source>No clips found in the specified folder. Please try again and choose a P2 root folder.</source>
        <translation>Aucun clip trouvé dans le dossier indiqué. Veuillez réessayer en choisissant le dossier racine d’une carte P2.</translation>
    </message>
    <message>
        <source>Please try again and choose a P2 root folder.</source>
        <translation>Veuillez réessayer en choisissant le dossier racine d’une carte P2.</translation>
    </message>
    <message>
        <source>Connecting clips…</source>
        <translation>Connexion des clips…</translation>
    </message>
    <message>
        <source>Connect Clip</source>
        <translation>Connecter le clip</translation>
    </message>
    <message>
        <source>Could not connect Clip</source>
        <translation>Impossible de connecter le clip</translation>
    </message>
    <message>
        <source>An error has occured while reconciling the clip.</source>
        <translation>Une erreur est survenue pendant la mise en correspondance du clip.</translation>
    </message>
    <message>
        <source>connect Clip</source>
        <translation>connecter le clip</translation>
    </message>
    <message>
        <source>unconnect Clips</source>
        <translation>déconnecter les clips</translation>
    </message>
</context>
<context>
    <name>marquill::ClipExports</name>
    <message>
        <source>No Folder selected</source>
        <translation>Aucun dossier sélectionné</translation>
    </message>
    <message>
        <source>Please select a folder to export.</source>
        <translation>Veuillez sélectionner un dossier à exporter.</translation>
    </message>
    <message>
        <source>No Clips to export</source>
        <translation>Aucun clip à exporter</translation>
    </message>
    <message>
        <source>There are no clips to export in the selected folder.</source>
        <translation>Le dossier sélectionné ne contient aucun clip à exporter.</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exporter</translation>
    </message>
    <message>
        <source>Export failed</source>
        <translation>Échec de l’exportation</translation>
    </message>
    <message>
        <source>Couldn&apos;t write xml file.</source>
        <translation>Impossible d’écrire le fichier XML.</translation>
    </message>
    <message>
        <source>The export was cancelled.</source>
        <translation>L’exportation a été annulée.</translation>
    </message>
    <message>
        <source>Error writing File</source>
        <translation>Erreur d’écriture du fichier</translation>
    </message>
    <message>
        <source>An error occured while creating or writing the text file.</source>
        <translation>Une erreur est survenue à la création ou à l’écriture du fichier texte.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Couldn&apos;t write text file.</source>
        <translation>Impossible d’écrire le fichier texte.</translation>
    </message>
    <message>
        <source>Exporting the clips of %1…</source>
        <translation>Exportation des clips de %1…</translation>
    </message>
    <message>
        <source>the window description holds no dialog</source>
        <translation>la description de la fenêtre ne contient pas de dialogue</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Export – %1</source>
        <translation>Exporter – %1</translation>
    </message>
</context>
<context>
    <name>marquill::ClipManager</name>
    <message>
        <source>Add a folder to record into</source>
        <translation>Ajoutez un dossier où enregistrer</translation>
    </message>
    <message>
        <source>Add a folder to see its clips</source>
        <translation>Ajoutez un dossier pour voir ses clips</translation>
    </message>
    <message>
        <source>Select a folder to see its clips</source>
        <translation>Sélectionnez un dossier pour voir ses clips</translation>
    </message>
    <message>
        <source>Reading clips…</source>
        <translation>Lecture des clips…</translation>
    </message>
    <message>
        <source>No clips in this folder.
Press Control-Space to start a take, or import movies.</source>
        <translation>Aucun clip dans ce dossier.
Appuyez sur Ctrl-Espace pour commencer une prise, ou importez des films.</translation>
    </message>
    <message>
        <source>This folder does not exist or is offline</source>
        <translation>Ce dossier n’existe pas ou est hors ligne</translation>
    </message>
    <message>
        <source>Current Folder: Nothing selected</source>
        <translation>Dossier actuel&#xa0;: rien de sélectionné</translation>
    </message>
    <message>
        <source>Current Folder: %1 items selected</source>
        <translation>Dossier actuel&#xa0;: %1 éléments sélectionnés</translation>
    </message>
    <message>
        <source>Current Folder: does not exist or is offline</source>
        <translation>Dossier actuel&#xa0;: n’existe pas ou est hors ligne</translation>
    </message>
    <message>
        <source>Current Folder: %1</source>
        <translation>Dossier actuel&#xa0;: %1</translation>
    </message>
    <message>
        <source>%1 clips selected</source>
        <translation>%1 clips sélectionnés</translation>
    </message>
    <message>
        <source>Select a clip to see its movie</source>
        <translation>Sélectionnez un clip pour voir son film</translation>
    </message>
    <message>
        <source>change Clip</source>
        <translation>modifier le clip</translation>
    </message>
    <message>
        <source>Collapse Window</source>
        <translation>Réduire la fenêtre</translation>
    </message>
    <message>
        <source>Expand Window</source>
        <translation>Déployer la fenêtre</translation>
    </message>
    <message>
        <source>Import Movies</source>
        <translation>Importer des films</translation>
    </message>
    <message>
        <source>Could not load one or more Clips</source>
        <translation>Un ou plusieurs clips n’ont pas pu être chargés</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>No markers</source>
        <translation>Aucun marqueur</translation>
    </message>
    <message>
        <source>the window description holds no main window</source>
        <translation>la description de la fenêtre ne contient pas de fenêtre principale</translation>
    </message>
    <message>
        <source>Add Folder</source>
        <translation>Ajouter un dossier</translation>
    </message>
    <message>
        <source>Add recording folder</source>
        <translation>Ajouter un dossier d’enregistrement</translation>
    </message>
    <message>
        <source>Remove Folder</source>
        <translation>Retirer le dossier</translation>
    </message>
    <message>
        <source>Remove recording folder</source>
        <translation>Retirer le dossier d’enregistrement</translation>
    </message>
    <message>
        <source>Delete Clips</source>
        <translation>Supprimer les clips</translation>
    </message>
    <message>
        <source>Delete clips</source>
        <translation>Supprimer les clips</translation>
    </message>
    <message>
        <source>Hide Day Timeline</source>
        <translation>Masquer la frise du jour</translation>
    </message>
    <message>
        <source>Show Day Timeline</source>
        <translation>Afficher la frise du jour</translation>
    </message>
    <message>
        <source>Clear Search</source>
        <translation>Effacer la recherche</translation>
    </message>
    <message>
        <source>No clip matches</source>
        <translation>Aucun clip ne correspond</translation>
    </message>
    <message>
        <source>Hide Pictures</source>
        <translation>Masquer les images</translation>
    </message>
    <message>
        <source>Show Pictures</source>
        <translation>Afficher les images</translation>
    </message>
</context>
<context>
    <name>marquill::ClipManagerToolbar</name>
    <message>
        <source>Tool Bar</source>
        <translation>Barre d’outils</translation>
    </message>
</context>
<context>
    <name>marquill::ClipMarkerController</name>
    <message>
        <source>Markers of the clip</source>
        <translation>Marqueurs du clip</translation>
    </message>
    <message>
        <source>Add Marker</source>
        <translation>Ajouter un marqueur</translation>
    </message>
    <message>
        <source>Add a marker at the current time</source>
        <translation>Ajouter un marqueur au moment actuel</translation>
    </message>
    <message>
        <source>Delete Marker(s)</source>
        <translation>Supprimer le(s) marqueur(s)</translation>
    </message>
    <message>
        <source>Delete the selected markers</source>
        <translation>Supprimer les marqueurs sélectionnés</translation>
    </message>
    <message>
        <source>Set Start</source>
        <translation>Définir le début</translation>
    </message>
    <message>
        <source>Start the selected marker at the current time</source>
        <translation>Commencer le marqueur sélectionné au moment actuel</translation>
    </message>
    <message>
        <source>Set Stop</source>
        <translation>Définir la fin</translation>
    </message>
    <message>
        <source>End the selected marker at the current time</source>
        <translation>Terminer le marqueur sélectionné au moment actuel</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Renommer</translation>
    </message>
    <message>
        <source>%1 of %2 Marker Selected</source>
        <translation>%1 sur %2 marqueur sélectionné</translation>
    </message>
    <message>
        <source>%1 of %2 Markers Selected</source>
        <translation>%1 sur %2 marqueurs sélectionnés</translation>
    </message>
    <message>
        <source>add Marker(s)</source>
        <translation>ajouter le(s) marqueur(s)</translation>
    </message>
    <message>
        <source>delete Marker(s)</source>
        <translation>supprimer le(s) marqueur(s)</translation>
    </message>
    <message>
        <source>change Marker Name</source>
        <translation>modifier le nom du marqueur</translation>
    </message>
    <message>
        <source>change Marker Comment</source>
        <translation>modifier le commentaire du marqueur</translation>
    </message>
    <message>
        <source>change Marker Start</source>
        <translation>modifier le début du marqueur</translation>
    </message>
    <message>
        <source>change Marker Stop</source>
        <translation>modifier la fin du marqueur</translation>
    </message>
</context>
<context>
    <name>marquill::ClipSearch</name>
    <message>
        <source>All %1 clips of the folder are exported; the search shows %2.</source>
        <translation>Les %1 clips du dossier sont tous exportés&#xa0;; la recherche en montre %2.</translation>
    </message>
</context>
<context>
    <name>marquill::ClipSearchField</name>
    <message>
        <source>Search clips</source>
        <translation>Rechercher des clips</translation>
    </message>
    <message>
        <source>Clear Search</source>
        <translation>Effacer la recherche</translation>
    </message>
    <message>
        <source>Search clips (%1)</source>
        <translation>Rechercher des clips (%1)</translation>
    </message>
    <message>
        <source>Words, “-word” for what is not wanted, “&quot;two words&quot;”, or a field:
name: file: scene: take: label: comment: marker:
rating:&gt;=4 rating:none connected:no connected:offline</source>
        <translation>Des mots, «&#xa0;-mot&#xa0;» pour ce qui n’est pas voulu, «&#xa0;&quot;deux mots&quot;&#xa0;», ou un champ&#xa0;:
name: file: scene: take: label: comment: marker:
rating:&gt;=4 rating:none connected:no connected:offline</translation>
    </message>
</context>
<context>
    <name>marquill::ClipTableController</name>
    <message>
        <source>What has this name is no trash folder. Rename or remove it.</source>
        <translation>Ce qui porte ce nom n’est pas un dossier de corbeille. Renommez-le ou supprimez-le.</translation>
    </message>
    <message>
        <source>“%1” is not opened: its name is not that of a movie.</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas ouvert&#xa0;: son nom n’est pas celui d’un film.</translation>
    </message>
    <message>
        <source>This is no movie</source>
        <translation>Ce n’est pas un film</translation>
    </message>
    <message>
        <source>Please connect to clip again.</source>
        <translation>Veuillez reconnecter le clip.</translation>
    </message>
    <message>
        <source>Open in Viewer</source>
        <translation>Ouvrir dans la visionneuse</translation>
    </message>
    <message>
        <source>Open in Default Player</source>
        <translation>Ouvrir dans le lecteur par défaut</translation>
    </message>
    <message>
        <source>Show in File Browser</source>
        <translation>Montrer dans le gestionnaire de fichiers</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Renommer</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <translation>Mettre à la corbeille</translation>
    </message>
    <message>
        <source>Could not find Clip</source>
        <translation>Clip introuvable</translation>
    </message>
    <message>
        <source>Please connect to clip in order to open the clip.</source>
        <translation>Veuillez connecter le clip pour pouvoir l’ouvrir.</translation>
    </message>
    <message>
        <source>Clip not connected</source>
        <translation>Clip non connecté</translation>
    </message>
    <message>
        <source>Please connect to clip and try again.</source>
        <translation>Veuillez connecter le clip et réessayer.</translation>
    </message>
    <message>
        <source>Labels</source>
        <translation>Étiquettes</translation>
    </message>
    <message>
        <source>%1 of %2 Clip Selected</source>
        <translation>%1 sur %2 clip sélectionné</translation>
    </message>
    <message>
        <source>%1 of %2 Clips Selected</source>
        <translation>%1 sur %2 clips sélectionnés</translation>
    </message>
    <message>
        <source>change Clip</source>
        <translation>modifier le clip</translation>
    </message>
    <message>
        <source>No clip can have that name.</source>
        <translation>Aucun clip ne peut porter ce nom.</translation>
    </message>
    <message>
        <source>Couldn&apos;t change name</source>
        <translation>Impossible de changer le nom</translation>
    </message>
    <message>
        <source>The clip name could not be changed.</source>
        <translation>Le nom du clip n’a pas pu être changé.</translation>
    </message>
    <message>
        <source>rename Clip</source>
        <translation>renommer le clip</translation>
    </message>
    <message>
        <source>add Clip(s)</source>
        <translation>ajouter le(s) clip(s)</translation>
    </message>
    <message>
        <source>move Clip(s) to Trash</source>
        <translation>mettre le(s) clip(s) à la corbeille</translation>
    </message>
    <message>
        <source>No clip can have the name “%1”.</source>
        <translation>Aucun clip ne peut s’appeler «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>%1 shown</source>
        <translation>%1 affichés</translation>
    </message>
    <message>
        <source>%1 shown, %2 outside the search</source>
        <translation>%1 affichés, %2 hors de la recherche</translation>
    </message>
</context>
<context>
    <name>marquill::ClipTableModel</name>
    <message>
        <source>%1 MB</source>
        <translation>%1 Mo</translation>
    </message>
    <message>
        <source>Movie</source>
        <translation>Film</translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation>Non connecté</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>Connecté</translation>
    </message>
    <message>
        <source>Media not found</source>
        <translation>Média introuvable</translation>
    </message>
    <message>
        <source>1 star</source>
        <translation>1 étoile</translation>
    </message>
    <message>
        <source>%1 stars</source>
        <translation>%1 étoiles</translation>
    </message>
    <message>
        <source>not connected</source>
        <translation>non connecté</translation>
    </message>
    <message>
        <source>“%1” is not in the label list</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas dans la liste des étiquettes</translation>
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
        <translation>Aucun fichier de clip indiqué</translation>
    </message>
    <message>
        <source>Could not find Clip</source>
        <translation>Clip introuvable</translation>
    </message>
    <message>
        <source>Please connect to clip again or mount the volume where the clip resides.</source>
        <translation>Veuillez reconnecter le clip, ou monter le volume où il se trouve.</translation>
    </message>
</context>
<context>
    <name>marquill::ClipWriter</name>
    <message>
        <source>“%1” could not be saved: %2</source>
        <translation>«&#xa0;%1&#xa0;» n’a pas pu être enregistré&#xa0;: %2</translation>
    </message>
    <message>
        <source>“%1” and 1 other clip could not be saved: %2</source>
        <translation>«&#xa0;%1&#xa0;» et 1 autre clip n’ont pas pu être enregistrés&#xa0;: %2</translation>
    </message>
    <message>
        <source>“%1” and %2 other clips could not be saved: %3</source>
        <translation>«&#xa0;%1&#xa0;» et %2 autres clips n’ont pas pu être enregistrés&#xa0;: %3</translation>
    </message>
    <message>
        <source>“%1” could not be saved: Somebody else has changed it too.</source>
        <translation>«&#xa0;%1&#xa0;» n’a pas pu être enregistré&#xa0;: quelqu’un d’autre l’a aussi modifié.</translation>
    </message>
</context>
<context>
    <name>marquill::DayStrip</name>
    <message>
        <source>Previous day</source>
        <translation>Jour précédent</translation>
    </message>
    <message>
        <source>Next day</source>
        <translation>Jour suivant</translation>
    </message>
    <message>
        <source>1 take</source>
        <translation>1 prise</translation>
    </message>
    <message>
        <source>%1 takes</source>
        <translation>%1 prises</translation>
    </message>
    <message>
        <source>No take selected</source>
        <translation>Aucune prise sélectionnée</translation>
    </message>
    <message>
        <source>Take %1 of %2, %3, %4</source>
        <translation>Prise %1 sur %2, %3, %4</translation>
    </message>
    <message>
        <source>%1, take %2</source>
        <translation>%1, prise %2</translation>
    </message>
    <message>
        <source>%1, duration %2</source>
        <translation>%1, durée %2</translation>
    </message>
    <message>
        <source>1 marker</source>
        <translation>1 marqueur</translation>
    </message>
    <message>
        <source>%1 markers</source>
        <translation>%1 marqueurs</translation>
    </message>
    <message>
        <source>Not among the clips found</source>
        <translation>Pas parmi les clips trouvés</translation>
    </message>
    <message>
        <source>Day %1 of %2</source>
        <translation>Jour %1 sur %2</translation>
    </message>
    <message>
        <source>1 clip without a date is not shown</source>
        <translation>1 clip sans date n’est pas affiché</translation>
    </message>
    <message>
        <source>%1 clips without a date are not shown</source>
        <translation>%1 clips sans date ne sont pas affichés</translation>
    </message>
    <message>
        <source>Scene %1</source>
        <translation>Séquence %1</translation>
    </message>
</context>
<context>
    <name>marquill::DayTimelineView</name>
    <message>
        <source>Day timeline</source>
        <translation>Frise du jour</translation>
    </message>
</context>
<context>
    <name>marquill::KeyboardShortcuts</name>
    <message>
        <source>In Every Window</source>
        <translation>Dans toutes les fenêtres</translation>
    </message>
    <message>
        <source>Start a take</source>
        <translation>Commencer une prise</translation>
    </message>
    <message>
        <source>Stop the take</source>
        <translation>Arrêter la prise</translation>
    </message>
    <message>
        <source>Fire marker 1 … 10</source>
        <translation>Poser le marqueur 1 … 10</translation>
    </message>
    <message>
        <source>In the Clip List</source>
        <translation>Dans la liste des clips</translation>
    </message>
    <message>
        <source>Rate the clip</source>
        <translation>Noter le clip</translation>
    </message>
    <message>
        <source>Move the clips to the trash</source>
        <translation>Mettre les clips à la corbeille</translation>
    </message>
    <message>
        <source>In the Marker List</source>
        <translation>Dans la liste des marqueurs</translation>
    </message>
    <message>
        <source>Edit the next cell of the marker</source>
        <translation>Modifier la cellule suivante du marqueur</translation>
    </message>
    <message>
        <source>Delete the markers</source>
        <translation>Supprimer les marqueurs</translation>
    </message>
    <message>
        <source>In the Folder List</source>
        <translation>Dans la liste des dossiers</translation>
    </message>
    <message>
        <source>Record into the folder</source>
        <translation>Enregistrer dans le dossier</translation>
    </message>
    <message>
        <source>On a Movie</source>
        <translation>Sur un film</translation>
    </message>
    <message>
        <source>Play or pause</source>
        <translation>Lire ou mettre en pause</translation>
    </message>
    <message>
        <source>One frame back or on</source>
        <translation>Une image en arrière ou en avant</translation>
    </message>
    <message>
        <source>Play backward, stop, play; again for faster</source>
        <translation>Lire en arrière, arrêter, lire&#xa0;; encore pour plus vite</translation>
    </message>
    <message>
        <source>To the start, to the end</source>
        <translation>Au début, à la fin</translation>
    </message>
    <message>
        <source>On a Marker Button</source>
        <translation>Sur un bouton de marqueur</translation>
    </message>
    <message>
        <source>Change the title</source>
        <translation>Changer le titre</translation>
    </message>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>Raccourcis clavier</translation>
    </message>
</context>
<context>
    <name>marquill::LabelCell</name>
    <message>
        <source>Label</source>
        <translation>Étiquette</translation>
    </message>
</context>
<context>
    <name>marquill::LabelTableController</name>
    <message>
        <source>No labels</source>
        <translation>Aucune étiquette</translation>
    </message>
    <message>
        <source>Add Label</source>
        <translation>Ajouter une étiquette</translation>
    </message>
    <message>
        <source>Delete Label</source>
        <translation>Supprimer l’étiquette</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Renommer</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>Monter</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Descendre</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Rétablir</translation>
    </message>
    <message>
        <source>add Label</source>
        <translation>ajouter une étiquette</translation>
    </message>
    <message>
        <source>delete Label</source>
        <translation>supprimer l’étiquette</translation>
    </message>
    <message>
        <source>move Item</source>
        <translation>déplacer l’élément</translation>
    </message>
    <message>
        <source>change Label Title</source>
        <translation>renommer l’étiquette</translation>
    </message>
</context>
<context>
    <name>marquill::LabelTableModel</name>
    <message>
        <source>Label</source>
        <translation>Étiquette</translation>
    </message>
</context>
<context>
    <name>marquill::LeftOutMoviesDialog</name>
    <message>
        <source>1 movie</source>
        <translation>1 film</translation>
    </message>
    <message>
        <source>%1 movies</source>
        <translation>%1 films</translation>
    </message>
    <message>
        <source>the window of the left-out movies is no dialog</source>
        <translation>la fenêtre des films laissés de côté n’est pas un dialogue</translation>
    </message>
    <message>
        <source>Movie</source>
        <translation>Film</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>Raison</translation>
    </message>
    <message>
        <source>Could not list one or more Movies</source>
        <translation>Un ou plusieurs films n’ont pas pu être listés</translation>
    </message>
    <message>
        <source>Could not load one or more Clips</source>
        <translation>Un ou plusieurs clips n’ont pas pu être chargés</translation>
    </message>
    <message>
        <source>And %1 more.</source>
        <translation>Et %1 de plus.</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Reading movies…</source>
        <translation>Lecture des films…</translation>
    </message>
    <message>
        <source>This folder does not exist or is offline</source>
        <translation>Ce dossier n’existe pas ou est hors ligne</translation>
    </message>
    <message>
        <source>No movie of this folder is left out</source>
        <translation>Aucun film de ce dossier n’est laissé de côté</translation>
    </message>
</context>
<context>
    <name>marquill::ManualWindow</name>
    <message>
        <source>Back</source>
        <translation>Précédent</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Suivant</translation>
    </message>
    <message>
        <source>Marquill Manual</source>
        <translation>Manuel de Marquill</translation>
    </message>
    <message>
        <source>To the page before (Alt+Left)</source>
        <translation>À la page précédente (Alt+Gauche)</translation>
    </message>
    <message>
        <source>To the page after (Alt+Right)</source>
        <translation>À la page suivante (Alt+Droite)</translation>
    </message>
    <message>
        <source>Find on this page</source>
        <translation>Rechercher dans cette page</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>Pages</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>Page</translation>
    </message>
    <message>
        <source>The text is not on this page.</source>
        <translation>Le texte n’est pas dans cette page.</translation>
    </message>
</context>
<context>
    <name>marquill::MarkerButton</name>
    <message>
        <source>Untitled marker %1</source>
        <translation>Marqueur %1 sans titre</translation>
    </message>
    <message>
        <source>Title of marker %1</source>
        <translation>Titre du marqueur %1</translation>
    </message>
</context>
<context>
    <name>marquill::MarkerSetEditTableController</name>
    <message>
        <source>Add Set</source>
        <translation>Ajouter un jeu</translation>
    </message>
    <message>
        <source>Duplicate Set</source>
        <translation>Dupliquer le jeu</translation>
    </message>
    <message>
        <source>Delete Set</source>
        <translation>Supprimer le jeu</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Renommer</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>Monter</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Descendre</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Rétablir</translation>
    </message>
    <message>
        <source>add New Set</source>
        <translation>ajouter un nouveau jeu</translation>
    </message>
    <message>
        <source>duplicate Set</source>
        <translation>dupliquer le jeu</translation>
    </message>
    <message>
        <source>Not allowed</source>
        <translation>Interdit</translation>
    </message>
    <message>
        <source>At least one marker set is required. You cannot delete the only one.</source>
        <translation>Il faut au moins un jeu de marqueurs. Vous ne pouvez pas supprimer le seul qui reste.</translation>
    </message>
    <message>
        <source>delete Set</source>
        <translation>supprimer le jeu</translation>
    </message>
    <message>
        <source>change Set Title</source>
        <translation>modifier le titre du jeu</translation>
    </message>
    <message>
        <source>move Set</source>
        <translation>déplacer le jeu</translation>
    </message>
</context>
<context>
    <name>marquill::MarkerSetEditTableModel</name>
    <message>
        <source>Marker set</source>
        <translation>Jeu de marqueurs</translation>
    </message>
</context>
<context>
    <name>marquill::MarkerSetSheet</name>
    <message>
        <source>the description of the marker set editor is of no dialog</source>
        <translation>la description de l’éditeur de jeux de marqueurs ne contient pas de dialogue</translation>
    </message>
</context>
<context>
    <name>marquill::MarkerSets</name>
    <message>
        <source>the description of the marker window is of no panel</source>
        <translation>la description de la fenêtre des marqueurs ne contient pas de palette</translation>
    </message>
    <message>
        <source>the description of the marker window gives a button a wrong tag</source>
        <translation>la description de la fenêtre des marqueurs donne un mauvais numéro à un bouton</translation>
    </message>
    <message>
        <source>the description of the marker window lacks marker buttons</source>
        <translation>il manque des boutons de marqueurs à la description de leur fenêtre</translation>
    </message>
</context>
<context>
    <name>marquill::MovieControlBar</name>
    <message>
        <source>Play</source>
        <translation>Lire</translation>
    </message>
    <message>
        <source>Play (Space)</source>
        <translation>Lire (Espace)</translation>
    </message>
    <message>
        <source>Step Back</source>
        <translation>Image précédente</translation>
    </message>
    <message>
        <source>One frame back (Left Arrow)</source>
        <translation>Une image en arrière (flèche gauche)</translation>
    </message>
    <message>
        <source>Step Forward</source>
        <translation>Image suivante</translation>
    </message>
    <message>
        <source>One frame forward (Right Arrow)</source>
        <translation>Une image en avant (flèche droite)</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Couper le son</translation>
    </message>
    <message>
        <source>Sound off</source>
        <translation>Couper le son</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Volume</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Pause (Space)</source>
        <translation>Pause (Espace)</translation>
    </message>
    <message>
        <source>Unmute</source>
        <translation>Remettre le son</translation>
    </message>
    <message>
        <source>Sound on</source>
        <translation>Remettre le son</translation>
    </message>
</context>
<context>
    <name>marquill::MoviePlayer</name>
    <message>
        <source>the movie player is not available</source>
        <translation>le lecteur de films n’est pas disponible</translation>
    </message>
    <message>
        <source>nothing to play</source>
        <translation>il n’y a rien à lire</translation>
    </message>
    <message>
        <source>its picture cannot be decoded</source>
        <translation>son image ne peut pas être décodée</translation>
    </message>
    <message>
        <source>This movie cannot be shown: %1.</source>
        <translation>Ce film ne peut pas être montré&#xa0;: %1.</translation>
    </message>
</context>
<context>
    <name>marquill::MoviePreview</name>
    <message>
        <source>Open Clip in Viewer</source>
        <translation>Ouvrir le clip dans la visionneuse</translation>
    </message>
</context>
<context>
    <name>marquill::MovieScrubber</name>
    <message>
        <source>Time</source>
        <translation>Temps</translation>
    </message>
    <message>
        <source>Drag to another moment of the movie, or click a marker&apos;s tick</source>
        <translation>Faites glisser vers un autre moment du film, ou cliquez sur le repère d’un marqueur</translation>
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
        <translation>Fermer le message</translation>
    </message>
    <message>
        <source>Notice</source>
        <translation>Message</translation>
    </message>
</context>
<context>
    <name>marquill::OfflineRecorder</name>
    <message>
        <source>Recording destination folder not selected</source>
        <translation>Aucun dossier de destination sélectionné</translation>
    </message>
    <message>
        <source>Please specify a folder to record to by clicking in the column on the left of your destination folder&apos;s name in the Clip Manager. When properly selected a red bulls-eye icon will appear to the left of the currently selected Project Folder.</source>
        <translation>Veuillez indiquer un dossier où enregistrer&#xa0;: dans le gestionnaire de clips, cliquez dans la colonne à gauche du nom de votre dossier de destination. Quand il est bien sélectionné, une cible rouge apparaît à gauche du dossier de projet actuel.</translation>
    </message>
    <message>
        <source>Couldn&apos;t create Place Holder Clip</source>
        <translation>Impossible de créer le clip provisoire</translation>
    </message>
    <message>
        <source>The place holder file couldn&apos;t be created. Please check your user permissions.</source>
        <translation>Le fichier du clip provisoire n’a pas pu être créé. Veuillez vérifier vos droits d’accès.</translation>
    </message>
    <message>
        <source>A crash would cost this take: its journal cannot be written. %1</source>
        <translation>Un plantage ferait perdre cette prise&#xa0;: son journal ne peut pas être écrit. %1</translation>
    </message>
    <message>
        <source>Stop Recording (Esc)</source>
        <translation>Arrêter l’enregistrement (Échap)</translation>
    </message>
    <message>
        <source>Start Recording (Ctrl+Space)</source>
        <translation>Démarrer l’enregistrement (Ctrl+Espace)</translation>
    </message>
    <message>
        <source>Stop Recording</source>
        <translation>Arrêter l’enregistrement</translation>
    </message>
    <message>
        <source>Start Recording</source>
        <translation>Démarrer l’enregistrement</translation>
    </message>
    <message>
        <source>RECORDING</source>
        <translation>ENREGISTRE</translation>
    </message>
    <message>
        <source>READY</source>
        <translation>PRÊT</translation>
    </message>
    <message>
        <source>Can&apos;t close Window</source>
        <translation>Impossible de fermer la fenêtre</translation>
    </message>
    <message>
        <source>Please stop recording before closing the window.</source>
        <translation>Veuillez arrêter l’enregistrement avant de fermer la fenêtre.</translation>
    </message>
</context>
<context>
    <name>marquill::OpenedFiles</name>
    <message>
        <source>“%1” cannot be found</source>
        <translation>«&#xa0;%1&#xa0;» est introuvable</translation>
    </message>
    <message>
        <source>%1 files cannot be found</source>
        <translation>%1 fichiers sont introuvables</translation>
    </message>
    <message>
        <source>“%1” is neither a movie nor a clip</source>
        <translation>«&#xa0;%1&#xa0;» n’est ni un film ni un clip</translation>
    </message>
    <message>
        <source>“%1” has no clip yet</source>
        <translation>«&#xa0;%1&#xa0;» n’a pas encore de clip</translation>
    </message>
    <message>
        <source>%1 movies have no clip yet</source>
        <translation>%1 films n’ont pas encore de clip</translation>
    </message>
    <message>
        <source>Import as Placeholder</source>
        <translation>Importer comme clip provisoire</translation>
    </message>
</context>
<context>
    <name>marquill::Preferences</name>
    <message>
        <source>the preferences window is no dialog</source>
        <translation>la fenêtre des préférences n’est pas un dialogue</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Coupé</translation>
    </message>
</context>
<context>
    <name>marquill::ProgressSheet</name>
    <message>
        <source>the window description holds no dialog</source>
        <translation>la description de la fenêtre ne contient pas de dialogue</translation>
    </message>
</context>
<context>
    <name>marquill::RecordFolderController</name>
    <message>
        <source>Record into This Folder</source>
        <translation>Enregistrer dans ce dossier</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Renommer</translation>
    </message>
    <message>
        <source>Show in File Browser</source>
        <translation>Montrer dans le gestionnaire de fichiers</translation>
    </message>
    <message>
        <source>Add Folder…</source>
        <translation>Ajouter un dossier…</translation>
    </message>
    <message>
        <source>Remove Folder</source>
        <translation>Retirer le dossier</translation>
    </message>
    <message>
        <source>No Valid Recording Folder</source>
        <translation>Aucun dossier d’enregistrement valable</translation>
    </message>
    <message>
        <source>The selected folder does not exist or is offline and cannot be used for recording. Please select another folder.</source>
        <translation>Le dossier sélectionné n’existe pas ou est hors ligne et ne peut pas servir à l’enregistrement. Veuillez sélectionner un autre dossier.</translation>
    </message>
    <message>
        <source>Recording Folder Busy</source>
        <translation>Dossier d’enregistrement occupé</translation>
    </message>
    <message>
        <source>The current recording folder is busy and cannot be changed now. Please stop recording and try again.</source>
        <translation>Le dossier d’enregistrement actuel est occupé et ne peut pas être changé maintenant. Veuillez arrêter l’enregistrement et réessayer.</translation>
    </message>
    <message>
        <source>Add Folder</source>
        <translation>Ajouter un dossier</translation>
    </message>
    <message>
        <source>Duplicate Folders</source>
        <translation>Dossiers en double</translation>
    </message>
    <message>
        <source>One or more folders were already in the folder list and have not been added.</source>
        <translation>Un ou plusieurs dossiers étaient déjà dans la liste et n’ont pas été ajoutés.</translation>
    </message>
    <message>
        <source>Couldn&apos;t remove/delete Folder!</source>
        <translation>Impossible de retirer ou de supprimer le dossier&#xa0;!</translation>
    </message>
    <message>
        <source>One or more folders could not be deleted because the folder is busy. Please try again later</source>
        <translation>Un ou plusieurs dossiers n’ont pas pu être supprimés car le dossier est occupé. Veuillez réessayer plus tard</translation>
    </message>
    <message>
        <source>Folder Busy</source>
        <translation>Dossier occupé</translation>
    </message>
    <message>
        <source>This folder is busy and cannot be renamed now. Please stop recording and try again.</source>
        <translation>Ce dossier est occupé et ne peut pas être renommé maintenant. Veuillez arrêter l’enregistrement et réessayer.</translation>
    </message>
    <message>
        <source>no folder can have that name</source>
        <translation>aucun dossier ne peut porter ce nom</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Erreur</translation>
    </message>
    <message>
        <source>The selected folder could not be renamed.</source>
        <translation>Le dossier sélectionné n’a pas pu être renommé.</translation>
    </message>
</context>
<context>
    <name>marquill::RecordFolderModel</name>
    <message>
        <source>Recording folder</source>
        <translation>Dossier d’enregistrement</translation>
    </message>
    <message>
        <source>Not the recording folder</source>
        <translation>Pas le dossier d’enregistrement</translation>
    </message>
    <message>
        <source>New clips are recorded into this folder</source>
        <translation>Les nouveaux clips sont enregistrés dans ce dossier</translation>
    </message>
    <message>
        <source>Click to record new clips into this folder</source>
        <translation>Cliquer pour enregistrer les nouveaux clips dans ce dossier</translation>
    </message>
    <message>
        <source>%1 does not exist or is offline</source>
        <translation>%1 n’existe pas ou est hors ligne</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Enregistrement</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Dossier</translation>
    </message>
</context>
<context>
    <name>marquill::RecoverTakesDialog</name>
    <message>
        <source>Discard 1 take?</source>
        <translation>Supprimer 1 prise&#xa0;?</translation>
    </message>
    <message>
        <source>Discard %1 takes?</source>
        <translation>Supprimer %1 prises&#xa0;?</translation>
    </message>
    <message>
        <source>Recorded into %1</source>
        <translation>Enregistrée dans %1</translation>
    </message>
    <message>
        <source>The window description holds no dialog.</source>
        <translation>La description de la fenêtre ne contient pas de dialogue.</translation>
    </message>
    <message>
        <source>Save Recovered Takes</source>
        <translation>Enregistrer les prises récupérées</translation>
    </message>
    <message>
        <source>Couldn&apos;t recover all takes</source>
        <translation>Les prises n’ont pas toutes pu être récupérées</translation>
    </message>
    <message>
        <source>What was not recovered is still in the list.</source>
        <translation>Ce qui n’a pas été récupéré est encore dans la liste.</translation>
    </message>
    <message>
        <source>Their start times, durations and markers are lost. This cannot be undone.</source>
        <translation>Leurs heures de début, durées et marqueurs seront perdus. C’est irréversible.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Supprimer</translation>
    </message>
    <message>
        <source>Couldn&apos;t discard all takes</source>
        <translation>Les prises n’ont pas toutes pu être supprimées</translation>
    </message>
</context>
<context>
    <name>marquill::TakeRescue</name>
    <message>
        <source>Show</source>
        <translation>Montrer</translation>
    </message>
    <message>
        <source>Recover Takes…</source>
        <translation>Récupérer des prises…</translation>
    </message>
    <message>
        <source>%1 in %2</source>
        <translation>%1 dans %2</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>et %1 de plus</translation>
    </message>
    <message>
        <source>Recovered 1 take: %1</source>
        <translation>1 prise récupérée&#xa0;: %1</translation>
    </message>
    <message>
        <source>Recovered %1 takes: %2</source>
        <translation>%1 prises récupérées&#xa0;: %2</translation>
    </message>
</context>
<context>
    <name>marquill::UndoManager</name>
    <message>
        <source>Undo</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Undo %1</source>
        <translation>Annuler&#xa0;: %1</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Rétablir</translation>
    </message>
    <message>
        <source>Redo %1</source>
        <translation>Rétablir&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>marquill::UnwrittenClips</name>
    <message>
        <source>Try Again</source>
        <translation>Réessayer</translation>
    </message>
    <message>
        <source>Quit without saving?</source>
        <translation>Quitter sans enregistrer&#xa0;?</translation>
    </message>
    <message>
        <source>%1 If you quit now, the last changes are lost.</source>
        <translation>%1 Si vous quittez maintenant, les dernières modifications seront perdues.</translation>
    </message>
    <message>
        <source>Cancel Quitting</source>
        <translation>Ne pas quitter</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quitter</translation>
    </message>
</context>
<context>
    <name>marquill::VolumeWatch</name>
    <message>
        <source>The recording folder is on a read-only volume. Takes cannot be saved there.</source>
        <translation>Le dossier d’enregistrement est sur un volume en lecture seule. Les prises ne peuvent pas y être enregistrées.</translation>
    </message>
    <message>
        <source>Only %1 MB are free where takes are saved.</source>
        <translation>Il ne reste que %1 Mo là où les prises sont enregistrées.</translation>
    </message>
</context>
<context>
    <name>marquill::WritingSheet</name>
    <message>
        <source>Saving clips…</source>
        <translation>Enregistrement des clips…</translation>
    </message>
</context>
</TS>
