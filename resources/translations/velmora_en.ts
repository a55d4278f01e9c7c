<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
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
        <translation>Button</translation>
    </message>
    <message>
        <source>dialog</source>
        <translation>Dialog</translation>
    </message>
    <message>
        <source>TextLabel</source>
        <translation>Title</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Minimize</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>Maximize</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Close</translation>
    </message>
</context>
<context>
    <name>QcDockAreaTabFrame</name>
    <message>
        <source>Previous tab</source>
        <translation>Previous tab</translation>
    </message>
    <message>
        <source>Next tab</source>
        <translation>Next tab</translation>
    </message>
</context>
<context>
    <name>QcDockIndicator</name>
    <message>
        <source>Left of %1</source>
        <translation>Left of %1</translation>
    </message>
    <message>
        <source>Right of %1</source>
        <translation>Right of %1</translation>
    </message>
    <message>
        <source>Above %1</source>
        <translation>Above %1</translation>
    </message>
    <message>
        <source>Below %1</source>
        <translation>Below %1</translation>
    </message>
    <message>
        <source>Tab beside %1</source>
        <translation>Tab beside %1</translation>
    </message>
    <message>
        <source>Left edge of all around %1</source>
        <translation>Left edge of all around %1</translation>
    </message>
    <message>
        <source>Right edge of all around %1</source>
        <translation>Right edge of all around %1</translation>
    </message>
    <message>
        <source>Top edge of all around %1</source>
        <translation>Top edge of all around %1</translation>
    </message>
    <message>
        <source>Bottom edge of all around %1</source>
        <translation>Bottom edge of all around %1</translation>
    </message>
    <message>
        <source>%1, %2 of %3</source>
        <translation>%1, %2 of %3</translation>
    </message>
    <message>
        <source>empty area</source>
        <translation>empty area</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Left</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Right</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>Top</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>Bottom</translation>
    </message>
    <message>
        <source>As a tab</source>
        <translation>As a tab</translation>
    </message>
    <message>
        <source>Left edge</source>
        <translation>Left edge</translation>
    </message>
    <message>
        <source>Right edge</source>
        <translation>Right edge</translation>
    </message>
    <message>
        <source>Top edge</source>
        <translation>Top edge</translation>
    </message>
    <message>
        <source>Bottom edge</source>
        <translation>Bottom edge</translation>
    </message>
</context>
<context>
    <name>QcDockWidget</name>
    <message>
        <source>Move to</source>
        <translation>Move to</translation>
    </message>
    <message>
        <source>Float</source>
        <translation>Float</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>Close %1</source>
        <translation>Close %1</translation>
    </message>
</context>
<context>
    <name>QcNotification</name>
    <message>
        <source>Close</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>First page</source>
        <translation>First page</translation>
    </message>
    <message>
        <source>Previous page</source>
        <translation>Previous page</translation>
    </message>
    <message>
        <source>Next page</source>
        <translation>Next page</translation>
    </message>
    <message>
        <source>Last page</source>
        <translation>Last page</translation>
    </message>
</context>
<context>
    <name>QcSplitterHandle</name>
    <message>
        <source>Between %1 and %2</source>
        <translation>Between %1 and %2</translation>
    </message>
</context>
<context>
    <name>QcWindow</name>
    <message>
        <source>window</source>
        <translation>Window</translation>
    </message>
    <message>
        <source>TextLabel</source>
        <translation>Title</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Minimize</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>Maximize</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Close</translation>
    </message>
</context>
<context>
    <name>Velmora::QcDockWidget</name>
    <message>
        <source>PleaseMoveToTheIMsg</source>
        <translation>Drag onto one of the marks</translation>
    </message>
</context>
<context>
    <name>Velmora::QcLoadingDialog</name>
    <message>
        <source>Loading...</source>
        <translation>Loading...</translation>
    </message>
</context>
<context>
    <name>Velmora::QcProgressDialog</name>
    <message>
        <source>LoadingMsg</source>
        <translation>Loading, please wait</translation>
    </message>
</context>
<context>
    <name>Velmora::QcTextEditLimiter</name>
    <message>
        <source>PleaseEnterMsg</source>
        <translation>Please enter a text</translation>
    </message>
</context>
<context>
    <name>Velmora::QcToast</name>
    <message>
        <source>Close</source>
        <translation>Close</translation>
    </message>
</context>
<context>
    <name>VelmoraDesigner</name>
    <message>
        <source>Colours of states</source>
        <translation>Colours of states</translation>
    </message>
    <message>
        <source>Choose %1...</source>
        <translation>Choose %1...</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>&amp;Light</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>&amp;Dark</translation>
    </message>
    <message>
        <source>High contrast, l&amp;ight</source>
        <translation>High contrast, l&amp;ight</translation>
    </message>
    <message>
        <source>High contrast, d&amp;ark</source>
        <translation>High contrast, d&amp;ark</translation>
    </message>
    <message>
        <source>Other &amp;file...</source>
        <translation>Other &amp;file...</translation>
    </message>
    <message>
        <source>%1 has no colours.</source>
        <translation>%1 has no colours.</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Search</translation>
    </message>
    <message>
        <source>A token, #RRGGBB, a colour&apos;s name, or one of them with an alpha: ${brand/brand, 0.5}</source>
        <translation>A token, #RRGGBB, a colour&apos;s name, or one of them with an alpha: ${brand/brand, 0.5}</translation>
    </message>
</context>
<context>
    <name>XlsxTemplate</name>
    <message>
        <source>The date is not between %1 and 9999-12-31.</source>
        <translation>The date is not between %1 and 9999-12-31.</translation>
    </message>
    <message numerus="yes">
        <source>The text has %n characters; a cell holds %1.</source>
        <translation>
            <numerusform>The text has %n character; a cell holds %1.</numerusform>
            <numerusform>The text has %n characters; a cell holds %1.</numerusform>
        </translation>
    </message>
    <message>
        <source>The number is infinite, or none at all.</source>
        <translation>The number is infinite, or none at all.</translation>
    </message>
    <message>
        <source>The time is none.</source>
        <translation>The time is none.</translation>
    </message>
    <message>
        <source>A value of the type %1 is none for a cell.</source>
        <translation>A value of the type %1 is none for a cell.</translation>
    </message>
    <message>
        <source>%1 is not the name of a row, nor of a table.</source>
        <translation>%1 is not the name of a row, nor of a table.</translation>
    </message>
    <message>
        <source>A sheet has no more than %1 rows.</source>
        <translation>A sheet has no more than %1 rows.</translation>
    </message>
    <message>
        <source>Row %1: %2</source>
        <comment>a row and what is wrong in it</comment>
        <translation>Row %1: %2</translation>
    </message>
    <message numerus="yes">
        <source>There are %1 values, but %2 has %n columns.</source>
        <translation>
            <numerusform>There are %1 values, but %2 has %n column.</numerusform>
            <numerusform>There are %1 values, but %2 has %n columns.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Row %1 of %2 is too large to be repeated %n times.</source>
        <translation>
            <numerusform>Row %1 of %2 is too large to be repeated %n time.</numerusform>
            <numerusform>Row %1 of %2 is too large to be repeated %n times.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 has no room for %n rows: it ends with row %2, and row %3 would have to move down.</source>
        <translation>
            <numerusform>%1 has no room for %n row: it ends with row %2, and row %3 would have to move down.</numerusform>
            <numerusform>%1 has no room for %n rows: it ends with row %2, and row %3 would have to move down.</numerusform>
        </translation>
    </message>
    <message>
        <source>The merged cells %1 reach over more than the row that is to be repeated.</source>
        <translation>The merged cells %1 reach over more than the row that is to be repeated.</translation>
    </message>
    <message>
        <source>The formula in %1 is shared with another cell, and missing there, or too long.</source>
        <translation>The formula in %1 is shared with another cell, and missing there, or too long.</translation>
    </message>
    <message>
        <source>The data table %1 reaches over the row that is to be repeated.</source>
        <translation>The data table %1 reaches over the row that is to be repeated.</translation>
    </message>
    <message>
        <source>The array formula in %1 reaches over the row that is to be repeated.</source>
        <translation>The array formula in %1 reaches over the row that is to be repeated.</translation>
    </message>
    <message>
        <source>The table %1 (%2) stands across the row that is to be repeated.</source>
        <translation>The table %1 (%2) stands across the row that is to be repeated.</translation>
    </message>
    <message>
        <source>The pivot table %1 (%2) would have to move with the rows, and cannot.</source>
        <translation>The pivot table %1 (%2) would have to move with the rows, and cannot.</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <comment>a cell and what is wrong in it</comment>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>It is the header of a column of the table %1.</source>
        <translation>It is the header of a column of the table %1.</translation>
    </message>
    <message>
        <source>It is one of several cells of one array formula or data table (%1).</source>
        <translation>It is one of several cells of one array formula or data table (%1).</translation>
    </message>
    <message>
        <source>It does not show, as a part of merged cells (%1).</source>
        <translation>It does not show, as a part of merged cells (%1).</translation>
    </message>
    <message>
        <source>The list has no entries.</source>
        <translation>The list has no entries.</translation>
    </message>
    <message>
        <source>An entry of a list must not have a comma: %1</source>
        <translation>An entry of a list must not have a comma: %1</translation>
    </message>
    <message>
        <source>An entry of a list must not be empty, begin or end with a blank, or have line ends or control characters: &quot;%1&quot;</source>
        <translation>An entry of a list must not be empty, begin or end with a blank, or have line ends or control characters: &quot;%1&quot;</translation>
    </message>
    <message numerus="yes">
        <source>The entries of the list have %n characters with their commas; a list holds %1.</source>
        <translation>
            <numerusform>The entries of the list have %n character with their commas; a list holds %1.</numerusform>
            <numerusform>The entries of the list have %n characters with their commas; a list holds %1.</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 is not in the list of the cell: %2</source>
        <translation>%1 is not in the list of the cell: %2</translation>
    </message>
    <message>
        <source>These are %1 cells; %2 can be filled at once.</source>
        <translation>These are %1 cells; %2 can be filled at once.</translation>
    </message>
    <message>
        <source>The name stands for a constant, not for a cell.</source>
        <translation>The name stands for a constant, not for a cell.</translation>
    </message>
    <message>
        <source>The name leads to another workbook.</source>
        <translation>The name leads to another workbook.</translation>
    </message>
    <message>
        <source>The name leads nowhere: its cells were deleted (#REF!).</source>
        <translation>The name leads nowhere: its cells were deleted (#REF!).</translation>
    </message>
    <message>
        <source>The name stands for a formula, not for a cell.</source>
        <translation>The name stands for a formula, not for a cell.</translation>
    </message>
    <message>
        <source>The table has no data rows.</source>
        <translation>The table has no data rows.</translation>
    </message>
    <message>
        <source>The name leads to a sheet that there is not, or that has no cells.</source>
        <translation>The name leads to a sheet that there is not, or that has no cells.</translation>
    </message>
    <message numerus="yes">
        <source>The formula has %n characters; a cell holds %1.</source>
        <translation>
            <numerusform>The formula has %n character; a cell holds %1.</numerusform>
            <numerusform>The formula has %n characters; a cell holds %1.</numerusform>
        </translation>
    </message>
    <message>
        <source>The formula is empty.</source>
        <translation>The formula is empty.</translation>
    </message>
    <message>
        <source>The name stands for several places; rows fill one range.</source>
        <translation>The name stands for several places; rows fill one range.</translation>
    </message>
    <message>
        <source>The columns have no names: there is no row of texts above.</source>
        <translation>The columns have no names: there is no row of texts above.</translation>
    </message>
    <message>
        <source>There is no column %1; there are %2.</source>
        <translation>There is no column %1; there are %2.</translation>
    </message>
    <message>
        <source>The picture is linked to a file outside the workbook.</source>
        <translation>The picture is linked to a file outside the workbook.</translation>
    </message>
    <message>
        <source>The picture has no image in the workbook.</source>
        <translation>The picture has no image in the workbook.</translation>
    </message>
    <message>
        <source>This is an SVG image, which a workbook holds only beside another; use a PNG.</source>
        <translation>This is an SVG image, which a workbook holds only beside another; use a PNG.</translation>
    </message>
    <message>
        <source>This is no image of a kind that a workbook holds: PNG, JPEG, GIF, BMP, TIFF, EMF or placeable WMF.</source>
        <translation>This is no image of a kind that a workbook holds: PNG, JPEG, GIF, BMP, TIFF, EMF or placeable WMF.</translation>
    </message>
    <message>
        <source>The workbook&apos;s styles are damaged.</source>
        <translation>The workbook&apos;s styles are damaged.</translation>
    </message>
    <message>
        <source>This is a binary workbook (.xlsb). Save it as .xlsx.</source>
        <translation>This is a binary workbook (.xlsb). Save it as .xlsx.</translation>
    </message>
    <message>
        <source>This is another kind of document, not a workbook (.xlsx).</source>
        <translation>This is another kind of document, not a workbook (.xlsx).</translation>
    </message>
    <message>
        <source>This is an archive, but not a workbook (.xlsx).</source>
        <translation>This is an archive, but not a workbook (.xlsx).</translation>
    </message>
    <message>
        <source>A part of the workbook is too large: %1.</source>
        <translation>A part of the workbook is too large: %1.</translation>
    </message>
    <message>
        <source>The sheet %1 has no cells.</source>
        <translation>The sheet %1 has no cells.</translation>
    </message>
    <message>
        <source>A part of the workbook is damaged: %1.</source>
        <translation>A part of the workbook is damaged: %1.</translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <translation>The file is empty.</translation>
    </message>
    <message>
        <source>The file is damaged: its end is missing.</source>
        <translation>The file is damaged: its end is missing.</translation>
    </message>
    <message>
        <source>The workbook is protected by a password. Save it without one.</source>
        <translation>The workbook is protected by a password. Save it without one.</translation>
    </message>
    <message>
        <source>This is a workbook in the old binary format (.xls). Save it as .xlsx.</source>
        <translation>This is a workbook in the old binary format (.xls). Save it as .xlsx.</translation>
    </message>
    <message>
        <source>This is not a workbook (.xlsx).</source>
        <translation>This is not a workbook (.xlsx).</translation>
    </message>
    <message>
        <source>This is a text file, such as comma-separated values, not a workbook (.xlsx).</source>
        <translation>This is a text file, such as comma-separated values, not a workbook (.xlsx).</translation>
    </message>
    <message>
        <source>The file is not read: %1.</source>
        <translation>The file is not read: %1.</translation>
    </message>
    <message>
        <source>The workbook cannot be packed: it is too large, or damaged.</source>
        <translation>The workbook cannot be packed: it is too large, or damaged.</translation>
    </message>
    <message>
        <source>A part of the workbook is missing: %1.</source>
        <translation>A part of the workbook is missing: %1.</translation>
    </message>
    <message>
        <source>The file is too large.</source>
        <translation>The file is too large.</translation>
    </message>
    <message>
        <source>This is an OpenDocument file. Save it as .xlsx.</source>
        <translation>This is an OpenDocument file. Save it as .xlsx.</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <comment>a file and what is wrong with it</comment>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>The file has no name.</source>
        <translation>The file has no name.</translation>
    </message>
    <message>
        <source>%1: The file is too large.</source>
        <translation>%1: The file is too large.</translation>
    </message>
    <message>
        <source>There is no template yet.</source>
        <translation>There is no template yet.</translation>
    </message>
    <message>
        <source>There is no name %1 in the workbook.</source>
        <translation>There is no name %1 in the workbook.</translation>
    </message>
    <message>
        <source>%1 is a picture, not a cell.</source>
        <translation>%1 is a picture, not a cell.</translation>
    </message>
    <message>
        <source>%1 is not a picture.</source>
        <translation>%1 is not a picture.</translation>
    </message>
    <message>
        <source>A text of %1 bytes is too long to be read.</source>
        <translation>A text of %1 bytes is too long to be read.</translation>
    </message>
    <message>
        <source>%1: This is more than can be read at once.</source>
        <translation>%1: This is more than can be read at once.</translation>
    </message>
    <message>
        <source>This is more than a template has memory for, which is %1 MiB.</source>
        <translation>This is more than a template has memory for, which is %1 MiB.</translation>
    </message>
    <message>
        <source>It is a folder.</source>
        <translation>It is a folder.</translation>
    </message>
    <message>
        <source>It is no regular file.</source>
        <translation>It is no regular file.</translation>
    </message>
</context>
</TS>
