#pragma once

#include <Velmora/QcToast.h>
#include <Velmora/VelmoraExport.h>

#include <QObject>
#include <QString>

#include <vector>

namespace Velmora {

/// Shows toasts in a column centred on their parents, at most three at a time.
///
/// There is one column for the whole program, whatever the parents: each toast keeps its distance from those before it. The oldest
/// that is removable makes room for a fourth. If none is, the new one is shown beyond the three. Toasts follow neither moves nor
/// resizes of their parents until the column changes, as when one closes or is added. A toast belongs to its parent, dies with it, and
/// deletes itself when it closes. A toast that its host took out of its parent stays where it is and keeps its place in the column.
/// Main thread only.
class VELMORA_EXPORT QcToastManager : public QObject
{
    Q_OBJECT

public:
    /// The one instance, made at its first use, destroyed when the process ends.
    static QcToastManager *getInstance();
    ~QcToastManager() override;

    /// Shows a toast of \a params in \a parent, faded in; with \a topLevel as a window in front of \a parent's, which does not take the
    /// keyboard. An id that is on the screen already makes that toast stay for its own duration from now on, and drops all else of
    /// \a params. A null parent gives a warning.
    void showToast(const QcToast::Params &params, QWidget *parent, bool topLevel);
    /// The same with a text, read as HTML, an icon and otherwise the defaults of QcToast::Params.
    void showToast(const QString &text, QcToast::Type type, QWidget *parent, bool topLevel);
    /// The distance of the column from the upper edges of the parents, 67 pixels at first. It moves nothing by itself.
    void setToastStartY(int y);

Q_SIGNALS:
    /// A link of a toast was pressed.
    void signalAnchorClicked(const QString &qstrAnchorHref);

private Q_SLOTS:
    void onToastHeightChanged();
    void onToastDestroyed();

private:
    QcToastManager();

    void addToast(QcToast *toast);
    void removeToast(QcToast *toast, bool deleteIt);
    void updateToastsPosition(bool animateFirst, bool animateLast);
    QcToast *Shown(int id) const;
    void TakeOut(const QObject *toast);
    void LoseDying(QObject *toast);

    const int m_maximumCount = 3;
    const int m_spacing = 4;
    int m_startY = 67;
    std::vector<QcToast *> m_toasts; // from top to bottom
};

} // namespace Velmora
