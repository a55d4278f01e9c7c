#include "Scenes.h"

#include <Velmora/QcPrimaryButton.h>
#include <Velmora/QcStyleManager.h>

#include <QApplication>
#include <QGridLayout>
#include <QIcon>
#include <QPainter>
#include <QPushButton>
#include <QSettings>

#include <array>
#include <utility>
#include <vector>

namespace Bench {

namespace {

constexpr QSize kButtonSize(110, 32);
constexpr int kIconPixels = 32; // a button of the library draws its icon as high as itself
constexpr int kRadius = 4;
constexpr int kColumns = 25;
constexpr int kMostIdleTurns = 10000;

QString applicationStyleSheet;

/// \a Base, counting what a theme switch costs it.
template <typename Base>
class Counted : public Base
{
public:
    using Base::Base;

protected:
    bool event(QEvent *event) override
    {
        if (event->type() == QEvent::StyleChange)
            ++Counters::Get().styleChanges;
        return Base::event(event);
    }
    void paintEvent(QPaintEvent *event) override
    {
        ++Counters::Get().paints;
        Base::paintEvent(event);
    }
};

QString Caption(int index)
{
    return QStringLiteral("Button %1").arg(index);
}

/// The colours of a scene without the library, in the two tables by turns.
class TwoTables
{
public:
    const QHash<QString, QColor> &Active() const { return m_dark ? m_darkColors : m_lightColors; }
    void Switch() { m_dark = !m_dark; }

    QString ButtonSheet() const
    {
        return QStringLiteral("QPushButton { background: %1; color: %2; border: none; border-radius: %3px; }")
            .arg(Active().value(QStringLiteral("brand/brand")).name(), Active().value(QStringLiteral("text/text_button")).name())
            .arg(kRadius);
    }
    QPalette Palette() const
    {
        QPalette palette = m_systemPalette;
        palette.setColor(QPalette::Button, Active().value(QStringLiteral("brand/brand")));
        palette.setColor(QPalette::ButtonText, Active().value(QStringLiteral("text/text_button")));
        return palette;
    }

private:
    QHash<QString, QColor> m_lightColors = TableColors(Table::Light);
    QHash<QString, QColor> m_darkColors = TableColors(Table::Dark);
    QPalette m_systemPalette = QApplication::palette();
    bool m_dark = false;
};

// --- The library ---

class VelmoraScene : public Scene
{
public:
    VelmoraScene()
    {
        Velmora::QcStyleManager::GetInstance()->SetColorFilePath(TablePath(Table::Light));
        qApp->setStyleSheet(applicationStyleSheet);
    }
    ~VelmoraScene() override { qApp->setStyleSheet(QString()); }

    std::unique_ptr<QWidget> MakeButton(int index) override
    {
        auto button = std::make_unique<Counted<Velmora::QcPrimaryButton>>();
        button->setFixedSize(kButtonSize);
        button->setText(Caption(index));
        button->SetIconPath(IconPath(index));
        return button;
    }
    void SwitchTheme() override
    {
        m_dark = !m_dark;
        Velmora::QcStyleManager::GetInstance()->SetColorFilePath(TablePath(m_dark ? Table::Dark : Table::Light));
    }

private:
    bool m_dark = false;
};

// --- The bare painter ---

class BareButton : public QWidget
{
public:
    BareButton(const TwoTables &tables, QHash<QString, QPixmap> &icons, QString text, QString iconPath)
        : m_tables(tables)
        , m_icons(icons)
        , m_text(std::move(text))
        , m_iconPath(std::move(iconPath))
    {
        QFont font;
        font.setPixelSize(12);
        setFont(font);
    }

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(m_tables.Active().value(QStringLiteral("brand/brand")));
        painter.drawRoundedRect(rect(), kRadius, kRadius);

        painter.setPen(m_tables.Active().value(QStringLiteral("text/text_button")));
        painter.setFont(font());
        const int textWidth = painter.fontMetrics().horizontalAdvance(m_text);
        const int x = (width() - (textWidth + kIconPixels)) / 2;
        painter.drawPixmap(QRect(x, (height() - kIconPixels) / 2, kIconPixels, kIconPixels), Icon());
        painter.drawText(QRect(x + kIconPixels, 0, textWidth, height()), Qt::AlignVCenter, m_text);
    }

private:
    const QPixmap &Icon()
    {
        QPixmap &icon = m_icons[m_iconPath];
        if (icon.isNull())
            icon = QIcon(m_iconPath).pixmap(kIconPixels, kIconPixels);
        return icon;
    }

    const TwoTables &m_tables;
    QHash<QString, QPixmap> &m_icons;
    QString m_text;
    QString m_iconPath;
};

class BarePainterScene : public Scene
{
public:
    std::unique_ptr<QWidget> MakeButton(int index) override
    {
        auto button = std::make_unique<Counted<BareButton>>(m_tables, m_icons, Caption(index), IconPath(index));
        button->setFixedSize(kButtonSize);
        m_buttons.emplace_back(button.get());
        return button;
    }
    void SwitchTheme() override
    {
        m_tables.Switch();
        for (const QPointer<QWidget> &button : m_buttons) {
            if (button)
                button->update();
        }
    }

private:
    TwoTables m_tables;
    QHash<QString, QPixmap> m_icons;
    std::vector<QPointer<QWidget>> m_buttons;
};

// --- QPushButton ---

class PlainScene : public Scene
{
public:
    std::unique_ptr<QWidget> MakeButton(int index) override
    {
        auto button = std::make_unique<Counted<QPushButton>>();
        button->setFixedSize(kButtonSize);
        button->setIconSize(QSize(kIconPixels, kIconPixels));
        button->setText(Caption(index));
        button->setIcon(QIcon(IconPath(index)));
        return button;
    }

protected:
    TwoTables m_tables;
};

class ApplicationSheetScene : public PlainScene
{
public:
    ApplicationSheetScene() { qApp->setStyleSheet(m_tables.ButtonSheet()); }
    ~ApplicationSheetScene() override { qApp->setStyleSheet(QString()); }

    void SwitchTheme() override
    {
        m_tables.Switch();
        qApp->setStyleSheet(m_tables.ButtonSheet());
    }
};

class SheetOnEachScene : public PlainScene
{
public:
    std::unique_ptr<QWidget> MakeButton(int index) override
    {
        auto button = PlainScene::MakeButton(index);
        button->setStyleSheet(m_tables.ButtonSheet());
        m_buttons.emplace_back(button.get());
        return button;
    }
    void SwitchTheme() override
    {
        m_tables.Switch();
        const QString sheet = m_tables.ButtonSheet();
        for (const QPointer<QWidget> &button : m_buttons) {
            if (button)
                button->setStyleSheet(sheet);
        }
    }

private:
    std::vector<QPointer<QWidget>> m_buttons;
};

class PaletteScene : public PlainScene
{
public:
    PaletteScene()
        : m_before(QApplication::palette())
    {
        QApplication::setPalette(m_tables.Palette());
    }
    ~PaletteScene() override { QApplication::setPalette(m_before); }

    void SwitchTheme() override
    {
        m_tables.Switch();
        QApplication::setPalette(m_tables.Palette());
    }

private:
    QPalette m_before;
};

} // namespace

QString TablePath(Table table)
{
    return table == Table::Light ? QStringLiteral(":/colors/blue_light.ini") : QStringLiteral(":/colors/blue_dark.ini");
}

QHash<QString, QColor> TableColors(Table table)
{
    QHash<QString, QColor> colors;
    const QSettings settings(TablePath(table), QSettings::IniFormat);
    const QStringList keys = settings.allKeys();
    for (const QString &key : keys) {
        const QStringList parts = settings.value(key).toStringList();
        QColor color(parts.value(0));
        if (parts.size() == 2)
            color.setAlphaF(parts.at(1).toDouble());
        colors.insert(key, color);
    }
    return colors;
}

void RememberApplicationStyleSheet()
{
    applicationStyleSheet = qApp->styleSheet();
    qApp->setStyleSheet(QString());
}

Counters &Counters::Get()
{
    static Counters counters;
    return counters;
}

Scene::~Scene() = default;

std::unique_ptr<Scene> MakeScene(Kind kind)
{
    switch (kind) {
    case Kind::Velmora:
        return std::make_unique<VelmoraScene>();
    case Kind::BarePainter:
        return std::make_unique<BarePainterScene>();
    case Kind::ApplicationSheet:
        return std::make_unique<ApplicationSheetScene>();
    case Kind::SheetOnEach:
        return std::make_unique<SheetOnEachScene>();
    case Kind::Palette:
        return std::make_unique<PaletteScene>();
    }
    return nullptr;
}

QString IconPath(int index)
{
    static const std::array<const char *, kDistinctIcons> names = {"close",    "max",       "min",      "select",  "arrow_down",
                                                                   "arrow_up", "next_page", "pre_page", "success", "warning"};
    return QStringLiteral(":/images/%1.svg").arg(QLatin1String(names.at(std::size_t(index) % names.size())));
}

std::unique_ptr<QWidget> MakeWindow(Scene &scene, int count)
{
    auto window = std::make_unique<QWidget>();
    auto *grid = new QGridLayout(window.get());
    grid->setSpacing(2);
    for (int i = 0; i < count; ++i)
        grid->addWidget(scene.MakeButton(i).release(), i / kColumns, i % kColumns); // the window's child
    return window;
}

void Settle()
{
    for (int i = 0; i < 3; ++i) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
}

void RunUntilPainted(long paints)
{
    for (int idle = 0; Counters::Get().paints < paints; ++idle) {
        if (idle == kMostIdleTurns)
            qFatal("%ld paints came where %ld were due", Counters::Get().paints, paints);
        QCoreApplication::processEvents();
    }
    for (long before = -1; before != Counters::Get().paints;) {
        before = Counters::Get().paints;
        QCoreApplication::processEvents();
    }
}

} // namespace Bench
