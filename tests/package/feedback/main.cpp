#include "busy.h"
#include "count.h"
#include "loop.h"
#include "toasts.h"

#include "../Check.h"

#include <Velmora/QcMultiLineText.h>
#include <Velmora/QcStyleManager.h>

#include <QKeyEvent>

#include <thread>

namespace {

void CheckToasts()
{
    QWidget window;
    window.resize(500, 400);
    window.show();
    showOffline(&window);
    showOffline(&window);
    Check(window.findChildren<Velmora::QcToast *>().size() == 1, "a second toast of one id is not shown");
    showSent("a<b", &window);
    const auto texts = window.findChildren<Velmora::QcMultiLineText *>();
    Check(texts.size() == 2 && texts.last()->property("text") == QVariant("a&lt;b was sent."), "a name shows as it is");
}

void CheckBusy()
{
    auto *loading = Velmora::QcLoadingDialog::getInstance();
    QWidget window;
    window.resize(500, 400);
    window.show();
    const QWidget *veil = showBusy(&window, "Letters");
    Check(veil->isVisible() && loading->isVisible() && loading->parentWidget() == veil, "a veil with the dialog covers the window");
    const auto *label = loading->findChild<QLabel *>(QStringLiteral("m_textLabel"));
    Check(label->text() == QStringLiteral("Letters") && label->palette().color(QPalette::WindowText).lightness() > 250,
          "the caption is light on the dark veil");
    delete veil;
    Check(!loading->parentWidget() && loading->isHidden(), "the dialog outlives its veil");
}

void CheckProgress()
{
    auto *progress = Velmora::QcProgressDialog::getInstance();
    QWidget window;
    window.show();
    const auto isCancelled = std::make_shared<std::atomic<bool>>(false);
    showProgress(&window, 1000, isCancelled);
    Check(progress->isVisible() && progress->isWindow(), "the dialog shows before the work");
    std::thread worker([&isCancelled] {
        count(1000, isCancelled);
        onMainThread([] { QCoreApplication::quit(); });
    });
    QCoreApplication::exec();
    worker.join();
    Check(progress->value() == 1000 && progress->isHidden(), "all values arrive, and the dialog goes");
    showProgress(&window, 1000, isCancelled);
    progress->reject(); // as by Escape
    Check(*isCancelled, "Escape cancels");
}

/// Cancels the dialog as the user does.
void PressEscape(QWidget *widget)
{
    QCoreApplication::postEvent(widget, new QKeyEvent(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier));
}

class PaintCounter : public QObject
{
public:
    int count = 0;

    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        count += event->type() == QEvent::Paint;
        return false;
    }
};

void CheckLoop()
{
    auto *progress = Velmora::QcProgressDialog::getInstance();
    PaintCounter paints;
    progress->installEventFilter(&paints);
    auto *window = new QWidget;
    window->show();
    Check(progress->windowModality() == Qt::NonModal, "the dialog is not modal at first");
    int steps = 0;
    const bool isWhole = doSteps(window, 50, [&](int) {
        ++steps;
        Check(QApplication::activeModalWidget() == progress, "nothing else can be used meanwhile");
    });
    Check(isWhole && steps == 50 && progress->value() == 50, "a loop is done to its end");
    Check(paints.count > 0 && progress->isHidden(), "its dialog is seen, and goes");
    steps = 0;
    const bool isCancelled = !doSteps(window, 50, [&](int) {
        if (++steps == 20)
            PressEscape(progress);
    });
    Check(isCancelled && steps == 20, "Escape ends it");
    steps = 0;
    const bool isLost = !doSteps(window, 50, [&](int) {
        if (++steps == 20)
            delete window;
    });
    Check(isLost && steps == 20 && progress->isHidden(), "and so does the death of the window");
}

/// What setValue() of QProgressDialog does this one leaves to the host.
void CheckLoopWithoutEvents()
{
    auto *progress = Velmora::QcProgressDialog::getInstance();
    PaintCounter paints;
    progress->installEventFilter(&paints);
    progress->setWindowModality(Qt::WindowModal);
    progress->show();
    for (int done = 1; done <= 50; ++done)
        progress->setValue(done);
    Check(paints.count == 0, "a loop that handles no events shows no dialog");
    progress->hide();
    progress->setWindowModality(Qt::NonModal);
}

void CheckStart()
{
    QWidget window;
    window.resize(500, 400);
    window.show();
    auto *manager = Velmora::QcToastManager::getInstance();
    manager->showToast(QStringLiteral("Saved"), Velmora::QcToast::Success, &window, false);
    const auto *toast = window.findChild<Velmora::QcToast *>();
    Check(toast->y() == 67 && qAbs(toast->geometry().center().x() - 250) <= 1, "the first toast stands 67 pixels down, in the middle");
}

} // namespace

int main(int argc, char **argv)
{
    Velmora::QcApplication app(argc, argv);
    Velmora::QcStyleManager::GetInstance()->SetColorFilePath(QStringLiteral(":/colors/blue_light.ini"));
    app.Initialize();
    CheckStart();
    CheckToasts();
    CheckBusy();
    CheckProgress();
    CheckLoop();
    CheckLoopWithoutEvents();
    return failures;
}
