#include "support/TestMain.h"

#include <Velmora/ModalDialogs.h>
#include <Velmora/QcDialog.h>

#include <QPushButton>
#include <QSignalSpy>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>

#include <utility>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

/// A dialog that does away with a window when it is polished.
class Follower : public QDialog
{
public:
    explicit Follower(QWidget *window)
        : QDialog(nullptr, Qt::Dialog | Qt::FramelessWindowHint)
        , m_window(window)
    {
    }

protected:
    bool event(QEvent *event) override
    {
        if (event->type() == QEvent::Polish)
            delete std::exchange(m_window, nullptr);
        return QDialog::event(event);
    }

private:
    QWidget *m_window;
};

} // namespace

class TestModalDialogs : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void exec_needs_both_arguments()
    {
        QWidget window;
        QDialog dialog;
        const QString warning = QStringLiteral("exec: dialog or referenceWidget is null");
        ExpectWarning(warning);
        QCOMPARE(Velmora::exec(nullptr, &window), -1);
        ExpectWarning(warning);
        QCOMPARE(Velmora::exec(&dialog, nullptr), -1);
        ExpectWarning(warning);
        QCOMPARE(Velmora::exec(nullptr, nullptr), -1);
        QVERIFY(!dialog.isVisible());
    }

    void exec_centres_and_returns_the_result_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<int>("result");
        QTest::newRow("smaller, accepted") << QSize(200, 150) << int(QDialog::Accepted);
        QTest::newRow("odd, rejected") << QSize(201, 151) << int(QDialog::Rejected);
        QTest::newRow("larger, a result of the host") << QSize(600, 500) << 17;
    }

    void exec_centres_and_returns_the_result()
    {
        QFETCH(QSize, size);
        QFETCH(int, result);
        QWidget window;
        window.setGeometry(200, 150, 400, 300);
        QWidget inner(&window);
        inner.setGeometry(10, 10, 20, 20);
        window.show();
        QcDialog dialog(nullptr);
        dialog.resize(size);
        QPoint centre;
        bool wasModal = false;
        int childrenOfWindow = 0;
        QTimer::singleShot(0, &dialog, [&] {
            childrenOfWindow = int(window.children().size());
            centre = dialog.mapToGlobal(dialog.rect().center());
            wasModal = dialog.isModal();
            dialog.done(result);
        });
        QCOMPARE(Velmora::exec(&dialog, &inner), result);
        QCOMPARE(centre, window.mapToGlobal(window.rect().center()));
        QVERIFY(wasModal);
        QCOMPARE(childrenOfWindow, 1); // no veil was made
    }

    void exec_centres_a_dialog_that_grows_when_shown_data()
    {
        QTest::addColumn<bool>("sized");
        QTest::newRow("sized too small by the host") << true;
        QTest::newRow("never sized") << false;
    }

    void exec_centres_a_dialog_that_grows_when_shown()
    {
        QFETCH(bool, sized);
        QWidget window;
        window.setGeometry(200, 150, 400, 300);
        window.show();
        QDialog dialog(nullptr, Qt::Dialog | Qt::FramelessWindowHint); // what is moved is a frame, if there is one
        auto *column = new QVBoxLayout(&dialog);
        auto *content = new QWidget;
        content->setMinimumSize(250, 170);
        column->addWidget(content);
        if (sized)
            dialog.resize(10, 10);
        QPoint centre;
        QTimer::singleShot(0, &dialog, [&] {
            centre = dialog.mapToGlobal(dialog.rect().center());
            dialog.accept();
        });
        QCOMPARE(Velmora::exec(&dialog, &window), int(QDialog::Accepted));
        QVERIFY(dialog.width() >= 250 && dialog.width() < 400);
        QCOMPARE(centre, window.mapToGlobal(window.rect().center()));
    }

    void a_dialog_deleted_while_it_runs_counts_as_rejected()
    {
        auto *window = new QWidget; // deleted below, with the dialog
        auto *dialog = new QcDialog(window);
        QTimer::singleShot(0, this, [window] { delete window; });
        QCOMPARE(Velmora::exec(dialog, window), int(QDialog::Rejected));
    }

    void exec_survives_a_reference_that_dies_when_the_dialog_takes_its_size()
    {
        auto *window = new QWidget; // deleted by the dialog
        window->setGeometry(200, 150, 400, 300);
        const QPoint centre = window->mapToGlobal(window->rect().center());
        Follower dialog(window);
        dialog.setMinimumSize(250, 170);
        dialog.resize(10, 10);
        QPoint shown;
        QTimer::singleShot(0, &dialog, [&] {
            shown = dialog.mapToGlobal(dialog.rect().center());
            dialog.accept();
        });
        QCOMPARE(Velmora::exec(&dialog, window), int(QDialog::Accepted));
        QCOMPARE(shown, centre);
    }

    void show_and_hide_modal()
    {
        QWidget window;
        QDialog dialog;
        dialog.move(33, 44);
        showModal(&dialog, &window);
        QVERIFY(dialog.isVisible());
        QCOMPARE(dialog.windowModality(), Qt::ApplicationModal);
        QCOMPARE(dialog.pos(), QPoint(33, 44));
        hideModal(&dialog, &window);
        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.windowModality(), Qt::ApplicationModal);
    }

    void a_dialog_on_show_blocks_other_windows_only_when_it_is_shown_again()
    {
        QWidget window;
        window.setGeometry(0, 0, 300, 200);
        QPushButton button(&window);
        button.setGeometry(0, 0, 50, 50);
        window.show();
        QDialog dialog;
        dialog.setGeometry(400, 300, 200, 100);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window) && QTest::qWaitForWindowExposed(&dialog));
        const auto answers = [&] {
            const QSignalSpy spy(&button, &QAbstractButton::clicked);
            QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, QPoint(10, 10));
            return spy.count();
        };
        showModal(&dialog, &window);
        QCOMPARE(answers(), 1);
        hideModal(&dialog, &window);
        QCOMPARE(answers(), 1);
        dialog.show(); // still modal
        QCOMPARE(answers(), 0);
        hideModal(&dialog, &window);
        QCOMPARE(answers(), 1);
    }

    void the_reference_may_be_null_when_showing()
    {
        QDialog dialog;
        showModal(&dialog, nullptr);
        QVERIFY(dialog.isVisible());
        hideModal(&dialog, nullptr);
        QVERIFY(!dialog.isVisible());
    }
};

VELMORA_TEST_MAIN(TestModalDialogs)

#include "tst_ModalDialogs.moc"
