#pragma once

#include <Velmora/VelmoraExport.h>

#include <QLineEdit>
#include <QSize>

namespace Velmora {

/// The text field inside a QcLineEditFrame. Its hint is of even height, so that the text stands exactly in the middle.
class VELMORA_EXPORT QcLineEdit : public QLineEdit
{
    Q_OBJECT

public:
    explicit QcLineEdit(QWidget *parent = nullptr);

    void clear();
    QSize sizeHint() const override;
};

} // namespace Velmora
