#include "support/TestMain.h"

#include "windows/WindowParts_p.h"

#include <Velmora/QcIconButton.h>

#include <QDialog>
#include <QFrame>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPointer>
#include <QVBoxLayout>

using namespace Velmora;
using namespace VelmoraTest;

class TestWindowParts : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_title_row_of_other_measures()
    {
        QFrame frame;
        QHBoxLayout *row = SetUpTitleRow(frame, 30, QMargins(8, 0, 8, 0), 5);
        row->addStretch(0);
        const QcIconButton *close = AddTitleButton(frame, QString(), QStringLiteral(":/images/dock/tab_close.svg"));
        frame.resize(200, 30);
        frame.show();
        DrainEvents();
        QCOMPARE(frame.objectName(), QStringLiteral("m_titleFrame"));
        QCOMPARE(frame.height(), 30);
        QCOMPARE(row->contentsMargins(), QMargins(8, 0, 8, 0));
        QCOMPARE(row->spacing(), 5);
        QCOMPARE(close->geometry(), QRect(200 - 8 - 24, 3, 24, 24));
        QCOMPARE(close->focusPolicy(), Qt::NoFocus);
        QVERIFY(!close->autoDefault());
        QVERIFY(close->objectName().isEmpty());
    }

    void a_content_fills_its_frame_in_place_of_the_last_one()
    {
        QFrame frame;
        frame.resize(200, 100);
        FrameContent content;
        QVERIFY(!content.In(frame));
        QPointer<QWidget> first = new QWidget;
        content.Set(frame, first);
        QCOMPARE(content.In(frame), first.data());
        frame.show();
        DrainEvents();
        QCOMPARE(first->geometry(), frame.rect());

        content.Set(frame, first); // no change
        DrainEvents();
        QVERIFY(first);
        auto *second = new QWidget;
        content.Set(frame, second);
        DrainEvents();
        QVERIFY(!first);
        QCOMPARE(second->geometry(), frame.rect());
        QVERIFY(second->isVisible());
        content.Set(frame, nullptr);
        QVERIFY(!content.In(frame));
    }

    void a_content_that_left_its_frame_is_let_alone()
    {
        QFrame frame;
        FrameContent content;
        QWidget elsewhere;
        QPointer<QWidget> leaving = new QWidget;
        content.Set(frame, leaving);
        leaving->setParent(&elsewhere);
        QVERIFY(!content.In(frame));
        content.Set(frame, new QWidget);
        DrainEvents();
        QVERIFY(leaving);
        delete content.In(frame);
        QVERIFY(!content.In(frame));
    }

    void a_content_goes_to_the_end_of_a_layout_of_the_hosts()
    {
        QFrame frame;
        auto *row = new QHBoxLayout(&frame);
        auto *ours = new QWidget;
        row->addWidget(ours);
        FrameContent content;
        auto *added = new QWidget;
        content.Set(frame, added);
        QCOMPARE(row->indexOf(ours), 0);
        QCOMPARE(row->indexOf(added), 1);
    }

    void a_window_settled_again_with_less_content_shrinks()
    {
        QDialog window;
        auto *column = new QVBoxLayout(&window);
        auto *content = new QWidget;
        content->setFixedSize(300, 250);
        column->addWidget(content);
        SettleSize(window);
        const QSize large = window.size();
        QVERIFY(large.width() >= 300 && large.height() >= 250);
        content->setFixedSize(200, 120);
        SettleSize(window);
        QCOMPARE(window.size(), large - QSize(100, 130));
    }

    void a_settled_window_shows_at_its_size()
    {
        QDialog window;
        auto *column = new QVBoxLayout(&window);
        column->addWidget(new QLineEdit);
        window.resize(3, 3);
        SettleSize(window);
        const QSize settled = window.size();
        QVERIFY(settled.height() > 3);
        window.show();
        DrainEvents();
        QCOMPARE(window.size(), settled);
    }
};

VELMORA_TEST_MAIN(TestWindowParts)

#include "tst_WindowParts.moc"
