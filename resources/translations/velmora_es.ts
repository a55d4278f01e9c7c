<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
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
        <translation>Botón</translation>
    </message>
    <message>
        <source>dialog</source>
        <translation>Diálogo</translation>
    </message>
    <message>
        <source>TextLabel</source>
        <translation>Título</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Minimizar</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>Maximizar</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
</context>
<context>
    <name>QcDockAreaTabFrame</name>
    <message>
        <source>Previous tab</source>
        <translation>Pestaña anterior</translation>
    </message>
    <message>
        <source>Next tab</source>
        <translation>Pestaña siguiente</translation>
    </message>
</context>
<context>
    <name>QcDockIndicator</name>
    <message>
        <source>Left of %1</source>
        <translation>A la izquierda de %1</translation>
    </message>
    <message>
        <source>Right of %1</source>
        <translation>A la derecha de %1</translation>
    </message>
    <message>
        <source>Above %1</source>
        <translation>Encima de %1</translation>
    </message>
    <message>
        <source>Below %1</source>
        <translation>Debajo de %1</translation>
    </message>
    <message>
        <source>Tab beside %1</source>
        <translation>Pestaña junto a %1</translation>
    </message>
    <message>
        <source>Left edge of all around %1</source>
        <translation>Borde izquierdo de todo lo que rodea a %1</translation>
    </message>
    <message>
        <source>Right edge of all around %1</source>
        <translation>Borde derecho de todo lo que rodea a %1</translation>
    </message>
    <message>
        <source>Top edge of all around %1</source>
        <translation>Borde superior de todo lo que rodea a %1</translation>
    </message>
    <message>
        <source>Bottom edge of all around %1</source>
        <translation>Borde inferior de todo lo que rodea a %1</translation>
    </message>
    <message>
        <source>%1, %2 of %3</source>
        <translation>%1, %2 de %3</translation>
    </message>
    <message>
        <source>empty area</source>
        <translation>área vacía</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Izquierda</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Derecha</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>Arriba</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>Abajo</translation>
    </message>
    <message>
        <source>As a tab</source>
        <translation>Como pestaña</translation>
    </message>
    <message>
        <source>Left edge</source>
        <translation>Borde izquierdo</translation>
    </message>
    <message>
        <source>Right edge</source>
        <translation>Borde derecho</translation>
    </message>
    <message>
        <source>Top edge</source>
        <translation>Borde superior</translation>
    </message>
    <message>
        <source>Bottom edge</source>
        <translation>Borde inferior</translation>
    </message>
</context>
<context>
    <name>QcDockWidget</name>
    <message>
        <source>Move to</source>
        <translation>Mover a</translation>
    </message>
    <message>
        <source>Float</source>
        <translation>Desacoplar</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>Close %1</source>
        <translation>Cerrar %1</translation>
    </message>
</context>
<context>
    <name>QcNotification</name>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>First page</source>
        <translation>Primera página</translation>
    </message>
    <message>
        <source>Previous page</source>
        <translation>Página anterior</translation>
    </message>
    <message>
        <source>Next page</source>
        <translation>Página siguiente</translation>
    </message>
    <message>
        <source>Last page</source>
        <translation>Última página</translation>
    </message>
</context>
<context>
    <name>QcSplitterHandle</name>
    <message>
        <source>Between %1 and %2</source>
        <translation>Entre %1 y %2</translation>
    </message>
</context>
<context>
    <name>QcWindow</name>
    <message>
        <source>window</source>
        <translation>Ventana</translation>
    </message>
    <message>
        <source>TextLabel</source>
        <translation>Título</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Minimizar</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>Maximizar</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
</context>
<context>
    <name>Velmora::QcDockWidget</name>
    <message>
        <source>PleaseMoveToTheIMsg</source>
        <translation>Arrastre hasta una marca</translation>
    </message>
</context>
<context>
    <name>Velmora::QcLoadingDialog</name>
    <message>
        <source>Loading...</source>
        <translation>Cargando...</translation>
    </message>
</context>
<context>
    <name>Velmora::QcProgressDialog</name>
    <message>
        <source>LoadingMsg</source>
        <translation>Cargando, espere por favor</translation>
    </message>
</context>
<context>
    <name>Velmora::QcTextEditLimiter</name>
    <message>
        <source>PleaseEnterMsg</source>
        <translation>Escriba un texto</translation>
    </message>
</context>
<context>
    <name>Velmora::QcToast</name>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
</context>
<context>
    <name>VelmoraDesigner</name>
    <message>
        <source>Colours of states</source>
        <translation>Colores de los estados</translation>
    </message>
    <message>
        <source>Choose %1...</source>
        <translation>Elegir %1...</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>&amp;Claro</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>&amp;Oscuro</translation>
    </message>
    <message>
        <source>High contrast, l&amp;ight</source>
        <translation>Alto contraste, c&amp;laro</translation>
    </message>
    <message>
        <source>High contrast, d&amp;ark</source>
        <translation>Alto contraste, o&amp;scuro</translation>
    </message>
    <message>
        <source>Other &amp;file...</source>
        <translation>Otro &amp;archivo...</translation>
    </message>
    <message>
        <source>%1 has no colours.</source>
        <translation>%1 no contiene colores.</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Buscar</translation>
    </message>
    <message>
        <source>A token, #RRGGBB, a colour&apos;s name, or one of them with an alpha: ${brand/brand, 0.5}</source>
        <translation>Un token, #RRGGBB, el nombre de un color o uno de ellos con una opacidad: ${brand/brand, 0.5}</translation>
    </message>
</context>
<context>
    <name>XlsxTemplate</name>
    <message>
        <source>The date is not between %1 and 9999-12-31.</source>
        <translation>La fecha no está entre %1 y 9999-12-31.</translation>
    </message>
    <message numerus="yes">
        <source>The text has %n characters; a cell holds %1.</source>
        <translation>
            <numerusform>El texto tiene %n carácter; en una celda caben %1.</numerusform>
            <numerusform>El texto tiene %n caracteres; en una celda caben %1.</numerusform>
        </translation>
    </message>
    <message>
        <source>The number is infinite, or none at all.</source>
        <translation>El número es infinito o no es un número.</translation>
    </message>
    <message>
        <source>The time is none.</source>
        <translation>La hora no es válida.</translation>
    </message>
    <message>
        <source>A value of the type %1 is none for a cell.</source>
        <translation>Un valor del tipo %1 no sirve para una celda.</translation>
    </message>
    <message>
        <source>%1 is not the name of a row, nor of a table.</source>
        <translation>%1 no es el nombre de una fila ni de una tabla.</translation>
    </message>
    <message>
        <source>A sheet has no more than %1 rows.</source>
        <translation>Una hoja tiene como máximo %1 filas.</translation>
    </message>
    <message>
        <source>Row %1: %2</source>
        <comment>a row and what is wrong in it</comment>
        <translation>Fila %1: %2</translation>
    </message>
    <message numerus="yes">
        <source>There are %1 values, but %2 has %n columns.</source>
        <translation>
            <numerusform>Hay %1 valores, pero %2 tiene %n columna.</numerusform>
            <numerusform>Hay %1 valores, pero %2 tiene %n columnas.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Row %1 of %2 is too large to be repeated %n times.</source>
        <translation>
            <numerusform>La fila %1 de %2 es demasiado grande para repetirla %n vez.</numerusform>
            <numerusform>La fila %1 de %2 es demasiado grande para repetirla %n veces.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 has no room for %n rows: it ends with row %2, and row %3 would have to move down.</source>
        <translation>
            <numerusform>En %1 no cabe %n fila: termina en la fila %2, y la fila %3 tendría que bajar.</numerusform>
            <numerusform>En %1 no caben %n filas: termina en la fila %2, y la fila %3 tendría que bajar.</numerusform>
        </translation>
    </message>
    <message>
        <source>The merged cells %1 reach over more than the row that is to be repeated.</source>
        <translation>Las celdas combinadas %1 abarcan más que la fila que se va a repetir.</translation>
    </message>
    <message>
        <source>The formula in %1 is shared with another cell, and missing there, or too long.</source>
        <translation>La fórmula de %1 se comparte con otra celda, y allí falta o es demasiado larga.</translation>
    </message>
    <message>
        <source>The data table %1 reaches over the row that is to be repeated.</source>
        <translation>La tabla de datos %1 abarca la fila que se va a repetir.</translation>
    </message>
    <message>
        <source>The array formula in %1 reaches over the row that is to be repeated.</source>
        <translation>La fórmula de matriz de %1 abarca la fila que se va a repetir.</translation>
    </message>
    <message>
        <source>The table %1 (%2) stands across the row that is to be repeated.</source>
        <translation>La tabla %1 (%2) está atravesada en la fila que se va a repetir.</translation>
    </message>
    <message>
        <source>The pivot table %1 (%2) would have to move with the rows, and cannot.</source>
        <translation>La tabla dinámica %1 (%2) tendría que moverse con las filas, y no puede.</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <comment>a cell and what is wrong in it</comment>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>It is the header of a column of the table %1.</source>
        <translation>Es el encabezado de una columna de la tabla %1.</translation>
    </message>
    <message>
        <source>It is one of several cells of one array formula or data table (%1).</source>
        <translation>Es una de varias celdas de una misma fórmula de matriz o tabla de datos (%1).</translation>
    </message>
    <message>
        <source>It does not show, as a part of merged cells (%1).</source>
        <translation>No se ve, por ser parte de celdas combinadas (%1).</translation>
    </message>
    <message>
        <source>The list has no entries.</source>
        <translation>La lista no tiene entradas.</translation>
    </message>
    <message>
        <source>An entry of a list must not have a comma: %1</source>
        <translation>Una entrada de lista no debe tener comas: %1</translation>
    </message>
    <message>
        <source>An entry of a list must not be empty, begin or end with a blank, or have line ends or control characters: &quot;%1&quot;</source>
        <translation>Una entrada de lista no debe estar vacía, empezar ni terminar con un espacio, ni tener saltos de línea o caracteres de control: &quot;%1&quot;</translation>
    </message>
    <message numerus="yes">
        <source>The entries of the list have %n characters with their commas; a list holds %1.</source>
        <translation>
            <numerusform>Las entradas de la lista tienen %n carácter con sus comas; en una lista caben %1.</numerusform>
            <numerusform>Las entradas de la lista tienen %n caracteres con sus comas; en una lista caben %1.</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 is not in the list of the cell: %2</source>
        <translation>%1 no está en la lista de la celda: %2</translation>
    </message>
    <message>
        <source>These are %1 cells; %2 can be filled at once.</source>
        <translation>Son %1 celdas; se pueden rellenar %2 a la vez.</translation>
    </message>
    <message>
        <source>The name stands for a constant, not for a cell.</source>
        <translation>El nombre representa una constante, no una celda.</translation>
    </message>
    <message>
        <source>The name leads to another workbook.</source>
        <translation>El nombre lleva a otro libro.</translation>
    </message>
    <message>
        <source>The name leads nowhere: its cells were deleted (#REF!).</source>
        <translation>El nombre no lleva a ninguna parte: sus celdas se eliminaron (#REF!).</translation>
    </message>
    <message>
        <source>The name stands for a formula, not for a cell.</source>
        <translation>El nombre representa una fórmula, no una celda.</translation>
    </message>
    <message>
        <source>The table has no data rows.</source>
        <translation>La tabla no tiene filas de datos.</translation>
    </message>
    <message>
        <source>The name leads to a sheet that there is not, or that has no cells.</source>
        <translation>El nombre lleva a una hoja que no existe o que no tiene celdas.</translation>
    </message>
    <message numerus="yes">
        <source>The formula has %n characters; a cell holds %1.</source>
        <translation>
            <numerusform>La fórmula tiene %n carácter; en una celda caben %1.</numerusform>
            <numerusform>La fórmula tiene %n caracteres; en una celda caben %1.</numerusform>
        </translation>
    </message>
    <message>
        <source>The formula is empty.</source>
        <translation>La fórmula está vacía.</translation>
    </message>
    <message>
        <source>The name stands for several places; rows fill one range.</source>
        <translation>El nombre representa varios lugares; las filas rellenan un solo rango.</translation>
    </message>
    <message>
        <source>The columns have no names: there is no row of texts above.</source>
        <translation>Las columnas no tienen nombres: encima no hay una fila de textos.</translation>
    </message>
    <message>
        <source>There is no column %1; there are %2.</source>
        <translation>No hay ninguna columna %1; hay %2.</translation>
    </message>
    <message>
        <source>The picture is linked to a file outside the workbook.</source>
        <translation>La imagen está vinculada a un archivo fuera del libro.</translation>
    </message>
    <message>
        <source>The picture has no image in the workbook.</source>
        <translation>La imagen no tiene datos en el libro.</translation>
    </message>
    <message>
        <source>This is an SVG image, which a workbook holds only beside another; use a PNG.</source>
        <translation>Es una imagen SVG, que un libro solo guarda junto a otra; use un PNG.</translation>
    </message>
    <message>
        <source>This is no image of a kind that a workbook holds: PNG, JPEG, GIF, BMP, TIFF, EMF or placeable WMF.</source>
        <translation>No es una imagen de un tipo que un libro admita: PNG, JPEG, GIF, BMP, TIFF, EMF o WMF colocable.</translation>
    </message>
    <message>
        <source>The workbook&apos;s styles are damaged.</source>
        <translation>Los estilos del libro están dañados.</translation>
    </message>
    <message>
        <source>This is a binary workbook (.xlsb). Save it as .xlsx.</source>
        <translation>Es un libro binario (.xlsb). Guárdelo como .xlsx.</translation>
    </message>
    <message>
        <source>This is another kind of document, not a workbook (.xlsx).</source>
        <translation>Es otro tipo de documento, no un libro (.xlsx).</translation>
    </message>
    <message>
        <source>This is an archive, but not a workbook (.xlsx).</source>
        <translation>Es un archivo comprimido, pero no un libro (.xlsx).</translation>
    </message>
    <message>
        <source>A part of the workbook is too large: %1.</source>
        <translation>Una parte del libro es demasiado grande: %1.</translation>
    </message>
    <message>
        <source>The sheet %1 has no cells.</source>
        <translation>La hoja %1 no tiene celdas.</translation>
    </message>
    <message>
        <source>A part of the workbook is damaged: %1.</source>
        <translation>Una parte del libro está dañada: %1.</translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <translation>El archivo está vacío.</translation>
    </message>
    <message>
        <source>The file is damaged: its end is missing.</source>
        <translation>El archivo está dañado: falta el final.</translation>
    </message>
    <message>
        <source>The workbook is protected by a password. Save it without one.</source>
        <translation>El libro está protegido con una contraseña. Guárdelo sin ella.</translation>
    </message>
    <message>
        <source>This is a workbook in the old binary format (.xls). Save it as .xlsx.</source>
        <translation>Es un libro en el antiguo formato binario (.xls). Guárdelo como .xlsx.</translation>
    </message>
    <message>
        <source>This is not a workbook (.xlsx).</source>
        <translation>No es un libro (.xlsx).</translation>
    </message>
    <message>
        <source>This is a text file, such as comma-separated values, not a workbook (.xlsx).</source>
        <translation>Es un archivo de texto, por ejemplo de valores separados por comas, no un libro (.xlsx).</translation>
    </message>
    <message>
        <source>The file is not read: %1.</source>
        <translation>No se lee el archivo: %1.</translation>
    </message>
    <message>
        <source>The workbook cannot be packed: it is too large, or damaged.</source>
        <translation>No se puede empaquetar el libro: es demasiado grande o está dañado.</translation>
    </message>
    <message>
        <source>A part of the workbook is missing: %1.</source>
        <translation>Falta una parte del libro: %1.</translation>
    </message>
    <message>
        <source>The file is too large.</source>
        <translation>El archivo es demasiado grande.</translation>
    </message>
    <message>
        <source>This is an OpenDocument file. Save it as .xlsx.</source>
        <translation>Es un archivo OpenDocument. Guárdelo como .xlsx.</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <comment>a file and what is wrong with it</comment>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>The file has no name.</source>
        <translation>El archivo no tiene nombre.</translation>
    </message>
    <message>
        <source>%1: The file is too large.</source>
        <translation>%1: El archivo es demasiado grande.</translation>
    </message>
    <message>
        <source>There is no template yet.</source>
        <translation>Aún no hay plantilla.</translation>
    </message>
    <message>
        <source>There is no name %1 in the workbook.</source>
        <translation>En el libro no hay ningún nombre %1.</translation>
    </message>
    <message>
        <source>%1 is a picture, not a cell.</source>
        <translation>%1 es una imagen, no una celda.</translation>
    </message>
    <message>
        <source>%1 is not a picture.</source>
        <translation>%1 no es una imagen.</translation>
    </message>
    <message>
        <source>A text of %1 bytes is too long to be read.</source>
        <translation>Un texto de %1 bytes es demasiado largo para leerlo.</translation>
    </message>
    <message>
        <source>%1: This is more than can be read at once.</source>
        <translation>%1: es más de lo que se puede leer de una vez.</translation>
    </message>
    <message>
        <source>This is more than a template has memory for, which is %1 MiB.</source>
        <translation>Es más que la memoria de la que dispone una plantilla, que es de %1 MiB.</translation>
    </message>
    <message>
        <source>It is a folder.</source>
        <translation>Es una carpeta.</translation>
    </message>
    <message>
        <source>It is no regular file.</source>
        <translation>No es un archivo normal.</translation>
    </message>
</context>
</TS>
