#pragma once

#include "core/OwnText_p.h"

#include <QPointer>

#include <initializer_list>

QT_BEGIN_NAMESPACE
class QFrame;
class QHBoxLayout;
class QLabel;
class QMargins;
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

/// What stands in a window or dialog until its host says something else, in the language of now.
struct FormWords
{
    QString windowTitle;
    QString title;
    QString minimize;
    QString maximize;
    QString close;
};

/// The texts of a window's or dialog's form.
class FormTexts
{
public:
    FormTexts(QWidget &window, const TitleRow &row);

    /// Puts \a words in, each where the host has not put its own or deleted what showed it. To be called for each change of language.
    void PutIn(const FormWords &words);

private:
    QWidget &m_window;
    const QPointer<QLabel> m_titleLabel;
    const QPointer<QWidget> m_minButton;
    const QPointer<QWidget> m_maxButton;
    const QPointer<QWidget> m_closeButton;
    OwnText m_windowTitle;
    OwnText m_title;
    OwnText m_minimize;
    OwnText m_maximize;
    OwnText m_close;
};

/// Gives \a window its first size, and the object name \a name if it has none.
void BeginForm(QWidget &window, const QString &name);

/// Lays out \a parts in \a window, one under the other, \a margin pixels around them all, and ends its form.
QVBoxLayout *EndForm(QWidget &window, int margin, std::initializer_list<QWidget *> parts);

/// Makes \a frame the title row of a window, dialog or panel: m_titleFrame, \a height pixels high. What is added to the returned layout
/// stands from left to right within \a margins.
QHBoxLayout *SetUpTitleRow(QFrame &frame, int height, const QMargins &margins, int spacing);

/// Adds a button of 24 by 24 pixels to the end of a title row, which the keyboard passes by and under which no press moves the window.
QcIconButton *AddTitleButton(QFrame &row, const QString &name, const QString &iconPath);

/// Makes the row of a window or dialog as its child, \a leftMargin pixels before the title. \a maxButtonName is the object name of the
/// middle button, the others being m_minButton and m_closeButton.
TitleRow MakeTitleRow(QWidget &window, int leftMargin, const QString &maxButtonName);

/// The frame under the title row that the host fills, m_contentFrame, as a child of \a window.
QFrame *MakeContentFrame(QWidget &window);

/// What fills the frame of a window or dialog; empty at first.
class FrameContent
{
public:
    /// Lets \a content fill \a frame, in place of an earlier one, which is deleted later; null leaves nothing there. In a frame that the
    /// host has laid out, it goes to the end of that layout.
    void Set(QFrame &frame, QWidget *content);
    /// Null if nothing fills \a frame: what went to another parent does no longer.
    QWidget *In(const QFrame &frame) const;

private:
    QPointer<QWidget> m_content;
};

/// A plain frame without a border, as a child of \a window.
QFrame *MakePlainFrame(QWidget &window, const QString &name);

/// Has \a window moved by its \a titleRow, and keep its size: the handler is its child.
QcWindowHandler *MakeHandler(QWidget &window, QWidget *titleRow);

/// Gives \a window the size now that it would take when shown: what centres it before would otherwise miss.
void SettleSize(QWidget &window);

/// On Wayland, where no program centres a dialog: has a dialog without a parent belong to the window of \a reference, over which most
/// compositors show it then.
void BelongOver(QWidget &window, const QWidget &reference);

/// Moves \a window so that it is centred on the window of \a reference, and shows it. Nothing happens if that is null.
void ShowCentredOn(QWidget &window, const QWidget *reference);

} // namespace Velmora
