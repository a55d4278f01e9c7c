#include "WidgetBenchmarks.h"

#include <Velmora/QcNotificationManager.h>
#include <Velmora/QcProgressDialog.h>
#include <Velmora/QcToastManager.h>

#include <QGraphicsOpacityEffect>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPropertyAnimation>
#include <QPushButton>
#include <QStringList>
#include <QSvgWidget>
#include <QTimer>

#include <benchmark/benchmark.h>

#include <deque>

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

} // namespace

template <typename Stack>
void RegisterToasts(const char *name)
{
    benchmark::RegisterBenchmark(name, ShowToasts<Stack>)->Arg(250)->Arg(1000)->Arg(4000)->Unit(benchmark::kMillisecond)->Iterations(1);
}

void RegisterFeedbackBenchmarks()
{
    RegisterToasts<OurStack>("ShowToasts/velmora");
    RegisterToasts<PlainStack>("ShowToasts/plain");
}

} // namespace Bench
