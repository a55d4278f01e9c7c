<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ru" sourcelanguage="en">
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
        <translation>Кнопка</translation>
    </message>
    <message>
        <source>dialog</source>
        <translation>Диалог</translation>
    </message>
    <message>
        <source>TextLabel</source>
        <translation>Заголовок</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Свернуть</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>Развернуть</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Закрыть</translation>
    </message>
</context>
<context>
    <name>QcDockAreaTabFrame</name>
    <message>
        <source>Previous tab</source>
        <translation>Предыдущая вкладка</translation>
    </message>
    <message>
        <source>Next tab</source>
        <translation>Следующая вкладка</translation>
    </message>
</context>
<context>
    <name>QcDockIndicator</name>
    <message>
        <source>Left of %1</source>
        <translation>Слева от «%1»</translation>
    </message>
    <message>
        <source>Right of %1</source>
        <translation>Справа от «%1»</translation>
    </message>
    <message>
        <source>Above %1</source>
        <translation>Над «%1»</translation>
    </message>
    <message>
        <source>Below %1</source>
        <translation>Под «%1»</translation>
    </message>
    <message>
        <source>Tab beside %1</source>
        <translation>Вкладка рядом с «%1»</translation>
    </message>
    <message>
        <source>Left edge of all around %1</source>
        <translation>Левый край всей области с «%1»</translation>
    </message>
    <message>
        <source>Right edge of all around %1</source>
        <translation>Правый край всей области с «%1»</translation>
    </message>
    <message>
        <source>Top edge of all around %1</source>
        <translation>Верхний край всей области с «%1»</translation>
    </message>
    <message>
        <source>Bottom edge of all around %1</source>
        <translation>Нижний край всей области с «%1»</translation>
    </message>
    <message>
        <source>%1, %2 of %3</source>
        <translation>%1, %2 из %3</translation>
    </message>
    <message>
        <source>empty area</source>
        <translation>пустая область</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Слева</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Справа</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>Сверху</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>Снизу</translation>
    </message>
    <message>
        <source>As a tab</source>
        <translation>Как вкладка</translation>
    </message>
    <message>
        <source>Left edge</source>
        <translation>Левый край</translation>
    </message>
    <message>
        <source>Right edge</source>
        <translation>Правый край</translation>
    </message>
    <message>
        <source>Top edge</source>
        <translation>Верхний край</translation>
    </message>
    <message>
        <source>Bottom edge</source>
        <translation>Нижний край</translation>
    </message>
</context>
<context>
    <name>QcDockWidget</name>
    <message>
        <source>Move to</source>
        <translation>Переместить к</translation>
    </message>
    <message>
        <source>Float</source>
        <translation>Открепить</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Закрыть</translation>
    </message>
    <message>
        <source>Close %1</source>
        <translation>Закрыть %1</translation>
    </message>
</context>
<context>
    <name>QcNotification</name>
    <message>
        <source>Close</source>
        <translation>Закрыть</translation>
    </message>
    <message>
        <source>First page</source>
        <translation>Первая страница</translation>
    </message>
    <message>
        <source>Previous page</source>
        <translation>Предыдущая страница</translation>
    </message>
    <message>
        <source>Next page</source>
        <translation>Следующая страница</translation>
    </message>
    <message>
        <source>Last page</source>
        <translation>Последняя страница</translation>
    </message>
</context>
<context>
    <name>QcSplitterHandle</name>
    <message>
        <source>Between %1 and %2</source>
        <translation>Между «%1» и «%2»</translation>
    </message>
</context>
<context>
    <name>QcWindow</name>
    <message>
        <source>window</source>
        <translation>Окно</translation>
    </message>
    <message>
        <source>TextLabel</source>
        <translation>Заголовок</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Свернуть</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>Развернуть</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Закрыть</translation>
    </message>
</context>
<context>
    <name>Velmora::QcDockWidget</name>
    <message>
        <source>PleaseMoveToTheIMsg</source>
        <translation>Перетащите на метку</translation>
    </message>
</context>
<context>
    <name>Velmora::QcLoadingDialog</name>
    <message>
        <source>Loading...</source>
        <translation>Загрузка...</translation>
    </message>
</context>
<context>
    <name>Velmora::QcProgressDialog</name>
    <message>
        <source>LoadingMsg</source>
        <translation>Идёт загрузка, подождите</translation>
    </message>
</context>
<context>
    <name>Velmora::QcTextEditLimiter</name>
    <message>
        <source>PleaseEnterMsg</source>
        <translation>Введите текст</translation>
    </message>
</context>
<context>
    <name>Velmora::QcToast</name>
    <message>
        <source>Close</source>
        <translation>Закрыть</translation>
    </message>
</context>
<context>
    <name>VelmoraDesigner</name>
    <message>
        <source>Colours of states</source>
        <translation>Цвета состояний</translation>
    </message>
    <message>
        <source>Choose %1...</source>
        <translation>Выбрать %1...</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>&amp;Светлая</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>&amp;Тёмная</translation>
    </message>
    <message>
        <source>High contrast, l&amp;ight</source>
        <translation>Высокая контрастность, с&amp;ветлая</translation>
    </message>
    <message>
        <source>High contrast, d&amp;ark</source>
        <translation>Высокая контрастность, т&amp;ёмная</translation>
    </message>
    <message>
        <source>Other &amp;file...</source>
        <translation>Другой &amp;файл...</translation>
    </message>
    <message>
        <source>%1 has no colours.</source>
        <translation>В файле %1 нет цветов.</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Поиск</translation>
    </message>
    <message>
        <source>A token, #RRGGBB, a colour&apos;s name, or one of them with an alpha: ${brand/brand, 0.5}</source>
        <translation>Токен, #RRGGBB, имя цвета или одно из них с непрозрачностью: ${brand/brand, 0.5}</translation>
    </message>
</context>
<context>
    <name>XlsxTemplate</name>
    <message>
        <source>The date is not between %1 and 9999-12-31.</source>
        <translation>Дата не лежит между %1 и 9999-12-31.</translation>
    </message>
    <message numerus="yes">
        <source>The text has %n characters; a cell holds %1.</source>
        <translation>
            <numerusform>В тексте %n символ; в ячейку помещается не более %1.</numerusform>
            <numerusform>В тексте %n символа; в ячейку помещается не более %1.</numerusform>
            <numerusform>В тексте %n символов; в ячейку помещается не более %1.</numerusform>
        </translation>
    </message>
    <message>
        <source>The number is infinite, or none at all.</source>
        <translation>Число бесконечно или вовсе не число.</translation>
    </message>
    <message>
        <source>The time is none.</source>
        <translation>Время недопустимо.</translation>
    </message>
    <message>
        <source>A value of the type %1 is none for a cell.</source>
        <translation>Значение типа %1 не подходит для ячейки.</translation>
    </message>
    <message>
        <source>%1 is not the name of a row, nor of a table.</source>
        <translation>%1 не является именем строки или таблицы.</translation>
    </message>
    <message>
        <source>A sheet has no more than %1 rows.</source>
        <translation>На листе не более %1 строк.</translation>
    </message>
    <message>
        <source>Row %1: %2</source>
        <comment>a row and what is wrong in it</comment>
        <translation>Строка %1: %2</translation>
    </message>
    <message numerus="yes">
        <source>There are %1 values, but %2 has %n columns.</source>
        <translation>
            <numerusform>Значений — %1, но в %2 %n столбец.</numerusform>
            <numerusform>Значений — %1, но в %2 %n столбца.</numerusform>
            <numerusform>Значений — %1, но в %2 %n столбцов.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Row %1 of %2 is too large to be repeated %n times.</source>
        <translation>
            <numerusform>Строка %1 листа %2 слишком велика, чтобы повторить её %n раз.</numerusform>
            <numerusform>Строка %1 листа %2 слишком велика, чтобы повторить её %n раза.</numerusform>
            <numerusform>Строка %1 листа %2 слишком велика, чтобы повторить её %n раз.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 has no room for %n rows: it ends with row %2, and row %3 would have to move down.</source>
        <translation>
            <numerusform>На листе %1 нет места для %n строки: он кончается строкой %2, а строке %3 пришлось бы сдвинуться вниз.</numerusform>
            <numerusform>На листе %1 нет места для %n строк: он кончается строкой %2, а строке %3 пришлось бы сдвинуться вниз.</numerusform>
            <numerusform>На листе %1 нет места для %n строк: он кончается строкой %2, а строке %3 пришлось бы сдвинуться вниз.</numerusform>
        </translation>
    </message>
    <message>
        <source>The merged cells %1 reach over more than the row that is to be repeated.</source>
        <translation>Объединённые ячейки %1 выходят за пределы повторяемой строки.</translation>
    </message>
    <message>
        <source>The formula in %1 is shared with another cell, and missing there, or too long.</source>
        <translation>Формула в %1 — общая с другой ячейкой, а там её нет или она слишком длинна.</translation>
    </message>
    <message>
        <source>The data table %1 reaches over the row that is to be repeated.</source>
        <translation>Таблица данных %1 пересекает повторяемую строку.</translation>
    </message>
    <message>
        <source>The array formula in %1 reaches over the row that is to be repeated.</source>
        <translation>Формула массива в %1 пересекает повторяемую строку.</translation>
    </message>
    <message>
        <source>The table %1 (%2) stands across the row that is to be repeated.</source>
        <translation>Таблица %1 (%2) стоит поперёк повторяемой строки.</translation>
    </message>
    <message>
        <source>The pivot table %1 (%2) would have to move with the rows, and cannot.</source>
        <translation>Сводной таблице %1 (%2) пришлось бы сдвинуться вместе со строками, а она не может.</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <comment>a cell and what is wrong in it</comment>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>It is the header of a column of the table %1.</source>
        <translation>Это заголовок столбца таблицы %1.</translation>
    </message>
    <message>
        <source>It is one of several cells of one array formula or data table (%1).</source>
        <translation>Это одна из нескольких ячеек одной формулы массива или таблицы данных (%1).</translation>
    </message>
    <message>
        <source>It does not show, as a part of merged cells (%1).</source>
        <translation>Она не видна как часть объединённых ячеек (%1).</translation>
    </message>
    <message>
        <source>The list has no entries.</source>
        <translation>В списке нет записей.</translation>
    </message>
    <message>
        <source>An entry of a list must not have a comma: %1</source>
        <translation>Запись списка не должна содержать запятую: %1</translation>
    </message>
    <message>
        <source>An entry of a list must not be empty, begin or end with a blank, or have line ends or control characters: &quot;%1&quot;</source>
        <translation>Запись списка не должна быть пустой, начинаться или кончаться пробелом, содержать переводы строк или управляющие символы: &quot;%1&quot;</translation>
    </message>
    <message numerus="yes">
        <source>The entries of the list have %n characters with their commas; a list holds %1.</source>
        <translation>
            <numerusform>В записях списка вместе с запятыми %n символ; в список помещается не более %1.</numerusform>
            <numerusform>В записях списка вместе с запятыми %n символа; в список помещается не более %1.</numerusform>
            <numerusform>В записях списка вместе с запятыми %n символов; в список помещается не более %1.</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 is not in the list of the cell: %2</source>
        <translation>%1 нет в списке ячейки: %2</translation>
    </message>
    <message>
        <source>These are %1 cells; %2 can be filled at once.</source>
        <translation>Ячеек здесь %1; за один раз можно заполнить не более %2.</translation>
    </message>
    <message>
        <source>The name stands for a constant, not for a cell.</source>
        <translation>Имя обозначает константу, а не ячейку.</translation>
    </message>
    <message>
        <source>The name leads to another workbook.</source>
        <translation>Имя ведёт в другую книгу.</translation>
    </message>
    <message>
        <source>The name leads nowhere: its cells were deleted (#REF!).</source>
        <translation>Имя никуда не ведёт: его ячейки удалены (#REF!).</translation>
    </message>
    <message>
        <source>The name stands for a formula, not for a cell.</source>
        <translation>Имя обозначает формулу, а не ячейку.</translation>
    </message>
    <message>
        <source>The table has no data rows.</source>
        <translation>В таблице нет строк данных.</translation>
    </message>
    <message>
        <source>The name leads to a sheet that there is not, or that has no cells.</source>
        <translation>Имя ведёт на лист, которого нет или в котором нет ячеек.</translation>
    </message>
    <message numerus="yes">
        <source>The formula has %n characters; a cell holds %1.</source>
        <translation>
            <numerusform>В формуле %n символ; в ячейку помещается не более %1.</numerusform>
            <numerusform>В формуле %n символа; в ячейку помещается не более %1.</numerusform>
            <numerusform>В формуле %n символов; в ячейку помещается не более %1.</numerusform>
        </translation>
    </message>
    <message>
        <source>The formula is empty.</source>
        <translation>Формула пуста.</translation>
    </message>
    <message>
        <source>The name stands for several places; rows fill one range.</source>
        <translation>Имя обозначает несколько мест; строки заполняют один диапазон.</translation>
    </message>
    <message>
        <source>The columns have no names: there is no row of texts above.</source>
        <translation>У столбцов нет имён: над ними нет строки с текстами.</translation>
    </message>
    <message>
        <source>There is no column %1; there are %2.</source>
        <translation>Нет столбца %1; есть %2.</translation>
    </message>
    <message>
        <source>The picture is linked to a file outside the workbook.</source>
        <translation>Рисунок связан с файлом вне книги.</translation>
    </message>
    <message>
        <source>The picture has no image in the workbook.</source>
        <translation>У рисунка нет изображения в книге.</translation>
    </message>
    <message>
        <source>This is an SVG image, which a workbook holds only beside another; use a PNG.</source>
        <translation>Это изображение SVG, которое книга хранит только рядом с другим; возьмите PNG.</translation>
    </message>
    <message>
        <source>This is no image of a kind that a workbook holds: PNG, JPEG, GIF, BMP, TIFF, EMF or placeable WMF.</source>
        <translation>Это изображение не того вида, который хранит книга: PNG, JPEG, GIF, BMP, TIFF, EMF или размещаемый WMF.</translation>
    </message>
    <message>
        <source>The workbook&apos;s styles are damaged.</source>
        <translation>Стили книги повреждены.</translation>
    </message>
    <message>
        <source>This is a binary workbook (.xlsb). Save it as .xlsx.</source>
        <translation>Это двоичная книга (.xlsb). Сохраните её как .xlsx.</translation>
    </message>
    <message>
        <source>This is another kind of document, not a workbook (.xlsx).</source>
        <translation>Это документ другого вида, а не книга (.xlsx).</translation>
    </message>
    <message>
        <source>This is an archive, but not a workbook (.xlsx).</source>
        <translation>Это архив, но не книга (.xlsx).</translation>
    </message>
    <message>
        <source>A part of the workbook is too large: %1.</source>
        <translation>Часть книги слишком велика: %1.</translation>
    </message>
    <message>
        <source>The sheet %1 has no cells.</source>
        <translation>На листе %1 нет ячеек.</translation>
    </message>
    <message>
        <source>A part of the workbook is damaged: %1.</source>
        <translation>Часть книги повреждена: %1.</translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <translation>Файл пуст.</translation>
    </message>
    <message>
        <source>The file is damaged: its end is missing.</source>
        <translation>Файл повреждён: нет его конца.</translation>
    </message>
    <message>
        <source>The workbook is protected by a password. Save it without one.</source>
        <translation>Книга защищена паролем. Сохраните её без пароля.</translation>
    </message>
    <message>
        <source>This is a workbook in the old binary format (.xls). Save it as .xlsx.</source>
        <translation>Это книга в старом двоичном формате (.xls). Сохраните её как .xlsx.</translation>
    </message>
    <message>
        <source>This is not a workbook (.xlsx).</source>
        <translation>Это не книга (.xlsx).</translation>
    </message>
    <message>
        <source>This is a text file, such as comma-separated values, not a workbook (.xlsx).</source>
        <translation>Это текстовый файл, например со значениями через запятую, а не книга (.xlsx).</translation>
    </message>
    <message>
        <source>The file is not read: %1.</source>
        <translation>Файл не прочитан: %1.</translation>
    </message>
    <message>
        <source>The workbook cannot be packed: it is too large, or damaged.</source>
        <translation>Книгу не удаётся упаковать: она слишком велика или повреждена.</translation>
    </message>
    <message>
        <source>A part of the workbook is missing: %1.</source>
        <translation>Нет части книги: %1.</translation>
    </message>
    <message>
        <source>The file is too large.</source>
        <translation>Файл слишком велик.</translation>
    </message>
    <message>
        <source>This is an OpenDocument file. Save it as .xlsx.</source>
        <translation>Это файл OpenDocument. Сохраните его как .xlsx.</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <comment>a file and what is wrong with it</comment>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>The file has no name.</source>
        <translation>У файла нет имени.</translation>
    </message>
    <message>
        <source>%1: The file is too large.</source>
        <translation>%1: Файл слишком велик.</translation>
    </message>
    <message>
        <source>There is no template yet.</source>
        <translation>Шаблона ещё нет.</translation>
    </message>
    <message>
        <source>There is no name %1 in the workbook.</source>
        <translation>В книге нет имени %1.</translation>
    </message>
    <message>
        <source>%1 is a picture, not a cell.</source>
        <translation>%1 — рисунок, а не ячейка.</translation>
    </message>
    <message>
        <source>%1 is not a picture.</source>
        <translation>%1 — не рисунок.</translation>
    </message>
    <message>
        <source>A text of %1 bytes is too long to be read.</source>
        <translation>Текст размером %1 байт слишком длинный, его нельзя прочитать.</translation>
    </message>
    <message>
        <source>%1: This is more than can be read at once.</source>
        <translation>%1: это больше, чем можно прочитать за один раз.</translation>
    </message>
    <message>
        <source>This is more than a template has memory for, which is %1 MiB.</source>
        <translation>Это больше памяти, доступной шаблону: %1 МиБ.</translation>
    </message>
    <message>
        <source>It is a folder.</source>
        <translation>Это папка.</translation>
    </message>
    <message>
        <source>It is no regular file.</source>
        <translation>Это не обычный файл.</translation>
    </message>
</context>
</TS>
