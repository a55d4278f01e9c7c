#include "Kit.h"
#include "Page.h"

#include <Velmora/QcPrimaryButton.h>
#include <Velmora/QcSecondaryButton.h>
#include <Velmora/QcStackedWidget.h>

#include <QAction>
#include <QHBoxLayout>
#include <QVBoxLayout>

using namespace Gallery;
using Velmora::QcPrimaryButton;
using Velmora::QcSecondaryButton;
using Velmora::QcStackedWidget;

namespace {

struct Step
{
    const char *title;
    const char *fields[2];
};

constexpr Step kSteps[] = {
    {"Sheet", {"Width", "Height"}},
    {"Scale", {"Horizontal", "Vertical"}},
    {"Author", {"Name", "Company"}},
};

constexpr const char *kGrounds[] = {"brand/brand_bg", "bg/bg_bottom", "bg/bg_secondary"};

class StackedPagesPage : public PageWidget
{
public:
    StackedPagesPage()
    {
        AddSteps();
        AddChanges();
    }

private:
    void AddSteps()
    {
        Card *card = AddSection(QStringLiteral("Steps"),
                                QStringLiteral("Page Up and Page Down change the step. The keyboard goes along: to the field "
                                               "of a step that had it last, or to the first one."));
        auto *steps = new Segmented({QLatin1String(kSteps[0].title), QLatin1String(kSteps[1].title), QLatin1String(kSteps[2].title)});
        card->Body()->addWidget(steps);
        auto *stack = new QcStackedWidget;
        stack->setFixedHeight(11 * kGrid);
        for (const Step &step : kSteps)
            stack->addWidget(MakeForm(step));
        card->Body()->addWidget(stack);
        steps->SetCurrentIndex(0);
        connect(steps, &Segmented::SignalCurrentChanged, stack, &QcStackedWidget::setCurrentIndex);
        connect(stack, &QcStackedWidget::currentChanged, steps, &Segmented::SetCurrentIndex);
        AddKey(Qt::Key_PageDown, stack, +1);
        AddKey(Qt::Key_PageUp, stack, -1);
    }

    void AddKey(Qt::Key key, QcStackedWidget *stack, int step)
    {
        auto *action = new QAction(stack);
        action->setShortcut(key);
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        connect(action, &QAction::triggered, stack, [stack, step] { stack->setCurrentIndex(stack->currentIndex() + step); });
        stack->addAction(action);
    }

    static QWidget *MakeForm(const Step &step)
    {
        auto *form = new QWidget;
        auto *rows = new QVBoxLayout(form);
        rows->setContentsMargins(0, kGrid, 0, kGrid);
        rows->setSpacing(2 * kGrid);
        for (const char *name : step.fields) {
            auto *row = new QHBoxLayout;
            QcLabel *label = MakeLabel(QLatin1String(name), QcLabel::Body);
            label->setFixedWidth(14 * kGrid);
            row->addWidget(label);
            auto *field = new Field;
            field->setAccessibleName(QStringLiteral("%1, %2").arg(QLatin1String(step.title), QLatin1String(name)));
            row->addWidget(field, 1);
            rows->addLayout(row);
        }
        rows->addStretch();
        return form;
    }

    void AddChanges()
    {
        Card *card =
            AddSection(QStringLiteral("Pages that come and go"),
                       QStringLiteral("A page that is deleted leaves the stack by itself. Where only numbers move, after an insertion "
                                      "before the current page or the loss of the first one, what shows waits for the next change."));
        QHBoxLayout *buttons = card->AddRow();
        AddButton<QcPrimaryButton>(buttons, "Add", [this] { m_stack->addWidget(MakeColoured()); });
        AddButton<QcSecondaryButton>(buttons, "Insert first", [this] { m_stack->insertWidget(0, MakeColoured()); });
        AddButton<QcSecondaryButton>(buttons, "Delete the current", [this] { delete m_stack->currentWidget(); });
        AddButton<QcSecondaryButton>(buttons, "Next", [this] {
            if (m_stack->count() > 0)
                m_stack->setCurrentIndex((m_stack->currentIndex() + 1) % m_stack->count());
        });
        buttons->addStretch();

        m_stack = new QcStackedWidget;
        m_stack->setFixedHeight(12 * kGrid);
        card->Body()->addWidget(m_stack);
        m_state = MakeElidingLabel(QString(), QcLabel::BodySecondary);
        card->Body()->addWidget(m_state);
        connect(m_stack, &QcStackedWidget::currentChanged, this,
                [this](int index) { Tell(QStringLiteral("currentChanged(%1)").arg(index)); });
        connect(m_stack, &QcStackedWidget::widgetRemoved, this,
                [this](int index) { Tell(QStringLiteral("widgetRemoved(%1)").arg(index)); });
        for (int i = 0; i < 3; ++i)
            m_stack->addWidget(MakeColoured());
        Tell(QStringLiteral("Three pages were added"));
    }

    template <typename Button, typename Function>
    void AddButton(QHBoxLayout *row, const char *text, const Function &function)
    {
        auto *button = new Button;
        button->setText(QLatin1String(text));
        button->setHorizontalMargin(kGrid);
        connect(button, &QAbstractButton::clicked, this, [this, function] {
            function();
            Tell(m_told);
        });
        row->addWidget(button);
    }

    QWidget *MakeColoured()
    {
        auto *page = new QcFrame;
        page->setBackgroundColorParams(QLatin1String(kGrounds[m_made % 3]));
        page->setBorderColorParams(QStringLiteral("border/border_secondary"));
        page->setBorderSides(QcFrame::Left | QcFrame::Top | QcFrame::Right | QcFrame::Bottom);
        page->setBorderRadius(4);
        auto *layout = new QVBoxLayout(page);
        layout->addWidget(MakeLabel(QStringLiteral("Page %1").arg(++m_made), QcLabel::Headline), 0, Qt::AlignCenter);
        return page;
    }

    void Tell(const QString &told)
    {
        m_told = told;
        m_state->setText(QStringLiteral("%1 \u00B7 index %2 of %3").arg(told).arg(m_stack->currentIndex()).arg(m_stack->count()));
    }

    QcStackedWidget *m_stack = nullptr;
    QcLabel *m_state = nullptr;
    QString m_told;
    int m_made = 0;
};

const PageRegistrar registrar({QStringLiteral("stackedpages"), QStringLiteral("Display"), QStringLiteral("Stacked pages"),
                               QStringLiteral("QcStackedWidget: one of several pages, of which only the one that shows is laid out."), 230,
                               [] { return new StackedPagesPage; }});

} // namespace
