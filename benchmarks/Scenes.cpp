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

namespace Bench {

namespace {

constexpr QSize kButtonSize(110, 32);
constexpr int kIconPixels = 32; // a button of the library draws its icon as high as itself
constexpr int kRadius = 4;
constexpr int kColumns = 25;
constexpr int kMostIdleTurns = 10000;

QString applicationStyleSheet;

QString Caption(int index)
{
    return QStringLiteral("Button %1").arg(index);
}

QString ButtonSheet(const QHash<QString, QColor> &colors)
{
    return QStringLiteral("QPushButton { background: %1; color: %2; border: none; border-radius: %3px; }")
        .arg(colors.value(QStringLiteral("brand/brand")).name(), colors.value(QStringLiteral("text/text_button")).name())
        .arg(kRadius);
}

class VelmoraButtonScene : public VelmoraScene
{
public:
    std::unique_ptr<QWidget> MakeWidget(int index) override
    {
        auto button = std::make_unique<Counted<Velmora::QcPrimaryButton>>();
        button->setFixedSize(kButtonSize);
        button->setText(Caption(index));
        button->SetIconPath(IconPath(index));
        return button;
    }
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
    std::unique_ptr<QWidget> MakeWidget(int index) override
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

std::unique_ptr<QWidget> MakePlainButton(int index)
{
    auto button = std::make_unique<Counted<QPushButton>>();
    button->setFixedSize(kButtonSize);
    button->setIconSize(QSize(kIconPixels, kIconPixels));
    button->setText(Caption(index));
    button->setIcon(QIcon(IconPath(index)));
    return button;
}

class ApplicationSheetScene : public Scene
{
public:
    ApplicationSheetScene() { qApp->setStyleSheet(ButtonSheet(m_tables.Active())); }
    ~ApplicationSheetScene() override { qApp->setStyleSheet(QString()); }

    std::unique_ptr<QWidget> MakeWidget(int index) override { return MakePlainButton(index); }
    void SwitchTheme() override
    {
        m_tables.Switch();
        qApp->setStyleSheet(ButtonSheet(m_tables.Active()));
    }

private:
    TwoTables m_tables;
};

class SheetOnEachButtonScene : public SheetOnEachScene
{
protected:
    std::unique_ptr<QWidget> MakePlain(int index) override { return MakePlainButton(index); }
    QString Sheet(const QHash<QString, QColor> &colors) const override { return ButtonSheet(colors); }
};

class PaletteScene : public Scene
{
public:
    PaletteScene() { QApplication::setPalette(ThemedPalette()); }
    ~PaletteScene() override { QApplication::setPalette(m_before); }

    std::unique_ptr<QWidget> MakeWidget(int index) override { return MakePlainButton(index); }
    void SwitchTheme() override
    {
        m_tables.Switch();
        QApplication::setPalette(ThemedPalette());
    }

private:
    QPalette ThemedPalette() const
    {
        QPalette palette = m_before;
        palette.setColor(QPalette::Button, m_tables.Active().value(QStringLiteral("brand/brand")));
        palette.setColor(QPalette::ButtonText, m_tables.Active().value(QStringLiteral("text/text_button")));
        return palette;
    }

    TwoTables m_tables;
    QPalette m_before = QApplication::palette();
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

VelmoraScene::VelmoraScene()
{
    Velmora::QcStyleManager::GetInstance()->SetColorFilePath(TablePath(Table::Light));
    qApp->setStyleSheet(applicationStyleSheet);
}

VelmoraScene::~VelmoraScene()
{
    qApp->setStyleSheet(QString());
}

void VelmoraScene::SwitchTheme()
{
    m_isDark = !m_isDark;
    Velmora::QcStyleManager::GetInstance()->SetColorFilePath(TablePath(m_isDark ? Table::Dark : Table::Light));
}

std::unique_ptr<QWidget> SheetOnEachScene::MakeWidget(int index)
{
    auto widget = MakePlain(index);
    widget->setStyleSheet(Sheet(m_tables.Active()));
    m_widgets.emplace_back(widget.get());
    return widget;
}

void SheetOnEachScene::SwitchTheme()
{
    m_tables.Switch();
    const QString sheet = Sheet(m_tables.Active());
    for (const QPointer<QWidget> &widget : m_widgets) {
        if (widget)
            widget->setStyleSheet(sheet);
    }
}

std::unique_ptr<Scene> MakeScene(Kind kind)
{
    switch (kind) {
    case Kind::Velmora:
        return std::make_unique<VelmoraButtonScene>();
    case Kind::BarePainter:
        return std::make_unique<BarePainterScene>();
    case Kind::ApplicationSheet:
        return std::make_unique<ApplicationSheetScene>();
    case Kind::SheetOnEach:
        return std::make_unique<SheetOnEachButtonScene>();
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
        grid->addWidget(scene.MakeWidget(i).release(), i / kColumns, i % kColumns); // the window's child
    return window;
}

std::unique_ptr<QWidget> ShowWindow(Scene &scene, int count)
{
    auto window = MakeWindow(scene, count);
    Counters::Reset();
    window->show();
    RunUntilPainted(count);
    Settle();
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
