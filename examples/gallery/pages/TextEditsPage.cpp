#include "HoverEventAt.h"
#include "Kit.h"
#include "Page.h"

#include <Velmora/PostOwnedTask.h>
#include <Velmora/QcTextEditFrame.h>
#include <Velmora/QcTextEditLimiter.h>

#include <QGridLayout>
#include <QHBoxLayout>
#include <QHoverEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTextEdit>
#include <QVBoxLayout>

using namespace Gallery;
using Velmora::QcTextEditFrame;
using Velmora::QcTextEditLimiter;

namespace {

constexpr int kNameWidth = 14 * kGrid;
constexpr int kFieldHeight = 12 * kGrid;

enum class Look { Rest, Hover, Focus, Disabled };
constexpr const char *kLookNames[] = {"Rest", "Hover", "Focus", "Disabled"};

const QString kShort = QStringLiteral("Two crates, to be kept upright.");
const QString kLong = QStringLiteral("Reefer at -18 \u00B0C, pre-cooled. Deliver between 06:00 and 10:00 at gate 4; call the yard an hour "
                                     "ahead. The driver brings his own straps. Return the empty container to Maasvlakte within five days, "
                                     "swept and dry, with the data logger in its box behind the door.");

/// A limiter with its scroll bar held in one state, brought about as the mouse does it, anew at each show: hiding ends it.
class WithHeldBar : public QcTextEditLimiter
{
public:
    enum State { FieldHovered, BarHovered, HandleHovered, Pressed };

    explicit WithHeldBar(State state)
        : m_state(state)
    {
        setMaxNum(400);
        setText(kLong);
        Bar()->setProperty("needScroll", true);
    }

protected:
    void showEvent(QShowEvent *event) override
    {
        QcTextEditLimiter::showEvent(event);
        // Laid out, the bar knows where its handle is.
        Velmora::PostOwnedTask(
            this, [this] { Hold(); }, "WithHeldBar::Hold");
    }

private:
    QScrollBar *Bar() const { return textEdit()->verticalScrollBar(); }

    void Hold()
    {
        if (m_state == FieldHovered)
            return;
        Bar()->setAttribute(Qt::WA_UnderMouse);
        const QPoint onHandle(Bar()->width() / 2, 8);
        const QPoint belowHandle(Bar()->width() / 2, Bar()->height() - 8);
        const QPoint at = m_state == BarHovered ? belowHandle : onHandle;
        QHoverEvent hover = HoverEventAt(QEvent::HoverEnter, at, QPoint(-1, -1));
        Bar()->event(&hover); // past the application's filters, as the press
        if (m_state == Pressed) {
            QMouseEvent press(QEvent::MouseButtonPress, onHandle, QCursor::pos(), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
            Bar()->event(&press);
        }
    }

    const State m_state;
};

class TextEditsPage : public PageWidget
{
public:
    TextEditsPage()
    {
        AddForm();
        AddMatrix();
        AddBars();
    }

private:
    // --- To type into ---

    void AddForm()
    {
        Card *card = AddSection(
            QStringLiteral("Remarks"),
            QStringLiteral(
                "Type or paste more than fits: the rest is dropped at once. Tab leaves, as the page asks; otherwise it types a tab."));
        auto *grid = new QGridLayout;
        grid->setHorizontalSpacing(3 * kGrid);
        grid->setVerticalSpacing(kGrid);
        card->Body()->addLayout(grid);

        auto *remarks = new QcTextEditFrame;
        remarks->getTextEdit()->setTabChangesFocus(true);
        remarks->setMaxLength(120);
        remarks->setPlaceholderText(QStringLiteral("What the driver has to know"));
        Put(*grid, 0, QStringLiteral("QcTextEditFrame, 120 characters"), remarks);
        connect(remarks, &QcTextEditFrame::signalTextChanged, this,
                [this](const QString &text) { m_answer->setText(QStringLiteral("signalTextChanged: %1 characters").arg(text.size())); });
        connect(remarks, &QcTextEditFrame::signalFocusIn, this, [this] { m_answer->setText(QStringLiteral("signalFocusIn")); });
        connect(remarks, &QcTextEditFrame::signalFocusOut, this, [this] { m_answer->setText(QStringLiteral("signalFocusOut")); });

        auto *label = new QcTextEditLimiter;
        label->textEdit()->setTabChangesFocus(true);
        label->setMaxNum(400);
        label->setPlaceholderText(QStringLiteral("What is printed on the label"));
        label->setText(kLong);
        Put(*grid, 1, QStringLiteral("QcTextEditLimiter, 400 characters"), label);
        connect(label, &QcTextEditLimiter::SignalFousOut, this,
                [this](const QString &text) { m_answer->setText(QStringLiteral("SignalFousOut: %1 characters").arg(text.size())); });

        m_answer = MakeElidingLabel(QStringLiteral("No signal yet"), QcLabel::BodySecondary);
        card->Body()->addWidget(m_answer);
    }

    static void Put(QGridLayout &grid, int column, const QString &name, QWidget *field)
    {
        field->setAccessibleName(name);
        field->setFixedHeight(kFieldHeight);
        grid.addWidget(MakeElidingLabel(name, QcLabel::BodySecondary), 0, column);
        grid.addWidget(field, 1, column);
        grid.setColumnStretch(column, 1);
    }

    // --- The states ---

    void AddMatrix()
    {
        Card *card = AddSection(QStringLiteral("States"));
        m_grid = new QGridLayout;
        m_grid->setHorizontalSpacing(2 * kGrid);
        m_grid->setVerticalSpacing(2 * kGrid);
        for (int column = 0; column < 4; ++column) {
            m_grid->addWidget(MakeLabel(QLatin1String(kLookNames[column]), QcLabel::BodySecondary), 0, column + 1);
            m_grid->setColumnStretch(column + 1, 1);
        }
        m_grid->setColumnMinimumWidth(0, kNameWidth);
        m_grid->addWidget(MakeDivider(), 1, 0, 1, 5);

        AddFrames(QStringLiteral("Frame"), [](QcTextEditFrame &field) {
            field.setMaxLength(50);
            field.setText(kShort);
        });
        AddFrames(QStringLiteral("Placeholder"),
                  [](QcTextEditFrame &field) { field.setPlaceholderText(QStringLiteral("What the driver has to know")); });
        AddFrames(QStringLiteral("Right to left"), [](QcTextEditFrame &field) {
            field.setLayoutDirection(Qt::RightToLeft);
            field.setMaxLength(50);
            field.setText(QStringLiteral("\u05E9\u05DC\u05D5\u05DD, \u05E8\u05D5\u05D8\u05E8\u05D3\u05DD"));
        });
        AddLimiters(QStringLiteral("Limiter"), [](QcTextEditLimiter &field) { field.setText(kShort); });
        AddLimiters(QStringLiteral("Overflowing"), [](QcTextEditLimiter &field) { field.setText(kLong); });
        AddLimiters(QStringLiteral("Placeholder"),
                    [](QcTextEditLimiter &field) { field.setPlaceholderText(QStringLiteral("What is printed on the label")); });
        card->Body()->addLayout(m_grid);
    }

    template <typename Fill>
    void AddFrames(const QString &name, const Fill &fill)
    {
        AddRow<QcTextEditFrame>(name, [&](QcTextEditFrame &field, Look look) {
            field.setProperty("objectPropertyFocus", look == Look::Focus);
            fill(field);
        });
    }

    template <typename Fill>
    void AddLimiters(const QString &name, const Fill &fill)
    {
        AddRow<QcTextEditLimiter>(name, [&](QcTextEditLimiter &field, Look look) {
            field.setMaxNum(400);
            fill(field);
            // As the mouse over the field does it, and its absence.
            field.textEdit()->verticalScrollBar()->setProperty("needScroll", look == Look::Hover && name == QLatin1String("Overflowing"));
        });
    }

    template <typename Field, typename SetUp>
    void AddRow(const QString &name, const SetUp &setUp)
    {
        const int row = m_grid->rowCount();
        m_grid->addWidget(MakeLabel(name, QcLabel::Body), row, 0);
        for (int column = 0; column < 4; ++column) {
            auto *field = new Field;
            field->setAccessibleName(QStringLiteral("%1, %2").arg(name, QLatin1String(kLookNames[column])));
            field->setFixedHeight(10 * kGrid);
            field->setAttribute(Qt::WA_UnderMouse, Look(column) == Look::Hover);
            field->setEnabled(Look(column) != Look::Disabled);
            setUp(*field, Look(column));
            MakeSpecimen(field);
            m_grid->addWidget(field, row, column + 1);
        }
    }

    void AddBars()
    {
        Card *card =
            AddSection(QStringLiteral("The scroll bar of a limiter"),
                       QStringLiteral("Its handle is a translucent white in the tables Light and Dark, and not seen on white: on light "
                                      "ground a host gives the tokens colours of its own."));
        QHBoxLayout *row = card->AddRow(2 * kGrid);
        using Bar = WithHeldBar;
        AddBar(row, QStringLiteral("Field hovered"), Bar::FieldHovered);
        AddBar(row, QStringLiteral("Bar hovered"), Bar::BarHovered);
        AddBar(row, QStringLiteral("Handle hovered"), Bar::HandleHovered);
        AddBar(row, QStringLiteral("Handle pressed"), Bar::Pressed);
    }

    static void AddBar(QHBoxLayout *row, const QString &name, WithHeldBar::State state)
    {
        auto *column = new QVBoxLayout;
        column->addWidget(MakeLabel(name, QcLabel::BodySecondary));
        auto *field = new WithHeldBar(state);
        field->setAccessibleName(name);
        field->setFixedHeight(10 * kGrid);
        field->setAttribute(Qt::WA_UnderMouse);
        MakeSpecimen(field);
        column->addWidget(field);
        row->addLayout(column, 1);
    }

    QGridLayout *m_grid = nullptr;
    QcLabel *m_answer = nullptr;
};

const PageRegistrar registrar({QStringLiteral("textedits"), QStringLiteral("Inputs"), QStringLiteral("Text edits"),
                               QStringLiteral("QcTextEditFrame and QcTextEditLimiter: texts of many lines that end where they have to."),
                               335, [] { return new TextEditsPage; }});

} // namespace
