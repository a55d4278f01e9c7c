#pragma once

#include <QDialog>

QT_BEGIN_NAMESPACE
class QLineEdit;
class QListWidget;
QT_END_NAMESPACE

namespace VelmoraDesigner {

/// Asks for a colour code: one of the chosen table's tokens, each with its colour, or whatever is typed.
class TokenChooser : public QDialog
{
    Q_OBJECT

public:
    explicit TokenChooser(const QString &code, QWidget *parent = nullptr);

    QString Code() const;

private:
    void Fill();
    void ShowMatching(const QString &words);
    void GoToList();
    void Mark(const QString &code);

    QLineEdit *m_search;
    QListWidget *m_tokens;
    QLineEdit *m_code;
};

} // namespace VelmoraDesigner
