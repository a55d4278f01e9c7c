<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
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
        <translation>按钮</translation>
    </message>
    <message>
        <source>dialog</source>
        <translation>对话框</translation>
    </message>
    <message>
        <source>TextLabel</source>
        <translation>标题</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>最小化</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>最大化</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
</context>
<context>
    <name>QcDockAreaTabFrame</name>
    <message>
        <source>Previous tab</source>
        <translation>上一个标签页</translation>
    </message>
    <message>
        <source>Next tab</source>
        <translation>下一个标签页</translation>
    </message>
</context>
<context>
    <name>QcDockIndicator</name>
    <message>
        <source>Left of %1</source>
        <translation>%1 的左侧</translation>
    </message>
    <message>
        <source>Right of %1</source>
        <translation>%1 的右侧</translation>
    </message>
    <message>
        <source>Above %1</source>
        <translation>%1 的上方</translation>
    </message>
    <message>
        <source>Below %1</source>
        <translation>%1 的下方</translation>
    </message>
    <message>
        <source>Tab beside %1</source>
        <translation>作为 %1 旁的标签页</translation>
    </message>
    <message>
        <source>Left edge of all around %1</source>
        <translation>%1 所在整个区域的左边缘</translation>
    </message>
    <message>
        <source>Right edge of all around %1</source>
        <translation>%1 所在整个区域的右边缘</translation>
    </message>
    <message>
        <source>Top edge of all around %1</source>
        <translation>%1 所在整个区域的上边缘</translation>
    </message>
    <message>
        <source>Bottom edge of all around %1</source>
        <translation>%1 所在整个区域的下边缘</translation>
    </message>
    <message>
        <source>%1, %2 of %3</source>
        <translation>%1，第 %2 项，共 %3 项</translation>
    </message>
    <message>
        <source>empty area</source>
        <translation>空白区域</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>左</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>右</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>上</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>下</translation>
    </message>
    <message>
        <source>As a tab</source>
        <translation>作为标签页</translation>
    </message>
    <message>
        <source>Left edge</source>
        <translation>左边缘</translation>
    </message>
    <message>
        <source>Right edge</source>
        <translation>右边缘</translation>
    </message>
    <message>
        <source>Top edge</source>
        <translation>上边缘</translation>
    </message>
    <message>
        <source>Bottom edge</source>
        <translation>下边缘</translation>
    </message>
</context>
<context>
    <name>QcDockWidget</name>
    <message>
        <source>Move to</source>
        <translation>移动到</translation>
    </message>
    <message>
        <source>Float</source>
        <translation>浮动</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Close %1</source>
        <translation>关闭 %1</translation>
    </message>
</context>
<context>
    <name>QcNotification</name>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>First page</source>
        <translation>首页</translation>
    </message>
    <message>
        <source>Previous page</source>
        <translation>上一页</translation>
    </message>
    <message>
        <source>Next page</source>
        <translation>下一页</translation>
    </message>
    <message>
        <source>Last page</source>
        <translation>末页</translation>
    </message>
</context>
<context>
    <name>QcSplitterHandle</name>
    <message>
        <source>Between %1 and %2</source>
        <translation>%1 与 %2 之间</translation>
    </message>
</context>
<context>
    <name>QcWindow</name>
    <message>
        <source>window</source>
        <translation>窗口</translation>
    </message>
    <message>
        <source>TextLabel</source>
        <translation>标题</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>最小化</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>最大化</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
</context>
<context>
    <name>Velmora::QcDockWidget</name>
    <message>
        <source>PleaseMoveToTheIMsg</source>
        <translation>拖到标记上即可停靠</translation>
    </message>
</context>
<context>
    <name>Velmora::QcLoadingDialog</name>
    <message>
        <source>Loading...</source>
        <translation>正在加载...</translation>
    </message>
</context>
<context>
    <name>Velmora::QcProgressDialog</name>
    <message>
        <source>LoadingMsg</source>
        <translation>正在加载，请稍候</translation>
    </message>
</context>
<context>
    <name>Velmora::QcTextEditLimiter</name>
    <message>
        <source>PleaseEnterMsg</source>
        <translation>请输入文字</translation>
    </message>
</context>
<context>
    <name>Velmora::QcToast</name>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
</context>
<context>
    <name>VelmoraDesigner</name>
    <message>
        <source>Colours of states</source>
        <translation>各状态的颜色</translation>
    </message>
    <message>
        <source>Choose %1...</source>
        <translation>选择 %1...</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>浅色(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>深色(&amp;D)</translation>
    </message>
    <message>
        <source>High contrast, l&amp;ight</source>
        <translation>高对比度，浅色(&amp;I)</translation>
    </message>
    <message>
        <source>High contrast, d&amp;ark</source>
        <translation>高对比度，深色(&amp;A)</translation>
    </message>
    <message>
        <source>Other &amp;file...</source>
        <translation>其他文件(&amp;F)...</translation>
    </message>
    <message>
        <source>%1 has no colours.</source>
        <translation>%1 中没有颜色。</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>搜索</translation>
    </message>
    <message>
        <source>A token, #RRGGBB, a colour&apos;s name, or one of them with an alpha: ${brand/brand, 0.5}</source>
        <translation>令牌、#RRGGBB、颜色名称，或其中之一加上不透明度：${brand/brand, 0.5}</translation>
    </message>
</context>
<context>
    <name>XlsxTemplate</name>
    <message>
        <source>The date is not between %1 and 9999-12-31.</source>
        <translation>日期不在 %1 与 9999-12-31 之间。</translation>
    </message>
    <message numerus="yes">
        <source>The text has %n characters; a cell holds %1.</source>
        <translation>
            <numerusform>文本有 %n 个字符；一个单元格最多容纳 %1 个。</numerusform>
        </translation>
    </message>
    <message>
        <source>The number is infinite, or none at all.</source>
        <translation>该数是无穷大，或者根本不是数。</translation>
    </message>
    <message>
        <source>The time is none.</source>
        <translation>时间无效。</translation>
    </message>
    <message>
        <source>A value of the type %1 is none for a cell.</source>
        <translation>类型为 %1 的值不能放入单元格。</translation>
    </message>
    <message>
        <source>%1 is not the name of a row, nor of a table.</source>
        <translation>%1 既不是行的名称，也不是表格的名称。</translation>
    </message>
    <message>
        <source>A sheet has no more than %1 rows.</source>
        <translation>一个工作表最多有 %1 行。</translation>
    </message>
    <message>
        <source>Row %1: %2</source>
        <comment>a row and what is wrong in it</comment>
        <translation>第 %1 行：%2</translation>
    </message>
    <message numerus="yes">
        <source>There are %1 values, but %2 has %n columns.</source>
        <translation>
            <numerusform>有 %1 个值，但 %2 有 %n 列。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Row %1 of %2 is too large to be repeated %n times.</source>
        <translation>
            <numerusform>%2 的第 %1 行太大，无法重复 %n 次。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 has no room for %n rows: it ends with row %2, and row %3 would have to move down.</source>
        <translation>
            <numerusform>%1 放不下 %n 行：它到第 %2 行为止，而第 %3 行必须下移。</numerusform>
        </translation>
    </message>
    <message>
        <source>The merged cells %1 reach over more than the row that is to be repeated.</source>
        <translation>合并单元格 %1 超出了要重复的行。</translation>
    </message>
    <message>
        <source>The formula in %1 is shared with another cell, and missing there, or too long.</source>
        <translation>%1 中的公式与另一个单元格共享，而在那里缺失或过长。</translation>
    </message>
    <message>
        <source>The data table %1 reaches over the row that is to be repeated.</source>
        <translation>数据表 %1 跨越了要重复的行。</translation>
    </message>
    <message>
        <source>The array formula in %1 reaches over the row that is to be repeated.</source>
        <translation>%1 中的数组公式跨越了要重复的行。</translation>
    </message>
    <message>
        <source>The table %1 (%2) stands across the row that is to be repeated.</source>
        <translation>表格 %1 (%2) 横跨要重复的行。</translation>
    </message>
    <message>
        <source>The pivot table %1 (%2) would have to move with the rows, and cannot.</source>
        <translation>数据透视表 %1 (%2) 必须随行移动，但无法移动。</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <comment>a cell and what is wrong in it</comment>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>It is the header of a column of the table %1.</source>
        <translation>它是表格 %1 中一列的标题。</translation>
    </message>
    <message>
        <source>It is one of several cells of one array formula or data table (%1).</source>
        <translation>它是同一数组公式或数据表 (%1) 的多个单元格之一。</translation>
    </message>
    <message>
        <source>It does not show, as a part of merged cells (%1).</source>
        <translation>它是合并单元格 (%1) 的一部分，不显示。</translation>
    </message>
    <message>
        <source>The list has no entries.</source>
        <translation>列表没有条目。</translation>
    </message>
    <message>
        <source>An entry of a list must not have a comma: %1</source>
        <translation>列表条目不能含有逗号：%1</translation>
    </message>
    <message>
        <source>An entry of a list must not be empty, begin or end with a blank, or have line ends or control characters: &quot;%1&quot;</source>
        <translation>列表条目不能为空，不能以空格开头或结尾，也不能含有换行符或控制字符：&quot;%1&quot;</translation>
    </message>
    <message numerus="yes">
        <source>The entries of the list have %n characters with their commas; a list holds %1.</source>
        <translation>
            <numerusform>列表条目连同逗号共有 %n 个字符；一个列表最多容纳 %1 个。</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 is not in the list of the cell: %2</source>
        <translation>%1 不在该单元格的列表中：%2</translation>
    </message>
    <message>
        <source>These are %1 cells; %2 can be filled at once.</source>
        <translation>共有 %1 个单元格；一次最多可填充 %2 个。</translation>
    </message>
    <message>
        <source>The name stands for a constant, not for a cell.</source>
        <translation>该名称代表一个常量，而不是单元格。</translation>
    </message>
    <message>
        <source>The name leads to another workbook.</source>
        <translation>该名称指向另一个工作簿。</translation>
    </message>
    <message>
        <source>The name leads nowhere: its cells were deleted (#REF!).</source>
        <translation>该名称没有指向：其单元格已被删除 (#REF!)。</translation>
    </message>
    <message>
        <source>The name stands for a formula, not for a cell.</source>
        <translation>该名称代表一个公式，而不是单元格。</translation>
    </message>
    <message>
        <source>The table has no data rows.</source>
        <translation>该表格没有数据行。</translation>
    </message>
    <message>
        <source>The name leads to a sheet that there is not, or that has no cells.</source>
        <translation>该名称指向不存在或没有单元格的工作表。</translation>
    </message>
    <message numerus="yes">
        <source>The formula has %n characters; a cell holds %1.</source>
        <translation>
            <numerusform>公式有 %n 个字符；一个单元格最多容纳 %1 个。</numerusform>
        </translation>
    </message>
    <message>
        <source>The formula is empty.</source>
        <translation>公式为空。</translation>
    </message>
    <message>
        <source>The name stands for several places; rows fill one range.</source>
        <translation>该名称代表多个位置；行只能填充一个区域。</translation>
    </message>
    <message>
        <source>The columns have no names: there is no row of texts above.</source>
        <translation>各列没有名称：上方没有文本行。</translation>
    </message>
    <message>
        <source>There is no column %1; there are %2.</source>
        <translation>没有列 %1；现有的列：%2。</translation>
    </message>
    <message>
        <source>The picture is linked to a file outside the workbook.</source>
        <translation>该图片链接到工作簿之外的文件。</translation>
    </message>
    <message>
        <source>The picture has no image in the workbook.</source>
        <translation>该图片在工作簿中没有图像数据。</translation>
    </message>
    <message>
        <source>This is an SVG image, which a workbook holds only beside another; use a PNG.</source>
        <translation>这是 SVG 图像，工作簿只能将它与另一图像一起保存；请使用 PNG。</translation>
    </message>
    <message>
        <source>This is no image of a kind that a workbook holds: PNG, JPEG, GIF, BMP, TIFF, EMF or placeable WMF.</source>
        <translation>这不是工作簿可容纳的图像类型：PNG、JPEG、GIF、BMP、TIFF、EMF 或可放置的 WMF。</translation>
    </message>
    <message>
        <source>The workbook&apos;s styles are damaged.</source>
        <translation>工作簿的样式已损坏。</translation>
    </message>
    <message>
        <source>This is a binary workbook (.xlsb). Save it as .xlsx.</source>
        <translation>这是二进制工作簿 (.xlsb)。请另存为 .xlsx。</translation>
    </message>
    <message>
        <source>This is another kind of document, not a workbook (.xlsx).</source>
        <translation>这是另一种文档，不是工作簿 (.xlsx)。</translation>
    </message>
    <message>
        <source>This is an archive, but not a workbook (.xlsx).</source>
        <translation>这是压缩文件，但不是工作簿 (.xlsx)。</translation>
    </message>
    <message>
        <source>A part of the workbook is too large: %1.</source>
        <translation>工作簿的某一部分太大：%1。</translation>
    </message>
    <message>
        <source>The sheet %1 has no cells.</source>
        <translation>工作表 %1 没有单元格。</translation>
    </message>
    <message>
        <source>A part of the workbook is damaged: %1.</source>
        <translation>工作簿的某一部分已损坏：%1。</translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <translation>文件为空。</translation>
    </message>
    <message>
        <source>The file is damaged: its end is missing.</source>
        <translation>文件已损坏：缺少末尾。</translation>
    </message>
    <message>
        <source>The workbook is protected by a password. Save it without one.</source>
        <translation>工作簿受密码保护。请不带密码保存。</translation>
    </message>
    <message>
        <source>This is a workbook in the old binary format (.xls). Save it as .xlsx.</source>
        <translation>这是旧二进制格式 (.xls) 的工作簿。请另存为 .xlsx。</translation>
    </message>
    <message>
        <source>This is not a workbook (.xlsx).</source>
        <translation>这不是工作簿 (.xlsx)。</translation>
    </message>
    <message>
        <source>This is a text file, such as comma-separated values, not a workbook (.xlsx).</source>
        <translation>这是文本文件（例如逗号分隔值），不是工作簿 (.xlsx)。</translation>
    </message>
    <message>
        <source>The file is not read: %1.</source>
        <translation>未读取文件：%1。</translation>
    </message>
    <message>
        <source>The workbook cannot be packed: it is too large, or damaged.</source>
        <translation>无法打包工作簿：它太大或已损坏。</translation>
    </message>
    <message>
        <source>A part of the workbook is missing: %1.</source>
        <translation>缺少工作簿的某一部分：%1。</translation>
    </message>
    <message>
        <source>The file is too large.</source>
        <translation>文件太大。</translation>
    </message>
    <message>
        <source>This is an OpenDocument file. Save it as .xlsx.</source>
        <translation>这是 OpenDocument 文件。请另存为 .xlsx。</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <comment>a file and what is wrong with it</comment>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>The file has no name.</source>
        <translation>文件没有名称。</translation>
    </message>
    <message>
        <source>%1: The file is too large.</source>
        <translation>%1：文件太大。</translation>
    </message>
    <message>
        <source>There is no template yet.</source>
        <translation>尚无模板。</translation>
    </message>
    <message>
        <source>There is no name %1 in the workbook.</source>
        <translation>工作簿中没有名称 %1。</translation>
    </message>
    <message>
        <source>%1 is a picture, not a cell.</source>
        <translation>%1 是图片，不是单元格。</translation>
    </message>
    <message>
        <source>%1 is not a picture.</source>
        <translation>%1 不是图片。</translation>
    </message>
    <message>
        <source>A text of %1 bytes is too long to be read.</source>
        <translation>%1 字节的文本过长，无法读取。</translation>
    </message>
    <message>
        <source>%1: This is more than can be read at once.</source>
        <translation>%1：内容过多，无法一次读取。</translation>
    </message>
    <message>
        <source>This is more than a template has memory for, which is %1 MiB.</source>
        <translation>这超出了模板可用的内存 (%1 MiB)。</translation>
    </message>
    <message>
        <source>It is a folder.</source>
        <translation>这是一个文件夹。</translation>
    </message>
    <message>
        <source>It is no regular file.</source>
        <translation>这不是普通文件。</translation>
    </message>
</context>
</TS>
