#include "Ported.h"

#include "danger.h"

#include <Velmora/QcCheckBox.h>
#include <Velmora/QcCombinedToolButton.h>
#include <Velmora/QcLabel.h>
#include <Velmora/QcMenu.h>
#include <Velmora/QcRadioButton.h>
#include <Velmora/QcStyleManager.h>
#include <Velmora/QcSwitchButton.h>
#include <Velmora/QcToolButton.h>

#include <QApplication>
#include <QHBoxLayout>
#include <QMenu>
#include <QStyle>

namespace {

using namespace Velmora;

QIcon AnyIcon()
{
    return qApp->style()->standardIcon(QStyle::SP_DialogSaveButton);
}

QColor DarkestOf(QLabel &label)
{
    label.adjustSize();
    const QImage shot = Shot(label);
    QColor darkest = Qt::white;
    for (int x = 0; x < shot.width(); ++x) {
        for (int y = 0; y < shot.height(); ++y) {
            if (shot.pixelColor(x, y).lightness() < darkest.lightness())
                darkest = shot.pixelColor(x, y);
        }
    }
    return darkest;
}

void CheckWhatIsIgnored()
{
    QWidget ground; // or they would be windows, which have a ground of Qt's
    QcPrimaryButton button(&ground);
    button.setText(QStringLiteral("Save"));
    QMenu menu;
    const QSize size = button.sizeHint();
    Check(Ignores(button,
                  [&] {
                      button.setIcon(AnyIcon());
                      button.setIconSize(QSize(40, 40));
                  }),
          "a button ignores setIcon");
    Check(Ignores(button, [&] { button.setDown(true); }), "setDown");
    button.setDown(false);
    Check(Ignores(button,
                  [&] {
                      button.setFlat(true);
                      button.setDefault(true);
                  }),
          "setFlat, and that it is the default");
    Check(Ignores(button, [&] { button.setPalette(Loud()); }), "its palette");
    Check(Ignores(button, [&] { button.setStyleSheet(QStringLiteral("color: red; border: 3px solid red;")); }),
          "text and border of a sheet");
    button.setStyleSheet(QStringLiteral("background: red;"));
    const QImage corners = Shot(button);
    Check(corners.pixelColor(0, 0) == QColor(Qt::red) && corners.pixelColor(4, 12) != QColor(Qt::red),
          "whose ground shows in the corners only");
    Check(Ignores(button, [&] { button.setMenu(&menu); }) && button.sizeHint() == size, "and shows no arrow for its menu");
    button.setMenu(nullptr);
    Check(!Ignores(button, [&] { button.setFont(Large()); }) && button.sizeHint().width() > size.width(), "but its font it has");

    QcCheckBox box(&ground);
    box.setText(QStringLiteral("box"));
    Check(Ignores(box, [&] { box.setFont(Large()); }), "a check box ignores its font");
    Check(!Ignores(box, [&] { box.setIcon(AnyIcon()); }), "but has its icon");
    QcRadioButton radio(&ground);
    radio.setText(QStringLiteral("radio"));
    radio.resize(200, 24);
    Check(Ignores(radio, [&] { radio.setFont(Large()); }), "so does a radio button that is wide enough");
    radio.setFont(QFont());
    Check(!Ignores(radio, [&] { radio.setIcon(AnyIcon()); }), "but has its icon");
}

void CheckToolButtons()
{
    QcToolButton button;
    QAction action(AnyIcon(), QStringLiteral("Save"), nullptr);
    action.setCheckable(true);
    Check(Ignores(button,
                  [&] {
                      button.setDefaultAction(&action);
                      button.setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
                      button.setArrowType(Qt::DownArrow);
                  }),
          "a tool button shows no icon of its action, no text and no arrow");
    button.click();
    Check(action.isChecked() && button.isChecked() && button.toolTip() == QStringLiteral("Save"), "but triggers it");
    action.setEnabled(false);
    Check(!button.isEnabled(), "and follows it");
}

void CheckColours()
{
    const QColor own(Qt::green);
    QcPrimaryButton early;
    early.setText(QStringLiteral("x"));
    early.SetBackgroundColorParams(QStyle::State_Enabled, QStringLiteral("#00ff00"));
    Check(Shot(early).pixelColor(4, 12) != own, "a colour set right after the construction is gone");
    early.SetBackgroundColorParams(QStyle::State_Enabled, QStringLiteral("#00ff00"));
    Check(Shot(early).pixelColor(4, 12) == own, "one set later stays");
    QcPrimaryButton named;
    named.setText(QStringLiteral("x"));
    named.setProperty("normalBackgroundColorParams", QStringLiteral("#00ff00"));
    Check(Shot(named).pixelColor(4, 12) == own, "a property need not wait");
    QcCombinedToolButton combined;
    combined.SetBackgroundColorParams(QStyle::State_Enabled, QStringLiteral("#00ff00"));
    Check(Shot(combined).pixelColor(4, 12) != own, "the combined tool button does the same");
    QcPrimaryButton button;
    button.setText(QStringLiteral("x"));
    warnByColor(&button);
    Check(Shot(button).pixelColor(4, 12) == QcStyleManager::GetInstance()->GetColor("base/red/red-60"), "a posted one stays");
}

void CheckSizes()
{
    QWidget row;
    auto *layout = new QHBoxLayout(&row);
    auto *button = new QcPrimaryButton;
    button->setText(QStringLiteral("Save"));
    button->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    layout->addWidget(button);
    row.resize(300, 200);
    Shot(row);
    Check(button->height() == 24, "a push button is 24 pixels high");
    button->setFixedHeight(40);
    Shot(row);
    Check(button->height() == 40, "until setFixedHeight");
    Check(Shot(*new QcSwitchButton(&row)).size() == QSize(28, 14), "a switch has 28 by 14 pixels");
}

void CheckMenus()
{
    QcMenu menu;
    QAction *action = menu.addAction(AnyIcon(), QStringLiteral("Save"));
    QFont bold;
    bold.setBold(true);
    Check(Ignores(menu,
                  [&] {
                      menu.setDefaultAction(action);
                      action->setFont(bold);
                      action->setIcon(QIcon());
                  }),
          "a menu shows no default action, no font and no QIcon");
}

} // namespace

void CheckButtons()
{
    CheckWhatIsIgnored();
    CheckToolButtons();
    CheckColours();
    CheckSizes();
    CheckMenus();
}

void CheckLabels()
{
    QWidget ground;
    QcLabel label(&ground);
    label.setText(QStringLiteral("A few words that are one line"));
    Check(DarkestOf(label) == QColor(Qt::black), "an untyped label is black");
    QcStyleManager::GetInstance()->SetColorFilePath(QStringLiteral(":/colors/blue_dark.ini"));
    Check(DarkestOf(label) == QColor(Qt::black), "in a dark table too");
    label.setType(QcLabel::Body);
    Check(DarkestOf(label) != QColor(Qt::black), "until it has a type");
    QcStyleManager::GetInstance()->SetColorFilePath(QStringLiteral(":/colors/blue_light.ini"));

    QcLabel typed(&ground);
    typed.setType(QcLabel::Body);
    typed.setText(QStringLiteral("words"));
    Check(Ignores(typed,
                  [&] {
                      typed.setPalette(Loud());
                      typed.setStyleSheet(QStringLiteral("color: red;"));
                  }),
          "its colour is the type's");
    Check(!Ignores(label, [&] { label.setStyleSheet(QStringLiteral("background: red;")); }), "its ground a stylesheet's");
    label.setFont(Large());
    Check(label.sizeHint().height() > 30, "a font holds that comes after the type");
    label.setType(QcLabel::Body);
    Check(label.sizeHint().height() < 30, "which brings its own");
    const QSize size = label.sizeHint();
    label.setWordWrap(true);
    label.setMargin(20);
    label.setIndent(20);
    Check(label.sizeHint() == size && label.heightForWidth(40) == size.height(), "it does not wrap");

    QWidget row;
    auto *layout = new QHBoxLayout(&row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(&label);
    Check(layout->minimumSize().width() == size.width(), "it asks for all of its text");
    label.setMinimumWidth(20);
    Check(layout->minimumSize().width() == 20, "and gives way once it has a minimum");
    label.setParent(nullptr);
}
