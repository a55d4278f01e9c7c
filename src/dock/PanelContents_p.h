#pragma once

#include <QHash>
#include <QPointer>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace Velmora {

// A content that its panel gives up is deleted with the next turn of the main loop, and a host that deals contents anew may put it into
// a panel again before that.

/// Schedules the deletion of a \a content that a panel gave up.
void DeleteContentLater(QWidget *content);

/// Takes that back. A deletion that the host itself scheduled stays.
void KeepAfterAll(QWidget *content);

/// Closes \a content as QWidget::close() does. False if it refuses.
bool CloseContent(QWidget &content);

/// Takes contents out of their panels and brings them to where others get them. All that come from one window leave it together: for a
/// widget that goes to another window, Qt looks through all widgets of the one that it leaves.
class ContentsOnTheMove
{
public:
    explicit ContentsOnTheMove(QWidget &destination);
    ~ContentsOnTheMove();
    Q_DISABLE_COPY(ContentsOnTheMove)

    /// \a content leaves \a panel.
    void Take(QWidget &content, QWidget &panel);
    /// What was taken is in the window of the destination now.
    void Arrive();

private:
    const QPointer<QWidget> m_destination;
    QHash<QWidget *, QPointer<QWidget>> m_carriers; ///< of each window
};

} // namespace Velmora
