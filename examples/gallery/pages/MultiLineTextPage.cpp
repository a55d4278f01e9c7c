#include "Kit.h"
#include "Page.h"
#include "Tables.h"

#include <Velmora/QcMultiLineText.h>
#include <Velmora/QcStyleManager.h>

#include <QGridLayout>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>

using namespace Gallery;
using Velmora::QcMultiLineText;

namespace {

constexpr int kTextSize = 14;
constexpr int kLineHeight = 20;

const QString kStory = QStringLiteral(
    "The <b>MSKU 740 1285</b> reached berth 14 on Friday morning, two hours ahead of the tide. Its papers are complete, and the "
    "<a style=\"color:${brand/brand}\" href=\"inspection\">inspection</a> found nothing to object to. Forty pallets go to the cold store "
    "tonight; the rest waits for "
    "the <a style=\"color:${brand/brand}\" href=\"train\">night train to Basel</a>, which leaves at 22:40 from track 6.");

/// A strip at the right edge of a box that changes the box's width as it is dragged.
class WidthHandle : public QWidget
{
public:
    explicit WidthHandle(QWidget *box)
        : QWidget(box)
        , m_box(box)
    {
        setCursor(Qt::SizeHorCursor);
        setFixedWidth(2 * kGrid);
        setAccessibleName(QStringLiteral("Width"));
    }

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        const QColor color = TokenColor(QStringLiteral("icon/icon_secondary"));
        QPainter painter(this);
        for (const int x : {6, 9})
            painter.fillRect(x, height() / 2 - kGrid, 1, 2 * kGrid, color);
    }

    void mousePressEvent(QMouseEvent * /*event*/) override { m_grip = m_box->width() - QCursor::pos().x(); }
    void mouseMoveEvent(QMouseEvent * /*event*/) override { m_box->setFixedWidth(std::clamp(QCursor::pos().x() + m_grip, 80, 860)); }

private:
    QWidget *m_box;
    int m_grip = 0;
};

QcFrame *MakeBox()
{
    auto *box = new QcFrame;
    box->setBackgroundColorParams(QStringLiteral("bg/bg_bottom"));
    box->setBorderRadius(kGrid / 2);
    return box;
}

QcMultiLineText *MakeText(const QString &html, bool growing)
{
    auto *text = new QcMultiLineText;
    text->setFont(kTextSize);
    text->setHeightAdaptive(growing);
    // A link's colour is part of the HTML, so that text with links is set anew for each table.
    auto *styles = Velmora::QcStyleManager::GetInstance();
    const auto fill = [text, styles, html] { text->setText(styles->ReplaceStyleSheetColorCodes(html)); };
    fill();
    QObject::connect(styles, &Velmora::QcStyleManager::SignalColorChanged, text, fill);
    return text;
}

class MultiLineTextPage : public PageWidget
{
public:
    MultiLineTextPage()
    {
        AddTrial();
        AddLineCounts();
        AddAlignment();
    }

private:
    void AddTrial()
    {
        Card *card = AddSection(QStringLiteral("Try it"),
                                QStringLiteral("Drag the right edge of a box. The first text grows with its lines, "
                                               "the second is cut to three of them. Links report their press; Tab reaches them, too."));
        auto *pressed = MakeElidingLabel(QStringLiteral("No link pressed yet"), QcLabel::BodySecondary);
        for (const bool growing : {true, false}) {
            QcFrame *box = MakeBox();
            auto *row = new QHBoxLayout(box);
            row->setContentsMargins(2 * kGrid, 2 * kGrid, 0, 2 * kGrid);
            row->setSpacing(0);
            QcMultiLineText *text = MakeText(kStory, growing);
            if (!growing) {
                text->setLineCount(3);
                text->setFixedHeight(3 * kLineHeight);
            }
            QObject::connect(text, &QcMultiLineText::signalAnchorClicked, pressed,
                             [pressed](const QString &href) { pressed->setText(QStringLiteral("Pressed \"%1\"").arg(href)); });
            row->addWidget(text, 1, Qt::AlignTop);
            row->addWidget(new WidthHandle(box));
            box->setFixedWidth(480);
            card->Body()->addWidget(box, 0, Qt::AlignLeft);
        }
        card->Body()->addWidget(pressed);
    }

    void AddLineCounts()
    {
        Card *card = AddSection(QStringLiteral("Cut to lines"), QStringLiteral("The same text in one line, two and four, and whole."));
        auto *grid = new QGridLayout;
        grid->setHorizontalSpacing(3 * kGrid);
        grid->setVerticalSpacing(2 * kGrid);
        grid->setColumnStretch(1, 1);
        int row = 0;
        for (const int lines : {1, 2, 4, -1}) {
            const QString name = lines < 1 ? QStringLiteral("Whole") : QStringLiteral("%1 of its lines").arg(lines);
            grid->addWidget(MakeLabel(name, QcLabel::CaptionSmall), row, 0, Qt::AlignTop);
            QcMultiLineText *text = MakeText(kStory, lines < 1);
            text->setLineCount(lines);
            if (lines >= 1)
                text->setFixedHeight(kLineHeight * lines);
            grid->addWidget(text, row++, 1);
        }
        card->Body()->addLayout(grid);
    }

    void AddAlignment()
    {
        Card *card =
            AddSection(QStringLiteral("Alignment and colour"),
                       QStringLiteral("Automatic alignment puts one line to the right and more lines to the left. Text that names no "
                                      "colour has that of a token."));
        const QString name = QStringLiteral("Berth 14");
        const QString longer = QStringLiteral("Berth 14, then the cold store, then track 6");
        const QString hebrew =
            QStringLiteral("<p dir=rtl>\u05E8\u05E6\u05D9\u05E3 14, \u05D0\u05D7\u05E8 \u05DB\u05DA \u05DE\u05D7\u05E1\u05DF "
                           "\u05D4\u05E7\u05D9\u05E8\u05D5\u05E8</p>");
        QHBoxLayout *row = card->AddRow(2 * kGrid);
        for (const QString &html : {name, longer, hebrew}) {
            QcFrame *box = MakeBox();
            box->setFixedWidth(200);
            auto *inside = new QVBoxLayout(box);
            inside->setContentsMargins(2 * kGrid, 2 * kGrid, 2 * kGrid, 2 * kGrid);
            QcMultiLineText *text = MakeText(html, true);
            text->setAutoAlignment(true);
            text->updateAlignmentByLineCount();
            inside->addWidget(text, 0, Qt::AlignTop);
            row->addWidget(box);
        }
        for (const char *token : {"brand/brand", "tip/danger"}) {
            QcMultiLineText *text = MakeText(QLatin1String(token), true);
            text->setDefaultTextColorParams(QLatin1String(token));
            row->addWidget(text, 1);
        }
    }
};

const PageRegistrar registrar({QStringLiteral("multilinetext"), QStringLiteral("Display"), QStringLiteral("Multi-line text"),
                               QStringLiteral("QcMultiLineText: rich text with links that grows, or is cut to a number of lines."), 220,
                               [] { return new MultiLineTextPage; }});

} // namespace
