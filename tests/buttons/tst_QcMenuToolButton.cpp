#include "support/EventCounter.h"
#include "support/Pixels.h"
#include "support/SquareIcon.h"
#include "support/TestMain.h"

#include "buttons/ControlTest.h"

#include <Velmora/QcMenuToolButton.h>
#include <Velmora/QcStyleManager.h>

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QLineF>
#include <QMenu>
#include <QPainter>
#include <QSignalSpy>
#include <QTimer>
#include <QWindow>

#include <functional>
#include <memory>
#include <utility>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

const QStyle::State kNormal = QStyle::State_Enabled;

class HostButton : public QcMenuToolButton
{
public:
    using QcMenuToolButton::GetIconPath;
    using QcMenuToolButton::GetState;
    using QcMenuToolButton::QcMenuToolButton;

    int fills = 0;

protected:
    void UpdateUiParams() override { ++fills; }
};

ImageParams Arrow(const char *token)
{
    ImageParams arrow;
    arrow.path = QStringLiteral(":/images/arrow_down_2.svg");
    arrow.size = QSize(12, 32);
    arrow.color = ColorParams(token);
    return arrow;
}

/// \a image with an icon painted where and as large as a QIcon paints itself.
void PaintInto(QImage &image, const QRect &rect, const ImageParams &params)
{
    QPainter painter(&image);
    if (image.devicePixelRatio() == 1.0) {
        QcStyleManager::GetInstance()->GetIcon(params).paint(&painter, rect, Qt::AlignCenter, QIcon::Normal, QIcon::Off);
        return;
    }
    const bool fits = params.size.boundedTo(rect.size()) == params.size;
    const QSize size = fits ? params.size : params.size.scaled(rect.size(), Qt::KeepAspectRatio);
    PaintCrisply(painter, QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, size, rect), params);
}

} // namespace

class TestQcMenuToolButton : public ControlTest<HostButton>
{
    Q_OBJECT

private Q_SLOTS:
    void a_new_button_has_its_measures()
    {
        const HostButton button;
        QCOMPARE(button.size(), QSize(44, 32));
        QCOMPARE(button.minimumSize(), QSize(44, 32));
        QCOMPARE(button.maximumSize(), QSize(44, 32));
        QCOMPARE(button.iconSize(), QSize(44, 32));
        QVERIFY(button.isCheckable());
        QVERIFY(!button.isChecked());
        QCOMPARE(button.popupMode(), QToolButton::DelayedPopup);
        QFile sheet(QStringLiteral(":/qss/MenuToolButton.qss"));
        QVERIFY(sheet.open(QIODevice::ReadOnly));
        QCOMPARE(button.styleSheet(), QString::fromUtf8(sheet.readAll()));
        QVERIFY(button.styleSheet().contains(QStringLiteral("Velmora--QcMenuToolButton {\n    border: none;\n    padding: 0px;\n}")));
        QVERIFY(button.styleSheet().contains(QStringLiteral("Velmora--QcMenuToolButton::menu-indicator {\n    image: none;\n}")));
        QCOMPARE(button.GetState(), QStyle::State(QStyle::State_Enabled));
        QCOMPARE(button.GetIconPath(), QString());
        QCOMPARE(button.fills, 0); // a constructor does not reach what is derived from its class
    }

    // --- Looks ---

    void each_look_paints_its_row_data()
    {
        QTest::addColumn<int>("index");
        for (int i = 0; i < 8; ++i)
            QTest::newRow(kLooks[i].name) << i;
    }

    void each_look_paints_its_row()
    {
        QFETCH(int, index);
        const Look &look = kLooks[index];
        const QString background = QString::fromLatin1(kToolBackgrounds[index]);
        const bool hasArrow = look.key != QStyle::State_Selected;
        m_control->SetIconPath(QStringLiteral(":/images/select.svg"));
        BringTo(*m_control, look);
        QCOMPARE(m_control->GetState() & QStyle::State_Selected, QStyle::State(look.key) & QStyle::State_Selected);
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            QImage expected = Background(Painted(table, background, Qt::white), 2);
            ImageParams icon;
            icon.path = QStringLiteral(":/images/select.svg");
            icon.size = QSize(32, 32);
            icon.color = ColorParams(kToolIcons[index]);
            PaintInto(expected, QRect(0, 0, 32, 32), icon);
            if (hasArrow)
                PaintInto(expected, QRect(31, 0, 12, 32), Arrow(kToolIcons[index])); // one pixel stays free at the right
            QCOMPARE(Render(*m_control), expected);
        }
        // The icon's colour without the engine's help.
        m_control->SetIconPath(m_icon.Path());
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            const QImage image = Render(*m_control, Qt::darkGreen); // on which the colours of both tables show
            const QColor ground = Painted(table, background, Qt::darkGreen);
            COMPARE_COLOR(PixelAt(image, QPointF(15, 15)), Painted(table, QString::fromLatin1(kToolIcons[index]), ground));
            COMPARE_COLOR(PixelAt(image, QPointF(37, 3)), ground);
            QCOMPARE(!InkBox(Part(image, QRectF(32, 4, 11, 24)), ground).isNull(), hasArrow);
        }
    }

    void an_empty_code_fills_black()
    {
        m_control->SetBackgroundColorParams(kNormal, QString());
        m_control->SetArrowIconVisible(false);
        const QImage image = Render(*m_control);
        QCOMPARE(image, Background(Qt::black, 2));
        m_control->SetBackgroundColorParams(kNormal, QStringLiteral("no/such_token"));
        QCOMPARE(Render(*m_control), image);
    }

    void the_radius_is_two_at_first_and_changes_with_the_next_paint()
    {
        m_control->SetBackgroundColorParams(kNormal, QStringLiteral("#0000FF"));
        m_control->SetArrowIconVisible(false);
        QCOMPARE(Render(*m_control), Background(Qt::blue, 2));
        DrainEvents();
        EventCounter paints(*m_control, QEvent::Paint);
        m_control->SetBorderRadius(9);
        DrainEvents();
        QCOMPARE(paints.Take(), 0);
        QCOMPARE(Render(*m_control), Background(Qt::blue, 9));
    }

    // --- The icon ---

    void the_common_icon_takes_the_place_beside_the_arrow()
    {
        QCOMPARE(InkBox(Part(Render(*m_control), QRectF(0, 0, 31, 32)), Qt::white), QRectF());
        m_control->SetIconPath(m_icon.Path());
        QCOMPARE(m_control->GetIconPath(), m_icon.Path());
        QCOMPARE(InkBox(Part(Render(*m_control), QRectF(0, 0, 33, 32)), Qt::white), QRectF(0, 0, 32, 32));
        m_control->SetIconPath(QStringLiteral(":/images/none.svg"));
        QCOMPARE(InkBox(Part(Render(*m_control), QRectF(0, 0, 31, 32)), Qt::white), QRectF());
    }

    void a_record_with_a_path_keeps_its_own_size()
    {
        m_control->SetIconPath(QStringLiteral(":/images/select.svg"));
        ImageParams params;
        params.path = m_icon.Path();
        params.size = QSize(10, 10);
        m_control->SetIconParam(kNormal, params);
        QImage image = Render(*m_control);
        const QRectF ink = InkBox(Part(image, QRectF(0, 0, 31, 32)), Qt::white);
        QCOMPARE(ink.size(), QSizeF(10, 10));
        QVERIFY(QLineF(ink.center(), QPointF(16, 16)).length() < 1.0);   // centred, but for the rounding to pixels
        COMPARE_COLOR(PixelAt(image, QPointF(16, 16)), QColor(Qt::red)); // no code: as the file draws it
        params.size = QSize();
        m_control->SetIconParam(kNormal, params);
        QVERIFY(InkBox(Part(Render(*m_control), QRectF(0, 0, 31, 32)), Qt::white).isNull());
        params.size = QSize(200, 100);
        m_control->SetIconParam(kNormal, params);
        QCOMPARE(InkBox(Part(Render(*m_control), QRectF(0, 0, 30, 32)), Qt::white), QRectF(0, 8, 30, 16)); // scaled down
        MoveCursorOver(*m_control);                                                                        // of that state only
        image = Render(*m_control);
        QVERIFY(PixelAt(image, QPointF(1, 1)) != QColor(Qt::red));
    }

    void a_record_without_a_path_lends_its_colours_and_no_size()
    {
        ImageParams params;
        params.size = QSize(5, 5);
        params.mulColor.insert(QStringLiteral("#FF0000"), ColorParams("#0000FF"));
        m_control->SetIconParam(kNormal, params);
        m_control->SetIconPath(m_icon.Path());
        const QImage image = Render(*m_control);
        QCOMPARE(InkBox(Part(image, QRectF(0, 0, 33, 32)), Qt::white), QRectF(0, 0, 32, 32));
        COMPARE_COLOR(PixelAt(image, QPointF(15, 15)), QColor(Qt::blue));
    }

    void a_hidden_arrow_gives_the_icon_all_of_the_icon_size()
    {
        m_control->SetIconPath(m_icon.Path());
        m_control->SetArrowIconVisible(false);
        QCOMPARE(m_control->iconSize(), QSize(44, 32)); // not computed anew
        QCOMPARE(InkBox(Render(*m_control), Qt::white), QRectF(0, 0, 44, 32));
        m_control->setIconSize(QSize(20, 10));
        m_control->SetArrowIconVisible(true);
        m_control->SetArrowIconVisible(false);
        QCOMPARE(m_control->iconSize(), QSize(20, 10));
        QCOMPARE(InkBox(Render(*m_control), Qt::white), QRectF(0, 0, 20, 10));
    }

    void a_new_size_computes_the_icon_size_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QSize>("iconSize");
        QTest::newRow("taller") << QSize(44, 64) << QSize(60, 44); // 44 * 1.375 = 60.5
        QTest::newRow("wider") << QSize(100, 20) << QSize(27, 20);
        QTest::newRow("twice") << QSize(88, 64) << QSize(88, 64);
        QTest::newRow("tiny") << QSize(1, 1) << QSize(1, 1);
    }

    void a_new_size_computes_the_icon_size()
    {
        QFETCH(QSize, size);
        QFETCH(QSize, iconSize);
        m_control->SetIconPath(m_icon.Path());
        EventCounter paints(*m_control, QEvent::Paint);
        m_control->setFixedSize(size);
        DrainEvents();
        QVERIFY(paints.Take() > 0);
        QCOMPARE(m_control->iconSize(), iconSize);
        QImage expected = Canvas(*m_control);
        ImageParams icon;
        icon.path = m_icon.Path();
        icon.color = ColorParams("icon/icon_toolbar");
        icon.size = QSize(iconSize.height(), iconSize.height());
        PaintInto(expected, QRect(QPoint(0, 0), icon.size), icon);
        const int arrowWidth = iconSize.width() - iconSize.height();
        PaintInto(expected, QRect(size.width() - 1 - arrowWidth, 0, arrowWidth, iconSize.height()), Arrow("icon/icon_toolbar"));
        QCOMPARE(Render(*m_control), expected);

        m_control->SetArrowIconVisible(false);
        m_control->setFixedSize(size + QSize(1, 1));
        QCOMPARE(m_control->iconSize(), size + QSize(1, 1));
    }

    void an_empty_size_leaves_the_icon_size()
    {
        m_control->setFixedSize(0, 32);
        QCOMPARE(m_control->iconSize(), QSize(44, 32));
        m_control->setFixedSize(44, 0);
        QCOMPARE(m_control->iconSize(), QSize(44, 32));
    }

    void an_icon_size_of_the_host_s_own_is_painted_without_harm()
    {
        m_control->SetIconPath(m_icon.Path());
        const std::pair<QSize, QRectF> icons[] = {
            {QSize(10, 30), QRectF(0, 0, 30, 30)}, // a square of the height; no room for the arrow
            {QSize(0, 0), QRectF()},
            {QSize(-1, -1), QRectF(0, 0, 16, 16)}, // which the style takes for its own
            {QSize(3000, 16), QRectF(0, 0, 16, 16)},
        };
        for (const auto &icon : icons) {
            m_control->setIconSize(icon.first);
            QCOMPARE(InkBox(Part(Render(*m_control), QRectF(0, 0, 32, 32)), Qt::white), icon.second);
        }
    }

    void right_to_left_layouts_change_no_place()
    {
        m_control->SetIconPath(m_icon.Path());
        const QImage image = Render(*m_control);
        m_window->setLayoutDirection(Qt::RightToLeft);
        QVERIFY(m_control->isRightToLeft());
        QCOMPARE(Render(*m_control), image);
    }

    void neither_text_nor_focus_is_painted()
    {
        const QImage image = Render(*m_control);
        m_control->setText(QStringLiteral("Text"));
        m_control->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        m_control->setFocus(Qt::TabFocusReason);
        QVERIFY(m_control->hasFocus());
        QCOMPARE(Render(*m_control), image);
    }

    void setters_repaint_and_what_they_set_stays()
    {
        EventCounter paints(*m_control, QEvent::Paint);
        const auto repaints = [&](const std::function<void()> &change) {
            DrainEvents();
            paints.Take();
            change();
            DrainEvents();
            return paints.Take() == 1;
        };
        ImageParams params;
        params.path = m_icon.Path();
        params.size = QSize(32, 32);
        QVERIFY(repaints([this] { m_control->SetBackgroundColorParams(kNormal, QStringLiteral("#00FF00")); }));
        QVERIFY(repaints([&] { m_control->SetIconParam(kNormal, params); }));
        QVERIFY(repaints([this] { m_control->SetIconPath(QStringLiteral(":/images/select.svg")); }));
        QVERIFY(repaints([this] { m_control->SetArrowIconVisible(false); }));
        QVERIFY(repaints([this] { m_control->SetArrowIconVisible(true); }));
        UseTable(Table::Dark);
        DrainEvents();
        QCOMPARE(m_control->fills, 0);
        const QImage image = Render(*m_control);
        COMPARE_COLOR(PixelAt(image, QPointF(37, 3)), QColor(Qt::green));
        COMPARE_COLOR(PixelAt(image, QPointF(15, 15)), QColor(Qt::red));
    }

    // --- Toggling and the menu ---

    void a_click_toggles()
    {
        QSignalSpy toggles(m_control, &QAbstractButton::toggled);
        MoveCursorOver(*m_control);
        QTest::mouseClick(m_window->windowHandle(), Qt::LeftButton, Qt::NoModifier, m_control->geometry().center());
        QVERIFY(m_control->isChecked());
        QCOMPARE(m_control->GetState(), QStyle::State(QStyle::State_Enabled | QStyle::State_Selected | QStyle::State_MouseOver));
        m_control->setFocus();
        QTest::keyClick(m_window->windowHandle(), Qt::Key_Space);
        QVERIFY(!m_control->isChecked());
        QCOMPARE(toggles.count(), 2);
    }

    void a_long_press_opens_the_menu_and_a_click_toggles_data()
    {
        QTest::addColumn<bool>("byKey");
        QTest::newRow("mouse") << false;
        QTest::newRow("space") << true;
    }

    void a_long_press_opens_the_menu_and_a_click_toggles()
    {
        QFETCH(bool, byKey);
        const QPoint centre = m_control->geometry().center();
        QWindow *window = m_window->windowHandle();
        QMenu menu;
        menu.addAction(QStringLiteral("First"));
        m_control->setMenu(&menu);
        m_control->setFocus();
        QStyle::State whileOpen;
        bool wasChecked = false;
        QSignalSpy closed(&menu, &QMenu::aboutToHide);
        connect(
            &menu, &QMenu::aboutToShow, this,
            [&] {
                whileOpen = m_control->GetState();
                wasChecked = m_control->isChecked();
                if (byKey)
                    QTest::keyRelease(&menu, Qt::Key_Space); // the menu has the keyboard
                else
                    QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, centre);
                menu.close();
            },
            Qt::QueuedConnection);
        if (byKey)
            QTest::keyPress(window, Qt::Key_Space);
        else
            QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, centre);
        QCOMPARE(closed.count(), 0);
        QTRY_COMPARE(closed.count(), 1);
        QCOMPARE(whileOpen & ~QStyle::State(QStyle::State_MouseOver),
                 QStyle::State(QStyle::State_Enabled | QStyle::State_Selected | QStyle::State_Sunken));
        QVERIFY(wasChecked);
        DrainEvents();
        QVERIFY(!m_control->isChecked());
        QVERIFY(!m_control->isDown());

        // Short: the menu stays away.
        if (byKey)
            QTest::keyClick(window, Qt::Key_Space);
        else
            QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier, centre);
        QVERIFY(m_control->isChecked());
        QCOMPARE(closed.count(), 1);
    }

    void a_press_that_opens_a_menu_of_added_actions_ends_with_it_data()
    {
        QTest::addColumn<int>("mode");
        QTest::newRow("at once") << int(QToolButton::InstantPopup);
        QTest::newRow("after a while") << int(QToolButton::DelayedPopup);
    }

    void a_press_that_opens_a_menu_of_added_actions_ends_with_it()
    {
        QFETCH(int, mode);
        QAction action(QStringLiteral("Action"));
        m_control->addAction(&action);
        m_control->setPopupMode(QToolButton::ToolButtonPopupMode(mode));
        MoveCursorOver(*m_control);
        bool hasOpened = false;
        QTimer watch; // for a menu that Qt makes for the purpose
        connect(&watch, &QTimer::timeout, this, [&] {
            QWidget *menu = QApplication::activePopupWidget();
            if (!menu)
                return;
            watch.stop();
            hasOpened = true;
            QVERIFY(m_control->GetState() & QStyle::State_Sunken);
            QTest::mouseRelease(menu->windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(-5, -5)); // which the menu takes
            QTest::keyClick(menu, Qt::Key_Escape);
        });
        watch.start(0);
        QTest::mousePress(m_window->windowHandle(), Qt::LeftButton, Qt::NoModifier, m_control->geometry().center());
        QTRY_VERIFY(hasOpened);
        DrainEvents();
        QCOMPARE(m_control->GetState(), QStyle::State(QStyle::State_Enabled | QStyle::State_MouseOver));
        QVERIFY(!m_control->isChecked());
    }

    void a_menu_brings_no_indicator_of_its_own()
    {
        const QImage image = Render(*m_control);
        QMenu menu;
        m_control->setMenu(&menu);
        QCOMPARE(Render(*m_control), image);
    }

private:
    QImage Background(const QColor &color, int radius) const
    {
        QImage image = Canvas(*m_control);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(color);
        painter.drawRoundedRect(m_control->rect(), radius, radius);
        return image;
    }

    const VelmoraTest::SquareIcon m_icon{QStringLiteral("#FF0000")};
};

VELMORA_TEST_MAIN(TestQcMenuToolButton)

#include "tst_QcMenuToolButton.moc"
