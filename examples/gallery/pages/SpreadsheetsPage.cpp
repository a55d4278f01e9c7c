#include "InvoiceForm.h"
#include "Kit.h"
#include "OperatorElements.h"
#include "Page.h"
#include "SampleTemplate.h"

#include <Velmora/QcPrimaryButton.h>
#include <Velmora/QcStyleManager.h>
#include <Velmora/XlsxTemplate.h>

#include <QDate>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QStyle>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QVBoxLayout>

using namespace Gallery;
using Velmora::XlsxTemplate;

namespace {

constexpr int kRowHeight = 4 * kGrid;

QString KindOf(const XlsxTemplate &invoice, const QString &name)
{
    switch (invoice.kindOf(name)) {
    case XlsxTemplate::Kind::Cell:
        return invoice.hasFormula(name) ? QStringLiteral("cell with a formula") : QStringLiteral("cell");
    case XlsxTemplate::Kind::Range:
        return QStringLiteral("range");
    case XlsxTemplate::Kind::Places:
        return QStringLiteral("places");
    case XlsxTemplate::Kind::List:
        return QStringLiteral("list: ") + invoice.options(name).join(QStringLiteral(", "));
    case XlsxTemplate::Kind::Picture:
        return QStringLiteral("picture");
    default:
        return invoice.unusableReason(name);
    }
}

QString ContentOf(const XlsxTemplate &invoice, const QString &name)
{
    const QVariant value = invoice.value(name);
    if (invoice.kindOf(name) == XlsxTemplate::Kind::Picture) {
        const QImage image = QImage::fromData(value.toByteArray());
        return QStringLiteral("%1 \u00D7 %2 pixels").arg(image.width()).arg(image.height());
    }
    if (value.userType() == QMetaType::QVariantList) {
        QStringList firsts;
        const QVariantList rows = value.toList();
        for (const QVariant &row : rows)
            firsts.append(row.toList().value(0).toString());
        return (rows.size() == 1 ? QStringLiteral("%1 row: %2") : QStringLiteral("%1 rows: %2"))
            .arg(rows.size())
            .arg(firsts.join(QStringLiteral(", ")));
    }
    if (value.userType() == QMetaType::QDate)
        return value.toDate().toString(Qt::ISODate);
    if (!value.isValid() && invoice.hasFormula(name))
        return QStringLiteral("computed when it is opened");
    return value.toString();
}

class SpreadsheetsPage : public PageWidget
{
public:
    SpreadsheetsPage()
    {
        const QString path = m_dir.filePath(QStringLiteral("sample.xlsx"));
        const bool isMade = MakeSampleTemplate(path, m_dir.filePath(QStringLiteral("parts")));
        if (!isMade || !m_invoice.load(path))
            return;
        m_blank = m_invoice.save();
        AddForm();
        AddNames();
        AddOperator(path);
        Refill();
    }

private:
    void AddForm()
    {
        Card *card =
            AddSection(QStringLiteral("Fill in an invoice"),
                       QStringLiteral("Its template is an ordinary workbook in which cells, a row, a list and a picture have names. "
                                      "Try a date that is none, terms that are not in the list, or a file that is no picture: what "
                                      "does not fit is refused, and said why."));
        m_form = new InvoiceForm(m_invoice);
        card->Body()->addWidget(m_form);
        connect(m_form, &InvoiceForm::SignalChanged, this, &SpreadsheetsPage::Refill);
        card->Body()->addWidget(MakeDivider());

        QHBoxLayout *row = card->AddRow(2 * kGrid);
        m_save = new Velmora::QcPrimaryButton;
        m_save->setObjectName(QStringLiteral("invoiceSave"));
        m_save->setText(QStringLiteral("Save as"));
        m_save->setHorizontalMargin(3 * kGrid);
        row->addWidget(m_save);
        m_message = new QLabel;
        m_message->setObjectName(QStringLiteral("invoiceMessage"));
        m_message->setTextFormat(Qt::PlainText);
        m_message->setWordWrap(true);
        Velmora::QcStyleManager::GetInstance()->RegisterStyleSheet(
            m_message, QStringLiteral("QLabel { color: ${text/text_secondary}; } QLabel[isRefusal=true] { color: ${tip/danger}; }"));
        row->addWidget(m_message, 1);
        connect(m_save, &QAbstractButton::clicked, this, [this] {
            const QString path = QFileDialog::getSaveFileName(this, QStringLiteral("Save the invoice"), QStringLiteral("invoice-1001.xlsx"),
                                                              QStringLiteral("Workbooks (*.xlsx)"));
            if (path.isEmpty())
                return;
            const bool isSaved = m_invoice.save(path);
            Tell(isSaved ? QStringLiteral("Saved to %1.").arg(path) : m_invoice.errorString(), !isSaved);
        });
    }

    void AddNames()
    {
        Card *card = AddSection(QStringLiteral("Its names"),
                                QStringLiteral("What a host sees of the workbook: no sheets, no rows, no XML. Add an item, and what stands "
                                               "below its row moves down."));
        m_names = new QTableWidget(0, 4);
        m_names->setObjectName(QStringLiteral("invoiceNames"));
        m_names->setAccessibleName(QStringLiteral("Names in the template"));
        m_names->setHorizontalHeaderLabels(
            {QStringLiteral("Name"), QStringLiteral("Kind"), QStringLiteral("Stands at"), QStringLiteral("Holds")});
        StyleTable(m_names);
        m_names->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
        card->Body()->addWidget(m_names);
    }

    void AddOperator(const QString &path)
    {
        Card *card = AddSection(QStringLiteral("The same by XlsxOperator"),
                                QStringLiteral("An older class, for the hosts that have it. Double-click a value or a list; a text that "
                                               "begins with a letter becomes a formula, and a picture takes the path of a file."));
        auto *elements = new OperatorElements;
        card->Body()->addWidget(elements);
        elements->Show(path);
    }

    /// Fills a fresh template: what was typed before leaves no trace.
    void Refill()
    {
        m_invoice.load(m_blank);
        const QStringList refusals = m_form->Fill(m_invoice);
        m_save->setEnabled(refusals.isEmpty());
        Tell(refusals.isEmpty() ? QStringLiteral("Everything is filled in.") : refusals.join(QLatin1Char('\n')), !refusals.isEmpty());
        ShowNames();
    }

    void ShowNames()
    {
        const QStringList names = m_invoice.names();
        m_names->setRowCount(int(names.size()));
        m_names->setFixedHeight(int((names.size() + 1) * kRowHeight));
        for (int row = 0; row < names.size(); ++row) {
            const QString &name = names.at(row);
            const QString texts[] = {name, KindOf(m_invoice, name), m_invoice.reference(name), ContentOf(m_invoice, name)};
            for (int column = 0; column < 4; ++column)
                m_names->setItem(row, column, new QTableWidgetItem(texts[column]));
        }
    }

    void Tell(const QString &text, bool isRefusal)
    {
        m_message->setText(text);
        m_message->setProperty("isRefusal", isRefusal);
        m_message->style()->polish(m_message);
    }

    QTemporaryDir m_dir;
    QByteArray m_blank;
    XlsxTemplate m_invoice;
    InvoiceForm *m_form = nullptr;
    Velmora::QcPrimaryButton *m_save = nullptr;
    QLabel *m_message = nullptr;
    QTableWidget *m_names = nullptr;
};

const PageRegistrar registrar({QStringLiteral("spreadsheets"), QStringLiteral("Tools"), QStringLiteral("Spreadsheets"),
                               QStringLiteral("Named cells, rows, lists and pictures of a workbook, filled in."), 920,
                               [] { return new SpreadsheetsPage; }});

} // namespace
