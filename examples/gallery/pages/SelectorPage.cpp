#include "HoverEventAt.h"
#include "Kit.h"
#include "Page.h"

#include <Velmora/ImageParams.h>
#include <Velmora/QcScrollBar.h>
#include <Velmora/QcSelector.h>
#include <Velmora/QcStyleManager.h>

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHoverEvent>
#include <QPainter>
#include <QShowEvent>
#include <QVBoxLayout>

using namespace Gallery;
using Velmora::ImageParams;
using Velmora::QcScrollBar;
using Velmora::QcSelector;
using Velmora::QcStyleManager;

namespace {

constexpr int kLabelWidth = 14 * kGrid;
constexpr int kFieldWidth = 26 * kGrid;
constexpr int kPopupRows = 7;
constexpr int kRowHeight = 28;

const QStringList kPorts = {QStringLiteral("Antwerp"), QStringLiteral("Bremerhaven"), QStringLiteral("Gdynia"),
                            QStringLiteral("Hamburg"), QStringLiteral("Le Havre"),    QStringLiteral("Rotterdam")};

QStringList Numbered(const QString &name, int count)
{
    QStringList texts;
    for (int i = 1; i <= count; ++i)
        texts << QStringLiteral("%1 %2").arg(name).arg(i);
    return texts;
}

/// Items with icons and one without, in the colours of the table that is active when they are made.
void FillWithIcons(QcSelector &selector)
{
    const auto add = [&selector](const QString &text, const QString &file) {
        ImageParams params;
        params.path = QStringLiteral(":/gallery/icons/%1.svg").arg(file);
        params.size = QSize(24, 24);
        params.color = QStringLiteral("brand/brand");
        selector.addItem(QcStyleManager::GetInstance()->GetIcon(params), text);
    };
    selector.clear();
    add(QStringLiteral("Copy"), QStringLiteral("copy"));
    add(QStringLiteral("Paste"), QStringLiteral("paste"));
    selector.addItem(QStringLiteral("No icon of its own"));
}

/// The open list of a selector, which a picture of the page would not show: it is a window.
class PopupPicture : public QWidget
{
public:
    /// With the row \a hovered under the mouse, if there is such a one.
    PopupPicture(QcSelector *selector, int hovered)
        : m_selector(selector)
        , m_hovered(hovered)
    {
        setFixedSize(kFieldWidth, qMin(selector->count(), kPopupRows) * kRowHeight + 4);
        // Longer lists have the handle of their scroll bar as with the mouse over them.
        const auto bars = selector->view()->findChildren<QcScrollBar *>();
        for (QcScrollBar *bar : bars) {
            bar->setDisplayModeM(QcScrollBar::DisplayAlways);
            // What is hidden takes the table's colours when it is shown, and this list never is.
            connect(QcStyleManager::GetInstance(), &QcStyleManager::SignalColorChanged, bar, [bar] {
                QShowEvent show;
                QCoreApplication::sendEvent(bar, &show);
            });
        }
        QcStyleManager::GetInstance()->RegisterColorHandler(this, [this] { update(); });
    }

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QAbstractItemView *view = m_selector->view();
        view->window()->resize(size());
        QPainter painter(this);
        const QPointF middle = view->visualRect(view->model()->index(m_hovered, 0)).center();
        QHoverEvent hover = HoverEventAt(QEvent::HoverMove, middle, middle);
        QCoreApplication::sendEvent(view->viewport(), &hover);
        painter.drawPixmap(0, 0, view->window()->grab());
    }

private:
    QcSelector *m_selector;
    int m_hovered;
};

class SelectorPage : public PageWidget
{
public:
    SelectorPage()
    {
        AddForm();
        AddPopups();
        AddStates();
    }

private:
    static QcSelector *MakeSelector(const QStringList &texts)
    {
        auto *selector = new QcSelector;
        selector->setFixedWidth(kFieldWidth);
        selector->addItems(texts);
        return selector;
    }

    // --- To be tried ---

    void AddForm()
    {
        Card *card = AddSection(QStringLiteral("Lists"),
                                QStringLiteral("Open one by a click, F4 or Alt and an arrow, choose with mouse or keys, or type the "
                                               "beginning of an item. The wheel turns through a closed one."));
        m_form = new QGridLayout;
        m_form->setHorizontalSpacing(2 * kGrid);
        m_form->setVerticalSpacing(2 * kGrid);
        m_form->setColumnStretch(2, 1);
        AddField(QStringLiteral("Few"), kPorts);
        AddField(QStringLiteral("Twenty"), Numbered(QStringLiteral("Berth"), 20));
        AddField(QStringLiteral("Ten thousand"), Numbered(QStringLiteral("Container"), 10000));
        m_icons = AddField(QStringLiteral("With icons"), {});
        QcStyleManager::GetInstance()->RegisterColorHandler(m_icons, [this] { Refill(*m_icons); });
        AddField(QStringLiteral("Editable"), kPorts)->setEditable(true);
        QcSelector *open = AddField(QStringLiteral("Placeholder"), kPorts);
        open->setPlaceholderText(QStringLiteral("Port of call"));
        open->setCurrentIndex(-1);
        card->Body()->addLayout(m_form);
    }

    /// Icons keep their colours, so another table needs others.
    static void Refill(QcSelector &selector)
    {
        const int current = qMax(0, selector.currentIndex());
        FillWithIcons(selector);
        selector.setCurrentIndex(current);
    }

    QcSelector *AddField(const QString &name, const QStringList &texts)
    {
        QcSelector *selector = MakeSelector(texts);
        selector->setObjectName(QStringLiteral("selector%1").arg(m_form->rowCount()));
        selector->setAccessibleName(name);
        QcLabel *label = MakeLabel(name, QcLabel::Body);
        label->setFixedWidth(kLabelWidth);
        const int row = m_form->rowCount();
        m_form->addWidget(label, row, 0);
        m_form->addWidget(selector, row, 1);
        return selector;
    }

    // --- Pictures ---

    void AddPopups()
    {
        Card *card =
            AddSection(QStringLiteral("Open"), QStringLiteral("Seven rows at most; all texts in one column, with icons or without."));
        QHBoxLayout *row = card->AddRow(3 * kGrid);
        AddPopup(row, MakeSelector(kPorts), 3);
        AddPopup(row, MakeSelector(Numbered(QStringLiteral("Berth"), 20)), 1);
        m_pictured = MakeSelector({});
        QcStyleManager::GetInstance()->RegisterColorHandler(m_pictured, [this] { Refill(*m_pictured); });
        AddPopup(row, m_pictured, 1);
        QcSelector *mirrored = MakeSelector(
            {QStringLiteral("\u05E8\u05D5\u05D8\u05E8\u05D3\u05DD"), QStringLiteral("\u05D0\u05E0\u05D8\u05D5\u05D5\u05E8\u05E4\u05DF")});
        mirrored->setLayoutDirection(Qt::RightToLeft);
        AddPopup(row, mirrored, 1);
        row->addStretch();
    }

    static void AddPopup(QHBoxLayout *row, QcSelector *selector, int hovered)
    {
        auto *column = new QVBoxLayout;
        column->setSpacing(0);
        selector->setAccessibleName(QStringLiteral("Dropped down"));
        MakeSpecimen(selector);
        column->addWidget(selector);
        column->addWidget(new PopupPicture(selector, hovered));
        column->addStretch();
        row->addLayout(column);
    }

    void AddStates()
    {
        Card *card = AddSection(QStringLiteral("States"));
        auto *grid = new QGridLayout;
        grid->setHorizontalSpacing(3 * kGrid);
        grid->setVerticalSpacing(2 * kGrid);
        grid->setColumnMinimumWidth(0, kLabelWidth);
        grid->setColumnStretch(4, 1);
        int column = 1;
        for (const char *head : {"Rest", "Hover or focus", "Disabled"})
            grid->addWidget(MakeLabel(QLatin1String(head), QcLabel::BodySecondary), 0, column++);
        grid->addWidget(MakeDivider(), 1, 0, 1, 5);
        AddState(grid, QStringLiteral("Text"), [](QcSelector & /*selector*/) {});
        AddState(grid, QStringLiteral("Placeholder"), [](QcSelector &selector) {
            selector.setPlaceholderText(QStringLiteral("Port of call"));
            selector.setCurrentIndex(-1);
        });
        AddState(grid, QStringLiteral("Editable"), [](QcSelector &selector) { selector.setEditable(true); });
        AddState(grid, QStringLiteral("Long text"),
                 [](QcSelector &selector) { selector.setItemText(0, QStringLiteral("Antwerp, Rotterdam, Bremerhaven, Hamburg, Gdynia")); });
        AddState(grid, QStringLiteral("Right to left"), [](QcSelector &selector) {
            selector.setLayoutDirection(Qt::RightToLeft);
            selector.setItemText(0, QStringLiteral("\u05E8\u05D5\u05D8\u05E8\u05D3\u05DD"));
        });
        AddState(grid, QStringLiteral("and editable"), [](QcSelector &selector) {
            selector.setLayoutDirection(Qt::RightToLeft);
            selector.setItemText(0, QStringLiteral("\u05E8\u05D5\u05D8\u05E8\u05D3\u05DD"));
            selector.setEditable(true);
        });
        card->Body()->addLayout(grid);
    }

    template <typename Fill>
    static void AddState(QGridLayout *grid, const QString &name, const Fill &fill)
    {
        const int row = grid->rowCount();
        grid->addWidget(MakeLabel(name, QcLabel::Body), row, 0);
        for (int column = 1; column <= 3; ++column) {
            QcSelector *selector = MakeSelector(kPorts);
            fill(*selector);
            selector->setAccessibleName(name);
            selector->setAttribute(Qt::WA_UnderMouse, column == 2);
            selector->setEnabled(column != 3);
            MakeSpecimen(selector);
            grid->addWidget(selector, row, column);
        }
    }

    QGridLayout *m_form = nullptr;
    QcSelector *m_icons = nullptr;
    QcSelector *m_pictured = nullptr;
};

const PageRegistrar registrar({QStringLiteral("selector"), QStringLiteral("Inputs"), QStringLiteral("Selector"),
                               QStringLiteral("QcSelector: one of a list, long or short, with icons or without, or a text of one's own."),
                               340, [] { return new SelectorPage; }});

} // namespace
