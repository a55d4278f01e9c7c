// Draws each control that Tab reaches, in its states, in a light and a dark table and on screens of two ratios, into PNG files.
//
//     draw_controls FOLDER
//
// A file named -text holds a text, for which room of one size is made; all others hold none, and are as large as the control wants to be.

#include "support/Pixels.h"
#include "support/TestMain.h"
#include "theme/EachClass.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QCursor>
#include <QDir>
#include <QEnterEvent>

#include <memory>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

constexpr Table kTables[] = {Table::Light, Table::Dark};
constexpr const char *kStates[] = {"normal", "disabled", "hovered", "pressed", "checked"};

bool HoldsText(const QWidget &control)
{
    if (const auto *button = qobject_cast<const QAbstractButton *>(&control))
        return !button->text().isEmpty();
    return qobject_cast<const QAbstractSpinBox *>(&control) || qobject_cast<const QcMultiLineText *>(&control)
        || qobject_cast<const QcTextEditLimiter *>(&control);
}

/// False if \a control has no such state.
bool Bring(QWidget &control, const QByteArray &state)
{
    auto *button = qobject_cast<QAbstractButton *>(&control);
    if (state == "disabled")
        control.setEnabled(false);
    if (state == "hovered") {
        QEnterEvent enter(QPointF(5, 5), QPointF(5, 5), QPointF(5, 5));
        QApplication::sendEvent(&control, &enter);
    }
    if (state == "pressed" && button)
        button->setDown(true);
    if (state == "checked" && button) {
        button->setCheckable(true);
        button->setChecked(true);
    }
    return button || state == "normal" || state == "disabled" || state == "hovered";
}

void Draw(QWidget &control, const QColor &ground, const QString &fileStem)
{
    for (const qreal ratio : {1.0, 1.5}) {
        const QString file = QStringLiteral("%1@%2.png").arg(fileStem).arg(ratio);
        if (!RenderAt(control, ratio, ground).save(file))
            qFatal("cannot write %s", qPrintable(file));
    }
}

void DrawInState(const Case &each, const char *state, bool withText, const QColor &ground, const QString &fileStem)
{
    QWidget page;
    page.resize(400, 200);
    QCursor::setPos(1900, 1900); // the offscreen platform of Qt 6 hovers what shows under the mouse
    QWidget *control = each.make(&page);
    control->setProperty("iconPath", QStringLiteral(":/images/close.svg"));
    if (!withText && qobject_cast<QAbstractButton *>(control))
        static_cast<QAbstractButton *>(control)->setText(QString());
    if (withText != HoldsText(*control))
        return;
    page.setFocusPolicy(Qt::StrongFocus);
    page.setFocus(); // a caret would blink
    page.show();
    if (withText)
        control->resize(160, 40);
    else
        control->resize(control->sizeHint().expandedTo(QSize(16, 16)));
    DrainEvents();
    if (Bring(*control, state))
        Draw(*control, ground, fileStem);
}

} // namespace

int main(int argc, char **argv)
{
    QcApplication application(argc, argv);
    application.Initialize();
    QFont font = QcStyleManager::GetDefaultFont();
    font.setFamilies({QStringLiteral("Open Sans")});
    font.setPixelSize(12); // both Qt make lines of this size as high
    QApplication::setFont(font);
    const QDir folder(application.arguments().value(1));
    for (const Table table : kTables) {
        UseTable(table);
        const QColor ground = TokenOf(table, QStringLiteral("bg/bg_primary"));
        for (const Case &each : kKit) {
            for (const char *state : kStates) {
                const QString stem =
                    QStringLiteral("%1-%2-%3")
                        .arg(QLatin1String(each.className), QLatin1String(state), QLatin1String(table == Table::Light ? "light" : "dark"));
                DrawInState(each, state, false, ground, folder.filePath(stem));
                DrawInState(each, state, true, ground, folder.filePath(stem + QStringLiteral("-text")));
            }
        }
    }
    return 0;
}
