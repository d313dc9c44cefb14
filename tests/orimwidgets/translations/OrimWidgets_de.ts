<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>GuiCentral</name>
    <message>
        <source>Rainbow</source>
        <translation>Regenbogen</translation>
    </message>
</context>
</TS>
