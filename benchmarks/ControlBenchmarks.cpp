#include "WidgetBenchmarks.h"

#include <Velmora/QCSlider.h>
#include <Velmora/QcCheckBox.h>
#include <Velmora/QcCombinedToolButton.h>
#include <Velmora/QcDialog.h>
#include <Velmora/QcDoubleSpinBox.h>
#include <Velmora/QcLineEditFrame.h>
#include <Velmora/QcMenuTextButton.h>
#include <Velmora/QcMenuToolButton.h>
#include <Velmora/QcMultiLineText.h>
#include <Velmora/QcRadioButton.h>
#include <Velmora/QcSelector.h>
#include <Velmora/QcSpinBox.h>
#include <Velmora/QcStackedWidget.h>
#include <Velmora/QcSwitchButton.h>
#include <Velmora/QcTextEditFrame.h>
#include <Velmora/QcTextEditLimiter.h>
#include <Velmora/QcToolButton.h>
#include <Velmora/QcWindow.h>

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDoubleSpinBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSlider>
#include <QSpinBox>
#include <QStackedWidget>
#include <QTextEdit>
#include <QToolButton>

#include <utility>

namespace Bench {

namespace {

using MakeControl = std::unique_ptr<QWidget> (*)(int index);

/// A control of the library and the plain Qt one that comes nearest, dressed by a stylesheet of its own.
struct Pair
{
    const char *name;
    MakeControl ours;
    MakeControl plain;
    const char *sheet;          ///< the plain one's, with tokens in angle brackets
    bool followsTheme = true;   ///< by itself; a radio button or a slider is painted anew with what lies behind it
    bool followsOthers = false; ///< events of other widgets or of its window
};

QString FilledIn(const char *sheet, const QHash<QString, QColor> &colors)
{
    QString text = QLatin1String(sheet);
    for (const char *token : {"text/text_primary", "brand/brand", "border/border_primary", "bg/bg_box"})
        text.replace(QStringLiteral("<%1>").arg(QLatin1String(token)), colors.value(QLatin1String(token)).name());
    return text;
}

class OurScene : public VelmoraScene
{
public:
    explicit OurScene(const Pair &pair)
        : m_pair(pair)
    {
    }
    std::unique_ptr<QWidget> MakeWidget(int index) override { return m_pair.ours(index); }

private:
    const Pair &m_pair;
};

class PlainScene : public SheetOnEachScene
{
public:
    explicit PlainScene(const Pair &pair)
        : m_pair(pair)
    {
    }

protected:
    std::unique_ptr<QWidget> MakePlain(int index) override { return m_pair.plain(index); }
    QString Sheet(const QHash<QString, QColor> &colors) const override { return FilledIn(m_pair.sheet, colors); }

private:
    const Pair &m_pair;
};

template <typename Control>
std::unique_ptr<Counted<Control>> Make(QSize size)
{
    auto control = std::make_unique<Counted<Control>>();
    control->setFixedSize(size);
    return control;
}

/// Every other one is checked.
template <typename Button>
std::unique_ptr<QWidget> MakeCheckable(int index)
{
    auto button = Make<Button>(QSize(110, 24));
    button->setText(QStringLiteral("Option %1").arg(index));
    button->setCheckable(true);
    button->setAutoExclusive(false);
    button->setChecked(index % 2 == 0);
    return button;
}

void Wrap(QLabel &label)
{
    label.setWordWrap(true);
}
void Wrap(Velmora::QcMultiLineText & /*text*/) {} // always does

template <typename Text>
std::unique_ptr<QWidget> MakeRichText(int index)
{
    auto text = Make<Text>(QSize(220, 60));
    Wrap(*text);
    text->setText(QStringLiteral("Paragraph %1 with a few words in <b>bold</b>, long enough for two lines and a bit.").arg(index));
    return text;
}

/// Every third one is checked.
template <typename Button>
std::unique_ptr<QWidget> MakeOurTool(int index)
{
    auto button = Make<Button>(QSize(32, 32));
    button->setIconSize(QSize(24, 24));
    button->setCheckable(true);
    button->setChecked(index % 3 == 0);
    button->SetIconPath(IconPath(index));
    return button;
}

template <bool HasArrow>
std::unique_ptr<QWidget> MakePlainTool(int index)
{
    auto button = Make<QToolButton>(HasArrow ? QSize(44, 32) : QSize(32, 32));
    button->setIconSize(QSize(24, 24));
    button->setCheckable(true);
    button->setChecked(index % 3 == 0);
    button->setIcon(QIcon(IconPath(index)));
    if (HasArrow)
        button->setPopupMode(QToolButton::MenuButtonPopup);
    return button;
}

template <typename Button>
std::unique_ptr<QWidget> MakeOurSplitTool(int index)
{
    auto button = Make<Button>(QSize(44, 32));
    button->SetIconPath(IconPath(index));
    return button;
}

template <typename Button>
std::unique_ptr<QWidget> MakeTextButton(int index)
{
    auto button = Make<Button>(QSize(110, 24));
    button->setText(QStringLiteral("Menu %1").arg(index));
    return button;
}

std::unique_ptr<QWidget> MakeOurLineEdit(int index)
{
    auto edit = Make<Velmora::QcLineEditFrame>(QSize(160, 32));
    edit->setText(QStringLiteral("Text %1").arg(index));
    return edit;
}

/// The same children in plain Qt, the unit and the button hidden like ours without a text and an icon.
std::unique_ptr<QWidget> MakePlainLineEdit(int index)
{
    auto frame = Make<QFrame>(QSize(160, 32));
    auto *row = new QHBoxLayout(frame.get());
    row->setContentsMargins(QMargins());
    row->addWidget(new QLineEdit(QStringLiteral("Text %1").arg(index)));
    for (QWidget *hidden : {static_cast<QWidget *>(new QLabel), static_cast<QWidget *>(new QPushButton)}) {
        row->addWidget(hidden);
        hidden->hide();
    }
    return frame;
}

constexpr QSize kTextEditSize(160, 80);

QString TextEditText(int index)
{
    return QStringLiteral("Text %1 of a field that takes more than one line").arg(index);
}

void Limit(Velmora::QcTextEditFrame &frame)
{
    frame.setMaxLength(100);
}
void Limit(Velmora::QcTextEditLimiter &limiter)
{
    limiter.setMaxNum(100);
}

template <typename Slider>
std::unique_ptr<QWidget> MakeSlider(int index)
{
    auto slider = Make<Slider>(QSize(160, 24));
    slider->setOrientation(Qt::Horizontal);
    slider->setValue(index % 100);
    return slider;
}

void MakePopup(Velmora::QcSelector & /*selector*/) {} // has made it
void MakePopup(QComboBox &box)
{
    box.view();
}

template <typename Box>
std::unique_ptr<QWidget> MakeSelector(int index)
{
    auto box = Make<Box>(QSize(160, 28));
    MakePopup(*box);
    for (int i = 0; i < 5; ++i)
        box->addItem(QStringLiteral("Item %1").arg(i));
    box->setCurrentIndex(index % 5);
    return box;
}

/// Two halves in a frame.
std::unique_ptr<QWidget> MakePlainSplitTool(int index)
{
    auto frame = Make<QFrame>(QSize(44, 32));
    auto *row = new QHBoxLayout(frame.get());
    row->setContentsMargins(QMargins());
    row->setSpacing(0);
    for (const QString &icon : {IconPath(index), QStringLiteral(":/images/arrow_down_2.svg")}) {
        auto *half = new QToolButton;
        half->setIcon(QIcon(icon));
        row->addWidget(half);
    }
    return frame;
}

template <typename Field>
std::unique_ptr<QWidget> MakeOurTextEdit(int index)
{
    auto field = Make<Field>(kTextEditSize);
    Limit(*field);
    field->setText(TextEditText(index));
    return field;
}

/// The same children in plain Qt: an edit, a count, and the limiter's bar that lies on the edit until there is something to scroll.
template <bool HasBar>
std::unique_ptr<QWidget> MakePlainTextEdit(int index)
{
    auto frame = Make<QFrame>(kTextEditSize);
    auto *column = new QVBoxLayout(frame.get());
    auto *edit = new QTextEdit;
    edit->setText(TextEditText(index));
    column->addWidget(edit);
    if (HasBar)
        (new QScrollBar(edit))->hide();
    column->addWidget(new QLabel(QStringLiteral("100")), 0, Qt::AlignRight);
    return frame;
}

void Dress(QAbstractSpinBox & /*box*/) {}
void Dress(Velmora::QcDoubleSpinBox &box)
{
    box.bSetBorder(true);
}

template <typename Box>
std::unique_ptr<QWidget> MakeSpinBox(int index)
{
    auto box = Make<Box>(QSize(110, 28));
    Dress(*box);
    box->setValue(index % 100);
    return box;
}

/// Three pages, of which the second shows.
template <typename Stack>
std::unique_ptr<QWidget> MakeStack(int index)
{
    auto stack = Make<Stack>(QSize(160, 60));
    for (int page = 0; page < 3; ++page)
        stack->addWidget(new QLabel(QStringLiteral("Page %1 of %2").arg(page).arg(index)));
    stack->setCurrentIndex(1);
    return stack;
}

constexpr const char *kToolSheet = "* { border: none; border-radius: 2px; background: transparent; }"
                                   "*:checked { background: <brand/brand>; }";
constexpr const char *kTextButtonSheet = "* { border: none; border-radius: 4px; color: <text/text_primary>; }";
constexpr const char *kSliderSheet = "*::groove { height: 4px; border-radius: 2px; background: <border/border_primary>; }"
                                     "*::sub-page { height: 4px; border-radius: 2px; background: <brand/brand>; }"
                                     "*::handle { width: 10px; margin: -4px 0; border-radius: 6px; border: 1px solid <bg/bg_box>;"
                                     "            background: <brand/brand>; }";
constexpr const char *kSelectorSheet =
    "* { border: 1px solid <border/border_primary>; border-radius: 3px; padding-left: 8px; font-size: 12px; color: <text/text_primary>; }"
    "*:hover, *:focus { border-color: <brand/brand>; }"
    "*:disabled { border-color: <border/border_primary>; background: <bg/bg_box>; }"
    "*::drop-down { width: 24px; }"
    "* QAbstractItemView { border: 1px solid <border/border_primary>; background: <bg/bg_box>; }";
// The rules that a line edit with a frame of states needs, as our own has them.
constexpr const char *kLineEditSheet =
    ".QFrame { border: 1px solid <border/border_primary>; border-radius: 2px; color: <text/text_primary>; }"
    ".QFrame:hover { border-color: <brand/brand>; }"
    ".QFrame[focused=\"true\"] { border-color: <brand/brand>; }"
    ".QFrame[warned=\"true\"] { border-color: <text/text_primary>; }"
    ".QFrame:disabled { border-color: <border/border_primary>; background: <bg/bg_box>; }"
    ".QFrame QLineEdit { border: none; padding-left: 0px; background: transparent; font-size: 12px; color: <text/text_primary>; }"
    ".QFrame QLineEdit:disabled { color: <border/border_primary>; }";

constexpr const char *kTextEditSheet =
    ".QFrame { border: 1px solid <border/border_primary>; border-radius: 4px; background-color: <bg/bg_box>; }"
    ".QFrame:hover { border-color: <brand/brand>; }"
    ".QFrame[focused=\"true\"] { border-color: <brand/brand>; }"
    ".QFrame:disabled { border-color: <border/border_primary>; background: <bg/bg_box>; }"
    ".QFrame QTextEdit { border: none; padding: 0px; background-color: transparent; font-size: 12px; color: <text/text_primary>; }"
    ".QFrame QTextEdit:disabled { color: <border/border_primary>; }"
    ".QFrame QLabel { font-size: 12px; color: <text/text_primary>; }";
constexpr const char *kSpinBoxSheet = "* { border: 1px solid <border/border_primary>; border-radius: 2px; color: <text/text_primary>; }"
                                      "*:hover, *:focus { border-color: <brand/brand>; }"
                                      "*:disabled { border-color: <border/border_primary>; background: <bg/bg_box>; }";
constexpr const char *kStackSheet = "* { color: <text/text_primary>; }";

constexpr QSize kWindowSize(300, 200);

/// Lies in the window of the scene like any other widget, without a window of the system.
template <typename Window>
std::unique_ptr<QWidget> MakeTitled(int index)
{
    auto window = Make<Window>(kWindowSize);
    window->setTitle(QStringLiteral("Window %1").arg(index));
    return window;
}

/// A title row of a label and three buttons, as a host would put one together.
template <typename Window>
std::unique_ptr<QWidget> MakePlainTitled(int index)
{
    auto window = Make<Window>(kWindowSize);
    auto *row = new QHBoxLayout;
    row->addWidget(new QLabel(QStringLiteral("Window %1").arg(index)), 1);
    for (const char *icon : {"min", "max", "close"}) {
        auto *button = new QPushButton;
        button->setIcon(QIcon(QStringLiteral(":/images/%1.svg").arg(QLatin1String(icon))));
        row->addWidget(button);
    }
    auto *rows = new QVBoxLayout(window.get());
    rows->addLayout(row);
    rows->addStretch();
    return window;
}

constexpr const char *kWindowSheet = "* { background: <bg/bg_box>; color: <text/text_primary>; border: 1px solid <border/border_primary>; }"
                                     "QLabel, QPushButton { border: none; }";

constexpr const char *kIndicatorSheet = "* { color: <text/text_primary>; }"
                                        "*::indicator { width: 14px; height: 14px; border: 1px solid <border/border_primary>; }"
                                        "*::indicator:checked { background: <brand/brand>; }";

constexpr Pair kPairs[] = {
    {"check_box", MakeCheckable<Velmora::QcCheckBox>, MakeCheckable<QCheckBox>, kIndicatorSheet},
    {"radio_button", MakeCheckable<Velmora::QcRadioButton>, MakeCheckable<QRadioButton>, kIndicatorSheet, false},
    {"switch_button", MakeCheckable<Velmora::QcSwitchButton>, MakeCheckable<QCheckBox>, kIndicatorSheet},
    {"multi_line_text", MakeRichText<Velmora::QcMultiLineText>, MakeRichText<QLabel>, "* { color: <text/text_primary>; }"},
    {"tool_button", MakeOurTool<Velmora::QcToolButton>, MakePlainTool<false>, kToolSheet},
    {"combined_tool_button", MakeOurSplitTool<Velmora::QcCombinedToolButton>, MakePlainSplitTool, kToolSheet},
    {"menu_tool_button", MakeOurSplitTool<Velmora::QcMenuToolButton>, MakePlainTool<true>, kToolSheet},
    {"menu_text_button", MakeTextButton<Velmora::QcMenuTextButton>, MakeTextButton<QPushButton>, kTextButtonSheet},
    {"slider", MakeSlider<Velmora::QCSlider>, MakeSlider<QSlider>, kSliderSheet, false},
    {"selector", MakeSelector<Velmora::QcSelector>, MakeSelector<QComboBox>, kSelectorSheet},
    {"spin_box", MakeSpinBox<Velmora::QcSpinBox>, MakeSpinBox<QSpinBox>, kSpinBoxSheet},
    {"double_spin_box", MakeSpinBox<Velmora::QcDoubleSpinBox>, MakeSpinBox<QDoubleSpinBox>, kSpinBoxSheet},
    {"text_edit_frame", MakeOurTextEdit<Velmora::QcTextEditFrame>, MakePlainTextEdit<false>, kTextEditSheet},
    {"text_edit_limiter", MakeOurTextEdit<Velmora::QcTextEditLimiter>, MakePlainTextEdit<true>, kTextEditSheet},
    {"stack", MakeStack<Velmora::QcStackedWidget>, MakeStack<QStackedWidget>, kStackSheet, false},
    {"line_edit", MakeOurLineEdit, MakePlainLineEdit, kLineEditSheet, true, true},
    {"window", MakeTitled<Velmora::QcWindow>, MakePlainTitled<QFrame>, kWindowSheet, true, true},
    {"dialog", MakeTitled<Velmora::QcDialog>, MakePlainTitled<QDialog>, kWindowSheet},
};

} // namespace

void RegisterControlBenchmarks()
{
    constexpr int small = 100;
    for (const Pair &pair : kPairs) {
        const SceneMaker ours = [&pair] { return std::make_unique<OurScene>(pair); };
        const SceneMaker plain = [&pair] { return std::make_unique<PlainScene>(pair); };
        for (const auto &[suffix, scene] : {std::pair("/velmora", ours), std::pair("/plain", plain)}) {
            const QString name = QLatin1String(pair.name) + QLatin1String(suffix);
            RegisterPaint(name, scene);
            RegisterShow(name, small, scene);
            if (pair.followsTheme)
                RegisterSwitch(name, small, scene);
            if (pair.followsOthers) {
                RegisterEvents(name, small, scene);
                RegisterResize(name, small, scene);
            }
        }
    }
}

} // namespace Bench
