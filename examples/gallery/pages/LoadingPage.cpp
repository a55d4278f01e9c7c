#include "Kit.h"
#include "Page.h"

#include <Velmora/QcApplication.h>
#include <Velmora/QcLoadingDialog.h>
#include <Velmora/QcMaskFrame.h>
#include <Velmora/QcPrimaryButton.h>
#include <Velmora/QcProgressDialog.h>
#include <Velmora/QcSecondaryButton.h>

#include <QHBoxLayout>
#include <QThreadPool>
#include <QVBoxLayout>

#include <atomic>

using namespace Gallery;
using Velmora::QcApplication;
using Velmora::QcLoadingDialog;
using Velmora::QcProgressDialog;
using TaskInfo = Velmora::QcTaskDispatcher::MainThreadTaskInfo;

namespace {

constexpr int kSteps = 2'000'000'000; // each a moment of work
constexpr int kReportEvery = kSteps / 500;

class LoadingPage : public PageWidget
{
public:
    LoadingPage()
    {
        AddLoading();
        AddProgress();
        Await(QStringLiteral("Counted to 42 of 100, last time"), 42);
    }

    ~LoadingPage() override
    {
        m_isCancelled = true;
        m_pool.waitForDone();
    }

private:
    void AddLoading()
    {
        Card *card =
            AddSection(QStringLiteral("Loading"),
                       QStringLiteral("The dialog has no ground of its own: it lies on a QcMaskFrame here, as it should on any window. Its "
                                      "caption would be dark in the light tables, so that a host gives it another colour."));
        auto *veil = new Velmora::QcMaskFrame;
        veil->setFixedHeight(22 * kGrid);
        card->Body()->addWidget(veil);
        m_loading = QcLoadingDialog::getInstance();
        m_loading->setText(QStringLiteral("Fetching 3 of 12 letters"));
        m_loading->findChild<QLabel *>(QStringLiteral("m_textLabel"))->setStyleSheet(QStringLiteral("color: rgba(255, 255, 255, 70%);"));
        veil->layout()->addWidget(m_loading); // a child now, as of any widget
        m_loading->show();
    }

    void AddProgress()
    {
        Card *card =
            AddSection(QStringLiteral("Progress"),
                       QStringLiteral("A worker thread counts and posts each value to the main thread. While it counts the dialog is "
                                      "a window of its own, and Escape in it cancels."));
        m_place = new QWidget;
        m_place->setFixedHeight(12 * kGrid);
        new QHBoxLayout(m_place);
        m_place->layout()->setContentsMargins(0, 0, 0, 0);
        card->Body()->addWidget(m_place);
        m_progress = QcProgressDialog::getInstance();
        connect(m_progress, &QDialog::rejected, this, [this] { m_isCancelled = true; });

        QHBoxLayout *row = card->AddRow();
        m_count = new Velmora::QcPrimaryButton;
        m_count->setText(QStringLiteral("Count in a worker"));
        connect(m_count, &QPushButton::clicked, this, [this] { Count(); });
        m_cancel = new Velmora::QcSecondaryButton;
        m_cancel->setText(QStringLiteral("Cancel"));
        connect(m_cancel, &QPushButton::clicked, this, [this] { m_isCancelled = true; });
        for (Velmora::QcButton *button : {static_cast<Velmora::QcButton *>(m_count), static_cast<Velmora::QcButton *>(m_cancel)}) {
            button->setHorizontalMargin(2 * kGrid);
            row->addWidget(button);
        }
        row->addStretch();
    }

    /// Back in the page, where it shows how far the last count came.
    void Await(const QString &tip, int percent)
    {
        m_progress->setRange(0, 100);
        m_progress->setValue(percent);
        m_progress->setText(tip);
        m_place->layout()->addWidget(m_progress);
        m_progress->show();
        m_count->setEnabled(true);
        m_cancel->setEnabled(false);
    }

    void Count()
    {
        m_isCancelled = false;
        m_count->setEnabled(false);
        m_cancel->setEnabled(true);
        m_progress->setRange(0, kSteps);
        m_progress->setText(QStringLiteral("Counting"));
        const QPoint centre = m_place->mapToGlobal(m_place->rect().center()) - m_progress->rect().center();
        static_cast<QWidget *>(m_progress)->setParent(window(), Qt::Tool | Qt::FramelessWindowHint);
        m_progress->move(centre);
        m_progress->show();
        m_pool.start([this] { Work(); });
    }

    // On the worker.
    void Work()
    {
        int step = 0;
        for (; step < kSteps && !m_isCancelled; ++step) {
            if (step % kReportEvery == 0)
                Post([this, step] { m_progress->setValue(step); });
        }
        const int percent = int(double(step) / kSteps * 100);
        Post([this, percent] {
            Await(percent == 100 ? QStringLiteral("Counted to the end") : QStringLiteral("Cancelled at %1 %").arg(percent), percent);
        });
    }

    void Post(const std::function<void()> &work)
    {
        auto task = std::make_shared<TaskInfo>();
        task->task = work;
        task->name = "gallery loading page";
        task->owner = this;
        task->checkOwner = true; // dropped with the page
        static_cast<QcApplication *>(QCoreApplication::instance())->PostTaskToMainThread(task);
    }

    QThreadPool m_pool;
    std::atomic<bool> m_isCancelled{false};
    QcLoadingDialog *m_loading = nullptr;
    QcProgressDialog *m_progress = nullptr;
    QWidget *m_place = nullptr;
    Velmora::QcButton *m_count = nullptr;
    Velmora::QcButton *m_cancel = nullptr;
};

const PageRegistrar registrar({QStringLiteral("loading"), QStringLiteral("Feedback"), QStringLiteral("Loading and progress"),
                               QStringLiteral("QcLoadingDialog and QcProgressDialog: signs that the program is at work."), 530,
                               [] { return new LoadingPage; }});

} // namespace
