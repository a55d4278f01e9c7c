#pragma once

#include "buttons/ButtonTables_p.h"

#include <QObject>

namespace Velmora {

/// The colours of a push button's states as dynamic properties, for forms, which can call nothing: "hoverBackgroundColorParams" and its
/// like stand over the tables that SetBackgroundColorParams(), SetBorderColorParams() and SetTextColorParams() fill, which stay as they
/// are. One that is taken away or emptied lets its table show again.
class StateColorProperties : public QObject
{
public:
    /// Begins to repaint buttons whose properties change, if nobody has, for the rest of the application's life.
    static void Watch();

    /// The code of \a look: of the property whose name ends on \a ending, "BackgroundColorParams" and its like, or else of \a table.
    static QString CodeOf(const QcButton &button, const char *ending, QStyle::State look, const CodeTable &table);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    using QObject::QObject;
};

} // namespace Velmora
