<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Panorel::DeskCard</name>
    <message>
        <source>No displays detected</source>
        <translation>Keine Bildschirme erkannt</translation>
    </message>
</context>
<context>
    <name>Panorel::FixedAction</name>
    <message>
        <source>Stash</source>
        <translation>Wegräumen</translation>
    </message>
    <message>
        <source>Restore now</source>
        <translation>Jetzt wiederherstellen</translation>
    </message>
    <message>
        <source>Save layout now</source>
        <translation>Anordnung jetzt sichern</translation>
    </message>
    <message>
        <source>Undo last restore</source>
        <translation>Letztes Wiederherstellen rückgängig machen</translation>
    </message>
</context>
<context>
    <name>Panorel::PanelView</name>
    <message>
        <source>Layouts…</source>
        <translation>Anordnungen …</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Einstellungen …</translation>
    </message>
    <message>
        <source>Check for Updates…</source>
        <translation>Nach Aktualisierungen suchen …</translation>
    </message>
    <message>
        <source>Quit Panorel</source>
        <translation>Panorel beenden</translation>
    </message>
    <message>
        <source>Panorel is off</source>
        <translation>Panorel ist ausgeschaltet</translation>
    </message>
    <message numerus="yes">
        <source>%n windows remembered</source>
        <translation>
            <numerusform>%n Fenster gemerkt</numerusform>
            <numerusform>%n Fenster gemerkt</numerusform>
        </translation>
    </message>
    <message>
        <source>No layout saved yet</source>
        <translation>Noch keine Anordnung gespeichert</translation>
    </message>
    <message>
        <source>Bring the desk back</source>
        <translation>Arbeitsplatz zurückholen</translation>
    </message>
    <message>
        <source>Stash the desk</source>
        <translation>Arbeitsplatz wegräumen</translation>
    </message>
</context>
<context>
    <name>Panorel::RestoreArea</name>
    <message>
        <source>Grant permission…</source>
        <translation>Berechtigung erteilen …</translation>
    </message>
    <message>
        <source>Restore Now</source>
        <translation>Jetzt wiederherstellen</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Panorel needs Accessibility permission to move windows.</source>
        <translation>Panorel braucht die Berechtigung „Bedienungshilfen“, um Fenster zu bewegen.</translation>
    </message>
</context>
<context>
    <name>Panorel::SceneList</name>
    <message>
        <source>Save current as scene</source>
        <translation>Aktuelle Anordnung als Szene sichern</translation>
    </message>
    <message>
        <source>Scenes</source>
        <translation>Szenen</translation>
    </message>
    <message>
        <source>Switch any time</source>
        <translation>Jederzeit wechseln</translation>
    </message>
</context>
<context>
    <name>Panorel::StatusItemController</name>
    <message>
        <source>Panorel: %1</source>
        <translation>Panorel: %1</translation>
    </message>
</context>
<context>
    <name>Panorel::StatusMenu</name>
    <message>
        <source>Open Panel</source>
        <translation>Übersicht öffnen</translation>
    </message>
    <message>
        <source>Restore Now</source>
        <translation>Jetzt wiederherstellen</translation>
    </message>
    <message>
        <source>Grant permission…</source>
        <translation>Berechtigung erteilen …</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Bring the desk back</source>
        <translation>Arbeitsplatz zurückholen</translation>
    </message>
    <message>
        <source>Stash the desk</source>
        <translation>Arbeitsplatz wegräumen</translation>
    </message>
    <message>
        <source>Layouts…</source>
        <translation>Anordnungen …</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Einstellungen …</translation>
    </message>
    <message>
        <source>Check for Updates…</source>
        <translation>Nach Aktualisierungen suchen …</translation>
    </message>
    <message>
        <source>Quit Panorel</source>
        <translation>Panorel beenden</translation>
    </message>
    <message>
        <source>Save current as scene</source>
        <translation>Aktuelle Anordnung als Szene sichern</translation>
    </message>
</context>
<context>
    <name>Panorel::TipCard</name>
    <message>
        <source>Tip: give a scene a hotkey to switch layouts without opening this menu.</source>
        <translation>Tipp: Mit einem Tastenkürzel für eine Szene wechseln Sie die Anordnung, ohne dieses Menü zu öffnen.</translation>
    </message>
    <message>
        <source>Set one</source>
        <translation>Kürzel festlegen</translation>
    </message>
    <message>
        <source>Close tip</source>
        <translation>Tipp schließen</translation>
    </message>
</context>
</TS>
