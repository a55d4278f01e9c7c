#pragma once

#include <Velmora/QtCompatibility.h>

#include <QSplitterHandle>

namespace Velmora {

/// The handle between two panes: nothing at first sight, and in the colour of the brand under the mouse or with the keyboard's focus.
///
/// With the focus, which Tab brings and a click does not, the arrows along the splitter move it by 8 pixels, with Shift by one, and Home
/// and End as far as the panes let it.
class QcSplitterHandle : public QSplitterHandle
{
    Q_OBJECT

public:
    QcSplitterHandle(Qt::Orientation orientation, QSplitter *parent);

    // Pixels from the left or the top of the splitter, whatever direction the program reads in.
    int Position() const;
    int ClosestTo(int position);
    /// As near to \a position as the panes allow.
    void MoveTo(int position);

    /// What lies before or after it, as a user calls it: the title of the panel shown there, or of the first one there.
    QString NeighbourTitle(int offset) const;

protected:
    void enterEvent(EnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void moveEvent(QMoveEvent *event) override;

private:
    int StepOf(const QKeyEvent &event) const;

    bool m_hover = false;
};

} // namespace Velmora
