<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pl" sourcelanguage="en">
<context>
    <name>Trovell</name>
    <message numerus="yes">
        <source>%lld items</source>
        <translation>
            <numerusform>%lld element</numerusform>
            <numerusform>%lld elementy</numerusform>
            <numerusform>%lld elementów</numerusform>
        </translation>
    </message>
    <message>
        <source>Completed %lld actions. %lld windows restored. Review %lld skipped or failed items.</source>
        <translation>%1$@ • %2$@ • %3$@</translation>
    </message>
</context>
<context>
    <name>Trovell, number 1</name>
    <message numerus="yes">
        <source>Completed %lld actions. %lld windows restored. Review %lld skipped or failed items.</source>
        <translation>
            <numerusform>%lld akcja</numerusform>
            <numerusform>%lld akcje</numerusform>
            <numerusform>%lld akcji</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Trovell, number 2</name>
    <message numerus="yes">
        <source>Completed %lld actions. %lld windows restored. Review %lld skipped or failed items.</source>
        <translation>
            <numerusform>%lld okno</numerusform>
            <numerusform>%lld okna</numerusform>
            <numerusform>%lld okien</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Trovell, number 3</name>
    <message numerus="yes">
        <source>Completed %lld actions. %lld windows restored. Review %lld skipped or failed items.</source>
        <translation>
            <numerusform>%lld wpis</numerusform>
            <numerusform>%lld wpisy</numerusform>
            <numerusform>%lld wpisów</numerusform>
        </translation>
    </message>
</context>
</TS>
