#pragma once

#include <Velmora/VelmoraExport.h>

#include <QStackedWidget>

namespace Velmora {

/// The pages of a QcDockAreaTabFrame, of which one is shown.
class VELMORA_EXPORT QcDockAreaTabStackedWidget : public QStackedWidget
{
    Q_OBJECT

public:
    explicit QcDockAreaTabStackedWidget(QWidget *parent = nullptr);
    ~QcDockAreaTabStackedWidget() override;

    /// Shows or hides the title rows of all pages that are panels.
    void setTitleVisible(bool visible);
};

} // namespace Velmora
