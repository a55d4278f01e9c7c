#include "busy.h"
#include "count.h"
#include "toasts.h"

#include "../Check.h"

#include <Velmora/QcMultiLineText.h>
#include <Velmora/QcStyleManager.h>

#include <QTimer>

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

} // namespace

int main(int argc, char **argv)
{
    Velmora::QcApplication app(argc, argv);
    Velmora::QcStyleManager::GetInstance()->SetColorFilePath(QStringLiteral(":/colors/blue_light.ini"));
    app.Initialize();
    CheckToasts();
    CheckBusy();
    CheckProgress();
    return failures;
}
