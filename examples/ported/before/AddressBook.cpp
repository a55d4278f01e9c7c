#include "AddressBook.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTextEdit>
#include <QVBoxLayout>

AddressBook::AddressBook(QWidget *parent)
    : QWidget(parent)
    , m_names(new QListWidget)
    , m_name(new QLineEdit)
    , m_kind(new QComboBox)
    , m_address(new QTextEdit)
    , m_card(new QCheckBox(tr("Send a &card at New Year")))
    , m_add(new QPushButton(tr("&New")))
    , m_find(new QPushButton(tr("&Find...")))
    , m_remove(new QPushButton(tr("&Remove")))
    , m_save(new QPushButton(tr("&Save")))
{
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
    m_add->setObjectName(QStringLiteral("add"));
    m_find->setObjectName(QStringLiteral("find"));
    m_remove->setObjectName(QStringLiteral("remove"));
    connect(m_names, &QListWidget::currentTextChanged, this, &AddressBook::Show);
    connect(m_add, &QPushButton::clicked, this, &AddressBook::Begin);
    connect(m_find, &QPushButton::clicked, this, &AddressBook::Find);
    connect(m_remove, &QPushButton::clicked, this, &AddressBook::Remove);
}

void AddressBook::MakeForm()
{
    m_name->setObjectName(QStringLiteral("name"));
    m_kind->setObjectName(QStringLiteral("kind"));
    m_kind->addItems({tr("Family"), tr("Friends"), tr("Work")});
    m_address->setObjectName(QStringLiteral("address"));
    m_address->setTabChangesFocus(true);
    m_card->setObjectName(QStringLiteral("card"));
    m_save->setObjectName(QStringLiteral("save"));
    connect(m_name, &QLineEdit::textChanged, this, [this](const QString &name) { m_save->setEnabled(!name.trimmed().isEmpty()); });
    connect(m_name, &QLineEdit::returnPressed, m_save, &QPushButton::click);
    connect(m_save, &QPushButton::clicked, this, &AddressBook::Save);
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
    form->addRow(tr("N&ame"), m_name);
    form->addRow(tr("&Kind"), m_kind);
    form->addRow(tr("A&ddress"), m_address);
    form->addRow(m_card);
    auto *right = new QVBoxLayout;
    right->addLayout(form);
    right->addWidget(m_save, 0, Qt::AlignRight);

    auto *row = new QHBoxLayout(this);
    row->addLayout(left, 1);
    row->addLayout(right, 2);
}

// --- What the user does ---

void AddressBook::Show(const QString &name)
{
    const Entry entry = m_book.value(name);
    m_name->setText(name);
    m_kind->setCurrentIndex(qMax(0, m_kind->findText(entry.kind)));
    m_address->setPlainText(entry.address);
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
    const QString name = m_name->text().trimmed();
    const QString before = ChosenName();
    if (name != before && m_book.contains(name) && !Ask(tr("Replace"), tr("%1 is in the book already. Replace the entry?").arg(name)))
        return;
    m_book.remove(before);
    m_book.insert(name, {m_kind->currentText(), m_address->toPlainText(), m_card->isChecked()});
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
    bool isWanted = false;
    const QString part = QInputDialog::getText(this, tr("Find"), tr("A part of the name"), QLineEdit::Normal, QString(), &isWanted);
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

bool AddressBook::Ask(const QString &title, const QString &question)
{
    return QMessageBox::question(this, title, question, QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes) == QMessageBox::Yes;
}

void AddressBook::Tell(const QString &title, const QString &text)
{
    QMessageBox::information(this, title, text);
}
