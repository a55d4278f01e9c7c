#include "Kit.h"
#include "Page.h"

#include <Velmora/QcArrowTipGlobal.h>
#include <Velmora/QcSecondaryButton.h>
#include <Velmora/QcStyleManager.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QLayout>
#include <QVBoxLayout>

using namespace Gallery;
using Velmora::QcArrowTip;
using Velmora::QcArrowTipGlobal;
using Velmora::QcStyleManager;
using Velmora::TipInfo;

namespace {

struct Side
{
    QcArrowTip::TriangleDirection direction;
    const char *name;
    const char *text;
};

constexpr Side kSides[] = {
    {QcArrowTip::Right, "Left of it", "Back"},
    {QcArrowTip::Bottom, "Above", "Saves the order and tells the customer"},
    {QcArrowTip::Top, "Below", "Prints two copies"},
    {QcArrowTip::Left, "Right of it", "On to the <b>next</b> order"},
};

TipInfo InfoOf(const Side &side)
{
    TipInfo info;
    info.text = QLatin1String(side.text);
    info.textColorParams = QStringLiteral("base/neutral/neutral"); // stands out on the bubble in every table
    info.direction = side.direction;
    return info;
}

Velmora::QcButton *MakeTarget(const QString &text, const TipInfo &info)
{
    auto *button = new Velmora::QcSecondaryButton;
    button->setText(text);
    button->setFixedSize(14 * kGrid, 4 * kGrid);
    QcArrowTipGlobal::instance()->registerWidget(button, info);
    return button;
}

QPixmap PictureOf(const TipInfo &info)
{
    QWidget reference;
    QcArrowTip tip;
    tip.setAttribute(Qt::WA_DontShowOnScreen);
    tip.setReferenceWidget(&reference);
    tip.setText(info.text);
    tip.setMaxWidth(info.maxWidth);
    tip.setTextColorParams(info.textColorParams);
    tip.setTriangleDirection(info.direction);
    tip.show();
    tip.layout()->activate(); // the text has its height by now
    return tip.grab();
}

/// A picture of the tip that \a info brings up, for a page that nobody hovers over.
QLabel *MakePicture(const TipInfo &info)
{
    auto *picture = new QLabel;
    picture->setAccessibleName(info.text);
    QcStyleManager::GetInstance()->RegisterColorHandler(picture, [picture, info] { picture->setPixmap(PictureOf(info)); });
    return picture;
}

class ArrowTipPage : public PageWidget
{
public:
    ArrowTipPage()
    {
        AddSides();
        AddWidths();
    }

private:
    void AddSides()
    {
        Card *card =
            AddSection(QStringLiteral("On all sides"),
                       QStringLiteral("Hover over a button. Its tip stays beside it while the window moves, and goes with the mouse."));
        QHBoxLayout *row = card->AddRow(4 * kGrid);
        row->addStretch();
        for (const Side &side : kSides) {
            const TipInfo info = InfoOf(side);
            auto *column = new QVBoxLayout;
            column->setSpacing(2 * kGrid);
            column->addWidget(MakePicture(info), 1, Qt::AlignCenter);
            column->addWidget(MakeTarget(QLatin1String(side.name), info), 0, Qt::AlignHCenter);
            row->addLayout(column);
        }
        row->addStretch();
    }

    void AddWidths()
    {
        Card *card = AddSection(QStringLiteral("Width and colour"),
                                QStringLiteral("A short text makes a narrow tip; a longer one wraps at the maximum width. The text has the "
                                               "colour of a token."));
        QHBoxLayout *row = card->AddRow(4 * kGrid);
        row->addStretch();
        const QString text = QStringLiteral("The tide is two hours late; the pilot comes aboard at half past nine.");
        for (const int width : {60, 100, 160, 260}) {
            TipInfo info = InfoOf(kSides[1]);
            info.text = text;
            info.maxWidth = width;
            if (width == 260)
                info.textColorParams = QStringLiteral("base/red/red-60");
            auto *column = new QVBoxLayout;
            column->setSpacing(2 * kGrid);
            column->addWidget(MakePicture(info), 1, Qt::AlignHCenter | Qt::AlignBottom);
            column->addWidget(MakeTarget(QStringLiteral("%1 pixels").arg(width), info), 0, Qt::AlignHCenter);
            row->addLayout(column);
        }
        row->addStretch();
    }
};

const PageRegistrar registrar({QStringLiteral("arrowtip"), QStringLiteral("Feedback"), QStringLiteral("Arrow tips"),
                               QStringLiteral("QcArrowTip and QcArrowTipGlobal: a bubble that points at what it explains."), 500,
                               [] { return new ArrowTipPage; }});

} // namespace
