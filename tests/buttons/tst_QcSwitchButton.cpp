#include "support/Pixels.h"
#include "support/TestMain.h"

#include "buttons/ControlTest.h"

#include <Velmora/ColorParams.h>
#include <Velmora/QcStyleManager.h>
#include <Velmora/QcSwitchButton.h>

#include <QAccessible>
#include <QHBoxLayout>
#include <QSignalSpy>
#include <QTemporaryFile>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

/// The track in the order of kLooks; the images of a switch that is on have colours of their own.
constexpr const char *kTracks[] = {"base/gray/gray-30", "base/gray/gray-50", "base/gray/gray-60", "base/gray/gray-70",
                                   "#660670F9",         "#336FFF",           "#3A90FF",           "#005CD1"};

} // namespace

class TestQcSwitchButton : public ControlTest<QcSwitchButton>
{
    Q_OBJECT

private Q_SLOTS:
    void a_new_switch_is_checkable_and_of_fixed_size()
    {
        QVERIFY(m_control->isCheckable());
        QVERIFY(!m_control->isChecked());
        QCOMPARE(m_control->size(), QSize(28, 14));
        QCOMPARE(m_control->iconSize(), QSize(28, 14));
        QWidget window;
        QHBoxLayout layout(&window);
        auto *inside = new QcSwitchButton;
        layout.addWidget(inside);
        window.resize(400, 300);
        window.show();
        DrainEvents();
        QCOMPARE(inside->size(), QSize(28, 14));
    }

    void each_look_shows_its_image_data()
    {
        QTest::addColumn<int>("index");
        for (int i = 0; i < 8; ++i)
            QTest::newRow(kLooks[i].name) << i;
    }

    void each_look_shows_its_image()
    {
        QFETCH(int, index);
        const Look &look = kLooks[index];
        m_control->setFixedSize(112, 56); // the icon follows, and covers whole pixels
        m_control->setChecked(look.isChecked);
        m_control->setEnabled(look.isEnabled);
        if (look.isHovered)
            MoveCursorOver(*m_control);
        if (look.isPressed)
            QTest::mousePress(m_control, Qt::LeftButton);
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            const QImage image = Render(*m_control, QColor(Qt::black));
            const QString code = QString::fromLatin1(kTracks[index]);
            QColor track(code);
            if (code.contains(QLatin1Char('/'))) {
                track = TokenOf(table, code);
                track.setAlpha(255);
            }
            COMPARE_COLOR(PixelAt(image, QPointF(56, 28)), Over(track, Qt::black));
            COMPARE_COLOR(PixelAt(image, QPointF(look.isChecked ? 84 : 28, 28)), QColor(Qt::white));
        }
        if (look.isPressed)
            QTest::mouseRelease(m_control, Qt::LeftButton, Qt::NoModifier, QPoint(-1, -1));
    }

    void a_translucent_token_of_the_host_s_table_gives_an_opaque_track()
    {
        QTemporaryFile table;
        QVERIFY(table.open());
        table.write("base/gray/gray-50 = #336699, 0.5\n");
        table.close();
        QcStyleManager::GetInstance()->SetColorFilePath(table.fileName());
        DrainEvents();
        QVERIFY(QcStyleManager::GetInstance()->GetColor(ColorParams("base/gray/gray-50")).alpha() < 255);
        m_control->setFixedSize(112, 56);
        COMPARE_COLOR(PixelAt(Render(*m_control), QPointF(56, 28)), QColor(QStringLiteral("#336699")));
    }

    void a_forced_size_rescales_the_icon_and_an_empty_one_leaves_it()
    {
        m_control->setFixedSize(56, 28);
        QCOMPARE(m_control->iconSize(), QSize(56, 28));
        m_control->setFixedSize(0, 28);
        QCOMPARE(m_control->iconSize(), QSize(56, 28));
    }

    void a_click_and_the_space_key_toggle()
    {
        QSignalSpy toggles(m_control, &QAbstractButton::toggled);
        QTest::mouseClick(m_control, Qt::LeftButton);
        QVERIFY(m_control->isChecked());
        QTest::keyClick(m_control, Qt::Key_Space);
        QVERIFY(!m_control->isChecked());
        QCOMPARE(toggles.count(), 2);
    }

    void assistive_technology_hears_a_check_box()
    {
        m_control->setAccessibleName(QStringLiteral("Wi-Fi"));
        QAccessibleInterface *described = QAccessible::queryAccessibleInterface(m_control);
        QVERIFY(described);
        QCOMPARE(described->role(), QAccessible::CheckBox);
        QCOMPARE(described->text(QAccessible::Name), QStringLiteral("Wi-Fi"));
        QVERIFY(described->state().checkable);
        QVERIFY(!described->state().checked);
        m_control->setChecked(true);
        QVERIFY(described->state().checked);
    }
};

VELMORA_TEST_MAIN(TestQcSwitchButton)

#include "tst_QcSwitchButton.moc"
