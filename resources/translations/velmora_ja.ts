<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
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
        <translation>ボタン</translation>
    </message>
    <message>
        <source>dialog</source>
        <translation>ダイアログ</translation>
    </message>
    <message>
        <source>TextLabel</source>
        <translation>タイトル</translation>
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
        <translation>閉じる</translation>
    </message>
</context>
<context>
    <name>QcDockAreaTabFrame</name>
    <message>
        <source>Previous tab</source>
        <translation>前のタブ</translation>
    </message>
    <message>
        <source>Next tab</source>
        <translation>次のタブ</translation>
    </message>
</context>
<context>
    <name>QcDockIndicator</name>
    <message>
        <source>Left of %1</source>
        <translation>%1 の左</translation>
    </message>
    <message>
        <source>Right of %1</source>
        <translation>%1 の右</translation>
    </message>
    <message>
        <source>Above %1</source>
        <translation>%1 の上</translation>
    </message>
    <message>
        <source>Below %1</source>
        <translation>%1 の下</translation>
    </message>
    <message>
        <source>Tab beside %1</source>
        <translation>%1 の隣のタブ</translation>
    </message>
    <message>
        <source>Left edge of all around %1</source>
        <translation>%1 を含む全体の左端</translation>
    </message>
    <message>
        <source>Right edge of all around %1</source>
        <translation>%1 を含む全体の右端</translation>
    </message>
    <message>
        <source>Top edge of all around %1</source>
        <translation>%1 を含む全体の上端</translation>
    </message>
    <message>
        <source>Bottom edge of all around %1</source>
        <translation>%1 を含む全体の下端</translation>
    </message>
    <message>
        <source>%1, %2 of %3</source>
        <translation>%1、%3 件中 %2 件目</translation>
    </message>
    <message>
        <source>empty area</source>
        <translation>空の領域</translation>
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
        <translation>タブとして</translation>
    </message>
    <message>
        <source>Left edge</source>
        <translation>左端</translation>
    </message>
    <message>
        <source>Right edge</source>
        <translation>右端</translation>
    </message>
    <message>
        <source>Top edge</source>
        <translation>上端</translation>
    </message>
    <message>
        <source>Bottom edge</source>
        <translation>下端</translation>
    </message>
</context>
<context>
    <name>QcDockWidget</name>
    <message>
        <source>Move to</source>
        <translation>移動先</translation>
    </message>
    <message>
        <source>Float</source>
        <translation>切り離す</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Close %1</source>
        <translation>%1 を閉じる</translation>
    </message>
</context>
<context>
    <name>QcNotification</name>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>First page</source>
        <translation>最初のページ</translation>
    </message>
    <message>
        <source>Previous page</source>
        <translation>前のページ</translation>
    </message>
    <message>
        <source>Next page</source>
        <translation>次のページ</translation>
    </message>
    <message>
        <source>Last page</source>
        <translation>最後のページ</translation>
    </message>
</context>
<context>
    <name>QcSplitterHandle</name>
    <message>
        <source>Between %1 and %2</source>
        <translation>%1 と %2 の間</translation>
    </message>
</context>
<context>
    <name>QcWindow</name>
    <message>
        <source>window</source>
        <translation>ウィンドウ</translation>
    </message>
    <message>
        <source>TextLabel</source>
        <translation>タイトル</translation>
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
        <translation>閉じる</translation>
    </message>
</context>
<context>
    <name>Velmora::QcDockWidget</name>
    <message>
        <source>PleaseMoveToTheIMsg</source>
        <translation>マークにドラッグしてください</translation>
    </message>
</context>
<context>
    <name>Velmora::QcLoadingDialog</name>
    <message>
        <source>Loading...</source>
        <translation>読み込み中...</translation>
    </message>
</context>
<context>
    <name>Velmora::QcProgressDialog</name>
    <message>
        <source>LoadingMsg</source>
        <translation>読み込み中です。しばらくお待ちください</translation>
    </message>
</context>
<context>
    <name>Velmora::QcTextEditLimiter</name>
    <message>
        <source>PleaseEnterMsg</source>
        <translation>テキストを入力してください</translation>
    </message>
</context>
<context>
    <name>Velmora::QcToast</name>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
</context>
<context>
    <name>VelmoraDesigner</name>
    <message>
        <source>Colours of states</source>
        <translation>状態ごとの色</translation>
    </message>
    <message>
        <source>Choose %1...</source>
        <translation>%1 を選択...</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>明るい(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>暗い(&amp;D)</translation>
    </message>
    <message>
        <source>High contrast, l&amp;ight</source>
        <translation>ハイコントラスト、明るい(&amp;I)</translation>
    </message>
    <message>
        <source>High contrast, d&amp;ark</source>
        <translation>ハイコントラスト、暗い(&amp;A)</translation>
    </message>
    <message>
        <source>Other &amp;file...</source>
        <translation>別のファイル(&amp;F)...</translation>
    </message>
    <message>
        <source>%1 has no colours.</source>
        <translation>%1 に色がありません。</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>検索</translation>
    </message>
    <message>
        <source>A token, #RRGGBB, a colour&apos;s name, or one of them with an alpha: ${brand/brand, 0.5}</source>
        <translation>トークン、#RRGGBB、色名、またはそのいずれかに不透明度を付けたもの: ${brand/brand, 0.5}</translation>
    </message>
</context>
<context>
    <name>XlsxTemplate</name>
    <message>
        <source>The date is not between %1 and 9999-12-31.</source>
        <translation>日付が %1 から 9999-12-31 の範囲にありません。</translation>
    </message>
    <message numerus="yes">
        <source>The text has %n characters; a cell holds %1.</source>
        <translation>
            <numerusform>テキストは %n 文字ですが、セルに入るのは %1 文字までです。</numerusform>
        </translation>
    </message>
    <message>
        <source>The number is infinite, or none at all.</source>
        <translation>数値が無限大であるか、数値ではありません。</translation>
    </message>
    <message>
        <source>The time is none.</source>
        <translation>時刻が正しくありません。</translation>
    </message>
    <message>
        <source>A value of the type %1 is none for a cell.</source>
        <translation>%1 型の値はセルに入れられません。</translation>
    </message>
    <message>
        <source>%1 is not the name of a row, nor of a table.</source>
        <translation>%1 は行の名前でもテーブルの名前でもありません。</translation>
    </message>
    <message>
        <source>A sheet has no more than %1 rows.</source>
        <translation>シートの行数は %1 行までです。</translation>
    </message>
    <message>
        <source>Row %1: %2</source>
        <comment>a row and what is wrong in it</comment>
        <translation>%1 行目: %2</translation>
    </message>
    <message numerus="yes">
        <source>There are %1 values, but %2 has %n columns.</source>
        <translation>
            <numerusform>値は %1 個ですが、%2 の列は %n 列です。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Row %1 of %2 is too large to be repeated %n times.</source>
        <translation>
            <numerusform>%2 の %1 行目は大きすぎて %n 回繰り返せません。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 has no room for %n rows: it ends with row %2, and row %3 would have to move down.</source>
        <translation>
            <numerusform>%1 には %n 行分の余地がありません。最終行は %2 行目で、%3 行目を下へ移動する必要があります。</numerusform>
        </translation>
    </message>
    <message>
        <source>The merged cells %1 reach over more than the row that is to be repeated.</source>
        <translation>結合セル %1 が、繰り返す行からはみ出しています。</translation>
    </message>
    <message>
        <source>The formula in %1 is shared with another cell, and missing there, or too long.</source>
        <translation>%1 の数式は別のセルと共有されていますが、そこにないか、長すぎます。</translation>
    </message>
    <message>
        <source>The data table %1 reaches over the row that is to be repeated.</source>
        <translation>データ テーブル %1 が、繰り返す行にまたがっています。</translation>
    </message>
    <message>
        <source>The array formula in %1 reaches over the row that is to be repeated.</source>
        <translation>%1 の配列数式が、繰り返す行にまたがっています。</translation>
    </message>
    <message>
        <source>The table %1 (%2) stands across the row that is to be repeated.</source>
        <translation>テーブル %1 (%2) が、繰り返す行をまたいでいます。</translation>
    </message>
    <message>
        <source>The pivot table %1 (%2) would have to move with the rows, and cannot.</source>
        <translation>ピボットテーブル %1 (%2) は行とともに移動する必要がありますが、移動できません。</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <comment>a cell and what is wrong in it</comment>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>It is the header of a column of the table %1.</source>
        <translation>テーブル %1 の列見出しです。</translation>
    </message>
    <message>
        <source>It is one of several cells of one array formula or data table (%1).</source>
        <translation>1 つの配列数式またはデータ テーブル (%1) に属する複数のセルの 1 つです。</translation>
    </message>
    <message>
        <source>It does not show, as a part of merged cells (%1).</source>
        <translation>結合セル (%1) の一部であるため表示されません。</translation>
    </message>
    <message>
        <source>The list has no entries.</source>
        <translation>リストに項目がありません。</translation>
    </message>
    <message>
        <source>An entry of a list must not have a comma: %1</source>
        <translation>リストの項目にコンマは使えません: %1</translation>
    </message>
    <message>
        <source>An entry of a list must not be empty, begin or end with a blank, or have line ends or control characters: &quot;%1&quot;</source>
        <translation>リストの項目は、空であったり、空白で始まるか終わったり、改行や制御文字を含んだりしてはいけません: &quot;%1&quot;</translation>
    </message>
    <message numerus="yes">
        <source>The entries of the list have %n characters with their commas; a list holds %1.</source>
        <translation>
            <numerusform>リストの項目はコンマを含めて %n 文字ですが、リストに入るのは %1 文字までです。</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 is not in the list of the cell: %2</source>
        <translation>%1 はセルのリストにありません: %2</translation>
    </message>
    <message>
        <source>These are %1 cells; %2 can be filled at once.</source>
        <translation>セルは %1 個ですが、一度に入力できるのは %2 個までです。</translation>
    </message>
    <message>
        <source>The name stands for a constant, not for a cell.</source>
        <translation>この名前はセルではなく定数を表しています。</translation>
    </message>
    <message>
        <source>The name leads to another workbook.</source>
        <translation>この名前は別のブックを指しています。</translation>
    </message>
    <message>
        <source>The name leads nowhere: its cells were deleted (#REF!).</source>
        <translation>この名前の指すセルは削除されています (#REF!)。</translation>
    </message>
    <message>
        <source>The name stands for a formula, not for a cell.</source>
        <translation>この名前はセルではなく数式を表しています。</translation>
    </message>
    <message>
        <source>The table has no data rows.</source>
        <translation>テーブルにデータ行がありません。</translation>
    </message>
    <message>
        <source>The name leads to a sheet that there is not, or that has no cells.</source>
        <translation>この名前の指すシートは、存在しないか、セルがありません。</translation>
    </message>
    <message numerus="yes">
        <source>The formula has %n characters; a cell holds %1.</source>
        <translation>
            <numerusform>数式は %n 文字ですが、セルに入るのは %1 文字までです。</numerusform>
        </translation>
    </message>
    <message>
        <source>The formula is empty.</source>
        <translation>数式が空です。</translation>
    </message>
    <message>
        <source>The name stands for several places; rows fill one range.</source>
        <translation>この名前は複数の場所を表していますが、行で埋められるのは 1 つの範囲です。</translation>
    </message>
    <message>
        <source>The columns have no names: there is no row of texts above.</source>
        <translation>列に名前がありません。上に見出しの行がありません。</translation>
    </message>
    <message>
        <source>There is no column %1; there are %2.</source>
        <translation>列 %1 はありません。あるのは %2 です。</translation>
    </message>
    <message>
        <source>The picture is linked to a file outside the workbook.</source>
        <translation>図はブックの外のファイルにリンクされています。</translation>
    </message>
    <message>
        <source>The picture has no image in the workbook.</source>
        <translation>図の画像データがブックにありません。</translation>
    </message>
    <message>
        <source>This is an SVG image, which a workbook holds only beside another; use a PNG.</source>
        <translation>これは SVG 画像で、ブックには別の画像と一緒にしか入れられません。PNG を使ってください。</translation>
    </message>
    <message>
        <source>This is no image of a kind that a workbook holds: PNG, JPEG, GIF, BMP, TIFF, EMF or placeable WMF.</source>
        <translation>ブックに入れられる種類の画像ではありません: PNG、JPEG、GIF、BMP、TIFF、EMF、配置可能な WMF。</translation>
    </message>
    <message>
        <source>The workbook&apos;s styles are damaged.</source>
        <translation>ブックのスタイルが壊れています。</translation>
    </message>
    <message>
        <source>This is a binary workbook (.xlsb). Save it as .xlsx.</source>
        <translation>これはバイナリ ブック (.xlsb) です。.xlsx として保存してください。</translation>
    </message>
    <message>
        <source>This is another kind of document, not a workbook (.xlsx).</source>
        <translation>これは別の種類の文書で、ブック (.xlsx) ではありません。</translation>
    </message>
    <message>
        <source>This is an archive, but not a workbook (.xlsx).</source>
        <translation>これはアーカイブですが、ブック (.xlsx) ではありません。</translation>
    </message>
    <message>
        <source>A part of the workbook is too large: %1.</source>
        <translation>ブックの一部が大きすぎます: %1。</translation>
    </message>
    <message>
        <source>The sheet %1 has no cells.</source>
        <translation>シート %1 にはセルがありません。</translation>
    </message>
    <message>
        <source>A part of the workbook is damaged: %1.</source>
        <translation>ブックの一部が壊れています: %1。</translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <translation>ファイルが空です。</translation>
    </message>
    <message>
        <source>The file is damaged: its end is missing.</source>
        <translation>ファイルが壊れています。末尾がありません。</translation>
    </message>
    <message>
        <source>The workbook is protected by a password. Save it without one.</source>
        <translation>ブックはパスワードで保護されています。パスワードなしで保存してください。</translation>
    </message>
    <message>
        <source>This is a workbook in the old binary format (.xls). Save it as .xlsx.</source>
        <translation>これは古いバイナリ形式 (.xls) のブックです。.xlsx として保存してください。</translation>
    </message>
    <message>
        <source>This is not a workbook (.xlsx).</source>
        <translation>これはブック (.xlsx) ではありません。</translation>
    </message>
    <message>
        <source>This is a text file, such as comma-separated values, not a workbook (.xlsx).</source>
        <translation>これはコンマ区切り値などのテキスト ファイルで、ブック (.xlsx) ではありません。</translation>
    </message>
    <message>
        <source>The file is not read: %1.</source>
        <translation>ファイルは読み込まれません: %1。</translation>
    </message>
    <message>
        <source>The workbook cannot be packed: it is too large, or damaged.</source>
        <translation>ブックを圧縮できません。大きすぎるか、壊れています。</translation>
    </message>
    <message>
        <source>A part of the workbook is missing: %1.</source>
        <translation>ブックの一部がありません: %1。</translation>
    </message>
    <message>
        <source>The file is too large.</source>
        <translation>ファイルが大きすぎます。</translation>
    </message>
    <message>
        <source>This is an OpenDocument file. Save it as .xlsx.</source>
        <translation>これは OpenDocument ファイルです。.xlsx として保存してください。</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <comment>a file and what is wrong with it</comment>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>The file has no name.</source>
        <translation>ファイルに名前がありません。</translation>
    </message>
    <message>
        <source>%1: The file is too large.</source>
        <translation>%1: ファイルが大きすぎます。</translation>
    </message>
    <message>
        <source>There is no template yet.</source>
        <translation>テンプレートがまだありません。</translation>
    </message>
    <message>
        <source>There is no name %1 in the workbook.</source>
        <translation>ブックに名前 %1 はありません。</translation>
    </message>
    <message>
        <source>%1 is a picture, not a cell.</source>
        <translation>%1 は図であり、セルではありません。</translation>
    </message>
    <message>
        <source>%1 is not a picture.</source>
        <translation>%1 は図ではありません。</translation>
    </message>
    <message>
        <source>A text of %1 bytes is too long to be read.</source>
        <translation>%1 バイトのテキストは長すぎて読み取れません。</translation>
    </message>
    <message>
        <source>%1: This is more than can be read at once.</source>
        <translation>%1: 一度に読み取れる量を超えています。</translation>
    </message>
    <message>
        <source>This is more than a template has memory for, which is %1 MiB.</source>
        <translation>テンプレートが使えるメモリ (%1 MiB) を超えています。</translation>
    </message>
    <message>
        <source>It is a folder.</source>
        <translation>これはフォルダーです。</translation>
    </message>
    <message>
        <source>It is no regular file.</source>
        <translation>これは通常のファイルではありません。</translation>
    </message>
</context>
</TS>
