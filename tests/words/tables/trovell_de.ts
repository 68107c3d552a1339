<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Trovell</name>
    <message>
        <source>Items</source>
        <translation>Objekte</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation type="unfinished">Vorschlag, noch ungeprüft</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Hell</translation>
    </message>
    <message>
        <source>System</source>
        <translation>Wie das System</translation>
    </message>
    <message>
        <source>Window layout</source>
        <translation>Fensteranordnung</translation>
    </message>
    <message>
        <source>⌃⌥1</source>
        <translation>Strg+Alt+1</translation>
    </message>
    <message numerus="yes">
        <source>%lld items</source>
        <translation>
            <numerusform>%lld Objekt</numerusform>
            <numerusform>%lld Objekte</numerusform>
        </translation>
    </message>
    <message>
        <source>%lld windows selected • %lld previous positions kept</source>
        <translation>%2$@, %1$@</translation>
    </message>
    <message>
        <source>Completed %lld actions and restored %lld windows.</source>
        <translation>%2$lld Fenster, %1$lld Aktionen.</translation>
    </message>
    <message>
        <source>Remove %@</source>
        <translation>%@ entfernen</translation>
    </message>
    <message>
        <source>%@ saved.</source>
        <translation>„%@“ gesichert.</translation>
    </message>
    <message>
        <source>Workspace renamed to %@.</source>
        <translation>Heißt jetzt „%@“.</translation>
    </message>
    <message>
        <source>macOS could not open %@.</source>
        <translation>%@ ließ sich nicht öffnen.</translation>
    </message>
    <message>
        <source>%@ could not be found. Use Locate Again to update it.</source>
        <translation>Nicht gefunden: %@</translation>
    </message>
    <message>
        <source>Trovell could not open its local workspace store: %@</source>
        <translation>Start unmöglich: %@</translation>
    </message>
    <message>
        <source>The workspace file is damaged.</source>
        <translation>Die Datei ist beschädigt.</translation>
    </message>
</context>
<context>
    <name>Trovell, number 1</name>
    <message numerus="yes">
        <source>%lld windows selected • %lld previous positions kept</source>
        <translation>
            <numerusform>%lld Fenster gewählt</numerusform>
            <numerusform>%lld Fenster gewählt</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Trovell, number 2</name>
    <message numerus="yes">
        <source>%lld windows selected • %lld previous positions kept</source>
        <translation>
            <numerusform>%lld Position behalten</numerusform>
            <numerusform>%lld Positionen behalten</numerusform>
        </translation>
    </message>
</context>
</TS>
