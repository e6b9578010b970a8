<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="de">
<context>
    <name>CamTableCell</name>
    <message>
        <source>Kurvenscheibe %1 – %2</source>
        <translation>Cam table %1 – %2</translation>
    </message>
    <message>
        <source>Kurvenscheibe %1</source>
        <translation>Cam table %1</translation>
    </message>
    <message>
        <source>Stützstellen: %1</source>
        <translation>Grid points: %1</translation>
    </message>
    <message>
        <source>CRC: –</source>
        <translation>CRC: –</translation>
    </message>
    <message>
        <source>Weniger als zwei Stützstellen gespeichert.</source>
        <translation>Fewer than two grid points stored.</translation>
    </message>
    <message>
        <source>CRC: Kurvenscheibeneditor</source>
        <translation>CRC: cam editor</translation>
    </message>
    <message>
        <source>Die gespeicherten Stützstellen wurden vom Kurvenscheibeneditor geschrieben.</source>
        <translation>The stored grid points were written by the cam editor.</translation>
    </message>
    <message>
        <source>CRC: fremd</source>
        <translation>CRC: foreign</translation>
    </message>
    <message>
        <source>Die gespeicherten Stützstellen wurden nicht vom Kurvenscheibeneditor geschrieben.</source>
        <translation>The stored grid points were not written by the cam editor.</translation>
    </message>
</context>
<context>
    <name>DriveConfiguratorWindow</name>
    <message>
        <source>&amp;Datei</source>
        <translation>&amp;File</translation>
    </message>
    <message>
        <source>&amp;Neu</source>
        <translation>&amp;New</translation>
    </message>
    <message>
        <source>Ein neues Antriebsprojekt beginnen.</source>
        <translation>Start a new drive project.</translation>
    </message>
    <message>
        <source>Ö&amp;ffnen…</source>
        <translation>&amp;Open…</translation>
    </message>
    <message>
        <source>Ein Antriebsprojekt aus einer Datei öffnen.</source>
        <translation>Open a drive project from a file.</translation>
    </message>
    <message>
        <source>&amp;Speichern</source>
        <translation>&amp;Save</translation>
    </message>
    <message>
        <source>Das Antriebsprojekt speichern.</source>
        <translation>Save the drive project.</translation>
    </message>
    <message>
        <source>Speichern &amp;unter…</source>
        <translation>Save &amp;as…</translation>
    </message>
    <message>
        <source>Das Antriebsprojekt in eine andere Datei speichern.</source>
        <translation>Save the drive project to another file.</translation>
    </message>
    <message>
        <source>&amp;Beenden</source>
        <translation>&amp;Quit</translation>
    </message>
    <message>
        <source>&amp;Antrieb</source>
        <translation>&amp;Drive</translation>
    </message>
    <message>
        <source>Online</source>
        <translation>Online</translation>
    </message>
    <message>
        <source>Verbindung zum Antriebsregler: online können die Stützstellen-Arrays nicht vergrößert und nicht gelöscht werden.</source>
        <translation>Connection to the drive controller: online, the grid point arrays can be neither enlarged nor deleted.</translation>
    </message>
    <message>
        <source>Schreibgeschützt</source>
        <translation>Read-only</translation>
    </message>
    <message>
        <source>Der Antriebsregler nimmt keine Werte an.</source>
        <translation>The drive controller accepts no values.</translation>
    </message>
    <message>
        <source>Antrieb</source>
        <translation>Drive</translation>
    </message>
    <message>
        <source>&amp;Sprache</source>
        <translation>&amp;Language</translation>
    </message>
    <message>
        <source>%1[*] – Antriebskonfigurator</source>
        <translation>%1[*] – Drive Configurator</translation>
    </message>
    <message>
        <source>online</source>
        <translation>online</translation>
    </message>
    <message>
        <source>offline</source>
        <translation>offline</translation>
    </message>
    <message>
        <source>schreibgeschützt</source>
        <translation>read-only</translation>
    </message>
    <message>
        <source>beschreibbar</source>
        <translation>writable</translation>
    </message>
    <message>
        <source>Antriebsregler: %1, %2</source>
        <translation>Drive controller: %1, %2</translation>
    </message>
    <message>
        <source>Antriebsprojekt öffnen</source>
        <translation>Open drive project</translation>
    </message>
    <message>
        <source>Antriebsprojekte (*.mxdrive);;Alle Dateien (*)</source>
        <translation>Drive projects (*.mxdrive);;All files (*)</translation>
    </message>
    <message>
        <source>Projekt kann nicht geöffnet werden</source>
        <translation>Cannot open the project</translation>
    </message>
    <message>
        <source>Projekt kann nicht gespeichert werden</source>
        <translation>Cannot save the project</translation>
    </message>
    <message>
        <source>Antriebsprojekt speichern unter</source>
        <translation>Save drive project as</translation>
    </message>
    <message>
        <source>Antriebsprojekte (*.mxdrive)</source>
        <translation>Drive projects (*.mxdrive)</translation>
    </message>
    <message>
        <source>Ungespeicherte Änderungen</source>
        <translation>Unsaved changes</translation>
    </message>
    <message>
        <source>Das Antriebsprojekt „%1“ wurde geändert. Sollen die Änderungen gespeichert werden?</source>
        <translation>The drive project “%1” has been changed. Do you want to save the changes?</translation>
    </message>
</context>
<context>
    <name>DriveProject</name>
    <message>
        <source>Die Datei „%1“ kann nicht gelesen werden: %2</source>
        <translation>Cannot read the file “%1”: %2</translation>
    </message>
    <message>
        <source>Die Datei „%1“ ist kein Antriebsprojekt oder ist beschädigt.</source>
        <translation>The file “%1” is no drive project or is damaged.</translation>
    </message>
    <message>
        <source>Das Projekt kann nicht nach „%1“ gespeichert werden: %2</source>
        <translation>Cannot save the project to “%1”: %2</translation>
    </message>
    <message>
        <source>Unbenannt</source>
        <translation>Untitled</translation>
    </message>
</context>
<context>
    <name>ImportDescriptionDialog</name>
    <message>
        <source>&amp;Anderes Projekt…</source>
        <translation>&amp;Other project…</translation>
    </message>
    <message>
        <source>Kurvendefinitionsdaten aus Projekt importieren</source>
        <translation>Import cam definition data from a project</translation>
    </message>
    <message>
        <source>&amp;Laden</source>
        <translation>&amp;Load</translation>
    </message>
    <message>
        <source>Abbrechen</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Kurvendefinitionsdaten im Projekt „%1“:</source>
        <translation>Cam definition data in the project “%1”:</translation>
    </message>
    <message>
        <source>Kurvenscheibe %1: %2 Bewegungspunkte, %3, zyklisch</source>
        <translation>Cam table %1: %2 motion points, %3, cyclic</translation>
    </message>
    <message>
        <source>Kurvenscheibe %1: %2 Bewegungspunkte, %3</source>
        <translation>Cam table %1: %2 motion points, %3</translation>
    </message>
    <message>
        <source>Keine Kurvendefinitionsdaten vorhanden.</source>
        <translation>No cam definition data.</translation>
    </message>
    <message>
        <source>Antriebsprojekt wählen</source>
        <translation>Choose a drive project</translation>
    </message>
    <message>
        <source>Antriebsprojekte (*.mxdrive);;Alle Dateien (*)</source>
        <translation>Drive projects (*.mxdrive);;All files (*)</translation>
    </message>
    <message>
        <source>Projekt kann nicht gelesen werden</source>
        <translation>Cannot read the project</translation>
    </message>
    <message>
        <source>Kurvenscheibe %1 aus %2</source>
        <translation>Cam table %1 from %2</translation>
    </message>
</context>
</TS>
