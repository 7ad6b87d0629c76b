<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>CActionCentre</name>
    <message>
        <source>Search &amp;Actions...</source>
        <translation>&amp;Aktionen suchen...</translation>
    </message>
    <message>
        <source>Find any action, page or item by its name</source>
        <translation>Jede Aktion, jede Seite und jedes Element nach dem Namen finden</translation>
    </message>
    <message>
        <source>&amp;Keyboard Shortcuts...</source>
        <translation>&amp;Tastenkürzel...</translation>
    </message>
    <message>
        <source>See and change the keys of all actions</source>
        <translation>Die Tasten aller Aktionen ansehen und ändern</translation>
    </message>
    <message>
        <source>No project is open</source>
        <translation>Es ist kein Projekt geöffnet</translation>
    </message>
    <message>
        <source>There is nothing to undo</source>
        <translation>Es gibt nichts rückgängig zu machen</translation>
    </message>
    <message>
        <source>This installation names no place to look for updates</source>
        <translation>Diese Installation nennt keine Stelle, an der nach Aktualisierungen gesucht wird</translation>
    </message>
    <message>
        <source>There is nothing to redo</source>
        <translation>Es gibt nichts wiederherzustellen</translation>
    </message>
    <message>
        <source>Nothing has been saved over what you saved last</source>
        <translation>Über das zuletzt Gespeicherte wurde nichts gespeichert</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>Seite</translation>
    </message>
    <message>
        <source>it is used on the canvas</source>
        <translation>es wird auf der Zeichenfläche gebraucht</translation>
    </message>
    <message>
        <source>it opens a menu</source>
        <translation>es öffnet ein Menü</translation>
    </message>
</context>
<context>
    <name>CActionFinder</name>
    <message>
        <source>Search for actions, pages and items</source>
        <translation>Nach Aktionen, Seiten und Elementen suchen</translation>
    </message>
    <message>
        <source>No match</source>
        <translation>Kein Treffer</translation>
    </message>
</context>
<context>
    <name>CArrangeActions</name>
    <message>
        <source>Align &amp;Left</source>
        <translation>&amp;Links ausrichten</translation>
    </message>
    <message>
        <source>Align the left edges</source>
        <translation>Die linken Kanten ausrichten</translation>
    </message>
    <message>
        <source>Align &amp;Centre</source>
        <translation>&amp;Zentriert ausrichten</translation>
    </message>
    <message>
        <source>Align the middles, from left to right</source>
        <translation>Die Mitten waagerecht ausrichten</translation>
    </message>
    <message>
        <source>Align &amp;Right</source>
        <translation>&amp;Rechts ausrichten</translation>
    </message>
    <message>
        <source>Align the right edges</source>
        <translation>Die rechten Kanten ausrichten</translation>
    </message>
    <message>
        <source>Align &amp;Top</source>
        <translation>&amp;Oben ausrichten</translation>
    </message>
    <message>
        <source>Align the top edges</source>
        <translation>Die oberen Kanten ausrichten</translation>
    </message>
    <message>
        <source>Align &amp;Middle</source>
        <translation>&amp;Mittig ausrichten</translation>
    </message>
    <message>
        <source>Align the middles, from top to bottom</source>
        <translation>Die Mitten senkrecht ausrichten</translation>
    </message>
    <message>
        <source>Align &amp;Bottom</source>
        <translation>&amp;Unten ausrichten</translation>
    </message>
    <message>
        <source>Align the bottom edges</source>
        <translation>Die unteren Kanten ausrichten</translation>
    </message>
    <message>
        <source>Distribute &amp;Left Edges</source>
        <translation>&amp;Linke Kanten verteilen</translation>
    </message>
    <message>
        <source>Make the distances between left edges equal</source>
        <translation>Gleiche Abstände zwischen den linken Kanten</translation>
    </message>
    <message>
        <source>Distribute &amp;Centres</source>
        <translation>&amp;Mitten waagerecht verteilen</translation>
    </message>
    <message>
        <source>Make the distances between middles equal, from left to right</source>
        <translation>Gleiche waagerechte Abstände zwischen den Mitten</translation>
    </message>
    <message>
        <source>Distribute &amp;Right Edges</source>
        <translation>&amp;Rechte Kanten verteilen</translation>
    </message>
    <message>
        <source>Make the distances between right edges equal</source>
        <translation>Gleiche Abstände zwischen den rechten Kanten</translation>
    </message>
    <message>
        <source>Distribute &amp;Horizontally</source>
        <translation>&amp;Waagerecht verteilen</translation>
    </message>
    <message>
        <source>Make the gaps equal, from left to right</source>
        <translation>Gleiche Lücken von links nach rechts</translation>
    </message>
    <message>
        <source>Distribute &amp;Top Edges</source>
        <translation>&amp;Obere Kanten verteilen</translation>
    </message>
    <message>
        <source>Make the distances between top edges equal</source>
        <translation>Gleiche Abstände zwischen den oberen Kanten</translation>
    </message>
    <message>
        <source>Distribute &amp;Middles</source>
        <translation>M&amp;itten senkrecht verteilen</translation>
    </message>
    <message>
        <source>Make the distances between middles equal, from top to bottom</source>
        <translation>Gleiche senkrechte Abstände zwischen den Mitten</translation>
    </message>
    <message>
        <source>Distribute &amp;Bottom Edges</source>
        <translation>&amp;Untere Kanten verteilen</translation>
    </message>
    <message>
        <source>Make the distances between bottom edges equal</source>
        <translation>Gleiche Abstände zwischen den unteren Kanten</translation>
    </message>
    <message>
        <source>Distribute &amp;Vertically</source>
        <translation>&amp;Senkrecht verteilen</translation>
    </message>
    <message>
        <source>Make the gaps equal, from top to bottom</source>
        <translation>Gleiche Lücken von oben nach unten</translation>
    </message>
    <message>
        <source>Horizontal &amp;Gap...</source>
        <translation>Waagerechte Lü&amp;cke...</translation>
    </message>
    <message>
        <source>Line up from left to right with gaps of a given size</source>
        <translation>Von links nach rechts mit Lücken gegebener Größe aufreihen</translation>
    </message>
    <message>
        <source>Vertical Ga&amp;p...</source>
        <translation>Senkrechte Lüc&amp;ke...</translation>
    </message>
    <message>
        <source>Line up from top to bottom with gaps of a given size</source>
        <translation>Von oben nach unten mit Lücken gegebener Größe aufreihen</translation>
    </message>
    <message>
        <source>Same &amp;Width</source>
        <translation>Gleiche &amp;Breite</translation>
    </message>
    <message>
        <source>As wide as the item that was selected first</source>
        <translation>So breit wie das zuerst gewählte Element</translation>
    </message>
    <message>
        <source>Same &amp;Height</source>
        <translation>Gleiche &amp;Höhe</translation>
    </message>
    <message>
        <source>As high as the item that was selected first</source>
        <translation>So hoch wie das zuerst gewählte Element</translation>
    </message>
    <message>
        <source>Same &amp;Size</source>
        <translation>Gleiche &amp;Größe</translation>
    </message>
    <message>
        <source>As large as the item that was selected first</source>
        <translation>So groß wie das zuerst gewählte Element</translation>
    </message>
    <message>
        <source>Centre &amp;Horizontally</source>
        <translation>&amp;Waagerecht zentrieren</translation>
    </message>
    <message>
        <source>To the middle of the page, from left to right</source>
        <translation>Waagerecht in die Mitte der Seite</translation>
    </message>
    <message>
        <source>Centre &amp;Vertically</source>
        <translation>&amp;Senkrecht zentrieren</translation>
    </message>
    <message>
        <source>To the middle of the page, from top to bottom</source>
        <translation>Senkrecht in die Mitte der Seite</translation>
    </message>
    <message>
        <source>Centre in &amp;Page</source>
        <translation>&amp;In der Seite zentrieren</translation>
    </message>
    <message>
        <source>To the middle of the page</source>
        <translation>In die Mitte der Seite</translation>
    </message>
    <message>
        <source>Align to &amp;Page</source>
        <translation>An der &amp;Seite ausrichten</translation>
    </message>
    <message>
        <source>Align several items to the page too, not to each other</source>
        <translation>Auch mehrere Elemente an der Seite statt aneinander ausrichten</translation>
    </message>
    <message>
        <source>&amp;Distribute</source>
        <translation>&amp;Verteilen</translation>
    </message>
    <message>
        <source>&amp;Same Size</source>
        <translation>Gleiche &amp;Größe</translation>
    </message>
    <message>
        <source>Ce&amp;ntre in Page</source>
        <translation>In der Seite z&amp;entrieren</translation>
    </message>
    <message>
        <source>Arrange</source>
        <translation>Anordnen</translation>
    </message>
    <message>
        <source>Gap between neighbours, in pixels:</source>
        <translation>Lücke zwischen Nachbarn in Pixel:</translation>
    </message>
    <message>
        <source>Align to &amp;Key Item</source>
        <translation>Am &amp;Bezugselement ausrichten</translation>
    </message>
    <message>
        <source>Align to one of the selected items, which stays; click it to choose it</source>
        <translation>An einem der ausgewählten Elemente ausrichten, das stehen bleibt; ein Klick wählt es</translation>
    </message>
    <message>
        <source>Select two or more items first</source>
        <translation>Erst zwei oder mehr Elemente auswählen</translation>
    </message>
</context>
<context>
    <name>CBatchColour</name>
    <message>
        <source>Choose a colour</source>
        <translation>Farbe wählen</translation>
    </message>
    <message>
        <source>A colour is typed as #rrggbb, #aarrggbb or its name</source>
        <translation>Eine Farbe wird als #rrggbb, #aarrggbb oder mit ihrem Namen eingegeben</translation>
    </message>
</context>
<context>
    <name>CBatchEditView</name>
    <message>
        <source>Only some of them have (%1)</source>
        <translation>Nur einige davon haben (%1)</translation>
    </message>
    <message>
        <source>%1, of %2 items</source>
        <translation>%1, von %2 Elementen</translation>
    </message>
    <message>
        <source>Select some items to edit them together.</source>
        <translation>Wählen Sie Elemente aus, um sie zusammen zu bearbeiten.</translation>
    </message>
    <message>
        <source>1 item</source>
        <translation>1 Element</translation>
    </message>
    <message>
        <source>%1 items</source>
        <translation>%1 Elemente</translation>
    </message>
    <message>
        <source>What is selected is locked.</source>
        <translation>Das Ausgewählte ist gesperrt.</translation>
    </message>
    <message>
        <source>%1 locked, left out</source>
        <translation>%1 gesperrt, ausgenommen</translation>
    </message>
</context>
<context>
    <name>CBatchEditor</name>
    <message>
        <source>%1 stays as it is, and so do the others: its image could not be taken.</source>
        <translation>%1 bleibt, wie es ist, und die anderen auch: Sein Bild konnte nicht übernommen werden.</translation>
    </message>
</context>
<context>
    <name>CBatchField</name>
    <message>
        <source>mixed</source>
        <translation>verschieden</translation>
    </message>
</context>
<context>
    <name>CBatchImage</name>
    <message>
        <source>Choose a file</source>
        <translation>Datei wählen</translation>
    </message>
</context>
<context>
    <name>CBatchItems</name>
    <message>
        <source>Change %1 of %2 Items</source>
        <translation>%1 von %2 Elementen ändern</translation>
    </message>
</context>
<context>
    <name>CBatchTime</name>
    <message>
        <source>A time is typed as 18:30:00</source>
        <translation>Eine Uhrzeit wird als 18:30:00 eingegeben</translation>
    </message>
</context>
<context>
    <name>CColourChooser</name>
    <message>
        <source>Change Colour</source>
        <translation>Farbe ändern</translation>
    </message>
</context>
<context>
    <name>CColourDialog</name>
    <message>
        <source>Choose a colour</source>
        <translation>Farbe wählen</translation>
    </message>
    <message>
        <source>#rrggbb, #aarrggbb or the name of a colour</source>
        <translation>#rrggbb, #aarrggbb oder der Name einer Farbe</translation>
    </message>
    <message>
        <source>%1, uses: %2</source>
        <translation>%1, Verwendungen: %2</translation>
    </message>
    <message>
        <source>In this project</source>
        <translation>In diesem Projekt</translation>
    </message>
    <message>
        <source>Chosen last</source>
        <translation>Zuletzt gewählt</translation>
    </message>
    <message>
        <source>Before and now</source>
        <translation>Vorher und jetzt</translation>
    </message>
</context>
<context>
    <name>CConfigurationDialog</name>
    <message>
        <source>Project configuration</source>
        <translation>Projekteinstellungen</translation>
    </message>
    <message>
        <source>Choose a folder</source>
        <translation>Ordner wählen</translation>
    </message>
    <message>
        <source>Project &amp;Name</source>
        <translation>Projekt&amp;name</translation>
    </message>
    <message>
        <source>Hardware &amp;Platform</source>
        <translation>Hardware-&amp;Plattform</translation>
    </message>
    <message>
        <source>Screen &amp;Resolution</source>
        <translation>Bildschirm&amp;auflösung</translation>
    </message>
    <message>
        <source>&amp;Working Directory</source>
        <translation>A&amp;rbeitsverzeichnis</translation>
    </message>
    <message>
        <source>File name exists already!</source>
        <translation>Der Dateiname ist schon vergeben!</translation>
    </message>
    <message>
        <source>Change to another project name!</source>
        <translation>Wählen Sie einen anderen Projektnamen!</translation>
    </message>
</context>
<context>
    <name>CDialogQuestions</name>
    <message>
        <source>Do you want to save the current project before closing it?</source>
        <translation>Möchten Sie das aktuelle Projekt vor dem Schließen speichern?</translation>
    </message>
    <message>
        <source>Project already open</source>
        <translation>Projekt bereits geöffnet</translation>
    </message>
    <message>
        <source>The project is already open in another instance of this application. Are you sure you want to continue?</source>
        <translation>Das Projekt ist bereits in einer anderen Instanz dieses Programms geöffnet. Möchten Sie wirklich fortfahren?</translation>
    </message>
    <message>
        <source>Project changed on disk</source>
        <translation>Projekt auf dem Datenträger geändert</translation>
    </message>
    <message>
        <source>%1 was changed by another program since it was opened here. Do you want to replace those changes by yours?</source>
        <translation>%1 wurde von einem anderen Programm geändert, seit die Datei hier geöffnet wurde. Möchten Sie diese Änderungen durch Ihre ersetzen?</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Ersetzen</translation>
    </message>
    <message>
        <source>Save As...</source>
        <translation>Speichern unter...</translation>
    </message>
    <message>
        <source>Project taken over</source>
        <translation>Projekt übernommen</translation>
    </message>
    <message>
        <source>%1 was taken over by another instance of this application and cannot be saved here. You can save your version under another name.</source>
        <translation>%1 wurde von einer anderen Instanz dieses Programms übernommen und kann hier nicht gespeichert werden. Sie können Ihre Fassung unter einem anderen Namen speichern.</translation>
    </message>
    <message>
        <source>Project Files (*.xml *.nyx)</source>
        <translation>Projektdateien (*.xml *.nyx)</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Speichern unter</translation>
    </message>
    <message>
        <source>Automatically saved changes</source>
        <translation>Automatisch gespeicherte Änderungen</translation>
    </message>
    <message>
        <source>The program ended while %1 was open. The file holds changes that were saved automatically after you had saved it last. Do you want to go back to the version that you saved? With No, the project is opened as the file has it.</source>
        <translation>Das Programm endete, während %1 geöffnet war. Die Datei enthält Änderungen, die nach Ihrem letzten Speichern automatisch gespeichert wurden. Möchten Sie zu der Fassung zurückkehren, die Sie selbst gespeichert haben? Mit „Nein“ wird das Projekt so geöffnet, wie es in der Datei steht.</translation>
    </message>
    <message>
        <source>Revert</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>Do you want to give up all changes since you last saved %1? This cannot be undone: the list of steps to undo begins anew.</source>
        <translation>Möchten Sie alle Änderungen verwerfen, seit Sie %1 zuletzt gespeichert haben? Das lässt sich nicht rückgängig machen: Die Liste der Schritte beginnt von vorn.</translation>
    </message>
    <message>
        <source>Unsaved work</source>
        <translation>Nicht gespeicherte Arbeit</translation>
    </message>
    <message>
        <source>Do you want to delete the recovery copy of &quot;%1&quot;? What it holds was not saved.</source>
        <translation>Möchten Sie die Sicherungskopie von „%1“ löschen? Was sie enthält, wurde nicht gespeichert.</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>%1 already exists. Do you want to replace it?</source>
        <translation>%1 ist bereits vorhanden. Möchten Sie die Datei ersetzen?</translation>
    </message>
</context>
<context>
    <name>CErrorBox</name>
    <message>
        <source>Save As...</source>
        <translation>Speichern unter...</translation>
    </message>
</context>
<context>
    <name>CExportController</name>
    <message>
        <source>Export project to DL</source>
        <translation>Projekt als DL exportieren</translation>
    </message>
    <message>
        <source>Display Lists (*.dl)</source>
        <translation>Display-Listen (*.dl)</translation>
    </message>
    <message>
        <source>Export project to binary</source>
        <translation>Projekt binär exportieren</translation>
    </message>
    <message>
        <source>Display Lists Binary(*.bin)</source>
        <translation>Binäre Display-Listen(*.bin)</translation>
    </message>
    <message>
        <source>Export screen to DL</source>
        <translation>Seite als DL exportieren</translation>
    </message>
    <message>
        <source>Export Page to binary</source>
        <translation>Seite binär exportieren</translation>
    </message>
    <message>
        <source>Exporting the pages</source>
        <translation>Seiten werden exportiert</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Exporting page %1 of %2</source>
        <translation>Seite %1 von %2 wird exportiert</translation>
    </message>
    <message>
        <source>Exported to %1</source>
        <translation>Exportiert nach %1</translation>
    </message>
    <message>
        <source>An error occurred during the export process</source>
        <translation>Beim Exportieren ist ein Fehler aufgetreten</translation>
    </message>
    <message>
        <source>The export was cancelled.</source>
        <translation>Das Exportieren wurde abgebrochen.</translation>
    </message>
    <message>
        <source>Export package into a folder</source>
        <translation>Paket in einen Ordner exportieren</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>Not all pages could be drawn.</source>
        <translation>Nicht alle Seiten konnten gezeichnet werden.</translation>
    </message>
    <message>
        <source>Exported to %1; see the messages above it: not all is as designed</source>
        <translation>Exportiert nach %1; siehe die Meldungen darüber: nicht alles ist wie entworfen</translation>
    </message>
</context>
<context>
    <name>CFileCopies</name>
    <message>
        <source>%1 could not be copied: %2</source>
        <translation>%1 konnte nicht kopiert werden: %2</translation>
    </message>
    <message>
        <source>%1 holds something else already</source>
        <translation>%1 enthält schon etwas anderes</translation>
    </message>
</context>
<context>
    <name>CExplorerPanel</name>
    <message>
        <source>Filter</source>
        <translation>Filtern</translation>
    </message>
    <message>
        <source>Filter pages and items</source>
        <translation>Seiten und Elemente filtern</translation>
    </message>
</context>
<context>
    <name>CFileWriter</name>
    <message>
        <source>this is not the name of a file</source>
        <translation>das ist kein Dateiname</translation>
    </message>
    <message>
        <source>this is not a regular file</source>
        <translation>das ist keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>%1 could not be written: %2</source>
        <translation>%1 konnte nicht geschrieben werden: %2</translation>
    </message>
</context>
<context>
    <name>CFindActions</name>
    <message>
        <source>&amp;Find...</source>
        <translation>Su&amp;chen...</translation>
    </message>
    <message>
        <source>Find items by name, text, kind, value, colour, font or image</source>
        <translation>Elemente nach Name, Text, Art, Wert, Farbe, Schrift oder Bild suchen</translation>
    </message>
    <message>
        <source>R&amp;eplace...</source>
        <translation>&amp;Ersetzen...</translation>
    </message>
    <message>
        <source>Replace what is found in items of all pages</source>
        <translation>Ersetzen, was in den Elementen aller Seiten gefunden wird</translation>
    </message>
    <message>
        <source>Find &amp;Next</source>
        <translation>Weitersuche&amp;n</translation>
    </message>
    <message>
        <source>Go to the next item that was found</source>
        <translation>Zum nächsten gefundenen Element gehen</translation>
    </message>
    <message>
        <source>Find Pre&amp;vious</source>
        <translation>Rückwär&amp;ts suchen</translation>
    </message>
    <message>
        <source>Go to the previous item that was found</source>
        <translation>Zum vorigen gefundenen Element gehen</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Suchen</translation>
    </message>
</context>
<context>
    <name>CFindPanel</name>
    <message>
        <source>Find in all pages</source>
        <translation>Auf allen Seiten suchen</translation>
    </message>
    <message>
        <source>Replace by</source>
        <translation>Ersetzen durch</translation>
    </message>
    <message>
        <source>Replace what is found</source>
        <translation>Gefundenes ersetzen</translation>
    </message>
    <message>
        <source>Capital and small letters differ</source>
        <translation>Groß- und Kleinschreibung unterscheiden</translation>
    </message>
    <message>
        <source>Regular expression; in the replacement, \1 stands for the first group</source>
        <translation>Regulärer Ausdruck; in der Ersetzung steht \1 für die erste Gruppe</translation>
    </message>
    <message>
        <source>Where to look</source>
        <translation>Wo gesucht wird</translation>
    </message>
    <message>
        <source>Everything</source>
        <translation>Alles</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Property</source>
        <translation>Eigenschaft</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Colour</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>Font</source>
        <translation>Schrift</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>width, width=120, width&gt;=120 or text:room</source>
        <translation>width, width=120, width&gt;=120 oder text:room</translation>
    </message>
    <message>
        <source>What was found</source>
        <translation>Gefundenes</translation>
    </message>
    <message>
        <source>Replace (%1)</source>
        <translation>Ersetzen (%1)</translation>
    </message>
    <message>
        <source>%1 of %2 ticked</source>
        <translation>%1 von %2 angehakt</translation>
    </message>
    <message>
        <source>The values of a property are found with &quot;%1&quot;.</source>
        <translation>Die Werte einer Eigenschaft werden mit „%1“ gefunden.</translation>
    </message>
    <message>
        <source>Nothing found in %1 items</source>
        <translation>In %1 Elementen nichts gefunden</translation>
    </message>
    <message>
        <source>%1 of %2 items</source>
        <translation>%1 von %2 Elementen</translation>
    </message>
    <message>
        <source>Of long texts only the beginning was looked at.</source>
        <translation>Von langen Texten wurde nur der Anfang durchsucht.</translation>
    </message>
    <message>
        <source>No project</source>
        <translation>Kein Projekt</translation>
    </message>
</context>
<context>
    <name>CFolder</name>
    <message>
        <source>%1 lies outside of %2</source>
        <translation>%1 liegt außerhalb von %2</translation>
    </message>
    <message>
        <source>The folder %1 could not be made: %2</source>
        <translation>Der Ordner %1 konnte nicht angelegt werden: %2</translation>
    </message>
    <message>
        <source>%1 is a link, and nothing is written through links</source>
        <translation>%1 ist eine Verknüpfung, und durch Verknüpfungen wird nichts geschrieben</translation>
    </message>
</context>
<context>
    <name>CFontForm</name>
    <message>
        <source>Take another file for this font</source>
        <translation>Für diese Schrift eine andere Datei nehmen</translation>
    </message>
    <message>
        <source> px</source>
        <translation> px</translation>
    </message>
    <message>
        <source>&amp;Name</source>
        <translation>&amp;Name</translation>
    </message>
    <message>
        <source>&amp;Handle</source>
        <translation>&amp;Kennzahl</translation>
    </message>
    <message>
        <source>&amp;Size</source>
        <translation>&amp;Größe</translation>
    </message>
    <message>
        <source>&amp;Variation</source>
        <translation>&amp;Variation</translation>
    </message>
    <message>
        <source>S&amp;moothing</source>
        <translation>Gl&amp;ättung</translation>
    </message>
    <message>
        <source>&amp;Fallback</source>
        <translation>&amp;Ersatz</translation>
    </message>
    <message>
        <source>E&amp;xtra characters</source>
        <translation>&amp;Weitere Zeichen</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Licence</source>
        <translation>Lizenz</translation>
    </message>
    <message>
        <source>Embedding</source>
        <translation>Einbettung</translation>
    </message>
    <message>
        <source>8 bit, 256 levels</source>
        <translation>8 Bit, 256 Stufen</translation>
    </message>
    <message>
        <source>4 bit, 16 levels</source>
        <translation>4 Bit, 16 Stufen</translation>
    </message>
    <message>
        <source>2 bit, 4 levels</source>
        <translation>2 Bit, 4 Stufen</translation>
    </message>
    <message>
        <source>1 bit, none</source>
        <translation>1 Bit, keine</translation>
    </message>
    <message>
        <source>The number by which the &quot;font&quot; of a widget means this font</source>
        <translation>Die Zahl, mit der „font“ eines Widgets diese Schrift meint</translation>
    </message>
    <message>
        <source>Fonts that are asked, from top to bottom, for characters that this font lacks; drag them into their order</source>
        <translation>Schriften, die von oben nach unten nach Zeichen gefragt werden, die dieser fehlen; ihre Reihenfolge wird durch Ziehen bestimmt</translation>
    </message>
    <message>
        <source>Characters for what the firmware writes later, parted by blanks; &quot;0-9&quot; means all from 0 to 9</source>
        <translation>Zeichen für das, was die Firmware später schreibt, durch Leerzeichen getrennt; „0-9“ meint alle von 0 bis 9</translation>
    </message>
    <message>
        <source>Allowed</source>
        <translation>Erlaubt</translation>
    </message>
    <message>
        <source>Allowed in documents that are edited; ask its maker for devices</source>
        <translation>Erlaubt in Dokumenten, die bearbeitet werden; für Geräte den Hersteller fragen</translation>
    </message>
    <message>
        <source>Allowed in documents for reading only; ask its maker for devices</source>
        <translation>Erlaubt in Dokumenten nur zum Lesen; für Geräte den Hersteller fragen</translation>
    </message>
    <message>
        <source>Forbidden without its maker&apos;s consent</source>
        <translation>Verboten ohne Zustimmung des Herstellers</translation>
    </message>
    <message>
        <source>parts of it may not be taken</source>
        <translation>Teile davon dürfen nicht entnommen werden</translation>
    </message>
    <message>
        <source>only as bitmaps</source>
        <translation>nur als Bitmaps</translation>
    </message>
</context>
<context>
    <name>CFontsDialog</name>
    <message>
        <source>Items that still use handle %1: %2</source>
        <translation>Elemente, die noch die Kennzahl %1 benutzen: %2</translation>
    </message>
    <message>
        <source>Font File</source>
        <translation>Schriftdatei</translation>
    </message>
    <message>
        <source>Add a TTF, OTF or WOFF2 file; texts can then be drawn in it.</source>
        <translation>Nach dem Hinzufügen einer TTF-, OTF- oder WOFF2-Datei können Texte darin gezeichnet werden.</translation>
    </message>
    <message>
        <source>&amp;Add...</source>
        <translation>&amp;Hinzufügen...</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>Fonts</source>
        <translation>Schriften</translation>
    </message>
    <message>
        <source>&amp;Preview</source>
        <translation>&amp;Vorschau</translation>
    </message>
    <message>
        <source>Temperature 21 °C</source>
        <translation>Temperatur 21 °C</translation>
    </message>
    <message>
        <source>Add Fonts</source>
        <translation>Schriften hinzufügen</translation>
    </message>
    <message>
        <source>Fonts (*.ttf *.otf *.ttc *.woff2)</source>
        <translation>Schriften (*.ttf *.otf *.ttc *.woff2)</translation>
    </message>
    <message>
        <source>All %1 handles are taken.</source>
        <translation>Alle %1 Kennzahlen sind vergeben.</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%1 bytes of graphics memory for this preview; items that use the font: %2</source>
        <translation>%1 Byte Grafikspeicher für diese Vorschau; Elemente mit dieser Schrift: %2</translation>
    </message>
    <message>
        <source>Handle %1 belongs to two fonts.</source>
        <translation>Die Kennzahl %1 gehört zwei Schriften.</translation>
    </message>
    <message>
        <source>A font needs a name.</source>
        <translation>Eine Schrift braucht einen Namen.</translation>
    </message>
    <message>
        <source>Change Fonts</source>
        <translation>Schriften ändern</translation>
    </message>
</context>
<context>
    <name>CHistoryDock</name>
    <message>
        <source>History</source>
        <translation>Verlauf</translation>
    </message>
</context>
<context>
    <name>CHistoryModel</name>
    <message>
        <source>Beginning</source>
        <translation>Anfang</translation>
    </message>
    <message>
        <source>%1 (saved)</source>
        <translation>%1 (gespeichert)</translation>
    </message>
</context>
<context>
    <name>CHistoryView</name>
    <message>
        <source>No project</source>
        <translation>Kein Projekt</translation>
    </message>
</context>
<context>
    <name>CItemFacets</name>
    <message>
        <source>Page</source>
        <translation>Seite</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>Gruppe</translation>
    </message>
</context>
<context>
    <name>CItemReplacement</name>
    <message>
        <source>Locked</source>
        <translation>Gesperrt</translation>
    </message>
    <message>
        <source>A kind cannot be replaced</source>
        <translation>Eine Art lässt sich nicht ersetzen</translation>
    </message>
    <message>
        <source>Each item has a number of its own</source>
        <translation>Jedes Element hat seine eigene Nummer</translation>
    </message>
    <message>
        <source>Needs the image converted: change it in the property panel</source>
        <translation>Dazu muss das Bild umgewandelt werden: in den Eigenschaften ändern</translation>
    </message>
    <message>
        <source>Points are moved on the canvas</source>
        <translation>Punkte werden auf der Zeichenfläche verschoben</translation>
    </message>
    <message>
        <source>Cannot be edited</source>
        <translation>Lässt sich nicht bearbeiten</translation>
    </message>
    <message>
        <source>A name is missing</source>
        <translation>Der Name fehlt</translation>
    </message>
    <message>
        <source>Another page is called so</source>
        <translation>Eine andere Seite heißt so</translation>
    </message>
    <message>
        <source>The text is too long</source>
        <translation>Der Text ist zu lang</translation>
    </message>
    <message>
        <source>No font has this number</source>
        <translation>Keine Schrift hat diese Nummer</translation>
    </message>
    <message>
        <source>Is so already</source>
        <translation>Ist schon so</translation>
    </message>
    <message>
        <source>No %1 shows an image of this name</source>
        <translation>In der Art „%1“ gibt es kein Bild dieses Namens</translation>
    </message>
</context>
<context>
    <name>CItemSearch</name>
    <message>
        <source>The search was stopped because it took too long.</source>
        <translation>Die Suche wurde abgebrochen, weil sie zu lange dauerte.</translation>
    </message>
    <message>
        <source>Only the first %1 are shown.</source>
        <translation>Nur die ersten %1 werden gezeigt.</translation>
    </message>
</context>
<context>
    <name>CNumberEntry</name>
    <message>
        <source>A number, or an expression: +4, -=4, *2 and 50% go on from the number that is there; =width/2 and (x+8)*2 name other numbers of the item.
Arrow keys make steps, with Shift or Ctrl ten at a time.</source>
        <translation>Eine Zahl oder ein Ausdruck: +4, -=4, *2 und 50% gehen von der Zahl aus, die dasteht; =width/2 und (x+8)*2 nennen andere Zahlen des Elements.
Pfeiltasten machen Schritte, mit Umschalt oder Strg je zehn auf einmal.</translation>
    </message>
</context>
<context>
    <name>CPropertyLayout</name>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>X</source>
        <translation>X</translation>
    </message>
    <message>
        <source>Y</source>
        <translation>Y</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Ende</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>W</source>
        <translation>B</translation>
    </message>
    <message>
        <source>H</source>
        <translation>H</translation>
    </message>
</context>
<context>
    <name>CShortcutDialog</name>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Search by name, menu or keys</source>
        <translation>Nach Namen, Menü oder Tasten suchen</translation>
    </message>
    <message>
        <source>Press the new keys; Esc leaves it as it is</source>
        <translation>Neue Tasten drücken; Esc behält die alten</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>Aktion</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menü</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Tasten</translation>
    </message>
    <message>
        <source>&amp;Change</source>
        <translation>Ä&amp;ndern</translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation>&amp;Hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>R&amp;eset</source>
        <translation>&amp;Zurücksetzen</translation>
    </message>
    <message>
        <source>Reset A&amp;ll</source>
        <translation>A&amp;lle zurücksetzen</translation>
    </message>
    <message>
        <source>&amp;Import...</source>
        <translation>&amp;Importieren...</translation>
    </message>
    <message>
        <source>E&amp;xport...</source>
        <translation>E&amp;xportieren...</translation>
    </message>
    <message>
        <source>Before it was changed: %1</source>
        <translation>Vor der Änderung: %1</translation>
    </message>
    <message>
        <source>The keys for &quot;%1&quot; are the ones that you press now.</source>
        <translation>Die Tasten für „%1“ sind die, die Sie jetzt drücken.</translation>
    </message>
    <message>
        <source>%1 cannot be changed: %2.</source>
        <translation>%1 kann nicht vergeben werden: %2.</translation>
    </message>
    <message>
        <source>%1 are the keys for &quot;%2&quot;. Press them once more to take them from there, or press others.</source>
        <translation>%1 sind die Tasten für „%2“. Drücken Sie sie noch einmal, um sie dort wegzunehmen, oder drücken Sie andere.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has the keys %2 now.</source>
        <translation>„%1“ hat jetzt die Tasten %2.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has the keys %2 now, and &quot;%3&quot; has them no longer.</source>
        <translation>„%1“ hat jetzt die Tasten %2, und „%3“ hat sie nicht mehr.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has no keys now.</source>
        <translation>„%1“ hat jetzt keine Tasten.</translation>
    </message>
    <message>
        <source>The keys were taken from &quot;%1&quot;.</source>
        <translation>Die Tasten wurden „%1“ weggenommen.</translation>
    </message>
    <message>
        <source>All actions have the keys that they came with.</source>
        <translation>Alle Aktionen haben die Tasten, die sie von Haus aus hatten.</translation>
    </message>
    <message>
        <source>Export Keyboard Shortcuts</source>
        <translation>Tastenkürzel exportieren</translation>
    </message>
    <message>
        <source>Import Keyboard Shortcuts</source>
        <translation>Tastenkürzel importieren</translation>
    </message>
    <message>
        <source>Keyboard shortcuts (*.keys)</source>
        <translation>Tastenkürzel (*.keys)</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>%1 gespeichert</translation>
    </message>
    <message>
        <source>%1 holds no keyboard shortcuts.</source>
        <translation>%1 enthält keine Tastenkürzel.</translation>
    </message>
    <message>
        <source>%1 of its %2 lines say nothing here: %3</source>
        <translation>%1 ihrer %2 Zeilen besagen hier nichts: %3</translation>
    </message>
    <message>
        <source>The keys are those of the file %1.</source>
        <translation>Die Tasten sind die der Datei %1.</translation>
    </message>
    <message>
        <source>%1 are the keys for &quot;%2&quot;, and &quot;%3&quot; does not have them.</source>
        <translation>%1 ist die Taste für „%2“, „%3“ hat sie nicht.</translation>
    </message>
    <message>
        <source>The keys are as they were.</source>
        <translation>Die Tasten sind, wie sie waren.</translation>
    </message>
    <message>
        <source>And %1 more.</source>
        <translation>Und %1 weitere.</translation>
    </message>
    <message>
        <source>Not all keys of the file can be taken as they are.</source>
        <translation>Nicht alle Tasten der Datei können so übernommen werden.</translation>
    </message>
    <message>
        <source>Take &amp;Keys</source>
        <translation>Tasten ü&amp;bernehmen</translation>
    </message>
</context>
<context>
    <name>CTextMatcher</name>
    <message>
        <source>The regular expression is too long.</source>
        <translation>Der reguläre Ausdruck ist zu lang.</translation>
    </message>
    <message>
        <source>At character %1: %2</source>
        <translation>Bei Zeichen %1: %2</translation>
    </message>
    <message>
        <source>The regular expression takes too long. Make it simpler.</source>
        <translation>Der reguläre Ausdruck braucht zu lange. Vereinfachen Sie ihn.</translation>
    </message>
    <message>
        <source>The regular expression has no groups, so \%1 stands for nothing.</source>
        <translation>Der reguläre Ausdruck hat keine Gruppen; \%1 steht für nichts.</translation>
    </message>
    <message>
        <source>\%1 stands for nothing: the last group of the regular expression is \%2.</source>
        <translation>\%1 steht für nichts: Die letzte Gruppe des regulären Ausdrucks ist \%2.</translation>
    </message>
</context>
<context>
    <name>FontEntries</name>
    <message>
        <source>%1 · %2 px · %3</source>
        <translation>%1 · %2 px · %3</translation>
    </message>
    <message>
        <source>%1 · %2 px</source>
        <translation>%1 · %2 px</translation>
    </message>
</context>
<context>
    <name>FontFiles</name>
    <message>
        <source>%1: there is no such file</source>
        <translation>%1: Es gibt keine solche Datei</translation>
    </message>
</context>
<context>
    <name>CGridComboWidget</name>
    <message>
        <source>Grid</source>
        <translation>Raster</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>Linien</translation>
    </message>
    <message>
        <source>Dashes</source>
        <translation>Striche</translation>
    </message>
    <message>
        <source>Dots</source>
        <translation>Punkte</translation>
    </message>
    <message>
        <source>Change the grid colour</source>
        <translation>Farbe des Rasters ändern</translation>
    </message>
    <message>
        <source>Choose Grid Type</source>
        <translation>Rasterart wählen</translation>
    </message>
</context>
<context>
    <name>CGuideActions</name>
    <message>
        <source>Pixels from the left:</source>
        <translation>Pixel von links:</translation>
    </message>
    <message>
        <source>Pixels from the top:</source>
        <translation>Pixel von oben:</translation>
    </message>
    <message>
        <source>Guides</source>
        <translation>Hilfslinien</translation>
    </message>
    <message>
        <source>&amp;Show Guides</source>
        <translation>Hilfslinien an&amp;zeigen</translation>
    </message>
    <message>
        <source>Show the guides, which are drawn out of the rulers</source>
        <translation>Die Hilfslinien anzeigen, die aus den Linealen gezogen werden</translation>
    </message>
    <message>
        <source>New &amp;Vertical Guide...</source>
        <translation>Neue &amp;senkrechte Hilfslinie...</translation>
    </message>
    <message>
        <source>New &amp;Horizontal Guide...</source>
        <translation>Neue &amp;waagerechte Hilfslinie...</translation>
    </message>
    <message>
        <source>Add a guide at a given place</source>
        <translation>Eine Hilfslinie an einer bestimmten Stelle hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Lock All Guides</source>
        <translation>Alle Hilfslinien s&amp;perren</translation>
    </message>
    <message>
        <source>The pointer takes hold of no guide of the page</source>
        <translation>Der Zeiger greift keine Hilfslinie der Seite</translation>
    </message>
    <message>
        <source>&amp;Unlock All Guides</source>
        <translation>Alle Hilfslinien &amp;entsperren</translation>
    </message>
    <message>
        <source>The pointer takes hold of the page&apos;s guides</source>
        <translation>Der Zeiger greift die Hilfslinien der Seite</translation>
    </message>
    <message>
        <source>&amp;Clear All Guides</source>
        <translation>Alle Hilfslinien entfe&amp;rnen</translation>
    </message>
    <message>
        <source>Remove all guides from the page</source>
        <translation>Alle Hilfslinien von der Seite entfernen</translation>
    </message>
</context>
<context>
    <name>CGuideEdits</name>
    <message>
        <source>Add Guide</source>
        <translation>Hilfslinie hinzufügen</translation>
    </message>
    <message>
        <source>Move Guide</source>
        <translation>Hilfslinie verschieben</translation>
    </message>
    <message>
        <source>Lock Guide</source>
        <translation>Hilfslinie sperren</translation>
    </message>
    <message>
        <source>Unlock Guide</source>
        <translation>Hilfslinie entsperren</translation>
    </message>
    <message>
        <source>Change Guide Colour</source>
        <translation>Farbe der Hilfslinie ändern</translation>
    </message>
    <message>
        <source>Delete Guide</source>
        <translation>Hilfslinie löschen</translation>
    </message>
    <message>
        <source>Clear Guides</source>
        <translation>Hilfslinien entfernen</translation>
    </message>
    <message>
        <source>Lock Guides</source>
        <translation>Hilfslinien sperren</translation>
    </message>
    <message>
        <source>Unlock Guides</source>
        <translation>Hilfslinien entsperren</translation>
    </message>
</context>
<context>
    <name>CGuideMenu</name>
    <message>
        <source>&amp;Red</source>
        <translation>&amp;Rot</translation>
    </message>
    <message>
        <source>&amp;Orange</source>
        <translation>&amp;Orange</translation>
    </message>
    <message>
        <source>&amp;Green</source>
        <translation>&amp;Grün</translation>
    </message>
    <message>
        <source>&amp;Blue</source>
        <translation>&amp;Blau</translation>
    </message>
    <message>
        <source>&amp;Position...</source>
        <translation>&amp;Position...</translation>
    </message>
    <message>
        <source>&amp;Locked</source>
        <translation>&amp;Gesperrt</translation>
    </message>
    <message>
        <source>&amp;Colour</source>
        <translation>&amp;Farbe</translation>
    </message>
    <message>
        <source>&amp;Delete Guide</source>
        <translation>Hilfslinie &amp;löschen</translation>
    </message>
    <message>
        <source>&amp;Usual</source>
        <translation>&amp;Übliche</translation>
    </message>
    <message>
        <source>O&amp;ther...</source>
        <translation>&amp;Andere...</translation>
    </message>
    <message>
        <source>Guide Position</source>
        <translation>Position der Hilfslinie</translation>
    </message>
    <message>
        <source>Pixels from the left:</source>
        <translation>Pixel von links:</translation>
    </message>
    <message>
        <source>Pixels from the top:</source>
        <translation>Pixel von oben:</translation>
    </message>
</context>
<context>
    <name>CGuideTool</name>
    <message>
        <source>No guide</source>
        <translation>Keine Hilfslinie</translation>
    </message>
    <message>
        <source>Delete guide</source>
        <translation>Hilfslinie löschen</translation>
    </message>
    <message>
        <source>X %1</source>
        <translation>X %1</translation>
    </message>
    <message>
        <source>Y %1</source>
        <translation>Y %1</translation>
    </message>
</context>
<context>
    <name>CHelpWindow</name>
    <message>
        <source>%1 Help</source>
        <translation>%1: Hilfe</translation>
    </message>
</context>
<context>
    <name>CImageChooser</name>
    <message>
        <source>%1 stays as it is: the image file that it was made of is gone, so it cannot be converted into another format. Choose the file anew.</source>
        <translation>%1 bleibt, wie es ist: Die Bilddatei, aus der es gemacht wurde, ist nicht mehr da, deshalb lässt es sich nicht in ein anderes Format umwandeln. Wählen Sie die Datei neu.</translation>
    </message>
    <message>
        <source>The image %1 was not taken.</source>
        <translation>Das Bild %1 wurde nicht übernommen.</translation>
    </message>
    <message>
        <source>The image %1 is larger than the chip&apos;s graphics memory.</source>
        <translation>Das Bild %1 ist größer als der Grafikspeicher des Chips.</translation>
    </message>
    <message>
        <source>Change Image</source>
        <translation>Bild ändern</translation>
    </message>
</context>
<context>
    <name>CImageFileConverter</name>
    <message>
        <source>%1: this is not a regular file</source>
        <translation>%1: das ist keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>%1: there is no such file</source>
        <translation>%1: diese Datei gibt es nicht</translation>
    </message>
    <message>
        <source>%1: the file is too big</source>
        <translation>%1: die Datei ist zu groß</translation>
    </message>
    <message>
        <source>no project is open</source>
        <translation>es ist kein Projekt geöffnet</translation>
    </message>
    <message>
        <source>%1: more than %2 pixels wide or high</source>
        <translation>%1: mehr als %2 Pixel breit oder hoch</translation>
    </message>
    <message>
        <source>there is no such bitmap format</source>
        <translation>dieses Bitmap-Format gibt es nicht</translation>
    </message>
    <message>
        <source>%1: cannot be written into</source>
        <translation>%1: dort kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>%1: cannot be renamed</source>
        <translation>%1: kann nicht umbenannt werden</translation>
    </message>
    <message>
        <source>%1: was not written</source>
        <translation>%1: wurde nicht geschrieben</translation>
    </message>
    <message>
        <source>%1: the folder cannot be made</source>
        <translation>%1: der Ordner kann nicht angelegt werden</translation>
    </message>
    <message>
        <source>%1: nothing is shown, because its size is not known. The .json file that the image tools write beside it tells the size.</source>
        <translation>%1: Es wird nichts gezeigt, weil die Größe nicht bekannt ist. Sie steht in der .json-Datei, die die Bildwerkzeuge daneben schreiben.</translation>
    </message>
    <message>
        <source>%1: its size cannot be read</source>
        <translation>%1: Die Größe kann nicht gelesen werden</translation>
    </message>
</context>
<context>
    <name>CImageImport</name>
    <message>
        <source>These images were not found: %1</source>
        <translation>Diese Bilder wurden nicht gefunden: %1</translation>
    </message>
    <message>
        <source>%1: the file is too big</source>
        <translation>%1: die Datei ist zu groß</translation>
    </message>
</context>
<context>
    <name>CItemArrange</name>
    <message>
        <source>Select one or more items first</source>
        <translation>Erst ein oder mehrere Elemente auswählen</translation>
    </message>
    <message>
        <source>Select two or more items first</source>
        <translation>Erst zwei oder mehr Elemente auswählen</translation>
    </message>
    <message>
        <source>Select three or more items first</source>
        <translation>Erst drei oder mehr Elemente auswählen</translation>
    </message>
    <message>
        <source>None of the other selected items can change its size</source>
        <translation>Keines der anderen gewählten Elemente kann seine Größe ändern</translation>
    </message>
    <message>
        <source>All selected items are locked</source>
        <translation>Alle gewählten Elemente sind gesperrt</translation>
    </message>
</context>
<context>
    <name>CLanguageDialog</name>
    <message>
        <source>Change Language</source>
        <translation>Sprache ändern</translation>
    </message>
    <message>
        <source>&amp;Language:</source>
        <translation>&amp;Sprache:</translation>
    </message>
</context>
<context>
    <name>CMainPanels</name>
    <message>
        <source>Project Explorer</source>
        <translation>Projekt-Explorer</translation>
    </message>
    <message>
        <source>Navigator</source>
        <translation>Navigator</translation>
    </message>
    <message>
        <source>Widget Selection</source>
        <translation>Widget-Auswahl</translation>
    </message>
    <message>
        <source>Widget Properties</source>
        <translation>Widget-Eigenschaften</translation>
    </message>
    <message>
        <source>Output Window</source>
        <translation>Ausgabefenster</translation>
    </message>
    <message>
        <source>Open a page first: the widget is placed in the middle of it.</source>
        <translation>Bitte zuerst eine Seite öffnen: Das Widget wird in ihrer Mitte platziert.</translation>
    </message>
    <message>
        <source>Batch Edit</source>
        <translation>Stapelbearbeitung</translation>
    </message>
</context>
<context>
    <name>CMainWindow</name>
    <message>
        <source>The program ended before its window was there when it was started last, so it starts with default settings. The settings of before are kept as %1.</source>
        <translation>Beim letzten Start endete das Programm, bevor sein Fenster da war; deshalb beginnt es mit den Voreinstellungen. Die bisherigen Einstellungen sind als %1 aufbewahrt.</translation>
    </message>
    <message>
        <source>The settings file could not be read, so the program starts with default settings. The file is kept as %1.</source>
        <translation>Die Einstellungsdatei konnte nicht gelesen werden; deshalb beginnt das Programm mit den Voreinstellungen. Die Datei ist als %1 aufbewahrt.</translation>
    </message>
    <message>
        <source>Delete Selected Items</source>
        <translation>Ausgewählte Elemente löschen</translation>
    </message>
    <message>
        <source>Could not initialise Widget Library Manager</source>
        <translation>Die Widget-Bibliothek konnte nicht geladen werden</translation>
    </message>
    <message>
        <source>Could not initialise emulator</source>
        <translation>Der Emulator konnte nicht gestartet werden</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Über das Programm</translation>
    </message>
    <message>
        <source>Built at: </source>
        <translation>Erstellt am: </translation>
    </message>
    <message>
        <source>dd MMMM yyyy</source>
        <comment>form of a date</comment>
        <translation>dd. MMMM yyyy</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>Lays out the screens of embedded user interfaces for KIV graphics controllers.</source>
        <translation>Gestaltet die Bildschirme eingebetteter Bedienoberflächen für KIV-Grafikcontroller.</translation>
    </message>
    <message>
        <source>Unsaved work of a session that ended unexpectedly is kept. The start page offers it: close the project to see it.</source>
        <translation>Nicht gespeicherte Arbeit einer Sitzung, die unerwartet endete, ist noch da. Die Startseite bietet sie an: Schließen Sie das Projekt, um sie zu sehen.</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>%1 gespeichert</translation>
    </message>
    <message>
        <source>Saved automatically: %1</source>
        <translation>Automatisch gespeichert: %1</translation>
    </message>
</context>
<context>
    <name>CMenuBar</name>
    <message>
        <source>&amp;Faint</source>
        <translation>&amp;Blass</translation>
    </message>
    <message>
        <source>Draw the grid so that it hardly covers the page</source>
        <translation>Das Raster so zeichnen, dass es die Seite kaum verdeckt</translation>
    </message>
    <message>
        <source>Toolbar</source>
        <translation>Werkzeugleiste</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>&amp;Neu</translation>
    </message>
    <message>
        <source>Create a new project</source>
        <translation>Ein neues Projekt anlegen</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>Ö&amp;ffnen</translation>
    </message>
    <message>
        <source>Open an existing project</source>
        <translation>Ein vorhandenes Projekt öffnen</translation>
    </message>
    <message>
        <source>&amp;Close Project</source>
        <translation>Projekt s&amp;chließen</translation>
    </message>
    <message>
        <source>Close current project</source>
        <translation>Das aktuelle Projekt schließen</translation>
    </message>
    <message>
        <source>&amp;Save Project</source>
        <translation>Projekt &amp;speichern</translation>
    </message>
    <message>
        <source>Save current project</source>
        <translation>Das aktuelle Projekt speichern</translation>
    </message>
    <message>
        <source>&amp;Save As</source>
        <translation>Speichern &amp;unter</translation>
    </message>
    <message>
        <source>Save current project as...</source>
        <translation>Das aktuelle Projekt speichern unter...</translation>
    </message>
    <message>
        <source>&amp;New Page</source>
        <translation>Neue Sei&amp;te</translation>
    </message>
    <message>
        <source>Add a new page to the current project</source>
        <translation>Dem aktuellen Projekt eine neue Seite hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Project to DL</source>
        <translation>&amp;Projekt als DL</translation>
    </message>
    <message>
        <source>Export project in DL format</source>
        <translation>Das Projekt im DL-Format exportieren</translation>
    </message>
    <message>
        <source>&amp;Page to DL</source>
        <translation>&amp;Seite als DL</translation>
    </message>
    <message>
        <source>Export page in DL format</source>
        <translation>Die Seite im DL-Format exportieren</translation>
    </message>
    <message>
        <source>&amp;Project to Binary</source>
        <translation>Projekt &amp;binär</translation>
    </message>
    <message>
        <source>Export project in Binary format</source>
        <translation>Das Projekt im Binärformat exportieren</translation>
    </message>
    <message>
        <source>&amp;Page to Binary</source>
        <translation>Seite b&amp;inär</translation>
    </message>
    <message>
        <source>Export page in Binary format</source>
        <translation>Die Seite im Binärformat exportieren</translation>
    </message>
    <message>
        <source>&amp;Print Screen</source>
        <translation>Seiten als &amp;Bilder</translation>
    </message>
    <message>
        <source>Print Screen</source>
        <translation>Bilder der Seiten speichern</translation>
    </message>
    <message>
        <source>&amp;Exit</source>
        <translation>B&amp;eenden</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>Das Programm beenden</translation>
    </message>
    <message>
        <source>&amp;Bring to Front</source>
        <translation>Ganz nach &amp;vorne</translation>
    </message>
    <message>
        <source>Bring to Front</source>
        <translation>Ganz nach vorne</translation>
    </message>
    <message>
        <source>&amp;Send to Back</source>
        <translation>Ganz nach &amp;hinten</translation>
    </message>
    <message>
        <source>Send to Back</source>
        <translation>Ganz nach hinten</translation>
    </message>
    <message>
        <source>&amp;Bring Forward</source>
        <translation>Eine Ebene nach v&amp;orne</translation>
    </message>
    <message>
        <source>Bring Forward</source>
        <translation>Eine Ebene nach vorne</translation>
    </message>
    <message>
        <source>&amp;Send Backward</source>
        <translation>Eine Ebene nach h&amp;inten</translation>
    </message>
    <message>
        <source>Send Backward</source>
        <translation>Eine Ebene nach hinten</translation>
    </message>
    <message>
        <source>&amp;Cut</source>
        <translation>&amp;Ausschneiden</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Ausschneiden</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Einfügen</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>&amp;All</source>
        <translation>&amp;Alles</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Alles auswählen</translation>
    </message>
    <message>
        <source>&amp;None</source>
        <translation>&amp;Nichts</translation>
    </message>
    <message>
        <source>Select None</source>
        <translation>Auswahl aufheben</translation>
    </message>
    <message>
        <source>&amp;Inverse</source>
        <translation>&amp;Umkehren</translation>
    </message>
    <message>
        <source>Inverse Selection</source>
        <translation>Auswahl umkehren</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>Delete Selected Items</source>
        <translation>Ausgewählte Elemente löschen</translation>
    </message>
    <message>
        <source>&amp;Lock/Unlock</source>
        <translation>&amp;Sperren/Entsperren</translation>
    </message>
    <message>
        <source>Rena&amp;me</source>
        <translation>&amp;Umbenennen</translation>
    </message>
    <message>
        <source>Rename the selected item or page</source>
        <translation>Das ausgewählte Element oder die Seite umbenennen</translation>
    </message>
    <message>
        <source>Lock/Unlock selected items</source>
        <translation>Ausgewählte Elemente sperren oder entsperren</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>&amp;Group Selected</source>
        <translation>Auswahl &amp;gruppieren</translation>
    </message>
    <message>
        <source>Group selected objects together</source>
        <translation>Ausgewählte Elemente gruppieren</translation>
    </message>
    <message>
        <source>&amp;Ungroup</source>
        <translation>Gruppierung &amp;aufheben</translation>
    </message>
    <message>
        <source>Ungroup selected objects</source>
        <translation>Gruppierung der ausgewählten Elemente aufheben</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>&amp;Dunkel</translation>
    </message>
    <message>
        <source>Change the theme to the Dark style</source>
        <translation>Zum dunklen Farbschema wechseln</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>&amp;Hell</translation>
    </message>
    <message>
        <source>Change the theme to the Light style</source>
        <translation>Zum hellen Farbschema wechseln</translation>
    </message>
    <message>
        <source>&amp;Zoom (100%)</source>
        <translation>&amp;Zoom (100%)</translation>
    </message>
    <message>
        <source>Zoom to pixel size 100%</source>
        <translation>Auf Pixelgröße 100% zoomen</translation>
    </message>
    <message>
        <source>&amp;Fit to Page</source>
        <translation>An &amp;Seite anpassen</translation>
    </message>
    <message>
        <source>Fit to Page</source>
        <translation>An Seite anpassen</translation>
    </message>
    <message>
        <source>&amp;Fit to Width</source>
        <translation>An &amp;Breite anpassen</translation>
    </message>
    <message>
        <source>Fit to Width</source>
        <translation>An Breite anpassen</translation>
    </message>
    <message>
        <source>&amp;Ruler Size...</source>
        <translation>&amp;Linealgröße...</translation>
    </message>
    <message>
        <source>Change ruler size</source>
        <translation>Größe des Lineals ändern</translation>
    </message>
    <message>
        <source>&amp;Grid Size...</source>
        <translation>&amp;Rasterweite...</translation>
    </message>
    <message>
        <source>Change grid size</source>
        <translation>Weite des Rasters ändern</translation>
    </message>
    <message>
        <source>&amp;Toggle</source>
        <translation>&amp;Ein/Aus</translation>
    </message>
    <message>
        <source>Toggle the grid on/off</source>
        <translation>Raster ein- oder ausschalten</translation>
    </message>
    <message>
        <source>&amp;Type</source>
        <translation>&amp;Art</translation>
    </message>
    <message>
        <source>Change the grid type</source>
        <translation>Art des Rasters ändern</translation>
    </message>
    <message>
        <source>&amp;Colour</source>
        <translation>&amp;Farbe</translation>
    </message>
    <message>
        <source>Change the grid colour</source>
        <translation>Farbe des Rasters ändern</translation>
    </message>
    <message>
        <source>Output Window</source>
        <translation>Ausgabefenster</translation>
    </message>
    <message>
        <source>Status Bar</source>
        <translation>Statusleiste</translation>
    </message>
    <message>
        <source>Project Window</source>
        <translation>Projekt-Explorer</translation>
    </message>
    <message>
        <source>Properties Window</source>
        <translation>Widget-Eigenschaften</translation>
    </message>
    <message>
        <source>Library Window</source>
        <translation>Widget-Auswahl</translation>
    </message>
    <message>
        <source>&amp;Resolution</source>
        <translation>&amp;Auflösung</translation>
    </message>
    <message>
        <source>Change target screen resolution</source>
        <translation>Auflösung des Zielbildschirms ändern</translation>
    </message>
    <message>
        <source>&amp;Search</source>
        <translation>&amp;Suchen</translation>
    </message>
    <message>
        <source>Search objects by text</source>
        <translation>Elemente nach Text suchen</translation>
    </message>
    <message>
        <source>&amp;Spell Check</source>
        <translation>&amp;Rechtschreibprüfung</translation>
    </message>
    <message>
        <source>Spell check</source>
        <translation>Rechtschreibprüfung</translation>
    </message>
    <message>
        <source>&amp;Snap to Grid</source>
        <translation>Am &amp;Raster ausrichten</translation>
    </message>
    <message>
        <source>Toggle snap to grid on/off</source>
        <translation>Ausrichten am Raster ein- oder ausschalten</translation>
    </message>
    <message>
        <source>&amp;Options</source>
        <translation>&amp;Optionen</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Optionen</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>&amp;Sprache</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>KIV Panel Composer Help</source>
        <translation>Hilfe zum KIV Panel Composer</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>&amp;Über das Programm</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Über das Programm</translation>
    </message>
    <message>
        <source>&amp;Updates</source>
        <translation>&amp;Aktualisierungen</translation>
    </message>
    <message>
        <source>Check for updates</source>
        <translation>Nach Aktualisierungen suchen</translation>
    </message>
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
        <source>&amp;Fonts...</source>
        <translation>&amp;Schriften...</translation>
    </message>
    <message>
        <source>Add fonts of your own to the project</source>
        <translation>Fügt dem Projekt eigene Schriften hinzu</translation>
    </message>
    <message>
        <source>&amp;Project</source>
        <translation>&amp;Projekt</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>E&amp;xtras</translation>
    </message>
    <message>
        <source>Recent</source>
        <translation>Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>Order</source>
        <translation>Anordnung</translation>
    </message>
    <message>
        <source>Clipboard</source>
        <translation>Zwischenablage</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>Grouping</source>
        <translation>Gruppierung</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>Farbschema</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
    <message>
        <source>Grid</source>
        <translation>Raster</translation>
    </message>
    <message>
        <source>Windows</source>
        <translation>Fenster</translation>
    </message>
    <message>
        <source>Export Pac&amp;kage...</source>
        <translation>&amp;Paket exportieren...</translation>
    </message>
    <message>
        <source>Export all that a firmware needs to draw the pages</source>
        <translation>Alles exportieren, was eine Firmware zum Zeichnen der Seiten braucht</translation>
    </message>
    <message>
        <source>%1 (there are unsaved changes)</source>
        <translation>%1 (es gibt ungespeicherte Änderungen)</translation>
    </message>
    <message>
        <source>&amp;Revert</source>
        <translation>&amp;Zurücksetzen</translation>
    </message>
    <message>
        <source>Go back to what you saved last</source>
        <translation>Zum zuletzt gespeicherten Stand zurückkehren</translation>
    </message>
    <message>
        <source>&amp;Arrange</source>
        <translation>A&amp;nordnen</translation>
    </message>
    <message>
        <source>Paste in P&amp;lace</source>
        <translation>An derselben Ste&amp;lle einfügen</translation>
    </message>
    <message>
        <source>Paste to where it was copied</source>
        <translation>Dort einfügen, wo kopiert wurde</translation>
    </message>
    <message>
        <source>&amp;Duplicate</source>
        <translation>&amp;Duplizieren</translation>
    </message>
    <message>
        <source>Copy the selected items beside themselves</source>
        <translation>Die gewählten Elemente neben sich kopieren</translation>
    </message>
    <message>
        <source>Fit to &amp;Selection</source>
        <translation>An die Aus&amp;wahl anpassen</translation>
    </message>
    <message>
        <source>Show the selected items as large as the view allows</source>
        <translation>Die gewählten Elemente so groß zeigen, wie es die Ansicht erlaubt</translation>
    </message>
    <message>
        <source>&amp;Hide/Show</source>
        <translation>&amp;Ausblenden/Einblenden</translation>
    </message>
    <message>
        <source>Hide the selected items while editing, or show them again; they are exported all the same</source>
        <translation>Ausgewählte Elemente beim Bearbeiten aus- oder wieder einblenden; exportiert werden sie trotzdem</translation>
    </message>
    <message>
        <source>Sho&amp;w All Hidden</source>
        <translation>Alle ausgeblendeten &amp;zeigen</translation>
    </message>
    <message>
        <source>Show everything on this page that is hidden while editing</source>
        <translation>Alles zeigen, was auf dieser Seite beim Bearbeiten ausgeblendet ist</translation>
    </message>
    <message>
        <source>&amp;Bright</source>
        <translation>&amp;Weiß</translation>
    </message>
    <message>
        <source>Change the theme to the Bright style</source>
        <translation>Zum weißen Farbschema wechseln</translation>
    </message>
    <message>
        <source>Batch Edit</source>
        <translation>Stapelbearbeitung</translation>
    </message>
    <message>
        <source>Change the properties of all selected items at once</source>
        <translation>Die Eigenschaften aller ausgewählten Elemente auf einmal ändern</translation>
    </message>
    <message>
        <source>&amp;Previous</source>
        <translation>&amp;Vorheriger</translation>
    </message>
    <message>
        <source>Zoom and place as before the last change</source>
        <translation>Zoom und Ausschnitt wie vor der letzten Änderung</translation>
    </message>
</context>
<context>
    <name>CMultiPointItemView</name>
    <message>
        <source>Add Point</source>
        <translation>Punkt hinzufügen</translation>
    </message>
    <message>
        <source>Remove Point</source>
        <translation>Punkt entfernen</translation>
    </message>
</context>
<context>
    <name>COptionDialog</name>
    <message>
        <source>&amp;Enabled</source>
        <translation>&amp;Eingeschaltet</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Optionen</translation>
    </message>
    <message>
        <source> seconds</source>
        <translation> Sekunden</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>Breite</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>Höhe</translation>
    </message>
    <message>
        <source>Screen &amp;Size</source>
        <translation>Bildschirm&amp;größe</translation>
    </message>
    <message>
        <source>Project &amp;Name</source>
        <translation>Projekt&amp;name</translation>
    </message>
    <message>
        <source>&amp;Platform</source>
        <translation>&amp;Plattform</translation>
    </message>
    <message>
        <source>&amp;Working Directory</source>
        <translation>A&amp;rbeitsverzeichnis</translation>
    </message>
    <message>
        <source>Autosave</source>
        <translation>Automatisches Speichern</translation>
    </message>
    <message>
        <source>Autosave &amp;Interval</source>
        <translation>&amp;Intervall</translation>
    </message>
    <message>
        <source>Custom</source>
        <translation>Eigene</translation>
    </message>
    <message>
        <source>A screen is at least one pixel wide and high.</source>
        <translation>Ein Bildschirm ist mindestens ein Pixel breit und hoch.</translation>
    </message>
    <message>
        <source>Change Project Options</source>
        <translation>Projektoptionen ändern</translation>
    </message>
    <message>
        <source> px</source>
        <translation> px</translation>
    </message>
    <message>
        <source>Moving with the Arrow Keys</source>
        <translation>Verschieben mit den Pfeiltasten</translation>
    </message>
    <message>
        <source>S&amp;tep</source>
        <translation>&amp;Schritt</translation>
    </message>
    <message>
        <source>With S&amp;hift</source>
        <translation>Mit &amp;Umschalt</translation>
    </message>
</context>
<context>
    <name>COutputWindowView</name>
    <message>
        <source>No messages</source>
        <translation>Keine Meldungen</translation>
    </message>
    <message>
        <source>Click to select the item</source>
        <translation>Klicken, um das Element auszuwählen</translation>
    </message>
    <message>
        <source>(%1 times)</source>
        <translation>(%1-mal)</translation>
    </message>
    <message>
        <source>and %1 more errors</source>
        <translation>und %1 weitere Fehler</translation>
    </message>
</context>
<context>
    <name>CPackageBuilder</name>
    <message>
        <source>The project has no screen to pack.</source>
        <translation>Das Projekt hat keine Seite, die gepackt werden kann.</translation>
    </message>
    <message>
        <source>A screen without width or height cannot be packed.</source>
        <translation>Eine Seite ohne Breite oder Höhe kann nicht gepackt werden.</translation>
    </message>
    <message>
        <source>Screen &quot;%1&quot; does not fit into the chip.</source>
        <translation>Seite „%1“ passt nicht in den Chip.</translation>
    </message>
    <message>
        <source>It needs %1 bytes of %2, the chip has %3.</source>
        <translation>Sie braucht %1 Bytes von %2, der Chip hat %3.</translation>
    </message>
    <message>
        <source>Screen &quot;%1&quot;: the emulator does not tell what lies in RAM_G.</source>
        <translation>Seite „%1“: Der Emulator sagt nicht, was in RAM_G liegt.</translation>
    </message>
    <message>
        <source>Screen &quot;%1&quot; draws from address %2, where nothing lies.</source>
        <translation>Seite „%1“ zeichnet von Adresse %2, an der nichts liegt.</translation>
    </message>
    <message>
        <source>The plan of RAM_G has %1 blocks; a package can hold %2.</source>
        <translation>Der Plan von RAM_G hat %1 Blöcke; ein Paket fasst %2.</translation>
    </message>
</context>
<context>
    <name>CPageOperations</name>
    <message>
        <source>What was copied cannot be pasted: %1</source>
        <translation>Das Kopierte kann nicht eingefügt werden: %1</translation>
    </message>
    <message>
        <source>Cut Page</source>
        <translation>Seite ausschneiden</translation>
    </message>
    <message>
        <source>Paste Page</source>
        <translation>Seite einfügen</translation>
    </message>
    <message>
        <source>Load Page</source>
        <translation>Seite laden</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>There is no page in it.</source>
        <translation>Sie enthält keine Seite.</translation>
    </message>
</context>
<context>
    <name>CPrintScreenDialog</name>
    <message>
        <source>Save Screenshots</source>
        <translation>Bilder der Seiten speichern</translation>
    </message>
    <message>
        <source>Select directory to save screens to</source>
        <translation>Ordner wählen, in den die Bilder gespeichert werden</translation>
    </message>
    <message>
        <source>Save Selection</source>
        <translation>Auswahl speichern</translation>
    </message>
    <message>
        <source>Save selected screens and return to editor</source>
        <translation>Ausgewählte Seiten speichern und zum Editor zurückkehren</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Cancel and return to editor</source>
        <translation>Abbrechen und zum Editor zurückkehren</translation>
    </message>
    <message>
        <source>Save Location: </source>
        <translation>Speicherort: </translation>
    </message>
    <message>
        <source>No page was picked, so no picture was saved.</source>
        <translation>Es war keine Seite ausgewählt, daher wurde kein Bild gespeichert.</translation>
    </message>
</context>
<context>
    <name>CProgramData</name>
    <message>
        <source>The render script %1 is missing.</source>
        <translation>Das Render-Skript %1 fehlt.</translation>
    </message>
</context>
<context>
    <name>CProjectExplorerView</name>
    <message>
        <source>Cut Page</source>
        <translation>Seite ausschneiden</translation>
    </message>
    <message>
        <source>Copy Page</source>
        <translation>Seite kopieren</translation>
    </message>
    <message>
        <source>Paste Page</source>
        <translation>Seite einfügen</translation>
    </message>
    <message>
        <source>Save Page</source>
        <translation>Seite speichern</translation>
    </message>
    <message>
        <source>Load Page</source>
        <translation>Seite laden</translation>
    </message>
    <message>
        <source>Project Files (*.xml *.page)</source>
        <translation>Projektdateien (*.xml *.page)</translation>
    </message>
    <message>
        <source>No screen</source>
        <translation>Keine Seite</translation>
    </message>
    <message>
        <source>No project</source>
        <translation>Kein Projekt</translation>
    </message>
    <message>
        <source>Show on the canvas</source>
        <translation>Auf der Zeichenfläche zeigen</translation>
    </message>
    <message>
        <source>Hide on the canvas</source>
        <translation>Auf der Zeichenfläche ausblenden</translation>
    </message>
    <message>
        <source>Unlock</source>
        <translation>Entsperren</translation>
    </message>
    <message>
        <source>Lock</source>
        <translation>Sperren</translation>
    </message>
    <message>
        <source>Nothing found</source>
        <translation>Nichts gefunden</translation>
    </message>
</context>
<context>
    <name>CProjectExporter</name>
    <message>
        <source>%1 could not be opened: %2</source>
        <translation>%1 konnte nicht geöffnet werden: %2</translation>
    </message>
    <message>
        <source>An error occurred during the export process</source>
        <translation>Beim Exportieren ist ein Fehler aufgetreten</translation>
    </message>
</context>
<context>
    <name>CProjectModel</name>
    <message>
        <source>The root element is %1 instead of %2.</source>
        <translation>Das Wurzelelement ist %1 statt %2.</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>CProjectSession</name>
    <message>
        <source>%1 for %2</source>
        <translation>%1 für %2</translation>
    </message>
    <message>
        <source>The specified file is not a valid project file.</source>
        <translation>Die angegebene Datei ist keine gültige Projektdatei.</translation>
    </message>
    <message>
        <source>Another copy of the program has taken %1 over in the meantime.</source>
        <translation>Eine andere Instanz des Programms hat %1 inzwischen übernommen.</translation>
    </message>
    <message>
        <source>The folder of %1 cannot hold a lock file, so the project is not protected against being opened twice.</source>
        <translation>Im Ordner von %1 kann keine Sperrdatei angelegt werden. Das Projekt ist deshalb nicht davor geschützt, zweimal geöffnet zu werden.</translation>
    </message>
    <message>
        <source>%1 is not a lock file, so the project is not protected against being opened twice.</source>
        <translation>%1 ist keine Sperrdatei. Das Projekt ist deshalb nicht davor geschützt, zweimal geöffnet zu werden.</translation>
    </message>
    <message>
        <source>Could not open specified project file.</source>
        <translation>Die angegebene Projektdatei konnte nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>An error occurred during saving the project</source>
        <translation>Beim Speichern des Projekts ist ein Fehler aufgetreten</translation>
    </message>
    <message>
        <source>%1 is open in another copy of the program.</source>
        <translation>%1 ist in einer anderen Instanz des Programms geöffnet.</translation>
    </message>
    <message>
        <source>The project was never saved, so it has no file that could be saved to automatically.</source>
        <translation>Das Projekt wurde noch nie gespeichert. Es hat deshalb keine Datei, in die automatisch gespeichert werden könnte.</translation>
    </message>
    <message>
        <source>%1 is not saved automatically: another copy of the program has taken it over. Use Save As.</source>
        <translation>%1 wird nicht automatisch gespeichert: Eine andere Instanz des Programms hat die Datei übernommen. Verwenden Sie „Speichern unter“.</translation>
    </message>
    <message>
        <source>%1 is not saved automatically: it was changed by another program. Save it to decide which version stays.</source>
        <translation>%1 wird nicht automatisch gespeichert: Die Datei wurde von einem anderen Programm geändert. Speichern Sie, um zu entscheiden, welche Fassung bleibt.</translation>
    </message>
    <message>
        <source>%1 has no name in front of its suffix.</source>
        <translation>%1 hat keinen Namen vor der Endung.</translation>
    </message>
    <message>
        <source>Until the project is saved, a recovery copy is kept, which is offered at the next start should the program end unexpectedly.</source>
        <translation>Bis das Projekt gespeichert ist, wird eine Sicherungskopie gehalten. Sie wird beim nächsten Start angeboten, falls das Programm unerwartet endet.</translation>
    </message>
    <message>
        <source>A recovery copy cannot be kept either: %1</source>
        <translation>Auch eine Sicherungskopie kann nicht gehalten werden: %1</translation>
    </message>
    <message>
        <source>The recovery copy is in use, or no longer there.</source>
        <translation>Die Sicherungskopie wird gerade benutzt oder ist nicht mehr da.</translation>
    </message>
</context>
<context>
    <name>CPropertyEditorFactory</name>
    <message>
        <source>Choose a file</source>
        <translation>Datei wählen</translation>
    </message>
    <message>
        <source>Choose a colour</source>
        <translation>Farbe wählen</translation>
    </message>
</context>
<context>
    <name>CPropertyManager</name>
    <message>
        <source>none</source>
        <translation>keine</translation>
    </message>
    <message>
        <source>%1 or more</source>
        <translation>%1 oder mehr</translation>
    </message>
    <message>
        <source>at most %1</source>
        <translation>höchstens %1</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 bis %2</translation>
    </message>
</context>
<context>
    <name>CReadingNotice</name>
    <message>
        <source>Reading %1...</source>
        <translation>%1 wird gelesen...</translation>
    </message>
</context>
<context>
    <name>CRecoveryCopy</name>
    <message>
        <source>The folder %1 could not be made</source>
        <translation>Der Ordner %1 konnte nicht angelegt werden</translation>
    </message>
</context>
<context>
    <name>CScreen</name>
    <message>
        <source>Rename Screen</source>
        <translation>Seite umbenennen</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Close Others</source>
        <translation>Andere schließen</translation>
    </message>
    <message>
        <source>Rename…</source>
        <translation>Umbenennen…</translation>
    </message>
    <message>
        <source>New Screen</source>
        <translation>Neue Seite</translation>
    </message>
    <message>
        <source>The project has no page. &quot;New Page&quot; makes one.</source>
        <translation>Das Projekt hat keine Seite. „Neue Seite“ legt eine an.</translation>
    </message>
    <message>
        <source>No screen is open. Choose one in the project explorer or the navigator.</source>
        <translation>Es ist keine Seite geöffnet. Wählen Sie eine im Projekt-Explorer oder im Navigator.</translation>
    </message>
    <message>
        <source>No project is open.</source>
        <translation>Es ist kein Projekt geöffnet.</translation>
    </message>
</context>
<context>
    <name>CItemImages</name>
    <message>
        <source>Select media file to use</source>
        <translation>Mediendatei wählen</translation>
    </message>
    <message>
        <source>Select image file to use</source>
        <translation>Bilddatei wählen</translation>
    </message>
    <message>
        <source>Media Files (*.jpg *.png *.avi)</source>
        <translation>Mediendateien (*.jpg *.png *.avi)</translation>
    </message>
    <message>
        <source>Image Files (*.png *.jpg *.bmp *.raw)</source>
        <translation>Bilddateien (*.png *.jpg *.bmp *.raw)</translation>
    </message>
</context>
<context>
    <name>CItemDrop</name>
    <message>
        <source>RAM_G size is limited!</source>
        <translation>Die Größe von RAM_G ist begrenzt!</translation>
    </message>
    <message>
        <source>File size is too big</source>
        <translation>Die Datei ist zu groß</translation>
    </message>
    <message>
        <source>There is no widget kind %1.</source>
        <translation>Es gibt keine Widget-Art %1.</translation>
    </message>
    <message>
        <source>No image was added.</source>
        <translation>Es wurde kein Bild hinzugefügt.</translation>
    </message>
    <message>
        <source>Move Selected Items</source>
        <translation>Auswahl verschieben</translation>
    </message>
    <message>
        <source>Add Files</source>
        <translation>Dateien hinzufügen</translation>
    </message>
</context>
<context>
    <name>CSelectionCommands</name>
    <message>
        <source>The clipboard holds neither widgets nor pages, so nothing was pasted.</source>
        <translation>Die Zwischenablage enthält weder Widgets noch Seiten; es wurde nichts eingefügt.</translation>
    </message>
    <message>
        <source>What was copied cannot be pasted: %1</source>
        <translation>Das Kopierte kann nicht eingefügt werden: %1</translation>
    </message>
    <message>
        <source>There is no widget in it.</source>
        <translation>Es ist kein Widget darin.</translation>
    </message>
    <message>
        <source>A locked group stays together. Unlock it to ungroup it.</source>
        <translation>Eine gesperrte Gruppe bleibt zusammen. Entsperren Sie sie, um die Gruppierung aufzuheben.</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Ausschneiden</translation>
    </message>
    <message>
        <source>Lock/Unlock Multiple</source>
        <translation>Mehrere sperren/entsperren</translation>
    </message>
    <message>
        <source>Lock/Unlock</source>
        <translation>Sperren/Entsperren</translation>
    </message>
    <message>
        <source>Move Object</source>
        <translation>Element verschieben</translation>
    </message>
    <message>
        <source>Move Selected Items</source>
        <translation>Auswahl verschieben</translation>
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
        <source>Bring to Front</source>
        <translation>Ganz nach vorne</translation>
    </message>
    <message>
        <source>Send to Back</source>
        <translation>Ganz nach hinten</translation>
    </message>
    <message>
        <source>Bring Forward</source>
        <translation>Eine Ebene nach vorne</translation>
    </message>
    <message>
        <source>Send Backward</source>
        <translation>Eine Ebene nach hinten</translation>
    </message>
    <message>
        <source>Group Selected</source>
        <translation>Auswahl gruppieren</translation>
    </message>
    <message>
        <source>Ungroup</source>
        <translation>Gruppierung aufheben</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>Duplizieren</translation>
    </message>
    <message>
        <source>Hide</source>
        <translation>Ausblenden</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Einblenden</translation>
    </message>
    <message>
        <source>Paste Style</source>
        <translation>Stil einfügen</translation>
    </message>
    <message>
        <source>Paste to Replace</source>
        <translation>Einfügen und ersetzen</translation>
    </message>
    <message>
        <source>The clipboard holds no widgets, so nothing was replaced.</source>
        <translation>Die Zwischenablage enthält keine Widgets, deshalb wurde nichts ersetzt.</translation>
    </message>
    <message>
        <source>Hide/Show</source>
        <translation>Ausblenden/Einblenden</translation>
    </message>
    <message>
        <source>Enter Group</source>
        <translation>In die Gruppe</translation>
    </message>
</context>
<context>
    <name>CSnapActions</name>
    <message>
        <source>S&amp;napping</source>
        <translation>&amp;Einrasten</translation>
    </message>
    <message>
        <source>&amp;Snap While Dragging</source>
        <translation>Beim &amp;Ziehen einrasten</translation>
    </message>
    <message>
        <source>Bring what is dragged in line with others; while Control is held, it is not</source>
        <translation>Was gezogen wird, an anderem ausrichten; nicht, solange Strg gehalten wird</translation>
    </message>
    <message>
        <source>To &amp;Items</source>
        <translation>An &amp;Elementen</translation>
    </message>
    <message>
        <source>Snap to edges and middles of other items</source>
        <translation>An Kanten und Mitten anderer Elemente einrasten</translation>
    </message>
    <message>
        <source>To the &amp;Page</source>
        <translation>An der &amp;Seite</translation>
    </message>
    <message>
        <source>Snap to the edges and the middle of the page</source>
        <translation>An den Kanten und der Mitte der Seite einrasten</translation>
    </message>
    <message>
        <source>To &amp;Guides</source>
        <translation>An &amp;Hilfslinien</translation>
    </message>
    <message>
        <source>Snap to the guides of the page</source>
        <translation>An den Hilfslinien der Seite einrasten</translation>
    </message>
    <message>
        <source>To &amp;Equal Gaps</source>
        <translation>Bei gleichen &amp;Abständen</translation>
    </message>
    <message>
        <source>Snap to where the gaps between neighbours are equal</source>
        <translation>Einrasten, wo die Abstände zwischen Nachbarn gleich sind</translation>
    </message>
</context>
<context>
    <name>CScreenNavigator</name>
    <message>
        <source>No screen</source>
        <translation>Keine Seite</translation>
    </message>
    <message>
        <source>No project</source>
        <translation>Kein Projekt</translation>
    </message>
</context>
<context>
    <name>CStartPage</name>
    <message>
        <source>yyyy-MM-dd hh:mm</source>
        <comment>form of a time</comment>
        <translation>dd.MM.yyyy hh:mm</translation>
    </message>
    <message>
        <source>New project...</source>
        <translation>Neues Projekt...</translation>
    </message>
    <message>
        <source>Open a project...</source>
        <translation>Projekt öffnen...</translation>
    </message>
    <message>
        <source>Recent projects</source>
        <translation>Zuletzt geöffnete Projekte</translation>
    </message>
    <message>
        <source>Examples</source>
        <translation>Beispiele</translation>
    </message>
    <message>
        <source>Unsaved work of a session that ended unexpectedly</source>
        <translation>Nicht gespeicherte Arbeit einer unerwartet beendeten Sitzung</translation>
    </message>
    <message>
        <source>Recover &quot;%1&quot;</source>
        <translation>„%1“ wiederherstellen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
</context>
<context>
    <name>CStatusBar</name>
    <message>
        <source>of %1 (%2 %)</source>
        <translation>von %1 (%2 %)</translation>
    </message>
    <message>
        <source>Cursor position: </source>
        <translation>Zeigerposition: </translation>
    </message>
    <message>
        <source> widgets</source>
        <translation> Widgets</translation>
    </message>
    <message>
        <source> bitmaps</source>
        <translation> Bitmaps</translation>
    </message>
    <message>
        <source> bytes RAM_DL used,</source>
        <translation> Byte RAM_DL belegt, </translation>
    </message>
    <message>
        <source> bytes RAM_G used</source>
        <translation> Byte RAM_G belegt</translation>
    </message>
    <message>
        <source>%1 hidden: exported, but not in these figures</source>
        <translation>%1 ausgeblendet: exportiert, aber nicht in diesen Zahlen</translation>
    </message>
</context>
<context>
    <name>CToolRunner</name>
    <message>
        <source>Converting Image</source>
        <translation>Bild wird umgewandelt</translation>
    </message>
    <message>
        <source>Running tool </source>
        <translation>Ausgeführt wird </translation>
    </message>
    <message>
        <source>%1 cannot be ended</source>
        <translation>%1 lässt sich nicht beenden</translation>
    </message>
    <message>
        <source>%1 was cancelled</source>
        <translation>%1 wurde abgebrochen</translation>
    </message>
    <message>
        <source>%1 did not end in time</source>
        <translation>%1 wurde nicht rechtzeitig fertig</translation>
    </message>
    <message>
        <source>%1 cannot be started</source>
        <translation>%1 lässt sich nicht starten</translation>
    </message>
    <message>
        <source>%1 failed</source>
        <translation>%1 ist fehlgeschlagen</translation>
    </message>
</context>
<context>
    <name>CUpdater</name>
    <message>
        <source>No Internet Connection</source>
        <translation>Keine Internetverbindung</translation>
    </message>
    <message>
        <source>Unable to update software!</source>
        <translation>Das Programm kann nicht aktualisiert werden!</translation>
    </message>
    <message>
        <source>A newer version of the Panel Composer is available
Do you want to download it?
Installed version: </source>
        <translation>Eine neuere Version des Panel Composer ist verfügbar
Möchten Sie sie herunterladen?
Installierte Version: </translation>
    </message>
    <message>
        <source>
Latest version: </source>
        <translation>
Neueste Version: </translation>
    </message>
    <message>
        <source>Update Available</source>
        <translation>Aktualisierung verfügbar</translation>
    </message>
    <message>
        <source>Application Up-to-date</source>
        <translation>Das Programm ist aktuell</translation>
    </message>
    <message>
        <source>Your version is up to date.
Installed version: </source>
        <translation>Ihre Version ist aktuell.
Installierte Version: </translation>
    </message>
</context>
<context>
    <name>CWidgetLibraryManager</name>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%1 is not a widget library.</source>
        <translation>%1 ist keine Widget-Bibliothek.</translation>
    </message>
</context>
<context>
    <name>CWidgetPropertiesView</name>
    <message>
        <source>No Item Selected</source>
        <translation>Kein Element ausgewählt</translation>
    </message>
    <message>
        <source>Multiple Items Selected</source>
        <translation>Mehrere Elemente ausgewählt</translation>
    </message>
    <message>
        <source>KIV Screen</source>
        <translation>KIV-Seite</translation>
    </message>
    <message>
        <source>Widget Group</source>
        <translation>Widget-Gruppe</translation>
    </message>
    <message>
        <source>Property</source>
        <translation>Eigenschaft</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Typ</translation>
    </message>
</context>
<context>
    <name>CStyleActions</name>
    <message>
        <source>Copy St&amp;yle</source>
        <translation>Stil k&amp;opieren</translation>
    </message>
    <message>
        <source>Paste &amp;Style</source>
        <translation>&amp;Stil einfügen</translation>
    </message>
    <message>
        <source>Paste to &amp;Replace</source>
        <translation>Einfügen und e&amp;rsetzen</translation>
    </message>
    <message>
        <source>Copy colours, fonts, line widths and options of the look</source>
        <translation>Farben, Schriften, Linienstärken und Optionen des Aussehens kopieren</translation>
    </message>
    <message>
        <source>Give the selected items the copied style</source>
        <translation>Den ausgewählten Elementen den kopierten Stil geben</translation>
    </message>
    <message>
        <source>Paste in the place of each selected item, at its place in the order</source>
        <translation>Anstelle jedes ausgewählten Elements einfügen, an dessen Platz in der Reihenfolge</translation>
    </message>
</context>
<context>
    <name>CWidgetSelectionPanel</name>
    <message>
        <source>Filter</source>
        <translation>Filtern</translation>
    </message>
    <message>
        <source>Filter the widgets</source>
        <translation>Widgets filtern</translation>
    </message>
</context>
<context>
    <name>CWidgetSelectionView</name>
    <message>
        <source>No widget found</source>
        <translation>Kein Widget gefunden</translation>
    </message>
    <message>
        <source>Favourites</source>
        <translation>Favoriten</translation>
    </message>
    <message>
        <source>Last used</source>
        <translation>Zuletzt verwendet</translation>
    </message>
    <message>
        <source>Place in the Middle</source>
        <translation>In der Mitte platzieren</translation>
    </message>
    <message>
        <source>Remove from Favourites</source>
        <translation>Aus den Favoriten entfernen</translation>
    </message>
    <message>
        <source>Add to Favourites</source>
        <translation>Zu den Favoriten hinzufügen</translation>
    </message>
</context>
<context>
    <name>CXmlGuard</name>
    <message>
        <source>The document is larger than %1 MiB.</source>
        <translation>Das Dokument ist größer als %1 MiB.</translation>
    </message>
    <message>
        <source>The document contains zero bytes; it must be UTF-8 text.</source>
        <translation>Das Dokument enthält Nullbytes; es muss UTF-8-Text sein.</translation>
    </message>
    <message>
        <source>An element has more than %1 attributes.</source>
        <translation>Ein Element hat mehr als %1 Attribute.</translation>
    </message>
    <message>
        <source>The document has more than %1 attributes.</source>
        <translation>Das Dokument hat mehr als %1 Attribute.</translation>
    </message>
    <message>
        <source>The encoding %1 is not supported; save the document as UTF-8.</source>
        <translation>Die Kodierung %1 wird nicht unterstützt; speichern Sie das Dokument als UTF-8.</translation>
    </message>
    <message>
        <source>Document types and entities are not allowed.</source>
        <translation>Dokumenttypen und Entitäten sind nicht erlaubt.</translation>
    </message>
    <message>
        <source>Elements are nested deeper than %1 levels.</source>
        <translation>Elemente sind tiefer als %1 Ebenen geschachtelt.</translation>
    </message>
    <message>
        <source>The document has more than %1 elements.</source>
        <translation>Das Dokument hat mehr als %1 Elemente.</translation>
    </message>
    <message>
        <source>A value is longer than %1 MiB.</source>
        <translation>Ein Wert ist länger als %1 MiB.</translation>
    </message>
    <message>
        <source>Line %1: %2</source>
        <translation>Zeile %1: %2</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%1 is larger than %2 MiB.</source>
        <translation>%1 ist größer als %2 MiB.</translation>
    </message>
</context>
<context>
    <name>CZoomComboWidget</name>
    <message>
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>Seite</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>Breite</translation>
    </message>
</context>
<context>
    <name>ChipFindings</name>
    <message>
        <source>%1 is not available on %2</source>
        <translation>%1 gibt es auf %2 nicht</translation>
    </message>
    <message>
        <source>%1 &quot;%2&quot; is not available on %3</source>
        <translation>%1 „%2“ gibt es auf %3 nicht</translation>
    </message>
    <message>
        <source>%1 %2 is over the maximum of %3, %4</source>
        <translation>%1 %2 liegt über dem Höchstwert von %3, %4</translation>
    </message>
    <message>
        <source>%1 %2 is under the minimum of %3, %4</source>
        <translation>%1 %2 liegt unter dem Mindestwert von %3, %4</translation>
    </message>
</context>
<context>
    <name>FieldChecks</name>
    <message>
        <source>The project needs a name.</source>
        <translation>Das Projekt braucht einen Namen.</translation>
    </message>
    <message>
        <source>This cannot be the name of a file.</source>
        <translation>Das kann kein Dateiname sein.</translation>
    </message>
    <message>
        <source>Choose a folder for the project.</source>
        <translation>Wählen Sie einen Ordner für das Projekt.</translation>
    </message>
    <message>
        <source>This folder does not exist.</source>
        <translation>Diesen Ordner gibt es nicht.</translation>
    </message>
    <message>
        <source>This is not a folder.</source>
        <translation>Das ist kein Ordner.</translation>
    </message>
    <message>
        <source>This folder cannot be written to.</source>
        <translation>In diesen Ordner kann nicht geschrieben werden.</translation>
    </message>
</context>
<context>
    <name>LibraryXml</name>
    <message>
        <source>Widget library, line %1: &quot;%2&quot; cannot be the type of a widget.</source>
        <translation>Widget-Bibliothek, Zeile %1: „%2“ kann keine Widget-Art sein.</translation>
    </message>
</context>
<context>
    <name>NumberExpression</name>
    <message>
        <source>&quot;%1&quot; is not expected here</source>
        <translation>„%1“ wird hier nicht erwartet</translation>
    </message>
    <message>
        <source>The result is too large</source>
        <translation>Das Ergebnis ist zu groß</translation>
    </message>
    <message>
        <source>Division by zero</source>
        <translation>Division durch null</translation>
    </message>
    <message>
        <source>Too many brackets or signs within each other</source>
        <translation>Zu viele Klammern oder Vorzeichen ineinander</translation>
    </message>
    <message>
        <source>A closing bracket is missing</source>
        <translation>Eine schließende Klammer fehlt</translation>
    </message>
    <message>
        <source>A number is missing at the end</source>
        <translation>Am Ende fehlt eine Zahl</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no number</source>
        <translation>„%1“ ist keine Zahl</translation>
    </message>
    <message>
        <source>There is no number named &quot;%1&quot;</source>
        <translation>Es gibt keine Zahl namens „%1“</translation>
    </message>
    <message>
        <source>An expression has %1 characters at most</source>
        <translation>Ein Ausdruck hat höchstens %1 Zeichen</translation>
    </message>
</context>
<context>
    <name>PackageFiles</name>
    <message>
        <source>%1 is not a regular file</source>
        <translation>%1 ist keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>%1 could not be kept aside</source>
        <translation>%1 konnte nicht beiseitegelegt werden</translation>
    </message>
    <message>
        <source>%1 could not be written: %2</source>
        <translation>%1 konnte nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>The folder %1 could not be made.</source>
        <translation>Der Ordner %1 konnte nicht angelegt werden.</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>Add %1</source>
        <translation>%1 hinzufügen</translation>
    </message>
    <message>
        <source>Change Property %1 %2</source>
        <translation>Eigenschaft %1 %2 ändern</translation>
    </message>
    <message>
        <source>Delete %1</source>
        <translation>%1 löschen</translation>
    </message>
    <message>
        <source>Group Item</source>
        <translation>Element gruppieren</translation>
    </message>
    <message>
        <source>Insert %1</source>
        <translation>%1 einsetzen</translation>
    </message>
    <message>
        <source>Order Item</source>
        <translation>Element anordnen</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Ungroup Item</source>
        <translation>Gruppierung aufheben</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>%1, %2   %3 × %4</source>
        <translation>%1, %2   %3 × %4</translation>
    </message>
    <message>
        <source>Resize Item</source>
        <translation>Größe ändern</translation>
    </message>
    <message>
        <source>%1°</source>
        <translation>%1°</translation>
    </message>
    <message>
        <source>Rotate Item</source>
        <translation>Element drehen</translation>
    </message>
    <message>
        <source>Bring To Front Selected Items</source>
        <translation>Auswahl ganz nach vorne</translation>
    </message>
    <message>
        <source>Send To Back Selected Items</source>
        <translation>Auswahl ganz nach hinten</translation>
    </message>
    <message>
        <source>Bring Forward Selected Items</source>
        <translation>Auswahl eine Ebene nach vorne</translation>
    </message>
    <message>
        <source>Send Backward Selected Items</source>
        <translation>Auswahl eine Ebene nach hinten</translation>
    </message>
    <message>
        <source>Group Selected Items</source>
        <translation>Auswahl gruppieren</translation>
    </message>
    <message>
        <source>Ungroup Selected Items</source>
        <translation>Gruppierung der Auswahl aufheben</translation>
    </message>
    <message>
        <source>Move Item</source>
        <translation>Element verschieben</translation>
    </message>
    <message>
        <source>Scale Selected Items</source>
        <translation>Ausgewählte Elemente skalieren</translation>
    </message>
</context>
<context>
    <name>QtBoolEdit</name>
    <message>
        <source>True</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>False</source>
        <translation>Nein</translation>
    </message>
</context>
<context>
    <name>QtColorPropertyManager</name>
    <message>
        <source>Red</source>
        <translation>Rot</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Grün</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Blau</translation>
    </message>
    <message>
        <source>Alpha</source>
        <translation>Deckkraft</translation>
    </message>
</context>
<context>
    <name>ReplaceStep</name>
    <message>
        <source>Replace in one place</source>
        <translation>An einer Stelle ersetzen</translation>
    </message>
    <message>
        <source>Replace in %1 places</source>
        <translation>An %1 Stellen ersetzen</translation>
    </message>
</context>
<context>
    <name>ScreenDocuments</name>
    <message>
        <source>There is nothing in it.</source>
        <translation>Es ist nichts darin.</translation>
    </message>
    <message>
        <source>The document has no element %1.</source>
        <translation>Das Dokument hat kein Element %1.</translation>
    </message>
</context>
<context>
    <name>StepNames</name>
    <message>
        <source>Move %1</source>
        <translation>%1 verschieben</translation>
    </message>
    <message>
        <source>Move %1 items</source>
        <translation>%1 Elemente verschieben</translation>
    </message>
    <message>
        <source>Resize %1</source>
        <translation>Größe von %1 ändern</translation>
    </message>
    <message>
        <source>Resize %1 items</source>
        <translation>Größe von %1 Elementen ändern</translation>
    </message>
    <message>
        <source>Turn %1</source>
        <translation>%1 drehen</translation>
    </message>
    <message>
        <source>Turn %1 items</source>
        <translation>%1 Elemente drehen</translation>
    </message>
    <message>
        <source>Bring %1 to the front</source>
        <translation>%1 in den Vordergrund</translation>
    </message>
    <message>
        <source>Bring %1 items to the front</source>
        <translation>%1 Elemente in den Vordergrund</translation>
    </message>
    <message>
        <source>Send %1 to the back</source>
        <translation>%1 in den Hintergrund</translation>
    </message>
    <message>
        <source>Send %1 items to the back</source>
        <translation>%1 Elemente in den Hintergrund</translation>
    </message>
    <message>
        <source>Bring %1 forward</source>
        <translation>%1 eine Ebene nach vorne</translation>
    </message>
    <message>
        <source>Bring %1 items forward</source>
        <translation>%1 Elemente eine Ebene nach vorne</translation>
    </message>
    <message>
        <source>Send %1 backward</source>
        <translation>%1 eine Ebene nach hinten</translation>
    </message>
    <message>
        <source>Send %1 items backward</source>
        <translation>%1 Elemente eine Ebene nach hinten</translation>
    </message>
    <message>
        <source>Move %1 in the order</source>
        <translation>%1 in der Reihenfolge verschieben</translation>
    </message>
    <message>
        <source>Move %1 items in the order</source>
        <translation>%1 Elemente in der Reihenfolge verschieben</translation>
    </message>
    <message>
        <source>Lock or unlock %1</source>
        <translation>%1 sperren oder entsperren</translation>
    </message>
    <message>
        <source>Lock or unlock %1 items</source>
        <translation>%1 Elemente sperren oder entsperren</translation>
    </message>
    <message>
        <source>Delete %1 items</source>
        <translation>%1 Elemente löschen</translation>
    </message>
    <message>
        <source>Cut %1 items</source>
        <translation>%1 Elemente ausschneiden</translation>
    </message>
    <message>
        <source>Group %1 items</source>
        <translation>%1 Elemente gruppieren</translation>
    </message>
    <message>
        <source>Rename %1 to %2</source>
        <translation>%1 in %2 umbenennen</translation>
    </message>
    <message>
        <source>Clear %1 of %2</source>
        <translation>%1 von %2 leeren</translation>
    </message>
    <message>
        <source>Set %1 of %2 to %3</source>
        <translation>%1 von %2 auf %3 setzen</translation>
    </message>
</context>
<context>
    <name>ValueText</name>
    <message>
        <source>Not a number</source>
        <translation>Keine Zahl</translation>
    </message>
    <message>
        <source>Less than %1</source>
        <translation>Kleiner als %1</translation>
    </message>
    <message>
        <source>More than %1</source>
        <translation>Größer als %1</translation>
    </message>
    <message>
        <source>None of its choices</source>
        <translation>Keine der Möglichkeiten</translation>
    </message>
    <message>
        <source>Neither true nor false</source>
        <translation>Weder true noch false</translation>
    </message>
    <message>
        <source>Not a colour</source>
        <translation>Keine Farbe</translation>
    </message>
    <message>
        <source>Not a time</source>
        <translation>Keine Uhrzeit</translation>
    </message>
    <message>
        <source>Has only one line</source>
        <translation>Hat nur eine Zeile</translation>
    </message>
</context>
<context>
    <name>WidgetLibrary</name>
    <message>
        <source>A row of keys, their texts separated by commas</source>
        <translation>Eine Reihe von Tasten, ihre Texte durch Kommas getrennt</translation>
    </message>
    <message>
        <source>Analogue clock</source>
        <translation>Uhr mit Zeigern</translation>
    </message>
    <message>
        <source>Arc from a measured to a wanted value, with a knob at the wanted one</source>
        <translation>Bogen vom gemessenen zum gewünschten Wert, mit einem Knopf am gewünschten</translation>
    </message>
    <message>
        <source>Arc gauge</source>
        <translation>Bogen­anzeige</translation>
    </message>
    <message>
        <source>Arrow</source>
        <translation>Pfeil</translation>
    </message>
    <message>
        <source>Arrow from the first to the second point</source>
        <translation>Pfeil vom ersten zum zweiten Punkt</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Badge</source>
        <translation>Plakette</translation>
    </message>
    <message>
        <source>Bar chart</source>
        <translation>Balken­diagramm</translation>
    </message>
    <message>
        <source>Bar that fills, upwards when it is higher than wide</source>
        <translation>Balken, der sich füllt; nach oben, wenn er höher als breit ist</translation>
    </message>
    <message>
        <source>Bars of a radio signal</source>
        <translation>Balken eines Funksignals</translation>
    </message>
    <message>
        <source>Basic Shapes</source>
        <translation>Grundformen</translation>
    </message>
    <message>
        <source>Battery</source>
        <translation>Batterie</translation>
    </message>
    <message>
        <source>Battery with its charge; turns to the warning colour when low</source>
        <translation>Batterie mit Ladestand; nimmt bei niedrigem Stand die Warnfarbe an</translation>
    </message>
    <message>
        <source>Bean</source>
        <translation>Bohne</translation>
    </message>
    <message>
        <source>Bell</source>
        <translation>Glocke</translation>
    </message>
    <message>
        <source>Bilinear</source>
        <translation>Bilinear</translation>
    </message>
    <message>
        <source>Bitmap</source>
        <translation>Bitmap</translation>
    </message>
    <message>
        <source>Bolt</source>
        <translation>Blitz</translation>
    </message>
    <message>
        <source>Both</source>
        <translation>Beide</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>Unten</translation>
    </message>
    <message>
        <source>Box to tick, with a text</source>
        <translation>Kästchen zum Ankreuzen, mit einem Text</translation>
    </message>
    <message>
        <source>Bulb</source>
        <translation>Glühbirne</translation>
    </message>
    <message>
        <source>Button</source>
        <translation>Schalt­fläche</translation>
    </message>
    <message>
        <source>Button whose face is a converted image</source>
        <translation>Schaltfläche, deren Gesicht ein konvertiertes Bild ist</translation>
    </message>
    <message>
        <source>Button with a text, a symbol or both</source>
        <translation>Schaltfläche mit Text, Symbol oder beidem</translation>
    </message>
    <message>
        <source>Calendar</source>
        <translation>Kalender</translation>
    </message>
    <message>
        <source>Car</source>
        <translation>Auto</translation>
    </message>
    <message>
        <source>Card</source>
        <translation>Karte</translation>
    </message>
    <message>
        <source>Center</source>
        <translation>Mitte</translation>
    </message>
    <message>
        <source>Chart</source>
        <translation>Diagramm</translation>
    </message>
    <message>
        <source>Check</source>
        <translation>Häkchen</translation>
    </message>
    <message>
        <source>Checkbox</source>
        <translation>Kontroll­kästchen</translation>
    </message>
    <message>
        <source>Choice among a few options side by side</source>
        <translation>Auswahl unter wenigen Möglichkeiten nebeneinander</translation>
    </message>
    <message>
        <source>Chosen entry of a list that opens</source>
        <translation>Gewählter Eintrag einer Liste, die aufklappt</translation>
    </message>
    <message>
        <source>Circle</source>
        <translation>Kreis</translation>
    </message>
    <message>
        <source>Clock</source>
        <translation>Uhr</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Cloud</source>
        <translation>Wolke</translation>
    </message>
    <message>
        <source>Colour</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>Contactless</source>
        <translation>Kontaktlos</translation>
    </message>
    <message>
        <source>Controls</source>
        <translation>Bedienelemente</translation>
    </message>
    <message>
        <source>Converted image in one of the chip&apos;s formats</source>
        <translation>Konvertiertes Bild in einem der Formate des Chips</translation>
    </message>
    <message>
        <source>Cup</source>
        <translation>Tasse</translation>
    </message>
    <message>
        <source>Decoration</source>
        <translation>Dekoration</translation>
    </message>
    <message>
        <source>Dial</source>
        <translation>Drehknopf</translation>
    </message>
    <message>
        <source>Digital clock</source>
        <translation>Digitaluhr</translation>
    </message>
    <message>
        <source>Disc sized by its point size, in sixteenths of a pixel</source>
        <translation>Scheibe, deren Größe die Punktgröße in sechzehntel Pixeln bestimmt</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Abwärts</translation>
    </message>
    <message>
        <source>Drop</source>
        <translation>Tropfen</translation>
    </message>
    <message>
        <source>Drop-down</source>
        <translation>Aufklapp­liste</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Ende</translation>
    </message>
    <message>
        <source>Espresso</source>
        <translation>Espresso</translation>
    </message>
    <message>
        <source>Euro</source>
        <translation>Euro</translation>
    </message>
    <message>
        <source>Fan</source>
        <translation>Lüfter</translation>
    </message>
    <message>
        <source>Field for a text, with a hint while it is empty</source>
        <translation>Feld für einen Text, mit einem Hinweis, solange es leer ist</translation>
    </message>
    <message>
        <source>Figures of seven segments, as large as the box allows</source>
        <translation>Ziffern aus sieben Segmenten, so groß wie der Rahmen erlaubt</translation>
    </message>
    <message>
        <source>Filled</source>
        <translation>Gefüllt</translation>
    </message>
    <message>
        <source>Filled rectangle with rounded corners and a border</source>
        <translation>Gefülltes Rechteck mit runden Ecken und Rand</translation>
    </message>
    <message>
        <source>Filled shape through points; Shift + click adds a point</source>
        <translation>Gefüllte Form durch Punkte; Umschalt + Klick fügt einen Punkt hinzu</translation>
    </message>
    <message>
        <source>Film</source>
        <translation>Film</translation>
    </message>
    <message>
        <source>Flame</source>
        <translation>Flamme</translation>
    </message>
    <message>
        <source>Gauge</source>
        <translation>Rund­instrument</translation>
    </message>
    <message>
        <source>Glass</source>
        <translation>Glas</translation>
    </message>
    <message>
        <source>Gradient</source>
        <translation>Farbverlauf</translation>
    </message>
    <message>
        <source>Heart</source>
        <translation>Herz</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Startseite</translation>
    </message>
    <message>
        <source>Horizontal slider</source>
        <translation>Waagerechter Schieberegler</translation>
    </message>
    <message>
        <source>Hours</source>
        <translation>Stunden</translation>
    </message>
    <message>
        <source>Image button</source>
        <translation>Bild­schalt­fläche</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>Indicators</source>
        <translation>Anzeigen</translation>
    </message>
    <message>
        <source>Info</source>
        <translation>Info</translation>
    </message>
    <message>
        <source>Inside</source>
        <translation>Innen</translation>
    </message>
    <message>
        <source>Key row</source>
        <translation>Tasten­reihe</translation>
    </message>
    <message>
        <source>Keypad</source>
        <translation>Tastenfeld</translation>
    </message>
    <message>
        <source>Knob to turn, with its value around it</source>
        <translation>Knopf zum Drehen, mit seinem Wert ringsum</translation>
    </message>
    <message>
        <source>LED</source>
        <translation>LED</translation>
    </message>
    <message>
        <source>Leaf</source>
        <translation>Blatt</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>Level in segments; the last ones warn</source>
        <translation>Pegel in Segmenten; die letzten warnen</translation>
    </message>
    <message>
        <source>Level meter</source>
        <translation>Pegel­anzeige</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>Linie</translation>
    </message>
    <message>
        <source>Line between two points</source>
        <translation>Linie zwischen zwei Punkten</translation>
    </message>
    <message>
        <source>Line chart</source>
        <translation>Linien­diagramm</translation>
    </message>
    <message>
        <source>Line drawing from a fixed set</source>
        <translation>Strichzeichnung aus einem festen Satz</translation>
    </message>
    <message>
        <source>Line through points; Shift + click adds a point</source>
        <translation>Linie durch Punkte; Umschalt + Klick fügt einen Punkt hinzu</translation>
    </message>
    <message>
        <source>Line through the values of a list</source>
        <translation>Linie durch die Werte einer Liste</translation>
    </message>
    <message>
        <source>List</source>
        <translation>Liste</translation>
    </message>
    <message>
        <source>Lock</source>
        <translation>Schloss</translation>
    </message>
    <message>
        <source>Media</source>
        <translation>Medien</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menü</translation>
    </message>
    <message>
        <source>Middle</source>
        <translation>Mitte</translation>
    </message>
    <message>
        <source>Minus</source>
        <translation>Minus</translation>
    </message>
    <message>
        <source>Moon</source>
        <translation>Mond</translation>
    </message>
    <message>
        <source>Nearest</source>
        <translation>Nächster Bildpunkt</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Nächstes</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Zahl</translation>
    </message>
    <message>
        <source>Number with a fixed count of decimals and a unit</source>
        <translation>Zahl mit fester Anzahl von Nachkommastellen und einer Einheit</translation>
    </message>
    <message>
        <source>One bar for each value of a list</source>
        <translation>Ein Balken für jeden Wert einer Liste</translation>
    </message>
    <message>
        <source>One choice of several, with a text</source>
        <translation>Eine von mehreren Möglichkeiten, mit einem Text</translation>
    </message>
    <message>
        <source>One line of text, cut with an ellipsis when it is too long</source>
        <translation>Eine Zeile Text, bei Überlänge mit Auslassungspunkten gekürzt</translation>
    </message>
    <message>
        <source>Outline</source>
        <translation>Umriss</translation>
    </message>
    <message>
        <source>Outside</source>
        <translation>Außen</translation>
    </message>
    <message>
        <source>Page dots</source>
        <translation>Seiten­punkte</translation>
    </message>
    <message>
        <source>Panel that holds other widgets, with a title and a symbol</source>
        <translation>Fläche für andere Widgets, mit Titel und Symbol</translation>
    </message>
    <message>
        <source>Paragraph</source>
        <translation>Absatz</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Person</source>
        <translation>Person</translation>
    </message>
    <message>
        <source>Photo or film that the chip decodes itself (JPEG, PNG, AVI)</source>
        <translation>Foto oder Film, den der Chip selbst dekodiert (JPEG, PNG, AVI)</translation>
    </message>
    <message>
        <source>Pin</source>
        <translation>Ortsmarke</translation>
    </message>
    <message>
        <source>Plain</source>
        <translation>Schlicht</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Wiedergabe</translation>
    </message>
    <message>
        <source>Plug</source>
        <translation>Stecker</translation>
    </message>
    <message>
        <source>Plus</source>
        <translation>Plus</translation>
    </message>
    <message>
        <source>Polygon</source>
        <translation>Polygon</translation>
    </message>
    <message>
        <source>Polyline</source>
        <translation>Linienzug</translation>
    </message>
    <message>
        <source>Power</source>
        <translation>Ein/Aus</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>Vorheriges</translation>
    </message>
    <message>
        <source>Progress bar</source>
        <translation>Fort­schritts­balken</translation>
    </message>
    <message>
        <source>Quarters</source>
        <translation>Viertel</translation>
    </message>
    <message>
        <source>Radio button</source>
        <translation>Options­feld</translation>
    </message>
    <message>
        <source>Rectangle</source>
        <translation>Rechteck</translation>
    </message>
    <message>
        <source>Rectangle filled from one colour to another</source>
        <translation>Rechteck, gefüllt von einer Farbe zur anderen</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>Neu laden</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Rechts</translation>
    </message>
    <message>
        <source>Ring</source>
        <translation>Ring</translation>
    </message>
    <message>
        <source>Ring or arc around a centre; the angle turns its start</source>
        <translation>Ring oder Bogen um einen Mittelpunkt; der Winkel dreht seinen Anfang</translation>
    </message>
    <message>
        <source>Round gauge with ticks, figures and a needle</source>
        <translation>Rundinstrument mit Teilstrichen, Ziffern und Zeiger</translation>
    </message>
    <message>
        <source>Rows of a text and its detail: commas separate the two, semicolons rows</source>
        <translation>Zeilen aus Text und Angabe: Kommas trennen die beiden, Semikolons die Zeilen</translation>
    </message>
    <message>
        <source>Rows of keys: commas separate keys, semicolons rows</source>
        <translation>Reihen von Tasten: Kommas trennen Tasten, Semikolons Reihen</translation>
    </message>
    <message>
        <source>Scroll bar</source>
        <translation>Bildlauf­leiste</translation>
    </message>
    <message>
        <source>Scroll bar, upright when it is higher than wide</source>
        <translation>Bildlaufleiste; senkrecht, wenn sie höher als breit ist</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suche</translation>
    </message>
    <message>
        <source>Segments</source>
        <translation>Segmente</translation>
    </message>
    <message>
        <source>Separator</source>
        <translation>Trennlinie</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Seven segments</source>
        <translation>Sieben­segment­anzeige</translation>
    </message>
    <message>
        <source>Short status on a pill</source>
        <translation>Kurzer Zustand auf einer Plakette</translation>
    </message>
    <message>
        <source>Signal lamp, sized by its point size in sixteenths of a pixel</source>
        <translation>Signallampe, deren Größe die Punktgröße in sechzehntel Pixeln bestimmt</translation>
    </message>
    <message>
        <source>Signal strength</source>
        <translation>Signal­stärke</translation>
    </message>
    <message>
        <source>Slider</source>
        <translation>Schiebe­regler</translation>
    </message>
    <message>
        <source>Snowflake</source>
        <translation>Schneeflocke</translation>
    </message>
    <message>
        <source>Spinner</source>
        <translation>Wartekreis</translation>
    </message>
    <message>
        <source>Star</source>
        <translation>Stern</translation>
    </message>
    <message>
        <source>Stepper</source>
        <translation>Schritt­schalter</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Stopp</translation>
    </message>
    <message>
        <source>Sun</source>
        <translation>Sonne</translation>
    </message>
    <message>
        <source>Switch whose height follows its font</source>
        <translation>Schalter, dessen Höhe der Schrift folgt</translation>
    </message>
    <message>
        <source>Symbol</source>
        <translation>Symbol</translation>
    </message>
    <message>
        <source>Table</source>
        <translation>Tabelle</translation>
    </message>
    <message>
        <source>Table with a head row: commas separate columns, semicolons rows</source>
        <translation>Tabelle mit Kopfzeile: Kommas trennen Spalten, Semikolons Zeilen</translation>
    </message>
    <message>
        <source>Target dial</source>
        <translation>Sollwert­bogen</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Text field</source>
        <translation>Textfeld</translation>
    </message>
    <message>
        <source>Text that breaks into lines</source>
        <translation>Text, der in Zeilen umbricht</translation>
    </message>
    <message>
        <source>Thermometer</source>
        <translation>Thermometer</translation>
    </message>
    <message>
        <source>Thin line, upright when it is higher than wide</source>
        <translation>Dünne Linie; senkrecht, wenn sie höher als breit ist</translation>
    </message>
    <message>
        <source>Time of day in figures</source>
        <translation>Uhrzeit in Ziffern</translation>
    </message>
    <message>
        <source>Timer</source>
        <translation>Kurzzeitwecker</translation>
    </message>
    <message>
        <source>Toggle</source>
        <translation>Umschalter</translation>
    </message>
    <message>
        <source>Tonal</source>
        <translation>Getönt</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>Oben</translation>
    </message>
    <message>
        <source>Turning arc while something is under way; the angle is its phase</source>
        <translation>Drehender Bogen, während etwas im Gange ist; der Winkel ist seine Phase</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Aufwärts</translation>
    </message>
    <message>
        <source>Value as an arc, with its figure in the middle</source>
        <translation>Wert als Bogen, mit der Ziffer in der Mitte</translation>
    </message>
    <message>
        <source>Value between a minus and a plus key</source>
        <translation>Wert zwischen einer Minus- und einer Plustaste</translation>
    </message>
    <message>
        <source>Vertical slider</source>
        <translation>Senkrechter Schiebe­regler</translation>
    </message>
    <message>
        <source>Vertical slider, largest value on top</source>
        <translation>Senkrechter Schieberegler, größter Wert oben</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Lautstärke</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Which page of several is shown</source>
        <translation>Welche von mehreren Seiten gezeigt wird</translation>
    </message>
    <message>
        <source>12 hours</source>
        <translation>12 Stunden</translation>
    </message>
    <message>
        <source>Alignment</source>
        <translation>Ausrichtung</translation>
    </message>
    <message>
        <source>Angle</source>
        <translation>Winkel</translation>
    </message>
    <message>
        <source>Arc colour</source>
        <translation>Farbe des Bogens</translation>
    </message>
    <message>
        <source>Area opacity</source>
        <translation>Deckkraft der Fläche</translation>
    </message>
    <message>
        <source>Badge colour</source>
        <translation>Farbe der Marke</translation>
    </message>
    <message>
        <source>Bar colour</source>
        <translation>Farbe der Balken</translation>
    </message>
    <message>
        <source>Bars</source>
        <translation>Balken</translation>
    </message>
    <message>
        <source>Border colour</source>
        <translation>Rahmenfarbe</translation>
    </message>
    <message>
        <source>Border width</source>
        <translation>Rahmenbreite</translation>
    </message>
    <message>
        <source>Caption</source>
        <translation>Beschriftung</translation>
    </message>
    <message>
        <source>Caption colour</source>
        <translation>Farbe der Beschriftung</translation>
    </message>
    <message>
        <source>Caption font</source>
        <translation>Schrift der Beschriftung</translation>
    </message>
    <message>
        <source>Cells</source>
        <translation>Zellen</translation>
    </message>
    <message>
        <source>Charging</source>
        <translation>Wird geladen</translation>
    </message>
    <message>
        <source>Checked</source>
        <translation>Angekreuzt</translation>
    </message>
    <message>
        <source>Closed</source>
        <translation>Geschlossen</translation>
    </message>
    <message>
        <source>Columns</source>
        <translation>Spalten</translation>
    </message>
    <message>
        <source>Content</source>
        <translation>Inhalt</translation>
    </message>
    <message>
        <source>Corner radius</source>
        <translation>Eckenradius</translation>
    </message>
    <message>
        <source>Danger colour</source>
        <translation>Gefahrenfarbe</translation>
    </message>
    <message>
        <source>Danger from</source>
        <translation>Gefahr ab</translation>
    </message>
    <message>
        <source>Decimals</source>
        <translation>Nachkommastellen</translation>
    </message>
    <message>
        <source>Detail colour</source>
        <translation>Farbe der Einzelheit</translation>
    </message>
    <message>
        <source>Detail font</source>
        <translation>Schrift der Einzelheit</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>Richtung</translation>
    </message>
    <message>
        <source>Dot colour</source>
        <translation>Punktfarbe</translation>
    </message>
    <message>
        <source>Enabled</source>
        <translation>Aktiv</translation>
    </message>
    <message>
        <source>End X</source>
        <translation>Ende X</translation>
    </message>
    <message>
        <source>End Y</source>
        <translation>Ende Y</translation>
    </message>
    <message>
        <source>Ends</source>
        <translation>Enden</translation>
    </message>
    <message>
        <source>Entries</source>
        <translation>Einträge</translation>
    </message>
    <message>
        <source>Face colour</source>
        <translation>Farbe des Zifferblatts</translation>
    </message>
    <message>
        <source>Figure colour</source>
        <translation>Ziffernfarbe</translation>
    </message>
    <message>
        <source>Figures</source>
        <translation>Ziffern</translation>
    </message>
    <message>
        <source>Fill colour</source>
        <translation>Füllfarbe</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>First colour</source>
        <translation>Erste Farbe</translation>
    </message>
    <message>
        <source>Focus colour</source>
        <translation>Farbe bei Fokus</translation>
    </message>
    <message>
        <source>Focused</source>
        <translation>Hat den Fokus</translation>
    </message>
    <message>
        <source>Font</source>
        <translation>Schrift</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>Format</translation>
    </message>
    <message>
        <source>Gap</source>
        <translation>Abstand</translation>
    </message>
    <message>
        <source>Glow</source>
        <translation>Leuchten</translation>
    </message>
    <message>
        <source>Grid colour</source>
        <translation>Farbe der Hilfslinien</translation>
    </message>
    <message>
        <source>Grid lines</source>
        <translation>Hilfslinien</translation>
    </message>
    <message>
        <source>Hand colour</source>
        <translation>Zeigerfarbe</translation>
    </message>
    <message>
        <source>Head colour</source>
        <translation>Farbe des Kopfes</translation>
    </message>
    <message>
        <source>Head font</source>
        <translation>Schrift des Kopfes</translation>
    </message>
    <message>
        <source>Head size</source>
        <translation>Größe der Spitze</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>Höhe</translation>
    </message>
    <message>
        <source>Hint</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>Hint colour</source>
        <translation>Farbe des Hinweises</translation>
    </message>
    <message>
        <source>ID</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>Key colour</source>
        <translation>Tastenfarbe</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Tasten</translation>
    </message>
    <message>
        <source>Knob colour</source>
        <translation>Farbe des Knopfs</translation>
    </message>
    <message>
        <source>Labels</source>
        <translation>Beschriftungen</translation>
    </message>
    <message>
        <source>Last colour</source>
        <translation>Letzte Farbe</translation>
    </message>
    <message>
        <source>Line colour</source>
        <translation>Linienfarbe</translation>
    </message>
    <message>
        <source>Line height</source>
        <translation>Zeilenhöhe</translation>
    </message>
    <message>
        <source>Line spacing</source>
        <translation>Zeilenabstand</translation>
    </message>
    <message>
        <source>Lit</source>
        <translation>Leuchtet</translation>
    </message>
    <message>
        <source>Look</source>
        <translation>Aussehen</translation>
    </message>
    <message>
        <source>Low below</source>
        <translation>Niedrig unter</translation>
    </message>
    <message>
        <source>Low colour</source>
        <translation>Farbe bei niedrigem Wert</translation>
    </message>
    <message>
        <source>Major ticks</source>
        <translation>Hauptstriche</translation>
    </message>
    <message>
        <source>Mark colour</source>
        <translation>Farbe der Marken</translation>
    </message>
    <message>
        <source>Mark last value</source>
        <translation>Letzten Wert hervorheben</translation>
    </message>
    <message>
        <source>Marked bar</source>
        <translation>Hervorgehobener Balken</translation>
    </message>
    <message>
        <source>Marked colour</source>
        <translation>Farbe der Hervorhebung</translation>
    </message>
    <message>
        <source>Marks</source>
        <translation>Marken</translation>
    </message>
    <message>
        <source>Maximum</source>
        <translation>Größter Wert</translation>
    </message>
    <message>
        <source>Minimum</source>
        <translation>Kleinster Wert</translation>
    </message>
    <message>
        <source>Minor ticks</source>
        <translation>Zwischenstriche</translation>
    </message>
    <message>
        <source>Monochrome</source>
        <translation>Einfarbig</translation>
    </message>
    <message>
        <source>Most lines</source>
        <translation>Höchstens Zeilen</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Needle colour</source>
        <translation>Farbe der Nadel</translation>
    </message>
    <message>
        <source>Off colour</source>
        <translation>Farbe, wenn aus</translation>
    </message>
    <message>
        <source>On colour</source>
        <translation>Farbe, wenn ein</translation>
    </message>
    <message>
        <source>Is open</source>
        <translation>Ist offen</translation>
    </message>
    <message>
        <source>Open colour</source>
        <translation>Farbe, wenn offen</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Möglichkeiten</translation>
    </message>
    <message>
        <source>Outline colour</source>
        <translation>Umrissfarbe</translation>
    </message>
    <message>
        <source>Padding</source>
        <translation>Innenabstand</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>Seite</translation>
    </message>
    <message>
        <source>Page colour</source>
        <translation>Farbe der Seite</translation>
    </message>
    <message>
        <source>Page size</source>
        <translation>Seitengröße</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>Seiten</translation>
    </message>
    <message>
        <source>Peak</source>
        <translation>Spitzenwert</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Picture file</source>
        <translation>Bilddatei</translation>
    </message>
    <message>
        <source>Picture folder</source>
        <translation>Bildordner</translation>
    </message>
    <message>
        <source>Picture height</source>
        <translation>Bildhöhe</translation>
    </message>
    <message>
        <source>Picture width</source>
        <translation>Bildbreite</translation>
    </message>
    <message>
        <source>Place</source>
        <translation>Lage</translation>
    </message>
    <message>
        <source>Points</source>
        <translation>Punkte</translation>
    </message>
    <message>
        <source>Prefix</source>
        <translation>Vorsatz</translation>
    </message>
    <message>
        <source>Pressed</source>
        <translation>Gedrückt</translation>
    </message>
    <message>
        <source>Pressed colour</source>
        <translation>Farbe, wenn gedrückt</translation>
    </message>
    <message>
        <source>Pressed key</source>
        <translation>Gedrückte Taste</translation>
    </message>
    <message>
        <source>Radius</source>
        <translation>Radius</translation>
    </message>
    <message>
        <source>Rim colour</source>
        <translation>Randfarbe</translation>
    </message>
    <message>
        <source>Ring colour</source>
        <translation>Farbe des Rings</translation>
    </message>
    <message>
        <source>Rounded ends</source>
        <translation>Runde Enden</translation>
    </message>
    <message>
        <source>Row height</source>
        <translation>Zeilenhöhe</translation>
    </message>
    <message>
        <source>Second hand colour</source>
        <translation>Farbe des Sekundenzeigers</translation>
    </message>
    <message>
        <source>Seconds</source>
        <translation>Sekunden</translation>
    </message>
    <message>
        <source>Selected</source>
        <translation>Ausgewählt</translation>
    </message>
    <message>
        <source>Selected colour</source>
        <translation>Farbe der Auswahl</translation>
    </message>
    <message>
        <source>Selected text colour</source>
        <translation>Textfarbe der Auswahl</translation>
    </message>
    <message>
        <source>Show unlit segments</source>
        <translation>Dunkle Segmente zeigen</translation>
    </message>
    <message>
        <source>Show value</source>
        <translation>Wert zeigen</translation>
    </message>
    <message>
        <source>Start angle</source>
        <translation>Startwinkel</translation>
    </message>
    <message>
        <source>Opacity</source>
        <translation>Deckkraft</translation>
    </message>
    <message>
        <source>Stripe colour</source>
        <translation>Streifenfarbe</translation>
    </message>
    <message>
        <source>Striped</source>
        <translation>Gestreift</translation>
    </message>
    <message>
        <source>Style</source>
        <translation>Stil</translation>
    </message>
    <message>
        <source>Suffix</source>
        <translation>Endung</translation>
    </message>
    <message>
        <source>Sweep</source>
        <translation>Bogenwinkel</translation>
    </message>
    <message>
        <source>Symbol colour</source>
        <translation>Symbolfarbe</translation>
    </message>
    <message>
        <source>Target</source>
        <translation>Zielwert</translation>
    </message>
    <message>
        <source>Text colour</source>
        <translation>Textfarbe</translation>
    </message>
    <message>
        <source>Text when off</source>
        <translation>Text, wenn aus</translation>
    </message>
    <message>
        <source>Text when on</source>
        <translation>Text, wenn ein</translation>
    </message>
    <message>
        <source>Thickness</source>
        <translation>Dicke</translation>
    </message>
    <message>
        <source>Thumb colour</source>
        <translation>Farbe des Schiebers</translation>
    </message>
    <message>
        <source>Tick colour</source>
        <translation>Farbe der Striche</translation>
    </message>
    <message>
        <source>Ticks</source>
        <translation>Striche</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Tint</source>
        <translation>Tönung</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Title colour</source>
        <translation>Titelfarbe</translation>
    </message>
    <message>
        <source>Track colour</source>
        <translation>Farbe der Bahn</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Einheit</translation>
    </message>
    <message>
        <source>Unit colour</source>
        <translation>Farbe der Einheit</translation>
    </message>
    <message>
        <source>Unit font</source>
        <translation>Schrift der Einheit</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Value colour</source>
        <translation>Farbe des Werts</translation>
    </message>
    <message>
        <source>Value font</source>
        <translation>Schrift des Werts</translation>
    </message>
    <message>
        <source>Values</source>
        <translation>Werte</translation>
    </message>
    <message>
        <source>Vertical alignment</source>
        <translation>Ausrichtung senkrecht</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>Video</translation>
    </message>
    <message>
        <source>Warning colour</source>
        <translation>Warnfarbe</translation>
    </message>
    <message>
        <source>Warning from</source>
        <translation>Warnung ab</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>Breite</translation>
    </message>
    <message>
        <source>Wifi</source>
        <translation>WLAN</translation>
    </message>
    <message>
        <source>Window</source>
        <translation>Fenster</translation>
    </message>
    <message>
        <source>X</source>
        <translation>X</translation>
    </message>
    <message>
        <source>Y</source>
        <translation>Y</translation>
    </message>
    <message>
        <source>Zone colour</source>
        <translation>Farbe des Bereichs</translation>
    </message>
    <message>
        <source>Zone from</source>
        <translation>Bereich ab</translation>
    </message>
</context>
<context>
    <name>CCompareActions</name>
    <message>
        <source>The version that you saved last</source>
        <translation>Die zuletzt von Ihnen gespeicherte Fassung</translation>
    </message>
    <message>
        <source>The version that was saved automatically</source>
        <translation>Die automatisch gespeicherte Fassung</translation>
    </message>
    <message>
        <source>The last saved version</source>
        <translation>Die zuletzt gespeicherte Fassung</translation>
    </message>
    <message>
        <source>Compare With</source>
        <translation>Vergleichen mit</translation>
    </message>
    <message>
        <source>Projects (*.nyx *.xml);;All files (*)</source>
        <translation>Projekte (*.nyx *.xml);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>The project was not compared: %1</source>
        <translation>Das Projekt wurde nicht verglichen: %1</translation>
    </message>
    <message>
        <source>Compare</source>
        <translation>Vergleich</translation>
    </message>
    <message>
        <source>Compare &amp;With...</source>
        <translation>Vergleichen &amp;mit...</translation>
    </message>
    <message>
        <source>Show what has changed since an earlier version</source>
        <translation>Zeigen, was sich seit einer früheren Fassung geändert hat</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>A backup that was left beside the file</source>
        <translation>Eine Sicherung, die neben der Datei liegen blieb</translation>
    </message>
    <message>
        <source>The recovery copy of this project</source>
        <translation>Die Wiederherstellungskopie dieses Projekts</translation>
    </message>
    <message>
        <source>Work that was left: %1, %2</source>
        <translation>Liegen gebliebene Arbeit: %1, %2</translation>
    </message>
    <message>
        <source>That version is there no more.</source>
        <translation>Diese Fassung gibt es nicht mehr.</translation>
    </message>
</context>
<context>
    <name>CCompareView</name>
    <message>
        <source>Choose File &gt; Compare With... to see what has changed.</source>
        <translation>Datei &gt; Vergleichen mit... zeigt, was sich geändert hat.</translation>
    </message>
    <message>
        <source>Nothing has changed since: %1</source>
        <translation>Nichts hat sich geändert seit: %1</translation>
    </message>
    <message>
        <source>Changed since: %1</source>
        <translation>Geändert seit: %1</translation>
    </message>
    <message>
        <source>There is no picture here yet, or none on this side.</source>
        <translation>Hier ist noch kein Bild, oder keines auf dieser Seite.</translation>
    </message>
    <message>
        <source>Not compared: %1</source>
        <translation>Nicht verglichen: %1</translation>
    </message>
    <message>
        <source>Comparing...</source>
        <translation>Vergleich läuft...</translation>
    </message>
</context>
<context>
    <name>CChangeTexts</name>
    <message>
        <source>Group</source>
        <translation>Gruppe</translation>
    </message>
    <message>
        <source>Font %1</source>
        <translation>Schrift %1</translation>
    </message>
    <message>
        <source>Guides</source>
        <translation>Hilfslinien</translation>
    </message>
    <message>
        <source>Locked</source>
        <translation>Gesperrt</translation>
    </message>
    <message>
        <source>Hidden</source>
        <translation>Ausgeblendet</translation>
    </message>
</context>
<context>
    <name>CChangesModel</name>
    <message>
        <source>Project</source>
        <translation>Projekt</translation>
    </message>
    <message>
        <source>Page added: %1</source>
        <translation>Seite hinzugefügt: %1</translation>
    </message>
    <message>
        <source>Page removed: %1</source>
        <translation>Seite entfernt: %1</translation>
    </message>
    <message>
        <source>Page changed: %1</source>
        <translation>Seite geändert: %1</translation>
    </message>
    <message>
        <source>In another order</source>
        <translation>In anderer Reihenfolge</translation>
    </message>
    <message>
        <source>Picture changed: %1</source>
        <translation>Bild geändert: %1</translation>
    </message>
    <message>
        <source>Pixels: %1</source>
        <translation>Pixel: %1</translation>
    </message>
    <message>
        <source>Added: %1</source>
        <translation>Hinzugefügt: %1</translation>
    </message>
    <message>
        <source>Removed: %1</source>
        <translation>Entfernt: %1</translation>
    </message>
    <message>
        <source>Moved: %1</source>
        <translation>Verschoben: %1</translation>
    </message>
    <message>
        <source>Changed: %1</source>
        <translation>Geändert: %1</translation>
    </message>
    <message>
        <source>From another page: %1</source>
        <translation>Von einer anderen Seite: %1</translation>
    </message>
    <message>
        <source>In another group</source>
        <translation>In einer anderen Gruppe</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>Änderung</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>Vorher</translation>
    </message>
    <message>
        <source>Now</source>
        <translation>Jetzt</translation>
    </message>
</context>
<context>
    <name>CComparedPictures</name>
    <message>
        <source>Difference</source>
        <translation>Unterschied</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>Vorher</translation>
    </message>
    <message>
        <source>Now</source>
        <translation>Jetzt</translation>
    </message>
    <message>
        <source>Blink</source>
        <translation>Blinken</translation>
    </message>
    <message>
        <source>Swipe</source>
        <translation>Wischen</translation>
    </message>
    <message>
        <source>How the page is shown before and now</source>
        <translation>Wie die Seite vorher und jetzt gezeigt wird</translation>
    </message>
    <message>
        <source>Side by side</source>
        <translation>Nebeneinander</translation>
    </message>
    <message>
        <source>Zoom: %1 %</source>
        <translation>Zoom: %1 %</translation>
    </message>
    <message>
        <source>Fit</source>
        <translation>Einpassen</translation>
    </message>
    <message>
        <source>Show all of the page (0)</source>
        <translation>Die ganze Seite zeigen (0)</translation>
    </message>
    <message>
        <source>100 %</source>
        <translation>100 %</translation>
    </message>
    <message>
        <source>Show a pixel for a pixel (1); Ctrl and the wheel, + and - zoom</source>
        <translation>Ein Pixel für ein Pixel zeigen (1); Strg mit dem Rad, + und - zoomen</translation>
    </message>
</context>
<context>
    <name>CComparison</name>
    <message>
        <source>No project is open.</source>
        <translation>Kein Projekt ist geöffnet.</translation>
    </message>
    <message>
        <source>There are no pictures: the earlier version is for another chip (%1).</source>
        <translation>Es gibt keine Bilder: Die frühere Fassung ist für einen anderen Chip (%1).</translation>
    </message>
    <message>
        <source>There are no pictures: the earlier version has another size (%1 x %2).</source>
        <translation>Es gibt keine Bilder: Die frühere Fassung hat eine andere Größe (%1 x %2).</translation>
    </message>
</context>
<context>
    <name>CGitVersions</name>
    <message>
        <source>git did not give the file in that version.</source>
        <translation>git hat die Datei in dieser Fassung nicht geliefert.</translation>
    </message>
    <message>
        <source>git's answer is too large.</source>
        <translation>Die Antwort von git ist zu groß.</translation>
    </message>
    <message>
        <source>git did not answer within %1 seconds.</source>
        <translation>git hat nicht innerhalb von %1 Sekunden geantwortet.</translation>
    </message>
    <message>
        <source>git could not be started.</source>
        <translation>git konnte nicht gestartet werden.</translation>
    </message>
    <message>
        <source>git knows no revision &quot;%1&quot;.</source>
        <translation>git kennt keine Revision &quot;%1&quot;.</translation>
    </message>
</context>
<context>
    <name>CVersionDialog</name>
    <message>
        <source>Compare With</source>
        <translation>Vergleichen mit</translation>
    </message>
    <message>
        <source>Compare</source>
        <translation>Vergleichen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>The open project is compared with:</source>
        <translation>Das geöffnete Projekt wird verglichen mit:</translation>
    </message>
    <message>
        <source>A file...</source>
        <translation>Einer Datei...</translation>
    </message>
    <message>
        <source>Looking for versions in git...</source>
        <translation>Fassungen in git werden gesucht...</translation>
    </message>
    <message>
        <source>git keeps no version of this project.</source>
        <translation>git kennt keine Fassung dieses Projekts.</translation>
    </message>
    <message>
        <source>%1, in git: %2</source>
        <translation>%1, in git: %2</translation>
    </message>
    <message>
        <source>git &amp;revision:</source>
        <translation>git-&amp;Revision:</translation>
    </message>
    <message>
        <source>A branch, a tag, a hash, HEAD~3...</source>
        <translation>Ein Branch, ein Tag, ein Hash, HEAD~3...</translation>
    </message>
    <message>
        <source>git is asked...</source>
        <translation>git wird gefragt...</translation>
    </message>
</context>
<context>
    <name>CBudgetActions</name>
    <message>
        <source>Budget</source>
        <translation>Budget</translation>
    </message>
</context>
<context>
    <name>CBudgetView</name>
    <message>
        <source>No project is open.</source>
        <translation>Es ist kein Projekt geöffnet.</translation>
    </message>
    <message>
        <source>The project has no pages.</source>
        <translation>Das Projekt hat keine Seiten.</translation>
    </message>
    <message>
        <source>Measuring...</source>
        <translation>Wird gemessen...</translation>
    </message>
    <message>
        <source>Project (fullest page)</source>
        <translation>Projekt (vollste Seite)</translation>
    </message>
    <message>
        <source>Each page is loaded by itself, so the fullest one decides. All pictures and fonts of the project together take %1 bytes.</source>
        <translation>Jede Seite wird für sich geladen, daher entscheidet die vollste. Alle Bilder und Schriften des Projekts belegen zusammen %1 Byte.</translation>
    </message>
    <message>
        <source>RAM_G: %1
RAM_DL: %2</source>
        <translation>RAM_G: %1
RAM_DL: %2</translation>
    </message>
    <message>
        <source>Used by: %1</source>
        <translation>Verwendet von: %1</translation>
    </message>
    <message>
        <source>(gaps between them)</source>
        <translation>(Lücken dazwischen)</translation>
    </message>
    <message>
        <source>(the page itself)</source>
        <translation>(die Seite selbst)</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>Seite</translation>
    </message>
    <message>
        <source>%1 glyphs</source>
        <translation>%1 Zeichen</translation>
    </message>
    <message>
        <source>RAM_G, bytes</source>
        <translation>RAM_G, Byte</translation>
    </message>
    <message>
        <source>RAM_DL, bytes</source>
        <translation>RAM_DL, Byte</translation>
    </message>
    <message>
        <source>Picture or font</source>
        <translation>Bild oder Schrift</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>Format</translation>
    </message>
    <message>
        <source>Pixels</source>
        <translation>Pixel</translation>
    </message>
    <message>
        <source>Used by</source>
        <translation>Verwendet von</translation>
    </message>
    <message>
        <source>Bytes</source>
        <translation>Byte</translation>
    </message>
    <message>
        <source>Share</source>
        <translation>Anteil</translation>
    </message>
    <message>
        <source>Item</source>
        <translation>Element</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>What If</source>
        <translation>Was wäre wenn</translation>
    </message>
    <message>
        <source>Pictures and Fonts</source>
        <translation>Bilder und Schriften</translation>
    </message>
    <message>
        <source>Items</source>
        <translation>Elemente</translation>
    </message>
    <message>
        <source>What each item adds to the display list of its page</source>
        <translation>Was jedes Element zur Display-Liste seiner Seite beiträgt</translation>
    </message>
    <message>
        <source>Fit into Budget</source>
        <translation>In das Budget einpassen</translation>
    </message>
</context>
<context>
    <name>CMemoryBar</name>
    <message>
        <source>%1 of %2 (%3)</source>
        <translation>%1 von %2 (%3)</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
</context>
<context>
    <name>CWhatIfView</name>
    <message>
        <source>%1, now %2</source>
        <translation>%1, jetzt %2</translation>
    </message>
    <message>
        <source>not possible</source>
        <translation>nicht möglich</translation>
    </message>
    <message>
        <source>An item that shows the image is locked.</source>
        <translation>Ein Element, das das Bild zeigt, ist gesperrt.</translation>
    </message>
    <message>
        <source>Choose a picture in the first table.</source>
        <translation>Wählen Sie ein Bild in der ersten Tabelle.</translation>
    </message>
    <message>
        <source>This one cannot be made in another format: it is no image of an item, or the file that it was made of is gone.</source>
        <translation>Dies kann nicht in ein anderes Format gebracht werden: Es ist kein Bild eines Elements, oder die Datei, aus der es entstand, ist nicht mehr da.</translation>
    </message>
    <message>
        <source>Left the original, right the picture as the chip shows it. Wheel, + and - zoom both, a drag and the arrow keys move them.</source>
        <translation>Links das Original, rechts das Bild, wie der Chip es zeigt. Mausrad, + und - vergrößern beide, Ziehen und Pfeiltasten verschieben sie.</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>Format</translation>
    </message>
    <message>
        <source>Bytes</source>
        <translation>Byte</translation>
    </message>
    <message>
        <source>SSIM</source>
        <translation>SSIM</translation>
    </message>
    <message>
        <source>&amp;Use This Format</source>
        <translation>Dieses Format &amp;verwenden</translation>
    </message>
</context>
<context>
    <name>CFormatAdoption</name>
    <message>
        <source>Nothing was changed: %1 shows the image and is locked.</source>
        <translation>Es wurde nichts geändert: %1 zeigt das Bild und ist gesperrt.</translation>
    </message>
    <message>
        <source>Nothing was changed: the image of %1 could not be taken in the format %2.</source>
        <translation>Es wurde nichts geändert: Das Bild von %1 konnte nicht im Format %2 übernommen werden.</translation>
    </message>
    <message>
        <source>Converting the image...</source>
        <translation>Das Bild wird konvertiert...</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Change Image Format</source>
        <translation>Bildformat ändern</translation>
    </message>
</context>
<context>
    <name>CFormatFitView</name>
    <message>
        <source>Trying all pictures in all formats of the chip...</source>
        <translation>Alle Bilder werden in allen Formaten des Chips versucht...</translation>
    </message>
    <message>
        <source>Tries all pictures of the project in every format of the chip and proposes those in which every page fits with the least visible loss.</source>
        <translation>Versucht alle Bilder des Projekts in jedem Format des Chips und schlägt die vor, mit denen jede Seite bei geringstem sichtbarem Verlust passt.</translation>
    </message>
    <message>
        <source>Every page fits as it is, and no other formats are better.</source>
        <translation>Jede Seite passt, wie sie ist, und keine anderen Formate sind besser.</translation>
    </message>
    <message>
        <source>Every page fits as it is. What is listed is as good or better and fits too; what would grow is not ticked.</source>
        <translation>Jede Seite passt, wie sie ist. Was aufgeführt ist, ist gleich gut oder besser und passt auch; was größer würde, ist nicht angehakt.</translation>
    </message>
    <message>
        <source>With all of these formats every page fits, with the least visible loss.</source>
        <translation>Mit allen diesen Formaten passt jede Seite, mit dem geringsten sichtbaren Verlust.</translation>
    </message>
    <message>
        <source>No formats make every page fit. What is listed comes closest.</source>
        <translation>Mit keinen Formaten passt jede Seite. Was aufgeführt ist, kommt dem am nächsten.</translation>
    </message>
    <message>
        <source>Locked or without the file it was made of: %1.</source>
        <translation>Gesperrt oder ohne die Datei, aus der es entstand: %1.</translation>
    </message>
    <message>
        <source>With what is ticked the fullest page is %1: %2.</source>
        <translation>Mit dem Angehakten ist die vollste Seite %1: %2.</translation>
    </message>
    <message>
        <source>With what is ticked the fullest page is %1: %2, %3 bytes too many.</source>
        <translation>Mit dem Angehakten ist die vollste Seite %1: %2, %3 Byte zu viel.</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>Format</translation>
    </message>
    <message>
        <source>Proposed</source>
        <translation>Vorschlag</translation>
    </message>
    <message>
        <source>Bytes</source>
        <translation>Byte</translation>
    </message>
    <message>
        <source>Then</source>
        <translation>Danach</translation>
    </message>
    <message>
        <source>SSIM</source>
        <translation>SSIM</translation>
    </message>
    <message>
        <source>Find F&amp;ormats</source>
        <translation>Formate &amp;suchen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>&amp;Use Ticked Formats</source>
        <translation>Angehakte &amp;verwenden</translation>
    </message>
    <message>
        <source>Could not be tried: %1.</source>
        <translation>Konnte nicht versucht werden: %1.</translation>
    </message>
</context>
<context>
    <name>ErrorCells</name>
    <message>
        <source>PSNR, dB</source>
        <translation>PSNR, dB</translation>
    </message>
    <message>
        <source>equal</source>
        <translation>gleich</translation>
    </message>
    <message>
        <source>PSNR: peak signal-to-noise ratio over red, green and blue, in dB; more is better.
SSIM: mean structural similarity of the luminance, 1 for no difference (Wang, Bovik, Sheikh, Simoncelli, 2004).</source>
        <translation>PSNR: Spitzen-Signal-Rausch-Verhältnis über Rot, Grün und Blau in dB; mehr ist besser.
SSIM: mittlere strukturelle Ähnlichkeit der Helligkeit, 1 ohne Unterschied (Wang, Bovik, Sheikh, Simoncelli, 2004).</translation>
    </message>
</context>
<context>
    <name>CCheckActions</name>
    <message>
        <source>Checks</source>
        <translation>Prüfungen</translation>
    </message>
    <message>
        <source>Checks (%1)</source>
        <translation>Prüfungen (%1)</translation>
    </message>
    <message>
        <source>Next &amp;Finding</source>
        <translation>Nächster &amp;Befund</translation>
    </message>
    <message>
        <source>Go to the next finding of the checks</source>
        <translation>Zum nächsten Befund der Prüfungen gehen</translation>
    </message>
    <message>
        <source>Pre&amp;vious Finding</source>
        <translation>&amp;Voriger Befund</translation>
    </message>
    <message>
        <source>Go to the previous finding of the checks</source>
        <translation>Zum vorigen Befund der Prüfungen gehen</translation>
    </message>
</context>
<context>
    <name>CChecksView</name>
    <message>
        <source>Measure By</source>
        <translation>Messen nach</translation>
    </message>
    <message>
        <source>What the project is measured by</source>
        <translation>Wonach das Projekt beurteilt wird</translation>
    </message>
    <message>
        <source>All pages</source>
        <translation>Alle Seiten</translation>
    </message>
    <message>
        <source>Nothing found.</source>
        <translation>Nichts gefunden.</translation>
    </message>
    <message>
        <source>No project is open.</source>
        <translation>Es ist kein Projekt geöffnet.</translation>
    </message>
    <message>
        <source>Errors</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Warnings</source>
        <translation>Warnungen</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Hinweise</translation>
    </message>
    <message>
        <source>Ignored</source>
        <translation>Übergangen</translation>
    </message>
    <message>
        <source>Ignored: %1</source>
        <translation>Übergangen: %1</translation>
    </message>
    <message>
        <source>&amp;Go There</source>
        <translation>&amp;Dorthin gehen</translation>
    </message>
    <message>
        <source>&amp;Ignore Here...</source>
        <translation>&amp;Hier übergehen...</translation>
    </message>
    <message>
        <source>&amp;Ask About It Again</source>
        <translation>&amp;Wieder danach fragen</translation>
    </message>
    <message>
        <source>Ignore a Finding</source>
        <translation>Einen Befund übergehen</translation>
    </message>
    <message>
        <source>Why is it right as it is?</source>
        <translation>Warum ist es so richtig?</translation>
    </message>
    <message>
        <source>Delete %1?</source>
        <translation>%1 löschen?</translation>
    </message>
    <message>
        <source>Delete the File</source>
        <translation>Datei löschen</translation>
    </message>
    <message>
        <source>Finding</source>
        <translation>Befund</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>Seite</translation>
    </message>
    <message>
        <source>Show ignored</source>
        <translation>Übergangene zeigen</translation>
    </message>
    <message>
        <source>The page whose findings are shown</source>
        <translation>Die Seite, deren Befunde gezeigt werden</translation>
    </message>
    <message>
        <source>&amp;Ignore...</source>
        <translation>Ü&amp;bergehen...</translation>
    </message>
</context>
<context>
    <name>CImageRenewal</name>
    <message>
        <source>Convert again</source>
        <translation>Neu umwandeln</translation>
    </message>
    <message>
        <source>%1 was converted again, and nothing of the picture is different.</source>
        <translation>%1 wurde neu umgewandelt, und am Bild ist nichts anders.</translation>
    </message>
</context>
<context>
    <name>CCommandDeleteImage</name>
    <message>
        <source>it is too large to be brought back by Undo</source>
        <translation>sie ist zu groß, um rückgängig zurückgeholt zu werden</translation>
    </message>
    <message>
        <source>%1 was not deleted: an item shows it.</source>
        <translation>%1 wurde nicht gelöscht: Ein Element zeigt die Datei.</translation>
    </message>
    <message>
        <source>%1 was not deleted: the project as it was saved last still shows it. Save the project first.</source>
        <translation>%1 wurde nicht gelöscht: Das Projekt, wie es zuletzt gespeichert wurde, zeigt die Datei noch. Speichern Sie zuerst das Projekt.</translation>
    </message>
    <message>
        <source>%1 was not deleted: %2</source>
        <translation>%1 wurde nicht gelöscht: %2</translation>
    </message>
    <message>
        <source>it is not a regular file</source>
        <translation>es ist keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>%1 could not be deleted: %2</source>
        <translation>%1 konnte nicht gelöscht werden: %2</translation>
    </message>
    <message>
        <source>The image cannot be brought back. %1</source>
        <translation>Das Bild kann nicht zurückgeholt werden. %1</translation>
    </message>
    <message>
        <source>Another file is called %1 now.</source>
        <translation>Jetzt heißt eine andere Datei %1.</translation>
    </message>
</context>
<context>
    <name>CheckFixes</name>
    <message>
        <source>Delete an image file</source>
        <translation>Bilddatei löschen</translation>
    </message>
    <message>
        <source>&amp;Rename</source>
        <translation>&amp;Umbenennen</translation>
    </message>
    <message>
        <source>Give It a &amp;New Id</source>
        <translation>Eine neue &amp;Kennung geben</translation>
    </message>
    <message>
        <source>&amp;Delete the File...</source>
        <translation>Datei &amp;löschen...</translation>
    </message>
    <message>
        <source>New id</source>
        <translation>Neue Kennung</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>Ask about it again</source>
        <translation>Wieder danach fragen</translation>
    </message>
    <message>
        <source>Ignore a finding</source>
        <translation>Einen Befund übergehen</translation>
    </message>
    <message>
        <source>&amp;Convert Again</source>
        <translation>&amp;Neu umwandeln</translation>
    </message>
    <message>
        <source>&amp;Dots per Inch of the Display...</source>
        <translation>&amp;Punkte pro Zoll des Displays...</translation>
    </message>
    <message>
        <source>Dots per inch of the display:</source>
        <translation>Punkte pro Zoll des Displays:</translation>
    </message>
    <message>
        <source>Tell of &amp;Memory From...</source>
        <translation>Von &amp;Speicher melden ab...</translation>
    </message>
    <message>
        <source>Percent of a memory:</source>
        <translation>Prozent eines Speichers:</translation>
    </message>
    <message>
        <source>Change what the checks measure by</source>
        <translation>Maß der Prüfungen ändern</translation>
    </message>
</context>
<context>
    <name>Checks</name>
    <message>
        <source>There is no room for the text of %1.</source>
        <translation>Für den Text von %1 ist kein Platz.</translation>
    </message>
    <message>
        <source>The platform &quot;%1&quot; is not known; known are %2.</source>
        <translation>Die Plattform „%1“ ist nicht bekannt; bekannt sind %2.</translation>
    </message>
    <message>
        <source>The screen needs %1 bytes of %2; the chip has %3.</source>
        <translation>Die Seite braucht %1 Byte von %2; der Chip hat %3.</translation>
    </message>
    <message>
        <source>The screen needs %1 % of %2: %3 of %4 bytes.</source>
        <translation>Die Seite braucht %1 % von %2: %3 von %4 Byte.</translation>
    </message>
    <message>
        <source>%1 shows its image %2 times as large as it is.</source>
        <translation>%1 zeigt das Bild %2-mal so groß, wie es ist.</translation>
    </message>
    <message>
        <source>%1 shows its image at %2 % of its size; a smaller image would look as good.</source>
        <translation>%1 zeigt das Bild auf %2 % verkleinert; ein kleineres Bild sähe ebenso gut aus.</translation>
    </message>
    <message>
        <source>The image of %1 is missing: %2</source>
        <translation>Das Bild von %1 fehlt: %2</translation>
    </message>
    <message>
        <source>%1 items of the screen are called %2.</source>
        <translation>%1 Elemente der Seite heißen %2.</translation>
    </message>
    <message>
        <source>%1 and %2 are the same name in C; one gets a number.</source>
        <translation>%1 und %2 ergeben in C denselben Namen; einer bekommt eine Nummer.</translation>
    </message>
    <message>
        <source>The text of %1 has a contrast of %2 : 1 to what is behind it; %3 : 1 is the least.</source>
        <translation>Der Text von %1 hat zu seinem Hintergrund einen Kontrast von %2 : 1; mindestens nötig ist %3 : 1.</translation>
    </message>
    <message>
        <source>The text of %1 is cut.</source>
        <translation>Der Text von %1 ist abgeschnitten.</translation>
    </message>
    <message>
        <source>The text of %1 is larger than its box.</source>
        <translation>Der Text von %1 ist größer als sein Feld.</translation>
    </message>
    <message>
        <source>%1 is hidden by what lies in front of it.</source>
        <translation>%1 ist von dem verdeckt, was davor liegt.</translation>
    </message>
    <message>
        <source>%1 lies outside the screen.</source>
        <translation>%1 liegt außerhalb der Seite.</translation>
    </message>
    <message>
        <source>%1 lies partly outside the screen.</source>
        <translation>%1 liegt teilweise außerhalb der Seite.</translation>
    </message>
    <message>
        <source>%1 is %2 mm for a finger, at %3 dots per inch; 7 mm is the least.</source>
        <translation>%1 misst bei %3 Punkten je Zoll %2 mm; für einen Finger sind mindestens 7 mm nötig.</translation>
    </message>
    <message>
        <source>%1 and %2 can be touched in the same place.</source>
        <translation>%1 und %2 lassen sich an derselben Stelle berühren.</translation>
    </message>
    <message>
        <source>%1 has no size.</source>
        <translation>%1 hat keine Größe.</translation>
    </message>
    <message>
        <source>%1 has the id %2 as %3 has.</source>
        <translation>%1 hat die Kennung %2, die auch %3 hat.</translation>
    </message>
    <message>
        <source>Two screens are called %1.</source>
        <translation>Zwei Seiten heißen %1.</translation>
    </message>
    <message>
        <source>The screens %1 and %2 are the same name in C; one gets a number.</source>
        <translation>Die Seiten %1 und %2 ergeben in C denselben Namen; eine bekommt eine Nummer.</translation>
    </message>
    <message>
        <source>The same image lies under several names: %1</source>
        <translation>Dasselbe Bild liegt unter mehreren Namen: %1</translation>
    </message>
    <message>
        <source>No item shows %1.</source>
        <translation>Kein Element zeigt %1.</translation>
    </message>
    <message>
        <source>Not drawn as designed</source>
        <translation>Nicht wie entworfen gezeichnet</translation>
    </message>
    <message>
        <source>Memory of the chip</source>
        <translation>Speicher des Chips</translation>
    </message>
    <message>
        <source>Not available on the chip</source>
        <translation>Auf dem Chip nicht vorhanden</translation>
    </message>
    <message>
        <source>Missing image</source>
        <translation>Fehlendes Bild</translation>
    </message>
    <message>
        <source>Outside the screen</source>
        <translation>Außerhalb der Seite</translation>
    </message>
    <message>
        <source>Without a size</source>
        <translation>Ohne Größe</translation>
    </message>
    <message>
        <source>Hidden by others</source>
        <translation>Von anderen verdeckt</translation>
    </message>
    <message>
        <source>Too small for a finger</source>
        <translation>Zu klein für einen Finger</translation>
    </message>
    <message>
        <source>Touch areas overlap</source>
        <translation>Berührungsflächen überlappen sich</translation>
    </message>
    <message>
        <source>Text does not fit</source>
        <translation>Text passt nicht</translation>
    </message>
    <message>
        <source>Text with little contrast</source>
        <translation>Text mit wenig Kontrast</translation>
    </message>
    <message>
        <source>Image scaled a lot</source>
        <translation>Stark skaliertes Bild</translation>
    </message>
    <message>
        <source>One image under two names</source>
        <translation>Ein Bild unter zwei Namen</translation>
    </message>
    <message>
        <source>Image that nothing shows</source>
        <translation>Bild, das nichts zeigt</translation>
    </message>
    <message>
        <source>Id used twice</source>
        <translation>Kennung doppelt vergeben</translation>
    </message>
    <message>
        <source>Name used twice</source>
        <translation>Name doppelt vergeben</translation>
    </message>
    <message>
        <source>Same name in C</source>
        <translation>Gleicher Name in C</translation>
    </message>
    <message>
        <source>Image file changed since</source>
        <translation>Bilddatei seither geändert</translation>
    </message>
    <message>
        <source>The image of %1 was made of %2, which has changed since.</source>
        <translation>Das Bild von %1 wurde aus %2 gemacht, das sich seither geändert hat.</translation>
    </message>
    <message>
        <source>Character that the font lacks</source>
        <translation>Zeichen, das der Schrift fehlt</translation>
    </message>
    <message>
        <source>The message says what could not be drawn; the widget named needs another value.</source>
        <translation>Die Meldung sagt, was nicht gezeichnet werden konnte; das genannte Element braucht einen anderen Wert.</translation>
    </message>
    <message>
        <source>Choose a font that has the character, or give the project&apos;s font a fallback that does.</source>
        <translation>Eine Schrift wählen, die das Zeichen hat, oder der Schrift des Projekts eine Ersatzschrift geben, die es hat.</translation>
    </message>
    <message>
        <source>Other formats for the largest images take less; the dock Budget shows them.</source>
        <translation>Andere Formate für die größten Bilder brauchen weniger; das Fenster Budget zeigt sie.</translation>
    </message>
    <message>
        <source>Choose another value, or another chip under Tools, Options.</source>
        <translation>Einen anderen Wert wählen, oder unter Werkzeuge, Optionen einen anderen Chip.</translation>
    </message>
    <message>
        <source>Choose the image anew, or put its file back into the folder of converted images.</source>
        <translation>Das Bild neu wählen, oder seine Datei in den Ordner der umgewandelten Bilder zurücklegen.</translation>
    </message>
    <message>
        <source>Convert it again, so that the device shows what the file shows.</source>
        <translation>Es neu umwandeln, damit das Gerät zeigt, was die Datei zeigt.</translation>
    </message>
    <message>
        <source>Move it onto the page, or delete it: outside it costs memory and is not seen.</source>
        <translation>Es auf die Seite schieben oder löschen: außerhalb kostet es Speicher und ist nicht zu sehen.</translation>
    </message>
    <message>
        <source>Give it a size, or delete it.</source>
        <translation>Ihm eine Größe geben oder es löschen.</translation>
    </message>
    <message>
        <source>Bring it to the front, or delete it: it is drawn and never seen.</source>
        <translation>Es nach vorn holen oder löschen: es wird gezeichnet und nie gesehen.</translation>
    </message>
    <message>
        <source>Make it larger. If the size is right, tell the dots per inch of the display.</source>
        <translation>Es größer machen. Ist die Größe richtig, die Punkte pro Zoll des Displays angeben.</translation>
    </message>
    <message>
        <source>Move them apart: a finger between them meets either.</source>
        <translation>Sie auseinanderrücken: ein Finger dazwischen trifft das eine oder das andere.</translation>
    </message>
    <message>
        <source>Make the box larger, the font smaller or the text shorter.</source>
        <translation>Den Kasten größer, die Schrift kleiner oder den Text kürzer machen.</translation>
    </message>
    <message>
        <source>Choose a lighter or darker colour for the text or for what is behind it.</source>
        <translation>Eine hellere oder dunklere Farbe für den Text oder das dahinter wählen.</translation>
    </message>
    <message>
        <source>Convert the image in the size in which it is shown.</source>
        <translation>Das Bild in der Größe umwandeln, in der es gezeigt wird.</translation>
    </message>
    <message>
        <source>Let all widgets show one of the files; the package holds it once in any case.</source>
        <translation>Alle Elemente eine der Dateien zeigen lassen; im Paket liegt sie ohnehin einmal.</translation>
    </message>
    <message>
        <source>Delete the file, or ignore it when it is for later.</source>
        <translation>Die Datei löschen, oder sie übergehen, wenn sie für später ist.</translation>
    </message>
    <message>
        <source>Give it a new id: ids tell widgets apart on the device.</source>
        <translation>Ihm eine neue Kennung geben: Kennungen unterscheiden Elemente auf dem Gerät.</translation>
    </message>
    <message>
        <source>Rename it, so that it can be told apart.</source>
        <translation>Es umbenennen, damit es zu unterscheiden ist.</translation>
    </message>
    <message>
        <source>Rename one: the firmware knows them by names in C.</source>
        <translation>Eines umbenennen: die Firmware kennt sie unter Namen in C.</translation>
    </message>
    <message>
        <source>The text of %1 goes beyond the edge of the page.</source>
        <translation>Der Text von %1 reicht über den Rand der Seite hinaus.</translation>
    </message>
</context>
<context>
    <name>SFormatTrial</name>
    <message>
        <source>%1 cannot be copied</source>
        <translation>%1 kann nicht kopiert werden</translation>
    </message>
    <message>
        <source>%1 cannot be started</source>
        <translation>%1 kann nicht gestartet werden</translation>
    </message>
    <message>
        <source>%1 was ended</source>
        <translation>%1 wurde beendet</translation>
    </message>
    <message>
        <source>%1 failed</source>
        <translation>%1 ist fehlgeschlagen</translation>
    </message>
    <message>
        <source>%1 cannot be read</source>
        <translation>%1 kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>there is no such format</source>
        <translation>dieses Format gibt es nicht</translation>
    </message>
    <message>
        <source>its size is another</source>
        <translation>seine Größe ist eine andere</translation>
    </message>
</context>
</TS>
