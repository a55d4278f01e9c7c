<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
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
        <translation>Bouton</translation>
    </message>
    <message>
        <source>dialog</source>
        <translation>Boîte de dialogue</translation>
    </message>
    <message>
        <source>TextLabel</source>
        <translation>Titre</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Réduire</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>Agrandir</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
</context>
<context>
    <name>QcDockAreaTabFrame</name>
    <message>
        <source>Previous tab</source>
        <translation>Onglet précédent</translation>
    </message>
    <message>
        <source>Next tab</source>
        <translation>Onglet suivant</translation>
    </message>
</context>
<context>
    <name>QcDockIndicator</name>
    <message>
        <source>Left of %1</source>
        <translation>À gauche de %1</translation>
    </message>
    <message>
        <source>Right of %1</source>
        <translation>À droite de %1</translation>
    </message>
    <message>
        <source>Above %1</source>
        <translation>Au-dessus de %1</translation>
    </message>
    <message>
        <source>Below %1</source>
        <translation>Au-dessous de %1</translation>
    </message>
    <message>
        <source>Tab beside %1</source>
        <translation>Onglet à côté de %1</translation>
    </message>
    <message>
        <source>Left edge of all around %1</source>
        <translation>Bord gauche de l’ensemble autour de %1</translation>
    </message>
    <message>
        <source>Right edge of all around %1</source>
        <translation>Bord droit de l’ensemble autour de %1</translation>
    </message>
    <message>
        <source>Top edge of all around %1</source>
        <translation>Bord supérieur de l’ensemble autour de %1</translation>
    </message>
    <message>
        <source>Bottom edge of all around %1</source>
        <translation>Bord inférieur de l’ensemble autour de %1</translation>
    </message>
    <message>
        <source>%1, %2 of %3</source>
        <translation>%1, %2 sur %3</translation>
    </message>
    <message>
        <source>empty area</source>
        <translation>zone vide</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Gauche</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Droite</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>Haut</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>Bas</translation>
    </message>
    <message>
        <source>As a tab</source>
        <translation>Sous forme d’onglet</translation>
    </message>
    <message>
        <source>Left edge</source>
        <translation>Bord gauche</translation>
    </message>
    <message>
        <source>Right edge</source>
        <translation>Bord droit</translation>
    </message>
    <message>
        <source>Top edge</source>
        <translation>Bord supérieur</translation>
    </message>
    <message>
        <source>Bottom edge</source>
        <translation>Bord inférieur</translation>
    </message>
</context>
<context>
    <name>QcDockWidget</name>
    <message>
        <source>Move to</source>
        <translation>Déplacer vers</translation>
    </message>
    <message>
        <source>Float</source>
        <translation>Détacher</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Close %1</source>
        <translation>Fermer %1</translation>
    </message>
</context>
<context>
    <name>QcNotification</name>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>First page</source>
        <translation>Première page</translation>
    </message>
    <message>
        <source>Previous page</source>
        <translation>Page précédente</translation>
    </message>
    <message>
        <source>Next page</source>
        <translation>Page suivante</translation>
    </message>
    <message>
        <source>Last page</source>
        <translation>Dernière page</translation>
    </message>
</context>
<context>
    <name>QcSplitterHandle</name>
    <message>
        <source>Between %1 and %2</source>
        <translation>Entre %1 et %2</translation>
    </message>
</context>
<context>
    <name>QcWindow</name>
    <message>
        <source>window</source>
        <translation>Fenêtre</translation>
    </message>
    <message>
        <source>TextLabel</source>
        <translation>Titre</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Réduire</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>Agrandir</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
</context>
<context>
    <name>Velmora::QcDockWidget</name>
    <message>
        <source>PleaseMoveToTheIMsg</source>
        <translation>Faites glisser sur un repère</translation>
    </message>
</context>
<context>
    <name>Velmora::QcLoadingDialog</name>
    <message>
        <source>Loading...</source>
        <translation>Chargement...</translation>
    </message>
</context>
<context>
    <name>Velmora::QcProgressDialog</name>
    <message>
        <source>LoadingMsg</source>
        <translation>Chargement en cours, veuillez patienter</translation>
    </message>
</context>
<context>
    <name>Velmora::QcTextEditLimiter</name>
    <message>
        <source>PleaseEnterMsg</source>
        <translation>Saisissez un texte</translation>
    </message>
</context>
<context>
    <name>Velmora::QcToast</name>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
</context>
<context>
    <name>VelmoraDesigner</name>
    <message>
        <source>Colours of states</source>
        <translation>Couleurs des états</translation>
    </message>
    <message>
        <source>Choose %1...</source>
        <translation>Choisir %1...</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>&amp;Clair</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>&amp;Sombre</translation>
    </message>
    <message>
        <source>High contrast, l&amp;ight</source>
        <translation>Contraste élevé, c&amp;lair</translation>
    </message>
    <message>
        <source>High contrast, d&amp;ark</source>
        <translation>Contraste élevé, s&amp;ombre</translation>
    </message>
    <message>
        <source>Other &amp;file...</source>
        <translation>Autre &amp;fichier...</translation>
    </message>
    <message>
        <source>%1 has no colours.</source>
        <translation>%1 ne contient aucune couleur.</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Rechercher</translation>
    </message>
    <message>
        <source>A token, #RRGGBB, a colour&apos;s name, or one of them with an alpha: ${brand/brand, 0.5}</source>
        <translation>Un jeton, #RRGGBB, le nom d&apos;une couleur ou l&apos;un d&apos;eux avec une opacité : ${brand/brand, 0.5}</translation>
    </message>
</context>
<context>
    <name>XlsxTemplate</name>
    <message>
        <source>The date is not between %1 and 9999-12-31.</source>
        <translation>La date n’est pas comprise entre %1 et 9999-12-31.</translation>
    </message>
    <message numerus="yes">
        <source>The text has %n characters; a cell holds %1.</source>
        <translation>
            <numerusform>Le texte a %n caractère&#xa0;; une cellule en contient au plus %1.</numerusform>
            <numerusform>Le texte a %n caractères&#xa0;; une cellule en contient au plus %1.</numerusform>
        </translation>
    </message>
    <message>
        <source>The number is infinite, or none at all.</source>
        <translation>Le nombre est infini, ou n’en est pas un.</translation>
    </message>
    <message>
        <source>The time is none.</source>
        <translation>L’heure n’est pas valide.</translation>
    </message>
    <message>
        <source>A value of the type %1 is none for a cell.</source>
        <translation>Une valeur du type %1 ne convient pas à une cellule.</translation>
    </message>
    <message>
        <source>%1 is not the name of a row, nor of a table.</source>
        <translation>%1 n’est le nom ni d’une ligne ni d’un tableau.</translation>
    </message>
    <message>
        <source>A sheet has no more than %1 rows.</source>
        <translation>Une feuille a au plus %1 lignes.</translation>
    </message>
    <message>
        <source>Row %1: %2</source>
        <comment>a row and what is wrong in it</comment>
        <translation>Ligne %1&#xa0;: %2</translation>
    </message>
    <message numerus="yes">
        <source>There are %1 values, but %2 has %n columns.</source>
        <translation>
            <numerusform>Il y a %1 valeurs, mais %2 a %n colonne.</numerusform>
            <numerusform>Il y a %1 valeurs, mais %2 a %n colonnes.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Row %1 of %2 is too large to be repeated %n times.</source>
        <translation>
            <numerusform>La ligne %1 de %2 est trop grande pour être répétée %n fois.</numerusform>
            <numerusform>La ligne %1 de %2 est trop grande pour être répétée %n fois.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 has no room for %n rows: it ends with row %2, and row %3 would have to move down.</source>
        <translation>
            <numerusform>%1 n’a pas de place pour %n ligne&#xa0;: la feuille se termine à la ligne %2, et la ligne %3 devrait descendre.</numerusform>
            <numerusform>%1 n’a pas de place pour %n lignes&#xa0;: la feuille se termine à la ligne %2, et la ligne %3 devrait descendre.</numerusform>
        </translation>
    </message>
    <message>
        <source>The merged cells %1 reach over more than the row that is to be repeated.</source>
        <translation>Les cellules fusionnées %1 dépassent la ligne à répéter.</translation>
    </message>
    <message>
        <source>The formula in %1 is shared with another cell, and missing there, or too long.</source>
        <translation>La formule dans %1 est partagée avec une autre cellule, où elle manque ou est trop longue.</translation>
    </message>
    <message>
        <source>The data table %1 reaches over the row that is to be repeated.</source>
        <translation>La table de données %1 s’étend sur la ligne à répéter.</translation>
    </message>
    <message>
        <source>The array formula in %1 reaches over the row that is to be repeated.</source>
        <translation>La formule matricielle dans %1 s’étend sur la ligne à répéter.</translation>
    </message>
    <message>
        <source>The table %1 (%2) stands across the row that is to be repeated.</source>
        <translation>Le tableau %1 (%2) se trouve en travers de la ligne à répéter.</translation>
    </message>
    <message>
        <source>The pivot table %1 (%2) would have to move with the rows, and cannot.</source>
        <translation>Le tableau croisé dynamique %1 (%2) devrait se déplacer avec les lignes et ne le peut pas.</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <comment>a cell and what is wrong in it</comment>
        <translation>%1&#xa0;: %2</translation>
    </message>
    <message>
        <source>It is the header of a column of the table %1.</source>
        <translation>C’est l’en-tête d’une colonne du tableau %1.</translation>
    </message>
    <message>
        <source>It is one of several cells of one array formula or data table (%1).</source>
        <translation>C’est une des cellules d’une même formule matricielle ou table de données (%1).</translation>
    </message>
    <message>
        <source>It does not show, as a part of merged cells (%1).</source>
        <translation>Elle ne se voit pas, car elle fait partie de cellules fusionnées (%1).</translation>
    </message>
    <message>
        <source>The list has no entries.</source>
        <translation>La liste n’a pas d’entrées.</translation>
    </message>
    <message>
        <source>An entry of a list must not have a comma: %1</source>
        <translation>Une entrée de liste ne doit pas contenir de virgule&#xa0;: %1</translation>
    </message>
    <message>
        <source>An entry of a list must not be empty, begin or end with a blank, or have line ends or control characters: &quot;%1&quot;</source>
        <translation>Une entrée de liste ne doit pas être vide, ni commencer ou finir par une espace, ni contenir de fins de ligne ou de caractères de contrôle&#xa0;: &quot;%1&quot;</translation>
    </message>
    <message numerus="yes">
        <source>The entries of the list have %n characters with their commas; a list holds %1.</source>
        <translation>
            <numerusform>Les entrées de la liste ont %n caractère avec leurs virgules&#xa0;; une liste en contient au plus %1.</numerusform>
            <numerusform>Les entrées de la liste ont %n caractères avec leurs virgules&#xa0;; une liste en contient au plus %1.</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 is not in the list of the cell: %2</source>
        <translation>%1 n’est pas dans la liste de la cellule&#xa0;: %2</translation>
    </message>
    <message>
        <source>These are %1 cells; %2 can be filled at once.</source>
        <translation>Cela fait %1 cellules&#xa0;; on peut en remplir %2 à la fois.</translation>
    </message>
    <message>
        <source>The name stands for a constant, not for a cell.</source>
        <translation>Le nom désigne une constante, pas une cellule.</translation>
    </message>
    <message>
        <source>The name leads to another workbook.</source>
        <translation>Le nom mène à un autre classeur.</translation>
    </message>
    <message>
        <source>The name leads nowhere: its cells were deleted (#REF!).</source>
        <translation>Le nom ne mène nulle part&#xa0;: ses cellules ont été supprimées (#REF!).</translation>
    </message>
    <message>
        <source>The name stands for a formula, not for a cell.</source>
        <translation>Le nom désigne une formule, pas une cellule.</translation>
    </message>
    <message>
        <source>The table has no data rows.</source>
        <translation>Le tableau n’a pas de lignes de données.</translation>
    </message>
    <message>
        <source>The name leads to a sheet that there is not, or that has no cells.</source>
        <translation>Le nom mène à une feuille qui n’existe pas ou qui n’a pas de cellules.</translation>
    </message>
    <message numerus="yes">
        <source>The formula has %n characters; a cell holds %1.</source>
        <translation>
            <numerusform>La formule a %n caractère&#xa0;; une cellule en contient au plus %1.</numerusform>
            <numerusform>La formule a %n caractères&#xa0;; une cellule en contient au plus %1.</numerusform>
        </translation>
    </message>
    <message>
        <source>The formula is empty.</source>
        <translation>La formule est vide.</translation>
    </message>
    <message>
        <source>The name stands for several places; rows fill one range.</source>
        <translation>Le nom désigne plusieurs endroits&#xa0;; des lignes remplissent une seule plage.</translation>
    </message>
    <message>
        <source>The columns have no names: there is no row of texts above.</source>
        <translation>Les colonnes n’ont pas de noms&#xa0;: il n’y a pas de ligne de textes au-dessus.</translation>
    </message>
    <message>
        <source>There is no column %1; there are %2.</source>
        <translation>Il n’y a pas de colonne %1&#xa0;; il y a %2.</translation>
    </message>
    <message>
        <source>The picture is linked to a file outside the workbook.</source>
        <translation>L’image est liée à un fichier hors du classeur.</translation>
    </message>
    <message>
        <source>The picture has no image in the workbook.</source>
        <translation>L’image n’a pas de données dans le classeur.</translation>
    </message>
    <message>
        <source>This is an SVG image, which a workbook holds only beside another; use a PNG.</source>
        <translation>C’est une image SVG, qu’un classeur ne contient qu’à côté d’une autre&#xa0;; utilisez un PNG.</translation>
    </message>
    <message>
        <source>This is no image of a kind that a workbook holds: PNG, JPEG, GIF, BMP, TIFF, EMF or placeable WMF.</source>
        <translation>Ce n’est pas une image d’un type qu’un classeur contient&#xa0;: PNG, JPEG, GIF, BMP, TIFF, EMF ou WMF plaçable.</translation>
    </message>
    <message>
        <source>The workbook&apos;s styles are damaged.</source>
        <translation>Les styles du classeur sont endommagés.</translation>
    </message>
    <message>
        <source>This is a binary workbook (.xlsb). Save it as .xlsx.</source>
        <translation>C’est un classeur binaire (.xlsb). Enregistrez-le au format .xlsx.</translation>
    </message>
    <message>
        <source>This is another kind of document, not a workbook (.xlsx).</source>
        <translation>C’est un document d’un autre type, pas un classeur (.xlsx).</translation>
    </message>
    <message>
        <source>This is an archive, but not a workbook (.xlsx).</source>
        <translation>C’est une archive, mais pas un classeur (.xlsx).</translation>
    </message>
    <message>
        <source>A part of the workbook is too large: %1.</source>
        <translation>Une partie du classeur est trop grande&#xa0;: %1.</translation>
    </message>
    <message>
        <source>The sheet %1 has no cells.</source>
        <translation>La feuille %1 n’a pas de cellules.</translation>
    </message>
    <message>
        <source>A part of the workbook is damaged: %1.</source>
        <translation>Une partie du classeur est endommagée&#xa0;: %1.</translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <translation>Le fichier est vide.</translation>
    </message>
    <message>
        <source>The file is damaged: its end is missing.</source>
        <translation>Le fichier est endommagé&#xa0;: la fin manque.</translation>
    </message>
    <message>
        <source>The workbook is protected by a password. Save it without one.</source>
        <translation>Le classeur est protégé par un mot de passe. Enregistrez-le sans mot de passe.</translation>
    </message>
    <message>
        <source>This is a workbook in the old binary format (.xls). Save it as .xlsx.</source>
        <translation>C’est un classeur à l’ancien format binaire (.xls). Enregistrez-le au format .xlsx.</translation>
    </message>
    <message>
        <source>This is not a workbook (.xlsx).</source>
        <translation>Ce n’est pas un classeur (.xlsx).</translation>
    </message>
    <message>
        <source>This is a text file, such as comma-separated values, not a workbook (.xlsx).</source>
        <translation>C’est un fichier texte, par exemple de valeurs séparées par des virgules, pas un classeur (.xlsx).</translation>
    </message>
    <message>
        <source>The file is not read: %1.</source>
        <translation>Le fichier n’est pas lu&#xa0;: %1.</translation>
    </message>
    <message>
        <source>The workbook cannot be packed: it is too large, or damaged.</source>
        <translation>Le classeur ne peut pas être compressé&#xa0;: il est trop grand, ou endommagé.</translation>
    </message>
    <message>
        <source>A part of the workbook is missing: %1.</source>
        <translation>Une partie du classeur manque&#xa0;: %1.</translation>
    </message>
    <message>
        <source>The file is too large.</source>
        <translation>Le fichier est trop grand.</translation>
    </message>
    <message>
        <source>This is an OpenDocument file. Save it as .xlsx.</source>
        <translation>C’est un fichier OpenDocument. Enregistrez-le au format .xlsx.</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <comment>a file and what is wrong with it</comment>
        <translation>%1&#xa0;: %2</translation>
    </message>
    <message>
        <source>The file has no name.</source>
        <translation>Le fichier n’a pas de nom.</translation>
    </message>
    <message>
        <source>%1: The file is too large.</source>
        <translation>%1&#xa0;: Le fichier est trop grand.</translation>
    </message>
    <message>
        <source>There is no template yet.</source>
        <translation>Il n’y a pas encore de modèle.</translation>
    </message>
    <message>
        <source>There is no name %1 in the workbook.</source>
        <translation>Il n’y a pas de nom %1 dans le classeur.</translation>
    </message>
    <message>
        <source>%1 is a picture, not a cell.</source>
        <translation>%1 est une image, pas une cellule.</translation>
    </message>
    <message>
        <source>%1 is not a picture.</source>
        <translation>%1 n’est pas une image.</translation>
    </message>
    <message>
        <source>A text of %1 bytes is too long to be read.</source>
        <translation>Un texte de %1 octets est trop long pour être lu.</translation>
    </message>
    <message>
        <source>%1: This is more than can be read at once.</source>
        <translation>%1&#xa0;: il y en a plus que ce qui peut être lu en une fois.</translation>
    </message>
    <message>
        <source>This is more than a template has memory for, which is %1 MiB.</source>
        <translation>C’est plus que la mémoire dont dispose un modèle, qui est de %1 Mio.</translation>
    </message>
    <message>
        <source>It is a folder.</source>
        <translation>C’est un dossier.</translation>
    </message>
    <message>
        <source>It is no regular file.</source>
        <translation>Ce n’est pas un fichier ordinaire.</translation>
    </message>
</context>
</TS>
