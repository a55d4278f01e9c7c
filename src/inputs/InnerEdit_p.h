#pragma once

#include <QLineEdit>

namespace Velmora {

/// The edit in a control that Qt composes. It has a class of the kit's, by which it keeps the application's own palette, as its control
/// does, where plain widgets follow the colour table.
class InnerEdit : public QLineEdit
{
    Q_OBJECT

public:
    using QLineEdit::QLineEdit;

    /// To take the place of \a edit, which Qt has made: it has the same name and text.
    static InnerEdit *InPlaceOf(const QLineEdit &edit, QWidget *parent)
    {
        auto *inner = new InnerEdit(parent);
        inner->setObjectName(edit.objectName());
        inner->setText(edit.text());
        return inner;
    }
};

} // namespace Velmora
