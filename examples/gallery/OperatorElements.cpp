#include "OperatorElements.h"

#include "CellDelegate.h"
#include "Kit.h"

#include <Velmora/QcTertiaryButton.h>

#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QRegularExpression>
#include <QSaveFile>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace Gallery {

using Velmora::XlsxOperator;

namespace {

enum Column { Name, Kind, Content, Entries, Effect };

/// Elements that a template has of its own accord, such as print areas, are no places to fill.
const QString kOwnNames = QStringLiteral("^(?!_xlnm\\.)");

const QString kWorkbooks = QStringLiteral("Workbooks (*.xlsx)");

/// An integer if it is one, else the text.
QVariant ContentOf(const QString &text)
{
    bool isInteger = false;
    const qlonglong number = text.toLongLong(&isInteger);
    return isInteger ? QVariant(number) : QVariant(text);
}

} // namespace

OperatorElements::OperatorElements(QWidget *parent)
    : QWidget(parent)
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(2 * kGrid);

    m_table = new QTableWidget(0, 5);
    m_table->setObjectName(QStringLiteral("spreadsheetElements"));
    m_table->setAccessibleName(QStringLiteral("Elements of the template"));
    m_table->setHorizontalHeaderLabels({QStringLiteral("Name"), QStringLiteral("Kind"), QStringLiteral("Value"),
                                        QStringLiteral("Entries of the list"), QStringLiteral("When saved")});
    StyleTable(m_table);
    m_table->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed | QAbstractItemView::AnyKeyPressed);
    m_table->setItemDelegate(new CellDelegate(m_table));
    m_table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    m_table->setFixedHeight(20 * kGrid);
    column->addWidget(m_table);
    connect(m_table, &QTableWidget::itemChanged, this, [this](const QTableWidgetItem *item) { ShowEffect(item->row()); });

    auto *row = new QHBoxLayout;
    row->setSpacing(kGrid);
    column->addLayout(row);
    m_result = MakeElidingLabel(QString(), Velmora::QcLabel::BodySecondary);
    row->addWidget(m_result, 1);
    auto *open = MakeAction(QStringLiteral("Open a template"));
    row->addWidget(open);
    connect(open, &QAbstractButton::clicked, this, [this] {
        const QString path = QFileDialog::getOpenFileName(this, QStringLiteral("Open a template"), QString(), kWorkbooks);
        if (!path.isEmpty())
            Show(path);
    });
    auto *save = MakeAction(QStringLiteral("Save as"));
    row->addWidget(save);
    connect(save, &QAbstractButton::clicked, this, [this] {
        const QString path = QFileDialog::getSaveFileName(this, QStringLiteral("Save as"), QString(), kWorkbooks);
        if (!path.isEmpty())
            m_result->setText((SaveAs(path) ? QStringLiteral("Saved to %1.") : QStringLiteral("%1 could not be saved.")).arg(path));
    });
}

// --- The template ---

void OperatorElements::Show(const QString &path)
{
    XlsxOperator op;
    if (!Load(op, path, kOwnNames)) {
        m_result->setText(QStringLiteral("%1 cannot be loaded.").arg(QFileInfo(path).fileName()));
        return;
    }
    m_path = path;
    op.getElementsNameToValueHash(m_elements);
    QStringList names = m_elements.keys();
    std::sort(names.begin(), names.end());
    const QSignalBlocker blocker(m_table);
    m_table->setRowCount(0);
    for (const QString &name : qAsConst(names))
        AddElement(name, m_elements.value(name));
    m_result->setText(QFileInfo(path).fileName());
}

bool OperatorElements::Load(XlsxOperator &op, const QString &path, const QString &filter)
{
    op.setOldXlsxAbsolutePath(path);
    op.setExtractDirAbsolutePath(m_dir.filePath(QStringLiteral("work")));
    op.setElementNameFilterRegExp(filter);
    return op.load();
}

void OperatorElements::AddElement(const QString &name, const QVariant &value)
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

bool OperatorElements::IsChanged(int row, int column) const
{
    const QTableWidgetItem *item = m_table->item(row, column);
    return item->text() != item->data(Qt::UserRole).toString();
}

bool OperatorElements::IsPicture(int row) const
{
    return m_elements.value(m_table->item(row, Name)->text()).canConvert<XlsxOperator::PictureInfo>();
}

QString OperatorElements::EffectOf(int row) const
{
    if (!IsChanged(row, Content))
        return IsChanged(row, Entries) ? QStringLiteral("a new list") : QStringLiteral("stays as it is");
    const QString text = m_table->item(row, Content)->text();
    if (IsPicture(row))
        return QFileInfo(text).isFile() ? QStringLiteral("a new picture") : QStringLiteral("no such file");
    if (ContentOf(text).userType() != QMetaType::QString)
        return QStringLiteral("a number");
    static const QRegularExpression letter(QStringLiteral("^[A-Za-z]"));
    return text.contains(letter) ? QStringLiteral("a formula") : QStringLiteral("a text");
}

void OperatorElements::ShowEffect(int row)
{
    const QSignalBlocker blocker(m_table);
    m_table->item(row, Effect)->setText(EffectOf(row));
}

// --- Saving ---

void OperatorElements::Set(XlsxOperator &op, int row)
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

/// Only the changed names are loaded and written, and what was written is read back before it takes the file's place.
bool OperatorElements::SaveAs(const QString &path)
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
    if (!Load(op, m_path, names.isEmpty() ? QStringLiteral("(*FAIL)") : QStringLiteral("\\A(?:%1)\\z").arg(names.join(QLatin1Char('|')))))
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
        && target.flush() && target.commit();
}

} // namespace Gallery
