#include "theme/FocusStage.h"

#include "support/TestMain.h"

#include <Velmora/KeyboardCues.h>
#include <Velmora/QcButton.h>
#include <Velmora/QcLabel.h>
#include <Velmora/QcLineEditFrame.h>
#include <Velmora/QcMaskFrame.h>
#include <Velmora/QcMultiLineText.h>
#include <Velmora/QcPrimaryButton.h>
#include <Velmora/Veils.h>

#include <QDialog>
#include <QPointer>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>

#include <functional>
#include <memory>

using namespace Velmora;
using namespace VelmoraTest;

Q_DECLARE_METATYPE(Qt::Key)

namespace {

/// A host's control that does something of its own when it gets the keyboard.
class Busy : public QWidget
{
public:
    explicit Busy(QWidget *parent)
        : QWidget(parent)
    {
        setFocusPolicy(Qt::StrongFocus);
    }

    std::function<void()> onFocus;

protected:
    void focusInEvent(QFocusEvent *event) override
    {
        QWidget::focusInEvent(event);
        if (onFocus)
            onFocus();
    }
};

constexpr int kControls = 4;

} // namespace

/// The keyboard's focus in programs that change what has it while it moves.
class TestFocusAmidstHosts : public TestCase
{
    Q_OBJECT

private:
    void SetUp() override
    {
        SetKeyboardCuesEnabled(true);
        SetVeilsStopKeyboard(true);
        m_stage = std::make_unique<FocusStage>();
        for (int i = 0; i < kControls; ++i)
            m_busy[i] = m_stage->Add<Busy>(QRect(40, 20 + 60 * i, 100, 24));
    }

    void TearDown() override
    {
        m_stage.reset();
        SetVeilsStopKeyboard(false);
        SetKeyboardCuesEnabled(false);
    }

    /// With the keyboard on the first of them.
    bool Begin()
    {
        const bool isActive = m_stage->Begin();
        m_busy[0]->setFocus();
        DrainEvents();
        return isActive;
    }

    void WalkAround()
    {
        for (int i = 0; i < 2 * kControls; ++i)
            m_stage->Press(i < kControls ? Qt::Key_Tab : Qt::Key_Backtab);
    }

    QcMaskFrame *AddVeil()
    {
        auto *veil = new QcMaskFrame(m_stage.get());
        veil->hide();
        veil->setGeometry(m_stage->rect());
        return veil;
    }

    std::unique_ptr<FocusStage> m_stage;
    QPointer<Busy> m_busy[kControls];

private Q_SLOTS:
    // --- Handlers of the focus ---

    void cues_may_be_switched_when_the_keyboard_comes()
    {
        for (const QPointer<Busy> &busy : m_busy)
            busy->onFocus = [] { SetKeyboardCuesEnabled(!KeyboardCuesEnabled()); };
        QVERIFY(Begin());
        for (int i = 0; i < 3 * kControls; ++i) {
            m_stage->Press(Qt::Key_Tab);
            if (!KeyboardCuesEnabled())
                QVERIFY(m_stage->findChildren<QFocusFrame *>().isEmpty());
        }
        SetKeyboardCuesEnabled(true);
        for (const QPointer<Busy> &busy : m_busy)
            busy->onFocus = nullptr;
        m_stage->Press(Qt::Key_Tab);
        QVERIFY(RingIn(*m_stage));
    }

    void what_gets_the_keyboard_may_die_of_it() // later: Qt itself does not survive that it dies at once
    {
        m_busy[1]->onFocus = [this] { m_busy[1]->deleteLater(); };
        QVERIFY(Begin());
        m_stage->Press(Qt::Key_Tab);
        QVERIFY(!m_busy[1]);
        WalkAround();
        QVERIFY(RingIn(*m_stage));
    }

    void what_had_the_keyboard_may_die_at_once()
    {
        m_busy[1]->onFocus = [this] { delete m_busy[0]; };
        QVERIFY(Begin());
        m_stage->Press(Qt::Key_Tab);
        QVERIFY(!m_busy[0]);
        QVERIFY(RingIn(*m_stage));
        m_busy[1]->onFocus = nullptr;
        m_busy[2]->onFocus = [this] { m_busy[2]->clearFocus(); };
        m_stage->Press(Qt::Key_Tab);
        QVERIFY(!RingIn(*m_stage));
    }

    void what_gets_the_keyboard_may_move_into_another_window()
    {
        FocusStage other;
        m_busy[1]->onFocus = [this, &other] { m_busy[1]->setParent(&other); };
        QVERIFY(Begin());
        m_stage->Press(Qt::Key_Tab);
        QCOMPARE(m_busy[1]->parentWidget(), &other);
        WalkAround();
        QVERIFY(RingIn(*m_stage));
        QVERIFY(!RingIn(other));
        QVERIFY(other.Begin());
        m_busy[1]->onFocus = nullptr;
        m_busy[1]->show();
        m_busy[1]->setFocus(Qt::TabFocusReason);
        QVERIFY(RingIn(other));
    }

    void the_window_may_go_when_the_keyboard_comes_data()
    {
        QTest::addColumn<bool>("dies");
        QTest::newRow("out of sight") << false;
        QTest::newRow("for ever") << true;
    }

    void the_window_may_go_when_the_keyboard_comes()
    {
        QFETCH(bool, dies);
        m_busy[1]->onFocus = [this, dies] {
            if (dies)
                m_stage.release()->deleteLater();
            else
                m_stage->hide();
        };
        QVERIFY(Begin());
        QTest::keyPress(m_stage->windowHandle(), Qt::Key_Tab);
        DrainEvents();
        QCOMPARE(m_busy[1].isNull(), dies);
        QVERIFY(dies || !m_stage->isVisible());
        FocusStage other; // to which the keyboard goes on
        auto *button = other.Add<QcButton>(QRect(10, 10, 80, 24));
        QVERIFY(other.Begin());
        button->setFocus(Qt::TabFocusReason);
        QVERIFY(RingIn(other));
    }

    void what_scrolls_into_sight_may_die_or_end_the_cues_data()
    {
        QTest::addColumn<bool>("dies");
        QTest::newRow("the control dies") << true;
        QTest::newRow("the cues end") << false;
    }

    void what_scrolls_into_sight_may_die_or_end_the_cues()
    {
        QFETCH(bool, dies);
        QScrollArea outer(m_stage.get());
        outer.setFocusPolicy(Qt::NoFocus);
        outer.setGeometry(200, 20, 180, 200);
        auto *page = new QWidget;
        page->resize(150, 900);
        outer.setWidget(page);
        auto *inner = new QScrollArea(page);
        inner->setFocusPolicy(Qt::NoFocus);
        inner->setGeometry(0, 500, 150, 100);
        auto *innerPage = new QWidget;
        innerPage->resize(100, 900);
        inner->setWidget(innerPage);
        QPointer<QcButton> button = m_stage->Add<QcButton>(QRect(20, 700, 60, 24), innerPage);
        QWidget::setTabOrder(m_busy[0], button);
        QVERIFY(Begin());
        bool hasScrolled = false;
        connect(inner->verticalScrollBar(), &QScrollBar::valueChanged, m_stage.get(), [&] {
            hasScrolled = true;
            if (dies)
                delete button;
            else
                SetKeyboardCuesEnabled(false);
        });
        m_stage->Press(Qt::Key_Tab);
        QVERIFY(hasScrolled);
        QCOMPARE(button.isNull(), dies);
        QVERIFY(!RingIn(*m_stage));
        if (!dies)
            QVERIFY(m_stage->findChildren<QFocusFrame *>().isEmpty());
        SetKeyboardCuesEnabled(true);
        m_busy[0]->setFocus();
        m_stage->Press(Qt::Key_Backtab);
        QVERIFY(RingIn(*m_stage));
    }

    // --- Veils ---

    void a_veil_that_comes_below_another_leaves_the_keyboard_to_that_one()
    {
        QcMaskFrame *lower = AddVeil();
        QcMaskFrame *upper = AddVeil();
        auto *answer = m_stage->Add<Busy>(QRect(200, 20, 100, 24), upper);
        QVERIFY(Begin());
        upper->show();
        QVERIFY(answer->hasFocus());
        lower->show();
        QVERIFY(answer->hasFocus());
        for (QWidget *under : {static_cast<QWidget *>(m_busy[1]), static_cast<QWidget *>(lower)}) {
            under->setFocus();
            QVERIFY(answer->hasFocus());
        }
        m_stage->Press(Qt::Key_Tab);
        QVERIFY(answer->hasFocus());
        upper->hide();
        QVERIFY(lower->hasFocus());
        lower->hide();
        QVERIFY(m_busy[0]->hasFocus());
    }

    void what_veils_took_the_keyboard_from_may_die()
    {
        QcMaskFrame *lower = AddVeil();
        QcMaskFrame *upper = AddVeil();
        auto *first = m_stage->Add<Busy>(QRect(200, 20, 100, 24), lower);
        auto *second = m_stage->Add<Busy>(QRect(200, 60, 100, 24), lower);
        QVERIFY(Begin());
        lower->show();
        QVERIFY(first->hasFocus());
        upper->show();
        QVERIFY(upper->hasFocus());
        delete first;
        delete m_busy[0];
        upper->hide();
        QVERIFY(second->hasFocus());
        lower->hide();
        m_stage->Press(Qt::Key_Tab);
        QVERIFY(QApplication::focusWidget() && QApplication::focusWidget()->parentWidget() == m_stage.get());
        QVERIFY(RingIn(*m_stage));
    }

    void veils_may_die_as_the_keyboard_goes_to_them_or_comes_back()
    {
        QPointer<QcMaskFrame> lower = AddVeil();
        QPointer<QcMaskFrame> upper = AddVeil();
        auto *answer = m_stage->Add<Busy>(QRect(200, 20, 100, 24), upper);
        answer->onFocus = [&] { delete lower; };
        m_busy[0]->onFocus = [&] {
            if (lower)
                return;
            upper->deleteLater();
        };
        QVERIFY(Begin());
        lower->show();
        upper->show();
        QVERIFY(!lower);
        QVERIFY(answer->hasFocus());
        upper->hide();
        DrainEvents();
        QVERIFY(!upper);
        m_busy[1]->setFocus();
        QVERIFY(m_busy[1]->hasFocus());
    }

    // --- Texts ---

    void a_buddy_may_die_before_its_key_is_pressed()
    {
        QcLabel label(m_stage.get());
        label.setText(QStringLiteral("&Name"));
        label.move(200, 20);
        auto *buddy = m_stage->Add<QcLineEditFrame>(QRect(200, 60, 150, 32));
        label.setBuddy(buddy);
        QVERIFY(Begin());
        m_stage->Press(Qt::Key_N, Qt::AltModifier);
        QVERIFY(buddy->isAncestorOf(QApplication::focusWidget()));
        delete buddy;
        m_stage->Press(Qt::Key_N, Qt::AltModifier);
        m_stage->Press(Qt::Key_Tab);
        QVERIFY(RingIn(*m_stage));
    }

    void a_link_may_change_or_end_the_text_that_it_stands_in_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::addColumn<bool>("ends");
        QTest::newRow("by Enter, changes") << Qt::Key_Return << false;
        QTest::newRow("by Enter, ends") << Qt::Key_Return << true;
        QTest::newRow("by the mouse, changes") << Qt::Key(0) << false;
        QTest::newRow("by the mouse, ends") << Qt::Key(0) << true;
    }

    void a_link_may_change_or_end_the_text_that_it_stands_in()
    {
        QFETCH(Qt::Key, key);
        QFETCH(bool, ends);
        QPointer<QcMultiLineText> text = m_stage->Add<QcMultiLineText>(QRect(200, 20, 180, 60));
        text->setText(QStringLiteral("<a href=\"1\">One</a> and <a href=\"2\">two</a>"));
        QWidget::setTabOrder(m_busy[0], text);
        QString followed;
        connect(text, &QcMultiLineText::signalAnchorClicked, this, [&](const QString &href) {
            followed = href;
            if (ends)
                delete text;
            else
                text->setText(QStringLiteral("No link"));
        });
        QVERIFY(Begin());
        m_stage->Press(Qt::Key_Tab);
        QVERIFY(RingIn(*m_stage)->width() < 100);
        if (key)
            m_stage->Press(key);
        else
            QTest::mouseClick(m_stage->windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(205, 28));
        QCOMPARE(followed, QStringLiteral("1"));
        QCOMPARE(text.isNull(), ends);
        WalkAround();
        QVERIFY(RingIn(*m_stage));
    }

    void a_held_enter_may_close_the_dialog_of_its_button_data()
    {
        QTest::addColumn<bool>("dies");
        QTest::newRow("out of sight") << false;
        QTest::newRow("for ever") << true;
    }

    void a_held_enter_may_close_the_dialog_of_its_button()
    {
        QFETCH(bool, dies);
        QPointer<QDialog> dialog = new QDialog(m_stage.get());
        auto *button = new QcPrimaryButton(dialog);
        button->setDefault(true);
        connect(button, &QAbstractButton::clicked, dialog, [&] {
            if (dies)
                dialog->deleteLater();
            else
                dialog->accept();
        });
        QVERIFY(Begin());
        dialog->show();
        QVERIFY(QTest::qWaitForWindowActive(dialog));
        QTest::keyPress(dialog->windowHandle(), Qt::Key_Return);
        DrainEvents();
        QCOMPARE(dialog.isNull(), dies);
        m_stage->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_stage.get()));
        QTest::keyRelease(m_stage->windowHandle(), Qt::Key_Return);
        m_stage->Press(Qt::Key_Tab);
        QVERIFY(RingIn(*m_stage));
    }
};

VELMORA_TEST_MAIN(TestFocusAmidstHosts)

#include "tst_FocusAmidstHosts.moc"
