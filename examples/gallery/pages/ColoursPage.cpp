#include "Kit.h"
#include "Page.h"
#include "Tables.h"

#include <Velmora/QcStyleManager.h>

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QGridLayout>
#include <QPainter>
#include <QToolTip>
#include <QVBoxLayout>

using namespace Gallery;

namespace {

// A token's colour with its name and value. A click copies the token's name.
class Swatch : public QAbstractButton
{
public:
    enum Shape { Tile, Step };

    Swatch(const QString &token, const QString &caption, Shape shape)
        : m_token(token)
        , m_shape(shape)
    {
        setText(caption);
        setAccessibleName(token);
        setToolTip(QStringLiteral("%1\nClick to copy the name").arg(token));
        setCursor(Qt::PointingHandCursor);
        setFixedHeight(shape == Tile ? 6 * kGrid : 11 * kGrid);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        setAttribute(Qt::WA_Hover);
        Velmora::QcStyleManager::GetInstance()->RegisterColorHandler(this, [this] {
            setAccessibleDescription(ColorText(TokenColor(m_token)));
            update();
        });
        connect(this, &QAbstractButton::clicked, this, [this] {
            QApplication::clipboard()->setText(m_token);
            QToolTip::showText(mapToGlobal(QPoint(0, height())), QStringLiteral("Copied %1").arg(m_token), this);
        });
    }

    QSize sizeHint() const override { return QSize(8 * kGrid, height()); }

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QPainter painter(this);
        const bool marked = underMouse();
        if (m_shape == Tile)
            PaintTile(painter, marked);
        else
            PaintStep(painter, marked);
    }

private:
    void PaintTile(QPainter &painter, bool marked)
    {
        const QRect square(0, 0, height(), height());
        PaintColor(painter, square, 6, TokenColor(m_token));
        if (marked)
            PaintMark(painter, square);
        const QRect words = rect().adjusted(square.width() + kGrid + kGrid / 2, kGrid / 2, 0, -kGrid / 2);
        PaintWords(painter, words.adjusted(0, 0, 0, -words.height() / 2), text(), QStringLiteral("text/text_primary"), Qt::AlignLeft);
        PaintWords(painter, words.adjusted(0, words.height() / 2, 0, 0), ColorText(TokenColor(m_token)),
                   QStringLiteral("text/text_tertairy"), Qt::AlignLeft);
    }

    void PaintStep(QPainter &painter, bool marked)
    {
        const QRect block(0, 0, width(), 6 * kGrid);
        PaintColor(painter, block, 6, TokenColor(m_token));
        if (marked)
            PaintMark(painter, block);
        const QRect words = rect().adjusted(0, block.height() + kGrid / 2, 0, 0);
        PaintWords(painter, words.adjusted(0, 0, 0, -words.height() / 2), text(), QStringLiteral("text/text_primary"), Qt::AlignLeft);
        PaintWords(painter, words.adjusted(0, words.height() / 2, 0, 0), ColorText(TokenColor(m_token)),
                   QStringLiteral("text/text_tertairy"), Qt::AlignLeft);
    }

    void PaintMark(QPainter &painter, const QRect &around)
    {
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(TokenColor(QStringLiteral("others/focus")), 2.0));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(around).adjusted(1, 1, -1, -1), 5, 5);
        painter.restore();
    }

    void PaintWords(QPainter &painter, const QRect &place, const QString &words, const QString &token, Qt::Alignment side)
    {
        painter.setPen(TokenColor(token));
        painter.drawText(place, int(side | Qt::AlignVCenter), painter.fontMetrics().elidedText(words, Qt::ElideMiddle, place.width()));
    }

    QString m_token;
    Shape m_shape;
};

struct Family
{
    const char *keys; // first parts of the tokens' names
    const char *title;
    const char *text;
};

constexpr Family kFamilies[] = {
    {"brand", "Brand", "The main action, the selection, and their states."},
    {"tip", "Notices", "What a message is about, before it is read."},
    {"text", "Text", "Four ranks of text, and the text on filled buttons."},
    {"link", "Links", "Text that leads elsewhere."},
    {"icon", "Icons", "Icons are drawn in one colour and take these."},
    {"border", "Borders", "Three ranks of outline; dividers take the lightest."},
    {"bg", "Backgrounds", "From the bottom layer up to what floats, and the fills of elements that have none at rest."},
    {"others overlay table", "Focus, overlays, tables",
     "The mark of the focused input, veils over what is out of reach for a while, and the lines of tables."},
    {"mask", "Gradient masks", "Each pair runs from deep to shallow, to fade out what does not fit."},
};

class ColoursPage : public PageWidget
{
public:
    ColoursPage()
    {
        // The built-in tables hold the same tokens, so the names are read once; the values are asked for at every paint.
        const QStringList tokens = TokensOf(TablePath(Table::Light));
        QStringList base;
        for (const QString &token : tokens) {
            if (token.startsWith(QLatin1String("base/")))
                base.append(token);
        }
        AddRamps(base);
        for (const Family &family : kFamilies) {
            const QStringList keys = QString::fromLatin1(family.keys).split(QLatin1Char(' '));
            QStringList members;
            for (const QString &token : tokens) {
                if (keys.contains(token.section(QLatin1Char('/'), 0, 0)))
                    members.append(token);
            }
            AddTiles(*AddSection(Count(family.title, int(members.size())), QLatin1String(family.text)), members);
        }
    }

private:
    static QString Count(const char *title, int tokens) { return QStringLiteral("%1   \u00b7   %2").arg(QLatin1String(title)).arg(tokens); }

    // The four ramps as strips; what is no step of a ramp follows as tiles.
    void AddRamps(const QStringList &base)
    {
        Card *card = AddSection(Count("Base colours", int(base.size())),
                                QStringLiteral("Four ramps of ten steps. Everything else is chosen from them or stands beside them."));
        QStringList rest;
        for (const char *ramp : {"red", "green", "gray", "neutral"}) {
            const QString name = QLatin1String(ramp);
            card->Body()->addWidget(MakeLabel(QStringLiteral("base/") + name, QcLabel::BodySecondary));
            QHBoxLayout *row = card->AddRow(kGrid);
            for (const QString &token : base) {
                if (token.startsWith(QStringLiteral("base/%1/%1-").arg(name)))
                    row->addWidget(new Swatch(token, token.section(QLatin1Char('-'), -1), Swatch::Step));
                else if (token.startsWith(QStringLiteral("base/%1/").arg(name)))
                    rest.append(token);
            }
        }
        AddTiles(*card, rest);
    }

    static void AddTiles(Card &card, const QStringList &tokens)
    {
        constexpr int kColumns = 3;
        auto *grid = new QGridLayout;
        grid->setHorizontalSpacing(3 * kGrid);
        grid->setVerticalSpacing(2 * kGrid);
        for (int i = 0; i < tokens.size(); ++i)
            grid->addWidget(new Swatch(tokens.at(i), tokens.at(i), Swatch::Tile), i / kColumns, i % kColumns);
        for (int column = 0; column < kColumns; ++column)
            grid->setColumnStretch(column, 1);
        card.Body()->addLayout(grid);
    }
};

const PageRegistrar
    registrar({QStringLiteral("colours"), QStringLiteral("Foundations"), QStringLiteral("Colours"),
               QStringLiteral("Every colour is a token that the active table gives a value. Click a swatch to copy its name."), 100,
               [] { return new ColoursPage; }});

} // namespace
