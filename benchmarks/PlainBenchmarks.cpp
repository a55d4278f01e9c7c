// What plain widgets of Qt beside the kit's cost that follow the colour table, and what keyboard cues do.

#include "WidgetBenchmarks.h"

#include <Velmora/KeyboardCues.h>
#include <Velmora/PlainWidgets.h>
#include <Velmora/QcPrimaryButton.h>
#include <Velmora/QcStyleManager.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QSpinBox>
#include <QToolButton>
#include <QWindow>

#include <benchmark/benchmark.h>

#include <array>
#include <iterator>
#include <string>
#include <utility>

namespace {

using namespace Bench;

constexpr QSize kSize(110, 32);

template <typename Widget>
std::unique_ptr<QWidget> WithText(const QString &text)
{
    auto widget = std::make_unique<Counted<Widget>>();
    widget->setText(text);
    return widget;
}

std::unique_ptr<QWidget> MakeComboBox(const QString &text)
{
    auto combo = std::make_unique<Counted<QComboBox>>();
    combo->addItem(text);
    return combo;
}

std::unique_ptr<QWidget> MakeList(const QString &text)
{
    auto list = std::make_unique<Counted<QListWidget>>();
    list->addItem(text);
    return list;
}

std::unique_ptr<QWidget> MakeGroupBox(const QString &text)
{
    return std::make_unique<Counted<QGroupBox>>(text);
}

template <typename Widget>
std::unique_ptr<QWidget> MakeWithValue(const QString & /*text*/)
{
    auto widget = std::make_unique<Counted<Widget>>();
    widget->setValue(40);
    return widget;
}

/// One of ten kinds by turns.
std::unique_ptr<QWidget> MakeMixed(int index)
{
    using Maker = std::unique_ptr<QWidget> (*)(const QString &);
    constexpr Maker kinds[] = {
        WithText<QLabel>, WithText<QPushButton>, WithText<QCheckBox>,     WithText<QLineEdit>,         WithText<QToolButton>, MakeComboBox,
        MakeList,         MakeGroupBox,          MakeWithValue<QSpinBox>, MakeWithValue<QProgressBar>,
    };
    auto widget = kinds[std::size_t(index) % std::size(kinds)](QStringLiteral("Widget %1").arg(index));
    widget->setFixedSize(kSize);
    return widget;
}

/// Under the stylesheet of a program on the kit, which only the table's change reaches.
class WidgetsThatStay : public VelmoraScene
{
public:
    std::unique_ptr<QWidget> MakeWidget(int index) override { return MakeMixed(index); }
};

class WidgetsThatFollow : public WidgetsThatStay
{
public:
    WidgetsThatFollow() { Velmora::SetPlainWidgetsFollowTable(true); }
    ~WidgetsThatFollow() override { Velmora::SetPlainWidgetsFollowTable(false); }
};

/// The palettes that widgets get which follow the two tables, set by turns as any program may.
class TwoPalettes
{
public:
    TwoPalettes() { QApplication::setPalette(m_palettes[0]); }
    ~TwoPalettes() { QApplication::setPalette(m_before); }

    void Switch()
    {
        m_isDark = !m_isDark;
        QApplication::setPalette(m_palettes[std::size_t(m_isDark)]);
    }

private:
    static QPalette PaletteOf(Table table)
    {
        Velmora::QcStyleManager::GetInstance()->SetColorFilePath(TablePath(table));
        Velmora::SetPlainWidgetsFollowTable(true);
        QPalette palette = QApplication::palette();
        Velmora::SetPlainWidgetsFollowTable(false);
        return palette;
    }

    QPalette m_before = QApplication::palette();
    std::array<QPalette, 2> m_palettes = {PaletteOf(Table::Light), PaletteOf(Table::Dark)};
    bool m_isDark = false;
};

class WidgetsInTwoPalettes : public WidgetsThatStay
{
public:
    void SwitchTheme() override { m_palettes.Switch(); }

private:
    TwoPalettes m_palettes;
};

class WidgetsWithoutSheet : public Scene
{
public:
    std::unique_ptr<QWidget> MakeWidget(int index) override { return MakeMixed(index); }
    void SwitchTheme() override { m_palettes.Switch(); }

private:
    TwoPalettes m_palettes;
};

template <typename Button>
class Buttons : public VelmoraScene
{
public:
    std::unique_ptr<QWidget> MakeWidget(int index) override
    {
        auto button = WithText<Button>(QStringLiteral("Button %1").arg(index));
        button->setFixedSize(kSize);
        return button;
    }
};

/// From widget to widget, each painted, once through all of them.
void MoveFocus(benchmark::State &state, const SceneMaker &makeScene, bool hasCues)
{
    const auto scene = makeScene();
    Velmora::SetKeyboardCuesEnabled(hasCues);
    const auto window = ShowWindow(*scene, int(state.range(0)));
    window->activateWindow();
    window->findChild<QWidget *>()->setFocus();
    Settle();
    for (auto _ : state) {
        for (int i = 0; i < state.range(0); ++i) {
            const QWidget *before = QApplication::focusWidget();
            for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
                QKeyEvent key(type, Qt::Key_Tab, Qt::NoModifier);
                QCoreApplication::sendEvent(window->windowHandle(), &key);
            }
            if (QApplication::focusWidget() == before)
                qFatal("the Tab key does not move the focus");
            QCoreApplication::processEvents();
        }
    }
    Velmora::SetKeyboardCuesEnabled(false);
}

template <typename Maker>
SceneMaker Of()
{
    return [] { return std::make_unique<Maker>(); };
}

} // namespace

namespace Bench {

void RegisterPlainBenchmarks()
{
    constexpr int small = 250;
    RegisterSwitch(QStringLiteral("plain_widgets/follow"), small, Of<WidgetsThatFollow>());
    RegisterSwitch(QStringLiteral("plain_widgets/palettes"), small, Of<WidgetsInTwoPalettes>());
    RegisterSwitch(QStringLiteral("plain_widgets/no_sheet"), small, Of<WidgetsWithoutSheet>());
    RegisterShow(QStringLiteral("plain_widgets/follow"), small, Of<WidgetsThatFollow>());
    RegisterShow(QStringLiteral("plain_widgets/stay"), small, Of<WidgetsThatStay>());

    const auto addFocus = [](const char *name, const SceneMaker &scene) {
        for (const bool hasCues : {true, false}) {
            const std::string fullName = std::string("MoveFocus/") + name + (hasCues ? "/cues" : "/no_cues");
            benchmark::RegisterBenchmark(fullName.c_str(), [=](benchmark::State &state) { MoveFocus(state, scene, hasCues); })
                ->Arg(small)
                ->Arg(4 * small)
                ->Arg(16 * small)
                ->Unit(benchmark::kMillisecond)
                ->Repetitions(kFewRepetitions);
        }
    };
    addFocus("velmora", Of<Buttons<Velmora::QcPrimaryButton>>());
    addFocus("plain", Of<Buttons<QPushButton>>());
}

} // namespace Bench
