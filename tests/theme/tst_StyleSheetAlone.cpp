#include "support/Pixels.h"
#include "support/TestMain.h"

#include "theme/StyleSheetAlone_p.h"

#include <QApplication>
#include <QFrame>
#include <QHash>
#include <QPointer>
#include <QProxyStyle>
#include <QStyleFactory>

#include <functional>
#include <utility>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

/// Counts how often each widget is styled.
class CountingStyle : public QProxyStyle
{
public:
    CountingStyle()
        : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion")))
    {
    }
    using QProxyStyle::polish;
    void polish(QWidget *widget) override
    {
        ++polished[widget];
        QProxyStyle::polish(widget);
    }

    QHash<const QWidget *, int> polished;
};

/// Answers a change of style as a host may.
class Answer : public QObject
{
public:
    Answer(QWidget &watched, std::function<void()> answer)
        : m_answer(std::move(answer))
    {
        watched.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() == QEvent::StyleChange && m_answer)
            std::exchange(m_answer, nullptr)();
        return false;
    }

private:
    std::function<void()> m_answer;
};

/// A frame with two parts, of which the first has a sheet of its own.
struct Composed
{
    QFrame frame;
    QPointer<QFrame> part = new QFrame(&frame);
    QPointer<QFrame> plain = new QFrame(&frame);

    Composed()
    {
        part->setStyleSheet(kOwn);
        part->setGeometry(0, 0, 20, 20);
        plain->setGeometry(20, 0, 20, 20);
        frame.resize(40, 20);
    }

    static constexpr int kOwnPixels = 29;
    static const QString kOwn;
    static const QString kSheet;
};

const QString Composed::kOwn = QStringLiteral("QFrame { border: 5px solid blue; font-size: %1px }").arg(kOwnPixels);
const QString Composed::kSheet = QStringLiteral("QFrame QFrame { background: red }");
const QString kBold = QStringLiteral("QFrame QFrame { font-weight: bold }");

} // namespace

class TestStyleSheetAlone : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void SetUp() override
    {
        m_style = new CountingStyle;
        QApplication::setStyle(m_style); // the application's from now on
        qApp->setStyleSheet(QString());
    }

    void a_part_with_a_sheet_of_its_own_is_styled_by_the_show()
    {
        Composed composed;
        SetStyleSheetAlone(&composed.frame, Composed::kSheet);
        QCOMPARE(m_style->polished.value(composed.part), 0);
        QCOMPARE(composed.frame.styleSheet(), Composed::kSheet);
        QCOMPARE(composed.part->styleSheet(), Composed::kOwn);
        composed.frame.show();
        DrainEvents();
        QCOMPARE(m_style->polished.value(composed.part), 1);
    }

    void every_part_looks_as_both_sheets_say()
    {
        Composed composed;
        SetStyleSheetAlone(&composed.frame, Composed::kSheet);
        composed.frame.show();
        DrainEvents();
        const QImage image = Render(composed.frame);
        COMPARE_COLOR(PixelAt(image, QPointF(2, 10)), QColor(Qt::blue));
        COMPARE_COLOR(PixelAt(image, QPointF(10, 10)), QColor(Qt::red));
        COMPARE_COLOR(PixelAt(image, QPointF(30, 10)), QColor(Qt::red));

        composed.frame.setStyleSheet(QStringLiteral("QFrame QFrame { background: green }"));
        COMPARE_COLOR(PixelAt(Render(composed.frame), QPointF(10, 10)), QColor(Qt::darkGreen));
        composed.frame.setStyleSheet(QString());
        COMPARE_COLOR(PixelAt(Render(composed.frame), QPointF(2, 10)), QColor(Qt::blue));
    }

    void a_part_that_was_styled_already_follows_at_once()
    {
        Composed composed;
        composed.part->ensurePolished();
        SetStyleSheetAlone(&composed.frame, kBold);
        QVERIFY(composed.part->font().bold());
        QCOMPARE(composed.part->font().pixelSize(), Composed::kOwnPixels);
    }

    void a_new_part_of_a_shown_widget_follows_at_once()
    {
        Composed composed;
        composed.frame.setStyleSheet(Composed::kSheet);
        composed.frame.show();
        DrainEvents();
        QFrame part(&composed.frame);
        part.setStyleSheet(Composed::kOwn);
        SetStyleSheetAlone(&composed.frame, kBold);
        QVERIFY(part.font().bold());
        QCOMPARE(part.font().pixelSize(), Composed::kOwnPixels);
    }

    void a_shown_widget_follows_at_once()
    {
        Composed composed;
        composed.frame.show();
        DrainEvents();
        SetStyleSheetAlone(&composed.frame, Composed::kSheet);
        COMPARE_COLOR(PixelAt(Render(composed.frame), QPointF(10, 10)), QColor(Qt::red));
        SetStyleSheetAlone(&composed.frame, QString());
        QCOMPARE(composed.part->styleSheet(), Composed::kOwn);
        COMPARE_COLOR(PixelAt(Render(composed.frame), QPointF(2, 10)), QColor(Qt::blue));
    }

    void an_empty_sheet_leaves_the_parts_theirs()
    {
        Composed composed;
        SetStyleSheetAlone(&composed.frame, Composed::kSheet);
        SetStyleSheetAlone(&composed.frame, QString());
        composed.frame.show();
        DrainEvents();
        COMPARE_COLOR(PixelAt(Render(composed.frame), QPointF(2, 10)), QColor(Qt::blue));
    }

    void a_sheet_that_a_handler_sets_stays()
    {
        Composed composed;
        const QString own = QStringLiteral("QFrame { border: 5px solid green }");
        const Answer answer(*composed.part, [&] { composed.part->setStyleSheet(own); });
        SetStyleSheetAlone(&composed.frame, Composed::kSheet);
        QCOMPARE(composed.part->styleSheet(), own);
    }

    void a_handler_may_delete_a_part()
    {
        Composed composed;
        const Answer answer(*composed.plain, [&] { delete composed.part; });
        SetStyleSheetAlone(&composed.frame, Composed::kSheet);
        QVERIFY(!composed.part);
        QCOMPARE(composed.frame.styleSheet(), Composed::kSheet);
    }

    void what_is_asked_for_meanwhile_runs_once_when_all_is_styled()
    {
        Composed composed;
        composed.frame.show();
        DrainEvents();
        QStringList run;
        const Answer answer(*composed.plain, [&] {
            const Answer inner(composed.frame,
                               [&] { QVERIFY(CallWhenStyled(&composed.frame, [&] { run.append(composed.frame.styleSheet()); })); });
            SetStyleSheetAlone(&composed.frame, kBold); // a pass in a pass
            QVERIFY(CallWhenStyled(composed.plain, [&] { run.append(composed.part->styleSheet()); }));
            QVERIFY(run.isEmpty());
        });
        SetStyleSheetAlone(&composed.frame, Composed::kSheet);
        QCOMPARE(run, QStringList({kBold, Composed::kOwn}));
        SetStyleSheetAlone(&composed.frame, Composed::kSheet);
        QCOMPARE(run.size(), 2);
    }

    void nothing_runs_for_who_has_gone()
    {
        Composed composed;
        bool hasRun = false;
        const Answer answer(*composed.plain, [&] {
            QVERIFY(CallWhenStyled(composed.part, [&] { hasRun = true; }));
            delete composed.part;
        });
        SetStyleSheetAlone(&composed.frame, Composed::kSheet);
        QVERIFY(!composed.part);
        QVERIFY(!hasRun);
    }

    void between_passes_nothing_is_taken()
    {
        QWidget widget;
        QVERIFY(!CallWhenStyled(&widget, [] { QFAIL("nobody asked"); }));
        SetStyleSheetAlone(&widget, kBold);
    }

private:
    CountingStyle *m_style = nullptr;
};

VELMORA_TEST_MAIN(TestStyleSheetAlone)
#include "tst_StyleSheetAlone.moc"
