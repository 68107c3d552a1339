<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<!-- What English on Linux says in other words than the keys. Everything else is its own English,
     also behind a number: "1 items" is the product's way. -->
<context>
    <name>Trovell</name>
    <message>
        <source>Your Mac, ready in one click.</source>
        <translation>Your desktop, ready in one click.</translation>
    </message>
    <message>
        <source>Your workspace stays on your Mac.</source>
        <translation>Your workspace stays on this computer.</translation>
    </message>
    <message>
        <source>Workspace data stays on this Mac</source>
        <translation>Workspace data stays on this computer</translation>
    </message>
    <message>
        <source>Shortcuts use Control–Option and work globally without Input Monitoring.</source>
        <translation>Shortcuts use Ctrl–Alt and work globally without Input Monitoring.</translation>
    </message>
    <message>
        <source>macOS could not open %@.</source>
        <translation>The system could not open %@.</translation>
    </message>
    <message>
        <source>macOS refused the window position change.</source>
        <translation>The system refused the window position change.</translation>
    </message>
    <message>
        <source>⌃⌥1</source>
        <translation>Ctrl+Alt+1</translation>
    </message>
    <message>
        <source>⌃⌥2</source>
        <translation>Ctrl+Alt+2</translation>
    </message>
    <message>
        <source>⌃⌥3</source>
        <translation>Ctrl+Alt+3</translation>
    </message>
    <message>
        <source>⌃⌥4</source>
        <translation>Ctrl+Alt+4</translation>
    </message>
    <message>
        <source>⌃⌥5</source>
        <translation>Ctrl+Alt+5</translation>
    </message>
</context>
</TS>
