<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>AxisBase</name>
    <message>
        <source>%1 to %2 %3</source>
        <translation>%1 bis %2 %3</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Skala</translation>
    </message>
</context>
<context>
    <name>AxisPropertyPage</name>
    <message>
        <source>Automatic Scaling</source>
        <translation>Automatische Skalierung</translation>
    </message>
    <message>
        <source>Azimuth Display Range:</source>
        <translation>Darstellung des Azimuts:</translation>
    </message>
    <message>
        <source>Display values from (min)</source>
        <translation>Werte darstellen von (Min.)</translation>
    </message>
    <message>
        <source>Enter Absolute Values here:</source>
        <translation>Absolute Werte hier eingeben:</translation>
    </message>
    <message>
        <source>to (max)</source>
        <translation>bis (Max.)</translation>
    </message>
</context>
<context>
    <name>AzimuthDisplaySelect</name>
    <message>
        <source>Absolute Values -180°..180°</source>
        <translation>Absolute Werte -180°..180°</translation>
    </message>
    <message>
        <source>Absolute Values 0°..360°</source>
        <translation>Absolute Werte 0°..360°</translation>
    </message>
    <message>
        <source>Azimuth selector</source>
        <translation>Azimut-Auswahl</translation>
    </message>
    <message>
        <source>Relative to Vehicle Axis -180°..180°</source>
        <translation>Relativ zur Fahrzeugachse -180°..180°</translation>
    </message>
    <message>
        <source>Relative to Vehicle Axis 0°..360°</source>
        <translation>Relativ zur Fahrzeugachse 0°..360°</translation>
    </message>
</context>
<context>
    <name>GuiCentral</name>
    <message>
        <source>Rainbow</source>
        <translation>Regenbogen</translation>
    </message>
</context>
<context>
    <name>VCCaption</name>
    <message>
        <source>Keep On Top</source>
        <translation>Immer im Vordergrund</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>Fortsetzen</translation>
    </message>
    <message>
        <source>Start or stop underlying data stream</source>
        <translation>Zugrunde liegenden Datenstrom starten oder anhalten</translation>
    </message>
    <message>
        <source>Start or stop waterfall</source>
        <translation>Wasserfall starten oder anhalten</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Waterfall only</source>
        <translation>Nur Wasserfall</translation>
    </message>
</context>
</TS>
