<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ar" sourcelanguage="en">
<context>
    <name>QGuiApplication</name>
    <message>
        <source>QT_LAYOUT_DIRECTION</source>
        <translation>RTL</translation>
    </message>
</context>
<context>
    <name>QcDialog</name>
    <message>
        <source>PushButton</source>
        <translation>زر</translation>
    </message>
    <message>
        <source>dialog</source>
        <translation>مربع حوار</translation>
    </message>
    <message>
        <source>TextLabel</source>
        <translation>العنوان</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>تصغير</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>تكبير</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>إغلاق</translation>
    </message>
</context>
<context>
    <name>QcDockAreaTabFrame</name>
    <message>
        <source>Previous tab</source>
        <translation>علامة التبويب السابقة</translation>
    </message>
    <message>
        <source>Next tab</source>
        <translation>علامة التبويب التالية</translation>
    </message>
</context>
<context>
    <name>QcDockIndicator</name>
    <message>
        <source>Left of %1</source>
        <translation>يسار %1</translation>
    </message>
    <message>
        <source>Right of %1</source>
        <translation>يمين %1</translation>
    </message>
    <message>
        <source>Above %1</source>
        <translation>فوق %1</translation>
    </message>
    <message>
        <source>Below %1</source>
        <translation>تحت %1</translation>
    </message>
    <message>
        <source>Tab beside %1</source>
        <translation>علامة تبويب بجانب %1</translation>
    </message>
    <message>
        <source>Left edge of all around %1</source>
        <translation>الحافة اليسرى لكل ما حول %1</translation>
    </message>
    <message>
        <source>Right edge of all around %1</source>
        <translation>الحافة اليمنى لكل ما حول %1</translation>
    </message>
    <message>
        <source>Top edge of all around %1</source>
        <translation>الحافة العلوية لكل ما حول %1</translation>
    </message>
    <message>
        <source>Bottom edge of all around %1</source>
        <translation>الحافة السفلية لكل ما حول %1</translation>
    </message>
    <message>
        <source>%1, %2 of %3</source>
        <translation>%1، %2 من %3</translation>
    </message>
    <message>
        <source>empty area</source>
        <translation>منطقة فارغة</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>يسار</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>يمين</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>أعلى</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>أسفل</translation>
    </message>
    <message>
        <source>As a tab</source>
        <translation>كعلامة تبويب</translation>
    </message>
    <message>
        <source>Left edge</source>
        <translation>الحافة اليسرى</translation>
    </message>
    <message>
        <source>Right edge</source>
        <translation>الحافة اليمنى</translation>
    </message>
    <message>
        <source>Top edge</source>
        <translation>الحافة العلوية</translation>
    </message>
    <message>
        <source>Bottom edge</source>
        <translation>الحافة السفلية</translation>
    </message>
</context>
<context>
    <name>QcDockWidget</name>
    <message>
        <source>Move to</source>
        <translation>نقل إلى</translation>
    </message>
    <message>
        <source>Float</source>
        <translation>فصل</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>إغلاق</translation>
    </message>
    <message>
        <source>Close %1</source>
        <translation>إغلاق %1</translation>
    </message>
</context>
<context>
    <name>QcNotification</name>
    <message>
        <source>Close</source>
        <translation>إغلاق</translation>
    </message>
    <message>
        <source>First page</source>
        <translation>الصفحة الأولى</translation>
    </message>
    <message>
        <source>Previous page</source>
        <translation>الصفحة السابقة</translation>
    </message>
    <message>
        <source>Next page</source>
        <translation>الصفحة التالية</translation>
    </message>
    <message>
        <source>Last page</source>
        <translation>الصفحة الأخيرة</translation>
    </message>
</context>
<context>
    <name>QcSplitterHandle</name>
    <message>
        <source>Between %1 and %2</source>
        <translation>بين %1 و%2</translation>
    </message>
</context>
<context>
    <name>QcWindow</name>
    <message>
        <source>window</source>
        <translation>نافذة</translation>
    </message>
    <message>
        <source>TextLabel</source>
        <translation>العنوان</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>تصغير</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>تكبير</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>إغلاق</translation>
    </message>
</context>
<context>
    <name>Velmora::QcDockWidget</name>
    <message>
        <source>PleaseMoveToTheIMsg</source>
        <translation>اسحب إلى إحدى العلامات</translation>
    </message>
</context>
<context>
    <name>Velmora::QcLoadingDialog</name>
    <message>
        <source>Loading...</source>
        <translation>جارٍ التحميل...</translation>
    </message>
</context>
<context>
    <name>Velmora::QcProgressDialog</name>
    <message>
        <source>LoadingMsg</source>
        <translation>جارٍ التحميل، يُرجى الانتظار</translation>
    </message>
</context>
<context>
    <name>Velmora::QcTextEditLimiter</name>
    <message>
        <source>PleaseEnterMsg</source>
        <translation>أدخل نصًا</translation>
    </message>
</context>
<context>
    <name>Velmora::QcToast</name>
    <message>
        <source>Close</source>
        <translation>إغلاق</translation>
    </message>
</context>
<context>
    <name>VelmoraDesigner</name>
    <message>
        <source>Colours of states</source>
        <translation>ألوان الحالات</translation>
    </message>
    <message>
        <source>Choose %1...</source>
        <translation>اختيار %1...</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>&amp;فاتح</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>&amp;داكن</translation>
    </message>
    <message>
        <source>High contrast, l&amp;ight</source>
        <translation>تباين عالٍ، فا&amp;تح</translation>
    </message>
    <message>
        <source>High contrast, d&amp;ark</source>
        <translation>تباين عالٍ، دا&amp;كن</translation>
    </message>
    <message>
        <source>Other &amp;file...</source>
        <translation>ملف آ&amp;خر...</translation>
    </message>
    <message>
        <source>%1 has no colours.</source>
        <translation>لا يحتوي %1 على ألوان.</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>بحث</translation>
    </message>
    <message>
        <source>A token, #RRGGBB, a colour&apos;s name, or one of them with an alpha: ${brand/brand, 0.5}</source>
        <translation>رمز لون أو #RRGGBB أو اسم لون أو أحدها مع درجة شفافية: ${brand/brand, 0.5}</translation>
    </message>
</context>
<context>
    <name>XlsxTemplate</name>
    <message>
        <source>The date is not between %1 and 9999-12-31.</source>
        <translation>التاريخ ليس بين %1 و9999-12-31.</translation>
    </message>
    <message numerus="yes">
        <source>The text has %n characters; a cell holds %1.</source>
        <translation>
            <numerusform>النص بلا أحرف؛ تتسع الخلية لعدد %1.</numerusform>
            <numerusform>في النص حرف واحد؛ تتسع الخلية لعدد %1.</numerusform>
            <numerusform>في النص حرفان؛ تتسع الخلية لعدد %1.</numerusform>
            <numerusform>في النص %n أحرف؛ تتسع الخلية لعدد %1.</numerusform>
            <numerusform>في النص %n حرفًا؛ تتسع الخلية لعدد %1.</numerusform>
            <numerusform>في النص %n حرف؛ تتسع الخلية لعدد %1.</numerusform>
        </translation>
    </message>
    <message>
        <source>The number is infinite, or none at all.</source>
        <translation>العدد لا نهائي أو ليس عددًا.</translation>
    </message>
    <message>
        <source>The time is none.</source>
        <translation>الوقت غير صالح.</translation>
    </message>
    <message>
        <source>A value of the type %1 is none for a cell.</source>
        <translation>لا تصلح قيمة من النوع %1 لخلية.</translation>
    </message>
    <message>
        <source>%1 is not the name of a row, nor of a table.</source>
        <translation>%1 ليس اسم صف ولا اسم جدول.</translation>
    </message>
    <message>
        <source>A sheet has no more than %1 rows.</source>
        <translation>لا تزيد صفوف الورقة على %1.</translation>
    </message>
    <message>
        <source>Row %1: %2</source>
        <comment>a row and what is wrong in it</comment>
        <translation>الصف %1: %2</translation>
    </message>
    <message numerus="yes">
        <source>There are %1 values, but %2 has %n columns.</source>
        <translation>
            <numerusform>عدد القيم %1، لكن لا أعمدة في %2.</numerusform>
            <numerusform>عدد القيم %1، لكن في %2 عمودًا واحدًا.</numerusform>
            <numerusform>عدد القيم %1، لكن في %2 عمودين.</numerusform>
            <numerusform>عدد القيم %1، لكن في %2 %n أعمدة.</numerusform>
            <numerusform>عدد القيم %1، لكن في %2 %n عمودًا.</numerusform>
            <numerusform>عدد القيم %1، لكن في %2 %n عمود.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Row %1 of %2 is too large to be repeated %n times.</source>
        <translation>
            <numerusform>الصف %1 من %2 أكبر من أن يُكرَّر.</numerusform>
            <numerusform>الصف %1 من %2 أكبر من أن يُكرَّر مرة واحدة.</numerusform>
            <numerusform>الصف %1 من %2 أكبر من أن يُكرَّر مرتين.</numerusform>
            <numerusform>الصف %1 من %2 أكبر من أن يُكرَّر %n مرات.</numerusform>
            <numerusform>الصف %1 من %2 أكبر من أن يُكرَّر %n مرة.</numerusform>
            <numerusform>الصف %1 من %2 أكبر من أن يُكرَّر %n مرة.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 has no room for %n rows: it ends with row %2, and row %3 would have to move down.</source>
        <translation>
            <numerusform>لا متسع في %1: تنتهي عند الصف %2، ويلزم تحريك الصف %3 إلى أسفل.</numerusform>
            <numerusform>لا متسع في %1 لصف واحد: تنتهي عند الصف %2، ويلزم تحريك الصف %3 إلى أسفل.</numerusform>
            <numerusform>لا متسع في %1 لصفين: تنتهي عند الصف %2، ويلزم تحريك الصف %3 إلى أسفل.</numerusform>
            <numerusform>لا متسع في %1 لعدد %n صفوف: تنتهي عند الصف %2، ويلزم تحريك الصف %3 إلى أسفل.</numerusform>
            <numerusform>لا متسع في %1 لعدد %n صفًا: تنتهي عند الصف %2، ويلزم تحريك الصف %3 إلى أسفل.</numerusform>
            <numerusform>لا متسع في %1 لعدد %n صف: تنتهي عند الصف %2، ويلزم تحريك الصف %3 إلى أسفل.</numerusform>
        </translation>
    </message>
    <message>
        <source>The merged cells %1 reach over more than the row that is to be repeated.</source>
        <translation>تمتد الخلايا المدمجة %1 خارج الصف المراد تكراره.</translation>
    </message>
    <message>
        <source>The formula in %1 is shared with another cell, and missing there, or too long.</source>
        <translation>الصيغة في %1 مشتركة مع خلية أخرى، وهي غائبة هناك أو طويلة جدًا.</translation>
    </message>
    <message>
        <source>The data table %1 reaches over the row that is to be repeated.</source>
        <translation>يمتد جدول البيانات %1 عبر الصف المراد تكراره.</translation>
    </message>
    <message>
        <source>The array formula in %1 reaches over the row that is to be repeated.</source>
        <translation>تمتد صيغة الصفيف في %1 عبر الصف المراد تكراره.</translation>
    </message>
    <message>
        <source>The table %1 (%2) stands across the row that is to be repeated.</source>
        <translation>يقع الجدول %1 (%2) عبر الصف المراد تكراره.</translation>
    </message>
    <message>
        <source>The pivot table %1 (%2) would have to move with the rows, and cannot.</source>
        <translation>يلزم أن يتحرك الجدول المحوري %1 (%2) مع الصفوف، وهذا غير ممكن.</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <comment>a cell and what is wrong in it</comment>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>It is the header of a column of the table %1.</source>
        <translation>إنها رأس عمود في الجدول %1.</translation>
    </message>
    <message>
        <source>It is one of several cells of one array formula or data table (%1).</source>
        <translation>إنها إحدى خلايا صيغة صفيف أو جدول بيانات واحد (%1).</translation>
    </message>
    <message>
        <source>It does not show, as a part of merged cells (%1).</source>
        <translation>لا تظهر لأنها جزء من خلايا مدمجة (%1).</translation>
    </message>
    <message>
        <source>The list has no entries.</source>
        <translation>لا عناصر في القائمة.</translation>
    </message>
    <message>
        <source>An entry of a list must not have a comma: %1</source>
        <translation>يجب ألا يحتوي عنصر القائمة على فاصلة: %1</translation>
    </message>
    <message>
        <source>An entry of a list must not be empty, begin or end with a blank, or have line ends or control characters: &quot;%1&quot;</source>
        <translation>يجب ألا يكون عنصر القائمة فارغًا، وألا يبدأ أو ينتهي بمسافة، وألا يحتوي على نهايات أسطر أو محارف تحكم: &quot;%1&quot;</translation>
    </message>
    <message numerus="yes">
        <source>The entries of the list have %n characters with their commas; a list holds %1.</source>
        <translation>
            <numerusform>عناصر القائمة مع فواصلها بلا أحرف؛ تتسع القائمة لعدد %1.</numerusform>
            <numerusform>عناصر القائمة مع فواصلها حرف واحد؛ تتسع القائمة لعدد %1.</numerusform>
            <numerusform>عناصر القائمة مع فواصلها حرفان؛ تتسع القائمة لعدد %1.</numerusform>
            <numerusform>عناصر القائمة مع فواصلها %n أحرف؛ تتسع القائمة لعدد %1.</numerusform>
            <numerusform>عناصر القائمة مع فواصلها %n حرفًا؛ تتسع القائمة لعدد %1.</numerusform>
            <numerusform>عناصر القائمة مع فواصلها %n حرف؛ تتسع القائمة لعدد %1.</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 is not in the list of the cell: %2</source>
        <translation>%1 ليس في قائمة الخلية: %2</translation>
    </message>
    <message>
        <source>These are %1 cells; %2 can be filled at once.</source>
        <translation>عدد الخلايا %1؛ وأقصى ما يُملأ دفعة واحدة %2.</translation>
    </message>
    <message>
        <source>The name stands for a constant, not for a cell.</source>
        <translation>الاسم يدل على ثابت لا على خلية.</translation>
    </message>
    <message>
        <source>The name leads to another workbook.</source>
        <translation>الاسم يشير إلى مصنف آخر.</translation>
    </message>
    <message>
        <source>The name leads nowhere: its cells were deleted (#REF!).</source>
        <translation>الاسم لا يشير إلى شيء: حُذفت خلاياه (#REF!).</translation>
    </message>
    <message>
        <source>The name stands for a formula, not for a cell.</source>
        <translation>الاسم يدل على صيغة لا على خلية.</translation>
    </message>
    <message>
        <source>The table has no data rows.</source>
        <translation>لا صفوف بيانات في الجدول.</translation>
    </message>
    <message>
        <source>The name leads to a sheet that there is not, or that has no cells.</source>
        <translation>الاسم يشير إلى ورقة غير موجودة أو بلا خلايا.</translation>
    </message>
    <message numerus="yes">
        <source>The formula has %n characters; a cell holds %1.</source>
        <translation>
            <numerusform>الصيغة بلا أحرف؛ تتسع الخلية لعدد %1.</numerusform>
            <numerusform>في الصيغة حرف واحد؛ تتسع الخلية لعدد %1.</numerusform>
            <numerusform>في الصيغة حرفان؛ تتسع الخلية لعدد %1.</numerusform>
            <numerusform>في الصيغة %n أحرف؛ تتسع الخلية لعدد %1.</numerusform>
            <numerusform>في الصيغة %n حرفًا؛ تتسع الخلية لعدد %1.</numerusform>
            <numerusform>في الصيغة %n حرف؛ تتسع الخلية لعدد %1.</numerusform>
        </translation>
    </message>
    <message>
        <source>The formula is empty.</source>
        <translation>الصيغة فارغة.</translation>
    </message>
    <message>
        <source>The name stands for several places; rows fill one range.</source>
        <translation>الاسم يدل على عدة مواضع؛ والصفوف تملأ نطاقًا واحدًا.</translation>
    </message>
    <message>
        <source>The columns have no names: there is no row of texts above.</source>
        <translation>لا أسماء للأعمدة: لا يوجد صف نصوص فوقها.</translation>
    </message>
    <message>
        <source>There is no column %1; there are %2.</source>
        <translation>لا يوجد عمود %1؛ الأعمدة الموجودة: %2.</translation>
    </message>
    <message>
        <source>The picture is linked to a file outside the workbook.</source>
        <translation>الصورة مرتبطة بملف خارج المصنف.</translation>
    </message>
    <message>
        <source>The picture has no image in the workbook.</source>
        <translation>لا توجد بيانات للصورة في المصنف.</translation>
    </message>
    <message>
        <source>This is an SVG image, which a workbook holds only beside another; use a PNG.</source>
        <translation>هذه صورة SVG لا يحفظها المصنف إلا بجانب أخرى؛ استخدم PNG.</translation>
    </message>
    <message>
        <source>This is no image of a kind that a workbook holds: PNG, JPEG, GIF, BMP, TIFF, EMF or placeable WMF.</source>
        <translation>هذه ليست صورة من نوع يحفظه المصنف: PNG أو JPEG أو GIF أو BMP أو TIFF أو EMF أو WMF قابل للوضع.</translation>
    </message>
    <message>
        <source>The workbook&apos;s styles are damaged.</source>
        <translation>أنماط المصنف تالفة.</translation>
    </message>
    <message>
        <source>This is a binary workbook (.xlsb). Save it as .xlsx.</source>
        <translation>هذا مصنف ثنائي (.xlsb). احفظه بصيغة .xlsx.</translation>
    </message>
    <message>
        <source>This is another kind of document, not a workbook (.xlsx).</source>
        <translation>هذا مستند من نوع آخر وليس مصنفًا (.xlsx).</translation>
    </message>
    <message>
        <source>This is an archive, but not a workbook (.xlsx).</source>
        <translation>هذا أرشيف وليس مصنفًا (.xlsx).</translation>
    </message>
    <message>
        <source>A part of the workbook is too large: %1.</source>
        <translation>جزء من المصنف كبير جدًا: %1.</translation>
    </message>
    <message>
        <source>The sheet %1 has no cells.</source>
        <translation>لا خلايا في الورقة %1.</translation>
    </message>
    <message>
        <source>A part of the workbook is damaged: %1.</source>
        <translation>جزء من المصنف تالف: %1.</translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <translation>الملف فارغ.</translation>
    </message>
    <message>
        <source>The file is damaged: its end is missing.</source>
        <translation>الملف تالف: نهايته مفقودة.</translation>
    </message>
    <message>
        <source>The workbook is protected by a password. Save it without one.</source>
        <translation>المصنف محمي بكلمة مرور. احفظه بدونها.</translation>
    </message>
    <message>
        <source>This is a workbook in the old binary format (.xls). Save it as .xlsx.</source>
        <translation>هذا مصنف بالصيغة الثنائية القديمة (.xls). احفظه بصيغة .xlsx.</translation>
    </message>
    <message>
        <source>This is not a workbook (.xlsx).</source>
        <translation>هذا ليس مصنفًا (.xlsx).</translation>
    </message>
    <message>
        <source>This is a text file, such as comma-separated values, not a workbook (.xlsx).</source>
        <translation>هذا ملف نصي، كالقيم المفصولة بفواصل، وليس مصنفًا (.xlsx).</translation>
    </message>
    <message>
        <source>The file is not read: %1.</source>
        <translation>لم يُقرأ الملف: %1.</translation>
    </message>
    <message>
        <source>The workbook cannot be packed: it is too large, or damaged.</source>
        <translation>لا يمكن حزم المصنف: إنه كبير جدًا أو تالف.</translation>
    </message>
    <message>
        <source>A part of the workbook is missing: %1.</source>
        <translation>جزء من المصنف مفقود: %1.</translation>
    </message>
    <message>
        <source>The file is too large.</source>
        <translation>الملف كبير جدًا.</translation>
    </message>
    <message>
        <source>This is an OpenDocument file. Save it as .xlsx.</source>
        <translation>هذا ملف OpenDocument. احفظه بصيغة .xlsx.</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <comment>a file and what is wrong with it</comment>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>The file has no name.</source>
        <translation>لا اسم للملف.</translation>
    </message>
    <message>
        <source>%1: The file is too large.</source>
        <translation>%1: الملف كبير جدًا.</translation>
    </message>
    <message>
        <source>There is no template yet.</source>
        <translation>لا يوجد قالب بعد.</translation>
    </message>
    <message>
        <source>There is no name %1 in the workbook.</source>
        <translation>لا يوجد اسم %1 في المصنف.</translation>
    </message>
    <message>
        <source>%1 is a picture, not a cell.</source>
        <translation>%1 صورة وليس خلية.</translation>
    </message>
    <message>
        <source>%1 is not a picture.</source>
        <translation>%1 ليس صورة.</translation>
    </message>
    <message>
        <source>A text of %1 bytes is too long to be read.</source>
        <translation>نص بطول %1 بايت أطول من أن يُقرأ.</translation>
    </message>
    <message>
        <source>%1: This is more than can be read at once.</source>
        <translation>%1: هذا أكثر مما يمكن قراءته دفعة واحدة.</translation>
    </message>
    <message>
        <source>This is more than a template has memory for, which is %1 MiB.</source>
        <translation>هذا أكثر من الذاكرة المتاحة للقالب، وهي %1 ميبيبايت.</translation>
    </message>
    <message>
        <source>It is a folder.</source>
        <translation>إنه مجلد.</translation>
    </message>
    <message>
        <source>It is no regular file.</source>
        <translation>إنه ليس ملفًا عاديًا.</translation>
    </message>
</context>
</TS>
