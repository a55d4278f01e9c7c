#include "support/Pixels.h"
#include "support/TestMain.h"
#include "theme/TokenNow.h"

#include <Velmora/FileAndDesktop.h>
#include <Velmora/PlainWidgets.h>

#include <QApplication>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QProxyStyle>
#include <QPushButton>
#include <QStyleFactory>
#include <QTreeWidget>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

const QString kOwnRule = QStringLiteral("QGroupBox { border: 3px solid #00ff00; }");

QStyle *Fusion()
{
    return QStyleFactory::create(QStringLiteral("Fusion"));
}

QStyle *Windows()
{
    return QStyleFactory::create(QStringLiteral("Windows"));
}

/// Of a host: every frame is nine pixels wide, and what the palette has no words for is its own.
class HostStyle : public QProxyStyle
{
public:
    using QProxyStyle::QProxyStyle;

    void polish(QPalette &palette) override
    {
        QProxyStyle::polish(palette);
        palette.setColor(QPalette::BrightText, Qt::cyan);
    }
    using QProxyStyle::polish;

    int pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const override
    {
        return metric == PM_DefaultFrameWidth ? 9 : QProxyStyle::pixelMetric(metric, option, widget);
    }
};

bool IsPaintedByHost()
{
    return QApplication::style()->pixelMetric(QStyle::PM_DefaultFrameWidth) == 9;
}

bool IsOfTable(const QWidget &widget)
{
    return widget.palette().color(QPalette::Window) == TokenNow("bg/bg_box");
}

/// The ground of the header of a tree, which Fusion fills with black where nobody says otherwise.
QColor GroundOfHeader()
{
    QTreeWidget tree;
    tree.setHeaderLabels({QString()});
    tree.resize(200, 100);
    tree.show();
    DrainEvents();
    return PixelAt(Render(tree, Qt::magenta), QPointF(100, 5));
}

} // namespace

/// What hosts do with palettes, stylesheets and styles before, while and after plain widgets follow the table.
class TestPlainHosts : public TestCase
{
    Q_OBJECT

protected:
    void SetUp() override
    {
        UseTable(Table::Light);
        QApplication::setStyle(Fusion());
        QApplication::setPalette(QPalette(QApplication::style()->standardPalette()));
        m_sheet = qApp->styleSheet();
    }
    void TearDown() override
    {
        SetPlainWidgetsFollowTable(false);
        qApp->setStyleSheet(m_sheet);
        UseTable(Table::Light);
    }

private:
    QString m_sheet;

private Q_SLOTS:
    void the_style_stays_the_hosts()
    {
        const QStyle *style = QApplication::style();
        SetPlainWidgetsFollowTable(true);
        QLabel label;
        UseTable(Table::Dark);
        QCOMPARE(QApplication::style(), style);
        SetPlainWidgetsFollowTable(false);
        QCOMPARE(QApplication::style(), style);
        QCOMPARE(label.style(), style);
    }

    void another_style_meanwhile_keeps_the_table_and_gives_back_what_it_would_have_had()
    {
        QApplication::setStyle(new HostStyle(Windows()));
        const QPalette expected = QApplication::palette();
        QApplication::setStyle(Fusion());
        const QPalette before = QApplication::palette();

        SetPlainWidgetsFollowTable(true);
        QLabel label;
        label.ensurePolished();
        UseTable(Table::Dark);
        QApplication::setStyle(new HostStyle(Windows()));
        DrainEvents();
        QVERIFY(IsPaintedByHost());
        QVERIFY(IsOfTable(label));
        UseTable(Table::Light);
        QVERIFY(IsOfTable(label));
        SetPlainWidgetsFollowTable(false);
        QCOMPARE(QApplication::palette(), expected);
        QCOMPARE(label.palette().color(QPalette::Window), expected.color(QPalette::Window));
        QApplication::setStyle(Fusion());
        QCOMPARE(QApplication::palette(), before);
    }

    void a_palette_made_from_the_tables_says_only_what_it_changes()
    {
        QPalette first = QApplication::palette();
        first.setColor(QPalette::Base, Qt::yellow);
        QApplication::setPalette(first);
        SetPlainWidgetsFollowTable(true);
        UseTable(Table::Dark);
        QPalette changed = QApplication::palette();
        changed.setColor(QPalette::Highlight, Qt::magenta);
        QApplication::setPalette(changed);
        QCOMPARE(QApplication::palette().color(QPalette::Highlight), TokenNow("brand/brand_press"));
        SetPlainWidgetsFollowTable(false);
        QPalette expected = first;
        expected.setColor(QPalette::Highlight, Qt::magenta);
        QCOMPARE(QApplication::palette(), expected);
    }

    void a_palette_and_a_sheet_of_a_widget_win_also_when_set_meanwhile()
    {
        SetPlainWidgetsFollowTable(true);
        QLabel painted;
        QLabel dressed;
        QPalette own;
        own.setColor(QPalette::WindowText, Qt::magenta);
        painted.setPalette(own);
        dressed.setStyleSheet(QStringLiteral("color: #ff00ff"));
        for (const Table table : {Table::Dark, Table::Light, Table::Dark}) {
            UseTable(table);
            dressed.ensurePolished();
            for (const QLabel *label : {&painted, &dressed})
                QCOMPARE(label->palette().color(QPalette::WindowText), QColor(Qt::magenta));
            QVERIFY(IsOfTable(painted));
        }
        SetPlainWidgetsFollowTable(false);
        for (const QLabel *label : {&painted, &dressed})
            QCOMPARE(label->palette().color(QPalette::WindowText), QColor(Qt::magenta));
        painted.setPalette(QPalette());
        QCOMPARE(painted.palette(), QApplication::palette());
    }

    void what_shown_widgets_were_given_or_gave_back_stays()
    {
        QWidget window;
        QLabel given(&window);
        QLabel pinned(&window);
        QLabel givenBack(&window);
        QLabel other(&window);
        const QPalette usual = QApplication::palette();
        QPalette green;
        green.setColor(QPalette::WindowText, Qt::green);
        QPalette asUsual;
        for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
            asUsual.setBrush(group, QPalette::WindowText, usual.brush(group, QPalette::WindowText));
        QFont large;
        large.setPixelSize(33);
        givenBack.setPalette(green);
        givenBack.setFont(large);
        window.show();
        DrainEvents();
        given.setPalette(green);
        given.setFont(large);
        pinned.setPalette(asUsual);
        givenBack.setPalette(QPalette());
        givenBack.setFont(QFont());
        for (const bool follows : {true, false}) {
            SetPlainWidgetsFollowTable(follows);
            UseTable(Table::Dark);
            DrainEvents();
            QCOMPARE(given.palette().color(QPalette::WindowText), QColor(Qt::green));
            QCOMPARE(given.font().pixelSize(), 33);
            QCOMPARE(pinned.palette().color(QPalette::WindowText), usual.color(QPalette::WindowText));
            QCOMPARE(givenBack.palette(), other.palette());
            QCOMPARE(givenBack.font(), other.font());
        }
    }

    void in_a_container_with_a_sheet_stay_palettes_from_before_the_first_show_and_sheets()
    {
        QWidget window;
        QLabel painted(&window);
        QLabel dressed(&window);
        QPalette green;
        green.setColor(QPalette::WindowText, Qt::green);
        painted.setPalette(green);
        QcStyleManager::GetInstance()->RegisterStyleSheet(&window, QStringLiteral("QLabel#another { color: ${brand/brand}; }"));
        window.show();
        DrainEvents();
        dressed.setStyleSheet(QStringLiteral("color: #00ff00"));
        for (const bool follows : {true, false}) {
            SetPlainWidgetsFollowTable(follows);
            for (const Table table : {Table::Dark, Table::Light}) {
                UseTable(table);
                DrainEvents();
                QCOMPARE(painted.palette().color(QPalette::WindowText), QColor(Qt::green));
                QCOMPARE(dressed.palette().color(QPalette::WindowText), QColor(Qt::green));
            }
        }
    }

    void what_is_made_later_follows_too()
    {
        SetPlainWidgetsFollowTable(true);
        UseTable(Table::Dark);
        QGroupBox group;
        QPushButton button;
        QTreeWidget tree;
        for (QWidget *widget : std::initializer_list<QWidget *>{&group, &button, &tree}) {
            widget->ensurePolished();
            QCOMPARE(widget->palette().color(QPalette::Text), QApplication::palette().color(QPalette::Text));
        }
        UseTable(Table::Light);
        for (QWidget *widget : std::initializer_list<QWidget *>{&group, &button, &tree})
            QCOMPARE(widget->palette().color(QPalette::Text), QApplication::palette().color(QPalette::Text));
    }

    void a_sheet_of_the_application_wins_and_stays()
    {
        SetPlainWidgetsFollowTable(true);
        UseTable(Table::Dark);
        qApp->setStyleSheet(qApp->styleSheet() + kOwnRule);
        QGroupBox group;
        group.resize(100, 100);
        QCOMPARE(PixelAt(Render(group), QPointF(1, 50)), QColor(Qt::green));
        UseTable(Table::Light);
        QCOMPARE(PixelAt(Render(group), QPointF(1, 50)), QColor(Qt::green));
        SetPlainWidgetsFollowTable(false);
        QCOMPARE(qApp->styleSheet(), m_sheet + kOwnRule);
    }

    void headers_stay_readable_with_a_sheet_that_was_made_before()
    {
        SetPlainWidgetsFollowTable(true);
        UseTable(Table::Dark);
        const QColor ground = GroundOfHeader();
        QVERIFY(ground != QColor(Qt::black));
        qApp->setStyleSheet(m_sheet + kOwnRule); // without what was put in for plain widgets
        QLabel styled;
        styled.ensurePolished();
        DrainEvents();
        QCOMPARE(GroundOfHeader(), ground);
        SetPlainWidgetsFollowTable(false);
        QCOMPARE(qApp->styleSheet(), m_sheet + kOwnRule);
    }

    void a_sheet_without_the_kits_rules_is_left_alone()
    {
        SetPlainWidgetsFollowTable(true);
        qApp->setStyleSheet(kOwnRule);
        QLabel styled;
        styled.ensurePolished();
        DrainEvents();
        UseTable(Table::Dark);
        QCOMPARE(qApp->styleSheet(), kOwnRule);
        QVERIFY(IsOfTable(styled));
        SetPlainWidgetsFollowTable(false);
        QCOMPARE(qApp->styleSheet(), kOwnRule);
    }

    void a_hosts_proxy_style_goes_on_painting()
    {
        QApplication::setStyle(new HostStyle(Fusion()));
        const QPalette before = QApplication::palette();
        const QStyle *style = QApplication::style();
        SetPlainWidgetsFollowTable(true);
        UseTable(Table::Dark);
        QLabel label;
        QVERIFY(IsOfTable(label));
        QVERIFY(IsPaintedByHost());
        QCOMPARE(QApplication::style(), style);
        QCOMPARE(QApplication::palette().color(QPalette::BrightText), TokenNow("text/text_caption"));
        SetPlainWidgetsFollowTable(false);
        QCOMPARE(QApplication::palette(), before);
        QCOMPARE(QApplication::style(), style);
    }

    void twice_on_is_once_off()
    {
        const QPalette before = QApplication::palette();
        SetPlainWidgetsFollowTable(true);
        SetPlainWidgetsFollowTable(true);
        SetPlainWidgetsFollowTable(false);
        QCOMPARE(QApplication::palette(), before);
        QCOMPARE(qApp->styleSheet(), m_sheet);
        SetPlainWidgetsFollowTable(false);
        QCOMPARE(QApplication::palette(), before);
    }
};

VELMORA_TEST_MAIN(TestPlainHosts)
#include "tst_PlainHosts.moc"
