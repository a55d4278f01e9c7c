#pragma once

#include <QString>

#include <initializer_list>

QT_BEGIN_NAMESPACE
class QFrame;
class QHBoxLayout;
class QSpacerItem;
class QVBoxLayout;
class QWidget;
QT_END_NAMESPACE

namespace Velmora {

class QcFrame;
class QcIconButton;
class QcLabel;
class QcWindowHandler;

/// The row at the top of a window or dialog: its title, and at the right end three buttons.
struct TitleRow
{
    QcFrame *frame;
    QHBoxLayout *layout;
    QcLabel *title;
    QSpacerItem *spacer;
    QcIconButton *minButton;
    QcIconButton *maxButton;
    QcIconButton *closeButton;
};

/// Gives \a window its first size, its window title, translated in the context \a name, and the object name \a name if it has none.
void BeginForm(QWidget &window, const char *name, const char *title);

/// Lays out \a parts in \a window, one under the other, \a margin pixels around them all, and ends its form.
QVBoxLayout *EndForm(QWidget &window, int margin, std::initializer_list<QWidget *> parts);

/// Makes the row as a child of \a window, \a leftMargin pixels before the title, its texts translated in \a context.
/// \a maxButtonName is the object name of the middle button, the others being m_minButton and m_closeButton.
TitleRow MakeTitleRow(QWidget &window, const char *context, int leftMargin, const QString &maxButtonName);

/// The frame under the title row that the host fills, m_contentFrame, as a child of \a window.
QFrame *MakeContentFrame(QWidget &window);

/// A plain frame without a border, as a child of \a window.
QFrame *MakePlainFrame(QWidget &window, const QString &name);

/// Has \a window moved by its \a titleRow, and keep its size: the handler is its child.
QcWindowHandler *MakeHandler(QWidget &window, QWidget *titleRow);

/// Gives \a window the size now that it would take when shown: what centres it before would otherwise miss.
void SettleSize(QWidget &window);

/// Moves \a window so that it is centred on the window of \a reference, and shows it. Nothing happens if that is null.
void ShowCentredOn(QWidget &window, const QWidget *reference);

} // namespace Velmora
