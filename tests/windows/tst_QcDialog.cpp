#include "support/ColorValue.h"
#include "support/EventCounter.h"
#include "support/TestMain.h"
#include "windows/TitleRowChecks.h"

#include <Velmora/PaintingHelpers.h>
#include <Velmora/QcDialog.h>
#include <Velmora/QcPrimaryButton.h>
#include <Velmora/QcSecondaryButton.h>

#include <QLineEdit>
#include <QPainter>
#include <QPointer>
#include <QSignalSpy>
#include <QVBoxLayout>

#include <limits>
#include <utility>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

const QRect kPanel(10, 10, 580, 380);

// What a margin of 10 pixels in a tenth of black must look like.
QImage Shadow(const QWidget &dialog, double radius)
{
    QImage image = Canvas(dialog);
    QPainter painter(&image);
    ShadowParams shadow;
    shadow.margins = QMargins(10, 10, 10, 10);
    shadow.radius = {radius, radius, radius, radius};
    shadow.maxOpacity = 0.1;
    DrawShadow(painter, kPanel, shadow);
    return image;
}

/// A dialog with an edit and a button of its host, which tells whom Enter in the edit reaches.
struct Form
{
    Form()
    {
        auto *column = new QVBoxLayout(dialog.getContentFrame());
        column->addWidget(edit);
        column->addWidget(host);
        Tell(host, QStringLiteral("host"));
        for (const char *name : {"m_okButton", "m_cancelButton"}) {
            auto *button = Child<QPushButton>(dialog, name);
            button->disconnect(&dialog); // the dialog stays
            Tell(button, QLatin1String(name) == QLatin1String("m_okButton") ? QStringLiteral("ok") : QStringLiteral("cancel"));
        }
    }

    void Tell(QPushButton *button, const QString &text)
    {
        QObject::connect(button, &QAbstractButton::clicked, &dialog, [this, text] { answer = text; });
    }

    bool Show()
    {
        dialog.show();
        edit->setFocus();
        return QTest::qWaitForWindowActive(&dialog);
    }

    QString AnswerToEnter()
    {
        answer.clear();
        QTest::keyClick(edit, Qt::Key_Return);
        return answer;
    }

    QcDialog dialog{nullptr};
    QLineEdit *edit = new QLineEdit;     // the dialog's
    QPushButton *host = new QPushButton; // the dialog's
    QString answer;
};

/// A button that does away with another one when it is resized.
class Rival : public QPushButton
{
public:
    using QPushButton::QPushButton;
    QPointer<Rival> rival;

protected:
    void resizeEvent(QResizeEvent *event) override
    {
        delete rival;
        QPushButton::resizeEvent(event);
    }
};

} // namespace

class TestQcDialog : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_dialogs_content_fills_what_lies_under_its_title()
    {
        QcDialog dialog;
        QVERIFY(!dialog.getContentWidget());
        auto *content = new QWidget;
        QVERIFY(QMetaObject::invokeMethod(&dialog, "setContentWidget", Q_ARG(QWidget *, content)));
        dialog.show();
        DrainEvents();
        QCOMPARE(dialog.getContentWidget(), content);
        QCOMPARE(content->parentWidget(), dialog.getContentFrame());
        QCOMPARE(content->size(), dialog.getContentFrame()->size());
        QVERIFY(content->isVisible());
    }

    void a_new_dialog()
    {
        QcDialog dialog(nullptr);
        QCOMPARE(int(dialog.windowFlags()), 0x803);
        QVERIFY(dialog.testAttribute(Qt::WA_TranslucentBackground));
        QCOMPARE(dialog.objectName(), QStringLiteral("QcDialog"));
        QCOMPARE(dialog.windowTitle(), QStringLiteral("dialog"));
        QCOMPARE(dialog.size(), QSize(600, 400));
        dialog.show();
        DrainEvents();
        CheckTitleRow(dialog, QMargins(15, 0, 8, 0), "m_maxButton");

        QLayout *column = dialog.layout();
        QCOMPARE(column->objectName(), QStringLiteral("verticalLayout"));
        QCOMPARE(column->spacing(), 0);
        QCOMPARE(column->contentsMargins(), QMargins(10, 10, 10, 10));
        QCOMPARE(column->itemAt(0)->widget(), dialog.getTitleFrame());
        QCOMPARE(column->itemAt(1)->widget(), dialog.getContentFrame());
        QCOMPARE(column->itemAt(2)->widget(), Child<QFrame>(dialog, "m_bottomFrame"));
        QCOMPARE(column->count(), 3);
        QCOMPARE(dialog.getContentFrame()->geometry(), QRect(10, 50, 580, 340));
        QCOMPARE(dialog.getContentFrame()->sizePolicy(), QSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding));
        QVERIFY(!dialog.getContentFrame()->layout());
        QVERIFY(!Child<QcIconButton>(dialog, "m_maxButton")->isCheckable());

        QVERIFY(dialog.getTitleFrame()->isVisible());
        QVERIFY(IsShown(dialog, "m_closeButton"));
        QVERIFY(!IsShown(dialog, "m_minButton") && !IsShown(dialog, "m_maxButton") && !IsShown(dialog, "m_bottomFrame"));
    }

    void its_texts_follow_the_language_and_those_of_its_host_stay()
    {
        CheckLanguageChange<QcDialog>("QcDialog", QStringLiteral("dialog"), "m_maxButton");
    }

    void the_texts_of_the_bottom_row_follow_the_language()
    {
        QcDialog dialog(nullptr);
        dialog.setCancelButtonText(QStringLiteral("Leave"));
        const auto *ok = Child<QcPrimaryButton>(dialog, "m_okButton");
        const auto *cancel = Child<QcSecondaryButton>(dialog, "m_cancelButton");
        {
            const BracketTranslator translator("QcDialog");
            DrainEvents();
            QCOMPARE(ok->text(), QStringLiteral("[PushButton]"));
            QCOMPARE(cancel->text(), QStringLiteral("Leave"));
            const QcDialog late(nullptr);
            QCOMPARE(Child<QcSecondaryButton>(late, "m_cancelButton")->text(), QStringLiteral("[PushButton]"));
        }
        DrainEvents();
        QCOMPARE(ok->text(), QStringLiteral("PushButton"));
        QCOMPARE(cancel->text(), QStringLiteral("Leave"));
    }

    void the_bottom_row()
    {
        QcDialog dialog(nullptr);
        dialog.show();
        dialog.setOkButtonVisible(true);
        QVERIFY(!IsShown(dialog, "m_okButton")); // its row is hidden
        dialog.setBottomFrameVisible(true);
        DrainEvents();
        QVERIFY(IsShown(dialog, "m_okButton") && IsShown(dialog, "m_cancelButton"));

        auto *frame = Child<QFrame>(dialog, "m_bottomFrame");
        QCOMPARE(frame->minimumSize(), QSize(0, 0));
        QCOMPARE(frame->frameShape(), QFrame::NoFrame);
        QCOMPARE(frame->frameShadow(), QFrame::Raised);
        QLayout *row = frame->layout();
        QCOMPARE(row->objectName(), QStringLiteral("horizontalLayout_2"));
        QCOMPARE(row->spacing(), 12);
        QCOMPARE(row->contentsMargins(), QMargins(16, 16, 16, 16));
        QCOMPARE(row->itemAt(0)->sizeHint(), QSize(417, 20));
        QCOMPARE(row->itemAt(0)->expandingDirections(), Qt::Horizontal);
        auto *ok = Child<QcPrimaryButton>(dialog, "m_okButton");
        auto *cancel = Child<QcSecondaryButton>(dialog, "m_cancelButton");
        QCOMPARE(row->itemAt(1)->widget(), ok);
        QCOMPARE(row->itemAt(2)->widget(), cancel);
        QCOMPARE(row->count(), 3);
        QCOMPARE(ok->minimumWidth(), 80);
        QCOMPARE(cancel->minimumWidth(), 80);
        QCOMPARE(ok->text(), QStringLiteral("PushButton"));
        QCOMPARE(cancel->text(), QStringLiteral("PushButton"));
        QCOMPARE(cancel->mapTo(&dialog, QPoint(cancel->width(), 0)).x(), 590 - 16);
        QCOMPARE(cancel->x() - ok->geometry().right() - 1, 12);

        dialog.setOkButtonText(QStringLiteral("Save"));
        dialog.setCancelButtonText(QStringLiteral("Leave"));
        QCOMPARE(ok->text(), QStringLiteral("Save"));
        QCOMPARE(cancel->text(), QStringLiteral("Leave"));
        dialog.setOkButtonVisible(false);
        QVERIFY(!IsShown(dialog, "m_okButton") && IsShown(dialog, "m_cancelButton"));
        dialog.setCancelButtonVisible(false);
        QVERIFY(!IsShown(dialog, "m_cancelButton"));
    }

    void the_button_height_reaches_the_hosts_buttons_too()
    {
        QcDialog dialog(nullptr);
        auto *bottom = Child<QFrame>(dialog, "m_bottomFrame");
        auto *group = new QWidget(bottom);
        auto *deep = new QPushButton(group);
        auto *outside = new QPushButton(dialog.getContentFrame());
        const int before = outside->maximumHeight();
        dialog.setBottomButtonHeight(33);
        const QPushButton *const reached[] = {Child<QcPrimaryButton>(dialog, "m_okButton"),
                                              Child<QcSecondaryButton>(dialog, "m_cancelButton"), deep};
        for (const QPushButton *button : reached) {
            QCOMPARE(button->minimumHeight(), 33);
            QCOMPARE(button->maximumHeight(), 33);
        }
        QCOMPARE(outside->maximumHeight(), before);
    }

    void title_and_title_buttons()
    {
        QcDialog dialog(nullptr);
        dialog.show();
        dialog.setTitle(QStringLiteral("Letters"));
        QCOMPARE(Child<QcLabel>(dialog, "m_titleLabel")->text(), QStringLiteral("Letters"));
        QCOMPARE(dialog.windowTitle(), QStringLiteral("dialog"));
        dialog.controlMinMaxBtn(true);
        QVERIFY(IsShown(dialog, "m_minButton") && IsShown(dialog, "m_maxButton"));
        dialog.controlMinMaxBtn(false);
        QVERIFY(!IsShown(dialog, "m_minButton") && !IsShown(dialog, "m_maxButton"));
        dialog.setCloseButtonVisible(false);
        QVERIFY(!IsShown(dialog, "m_closeButton"));
        dialog.setTitleBarVisible(false);
        QVERIFY(!dialog.getTitleFrame()->isVisible());
        DrainEvents();
        QCOMPARE(dialog.getContentFrame()->geometry(), kPanel);
    }

    void a_button_may_do_away_with_another_one_when_its_height_is_set()
    {
        QcDialog dialog(nullptr);
        auto *bottom = Child<QFrame>(dialog, "m_bottomFrame");
        auto *first = new Rival(bottom);            // the row's
        QPointer<Rival> second = new Rival(bottom); // deleted by the first
        dialog.setBottomFrameVisible(true);
        dialog.show();
        first->rival = second;
        dialog.setBottomButtonHeight(33);
        QVERIFY(!second);
        QCOMPARE(first->height(), 33);
    }

    void minimise_and_maximise_by_their_buttons()
    {
        QcDialog dialog(nullptr);
        dialog.controlMinMaxBtn(true);
        dialog.show();
        auto *max = Child<QcIconButton>(dialog, "m_maxButton");
        QTest::mouseClick(max, Qt::LeftButton);
        QVERIFY(dialog.isMaximized() && !max->isChecked());
        QTest::mouseClick(max, Qt::LeftButton);
        QVERIFY(!dialog.isMaximized());
        dialog.showMaximized();
        QTest::mouseClick(max, Qt::LeftButton); // the button asks the window, not itself
        QVERIFY(!dialog.isMaximized());
        QTest::mouseClick(Child<QcIconButton>(dialog, "m_minButton"), Qt::LeftButton);
        QVERIFY(dialog.isMinimized());
    }

    void a_double_click_on_the_title_row_is_swallowed()
    {
        QcDialog dialog(nullptr);
        dialog.show();
        DoubleClicks onFrame(dialog.getTitleFrame());
        DoubleClicks onDialog(&dialog);
        QTest::mouseDClick(dialog.getTitleFrame(), Qt::LeftButton);
        QTest::mouseDClick(Child<QcLabel>(dialog, "m_titleLabel"), Qt::LeftButton);
        QVERIFY(!dialog.isMaximized());
        QCOMPARE(onDialog.count, 0);

        dialog.removeEventFilter();
        QTest::mouseDClick(dialog.getTitleFrame(), Qt::LeftButton);
        QVERIFY(onFrame.count > 0);
        QCOMPARE(onDialog.count, 1);
        QVERIFY(!dialog.isMaximized());
    }

    void ok_accepts_and_cancel_rejects()
    {
        QcDialog dialog(nullptr);
        dialog.setBottomFrameVisible(true);
        QSignalSpy closed(&dialog, &QcDialog::signalClose);
        dialog.show();
        QTest::mouseClick(Child<QcPrimaryButton>(dialog, "m_okButton"), Qt::LeftButton);
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        QVERIFY(!dialog.isVisible());
        dialog.show();
        QTest::mouseClick(Child<QcSecondaryButton>(dialog, "m_cancelButton"), Qt::LeftButton);
        QCOMPARE(dialog.result(), int(QDialog::Rejected));
        QVERIFY(!dialog.isVisible());
        QCOMPARE(closed.count(), 0); // hidden, not closed
    }

    void closing_says_so_before_it_rejects()
    {
        QcDialog dialog(nullptr);
        QStringList order;
        connect(&dialog, &QcDialog::signalClose, this, [&] { order.append(QStringLiteral("close")); });
        connect(&dialog, &QDialog::rejected, this, [&] { order.append(QStringLiteral("rejected")); });
        dialog.show();
        QTest::mouseClick(Child<QcIconButton>(dialog, "m_closeButton"), Qt::LeftButton);
        QCOMPARE(order, QStringList({QStringLiteral("close"), QStringLiteral("rejected")}));
        QVERIFY(!dialog.isVisible());
    }

    void a_host_may_delete_a_dialog_that_closes() { CheckDeletionWhenItCloses<QcDialog>(); }

    void works_by_keyboard()
    {
        QcDialog dialog(nullptr);
        dialog.setBottomFrameVisible(true);
        auto *edit = new QLineEdit(dialog.getContentFrame());
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        edit->setFocus();
        QTest::keyClick(edit, Qt::Key_Return); // the OK button, not one of the title row
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        QVERIFY(!dialog.isVisible());

        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QTest::keyClick(&dialog, Qt::Key_Escape);
        QCOMPARE(dialog.result(), int(QDialog::Rejected));
        QVERIFY(!dialog.isVisible());

        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        Child<QcSecondaryButton>(dialog, "m_cancelButton")->setFocus();
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
        QCOMPARE(dialog.focusWidget(), edit); // past the title row
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Space);
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
    }

    void enter_does_nothing_without_a_button_that_shows()
    {
        QcDialog dialog(nullptr);
        auto *edit = new QLineEdit(dialog.getContentFrame());
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QCOMPARE(dialog.focusWidget(), edit);
        QTest::keyClick(edit, Qt::Key_Return);
        QVERIFY(dialog.isVisible());
    }

    void enter_reaches_the_hosts_button_while_the_bottom_row_is_hidden()
    {
        Form form;
        QVERIFY(form.Show());
        QCOMPARE(form.AnswerToEnter(), QStringLiteral("host"));
        form.dialog.setBottomFrameVisible(true);
        QCOMPARE(form.AnswerToEnter(), QStringLiteral("host")); // a default stays
        form.dialog.setBottomFrameVisible(false);
        QCOMPARE(form.AnswerToEnter(), QStringLiteral("host"));
    }

    void enter_reaches_a_bottom_button_as_soon_as_it_shows()
    {
        Form form;
        delete form.host;
        QVERIFY(form.Show());
        QCOMPARE(form.AnswerToEnter(), QString());
        form.dialog.setBottomFrameVisible(true);
        QCOMPARE(form.AnswerToEnter(), QStringLiteral("ok"));
        form.dialog.setOkButtonVisible(false);
        QCOMPARE(form.AnswerToEnter(), QStringLiteral("cancel"));
        form.dialog.setCancelButtonVisible(false);
        QCOMPARE(form.AnswerToEnter(), QString());
        form.dialog.setOkButtonVisible(true);
        QCOMPARE(form.AnswerToEnter(), QStringLiteral("ok"));
        form.dialog.setBottomFrameVisible(false);
        QCOMPARE(form.AnswerToEnter(), QString());
    }

    void enter_goes_from_a_bottom_button_that_hides_to_the_hosts()
    {
        Form form;
        form.dialog.setBottomFrameVisible(true);
        auto *ok = Child<QcPrimaryButton>(form.dialog, "m_okButton");
        ok->setDefault(true);
        QVERIFY(form.Show());
        QCOMPARE(form.AnswerToEnter(), QStringLiteral("ok"));
        ok->hide(); // by its host, past the dialog
        QCOMPARE(form.AnswerToEnter(), QStringLiteral("host"));
        ok->show();
        form.edit->setFocus();
        QCOMPARE(form.AnswerToEnter(), QStringLiteral("host"));
    }

    void a_default_of_the_host_stays_the_default()
    {
        Form form;
        auto *other = new QPushButton(form.dialog.getContentFrame());
        connect(other, &QAbstractButton::clicked, this, [&] { form.answer = QStringLiteral("other"); });
        other->setDefault(true);
        form.dialog.setBottomFrameVisible(true);
        QVERIFY(form.Show());
        QCOMPARE(form.AnswerToEnter(), QStringLiteral("other"));
        form.dialog.setBottomFrameVisible(false);
        form.dialog.setBottomFrameVisible(true);
        QCOMPARE(form.AnswerToEnter(), QStringLiteral("other"));
    }

    void a_default_given_to_a_bottom_button_before_it_shows_waits_for_it()
    {
        Form form;
        form.edit->setFocus(); // the host's button stands behind it
        Child<QcPrimaryButton>(form.dialog, "m_okButton")->setDefault(true);
        form.dialog.setCancelButtonVisible(false);
        form.dialog.setBottomFrameVisible(true);
        QVERIFY(form.Show());
        QCOMPARE(form.AnswerToEnter(), QStringLiteral("ok"));
    }

    void a_default_given_to_a_bottom_button_that_stays_hidden_leaves_enter_to_the_hosts()
    {
        Form form;
        Child<QcPrimaryButton>(form.dialog, "m_okButton")->setDefault(true);
        QVERIFY(form.Show());
        QCOMPARE(form.AnswerToEnter(), QStringLiteral("host"));
    }

    void a_dialog_used_again_without_its_bottom_row_gives_enter_to_the_hosts_button()
    {
        Form form;
        form.dialog.setBottomFrameVisible(true);
        Child<QcPrimaryButton>(form.dialog, "m_okButton")->setDefault(true);
        QVERIFY(form.Show());
        QCOMPARE(form.AnswerToEnter(), QStringLiteral("ok"));
        form.dialog.hide();
        form.dialog.setBottomFrameVisible(false);
        QVERIFY(form.Show());
        QCOMPARE(form.AnswerToEnter(), QStringLiteral("host"));
    }

    void a_hidden_default_of_the_host_stays_its_own_affair()
    {
        Form form;
        auto *later = new QPushButton(form.dialog.getContentFrame());
        connect(later, &QAbstractButton::clicked, this, [&] { form.answer = QStringLiteral("later"); });
        later->hide();
        later->setDefault(true);
        QVERIFY(form.Show());
        form.dialog.setBottomFrameVisible(true);
        later->show();
        QCOMPARE(form.AnswerToEnter(), QStringLiteral("later"));
    }

    void a_dialog_that_lies_in_a_window_gives_enter_to_its_own_buttons_alone()
    {
        QWidget window;
        auto *column = new QVBoxLayout(&window);
        auto *dialog = new QcDialog(nullptr);
        auto *others = new QPushButton;
        others->setAutoDefault(true);
        auto *edit = new QLineEdit; // has the focus, which would give Enter to the button
        column->addWidget(edit);
        column->addWidget(dialog);
        column->addWidget(others);
        edit->setFocus();
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QVERIFY(!others->isDefault());
        dialog->setBottomFrameVisible(true);
        QVERIFY(Child<QcPrimaryButton>(*dialog, "m_okButton")->isDefault());
        QVERIFY(!others->isDefault());
    }

    void a_host_may_delete_the_bottom_buttons()
    {
        QcDialog dialog(nullptr);
        dialog.setBottomFrameVisible(true);
        dialog.show();
        delete Child<QcPrimaryButton>(dialog, "m_okButton");
        dialog.setCancelButtonVisible(false); // who takes Enter now?
        delete Child<QcSecondaryButton>(dialog, "m_cancelButton");
        const BracketTranslator translator("QcDialog");
        DrainEvents();
        QCOMPARE(dialog.windowTitle(), QStringLiteral("[dialog]"));
    }

    void only_bottom_buttons_that_show_offer_themselves_to_enter()
    {
        QcDialog dialog(nullptr);
        const auto *ok = Child<QcPrimaryButton>(dialog, "m_okButton");
        const auto *cancel = Child<QcSecondaryButton>(dialog, "m_cancelButton");
        const auto offered = [&] { return std::make_pair(ok->autoDefault(), cancel->autoDefault()); };
        QCOMPARE(offered(), std::make_pair(false, false));
        dialog.setBottomFrameVisible(true); // also before the dialog shows
        QCOMPARE(offered(), std::make_pair(true, true));
        dialog.setOkButtonVisible(false);
        QCOMPARE(offered(), std::make_pair(false, true));
        dialog.setBottomFrameVisible(false);
        dialog.setOkButtonVisible(true);
        QCOMPARE(offered(), std::make_pair(false, false));
        dialog.setBottomFrameVisible(true);
        dialog.setCancelButtonVisible(false);
        QCOMPARE(offered(), std::make_pair(true, false));
    }

    void shows_centred_on_the_window_of_a_reference()
    {
        QWidget host;
        host.setGeometry(120, 80, 700, 500);
        QWidget inner(&host);
        host.show();
        QcDialog dialog(nullptr);
        dialog.showToCenter(nullptr);
        QVERIFY(!dialog.isVisible());
        dialog.showToCenter(&inner);
        QVERIFY(dialog.isVisible() && !dialog.isModal());
        QCOMPARE(dialog.pos(), QPoint(170, 130));
    }

    void a_dialog_smaller_than_its_least_size_is_centred_as_it_will_be()
    {
        QWidget host;
        host.setGeometry(120, 80, 700, 500);
        host.show();
        QcDialog dialog(nullptr);
        dialog.setBottomFrameVisible(true);
        dialog.resize(10, 10);
        dialog.showToCenter(&host);
        DrainEvents();
        QVERIFY(dialog.width() > 100 && dialog.height() > 100);
        QCOMPARE(dialog.pos(), QPoint(120 + (700 - dialog.width()) / 2, 80 + (500 - dialog.height()) / 2));
    }

    void the_panel_in_both_tables()
    {
        QcDialog dialog(nullptr);
        dialog.setTitle(QString());
        dialog.setCloseButtonVisible(false);
        dialog.show();
        for (const Table table : {Table::Dark, Table::Light}) {
            UseTable(table);
            const QImage image = Render(dialog);
            const QColor fill = Over(TokenOf(table, QStringLiteral("bg/bg_box")), Qt::white);
            COMPARE_COLOR(PixelAt(image, QPointF(300, 200)), fill);
            COMPARE_COLOR(PixelAt(image, QPointF(12, 12)), fill); // square, not rounded
            COMPARE_COLOR(PixelAt(image, QPointF(587, 387)), fill);
            QColor half = TokenOf(table, QStringLiteral("border/border_tertairy"));
            half.setAlphaF(ColorValue(half.alphaF() * 0.5)); // the line is centred on the panel's edge
            if (image.devicePixelRatio() == 1.0)
                COMPARE_COLOR(PixelAt(image, QPointF(10, 200)), Over(half, fill));
        }
    }

    void colours_and_radius_can_be_set()
    {
        QcDialog dialog(nullptr);
        dialog.setTitleBarVisible(false);
        dialog.show();
        DrainEvents();
        EventCounter paints(dialog, QEvent::Paint);
        dialog.setBackgroundColorParams(QStringLiteral("#FF0000"));
        DrainEvents();
        QCOMPARE(paints.Take(), 1);
        dialog.setBorderColorParams(QStringLiteral("#0000FF"));
        DrainEvents();
        QCOMPARE(paints.Take(), 1);
        dialog.setBorderRadius(20);
        DrainEvents();
        QCOMPARE(paints.Take(), 1);
        UseTable(Table::Dark);
        QCOMPARE(paints.Take(), 1);

        const QImage image = Render(dialog);
        COMPARE_COLOR(PixelAt(image, QPointF(300, 200)), QColor(Qt::red));
        COMPARE_COLOR(PixelAt(image, QPointF(13, 13)), QColor(Qt::red)); // a radius rounds the shadow only
        if (image.devicePixelRatio() == 1.0) {
            QColor half(Qt::blue);
            half.setAlphaF(0.5); // the line is centred on the panel's edge
            COMPARE_COLOR(PixelAt(image, QPointF(10, 200)), Over(half, Qt::red));
            COMPARE_COLOR(PixelAt(image, QPointF(300, 10)), Over(half, Qt::red));
            COMPARE_COLOR(PixelAt(image, QPointF(589, 200)), Over(half, Qt::red));
            COMPARE_COLOR(PixelAt(image, QPointF(300, 389)), Over(half, Qt::red));
        }
    }

    void a_dialog_whose_layout_the_host_deleted_is_all_panel()
    {
        QcDialog dialog(nullptr);
        delete dialog.layout();
        dialog.setBackgroundColorParams(QStringLiteral("#FF0000"));
        COMPARE_COLOR(PixelAt(Render(dialog), QPointF(3, 3)), QColor(Qt::red));
    }

    void the_shadow_data()
    {
        QTest::addColumn<int>("radius");
        for (const int radius : {0, 8, 20})
            QTest::newRow(qPrintable(QString::number(radius))) << radius;
    }

    void the_shadow()
    {
        QFETCH(int, radius);
        QcDialog dialog(nullptr);
        dialog.setTitleBarVisible(false);
        dialog.setBorderColorParams(QStringLiteral("transparent"));
        dialog.setBackgroundColorParams(QStringLiteral("#FF0000"));
        if (radius != 8) // the first one
            dialog.setBorderRadius(radius);
        dialog.show();
        DrainEvents();
        const QImage image = Render(dialog);
        const QImage shadow = Shadow(dialog, radius);

        QColor strongest(Qt::black);
        strongest.setAlphaF(ColorValue(0.1));
        for (const QPointF &beside : {QPointF(9.5, 200), QPointF(300, 9.5), QPointF(590.5, 200), QPointF(300, 390.5)})
            COMPARE_COLOR(PixelAt(image, beside), Over(strongest));
        QVERIFY(PixelAt(image, QPointF(0, 200)).red() > PixelAt(image, QPointF(5, 200)).red());

        // Everywhere outside of the panel, corners included.
        int compared = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QPointF logical = QPointF(x + 0.5, y + 0.5) / image.devicePixelRatio();
                if (QRectF(kPanel).adjusted(-0.5, -0.5, 0.5, 0.5).contains(logical))
                    continue;
                ++compared;
                QVERIFY2(image.pixel(x, y) == shadow.pixel(x, y), qPrintable(QStringLiteral("%1, %2").arg(x).arg(y)));
            }
        }
        QVERIFY(compared > 10000);
        // A radius leaves a notch between the round shadow and the square panel, and covers none of the panel.
        COMPARE_COLOR(PixelAt(image, QPointF(11, 11)), QColor(Qt::red));
    }

    void an_extreme_radius_still_paints_the_panel()
    {
        QcDialog dialog(nullptr);
        dialog.setTitleBarVisible(false);
        dialog.setBackgroundColorParams(QStringLiteral("#FF0000"));
        for (const int radius : {std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
            dialog.setBorderRadius(radius); // which a sanitizer finds where it is computed with
            COMPARE_COLOR(PixelAt(Render(dialog), QPointF(300, 200)), QColor(Qt::red));
        }
    }

    void a_part_repainted_looks_as_before_data()
    {
        QTest::addColumn<QString>("ground");
        QTest::newRow("opaque") << QStringLiteral("bg/bg_box");
        QTest::newRow("translucent, with the shadow under its corners") << QStringLiteral("transparent");
    }

    void a_part_repainted_looks_as_before()
    {
        QFETCH(QString, ground);
        QcDialog dialog(nullptr);
        dialog.setBackgroundColorParams(ground);
        dialog.setBorderRadius(20);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        DrainEvents();
        const QImage whole = Render(dialog);
        const QRect parts[] = {
            {100, 100, 50, 50}, {0, 0, 30, 30},    {8, 150, 12, 5},   {560, 380, 40, 20}, // over the edge, and far from it
            {10, 10, 10, 10},   {580, 10, 10, 10}, {10, 380, 10, 10}, {580, 380, 10, 10}, // within one corner each
        };
        for (const QRect &part : parts) {
            QImage image = whole;
            QPainter painter(&image);
            painter.setCompositionMode(QPainter::CompositionMode_Source);
            painter.fillRect(part, Qt::white);
            painter.end();
            dialog.render(&image, part.topLeft(), part, QWidget::DrawChildren);
            const qreal ratio = whole.devicePixelRatio();
            const QRect inside =
                QRectF(QPointF(part.topLeft()) * ratio, QSizeF(part.size()) * ratio).toAlignedRect().adjusted(2, 2, -2, -2);
            QCOMPARE(image.copy(inside), whole.copy(inside));
        }
    }

    void right_to_left_turns_the_rows_around()
    {
        QcDialog dialog(nullptr);
        dialog.setBottomFrameVisible(true);
        dialog.setLayoutDirection(Qt::RightToLeft);
        dialog.show();
        DrainEvents();
        QVERIFY(Child<QcIconButton>(dialog, "m_closeButton")->x() < Child<QcLabel>(dialog, "m_titleLabel")->x());
        QVERIFY(Child<QcSecondaryButton>(dialog, "m_cancelButton")->x() < Child<QcPrimaryButton>(dialog, "m_okButton")->x());
        QCOMPARE(Child<QcSecondaryButton>(dialog, "m_cancelButton")->x(), 16);
    }

protected:
    void TearDown() override { UseTable(Table::Light); }

private:
    static bool IsShown(const QWidget &dialog, const char *name) { return Child<QWidget>(dialog, name)->isVisible(); }

    class DoubleClicks : public QObject
    {
    public:
        explicit DoubleClicks(QObject *watched) { watched->installEventFilter(this); }
        int count = 0;

    protected:
        bool eventFilter(QObject * /*watched*/, QEvent *event) override
        {
            count += event->type() == QEvent::MouseButtonDblClick;
            return false;
        }
    };
};

VELMORA_TEST_MAIN(TestQcDialog)

#include "tst_QcDialog.moc"
