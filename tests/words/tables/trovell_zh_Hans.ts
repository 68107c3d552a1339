<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_Hans" sourcelanguage="en">
<context>
    <name>Trovell</name>
    <message>
        <source>Light</source>
        <translation>浅色</translation>
    </message>
    <message numerus="yes">
        <source>%lld items</source>
        <translation>
            <numerusform>%lld 个项目</numerusform>
        </translation>
    </message>
</context>
</TS>
