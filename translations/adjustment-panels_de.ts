<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>AdjustmentDialogBase</name>
    <message>
        <source>Form</source>
        <translation>Formular</translation>
    </message>
</context>
<context>
    <name>BrightnessContrastParamWidget</name>
    <message>
        <source>Brightness and Contrast</source>
        <translation>Helligkeit und Kontrast</translation>
    </message>
    <message>
        <source>Brightness:</source>
        <translation>Helligkeit:</translation>
    </message>
    <message>
        <source>Contrast:</source>
        <translation>Kontrast:</translation>
    </message>
</context>
<context>
    <name>HBOperationProgressDlg</name>
    <message>
        <source>Please wait</source>
        <translation>Bitte warten</translation>
    </message>
</context>
<context>
    <name>HBPanelCatalog</name>
    <message>
        <source>Tonal</source>
        <translation>Tonwerte</translation>
    </message>
    <message>
        <source>Brightness and Contrast</source>
        <translation>Helligkeit und Kontrast</translation>
    </message>
</context>
<context>
    <name>KMDocumentView</name>
    <message>
        <source>Photo</source>
        <translation>Foto</translation>
    </message>
</context>
<context>
    <name>KMImageFileManager</name>
    <message>
        <source>JPEG</source>
        <translation>JPEG</translation>
    </message>
    <message>
        <source>PNG</source>
        <translation>PNG</translation>
    </message>
    <message>
        <source>TIFF</source>
        <translation>TIFF</translation>
    </message>
    <message>
        <source>WebP</source>
        <translation>WebP</translation>
    </message>
</context>
<context>
    <name>PanelReplay</name>
    <message>
        <source>interrupted; %1 of %2 photos were written</source>
        <translation>abgebrochen; %1 von %2 Fotos wurden geschrieben</translation>
    </message>
</context>
</TS>
