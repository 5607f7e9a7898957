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
        <source>Open shortcuts</source>
        <translation>Tastenkürzel öffnen</translation>
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
        <source>A scene keeps the windows as they are now. Give it a key in the shortcuts.</source>
        <translation>Eine Szene hält die Fenster fest, wie sie jetzt stehen. Geben Sie ihr bei den Tastenkürzeln eine Taste.</translation>
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
</TS>
