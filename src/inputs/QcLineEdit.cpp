#include <Velmora/QcLineEdit.h>

#include "inputs/LineEditAccessible_p.h"

namespace Velmora {

QcLineEdit::QcLineEdit(QWidget *parent)
    : QLineEdit(parent)
{
    InstallLineEditAccessibility();
}

void QcLineEdit::clear()
{
    QLineEdit::clear();
}

QSize QcLineEdit::sizeHint() const
{
    QSize hint = QLineEdit::sizeHint();
    hint.rheight() += hint.height() % 2;
    return hint;
}

} // namespace Velmora
