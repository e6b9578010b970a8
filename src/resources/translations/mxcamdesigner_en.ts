<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="de">
<context>
    <name>AddMotionPointCommand</name>
    <message>
        <source>Füge Bewegungspunkt [%1,%2] hinzu</source>
        <translation>Add motion point [%1,%2]</translation>
    </message>
    <message>
        <source>Master-Position schon vorhanden</source>
        <translation>Master position already taken</translation>
    </message>
    <message>
        <source>Es gibt schon einen Bewegungspunkt auf der Master-Position %1 schon vorhanden. Überschreiben nicht möglich.</source>
        <translation>There already is a motion point at the master position %1. It cannot be overwritten.</translation>
    </message>
</context>
<context>
    <name>CalculatedTableModel</name>
    <message>
        <source>Master-Position</source>
        <translation>Master position</translation>
    </message>
    <message>
        <source>Slave-Position</source>
        <translation>Slave position</translation>
    </message>
</context>
<context>
    <name>CamDataFile</name>
    <message>
        <source>ein Wahrheitswert (true oder false)</source>
        <translation>a boolean (true or false)</translation>
    </message>
    <message>
        <source>eine Zahl</source>
        <translation>a number</translation>
    </message>
    <message>
        <source>ein Text</source>
        <translation>a string</translation>
    </message>
    <message>
        <source>eine Liste</source>
        <translation>an array</translation>
    </message>
    <message>
        <source>ein Objekt</source>
        <translation>an object</translation>
    </message>
    <message>
        <source>Fehler im JSON-Text an Position %1: %2</source>
        <translation>Error in the JSON text at offset %1: %2</translation>
    </message>
    <message>
        <source>Das JSON-Dokument ist kein Objekt.</source>
        <translation>The JSON document is not an object.</translation>
    </message>
    <message>
        <source>Die Datei enthält kein binäres JSON-Objekt (Qt 5).</source>
        <translation>The file holds no binary JSON object (Qt 5).</translation>
    </message>
    <message>
        <source>Sie enthält JSON-Text; mit der Endung „.json“ lässt sie sich öffnen.</source>
        <translation>It holds JSON text; with the suffix “.json” it can be opened.</translation>
    </message>
    <message>
        <source>„%1“ hat den falschen Typ; erwartet wird %2.</source>
        <translation>“%1” has the wrong type; %2 is expected.</translation>
    </message>
    <message>
        <source>Die Datei „%1“ enthält keine gültigen Kurvendefinitionsdaten und wurde nicht geladen.
%2</source>
        <translation>The file “%1” holds no valid cam definition data and was not loaded.
%2</translation>
    </message>
</context>
<context>
    <name>CamDesignerButton</name>
    <message>
        <source>Kurveneditor ist geöffnet.</source>
        <translation>The cam editor is open.</translation>
    </message>
</context>
<context>
    <name>CamDesignerView</name>
    <message>
        <source>&amp;Kurve</source>
        <translation>&amp;Cam</translation>
    </message>
    <message>
        <source>&amp;Ansicht</source>
        <translation>&amp;View</translation>
    </message>
    <message>
        <source>&amp;Bearbeiten</source>
        <translation>&amp;Edit</translation>
    </message>
    <message>
        <source>Kurve</source>
        <translation>Cam</translation>
    </message>
    <message>
        <source>Bearbeiten</source>
        <translation>Edit</translation>
    </message>
    <message>
        <source>&amp;Kurvendefinitionsdaten exportieren</source>
        <translation>&amp;Export cam definition data</translation>
    </message>
    <message>
        <source>Kurvendefinitionsdaten in Datei speichern.</source>
        <translation>Saves the cam definition data to a file.</translation>
    </message>
    <message>
        <source>Ctrl+E</source>
        <translation>Ctrl+E</translation>
    </message>
    <message>
        <source>&amp;Stützstellentabelle aus Datei importieren</source>
        <translation>&amp;Import grid point table from file</translation>
    </message>
    <message>
        <source>Stützstellentabelle aus einer Datei importieren.</source>
        <translation>Imports a grid point table from a file.</translation>
    </message>
    <message>
        <source>Ctrl+Alt+I</source>
        <translation>Ctrl+Alt+I</translation>
    </message>
    <message>
        <source>Schreibt die berechneten Stützstellen in Parameter</source>
        <translation>Writes the calculated grid points into the parameters</translation>
    </message>
    <message>
        <source>Schreibt Stützstellen in Parameter</source>
        <translation>Writes grid points into the parameters</translation>
    </message>
    <message>
        <source>Ctrl+V</source>
        <translation>Ctrl+V</translation>
    </message>
    <message>
        <source>Entfernt Stützstellen aus Parametern (nur offline)</source>
        <translation>Removes the grid points from the parameters (offline only)</translation>
    </message>
    <message>
        <source>Entfernt Stützstellen </source>
        <translation>Removes grid points </translation>
    </message>
    <message>
        <source>Ctrl+Del</source>
        <translation>Ctrl+Del</translation>
    </message>
    <message>
        <source>&amp;Kurvendefinitionsdaten aus Projekt importieren</source>
        <translation>Import cam definition data from &amp;project</translation>
    </message>
    <message>
        <source>Kurvendefinitionsdaten aus anderem Antriebsregler importieren.</source>
        <translation>Imports cam definition data from another drive controller.</translation>
    </message>
    <message>
        <source>Alt+I</source>
        <translation>Alt+I</translation>
    </message>
    <message>
        <source>&amp;Kurvendefinitionsdaten aus Datei importieren</source>
        <translation>Import cam definition data from &amp;file</translation>
    </message>
    <message>
        <source>Kurvendefinitionsdaten aus Datei importieren.</source>
        <translation>Imports cam definition data from a file.</translation>
    </message>
    <message>
        <source>Ctrl+I</source>
        <translation>Ctrl+I</translation>
    </message>
    <message>
        <source>&amp;Schließen</source>
        <translation>&amp;Close</translation>
    </message>
    <message>
        <source>Schließt den Editor</source>
        <translation>Closes the editor</translation>
    </message>
    <message>
        <source>Zurücksetzen</source>
        <translation>Reset</translation>
    </message>
    <message>
        <source>&amp;Rückgängig</source>
        <translation>&amp;Undo</translation>
    </message>
    <message>
        <source>Ctrl+Z</source>
        <translation>Ctrl+Z</translation>
    </message>
    <message>
        <source>Rückgängig Übersicht</source>
        <translation>Undo history</translation>
    </message>
    <message>
        <source>Wiederholen</source>
        <translation>Redo</translation>
    </message>
    <message>
        <source>Ctrl+Y</source>
        <translation>Ctrl+Y</translation>
    </message>
    <message>
        <source>&amp;Bewegungsplan ein-/ausblenden</source>
        <translation>Show/hide &amp;motion plan</translation>
    </message>
    <message>
        <source>Shift+P</source>
        <translation>Shift+P</translation>
    </message>
    <message>
        <source>&amp;Geschwindigkeit ein-/ausblenden</source>
        <translation>Show/hide &amp;velocity</translation>
    </message>
    <message>
        <source>Shift+V</source>
        <translation>Shift+V</translation>
    </message>
    <message>
        <source>&amp;Beschleunigung ein-/ausblenden</source>
        <translation>Show/hide &amp;acceleration</translation>
    </message>
    <message>
        <source>Shift+A</source>
        <translation>Shift+A</translation>
    </message>
    <message>
        <source>&amp;Ruck ein-/ausblenden</source>
        <translation>Show/hide &amp;jerk</translation>
    </message>
</context>
<context>
    <name>CamDesignerViewImplementation</name>
    <message>
        <source>Kurvendefinitionsdaten</source>
        <translation>Cam definition data</translation>
    </message>
    <message>
        <source>Skalierung</source>
        <translation>Scaling</translation>
    </message>
    <message>
        <source>Stützstellen berechnet</source>
        <translation>Calculated grid points</translation>
    </message>
    <message>
        <source>Stützstellen Vergleich</source>
        <translation>Grid point comparison</translation>
    </message>
    <message>
        <source>Stützstellen Parameter</source>
        <translation>Grid point parameters</translation>
    </message>
    <message>
        <source>Kurvenscheibe</source>
        <translation>Cam</translation>
    </message>
    <message>
        <source>Kurvendefinitionsdaten öffnen</source>
        <translation>Open cam definition data</translation>
    </message>
    <message>
        <source>Kurvendefinitionsdaten nicht geladen</source>
        <translation>Cam definition data not loaded</translation>
    </message>
    <message>
        <source>Mx6-Kurvendefinitionsdaten (*.json *.dat)</source>
        <translation>Mx6 cam definition data (*.json *.dat)</translation>
    </message>
    <message>
        <source>Mx6-Bewegungspläne (*.json *.dat)</source>
        <translation>Mx6 motion plans (*.json *.dat)</translation>
    </message>
    <message>
        <source>Speichern der Datei Fehlgeschlagen. Datei eventuell schreibgeschützt.</source>
        <translation>Saving the file failed. The file may be write-protected.</translation>
    </message>
    <message>
        <source>Stützstellen löschen nicht möglich</source>
        <translation>Cannot delete the grid points</translation>
    </message>
    <message>
        <source>Beim Löschen der Stützstellen wird die Konfiguration geändert. Bitte gehen Sie Offline und versuchen Sie erneut zu löschen.</source>
        <translation>Deleting the grid points changes the configuration. Please go offline and try deleting again.</translation>
    </message>
    <message>
        <source>Stützstellen Parameter löschen.</source>
        <translation>Delete grid point parameters.</translation>
    </message>
    <message>
        <source>Wollen die alle gespeicherten Stützstellen löschen?</source>
        <translation>Do you want to delete all stored grid points?</translation>
    </message>
    <message>
        <source>Antriebsregler ist schreibgeschützt.</source>
        <translation>The drive controller is read-only.</translation>
    </message>
    <message>
        <source>Damit Stützpunkte berechnet werden können, fügen sie den Kurvendefinitionsdaten, mindestens zwei Bewegungspunkte hinzu.</source>
        <translation>To calculate grid points, add at least two motion points to the cam definition data.</translation>
    </message>
    <message>
        <source>Nachkommastellen wurden geändert</source>
        <translation>Decimal places changed</translation>
    </message>
    <message>
        <source>Die Nachkommastellen der Master/Slave-Position wurden geändert. Der Kurvenscheibeneditor muss geschlossen werden. Sobald die Parameteränderungen aktiv sind, können sie den Editor wieder öffnen.</source>
        <translation>The decimal places of the master/slave position have changed. The cam editor has to be closed. As soon as the parameter changes are active, you can open the editor again.</translation>
    </message>
    <message>
        <source>Kennwerte</source>
        <translation>Characteristics</translation>
    </message>
    <message>
        <source>Stützstellentabelle als Text exportieren</source>
        <translation>Export grid point table as text</translation>
    </message>
    <message>
        <source>Berechnete oder gespeicherte Stützstellen als Textdatei für andere Programme speichern.</source>
        <translation>Save the calculated or stored grid points as a text file for other programs.</translation>
    </message>
</context>
<context>
    <name>CamSettingsView</name>
    <message>
        <source>Zyklische Kurvenscheibe</source>
        <translation>Cyclic cam</translation>
    </message>
    <message>
        <source>Dynamisch</source>
        <translation>Dynamic</translation>
    </message>
    <message>
        <source>Statisch</source>
        <translation>Static</translation>
    </message>
    <message>
        <source> Punkte</source>
        <translation> points</translation>
    </message>
    <message>
        <source>Bewegungsgesetz:</source>
        <translation>Motion law:</translation>
    </message>
    <message>
        <source>Schrittweite:</source>
        <translation>Step size:</translation>
    </message>
    <message>
        <source>Anzahl Stützstellen:</source>
        <translation>Number of grid points:</translation>
    </message>
    <message>
        <source>Umlauflänge</source>
        <translation>Circular length</translation>
    </message>
    <message>
        <source>Statische Schrittweite</source>
        <translation>Static step size</translation>
    </message>
    <message>
        <source>Die Schrittweite ergibt mehr als %1 Stützstellen. Sie wird beim Berechnen auf %2 vergrößert.</source>
        <translation>The step size gives more than %1 grid points. The calculation enlarges it to %2.</translation>
    </message>
    <message>
        <source>Ungültige Umlauflänge</source>
        <translation>Invalid circular length</translation>
    </message>
    <message>
        <source>Die Umlauflänge muss größer als 0 sein.</source>
        <translation>The circular length must be greater than 0.</translation>
    </message>
    <message>
        <source>Ungültige Eingabe</source>
        <translation>Invalid input</translation>
    </message>
    <message>
        <source>&quot;%1&quot; ist keine gültige Schrittweite.</source>
        <translation>&quot;%1&quot; is not a valid step size.</translation>
    </message>
    <message>
        <source>Schrittweite zu klein</source>
        <translation>Step size too small</translation>
    </message>
    <message>
        <source>Die Schrittweite ist zu klein. Bitte wählen sie einen Wert größer %1</source>
        <translation>The step size is too small. Please choose a value greater than %1</translation>
    </message>
    <message>
        <source>Ungültige Anzahl Stützstellen</source>
        <translation>Invalid number of grid points</translation>
    </message>
    <message>
        <source>%1 Stützstellen sind nicht möglich. Die Anzahl Stützstellen muss zwischen %2 und %3 liegen.</source>
        <translation>%1 grid points are not possible. The number of grid points must lie between %2 and %3.</translation>
    </message>
    <message>
        <source>ergibt %1 Stützstellen</source>
        <translation>gives %1 grid points</translation>
    </message>
</context>
<context>
    <name>ChangeDynamicStepResolutionCommand</name>
    <message>
        <source>%1 Punkten</source>
        <translation>%1 points</translation>
    </message>
    <message>
        <source>Ändere Auflösung der dynamischen Schrittweite von %oldDynamicSteps% -&gt; %newDynamicSteps%</source>
        <translation>Change resolution of the dynamic step size from %oldDynamicSteps% -&gt; %newDynamicSteps%</translation>
    </message>
</context>
<context>
    <name>ChangeMotionLawCommand</name>
    <message>
        <source>Ändere Bewegungsgesetz von %MotionLawOld% -&gt; %MotionLawNew%</source>
        <translation>Change motion law from %MotionLawOld% -&gt; %MotionLawNew%</translation>
    </message>
</context>
<context>
    <name>ChangeSectionCommand</name>
    <message>
        <source>automatisch</source>
        <translation>automatic</translation>
    </message>
    <message>
        <source>Ändere Abschnittsgesetz [%MasterPos%] von %Old% -&gt; %New%</source>
        <translation>Change section law [%MasterPos%] from %Old% -&gt; %New%</translation>
    </message>
    <message>
        <source>Ändere Wendepunkt [%MasterPos%] von %Old% -&gt; %New%</source>
        <translation>Change inflection point [%MasterPos%] from %Old% -&gt; %New%</translation>
    </message>
    <message>
        <source>Ändere Geschwindigkeit [%MasterPos%] von %Old% -&gt; %New%</source>
        <translation>Change velocity [%MasterPos%] from %Old% -&gt; %New%</translation>
    </message>
</context>
<context>
    <name>ChangeStepModeCommand</name>
    <message>
        <source>Aktiviere dynamische Schrittweite</source>
        <translation>Activate dynamic step size</translation>
    </message>
    <message>
        <source>Aktiviere statische Schrittweite</source>
        <translation>Activate static step size</translation>
    </message>
</context>
<context>
    <name>ComparisonTableModel</name>
    <message>
        <source>Diese Stützstelle ist im Antriebsregler nicht gespeichert.</source>
        <translation>This grid point is not stored in the drive controller.</translation>
    </message>
    <message>
        <source>Diese Stützstelle wird nicht mehr berechnet.</source>
        <translation>This grid point is no longer calculated.</translation>
    </message>
    <message>
        <source>Berechnete und gespeicherte Stützstelle unterscheiden sich.</source>
        <translation>The calculated and the stored grid point differ.</translation>
    </message>
    <message>
        <source>Master
berechnet</source>
        <translation>Master
calculated</translation>
    </message>
    <message>
        <source>Slave
berechnet</source>
        <translation>Slave
calculated</translation>
    </message>
    <message>
        <source>Master
gespeichert</source>
        <translation>Master
stored</translation>
    </message>
    <message>
        <source>Slave
gespeichert</source>
        <translation>Slave
stored</translation>
    </message>
    <message>
        <source>Differenz
Master</source>
        <translation>Master
difference</translation>
    </message>
    <message>
        <source>Differenz
Slave</source>
        <translation>Slave
difference</translation>
    </message>
</context>
<context>
    <name>ComparisonView</name>
    <message>
        <source>Der Antriebsregler enthält genau die berechneten Stützstellen (%1).</source>
        <translation>The drive controller holds exactly the calculated grid points (%1).</translation>
    </message>
    <message>
        <source>Der Antriebsregler enthält andere Stützstellen als berechnet: %1 berechnet, %2 gespeichert, %3 Zeilen verschieden, die erste ist Zeile %4.</source>
        <translation>The drive controller holds other grid points than calculated: %1 calculated, %2 stored, %3 rows differ, the first is row %4.</translation>
    </message>
</context>
<context>
    <name>CurvePlot</name>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Geschwindigkeit</source>
        <translation>Velocity</translation>
    </message>
    <message>
        <source>Beschleunigung</source>
        <translation>Acceleration</translation>
    </message>
    <message>
        <source>Ruck</source>
        <translation>Jerk</translation>
    </message>
    <message>
        <source>s</source>
        <translation>s</translation>
    </message>
    <message>
        <source>v</source>
        <translation>v</translation>
    </message>
    <message>
        <source>a</source>
        <translation>a</translation>
    </message>
    <message>
        <source>j</source>
        <translation>j</translation>
    </message>
    <message>
        <source>gespeichert</source>
        <translation>stored</translation>
    </message>
    <message>
        <source>berechnet</source>
        <translation>calculated</translation>
    </message>
    <message>
        <source>Master</source>
        <translation>Master</translation>
    </message>
    <message>
        <source>Master: %1</source>
        <translation>Master: %1</translation>
    </message>
    <message>
        <source>Zeit</source>
        <translation>Time</translation>
    </message>
    <message>
        <source>Zeit: %1 s</source>
        <translation>Time: %1 s</translation>
    </message>
</context>
<context>
    <name>CurvePlotStack</name>
    <message>
        <source>Ganze Kurve anzeigen</source>
        <translation>Show whole curve</translation>
    </message>
    <message>
        <source>Exportieren …</source>
        <translation>Export …</translation>
    </message>
    <message>
        <source>Kurven exportieren</source>
        <translation>Export curves</translation>
    </message>
    <message>
        <source>Bilder (*.png *.svg *.pdf)</source>
        <translation>Images (*.png *.svg *.pdf)</translation>
    </message>
    <message>
        <source>Exportieren nicht möglich</source>
        <translation>Cannot export</translation>
    </message>
    <message>
        <source>Die Datei %1 konnte nicht geschrieben werden.</source>
        <translation>The file %1 could not be written.</translation>
    </message>
    <message>
        <source>Diesen Plot exportieren …</source>
        <translation>Export this plot …</translation>
    </message>
    <message>
        <source>Bewegungspunkt hier einfügen</source>
        <translation>Insert motion point here</translation>
    </message>
    <message>
        <source>Bewegungspunkt entfernen</source>
        <translation>Remove motion point</translation>
    </message>
    <message>
        <source>Bewegungspunkt eingefügt (%1); größte Positionsänderung der Kurve: %2 %3</source>
        <translation>Motion point inserted (%1); largest position change of the curve: %2 %3</translation>
    </message>
</context>
<context>
    <name>CurveReportView</name>
    <message>
        <source>unstetig</source>
        <translation>discontinuous</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Geschwindigkeit</source>
        <translation>Velocity</translation>
    </message>
    <message>
        <source>Beschleunigung</source>
        <translation>Acceleration</translation>
    </message>
    <message>
        <source>Ruck</source>
        <translation>Jerk</translation>
    </message>
    <message>
        <source>Abschnitte</source>
        <translation>Sections</translation>
    </message>
    <message>
        <source>Übergänge</source>
        <translation>Joints</translation>
    </message>
    <message>
        <source>Abtastung</source>
        <translation>Sampling</translation>
    </message>
    <message>
        <source>Für Kennwerte werden mindestens zwei Bewegungspunkte gebraucht.</source>
        <translation>Characteristics need at least two motion points.</translation>
    </message>
    <message>
        <source>Gröbste ausreichende Abtastung: wird nach dem Ziehen berechnet.</source>
        <translation>Coarsest sufficient sampling: computed after dragging.</translation>
    </message>
    <message>
        <source>Gröbste ausreichende Abtastung: wird berechnet …</source>
        <translation>Coarsest sufficient sampling: computing …</translation>
    </message>
    <message>
        <source>Größte statische Schrittweite unter der Auflösung %1: %2</source>
        <translation>Largest static step size within the resolution %1: %2</translation>
    </message>
    <message>
        <source>Keine statische Schrittweite hält die Auflösung %1 mit höchstens %2 Stützstellen ein.</source>
        <translation>No static step size keeps within the resolution %1 with at most %2 grid points.</translation>
    </message>
    <message>
        <source>Kleinste dynamische Auflösung unter der Auflösung %1: %2 Stützstellen</source>
        <translation>Smallest dynamic resolution within the resolution %1: %2 grid points</translation>
    </message>
    <message>
        <source>Auch %1 Stützstellen halten die Auflösung %2 nicht ein.</source>
        <translation>Even %1 grid points do not keep within the resolution %2.</translation>
    </message>
    <message>
        <source>von</source>
        <comment>column of the sections table: master position where the section starts</comment>
        <translation>from</translation>
    </message>
    <message>
        <source>bis</source>
        <comment>column of the sections table: master position where the section ends</comment>
        <translation>to</translation>
    </message>
    <message>
        <source>Hub</source>
        <translation>Stroke</translation>
    </message>
    <message>
        <source>v max</source>
        <translation>v max</translation>
    </message>
    <message>
        <source>a max</source>
        <translation>a max</translation>
    </message>
    <message>
        <source>j max</source>
        <translation>j max</translation>
    </message>
    <message>
        <source>Cv</source>
        <translation>Cv</translation>
    </message>
    <message>
        <source>Ca</source>
        <translation>Ca</translation>
    </message>
    <message>
        <source>Cj</source>
        <translation>Cj</translation>
    </message>
    <message>
        <source>Abtastfehler</source>
        <translation>Sampling error</translation>
    </message>
    <message>
        <source>Segmenttypen</source>
        <translation>Segment types</translation>
    </message>
    <message>
        <source>Master</source>
        <translation>Master</translation>
    </message>
    <message>
        <source>stetig bis</source>
        <translation>continuous up to</translation>
    </message>
    <message>
        <source>Sprung Position</source>
        <translation>Position jump</translation>
    </message>
    <message>
        <source>Sprung v</source>
        <translation>v jump</translation>
    </message>
    <message>
        <source>Sprung a</source>
        <translation>a jump</translation>
    </message>
    <message>
        <source>Sprung j</source>
        <translation>j jump</translation>
    </message>
    <message>
        <source>%1 (Nahtstelle)</source>
        <translation>%1 (seam)</translation>
    </message>
    <message>
        <source>Größter Abtastfehler: %1 bei %2 (%3 Stützstellen)</source>
        <translation>Largest sampling error: %1 at %2 (%3 grid points)</translation>
    </message>
    <message>
        <source>Abschnittsgesetz</source>
        <translation>Section law</translation>
    </message>
    <message>
        <source>%1 → %2 (nicht anwendbar)</source>
        <translation>%1 → %2 (not applicable)</translation>
    </message>
    <message>
        <source>%1
bei %2</source>
        <translation>%1
at %2</translation>
    </message>
    <message>
        <source>%1 –
%2</source>
        <translation>%1 –
%2</translation>
    </message>
</context>
<context>
    <name>CurveTextConverter</name>
    <message>
        <source>Master-Position %1 konnte nicht konvertiert werden.</source>
        <translation>Master position %1 could not be converted.</translation>
    </message>
    <message>
        <source>Slave-Position %1 konnte nicht konvertiert werden.</source>
        <translation>Slave position %1 could not be converted.</translation>
    </message>
    <message>
        <source>Übersprungene Zeilen ohne Wertepaar: %1; die erste ist Zeile %2: „%3“</source>
        <translation>Skipped lines without a value pair: %1; the first is line %2: “%3”</translation>
    </message>
</context>
<context>
    <name>CurveTextWriter</name>
    <message>
        <source>%1 Nachkommastellen können nicht geschrieben werden, möglich sind 0 bis %2.</source>
        <translation>%1 decimal places cannot be written; 0 to %2 are possible.</translation>
    </message>
    <message>
        <source>Unbekanntes Dezimalzeichen.</source>
        <translation>Unknown decimal separator.</translation>
    </message>
    <message>
        <source>Unbekanntes Trennzeichen.</source>
        <translation>Unknown separator.</translation>
    </message>
    <message>
        <source>Das Komma kann nicht zugleich Dezimalzeichen und Trennzeichen sein: beim Import ließen sich die Zahlen nicht eindeutig trennen. Bitte ein anderes Trennzeichen oder den Punkt als Dezimalzeichen wählen.</source>
        <translation>The comma cannot be both the decimal separator and the value separator: the import could not tell the numbers apart. Please choose another separator or the point as decimal separator.</translation>
    </message>
    <message>
        <source>Es gibt keine Stützstellen, die exportiert werden könnten.</source>
        <translation>There are no grid points to export.</translation>
    </message>
    <message>
        <source>Die Stützstelle %1 (Master %2, Slave %3) lässt sich nicht so schreiben, dass der Import sie wieder liest.</source>
        <translation>Grid point %1 (master %2, slave %3) cannot be written so that the import reads it back.</translation>
    </message>
    <message>
        <source>Die Datei %1 kann nicht geschrieben werden: %2</source>
        <translation>The file %1 cannot be written: %2</translation>
    </message>
</context>
<context>
    <name>EditMotionPointCommand</name>
    <message>
        <source>Ändere Bewegungspunkt [%MasterPosOld%;%SlavePosOld%,%MotionRuleOld%]) -&gt; [%MasterPosNew%;%SlavePosNew%;%MotionRuleNew%]</source>
        <translation>Change motion point [%MasterPosOld%;%SlavePosOld%,%MotionRuleOld%]) -&gt; [%MasterPosNew%;%SlavePosNew%;%MotionRuleNew%]</translation>
    </message>
</context>
<context>
    <name>ExternalCurveImportView</name>
    <message>
        <source>Stützstellentabelle aus Datei importieren</source>
        <translation>Import grid point table from file</translation>
    </message>
    <message>
        <source>Pfad:</source>
        <translation>Path:</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>Format</translation>
    </message>
    <message>
        <source>SERVOsoft</source>
        <translation>SERVOsoft</translation>
    </message>
    <message>
        <source>TwinCat2</source>
        <translation>TwinCat2</translation>
    </message>
    <message>
        <source>CodeSys</source>
        <translation>CodeSys</translation>
    </message>
    <message>
        <source>Freies Format</source>
        <translation>Free format</translation>
    </message>
    <message>
        <source>Trennzeichen</source>
        <translation>Separator</translation>
    </message>
    <message>
        <source>; (Semikolon)</source>
        <translation>; (semicolon)</translation>
    </message>
    <message>
        <source>, (Komma)</source>
        <translation>, (comma)</translation>
    </message>
    <message>
        <source>&lt;Leerzeichen&gt;</source>
        <translation>&lt;Space&gt;</translation>
    </message>
    <message>
        <source>&lt;TAB&gt;</source>
        <translation>&lt;TAB&gt;</translation>
    </message>
    <message>
        <source>Dezimalzeichen</source>
        <translation>Decimal separator</translation>
    </message>
    <message>
        <source>. (Punkt)</source>
        <translation>. (point)</translation>
    </message>
    <message>
        <source>Inhalt der Datei</source>
        <translation>File contents</translation>
    </message>
    <message>
        <source>Master Parameter</source>
        <translation>Master parameter</translation>
    </message>
    <message>
        <source>Master importiert</source>
        <translation>Master imported</translation>
    </message>
    <message>
        <source>Δ Master-Position</source>
        <translation>Δ master position</translation>
    </message>
    <message>
        <source>Slave Parameter</source>
        <translation>Slave parameter</translation>
    </message>
    <message>
        <source>Slave importiert</source>
        <translation>Slave imported</translation>
    </message>
    <message>
        <source>Δ Slave-Position</source>
        <translation>Δ slave position</translation>
    </message>
    <message>
        <source>Kein Parameterwert: die Stützstelle kommt mit dem Import hinzu.</source>
        <translation>No parameter value: the import adds this grid point.</translation>
    </message>
    <message>
        <source>Importierter Wert weicht vom Parameterwert ab: Δ Master %1, Δ Slave %2</source>
        <translation>The imported value differs from the parameter value: Δ master %1, Δ slave %2</translation>
    </message>
    <message>
        <source>Parameter</source>
        <translation>Parameters</translation>
    </message>
    <message>
        <source>Importierte Kurve</source>
        <translation>Imported curve</translation>
    </message>
    <message>
        <source>Stützstellendateien öffnen</source>
        <translation>Open grid point files</translation>
    </message>
    <message>
        <source>Stützstellendateien (*.txt *.csv)</source>
        <translation>Grid point files (*.txt *.csv)</translation>
    </message>
    <message>
        <source>Fehler beim Öffnen einer Kurvendatei</source>
        <translation>Error opening a curve file</translation>
    </message>
    <message>
        <source>Datei existiert nicht.</source>
        <translation>The file does not exist.</translation>
    </message>
    <message>
        <source>Datei kann nicht geöffnet werden, eventuell ist sie von einem anderen Programm geöffnet.</source>
        <translation>The file cannot be opened; another program may have it open.</translation>
    </message>
    <message>
        <source>Wertepaare: %1 gelesen, %2 aufgelistet.</source>
        <translation>Value pairs: %1 read, %2 listed.</translation>
    </message>
</context>
<context>
    <name>GridPointExportDialog</name>
    <message>
        <source>Stützstellentabelle als Text exportieren</source>
        <translation>Export grid point table as text</translation>
    </message>
    <message>
        <source>Stützstellen</source>
        <translation>Grid points</translation>
    </message>
    <message>
        <source>Berechnete Stützstellen</source>
        <translation>Calculated grid points</translation>
    </message>
    <message>
        <source>Im Antriebsregler gespeicherte Tabelle</source>
        <translation>Table stored in the drive controller</translation>
    </message>
    <message>
        <source>Format:</source>
        <translation>Format:</translation>
    </message>
    <message>
        <source>Freies Format</source>
        <translation>Free format</translation>
    </message>
    <message>
        <source>Dezimalzeichen</source>
        <translation>Decimal separator</translation>
    </message>
    <message>
        <source>. (Punkt)</source>
        <translation>. (point)</translation>
    </message>
    <message>
        <source>, (Komma)</source>
        <translation>, (comma)</translation>
    </message>
    <message>
        <source>Trennzeichen</source>
        <translation>Separator</translation>
    </message>
    <message>
        <source>; (Semikolon)</source>
        <translation>; (semicolon)</translation>
    </message>
    <message>
        <source>&lt;TAB&gt;</source>
        <translation>&lt;TAB&gt;</translation>
    </message>
    <message>
        <source>&lt;Leerzeichen&gt;</source>
        <translation>&lt;Space&gt;</translation>
    </message>
    <message>
        <source>Nachkommastellen:</source>
        <translation>Decimal places:</translation>
    </message>
    <message>
        <source>Datei:</source>
        <translation>File:</translation>
    </message>
    <message>
        <source>Berechnete Stützstellen (%1)</source>
        <translation>Calculated grid points (%1)</translation>
    </message>
    <message>
        <source>Im Antriebsregler gespeicherte Tabelle (%1)</source>
        <translation>Table stored in the drive controller (%1)</translation>
    </message>
    <message>
        <source>Master %1, Slave %2 (des Antriebsreglers)</source>
        <translation>Master %1, slave %2 (of the drive controller)</translation>
    </message>
    <message>
        <source>Exportieren</source>
        <translation>Export</translation>
    </message>
    <message>
        <source>Abbrechen</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Stützstellentabelle exportieren</source>
        <translation>Export grid point table</translation>
    </message>
    <message>
        <source>Stützstellendateien (*.txt *.csv)</source>
        <translation>Grid point files (*.txt *.csv)</translation>
    </message>
    <message>
        <source>Stützstellentabelle nicht exportiert</source>
        <translation>Grid point table not exported</translation>
    </message>
</context>
<context>
    <name>LoadNewMotionPlanCommand</name>
    <message>
        <source>Lade Kurvendefinitionsdaten : %newDescriptionName%</source>
        <translation>Load cam definition data: %newDescriptionName%</translation>
    </message>
</context>
<context>
    <name>MeasuringTool</name>
    <message>
        <source>Messen</source>
        <translation>Measure</translation>
    </message>
    <message>
        <source>Messen: zwei Cursor per Klick setzen, Esc beendet</source>
        <translation>Measure: place two cursors by clicking, Esc ends</translation>
    </message>
    <message>
        <source>Klicken Sie in einen Plot, um Cursor 1 zu setzen.</source>
        <translation>Click into a plot to place cursor 1.</translation>
    </message>
    <message>
        <source>Cursor 1</source>
        <translation>Cursor 1</translation>
    </message>
    <message>
        <source>Cursor 2</source>
        <translation>Cursor 2</translation>
    </message>
    <message>
        <source>Δ</source>
        <translation>Δ</translation>
    </message>
    <message>
        <source>Master</source>
        <translation>Master</translation>
    </message>
    <message>
        <source>Ein weiterer Klick setzt Cursor 2.</source>
        <translation>Another click places cursor 2.</translation>
    </message>
    <message>
        <source>Zeit</source>
        <translation>Time</translation>
    </message>
</context>
<context>
    <name>MotionLaw</name>
    <message>
        <source>Polynom fünften Grades</source>
        <translation>Fifth-degree polynomial</translation>
    </message>
    <message>
        <source>Kubischer Spline</source>
        <translation>Cubic spline</translation>
    </message>
    <message>
        <source>Kubischer Spline (periodisch)</source>
        <translation>Cubic spline (periodic)</translation>
    </message>
</context>
<context>
    <name>MotionPlanTreeEditor</name>
    <message>
        <source>Hinzufügen</source>
        <translation>Add</translation>
    </message>
    <message>
        <source>&amp;Punkt entfernen</source>
        <translation>&amp;Remove point</translation>
    </message>
    <message>
        <source>Kurve</source>
        <translation>Cam</translation>
    </message>
    <message>
        <source>Bewegungspunkte</source>
        <translation>Motion points</translation>
    </message>
    <message>
        <source>Ausgewählter Bewegungspunkt</source>
        <translation>Selected motion point</translation>
    </message>
    <message>
        <source>Einfügen</source>
        <translation>Paste</translation>
    </message>
</context>
<context>
    <name>MotionPoint</name>
    <message>
        <source>Rast</source>
        <translation>Dwell</translation>
    </message>
    <message>
        <source>Konstante Geschwindigkeit</source>
        <translation>Constant velocity</translation>
    </message>
    <message>
        <source>Umkehrpunkt</source>
        <translation>Reversal point</translation>
    </message>
    <message>
        <source>Beschleunigung</source>
        <translation>Acceleration</translation>
    </message>
    <message>
        <source>Polynom 5. Grades</source>
        <translation>Polynomial of degree 5</translation>
    </message>
    <message>
        <source>Polynom 7. Grades</source>
        <translation>Polynomial of degree 7</translation>
    </message>
    <message>
        <source>Zykloide</source>
        <translation>Cycloid</translation>
    </message>
    <message>
        <source>Modifizierter Sinus</source>
        <translation>Modified sine</translation>
    </message>
    <message>
        <source>Modifiziertes Beschleunigungstrapez</source>
        <translation>Modified trapezoid</translation>
    </message>
    <message>
        <source>Harmonisch</source>
        <translation>Harmonic</translation>
    </message>
    <message>
        <source>Gerade</source>
        <translation>Straight line</translation>
    </message>
</context>
<context>
    <name>MotionPointDragger</name>
    <message>
        <source>Bewegungspunkt nicht verschoben</source>
        <translation>Motion point not moved</translation>
    </message>
</context>
<context>
    <name>MotionPointEditing</name>
    <message>
        <source>Ungültige Eingabe</source>
        <translation>Invalid input</translation>
    </message>
    <message>
        <source>&quot;%1&quot; ist keine gültige Master-Position.</source>
        <translation>&quot;%1&quot; is not a valid master position.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; ist keine gültige Slave-Position.</source>
        <translation>&quot;%1&quot; is not a valid slave position.</translation>
    </message>
    <message>
        <source>Master-Position außerhalb der Grenzen</source>
        <translation>Master position out of limits</translation>
    </message>
    <message>
        <source>Slave-Position außerhalb der Grenzen</source>
        <translation>Slave position out of limits</translation>
    </message>
    <message>
        <source>Die Master-Position %1 liegt nicht unterhalb der Umlauflänge %2 der zyklischen Kurvenscheibe.</source>
        <translation>The master position %1 does not lie below the circular length %2 of the cyclic cam.</translation>
    </message>
    <message>
        <source>Master-Position außerhalb der Umlauflänge</source>
        <translation>Master position outside the circular length</translation>
    </message>
    <message>
        <source>Ungültige Umlauflänge</source>
        <translation>Invalid circular length</translation>
    </message>
    <message>
        <source>Die Umlauflänge %1 muss größer sein als die Master-Position %2 des letzten Bewegungspunkts.</source>
        <translation>The circular length %1 must be greater than the master position %2 of the last motion point.</translation>
    </message>
</context>
<context>
    <name>MotionPointPaste</name>
    <message>
        <source>Einfügen nicht möglich</source>
        <translation>Paste not possible</translation>
    </message>
    <message>
        <source>Der Text enthält keine Bewegungspunkte. Erwartet wird je Zeile eine Master- und eine Slave-Position, getrennt durch Tabulator oder Semikolon, optional der Segmenttyp.</source>
        <translation>The text holds no motion points. Expected per line: a master and a slave position, separated by a tab or a semicolon, optionally the segment type.</translation>
    </message>
    <message>
        <source>Füge %1 Bewegungspunkte ein</source>
        <translation>Paste %1 motion points</translation>
    </message>
    <message>
        <source>%1 auf einer schon belegten Master-Position</source>
        <translation>%1 on a master position already taken</translation>
    </message>
    <message>
        <source>%1 außerhalb der Grenzen des Antriebsreglers</source>
        <translation>%1 outside the drive controller&apos;s limits</translation>
    </message>
    <message>
        <source>%1 nicht lesbar</source>
        <translation>%1 unreadable</translation>
    </message>
    <message>
        <source>Nicht alle Bewegungspunkte eingefügt</source>
        <translation>Not all motion points pasted</translation>
    </message>
    <message>
        <source>%1 von %2 Zeilen wurden nicht eingefügt: %3.</source>
        <translation>%1 of %2 lines were not pasted: %3.</translation>
    </message>
    <message>
        <source>%1 nicht unterhalb der Umlauflänge</source>
        <translation>%1 not below the circular length</translation>
    </message>
</context>
<context>
    <name>MotionPointTableModel</name>
    <message>
        <source>Master-Position</source>
        <translation>Master position</translation>
    </message>
    <message>
        <source>Slave-Position</source>
        <translation>Slave position</translation>
    </message>
    <message>
        <source>Segmenttyp</source>
        <translation>Segment type</translation>
    </message>
    <message>
        <source>%1 (nicht anwendbar: %2)</source>
        <translation>%1 (not applicable: %2)</translation>
    </message>
    <message>
        <source>Das Gesetz verlangt Beschleunigung null an beiden Abschnittsgrenzen; der Abschnitt wird als Polynom 5. Grades berechnet.</source>
        <translation>The law needs zero acceleration at both ends of the section; the section is computed as a polynomial of degree 5.</translation>
    </message>
    <message>
        <source>automatisch</source>
        <translation>automatic</translation>
    </message>
    <message>
        <source>Ungültiger Wendepunkt</source>
        <translation>Invalid inflection point</translation>
    </message>
    <message>
        <source>Der Wendepunkt muss zwischen 0 und 1 liegen (ohne die Grenzen).</source>
        <translation>The inflection point must lie between 0 and 1 (exclusive).</translation>
    </message>
    <message>
        <source>Ungültige Geschwindigkeit</source>
        <translation>Invalid velocity</translation>
    </message>
    <message>
        <source>Die Geschwindigkeit muss eine Zahl sein; leer lassen für die automatische Wahl.</source>
        <translation>The velocity must be a number; leave it empty for the automatic choice.</translation>
    </message>
    <message>
        <source>Abschnittsgesetz</source>
        <translation>Section law</translation>
    </message>
    <message>
        <source>Wendepunkt</source>
        <translation>Inflection</translation>
    </message>
    <message>
        <source>Geschwindigkeit</source>
        <translation>Velocity</translation>
    </message>
</context>
<context>
    <name>ParameterModelImplementation</name>
    <message>
        <source>Der Wert %1 ist zu klein, das Minimum ist %2</source>
        <translation>The value %1 is too small, the minimum is %2</translation>
    </message>
    <message>
        <source>Der Wert %1 ist zu groß, das Maximum ist %2</source>
        <translation>The value %1 is too large, the maximum is %2</translation>
    </message>
    <message>
        <source>%1 ist zu groß max: %2</source>
        <translation>%1 is too large max: %2</translation>
    </message>
    <message>
        <source>%1 ist zu klein min: %2</source>
        <translation>%1 is too small min: %2</translation>
    </message>
    <message>
        <source>Parameter: %1 kann nicht geschrieben werden. Wert %2</source>
        <translation>Parameter: %1 cannot be written. Value %2</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt; Stützstellenwerte wurden nicht vom Kurvenscheibeneditor beschrieben.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt; The grid point values were not written by the cam editor.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Stützstellen Parameter: &lt;/p&gt;&lt;p&gt;	Anzahl: %SumParameter%&lt;/p&gt;&lt;p&gt;	Erstes Element:&lt;/p&gt;&lt;p&gt;		Master: %FirstMasterValue% &lt;/p&gt;&lt;p&gt;		Slave: %FirstSlaveValue%&lt;/p&gt;&lt;p&gt;	Letztes Element:&lt;/p&gt;&lt;p&gt;		Master: %LastMasterValue% &lt;/p&gt;&lt;p&gt;Slave: %LastSlaveValue%&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Grid point parameters: &lt;/p&gt;&lt;p&gt;	Count: %SumParameter%&lt;/p&gt;&lt;p&gt;	First element:&lt;/p&gt;&lt;p&gt;		Master: %FirstMasterValue% &lt;/p&gt;&lt;p&gt;		Slave: %FirstSlaveValue%&lt;/p&gt;&lt;p&gt;	Last element:&lt;/p&gt;&lt;p&gt;		Master: %LastMasterValue% &lt;/p&gt;&lt;p&gt;Slave: %LastSlaveValue%&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>Schreiben in Parameter nicht möglich</source>
        <translation>Cannot write to the parameters</translation>
    </message>
    <message>
        <source>Antriebsregler ist schreibgeschützt.</source>
        <translation>The drive controller is read-only.</translation>
    </message>
    <message>
        <source>Ändern des Parameters nicht möglich</source>
        <translation>Cannot change the parameter</translation>
    </message>
    <message>
        <source>Die Stützstellen-Arrays müssen vergrößert werden, dies benötigt ein Neustart der Konfiguration, bitte gehen sie offline und schreiben sie erneut.</source>
        <translation>The grid point arrays have to be enlarged, which needs a restart of the configuration. Please go offline and write again.</translation>
    </message>
    <message>
        <source>Die Stützstellentabelle ist leer; eine leere Tabelle wird nicht in den Antrieb geschrieben.</source>
        <translation>The grid point table is empty; an empty table is not written into the drive.</translation>
    </message>
    <message>
        <source>Die Stützstelle %1 hat keinen endlichen Wert (Master %2, Slave %3); die Tabelle wird nicht in den Antrieb geschrieben.</source>
        <translation>Grid point %1 has no finite value (master %2, slave %3); the table is not written into the drive.</translation>
    </message>
    <message>
        <source>Die Tabelle hat %1 Stützstellen, der Antrieb nimmt höchstens %2 Stützstellen auf.</source>
        <translation>The table has %1 grid points; the drive takes at most %2 grid points.</translation>
    </message>
    <message>
        <source>Das Stützstellen-Array der Kurvenscheibe %1 fehlt im Antrieb.</source>
        <translation>The drive has no grid point array for cam %1.</translation>
    </message>
    <message>
        <source>Das Stützstellen-Array %1 hat %2 Elemente, die Tabelle hat %3 Stützstellen. Die Tabelle wird nicht geschrieben.</source>
        <translation>The grid point array %1 has %2 elements, the table has %3 grid points. The table is not written.</translation>
    </message>
    <message>
        <source>Die Prüfsumme der Kurvenscheibe %1 (%2) hat kein Element für diese Tabelle, bitte gehen sie offline und schreiben sie erneut.</source>
        <translation>The checksum of cam %1 (%2) has no element for this table. Please go offline and write again.</translation>
    </message>
    <message>
        <source>Der Antrieb hat das Vergrößern des Stützstellen-Arrays %1 auf %2 Elemente abgelehnt. Die Tabelle wurde nicht geschrieben.</source>
        <translation>The drive refused to enlarge the grid point array %1 to %2 elements. The table was not written.</translation>
    </message>
    <message>
        <source>Parameter: %1 enthält nach dem Schreiben nicht den geschriebenen Wert. Die Stützstellen im Antrieb werden nicht als vom Kurvenscheibeneditor geschrieben gekennzeichnet.</source>
        <translation>Parameter: %1 does not hold the written value after writing. The grid points in the drive are not marked as written by the cam editor.</translation>
    </message>
    <message>
        <source>Parameter: %1 konnte nicht geschrieben werden, das Schreiben wurde abgebrochen. Die Stützstellen im Antrieb werden nicht als vom Kurvenscheibeneditor geschrieben gekennzeichnet.</source>
        <translation>Parameter: %1 could not be written; writing was stopped. The grid points in the drive are not marked as written by the cam editor.</translation>
    </message>
    <message>
        <source>Die Anzahl der Stützstellen ist %1, aber das Stützstellen-Array der Kurvenscheibe %2 fehlt.</source>
        <translation>The grid point count is %1, but the grid point array of cam %2 is missing.</translation>
    </message>
    <message>
        <source>Die Anzahl der Stützstellen ist %1, aber das Stützstellen-Array %2 hat nur %3 Elemente.</source>
        <translation>The grid point count is %1, but the grid point array %2 has only %3 elements.</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt; Die Stützstellentabelle ist beschädigt: %1&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt; The grid point table is damaged: %1&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
</context>
<context>
    <name>PointEditView</name>
    <message>
        <source>Entfernen</source>
        <translation>Remove</translation>
    </message>
    <message>
        <source>Segmenttyp:</source>
        <translation>Segment type:</translation>
    </message>
    <message>
        <source>Master-Position</source>
        <translation>Master position</translation>
    </message>
    <message>
        <source>Slave-Position</source>
        <translation>Slave position</translation>
    </message>
</context>
<context>
    <name>PositionLineEdit</name>
    <message>
        <source>Zahlen bitte mit Dezimalkomma oder Dezimalpunkt und ohne Tausendertrennzeichen eingeben, zum Beispiel 1234,5 oder 1234.5.</source>
        <translation>Please type numbers with a decimal comma or a decimal point and without thousands separators, for example 1234,5 or 1234.5.</translation>
    </message>
</context>
<context>
    <name>PreviewView</name>
    <message>
        <source>Kurvenscheibe %1</source>
        <translation>Cam %1</translation>
    </message>
    <message>
        <source>Kurveneditor ist geöffnet.</source>
        <translation>The cam editor is open.</translation>
    </message>
</context>
<context>
    <name>RemoveMotionPointCommand</name>
    <message>
        <source>Entferne Bewegungspunkt [%1,%2] hinzu</source>
        <translation>Remove motion point [%1,%2]</translation>
    </message>
</context>
<context>
    <name>SaveParameterProgress</name>
    <message>
        <source>Master-Positionen</source>
        <translation>Master positions</translation>
    </message>
    <message>
        <source>Slave-Positionen</source>
        <translation>Slave positions</translation>
    </message>
    <message>
        <source>Stützstellentabellen scheiben</source>
        <translation>Writing grid point tables</translation>
    </message>
</context>
<context>
    <name>Scaling</name>
    <message>
        <source>Master-Einheit</source>
        <translation>Master unit</translation>
    </message>
    <message>
        <source>Zykluszeit</source>
        <translation>Cycle time</translation>
    </message>
    <message>
        <source>Master-Slave</source>
        <translation>Master-slave</translation>
    </message>
    <message>
        <source>Upm-Abtrieb</source>
        <translation>Output rpm</translation>
    </message>
    <message>
        <source>Upm-Motor</source>
        <translation>Motor rpm</translation>
    </message>
    <message>
        <source>min</source>
        <translation>min</translation>
    </message>
    <message>
        <source>s</source>
        <translation>s</translation>
    </message>
    <message>
        <source>ms</source>
        <translation>ms</translation>
    </message>
    <message>
        <source>U</source>
        <comment>unit symbol: revolutions (Umdrehungen), as in U/min</comment>
        <translation>rev</translation>
    </message>
</context>
<context>
    <name>ScalingView</name>
    <message>
        <source>Master-Achse:</source>
        <translation>Master axis:</translation>
    </message>
    <message>
        <source>Zykluszeit [s]:</source>
        <translation>Cycle time [s]:</translation>
    </message>
    <message>
        <source>Geschwindigkeit:</source>
        <translation>Velocity:</translation>
    </message>
    <message>
        <source>Geschwindigkeit: %1
Beschleunigung: %2
Ruck: %3</source>
        <translation>Velocity: %1
Acceleration: %2
Jerk: %3</translation>
    </message>
    <message>
        <source>Master-Geschwindigkeit: %1 %2/s</source>
        <translation>Master velocity: %1 %2/s</translation>
    </message>
    <message>
        <source>Weg pro Umdrehung oder Getriebe des Antriebsreglers ungültig.</source>
        <translation>The drive controller&apos;s travel per revolution or gear is invalid.</translation>
    </message>
    <message>
        <source>Ungültige Zykluszeit</source>
        <translation>Invalid cycle time</translation>
    </message>
    <message>
        <source>&quot;%1&quot; ist keine gültige Zykluszeit. Bitte geben Sie eine Zeit in Sekunden größer als 0 ein.</source>
        <translation>&quot;%1&quot; is not a valid cycle time. Please enter a time in seconds greater than 0.</translation>
    </message>
</context>
<context>
    <name>SeamQuestion</name>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Geschwindigkeit</source>
        <translation>Velocity</translation>
    </message>
    <message>
        <source>Beschleunigung</source>
        <translation>Acceleration</translation>
    </message>
    <message>
        <source>Sprung an der Nahtstelle</source>
        <translation>Jump at the seam</translation>
    </message>
    <message>
        <source>%1 springt um %2</source>
        <translation>%1 jumps by %2</translation>
    </message>
    <message>
        <source>Die zyklische Kurvenscheibe ist an der Nahtstelle bei der Master-Position %1 nicht stetig: %2. Der Antrieb durchfährt diesen Sprung in jedem Zyklus. Trotzdem in die Parameter schreiben?</source>
        <translation>The cyclic cam is not continuous at the seam at master position %1: %2. The drive runs through this jump in every cycle. Write it into the parameters anyway?</translation>
    </message>
</context>
<context>
    <name>SectionWarnings</name>
    <message>
        <source>Position</source>
        <translation>position</translation>
    </message>
    <message>
        <source>Geschwindigkeit</source>
        <translation>velocity</translation>
    </message>
    <message>
        <source>Beschleunigung</source>
        <translation>acceleration</translation>
    </message>
    <message>
        <source>Die Nahtstelle bei %1 springt in der %2.</source>
        <translation>The seam at %1 jumps in %2.</translation>
    </message>
    <message>
        <source>Der Übergang bei %1 springt in der %2.</source>
        <translation>The joint at %1 jumps in %2.</translation>
    </message>
    <message>
        <source>Das Bewegungsgesetz „%1“ ist hier nicht anwendbar; berechnet mit „%2“.</source>
        <translation>The motion law &quot;%1&quot; does not apply here; calculated with &quot;%2&quot;.</translation>
    </message>
    <message>
        <source>Die Kurve verlässt hier die Grenzen des Antriebs: %1</source>
        <translation>The curve leaves the drive&apos;s limits here: %1</translation>
    </message>
</context>
<context>
    <name>SetCircularLengthCommand</name>
    <message>
        <source>Ändere Umlauflänge %oldCircularLength% -&gt; %newCircularLength%</source>
        <translation>Change circular length %oldCircularLength% -&gt; %newCircularLength%</translation>
    </message>
</context>
<context>
    <name>SetCyleTimeCommand</name>
    <message>
        <source>Ändere Zykluszeit von %1 zu %2</source>
        <translation>Change cycle time from %1 to %2</translation>
    </message>
</context>
<context>
    <name>SetIsCyclicCamCommand</name>
    <message>
        <source>Aktiviere zyklische Umlauflänge</source>
        <translation>Activate cyclic circular length</translation>
    </message>
    <message>
        <source>Deaktiviere zyklische Umlauflänge</source>
        <translation>Deactivate cyclic circular length</translation>
    </message>
</context>
<context>
    <name>SetMasterAxisScalingCommand</name>
    <message>
        <source>Ändere Master-Skala von %1 zu %2</source>
        <translation>Change master scale from %1 to %2</translation>
    </message>
</context>
<context>
    <name>SetStepsCommand</name>
    <message>
        <source>Ändere Schrittweite von %1 -&gt; %2</source>
        <translation>Change step size from %1 -&gt; %2</translation>
    </message>
</context>
<context>
    <name>SetVelocityScalingCommand</name>
    <message>
        <source>Ändere Geschwindigkeitsskala von %1 zu %2</source>
        <translation>Change velocity scale from %1 to %2</translation>
    </message>
</context>
<context>
    <name>TableClipboard</name>
    <message>
        <source>Kopieren</source>
        <translation>Copy</translation>
    </message>
</context>
</TS>
