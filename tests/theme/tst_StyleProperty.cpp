#include "support/EventCounter.h"
#include "support/Pixels.h"
#include "support/TestMain.h"

#include "theme/StyleProperty_p.h"

#include <QFrame>
#include <QPointer>
#include <QProxyStyle>

#include <memory>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

constexpr const char *kProperty = "marked";

class CountingStyle : public QProxyStyle
{
public:
    using QProxyStyle::polish;
    void polish(QWidget * /*widget*/) override { ++polished; }
    int polished = 0;
};

class Undertaker : public QObject
{
public:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != QEvent::DynamicPropertyChange)
            return false;
        delete watched;
        return true; // nobody else sees the event of a dead object
    }
};

} // namespace

class TestStyleProperty : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_look_follows_the_property_data()
    {
        QTest::addColumn<QString>("look");
        QTest::newRow("a background, of which the palette changes") << QStringLiteral("background: %1");
        QTest::newRow("a border, which is no part of the palette") << QStringLiteral("border: 15px solid %1");
    }

    void the_look_follows_the_property()
    {
        QFETCH(QString, look);
        QFrame frame;
        frame.setStyleSheet(QStringLiteral("QFrame { %1 } QFrame[marked=\"true\"] { %2 }")
                                .arg(look.arg(QLatin1String("blue")), look.arg(QLatin1String("red"))));
        frame.resize(20, 20);
        frame.show();
        DrainEvents();
        EventCounter paints(frame, QEvent::Paint);
        for (const bool on : {true, false, true}) {
            paints.Take();
            QVERIFY(SetStyleProperty(&frame, kProperty, on));
            QCOMPARE(frame.property(kProperty), QVariant(on));
            DrainEvents();
            QCOMPARE(paints.Take(), 1);
            COMPARE_COLOR(PixelAt(Render(frame), QPointF(10, 10)), QColor(on ? Qt::red : Qt::blue));
        }
    }

    void the_same_value_again_is_no_work()
    {
        CountingStyle style;
        QFrame frame;
        frame.setStyle(&style);
        frame.show();
        QVERIFY(SetStyleProperty(&frame, kProperty, false)); // it was neither
        DrainEvents();
        EventCounter paints(frame, QEvent::Paint);
        EventCounter changes(frame, QEvent::DynamicPropertyChange);
        style.polished = 0;
        QVERIFY(!SetStyleProperty(&frame, kProperty, false));
        DrainEvents();
        QCOMPARE(style.polished, 0);
        QCOMPARE(paints.Take(), 0);
        QCOMPARE(changes.Take(), 0);
        QVERIFY(SetStyleProperty(&frame, kProperty, true));
        QCOMPARE(style.polished, 1);
    }

    void the_widget_may_die_of_the_change()
    {
        const QPointer<QFrame> frame = new QFrame;
        Undertaker undertaker;
        frame->installEventFilter(&undertaker);
        QVERIFY(SetStyleProperty(frame, kProperty, true));
        QVERIFY(!frame);
    }
};

VELMORA_TEST_MAIN(TestStyleProperty)

#include "tst_StyleProperty.moc"
