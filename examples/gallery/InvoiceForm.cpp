#include "InvoiceForm.h"

#include "CellDelegate.h"
#include "Kit.h"

#include <Velmora/QcDoubleSpinBox.h>
#include <Velmora/QcSelector.h>
#include <Velmora/QcStyleManager.h>
#include <Velmora/QcTertiaryButton.h>

#include <QDate>
#include <QFileDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLocale>
#include <QPainter>
#include <QTableWidget>
#include <QVBoxLayout>

namespace Gallery {

using Velmora::XlsxTemplate;

namespace {

constexpr int kLabelWidth = 10 * kGrid;
constexpr int kFieldWidth = 26 * kGrid;
constexpr int kFrame = 10 * kGrid; ///< of the logo, as in the template

void AddName(QGridLayout *grid, int row, const QString &name)
{
    QcLabel *label = MakeLabel(name, QcLabel::Body);
    label->setFixedWidth(kLabelWidth);
    grid->addWidget(label, row, 0);
}

/// A number if it is one, else the text; nothing for an empty one, so that the cell is emptied.
QVariant ContentOf(const QString &text)
{
    bool isNumber = false;
    const qlonglong whole = text.toLongLong(&isNumber);
    if (isNumber)
        return whole;
    const double number = QLocale::c().toDouble(text, &isNumber);
    return isNumber ? QVariant(number) : text.isEmpty() ? QVariant() : QVariant(text);
}

} // namespace

InvoiceForm::InvoiceForm(const XlsxTemplate &invoice, QWidget *parent)
    : QWidget(parent)
{
    auto *rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(3 * kGrid);
    auto *columns = new QHBoxLayout;
    columns->setSpacing(6 * kGrid);
    rows->addLayout(columns);
    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(2 * kGrid);
    grid->setVerticalSpacing(2 * kGrid);
    columns->addLayout(grid);
    AddFields(grid, invoice.options(QStringLiteral("Terms")));
    auto *logo = new QVBoxLayout;
    logo->setSpacing(2 * kGrid);
    columns->addLayout(logo, 1);
    AddLogo(logo);
    auto *items = new QVBoxLayout;
    items->setSpacing(kGrid);
    rows->addLayout(items);
    AddItems(items, invoice.columnNames(QStringLiteral("Items")));
}

// --- Fields ---

Field *InvoiceForm::AddField(QGridLayout *grid, int row, const QString &name, const QString &text)
{
    auto *field = new Field;
    field->setObjectName(QStringLiteral("invoice%1").arg(name));
    field->setAccessibleName(name);
    field->setFixedWidth(kFieldWidth);
    field->setText(text);
    AddName(grid, row, name);
    grid->addWidget(field, row, 1);
    connect(field, &Field::signalTextChanged, this, &InvoiceForm::SignalChanged);
    return field;
}

void InvoiceForm::AddFields(QGridLayout *grid, const QStringList &terms)
{
    m_customer = AddField(grid, 0, QStringLiteral("Customer"), QStringLiteral("ACME Ltd"));
    m_date = AddField(grid, 1, QStringLiteral("Date"), QStringLiteral("2026-11-22"));
    m_date->setPlaceholderText(QStringLiteral("2026-11-22"));

    m_terms = new Velmora::QcSelector;
    m_terms->setObjectName(QStringLiteral("invoiceTerms"));
    m_terms->setAccessibleName(QStringLiteral("Terms"));
    m_terms->setFixedWidth(kFieldWidth);
    m_terms->addItems(terms);
    m_terms->addItem(QStringLiteral("At once")); // for the template to refuse
    AddName(grid, 2, QStringLiteral("Terms"));
    grid->addWidget(m_terms, 2, 1);
    connect(m_terms, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &InvoiceForm::SignalChanged);

    m_shipping = new Velmora::QcDoubleSpinBox;
    m_shipping->bSetBorder(true);
    m_shipping->setObjectName(QStringLiteral("invoiceShipping"));
    m_shipping->setAccessibleName(QStringLiteral("Shipping"));
    m_shipping->setFixedSize(kFieldWidth, 3 * kGrid);
    m_shipping->setMaximum(9999.99);
    m_shipping->setValue(9.9);
    AddName(grid, 3, QStringLiteral("Shipping"));
    grid->addWidget(m_shipping, 3, 1);
    connect(m_shipping, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this, &InvoiceForm::SignalChanged);
}

// --- The logo ---

void InvoiceForm::AddLogo(QVBoxLayout *column)
{
    auto *row = new QHBoxLayout;
    row->setSpacing(kGrid);
    row->addWidget(MakeLabel(QStringLiteral("Logo"), QcLabel::Body));
    row->addSpacing(kGrid);
    m_logo = new Field;
    m_logo->setObjectName(QStringLiteral("invoiceLogo"));
    m_logo->setAccessibleName(QStringLiteral("Logo"));
    m_logo->setPlaceholderText(QStringLiteral("That of the template"));
    row->addWidget(m_logo, 1);
    auto *choose = MakeAction(QStringLiteral("Choose a file"));
    row->addWidget(choose);
    column->addLayout(row);

    auto *shown = new QHBoxLayout;
    shown->setSpacing(2 * kGrid);
    m_preview = new Canvas([this](QPainter &painter, const QRect &rect) {
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        QRect place(QPoint(), m_image.size().scaled(rect.size(), m_fit->CurrentIndex() == 0 ? Qt::KeepAspectRatio : Qt::IgnoreAspectRatio));
        place.moveCenter(rect.center());
        painter.drawImage(place, m_image);
        painter.setPen(QPen(Velmora::QcStyleManager::GetInstance()->GetColor(QStringLiteral("border/border_tertairy")), 1.0));
        painter.drawRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5));
    });
    m_preview->setFixedSize(kFrame, kFrame);
    shown->addWidget(m_preview);
    m_fit = new Segmented({QStringLiteral("Keep its proportions"), QStringLiteral("Fill the frame")});
    m_fit->SetCurrentIndex(0);
    shown->addWidget(m_fit);
    shown->addStretch();
    column->addLayout(shown);
    column->addStretch();

    connect(m_logo, &Field::signalTextChanged, this, &InvoiceForm::SignalChanged);
    connect(m_fit, &Segmented::SignalCurrentChanged, this, &InvoiceForm::SignalChanged);
    connect(choose, &QAbstractButton::clicked, this, [this] {
        const QString path = QFileDialog::getOpenFileName(this, QStringLiteral("Choose a logo"), QString(),
                                                          QStringLiteral("Pictures (*.png *.jpg *.gif *.bmp)"));
        if (!path.isEmpty())
            m_logo->setText(path);
    });
}

bool InvoiceForm::FillLogo(XlsxTemplate &invoice)
{
    const auto fit = m_fit->CurrentIndex() == 0 ? XlsxTemplate::PictureFit::Fit : XlsxTemplate::PictureFit::Stretch;
    return m_logo->getText().isEmpty() || invoice.setPicture(QStringLiteral("Logo"), m_logo->getText(), fit);
}

void InvoiceForm::ShowLogo(const XlsxTemplate &invoice)
{
    m_image.loadFromData(invoice.value(QStringLiteral("Logo")).toByteArray());
    m_preview->update();
}

// --- The items ---

void InvoiceForm::AddItems(QVBoxLayout *column, const QStringList &columns)
{
    m_items = new QTableWidget(0, int(columns.size()));
    m_items->setObjectName(QStringLiteral("invoiceItems"));
    m_items->setAccessibleName(QStringLiteral("Items"));
    m_items->setHorizontalHeaderLabels(columns);
    StyleTable(m_items);
    m_items->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed | QAbstractItemView::AnyKeyPressed);
    m_items->setItemDelegate(new CellDelegate(m_items));
    m_items->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    m_items->setFixedHeight(16 * kGrid);
    column->addWidget(m_items);
    AddItem({QStringLiteral("Chair"), QStringLiteral("4"), QStringLiteral("12.5")});
    AddItem({QStringLiteral("Desk, oak"), QStringLiteral("1"), QStringLiteral("300")});
    connect(m_items, &QTableWidget::itemChanged, this, &InvoiceForm::SignalChanged);

    auto *row = new QHBoxLayout;
    row->setSpacing(kGrid);
    column->addLayout(row);
    auto *add = MakeAction(QStringLiteral("Add an item"));
    auto *remove = MakeAction(QStringLiteral("Remove the last item"));
    add->setObjectName(QStringLiteral("invoiceAddItem"));
    remove->setObjectName(QStringLiteral("invoiceRemoveItem"));
    row->addWidget(add);
    row->addWidget(remove);
    row->addStretch();
    connect(add, &QAbstractButton::clicked, this, [this] {
        AddItem({QStringLiteral("Item %1").arg(m_items->rowCount() + 1), QStringLiteral("1"), QStringLiteral("1")});
        m_items->setCurrentCell(m_items->rowCount() - 1, 0);
        Q_EMIT SignalChanged();
    });
    connect(remove, &QAbstractButton::clicked, this, [this] {
        m_items->setRowCount(m_items->rowCount() - 1);
        Q_EMIT SignalChanged();
    });
    connect(this, &InvoiceForm::SignalChanged, remove, [this, remove] { remove->setEnabled(m_items->rowCount() > 0); });
}

void InvoiceForm::AddItem(const QStringList &texts)
{
    const QSignalBlocker blocker(m_items);
    const int row = m_items->rowCount();
    m_items->insertRow(row);
    for (int column = 0; column < m_items->columnCount(); ++column)
        m_items->setItem(row, column, new QTableWidgetItem(texts.value(column)));
}

QVector<QVariantList> InvoiceForm::Items() const
{
    QVector<QVariantList> rows;
    for (int row = 0; row < m_items->rowCount(); ++row) {
        QVariantList values;
        for (int column = 0; column < m_items->columnCount(); ++column)
            values.append(ContentOf(m_items->item(row, column)->text()));
        rows.append(values);
    }
    return rows;
}

// --- Filling in ---

QStringList InvoiceForm::Fill(XlsxTemplate &invoice)
{
    QStringList refusals;
    const auto note = [&](bool isDone) {
        if (!isDone)
            refusals.append(invoice.errorString());
        return isDone;
    };
    note(invoice.setValue(QStringLiteral("Customer"), m_customer->getText()));
    m_date->setWarning(!note(invoice.setValue(QStringLiteral("Date"), QDate::fromString(m_date->getText(), Qt::ISODate))));
    note(invoice.setValue(QStringLiteral("Terms"), m_terms->currentText()));
    note(invoice.setValue(QStringLiteral("Shipping"), m_shipping->value()));
    note(invoice.setRows(QStringLiteral("Items"), Items()));
    m_logo->setWarning(!note(FillLogo(invoice)));
    ShowLogo(invoice); // after the reason of a refusal was taken, which a question replaces
    return refusals;
}

} // namespace Gallery
