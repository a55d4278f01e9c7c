#include "feedback/DialogChecks.h"
#include "feedback/ToastSupport.h"
#include "support/AccessibleEvents.h"
#include "support/EventCounter.h"
#include "support/Pixels.h"
#include "support/ProcessorTime.h"
#include "support/TestMain.h"
#include "windows/TitleRowChecks.h"

#include <QAccessible>
#include <QElapsedTimer>
#include <QGraphicsOpacityEffect>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPaintEngine>
#include <QPainter>
#include <QSignalSpy>
#include <QSvgRenderer>
#include <QSvgWidget>
#include <QVBoxLayout>

#include <type_traits>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

QString LongText()
{
    return QStringLiteral("several words ").repeated(20);
}

QImage PictureOf(const QString &file, QWidget &like)
{
    QSvgRenderer renderer(file);
    QImage image = Canvas(like);
    QPainter painter(&image);
    renderer.render(&painter, QRectF(like.rect()));
    painter.end();
    return image;
}

qreal Opacity(const QcToast &toast)
{
    return qobject_cast<QGraphicsOpacityEffect *>(toast.graphicsEffect())->opacity();
}

/// What a toast is told.
QcToast::Params Told(const QString &text, int duration = 5000)
{
    QcToast::Params params;
    params.text = text;
    params.duration = duration;
    return params;
}

/// A part of a toast that finds out how high the picture is that Qt has it painted on.
class PaintedOn : public QWidget
{
public:
    explicit PaintedOn(QcToast &toast)
        : QWidget(&toast)
    {
        setGeometry(toast.rect());
        show();
    }

    double Height() const { return m_height; }

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QPainter painter(this);
        m_height = painter.paintEngine()->paintDevice()->height();
    }

private:
    double m_height = 0;
};

} // namespace

class tst_QcToast : public TestCase
{
    Q_OBJECT

protected:
    void SetUp() override
    {
        m_window = std::make_unique<QWidget>();
        m_window->setGeometry(100, 100, 600, 400);
        m_toast = new QcToast(m_window.get());
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        DrainEvents();
    }

    void TearDown() override
    {
        m_window.reset();
        UseTable(Table::Light);
    }

private Q_SLOTS:
    // --- Parts ---

    void the_parts_stand_in_a_row()
    {
        auto *outer = qobject_cast<QHBoxLayout *>(m_toast->layout());
        QVERIFY(outer);
        QCOMPARE(outer->contentsMargins(), QMargins());
        QCOMPARE(outer->spacing(), 0);
        QCOMPARE(outer->sizeConstraint(), QLayout::SetFixedSize);
        QWidget *content = outer->itemAt(0)->widget();
        QCOMPARE(content->metaObject(), &QWidget::staticMetaObject);
        QCOMPARE(content->minimumWidth(), 320);
        QCOMPARE(content->maximumWidth(), 320);
        auto *row = qobject_cast<QHBoxLayout *>(content->layout());
        QVERIFY(row);
        QCOMPARE(row->contentsMargins(), QMargins(12, 10, 8, 10));
        QCOMPARE(row->spacing(), 8);
        QCOMPARE(row->count(), 3);

        QCOMPARE(row->itemAt(0)->widget()->metaObject(), &QWidget::staticMetaObject);
        QCOMPARE(row->itemAt(2)->widget()->metaObject(), &QFrame::staticMetaObject);
        for (const int index : {0, 2}) {
            auto *column = qobject_cast<QVBoxLayout *>(row->itemAt(index)->widget()->layout());
            QVERIFY(column);
            QCOMPARE(column->contentsMargins(), QMargins(0, 3, 0, 0));
            QCOMPARE(column->itemAt(0)->alignment(), Qt::AlignTop);
            QCOMPARE(column->itemAt(0)->widget()->minimumSize(), QSize(16, 16));
            QCOMPARE(column->itemAt(0)->widget()->maximumSize(), QSize(16, 16));
        }
        QCOMPARE(row->itemAt(0)->widget()->layout()->itemAt(0)->widget(), m_toast->findChild<QSvgWidget *>());
        QCOMPARE(row->itemAt(2)->widget()->layout()->itemAt(0)->widget(), CloseButtonOf(*m_toast));
        QCOMPARE(row->itemAt(1)->widget(), TextOf(*m_toast));
        QCOMPARE(TextOf(*m_toast)->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
        QCOMPARE(TextOf(*m_toast)->sizePolicy().verticalPolicy(), QSizePolicy::Preferred);
    }

    void a_host_finds_one_of_each_part()
    {
        QCOMPARE(m_toast->findChildren<QSvgWidget *>().size(), 1);
        QCOMPARE(m_toast->findChildren<QcMultiLineText *>().size(), 1);
        QCOMPARE(m_toast->findChildren<QcIconButton *>().size(), 1);
        QCOMPARE(m_toast->findChildren<QPropertyAnimation *>().size(), 2);
        QCOMPARE(m_toast->findChildren<QTimer *>(QString(), Qt::FindDirectChildrenOnly).size(), 1);
        QCOMPARE(AnimationOf(*m_toast, "opacity")->duration(), 250);
        QCOMPARE(AnimationOf(*m_toast, "pos")->duration(), 100);
        for (const char *property : {"opacity", "pos"})
            QCOMPARE(AnimationOf(*m_toast, property)->easingCurve(), QEasingCurve());
        QVERIFY(!m_toast->testAttribute(Qt::WA_DeleteOnClose)); // which its manager sets
    }

    void a_type_selects_its_icon_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("file");
        QTest::newRow("information") << 0 << ":/images/information.svg";
        QTest::newRow("warning") << 1 << ":/images/warning.svg";
        QTest::newRow("error") << 2 << ":/images/error.svg";
        QTest::newRow("success") << 3 << ":/images/success.svg";
    }
    void a_type_selects_its_icon()
    {
        QFETCH(int, type);
        QFETCH(QString, file);
        m_toast->setType(type == 0 ? QcToast::Error : QcToast::Information);
        m_toast->setType(QcToast::Type(type));
        auto *icon = m_toast->findChild<QSvgWidget *>();
        QCOMPARE(Render(*icon), PictureOf(file, *icon));
        QVERIFY(Render(*icon) != Render(*icon, Qt::red)); // nothing lies under the icon
    }

    void the_text_is_14_pixels_large()
    {
        QcMultiLineText expected(m_window.get());
        expected.setFont(14);
        expected.setText(QStringLiteral("Saved"));
        m_toast->setText(QStringLiteral("Saved"));
        m_toast->showToast(false);
        DrainEvents();
        expected.resize(TextOf(*m_toast)->size());
        const QImage text = Render(*TextOf(*m_toast));
        QCOMPARE(text, Render(expected));
        expected.setFont(13);
        QVERIFY(text != Render(expected));
    }

    void an_unknown_type_changes_nothing_and_none_is_stored()
    {
        static_assert(std::is_same<std::underlying_type_t<QcToast::Type>, int>::value, "the enum can hold what it does not name");
        m_toast->setType(QcToast::Warning);
        auto *icon = m_toast->findChild<QSvgWidget *>();
        const QImage before = Render(*icon);
        for (const int type : {-1, 4, 9})
            m_toast->setType(QcToast::Type(type));
        QCOMPARE(Render(*icon), before);
        QcToast::Params params;
        m_toast->getParams(params);
        QCOMPARE(params.type, QcToast::Information);
    }

    void the_icon_that_shows_is_not_read_again()
    {
        m_toast->setType(QcToast::Warning);
        m_toast->showToast(false);
        DrainEvents();
        EventCounter paints(*m_toast->findChild<QSvgWidget *>(), QEvent::Paint);
        m_toast->setType(QcToast::Warning);
        DrainEvents();
        QCOMPARE(paints.Take(), 0);
        m_toast->setType(QcToast::Error);
        DrainEvents();
        QVERIFY(paints.Take() > 0);
    }

    void the_record_is_copied_in_and_out()
    {
        QcToast::Params told;
        QCOMPARE(told.type, QcToast::Information);
        QCOMPARE(told.text, QString());
        QCOMPARE(told.duration, 5000);
        QCOMPARE(told.removable, true);
        QCOMPARE(told.id, -1);
        told = {QcToast::Success, QStringLiteral("Saved"), -70, false, 12};
        m_toast->setParams(told);
        m_toast->setText(QStringLiteral("Sent")); // neither is stored
        m_toast->setDuration(9);
        QcToast::Params read;
        m_toast->getParams(read);
        QCOMPARE(read.type, QcToast::Success);
        QCOMPARE(read.text, QStringLiteral("Saved"));
        QCOMPARE(read.duration, -70);
        QCOMPARE(read.removable, false);
        QCOMPARE(read.id, 12);
        QCOMPARE(TextOf(*m_toast)->property("text").toString(), QStringLiteral("Sent"));
        QCOMPARE(TimerOf(*m_toast)->interval(), 9);
    }

    // --- Size ---

    void a_text_that_wraps_makes_it_higher_and_who_hears_of_it_finds_the_new_height()
    {
        m_toast->setText(QStringLiteral("Saved"));
        m_toast->showToast(false);
        DrainEvents();
        const int low = m_toast->height();
        QCOMPARE(m_toast->width(), 322); // with the border
        QCOMPARE(low, qMax(TextOf(*m_toast)->height(), 19) + 20 + 2);
        int told = 0;
        connect(m_toast, &QcToast::signalHeightChanged, this, [&] { told = m_toast->height(); });
        m_toast->setText(LongText());
        QVERIFY(told > low);
        DrainEvents();
        QCOMPARE(m_toast->height(), TextOf(*m_toast)->height() + 20 + 2);
        QCOMPARE(told, m_toast->height());
    }

    void it_has_its_width_before_it_shows()
    {
        const QcToast fresh(m_window.get());
        QCOMPARE(fresh.width(), 322);
    }

    void text_and_record_are_told_of_with_the_height()
    {
        QSignalSpy told(m_toast, &QcToast::signalHeightChanged);
        m_toast->setText(QStringLiteral("Saved"));
        QVERIFY(told.count() >= 1);
        told.clear();
        m_toast->setParams(Told(QStringLiteral("Saved")));
        QVERIFY(told.count() >= 1);
    }

    // --- Time ---

    void it_fades_in_waits_and_closes()
    {
        m_toast->setParams(Told(QStringLiteral("Saved"), 4000));
        m_toast->showToast(true);
        QVERIFY(m_toast->isVisible());
        QCOMPARE(Opacity(*m_toast), 0.0);
        QVERIFY(!TimerOf(*m_toast)->isActive());
        AnimationOf(*m_toast, "opacity")->setCurrentTime(125);
        QCOMPARE(Opacity(*m_toast), 0.5);
        QVERIFY(!TimerOf(*m_toast)->isActive());
        EndFade(*m_toast);
        QCOMPARE(Opacity(*m_toast), 1.0);
        QVERIFY(TimerOf(*m_toast)->isActive());
        QVERIFY(TimerOf(*m_toast)->remainingTime() > 3000);
        Fire(*TimerOf(*m_toast));
        QVERIFY(m_toast->isHidden());
        QVERIFY(!TimerOf(*m_toast)->isActive());
    }

    void no_time_begins_before_the_toast_is_opaque()
    {
        QVERIFY(QMetaObject::invokeMethod(m_toast, "onOpacityAnimationFishied")); // as a host can
        QVERIFY(!TimerOf(*m_toast)->isActive());
        m_toast->showToast(true);
        AnimationOf(*m_toast, "opacity")->setCurrentTime(249);
        QVERIFY(QMetaObject::invokeMethod(m_toast, "onOpacityAnimationFishied"));
        QVERIFY(!TimerOf(*m_toast)->isActive());
    }

    void without_fading_it_is_opaque_and_stays()
    {
        m_toast->showToast(false);
        QCOMPARE(Opacity(*m_toast), 1.0);
        DrainEvents();
        QVERIFY(m_toast->isVisible());
        QVERIFY(!TimerOf(*m_toast)->isActive());
    }

    void its_button_closes_it_and_leaves_the_keyboard_where_it_is()
    {
        QLineEdit field(m_window.get());
        field.show();
        field.setFocus();
        m_toast->showToast(true);
        m_toast->moveToast(100, 100, false);
        EndFade(*m_toast);
        DrainEvents();
        QVERIFY(field.hasFocus());
        QTest::mousePress(CloseButtonOf(*m_toast), Qt::LeftButton);
        QVERIFY(field.hasFocus());
        QTest::mouseRelease(CloseButtonOf(*m_toast), Qt::LeftButton);
        QVERIFY(m_toast->isHidden());
        QVERIFY(field.hasFocus());
    }

    void a_negative_duration_counts_as_none()
    {
        m_toast->setParams(Told(QStringLiteral("Saved"), -5));
        QCOMPARE(TimerOf(*m_toast)->interval(), 0);
        QcToast::Params params;
        m_toast->getParams(params);
        QCOMPARE(params.duration, -5);
        m_toast->showToast(true);
        EndFade(*m_toast); // Qt warns of a negative interval
        QTRY_VERIFY(m_toast->isHidden());
    }

    void renewing_waits_for_all_of_the_duration_again()
    {
        m_toast->setParams(Told(QStringLiteral("Saved"), 300));
        m_toast->showToast(true);
        EndFade(*m_toast);
        QTRY_VERIFY(TimerOf(*m_toast)->remainingTime() < 200);
        m_toast->renewDuration();
        QVERIFY(TimerOf(*m_toast)->remainingTime() > 200);
    }

    void renewing_during_the_fade_starts_the_time()
    {
        m_toast->showToast(true);
        m_toast->renewDuration();
        QVERIFY(TimerOf(*m_toast)->isActive());
    }

    // --- Place ---

    void a_move_glides_from_where_the_toast_is()
    {
        m_toast->move(10, 20);
        m_toast->moveToast(110, 220, true);
        QCOMPARE(m_toast->pos(), QPoint(10, 20));
        AnimationOf(*m_toast, "pos")->setCurrentTime(50);
        QCOMPARE(m_toast->pos(), QPoint(60, 120));
        m_toast->moveToast(60, 20, true); // in place of the first
        QCOMPARE(m_toast->pos(), QPoint(60, 120));
        AnimationOf(*m_toast, "pos")->setCurrentTime(50);
        QCOMPARE(m_toast->pos(), QPoint(60, 70));
        AnimationOf(*m_toast, "pos")->setCurrentTime(100);
        QCOMPARE(m_toast->pos(), QPoint(60, 20));
    }

    void a_jump_ends_a_glide()
    {
        m_toast->move(10, 20);
        m_toast->moveToast(110, 220, true);
        AnimationOf(*m_toast, "pos")->setCurrentTime(50);
        m_toast->moveToast(300, 7, false);
        QCOMPARE(m_toast->pos(), QPoint(300, 7));
        QVERIFY(!IsGliding(*m_toast));
    }

    // --- Look ---

    void ground_and_border_are_those_of_the_table_data()
    {
        QTest::addColumn<bool>("isWindow");
        QTest::newRow("in its parent") << false;
        QTest::newRow("a window") << true;
    }
    void ground_and_border_are_those_of_the_table()
    {
        QFETCH(bool, isWindow);
        if (isWindow) {
            m_toast->setWindowFlags(Qt::Tool | Qt::FramelessWindowHint);
            m_toast->setAttribute(Qt::WA_TranslucentBackground);
        }
        m_toast->setText(QStringLiteral("\u2588\u2588\u2588\u2588"));
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            m_toast->showToast(false);
            DrainEvents();
            const QColor ground = TokenOf(table, QStringLiteral("bg/bg_float"));
            const QColor border = TokenOf(table, QStringLiteral("border/border_secondary_disabled"));
            const QImage image = Render(*m_toast, QColor(200, 30, 30));
            COMPARE_COLOR(PixelAt(image, QPointF(6, 6)), ground);
            COMPARE_COLOR(PixelAt(image, QPointF(0.4, m_toast->height() / 2.0)), Over(border, ground));
            COMPARE_COLOR(PixelAt(image, QPointF(m_toast->width() / 2.0, 0.4)), Over(border, ground));
            const QRectF text(TextOf(*m_toast)->mapTo(m_toast, QPoint()), TextOf(*m_toast)->size());
            COMPARE_COLOR(MainInk(Part(image, text), ground), Over(TokenOf(table, QStringLiteral("text/text_primary")), ground));
        }
    }

    void a_long_text_shows_at_once_instead_of_fading()
    {
        const QColor ground = TokenOf(Table::Light, QStringLiteral("bg/bg_float"));
        for (const bool isLong : {false, true}) {
            m_toast->setText(isLong ? LongText().repeated(60) : LongText());
            m_toast->showToast(true);
            AnimationOf(*m_toast, "opacity")->pause(); // at once: on a busy machine it ends while events are handled
            DrainEvents();
            QCOMPARE(m_toast->height() > 4096, isLong);
            m_toast->graphicsEffect()->setProperty("opacity", 0.5);
            QImage image(m_window->size(), QImage::Format_RGB32);
            image.fill(Qt::black);
            m_window->render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
            const QColor shown = image.pixelColor(m_toast->pos() + QPoint(6, 6));
            QCOMPARE(Close(shown, ground), isLong);
            m_toast->hide();
        }
    }

    void a_long_text_is_painted_without_a_picture_of_all_of_it()
    {
        m_toast->setText(LongText().repeated(60));
        m_toast->showToast(true);
        AnimationOf(*m_toast, "opacity")->pause();
        PaintedOn probe(*m_toast);
        for (const double opacity : {0.0, 0.5, 1.0}) {
            m_toast->graphicsEffect()->setProperty("opacity", opacity);
            m_toast->update();
            DrainEvents();
            QVERIFY(m_toast->height() > 4096);
            QVERIFY2(probe.Height() > 0 && probe.Height() <= m_window->height() * m_window->devicePixelRatioF(),
                     qPrintable(QString::number(probe.Height())));
        }
    }

    void it_fades_in_a_parent_that_fades_too()
    {
        m_window->hide();
        auto *inner = new QWidget(m_window.get());
        inner->resize(500, 300);
        inner->setGraphicsEffect(new QGraphicsOpacityEffect(inner)); // the widget's
        auto *toast = new QcToast(inner);
        toast->setText(QStringLiteral("Saved"));
        toast->showToast(true);
        AnimationOf(*toast, "opacity")->setCurrentTime(100);
        m_window->show();
        DrainEvents();
        QVERIFY(toast->isVisible()); // and Qt has nothing to say
    }

    void at_rest_nothing_is_painted()
    {
        m_toast->setParams(Told(QStringLiteral("Saved"), 200));
        m_toast->showToast(true);
        EndFade(*m_toast);
        DrainEvents();
        EventCounter paints(*m_toast, QEvent::Paint);
        EventCounter texts(*TextOf(*m_toast), QEvent::Paint);
        QTRY_VERIFY(m_toast->isHidden()); // its time is over
        QCOMPARE(paints.Take() + texts.Take(), 0);
    }

    // --- Lives ---

    void closing_never_ends_the_program_and_a_toast_in_sight_never_keeps_it_running()
    {
        m_window->hide(); // to the tray, say
        m_toast->showToast(true);
        QVERIFY(!EndsAfter([this] {
            EndFade(*m_toast);
            Fire(*TimerOf(*m_toast));
        }));
        m_toast->setWindowFlags(Qt::Tool | Qt::FramelessWindowHint);
        m_toast->showToast(false);
        QVERIFY(!EndsAfter([this] { m_toast->close(); }));
        QWidget last;
        last.show();
        m_toast->showToast(false);
        QVERIFY(EndsAfter([&last] { last.close(); }));
    }

    void who_hears_of_the_height_may_delete_it_data()
    {
        using Act = std::function<void(QWidget &)>;
        QTest::addColumn<Act>("act");
        QTest::newRow("as it gets a text") << Act([](QWidget &toast) { static_cast<QcToast &>(toast).setText(LongText()); });
        QTest::newRow("as it gets a record") << Act([](QWidget &toast) { static_cast<QcToast &>(toast).setParams(Told(LongText())); });
    }
    void who_hears_of_the_height_may_delete_it()
    {
        QFETCH(std::function<void(QWidget &)>, act);
        const QPointer<QcToast> toast(m_toast);
        connect(m_toast, &QcToast::signalHeightChanged, this, [&] { delete toast.data(); });
        act(*m_toast);
        QVERIFY(!toast);
    }

    void it_may_be_deleted_in_every_state_data()
    {
        using Act = std::function<void(QWidget &)>;
        QTest::addColumn<Act>("bring");
        const auto fade = [](QWidget &toast) { static_cast<QcToast &>(toast).showToast(true); };
        QTest::newRow("hidden") << Act([](QWidget &) {});
        QTest::newRow("fading in") << Act(fade);
        QTest::newRow("gliding") << Act([fade](QWidget &toast) {
            fade(toast);
            static_cast<QcToast &>(toast).moveToast(100, 100, true);
        });
        QTest::newRow("waiting") << Act([fade](QWidget &toast) {
            fade(toast);
            EndFade(static_cast<QcToast &>(toast));
        });
        QTest::newRow("closed") << Act([fade](QWidget &toast) {
            fade(toast);
            toast.close();
        });
    }
    void it_may_be_deleted_in_every_state()
    {
        QFETCH(std::function<void(QWidget &)>, bring);
        bring(*m_toast);
        QPointer<QcToast> alive(m_toast);
        delete m_toast;
        DrainEvents();
        m_toast = new QcToast(m_window.get());
        bring(*m_toast);
        alive = m_toast;
        m_window.reset(); // and with its parent
        DrainEvents();
        QVERIFY(!alive);
    }

    void a_pressed_link_is_told_and_may_delete_the_parent()
    {
        m_toast->setText(QStringLiteral("<a href=\"undo\">Undo</a>"));
        m_toast->showToast(false);
        DrainEvents();
        QString pressed;
        connect(m_toast, &QcToast::signalAnchorClicked, this, [&](const QString &href) {
            pressed = href;
            m_window.release()->deleteLater();
        });
        PressLink(*m_toast);
        QCOMPARE(pressed, QStringLiteral("undo"));
        DrainEvents();
    }

    // --- Bad input ---

    void nothing_as_text_shows_an_icon()
    {
        m_toast->setText(QString());
        m_toast->showToast(true);
        DrainEvents();
        QVERIFY(m_toast->height() >= 16);
    }

    void a_text_of_a_megabyte_shows_in_a_bounded_time()
    {
        QElapsedTimer clock;
        clock.start();
        m_toast->setText(QStringLiteral("several words ").repeated(75000));
        m_toast->showToast(true);
        DrainEvents();
        QVERIFY2(clock.elapsed() < 20000, qPrintable(QString::number(clock.elapsed())));
        QVERIFY(m_toast->height() > 100000);
    }

    void tables_without_end_show_as_they_are_written()
    {
        const ProcessorTime time;
        const QString bomb = QStringLiteral("<table><tr><td>").repeated(40);
        m_toast->setText(bomb);
        m_toast->showToast(true);
        DrainEvents();
        QVERIFY2(time.Elapsed() < 2000, qPrintable(QString::number(time.Elapsed())));
        QCOMPARE(QAccessible::queryAccessibleInterface(m_toast)->text(QAccessible::Name), bomb);
    }

    void an_image_without_end_is_cut_where_widgets_end()
    {
        m_toast->setText(QStringLiteral("<img src=\"no.png\" width=\"100000000\" height=\"100000000\">"));
        m_toast->showToast(true);
        DrainEvents();
        QVERIFY(m_toast->isVisible());
        QVERIFY(m_toast->height() < QWIDGETSIZE_MAX); // and Qt has nothing to say
    }

    // --- Everyone ---

    void assistive_technology_is_alerted_and_reads_the_text()
    {
        m_toast->setText(QStringLiteral("Saved to <b>disk</b>"));
        AccessibleEvents events(*m_toast);
        m_toast->showToast(true);
        QVERIFY(events.Take().contains(QStringLiteral("Alert")));
        QAccessibleInterface *toast = QAccessible::queryAccessibleInterface(m_toast);
        QCOMPARE(toast->role(), QAccessible::AlertMessage);
        QCOMPARE(toast->text(QAccessible::Name), QStringLiteral("Saved to disk"));
        QCOMPARE(QAccessible::queryAccessibleInterface(CloseButtonOf(*m_toast))->text(QAccessible::Name), QStringLiteral("Close"));
        m_toast->setAccessibleName(QStringLiteral("Post"));
        QCOMPARE(toast->text(QAccessible::Name), QStringLiteral("Post"));
    }

    void its_buttons_name_follows_the_language_until_the_host_gives_one()
    {
        {
            const BracketTranslator translator("Velmora::QcToast");
            DrainEvents();
            QCOMPARE(CloseButtonOf(*m_toast)->accessibleName(), QStringLiteral("[Close]"));
            CloseButtonOf(*m_toast)->setAccessibleName(QStringLiteral("Away"));
        }
        DrainEvents();
        QCOMPARE(CloseButtonOf(*m_toast)->accessibleName(), QStringLiteral("Away"));
    }

    void tab_reaches_its_link_and_its_button()
    {
        QLineEdit field(m_window.get());
        field.show();
        field.setFocus();
        m_toast->setText(QStringLiteral("<a href=\"undo\">Undo</a>"));
        m_toast->showToast(false);
        DrainEvents();
        QTest::keyClick(m_window->windowHandle(), Qt::Key_Tab);
        QVERIFY(TextOf(*m_toast)->hasFocus());
        QTest::keyClick(m_window->windowHandle(), Qt::Key_Tab);
        QVERIFY(CloseButtonOf(*m_toast)->hasFocus());
        QTest::keyClick(m_window->windowHandle(), Qt::Key_Space);
        QVERIFY(m_toast->isHidden());
    }

private:
    std::unique_ptr<QWidget> m_window;
    QcToast *m_toast = nullptr;
};

VELMORA_TEST_MAIN(tst_QcToast)

#include "tst_QcToast.moc"
