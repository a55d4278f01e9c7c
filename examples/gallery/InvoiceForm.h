#pragma once

#include <Velmora/XlsxTemplate.h>

#include <QImage>
#include <QStringList>
#include <QVector>
#include <QWidget>

QT_BEGIN_NAMESPACE
class QGridLayout;
class QTableWidget;
class QVBoxLayout;
QT_END_NAMESPACE

namespace Velmora {
class QcDoubleSpinBox;
class QcSelector;
} // namespace Velmora

namespace Gallery {

class Canvas;
class Field;
class Segmented;

/// What a user types for an invoice: the sample's customer, date, terms, items, shipping and logo.
class InvoiceForm : public QWidget
{
    Q_OBJECT

public:
    /// Offers the entries of the list in \a invoice, and one that is not among them; the columns are those of its row.
    explicit InvoiceForm(const Velmora::XlsxTemplate &invoice, QWidget *parent = nullptr);

    /// Fills \a invoice. What it refuses stays as it was there, and is told in its words.
    QStringList Fill(Velmora::XlsxTemplate &invoice);

Q_SIGNALS:
    void SignalChanged();

private:
    void AddFields(QGridLayout *grid, const QStringList &terms);
    Field *AddField(QGridLayout *grid, int row, const QString &name, const QString &text);
    void AddLogo(QVBoxLayout *column);
    void AddItems(QVBoxLayout *column, const QStringList &columns);
    void AddItem(const QStringList &texts);
    QVector<QVariantList> Items() const;
    bool FillLogo(Velmora::XlsxTemplate &invoice);
    void ShowLogo(const Velmora::XlsxTemplate &invoice);

    Field *m_customer = nullptr;
    Field *m_date = nullptr;
    Field *m_logo = nullptr;
    Velmora::QcSelector *m_terms = nullptr;
    Velmora::QcDoubleSpinBox *m_shipping = nullptr;
    Segmented *m_fit = nullptr;
    Canvas *m_preview = nullptr;
    QTableWidget *m_items = nullptr;
    QImage m_image; // what the invoice shows
};

} // namespace Gallery
