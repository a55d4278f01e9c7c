#pragma once

#include "Book.h"

#include <Velmora/QcWindow.h>

QT_BEGIN_NAMESPACE
class QListWidget;
QT_END_NAMESPACE

namespace Velmora {
class QcCheckBox;
class QcDialog;
class QcLineEditFrame;
class QcPrimaryButton;
class QcSecondaryButton;
class QcSelector;
class QcTextEditFrame;
} // namespace Velmora

/// An address book: a list of names, and a form with what is known of the chosen one.
class AddressBook : public Velmora::QcWindow
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
    void SetUp(Velmora::QcDialog &dialog, const QString &title, const QString &text);
    bool Ask(const QString &title, const QString &question);
    void Tell(const QString &title, const QString &text);

    Book m_book;
    QListWidget *m_names;
    Velmora::QcLineEditFrame *m_name;
    Velmora::QcSelector *m_kind;
    Velmora::QcTextEditFrame *m_address;
    Velmora::QcCheckBox *m_card;
    Velmora::QcSecondaryButton *m_add;
    Velmora::QcSecondaryButton *m_find;
    Velmora::QcSecondaryButton *m_remove;
    Velmora::QcPrimaryButton *m_save;
};
