#include "Ported.h"

#include "dim.h"
#include "line_up.h"

#include <Velmora/QcMultiLineText.h>
#include <Velmora/QcRadioButton.h>
#include <Velmora/QcSelector.h>
#include <Velmora/QcSpinBox.h>

#include <QDateEdit>
#include <QFormLayout>

namespace {

using namespace Velmora;

/// Where the text of \a field lies, in the field, and its darkest colour. The border does not count.
struct Ink
{
    QRect place;
    QColor color = Qt::white;
};

Ink InkOf(QWidget &field)
{
    const QImage look = field.window()->grab(QRect(field.mapTo(field.window(), QPoint()), field.size())).toImage();
    Ink ink;
    for (int y = 3; y < look.height() - 3; ++y) {
        for (int x = 3; x < 40; ++x) {
            const QColor color = look.pixelColor(x, y);
            if (color.lightness() > 150)
                continue;
            ink.place |= QRect(x, y, 1, 1);
            if (color.lightness() < ink.color.lightness())
                ink.color = color;
        }
    }
    return ink;
}

/// A form whose rows show the same letter.
struct Form
{
    QWidget window;
    QcLineEditFrame *field = new QcLineEditFrame;
    QcSpinBox *number = new QcSpinBox;
    QcDoubleSpinBox *amount = new QcDoubleSpinBox;
    QDateEdit *date = new QDateEdit;
    QcSelector *list = new QcSelector;
    QcTextEditFrame *text = new QcTextEditFrame;

    Form()
    {
        window.setPalette(QPalette(Qt::white));
        auto *rows = new QFormLayout(&window);
        for (QWidget *row : All())
            rows->addRow(row);
        rows->addRow(text);
        text->setText(QStringLiteral("H"));
        amount->bSetBorder(true);
        field->setText(QStringLiteral("H"));
        number->setPrefix(QStringLiteral("H                "));
        amount->setPrefix(QStringLiteral("H                "));
        date->setDisplayFormat(QStringLiteral("'H'                d"));
        list->addItem(QStringLiteral("H"));
        window.resize(300, 300);
        window.setFocusPolicy(Qt::StrongFocus);
        window.setFocus(); // or a field would show its cursor
        Shot(window);
    }

    QList<QWidget *> All() const { return {field, number, amount, date, list}; }
};

void CheckLines()
{
    Form form;
    QList<Ink> inks;
    QList<int> heights;
    for (QWidget *row : form.All()) {
        inks << InkOf(*row);
        heights << row->height();
    }
    Check(heights.at(0) == 24 && heights.last() == 28, "a field is 24 pixels high, a selector 28");
    Check(inks.at(0).place.left() != inks.at(1).place.left() && inks.at(1).place.left() != inks.last().place.left(),
          "texts begin at different places");
    Check(inks.at(1).place.height() > inks.at(0).place.height() && inks.at(1).color.lightness() > inks.at(0).color.lightness(),
          "those of spin boxes are larger and paler");

    lineUp(form.field);
    lineUp(form.number);
    lineUp(form.amount);
    lineUp(form.date);
    lineUp(form.text);
    for (const char *table : {"blue_light", "contrast_light"}) {
        UseTable(table);
        Shot(form.window);
        const Ink wanted = InkOf(*form.list);
        for (QWidget *row : form.All()) {
            Check(row->height() == 28 && row->width() == form.list->width(), "all rows have one size");
            const Ink ink = InkOf(*row);
            Check(!ink.place.isEmpty() && ink.place.left() == wanted.place.left(), "their texts begin in one column");
            Check(qAbs(ink.place.top() - wanted.place.top()) <= 1, "on one line");
            Check(ink.place.size() == wanted.place.size() && ink.color == wanted.color, "and look the same");
        }
        const Ink ink = InkOf(*form.text);
        Check(ink.place.left() == wanted.place.left() && ink.color == wanted.color, "that of a text edit in the same column");
    }
    UseTable("blue_light");
    const QList<QWidget *> rows = form.All() << form.text;
    for (QWidget *row : rows) {
        row->setEnabled(false);
        // Right of the text, and the border where no corner is.
        const auto at = [&](int x, int y) { return Shot(form.window).pixelColor(row->mapTo(&form.window, QPoint(x, y))); };
        const auto of = [&](int x, int y) { return Shot(form.window).pixelColor(form.list->mapTo(&form.window, QPoint(x, y))); };
        form.list->setEnabled(false);
        Check(at(100, 14) == of(100, 14) && at(100, 0) == of(100, 0), "disabled rows have one ground and one border");
        if (row != form.list)
            Check(InkOf(*row).color.lightness() > InkOf(*form.list).color.lightness(), "and all but a selector a pale text");
    }
    for (QWidget *row : rows)
        row->setEnabled(true);
    form.number->setValue(7);
    form.number->stepUp();
    Check(form.number->value() == 8, "a number without buttons still steps");

    const auto hasArrow = [&form] {
        const QImage look = Shot(form.window).copy(form.date->geometry());
        for (int i = 0; i < 12 * 12; ++i) {
            if (look.pixelColor(look.width() - 16 + i % 12, 8 + i / 12).lightness() < 150)
                return true;
        }
        return false;
    };
    Check(!hasArrow(), "a date shows no arrow");
    form.date->setCalendarPopup(true);
    Check(hasArrow(), "unless a calendar drops down");
    form.list->setFixedHeight(24);
    Shot(form.window);
    Check(form.list->height() == 24 && InkOf(*form.list).place.height() > 5, "a selector can be as low as a field");
}

void CheckRadioButton()
{
    UseTable("blue_dark");
    QWidget ground;
    ground.setPalette(QPalette(Qt::black));
    QcRadioButton button(&ground);
    button.setText(QStringLiteral("\u2588\u2588\u2588\u2588"));
    button.resize(100, 28);
    const auto text = [&] { return Shot(ground).copy(24, 0, 76, 28); };
    const QImage enabled = text();
    Check(enabled.pixelColor(20, 14) == QColor(Qt::white), "a radio button's text is white in a dark table");
    const QImage circle = Shot(ground).copy(0, 0, 20, 28);
    button.setEnabled(false);
    Check(text() == enabled && Shot(ground).copy(0, 0, 20, 28) != circle, "of one that is disabled the circle alone pales");
    UseTable("blue_light");
    Check(Shot(ground).pixelColor(44, 14) == QColor(Qt::black), "in a light one it is black");
}

void CheckDim()
{
    QWidget ground;
    ground.setPalette(QPalette(Qt::black));
    ground.setFocusPolicy(Qt::StrongFocus);
    ground.setFocus();
    UseTable("blue_dark");
    QcSelector list(&ground);
    list.addItem(QStringLiteral("HHHHHH"));
    list.resize(100, 28);
    QcMultiLineText text(&ground);
    text.move(0, 40);
    text.setText(QStringLiteral("HH <a href='x'>HHHHH</a>"));
    text.resize(100, 28);
    const auto shown = [&](const QWidget &widget) { return Shot(ground).copy(widget.geometry()); };
    const auto brightest = [&](const QWidget &widget) {
        const QImage look = shown(widget).copy(4, 4, 60, 20);
        int lightness = 0;
        for (int i = 0; i < look.width() * look.height(); ++i)
            lightness = qMax(lightness, look.pixelColor(i % look.width(), i / look.width()).lightness());
        return lightness;
    };
    const QImage text1 = shown(text);
    const QImage list1 = shown(list);
    const int light = brightest(list);
    ground.setEnabled(false);
    Check(shown(text) == text1, "a text does not show that it is disabled");
    Check(shown(list) != list1 && brightest(list) >= light, "a selector shows it, its text does not");
    ground.setEnabled(true);
    new Dim(&list);
    new Dim(&text);
    Check(shown(text) == text1 && shown(list) == list1, "what is to be dimmed is as before while it is enabled");
    ground.setEnabled(false);
    Check(brightest(list) < light / 2 && brightest(text) < light / 2, "and pale while it is not");
    ground.setEnabled(true);
    Check(shown(text) == text1 && shown(list) == list1, "and comes back");
    UseTable("blue_light");
}

} // namespace

void CheckRows()
{
    CheckLines();
    CheckRadioButton();
    CheckDim();
}
