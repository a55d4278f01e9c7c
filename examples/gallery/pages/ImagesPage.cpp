#include "Kit.h"
#include "Page.h"
#include "Tables.h"

#include <Velmora/FileAndDesktop.h>
#include <Velmora/QcSelector.h>
#include <Velmora/QcStyleManager.h>

#include <QAbstractButton>
#include <QButtonGroup>
#include <QDirIterator>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QImageReader>
#include <QLineEdit>
#include <QPainter>
#include <QRegularExpression>
#include <QSet>
#include <QVBoxLayout>

#include <algorithm>

using namespace Gallery;
using Velmora::ImageParams;
using Velmora::QcStyleManager;

namespace {

constexpr int kSizes[] = {16, 24, 48};

// An image stretches to the size asked for, so the caller keeps its proportions.
QSize FitInto(const QString &path, int side)
{
    return QImageReader(path).size().scaled(side, side, Qt::KeepAspectRatio);
}

void DrawImage(QPainter &painter, const QRect &place, ImageParams params)
{
    // As many pixels as the screen has there: what the call gives is of ratio 1.
    const qreal ratio = painter.device()->devicePixelRatioF();
    const QSize shown = FitInto(params.path, place.width());
    params.size = (QSizeF(shown) * ratio).toSize();
    QPixmap pixmap = QcStyleManager::GetInstance()->GetPixmap(params);
    pixmap.setDevicePixelRatio(ratio);
    painter.drawPixmap(place.x() + (place.width() - shown.width()) / 2, place.y() + (place.height() - shown.height()) / 2, pixmap);
}

// True for a drawing in black or white alone, which is meant to take a colour. Shapes of no opacity only hold its size.
bool IsPlainGlyph(const QString &path)
{
    static const QRegularExpression element(QStringLiteral("<[^>]*>"));
    static const QRegularExpression color(QStringLiteral("(?:fill|stroke)=\"(#\\w{6})\""));
    QSet<QString> found;
    auto elements = element.globalMatch(Velmora::GetFileContent(path));
    while (elements.hasNext()) {
        const QString text = elements.next().captured();
        if (text.contains(QStringLiteral("-opacity=\"0\"")))
            continue;
        auto colors = color.globalMatch(text);
        while (colors.hasNext())
            found.insert(colors.next().captured(1).toUpper());
    }
    return found.size() == 1 && (found.contains(QStringLiteral("#000000")) || found.contains(QStringLiteral("#FFFFFF")));
}

// One image in three sizes, with its name.
class ImageTile : public QWidget
{
public:
    explicit ImageTile(const QString &path)
    {
        m_params.path = path;
        setFixedHeight(10 * kGrid);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        setToolTip(path);
        setAccessibleName(path);
        QcStyleManager::GetInstance()->RegisterColorHandler(this, [this] { update(); });
    }

    // An empty token shows the image as the file draws it.
    void SetToken(const QString &token)
    {
        m_params.color = token;
        update();
    }

    // Plain glyphs in the colour of icons, as nearly every control shows them; the rest as drawn.
    void SetTokenByKind()
    {
        const bool disabled = m_params.path.endsWith(QStringLiteral("_disabled.svg"));
        if (!IsPlainGlyph(m_params.path))
            SetToken(QString());
        else
            SetToken(disabled ? QStringLiteral("icon/icon_tertiary") : QStringLiteral("icon/icon_primary"));
    }

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QPainter painter(this);
        int x = 0;
        for (const int side : kSizes) {
            DrawImage(painter, QRect(x, 3 * kGrid - side / 2, side, side), m_params);
            x += side + 2 * kGrid;
        }
        const QRect words(0, 7 * kGrid, width(), 2 * kGrid);
        const QString name = m_params.path.section(QLatin1Char('/'), -1).remove(QStringLiteral(".svg"));
        painter.setPen(TokenColor(QStringLiteral("text/text_secondary")));
        painter.drawText(words, Qt::AlignLeft | Qt::AlignVCenter, painter.fontMetrics().elidedText(name, Qt::ElideMiddle, width()));
    }

private:
    ImageParams m_params;
};

// A round button that stands for a token.
class TokenDot : public QAbstractButton
{
public:
    explicit TokenDot(const QString &token)
        : m_token(token)
    {
        setFixedSize(3 * kGrid, 3 * kGrid);
        setCursor(Qt::PointingHandCursor);
        setToolTip(token);
        setAccessibleName(token);
        setCheckable(true);
        QcStyleManager::GetInstance()->RegisterColorHandler(this, [this] { update(); });
    }

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        PaintColor(painter, QRectF(rect()).adjusted(4, 4, -4, -4), 8, TokenColor(m_token));
        if (!isChecked())
            return;
        painter.setPen(QPen(TokenColor(QStringLiteral("others/focus")), 2.0));
        painter.drawEllipse(QRectF(rect()).adjusted(1, 1, -1, -1));
    }

private:
    QString m_token;
};

// What the controls put in place of an image's placeholder colours, state by state.
struct Substitution
{
    const char *state;
    const char *first;
    const char *second;
    const char *third;
};

struct Placeholder
{
    const char *path;
    const char *colors[3]; // as they stand in the file, in the order of the tokens
    Substitution states[4];
};

constexpr Placeholder kPlaceholders[] = {
    {":/images/checkbox/checkbox_checked.svg",
     {"#FF0000", "#00FF00", nullptr},
     {{"disabled", "brand/brand_disable", "#FFFFFF", nullptr},
      {"normal", "brand/brand", "#FFFFFF", nullptr},
      {"hovered", "brand/brand_hover", "#FFFFFF", nullptr},
      {"pressed", "brand/brand_press", "#FFFFFF", nullptr}}},
    {":/images/checkbox/checkbox_half_checked.svg",
     {"#FF0000", "#00FF00", "#0000FF"},
     {{"disabled", "transparent", "border/border_secondary_disabled", "brand/brand_disable"},
      {"normal", "transparent", "border/border_primary", "brand/brand"},
      {"hovered", "brand/brand_bg", "brand/brand_hover", "brand/brand"},
      {"pressed", "brand/brand_bg", "brand/brand_press", "brand/brand"}}},
    {":/images/checkbox/checkbox_unchecked.svg",
     {"#FF0000", "#00FF00", nullptr},
     {{"disabled", "transparent", "border/border_secondary_disabled", nullptr},
      {"normal", "transparent", "border/border_primary", nullptr},
      {"hovered", "brand/brand_bg", "brand/brand_hover", nullptr},
      {"pressed", "brand/brand_bg", "brand/brand_press", nullptr}}},
    {":/images/radio/radio_check.svg",
     {"#FF0000", "#00FF00", "#0000FF"},
     {{"disabled", "transparent", "border/border_secondary_disabled", "brand/brand_disable"},
      {"normal", "transparent", "border/border_primary", "brand/brand"},
      {"hovered", "brand/brand_secondary_hover", "border/border_primary", "brand/brand"},
      {"pressed", "brand/brand_secondary_press", "border/border_primary", "brand/brand"}}},
    {":/images/radio/radio_uncheck.svg",
     {"#FF0000", "#00FF00", nullptr},
     {{"disabled", "transparent", "border/border_secondary_disabled", nullptr},
      {"normal", "transparent", "border/border_primary", nullptr},
      {"hovered", "brand/brand_secondary_hover", "border/border_primary", nullptr},
      {"pressed", "brand/brand_secondary_press", "border/border_primary", nullptr}}},
    {":/images/slider/slider_handle.svg",
     {"#005CD1", "#FFFFFF", nullptr},
     {{"disabled", "brand/brand_disable", "border/border_disable", nullptr},
      {"normal", "brand/brand", "border/border_normal", nullptr},
      {"hovered", "brand/brand_hover", "border/border_normal", nullptr},
      {"pressed", "brand/brand_press", "border/border_normal", nullptr}}},
};

ImageParams ParamsFor(const Placeholder &image, const Substitution &state)
{
    ImageParams params;
    params.path = QLatin1String(image.path);
    const char *const tokens[] = {state.first, state.second, state.third};
    for (int i = 0; i < 3; ++i) {
        if (image.colors[i] && tokens[i])
            params.mulColor.insert(QLatin1String(image.colors[i]), Velmora::ColorParams(tokens[i]));
    }
    return params;
}

QStringList ImagesBelow(const QString &folder, bool subfolders)
{
    QStringList paths;
    QDirIterator files(folder, {QStringLiteral("*.svg")}, QDir::Files,
                       subfolders ? QDirIterator::Subdirectories : QDirIterator::NoIteratorFlags);
    while (files.hasNext())
        paths.append(files.next());
    std::sort(paths.begin(), paths.end());
    return paths;
}

class ImagesPage : public PageWidget
{
public:
    ImagesPage()
    {
        AddPicker();
        AddGroup(QStringLiteral("Glyphs"), ImagesBelow(QStringLiteral(":/images"), false));
        AddGroup(QStringLiteral("Docking"), ImagesBelow(QStringLiteral(":/images/dock"), true));
        QStringList indicators;
        for (const char *folder : {"checkbox", "radio", "slider", "switch"})
            indicators += ImagesBelow(QStringLiteral(":/images/") + QLatin1String(folder), true);
        AddGroup(QStringLiteral("Indicators"), indicators);
        AddPlaceholders();
        SetTokensByKind();
    }

private:
    void AddPicker()
    {
        Card *card = AddSection(QStringLiteral("Target colour"),
                                QStringLiteral("Automatic shows plain glyphs in the tokens of icons and images of several colours as "
                                               "drawn. A token colours every shape of every image."));
        QHBoxLayout *row = card->AddRow(kGrid);
        m_choices = new QButtonGroup(this);
        auto *automatic = MakeToggle(QStringLiteral("Automatic"));
        automatic->setChecked(true);
        connect(automatic, &QAbstractButton::clicked, this, [this] {
            SetToken(QString());
            SetTokensByKind();
        });
        auto *drawn = MakeToggle(QStringLiteral("As drawn"));
        connect(drawn, &QAbstractButton::clicked, this, [this] { SetToken(QString()); });
        for (Velmora::QcButton *button : {automatic, drawn}) {
            m_choices->addButton(button);
            row->addWidget(button);
        }
        row->addSpacing(kGrid);
        for (const char *name : {"icon/icon_primary", "icon/icon_secondary", "icon/icon_toolbar", "brand/brand", "tip/success",
                                 "tip/warning", "tip/danger", "tip/info", "text/text_disabled"}) {
            const QString token = QLatin1String(name);
            auto *dot = new TokenDot(token);
            connect(dot, &QAbstractButton::clicked, this, [this, token] { SetToken(token); });
            m_choices->addButton(dot);
            row->addWidget(dot);
        }
        row->addStretch();

        m_field = new Velmora::QcSelector;
        m_field->setObjectName(QStringLiteral("imageToken"));
        m_field->setPlaceholderText(QStringLiteral("Any token or colour"));
        m_field->setAccessibleName(QStringLiteral("Target colour"));
        m_field->setFixedWidth(30 * kGrid);
        m_field->addItems(TokensOf(TablePath(Table::Light)));
        m_field->setEditable(true);
        m_field->setInsertPolicy(QComboBox::NoInsert);
        connect(m_field, &QComboBox::textActivated, this, [this](const QString &token) { SetTypedToken(token); });
        connect(m_field->lineEdit(), &QLineEdit::returnPressed, this, [this] { SetTypedToken(m_field->currentText().trimmed()); });
        row->addWidget(m_field);
    }

    void AddGroup(const QString &title, const QStringList &paths)
    {
        constexpr int kColumns = 5;
        Card *card = AddSection(QStringLiteral("%1   \u00b7   %2").arg(title).arg(paths.size()));
        auto *grid = new QGridLayout;
        grid->setHorizontalSpacing(3 * kGrid);
        grid->setVerticalSpacing(kGrid);
        for (int i = 0; i < paths.size(); ++i) {
            auto *tile = new ImageTile(paths.at(i));
            m_tiles.append(tile);
            grid->addWidget(tile, i / kColumns, i % kColumns);
        }
        for (int column = 0; column < kColumns; ++column)
            grid->setColumnStretch(column, 1);
        card->Body()->addLayout(grid);
    }

    void AddPlaceholders()
    {
        Card *card = AddSection(QStringLiteral("Placeholders"),
                                QStringLiteral("Images of several colours hold placeholders, and a control maps each to a token, state by "
                                               "state. The left column shows the file as drawn."));
        auto *grid = new QGridLayout;
        grid->setHorizontalSpacing(3 * kGrid);
        grid->setVerticalSpacing(2 * kGrid);
        int column = 0;
        for (const char *head : {"Image", "As drawn", "Disabled", "Normal", "Hovered", "Pressed", "Normal: placeholder and token"})
            grid->addWidget(MakeLabel(QLatin1String(head), QcLabel::CaptionSmall), 0, column++);
        grid->addWidget(MakeDivider(), 1, 0, 1, 7);
        int row = 2;
        for (const Placeholder &image : kPlaceholders) {
            const QString name = QString::fromLatin1(image.path).section(QLatin1Char('/'), -1);
            grid->addWidget(MakeLabel(name, QcLabel::Body), row, 0);
            ImageParams drawn;
            drawn.path = QLatin1String(image.path);
            grid->addWidget(MakePicture(drawn), row, 1);
            column = 2;
            for (const Substitution &state : image.states)
                grid->addWidget(MakePicture(ParamsFor(image, state)), row, column++);
            auto *words = new QVBoxLayout;
            words->setSpacing(0);
            const char *const tokens[] = {image.states[1].first, image.states[1].second, image.states[1].third};
            for (int i = 0; i < 3; ++i) {
                if (image.colors[i] && tokens[i])
                    words->addWidget(MakeElidingLabel(
                        QStringLiteral("%1   %2").arg(QLatin1String(image.colors[i]), QLatin1String(tokens[i])), QcLabel::BodySecondary));
            }
            grid->addLayout(words, row, 6);
            ++row;
        }
        grid->setColumnStretch(6, 1);
        card->Body()->addLayout(grid);
    }

    static Canvas *MakePicture(const ImageParams &params)
    {
        auto *picture = new Canvas(
            [params](QPainter &painter, const QRect &rect) { DrawImage(painter, QRect(0, (rect.height() - 24) / 2, 24, 24), params); });
        picture->setFixedSize(9 * kGrid, 5 * kGrid);
        return picture;
    }

    void SetTypedToken(const QString &token)
    {
        SetToken(token);
        // None of the buttons stands for what was typed.
        m_choices->setExclusive(false);
        for (QAbstractButton *button : m_choices->buttons())
            button->setChecked(false);
        m_choices->setExclusive(true);
    }

    void SetToken(const QString &token)
    {
        if (token.isEmpty())
            m_field->setCurrentIndex(-1);
        if (m_field->currentText() != token)
            m_field->setEditText(token);
        for (ImageTile *tile : qAsConst(m_tiles))
            tile->SetToken(token);
    }

    void SetTokensByKind()
    {
        for (ImageTile *tile : qAsConst(m_tiles))
            tile->SetTokenByKind();
    }

    QButtonGroup *m_choices = nullptr;
    Velmora::QcSelector *m_field = nullptr;
    QVector<ImageTile *> m_tiles;
};

const PageRegistrar registrar({QStringLiteral("images"), QStringLiteral("Foundations"), QStringLiteral("Images"),
                               QStringLiteral("Seventy drawings of one family at 16, 24 and 48 pixels, recoloured by token."), 110,
                               [] { return new ImagesPage; }});

} // namespace
