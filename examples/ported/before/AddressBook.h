#pragma once

#include "Book.h"

#include <QWidget>

QT_BEGIN_NAMESPACE
class QCheckBox;
class QComboBox;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTextEdit;
QT_END_NAMESPACE

/// An address book: a list of names, and a form with what is known of the chosen one.
class AddressBook : public QWidget
{
    Q_OBJECT

public:
    explicit AddressBook(QWidget *parent = nullptr);

private:
    void MakeList();
    void MakeForm();
    void LayOut();
    void Show(const QString &name);
    void Begin();
    void Save();
    void Remove();
    void Find();
    void Relist(const QString &chosen);
    QString ChosenName() const;
    bool Ask(const QString &title, const QString &question);
    void Tell(const QString &title, const QString &text);

    Book m_book;
    QListWidget *m_names;
    QLineEdit *m_name;
    QComboBox *m_kind;
    QTextEdit *m_address;
    QCheckBox *m_card;
    QPushButton *m_add;
    QPushButton *m_find;
    QPushButton *m_remove;
    QPushButton *m_save;
};
