// Eight workers that tell the progress dialog how far they are. Made to be run under the thread sanitizer too.

#include "core/TaskSupport.h"
#include "support/TestMain.h"

#include <Velmora/QcProgressDialog.h>

#include <QLabel>

#include <algorithm>
#include <mutex>
#include <thread>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

constexpr int kThreads = 8;
#if defined(__SANITIZE_ADDRESS__)
constexpr int kValues = 8'000;
#else
constexpr int kValues = 100'000;
#endif

} // namespace

class tst_ProgressThreads : public TestCase
{
    Q_OBJECT

public:
    tst_ProgressThreads()
        : m_dialog(QcProgressDialog::getInstance()) // before the first test, which would leave it behind
    {
    }

private Q_SLOTS:
    void the_last_value_posted_is_the_last_one_shown()
    {
        m_dialog->setRange(0, kValues);
        m_dialog->show();
        int shown = 0; // touched by the main thread only
        bool isInOrder = true;
        std::mutex lock; // that a value and its post are one step: only then is one of them the last
        int posted = 0;
        const auto work = [&] {
            for (int i = 0; i < kValues / kThreads; ++i) {
                const std::lock_guard<std::mutex> guard(lock);
                const int value = ++posted;
                TheApplication()->PostTaskToMainThread(MakeRecord([this, value, &shown, &isInOrder] {
                    isInOrder = isInOrder && value == shown + 1;
                    shown = value;
                    m_dialog->setValue(value);
                }));
            }
        };
        std::vector<std::thread> threads;
        for (int number = 0; number < kThreads; ++number)
            threads.emplace_back(work);
        for (std::thread &thread : threads)
            thread.join();
        QTRY_COMPARE_WITH_TIMEOUT(shown, kValues, 60000);
        QVERIFY(isInOrder);
        QCOMPARE(m_dialog->value(), kValues);
        QCOMPARE(m_dialog->findChild<QLabel *>(QStringLiteral("m_progressLabel"))->text(), QStringLiteral("100%"));
        m_dialog->hide();
    }

private:
    QcProgressDialog *m_dialog;
};

VELMORA_TEST_MAIN(tst_ProgressThreads)

#include "tst_ProgressThreads.moc"
