#include "Kit.h"

#include "Tables.h"

#include <Velmora/QCSlider.h>
#include <Velmora/QcLineEdit.h>
#include <Velmora/QcScrollBar.h>
#include <Velmora/QcStyleManager.h>
#include <Velmora/QcTertiaryButton.h>

#include <QAbstractScrollArea>
#include <QButtonGroup>
#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QScrollBar>
#include <QStyle>
#include <QTableWidget>
#include <QVBoxLayout>

namespace Gallery {

using Velmora::QcStyleManager;

// --- Text ---

QcLabel *MakeLabel(const QString &text, QcLabel::LabelType type)
{
    auto *label = new QcLabel;
    label->setType(type);
    label->setText(text);
    return label;
}

QcLabel *MakeElidingLabel(const QString &text, QcLabel::LabelType type)
{
    QcLabel *label = MakeLabel(text, type);
    label->setMinimumWidth(kGrid * 2);
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    return label;
}

QLabel *MakeParagraph(const QString &text)
{
    auto *label = new QLabel(text);
    label->setWordWrap(true);
    QcStyleManager::GetInstance()->RegisterStyleSheet(label, QStringLiteral("QLabel { color: ${text/text_secondary}; }"));
    return label;
}

QcFrame *MakeDivider()
{
    auto *line = new QcFrame;
    line->setFixedHeight(1);
    line->setBackgroundColorParams(QStringLiteral("table/table_divider"));
    return line;
}

// --- Surfaces ---

Card::Card(QWidget *parent)
    : QcFrame(parent)
    , m_body(new QVBoxLayout(this))
{
    setBackgroundColorParams(QStringLiteral("bg/bg_box"));
    setBorderColorParams(QStringLiteral("border/border_tertairy"));
    setBorderSides(Left | Top | Right | Bottom);
    setBorderRadius(kGrid);
    m_body->setContentsMargins(3 * kGrid, 3 * kGrid, 3 * kGrid, 3 * kGrid);
    m_body->setSpacing(2 * kGrid);
}

QHBoxLayout *Card::AddRow(int spacing)
{
    auto *row = new QHBoxLayout;
    row->setSpacing(spacing);
    m_body->addLayout(row);
    return row;
}

PageWidget::PageWidget(QWidget *parent)
    : QWidget(parent)
    , m_sections(new QVBoxLayout)
{
    auto *outer = new QVBoxLayout(this);
    outer->setContentsMargins(4 * kGrid, kGrid, 4 * kGrid, 4 * kGrid);
    m_sections->setSpacing(4 * kGrid);
    outer->addLayout(m_sections);
    outer->addStretch();
}

Card *PageWidget::AddSection(const QString &title, const QString &text)
{
    auto *section = new QVBoxLayout;
    section->setSpacing(kGrid / 2);
    section->addWidget(MakeLabel(title, QcLabel::Caption));
    if (!text.isEmpty())
        section->addWidget(MakeParagraph(text));
    section->addSpacing(kGrid);
    auto *card = new Card;
    section->addWidget(card);
    m_sections->addLayout(section);
    return card;
}

// --- Buttons and choices ---

Velmora::QcTertiaryButton *MakeAction(const QString &text)
{
    auto *button = new Velmora::QcTertiaryButton;
    button->setText(text);
    button->setHorizontalMargin(2 * kGrid);
    return button;
}

Velmora::QcButton *MakeToggle(const QString &label)
{
    auto *button = new Velmora::QcButton;
    button->setText(label);
    button->setCheckable(true);
    button->setHorizontalMargin(2 * kGrid);
    const QStyle::State normal = QStyle::State_Enabled;
    const QStyle::State checked = normal | QStyle::State_Selected;
    button->SetTextColorParams(normal, QStringLiteral("text/text_secondary"));
    for (const QStyle::State state : {normal | QStyle::State_MouseOver, normal | QStyle::State_Sunken}) {
        button->SetBackgroundColorParams(state, QStringLiteral("bg/bg_transluent_subtle_hover"));
        button->SetTextColorParams(state, QStringLiteral("text/text_primary"));
    }
    for (const QStyle::State state : {checked, checked | QStyle::State_MouseOver, checked | QStyle::State_Sunken}) {
        button->SetBackgroundColorParams(state, QStringLiteral("brand/brand_bg"));
        button->SetTextColorParams(state, QStringLiteral("text/text_caption"));
    }
    return button;
}

Segmented::Segmented(const QStringList &labels, QWidget *parent)
    : QcFrame(parent)
    , m_group(new QButtonGroup(this))
{
    setBackgroundColorParams(QStringLiteral("bg/bg_box"));
    setBorderColorParams(QStringLiteral("border/border_secondary"));
    setBorderSides(Left | Top | Right | Bottom);
    setBorderRadius(6);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->setSpacing(4);
    for (int i = 0; i < labels.size(); ++i) {
        Velmora::QcButton *button = MakeToggle(labels.at(i));
        m_group->addButton(button, i);
        layout->addWidget(button);
    }
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(m_group, &QButtonGroup::idToggled, this, [this](int id, bool on) {
        if (!on || id == m_current)
            return;
        m_current = id;
        // Tab enters at the chosen one from either side. Qt sees to that only from the first focus on.
        const QList<QAbstractButton *> segments = m_group->buttons();
        for (QAbstractButton *segment : segments)
            segment->setFocusPolicy(segment->isChecked() ? Qt::StrongFocus : Qt::ClickFocus);
        Q_EMIT SignalCurrentChanged(id);
    });
}

int Segmented::CurrentIndex() const
{
    return m_current;
}

void Segmented::SetCurrentIndex(int index)
{
    if (QAbstractButton *button = m_group->button(index))
        button->setChecked(true);
}

Velmora::QcButton *Segmented::Segment(int index) const
{
    return static_cast<Velmora::QcButton *>(m_group->button(index));
}

// --- SliderRow ---

SliderRow::SliderRow(const QString &name, int minimum, int maximum, int value, QWidget *parent)
    : QWidget(parent)
    , m_slider(new Velmora::QCSlider)
    , m_value(MakeLabel(QString(), QcLabel::BodySecondary))
    , m_format([](int number) { return QString::number(number); })
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2 * kGrid);
    QcLabel *label = MakeLabel(name, QcLabel::Body);
    label->setFixedWidth(14 * kGrid);
    m_value->setFixedWidth(6 * kGrid);
    m_value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_slider->setRange(minimum, maximum);
    m_slider->setValue(value);
    m_slider->setAccessibleName(name);
    m_slider->setFixedHeight(3 * kGrid);
    layout->addWidget(label);
    layout->addWidget(m_slider, 1);
    layout->addWidget(m_value);
    connect(m_slider, &QSlider::valueChanged, this, [this](int number) {
        ShowValue();
        Q_EMIT SignalValueChanged(number);
    });
    ShowValue();
}

int SliderRow::Value() const
{
    return m_slider->value();
}

void SliderRow::SetFormat(const std::function<QString(int)> &format)
{
    m_format = format;
    ShowValue();
}

void SliderRow::ShowValue()
{
    m_value->setText(m_format(m_slider->value()));
}

// --- Field ---

Field::Field(QWidget *parent)
    : QcLineEditFrame(parent)
{
    getLineEdit()->installEventFilter(this);
}

bool Field::eventFilter(QObject *watched, QEvent *event)
{
    const bool comes = event->type() == QEvent::FocusIn;
    if (watched == getLineEdit() && (comes || event->type() == QEvent::FocusOut)) {
        setProperty("objectPropertyFocus", comes);
        style()->polish(this);
    }
    return QcLineEditFrame::eventFilter(watched, event);
}

// --- Specimens ---

void MakeSpecimen(QWidget *widget)
{
    widget->setProperty("isSpecimen", true);
    widget->setAttribute(Qt::WA_TransparentForMouseEvents);
    widget->setFocusPolicy(Qt::NoFocus);
    const auto parts = widget->findChildren<QWidget *>();
    for (QWidget *part : parts)
        part->setFocusPolicy(Qt::NoFocus);
}

// --- Painting ---

Canvas::Canvas(const std::function<void(QPainter &, const QRect &)> &paint, QWidget *parent)
    : QWidget(parent)
    , m_paint(paint)
{
    QcStyleManager::GetInstance()->RegisterColorHandler(this, [this] { update(); });
}

void Canvas::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    m_paint(painter, rect());
}

void PaintColor(QPainter &painter, const QRectF &rect, double radius, const QColor &color)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    if (!color.isValid() || color.alpha() < 255) {
        // Mid greys: both a white and a black veil show on them.
        constexpr int kCell = 6;
        QPixmap tile(2 * kCell, 2 * kCell);
        tile.fill(QColor(0xC0, 0xC0, 0xC0));
        QPainter cells(&tile);
        cells.fillRect(0, 0, kCell, kCell, QColor(0xA0, 0xA0, 0xA0));
        cells.fillRect(kCell, kCell, kCell, kCell, QColor(0xA0, 0xA0, 0xA0));
        cells.end();
        painter.setBrush(QBrush(tile));
        painter.setBrushOrigin(rect.topLeft());
        painter.drawRoundedRect(rect, radius, radius);
    }
    painter.setBrush(color.isValid() ? QBrush(color) : QBrush(Qt::NoBrush));
    painter.drawRoundedRect(rect, radius, radius);
    // A hairline, so that a colour like its ground keeps its shape.
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(TokenColor(QStringLiteral("border/border_tertairy")), 1.0));
    painter.drawRoundedRect(rect.adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    painter.restore();
}

// --- Scroll bars ---

void FloatScrollBars(QAbstractScrollArea *area)
{
    area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    for (QScrollBar *original : {area->verticalScrollBar(), area->horizontalScrollBar()}) {
        auto *bar = new Velmora::QcScrollBar(original->orientation(), area);
        bar->SetOriginalScrollBar(original);
        // The handle's own colour shows on dark ground only, and the gallery has both.
        QcStyleManager::GetInstance()->RegisterStyleSheet(bar, QStringLiteral(R"(
            Velmora--QcScrollBar[objectPropertyHover=true]::handle { background: ${border/border_secondary}; }
            Velmora--QcScrollBar::handle:hover, Velmora--QcScrollBar::handle:pressed { background: ${border/border_secondary_press}; })"));
    }
}

// --- Tables ---

void StyleTable(QTableWidget *table)
{
    table->setShowGrid(false);
    table->setFocusPolicy(Qt::TabFocus);
    table->setTabKeyNavigation(false); // arrows move from cell to cell, Tab leaves
    table->setSelectionMode(QAbstractItemView::NoSelection);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->verticalHeader()->hide();
    table->verticalHeader()->setDefaultSectionSize(4 * kGrid);
    table->horizontalHeader()->setHighlightSections(false);
    table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    table->horizontalHeader()->setFixedHeight(4 * kGrid);
    FloatScrollBars(table);
    QcStyleManager::GetInstance()->RegisterStyleSheet(table, QStringLiteral(R"(
        QTableWidget { border: none; background: transparent; color: ${text/text_primary}; outline: none; }
        QTableWidget::item { padding: 0 8px; border-bottom: 1px solid ${table/table_divider}; color: ${text/text_primary}; }
        QTableWidget::item:focus { padding: 0 7px; border: 1px solid ${others/focus}; }
        QHeaderView { background: transparent; }
        QHeaderView::section { padding: 0 11px; border: none; border-bottom: 1px solid ${border/border_secondary};
                               background: transparent; color: ${text/text_tertairy}; })"));
}

} // namespace Gallery
