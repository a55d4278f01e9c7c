#pragma once

#include <Velmora/VelmoraExport.h>

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QDialog;
class QWidget;
QT_END_NAMESPACE

namespace Velmora {

/// Centres \a dialog on the window that holds \a referenceWidget, also if it is larger, runs it and returns its result. With a null
/// argument: a warning, and -1, which is neither QDialog::Accepted nor QDialog::Rejected. Shows no veil: that is the host's. Both may be
/// deleted while the dialog runs; a dialog that is counts as rejected.
VELMORA_EXPORT int exec(QDialog *dialog, QWidget *referenceWidget);

/// Shows \a dialog, modal for the whole application, without waiting for its result or moving it. One that shows already blocks other
/// windows only from the next time that it is shown. \a dialog must not be null; \a referenceWidget is not used.
VELMORA_EXPORT void showModal(QDialog *dialog, QWidget *referenceWidget);

/// Hides \a dialog, which stays modal for the next time that it is shown, by whatever call. \a dialog must not be null; \a referenceWidget
/// is not used.
VELMORA_EXPORT void hideModal(QDialog *dialog, QWidget *referenceWidget);

} // namespace Velmora
