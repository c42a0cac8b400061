<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>AboutDialogClass</name>
    <message>
        <source>About Quorvanta</source>
        <translation>Über Quorvanta</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
</context>
<context>
    <name>ChooseDialogClass</name>
    <message>
        <source>Creating Table...</source>
        <translation>Tabelle wird erstellt...</translation>
    </message>
    <message>
        <source>Chart Data...</source>
        <translation>Diagrammdaten...</translation>
    </message>
    <message>
        <source>Please select at least 16 rows !</source>
        <translation>Bitte mindestens 16 Zeilen auswählen !</translation>
    </message>
</context>
<context>
    <name>HelpWindow</name>
    <message>
        <source>Quorvanta Help</source>
        <translation>Quorvanta-Hilfe</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Navigate</source>
        <translation>Navigieren</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Vor</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Drucken</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Startseite</translation>
    </message>
    <message>
        <source>toolBar</source>
        <translation>Werkzeugleiste</translation>
    </message>
</context>
<context>
    <name>HelpWindowClass</name>
    <message>
        <source>Print Help Document</source>
        <translation>Hilfedokument drucken</translation>
    </message>
</context>
<context>
    <name>OracleDialogClass</name>
    <message>
        <source>The Dew Point Oracle</source>
        <translation>Das Taupunkt-Orakel</translation>
    </message>
    <message>
        <source>The oracle has spoken:</source>
        <translation>Das Orakel hat gesprochen:</translation>
    </message>
    <message>
        <source>Thank you, Oracle</source>
        <translation>Danke, Orakel</translation>
    </message>
    <message>
        <source>The dew point never sleeps. It waits patiently for you to open the cellar window on a warm July afternoon.</source>
        <translation>Der Taupunkt schläft nie. Er wartet geduldig, bis Sie an einem warmen Julinachmittag das Kellerfenster öffnen.</translation>
    </message>
    <message>
        <source>A relative humidity of 100 % is not a high score. Please stop trying to beat it.</source>
        <translation>Eine relative Feuchte von 100 % ist kein Highscore. Bitte versuchen Sie nicht, ihn zu überbieten.</translation>
    </message>
    <message>
        <source>Warm air holds more water than cold air. So does a warm cup of coffee - keep it away from the sensor.</source>
        <translation>Warme Luft trägt mehr Wasser als kalte. Eine warme Tasse Kaffee auch - halten Sie sie vom Sensor fern.</translation>
    </message>
    <message>
        <source>All sensors agree: today is a perfect day for looking at charts.</source>
        <translation>Alle Sensoren sind sich einig: Heute ist ein perfekter Tag, um Diagramme anzusehen.</translation>
    </message>
</context>
<context>
    <name>QVChartClass</name>
    <message>
        <source>Quorvanta Print Preview</source>
        <translation>Quorvanta Druckvorschau</translation>
    </message>
    <message>
        <source>Quorvanta PDF Preview</source>
        <translation>Quorvanta PDF-Vorschau</translation>
    </message>
    <message>
        <source>Export Data (CSV)</source>
        <translation>Daten exportieren (CSV)</translation>
    </message>
    <message>
        <source>The chart is zoomed in. Export only the samples it shows? No exports the whole selected range.</source>
        <translation>Das Diagramm ist vergrößert. Nur die angezeigten Messwerte exportieren? Nein exportiert den ganzen gewählten Bereich.</translation>
    </message>
    <message>
        <source>Export Data (CSV)...</source>
        <translation>Daten exportieren (CSV)...</translation>
    </message>
    <message>
        <source>CSV Table (*.csv)</source>
        <translation>CSV-Tabelle (*.csv)</translation>
    </message>
    <message>
        <source>Exporting Data...</source>
        <translation>Daten werden exportiert...</translation>
    </message>
    <message>
        <source>Rendering chart for printing...</source>
        <translation>Diagramm wird für den Druck gezeichnet...</translation>
    </message>
    <message>
        <source>Page Setup...</source>
        <translation>Seite wird eingerichtet...</translation>
    </message>
    <message>
        <source>Quorvanta Error</source>
        <translation>Quorvanta-Fehler</translation>
    </message>
    <message>
        <source>Error while loading additional vaporix files!</source>
        <translation>Fehler beim Laden der zusätzlichen vaporix-Dateien!</translation>
    </message>
    <message>
        <source>Importing Sampling Data...</source>
        <translation>Aufzeichnung wird importiert...</translation>
    </message>
    <message>
        <source>Save Quorvanta Project...</source>
        <translation>Quorvanta-Projekt speichern...</translation>
    </message>
    <message>
        <source>Quorvanta Projekt (*.qvj)</source>
        <translation>Quorvanta Projekt (*.qvj)</translation>
    </message>
    <message>
        <source>Chart Data...</source>
        <translation>Diagrammdaten...</translation>
    </message>
    <message>
        <source>Saving Project...</source>
        <translation>Projekt wird gespeichert...</translation>
    </message>
    <message>
        <source>Open Quorvanta Project</source>
        <translation>Quorvanta-Projekt öffnen</translation>
    </message>
    <message>
        <source>Quorvanta Project (*.qvj)</source>
        <translation>Quorvanta Projekt (*.qvj)</translation>
    </message>
    <message>
        <source>Loading project...</source>
        <translation>Projekt wird geladen...</translation>
    </message>
    <message>
        <source>Show vaporix Mode</source>
        <translation>vaporix-Modus anzeigen</translation>
    </message>
    <message>
        <source>State: </source>
        <translation>Zustand: </translation>
    </message>
    <message>
        <source>No Data</source>
        <translation>Keine Daten</translation>
    </message>
</context>
<context>
    <name>QVUpdateClass</name>
    <message>
        <source>Existing Quorvanta Version: %1</source>
        <translation>Installierte Quorvanta-Version: %1</translation>
    </message>
    <message>
        <source>Looking for new version ...</source>
        <translation>Suche nach neuer Version ...</translation>
    </message>
    <message>
        <source>Invalid version file (%1 bytes)</source>
        <translation>Ungültige Versionsdatei (%1 Bytes)</translation>
    </message>
    <message>
        <source>The update server did not answer in time.</source>
        <translation>Der Update-Server hat nicht rechtzeitig geantwortet.</translation>
    </message>
    <message>
        <source>Error: %1</source>
        <translation>Fehler: %1</translation>
    </message>
    <message>
        <source>New Quorvanta Version: %1</source>
        <translation>Neue Quorvanta-Version: %1</translation>
    </message>
    <message>
        <source>No Update neccessary</source>
        <translation>Kein Update notwendig</translation>
    </message>
    <message>
        <source>Ready to start Update. (%1 kB)</source>
        <translation>Bereit zum Update. (%1 kB)</translation>
    </message>
    <message>
        <source>The update is larger than %1 MiB.</source>
        <translation>Das Update ist größer als %1 MiB.</translation>
    </message>
    <message>
        <source>Quorvanta Update</source>
        <translation>Quorvanta-Update</translation>
    </message>
    <message>
        <source>Unable to save update! %1</source>
        <translation>Update kann nicht gespeichert werden! %1</translation>
    </message>
    <message>
        <source>Update successful...</source>
        <translation>Update erfolgreich...</translation>
    </message>
    <message>
        <source>Quorvanta will be closed to perform the update!</source>
        <translation>Quorvanta wird für das Update beendet!</translation>
    </message>
</context>
<context>
    <name>UpdateClass</name>
    <message>
        <source>Quorvanta Internet Update</source>
        <translation>Quorvanta Internet-Update</translation>
    </message>
    <message>
        <source>Update progess:</source>
        <translation>Update-Fortschritt:</translation>
    </message>
    <message>
        <source>Download + Install</source>
        <translation>Herunterladen + Installieren</translation>
    </message>
    <message>
        <source>Exit Updater</source>
        <translation>Updater beenden</translation>
    </message>
</context>
<context>
    <name>Quorvanta</name>
    <message>
        <source>Merovin Quorvanta [*]</source>
        <translation>Merovin Quorvanta [*]</translation>
    </message>
    <message>
        <source>Choose Data</source>
        <translation>Daten auswählen</translation>
    </message>
    <message>
        <source>&amp;Project</source>
        <translation>&amp;Projekt</translation>
    </message>
    <message>
        <source>&amp;Recent Projects</source>
        <translation>&amp;Zuletzt geöffnete Projekte</translation>
    </message>
    <message>
        <source>&amp;Data</source>
        <translation>&amp;Daten</translation>
    </message>
    <message>
        <source>&amp;Options</source>
        <translation>&amp;Optionen</translation>
    </message>
    <message>
        <source>Set Language</source>
        <translation>Sprache wählen</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Toolbar Project</source>
        <translation>Werkzeugleiste Projekt</translation>
    </message>
    <message>
        <source>Toolbar Data</source>
        <translation>Werkzeugleiste Daten</translation>
    </message>
    <message>
        <source>Toolbar View</source>
        <translation>Werkzeugleiste Ansicht</translation>
    </message>
    <message>
        <source>Toolbar Help</source>
        <translation>Werkzeugleiste Hilfe</translation>
    </message>
    <message>
        <source>&amp;New Project</source>
        <translation>&amp;Neues Projekt</translation>
    </message>
    <message>
        <source>&amp;Open Project</source>
        <translation>Projekt ö&amp;ffnen</translation>
    </message>
    <message>
        <source>&amp;Save Project</source>
        <translation>Projekt &amp;speichern</translation>
    </message>
    <message>
        <source>Save Project &amp;As</source>
        <translation>Projekt speichern &amp;unter</translation>
    </message>
    <message>
        <source>Save Project As</source>
        <translation>Projekt speichern unter</translation>
    </message>
    <message>
        <source>&amp;Close Project</source>
        <translation>Projekt s&amp;chließen</translation>
    </message>
    <message>
        <source>&amp;Print Chart</source>
        <translation>Diagramm &amp;drucken</translation>
    </message>
    <message>
        <source>Export PDF</source>
        <translation>PDF exportieren</translation>
    </message>
    <message>
        <source>Export Data (CSV)...</source>
        <translation>Daten exportieren (CSV)...</translation>
    </message>
    <message>
        <source>&amp;Exit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>Chart Settings</source>
        <translation>Diagrammeinstellungen</translation>
    </message>
    <message>
        <source>English</source>
        <translation>English</translation>
    </message>
    <message>
        <source>Deutsch</source>
        <translation>Deutsch</translation>
    </message>
    <message>
        <source>Auto Save Project</source>
        <translation>Projekt automatisch speichern</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>Ü&amp;ber</translation>
    </message>
    <message>
        <source>Check for Updates</source>
        <translation>Nach Updates suchen</translation>
    </message>
    <message>
        <source>Auto Version Check</source>
        <translation>Automatische Versionsprüfung</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>Vergrößern</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Verkleinern</translation>
    </message>
    <message>
        <source>Zoom 100%</source>
        <translation>Zoom 100%</translation>
    </message>
    <message>
        <source>Zoom Width</source>
        <translation>Zoom Breite</translation>
    </message>
    <message>
        <source>Zoom Height</source>
        <translation>Zoom Höhe</translation>
    </message>
</context>
<context>
    <name>QuorvantaClass</name>
    <message>
        <source>Quorvanta [*]</source>
        <translation>Quorvanta [*]</translation>
    </message>
    <message>
        <source>Quorvanta - Noname [*]</source>
        <translation>Quorvanta - Unbenannt [*]</translation>
    </message>
    <message>
        <source>Quorvanta - </source>
        <translation>Quorvanta - </translation>
    </message>
    <message>
        <source>Quorvanta Update</source>
        <translation>Quorvanta-Update</translation>
    </message>
    <message>
        <source>A new version is available - Start update?</source>
        <translation>Eine neue Version ist verfügbar - Update starten?</translation>
    </message>
    <message>
        <source>The update cannot be started: %1</source>
        <translation>Das Update kann nicht gestartet werden: %1</translation>
    </message>
    <message>
        <source>Save Project</source>
        <translation>Projekt speichern</translation>
    </message>
    <message>
        <source>Save changes before closing the project?</source>
        <translation>Änderungen vor dem Schließen des Projekts speichern?</translation>
    </message>
    <message>
        <source>Recent Projects</source>
        <translation>Zuletzt geöffnete Projekte</translation>
    </message>
    <message>
        <source>The project could not be opened. Remove it from the list of recent projects?</source>
        <translation>Das Projekt konnte nicht geöffnet werden. Aus der Liste der zuletzt geöffneten Projekte entfernen?</translation>
    </message>
</context>
<context>
    <name>chooseDialog</name>
    <message>
        <source>Choose Data</source>
        <translation>Daten auswählen</translation>
    </message>
</context>
<context>
    <name>importDialog</name>
    <message>
        <source>Import Data...</source>
        <translation>Daten importieren...</translation>
    </message>
    <message>
        <source>Import Ventimar Sampling</source>
        <translation>Ventimar-Aufzeichnung
importieren</translation>
    </message>
    <message>
        <source>Import Ventimar CSV</source>
        <translation>Ventimar-CSV importieren</translation>
    </message>
    <message>
        <source>Import vaporix-VIS Sampling</source>
        <translation>vaporix-VIS-Aufzeichnung
importieren</translation>
    </message>
</context>
<context>
    <name>progressDialog</name>
    <message>
        <source>Please Wait...</source>
        <translation>Bitte warten...</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Detail</source>
        <translation>Detail</translation>
    </message>
</context>
<context>
    <name>SettingsDialogClass</name>
    <message>
        <source>Select Color</source>
        <translation>Farbe wählen</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
</context>
<context>
    <name>settingsDialog</name>
    <message>
        <source>Chart Settings</source>
        <translation>Diagrammeinstellungen</translation>
    </message>
    <message>
        <source>Chart Title:</source>
        <translation>Diagrammtitel:</translation>
    </message>
    <message>
        <source>Display Title</source>
        <translation>Titel anzeigen</translation>
    </message>
    <message>
        <source>Type:</source>
        <translation>Typ:</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>Linie</translation>
    </message>
    <message>
        <source>Spline (fast CPU needed)</source>
        <translation>Spline (schnelle CPU nötig)</translation>
    </message>
    <message>
        <source>Legend:</source>
        <translation>Legende:</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>Oben</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Rechts</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>Unten</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Begin:</source>
        <translation>Beginn:</translation>
    </message>
    <message>
        <source>Date:</source>
        <translation>Datum:</translation>
    </message>
    <message>
        <source>Time:</source>
        <translation>Zeit:</translation>
    </message>
    <message>
        <source>End:</source>
        <translation>Ende:</translation>
    </message>
    <message>
        <source>Changed:</source>
        <translation>Geändert:</translation>
    </message>
    <message>
        <source>Data Settings</source>
        <translation>Dateneinstellungen</translation>
    </message>
    <message>
        <source>Data Index:</source>
        <translation>Datenindex:</translation>
    </message>
    <message>
        <source>Name:</source>
        <translation>Name:</translation>
    </message>
    <message>
        <source>Enabled</source>
        <translation>Aktiv</translation>
    </message>
    <message>
        <source>Axis</source>
        <translation>Achse</translation>
    </message>
    <message>
        <source>Min Value:</source>
        <translation>Minimalwert:</translation>
    </message>
    <message>
        <source>Max Value:</source>
        <translation>Maximalwert:</translation>
    </message>
    <message>
        <source>Line:</source>
        <translation>Linie:</translation>
    </message>
    <message>
        <source>Color:</source>
        <translation>Farbe:</translation>
    </message>
    <message>
        <source>Size:</source>
        <translation>Stärke:</translation>
    </message>
    <message>
        <source>Unit:</source>
        <translation>Einheit:</translation>
    </message>
    <message>
        <source>Decimals:</source>
        <translation>Dezimalstellen:</translation>
    </message>
</context>
<context>
    <name>settingsSmallDialog</name>
    <message>
        <source>Chart Settings</source>
        <translation>Diagrammeinstellungen</translation>
    </message>
    <message>
        <source>Data Settings</source>
        <translation>Dateneinstellungen</translation>
    </message>
    <message>
        <source>Name:</source>
        <translation>Name:</translation>
    </message>
    <message>
        <source>Enabled</source>
        <translation>Aktiv</translation>
    </message>
    <message>
        <source>Axis</source>
        <translation>Achse</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Rechts</translation>
    </message>
    <message>
        <source>Min Value:</source>
        <translation>Minimalwert:</translation>
    </message>
    <message>
        <source>Max Value:</source>
        <translation>Maximalwert:</translation>
    </message>
    <message>
        <source>Line:</source>
        <translation>Linie:</translation>
    </message>
    <message>
        <source>Color:</source>
        <translation>Farbe:</translation>
    </message>
    <message>
        <source>Size:</source>
        <translation>Stärke:</translation>
    </message>
    <message>
        <source>Unit:</source>
        <translation>Einheit:</translation>
    </message>
    <message>
        <source>Decimals:</source>
        <translation>Dezimalstellen:</translation>
    </message>
</context>
<context>
    <name>QuorvantaCore</name>
    <message>
        <source>Date/Time</source>
        <translation>Datum/Uhrzeit</translation>
    </message>
    <message>
        <source>Invalid Data</source>
        <translation>Ungültige Daten</translation>
    </message>
    <message>
        <source>min. Humidity In:</source>
        <translation>min. Feuchte innen:</translation>
    </message>
    <message>
        <source>max. Humidity In:</source>
        <translation>max. Feuchte innen:</translation>
    </message>
    <message>
        <source>Frost Protection:</source>
        <translation>Frostschutz:</translation>
    </message>
    <message>
        <source>min. Temp In:</source>
        <translation>min. Temp. innen:</translation>
    </message>
    <message>
        <source>max. Temp In:</source>
        <translation>max. Temp. innen:</translation>
    </message>
    <message>
        <source>Intervall:</source>
        <translation>Intervall:</translation>
    </message>
    <message>
        <source>Offset Temp In:</source>
        <translation>Offset Temp. innen:</translation>
    </message>
    <message>
        <source>Offset Temp Out:</source>
        <translation>Offset Temp. außen:</translation>
    </message>
    <message>
        <source>control Time:</source>
        <translation>Regelzeit:</translation>
    </message>
    <message>
        <source>Offset Humidity In:</source>
        <translation>Offset Feuchte innen:</translation>
    </message>
    <message>
        <source>Offset Humidity Out:</source>
        <translation>Offset Feuchte außen:</translation>
    </message>
    <message>
        <source>Hysteresis On:</source>
        <translation>Hysterese ein:</translation>
    </message>
    <message>
        <source>Hysteresis Off:</source>
        <translation>Hysterese aus:</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>Error while loading additional vaporix files!</source>
        <translation>Fehler beim Laden der zusätzlichen vaporix-Dateien!</translation>
    </message>
    <message>
        <source>File is no Quorvanta project!</source>
        <translation>Die Datei ist kein Quorvanta-Projekt!</translation>
    </message>
    <message>
        <source>Error in Quorvanta project!</source>
        <translation>Fehler im Quorvanta-Projekt!</translation>
    </message>
    <message>
        <source>Error reading file!</source>
        <translation>Fehler beim Lesen der Datei!</translation>
    </message>
    <message>
        <source>Error while writing file!</source>
        <translation>Fehler beim Schreiben der Datei!</translation>
    </message>
    <message>
        <source>The project is in use by another program!</source>
        <translation>Das Projekt wird von einem anderen Programm verwendet!</translation>
    </message>
    <message>
        <source>Quorvanta</source>
        <translation>Quorvanta</translation>
    </message>
    <message>
        <source>File seems to be part of a vaporix sampling. Try to load the state and settings information too?</source>
        <translation>Die Datei scheint Teil einer vaporix-Aufzeichnung zu sein. Sollen die Zustands- und Einstellungsdaten ebenfalls geladen werden?</translation>
    </message>
    <message>
        <source>This recording&apos;s clock does not switch to summer time. Read all of its times as standard time (UTC%1)?</source>
        <translation>Die Uhr dieser Aufzeichnung stellt nicht auf Sommerzeit um. Alle Zeiten als Normalzeit (UTC%1) lesen?</translation>
    </message>
    <message>
        <source>Times read as standard time (UTC%1) all year.</source>
        <translation>Zeiten ganzjährig als Normalzeit (UTC%1) gelesen.</translation>
    </message>
    <message>
        <source>Error in CSV title line 1 !</source>
        <translation>Fehler in CSV-Titelzeile 1 !</translation>
    </message>
    <message>
        <source>Error in CSV line 2 !
Too many columns.</source>
        <translation>Fehler in CSV-Zeile 2 !
Zu viele Spalten.</translation>
    </message>
    <message>
        <source>This kind of sampling file cannot be read yet.</source>
        <translation>Diese Art von Aufzeichnung kann noch nicht gelesen werden.</translation>
    </message>
    <message>
        <source> (min %1 / ⌀ %2 / max %3 %4)</source>
        <translation> (min %1 / ⌀ %2 / max %3 %4)</translation>
    </message>
    <message>
        <source>No data to draw: the project holds no data sets.</source>
        <translation>Nichts zu zeichnen: Das Projekt enthält keine Datensätze.</translation>
    </message>
    <message>
        <source>Too few samples to draw a chart (at least 8 per data set).</source>
        <translation>Zu wenige Messwerte für ein Diagramm (mindestens 8 je Datensatz).</translation>
    </message>
    <message>
        <source>No data set is shown: tick a row to draw it.</source>
        <translation>Kein Datensatz eingeblendet: Haken Sie eine Zeile an, um sie zu zeichnen.</translation>
    </message>
    <message>
        <source> (%1 / %2 / %3 %4)</source>
        <translation> (%1 / %2 / %3 %4)</translation>
    </message>
    <message>
        <source>File is no Ventimar sampling!</source>
        <translation>Datei ist keine Ventimar-Aufzeichnung!</translation>
    </message>
    <message>
        <source>Ventimar sampling seems to be broken (header)!</source>
        <translation>Ventimar-Aufzeichnung scheint defekt zu sein (Kopf)!</translation>
    </message>
    <message>
        <source>Ventimar sampling seems to be broken (filesize)!</source>
        <translation>Ventimar-Aufzeichnung scheint defekt zu sein (Dateigröße)!</translation>
    </message>
    <message>
        <source>Try to fix missing data?</source>
        <translation>Fehlende Daten reparieren?</translation>
    </message>
    <message>
        <source>Try to fix Solvanor firmware overflow bug?</source>
        <translation>Überlauffehler der Solvanor-Firmware reparieren?</translation>
    </message>
    <message>
        <source>Error in CSV line 1 !
No vaporix-Vis sampling.</source>
        <translation>Fehler in CSV-Zeile 1 !
Keine vaporix-Vis-Aufzeichnung.</translation>
    </message>
    <message>
        <source>Error in CSV title line 2 !</source>
        <translation>Fehler in CSV-Titelzeile 2 !</translation>
    </message>
    <message>
        <source>Error in CSV title line 3 !</source>
        <translation>Fehler in CSV-Titelzeile 3 !</translation>
    </message>
    <message>
        <source>Error in CSV title line 4 !</source>
        <translation>Fehler in CSV-Titelzeile 4 !</translation>
    </message>
    <message>
        <source>Error in CSV title line 5 !</source>
        <translation>Fehler in CSV-Titelzeile 5 !</translation>
    </message>
    <message>
        <source>Error in CSV line 5 !
Too many columns.</source>
        <translation>Fehler in CSV-Zeile 5 !
Zu viele Spalten.</translation>
    </message>
    <message>
        <source>Error in CSV title line 7 !</source>
        <translation>Fehler in CSV-Titelzeile 7 !</translation>
    </message>
    <message>
        <source>Error in CSV line 7 !
Too many columns.</source>
        <translation>Fehler in CSV-Zeile 7 !
Zu viele Spalten.</translation>
    </message>
    <message>
        <source>File is containing too many data. Please contact Merovin.</source>
        <translation>Die Datei enthält zu viele Daten. Bitte wenden Sie sich an Merovin.</translation>
    </message>
    <message>
        <source>Manual Off</source>
        <translation>Hand Aus</translation>
    </message>
    <message>
        <source>Scheduler Off</source>
        <translation>Zeitplan Aus</translation>
    </message>
    <message>
        <source>Frost Protection</source>
        <translation>Frostschutz</translation>
    </message>
    <message>
        <source>Too Cold Outside</source>
        <translation>Außen zu kalt</translation>
    </message>
    <message>
        <source>Too Hot Outside</source>
        <translation>Außen zu warm</translation>
    </message>
    <message>
        <source>Conditions OK</source>
        <translation>Bedingungen OK</translation>
    </message>
    <message>
        <source>Weather adverse</source>
        <translation>Wetter ungünstig</translation>
    </message>
    <message>
        <source>Sensor Alarm</source>
        <translation>Sensoralarm</translation>
    </message>
    <message>
        <source>Sensor In Alarm</source>
        <translation>Sensoralarm innen</translation>
    </message>
    <message>
        <source>Sensor Out Alarm</source>
        <translation>Sensoralarm außen</translation>
    </message>
    <message>
        <source>No Data</source>
        <translation>Keine Daten</translation>
    </message>
    <message>
        <source>Manual On</source>
        <translation>Hand Ein</translation>
    </message>
    <message>
        <source>System running</source>
        <translation>Anlage läuft</translation>
    </message>
    <message>
        <source>At least 1 set of data must be displayed !</source>
        <translation>Mindestens 1 Datensatz muss angezeigt werden !</translation>
    </message>
    <message>
        <source>At least 1 axis must be displayed !</source>
        <translation>Mindestens 1 Achse muss angezeigt werden !</translation>
    </message>
    <message>
        <source>It&apos;s not possible displaying more than 6 axis !</source>
        <translation>Es können nicht mehr als 6 Achsen angezeigt werden !</translation>
    </message>
    <message>
        <source>Open Ventimar Sampling File</source>
        <translation>Ventimar-Aufzeichnung öffnen</translation>
    </message>
    <message>
        <source>Ventimar Sampling (*.csv *.CSV)</source>
        <translation>Ventimar-Aufzeichnung (*.csv *.CSV)</translation>
    </message>
    <message>
        <source>CSV Ventimar Data</source>
        <translation>Ventimar-CSV-Daten</translation>
    </message>
    <message>
        <source>Ventimar Sampling (*.log *.LOG)</source>
        <translation>Ventimar-Aufzeichnung (*.log *.LOG)</translation>
    </message>
    <message>
        <source>Binary Ventimar Data</source>
        <translation>Binäre Ventimar-Daten</translation>
    </message>
    <message>
        <source>Open vaporix-Vis Sampling File</source>
        <translation>vaporix-Vis-Aufzeichnung öffnen</translation>
    </message>
    <message>
        <source>vaporix-Vis Sampling (*.csv *.CSV)</source>
        <translation>vaporix-Vis-Aufzeichnung (*.csv *.CSV)</translation>
    </message>
    <message>
        <source>CSV vaporix-Vis Data</source>
        <translation>vaporix-Vis-CSV-Daten</translation>
    </message>
</context>
</TS>
