#include "LetterWindow.h"
#include "ask.h"
#include "corner_grip.h"

#include "../Check.h"

#include <Velmora/QcApplication.h>
#include <Velmora/QcStyleManager.h>

#include <QAbstractButton>
#include <QTimer>

namespace {

void CheckClosing()
{
    LetterWindow window;
    int said = 0;
    QObject::connect(&window, &Velmora::QcWindow::signalClose, [&said] { ++said; });
    window.show();
    Check(!window.close() && window.isVisible() && said == 0, "an unsaved letter keeps its window open, which says nothing");
    window.setSaved(true);
    Check(window.close() && !window.isVisible() && said == 1, "a saved letter lets its window close");
}

void CheckGrip()
{
    Velmora::QcWindow window;
    auto *column = new QVBoxLayout(window.getContentFrame());
    column->addStretch();
    addGrip(column);
    window.show();
    const auto *grip = window.findChild<QSizeGrip *>();
    const QPoint end = grip->mapTo(&window, QPoint(grip->width(), grip->height()));
    Check(grip->isVisible() && end.x() > window.width() - 20 && end.y() > window.height() - 20, "the grip lies in the corner");
}

void CheckQuestion(const QString &button, bool expected)
{
    Velmora::QcWindow window;
    window.show();
    bool veiled = false;
    bool modal = false;
    QTimer::singleShot(0, &window, [&] {
        const auto *veil = window.findChild<Velmora::QcMaskFrame *>();
        veiled = veil && veil->isVisible() && veil->geometry() == window.rect();
        auto *dialog = window.findChild<Velmora::QcDialog *>();
        modal = dialog->isModal();
        dialog->findChild<QAbstractButton *>(button)->click();
    });
    Check(ask(&window, QStringLiteral("Leave?"), QStringLiteral("Three letters have changed.")) == expected,
          "the answer is what was pressed");
    Check(veiled && modal, "a modal dialog over a veil asks");
    Check(!window.findChild<Velmora::QcMaskFrame *>(), "the veil goes with the question");
}

} // namespace

int main(int argc, char **argv)
{
    Velmora::QcApplication app(argc, argv);
    Velmora::QcStyleManager::GetInstance()->SetColorFilePath(QStringLiteral(":/colors/blue_light.ini"));
    app.Initialize();
    CheckClosing();
    CheckGrip();
    CheckQuestion(QStringLiteral("m_okButton"), true);
    CheckQuestion(QStringLiteral("m_cancelButton"), false);
    return failures;
}
