#include "AddressBook.h"

#include <Velmora/ModalDialogs.h>
#include <Velmora/QcCheckBox.h>
#include <Velmora/QcDialog.h>
#include <Velmora/QcLabel.h>
#include <Velmora/QcLineEdit.h>
#include <Velmora/QcLineEditFrame.h>
#include <Velmora/QcPrimaryButton.h>
#include <Velmora/QcSecondaryButton.h>
#include <Velmora/QcSelector.h>
#include <Velmora/QcStyleManager.h>
#include <Velmora/QcTextEditFrame.h>

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QTextEdit>
#include <QVBoxLayout>

using namespace Velmora;

namespace {

template <typename Button>
Button *MakeButton(const QString &text)
{
    auto *button = new Button;
    button->setText(text);
    button->setHorizontalMargin(12); // or it would be as narrow as its text
    return button;
}

QcLabel *MakeLabel(const QString &text, QWidget *buddy = nullptr)
{
    auto *label = new QcLabel;
    label->setType(QcLabel::Body); // or it would be black
    label->setText(text);
    label->setBuddy(buddy);
    return label;
}

/// A name may be long. What the kit has for texts of several lines wraps within words, so that this is Qt's, in the table's colour.
QLabel *MakeWrappedText(const QString &text)
{
    auto *label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    QcStyleManager::GetInstance()->RegisterStyleSheet(label,
                                                      QStringLiteral("QLabel { color: ${text/text_primary}; font: 12px 'Open Sans'; }"));
    return label;
}

} // namespace

AddressBook::AddressBook(QWidget *parent)
    : QcWindow(parent)
    , m_names(new QListWidget)
    , m_name(new QcLineEditFrame)
    , m_kind(new QcSelector)
    , m_address(new QcTextEditFrame)
    , m_card(new QcCheckBox)
    , m_add(MakeButton<QcSecondaryButton>(tr("&New")))
    , m_find(MakeButton<QcSecondaryButton>(tr("&Find...")))
    , m_remove(MakeButton<QcSecondaryButton>(tr("&Remove")))
    , m_save(MakeButton<QcPrimaryButton>(tr("&Save")))
{
    setTitle(tr("Address book"));
    setWindowTitle(tr("Address book"));
    resize(600, 400);
    MakeList();
    MakeForm();
    LayOut();
    Show(QString());
    m_name->setFocus();
}

void AddressBook::MakeList()
{
    m_names->setObjectName(QStringLiteral("names"));
    m_names->setAccessibleName(tr("Names"));
    // Its colours are the table's; its border it loses as all plain frames do.
    QcStyleManager::GetInstance()->RegisterStyleSheet(m_names,
                                                      QStringLiteral("QListView { border: 1px solid ${border/border_secondary}; }"));
    m_add->setObjectName(QStringLiteral("add"));
    m_find->setObjectName(QStringLiteral("find"));
    m_remove->setObjectName(QStringLiteral("remove"));
    connect(m_names, &QListWidget::currentTextChanged, this, &AddressBook::Show);
    connect(m_add, &QAbstractButton::clicked, this, &AddressBook::Begin);
    connect(m_find, &QAbstractButton::clicked, this, &AddressBook::Find);
    connect(m_remove, &QAbstractButton::clicked, this, &AddressBook::Remove);
}

void AddressBook::MakeForm()
{
    m_name->setObjectName(QStringLiteral("name"));
    m_name->setFixedHeight(m_kind->height()); // height and text as in the next row
    m_name->getLineEdit()->setTextMargins(-3, 0, 0, 0);
    m_kind->setObjectName(QStringLiteral("kind"));
    m_kind->addItems({tr("Family"), tr("Friends"), tr("Work")});
    m_address->setObjectName(QStringLiteral("address"));
    m_address->getTextEdit()->setTabChangesFocus(true);
    m_card->setObjectName(QStringLiteral("card"));
    m_card->setText(tr("Send a &card at New Year"));
    m_save->setObjectName(QStringLiteral("save"));
    connect(m_name, &QcLineEditFrame::signalTextChanged, this,
            [this](const QString &name) { m_save->setEnabled(!name.trimmed().isEmpty()); });
    connect(m_name->getLineEdit(), &QLineEdit::returnPressed, m_save, &QAbstractButton::click);
    connect(m_save, &QAbstractButton::clicked, this, &AddressBook::Save);
}

void AddressBook::LayOut()
{
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(m_add);
    buttons->addWidget(m_find);
    buttons->addWidget(m_remove);
    auto *left = new QVBoxLayout;
    left->addWidget(m_names);
    left->addLayout(buttons);

    auto *form = new QFormLayout;
    form->addRow(MakeLabel(tr("N&ame"), m_name), m_name);
    form->addRow(MakeLabel(tr("&Kind"), m_kind), m_kind);
    form->addRow(MakeLabel(tr("A&ddress"), m_address), m_address);
    form->addRow(m_card);
    auto *right = new QVBoxLayout;
    right->addLayout(form);
    right->addWidget(m_save, 0, Qt::AlignRight);

    auto *row = new QHBoxLayout(getContentFrame());
    row->addLayout(left, 1);
    row->addLayout(right, 2);
}

// --- What the user does ---

void AddressBook::Show(const QString &name)
{
    const Entry entry = m_book.value(name);
    m_name->setText(name);
    m_kind->setCurrentIndex(qMax(0, m_kind->findText(entry.kind)));
    m_address->getTextEdit()->setPlainText(entry.address);
    m_card->setChecked(entry.getsCard);
    m_save->setEnabled(!name.isEmpty());
    m_remove->setEnabled(!name.isEmpty());
}

void AddressBook::Begin()
{
    m_names->setCurrentRow(-1);
    Show(QString());
    m_name->setFocus();
}

void AddressBook::Save()
{
    const QString name = m_name->getText().trimmed();
    const QString before = ChosenName();
    if (name != before && m_book.contains(name) && !Ask(tr("Replace"), tr("%1 is in the book already. Replace the entry?").arg(name)))
        return;
    m_book.remove(before);
    m_book.insert(name, {m_kind->currentText(), m_address->getText(), m_card->isChecked()});
    Relist(name);
}

void AddressBook::Remove()
{
    const QString name = ChosenName();
    if (!Ask(tr("Remove"), tr("Remove %1 from the book?").arg(name)))
        return;
    m_book.remove(name);
    Relist(QString());
}

void AddressBook::Find()
{
    QcDialog dialog(this);
    SetUp(dialog, tr("Find"), tr("A part of the name"));
    auto *field = new QcLineEditFrame;
    field->setAccessibleName(tr("A part of the name"));
    dialog.getContentFrame()->layout()->addWidget(field);
    field->setFocus();
    const bool isWanted = Velmora::exec(&dialog, this) == QDialog::Accepted;
    const QString part = field->getText();
    if (!isWanted || part.isEmpty())
        return;
    const QList<QListWidgetItem *> found = m_names->findItems(part, Qt::MatchContains);
    if (found.isEmpty())
        Tell(tr("Find"), tr("Nobody is called %1.").arg(part));
    else
        m_names->setCurrentItem(found.first());
}

void AddressBook::Relist(const QString &chosen)
{
    m_names->clear();
    m_names->addItems(m_book.keys());
    m_names->setCurrentRow(int(m_book.keys().indexOf(chosen)));
    Show(chosen);
}

QString AddressBook::ChosenName() const
{
    const QListWidgetItem *item = m_names->currentItem();
    return item ? item->text() : QString();
}

void AddressBook::SetUp(QcDialog &dialog, const QString &title, const QString &text)
{
    dialog.setTitle(title);
    dialog.setWindowTitle(title);
    dialog.setBottomFrameVisible(true);
    dialog.setOkButtonText(tr("OK"));
    dialog.setCancelButtonText(tr("Cancel"));
    auto *column = new QVBoxLayout(dialog.getContentFrame());
    column->setAlignment(Qt::AlignVCenter);
    column->addWidget(MakeWrappedText(text));
    dialog.resize(400, 200);
}

bool AddressBook::Ask(const QString &title, const QString &question)
{
    QcDialog dialog(this);
    SetUp(dialog, title, question);
    dialog.setOkButtonText(tr("Yes"));
    dialog.setCancelButtonText(tr("No"));
    return Velmora::exec(&dialog, this) == QDialog::Accepted;
}

void AddressBook::Tell(const QString &title, const QString &text)
{
    QcDialog dialog(this);
    SetUp(dialog, title, text);
    dialog.setCancelButtonVisible(false);
    Velmora::exec(&dialog, this);
}
