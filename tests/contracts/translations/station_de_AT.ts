<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_AT">
<context>
    <name>Station</name>
    <message>
        <source>Level</source>
        <translation>Pegl</translation>
    </message>
</context>
</TS>
