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
    <name>BlackAndWhiteWidget</name>
    <message>
        <source>Black &amp; White...</source>
        <translation>Schwarzweiß...</translation>
    </message>
    <message>
        <source>Average</source>
        <translation>Durchschnitt</translation>
    </message>
    <message>
        <source>Luminance</source>
        <translation>Luminanz</translation>
    </message>
    <message>
        <source>D65</source>
        <translation>D65</translation>
    </message>
    <message>
        <source>NTSC Specification</source>
        <translation>NTSC-Norm</translation>
    </message>
    <message>
        <source>CIE Specification</source>
        <translation>CIE-Norm</translation>
    </message>
    <message>
        <source>Custom weights:</source>
        <translation>Eigene Gewichtung:</translation>
    </message>
    <message>
        <source>R:</source>
        <translation>R:</translation>
    </message>
    <message>
        <source>Custom weight for R channel</source>
        <translation>Eigene Gewichtung des R-Kanals</translation>
    </message>
    <message>
        <source>G:</source>
        <translation>G:</translation>
    </message>
    <message>
        <source>Custom weight for G channel</source>
        <translation>Eigene Gewichtung des G-Kanals</translation>
    </message>
    <message>
        <source>B:</source>
        <translation>B:</translation>
    </message>
    <message>
        <source>Custom weight for B channel</source>
        <translation>Eigene Gewichtung des B-Kanals</translation>
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
    <name>ColorBalanceParamWidget</name>
    <message>
        <source>Color Balance</source>
        <translation>Farbbalance</translation>
    </message>
    <message>
        <source>Cyan</source>
        <translation>Cyan</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rot</translation>
    </message>
    <message>
        <source>Magenta</source>
        <translation>Magenta</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Grün</translation>
    </message>
    <message>
        <source>Yellow</source>
        <translation>Gelb</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Blau</translation>
    </message>
    <message>
        <source>Shadows</source>
        <translation>Tiefen</translation>
    </message>
    <message>
        <source>Midtones</source>
        <translation>Mitteltöne</translation>
    </message>
    <message>
        <source>Highlights</source>
        <translation>Lichter</translation>
    </message>
    <message>
        <source>Preserve Luminosity</source>
        <translation>Luminanz erhalten</translation>
    </message>
</context>
<context>
    <name>ColorEnhancer</name>
    <message>
        <source>Color enhancer</source>
        <translation>Farbverstärkung</translation>
    </message>
    <message>
        <source>Amount:</source>
        <translation>Stärke:</translation>
    </message>
    <message>
        <source>%</source>
        <translation>%</translation>
    </message>
    <message>
        <source>Affected:</source>
        <translation>Betroffen:</translation>
    </message>
</context>
<context>
    <name>ColorizeWidget</name>
    <message>
        <source>Colorize</source>
        <translation>Einfärben</translation>
    </message>
    <message>
        <source>Color:</source>
        <translation>Farbe:</translation>
    </message>
    <message>
        <source>Amount:</source>
        <translation>Stärke:</translation>
    </message>
    <message>
        <source>%</source>
        <translation>%</translation>
    </message>
</context>
<context>
    <name>ControlNode</name>
    <message>
        <source>Control point</source>
        <translation>Kontrollpunkt</translation>
    </message>
</context>
<context>
    <name>CurvesWidget</name>
    <message>
        <source>Curves</source>
        <translation>Kurven</translation>
    </message>
    <message>
        <source>Channel:</source>
        <translation>Kanal:</translation>
    </message>
    <message>
        <source>Channel for input signal</source>
        <translation>Kanal des Eingangssignals</translation>
    </message>
    <message>
        <source>RGB</source>
        <translation>RGB</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rot</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Grün</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Blau</translation>
    </message>
    <message>
        <source>Set black point</source>
        <translation>Schwarzpunkt setzen</translation>
    </message>
    <message>
        <source>Set gray point</source>
        <translation>Graupunkt setzen</translation>
    </message>
    <message>
        <source>Set white point</source>
        <translation>Weißpunkt setzen</translation>
    </message>
    <message>
        <source>Input:</source>
        <translation>Eingang:</translation>
    </message>
    <message>
        <source>0</source>
        <translation>0</translation>
    </message>
    <message>
        <source>Output:</source>
        <translation>Ausgang:</translation>
    </message>
</context>
<context>
    <name>ExposureParamWidget</name>
    <message>
        <source>Exposure correction</source>
        <translation>Belichtungskorrektur</translation>
    </message>
    <message>
        <source>Exposure:</source>
        <translation>Belichtung:</translation>
    </message>
    <message>
        <source>Offset:</source>
        <translation>Versatz:</translation>
    </message>
</context>
<context>
    <name>FillColor</name>
    <message>
        <source>Fill color</source>
        <translation>Farbfüllung</translation>
    </message>
    <message>
        <source>Color:</source>
        <translation>Farbe:</translation>
    </message>
    <message>
        <source>Opacity:</source>
        <translation>Deckkraft:</translation>
    </message>
    <message>
        <source>%</source>
        <translation>%</translation>
    </message>
</context>
<context>
    <name>GammaParamWidget</name>
    <message>
        <source>Gamma correction</source>
        <translation>Gammakorrektur</translation>
    </message>
    <message>
        <source>Gamma:</source>
        <translation>Gamma:</translation>
    </message>
</context>
<context>
    <name>GimpPlugIn</name>
    <message>
        <source>Nothing of the layer is selected.</source>
        <translation>Von der Ebene ist nichts ausgewählt.</translation>
    </message>
    <message>
        <source>There is not enough memory.</source>
        <translation>Der Speicher reicht nicht.</translation>
    </message>
    <message>
        <source>Apply Recipe</source>
        <translation>Rezept anwenden</translation>
    </message>
    <message>
        <source>Recipes (*.json);;All files (*)</source>
        <translation>Rezepte (*.json);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Run mode, image, layer and values are wanted.</source>
        <translation>Ausführungsart, Bild, Ebene und Werte sind anzugeben.</translation>
    </message>
    <message>
        <source>The layer is not one of the image.</source>
        <translation>Die Ebene gehört nicht zum Bild.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; must be a number</source>
        <translation>„%1“ muss eine Zahl sein</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is %2, but goes from %3 to %4</source>
        <translation>„%1“ ist %2, geht aber von %3 bis %4</translation>
    </message>
    <message>
        <source>&quot;%1&quot; must be a whole number</source>
        <translation>„%1“ muss eine ganze Zahl sein</translation>
    </message>
    <message>
        <source>&quot;%1&quot; must be one of: %2</source>
        <translation>„%1“ muss eines von diesen sein: %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; must be true or false</source>
        <translation>„%1“ muss true oder false sein</translation>
    </message>
    <message>
        <source>&quot;%1&quot; must be a text</source>
        <translation>„%1“ muss ein Text sein</translation>
    </message>
    <message>
        <source>&quot;%1&quot; must be a font</source>
        <translation>„%1“ muss eine Schrift sein</translation>
    </message>
    <message>
        <source>&quot;%1&quot; can be given in a record only</source>
        <translation>„%1“ kann nur in einem Datensatz angegeben werden</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be &quot;%2&quot;</source>
        <translation>„%1“ kann nicht „%2“ sein</translation>
    </message>
    <message>
        <source>there is no &quot;%1&quot;; there are: %2</source>
        <translation>„%1“ gibt es nicht; es gibt: %2</translation>
    </message>
    <message>
        <source>this adjustment has no record; its values are JSON</source>
        <translation>diese Anpassung hat keinen Datensatz; ihre Werte sind JSON</translation>
    </message>
    <message>
        <source>this is neither JSON nor a record in hexadecimal digits</source>
        <translation>das ist weder JSON noch ein Datensatz in Hexadezimalziffern</translation>
    </message>
    <message>
        <source>this is a step of %1</source>
        <translation>das ist ein Schritt von %1</translation>
    </message>
    <message>
        <source>A recipe is wanted: its JSON, or the name of its file.</source>
        <translation>Hier gehört ein Rezept hin: sein JSON oder der Name seiner Datei.</translation>
    </message>
    <message>
        <source>There is no panel %1.</source>
        <translation>Ein Panel %1 gibt es nicht.</translation>
    </message>
    <message>
        <source>The layer is no longer there.</source>
        <translation>Die Ebene gibt es nicht mehr.</translation>
    </message>
    <message>
        <source>The image has indexed colors. Convert it first: Image &gt; Mode &gt; RGB.</source>
        <translation>Das Bild hat indizierte Farben. Wandeln Sie es zuerst um: Bild &gt; Modus &gt; RGB.</translation>
    </message>
    <message>
        <source>A layer group has no pixels of its own. Choose one of its layers.</source>
        <translation>Eine Ebenengruppe hat keine eigenen Pixel. Wählen Sie eine ihrer Ebenen.</translation>
    </message>
    <message>
        <source>The pixels of the layer are locked.</source>
        <translation>Die Pixel der Ebene sind gesperrt.</translation>
    </message>
    <message>
        <source>What changes is stored with 8 bits of accuracy; the image has more.</source>
        <translation>Was sich ändert, wird mit 8 Bit Genauigkeit gespeichert; das Bild hat mehr.</translation>
    </message>
    <message>
        <source>This is gray: colors become shades of gray.</source>
        <translation>Das Bild ist grau: Farben werden zu Graustufen.</translation>
    </message>
    <message>
        <source>The layer has another size by now.</source>
        <translation>Die Ebene hat inzwischen eine andere Größe.</translation>
    </message>
    <message>
        <source>The image is gray: colors were stored as shades of gray. To keep them, convert it first: Image &gt; Mode &gt; RGB.</source>
        <translation>Das Bild ist grau: Farben sind als Graustufen gespeichert. Um sie zu behalten, wandeln Sie es zuerst um: Bild &gt; Modus &gt; RGB.</translation>
    </message>
    <message>
        <source>What changed was stored with 8 bits of accuracy; the image has more.</source>
        <translation>Was sich geändert hat, ist mit 8 Bit Genauigkeit gespeichert; das Bild hat mehr.</translation>
    </message>
    <message>
        <source>Adjusts the layer: %1</source>
        <translation>Passt die Ebene an: %1</translation>
    </message>
    <message>
        <source>Applies a stored recipe of adjustments to the layer</source>
        <translation>Wendet ein gespeichertes Rezept von Anpassungen auf die Ebene an</translation>
    </message>
    <message>
        <source>&quot;%1&quot; must be a color</source>
        <translation>„%1“ muss eine Farbe sein</translation>
    </message>
</context>
<context>
    <name>HBAdjustment</name>
    <message>
        <source>it has no record</source>
        <translation>er hat keinen Datensatz</translation>
    </message>
    <message>
        <source>its record is not base64</source>
        <translation>sein Datensatz ist nicht base64-kodiert</translation>
    </message>
    <message>
        <source>its record is too long</source>
        <translation>sein Datensatz ist zu lang</translation>
    </message>
    <message>
        <source>its record is not one of this panel</source>
        <translation>sein Datensatz gehört nicht zu dieser Anpassung</translation>
    </message>
    <message>
        <source>its record is cut short</source>
        <translation>sein Datensatz ist abgeschnitten</translation>
    </message>
    <message>
        <source>its record is broken</source>
        <translation>sein Datensatz ist beschädigt</translation>
    </message>
    <message>
        <source>it has no number &quot;%1&quot;</source>
        <translation>ihm fehlt die Zahl „%1“</translation>
    </message>
    <message>
        <source>Tonal</source>
        <translation>Tonwerte</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>Overlays</source>
        <translation>Überlagerungen</translation>
    </message>
    <message>
        <source>Brightness and Contrast</source>
        <translation>Helligkeit und Kontrast</translation>
    </message>
    <message>
        <source>Exposure</source>
        <translation>Belichtung</translation>
    </message>
    <message>
        <source>Gamma</source>
        <translation>Gamma</translation>
    </message>
    <message>
        <source>Posterize</source>
        <translation>Tontrennung</translation>
    </message>
    <message>
        <source>Levels</source>
        <translation>Tonwertkorrektur</translation>
    </message>
    <message>
        <source>Curves</source>
        <translation>Kurven</translation>
    </message>
    <message>
        <source>Threshold</source>
        <translation>Schwellenwert</translation>
    </message>
    <message>
        <source>Hue and Saturation</source>
        <translation>Farbton und Sättigung</translation>
    </message>
    <message>
        <source>Color Balance</source>
        <translation>Farbbalance</translation>
    </message>
    <message>
        <source>Picture Correction</source>
        <translation>Bildkorrektur</translation>
    </message>
    <message>
        <source>Temperature</source>
        <translation>Farbtemperatur</translation>
    </message>
    <message>
        <source>Color Enhancer</source>
        <translation>Farbverstärker</translation>
    </message>
    <message>
        <source>Tint</source>
        <translation>Tönung</translation>
    </message>
    <message>
        <source>Black and White</source>
        <translation>Schwarzweiß</translation>
    </message>
    <message>
        <source>Photo Filter</source>
        <translation>Fotofilter</translation>
    </message>
    <message>
        <source>Colorize</source>
        <translation>Einfärben</translation>
    </message>
    <message>
        <source>Replace Color</source>
        <translation>Farbe ersetzen</translation>
    </message>
    <message>
        <source>Fill Color</source>
        <translation>Mit Farbe füllen</translation>
    </message>
    <message>
        <source>Sign</source>
        <translation>Signatur</translation>
    </message>
    <message>
        <source>Watermark</source>
        <translation>Wasserzeichen</translation>
    </message>
    <message>
        <source>there is not enough memory</source>
        <translation>der Speicher reicht nicht</translation>
    </message>
    <message>
        <source>the adjustment failed: %1</source>
        <translation>die Anpassung ist fehlgeschlagen: %1</translation>
    </message>
    <message>
        <source>the adjustment failed</source>
        <translation>die Anpassung ist fehlgeschlagen</translation>
    </message>
</context>
<context>
    <name>HBBatchDialog</name>
    <message>
        <source>Apply to Marked Photos</source>
        <translation>Auf markierte Fotos anwenden</translation>
    </message>
    <message>
        <source>adjusted</source>
        <translation>angepasst</translation>
    </message>
    <message>
        <source>Keep both, with a number</source>
        <translation>Beide behalten, mit einer Nummer</translation>
    </message>
    <message>
        <source>Leave out the photo</source>
        <translation>Das Foto auslassen</translation>
    </message>
    <message>
        <source>Replace the file</source>
        <translation>Die Datei ersetzen</translation>
    </message>
    <message>
        <source>%v of %m</source>
        <translation>%v von %m</translation>
    </message>
    <message>
        <source>&amp;Browse…</source>
        <translation>&amp;Durchsuchen …</translation>
    </message>
    <message>
        <source>Photos: %1, steps: %2</source>
        <translation>Fotos: %1, Schritte: %2</translation>
    </message>
    <message>
        <source>&amp;Into the folder:</source>
        <translation>&amp;In den Ordner:</translation>
    </message>
    <message>
        <source>A file is there &amp;already:</source>
        <translation>Eine Datei ist &amp;schon da:</translation>
    </message>
    <message>
        <source>&amp;Apply</source>
        <translation>&amp;Anwenden</translation>
    </message>
    <message>
        <source>Folder of the Results</source>
        <translation>Ordner der Ergebnisse</translation>
    </message>
    <message>
        <source>&amp;Stop</source>
        <translation>&amp;Anhalten</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>This needs the program %1, which is not installed.</source>
        <translation>Das braucht das Programm %1, das nicht installiert ist.</translation>
    </message>
    <message>
        <source>Applying…</source>
        <translation>Wird angewendet …</translation>
    </message>
    <message>
        <source>Stopped. Written: %1</source>
        <translation>Angehalten. Geschrieben: %1</translation>
    </message>
    <message>
        <source>Written: %1, failed: %2</source>
        <translation>Geschrieben: %1, gescheitert: %2</translation>
    </message>
    <message>
        <source>It could not be done. %1</source>
        <translation>Das ging nicht. %1</translation>
    </message>
</context>
<context>
    <name>HBBlendingModes</name>
    <message>
        <source>Normal</source>
        <translation>Normal</translation>
    </message>
    <message>
        <source>Multiply</source>
        <translation>Multiplizieren</translation>
    </message>
    <message>
        <source>Screen</source>
        <translation>Negativ multiplizieren</translation>
    </message>
    <message>
        <source>Overlay</source>
        <translation>Ineinanderkopieren</translation>
    </message>
    <message>
        <source>Difference</source>
        <translation>Differenz</translation>
    </message>
    <message>
        <source>Exclusion</source>
        <translation>Ausschluss</translation>
    </message>
    <message>
        <source>Lighten colors</source>
        <translation>Farben aufhellen</translation>
    </message>
    <message>
        <source>Darken colors</source>
        <translation>Farben abdunkeln</translation>
    </message>
    <message>
        <source>Soft light</source>
        <translation>Weiches Licht</translation>
    </message>
    <message>
        <source>Hard light</source>
        <translation>Hartes Licht</translation>
    </message>
    <message>
        <source>Color dodge</source>
        <translation>Farbig abwedeln</translation>
    </message>
    <message>
        <source>Color burn</source>
        <translation>Farbig nachbelichten</translation>
    </message>
    <message>
        <source>Addition</source>
        <translation>Addition</translation>
    </message>
</context>
<context>
    <name>HBBusyDialog</name>
    <message>
        <source>Please wait</source>
        <translation>Bitte warten</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>HBColorTransform</name>
    <message>
        <source>the color profile cannot be used</source>
        <translation>das Farbprofil ist nicht brauchbar</translation>
    </message>
</context>
<context>
    <name>HBColorizeWidget</name>
    <message>
        <source>Select a color</source>
        <translation>Farbe auswählen</translation>
    </message>
</context>
<context>
    <name>HBCurvesWidget</name>
    <message>
        <source>First point</source>
        <translation>Erster Punkt</translation>
    </message>
    <message>
        <source>Last point</source>
        <translation>Letzter Punkt</translation>
    </message>
    <message>
        <source>Tone curve</source>
        <translation>Tonwertkurve</translation>
    </message>
    <message>
        <source>Page Up and Page Down select a point, Insert adds one, the arrow keys move it, Delete removes it.</source>
        <translation>Bild auf und Bild ab wählen einen Punkt, Einfg fügt einen hinzu, die Pfeiltasten bewegen ihn, Entf löscht ihn.</translation>
    </message>
</context>
<context>
    <name>HBDocument</name>
    <message>
        <source>Switch On %1</source>
        <translation>%1 einschalten</translation>
    </message>
    <message>
        <source>Switch Off %1</source>
        <translation>%1 ausschalten</translation>
    </message>
    <message>
        <source>Amount of %1</source>
        <translation>Stärke von %1</translation>
    </message>
    <message>
        <source>Move %1</source>
        <translation>%1 verschieben</translation>
    </message>
    <message>
        <source>Duplicate %1</source>
        <translation>%1 verdoppeln</translation>
    </message>
    <message>
        <source>Delete %1</source>
        <translation>%1 löschen</translation>
    </message>
    <message>
        <source>Selection</source>
        <translation>Auswahl</translation>
    </message>
    <message>
        <source>A photo has at most %1 steps.</source>
        <translation>Ein Foto hat höchstens %1 Schritte.</translation>
    </message>
</context>
<context>
    <name>HBEditorActions</name>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>Ö&amp;ffnen …</translation>
    </message>
    <message>
        <source>Open a photo</source>
        <translation>Ein Foto öffnen</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Write the photo to its file</source>
        <translation>Das Foto in seine Datei schreiben</translation>
    </message>
    <message>
        <source>Save &amp;As…</source>
        <translation>Speichern &amp;unter …</translation>
    </message>
    <message>
        <source>Write the photo to another file</source>
        <translation>Das Foto in eine andere Datei schreiben</translation>
    </message>
    <message>
        <source>Save &amp;Recipe…</source>
        <translation>&amp;Rezept speichern …</translation>
    </message>
    <message>
        <source>Store the steps done so far, to apply them to other photos</source>
        <translation>Die bisherigen Schritte aufheben, um sie auf andere Fotos anzuwenden</translation>
    </message>
    <message>
        <source>A&amp;pply Recipe…</source>
        <translation>Rezept an&amp;wenden …</translation>
    </message>
    <message>
        <source>Apply stored steps to the whole photo</source>
        <translation>Aufgehobene Schritte auf das ganze Foto anwenden</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>Leave the editor</source>
        <translation>Das Programm verlassen</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>&amp;Select</source>
        <translation>&amp;Auswahl</translation>
    </message>
    <message>
        <source>&amp;No Tool</source>
        <translation>&amp;Kein Werkzeug</translation>
    </message>
    <message>
        <source>&amp;Rectangle</source>
        <translation>&amp;Rechteck</translation>
    </message>
    <message>
        <source>Drag a rectangle; hold Shift for a square</source>
        <translation>Ein Rechteck aufziehen; mit Umschalt ein Quadrat</translation>
    </message>
    <message>
        <source>&amp;Ellipse</source>
        <translation>&amp;Ellipse</translation>
    </message>
    <message>
        <source>Drag an ellipse; hold Shift for a circle</source>
        <translation>Eine Ellipse aufziehen; mit Umschalt einen Kreis</translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation>&amp;Alles auswählen</translation>
    </message>
    <message>
        <source>Select the whole photo</source>
        <translation>Das ganze Foto auswählen</translation>
    </message>
    <message>
        <source>Select N&amp;othing</source>
        <translation>&amp;Nichts auswählen</translation>
    </message>
    <message>
        <source>Work on the whole photo</source>
        <translation>Am ganzen Foto arbeiten</translation>
    </message>
    <message>
        <source>&amp;Invert Selection</source>
        <translation>Auswahl &amp;umkehren</translation>
    </message>
    <message>
        <source>Select what is not selected now</source>
        <translation>Auswählen, was jetzt nicht ausgewählt ist</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>A&amp;nsicht</translation>
    </message>
    <message>
        <source>Zoom &amp;In</source>
        <translation>Ver&amp;größern</translation>
    </message>
    <message>
        <source>Show the photo larger</source>
        <translation>Das Foto größer zeigen</translation>
    </message>
    <message>
        <source>Zoom &amp;Out</source>
        <translation>Ver&amp;kleinern</translation>
    </message>
    <message>
        <source>Show the photo smaller</source>
        <translation>Das Foto kleiner zeigen</translation>
    </message>
    <message>
        <source>&amp;Fit</source>
        <translation>&amp;Einpassen</translation>
    </message>
    <message>
        <source>Show the whole photo</source>
        <translation>Das ganze Foto zeigen</translation>
    </message>
    <message>
        <source>&amp;100 %</source>
        <translation>&amp;100 %</translation>
    </message>
    <message>
        <source>Show each pixel of the photo on one of the screen</source>
        <translation>Jedes Pixel des Fotos auf einem des Bildschirms zeigen</translation>
    </message>
    <message>
        <source>&amp;Before and After</source>
        <translation>&amp;Vorher und nachher</translation>
    </message>
    <message>
        <source>Show the photo as it was left of a line that can be dragged</source>
        <translation>Links einer Linie, die sich ziehen lässt, das Foto zeigen, wie es war</translation>
    </message>
    <message>
        <source>Show &amp;Panels in the Side Bar</source>
        <translation>&amp;Panels in der Seitenleiste zeigen</translation>
    </message>
    <message>
        <source>Or else each in a window of its own</source>
        <translation>Sonst jedes in einem eigenen Fenster</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>&amp;Dunkel</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;About Panel Editor</source>
        <translation>Ü&amp;ber Panel Editor</translation>
    </message>
    <message>
        <source>About Panel Editor</source>
        <translation>Über Panel Editor</translation>
    </message>
    <message>
        <source>&lt;b&gt;Panel Editor %1&lt;/b&gt;&lt;p&gt;Adjusts photos with the adjustment panels.&lt;/p&gt;</source>
        <translation>&lt;b&gt;Panel Editor %1&lt;/b&gt;&lt;p&gt;Korrigiert Fotos mit den Adjustment Panels.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Werkzeuge</translation>
    </message>
    <message>
        <source> px</source>
        <translation> px</translation>
    </message>
    <message>
        <source>Feather of the selection in pixels</source>
        <translation>Weiche Kante der Auswahl in Pixeln</translation>
    </message>
    <message>
        <source>Width of the soft edge of a selection, to either side</source>
        <translation>Breite der weichen Kante einer Auswahl nach jeder Seite</translation>
    </message>
    <message>
        <source>Hold to see the photo as it was before (key B or \)</source>
        <translation>Halten, um das Foto zu sehen, wie es vorher war (Taste B oder \)</translation>
    </message>
    <message>
        <source>Show the photo as it was before, while held</source>
        <translation>Solange gehalten, das Foto zeigen, wie es vorher war</translation>
    </message>
    <message>
        <source>Open &amp;Recent</source>
        <translation>&amp;Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>&amp;Next Photo</source>
        <translation>&amp;Nächstes Foto</translation>
    </message>
    <message>
        <source>Open the next photo of the film strip</source>
        <translation>Das nächste Foto des Filmstreifens öffnen</translation>
    </message>
    <message>
        <source>Pre&amp;vious Photo</source>
        <translation>&amp;Voriges Foto</translation>
    </message>
    <message>
        <source>Open the photo before this one</source>
        <translation>Das Foto vor diesem öffnen</translation>
    </message>
    <message>
        <source>&amp;Export…</source>
        <translation>&amp;Exportieren …</translation>
    </message>
    <message>
        <source>Write a copy of the photo, in any format, quality and folder</source>
        <translation>Eine Kopie des Fotos schreiben, in beliebigem Format, beliebiger Qualität und beliebigem Ordner</translation>
    </message>
    <message>
        <source>Re&amp;cipes</source>
        <translation>Re&amp;zepte</translation>
    </message>
    <message>
        <source>Apply to &amp;Marked Photos…</source>
        <translation>Auf &amp;markierte Fotos anwenden …</translation>
    </message>
    <message>
        <source>Apply the steps done so far to the photos that are marked in the film strip</source>
        <translation>Die bisherigen Schritte auf die Fotos anwenden, die im Filmstreifen markiert sind</translation>
    </message>
    <message>
        <source>Take the last change back</source>
        <translation>Die letzte Änderung zurücknehmen</translation>
    </message>
    <message>
        <source>Do the change again that was taken back</source>
        <translation>Die zurückgenommene Änderung wieder machen</translation>
    </message>
    <message>
        <source>&amp;Copy Steps</source>
        <translation>Schritte &amp;kopieren</translation>
    </message>
    <message>
        <source>Remember the steps of this photo for another one</source>
        <translation>Die Schritte dieses Fotos für ein anderes merken</translation>
    </message>
    <message>
        <source>&amp;Paste Steps</source>
        <translation>Schritte &amp;einfügen</translation>
    </message>
    <message>
        <source>Apply the steps that were copied from another photo</source>
        <translation>Die Schritte anwenden, die von einem anderen Foto kopiert wurden</translation>
    </message>
    <message>
        <source>Repeat &amp;Last</source>
        <translation>&amp;Letzte wiederholen</translation>
    </message>
    <message>
        <source>Apply the last adjustment once more, with the same values</source>
        <translation>Die letzte Anpassung noch einmal anwenden, mit denselben Werten</translation>
    </message>
    <message>
        <source>&amp;Find Panel…</source>
        <translation>Panel &amp;suchen …</translation>
    </message>
    <message>
        <source>Open a panel by typing its name</source>
        <translation>Ein Panel öffnen, indem man seinen Namen tippt</translation>
    </message>
    <message>
        <source>Drag to move the photo</source>
        <translation>Ziehen verschiebt das Foto</translation>
    </message>
    <message>
        <source>Film &amp;Strip</source>
        <translation>&amp;Filmstreifen</translation>
    </message>
    <message>
        <source>Show the photos of the folder in a row</source>
        <translation>Die Fotos des Ordners in einer Reihe zeigen</translation>
    </message>
    <message>
        <source>F&amp;ull Screen</source>
        <translation>&amp;Vollbild</translation>
    </message>
    <message>
        <source>Give the whole screen to this window</source>
        <translation>Diesem Fenster den ganzen Bildschirm geben</translation>
    </message>
    <message>
        <source>&amp;Keys and Mouse</source>
        <translation>&amp;Tasten und Maus</translation>
    </message>
    <message>
        <source>All keys, and what the mouse does</source>
        <translation>Alle Tasten, und was die Maus tut</translation>
    </message>
    <message>
        <source>&amp;Lasso</source>
        <translation>&amp;Lasso</translation>
    </message>
    <message>
        <source>Draw round it, or click corner by corner; a double click closes</source>
        <translation>Umfahren oder Ecke für Ecke klicken; ein Doppelklick schließt</translation>
    </message>
    <message>
        <source>&amp;Gradient</source>
        <translation>&amp;Verlauf</translation>
    </message>
    <message>
        <source>Drag from where all is selected to where nothing is</source>
        <translation>Von wo alles ausgewählt ist dorthin ziehen, wo nichts ist</translation>
    </message>
    <message>
        <source>&amp;Move</source>
        <translation>Ver&amp;schieben</translation>
    </message>
    <message>
        <source>Drag the selection, or move it with the arrow keys</source>
        <translation>Die Auswahl ziehen oder mit den Pfeiltasten verschieben</translation>
    </message>
    <message>
        <source>Ne&amp;w Selection</source>
        <translation>Neue Aus&amp;wahl</translation>
    </message>
    <message>
        <source>What is drawn takes the place of the selection</source>
        <translation>Was gezeichnet wird, ersetzt die Auswahl</translation>
    </message>
    <message>
        <source>A&amp;dd to Selection</source>
        <translation>Zur Auswahl &amp;hinzufügen</translation>
    </message>
    <message>
        <source>What is drawn is selected, too; or hold Shift</source>
        <translation>Was gezeichnet wird, kommt hinzu; oder Umschalt halten</translation>
    </message>
    <message>
        <source>&amp;Subtract from Selection</source>
        <translation>Von der Auswahl abz&amp;iehen</translation>
    </message>
    <message>
        <source>What is drawn is selected no more; or hold Ctrl or Alt</source>
        <translation>Was gezeichnet wird, ist nicht mehr ausgewählt; oder Strg oder Alt halten</translation>
    </message>
    <message>
        <source>In&amp;tersect with Selection</source>
        <translation>Mit der Auswahl s&amp;chneiden</translation>
    </message>
    <message>
        <source>Only what is drawn stays selected; or hold Shift with Ctrl or Alt</source>
        <translation>Nur was gezeichnet wird, bleibt ausgewählt; oder Umschalt mit Strg oder Alt halten</translation>
    </message>
    <message>
        <source>Feather:</source>
        <translation>Weiche Kante:</translation>
    </message>
    <message>
        <source>Tolerance:</source>
        <translation>Toleranz:</translation>
    </message>
    <message>
        <source>&amp;Color</source>
        <translation>&amp;Farbe</translation>
    </message>
    <message>
        <source>Click a color: all that is like it, by the tolerance</source>
        <translation>Eine Farbe anklicken: alles, was ihr nach der Toleranz gleicht</translation>
    </message>
    <message>
        <source>Dark window colors instead of the system&apos;s</source>
        <translation>Dunkle Fensterfarben statt der des Systems</translation>
    </message>
    <message>
        <source>How far a channel may differ from the color that was clicked, in levels</source>
        <translation>Wie weit ein Kanal von der angeklickten Farbe abweichen darf, in Stufen</translation>
    </message>
    <message>
        <source>Tolerance of the selection by color in levels</source>
        <translation>Toleranz der Auswahl nach Farbe in Stufen</translation>
    </message>
</context>
<context>
    <name>HBEditorRecipes</name>
    <message>
        <source>Recipes</source>
        <translation>Rezepte</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>Alle Dateien</translation>
    </message>
    <message>
        <source>There are no steps to save as a recipe yet.</source>
        <translation>Es gibt noch keine Schritte für ein Rezept.</translation>
    </message>
    <message>
        <source>Save Recipe</source>
        <translation>Rezept speichern</translation>
    </message>
    <message>
        <source>%1 exists already.</source>
        <translation>%1 gibt es schon.</translation>
    </message>
    <message>
        <source>Recipe saved. Steps: %1</source>
        <translation>Rezept gespeichert. Schritte: %1</translation>
    </message>
    <message>
        <source>Apply Recipe</source>
        <translation>Rezept anwenden</translation>
    </message>
    <message>
        <source>Open a photo first, which the recipe is to be applied to.</source>
        <translation>Öffnen Sie zuerst ein Foto, auf das das Rezept angewendet werden soll.</translation>
    </message>
    <message>
        <source>There are no steps yet that could be applied to other photos.</source>
        <translation>Es gibt noch keine Schritte, die auf andere Fotos angewendet werden könnten.</translation>
    </message>
    <message>
        <source>Steps copied: %1</source>
        <translation>Kopierte Schritte: %1</translation>
    </message>
    <message>
        <source>No steps have been copied.</source>
        <translation>Es wurden keine Schritte kopiert.</translation>
    </message>
    <message>
        <source>Pasted Steps</source>
        <translation>Eingefügte Schritte</translation>
    </message>
    <message>
        <source>Keep Recipe</source>
        <translation>Rezept behalten</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Name:</translation>
    </message>
    <message>
        <source>Replace the recipe “%1”?</source>
        <translation>Das Rezept „%1“ ersetzen?</translation>
    </message>
</context>
<context>
    <name>HBEditorWindow</name>
    <message>
        <source>Open a photo with Ctrl+O, or drop one here.</source>
        <translation>Öffnen Sie ein Foto mit Strg+O oder ziehen Sie eines hierher.</translation>
    </message>
    <message>
        <source>Size of the photo in pixels</source>
        <translation>Größe des Fotos in Pixeln</translation>
    </message>
    <message>
        <source>At 100 % each pixel of the photo is one of the screen</source>
        <translation>Bei 100 % ist jedes Pixel des Fotos eines des Bildschirms</translation>
    </message>
    <message>
        <source>Panel Editor</source>
        <translation>Panel Editor</translation>
    </message>
    <message>
        <source>%1[*] – Panel Editor</source>
        <translation>%1[*] – Panel Editor</translation>
    </message>
    <message>
        <source>%1 × %2</source>
        <translation>%1 × %2</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>Unsaved steps cannot be kept for the case of a crash: %1</source>
        <translation>Nicht gespeicherte Schritte können für den Fall eines Absturzes nicht aufbewahrt werden: %1</translation>
    </message>
</context>
<context>
    <name>HBExportDialog</name>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>By the quality: full from 90 on</source>
        <translation>Nach der Qualität: ab 90 voll</translation>
    </message>
    <message>
        <source>Full (4:4:4)</source>
        <translation>Voll (4:4:4)</translation>
    </message>
    <message>
        <source>Half (4:2:2)</source>
        <translation>Halb (4:2:2)</translation>
    </message>
    <message>
        <source>Quarter (4:2:0)</source>
        <translation>Ein Viertel (4:2:0)</translation>
    </message>
    <message>
        <source>&amp;Browse…</source>
        <translation>&amp;Durchsuchen …</translation>
    </message>
    <message>
        <source>&amp;Format:</source>
        <translation>&amp;Format:</translation>
    </message>
    <message>
        <source>&amp;Quality:</source>
        <translation>&amp;Qualität:</translation>
    </message>
    <message>
        <source>Size:</source>
        <translation>Größe:</translation>
    </message>
    <message>
        <source>F&amp;ile:</source>
        <translation>Date&amp;i:</translation>
    </message>
    <message>
        <source>&amp;Export</source>
        <translation>&amp;Exportieren</translation>
    </message>
    <message>
        <source>-export</source>
        <translation>-export</translation>
    </message>
    <message>
        <source>0 smallest, 100 best. A WebP of 100 loses nothing at all.</source>
        <translation>0 am kleinsten, 100 am besten. Ein WebP von 100 verliert gar nichts.</translation>
    </message>
    <message>
        <source>Export As</source>
        <translation>Exportieren als</translation>
    </message>
    <message>
        <source>This is the photo itself: choose another name, or Save instead of Export.</source>
        <translation>Das ist das Foto selbst: Wählen Sie einen anderen Namen, oder Speichern statt Exportieren.</translation>
    </message>
    <message>
        <source>There is no such folder.</source>
        <translation>Diesen Ordner gibt es nicht.</translation>
    </message>
    <message>
        <source>The name does not end in a format that can be written.</source>
        <translation>Der Name endet nicht auf ein Format, das geschrieben werden kann.</translation>
    </message>
    <message>
        <source>…</source>
        <translation>…</translation>
    </message>
    <message>
        <source>cannot be written in this format</source>
        <translation>kann in diesem Format nicht geschrieben werden</translation>
    </message>
    <message>
        <source>Replace %1?</source>
        <translation>%1 ersetzen?</translation>
    </message>
    <message>
        <source>Convert colors to &amp;sRGB</source>
        <translation>Farben in &amp;sRGB umrechnen</translation>
    </message>
    <message>
        <source>How fine colors are stored. Thin colored lines and texts need them full.</source>
        <translation>Wie fein Farben gespeichert werden. Dünne farbige Linien und Schrift brauchen sie voll.</translation>
    </message>
    <message>
        <source>&amp;Colors:</source>
        <translation>&amp;Farben:</translation>
    </message>
    <message>
        <source>For programs and pages that do not look at color profiles</source>
        <translation>Für Programme und Seiten, die Farbprofile nicht beachten</translation>
    </message>
</context>
<context>
    <name>HBFilmStrip</name>
    <message>
        <source>Film Strip</source>
        <translation>Filmstreifen</translation>
    </message>
    <message>
        <source>Photos of the folder</source>
        <translation>Fotos des Ordners</translation>
    </message>
    <message>
        <source>Double click or Return opens a photo; Ctrl and Shift mark several</source>
        <translation>Doppelklick oder Eingabetaste öffnet ein Foto; Strg und Umschalt markieren mehrere</translation>
    </message>
</context>
<context>
    <name>HBGimpDialog</name>
    <message>
        <source>%1 - %2</source>
        <translation>%1 – %2</translation>
    </message>
    <message>
        <source>&amp;Preview</source>
        <translation>&amp;Vorschau</translation>
    </message>
    <message>
        <source>Off: the layer as it was before</source>
        <translation>Aus: die Ebene, wie sie vorher war</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>Fit</source>
        <translation>Einpassen</translation>
    </message>
    <message>
        <source>The whole layer</source>
        <translation>Die ganze Ebene</translation>
    </message>
    <message>
        <source>1:1</source>
        <translation>1:1</translation>
    </message>
    <message>
        <source>Each pixel of the layer on one of the screen</source>
        <translation>Jedes Pixel der Ebene auf einem des Bildschirms</translation>
    </message>
    <message>
        <source>&amp;Save...</source>
        <translation>&amp;Speichern …</translation>
    </message>
    <message>
        <source>Keep these values under a name</source>
        <translation>Diese Werte unter einem Namen behalten</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>Delete the chosen preset</source>
        <translation>Die gewählte Voreinstellung löschen</translation>
    </message>
    <message>
        <source>Presets</source>
        <translation>Voreinstellungen</translation>
    </message>
    <message>
        <source>Save Preset</source>
        <translation>Voreinstellung speichern</translation>
    </message>
    <message>
        <source>Name:</source>
        <translation>Name:</translation>
    </message>
    <message>
        <source>Replace the preset &quot;%1&quot;?</source>
        <translation>Die Voreinstellung „%1“ ersetzen?</translation>
    </message>
    <message>
        <source>Delete Preset</source>
        <translation>Voreinstellung löschen</translation>
    </message>
    <message>
        <source>Delete the preset &quot;%1&quot;?</source>
        <translation>Die Voreinstellung „%1“ löschen?</translation>
    </message>
</context>
<context>
    <name>HBLevelsWidget</name>
    <message>
        <source>Black point</source>
        <translation>Schwarzpunkt</translation>
    </message>
    <message>
        <source>Gamma</source>
        <translation>Gamma</translation>
    </message>
    <message>
        <source>White point</source>
        <translation>Weißpunkt</translation>
    </message>
    <message>
        <source>Output black point</source>
        <translation>Schwarzpunkt des Ausgangs</translation>
    </message>
    <message>
        <source>Output white point</source>
        <translation>Weißpunkt des Ausgangs</translation>
    </message>
</context>
<context>
    <name>HBMessageBar</name>
    <message>
        <source>Close this message</source>
        <translation>Diese Meldung schließen</translation>
    </message>
</context>
<context>
    <name>HBOfferLostSteps</name>
    <message>
        <source>Restored Steps</source>
        <translation>Wiederhergestellte Schritte</translation>
    </message>
    <message>
        <source>The photo was saved with other steps. Those that were restored are switched off.</source>
        <translation>Das Foto wurde mit anderen Schritten gespeichert. Die wiederhergestellten sind ausgeschaltet.</translation>
    </message>
    <message>
        <source>“%1” has changed since the steps were made.</source>
        <translation>„%1“ hat sich geändert, seit die Schritte gemacht wurden.</translation>
    </message>
    <message>
        <source>“%1” had not been applied yet. It is restored as if it had been; Undo takes it back.</source>
        <translation>„%1“ war noch nicht angewendet. Es ist wiederhergestellt, als wäre es das gewesen; Rückgängig nimmt es zurück.</translation>
    </message>
    <message>
        <source>Panel Editor</source>
        <translation>Panel Editor</translation>
    </message>
    <message>
        <source>The editor did not come to its end while “%1” had steps that were not saved (%2). Restore them?</source>
        <translation>Der Editor kam nicht zu seinem Ende, während „%1“ nicht gespeicherte Schritte hatte (%2). Sollen sie wiederhergestellt werden?</translation>
    </message>
    <message>
        <source>&amp;Restore</source>
        <translation>&amp;Wiederherstellen</translation>
    </message>
    <message>
        <source>&amp;Discard</source>
        <translation>&amp;Verwerfen</translation>
    </message>
    <message>
        <source>&amp;Later</source>
        <translation>&amp;Später</translation>
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
    <name>HBOverlay</name>
    <message>
        <source>it takes more than %1 MB of memory</source>
        <translation>er braucht mehr als %1 MB Speicher</translation>
    </message>
    <message>
        <source>A text needs a program with a graphical application object (QGuiApplication)</source>
        <translation>Ein Text braucht ein Programm mit einem grafischen Anwendungsobjekt (QGuiApplication)</translation>
    </message>
    <message>
        <source>The margins leave no room</source>
        <translation>Die Ränder lassen keinen Platz</translation>
    </message>
    <message>
        <source>it is larger than %1 megapixels</source>
        <translation>er ist größer als %1 Megapixel</translation>
    </message>
    <message>
        <source>The stamp %1 cannot be read: %2</source>
        <translation>Der Stempel %1 kann nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>there is no such file</source>
        <translation>diese Datei gibt es nicht</translation>
    </message>
    <message>
        <source>this is not a file</source>
        <translation>das ist keine Datei</translation>
    </message>
    <message>
        <source>the file is empty</source>
        <translation>die Datei ist leer</translation>
    </message>
    <message>
        <source>The font %1 is not installed</source>
        <translation>Die Schrift %1 ist nicht installiert</translation>
    </message>
    <message>
        <source>The font %1 cannot draw this text</source>
        <translation>Die Schrift %1 kann diesen Text nicht darstellen</translation>
    </message>
</context>
<context>
    <name>HBPanelController</name>
    <message>
        <source>The adjustment was stopped. The photo may not show your last change yet.</source>
        <translation>Die Korrektur wurde angehalten. Das Foto zeigt Ihre letzte Änderung vielleicht noch nicht.</translation>
    </message>
    <message>
        <source>There is not enough memory for this selection.</source>
        <translation>Für diese Auswahl reicht der Speicher nicht.</translation>
    </message>
    <message>
        <source>Looking for changes</source>
        <translation>Änderungen werden gesucht</translation>
    </message>
    <message>
        <source>Panel Editor</source>
        <translation>Panel Editor</translation>
    </message>
    <message>
        <source>Apply the changes of “%1”?</source>
        <translation>Die Änderungen von „%1“ anwenden?</translation>
    </message>
</context>
<context>
    <name>HBPanelFinder</name>
    <message>
        <source>Find Panel</source>
        <translation>Panel suchen</translation>
    </message>
    <message>
        <source>Name of a panel</source>
        <translation>Name eines Panels</translation>
    </message>
</context>
<context>
    <name>HBPanelHead</name>
    <message>
        <source>Pre&amp;view</source>
        <translation>&amp;Vorschau</translation>
    </message>
    <message>
        <source>Red, green or blue is changed on its own, too.</source>
        <translation>Rot, Grün oder Blau ist auch einzeln geändert.</translation>
    </message>
    <message>
        <source>Show the photo with this adjustment</source>
        <translation>Das Foto mit dieser Anpassung zeigen</translation>
    </message>
    <message>
        <source>No value of this panel makes that place so. Try another.</source>
        <translation>Kein Wert dieses Panels macht diese Stelle so. Versuchen Sie eine andere.</translation>
    </message>
</context>
<context>
    <name>HBPanelSession</name>
    <message>
        <source>The photo could not be adjusted for want of memory.</source>
        <translation>Das Foto konnte aus Mangel an Speicher nicht korrigiert werden.</translation>
    </message>
    <message>
        <source>These are values of another panel.</source>
        <translation>Das sind Werte eines anderen Panels.</translation>
    </message>
</context>
<context>
    <name>HBPhotoEncoding</name>
    <message>
        <source>its format, which is %1 whatever its name says</source>
        <translation>ihr Format, das unabhängig vom Namen %1 ist</translation>
    </message>
    <message>
        <source>its %1 bits a channel, of which 8 stay</source>
        <translation>ihre %1 Bit je Kanal, von denen 8 bleiben</translation>
    </message>
    <message>
        <source>its animation, of which the first picture stays</source>
        <translation>ihre Animation, von der das erste Bild bleibt</translation>
    </message>
    <message>
        <source>its further pages (%1)</source>
        <translation>ihre weiteren Seiten (%1)</translation>
    </message>
    <message>
        <source>its layers</source>
        <translation>ihre Ebenen</translation>
    </message>
    <message>
        <source>what is appended to the picture, such as a video</source>
        <translation>was an das Bild angehängt ist, etwa ein Video</translation>
    </message>
    <message>
        <source>what other programs may still find of the part that is missing here</source>
        <translation>was andere Programme von dem Teil, der hier fehlt, vielleicht noch finden</translation>
    </message>
    <message>
        <source>its colors for print (CMYK or Lab), which become red, green and blue</source>
        <translation>ihre Druckfarben (CMYK oder Lab), die zu Rot, Grün und Blau werden</translation>
    </message>
</context>
<context>
    <name>HBPhotoFile</name>
    <message>
        <source>there is not enough memory for it</source>
        <translation>der Speicher reicht dafür nicht</translation>
    </message>
    <message>
        <source>there is no such file</source>
        <translation>diese Datei gibt es nicht</translation>
    </message>
    <message>
        <source>this is not a file</source>
        <translation>das ist keine Datei</translation>
    </message>
    <message>
        <source>the file is empty</source>
        <translation>die Datei ist leer</translation>
    </message>
    <message>
        <source>the file is too large</source>
        <translation>die Datei ist zu groß</translation>
    </message>
    <message>
        <source>the picture has no pixels</source>
        <translation>das Bild hat keine Pixel</translation>
    </message>
    <message>
        <source>%1 x %2 pixels are too many for this machine&apos;s memory</source>
        <translation>%1 x %2 Pixel sind zu viele für den Speicher dieses Rechners</translation>
    </message>
    <message>
        <source>the decoder remarks: %1</source>
        <translation>Bemerkung des Decoders: %1</translation>
    </message>
    <message>
        <source>the file is cut short</source>
        <translation>die Datei ist abgeschnitten</translation>
    </message>
    <message>
        <source>this is not a photo of a known format</source>
        <translation>das ist kein Foto eines bekannten Formats</translation>
    </message>
    <message>
        <source>the picture cannot be read (%1)</source>
        <translation>das Bild kann nicht gelesen werden (%1)</translation>
    </message>
    <message>
        <source>only the first of %1 pages is read</source>
        <translation>nur die erste von %1 Seiten ist gelesen</translation>
    </message>
    <message>
        <source>16 bits a channel are reduced to 8</source>
        <translation>16 Bit je Kanal sind auf 8 verringert</translation>
    </message>
    <message>
        <source>%1 x %2 pixels are too many for this format</source>
        <translation>%1 x %2 Pixel sind zu viele für dieses Format</translation>
    </message>
    <message>
        <source>pictures cannot be written in the format &quot;%1&quot;</source>
        <translation>Bilder können nicht im Format „%1“ geschrieben werden</translation>
    </message>
    <message>
        <source>there is no picture to write</source>
        <translation>es gibt kein Bild zu schreiben</translation>
    </message>
    <message>
        <source>its metadata cannot be read (%1)</source>
        <translation>ihre Metadaten können nicht gelesen werden (%1)</translation>
    </message>
    <message>
        <source>%1 metadata cannot be stored in this format</source>
        <translation>%1-Metadaten können in diesem Format nicht gespeichert werden</translation>
    </message>
    <message>
        <source>%1 metadata cannot be stored (%2)</source>
        <translation>%1-Metadaten können nicht gespeichert werden (%2)</translation>
    </message>
    <message>
        <source>it is broken</source>
        <translation>sie sind beschädigt</translation>
    </message>
    <message>
        <source>it was given up</source>
        <translation>das wurde abgebrochen</translation>
    </message>
    <message>
        <source>the file is cut short, and a part of the picture is missing</source>
        <translation>die Datei ist abgeschnitten, und ein Teil des Bildes fehlt</translation>
    </message>
    <message>
        <source>the file is cut short behind the picture</source>
        <translation>die Datei ist hinter dem Bild abgeschnitten</translation>
    </message>
    <message>
        <source>its color profile is not one for RGB and was left out</source>
        <translation>ihr Farbprofil ist keines für RGB und wurde weggelassen</translation>
    </message>
    <message>
        <source>its colors for print were converted to sRGB by its profile</source>
        <translation>seine Druckfarben wurden nach seinem Profil in sRGB umgerechnet</translation>
    </message>
    <message>
        <source>the picture is no longer gray; its profile for gray was left out</source>
        <translation>das Bild ist nicht mehr grau; sein Profil für Grau wurde weggelassen</translation>
    </message>
</context>
<context>
    <name>HBPhotoFiles</name>
    <message>
        <source>Open Photo</source>
        <translation>Foto öffnen</translation>
    </message>
    <message>
        <source>Opening %1</source>
        <translation>%1 wird geöffnet</translation>
    </message>
    <message>
        <source>“%1” has changes that are not saved, those of the open panel “%2” among them. Save them all?</source>
        <translation>„%1“ hat Änderungen, die nicht gespeichert sind, darunter die des offenen Panels „%2“. Alle speichern?</translation>
    </message>
    <message>
        <source>“%1” has changes that are not saved. Save them?</source>
        <translation>„%1“ hat Änderungen, die nicht gespeichert sind. Speichern?</translation>
    </message>
    <message>
        <source>Panel Editor</source>
        <translation>Panel Editor</translation>
    </message>
    <message>
        <source>Files like “%1” can be read only. Save the photo as another.</source>
        <translation>Dateien wie „%1“ können nur gelesen werden. Speichern Sie das Foto unter anderem Namen.</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Saving over “%1” would lose for good:</source>
        <translation>Beim Überschreiben von „%1“ ginge endgültig verloren:</translation>
    </message>
    <message>
        <source>Save &amp;As…</source>
        <translation>Speichern &amp;unter …</translation>
    </message>
    <message>
        <source>Save &amp;Over It</source>
        <translation>&amp;Überschreiben</translation>
    </message>
    <message>
        <source>Save Photo As</source>
        <translation>Foto speichern unter</translation>
    </message>
    <message>
        <source>&amp;Quality (0 smallest, 100 best):</source>
        <translation>&amp;Qualität (0 kleinste Datei, 100 beste):</translation>
    </message>
    <message>
        <source>Saving %1</source>
        <translation>%1 wird gespeichert</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>%1 ist gespeichert</translation>
    </message>
    <message>
        <source>Exporting %1</source>
        <translation>%1 wird exportiert</translation>
    </message>
    <message>
        <source>Exported %1</source>
        <translation>%1 exportiert</translation>
    </message>
</context>
<context>
    <name>HBPhotoFilterWidget</name>
    <message>
        <source>Warming Filter (85)</source>
        <translation>Warmfilter (85)</translation>
    </message>
    <message>
        <source>Warming Filter (LBA)</source>
        <translation>Warmfilter (LBA)</translation>
    </message>
    <message>
        <source>Warming Filter (81)</source>
        <translation>Warmfilter (81)</translation>
    </message>
    <message>
        <source>Coolling Filter (80)</source>
        <translation>Kaltfilter (80)</translation>
    </message>
    <message>
        <source>Cooling Filter (LBB)</source>
        <translation>Kaltfilter (LBB)</translation>
    </message>
    <message>
        <source>Cooling Filter (82)</source>
        <translation>Kaltfilter (82)</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rot</translation>
    </message>
    <message>
        <source>Orange</source>
        <translation>Orange</translation>
    </message>
    <message>
        <source>Yellow</source>
        <translation>Gelb</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Grün</translation>
    </message>
    <message>
        <source>Cyan</source>
        <translation>Cyan</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Blau</translation>
    </message>
    <message>
        <source>Violet</source>
        <translation>Violett</translation>
    </message>
    <message>
        <source>Magenta</source>
        <translation>Magenta</translation>
    </message>
    <message>
        <source>Sepia</source>
        <translation>Sepia</translation>
    </message>
    <message>
        <source>Deep Red</source>
        <translation>Tiefrot</translation>
    </message>
    <message>
        <source>Deep Blue</source>
        <translation>Tiefblau</translation>
    </message>
    <message>
        <source>Deep Emerald</source>
        <translation>Tiefes Smaragdgrün</translation>
    </message>
    <message>
        <source>Deep Yellow</source>
        <translation>Tiefgelb</translation>
    </message>
    <message>
        <source>Underwater</source>
        <translation>Unterwasser</translation>
    </message>
    <message>
        <source>Custom</source>
        <translation>Eigene Farbe</translation>
    </message>
    <message>
        <source>Select a filter color</source>
        <translation>Filterfarbe auswählen</translation>
    </message>
</context>
<context>
    <name>HBPhotoPicks</name>
    <message>
        <source>&amp;Neutral…</source>
        <translation>&amp;Neutral …</translation>
    </message>
    <message>
        <source>&amp;Black…</source>
        <translation>&amp;Schwarz …</translation>
    </message>
    <message>
        <source>Click a place of the photo that should be black</source>
        <translation>Auf eine Stelle des Fotos klicken, die schwarz sein soll</translation>
    </message>
    <message>
        <source>&amp;White…</source>
        <translation>&amp;Weiß …</translation>
    </message>
    <message>
        <source>Click a place of the photo that should be white</source>
        <translation>Auf eine Stelle des Fotos klicken, die weiß sein soll</translation>
    </message>
    <message>
        <source>Click a place of the photo that should be gray</source>
        <translation>Auf eine Stelle des Fotos klicken, die grau sein soll</translation>
    </message>
    <message>
        <source>&amp;Gray…</source>
        <translation>&amp;Grau …</translation>
    </message>
    <message>
        <source>&amp;Pick Color…</source>
        <translation>Farbe &amp;aufnehmen …</translation>
    </message>
    <message>
        <source>Click a place of the photo that has the new color</source>
        <translation>Auf eine Stelle des Fotos klicken, die die neue Farbe hat</translation>
    </message>
</context>
<context>
    <name>HBPresetStrip</name>
    <message>
        <source>Presets and recipes</source>
        <translation>Voreinstellungen und Rezepte</translation>
    </message>
    <message>
        <source>Presets</source>
        <translation>Voreinstellungen</translation>
    </message>
    <message>
        <source>Last used</source>
        <translation>Zuletzt benutzt</translation>
    </message>
    <message>
        <source>Save, rename, delete, import and export presets</source>
        <translation>Voreinstellungen speichern, umbenennen, löschen, importieren und exportieren</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Vorgabe</translation>
    </message>
    <message>
        <source>&amp;Save These Values…</source>
        <translation>Diese Werte &amp;speichern …</translation>
    </message>
    <message>
        <source>&amp;Import…</source>
        <translation>&amp;Importieren …</translation>
    </message>
    <message>
        <source>Import Preset</source>
        <translation>Voreinstellung importieren</translation>
    </message>
    <message>
        <source>&amp;Rename “%1”…</source>
        <translation>„%1“ &amp;umbenennen …</translation>
    </message>
    <message>
        <source>&amp;Delete “%1”</source>
        <translation>„%1“ &amp;löschen</translation>
    </message>
    <message>
        <source>&amp;Export “%1”…</source>
        <translation>„%1“ &amp;exportieren …</translation>
    </message>
    <message>
        <source>Export Preset</source>
        <translation>Voreinstellung exportieren</translation>
    </message>
    <message>
        <source>Save Preset</source>
        <translation>Voreinstellung speichern</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Name:</translation>
    </message>
    <message>
        <source>Replace the preset “%1”?</source>
        <translation>Die Voreinstellung „%1“ ersetzen?</translation>
    </message>
    <message>
        <source>Rename Preset</source>
        <translation>Voreinstellung umbenennen</translation>
    </message>
    <message>
        <source>Delete Preset</source>
        <translation>Voreinstellung löschen</translation>
    </message>
    <message>
        <source>Delete the preset “%1”?</source>
        <translation>Die Voreinstellung „%1“ löschen?</translation>
    </message>
    <message>
        <source>%1: there is no step of this panel.</source>
        <translation>%1: darin ist kein Schritt dieses Panels.</translation>
    </message>
</context>
<context>
    <name>HBPresets</name>
    <message>
        <source>There is a preset of this name already.</source>
        <translation>Es gibt schon eine Voreinstellung dieses Namens.</translation>
    </message>
</context>
<context>
    <name>HBRecentFiles</name>
    <message>
        <source>No photos yet</source>
        <translation>Noch keine Fotos</translation>
    </message>
</context>
<context>
    <name>HBRecipe</name>
    <message>
        <source>Step %1: %2</source>
        <translation>Schritt %1: %2</translation>
    </message>
    <message>
        <source>Step %1 (%2): %3</source>
        <translation>Schritt %1 (%2): %3</translation>
    </message>
    <message>
        <source>there is no such panel</source>
        <translation>dieses Panel gibt es nicht</translation>
    </message>
    <message>
        <source>it is not an object</source>
        <translation>er ist kein Objekt</translation>
    </message>
    <message>
        <source>it does not name its panel</source>
        <translation>er nennt sein Panel nicht</translation>
    </message>
    <message>
        <source>This is not a recipe.</source>
        <translation>Das ist kein Rezept.</translation>
    </message>
    <message>
        <source>The recipe has version %1; this program reads versions up to %2.</source>
        <translation>Das Rezept hat die Version %1; dieses Programm liest Versionen bis %2.</translation>
    </message>
    <message>
        <source>The recipe has no valid version.</source>
        <translation>Das Rezept hat keine gültige Version.</translation>
    </message>
    <message>
        <source>This is not JSON: %1 at byte %2.</source>
        <translation>Das ist kein JSON: %1 bei Byte %2.</translation>
    </message>
    <message>
        <source>The recipe has no steps.</source>
        <translation>Das Rezept hat keine Schritte.</translation>
    </message>
    <message>
        <source>The recipe has %1 steps; at most %2 are allowed.</source>
        <translation>Das Rezept hat %1 Schritte; höchstens %2 sind erlaubt.</translation>
    </message>
    <message>
        <source>There is no such file.</source>
        <translation>Diese Datei gibt es nicht.</translation>
    </message>
    <message>
        <source>This is not a file.</source>
        <translation>Das ist keine Datei.</translation>
    </message>
    <message>
        <source>The file is too large to be a recipe.</source>
        <translation>Die Datei ist zu groß für ein Rezept.</translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <translation>Die Datei ist leer.</translation>
    </message>
    <message>
        <source>Steps %1 (%2) to %3 (%4): %5</source>
        <translation>Schritte %1 (%2) bis %3 (%4): %5</translation>
    </message>
    <message>
        <source>whether it is on is neither true nor false</source>
        <translation>ob er eingeschaltet ist, ist weder true noch false</translation>
    </message>
    <message>
        <source>its amount is not a whole number from 0 to 100</source>
        <translation>seine Stärke ist keine ganze Zahl von 0 bis 100</translation>
    </message>
    <message>
        <source>it works on all of the photo, and can have no selection</source>
        <translation>es wirkt auf das ganze Foto und kann keine Auswahl haben</translation>
    </message>
    <message>
        <source>The key %1 stands twice in one object.</source>
        <translation>Der Schlüssel %1 steht zweimal in einem Objekt.</translation>
    </message>
</context>
<context>
    <name>HBRecipeDialog</name>
    <message>
        <source>Apply Recipe</source>
        <translation>Rezept anwenden</translation>
    </message>
    <message>
        <source>The photo as it is</source>
        <translation>Das Foto, wie es ist</translation>
    </message>
    <message>
        <source>The photo with the recipe</source>
        <translation>Das Foto mit dem Rezept</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>und %1 weitere</translation>
    </message>
    <message>
        <source>It cannot be applied to this photo.</source>
        <translation>Es kann auf dieses Foto nicht angewendet werden.</translation>
    </message>
</context>
<context>
    <name>HBRecipeMenu</name>
    <message>
        <source>No recipes yet</source>
        <translation>Noch keine Rezepte</translation>
    </message>
    <message>
        <source>&amp;Keep These Steps…</source>
        <translation>Diese Schritte &amp;behalten …</translation>
    </message>
    <message>
        <source>&amp;Open the Folder</source>
        <translation>Den Ordner &amp;öffnen</translation>
    </message>
</context>
<context>
    <name>HBReplaceColorWidget</name>
    <message>
        <source>Left top</source>
        <translation>Links oben</translation>
    </message>
    <message>
        <source>Right top</source>
        <translation>Rechts oben</translation>
    </message>
    <message>
        <source>Left bottom</source>
        <translation>Links unten</translation>
    </message>
    <message>
        <source>Right bottom</source>
        <translation>Rechts unten</translation>
    </message>
    <message>
        <source>Select replacement color</source>
        <translation>Ersatzfarbe auswählen</translation>
    </message>
</context>
<context>
    <name>HBResultHistogram</name>
    <message>
        <source>Histogram of the result over that of the photo before</source>
        <translation>Histogramm des Ergebnisses über dem des Fotos vorher</translation>
    </message>
    <message>
        <source>Lines: the photo as it is shown. Gray: as it was before.</source>
        <translation>Linien: das Foto, wie es gezeigt wird. Grau: wie es vorher war.</translation>
    </message>
</context>
<context>
    <name>HBSaveFile</name>
    <message>
        <source>the disk is full</source>
        <translation>der Datenträger ist voll</translation>
    </message>
    <message>
        <source>the file is write-protected</source>
        <translation>die Datei ist schreibgeschützt</translation>
    </message>
</context>
<context>
    <name>HBScreenshot</name>
    <message>
        <source>There is no panel %1.</source>
        <translation>Ein Panel %1 gibt es nicht.</translation>
    </message>
    <message>
        <source>A panel needs a photo.</source>
        <translation>Ein Panel braucht ein Foto.</translation>
    </message>
    <message>
        <source>The panel gives no result.</source>
        <translation>Das Panel liefert kein Ergebnis.</translation>
    </message>
    <message>
        <source>%1 cannot be written.</source>
        <translation>%1 kann nicht geschrieben werden.</translation>
    </message>
</context>
<context>
    <name>HBSelectionGesture</name>
    <message>
        <source>%1 × %2 px</source>
        <translation>%1 × %2 px</translation>
    </message>
    <message>
        <source>%1 px</source>
        <translation>%1 px</translation>
    </message>
    <message>
        <source>Moved by %1, %2 px</source>
        <translation>Um %1, %2 px verschoben</translation>
    </message>
    <message>
        <source>Color %1, %2, %3</source>
        <translation>Farbe %1, %2, %3</translation>
    </message>
</context>
<context>
    <name>HBSelectionImage</name>
    <message>
        <source>the rectangle does not lie on the picture</source>
        <translation>das Rechteck liegt nicht auf dem Bild</translation>
    </message>
    <message>
        <source>the mask is %1 × %2 pixels, the picture %3 × %4</source>
        <translation>die Maske hat %1 × %2 Pixel, das Bild %3 × %4</translation>
    </message>
    <message>
        <source>the mask is not gray alone</source>
        <translation>die Maske ist nicht rein grau</translation>
    </message>
</context>
<context>
    <name>HBSelectionShape</name>
    <message>
        <source>its selection has a shape without &quot;%1&quot;</source>
        <translation>seine Auswahl hat eine Form ohne „%1“</translation>
    </message>
    <message>
        <source>its selection has a wrong &quot;%1&quot;</source>
        <translation>seine Auswahl hat ein falsches „%1“</translation>
    </message>
    <message>
        <source>its selection has too many points</source>
        <translation>seine Auswahl hat zu viele Punkte</translation>
    </message>
    <message>
        <source>its selection has an unknown &quot;%1&quot;</source>
        <translation>seine Auswahl hat ein unbekanntes „%1“</translation>
    </message>
    <message>
        <source>its selection is not a list of shapes</source>
        <translation>seine Auswahl ist keine Liste von Formen</translation>
    </message>
    <message>
        <source>its selection has too many shapes</source>
        <translation>seine Auswahl hat zu viele Formen</translation>
    </message>
    <message>
        <source>its selection begins with a shape that is to be combined with others</source>
        <translation>seine Auswahl beginnt mit einer Form, die mit anderen zu verknüpfen ist</translation>
    </message>
</context>
<context>
    <name>HBSelectionTool</name>
    <message>
        <source>A selection has at most %1 shapes.</source>
        <translation>Eine Auswahl hat höchstens %1 Formen.</translation>
    </message>
    <message>
        <source>The selection has too many corners for one more shape.</source>
        <translation>Die Auswahl hat für noch eine Form zu viele Ecken.</translation>
    </message>
    <message>
        <source>There is no selection to be moved.</source>
        <translation>Es gibt keine Auswahl, die sich verschieben ließe.</translation>
    </message>
    <message>
        <source>Nothing of the selection would be left.</source>
        <translation>Von der Auswahl bliebe nichts übrig.</translation>
    </message>
    <message>
        <source>There is not enough memory for this selection.</source>
        <translation>Für diese Auswahl reicht der Speicher nicht.</translation>
    </message>
    <message>
        <source>A selection by color lies where the color is.</source>
        <translation>Eine Auswahl nach Farbe liegt, wo die Farbe ist.</translation>
    </message>
</context>
<context>
    <name>HBShortcutSheet</name>
    <message>
        <source>Keys and Mouse</source>
        <translation>Tasten und Maus</translation>
    </message>
    <message>
        <source>Photo</source>
        <translation>Foto</translation>
    </message>
    <message>
        <source>Drag</source>
        <translation>Ziehen</translation>
    </message>
    <message>
        <source>Move the photo, or draw with the chosen tool</source>
        <translation>Das Foto verschieben, oder mit dem gewählten Werkzeug zeichnen</translation>
    </message>
    <message>
        <source>Middle button, Space and drag</source>
        <translation>Mittlere Taste, Leertaste und Ziehen</translation>
    </message>
    <message>
        <source>Move the photo with any tool</source>
        <translation>Das Foto mit jedem Werkzeug verschieben</translation>
    </message>
    <message>
        <source>Wheel</source>
        <translation>Mausrad</translation>
    </message>
    <message>
        <source>Zoom to the mouse</source>
        <translation>Zur Maus hin zoomen</translation>
    </message>
    <message>
        <source>Shift and wheel</source>
        <translation>Umschalt und Mausrad</translation>
    </message>
    <message>
        <source>Move the photo</source>
        <translation>Das Foto verschieben</translation>
    </message>
    <message>
        <source>B, \ (held)</source>
        <translation>B, \ (gehalten)</translation>
    </message>
    <message>
        <source>The photo as it was before</source>
        <translation>Das Foto, wie es vorher war</translation>
    </message>
    <message>
        <source>Controls of a panel</source>
        <translation>Bedienelemente eines Panels</translation>
    </message>
    <message>
        <source>Double click on a handle or a name</source>
        <translation>Doppelklick auf einen Griff oder Namen</translation>
    </message>
    <message>
        <source>Set the default</source>
        <translation>Die Vorgabe setzen</translation>
    </message>
    <message>
        <source>Arrows, Page Up, Page Down</source>
        <translation>Pfeile, Bild auf, Bild ab</translation>
    </message>
    <message>
        <source>A small step, a large step</source>
        <translation>Ein kleiner Schritt, ein großer Schritt</translation>
    </message>
    <message>
        <source>Changes the control that has the focus</source>
        <translation>Ändert das Bedienelement, das den Fokus hat</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Eingabe</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Escape</source>
        <translation>Escape</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Selections</source>
        <translation>Auswahl</translation>
    </message>
    <message>
        <source>Shift, Ctrl or Alt, both</source>
        <translation>Umschalt, Strg oder Alt, beide</translation>
    </message>
    <message>
        <source>As a drag begins: add, subtract, intersect</source>
        <translation>Beim Beginn des Ziehens: hinzufügen, abziehen, schneiden</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Umschalt</translation>
    </message>
    <message>
        <source>During a drag: a square, a circle, a multiple of 45°</source>
        <translation>Beim Ziehen: Quadrat, Kreis, Vielfaches von 45°</translation>
    </message>
    <message>
        <source>Drag within the selection</source>
        <translation>In der Auswahl ziehen</translation>
    </message>
    <message>
        <source>Move it</source>
        <translation>Sie verschieben</translation>
    </message>
    <message>
        <source>Click, double click</source>
        <translation>Klick, Doppelklick</translation>
    </message>
    <message>
        <source>Lasso: a corner, the last corner</source>
        <translation>Lasso: eine Ecke, die letzte Ecke</translation>
    </message>
    <message>
        <source>Arrows</source>
        <translation>Pfeile</translation>
    </message>
    <message>
        <source>Move the crosshair, or with Move the selection; with Shift ten steps</source>
        <translation>Das Fadenkreuz bewegen oder mit Verschieben die Auswahl; mit Umschalt zehn Schritte</translation>
    </message>
    <message>
        <source>Return, Space</source>
        <translation>Eingabe, Leertaste</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Rücktaste</translation>
    </message>
    <message>
        <source>Lasso: take the last corner back</source>
        <translation>Lasso: die letzte Ecke zurücknehmen</translation>
    </message>
    <message>
        <source>Give up what is being drawn, else drop the selection</source>
        <translation>Was gezeichnet wird, aufgeben, sonst die Auswahl aufheben</translation>
    </message>
    <message>
        <source>At the crosshair: begin, set a corner, pick a color; Return ends</source>
        <translation>Am Fadenkreuz: beginnen, eine Ecke setzen, eine Farbe nehmen; Eingabe beendet</translation>
    </message>
</context>
<context>
    <name>HBSideBySide</name>
    <message>
        <source>Photo as it was before</source>
        <translation>Foto, wie es vorher war</translation>
    </message>
</context>
<context>
    <name>HBSignWidget</name>
    <message>
        <source>Select an image</source>
        <translation>Bild auswählen</translation>
    </message>
</context>
<context>
    <name>HBStackProgress</name>
    <message>
        <source>The photo is being made from its steps</source>
        <translation>Das Foto entsteht aus seinen Schritten</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Take back the change of the steps that takes so long</source>
        <translation>Die Änderung der Schritte, die so lange dauert, zurücknehmen</translation>
    </message>
</context>
<context>
    <name>HBStepList</name>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>selection</source>
        <translation>Auswahl</translation>
    </message>
    <message>
        <source>Steps, from the first to the last</source>
        <translation>Schritte, vom ersten zum letzten</translation>
    </message>
    <message>
        <source>Double click or Return: change a step · Space: on or off · Alt+Up, Alt+Down: move it · Ctrl+D: duplicate · Del: delete</source>
        <translation>Doppelklick oder Eingabe: Schritt ändern · Leertaste: ein oder aus · Alt+Auf, Alt+Ab: verschieben · Strg+D: verdoppeln · Entf: löschen</translation>
    </message>
    <message>
        <source> %</source>
        <translation> %</translation>
    </message>
    <message>
        <source>How much of what the step does</source>
        <translation>Wie viel von dem, was der Schritt tut</translation>
    </message>
    <message>
        <source>Amount of the step in per cent</source>
        <translation>Stärke des Schritts in Prozent</translation>
    </message>
    <message>
        <source>Amount:</source>
        <translation>Stärke:</translation>
    </message>
    <message>
        <source>&amp;Change…</source>
        <translation>Ä&amp;ndern …</translation>
    </message>
    <message>
        <source>Switch &amp;Off</source>
        <translation>&amp;Ausschalten</translation>
    </message>
    <message>
        <source>Switch &amp;On</source>
        <translation>&amp;Einschalten</translation>
    </message>
    <message>
        <source>Move &amp;Up</source>
        <translation>Nach &amp;oben</translation>
    </message>
    <message>
        <source>Move Do&amp;wn</source>
        <translation>Nach &amp;unten</translation>
    </message>
    <message>
        <source>D&amp;uplicate</source>
        <translation>&amp;Verdoppeln</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
</context>
<context>
    <name>HBStepsDock</name>
    <message>
        <source>Steps</source>
        <translation>Schritte</translation>
    </message>
    <message>
        <source>S&amp;teps</source>
        <translation>Sch&amp;ritte</translation>
    </message>
    <message>
        <source>List what was done to the photo</source>
        <translation>Auflisten, was mit dem Foto gemacht wurde</translation>
    </message>
</context>
<context>
    <name>HBThresholdWidget</name>
    <message>
        <source>Threshold level</source>
        <translation>Schwelle</translation>
    </message>
</context>
<context>
    <name>HBTileWarnings</name>
    <message>
        <source>The disk for temporary files is full or cannot be written: the photo needs more memory than allowed. Save your work.</source>
        <translation>Der Datenträger für temporäre Dateien ist voll oder nicht beschreibbar: Das Foto braucht mehr Speicher als erlaubt. Speichern Sie Ihre Arbeit.</translation>
    </message>
</context>
<context>
    <name>HBTintWidget</name>
    <message>
        <source>Average</source>
        <translation>Durchschnitt</translation>
    </message>
    <message>
        <source>NTSC</source>
        <translation>NTSC</translation>
    </message>
    <message>
        <source>LUMA</source>
        <translation>LUMA</translation>
    </message>
    <message>
        <source>RGB</source>
        <translation>RGB</translation>
    </message>
    <message>
        <source>Select a black tone</source>
        <translation>Schwarzton auswählen</translation>
    </message>
    <message>
        <source>Select a white tone</source>
        <translation>Weißton auswählen</translation>
    </message>
</context>
<context>
    <name>HBViewAids</name>
    <message>
        <source>Histogram</source>
        <translation>Histogramm</translation>
    </message>
    <message>
        <source>Before and After &amp;Side by Side</source>
        <translation>Vorher und nachher &amp;nebeneinander</translation>
    </message>
    <message>
        <source>Show the photo as it was beside it, the same part as large</source>
        <translation>Das Foto, wie es war, daneben zeigen, denselben Teil gleich groß</translation>
    </message>
    <message>
        <source>Compare with the Photo as Op&amp;ened</source>
        <translation>Mit dem Foto vergleichen, wie es ge&amp;öffnet wurde</translation>
    </message>
    <message>
        <source>Or else, in a panel, with the photo without this one step</source>
        <translation>Sonst, in einem Panel, mit dem Foto ohne diesen einen Schritt</translation>
    </message>
    <message>
        <source>Mark &amp;Clipping</source>
        <translation>&amp;Über- und Unterlauf markieren</translation>
    </message>
    <message>
        <source>Paint pixels red that are too bright in a channel, and blue that are black</source>
        <translation>Pixel rot malen, die in einem Kanal zu hell sind, und blau, die schwarz sind</translation>
    </message>
    <message>
        <source>&amp;Histogram</source>
        <translation>&amp;Histogramm</translation>
    </message>
    <message>
        <source>Show how often each level occurs, now and before</source>
        <translation>Zeigen, wie oft jede Stufe vorkommt, jetzt und vorher</translation>
    </message>
    <message>
        <source>Pixel under the mouse: its place, and red, green, blue and, unless opaque, alpha before → after</source>
        <translation>Pixel unter der Maus: sein Ort, und Rot, Grün, Blau und, wenn nicht deckend, Alpha vorher → nachher</translation>
    </message>
    <message>
        <source>Colour profile of the photo. It is shown by that of the monitor: %1</source>
        <translation>Farbprofil des Fotos. Gezeigt wird es nach dem des Monitors: %1</translation>
    </message>
    <message>
        <source>%1 → %2</source>
        <translation>%1 → %2</translation>
    </message>
    <message>
        <source>%1, %2:  %3</source>
        <translation>%1, %2:  %3</translation>
    </message>
</context>
<context>
    <name>HBViewColors</name>
    <message>
        <source>sRGB (assumed)</source>
        <translation>sRGB (angenommen)</translation>
    </message>
    <message>
        <source>Unknown profile (shown as sRGB)</source>
        <translation>Unbekanntes Profil (gezeigt als sRGB)</translation>
    </message>
    <message>
        <source>&amp;Monitor Profile</source>
        <translation>&amp;Monitorprofil</translation>
    </message>
    <message>
        <source>The &amp;Desktop’s</source>
        <translation>Das des &amp;Desktops</translation>
    </message>
    <message>
        <source>The &amp;Desktop’s (%1)</source>
        <translation>Das des &amp;Desktops (%1)</translation>
    </message>
    <message>
        <source>From a &amp;File (%1)…</source>
        <translation>Aus einer &amp;Datei (%1) …</translation>
    </message>
    <message>
        <source>From a &amp;File…</source>
        <translation>Aus einer &amp;Datei …</translation>
    </message>
    <message>
        <source>Monitor Profile</source>
        <translation>Monitorprofil</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>Alle Dateien</translation>
    </message>
    <message>
        <source>%1: this is not a color profile of a monitor</source>
        <translation>%1: das ist kein Farbprofil eines Monitors</translation>
    </message>
    <message>
        <source>Show colors by the profile that the desktop has for this monitor</source>
        <translation>Farben nach dem Profil zeigen, das der Desktop für diesen Monitor hat</translation>
    </message>
    <message>
        <source>Show colors by a profile from a file (ICC)</source>
        <translation>Farben nach einem Profil aus einer Datei zeigen (ICC)</translation>
    </message>
    <message>
        <source>Color profiles</source>
        <translation>Farbprofile</translation>
    </message>
</context>
<context>
    <name>HBWaitForSteps</name>
    <message>
        <source>Applying the steps</source>
        <translation>Die Schritte werden angewendet</translation>
    </message>
</context>
<context>
    <name>HBWatermarkWidget</name>
    <message>
        <source>Watermark</source>
        <translation>Wasserzeichen</translation>
    </message>
    <message>
        <source>Select text color</source>
        <translation>Textfarbe auswählen</translation>
    </message>
    <message>
        <source>Font parameters</source>
        <translation>Schrifteinstellungen</translation>
    </message>
</context>
<context>
    <name>HistogramWidget</name>
    <message>
        <source>Histogram</source>
        <translation>Histogramm</translation>
    </message>
    <message>
        <source>No image</source>
        <translation>Kein Bild</translation>
    </message>
</context>
<context>
    <name>HueSaturationParamWidget</name>
    <message>
        <source>Hue and Saturation</source>
        <translation>Farbton und Sättigung</translation>
    </message>
    <message>
        <source>Hue:</source>
        <translation>Farbton:</translation>
    </message>
    <message>
        <source>Saturation:</source>
        <translation>Sättigung:</translation>
    </message>
    <message>
        <source>%</source>
        <translation>%</translation>
    </message>
    <message>
        <source>Lightness:</source>
        <translation>Helligkeit:</translation>
    </message>
    <message>
        <source>Use the checkbox to colorize the picture in mono color.</source>
        <translation>Mit diesem Kontrollkästchen das Bild einfarbig einfärben.</translation>
    </message>
    <message>
        <source>Colorize</source>
        <translation>Einfärben</translation>
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
    <name>KMFillColorWidget</name>
    <message>
        <source>Select a color</source>
        <translation>Farbe auswählen</translation>
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
    <message>
        <source>Images</source>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>Alle Dateien</translation>
    </message>
</context>
<context>
    <name>LevelsWidget</name>
    <message>
        <source>Levels</source>
        <translation>Tonwertkorrektur</translation>
    </message>
    <message>
        <source>Channel:</source>
        <translation>Kanal:</translation>
    </message>
    <message>
        <source>Channel for input signal</source>
        <translation>Kanal des Eingangssignals</translation>
    </message>
    <message>
        <source>RGB</source>
        <translation>RGB</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rot</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Grün</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Blau</translation>
    </message>
    <message>
        <source>Auto</source>
        <translation>Automatisch</translation>
    </message>
    <message>
        <source>Input</source>
        <translation>Eingang</translation>
    </message>
    <message>
        <source>Lowest input signal value</source>
        <translation>Kleinster Wert des Eingangssignals</translation>
    </message>
    <message>
        <source>Middle signal input value</source>
        <translation>Mittlerer Wert des Eingangssignals</translation>
    </message>
    <message>
        <source>Highest signal input value</source>
        <translation>Größter Wert des Eingangssignals</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>Ausgang</translation>
    </message>
    <message>
        <source>Lowest output value</source>
        <translation>Kleinster Ausgangswert</translation>
    </message>
    <message>
        <source>Highest output value</source>
        <translation>Größter Ausgangswert</translation>
    </message>
</context>
<context>
    <name>MavuCustomSlider</name>
    <message>
        <source>Handle %1</source>
        <translation>Griff %1</translation>
    </message>
</context>
<context>
    <name>PanelEditor</name>
    <message>
        <source>Adjusts photos with the adjustment panels.</source>
        <translation>Korrigiert Fotos mit den Adjustment Panels.</translation>
    </message>
    <message>
        <source>Write a picture of the window to FILE (PNG) and quit.</source>
        <translation>Ein Bild des Fensters nach FILE (PNG) schreiben und enden.</translation>
    </message>
    <message>
        <source>For --screenshot: the panel to open, by its class name.</source>
        <translation>Für --screenshot: das zu öffnende Panel, mit seinem Klassennamen.</translation>
    </message>
    <message>
        <source>For --screenshot: the recipe whose step gives the panel its values.</source>
        <translation>Für --screenshot: das Rezept, dessen Schritt dem Panel seine Werte gibt.</translation>
    </message>
    <message>
        <source>For --screenshot: the size of the window, 1200x800 by default.</source>
        <translation>Für --screenshot: die Größe des Fensters, sonst 1200x800.</translation>
    </message>
    <message>
        <source>The photos to open: the first, and all of them in a film strip.</source>
        <translation>Die Fotos, die geöffnet werden: das erste, und alle in einem Filmstreifen.</translation>
    </message>
    <message>
        <source>Use dark window colors.</source>
        <translation>Dunkle Fensterfarben verwenden.</translation>
    </message>
    <message>
        <source>For --screenshot: a recipe that is one of the panel&apos;s presets; may be given several times.</source>
        <translation>Für --screenshot: ein Rezept als Voreinstellung des Panels; mehrmals möglich.</translation>
    </message>
    <message>
        <source>For --screenshot: the recipe whose steps the photo has already.</source>
        <translation>Für --screenshot: das Rezept, dessen Schritte das Foto schon hat.</translation>
    </message>
    <message>
        <source>There was not enough memory for that. Your photo and its steps are kept.</source>
        <translation>Dafür reichte der Speicher nicht. Ihr Foto und seine Schritte sind noch da.</translation>
    </message>
</context>
<context>
    <name>PanelReplay</name>
    <message>
        <source>there is not enough memory</source>
        <translation>der Speicher reicht nicht</translation>
    </message>
    <message>
        <source>files of this kind cannot be written; choose another with --format</source>
        <translation>Dateien dieser Art können nicht geschrieben werden; wählen Sie eine andere mit --format</translation>
    </message>
    <message>
        <source>%1 is there already; replace it with --overwrite</source>
        <translation>%1 ist schon da; mit --overwrite wird es ersetzt</translation>
    </message>
    <message>
        <source>Original</source>
        <translation>Original</translation>
    </message>
    <message>
        <source>Folder for the results; made if it is not there.</source>
        <translation>Ordner für die Ergebnisse; wird angelegt, wenn er fehlt.</translation>
    </message>
    <message>
        <source>Quality of JPEG and WebP, 0..100, default 92; a WebP of 100 is lossless.</source>
        <translation>Qualität von JPEG und WebP, 0..100, sonst 92; ein WebP mit 100 ist verlustfrei.</translation>
    </message>
    <message>
        <source>Format of the results, as jpg, png, tif or webp; default: each file&apos;s own.</source>
        <translation>Format der Ergebnisse, etwa jpg, png, tif oder webp; sonst das jeder Datei.</translation>
    </message>
    <message>
        <source>pictures cannot be written in the format &quot;%1&quot;</source>
        <translation>Bilder können nicht im Format „%1“ geschrieben werden</translation>
    </message>
    <message>
        <source>name the folder for the results with -o DIR</source>
        <translation>nennen Sie den Ordner für die Ergebnisse mit -o DIR</translation>
    </message>
    <message>
        <source>%1: the folder cannot be made</source>
        <translation>%1: der Ordner kann nicht angelegt werden</translation>
    </message>
    <message>
        <source>wrong usage; try panel-replay --help</source>
        <translation>falscher Aufruf; siehe panel-replay --help</translation>
    </message>
    <message>
        <source>About %1 s for 12 megapixels on one core, without reading and writing.</source>
        <translation>Etwa %1 s für 12 Megapixel auf einem Kern, ohne Lesen und Schreiben.</translation>
    </message>
    <message>
        <source>good; steps: %1</source>
        <translation>gut; Schritte: %1</translation>
    </message>
    <message>
        <source>levels</source>
        <translation>Stufen</translation>
    </message>
    <message>
        <source>copies</source>
        <translation>Kopien</translation>
    </message>
    <message>
        <source>thousandths of the shorter side</source>
        <translation>Tausendstel der kürzeren Seite</translation>
    </message>
    <message>
        <source>%1 (counts as %2)</source>
        <translation>%1 (gilt als %2)</translation>
    </message>
    <message>
        <source>yes</source>
        <translation>ja</translation>
    </message>
    <message>
        <source>no</source>
        <translation>nein</translation>
    </message>
    <message>
        <source>--overwrite and --on-conflict %1 contradict each other</source>
        <translation>--overwrite und --on-conflict %1 widersprechen sich</translation>
    </message>
    <message>
        <source>--shard and --on-conflict rename do not go together</source>
        <translation>--shard und --on-conflict rename gehen nicht zusammen</translation>
    </message>
    <message>
        <source>--keep-going and --fail-fast contradict each other</source>
        <translation>--keep-going und --fail-fast widersprechen sich</translation>
    </message>
    <message>
        <source>--null goes with --files-from</source>
        <translation>--null gehört zu --files-from</translation>
    </message>
    <message>
        <source>name the photos, folders of them, or a list with --files-from</source>
        <translation>nennen Sie Fotos, Ordner mit Fotos oder eine Liste mit --files-from</translation>
    </message>
    <message>
        <source>%1 are the same, %2 skipped, %3 failed</source>
        <translation>%1 gleich, %2 übersprungen, %3 fehlgeschlagen</translation>
    </message>
    <message>
        <source>%1 would be written, %2 skipped, %3 would fail</source>
        <translation>%1 würden geschrieben, %2 übersprungen, %3 würden fehlschlagen</translation>
    </message>
    <message>
        <source>%1 written, %2 skipped, %3 failed</source>
        <translation>%1 geschrieben, %2 übersprungen, %3 fehlgeschlagen</translation>
    </message>
    <message>
        <source>, %1 not tried</source>
        <translation>, %1 nicht versucht</translation>
    </message>
    <message>
        <source>no photo was found there</source>
        <translation>dort wurde kein Foto gefunden</translation>
    </message>
    <message>
        <source>it has %1 megapixels, more than %2; allow it with --max-megapixels</source>
        <translation>es hat %1 Megapixel, mehr als %2; erlauben Sie das mit --max-megapixels</translation>
    </message>
    <message>
        <source>it says that it has %1 megapixels, in a file of %2 bytes; allow it with --max-megapixels</source>
        <translation>es gibt %1 Megapixel an, in einer Datei von %2 Bytes; erlauben Sie das mit --max-megapixels</translation>
    </message>
    <message>
        <source>it needs about %1 MB of memory, more than %2 MB; allow it with --memory</source>
        <translation>es braucht etwa %1 MB Speicher, mehr als %2 MB; erlauben Sie das mit --memory</translation>
    </message>
    <message>
        <source>the recipe would take about %1 s for it, more than %2 s; allow it with --max-seconds-per-file</source>
        <translation>das Rezept bräuchte dafür etwa %1 s, mehr als %2 s; erlauben Sie das mit --max-seconds-per-file</translation>
    </message>
    <message>
        <source>%1 does not lie in the folder of --base</source>
        <translation>%1 liegt nicht im Ordner von --base</translation>
    </message>
    <message>
        <source>%1: the list of files cannot be read</source>
        <translation>%1: die Liste der Dateien kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>the journal cannot be written (%1)</source>
        <translation>das Journal kann nicht geschrieben werden (%1)</translation>
    </message>
    <message>
        <source>%1: this is not a report</source>
        <translation>%1: das ist kein Bericht</translation>
    </message>
    <message>
        <source>%1: its run did not come to its end</source>
        <translation>%1: der Lauf kam nicht zum Ende</translation>
    </message>
    <message>
        <source>the reports are of different recipes</source>
        <translation>die Berichte gehören zu verschiedenen Rezepten</translation>
    </message>
    <message>
        <source>done twice, and not the same</source>
        <translation>zweimal bearbeitet, mit verschiedenem Ergebnis</translation>
    </message>
    <message>
        <source>done twice</source>
        <translation>zweimal bearbeitet</translation>
    </message>
    <message>
        <source>missing: no report names it</source>
        <translation>fehlt: kein Bericht nennt es</translation>
    </message>
    <message>
        <source>%1 of %2 photos are in no report; name them with --files-from</source>
        <translation>%1 von %2 Fotos stehen in keinem Bericht; nennen Sie sie mit --files-from</translation>
    </message>
    <message>
        <source>share %1 is missing or did not come to its end</source>
        <translation>Anteil %1 fehlt oder kam nicht zum Ende</translation>
    </message>
    <message>
        <source>--name knows {name}, {recipe} and {ext}, not {%1}</source>
        <translation>--name kennt {name}, {recipe} und {ext}, nicht {%1}</translation>
    </message>
    <message>
        <source>--name must be the name of a file, without folders</source>
        <translation>--name muss ein Dateiname ohne Ordner sein</translation>
    </message>
    <message>
        <source>Adjust photos as the recipe says.</source>
        <translation>Fotos nach einem Rezept bearbeiten.</translation>
    </message>
    <message>
        <source>adjust some photos</source>
        <translation>einige Fotos bearbeiten</translation>
    </message>
    <message>
        <source>a whole tree; typed again, it goes on where it was stopped</source>
        <translation>ein ganzer Ordnerbaum; erneut aufgerufen, geht es dort weiter, wo abgebrochen wurde</translation>
    </message>
    <message>
        <source>only say what would be written</source>
        <translation>nur sagen, was geschrieben würde</translation>
    </message>
    <message>
        <source>web/a-warm.webp and web/b-warm.webp</source>
        <translation>web/a-warm.webp und web/b-warm.webp</translation>
    </message>
    <message>
        <source>the third of eight machines, with a report</source>
        <translation>der dritte von acht Rechnern, mit Bericht</translation>
    </message>
    <message>
        <source>Adjust photos again, and compare with the results that are there. Nothing is written.</source>
        <translation>Fotos noch einmal bearbeiten und mit den vorhandenen Ergebnissen vergleichen. Nichts wird geschrieben.</translation>
    </message>
    <message>
        <source>named as they were for apply</source>
        <translation>benannt wie bei apply</translation>
    </message>
    <message>
        <source>Show what every panel does to a photo: a picture each, and all of them on one sheet.</source>
        <translation>Zeigen, was jedes Panel mit einem Foto macht: je ein Bild, und alle auf einem Bogen.</translation>
    </message>
    <message>
        <source>the sheet is sheet/photo-contact-sheet.png</source>
        <translation>der Bogen ist sheet/photo-contact-sheet.png</translation>
    </message>
    <message>
        <source>List the panels: class, tag of the stored record, group and title.</source>
        <translation>Die Panels auflisten: Klasse, Kennung des gespeicherten Datensatzes, Gruppe und Titel.</translation>
    </message>
    <message>
        <source>columns stand between tabs</source>
        <translation>die Spalten sind durch Tabulatoren getrennt</translation>
    </message>
    <message>
        <source>Say what a recipe does, step by step, in words and units.</source>
        <translation>Sagen, was ein Rezept macht, Schritt für Schritt, in Worten und Einheiten.</translation>
    </message>
    <message>
        <source>to read</source>
        <translation>zum Lesen</translation>
    </message>
    <message>
        <source>for programs</source>
        <translation>für Programme</translation>
    </message>
    <message>
        <source>Check recipes. The exit code is 2 if one of them is bad.</source>
        <translation>Rezepte prüfen. Der Exit-Code ist 2, wenn eines davon fehlerhaft ist.</translation>
    </message>
    <message>
        <source>a line for each</source>
        <translation>eine Zeile für jedes</translation>
    </message>
    <message>
        <source>Say in what two recipes differ. The exit code is 1 if they do.</source>
        <translation>Sagen, worin sich zwei Rezepte unterscheiden. Der Exit-Code ist 1, wenn sie es tun.</translation>
    </message>
    <message>
        <source>- and +: only in the first, only in the second</source>
        <translation>- und +: nur im ersten, nur im zweiten</translation>
    </message>
    <message>
        <source>Print the JSON Schema of recipes.</source>
        <translation>Das JSON-Schema der Rezepte ausgeben.</translation>
    </message>
    <message>
        <source>for editors and other tools</source>
        <translation>für Editoren und andere Werkzeuge</translation>
    </message>
    <message>
        <source>Join the reports of several workers (apply --json) into one, and name what is missing or done twice.</source>
        <translation>Die Berichte mehrerer Rechner (apply --json) zu einem verbinden und nennen, was fehlt oder zweimal bearbeitet wurde.</translation>
    </message>
    <message>
        <source>files of the list that no report says done are missing</source>
        <translation>Dateien der Liste, die kein Bericht als erledigt nennt, fehlen</translation>
    </message>
    <message>
        <source>Names of the results, of {name} and {ext} of the photo and {recipe}; default: {name}.{ext}.</source>
        <translation>Namen der Ergebnisse, aus {name} und {ext} des Fotos und {recipe}; sonst {name}.{ext}.</translation>
    </message>
    <message>
        <source>Take the folders within folders, too; results keep them.</source>
        <translation>Auch Ordner in Ordnern nehmen; die Ergebnisse behalten sie.</translation>
    </message>
    <message>
        <source>Read the names of the photos from a file, one a line; - is standard input. Folders of relative names are kept.</source>
        <translation>Die Namen der Fotos aus einer Datei lesen, einer je Zeile; - ist die Standardeingabe. Ordner relativer Namen bleiben erhalten.</translation>
    </message>
    <message>
        <source>The names of --files-from end with a NUL byte, as find -print0 writes them.</source>
        <translation>Die Namen von --files-from enden mit einem NUL-Byte, wie find -print0 sie schreibt.</translation>
    </message>
    <message>
        <source>Results keep the folders that the photos have below this one.</source>
        <translation>Die Ergebnisse behalten die Ordner, in denen die Fotos unterhalb von diesem liegen.</translation>
    </message>
    <message>
        <source>Take only such files; may be given several times. With a / it is compared with the path below the folder, else with the name; case does not matter.</source>
        <translation>Nur solche Dateien nehmen; mehrfach möglich. Mit einem / wird mit dem Pfad unterhalb des Ordners verglichen, sonst mit dem Namen; Groß- und Kleinschreibung ist egal.</translation>
    </message>
    <message>
        <source>Leave such files out; may be given several times.</source>
        <translation>Solche Dateien auslassen; mehrfach möglich.</translation>
    </message>
    <message>
        <source>If a result is there already: fail (the default), skip, overwrite, or rename the new one.</source>
        <translation>Wenn ein Ergebnis schon da ist: Fehler melden (fail, der Standard), überspringen (skip), ersetzen (overwrite) oder das neue umbenennen (rename).</translation>
    </message>
    <message>
        <source>The same as --on-conflict overwrite.</source>
        <translation>Dasselbe wie --on-conflict overwrite.</translation>
    </message>
    <message>
        <source>Check everything, say what would be written, and write nothing.</source>
        <translation>Alles prüfen, sagen, was geschrieben würde, und nichts schreiben.</translation>
    </message>
    <message>
        <source>Leave out what an earlier run with this recipe has finished, by the journal in the results&apos; folder; and keep the journal.</source>
        <translation>Auslassen, was ein früherer Lauf mit diesem Rezept laut Journal im Ordner der Ergebnisse erledigt hat; und das Journal weiterführen.</translation>
    </message>
    <message>
        <source>Go on after a file that failed (the default).</source>
        <translation>Nach einer fehlgeschlagenen Datei weitermachen (der Standard).</translation>
    </message>
    <message>
        <source>Start no further file once one has failed.</source>
        <translation>Keine weitere Datei beginnen, sobald eine fehlgeschlagen ist.</translation>
    </message>
    <message>
        <source>Use so many cores; default: all.</source>
        <translation>So viele Kerne nutzen; sonst alle.</translation>
    </message>
    <message>
        <source>Give a file up that takes longer, or by the recipe&apos;s estimate would; default: 300.</source>
        <translation>Eine Datei aufgeben, die länger braucht oder nach Schätzung des Rezepts bräuchte; sonst 300.</translation>
    </message>
    <message>
        <source>Refuse larger photos; default: 1100.</source>
        <translation>Größere Fotos ablehnen; sonst 1100.</translation>
    </message>
    <message>
        <source>Do the I-th of N shares. auto: as the job array says (Slurm, PBS, SGE, Kubernetes, AWS Batch); auto/N where it does not tell how many tasks there are.</source>
        <translation>Den I-ten von N Anteilen bearbeiten. auto: wie das Job-Array es angibt (Slurm, PBS, SGE, Kubernetes, AWS Batch); auto/N, wo es die Zahl der Aufgaben nicht nennt.</translation>
    </message>
    <message>
        <source>Print JSON: a line for each file and one for all.</source>
        <translation>JSON ausgeben: eine Zeile für jede Datei und eine für alle.</translation>
    </message>
    <message>
        <source>Show help, also of a command.</source>
        <translation>Hilfe zeigen, auch zu einem Befehl.</translation>
    </message>
    <message>
        <source>Show the version.</source>
        <translation>Die Version zeigen.</translation>
    </message>
    <message>
        <source>Examples:</source>
        <translation>Beispiele:</translation>
    </message>
    <message>
        <source>Usage:</source>
        <translation>Aufruf:</translation>
    </message>
    <message>
        <source>Options:</source>
        <translation>Optionen:</translation>
    </message>
    <message>
        <source>Applies stored adjustments to photos.</source>
        <translation>Wendet gespeicherte Anpassungen auf Fotos an.</translation>
    </message>
    <message>
        <source>Commands; panel-replay COMMAND --help says more:</source>
        <translation>Befehle; mehr dazu mit panel-replay COMMAND --help:</translation>
    </message>
    <message>
        <source>there is no command &quot;%1&quot;; try panel-replay --help</source>
        <translation>es gibt keinen Befehl „%1“; siehe panel-replay --help</translation>
    </message>
    <message>
        <source>%1 has no option --%2; try %3</source>
        <translation>%1 hat keine Option --%2; siehe %3</translation>
    </message>
    <message>
        <source>--%1 must be one of: %2</source>
        <translation>--%1 muss eines von diesen sein: %2</translation>
    </message>
    <message>
        <source>wrong usage; try %1</source>
        <translation>falscher Aufruf; siehe %1</translation>
    </message>
    <message>
        <source>--%1 must be a number from %2 to %3</source>
        <translation>--%1 muss eine Zahl von %2 bis %3 sein</translation>
    </message>
    <message>
        <source>--%1 must be a whole number</source>
        <translation>--%1 muss eine ganze Zahl sein</translation>
    </message>
    <message>
        <source>--%1 must be a size from 1M, as 800M or 4G</source>
        <translation>--%1 muss eine Größe ab 1M sein, etwa 800M oder 4G</translation>
    </message>
    <message>
        <source>%1 is not what the recipe gives</source>
        <translation>%1 ist nicht das, was das Rezept ergibt</translation>
    </message>
    <message>
        <source>given up after %1 s; allow it more with --max-seconds-per-file</source>
        <translation>nach %1 s aufgegeben; erlauben Sie mehr mit --max-seconds-per-file</translation>
    </message>
    <message>
        <source>%1 is written from %2 already; --base or --name can keep them apart</source>
        <translation>%1 wird schon aus %2 geschrieben; --base oder --name kann sie auseinanderhalten</translation>
    </message>
    <message>
        <source>it was done in an earlier run</source>
        <translation>in einem früheren Lauf erledigt</translation>
    </message>
    <message>
        <source>there is no such file</source>
        <translation>diese Datei gibt es nicht</translation>
    </message>
    <message>
        <source>its result %1 is not there</source>
        <translation>das Ergebnis %1 ist nicht da</translation>
    </message>
    <message>
        <source>the photo itself was replaced by its result</source>
        <translation>das Foto selbst wurde durch sein Ergebnis ersetzt</translation>
    </message>
    <message>
        <source>%1 is there already</source>
        <translation>%1 ist schon da</translation>
    </message>
    <message>
        <source>%1 is a photo to adjust itself</source>
        <translation>%1 ist selbst ein zu bearbeitendes Foto</translation>
    </message>
    <message>
        <source>%1: this is not a folder</source>
        <translation>%1: das ist kein Ordner</translation>
    </message>
    <message>
        <source>%1: the folder cannot be written to</source>
        <translation>%1: in den Ordner kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>the tasks of this array have no even distance; name the share with --shard I/N</source>
        <translation>die Aufgaben dieses Arrays haben keinen gleichmäßigen Abstand; nennen Sie den Anteil mit --shard I/N</translation>
    </message>
    <message>
        <source>%1 is set, but not how many tasks there are; say it with --shard auto/N</source>
        <translation>%1 ist gesetzt, aber nicht die Zahl der Aufgaben; nennen Sie sie mit --shard auto/N</translation>
    </message>
    <message>
        <source>the array has %1 tasks, not %2</source>
        <translation>das Array hat %1 Aufgaben, nicht %2</translation>
    </message>
    <message>
        <source>this is no task of a job array; name the share with --shard I/N</source>
        <translation>das ist keine Aufgabe eines Job-Arrays; nennen Sie den Anteil mit --shard I/N</translation>
    </message>
    <message>
        <source>--shard must be I/N with I from 1 to N, auto, or auto/N</source>
        <translation>--shard muss I/N mit I von 1 bis N, auto oder auto/N sein</translation>
    </message>
    <message>
        <source>standard output could not be written; what it holds is not whole</source>
        <translation>die Standardausgabe konnte nicht geschrieben werden; was sie enthält, ist unvollständig</translation>
    </message>
    <message>
        <source>Goes with: %1.</source>
        <translation>Gehört zu: %1.</translation>
    </message>
    <message>
        <source>apply stored adjustments to photos</source>
        <translation>gespeicherte Anpassungen auf Fotos anwenden</translation>
    </message>
    <message>
        <source>The folder for what does not fit into the memory; default: /var/tmp.</source>
        <translation>Der Ordner für das, was nicht in den Speicher passt; sonst /var/tmp.</translation>
    </message>
    <message>
        <source>In the results&apos; folder: what has been done, a line of JSON for each file. --resume reads it. With --shard, the share is in its name.</source>
        <translation>Im Ordner der Ergebnisse: was erledigt ist, eine JSON-Zeile je Datei. --resume liest es. Mit --shard steht der Anteil im Namen.</translation>
    </message>
    <message>
        <source>Show help, also of a command; or print the manual page, or a shell&apos;s completion.</source>
        <translation>Hilfe zeigen, auch zu einem Befehl; oder die Handbuchseite oder die Vervollständigung einer Shell ausgeben.</translation>
    </message>
    <message>
        <source>the same as panel-replay apply --help</source>
        <translation>dasselbe wie panel-replay apply --help</translation>
    </message>
    <message>
        <source>all of it on one page</source>
        <translation>alles auf einer Seite</translation>
    </message>
    <message>
        <source>Tab completes commands, options and values; an installed panel-replay has brought it already</source>
        <translation>Die Tabulatortaste vervollständigt Befehle, Optionen und Werte; ein installiertes panel-replay bringt das schon mit</translation>
    </message>
    <message>
        <source>All is done.</source>
        <translation>Alles ist erledigt.</translation>
    </message>
    <message>
        <source>A file failed; of diff: the recipes differ; of merge: photos are missing.</source>
        <translation>Eine Datei ist gescheitert; bei diff: die Rezepte unterscheiden sich; bei merge: Fotos fehlen.</translation>
    </message>
    <message>
        <source>Wrong usage, or a bad recipe; nothing was written.</source>
        <translation>Falscher Aufruf oder fehlerhaftes Rezept; nichts wurde geschrieben.</translation>
    </message>
    <message>
        <source>No file matched.</source>
        <translation>Keine Datei passte.</translation>
    </message>
    <message>
        <source>Interrupted by Ctrl-C or SIGTERM; results are whole.</source>
        <translation>Durch Strg+C oder SIGTERM unterbrochen; Ergebnisse sind vollständig.</translation>
    </message>
    <message>
        <source>Print the manual page, for man.</source>
        <translation>Die Handbuchseite für man ausgeben.</translation>
    </message>
    <message>
        <source>Print the completion of a shell.</source>
        <translation>Die Vervollständigung einer Shell ausgeben.</translation>
    </message>
    <message>
        <source>Exit codes:</source>
        <translation>Rückgabewerte:</translation>
    </message>
    <message>
        <source>it has changed since the run began; perhaps another run has adjusted it</source>
        <translation>sie hat sich seit dem Beginn des Laufs geändert; vielleicht hat ein anderer Lauf sie angepasst</translation>
    </message>
    <message>
        <source>the folder cannot be read</source>
        <translation>der Ordner kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>interrupted</source>
        <translation>unterbrochen</translation>
    </message>
    <message>
        <source>rectangle from %1 to %2</source>
        <translation>Rechteck von %1 bis %2</translation>
    </message>
    <message>
        <source>ellipse from %1 to %2</source>
        <translation>Ellipse von %1 bis %2</translation>
    </message>
    <message>
        <source>polygon of %1 corners</source>
        <translation>Vieleck mit %1 Ecken</translation>
    </message>
    <message>
        <source>gradient from %1 to %2</source>
        <translation>Verlauf von %1 bis %2</translation>
    </message>
    <message>
        <source>all but the %1</source>
        <translation>alles außer: %1</translation>
    </message>
    <message>
        <source>, feather %1 % of the shorter side</source>
        <translation>, weiche Kante %1 % der kürzeren Seite</translation>
    </message>
    <message>
        <source>without the %1</source>
        <translation>ohne: %1</translation>
    </message>
    <message>
        <source>only in the %1</source>
        <translation>nur in: %1</translation>
    </message>
    <message>
        <source>switched off</source>
        <translation>ausgeschaltet</translation>
    </message>
    <message>
        <source>amount: %1 %</source>
        <translation>Stärke: %1 %</translation>
    </message>
    <message>
        <source>selection: %1</source>
        <translation>Auswahl: %1</translation>
    </message>
    <message>
        <source>%1: this is the report of a dry run, which does nothing</source>
        <translation>%1: das ist der Bericht eines Probelaufs, der nichts tut</translation>
    </message>
    <message>
        <source>missing: no report but a dry run&apos;s names it</source>
        <translation>fehlt: nur der Bericht eines Probelaufs nennt sie</translation>
    </message>
    <message>
        <source>Memory for pictures, as 800M or 4G; default: half of what the machine has, or the container. A photo that needs more is refused.</source>
        <translation>Speicher für Bilder, als 800M oder 4G; sonst die Hälfte von dem, was der Rechner oder der Container hat. Ein Foto, das mehr braucht, wird abgelehnt.</translation>
    </message>
    <message>
        <source>its name is not UTF-8, which Qt 6 needs</source>
        <translation>ihr Name ist nicht UTF-8, was Qt 6 braucht</translation>
    </message>
    <message>
        <source>interrupted; %1</source>
        <translation>unterbrochen; %1</translation>
    </message>
    <message>
        <source>task %1 is none of %2 that are numbered without gaps; name the share with --shard I/N</source>
        <translation>Aufgabe %1 ist keine von %2, die lückenlos nummeriert sind; nennen Sie den Anteil mit --shard I/N</translation>
    </message>
    <message>
        <source>%1 is not UTF-8, which Qt 6 needs</source>
        <translation>%1 ist nicht UTF-8, was Qt 6 braucht</translation>
    </message>
    <message>
        <source>color %1, tolerance %2</source>
        <translation>Farbe %1, Toleranz %2</translation>
    </message>
    <message>
        <source>Adjusts any number of photos as a recipe says that panel-editor has saved, without a display. Names of files may be of any bytes. Results are written whole or not at all, with the metadata and the color profile of the photo.</source>
        <translation>Passt beliebig viele Fotos an, wie ein von panel-editor gespeichertes Rezept es sagt, ohne Bildschirm. Dateinamen dürfen aus beliebigen Bytes bestehen. Ergebnisse werden ganz oder gar nicht geschrieben, mit den Metadaten und dem Farbprofil des Fotos.</translation>
    </message>
    <message>
        <source>If it is set and not empty, messages have no colors.</source>
        <translation>Ist sie gesetzt und nicht leer, haben Meldungen keine Farben.</translation>
    </message>
</context>
<context>
    <name>PhotoFilterWidget</name>
    <message>
        <source>Photo filter</source>
        <translation>Fotofilter</translation>
    </message>
    <message>
        <source>Color:</source>
        <translation>Farbe:</translation>
    </message>
    <message>
        <source>Density:</source>
        <translation>Dichte:</translation>
    </message>
    <message>
        <source>%</source>
        <translation>%</translation>
    </message>
    <message>
        <source>Preset:</source>
        <translation>Vorgabe:</translation>
    </message>
</context>
<context>
    <name>PosterizeParamWidget</name>
    <message>
        <source>Posterize</source>
        <translation>Tontrennung</translation>
    </message>
    <message>
        <source>Posterize:</source>
        <translation>Stufen:</translation>
    </message>
</context>
<context>
    <name>ReplaceColor</name>
    <message>
        <source>Color Replacement</source>
        <translation>Farbersetzung</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Quelle</translation>
    </message>
    <message>
        <source>Position:</source>
        <translation>Position:</translation>
    </message>
    <message>
        <source>Tolerance:</source>
        <translation>Toleranz:</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>Opacity:</source>
        <translation>Deckkraft:</translation>
    </message>
    <message>
        <source>%</source>
        <translation>%</translation>
    </message>
</context>
<context>
    <name>SignWidget</name>
    <message>
        <source>Sign</source>
        <translation>Signatur</translation>
    </message>
    <message>
        <source>Sign image:</source>
        <translation>Signaturbild:</translation>
    </message>
    <message>
        <source>Choose an image...</source>
        <translation>Bild auswählen...</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>Alignment</source>
        <translation>Ausrichtung</translation>
    </message>
    <message>
        <source>Horizontal:</source>
        <translation>Horizontal:</translation>
    </message>
    <message>
        <source>Set Horizontal Alignment</source>
        <translation>Horizontale Ausrichtung festlegen</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>Center</source>
        <translation>Mitte</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Rechts</translation>
    </message>
    <message>
        <source>Vertical:</source>
        <translation>Vertikal:</translation>
    </message>
    <message>
        <source>Set Vertical Alignment</source>
        <translation>Vertikale Ausrichtung festlegen</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>Oben</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>Unten</translation>
    </message>
    <message>
        <source>Margins:</source>
        <translation>Ränder:</translation>
    </message>
    <message>
        <source>Set Top Margin</source>
        <translation>Oberen Rand festlegen</translation>
    </message>
    <message>
        <source>Set Left Margin</source>
        <translation>Linken Rand festlegen</translation>
    </message>
    <message>
        <source>Set Right Margin</source>
        <translation>Rechten Rand festlegen</translation>
    </message>
    <message>
        <source>Set Bottom Margin</source>
        <translation>Unteren Rand festlegen</translation>
    </message>
    <message>
        <source>Blending</source>
        <translation>Mischen</translation>
    </message>
    <message>
        <source>Mode:</source>
        <translation>Modus:</translation>
    </message>
    <message>
        <source>Opacity:</source>
        <translation>Deckkraft:</translation>
    </message>
    <message>
        <source>%</source>
        <translation>%</translation>
    </message>
</context>
<context>
    <name>TemperatureWidget</name>
    <message>
        <source>Temperature correction</source>
        <translation>Korrektur der Farbtemperatur</translation>
    </message>
    <message>
        <source>Temperature:</source>
        <translation>Temperatur:</translation>
    </message>
    <message>
        <source>K</source>
        <translation>K</translation>
    </message>
    <message>
        <source>Strength:</source>
        <translation>Intensität:</translation>
    </message>
    <message>
        <source>Tint:</source>
        <translation>Tönung:</translation>
    </message>
</context>
<context>
    <name>ThresholdWidget</name>
    <message>
        <source>Threshold</source>
        <translation>Schwellenwert</translation>
    </message>
    <message>
        <source>Threshold level:</source>
        <translation>Schwelle:</translation>
    </message>
</context>
<context>
    <name>TintWidget</name>
    <message>
        <source>Tint</source>
        <translation>Tönung</translation>
    </message>
    <message>
        <source>Black tone:</source>
        <translation>Schwarzton:</translation>
    </message>
    <message>
        <source>Set the color you want to replace the black tone with</source>
        <translation>Farbe festlegen, die den Schwarzton ersetzt</translation>
    </message>
    <message>
        <source>White tone:</source>
        <translation>Weißton:</translation>
    </message>
    <message>
        <source>Set the color you want to replace the white tone with</source>
        <translation>Farbe festlegen, die den Weißton ersetzt</translation>
    </message>
    <message>
        <source>Amount:</source>
        <translation>Stärke:</translation>
    </message>
    <message>
        <source>%</source>
        <translation>%</translation>
    </message>
    <message>
        <source>Type:</source>
        <translation>Art:</translation>
    </message>
</context>
<context>
    <name>WBWidget</name>
    <message>
        <source>Picture corection</source>
        <translation>Bildkorrektur</translation>
    </message>
    <message>
        <source>Main</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Auto correction</source>
        <translation>Automatische Korrektur</translation>
    </message>
    <message>
        <source>Advanced correction</source>
        <translation>Erweiterte Korrektur</translation>
    </message>
    <message>
        <source>Overexposure correction</source>
        <translation>Korrektur der Überbelichtung</translation>
    </message>
    <message>
        <source>Underexposure correction</source>
        <translation>Korrektur der Unterbelichtung</translation>
    </message>
    <message>
        <source>Power of correction:</source>
        <translation>Korrekturstärke:</translation>
    </message>
    <message>
        <source>Advanced</source>
        <translation>Erweitert</translation>
    </message>
    <message>
        <source>Temperature:</source>
        <translation>Temperatur:</translation>
    </message>
    <message>
        <source>Strength:</source>
        <translation>Intensität:</translation>
    </message>
</context>
<context>
    <name>WatermarkWidget</name>
    <message>
        <source>Watermark</source>
        <translation>Wasserzeichen</translation>
    </message>
    <message>
        <source>Text:</source>
        <translation>Text:</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>H. count:</source>
        <translation>Anzahl H.:</translation>
    </message>
    <message>
        <source>V. count:</source>
        <translation>Anzahl V.:</translation>
    </message>
    <message>
        <source>Alignment</source>
        <translation>Ausrichtung</translation>
    </message>
    <message>
        <source>Angle:</source>
        <translation>Winkel:</translation>
    </message>
    <message>
        <source>Set Angle</source>
        <translation>Winkel festlegen</translation>
    </message>
    <message>
        <source>°</source>
        <translation>°</translation>
    </message>
    <message>
        <source>Margins:</source>
        <translation>Ränder:</translation>
    </message>
    <message>
        <source>Set Top Margin</source>
        <translation>Oberen Rand festlegen</translation>
    </message>
    <message>
        <source>Set Left Margin</source>
        <translation>Linken Rand festlegen</translation>
    </message>
    <message>
        <source>Set Right Margin</source>
        <translation>Rechten Rand festlegen</translation>
    </message>
    <message>
        <source>Set Bottom Margin</source>
        <translation>Unteren Rand festlegen</translation>
    </message>
    <message>
        <source>Blending</source>
        <translation>Mischen</translation>
    </message>
    <message>
        <source>Mode:</source>
        <translation>Modus:</translation>
    </message>
    <message>
        <source>Opacity:</source>
        <translation>Deckkraft:</translation>
    </message>
    <message>
        <source>%</source>
        <translation>%</translation>
    </message>
</context>
</TS>
