<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>QGuiApplication</name>
    <message>
        <source>QT_LAYOUT_DIRECTION</source>
        <translation>LTR</translation>
    </message>
</context>
<context>
    <name>QcDialog</name>
    <message>
        <source>PushButton</source>
        <translation>Schaltfläche</translation>
    </message>
    <message>
        <source>dialog</source>
        <translation>Dialog</translation>
    </message>
    <message>
        <source>TextLabel</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Minimieren</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>Maximieren</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>QcDockAreaTabFrame</name>
    <message>
        <source>Previous tab</source>
        <translation>Vorheriger Tab</translation>
    </message>
    <message>
        <source>Next tab</source>
        <translation>Nächster Tab</translation>
    </message>
</context>
<context>
    <name>QcDockIndicator</name>
    <message>
        <source>Left of %1</source>
        <translation>Links von %1</translation>
    </message>
    <message>
        <source>Right of %1</source>
        <translation>Rechts von %1</translation>
    </message>
    <message>
        <source>Above %1</source>
        <translation>Über %1</translation>
    </message>
    <message>
        <source>Below %1</source>
        <translation>Unter %1</translation>
    </message>
    <message>
        <source>Tab beside %1</source>
        <translation>Tab neben %1</translation>
    </message>
    <message>
        <source>Left edge of all around %1</source>
        <translation>Linker Rand des Ganzen um %1</translation>
    </message>
    <message>
        <source>Right edge of all around %1</source>
        <translation>Rechter Rand des Ganzen um %1</translation>
    </message>
    <message>
        <source>Top edge of all around %1</source>
        <translation>Oberer Rand des Ganzen um %1</translation>
    </message>
    <message>
        <source>Bottom edge of all around %1</source>
        <translation>Unterer Rand des Ganzen um %1</translation>
    </message>
    <message>
        <source>%1, %2 of %3</source>
        <translation>%1, %2 von %3</translation>
    </message>
    <message>
        <source>empty area</source>
        <translation>leerer Bereich</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Rechts</translation>
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
        <source>As a tab</source>
        <translation>Als Tab</translation>
    </message>
    <message>
        <source>Left edge</source>
        <translation>Linker Rand</translation>
    </message>
    <message>
        <source>Right edge</source>
        <translation>Rechter Rand</translation>
    </message>
    <message>
        <source>Top edge</source>
        <translation>Oberer Rand</translation>
    </message>
    <message>
        <source>Bottom edge</source>
        <translation>Unterer Rand</translation>
    </message>
</context>
<context>
    <name>QcDockWidget</name>
    <message>
        <source>Move to</source>
        <translation>Verschieben nach</translation>
    </message>
    <message>
        <source>Float</source>
        <translation>Abdocken</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Close %1</source>
        <translation>%1 schließen</translation>
    </message>
</context>
<context>
    <name>QcNotification</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>First page</source>
        <translation>Erste Seite</translation>
    </message>
    <message>
        <source>Previous page</source>
        <translation>Vorherige Seite</translation>
    </message>
    <message>
        <source>Next page</source>
        <translation>Nächste Seite</translation>
    </message>
    <message>
        <source>Last page</source>
        <translation>Letzte Seite</translation>
    </message>
</context>
<context>
    <name>QcSplitterHandle</name>
    <message>
        <source>Between %1 and %2</source>
        <translation>Zwischen %1 und %2</translation>
    </message>
</context>
<context>
    <name>QcWindow</name>
    <message>
        <source>window</source>
        <translation>Fenster</translation>
    </message>
    <message>
        <source>TextLabel</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Minimieren</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>Maximieren</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>Velmora::QcDockWidget</name>
    <message>
        <source>PleaseMoveToTheIMsg</source>
        <translation>Auf eine Markierung ziehen</translation>
    </message>
</context>
<context>
    <name>Velmora::QcLoadingDialog</name>
    <message>
        <source>Loading...</source>
        <translation>Wird geladen...</translation>
    </message>
</context>
<context>
    <name>Velmora::QcProgressDialog</name>
    <message>
        <source>LoadingMsg</source>
        <translation>Wird geladen, bitte warten</translation>
    </message>
</context>
<context>
    <name>Velmora::QcTextEditLimiter</name>
    <message>
        <source>PleaseEnterMsg</source>
        <translation>Bitte Text eingeben</translation>
    </message>
</context>
<context>
    <name>Velmora::QcToast</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>VelmoraDesigner</name>
    <message>
        <source>Colours of states</source>
        <translation>Farben der Zustände</translation>
    </message>
    <message>
        <source>Choose %1...</source>
        <translation>%1 wählen...</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>&amp;Hell</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>&amp;Dunkel</translation>
    </message>
    <message>
        <source>High contrast, l&amp;ight</source>
        <translation>Hoher Kontrast, h&amp;ell</translation>
    </message>
    <message>
        <source>High contrast, d&amp;ark</source>
        <translation>Hoher Kontrast, d&amp;unkel</translation>
    </message>
    <message>
        <source>Other &amp;file...</source>
        <translation>Andere D&amp;atei...</translation>
    </message>
    <message>
        <source>%1 has no colours.</source>
        <translation>%1 enthält keine Farben.</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>A token, #RRGGBB, a colour&apos;s name, or one of them with an alpha: ${brand/brand, 0.5}</source>
        <translation>Ein Token, #RRGGBB, der Name einer Farbe oder eines davon mit Deckkraft: ${brand/brand, 0.5}</translation>
    </message>
</context>
<context>
    <name>XlsxTemplate</name>
    <message>
        <source>The date is not between %1 and 9999-12-31.</source>
        <translation>Das Datum liegt nicht zwischen %1 und 9999-12-31.</translation>
    </message>
    <message numerus="yes">
        <source>The text has %n characters; a cell holds %1.</source>
        <translation>
            <numerusform>Der Text hat %n Zeichen; eine Zelle fasst %1.</numerusform>
            <numerusform>Der Text hat %n Zeichen; eine Zelle fasst %1.</numerusform>
        </translation>
    </message>
    <message>
        <source>The number is infinite, or none at all.</source>
        <translation>Die Zahl ist unendlich oder gar keine.</translation>
    </message>
    <message>
        <source>The time is none.</source>
        <translation>Die Uhrzeit ist keine.</translation>
    </message>
    <message>
        <source>A value of the type %1 is none for a cell.</source>
        <translation>Ein Wert vom Typ %1 passt in keine Zelle.</translation>
    </message>
    <message>
        <source>%1 is not the name of a row, nor of a table.</source>
        <translation>%1 ist weder der Name einer Zeile noch der einer Tabelle.</translation>
    </message>
    <message>
        <source>A sheet has no more than %1 rows.</source>
        <translation>Ein Blatt hat höchstens %1 Zeilen.</translation>
    </message>
    <message>
        <source>Row %1: %2</source>
        <comment>a row and what is wrong in it</comment>
        <translation>Zeile %1: %2</translation>
    </message>
    <message numerus="yes">
        <source>There are %1 values, but %2 has %n columns.</source>
        <translation>
            <numerusform>Es sind %1 Werte, aber %2 hat %n Spalte.</numerusform>
            <numerusform>Es sind %1 Werte, aber %2 hat %n Spalten.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Row %1 of %2 is too large to be repeated %n times.</source>
        <translation>
            <numerusform>Zeile %1 von %2 ist zu groß, um %n-mal wiederholt zu werden.</numerusform>
            <numerusform>Zeile %1 von %2 ist zu groß, um %n-mal wiederholt zu werden.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 has no room for %n rows: it ends with row %2, and row %3 would have to move down.</source>
        <translation>
            <numerusform>%1 hat keinen Platz für %n Zeile: Es endet mit Zeile %2, und Zeile %3 müsste nach unten rücken.</numerusform>
            <numerusform>%1 hat keinen Platz für %n Zeilen: Es endet mit Zeile %2, und Zeile %3 müsste nach unten rücken.</numerusform>
        </translation>
    </message>
    <message>
        <source>The merged cells %1 reach over more than the row that is to be repeated.</source>
        <translation>Die verbundenen Zellen %1 reichen über mehr als die Zeile, die wiederholt werden soll.</translation>
    </message>
    <message>
        <source>The formula in %1 is shared with another cell, and missing there, or too long.</source>
        <translation>Die Formel in %1 ist mit einer anderen Zelle gemeinsam und fehlt dort oder ist zu lang.</translation>
    </message>
    <message>
        <source>The data table %1 reaches over the row that is to be repeated.</source>
        <translation>Die Datentabelle %1 reicht über die Zeile, die wiederholt werden soll.</translation>
    </message>
    <message>
        <source>The array formula in %1 reaches over the row that is to be repeated.</source>
        <translation>Die Matrixformel in %1 reicht über die Zeile, die wiederholt werden soll.</translation>
    </message>
    <message>
        <source>The table %1 (%2) stands across the row that is to be repeated.</source>
        <translation>Die Tabelle %1 (%2) liegt quer zu der Zeile, die wiederholt werden soll.</translation>
    </message>
    <message>
        <source>The pivot table %1 (%2) would have to move with the rows, and cannot.</source>
        <translation>Die Pivot-Tabelle %1 (%2) müsste mit den Zeilen rücken und kann es nicht.</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <comment>a cell and what is wrong in it</comment>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>It is the header of a column of the table %1.</source>
        <translation>Sie ist die Überschrift einer Spalte der Tabelle %1.</translation>
    </message>
    <message>
        <source>It is one of several cells of one array formula or data table (%1).</source>
        <translation>Sie ist eine von mehreren Zellen einer Matrixformel oder Datentabelle (%1).</translation>
    </message>
    <message>
        <source>It does not show, as a part of merged cells (%1).</source>
        <translation>Sie ist als Teil verbundener Zellen (%1) nicht zu sehen.</translation>
    </message>
    <message>
        <source>The list has no entries.</source>
        <translation>Die Liste hat keine Einträge.</translation>
    </message>
    <message>
        <source>An entry of a list must not have a comma: %1</source>
        <translation>Ein Listeneintrag darf kein Komma enthalten: %1</translation>
    </message>
    <message>
        <source>An entry of a list must not be empty, begin or end with a blank, or have line ends or control characters: &quot;%1&quot;</source>
        <translation>Ein Listeneintrag darf nicht leer sein, nicht mit einem Leerzeichen beginnen oder enden und keine Zeilenumbrüche oder Steuerzeichen enthalten: &quot;%1&quot;</translation>
    </message>
    <message numerus="yes">
        <source>The entries of the list have %n characters with their commas; a list holds %1.</source>
        <translation>
            <numerusform>Die Listeneinträge haben mit ihren Kommas %n Zeichen; eine Liste fasst %1.</numerusform>
            <numerusform>Die Listeneinträge haben mit ihren Kommas %n Zeichen; eine Liste fasst %1.</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 is not in the list of the cell: %2</source>
        <translation>%1 steht nicht in der Liste der Zelle: %2</translation>
    </message>
    <message>
        <source>These are %1 cells; %2 can be filled at once.</source>
        <translation>Das sind %1 Zellen; auf einmal lassen sich %2 füllen.</translation>
    </message>
    <message>
        <source>The name stands for a constant, not for a cell.</source>
        <translation>Der Name steht für eine Konstante, nicht für eine Zelle.</translation>
    </message>
    <message>
        <source>The name leads to another workbook.</source>
        <translation>Der Name führt in eine andere Arbeitsmappe.</translation>
    </message>
    <message>
        <source>The name leads nowhere: its cells were deleted (#REF!).</source>
        <translation>Der Name führt ins Leere: Seine Zellen wurden gelöscht (#REF!).</translation>
    </message>
    <message>
        <source>The name stands for a formula, not for a cell.</source>
        <translation>Der Name steht für eine Formel, nicht für eine Zelle.</translation>
    </message>
    <message>
        <source>The table has no data rows.</source>
        <translation>Die Tabelle hat keine Datenzeilen.</translation>
    </message>
    <message>
        <source>The name leads to a sheet that there is not, or that has no cells.</source>
        <translation>Der Name führt zu einem Blatt, das es nicht gibt oder das keine Zellen hat.</translation>
    </message>
    <message numerus="yes">
        <source>The formula has %n characters; a cell holds %1.</source>
        <translation>
            <numerusform>Die Formel hat %n Zeichen; eine Zelle fasst %1.</numerusform>
            <numerusform>Die Formel hat %n Zeichen; eine Zelle fasst %1.</numerusform>
        </translation>
    </message>
    <message>
        <source>The formula is empty.</source>
        <translation>Die Formel ist leer.</translation>
    </message>
    <message>
        <source>The name stands for several places; rows fill one range.</source>
        <translation>Der Name steht für mehrere Stellen; Zeilen füllen einen einzigen Bereich.</translation>
    </message>
    <message>
        <source>The columns have no names: there is no row of texts above.</source>
        <translation>Die Spalten haben keine Namen: Darüber steht keine Zeile mit Texten.</translation>
    </message>
    <message>
        <source>There is no column %1; there are %2.</source>
        <translation>Es gibt keine Spalte %1; es gibt %2.</translation>
    </message>
    <message>
        <source>The picture is linked to a file outside the workbook.</source>
        <translation>Das Bild ist mit einer Datei außerhalb der Arbeitsmappe verknüpft.</translation>
    </message>
    <message>
        <source>The picture has no image in the workbook.</source>
        <translation>Das Bild hat keine Bilddaten in der Arbeitsmappe.</translation>
    </message>
    <message>
        <source>This is an SVG image, which a workbook holds only beside another; use a PNG.</source>
        <translation>Dies ist ein SVG-Bild, das eine Arbeitsmappe nur neben einem anderen enthält; nehmen Sie ein PNG.</translation>
    </message>
    <message>
        <source>This is no image of a kind that a workbook holds: PNG, JPEG, GIF, BMP, TIFF, EMF or placeable WMF.</source>
        <translation>Dies ist kein Bild einer Art, die eine Arbeitsmappe enthalten kann: PNG, JPEG, GIF, BMP, TIFF, EMF oder platzierbares WMF.</translation>
    </message>
    <message>
        <source>The workbook&apos;s styles are damaged.</source>
        <translation>Die Formatvorlagen der Arbeitsmappe sind beschädigt.</translation>
    </message>
    <message>
        <source>This is a binary workbook (.xlsb). Save it as .xlsx.</source>
        <translation>Dies ist eine binäre Arbeitsmappe (.xlsb). Speichern Sie sie als .xlsx.</translation>
    </message>
    <message>
        <source>This is another kind of document, not a workbook (.xlsx).</source>
        <translation>Dies ist ein Dokument anderer Art, keine Arbeitsmappe (.xlsx).</translation>
    </message>
    <message>
        <source>This is an archive, but not a workbook (.xlsx).</source>
        <translation>Dies ist ein Archiv, aber keine Arbeitsmappe (.xlsx).</translation>
    </message>
    <message>
        <source>A part of the workbook is too large: %1.</source>
        <translation>Ein Teil der Arbeitsmappe ist zu groß: %1.</translation>
    </message>
    <message>
        <source>The sheet %1 has no cells.</source>
        <translation>Das Blatt %1 hat keine Zellen.</translation>
    </message>
    <message>
        <source>A part of the workbook is damaged: %1.</source>
        <translation>Ein Teil der Arbeitsmappe ist beschädigt: %1.</translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <translation>Die Datei ist leer.</translation>
    </message>
    <message>
        <source>The file is damaged: its end is missing.</source>
        <translation>Die Datei ist beschädigt: Ihr Ende fehlt.</translation>
    </message>
    <message>
        <source>The workbook is protected by a password. Save it without one.</source>
        <translation>Die Arbeitsmappe ist durch ein Passwort geschützt. Speichern Sie sie ohne Passwort.</translation>
    </message>
    <message>
        <source>This is a workbook in the old binary format (.xls). Save it as .xlsx.</source>
        <translation>Dies ist eine Arbeitsmappe im alten Binärformat (.xls). Speichern Sie sie als .xlsx.</translation>
    </message>
    <message>
        <source>This is not a workbook (.xlsx).</source>
        <translation>Dies ist keine Arbeitsmappe (.xlsx).</translation>
    </message>
    <message>
        <source>This is a text file, such as comma-separated values, not a workbook (.xlsx).</source>
        <translation>Dies ist eine Textdatei, etwa mit durch Kommas getrennten Werten, keine Arbeitsmappe (.xlsx).</translation>
    </message>
    <message>
        <source>The file is not read: %1.</source>
        <translation>Die Datei wird nicht gelesen: %1.</translation>
    </message>
    <message>
        <source>The workbook cannot be packed: it is too large, or damaged.</source>
        <translation>Die Arbeitsmappe lässt sich nicht packen: Sie ist zu groß oder beschädigt.</translation>
    </message>
    <message>
        <source>A part of the workbook is missing: %1.</source>
        <translation>Ein Teil der Arbeitsmappe fehlt: %1.</translation>
    </message>
    <message>
        <source>The file is too large.</source>
        <translation>Die Datei ist zu groß.</translation>
    </message>
    <message>
        <source>This is an OpenDocument file. Save it as .xlsx.</source>
        <translation>Dies ist eine OpenDocument-Datei. Speichern Sie sie als .xlsx.</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <comment>a file and what is wrong with it</comment>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>The file has no name.</source>
        <translation>Die Datei hat keinen Namen.</translation>
    </message>
    <message>
        <source>%1: The file is too large.</source>
        <translation>%1: Die Datei ist zu groß.</translation>
    </message>
    <message>
        <source>There is no template yet.</source>
        <translation>Es gibt noch keine Vorlage.</translation>
    </message>
    <message>
        <source>There is no name %1 in the workbook.</source>
        <translation>In der Arbeitsmappe gibt es keinen Namen %1.</translation>
    </message>
    <message>
        <source>%1 is a picture, not a cell.</source>
        <translation>%1 ist ein Bild, keine Zelle.</translation>
    </message>
    <message>
        <source>%1 is not a picture.</source>
        <translation>%1 ist kein Bild.</translation>
    </message>
    <message>
        <source>A text of %1 bytes is too long to be read.</source>
        <translation>Ein Text von %1 Bytes ist zu lang, um gelesen zu werden.</translation>
    </message>
    <message>
        <source>%1: This is more than can be read at once.</source>
        <translation>%1: Das ist mehr, als auf einmal gelesen werden kann.</translation>
    </message>
    <message>
        <source>This is more than a template has memory for, which is %1 MiB.</source>
        <translation>Das ist mehr, als eine Vorlage an Speicher hat: %1 MiB.</translation>
    </message>
    <message>
        <source>It is a folder.</source>
        <translation>Es ist ein Ordner.</translation>
    </message>
    <message>
        <source>It is no regular file.</source>
        <translation>Es ist keine gewöhnliche Datei.</translation>
    </message>
</context>
</TS>
