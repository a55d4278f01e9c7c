#include "WidgetBenchmarks.h"

#include <Velmora/QcTextEditFrame.h>
#include <Velmora/QcTextEditLimiter.h>

#include <QLabel>
#include <QTextCursor>
#include <QTextEdit>
#include <QVBoxLayout>

#include <benchmark/benchmark.h>

#include <limits>

namespace {

using namespace Bench;

/// The same of plain Qt: an edit above a count, in a frame with a stylesheet.
std::unique_ptr<QWidget> MakePlain()
{
    auto frame = std::make_unique<QFrame>();
    auto *layout = new QVBoxLayout(frame.get());
    auto *edit = new QTextEdit;
    edit->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    layout->addWidget(edit);
    auto *count = new QLabel;
    layout->addWidget(count, 0, Qt::AlignRight);
    QObject::connect(edit, &QTextEdit::textChanged, count,
                     [edit, count] { count->setText(QString::number(edit->document()->characterCount())); });
    frame->setStyleSheet(QStringLiteral("QFrame { border: 1px solid gray; border-radius: 4px; background-color: white; }"
                                        "QFrame QLabel { border: none; }"
                                        "QFrame QTextEdit { border: none; padding: 0px; background-color: transparent; font-size: 12px; "
                                        "color: black; }"));
    return frame;
}

std::unique_ptr<QWidget> MakeFrame()
{
    auto frame = std::make_unique<Velmora::QcTextEditFrame>();
    frame->setMaxLength(std::numeric_limits<int>::max());
    return frame;
}

std::unique_ptr<QWidget> MakeHeardFrame()
{
    auto frame = std::make_unique<Velmora::QcTextEditFrame>();
    QObject::connect(frame.get(), &Velmora::QcTextEditFrame::signalTextChanged, frame.get(),
                     [](const QString &text) { benchmark::DoNotOptimize(text.size()); });
    return frame;
}

std::unique_ptr<QWidget> MakeLimiter()
{
    auto limiter = std::make_unique<Velmora::QcTextEditLimiter>();
    limiter->setMaxNum(std::numeric_limits<int>::max());
    return limiter;
}

/// A letter behind a text of N characters in lines of 50, to the last paint that follows.
void TypeKey(benchmark::State &state, const std::function<std::unique_ptr<QWidget>()> &make)
{
    const auto field = make();
    auto *edit = field->findChild<QTextEdit *>();
    field->resize(400, 200);
    edit->setPlainText(QStringLiteral("Fifty characters of a text that somebody has typed\n").repeated(int(state.range(0)) / 50));
    field->show();
    edit->moveCursor(QTextCursor::End);
    Settle();
    bool isLonger = false;
    for (auto _ : state) {
        isLonger = !isLonger;
        if (isLonger)
            edit->textCursor().insertText(QStringLiteral("x"));
        else
            edit->textCursor().deletePreviousChar();
        Settle();
    }
}

} // namespace

namespace Bench {

void RegisterTextEditBenchmarks()
{
    const auto add = [](const char *name, const std::function<std::unique_ptr<QWidget>()> &make) {
        benchmark::RegisterBenchmark(name, [make](benchmark::State &state) { TypeKey(state, make); })->Arg(100)->Arg(1 << 20);
    };
    add("TypeKey/plain", MakePlain);
    add("TypeKey/frame", MakeFrame);
    add("TypeKey/frame_heard", MakeHeardFrame);
    add("TypeKey/limiter", MakeLimiter);
}

} // namespace Bench
