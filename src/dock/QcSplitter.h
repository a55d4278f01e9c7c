#pragma once

#include <Velmora/VelmoraExport.h>

#include <QSplitter>

namespace Velmora {

/// A QSplitter whose handles show nothing but, under the mouse, the colour of the brand.
class VELMORA_EXPORT QcSplitter : public QSplitter
{
    Q_OBJECT

public:
    explicit QcSplitter(QWidget *parent = nullptr);
    explicit QcSplitter(Qt::Orientation orientation, QWidget *parent = nullptr);
    ~QcSplitter() override;

protected:
    QSplitterHandle *createHandle() override;
};

} // namespace Velmora
