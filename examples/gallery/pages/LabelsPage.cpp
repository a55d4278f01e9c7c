#include "Kit.h"
#include "Page.h"
#include "Tables.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

using namespace Gallery;

namespace {

struct Style
{
    QcLabel::LabelType type;
    const char *name;
    const char *facts;
    const char *sample;
};

constexpr Style kStyles[] = {
    {QcLabel::Display, "Display", "Roboto Bold 28, text_primary", "Quarterly review"},
    {QcLabel::Headline, "Headline", "Roboto Bold 20, text_primary", "Orders by region"},
    {QcLabel::Subtitle, "Subtitle", "Open Sans Medium 16, text_primary", "Three shipments wait for approval"},
    {QcLabel::SubtitleSecondary, "SubtitleSecondary", "Open Sans Medium 16, text_secondary", "Last changed by Maren, an hour ago"},
    {QcLabel::Caption, "Caption", "Roboto Bold 14, text_caption", "Delivery address"},
    {QcLabel::CaptionSmall, "CaptionSmall", "Roboto Bold 12, text_caption", "Invoice number"},
    {QcLabel::Body, "Body", "Open Sans Medium 12, text_primary", "The goods leave on Thursday morning."},
    {QcLabel::BodySecondary, "BodySecondary", "Open Sans Medium 12, text_secondary", "Prices are without tax."},
    {QcLabel::Hint, "Hint", "Open Sans Medium 10, text_tertairy", "Saved 14:05"},
};

class LabelsPage : public PageWidget
{
public:
    LabelsPage()
    {
        AddStyles();
        AddEliding();
        AddIcons();
    }

private:
    void AddStyles()
    {
        Card *card = AddSection(
            QStringLiteral("Nine styles"),
            QStringLiteral("Each style is a family, a size and a token. A disabled label takes text_disabled, whatever its style."));
        auto *grid = new QGridLayout;
        grid->setHorizontalSpacing(3 * kGrid);
        grid->setVerticalSpacing(2 * kGrid);
        grid->setColumnStretch(0, 4);
        grid->setColumnStretch(1, 4);
        grid->setColumnStretch(2, 3);
        int column = 0;
        for (const char *head : {"Enabled", "Disabled", "Style"})
            grid->addWidget(MakeLabel(QLatin1String(head), QcLabel::CaptionSmall), 0, column++);
        grid->addWidget(MakeDivider(), 1, 0, 1, 3);
        int row = 2;
        for (const Style &style : kStyles) {
            grid->addWidget(MakeElidingLabel(QLatin1String(style.sample), style.type), row, 0);
            QcLabel *disabled = MakeElidingLabel(QLatin1String(style.sample), style.type);
            disabled->setEnabled(false);
            grid->addWidget(disabled, row, 1);
            auto *facts = new QVBoxLayout;
            facts->setSpacing(0);
            facts->addWidget(MakeElidingLabel(QLatin1String(style.name), QcLabel::Body));
            facts->addWidget(MakeElidingLabel(QLatin1String(style.facts), QcLabel::Hint));
            grid->addLayout(facts, row, 2);
            grid->setRowMinimumHeight(row, 5 * kGrid);
            ++row;
        }
        card->Body()->addLayout(grid);
    }

    void AddEliding()
    {
        Card *card =
            AddSection(QStringLiteral("Eliding"), QStringLiteral("A label is one line. What does not fit is elided at the right."));
        const QString text = QStringLiteral("Container MSKU 740 1285 is due at berth 14 on Friday, and the customs papers are complete.");
        auto *box = new QcFrame;
        box->setBackgroundColorParams(QStringLiteral("bg/bg_bottom"));
        box->setBorderRadius(kGrid / 2);
        auto *inside = new QVBoxLayout(box);
        inside->setContentsMargins(2 * kGrid, 2 * kGrid, 2 * kGrid, 2 * kGrid);
        inside->setSpacing(kGrid);
        for (const QcLabel::LabelType type : {QcLabel::Subtitle, QcLabel::CaptionSmall, QcLabel::Body, QcLabel::Hint})
            inside->addWidget(MakeElidingLabel(text, type));
        constexpr int kStart = 480;
        box->setFixedWidth(kStart);
        auto *width = new SliderRow(QStringLiteral("Width"), 120, 860, kStart);
        connect(width, &SliderRow::SignalValueChanged, box, [box](int value) { box->setFixedWidth(value); });
        card->Body()->addWidget(width);
        card->Body()->addWidget(box, 0, Qt::AlignLeft);
    }

    void AddIcons()
    {
        Card *card = AddSection(QStringLiteral("Icons"),
                                QStringLiteral("Without a text a label shows an icon at its own size, in the colour of a token."));
        struct Icon
        {
            const char *path;
            const char *token;
        };
        constexpr Icon icons[] = {
            {":/images/select.svg", "brand/brand"},
            {":/images/close.svg", "icon/icon_secondary"},
            {":/images/loading.svg", "tip/info"},
            {":/images/arrow_right.svg", "icon/icon_primary"},
            {":/images/last_page.svg", "icon/icon_toolbar"},
            {":/images/dock/tab_close.svg", "tip/danger"},
        };
        auto *grid = new QGridLayout;
        grid->setHorizontalSpacing(3 * kGrid);
        grid->setVerticalSpacing(2 * kGrid);
        int column = 0;
        for (const Icon &icon : icons) {
            auto *row = new QHBoxLayout;
            row->setSpacing(2 * kGrid);
            for (const int side : {16, 24, 48}) {
                auto *label = new QcLabel;
                label->setFixedSize(side, side);
                label->SetIconPath(QLatin1String(icon.path));
                label->SetIconColorParams(QLatin1String(icon.token));
                label->setAccessibleName(QLatin1String(icon.path));
                row->addWidget(label);
            }
            row->addStretch();
            grid->addLayout(row, 0 + 2 * (column / 3), column % 3);
            grid->addWidget(MakeElidingLabel(QLatin1String(icon.token), QcLabel::BodySecondary), 1 + 2 * (column / 3), column % 3);
            grid->setColumnStretch(column % 3, 1);
            ++column;
        }
        card->Body()->addLayout(grid);
    }
};

const PageRegistrar registrar({QStringLiteral("labels"), QStringLiteral("Display"), QStringLiteral("Labels"),
                               QStringLiteral("QcLabel: nine text styles, one elided line, or an icon that fills the label."), 210,
                               [] { return new LabelsPage; }});

} // namespace
