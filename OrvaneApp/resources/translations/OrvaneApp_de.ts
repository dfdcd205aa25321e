<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>AboutDialog</name>
    <message>
        <source>About Orvane</source>
        <translation>Über Orvane</translation>
    </message>
    <message>
        <source>&lt;h3&gt;Orvane %1&lt;/h3&gt;&lt;p&gt;Charts of building-physics simulation results.&lt;/p&gt;&lt;p&gt;Qt %2 (built with %3), Qwt %4&lt;/p&gt;&lt;p&gt;Uses Qt under the GNU LGPL version 3 and Qwt under the Qwt License 1.0.&lt;/p&gt;&lt;p&gt;Log file: %5&lt;/p&gt;</source>
        <translation>&lt;h3&gt;Orvane %1&lt;/h3&gt;&lt;p&gt;Diagramme von Simulationsergebnissen der Bauphysik.&lt;/p&gt;&lt;p&gt;Qt %2 (erstellt mit %3), Qwt %4&lt;/p&gt;&lt;p&gt;Verwendet Qt unter der GNU LGPL Version 3 und Qwt unter der Qwt License 1.0.&lt;/p&gt;&lt;p&gt;Logdatei: %5&lt;/p&gt;</translation>
    </message>
</context>
<context>
    <name>BarAggregation</name>
    <message>
        <source>Month %1</source>
        <translation>Monat %1</translation>
    </message>
    <message>
        <source>Year %1</source>
        <translation>Jahr %1</translation>
    </message>
    <message>
        <source>Whole series</source>
        <translation>Gesamte Reihe</translation>
    </message>
    <message>
        <source>%1 (partial)</source>
        <translation>%1 (unvollständig)</translation>
    </message>
    <message>
        <source>month</source>
        <translation>Monat</translation>
    </message>
    <message>
        <source>year</source>
        <translation>Jahr</translation>
    </message>
    <message>
        <source>whole series</source>
        <translation>gesamte Reihe</translation>
    </message>
    <message>
        <source>mean</source>
        <translation>Mittelwert</translation>
    </message>
    <message>
        <source>sum</source>
        <translation>Summe</translation>
    </message>
    <message>
        <source>minimum</source>
        <translation>Minimum</translation>
    </message>
    <message>
        <source>maximum</source>
        <translation>Maximum</translation>
    </message>
    <message>
        <source>days above threshold</source>
        <translation>Tage über dem Schwellenwert</translation>
    </message>
</context>
<context>
    <name>ChartCreator</name>
    <message>
        <source>Cannot create chart</source>
        <translation>Diagramm kann nicht erstellt werden</translation>
    </message>
    <message>
        <source>Cannot add to chart</source>
        <translation>Zum Diagramm kann nicht hinzugefügt werden</translation>
    </message>
</context>
<context>
    <name>ChartStyleLibrary</name>
    <message>
        <source>Save chart style/format</source>
        <translation>Diagrammstil/-format speichern</translation>
    </message>
    <message>
        <source>Enter a description for the style (will be used as filename):</source>
        <translation>Geben Sie eine Beschreibung für den Stil ein (wird als Dateiname verwendet):</translation>
    </message>
    <message>
        <source>Style/Format name already exists. Overwrite?</source>
        <translation>Ein Stil/Format mit diesem Namen existiert bereits. Überschreiben?</translation>
    </message>
</context>
<context>
    <name>ChartTableView</name>
    <message>
        <source>Export data</source>
        <translation>Daten exportieren</translation>
    </message>
    <message>
        <source>CSV files (*.csv);;TSV files (*.tsv);;Text files (*.txt);;All files (*.*)</source>
        <translation>CSV-Dateien (*.csv);;TSV-Dateien (*.tsv);;Textdateien (*.txt);;Alle Dateien (*.*)</translation>
    </message>
    <message>
        <source>Copy selection</source>
        <translation>Auswahl kopieren</translation>
    </message>
    <message>
        <source>Copy all</source>
        <translation>Alles kopieren</translation>
    </message>
    <message>
        <source>Export data...</source>
        <translation>Daten exportieren...</translation>
    </message>
    <message>
        <source>Show chart</source>
        <translation>Diagramm anzeigen</translation>
    </message>
</context>
<context>
    <name>ChartView</name>
    <message>
        <source>Chart:</source>
        <translation>Diagramm:</translation>
    </message>
    <message>
        <source>(no chart)</source>
        <translation>(kein Diagramm)</translation>
    </message>
    <message>
        <source>#%1 %2</source>
        <translation>#%1 %2</translation>
    </message>
    <message>
        <source>The session contains no charts yet.</source>
        <translation>Die Sitzung enthält noch keine Diagramme.</translation>
    </message>
    <message>
        <source>No chart selected. Choose a chart from the list above.</source>
        <translation>Kein Diagramm ausgewählt. Wählen Sie ein Diagramm in der Liste oben.</translation>
    </message>
    <message>
        <source>Data table</source>
        <translation>Datentabelle</translation>
    </message>
    <message>
        <source>Switches between the chart and its data as a table (Ctrl+T)</source>
        <translation>Wechselt zwischen dem Diagramm und seinen Daten als Tabelle (Strg+T)</translation>
    </message>
</context>
<context>
    <name>ConvertDialog</name>
    <message>
        <source>x = %1 m, y = %2 m, z = %3 m</source>
        <translation>x = %1 m, y = %2 m, z = %3 m</translation>
    </message>
    <message>
        <source>Convert to Tecplot</source>
        <translation>Nach Tecplot konvertieren</translation>
    </message>
    <message>
        <source>Write slice</source>
        <translation>Schnitt schreiben</translation>
    </message>
    <message>
        <source>Output file:</source>
        <translation>Ausgabedatei:</translation>
    </message>
    <message>
        <source>First time point:</source>
        <translation>Erster Zeitpunkt:</translation>
    </message>
    <message>
        <source>Last time point:</source>
        <translation>Letzter Zeitpunkt:</translation>
    </message>
    <message>
        <source>History at the side</source>
        <translation>Verlauf an der Seite</translation>
    </message>
    <message>
        <source>History at the element</source>
        <translation>Verlauf am Element</translation>
    </message>
    <message>
        <source>Profile at one time point</source>
        <translation>Profil zu einem Zeitpunkt</translation>
    </message>
    <message>
        <source>Profile over all time points</source>
        <translation>Profil über alle Zeitpunkte</translation>
    </message>
    <message>
        <source>Slice:</source>
        <translation>Schnitt:</translation>
    </message>
    <message>
        <source>Side:</source>
        <translation>Seite:</translation>
    </message>
    <message>
        <source>Element:</source>
        <translation>Element:</translation>
    </message>
    <message>
        <source>Direction:</source>
        <translation>Richtung:</translation>
    </message>
    <message>
        <source>Time point:</source>
        <translation>Zeitpunkt:</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>Durchsuchen...</translation>
    </message>
    <message>
        <source>Target file:</source>
        <translation>Zieldatei:</translation>
    </message>
    <message>
        <source>Wrote &apos;%1&apos;.</source>
        <translation>&apos;%1&apos; geschrieben.</translation>
    </message>
    <message>
        <source>%1: t = %2 %3</source>
        <translation>%1: t = %2 %3</translation>
    </message>
    <message>
        <source>not in this output</source>
        <translation>nicht in dieser Ausgabe</translation>
    </message>
    <message>
        <source>Tecplot data files (*.dat);;All files (*)</source>
        <translation>Tecplot-Datendateien (*.dat);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Target file</source>
        <translation>Zieldatei</translation>
    </message>
</context>
<context>
    <name>DataManagerPanel</name>
    <message>
        <source>Filter by file name or quantity</source>
        <translation>Nach Dateiname oder Messgröße filtern</translation>
    </message>
    <message>
        <source>Convert to Tecplot...</source>
        <translation>Nach Tecplot konvertieren...</translation>
    </message>
    <message>
        <source>Write slice...</source>
        <translation>Schnitt schreiben...</translation>
    </message>
    <message>
        <source>Convert</source>
        <translation>Konvertieren</translation>
    </message>
</context>
<context>
    <name>DirectoryTreeView</name>
    <message>
        <source>Add directory...</source>
        <translation>Verzeichnis hinzufügen...</translation>
    </message>
    <message>
        <source>Remove directory</source>
        <translation>Verzeichnis entfernen</translation>
    </message>
    <message>
        <source>Set colour...</source>
        <translation>Farbe festlegen...</translation>
    </message>
    <message>
        <source>Use colours</source>
        <translation>Farben verwenden</translation>
    </message>
    <message>
        <source>Select directory with result files</source>
        <translation>Verzeichnis mit Ergebnisdateien auswählen</translation>
    </message>
    <message>
        <source>Remove the directory &apos;%1&apos; from the session?</source>
        <translation>Das Verzeichnis &apos;%1&apos; aus der Sitzung entfernen?</translation>
    </message>
    <message>
        <source>Drop a folder of result files here, or choose &quot;%1&quot; in the Session menu or the context menu.</source>
        <translation>Ziehen Sie einen Ordner mit Ergebnisdateien hierher oder wählen Sie &quot;%1&quot; im Menü Sitzung oder im Kontextmenü.</translation>
    </message>
</context>
<context>
    <name>DoNotShowAgainMessage</name>
    <message>
        <source>Do not show this again</source>
        <translation>Nicht mehr anzeigen</translation>
    </message>
</context>
<context>
    <name>DroppedFileOpener</name>
    <message>
        <source>Cannot open dropped file</source>
        <translation>Abgelegte Datei kann nicht geöffnet werden</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is not a local file or folder; nothing was opened.</source>
        <translation>&apos;%1&apos; ist keine lokale Datei und kein lokaler Ordner; es wurde nichts geöffnet.</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is neither a session file (*.o2), a result file (%2) nor a folder; nothing was opened.</source>
        <translation>&apos;%1&apos; ist weder eine Sitzungsdatei (*.o2) noch eine Ergebnisdatei (%2) noch ein Ordner; es wurde nichts geöffnet.</translation>
    </message>
</context>
<context>
    <name>MainView</name>
    <message>
        <source>New session</source>
        <translation>Neue Sitzung</translation>
    </message>
    <message>
        <source>Load session...</source>
        <translation>Sitzung laden...</translation>
    </message>
    <message>
        <source>Save session</source>
        <translation>Sitzung speichern</translation>
    </message>
    <message>
        <source>Save session as...</source>
        <translation>Sitzung speichern unter...</translation>
    </message>
    <message>
        <source>Use another result folder...</source>
        <translation>Anderen Ergebnisordner verwenden...</translation>
    </message>
    <message>
        <source>Horizontal split</source>
        <translation>Horizontal teilen</translation>
    </message>
    <message>
        <source>Vertical split</source>
        <translation>Vertikal teilen</translation>
    </message>
    <message>
        <source>Unify</source>
        <translation>Zusammenführen</translation>
    </message>
    <message>
        <source>Unify all</source>
        <translation>Alle zusammenführen</translation>
    </message>
    <message>
        <source>Jump to next window</source>
        <translation>Zum nächsten Fenster springen</translation>
    </message>
    <message>
        <source>Refresh charts/data</source>
        <translation>Diagramme/Daten aktualisieren</translation>
    </message>
    <message>
        <source>Export current chart...</source>
        <translation>Aktuelles Diagramm exportieren...</translation>
    </message>
    <message>
        <source>Auto-refresh charts/data</source>
        <translation>Diagramme/Daten automatisch aktualisieren</translation>
    </message>
    <message>
        <source>Recent Sessions</source>
        <translation>Zuletzt verwendete Sitzungen</translation>
    </message>
    <message>
        <source>File not found</source>
        <translation>Datei nicht gefunden</translation>
    </message>
    <message>
        <source>Session file &apos;%1&apos; cannot be accessed or does not exist.</source>
        <translation>Auf die Sitzungsdatei &apos;%1&apos; kann nicht zugegriffen werden oder sie existiert nicht.</translation>
    </message>
    <message>
        <source>Select Orvane session file</source>
        <translation>Orvane-Sitzungsdatei auswählen</translation>
    </message>
    <message>
        <source>Orvane session files (*.o2);;All files (*.*)</source>
        <translation>Orvane-Sitzungsdateien (*.o2);;Alle Dateien (*.*)</translation>
    </message>
    <message>
        <source>Export chart</source>
        <translation>Diagramm exportieren</translation>
    </message>
    <message>
        <source>The current view shows no chart that could be exported.</source>
        <translation>Die aktuelle Ansicht zeigt kein Diagramm, das exportiert werden könnte.</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederherstellen</translation>
    </message>
    <message>
        <source>Undo: %1</source>
        <translation>Rückgängig: %1</translation>
    </message>
    <message>
        <source>Redo: %1</source>
        <translation>Wiederherstellen: %1</translation>
    </message>
    <message>
        <source>Save current chart style/format...</source>
        <translation>Stil/Format des aktuellen Diagramms speichern...</translation>
    </message>
    <message>
        <source>Apply saved chart style/format</source>
        <translation>Gespeicherten Diagrammstil/-format anwenden</translation>
    </message>
    <message>
        <source>Save chart style/format</source>
        <translation>Diagrammstil/-format speichern</translation>
    </message>
    <message>
        <source>The current view shows no chart.</source>
        <translation>Die aktuelle Ansicht zeigt kein Diagramm.</translation>
    </message>
    <message>
        <source>(no saved styles)</source>
        <translation>(keine gespeicherten Stile)</translation>
    </message>
    <message>
        <source>Apply chart style/format</source>
        <translation>Diagrammstil/-format anwenden</translation>
    </message>
    <message>
        <source>Apply style/format: &apos;%1</source>
        <translation>Stil/Format anwenden: &apos;%1</translation>
    </message>
    <message>
        <source>Axis properties...</source>
        <translation>Eigenschaften der Achse...</translation>
    </message>
    <message>
        <source>Series properties...</source>
        <translation>Eigenschaften der Datenreihe...</translation>
    </message>
    <message>
        <source>Colour map properties...</source>
        <translation>Eigenschaften der Farbskala...</translation>
    </message>
    <message>
        <source>Legend properties...</source>
        <translation>Eigenschaften der Legende...</translation>
    </message>
    <message>
        <source>Chart properties...</source>
        <translation>Eigenschaften des Diagramms...</translation>
    </message>
    <message>
        <source>Reset zoom</source>
        <translation>Zoom zurücksetzen</translation>
    </message>
    <message>
        <source>Edit session file in text editor</source>
        <translation>Sitzungsdatei im Texteditor bearbeiten</translation>
    </message>
    <message>
        <source>Show logfile...</source>
        <translation>Logdatei anzeigen...</translation>
    </message>
    <message>
        <source>Full screen mode</source>
        <translation>Vollbildmodus</translation>
    </message>
    <message>
        <source>Copy current chart to clipboard (bitmap)</source>
        <translation>Aktuelles Diagramm in die Zwischenablage kopieren (Bitmap)</translation>
    </message>
    <message>
        <source>Copy current chart to clipboard (emf)</source>
        <translation>Aktuelles Diagramm in die Zwischenablage kopieren (EMF)</translation>
    </message>
    <message>
        <source>Edit session file</source>
        <translation>Sitzungsdatei bearbeiten</translation>
    </message>
    <message>
        <source>The session has not been saved to a file yet. Save it first, then edit its file.</source>
        <translation>Die Sitzung wurde noch nicht in einer Datei gespeichert. Speichern Sie sie zuerst, dann bearbeiten Sie ihre Datei.</translation>
    </message>
    <message>
        <source>No text editor is set. Choose one in the preferences.</source>
        <translation>Es ist kein Texteditor eingestellt. Wählen Sie einen in den Einstellungen.</translation>
    </message>
    <message>
        <source>The text editor &apos;%1&apos; cannot be found. Choose one in the preferences.</source>
        <translation>Der Texteditor &apos;%1&apos; wurde nicht gefunden. Wählen Sie einen in den Einstellungen.</translation>
    </message>
    <message>
        <source>The session file is open in the text editor. Once you have saved it there and come back to Orvane, you are asked whether to reload the changed session.</source>
        <translation>Die Sitzungsdatei ist im Texteditor geöffnet. Wenn Sie sie dort gespeichert haben und zu Orvane zurückkehren, werden Sie gefragt, ob die geänderte Sitzung neu geladen werden soll.</translation>
    </message>
    <message>
        <source>Copy chart</source>
        <translation>Diagramm kopieren</translation>
    </message>
    <message>
        <source>The current view shows no chart that could be copied.</source>
        <translation>Die aktuelle Ansicht zeigt kein Diagramm, das kopiert werden könnte.</translation>
    </message>
    <message>
        <source>Show data table</source>
        <translation>Datentabelle anzeigen</translation>
    </message>
</context>
<context>
    <name>ManipulatorOptions</name>
    <message>
        <source>Invalid parameter for manipulator.</source>
        <translation>Ungültiger Parameter für den Manipulator.</translation>
    </message>
    <message>
        <source>Difference between value and first value</source>
        <translation>Differenz zwischen Wert und erstem Wert</translation>
    </message>
    <message>
        <source>Scale by factor</source>
        <translation>Mit Faktor skalieren</translation>
    </message>
    <message>
        <source>Add offset (value shift)</source>
        <translation>Offset addieren (Wertverschiebung)</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keiner</translation>
    </message>
    <message>
        <source>Factor:</source>
        <translation>Faktor:</translation>
    </message>
    <message>
        <source>Offset:</source>
        <translation>Offset:</translation>
    </message>
</context>
<context>
    <name>MapperTreeView</name>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>Duplizieren</translation>
    </message>
</context>
<context>
    <name>ModelOptions</name>
    <message>
        <source>None</source>
        <translation>Keines</translation>
    </message>
</context>
<context>
    <name>OVADebugApplication</name>
    <message>
        <source>Orvane 2 encountered an unexpected error (we certainly didn&apos;t want this error to happen :-). Please copy the content of the application log file and send the last lines with any potential error messages to the developers. Thanks!</source>
        <translation>In Orvane 2 ist ein unerwarteter Fehler aufgetreten (dieser Fehler hätte natürlich nicht passieren sollen :-). Bitte kopieren Sie den Inhalt der Protokolldatei des Programms und senden Sie die letzten Zeilen mit eventuellen Fehlermeldungen an die Entwickler. Vielen Dank!</translation>
    </message>
    <message>
        <source>Orvane version %1, log file: %2</source>
        <translation>Orvane Version %1, Logdatei: %2</translation>
    </message>
</context>
<context>
    <name>OVAMainWindow</name>
    <message>
        <source>&amp;Session</source>
        <translation>&amp;Sitzung</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Chart</source>
        <translation>&amp;Diagramm</translation>
    </message>
    <message>
        <source>Reload project file</source>
        <translation>Projektdatei neu laden</translation>
    </message>
    <message>
        <source>The project file has been modified by an external application. When reloading this project file all unsaved changes will be lost. Reload modified project file?</source>
        <translation>Die Projektdatei wurde von einem anderen Programm geändert. Beim erneuten Laden der Projektdatei gehen alle ungespeicherten Änderungen verloren. Geänderte Projektdatei neu laden?</translation>
    </message>
    <message>
        <source>Session</source>
        <translation>Sitzung</translation>
    </message>
    <message>
        <source>Session panel</source>
        <translation>Sitzungsbereich</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>Eigenschaften</translation>
    </message>
    <message>
        <source>Property panel</source>
        <translation>Eigenschaftenbereich</translation>
    </message>
    <message>
        <source>Preferences...</source>
        <translation>Einstellungen...</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Check for updates...</source>
        <translation>Nach Updates suchen...</translation>
    </message>
    <message>
        <source>About Orvane...</source>
        <translation>Über Orvane...</translation>
    </message>
    <message>
        <source>Log</source>
        <translation>Log</translation>
    </message>
    <message>
        <source>Log panel</source>
        <translation>Log-Fenster</translation>
    </message>
    <message>
        <source>Auto-refresh on</source>
        <translation>Automatisch aktualisieren: an</translation>
    </message>
    <message>
        <source>Auto-refresh off</source>
        <translation>Automatisch aktualisieren: aus</translation>
    </message>
</context>
<context>
    <name>OVP::BarAggregationPage</name>
    <message>
        <source>Aggregation</source>
        <translation>Zusammenfassung</translation>
    </message>
    <message>
        <source>period</source>
        <translation>Zeitraum</translation>
    </message>
    <message>
        <source>statistic</source>
        <translation>Kennwert</translation>
    </message>
    <message>
        <source>A sum keeps the unit of the values; counted days are in days.</source>
        <translation>Eine Summe behält die Einheit der Werte; gezählte Tage sind in Tagen.</translation>
    </message>
    <message>
        <source>threshold</source>
        <translation>Schwellenwert</translation>
    </message>
    <message>
        <source>Bars</source>
        <translation>Balken</translation>
    </message>
    <message>
        <source>threshold [%1]</source>
        <translation>Schwellenwert [%1]</translation>
    </message>
</context>
<context>
    <name>OVP::ChartPropertyPage</name>
    <message>
        <source>Chart</source>
        <translation>Diagramm</translation>
    </message>
    <message>
        <source>Colour grid</source>
        <translation>Farbraster</translation>
    </message>
    <message>
        <source>Vector field</source>
        <translation>Vektorfeld</translation>
    </message>
    <message>
        <source>Series &apos;%1&apos;</source>
        <translation>Datenreihe &apos;%1&apos;</translation>
    </message>
    <message>
        <source>The chart does not take this value for &apos;%1&apos;; the log says why.</source>
        <translation>Das Diagramm übernimmt diesen Wert für &apos;%1&apos; nicht; der Grund steht im Protokoll.</translation>
    </message>
    <message>
        <source>Shown range</source>
        <translation>Angezeigter Bereich</translation>
    </message>
    <message>
        <source>shown minimum</source>
        <translation>angezeigtes Minimum</translation>
    </message>
    <message>
        <source>shown maximum</source>
        <translation>angezeigtes Maximum</translation>
    </message>
    <message>
        <source>The range shown now, after zooming and panning.</source>
        <translation>Der jetzt angezeigte Bereich, nach Zoomen und Verschieben.</translation>
    </message>
    <message>
        <source>An axis of a line chart is shown while a series uses it.</source>
        <translation>Eine Achse eines Liniendiagramms wird angezeigt, solange eine Datenreihe sie nutzt.</translation>
    </message>
    <message>
        <source>The %1 must be less than the %2 (%3).</source>
        <translation>&apos;%1&apos; muss kleiner als &apos;%2&apos; sein (%3).</translation>
    </message>
    <message>
        <source>The %1 must be greater than the %2 (%3).</source>
        <translation>&apos;%1&apos; muss größer als &apos;%2&apos; sein (%3).</translation>
    </message>
</context>
<context>
    <name>OVP::ColorMapType</name>
    <message>
        <source>Colour map</source>
        <translation>Farbskala</translation>
    </message>
    <message>
        <source>fading %1</source>
        <translation>Verlauf nach %1</translation>
    </message>
    <message numerus="yes">
        <source>%n colours</source>
        <translation>
            <numerusform>%n Farbe</numerusform>
            <numerusform>%n Farben</numerusform>
        </translation>
    </message>
    <message>
        <source>Choose a colour map.</source>
        <translation>Wählen Sie eine Farbskala.</translation>
    </message>
    <message>
        <source>A colour map needs at least two colours.</source>
        <translation>Eine Farbskala braucht mindestens zwei Farben.</translation>
    </message>
</context>
<context>
    <name>OVP::DataFolderDialog</name>
    <message>
        <source>&amp;Folder of the data:</source>
        <translation>&amp;Ordner der Daten:</translation>
    </message>
</context>
<context>
    <name>OVP::DataManagerTableModel</name>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Quantity</source>
        <translation>Messgröße</translation>
    </message>
    <message>
        <source>Value unit</source>
        <translation>Werteinheit</translation>
    </message>
    <message>
        <source>Time unit</source>
        <translation>Zeiteinheit</translation>
    </message>
    <message>
        <source>Last changed</source>
        <translation>Zuletzt geändert</translation>
    </message>
    <message>
        <source>File size</source>
        <translation>Dateigröße</translation>
    </message>
    <message>
        <source>Path</source>
        <translation>Pfad</translation>
    </message>
</context>
<context>
    <name>OVP::DataSetOptions</name>
    <message>
        <source>No data set is checked: check at least one.</source>
        <translation>Kein Datensatz ist angehakt: Haken Sie mindestens einen an.</translation>
    </message>
</context>
<context>
    <name>OVP::DataSetOptionsWidget</name>
    <message>
        <source>Create chart</source>
        <translation>Diagramm erstellen</translation>
    </message>
    <message>
        <source>Add to current chart</source>
        <translation>Zum aktuellen Diagramm hinzufügen</translation>
    </message>
    <message>
        <source>Model</source>
        <translation>Modell</translation>
    </message>
    <message>
        <source>Manipulator</source>
        <translation>Manipulator</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Schnitt</translation>
    </message>
    <message>
        <source>follow last time point</source>
        <translation>letztem Zeitpunkt folgen</translation>
    </message>
    <message>
        <source>Select data sets in the table to see their options.</source>
        <translation>Wählen Sie Datensätze in der Tabelle aus, um ihre Optionen zu sehen.</translation>
    </message>
    <message>
        <source>any</source>
        <translation>beliebig</translation>
    </message>
    <message>
        <source>any number</source>
        <translation>beliebige Zahl</translation>
    </message>
    <message>
        <source>from %1 to %2</source>
        <translation>von %1 bis %2</translation>
    </message>
    <message>
        <source>%1, default %2, valid %3</source>
        <translation>%1, Standard %2, gültig %3</translation>
    </message>
    <message>
        <source>%1 index:</source>
        <translation>%1-Index:</translation>
    </message>
    <message>
        <source>no values yet</source>
        <translation>noch keine Werte</translation>
    </message>
    <message>
        <source>Data sets</source>
        <translation>Datensätze</translation>
    </message>
    <message>
        <source>Chart</source>
        <translation>Diagramm</translation>
    </message>
    <message>
        <source>Line chart</source>
        <translation>Liniendiagramm</translation>
    </message>
    <message>
        <source>Bar chart</source>
        <translation>Balkendiagramm</translation>
    </message>
    <message>
        <source>Days count when their daily mean lies above the threshold, given in the unit of the (first) data set.</source>
        <translation>Tage zählen, wenn ihr Tagesmittel über dem Schwellenwert liegt, angegeben in der Einheit des (ersten) Datensatzes.</translation>
    </message>
    <message>
        <source>Period:</source>
        <translation>Zeitraum:</translation>
    </message>
    <message>
        <source>Statistic:</source>
        <translation>Kennwert:</translation>
    </message>
    <message>
        <source>Threshold:</source>
        <translation>Schwellenwert:</translation>
    </message>
</context>
<context>
    <name>OVP::DataSetPropertyPage</name>
    <message>
        <source>Data set &apos;%1&apos;</source>
        <translation>Datensatz &apos;%1&apos;</translation>
    </message>
    <message>
        <source>Data set</source>
        <translation>Datensatz</translation>
    </message>
    <message>
        <source>Data</source>
        <translation>Daten</translation>
    </message>
    <message>
        <source>File %1</source>
        <translation>Datei %1</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Quantity %1</source>
        <translation>Messgröße %1</translation>
    </message>
    <message>
        <source>Quantity</source>
        <translation>Messgröße</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Schnitt</translation>
    </message>
    <message>
        <source>Cut type</source>
        <translation>Schnitttyp</translation>
    </message>
    <message>
        <source>Manipulators</source>
        <translation>Manipulatoren</translation>
    </message>
    <message>
        <source>Move up</source>
        <translation>Nach oben</translation>
    </message>
    <message>
        <source>Move down</source>
        <translation>Nach unten</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Manipulator %1</source>
        <translation>Manipulator %1</translation>
    </message>
    <message>
        <source>Add manipulator</source>
        <translation>Manipulator hinzufügen</translation>
    </message>
    <message>
        <source>Model</source>
        <translation>Modell</translation>
    </message>
    <message>
        <source>Parameter %1, default %2</source>
        <translation>Parameter %1, Vorgabe %2</translation>
    </message>
    <message>
        <source>Isopleth lines</source>
        <translation>Isoplethen</translation>
    </message>
    <message>
        <source>The lines of the substrate class evaluated: the default lines or a table file</source>
        <translation>Die Linien der ausgewerteten Substratklasse: die Standardlinien oder eine Tabellendatei</translation>
    </message>
</context>
<context>
    <name>OVP::IsoplethLinesType</name>
    <message>
        <source>Isopleth lines</source>
        <translation>Isoplethen</translation>
    </message>
    <message>
        <source>The model evaluates the isopleth lines of one substrate class. The default lines approximate published isopleths; a table file gives the lines of another class (temperature in C in the first column, one column of relative humidity in % per line, the limit for germination last).</source>
        <translation>Das Modell wertet die Isoplethen einer Substratklasse aus. Die Standardlinien nähern veröffentlichte Isoplethen an; eine Tabellendatei liefert die Linien einer anderen Klasse (Temperatur in C in der ersten Spalte, je Linie eine Spalte relativer Feuchte in %, die Auskeimungsgrenze zuletzt).</translation>
    </message>
    <message>
        <source>Default lines (approximations)</source>
        <translation>Standardlinien (Näherungen)</translation>
    </message>
    <message>
        <source>Lines from a table file:</source>
        <translation>Linien aus einer Tabellendatei:</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>Durchsuchen...</translation>
    </message>
    <message>
        <source>Open isopleth lines</source>
        <translation>Isoplethen öffnen</translation>
    </message>
    <message>
        <source>Tables (*.csv *.tsv *.txt);;All files (*)</source>
        <translation>Tabellen (*.csv *.tsv *.txt);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>There is no file &apos;%1&apos;.</source>
        <translation>Es gibt keine Datei &apos;%1&apos;.</translation>
    </message>
</context>
<context>
    <name>OVP::MapperTreeModel</name>
    <message>
        <source>follow last time point</source>
        <translation>letztem Zeitpunkt folgen</translation>
    </message>
    <message>
        <source>%1 (locked)</source>
        <translation>%1 (gesperrt)</translation>
    </message>
    <message>
        <source>Line chart</source>
        <translation>Liniendiagramm</translation>
    </message>
    <message>
        <source>Colour grid</source>
        <translation>Farbraster</translation>
    </message>
    <message>
        <source>Vector field</source>
        <translation>Vektorfeld</translation>
    </message>
    <message>
        <source>Empty chart</source>
        <translation>Leeres Diagramm</translation>
    </message>
    <message>
        <source>%1 with 1 data set</source>
        <translation>%1 mit 1 Datensatz</translation>
    </message>
    <message>
        <source>%1 with %2 data sets</source>
        <translation>%1 mit %2 Datensätzen</translation>
    </message>
    <message>
        <source>Chart / data set</source>
        <translation>Diagramm / Datensatz</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Schnitt</translation>
    </message>
    <message>
        <source>Manipulators</source>
        <translation>Manipulatoren</translation>
    </message>
    <message>
        <source>Model</source>
        <translation>Modell</translation>
    </message>
    <message>
        <source>Isopleth chart</source>
        <translation>Isoplethendiagramm</translation>
    </message>
    <message>
        <source>WTA wood chart</source>
        <translation>WTA-Holzdiagramm</translation>
    </message>
    <message>
        <source>Bar chart</source>
        <translation>Balkendiagramm</translation>
    </message>
</context>
<context>
    <name>OVP::ProjectHandler</name>
    <message>
        <source>Save project before closing</source>
        <translation>Projekt vor dem Schließen speichern</translation>
    </message>
    <message>
        <source>Would you like to save the project before closing it?</source>
        <translation>Möchten Sie das Projekt vor dem Schließen speichern?</translation>
    </message>
    <message>
        <source>Error loading project</source>
        <translation>Fehler beim Laden des Projekts</translation>
    </message>
    <message>
        <source>Data in project was missing/invalid.
%1</source>
        <translation>Daten im Projekt fehlten oder waren ungültig.
%1</translation>
    </message>
    <message>
        <source>Specify Orvane project file</source>
        <translation>Orvane-Projektdatei angeben</translation>
    </message>
    <message>
        <source>Orvane Projects (*.o2);;All files (*.*)</source>
        <translation>Orvane-Projekte (*.o2);;Alle Dateien (*.*)</translation>
    </message>
    <message>
        <source>Saving failed</source>
        <translation>Speichern fehlgeschlagen</translation>
    </message>
    <message>
        <source>Error while saving project file!</source>
        <translation>Fehler beim Speichern der Projektdatei!</translation>
    </message>
    <message>
        <source>Cannot create/write file &apos;%1&apos; (path does not exists or missing permissions).</source>
        <translation>Die Datei &apos;%1&apos; kann nicht erstellt/geschrieben werden (Pfad existiert nicht oder fehlende Berechtigungen).</translation>
    </message>
    <message>
        <source>File &apos;%1&apos; does exists or missing permissions.</source>
        <translation>Die Datei &apos;%1&apos; existiert nicht oder es fehlen Berechtigungen.</translation>
    </message>
    <message>
        <source>Data files missing</source>
        <translation>Datendateien fehlen</translation>
    </message>
    <message>
        <source>The data file &apos;%1&apos; does not exist.</source>
        <translation>Die Datendatei &apos;%1&apos; existiert nicht.</translation>
    </message>
    <message>
        <source>Data files missing in all: %1.</source>
        <translation>Fehlende Datendateien insgesamt: %1.</translation>
    </message>
    <message>
        <source>If the data has been moved, choose the folder that holds it now. Every data file and directory of the session in the old folder is then re-pointed to it.</source>
        <translation>Wurden die Daten verschoben, wählen Sie den Ordner, der sie jetzt enthält. Alle Datendateien und Verzeichnisse der Sitzung im alten Ordner werden dann dorthin umgelenkt.</translation>
    </message>
    <message>
        <source>The folder &apos;%1&apos; holds no file &apos;%2&apos;, neither directly nor in the sub-folders of its old path.</source>
        <translation>Der Ordner &apos;%1&apos; enthält keine Datei &apos;%2&apos;, weder direkt noch in den Unterordnern ihres alten Pfads.</translation>
    </message>
    <message>
        <source>After re-pointing, these data files are still missing:
%1</source>
        <translation>Nach dem Umlenken fehlen noch diese Datendateien:
%1</translation>
    </message>
    <message>
        <source>Use another result folder</source>
        <translation>Anderen Ergebnisordner verwenden</translation>
    </message>
    <message>
        <source>The session has no charts with data files.</source>
        <translation>Die Sitzung hat keine Diagramme mit Datendateien.</translation>
    </message>
    <message>
        <source>The data files of the session lie in several folders. Which folder holds the results to replace?</source>
        <translation>Die Datendateien der Sitzung liegen in mehreren Ordnern. Welcher Ordner enthält die zu ersetzenden Ergebnisse?</translation>
    </message>
    <message>
        <source>Select the result folder to use instead of &apos;%1&apos;</source>
        <translation>Ergebnisordner wählen, der statt &apos;%1&apos; verwendet wird</translation>
    </message>
    <message>
        <source>The session is not changed:
%1</source>
        <translation>Die Sitzung bleibt unverändert:
%1</translation>
    </message>
    <message>
        <source>Delete the chart &apos;%1&apos;?</source>
        <translation>Das Diagramm &apos;%1&apos; löschen?</translation>
    </message>
    <message>
        <source>Delete these %1 charts?
%2</source>
        <translation>Diese %1 Diagramme löschen?
%2</translation>
    </message>
    <message>
        <source>Delete charts</source>
        <translation>Diagramme löschen</translation>
    </message>
    <message>
        <source>%1 (copy)</source>
        <translation>%1 (Kopie)</translation>
    </message>
    <message>
        <source>Restore from backup</source>
        <translation>Aus Sicherung wiederherstellen</translation>
    </message>
    <message>
        <source>The session file &apos;%1&apos; cannot be read:
%2

Its backup copy &apos;%3&apos; can be read. Restore the session from the backup? The session file itself is replaced only when you save the session.</source>
        <translation>Die Sitzungsdatei &apos;%1&apos; kann nicht gelesen werden:
%2

Ihre Sicherungskopie &apos;%3&apos; kann gelesen werden. Die Sitzung aus der Sicherung wiederherstellen? Die Sitzungsdatei selbst wird erst ersetzt, wenn Sie die Sitzung speichern.</translation>
    </message>
    <message>
        <source>create chart &apos;%1&apos;</source>
        <translation>Diagramm &apos;%1&apos; erstellen</translation>
    </message>
    <message>
        <source>delete chart &apos;%1&apos;</source>
        <translation>Diagramm &apos;%1&apos; löschen</translation>
    </message>
    <message>
        <source>delete %1 charts</source>
        <translation>%1 Diagramme löschen</translation>
    </message>
    <message>
        <source>duplicate chart &apos;%1&apos;</source>
        <translation>Diagramm &apos;%1&apos; duplizieren</translation>
    </message>
    <message>
        <source>move chart &apos;%1&apos;</source>
        <translation>Diagramm &apos;%1&apos; verschieben</translation>
    </message>
    <message>
        <source>move %1 charts</source>
        <translation>%1 Diagramme verschieben</translation>
    </message>
    <message>
        <source>Cannot undo</source>
        <translation>Rückgängig nicht möglich</translation>
    </message>
    <message>
        <source>Cannot redo</source>
        <translation>Wiederherstellen nicht möglich</translation>
    </message>
    <message>
        <source>&apos;%1&apos; cannot be undone:
%2</source>
        <translation>&apos;%1&apos; kann nicht rückgängig gemacht werden:
%2</translation>
    </message>
    <message>
        <source>&apos;%1&apos; cannot be redone:
%2</source>
        <translation>&apos;%1&apos; kann nicht wiederhergestellt werden:
%2</translation>
    </message>
    <message>
        <source>property %1</source>
        <translation>Eigenschaft %1</translation>
    </message>
    <message>
        <source>change %1</source>
        <translation>%1 ändern</translation>
    </message>
    <message>
        <source>change %1 %2</source>
        <translation>%1: %2 ändern</translation>
    </message>
    <message>
        <source>change %1 of &apos;%2&apos;</source>
        <translation>%1 von &apos;%2&apos; ändern</translation>
    </message>
    <message>
        <source>rename chart &apos;%1&apos;</source>
        <translation>Diagramm &apos;%1&apos; umbenennen</translation>
    </message>
    <message>
        <source>split view</source>
        <translation>Ansicht teilen</translation>
    </message>
    <message>
        <source>remove split view</source>
        <translation>Teilung aufheben</translation>
    </message>
    <message>
        <source>show chart in view</source>
        <translation>Diagramm in Ansicht zeigen</translation>
    </message>
    <message>
        <source>remove series &apos;%1&apos;</source>
        <translation>Datenreihe &apos;%1&apos; entfernen</translation>
    </message>
    <message>
        <source>apply chart style &apos;%1&apos;</source>
        <translation>Diagrammstil &apos;%1&apos; anwenden</translation>
    </message>
    <message>
        <source>show data table</source>
        <translation>Datentabelle anzeigen</translation>
    </message>
    <message>
        <source>show chart</source>
        <translation>Diagramm anzeigen</translation>
    </message>
</context>
<context>
    <name>OVP::SeriesBarExtractorModel</name>
    <message>
        <source>Days with daily mean above %1 %2</source>
        <translation>Tage mit Tagesmittel über %1 %2</translation>
    </message>
    <message>
        <source>%1, %2 per %3</source>
        <translation>%1, %2 je %3</translation>
    </message>
</context>
<context>
    <name>OVP::SeriesIsoplethExtractorModel</name>
    <message>
        <source>- %L1 days mould risk (max period %L2 h)</source>
        <translation>- %L1 Tage Schimmelrisiko (längster Zeitraum %L2 h)</translation>
    </message>
</context>
<context>
    <name>OVP::SeriesWTAExtractorModel</name>
    <message>
        <source>Days above the decay limit</source>
        <translation>Tage über der Fäulnisgrenze</translation>
    </message>
    <message>
        <source>- %L1 days above the decay limit</source>
        <translation>- %L1 Tage über der Fäulnisgrenze</translation>
    </message>
</context>
<context>
    <name>OVP::SizeType</name>
    <message>
        <source>%1 x %2 px</source>
        <translation>%1 x %2 px</translation>
    </message>
    <message>
        <source>Enter a width and a height.</source>
        <translation>Geben Sie eine Breite und eine Höhe ein.</translation>
    </message>
    <message>
        <source>Width and height must be between %1 and %2.</source>
        <translation>Breite und Höhe müssen zwischen %1 und %2 liegen.</translation>
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
        <source>px</source>
        <translation>px</translation>
    </message>
</context>
<context>
    <name>OVP::StringListType</name>
    <message>
        <source>Edit list</source>
        <translation>Liste bearbeiten</translation>
    </message>
    <message>
        <source>One entry per line:</source>
        <translation>Ein Eintrag je Zeile:</translation>
    </message>
    <message>
        <source>Enter a list of texts.</source>
        <translation>Geben Sie eine Liste von Texten ein.</translation>
    </message>
    <message>
        <source>The list must not have empty entries.</source>
        <translation>Die Liste darf keine leeren Einträge haben.</translation>
    </message>
</context>
<context>
    <name>PlotPickerText</name>
    <message>
        <source>value: %1</source>
        <translation>Wert: %1</translation>
    </message>
</context>
<context>
    <name>Preferences</name>
    <message>
        <source>Log levels must be between 0 and %1.</source>
        <translation>Log-Stufen müssen zwischen 0 und %1 liegen.</translation>
    </message>
    <message>
        <source>The file name filter needs at least one pattern, such as &apos;*.out&apos;.</source>
        <translation>Der Dateinamensfilter braucht mindestens ein Muster, etwa &apos;*.out&apos;.</translation>
    </message>
    <message>
        <source>Excluded directory names are names, not paths: &apos;%1&apos;.</source>
        <translation>Ausgeschlossene Verzeichnisnamen sind Namen, keine Pfade: &apos;%1&apos;.</translation>
    </message>
    <message>
        <source>The update address must be an http, https or file address of the version file, or empty: &apos;%1&apos;.</source>
        <translation>Die Update-Adresse muss eine http-, https- oder file-Adresse der Versionsdatei sein, oder leer: &apos;%1&apos;.</translation>
    </message>
    <message>
        <source>Decimal places must be between 0 and %1.</source>
        <translation>Die Nachkommastellen müssen zwischen 0 und %1 liegen.</translation>
    </message>
</context>
<context>
    <name>PreferencesDialog</name>
    <message>
        <source>Preferences</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>English</source>
        <translation>Englisch (English)</translation>
    </message>
    <message>
        <source>German (Deutsch)</source>
        <translation>Deutsch</translation>
    </message>
    <message>
        <source>Language and log</source>
        <translation>Sprache und Log</translation>
    </message>
    <message>
        <source>Language:</source>
        <translation>Sprache:</translation>
    </message>
    <message>
        <source>A changed language takes effect on the next program start.</source>
        <translation>Eine geänderte Sprache gilt ab dem nächsten Programmstart.</translation>
    </message>
    <message>
        <source>Console log level:</source>
        <translation>Log-Stufe Konsole:</translation>
    </message>
    <message>
        <source>Log file log level:</source>
        <translation>Log-Stufe Logdatei:</translation>
    </message>
    <message>
        <source>Higher levels write more detail; errors are always written.</source>
        <translation>Höhere Stufen schreiben mehr Einzelheiten; Fehler werden immer geschrieben.</translation>
    </message>
    <message>
        <source>Reopen last session on program start</source>
        <translation>Beim Programmstart letzte Sitzung wieder öffnen</translation>
    </message>
    <message>
        <source>Start with empty session</source>
        <translation>Mit leerer Sitzung starten</translation>
    </message>
    <message>
        <source>Write all properties in session file</source>
        <translation>Alle Eigenschaften in die Sitzungsdatei schreiben</translation>
    </message>
    <message>
        <source>Select text editor</source>
        <translation>Texteditor auswählen</translation>
    </message>
    <message>
        <source>Sessions</source>
        <translation>Sitzungen</translation>
    </message>
    <message>
        <source>Text editor:</source>
        <translation>Texteditor:</translation>
    </message>
    <message>
        <source>Opens the session file with &quot;Edit session file in text editor&quot; (F2).</source>
        <translation>Öffnet die Sitzungsdatei mit &quot;Sitzungsdatei im Texteditor bearbeiten&quot; (F2).</translation>
    </message>
    <message>
        <source>Data manager</source>
        <translation>Datenmanager</translation>
    </message>
    <message>
        <source>File name filter:</source>
        <translation>Dateinamensfilter:</translation>
    </message>
    <message>
        <source>Excluded directory names:</source>
        <translation>Ausgeschlossene Verzeichnisnamen:</translation>
    </message>
    <message>
        <source>Separate several entries with &apos;;&apos;. Changes apply at once.</source>
        <translation>Mehrere Einträge mit &apos;;&apos; trennen. Änderungen gelten sofort.</translation>
    </message>
    <message>
        <source>https://.../version.txt</source>
        <translation>https://.../version.txt</translation>
    </message>
    <message>
        <source>Show hidden messages again (%1)</source>
        <translation>Ausgeblendete Meldungen wieder anzeigen (%1)</translation>
    </message>
    <message>
        <source>Updates and messages</source>
        <translation>Updates und Meldungen</translation>
    </message>
    <message>
        <source>Update address:</source>
        <translation>Update-Adresse:</translation>
    </message>
    <message>
        <source>Address of the version file; empty: never look for updates.</source>
        <translation>Adresse der Versionsdatei; leer: nie nach Updates suchen.</translation>
    </message>
    <message>
        <source>Write header lines</source>
        <translation>Kopfzeilen schreiben</translation>
    </message>
    <message>
        <source>German number format (decimal comma, &apos;;&apos; between fields)</source>
        <translation>Deutsches Zahlenformat (Dezimalkomma, &apos;;&apos; zwischen Feldern)</translation>
    </message>
    <message>
        <source>Units on a line of their own</source>
        <translation>Einheiten in einer eigenen Zeile</translation>
    </message>
    <message>
        <source>Data tables and export</source>
        <translation>Datentabellen und Export</translation>
    </message>
    <message>
        <source>Decimal places shown in tables:</source>
        <translation>Angezeigte Nachkommastellen in Tabellen:</translation>
    </message>
    <message>
        <source>Copied and exported numbers keep their full precision.</source>
        <translation>Kopierte und exportierte Zahlen behalten ihre volle Genauigkeit.</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>Restore from backup</source>
        <translation>Aus Sicherung wiederherstellen</translation>
    </message>
</context>
<context>
    <name>QPB::BoolType</name>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
    <message>
        <source>Choose yes or no.</source>
        <translation>Wählen Sie Ja oder Nein.</translation>
    </message>
</context>
<context>
    <name>QPB::ColorComboBox</name>
    <message>
        <source>Other...</source>
        <translation>Andere...</translation>
    </message>
    <message>
        <source>Choose a colour</source>
        <translation>Farbe wählen</translation>
    </message>
</context>
<context>
    <name>QPB::ColorType</name>
    <message>
        <source>Black</source>
        <translation>Schwarz</translation>
    </message>
    <message>
        <source>Dark grey</source>
        <translation>Dunkelgrau</translation>
    </message>
    <message>
        <source>Light grey</source>
        <translation>Hellgrau</translation>
    </message>
    <message>
        <source>White</source>
        <translation>Weiß</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rot</translation>
    </message>
    <message>
        <source>Dark red</source>
        <translation>Dunkelrot</translation>
    </message>
    <message>
        <source>Orange</source>
        <translation>Orange</translation>
    </message>
    <message>
        <source>Yellow</source>
        <translation>Gelb</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Grün</translation>
    </message>
    <message>
        <source>Dark green</source>
        <translation>Dunkelgrün</translation>
    </message>
    <message>
        <source>Cyan</source>
        <translation>Cyan</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Blau</translation>
    </message>
    <message>
        <source>Dark blue</source>
        <translation>Dunkelblau</translation>
    </message>
    <message>
        <source>Magenta</source>
        <translation>Magenta</translation>
    </message>
    <message>
        <source>Violet</source>
        <translation>Violett</translation>
    </message>
    <message>
        <source>Choose a colour.</source>
        <translation>Wählen Sie eine Farbe.</translation>
    </message>
    <message>
        <source>The colour must not be transparent.</source>
        <translation>Die Farbe darf nicht transparent sein.</translation>
    </message>
</context>
<context>
    <name>QPB::CoordinateIndexType</name>
    <message>
        <source>Choose a coordinate.</source>
        <translation>Wählen Sie eine Koordinate.</translation>
    </message>
    <message numerus="yes">
        <source>Index %1 lies outside the %n coordinate values.</source>
        <translation>
            <numerusform>Index %1 liegt außerhalb des einzigen Koordinatenwerts.</numerusform>
            <numerusform>Index %1 liegt außerhalb der %n Koordinatenwerte.</numerusform>
        </translation>
    </message>
    <message>
        <source>follow last time point</source>
        <translation>letztem Zeitpunkt folgen</translation>
    </message>
    <message>
        <source>index %1</source>
        <translation>Index %1</translation>
    </message>
</context>
<context>
    <name>QPB::DateTimeType</name>
    <message>
        <source>Enter a valid date and time.</source>
        <translation>Geben Sie ein gültiges Datum mit Uhrzeit ein.</translation>
    </message>
</context>
<context>
    <name>QPB::EnumType</name>
    <message numerus="yes">
        <source>Choose one of the %n entries.</source>
        <translation>
            <numerusform>Wählen Sie den einzigen Eintrag.</numerusform>
            <numerusform>Wählen Sie einen der %n Einträge.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>QPB::FontEditor</name>
    <message>
        <source>Choose a font</source>
        <translation>Schrift wählen</translation>
    </message>
</context>
<context>
    <name>QPB::FontType</name>
    <message>
        <source>%1 pt</source>
        <translation>%1 pt</translation>
    </message>
    <message>
        <source>%1 px</source>
        <translation>%1 px</translation>
    </message>
    <message>
        <source>bold</source>
        <translation>fett</translation>
    </message>
    <message>
        <source>italic</source>
        <translation>kursiv</translation>
    </message>
    <message>
        <source>Choose a font.</source>
        <translation>Wählen Sie eine Schrift.</translation>
    </message>
    <message>
        <source>The font family must not be empty.</source>
        <translation>Die Schriftfamilie darf nicht leer sein.</translation>
    </message>
    <message>
        <source>The font size must be greater than 0 and at most %1.</source>
        <translation>Die Schriftgröße muss größer als 0 und höchstens %1 sein.</translation>
    </message>
    <message>
        <source>Family</source>
        <translation>Familie</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>pt</source>
        <translation>pt</translation>
    </message>
    <message>
        <source>Bold</source>
        <translation>Fett</translation>
    </message>
    <message>
        <source>Italic</source>
        <translation>Kursiv</translation>
    </message>
</context>
<context>
    <name>QPB::NumberType</name>
    <message>
        <source>Enter a whole number.</source>
        <translation>Geben Sie eine ganze Zahl ein.</translation>
    </message>
    <message>
        <source>Enter a number.</source>
        <translation>Geben Sie eine Zahl ein.</translation>
    </message>
</context>
<context>
    <name>QPB::PenType</name>
    <message>
        <source>No line</source>
        <translation>Keine Linie</translation>
    </message>
    <message>
        <source>Solid</source>
        <translation>Durchgezogen</translation>
    </message>
    <message>
        <source>Dashed</source>
        <translation>Gestrichelt</translation>
    </message>
    <message>
        <source>Dotted</source>
        <translation>Gepunktet</translation>
    </message>
    <message>
        <source>Dash-dot</source>
        <translation>Strich-Punkt</translation>
    </message>
    <message>
        <source>Dash-dot-dot</source>
        <translation>Strich-Punkt-Punkt</translation>
    </message>
    <message>
        <source>%1 px</source>
        <translation>%1 px</translation>
    </message>
    <message>
        <source>Custom</source>
        <translation>Benutzerdefiniert</translation>
    </message>
    <message>
        <source>Choose a pen.</source>
        <translation>Wählen Sie einen Stift.</translation>
    </message>
    <message>
        <source>Choose a colour.</source>
        <translation>Wählen Sie eine Farbe.</translation>
    </message>
    <message>
        <source>Choose one of the line styles.</source>
        <translation>Wählen Sie eine der Linienarten.</translation>
    </message>
    <message>
        <source>Colour</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>Breite</translation>
    </message>
    <message>
        <source>px</source>
        <translation>px</translation>
    </message>
    <message>
        <source>Style</source>
        <translation>Stil</translation>
    </message>
</context>
<context>
    <name>QPB::PropertyModel</name>
    <message>
        <source>Property</source>
        <translation>Eigenschaft</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
</context>
<context>
    <name>QPB::StringType</name>
    <message>
        <source>Enter a text.</source>
        <translation>Geben Sie einen Text ein.</translation>
    </message>
    <message>
        <source>The text must not be empty.</source>
        <translation>Der Text darf nicht leer sein.</translation>
    </message>
</context>
<context>
    <name>QtExt::AutoUpdater</name>
    <message>
        <source>An update transfer is already running.</source>
        <translation>Es läuft bereits eine Update-Übertragung.</translation>
    </message>
    <message>
        <source>No update information has been retrieved yet.</source>
        <translation>Es wurden noch keine Update-Informationen abgerufen.</translation>
    </message>
    <message>
        <source>Cannot create download directory &apos;%1&apos;.</source>
        <translation>Das Download-Verzeichnis &apos;%1&apos; kann nicht erstellt werden.</translation>
    </message>
    <message>
        <source>Cannot create installer file &apos;%1&apos;.</source>
        <translation>Die Installationsdatei &apos;%1&apos; kann nicht erstellt werden.</translation>
    </message>
    <message>
        <source>Download of &apos;%1&apos; is larger than expected, stopped.</source>
        <translation>Der Download von &apos;%1&apos; ist größer als erwartet und wurde abgebrochen.</translation>
    </message>
    <message>
        <source>Cannot download &apos;%1&apos;: %2</source>
        <translation>&apos;%1&apos; kann nicht heruntergeladen werden: %2</translation>
    </message>
    <message>
        <source>Cannot write installer file &apos;%1&apos;.</source>
        <translation>Die Installationsdatei &apos;%1&apos; kann nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>Invalid update information from &apos;%1&apos;: %2</source>
        <translation>Ungültige Update-Informationen von &apos;%1&apos;: %2</translation>
    </message>
    <message>
        <source>Invalid md5 hash file &apos;%1&apos;.</source>
        <translation>Ungültige MD5-Prüfsummendatei &apos;%1&apos;.</translation>
    </message>
    <message>
        <source>Cannot write md5 hash file &apos;%1&apos;.</source>
        <translation>Die MD5-Prüfsummendatei &apos;%1&apos; kann nicht geschrieben werden.</translation>
    </message>
</context>
<context>
    <name>QtExt::BrowseFilenameWidget</name>
    <message>
        <source>Browse (F4)</source>
        <translation>Durchsuchen (F4)</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is not a folder.</source>
        <translation>&apos;%1&apos; ist kein Ordner.</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is not a file.</source>
        <translation>&apos;%1&apos; ist keine Datei.</translation>
    </message>
    <message>
        <source>The folder &apos;%1&apos; does not exist.</source>
        <translation>Der Ordner &apos;%1&apos; existiert nicht.</translation>
    </message>
    <message>
        <source>The file &apos;%1&apos; does not exist.</source>
        <translation>Die Datei &apos;%1&apos; existiert nicht.</translation>
    </message>
</context>
<context>
    <name>QtExt::ColorListWidget</name>
    <message>
        <source>Red</source>
        <translation>Rot</translation>
    </message>
    <message>
        <source>Orange</source>
        <translation>Orange</translation>
    </message>
    <message>
        <source>Yellow</source>
        <translation>Gelb</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Grün</translation>
    </message>
    <message>
        <source>Teal</source>
        <translation>Blaugrün</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Blau</translation>
    </message>
    <message>
        <source>Violet</source>
        <translation>Violett</translation>
    </message>
    <message>
        <source>Pink</source>
        <translation>Rosa</translation>
    </message>
    <message>
        <source>Brown</source>
        <translation>Braun</translation>
    </message>
    <message>
        <source>Grey</source>
        <translation>Grau</translation>
    </message>
    <message>
        <source>Other...</source>
        <translation>Andere...</translation>
    </message>
    <message>
        <source>No colour</source>
        <translation>Keine Farbe</translation>
    </message>
    <message>
        <source>Choose colour</source>
        <translation>Farbe wählen</translation>
    </message>
</context>
<context>
    <name>QtExt::LogFileDialog</name>
    <message>
        <source>Log file</source>
        <translation>Logdatei</translation>
    </message>
    <message>
        <source>Reload</source>
        <translation>Neu laden</translation>
    </message>
    <message>
        <source>The log file &apos;%1&apos; cannot be read.</source>
        <translation>Die Logdatei &apos;%1&apos; kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Last lines of the log file &apos;%1&apos;:</source>
        <translation>Letzte Zeilen der Logdatei &apos;%1&apos;:</translation>
    </message>
    <message>
        <source>Log file &apos;%1&apos;:</source>
        <translation>Logdatei &apos;%1&apos;:</translation>
    </message>
</context>
<context>
    <name>QtExt::LogWidget</name>
    <message>
        <source>Errors</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Warnings</source>
        <translation>Warnungen</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>Meldungen</translation>
    </message>
    <message>
        <source>Debug</source>
        <translation>Debug</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
    <message>
        <source>Shows or hides these messages.</source>
        <translation>Zeigt diese Meldungen oder blendet sie aus.</translation>
    </message>
</context>
<context>
    <name>QtExt::ValidatingLineEdit</name>
    <message>
        <source>Enter a whole number.</source>
        <translation>Geben Sie eine ganze Zahl ein.</translation>
    </message>
    <message>
        <source>Enter a number.</source>
        <translation>Geben Sie eine Zahl ein.</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is not a whole number.</source>
        <translation>&apos;%1&apos; ist keine ganze Zahl.</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is not a number.</source>
        <translation>&apos;%1&apos; ist keine Zahl.</translation>
    </message>
    <message>
        <source>Value must be at least %1.</source>
        <translation>Der Wert muss mindestens %1 sein.</translation>
    </message>
    <message>
        <source>Value must be greater than %1.</source>
        <translation>Der Wert muss größer als %1 sein.</translation>
    </message>
    <message>
        <source>Value must be at most %1.</source>
        <translation>Der Wert darf höchstens %1 sein.</translation>
    </message>
    <message>
        <source>Value must be less than %1.</source>
        <translation>Der Wert muss kleiner als %1 sein.</translation>
    </message>
    <message>
        <source>Value must be between %1 and %2.</source>
        <translation>Der Wert muss zwischen %1 und %2 liegen.</translation>
    </message>
    <message>
        <source>Value must be at least %1 and less than %2.</source>
        <translation>Der Wert muss mindestens %1 und kleiner als %2 sein.</translation>
    </message>
    <message>
        <source>Value must be greater than %1 and at most %2.</source>
        <translation>Der Wert muss größer als %1 und höchstens %2 sein.</translation>
    </message>
    <message>
        <source>Value must be greater than %1 and less than %2.</source>
        <translation>Der Wert muss größer als %1 und kleiner als %2 sein.</translation>
    </message>
</context>
<context>
    <name>ReadProgressWidget</name>
    <message>
        <source>Reading %1</source>
        <translation>%1 wird gelesen</translation>
    </message>
</context>
<context>
    <name>SCI::ColorMapEditWidget</name>
    <message>
        <source>Invalid color stop</source>
        <translation>Ungültiger Farbstopp</translation>
    </message>
    <message>
        <source>The position must be a number between %1 and %2.</source>
        <translation>Die Position muss eine Zahl zwischen %1 und %2 sein.</translation>
    </message>
    <message>
        <source>Invalid color map</source>
        <translation>Ungültige Farbskala</translation>
    </message>
    <message>
        <source>Color map type</source>
        <translation>Art der Farbskala</translation>
    </message>
    <message>
        <source>Linear color map</source>
        <translation>Lineare Farbskala</translation>
    </message>
    <message>
        <source>Alpha color map</source>
        <translation>Alpha-Farbskala</translation>
    </message>
    <message>
        <source>Color stops</source>
        <translation>Farbstopps</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>Add stop</source>
        <translation>Stopp hinzufügen</translation>
    </message>
    <message>
        <source>Remove stop</source>
        <translation>Stopp entfernen</translation>
    </message>
    <message>
        <source>From</source>
        <translation>Von</translation>
    </message>
    <message>
        <source>to</source>
        <translation>bis</translation>
    </message>
    <message>
        <source> steps</source>
        <translation> Schritte</translation>
    </message>
    <message>
        <source>Generate</source>
        <translation>Erzeugen</translation>
    </message>
    <message>
        <source>Alpha map</source>
        <translation>Alpha-Skala</translation>
    </message>
    <message>
        <source>Color:</source>
        <translation>Farbe:</translation>
    </message>
    <message>
        <source>Save Color Map...</source>
        <translation>Farbskala speichern...</translation>
    </message>
    <message>
        <source>Load Color Map...</source>
        <translation>Farbskala laden...</translation>
    </message>
</context>
<context>
    <name>SCI::Export2BitmapWidget</name>
    <message>
        <source>Resolution [dpi]:</source>
        <translation>Auflösung [dpi]:</translation>
    </message>
    <message>
        <source>Size [pixel]:</source>
        <translation>Größe [Pixel]:</translation>
    </message>
    <message>
        <source>Size [mm]:</source>
        <translation>Größe [mm]:</translation>
    </message>
    <message>
        <source>Keep aspect ratio</source>
        <translation>Seitenverhältnis beibehalten</translation>
    </message>
    <message>
        <source>Scale plot items/fonts with resolution</source>
        <translation>Diagrammelemente/Schriften mit der Auflösung skalieren</translation>
    </message>
    <message>
        <source>Preview in original size</source>
        <translation>Vorschau in Originalgröße</translation>
    </message>
    <message>
        <source>Scaled preview image</source>
        <translation>Skaliertes Vorschaubild</translation>
    </message>
    <message>
        <source>Bitmap too large to preview.</source>
        <translation>Bitmap zu groß für die Vorschau.</translation>
    </message>
</context>
<context>
    <name>SCI::Export2VectorWidget</name>
    <message>
        <source>Size (width/height) [mm]:</source>
        <translation>Größe (Breite/Höhe) [mm]:</translation>
    </message>
    <message>
        <source>Keep aspect ratio</source>
        <translation>Seitenverhältnis beibehalten</translation>
    </message>
    <message>
        <source>Paint chart background (no transparency)</source>
        <translation>Diagrammhintergrund zeichnen (keine Transparenz)</translation>
    </message>
    <message>
        <source>Use data reduction during export</source>
        <translation>Datenreduktion beim Export verwenden</translation>
    </message>
    <message>
        <source>Last used plot dimensions:</source>
        <translation>Zuletzt verwendete Diagrammabmessungen:</translation>
    </message>
</context>
<context>
    <name>SCI::ExportDialog</name>
    <message>
        <source>Export chart</source>
        <translation>Diagramm exportieren</translation>
    </message>
    <message>
        <source>Export error</source>
        <translation>Exportfehler</translation>
    </message>
    <message>
        <source>Please enter/select a filename!</source>
        <translation>Bitte geben Sie einen Dateinamen ein bzw. wählen Sie einen aus!</translation>
    </message>
    <message>
        <source>Bitmap graphics (*.png *.bmp *.jpg)</source>
        <translation>Bitmap-Grafiken (*.png *.bmp *.jpg)</translation>
    </message>
    <message>
        <source>Vector graphics (*.pdf *.svg *.emf)</source>
        <translation>Vektorgrafiken (*.pdf *.svg *.emf)</translation>
    </message>
    <message>
        <source>Select export file</source>
        <translation>Exportdatei auswählen</translation>
    </message>
    <message>
        <source>Export file name:</source>
        <translation>Name der Exportdatei:</translation>
    </message>
    <message>
        <source>Components of the exported chart</source>
        <translation>Bestandteile des exportierten Diagramms</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Legend</source>
        <translation>Legende</translation>
    </message>
    <message>
        <source>Canvas frame</source>
        <translation>Zeichenflächenrahmen</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>Hintergrund</translation>
    </message>
    <message>
        <source>Canvas background</source>
        <translation>Hintergrund der Zeichenfläche</translation>
    </message>
    <message>
        <source>Bitmap graphics</source>
        <translation>Bitmap-Grafik</translation>
    </message>
    <message>
        <source>Vector graphics</source>
        <translation>Vektorgrafik</translation>
    </message>
    <message>
        <source>Export to file</source>
        <translation>In Datei exportieren</translation>
    </message>
    <message>
        <source>Copy to clipboard</source>
        <translation>In die Zwischenablage kopieren</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Dimensions too large!</source>
        <translation>Abmessungen zu groß!</translation>
    </message>
    <message>
        <source>Invalid graphics dimensions</source>
        <translation>Ungültige Grafikabmessungen</translation>
    </message>
</context>
<context>
    <name>SCI::PropertyRoleTable</name>
    <message>
        <source>x-axis</source>
        <translation>x-Achse</translation>
    </message>
    <message>
        <source>y-axis</source>
        <translation>y-Achse</translation>
    </message>
    <message>
        <source>right y-axis</source>
        <translation>rechte y-Achse</translation>
    </message>
    <message>
        <source>title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>title font</source>
        <translation>Schriftart des Titels</translation>
    </message>
    <message>
        <source>legend visible</source>
        <translation>Legende sichtbar</translation>
    </message>
    <message>
        <source>Legend</source>
        <translation>Legende</translation>
    </message>
    <message>
        <source>legend position</source>
        <translation>Position der Legende</translation>
    </message>
    <message>
        <source>left</source>
        <translation>links</translation>
    </message>
    <message>
        <source>right</source>
        <translation>rechts</translation>
    </message>
    <message>
        <source>bottom</source>
        <translation>unten</translation>
    </message>
    <message>
        <source>top</source>
        <translation>oben</translation>
    </message>
    <message>
        <source>inside the chart</source>
        <translation>im Diagramm</translation>
    </message>
    <message>
        <source>legend corner</source>
        <translation>Ecke der Legende</translation>
    </message>
    <message>
        <source>top left</source>
        <translation>oben links</translation>
    </message>
    <message>
        <source>top right</source>
        <translation>oben rechts</translation>
    </message>
    <message>
        <source>bottom left</source>
        <translation>unten links</translation>
    </message>
    <message>
        <source>bottom right</source>
        <translation>unten rechts</translation>
    </message>
    <message>
        <source>legend offset</source>
        <translation>Abstand der Legende</translation>
    </message>
    <message>
        <source>legend frame</source>
        <translation>Rahmen der Legende</translation>
    </message>
    <message>
        <source>legend symbol</source>
        <translation>Legendensymbol</translation>
    </message>
    <message>
        <source>line</source>
        <translation>Linie</translation>
    </message>
    <message>
        <source>box</source>
        <translation>Kästchen</translation>
    </message>
    <message>
        <source>legend symbol width</source>
        <translation>Breite des Legendensymbols</translation>
    </message>
    <message>
        <source>legend background colour</source>
        <translation>Hintergrundfarbe der Legende</translation>
    </message>
    <message>
        <source>legend background opacity</source>
        <translation>Deckkraft des Legendenhintergrunds</translation>
    </message>
    <message>
        <source>legend columns</source>
        <translation>Spalten der Legende</translation>
    </message>
    <message>
        <source>no limit</source>
        <translation>unbegrenzt</translation>
    </message>
    <message>
        <source>legend spacing</source>
        <translation>Abstände der Legende</translation>
    </message>
    <message>
        <source>legend font</source>
        <translation>Schriftart der Legende</translation>
    </message>
    <message>
        <source>right axis title turned</source>
        <translation>Titel der rechten Achse gedreht</translation>
    </message>
    <message>
        <source>Axes</source>
        <translation>Achsen</translation>
    </message>
    <message>
        <source>scales inside</source>
        <translation>Skalen innen</translation>
    </message>
    <message>
        <source>construction lines visible</source>
        <translation>Konstruktionslinien sichtbar</translation>
    </message>
    <message>
        <source>Construction lines</source>
        <translation>Konstruktionslinien</translation>
    </message>
    <message>
        <source>construction lines pen</source>
        <translation>Stift der Konstruktionslinien</translation>
    </message>
    <message>
        <source>current time marked</source>
        <translation>aktuellen Zeitpunkt markieren</translation>
    </message>
    <message>
        <source>Time position</source>
        <translation>Zeitpunkt</translation>
    </message>
    <message>
        <source>visible</source>
        <translation>sichtbar</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Skala</translation>
    </message>
    <message>
        <source>title spacing</source>
        <translation>Abstand des Titels</translation>
    </message>
    <message>
        <source>unit</source>
        <translation>Einheit</translation>
    </message>
    <message>
        <source>automatic scale</source>
        <translation>automatische Skalierung</translation>
    </message>
    <message>
        <source>minimum</source>
        <translation>Minimum</translation>
    </message>
    <message>
        <source>maximum</source>
        <translation>Maximum</translation>
    </message>
    <message>
        <source>logarithmic</source>
        <translation>logarithmisch</translation>
    </message>
    <message>
        <source>same scale as the other axis</source>
        <translation>gleicher Maßstab wie die andere Achse</translation>
    </message>
    <message>
        <source>major ticks</source>
        <translation>Hauptstriche</translation>
    </message>
    <message>
        <source>Ticks</source>
        <translation>Teilstriche</translation>
    </message>
    <message>
        <source>minor ticks per major step</source>
        <translation>Zwischenstriche je Hauptschritt</translation>
    </message>
    <message>
        <source>label font</source>
        <translation>Schriftart der Beschriftung</translation>
    </message>
    <message>
        <source>Labels</source>
        <translation>Beschriftung</translation>
    </message>
    <message>
        <source>label horizontal alignment</source>
        <translation>waagerechte Ausrichtung der Beschriftung</translation>
    </message>
    <message>
        <source>centre</source>
        <translation>Mitte</translation>
    </message>
    <message>
        <source>label vertical alignment</source>
        <translation>senkrechte Ausrichtung der Beschriftung</translation>
    </message>
    <message>
        <source>label rotation</source>
        <translation>Drehung der Beschriftung</translation>
    </message>
    <message>
        <source>label spacing</source>
        <translation>Abstand der Beschriftung</translation>
    </message>
    <message>
        <source>grid visible</source>
        <translation>Gitter sichtbar</translation>
    </message>
    <message>
        <source>Grid</source>
        <translation>Gitter</translation>
    </message>
    <message>
        <source>grid pen</source>
        <translation>Stift des Gitters</translation>
    </message>
    <message>
        <source>grid width</source>
        <translation>Breite des Gitters</translation>
    </message>
    <message>
        <source>grid colour</source>
        <translation>Farbe des Gitters</translation>
    </message>
    <message>
        <source>minor grid visible</source>
        <translation>feines Gitter sichtbar</translation>
    </message>
    <message>
        <source>Minor grid</source>
        <translation>Feines Gitter</translation>
    </message>
    <message>
        <source>minor grid pen</source>
        <translation>Stift des feinen Gitters</translation>
    </message>
    <message>
        <source>minor grid width</source>
        <translation>Breite des feinen Gitters</translation>
    </message>
    <message>
        <source>minor grid colour</source>
        <translation>Farbe des feinen Gitters</translation>
    </message>
    <message>
        <source>dates as labels</source>
        <translation>Datum als Beschriftung</translation>
    </message>
    <message>
        <source>Date and time</source>
        <translation>Datum und Uhrzeit</translation>
    </message>
    <message>
        <source>date and time of zero</source>
        <translation>Datum und Uhrzeit des Nullpunkts</translation>
    </message>
    <message>
        <source>time zone</source>
        <translation>Zeitzone</translation>
    </message>
    <message>
        <source>local time</source>
        <translation>Ortszeit</translation>
    </message>
    <message>
        <source>UTC</source>
        <translation>UTC</translation>
    </message>
    <message>
        <source>offset from UTC</source>
        <translation>Versatz zu UTC</translation>
    </message>
    <message>
        <source>named time zone</source>
        <translation>benannte Zeitzone</translation>
    </message>
    <message>
        <source>date formats</source>
        <translation>Datumsformate</translation>
    </message>
    <message>
        <source>in legend</source>
        <translation>in der Legende</translation>
    </message>
    <message>
        <source>pen</source>
        <translation>Stift</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>Linie</translation>
    </message>
    <message>
        <source>pen width</source>
        <translation>Stiftbreite</translation>
    </message>
    <message>
        <source>pen colour</source>
        <translation>Stiftfarbe</translation>
    </message>
    <message>
        <source>line style</source>
        <translation>Linienart</translation>
    </message>
    <message>
        <source>no line</source>
        <translation>keine Linie</translation>
    </message>
    <message>
        <source>lines</source>
        <translation>Linien</translation>
    </message>
    <message>
        <source>sticks</source>
        <translation>Stäbe</translation>
    </message>
    <message>
        <source>steps</source>
        <translation>Stufen</translation>
    </message>
    <message>
        <source>dots</source>
        <translation>Punkte</translation>
    </message>
    <message>
        <source>smoothed</source>
        <translation>geglättet</translation>
    </message>
    <message>
        <source>sign inverted</source>
        <translation>Vorzeichen umgekehrt</translation>
    </message>
    <message>
        <source>on the left y-axis</source>
        <translation>an der linken y-Achse</translation>
    </message>
    <message>
        <source>Axis</source>
        <translation>Achse</translation>
    </message>
    <message>
        <source>marker</source>
        <translation>Marker</translation>
    </message>
    <message>
        <source>Markers</source>
        <translation>Marker</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keiner</translation>
    </message>
    <message>
        <source>circle</source>
        <translation>Kreis</translation>
    </message>
    <message>
        <source>square</source>
        <translation>Quadrat</translation>
    </message>
    <message>
        <source>diamond</source>
        <translation>Raute</translation>
    </message>
    <message>
        <source>triangle</source>
        <translation>Dreieck</translation>
    </message>
    <message>
        <source>triangle down</source>
        <translation>Dreieck nach unten</translation>
    </message>
    <message>
        <source>triangle up</source>
        <translation>Dreieck nach oben</translation>
    </message>
    <message>
        <source>triangle left</source>
        <translation>Dreieck nach links</translation>
    </message>
    <message>
        <source>triangle right</source>
        <translation>Dreieck nach rechts</translation>
    </message>
    <message>
        <source>cross</source>
        <translation>Kreuz</translation>
    </message>
    <message>
        <source>diagonal cross</source>
        <translation>schräges Kreuz</translation>
    </message>
    <message>
        <source>horizontal line</source>
        <translation>waagerechter Strich</translation>
    </message>
    <message>
        <source>vertical line</source>
        <translation>senkrechter Strich</translation>
    </message>
    <message>
        <source>star</source>
        <translation>Stern</translation>
    </message>
    <message>
        <source>six-pointed star</source>
        <translation>sechszackiger Stern</translation>
    </message>
    <message>
        <source>hexagon</source>
        <translation>Sechseck</translation>
    </message>
    <message>
        <source>marker size</source>
        <translation>Markergröße</translation>
    </message>
    <message>
        <source>marker filled</source>
        <translation>Marker gefüllt</translation>
    </message>
    <message>
        <source>marker colour</source>
        <translation>Markerfarbe</translation>
    </message>
    <message>
        <source>colour map</source>
        <translation>Farbskala</translation>
    </message>
    <message>
        <source>Colours</source>
        <translation>Farben</translation>
    </message>
    <message>
        <source>display</source>
        <translation>Darstellung</translation>
    </message>
    <message>
        <source>colours</source>
        <translation>Farben</translation>
    </message>
    <message>
        <source>isolines only</source>
        <translation>nur Isolinien</translation>
    </message>
    <message>
        <source>interpolation</source>
        <translation>Interpolation</translation>
    </message>
    <message>
        <source>bilinear</source>
        <translation>bilinear</translation>
    </message>
    <message>
        <source>automatic value range</source>
        <translation>automatischer Wertebereich</translation>
    </message>
    <message>
        <source>Value range</source>
        <translation>Wertebereich</translation>
    </message>
    <message>
        <source>value minimum</source>
        <translation>Wertminimum</translation>
    </message>
    <message>
        <source>from the data</source>
        <translation>aus den Daten</translation>
    </message>
    <message>
        <source>value maximum</source>
        <translation>Wertmaximum</translation>
    </message>
    <message>
        <source>colour bar visible</source>
        <translation>Farbleiste sichtbar</translation>
    </message>
    <message>
        <source>Colour bar</source>
        <translation>Farbleiste</translation>
    </message>
    <message>
        <source>isoline step</source>
        <translation>Isolinienabstand</translation>
    </message>
    <message>
        <source>Isolines</source>
        <translation>Isolinien</translation>
    </message>
    <message>
        <source>no isolines</source>
        <translation>keine Isolinien</translation>
    </message>
    <message>
        <source>isolines in colours</source>
        <translation>Isolinien farbig</translation>
    </message>
    <message>
        <source>isoline pen</source>
        <translation>Stift der Isolinien</translation>
    </message>
    <message>
        <source>arrow colours from the colour map</source>
        <translation>Pfeilfarben aus der Farbskala</translation>
    </message>
    <message>
        <source>arrow colour</source>
        <translation>Pfeilfarbe</translation>
    </message>
    <message>
        <source>automatic magnitude range</source>
        <translation>automatischer Betragsbereich</translation>
    </message>
    <message>
        <source>magnitude minimum</source>
        <translation>Betragsminimum</translation>
    </message>
    <message>
        <source>magnitude maximum</source>
        <translation>Betragsmaximum</translation>
    </message>
    <message>
        <source>arrows on a raster</source>
        <translation>Pfeile im Raster</translation>
    </message>
    <message>
        <source>Arrows</source>
        <translation>Pfeile</translation>
    </message>
    <message>
        <source>raster size</source>
        <translation>Rasterweite</translation>
    </message>
    <message>
        <source>arrow position</source>
        <translation>Lage der Pfeile</translation>
    </message>
    <message>
        <source>starts at the point</source>
        <translation>beginnt am Punkt</translation>
    </message>
    <message>
        <source>centred on the point</source>
        <translation>mittig am Punkt</translation>
    </message>
    <message>
        <source>ends at the point</source>
        <translation>endet am Punkt</translation>
    </message>
    <message>
        <source>thin arrows</source>
        <translation>schmale Pfeile</translation>
    </message>
    <message>
        <source>arrow scale factor</source>
        <translation>Skalierungsfaktor der Pfeile</translation>
    </message>
    <message>
        <source>shortest arrow</source>
        <translation>kürzester Pfeil</translation>
    </message>
    <message>
        <source>longest arrow</source>
        <translation>längster Pfeil</translation>
    </message>
    <message>
        <source>bar colour</source>
        <translation>Balkenfarbe</translation>
    </message>
    <message>
        <source>Bars</source>
        <translation>Balken</translation>
    </message>
    <message>
        <source>frame pen</source>
        <translation>Stift des Rahmens</translation>
    </message>
</context>
<context>
    <name>UndoBarAggregation</name>
    <message>
        <source>change bar threshold of &apos;%1&apos;</source>
        <translation>Balken-Schwellenwert von &apos;%1&apos; ändern</translation>
    </message>
    <message>
        <source>change bar period of &apos;%1&apos;</source>
        <translation>Balken-Zeitraum von &apos;%1&apos; ändern</translation>
    </message>
    <message>
        <source>change bar statistic of &apos;%1&apos;</source>
        <translation>Balken-Kennwert von &apos;%1&apos; ändern</translation>
    </message>
</context>
<context>
    <name>UndoDataSetSetup</name>
    <message>
        <source>change data file of &apos;%1&apos;</source>
        <translation>Datendatei von &apos;%1&apos; ändern</translation>
    </message>
    <message>
        <source>change cut type of &apos;%1&apos;</source>
        <translation>Schnittart von &apos;%1&apos; ändern</translation>
    </message>
    <message>
        <source>change time point of &apos;%1&apos;</source>
        <translation>Zeitpunkt von &apos;%1&apos; ändern</translation>
    </message>
    <message>
        <source>change cut position of &apos;%1&apos;</source>
        <translation>Schnittposition von &apos;%1&apos; ändern</translation>
    </message>
    <message>
        <source>change manipulators of &apos;%1&apos;</source>
        <translation>Manipulatoren von &apos;%1&apos; ändern</translation>
    </message>
    <message>
        <source>change model of &apos;%1&apos;</source>
        <translation>Modell von &apos;%1&apos; ändern</translation>
    </message>
    <message>
        <source>change model parameters of &apos;%1&apos;</source>
        <translation>Modellparameter von &apos;%1&apos; ändern</translation>
    </message>
    <message>
        <source>change data set of &apos;%1&apos;</source>
        <translation>Datensatz von &apos;%1&apos; ändern</translation>
    </message>
</context>
<context>
    <name>UpdateDialogs</name>
    <message>
        <source>Newer version available</source>
        <translation>Neuere Version verfügbar</translation>
    </message>
    <message>
        <source>Orvane %1 is available; you are using version %2.</source>
        <translation>Orvane %1 ist verfügbar; Sie verwenden Version %2.</translation>
    </message>
    <message>
        <source>No changes listed.</source>
        <translation>Keine Änderungen aufgeführt.</translation>
    </message>
    <message>
        <source>Download and install</source>
        <translation>Herunterladen und installieren</translation>
    </message>
    <message>
        <source>Not now</source>
        <translation>Nicht jetzt</translation>
    </message>
    <message>
        <source>Skip this version</source>
        <translation>Diese Version überspringen</translation>
    </message>
    <message>
        <source>Changes:</source>
        <translation>Änderungen:</translation>
    </message>
    <message>
        <source>Check for updates</source>
        <translation>Nach Updates suchen</translation>
    </message>
    <message>
        <source>There is no newer version; Orvane %1 is up to date.</source>
        <translation>Es gibt keine neuere Version; Orvane %1 ist aktuell.</translation>
    </message>
    <message>
        <source>Looking for updates failed:
%1</source>
        <translation>Die Suche nach Updates ist fehlgeschlagen:
%1</translation>
    </message>
    <message>
        <source>Downloading Orvane %1...</source>
        <translation>Orvane %1 wird heruntergeladen...</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Download update</source>
        <translation>Update herunterladen</translation>
    </message>
    <message>
        <source>The update has been downloaded. It will be installed when you close Orvane.</source>
        <translation>Das Update wurde heruntergeladen. Es wird installiert, wenn Sie Orvane schließen.</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Install update</source>
        <translation>Update installieren</translation>
    </message>
</context>
</TS>
