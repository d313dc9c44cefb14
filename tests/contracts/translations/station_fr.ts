<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<context>
    <name>Station</name>
    <message>
        <source>Level</source>
        <translation>Niveau</translation>
    </message>
</context>
</TS>
