#include "support/TestMain.h"

#include "TestFiles.h"

#include <Velmora/QCSlider.h>
#include <Velmora/QcFrame.h>
#include <Velmora/QcGhostButton.h>
#include <Velmora/QcLabel.h>
#include <Velmora/QcPrimaryButton.h>

#include <QGridLayout>

#include <memory>
#include <utility>
#include <vector>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

struct Counts
{
    int paints = 0;
    int styleChanges = 0;
};

/// \a Base, counting what a change of the table makes it do.
template <typename Base>
class Counted : public Base
{
public:
    explicit Counted(Counts *counts)
        : m_counts(counts)
    {
    }

protected:
    bool event(QEvent *event) override
    {
        if (event->type() == QEvent::StyleChange)
            ++m_counts->styleChanges;
        return Base::event(event);
    }
    void paintEvent(QPaintEvent *event) override
    {
        ++m_counts->paints;
        Base::paintEvent(event);
    }

private:
    Counts *m_counts;
};

/// A window that knows which parts of it are painted.
class PaintedWindow : public QWidget
{
public:
    QRegion painted;

protected:
    void paintEvent(QPaintEvent *event) override { painted += event->region(); }
};

/// A shown window with \a rows of four widgets, each with its counts. They lie in an opaque frame: Qt paints such a child only if it
/// was asked for itself.
class Screenful
{
public:
    explicit Screenful(const QStringList &icons, int rows = kFewRows)
    {
        auto *frame = new QWidget(&m_window);
        frame->setAutoFillBackground(true);
        (new QVBoxLayout(&m_window))->addWidget(frame);
        auto *grid = new QGridLayout(frame);
        grid->setVerticalSpacing(0);
        for (int i = 0; i < rows; ++i) {
            const QString icon = icons.at(i % icons.size());
            auto *primary = new Counted<QcPrimaryButton>(NewCounts());
            primary->setText(QStringLiteral("Text %1").arg(i));
            primary->SetIconPath(icon);
            auto *ghost = new Counted<QcGhostButton>(NewCounts());
            ghost->setText(QStringLiteral("Text %1").arg(i));
            auto *square = new Counted<QcFrame>(NewCounts());
            square->setFixedSize(20, 20);
            auto *label = new Counted<QcLabel>(NewCounts());
            label->setText(QStringLiteral("Text %1").arg(i));
            int column = 0;
            for (QWidget *widget : {static_cast<QWidget *>(primary), static_cast<QWidget *>(ghost), static_cast<QWidget *>(square),
                                    static_cast<QWidget *>(label)})
                grid->addWidget(widget, i, column++); // the frame's children
        }
        m_window.show();
        if (!QTest::qWaitForWindowExposed(&m_window))
            qFatal("the window was not shown");
        Drain();
    }

    static constexpr int kFewRows = 24;  // just below a hundred widgets
    static constexpr int kManyRows = 26; // just above

    /// What was painted of the window's own surface since the last call.
    QRegion TakePainted() { return std::exchange(m_window.painted, QRegion()); }
    QRect WindowRect() const { return m_window.rect(); }

    /// Lets everything that is due happen and gives what that took, one entry a widget.
    std::vector<Counts> Drain()
    {
        DrainEvents();
        std::vector<Counts> result;
        for (const auto &counts : m_counts) {
            result.push_back(*counts);
            *counts = Counts();
        }
        return result;
    }

private:
    Counts *NewCounts()
    {
        m_counts.push_back(std::make_unique<Counts>());
        return m_counts.back().get();
    }

    std::vector<std::unique_ptr<Counts>> m_counts;
    PaintedWindow m_window;
};

const QStringList kIcons = {QStringLiteral(":/images/close.svg"), QStringLiteral(":/images/max.svg")};

void SwitchTable(Table table)
{
    QcStyleManager::GetInstance()->SetColorFilePath(TablePath(table));
}

} // namespace

/// What a change of the table costs, counted, not timed.
class tst_ThemeSwitchCost : public TestCase
{
    Q_OBJECT

private:
    TestFiles m_files;

    /// An SVG that breaks off: each parse of it, and nothing else, gives one warning.
    QString BrokenIcon(const QString &name)
    {
        return m_files.Write(name, "<svg viewBox='0 0 8 8'><rect width='8' height='8' fill='#000000'/>");
    }
    void ExpectParseOf(const QStringList &icons)
    {
        for (const QString &icon : icons)
            ExpectWarning(QStringLiteral("QcStyleManager::GetAdjustedSvgData: Failed to parse XML content. \"%1\"").arg(icon));
    }

protected:
    void SetUp() override { UseTable(Table::Light); }
    void TearDown() override { UseTable(Table::Light); }

private Q_SLOTS:
    void every_widget_is_painted_exactly_once_data()
    {
        QTest::addColumn<int>("rows");
        QTest::newRow("few") << Screenful::kFewRows;
        QTest::newRow("many") << Screenful::kManyRows;
    }

    void every_widget_is_painted_exactly_once()
    {
        QFETCH(int, rows);
        Screenful screenful(kIcons, rows);
        for (const Table table : {Table::Dark, Table::Light}) {
            SwitchTable(table);
            for (const Counts &counts : screenful.Drain())
                QCOMPARE(counts.paints, 1);
        }
    }

    void a_window_of_a_hundred_is_repainted_as_a_whole_and_one_of_fewer_is_not()
    {
        Screenful few(kIcons, Screenful::kFewRows);
        Screenful many(kIcons, Screenful::kManyRows);
        few.TakePainted();
        many.TakePainted();
        SwitchTable(Table::Dark);
        DrainEvents();
        QVERIFY(few.TakePainted().isEmpty());
        QCOMPARE(many.TakePainted().boundingRect(), many.WindowRect());
    }

    void widgets_that_paint_themselves_see_no_change_of_style()
    {
        Screenful screenful(kIcons);
        SwitchTable(Table::Dark);
        for (const Counts &counts : screenful.Drain())
            QCOMPARE(counts.styleChanges, 0);
    }

    void a_slider_is_painted_once_with_what_lies_behind_and_sees_no_change_of_style()
    {
        QcFrame frame;
        Counts counts;
        auto *slider = new Counted<QCSlider>(&counts);
        slider->setParent(&frame);
        frame.show();
        QVERIFY(QTest::qWaitForWindowExposed(&frame));
        DrainEvents();
        counts = Counts();
        SwitchTable(Table::Dark);
        DrainEvents();
        QCOMPARE(counts.paints, 1);
        QCOMPARE(counts.styleChanges, 0);
    }

    void nothing_is_painted_when_idle()
    {
        Screenful screenful(kIcons);
        SwitchTable(Table::Dark);
        screenful.Drain();
        for (const Counts &counts : screenful.Drain())
            QCOMPARE(counts.paints, 0);
    }

    void each_distinct_icon_is_parsed_once_a_table()
    {
        const QStringList icons = {BrokenIcon(QStringLiteral("a.svg")), BrokenIcon(QStringLiteral("b.svg")),
                                   BrokenIcon(QStringLiteral("c.svg"))};
        ExpectParseOf(icons); // one line each, for all the buttons that show it
        Screenful screenful(icons);
        ExpectParseOf(icons);
        SwitchTable(Table::Dark);
        screenful.Drain();
    }
};

VELMORA_TEST_MAIN(tst_ThemeSwitchCost)
#include "tst_ThemeSwitchCost.moc"
