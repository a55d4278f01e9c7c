#include "WidgetBenchmarks.h"

#include <Velmora/QcNotification.h>
#include <Velmora/QcProgressDialog.h>
#include <Velmora/QcToastManager.h>

#include <QCoreApplication>
#include <QDialog>
#include <QGraphicsOpacityEffect>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPropertyAnimation>
#include <QPushButton>
#include <QSvgWidget>
#include <QTimer>

#include <benchmark/benchmark.h>

#include <deque>
#include <string>

namespace Bench {

namespace {

constexpr QSize kWindowSize(800, 600);
constexpr int kMostToasts = 3;

QString Message(int index)
{
    return QStringLiteral("Message %1 of some length").arg(index);
}

// --- Toasts ---

/// Plain Qt's: the same children, effect and animations under a stylesheet.
QFrame *MakePlainToast(QWidget *parent, const QString &text)
{
    auto *toast = new QFrame(parent);
    auto *outer = new QHBoxLayout(toast);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->setSizeConstraint(QLayout::SetFixedSize);
    auto *content = new QWidget(toast);
    content->setFixedWidth(320);
    outer->addWidget(content);
    auto *row = new QHBoxLayout(content);
    const auto addColumn = [row, content](QWidget *column, QWidget *child) {
        auto *layout = new QVBoxLayout(column);
        layout->setContentsMargins(0, 3, 0, 0);
        layout->addWidget(child, 0, Qt::AlignTop);
        child->setFixedSize(16, 16);
        row->addWidget(column);
    };
    addColumn(new QWidget(content), new QSvgWidget(QStringLiteral(":/images/information.svg")));
    auto *label = new QLabel(content);
    label->setWordWrap(true);
    label->setText(text);
    row->addWidget(label, 1);
    auto *close = new QPushButton;
    close->setIcon(QIcon(QStringLiteral(":/images/close.svg")));
    addColumn(new QFrame(content), close);

    auto *effect = new QGraphicsOpacityEffect(toast);
    toast->setGraphicsEffect(effect);
    auto *fade = new QPropertyAnimation(effect, QByteArrayLiteral("opacity"), toast);
    fade->setStartValue(0.0);
    fade->setEndValue(1.0);
    auto *glide = new QPropertyAnimation(toast, QByteArrayLiteral("pos"), toast);
    glide->setDuration(100);
    auto *timer = new QTimer(toast);
    timer->setInterval(5000);
    toast->setStyleSheet(QStringLiteral(".QFrame { border: 1px solid #cccccc; background: #ffffff; }"
                                        ".QFrame .QFrame, .QFrame QPushButton { border: none; background: transparent; }"));
    fade->start();
    return toast;
}

struct PlainStack
{
    std::deque<QFrame *> shown;

    void Show(const QString &text, QWidget *parent)
    {
        if (int(shown.size()) == kMostToasts) {
            shown.front()->hide();
            shown.front()->deleteLater();
            shown.pop_front();
        }
        shown.push_back(MakePlainToast(parent, text));
        int y = 67;
        for (QFrame *toast : shown) {
            toast->layout()->activate();
            toast->move((parent->width() - toast->width()) / 2, y);
            y += toast->height() + 4;
        }
        shown.back()->show();
    }
};

struct OurStack
{
    void Show(const QString &text, QWidget *parent)
    {
        Velmora::QcToastManager::getInstance()->showToast(text, Velmora::QcToast::Information, parent, false);
    }
};

/// N toasts in one turn of the loop, of which the last three stay, until all is painted and the others are gone.
template <typename Stack>
void ShowToasts(benchmark::State &state)
{
    for (auto _ : state) {
        QWidget window;
        window.resize(kWindowSize);
        window.show();
        Settle();
        Stack stack;
        for (int i = 0; i < state.range(0); ++i)
            stack.Show(Message(i), &window);
        Settle();
    }
}

// --- The notification card ---

/// Plain Qt's: a card with a close button, whose pages slide and fade.
class PlainCard
{
public:
    explicit PlainCard(QWidget *window)
        : m_card(new QFrame(window))
    {
        m_card->setFixedSize(320, 116);
        auto *row = new QHBoxLayout(m_card);
        m_pageFrame = new QFrame(m_card);
        row->addWidget(m_pageFrame, 1);
        auto *close = new QPushButton;
        close->setIcon(QIcon(QStringLiteral(":/images/close.svg")));
        row->addWidget(close, 0, Qt::AlignTop);
        m_card->setStyleSheet(QStringLiteral(".QFrame { border: 1px solid #cccccc; background: #ffffff; }"
                                             ".QFrame .QFrame, .QFrame QPushButton { border: none; background: transparent; }"
                                             "QLabel { font-size: 12px; color: #222222; }"));
        m_card->show();
    }

    void Show(const QString &title, const QString &content)
    {
        Page next;
        next.widget = MakePage(title, content);
        next.fade = MakeFade(next.widget);
        next.slide = new QPropertyAnimation(next.widget, QByteArrayLiteral("pos"), next.widget);
        if (m_page.widget) {
            m_overtaken = m_page.widget;
            Move(m_page, QPoint(-m_pageFrame->width(), 0), 0);
        }
        next.widget->move(m_pageFrame->width(), 0);
        Move(next, QPoint(), 1);
        next.widget->show();
        m_page = next;
    }

private:
    struct Page
    {
        QFrame *widget = nullptr;
        QPropertyAnimation *fade = nullptr;
        QPropertyAnimation *slide = nullptr;
    };

    QFrame *MakePage(const QString &title, const QString &content)
    {
        auto *page = new QFrame(m_pageFrame);
        page->setFixedSize(m_pageFrame->size());
        auto *column = new QVBoxLayout;
        for (const QString &text : {title, content}) {
            auto *label = new QLabel(page);
            label->setTextFormat(Qt::PlainText);
            label->setText(text);
            column->addWidget(label);
        }
        auto *button = new QPushButton(QStringLiteral("Open"), page);
        column->addWidget(button, 0, Qt::AlignLeft);
        page->setLayout(column);
        return page;
    }

    static QPropertyAnimation *MakeFade(QWidget *page)
    {
        auto *effect = new QGraphicsOpacityEffect(page);
        page->setGraphicsEffect(effect);
        return new QPropertyAnimation(effect, QByteArrayLiteral("opacity"), page);
    }

    /// In a storm most pages are overtaken before they move: those hide at once, as ours do.
    void Move(const Page &page, const QPoint &place, qreal opacity)
    {
        if (page.widget == m_overtaken)
            page.widget->hide();
        page.fade->setEndValue(opacity);
        page.fade->start();
        page.slide->setEndValue(place);
        page.slide->start();
    }

    QFrame *m_card;
    QFrame *m_pageFrame = nullptr;
    QFrame *m_overtaken = nullptr;
    Page m_page;
};

class OurCard
{
public:
    explicit OurCard(QWidget *window)
        : m_card(new Velmora::QcNotification(window))
    {
    }

    void Show(const QString &title, const QString &content)
    {
        m_card->showNotification(
            title, content, QStringLiteral("Open"), [] {}, QRect());
    }

private:
    Velmora::QcNotification *m_card;
};

/// N messages in one turn of the loop, until the last is painted.
template <typename Card>
void ShowMessages(benchmark::State &state)
{
    for (auto _ : state) {
        QWidget window;
        window.resize(kWindowSize);
        window.show();
        Settle();
        Card card(&window);
        for (int i = 0; i < state.range(0); ++i)
            card.Show(Message(i), QStringLiteral("What happened, in a few words more than that"));
        Settle();
    }
}

// --- Progress ---

class PlainProgress
{
public:
    PlainProgress()
    {
        auto *row = new QHBoxLayout(&m_dialog);
        m_bar = new QProgressBar;
        m_bar->setFixedHeight(8);
        m_bar->setTextVisible(false);
        row->addWidget(m_bar);
        m_label = new QLabel;
        row->addWidget(m_label);
        m_dialog.setFixedSize(357, 87);
        m_dialog.setStyleSheet(QStringLiteral("QDialog { border: 1px solid #cccccc; background: #ffffff; }"
                                              "QProgressBar { border: none; border-radius: 4px; background-color: #dddddd; }"
                                              "QProgressBar::chunk { background-color: #3366cc; border-radius: 4px; }"
                                              "QLabel { font-size: 12px; color: #222222; }"));
    }

    QWidget *Dialog() { return &m_dialog; }
    void SetMaximum(int maximum) { m_bar->setMaximum(maximum); }
    void SetValue(int value)
    {
        m_bar->setValue(value);
        m_label->setText(QStringLiteral("%1%").arg(int(float(value) / float(m_bar->maximum()) * 100)));
    }

private:
    QDialog m_dialog;
    QProgressBar *m_bar = nullptr;
    QLabel *m_label = nullptr;
};

class OurProgress
{
public:
    ~OurProgress() { Dialog()->hide(); }

    Velmora::QcProgressDialog *Dialog() { return Velmora::QcProgressDialog::getInstance(); }
    void SetMaximum(int maximum) { Dialog()->setRange(0, maximum); }
    void SetValue(int value) { Dialog()->setValue(value); }
};

/// The values 0 to N of a dialog on show, of which the last is painted; the loop turns after each thousand.
template <typename Progress>
void CountUp(benchmark::State &state)
{
    constexpr int inOneTurn = 1000;
    const int maximum = int(state.range(0));
    Progress progress;
    progress.SetMaximum(maximum);
    progress.Dialog()->show();
    Settle();
    for (auto _ : state) {
        for (int value = 0; value <= maximum; ++value) {
            progress.SetValue(value);
            if (value % inOneTurn == 0)
                QCoreApplication::processEvents();
        }
        Settle();
    }
}

template <typename Stack, typename Card, typename Progress>
void RegisterFeedback(const char *suffix)
{
    const auto name = [suffix](const char *metric) { return std::string(metric) + '/' + suffix; };
    const auto addStorm = [&name](const char *metric, void (*run)(benchmark::State &)) {
        benchmark::RegisterBenchmark(name(metric).c_str(), run)
            ->Arg(250)
            ->Arg(1000)
            ->Arg(4000)
            ->Unit(benchmark::kMillisecond)
            ->Repetitions(kFewRepetitions);
    };
    addStorm("ShowToasts", ShowToasts<Stack>);
    addStorm("ShowMessages", ShowMessages<Card>);
    benchmark::RegisterBenchmark(name("ShowMessages").c_str(), ShowMessages<Card>)->Arg(1)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(name("CountUp").c_str(), CountUp<Progress>)->Arg(100000)->Unit(benchmark::kMillisecond);
}

} // namespace

void RegisterFeedbackBenchmarks()
{
    RegisterFeedback<OurStack, OurCard, OurProgress>("velmora");
    RegisterFeedback<PlainStack, PlainCard, PlainProgress>("plain");
}

} // namespace Bench
