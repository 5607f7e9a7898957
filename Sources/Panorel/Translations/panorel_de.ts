<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Panorel</name>
    <message>
        <source>just now</source>
        <translation>gerade eben</translation>
    </message>
    <message>
        <source>a minute ago</source>
        <translation>vor einer Minute</translation>
    </message>
    <message>
        <source>%1 minutes ago</source>
        <translation>vor %1 Minuten</translation>
    </message>
    <message>
        <source>today at %1</source>
        <translation>heute um %1</translation>
    </message>
    <message>
        <source>yesterday at %1</source>
        <translation>gestern um %1</translation>
    </message>
    <message>
        <source>on %1</source>
        <translation>am %1</translation>
    </message>
</context>
<context>
    <name>Panorel::AboutPane</name>
    <message>
        <source>About</source>
        <translation>Über</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>Every window stays where you left it.</source>
        <translation>Jedes Fenster bleibt, wo Sie es gelassen haben.</translation>
    </message>
    <message>
        <source>Check for Updates…</source>
        <translation>Nach Aktualisierungen suchen …</translation>
    </message>
    <message>
        <source>Updates</source>
        <translation>Aktualisierungen</translation>
    </message>
    <message>
        <source>Check for updates automatically</source>
        <translation>Automatisch nach Aktualisierungen suchen</translation>
    </message>
    <message>
        <source>Look for a new version now</source>
        <translation>Jetzt nach einer neuen Version suchen</translation>
    </message>
    <message>
        <source>MIT License</source>
        <translation>MIT-Lizenz</translation>
    </message>
    <message>
        <source>LGPL version 3</source>
        <translation>LGPL Version 3</translation>
    </message>
    <message>
        <source>Licences</source>
        <translation>Lizenzen</translation>
    </message>
    <message>
        <source>So far, Panorel has put back %1 windows across %2 restores.</source>
        <translation>Bisher hat Panorel bei %2 Wiederherstellungen %1 Fenster zurückgestellt.</translation>
    </message>
    <message>
        <source>%1 scene switches · %2 stashes · %3 desks</source>
        <translation>%1 Szenenwechsel · %2-mal weggeräumt · %3 Arbeitsplätze</translation>
    </message>
    <message>
        <source>LGPL version 2.1 or later</source>
        <translation>LGPL Version 2.1 oder neuer</translation>
    </message>
    <message>
        <source>LGPL version 2.1 or MPL version 2.0</source>
        <translation>LGPL Version 2.1 oder MPL Version 2.0</translation>
    </message>
</context>
<context>
    <name>Panorel::AddTriggerSheet</name>
    <message>
        <source>At a time</source>
        <translation>Zu einer Uhrzeit</translation>
    </message>
    <message>
        <source>Before a meeting</source>
        <translation>Vor einer Besprechung</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Add trigger</source>
        <translation>Auslöser hinzufügen</translation>
    </message>
    <message>
        <source>No days selected means every day.</source>
        <translation>Kein Tag ausgewählt bedeutet jeden Tag.</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Uhrzeit</translation>
    </message>
    <message>
        <source>min</source>
        <translation>min</translation>
    </message>
    <message>
        <source>Minutes before</source>
        <translation>Minuten vorher</translation>
    </message>
    <message>
        <source>Counts for calendar events with a link to a video meeting.</source>
        <translation>Gilt für Kalendertermine mit einem Link zu einer Videobesprechung.</translation>
    </message>
    <message>
        <source>Scene to apply</source>
        <translation>Anzuwendende Szene</translation>
    </message>
    <message>
        <source>Add scene</source>
        <translation>Szene hinzufügen</translation>
    </message>
    <message>
        <source>There is no scene to apply yet.</source>
        <translation>Es gibt noch keine Szene zum Anwenden.</translation>
    </message>
    <message>
        <source>Makes one of the windows as they are now.</source>
        <translation>Legt eine aus den Fenstern an, wie sie jetzt stehen.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>Panorel::AutomationPane</name>
    <message>
        <source>Automation</source>
        <translation>Automatik</translation>
    </message>
    <message>
        <source>Add trigger…</source>
        <translation>Auslöser hinzufügen …</translation>
    </message>
    <message>
        <source>A trigger applies a scene on its own, at a time of day or before a meeting. Yours will appear here.</source>
        <translation>Ein Auslöser wendet eine Szene von selbst an, zu einer Uhrzeit oder vor einer Besprechung. Ihre Auslöser erscheinen hier.</translation>
    </message>
    <message>
        <source>“%1” was removed.</source>
        <translation>„%1“ wurde entfernt.</translation>
    </message>
</context>
<context>
    <name>Panorel::CalendarNotice</name>
    <message>
        <source>Calendar access needed</source>
        <translation>Kalenderzugriff nötig</translation>
    </message>
    <message>
        <source>Grant calendar access…</source>
        <translation>Kalenderzugriff erlauben …</translation>
    </message>
    <message>
        <source>No access was given, or there is no calendar yet.</source>
        <translation>Der Zugriff wurde nicht erlaubt, oder es gibt noch keinen Kalender.</translation>
    </message>
    <message>
        <source>Meetings are read from the calendar accounts of your desktop and from the .ics files in ~/.calendars.</source>
        <translation>Besprechungen werden aus den Kalenderkonten Ihrer Arbeitsumgebung und aus den .ics-Dateien in ~/.calendars gelesen.</translation>
    </message>
</context>
<context>
    <name>Panorel::DayPicker</name>
    <message>
        <source>Days</source>
        <translation>Tage</translation>
    </message>
</context>
<context>
    <name>Panorel::DeskCard</name>
    <message>
        <source>No displays detected</source>
        <translation>Keine Bildschirme erkannt</translation>
    </message>
</context>
<context>
    <name>Panorel::DesksTab</name>
    <message>
        <source>Remembered desks</source>
        <translation>Gemerkte Arbeitsplätze</translation>
    </message>
    <message>
        <source>A desk is a set of connected displays. Each one appears here once its windows were learned, which takes a minute or two.</source>
        <translation>Ein Arbeitsplatz ist eine Zusammenstellung angeschlossener Bildschirme. Jeder erscheint hier, sobald seine Fenster gelernt sind; das dauert ein bis zwei Minuten.</translation>
    </message>
    <message>
        <source>The places of its %1 and its name are lost; its scenes stay.</source>
        <translation>Die Plätze (%1) und der Name gehen verloren; die Szenen bleiben.</translation>
    </message>
    <message>
        <source>As it is connected, Panorel learns it anew.</source>
        <translation>Da er angeschlossen ist, lernt Panorel ihn neu.</translation>
    </message>
    <message>
        <source>Forget “%1”?</source>
        <translation>„%1“ vergessen?</translation>
    </message>
    <message>
        <source>Forget</source>
        <translation>Vergessen</translation>
    </message>
</context>
<context>
    <name>Panorel::DisplaysPane</name>
    <message>
        <source>Displays</source>
        <translation>Bildschirme</translation>
    </message>
    <message>
        <source>No displays detected</source>
        <translation>Keine Bildschirme erkannt</translation>
    </message>
    <message>
        <source> s</source>
        <translation> s</translation>
    </message>
    <message>
        <source>After a change</source>
        <translation>Nach einer Änderung</translation>
    </message>
    <message>
        <source>Wait before moving windows</source>
        <translation>Warten, bevor Fenster bewegt werden</translation>
    </message>
    <message>
        <source>Displays come up one by one. Windows move once nothing has changed for this long.</source>
        <translation>Bildschirme melden sich nacheinander. Fenster bewegen sich erst, wenn sich so lange nichts geändert hat.</translation>
    </message>
    <message>
        <source>Built-in display</source>
        <translation>Eingebauter Bildschirm</translation>
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
    <name>Panorel::GeneralPane</name>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Keep windows where I leave them</source>
        <translation>Fenster dort halten, wo ich sie lasse</translation>
    </message>
    <message>
        <source>Off: nothing is learned, and no window moves by itself.</source>
        <translation>Aus: Nichts wird gelernt, und kein Fenster bewegt sich von selbst.</translation>
    </message>
    <message>
        <source>Restoring</source>
        <translation>Wiederherstellen</translation>
    </message>
    <message>
        <source>Restore when displays change</source>
        <translation>Wiederherstellen, wenn sich Bildschirme ändern</translation>
    </message>
    <message>
        <source>Off: use “Restore Now” in the panel when you want your windows back.</source>
        <translation>Aus: „Jetzt wiederherstellen“ im Fenster am Symbol bringt die Fenster zurück.</translation>
    </message>
    <message>
        <source>Restore sizes too</source>
        <translation>Auch Größen wiederherstellen</translation>
    </message>
    <message>
        <source>Off: windows go back to their place and keep the size they have.</source>
        <translation>Aus: Fenster kehren an ihren Platz zurück und behalten ihre Größe.</translation>
    </message>
    <message>
        <source>Place newly opened apps</source>
        <translation>Neu geöffnete Programme einordnen</translation>
    </message>
    <message>
        <source>Windows of an app that you open go where they were on this desk.</source>
        <translation>Fenster eines Programms, das Sie öffnen, kommen dorthin, wo sie an diesem Arbeitsplatz waren.</translation>
    </message>
    <message>
        <source>Scenes</source>
        <translation>Szenen</translation>
    </message>
    <message>
        <source>Hide other apps when switching</source>
        <translation>Beim Wechseln andere Programme ausblenden</translation>
    </message>
    <message>
        <source>Off: the scene&apos;s windows come forward and everything else stays where it is. On: apps with no window in the scene get hidden — the Dock brings them back.</source>
        <translation>Aus: Die Fenster der Szene kommen nach vorn, alles andere bleibt, wo es ist. Ein: Programme ohne Fenster in der Szene werden ausgeblendet; das Dock bringt sie zurück.</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Launch at login</source>
        <translation>Bei der Anmeldung starten</translation>
    </message>
    <message>
        <source>Show icon in the Dock</source>
        <translation>Symbol im Dock zeigen</translation>
    </message>
    <message>
        <source>System</source>
        <translation>System</translation>
    </message>
    <message>
        <source>Grant permission…</source>
        <translation>Berechtigung erteilen …</translation>
    </message>
    <message>
        <source>Open settings…</source>
        <translation>Einstellungen öffnen …</translation>
    </message>
    <message>
        <source>Panorel has the permission to move windows.</source>
        <translation>Panorel darf Fenster bewegen.</translation>
    </message>
    <message>
        <source>Panorel needs Accessibility permission to move windows.</source>
        <translation>Panorel braucht die Berechtigung „Bedienungshilfen“, um Fenster zu bewegen.</translation>
    </message>
    <message>
        <source>Mission Control is set up so layouts survive display changes.</source>
        <translation>Mission Control ist so eingestellt, dass Anordnungen Bildschirmwechsel überstehen.</translation>
    </message>
    <message>
        <source>Turn on “Displays have separate Spaces”. Takes effect after you log out and back in.</source>
        <translation>Schalten Sie „Monitore verwenden verschiedene Spaces“ ein. Das gilt nach dem nächsten Anmelden.</translation>
    </message>
    <message>
        <source>Panorel can see and move your windows.</source>
        <translation>Panorel sieht Ihre Fenster und kann sie bewegen.</translation>
    </message>
    <message>
        <source>No window can be moved, as no window manager is running.</source>
        <translation>Kein Fenster lässt sich bewegen, da kein Fenstermanager läuft.</translation>
    </message>
</context>
<context>
    <name>Panorel::HotKeyRecorder</name>
    <message>
        <source>Type the keys…</source>
        <translation>Tasten drücken …</translation>
    </message>
    <message>
        <source>Record keys</source>
        <translation>Tasten aufnehmen</translation>
    </message>
    <message>
        <source>This key can&apos;t be part of a shortcut.</source>
        <translation>Diese Taste kann nicht Teil eines Tastenkürzels sein.</translation>
    </message>
    <message>
        <source>Add a modifier: a shortcut takes its keys away from every other program.</source>
        <translation>Nehmen Sie eine Umschalttaste hinzu: Ein Tastenkürzel nimmt seine Tasten allen anderen Programmen weg.</translation>
    </message>
    <message>
        <source>Shift alone is for typing. Add another modifier.</source>
        <translation>Die Umschalttaste allein gehört zum Schreiben. Nehmen Sie eine weitere hinzu.</translation>
    </message>
</context>
<context>
    <name>Panorel::HowItWorksPage</name>
    <message>
        <source>How it works</source>
        <translation>So funktioniert es</translation>
    </message>
    <message>
        <source>There is nothing to set up. Arrange your windows as you like them.</source>
        <translation>Es gibt nichts einzurichten. Stellen Sie Ihre Fenster so, wie Sie sie mögen.</translation>
    </message>
    <message>
        <source>Your windows, as you left them.</source>
        <translation>Ihre Fenster, wie Sie sie verlassen haben.</translation>
    </message>
    <message>
        <source>A display goes: they pile up.</source>
        <translation>Ein Bildschirm geht: Sie türmen sich auf.</translation>
    </message>
    <message>
        <source>It comes back: all in place.</source>
        <translation>Er kommt zurück: alles am Platz.</translation>
    </message>
    <message>
        <source>Only when the displays have settled</source>
        <translation>Erst wenn die Bildschirme zur Ruhe gekommen sind</translation>
    </message>
    <message>
        <source>While they change, nothing is learned, so a mess is never taken for your arrangement.</source>
        <translation>Solange sie sich ändern, wird nichts gelernt; so gilt ein Durcheinander nie als Ihre Anordnung.</translation>
    </message>
    <message>
        <source>Undo puts the windows back to where they were before.</source>
        <translation>„Rückgängig“ stellt die Fenster dorthin zurück, wo sie vorher waren.</translation>
    </message>
    <message>
        <source>You can undo it</source>
        <translation>Es lässt sich rückgängig machen</translation>
    </message>
</context>
<context>
    <name>Panorel::LayoutsWindow</name>
    <message>
        <source>Desks</source>
        <translation>Arbeitsplätze</translation>
    </message>
    <message>
        <source>Scenes</source>
        <translation>Szenen</translation>
    </message>
    <message>
        <source>Rules</source>
        <translation>Regeln</translation>
    </message>
    <message>
        <source>Section</source>
        <translation>Abschnitt</translation>
    </message>
    <message>
        <source>Saved scenes</source>
        <translation>Gesicherte Szenen</translation>
    </message>
</context>
<context>
    <name>Panorel::LearnedDeskCard</name>
    <message>
        <source>Desk name</source>
        <translation>Name des Arbeitsplatzes</translation>
    </message>
    <message>
        <source>Forget…</source>
        <translation>Vergessen …</translation>
    </message>
    <message>
        <source>Current desk</source>
        <translation>Aktueller Arbeitsplatz</translation>
    </message>
    <message>
        <source>%1, last learned %2</source>
        <translation>%1, zuletzt gelernt %2</translation>
    </message>
</context>
<context>
    <name>Panorel::OnboardingWindow</name>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>Welcome to Panorel</source>
        <translation>Willkommen bei Panorel</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
</context>
<context>
    <name>Panorel::PageDots</name>
    <message>
        <source>Page %1 of %2</source>
        <translation>Seite %1 von %2</translation>
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
    <name>Panorel::PictureField</name>
    <message>
        <source>Choose…</source>
        <translation>Wählen …</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Desktop picture</source>
        <translation>Schreibtischbild</translation>
    </message>
    <message>
        <source>Leave it as it is</source>
        <translation>Unverändert lassen</translation>
    </message>
    <message>
        <source>%1 can&apos;t be read</source>
        <translation>%1 ist nicht lesbar</translation>
    </message>
    <message>
        <source>Choose a picture</source>
        <translation>Bild wählen</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>Alle Dateien</translation>
    </message>
</context>
<context>
    <name>Panorel::ReadyPage</name>
    <message>
        <source>Grant permission…</source>
        <translation>Berechtigung erteilen …</translation>
    </message>
    <message>
        <source>Save this arrangement as a scene</source>
        <translation>Diese Anordnung als Szene sichern</translation>
    </message>
    <message>
        <source>Panorel sits in the tray</source>
        <translation>Panorel finden Sie neben der Uhr</translation>
    </message>
    <message>
        <source>Click its icon to open the panel. Without a tray, start Panorel once more.</source>
        <translation>Ein Klick auf das Symbol öffnet die Übersicht. Gibt es dort keine Symbole, starten Sie Panorel noch einmal.</translation>
    </message>
    <message>
        <source>Come back to this arrangement with a key</source>
        <translation>Mit einer Taste zu dieser Anordnung zurück</translation>
    </message>
    <message>
        <source>All set</source>
        <translation>Alles bereit</translation>
    </message>
    <message>
        <source>Panorel can see and move your windows.</source>
        <translation>Panorel sieht Ihre Fenster und kann sie bewegen.</translation>
    </message>
    <message>
        <source>One permission is missing</source>
        <translation>Eine Berechtigung fehlt</translation>
    </message>
    <message>
        <source>Panorel needs Accessibility permission to move windows.</source>
        <translation>Panorel braucht die Berechtigung „Bedienungshilfen“, um Fenster zu bewegen.</translation>
    </message>
    <message>
        <source>A window manager is missing</source>
        <translation>Ein Fenstermanager fehlt</translation>
    </message>
    <message>
        <source>No window manager answers, and without one no window can be moved. Panorel starts working as soon as one runs.</source>
        <translation>Es antwortet kein Fenstermanager, und ohne ihn lässt sich kein Fenster bewegen. Sobald einer läuft, nimmt Panorel die Arbeit auf.</translation>
    </message>
    <message>
        <source>Saved as %1</source>
        <translation>Gesichert als %1</translation>
    </message>
    <message>
        <source>Open the panel</source>
        <translation>Übersicht öffnen</translation>
    </message>
    <message>
        <source>Set its key</source>
        <translation>Taste dafür festlegen</translation>
    </message>
    <message>
        <source>A scene keeps the windows as they are now. Save one, then set its key.</source>
        <translation>Eine Szene hält die Fenster fest, wie sie jetzt stehen. Sichern Sie eine und legen Sie dann ihre Taste fest.</translation>
    </message>
    <message>
        <source>Panorel sits in the menu bar</source>
        <translation>Panorel sitzt in der Menüleiste</translation>
    </message>
    <message>
        <source>Click its icon to open the panel.</source>
        <translation>Ein Klick auf das Symbol öffnet die Übersicht.</translation>
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
    <message>
        <source>No window can be moved, as no window manager is running.</source>
        <translation>Kein Fenster lässt sich bewegen, da kein Fenstermanager läuft.</translation>
    </message>
</context>
<context>
    <name>Panorel::RulesModel</name>
    <message>
        <source>Application</source>
        <translation>Programm</translation>
    </message>
    <message>
        <source>Ignore</source>
        <translation>Ignorieren</translation>
    </message>
    <message>
        <source>Always restore the size</source>
        <translation>Größe immer wiederherstellen</translation>
    </message>
</context>
<context>
    <name>Panorel::RulesTab</name>
    <message>
        <source>Every application of which Panorel remembers a window appears here, with what you decide for it.</source>
        <translation>Jedes Programm, von dem sich Panorel ein Fenster merkt, erscheint hier mit dem, was Sie dafür bestimmen.</translation>
    </message>
    <message>
        <source>Rules for applications</source>
        <translation>Regeln für Programme</translation>
    </message>
    <message>
        <source>Windows of an ignored application are never moved. Otherwise each window goes back to its place, and to its size where sizes are restored or you ask for it here.</source>
        <translation>Fenster eines ignorierten Programms werden nie bewegt. Sonst kehrt jedes Fenster an seinen Platz zurück, und zu seiner Größe, wo Größen wiederhergestellt werden oder Sie es hier verlangen.</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Search applications</source>
        <translation>Programme suchen</translation>
    </message>
    <message>
        <source>No application is called so.</source>
        <translation>Kein Programm heißt so.</translation>
    </message>
</context>
<context>
    <name>Panorel::SceneCard</name>
    <message>
        <source>Scene name</source>
        <translation>Name der Szene</translation>
    </message>
    <message>
        <source>Edit…</source>
        <translation>Bearbeiten …</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Anwenden</translation>
    </message>
    <message>
        <source>Delete…</source>
        <translation>Löschen …</translation>
    </message>
    <message>
        <source>Hide options</source>
        <translation>Optionen ausblenden</translation>
    </message>
    <message>
        <source>Key and options</source>
        <translation>Taste und Optionen</translation>
    </message>
</context>
<context>
    <name>Panorel::SceneCollection</name>
    <message>
        <source>Add scene from current windows</source>
        <translation>Szene aus den aktuellen Fenstern</translation>
    </message>
    <message>
        <source>A scene is an arrangement of windows that you can switch to at any time. Yours will appear here.</source>
        <translation>Eine Szene ist eine Anordnung von Fenstern, zu der Sie jederzeit wechseln können. Ihre Szenen erscheinen hier.</translation>
    </message>
    <message>
        <source>Current desk</source>
        <translation>Aktueller Arbeitsplatz</translation>
    </message>
    <message>
        <source>Its arrangement of %1, its options and its key are removed.</source>
        <translation>Ihre Anordnung (%1), ihre Optionen und ihre Taste werden entfernt.</translation>
    </message>
    <message>
        <source>What should apply it on its own will do nothing.</source>
        <translation>Was sie von selbst anwenden sollte, tut dann nichts.</translation>
    </message>
    <message>
        <source>Delete “%1”?</source>
        <translation>„%1“ löschen?</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>“%1” was deleted.</source>
        <translation>„%1“ wurde gelöscht.</translation>
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
    <message>
        <source>Set key</source>
        <translation>Taste festlegen</translation>
    </message>
</context>
<context>
    <name>Panorel::SceneOptions</name>
    <message>
        <source>Open missing applications</source>
        <translation>Fehlende Programme öffnen</translation>
    </message>
    <message>
        <source>Starts those of the scene that do not run.</source>
        <translation>Startet die der Szene, die nicht laufen.</translation>
    </message>
    <message>
        <source>Hide other applications</source>
        <translation>Andere Programme ausblenden</translation>
    </message>
    <message>
        <source>Off: the scene&apos;s windows come forward and everything else stays where it is. On: apps with no window in the scene get hidden — the Dock brings them back.</source>
        <translation>Aus: Die Fenster der Szene kommen nach vorn, alles andere bleibt, wo es ist. Ein: Programme ohne Fenster in der Szene werden ausgeblendet; das Dock bringt sie zurück.</translation>
    </message>
    <message>
        <source>Desktop picture</source>
        <translation>Schreibtischbild</translation>
    </message>
    <message>
        <source>Key</source>
        <translation>Taste</translation>
    </message>
    <message>
        <source>Applies the scene from anywhere.</source>
        <translation>Wendet die Szene von überall an.</translation>
    </message>
</context>
<context>
    <name>Panorel::ScenePicker</name>
    <message>
        <source>Scene</source>
        <translation>Szene</translation>
    </message>
</context>
<context>
    <name>Panorel::SceneStudioCanvas</name>
    <message>
        <source>Windows of the scene</source>
        <translation>Fenster der Szene</translation>
    </message>
</context>
<context>
    <name>Panorel::SceneStudioWindow</name>
    <message>
        <source>Add application</source>
        <translation>Programm hinzufügen</translation>
    </message>
    <message>
        <source>Remove window</source>
        <translation>Fenster entfernen</translation>
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
        <source>The windows of this scene will appear here, where you can arrange them. Add a running application to begin.</source>
        <translation>Die Fenster dieser Szene erscheinen hier, wo Sie sie anordnen können. Fügen Sie zum Anfang ein laufendes Programm hinzu.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Sichern</translation>
    </message>
    <message>
        <source>Drag a window to move it, or its edges to resize it.</source>
        <translation>Ziehen Sie ein Fenster, um es zu bewegen, oder seine Ränder, um die Größe zu ändern.</translation>
    </message>
    <message>
        <source>No other applications are running</source>
        <translation>Keine weiteren Programme laufen</translation>
    </message>
</context>
<context>
    <name>Panorel::ScenesPane</name>
    <message>
        <source>Scenes</source>
        <translation>Szenen</translation>
    </message>
</context>
<context>
    <name>Panorel::SettingsModel</name>
    <message>
        <source>another program</source>
        <translation>einem anderen Programm</translation>
    </message>
</context>
<context>
    <name>Panorel::SettingsWindow</name>
    <message>
        <source>Sections</source>
        <translation>Abschnitte</translation>
    </message>
    <message>
        <source>Panorel Settings</source>
        <translation>Panorel-Einstellungen</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Displays</source>
        <translation>Bildschirme</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Scenes</source>
        <translation>Szenen</translation>
    </message>
    <message>
        <source>Automation</source>
        <translation>Automatik</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Über</translation>
    </message>
</context>
<context>
    <name>Panorel::ShortcutRow</name>
    <message>
        <source>Shortcut for %1</source>
        <translation>Tastenkürzel für %1</translation>
    </message>
    <message>
        <source>Clear the shortcut for %1</source>
        <translation>Tastenkürzel für %1 löschen</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Already used by %1</source>
        <translation>Bereits verwendet von %1</translation>
    </message>
</context>
<context>
    <name>Panorel::ShortcutsPane</name>
    <message>
        <source>Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Scenes</source>
        <translation>Szenen</translation>
    </message>
    <message>
        <source>Scenes that you save can have a key each.</source>
        <translation>Jede Szene, die Sie sichern, kann eine Taste haben.</translation>
    </message>
    <message>
        <source>Save current as scene</source>
        <translation>Aktuelle Anordnung als Szene sichern</translation>
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
<context>
    <name>Panorel::TriggerRow</name>
    <message>
        <source>deleted scene</source>
        <translation>gelöschte Szene</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
</context>
<context>
    <name>Panorel::UndoLine</name>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
</context>
<context>
    <name>Panorel::UnsavedChangesDialog</name>
    <message>
        <source>If you discard them, the scene stays as it was.</source>
        <translation>Wenn Sie sie verwerfen, bleibt die Szene, wie sie war.</translation>
    </message>
    <message>
        <source>Save the changes to “%1”?</source>
        <translation>Änderungen an „%1“ sichern?</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Verwerfen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Sichern</translation>
    </message>
</context>
<context>
    <name>Panorel::WelcomePage</name>
    <message>
        <source>Welcome to Panorel</source>
        <translation>Willkommen bei Panorel</translation>
    </message>
    <message>
        <source>It keeps every window where you left it.</source>
        <translation>Jedes Fenster bleibt dort, wo Sie es hingestellt haben.</translation>
    </message>
    <message>
        <source>Every desk has its own arrangement</source>
        <translation>Jeder Arbeitsplatz hat seine eigene Anordnung</translation>
    </message>
    <message>
        <source>Panorel learns by itself where your windows sit, for each set of displays that you connect.</source>
        <translation>Panorel lernt von selbst, wo Ihre Fenster stehen, für jede Kombination von Bildschirmen, die Sie anschließen.</translation>
    </message>
    <message>
        <source>Back in place when a display comes back</source>
        <translation>Wieder am Platz, wenn ein Bildschirm zurückkommt</translation>
    </message>
    <message>
        <source>Scenes for what you do</source>
        <translation>Szenen für das, was Sie tun</translation>
    </message>
    <message>
        <source>Save an arrangement under a name and switch to it with a key.</source>
        <translation>Sichern Sie eine Anordnung unter einem Namen und wechseln Sie mit einer Taste zu ihr.</translation>
    </message>
    <message>
        <source>No network, no account: what it remembers stays on this computer.</source>
        <translation>Kein Netz, kein Konto: Was Panorel sich merkt, bleibt auf diesem Rechner.</translation>
    </message>
    <message>
        <source>After docking, undocking or sleep each window returns to its place, to the pixel.</source>
        <translation>Nach dem An- und Abdocken oder dem Ruhezustand kehrt jedes Fenster auf den Pixel genau zurück.</translation>
    </message>
</context>
<context>
    <name>QDialog</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>SceneGroup</name>
    <message>
        <source>1 window</source>
        <translation>1 Fenster</translation>
    </message>
    <message>
        <source>%1 windows</source>
        <translation>%1 Fenster</translation>
    </message>
    <message>
        <source>No displays</source>
        <translation>Keine Bildschirme</translation>
    </message>
</context>
<context>
    <name>StudioText</name>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>%1, %2 · %3 × %4</source>
        <translation>%1, %2 · %3 × %4</translation>
    </message>
    <message>
        <source>%1 · %2 · not running</source>
        <translation>%1 · %2 · läuft nicht</translation>
    </message>
    <message>
        <source>%1 · %2</source>
        <translation>%1 · %2</translation>
    </message>
</context>
</TS>
