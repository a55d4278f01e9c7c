#include "Kit.h"
#include "Page.h"
#include "SampleTemplate.h"

#include <Velmora/QcLineEdit.h>
#include <Velmora/QcPrimaryButton.h>
#include <Velmora/QcTertiaryButton.h>
#include <Velmora/XlsxOperator.h>

#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPersistentModelIndex>
#include <QRegularExpression>
#include <QSaveFile>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QVBoxLayout>

#include <algorithm>

using namespace Gallery;
using Velmora::XlsxOperator;

namespace {

enum Column { Name, Kind, Content, Entries, Effect };

/// Elements that a template has of its own accord, such as print areas, are no places to fill.
const QString kOwnNames = QStringLiteral("^(?!_xlnm\\.)");

const QString kWorkbooks = QStringLiteral("Workbooks (*.xlsx)");

/// Lets a cell be edited in a line edit of the kit.
class CellDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem & /*option*/, const QModelIndex &index) const override
    {
        auto *field = new Field(parent);
        field->setAccessibleName(index.model()->headerData(index.column(), Qt::Horizontal).toString());
        field->getLineEdit()->installEventFilter(const_cast<CellDelegate *>(this)); // which has the keyboard
        m_edited = index;
        return field;
    }
    void destroyEditor(QWidget *editor, const QModelIndex &index) const override
    {
        m_edited = QModelIndex();
        QStyledItemDelegate::destroyEditor(editor, index);
    }
    void setEditorData(QWidget *editor, const QModelIndex &index) const override
    {
        static_cast<Field *>(editor)->setText(index.data(Qt::EditRole).toString());
    }
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override
    {
        model->setData(index, static_cast<Field *>(editor)->getText());
    }
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option, const QModelIndex & /*index*/) const override
    {
        QRect place(0, 0, option.rect.width(), editor->height());
        place.moveCenter(option.rect.center());
        editor->setGeometry(place);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        auto *edit = qobject_cast<Velmora::QcLineEdit *>(watched);
        return QStyledItemDelegate::eventFilter(edit ? edit->parent() : watched, event);
    }
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        if (index == m_edited)
            option->text.clear(); // it would show through the field
    }

private:
    mutable QPersistentModelIndex m_edited;
};

class SpreadsheetsPage : public PageWidget
{
public:
    SpreadsheetsPage()
    {
        AddElements();
        AddSaving();
        ShowSample();
    }

private:
    // --- The template ---

    void AddElements()
    {
        Card *card = AddSection(QStringLiteral("Elements of a template"),
                                QStringLiteral("A template is an ordinary workbook in which cells and pictures have names. Double-click a "
                                               "value or a list to change it; a text that begins with a letter becomes a formula. For a "
                                               "picture, type the path of a PNG or JPEG file."));
        QHBoxLayout *row = card->AddRow();
        m_source = MakeElidingLabel(QString(), QcLabel::BodySecondary);
        row->addWidget(m_source, 1);
        auto *sample = new Velmora::QcTertiaryButton;
        sample->setText(QStringLiteral("The sample again"));
        sample->setHorizontalMargin(2 * kGrid);
        connect(sample, &QAbstractButton::clicked, this, [this] { ShowSample(); });
        row->addWidget(sample);
        auto *open = new Velmora::QcTertiaryButton;
        open->setText(QStringLiteral("Open a template"));
        open->setHorizontalMargin(2 * kGrid);
        connect(open, &QAbstractButton::clicked, this, [this] {
            const QString path = QFileDialog::getOpenFileName(this, QStringLiteral("Open a template"), QString(), kWorkbooks);
            if (!path.isEmpty())
                Show(path);
        });
        row->addWidget(open);

        m_table = new QTableWidget(0, 5);
        m_table->setObjectName(QStringLiteral("spreadsheetElements"));
        m_table->setAccessibleName(QStringLiteral("Elements of the template"));
        m_table->setHorizontalHeaderLabels({QStringLiteral("Name"), QStringLiteral("Kind"), QStringLiteral("Value"),
                                            QStringLiteral("Entries of the list"), QStringLiteral("When saved")});
        StyleTable(m_table);
        m_table->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed | QAbstractItemView::AnyKeyPressed);
        m_table->setItemDelegate(new CellDelegate(m_table));
        m_table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
        m_table->setFixedHeight(30 * kGrid);
        card->Body()->addWidget(m_table);
        connect(m_table, &QTableWidget::itemChanged, this, [this](const QTableWidgetItem *item) { ShowEffect(item->row()); });
    }

    void ShowSample()
    {
        const QString path = m_dir.filePath(QStringLiteral("sample.xlsx"));
        if (MakeSampleTemplate(path, m_dir.filePath(QStringLiteral("parts"))))
            Show(path);
    }

    void Show(const QString &path)
    {
        XlsxOperator op;
        if (!Load(op, path, kOwnNames)) {
            Tell(QStringLiteral("%1 cannot be loaded.").arg(QFileInfo(path).fileName()));
            return;
        }
        m_path = path;
        m_source->setText(QFileInfo(path).fileName());
        op.getElementsNameToValueHash(m_elements);
        QStringList names = m_elements.keys();
        std::sort(names.begin(), names.end());
        const QSignalBlocker blocker(m_table);
        m_table->setRowCount(0);
        for (const QString &name : qAsConst(names))
            AddElement(name, m_elements.value(name));
        Tell(QString());
    }

    bool Load(XlsxOperator &op, const QString &path, const QString &filter)
    {
        op.setOldXlsxAbsolutePath(path);
        op.setExtractDirAbsolutePath(m_dir.filePath(QStringLiteral("work")));
        op.setElementNameFilterRegExp(filter);
        return op.load();
    }

    void AddElement(const QString &name, const QVariant &value)
    {
        QString kind = QStringLiteral("cell");
        QString content = value.toString();
        QString entries;
        if (value.canConvert<XlsxOperator::DropDownInfo>()) {
            const auto info = value.value<XlsxOperator::DropDownInfo>();
            kind = QStringLiteral("list");
            content = info.value.toString();
            entries = info.options.join(QLatin1Char(','));
        } else if (value.canConvert<XlsxOperator::PictureInfo>()) {
            kind = QStringLiteral("picture");
            content = value.value<XlsxOperator::PictureInfo>().filePath;
        }
        const int row = m_table->rowCount();
        m_table->insertRow(row);
        const QString texts[] = {name, kind, content, entries, QString()};
        for (int column = Name; column <= Effect; ++column) {
            auto *item = new QTableWidgetItem(texts[column]);
            const bool isOpen = column == Content || (column == Entries && kind != QLatin1String("picture"));
            item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | (isOpen ? Qt::ItemIsEditable : Qt::NoItemFlags));
            item->setData(Qt::UserRole, texts[column]); // to see what changed
            m_table->setItem(row, column, item);
        }
        ShowEffect(row);
    }

    // --- What is typed ---

    bool IsChanged(int row, Column column) const
    {
        const QTableWidgetItem *item = m_table->item(row, column);
        return item->text() != item->data(Qt::UserRole).toString();
    }
    bool IsPicture(int row) const { return m_elements.value(m_table->item(row, Name)->text()).canConvert<XlsxOperator::PictureInfo>(); }

    /// An integer if it is one, else the text.
    static QVariant ContentOf(const QString &text)
    {
        bool isInteger = false;
        const qlonglong number = text.toLongLong(&isInteger);
        return isInteger ? QVariant(number) : QVariant(text);
    }

    QString EffectOf(int row) const
    {
        if (!IsChanged(row, Content))
            return IsChanged(row, Entries) ? QStringLiteral("a new list") : QStringLiteral("stays as it is");
        const QString text = m_table->item(row, Content)->text();
        if (IsPicture(row))
            return QFileInfo(text).isFile() ? QStringLiteral("a new picture") : QStringLiteral("no such file");
        if (ContentOf(text).type() != QVariant::String)
            return QStringLiteral("a number");
        static const QRegularExpression letter(QStringLiteral("^[A-Za-z]"));
        return text.contains(letter) ? QStringLiteral("a formula") : QStringLiteral("a text");
    }

    void ShowEffect(int row)
    {
        const QSignalBlocker blocker(m_table);
        m_table->item(row, Effect)->setText(EffectOf(row));
    }

    // --- Saving ---

    void AddSaving()
    {
        Card *card = AddSection(QStringLiteral("Save what you changed"),
                                QStringLiteral("Only the changed names are loaded and written. The new workbook is read back before it "
                                               "takes its place, so that the file is the old one or the new one, whole."));
        QHBoxLayout *row = card->AddRow(2 * kGrid);
        auto *save = new Velmora::QcPrimaryButton;
        save->setText(QStringLiteral("Save as"));
        save->setHorizontalMargin(2 * kGrid);
        connect(save, &QAbstractButton::clicked, this, [this] {
            const QString path = QFileDialog::getSaveFileName(this, QStringLiteral("Save as"), QString(), kWorkbooks);
            if (!path.isEmpty())
                Tell(SaveAs(path) ? QStringLiteral("Saved to %1.").arg(path) : QStringLiteral("%1 could not be saved.").arg(path));
        });
        row->addWidget(save);
        m_result = MakeElidingLabel(QString(), QcLabel::BodySecondary);
        row->addWidget(m_result, 1);
    }

    void Set(XlsxOperator &op, int row)
    {
        const QString name = m_table->item(row, Name)->text();
        const QString text = m_table->item(row, Content)->text();
        // What was read is not written back: an invalid value leaves the cell as it is.
        const QVariant content = IsChanged(row, Content) ? ContentOf(text) : QVariant();
        if (IsPicture(row)) {
            XlsxOperator::PictureInfo info;
            info.filePath = text;
            op.setPicturesPictureInfo(name, info);
        } else if (IsChanged(row, Entries)) {
            XlsxOperator::DropDownInfo info;
            info.value = content;
            info.options = m_table->item(row, Entries)->text().split(QLatin1Char(','));
            op.setCellsDropDownInfo(name, info);
        } else {
            op.setCellsValue(name, content);
        }
    }

    bool SaveAs(const QString &path)
    {
        QVector<int> rows;
        QStringList names;
        for (int row = 0; row < m_table->rowCount(); ++row) {
            if (!IsChanged(row, Content) && !IsChanged(row, Entries))
                continue;
            rows.append(row);
            names.append(QRegularExpression::escape(m_table->item(row, Name)->text()));
        }
        XlsxOperator op;
        const QString made = m_dir.filePath(QStringLiteral("made.xlsx"));
        if (!Load(op, m_path,
                  names.isEmpty() ? QStringLiteral("(*FAIL)") : QStringLiteral("\\A(?:%1)\\z").arg(names.join(QLatin1Char('|')))))
            return false;
        for (const int row : qAsConst(rows))
            Set(op, row);
        op.setNewXlsxAbsolutePath(made);
        XlsxOperator check;
        if (!op.save() || !Load(check, made, kOwnNames))
            return false;
        QFile source(made);
        QSaveFile target(path);
        return source.open(QIODevice::ReadOnly) && target.open(QIODevice::WriteOnly) && target.write(source.readAll()) == source.size()
            && target.commit();
    }

    void Tell(const QString &text)
    {
        if (m_result)
            m_result->setText(text);
    }

    QTemporaryDir m_dir;
    QString m_path;
    QHash<QString, QVariant> m_elements;
    QTableWidget *m_table = nullptr;
    QcLabel *m_source = nullptr;
    QcLabel *m_result = nullptr;
};

const PageRegistrar registrar({QStringLiteral("spreadsheets"), QStringLiteral("Tools"), QStringLiteral("Spreadsheets"),
                               QStringLiteral("Named cells, lists and pictures of a workbook, read and filled in."), 920,
                               [] { return new SpreadsheetsPage; }});

} // namespace
