#include "support/Pixels.h"
#include "support/TestMain.h"

#include <Velmora/PlainWidgets.h>
#include <Velmora/QcDoubleSpinBox.h>
#include <Velmora/QcLineEditFrame.h>
#include <Velmora/QcMultiLineText.h>
#include <Velmora/QcSelector.h>
#include <Velmora/QcSpinBox.h>
#include <Velmora/QcTextEditFrame.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QLineEdit>
#include <QStyleFactory>
#include <QTextEdit>

#include <functional>
#include <memory>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

using Control = std::unique_ptr<QWidget>;

template <typename SpinBox>
Control MakeSpinBox()
{
    auto spin = std::make_unique<SpinBox>();
    spin->setMaximum(10000);
    spin->setValue(8888);
    return spin;
}

Control MakeBorderedSpinBox()
{
    Control spin = MakeSpinBox<QcDoubleSpinBox>();
    static_cast<QcDoubleSpinBox *>(spin.get())->bSetBorder(true);
    return spin;
}

Control MakeList()
{
    auto selector = std::make_unique<QcSelector>();
    selector->addItems({QStringLiteral("one"), QStringLiteral("two")});
    selector->resize(120, 28);
    return selector;
}

Control MakeEditableSelector()
{
    auto selector = std::make_unique<QcSelector>();
    selector->setEditable(true);
    selector->resize(120, 28);
    selector->lineEdit()->setText(QStringLiteral("8888"));
    return selector;
}

Control MakeLine()
{
    auto frame = std::make_unique<QcLineEditFrame>();
    frame->setText(QStringLiteral("8888"));
    return frame;
}

Control MakeText()
{
    auto text = std::make_unique<QcMultiLineText>();
    text->setText(QStringLiteral("<a href=\"#\">HHH</a> <a href=\"#\" style=\"color: #ff00ff\">HHH</a>"));
    text->resize(200, 40);
    return text;
}

Control MakeTextEdit()
{
    auto frame = std::make_unique<QcTextEditFrame>();
    frame->getTextEdit()->setPlainText(QStringLiteral("8888"));
    frame->getTextEdit()->selectAll();
    return frame;
}

/// The control, and what has dropped down from it.
QVector<QImage> PicturesOf(QWidget &control)
{
    control.show();
    control.activateWindow(); // else what is selected has other colours
    static_cast<void>(QTest::qWaitForWindowActive(&control));
    control.setFocus();
    if (auto *edit = control.findChild<QLineEdit *>())
        edit->selectAll();
    DrainEvents();
    QVector<QImage> pictures = {Render(control)};
    if (auto *selector = qobject_cast<QcSelector *>(&control)) {
        if (!selector->isEditable())
            selector->showPopup(); // again, if that of another has closed it
        DrainEvents();
        QWidget *list = selector->view()->window();
        if (list->isVisible() && list != control.window())
            pictures += {Render(*list, Qt::magenta), list->grab().toImage()};
    }
    return pictures;
}

struct Specimen
{
    const char *name;
    Control (*make)();
};

constexpr Specimen kSpecimens[] = {
    {"spin box, selected", MakeSpinBox<QcSpinBox>},
    {"double spin box, selected", MakeBorderedSpinBox},
    {"list of a selector", MakeList},
    {"selector to type in, selected", MakeEditableSelector},
    {"line edit, selected", MakeLine},
    {"text with links", MakeText},
    {"text edit, selected", MakeTextEdit},
};

template <typename Ours, typename Plain>
void CompareEdits()
{
    Ours ours;
    Plain plain;
    const auto *edit = ours.template findChild<QLineEdit *>(QStringLiteral("qt_spinbox_lineedit"));
    const auto *expected = plain.template findChild<QLineEdit *>(QStringLiteral("qt_spinbox_lineedit"));
    QVERIFY(edit && expected);
    for (const int value : {0, 7}) {
        ours.setValue(value);
        plain.setValue(value);
        QCOMPARE(edit->text(), expected->text());
    }
    QCOMPARE(edit->hasFrame(), expected->hasFrame());
    QCOMPARE(edit->contextMenuPolicy(), expected->contextMenuPolicy());
    QCOMPARE(edit->acceptDrops(), expected->acceptDrops());
    QCOMPARE(edit->focusProxy() == &ours, expected->focusProxy() == &plain);
    QCOMPARE(edit->validator() != nullptr, expected->validator() != nullptr);
    QCOMPARE(ours.template findChildren<QLineEdit *>().size(), 1);
}

} // namespace

/// The kit's own controls beside plain widgets that follow the table: pixel by pixel as without.
class TestPlainKit : public TestCase
{
    Q_OBJECT

protected:
    void SetUp() override { UseTable(Table::Dark); }
    void TearDown() override { SetPlainWidgetsFollowTable(false); }

private Q_SLOTS:
    void initTestCase()
    {
        QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
        QApplication::setCursorFlashTime(0);
    }

    void a_control_looks_the_same_on_and_off_data()
    {
        QTest::addColumn<int>("specimen");
        for (const Specimen &specimen : kSpecimens)
            QTest::newRow(specimen.name) << int(&specimen - kSpecimens);
    }

    void a_control_looks_the_same_on_and_off()
    {
        QFETCH(int, specimen);
        const auto make = kSpecimens[specimen].make;
        const Control early = make();
        const QVector<QImage> expected = PicturesOf(*early);
        SetPlainWidgetsFollowTable(true);
        QVERIFY(PicturesOf(*early) == expected);
        {
            const Control late = make();
            QVERIFY(PicturesOf(*late) == expected);
            UseTable(Table::Light);
            UseTable(Table::Dark);
            QVERIFY(PicturesOf(*late) == expected);
            SetPlainWidgetsFollowTable(false);
            QVERIFY(PicturesOf(*late) == expected);
        }
        QVERIFY(PicturesOf(*early) == expected);
    }

    void a_link_with_a_colour_of_its_own_keeps_it_even_that_of_the_table()
    {
        SetPlainWidgetsFollowTable(true);
        const QColor token = QcStyleManager::GetInstance()->GetColor(ColorParams("link/link"));
        QcMultiLineText text;
        text.setFont(60);
        text.setText(QStringLiteral("<a href=\"#\" style=\"color: %1\">HHH</a>").arg(token.name()));
        text.resize(300, 100);
        COMPARE_COLOR(InkColor(Render(text), Qt::white), token);
        UseTable(Table::Light);
        COMPARE_COLOR(InkColor(Render(text), Qt::white), token);
    }

    void the_edit_of_a_spin_box_is_as_in_plain_qt()
    {
        CompareEdits<QcSpinBox, QSpinBox>();
        CompareEdits<QcDoubleSpinBox, QDoubleSpinBox>();
    }
};

VELMORA_TEST_MAIN(TestPlainKit)
#include "tst_PlainKit.moc"
