#include "Kit.h"
#include "Page.h"
#include "Tables.h"

#include <Velmora/FileAndDesktop.h>
#include <Velmora/QCSlider.h>
#include <Velmora/QcDoubleSpinBox.h>
#include <Velmora/QcGhostButton.h>
#include <Velmora/QcPrimaryButton.h>
#include <Velmora/QcSecondaryButton.h>
#include <Velmora/QcSelector.h>
#include <Velmora/QcSpinBox.h>
#include <Velmora/QcStyleManager.h>
#include <Velmora/QcTertiaryButton.h>
#include <Velmora/QcTextLinkButton.h>

#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QFileSystemWatcher>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHash>
#include <QHeaderView>
#include <QIconEngine>
#include <QPainter>
#include <QRegularExpression>
#include <QSettings>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTime>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <functional>

using namespace Gallery;
using Velmora::QcStyleManager;

namespace {

enum Finding { Changed, Invalid, Missing, Unknown };

struct FindingInfo
{
    const char *name;
    const char *token;
};

constexpr FindingInfo kFindings[] = {
    {"Changed", "tip/info"},
    {"Invalid", "tip/danger"},
    {"Missing", "tip/warning"},
    {"Unknown", "tip/remind"},
};

struct Difference
{
    Finding finding;
    QString token;
    QString builtIn;
    QString here;
};

// A value as the file tells it, and the colour that the theme engine makes of it.
QString ValueText(const QStringList &value)
{
    return value.join(QStringLiteral(", "));
}

bool IsValid(const QStringList &value)
{
    if (value.isEmpty() || value.size() > 2 || !QColor::isValidColor(value.first()))
        return false;
    if (value.size() == 1)
        return true;
    bool isNumber = false;
    const double alpha = value.at(1).trimmed().toDouble(&isNumber);
    return isNumber && alpha >= 0.0 && alpha <= 1.0;
}

QColor ColorOf(const QStringList &value)
{
    if (!IsValid(value))
        return QColor();
    QColor color(value.first());
    if (value.size() == 2)
        color.setAlphaF(decltype(color.alphaF())(value.at(1).trimmed().toDouble()));
    return color;
}

QHash<QString, QStringList> ValuesOf(const QString &path)
{
    const QSettings file(path, QSettings::IniFormat);
    QHash<QString, QStringList> values;
    for (const QString &key : file.allKeys())
        values.insert(key, file.value(key).toStringList());
    return values;
}

QVector<Difference> Compare(const QString &path, const QString &builtIn)
{
    const QHash<QString, QStringList> ours = ValuesOf(builtIn);
    const QHash<QString, QStringList> theirs = ValuesOf(path);
    QVector<Difference> found;
    for (const QString &token : TokensOf(builtIn)) {
        const QString before = ColorText(ColorOf(ours.value(token)));
        if (!theirs.contains(token))
            found.append({Missing, token, before, QString()});
        else if (!IsValid(theirs.value(token)))
            found.append({Invalid, token, before, ValueText(theirs.value(token))});
        else if (ColorOf(theirs.value(token)) != ColorOf(ours.value(token)))
            found.append({Changed, token, before, ColorText(ColorOf(theirs.value(token)))});
    }
    for (const QString &token : TokensOf(path)) {
        if (!ours.contains(token))
            found.append({Unknown, token, QString(), ValueText(theirs.value(token))});
    }
    std::stable_sort(found.begin(), found.end(), [](const Difference &a, const Difference &b) { return a.finding > b.finding; });
    return found;
}

// A built-in table with a brand of its own, and one of each mistake that the inspector reports.
QByteArray SampleTable(Table table)
{
    struct Change
    {
        const char *token;
        const char *value;
    };
    constexpr Change changes[] = {
        {"brand/brand", "#0B8A6F"},         {"brand/brand_hover", "#12A384"},
        {"brand/brand_press", "#076B56"},   {"brand/brand_disable", "#0B8A6F, 0.4"},
        {"brand/brand_bg", "#0B8A6F, 0.2"}, {"others/focus", "#0B8A6F"},
        {"link/link", "#0B8A6F"},           {"link/link_hover", "#12A384"},
        {"link/link_visited", "#8A6E"},     {"overlay/overlay_loading", "#000000, half"},
    };
    QString text = Velmora::GetFileContent(TablePath(table));
    for (const Change &change : changes) {
        const QRegularExpression line(QStringLiteral("^%1 *=[^;\\r\\n]*").arg(QLatin1String(change.token)),
                                      QRegularExpression::MultilineOption);
        text.replace(line, QStringLiteral("%1 = %2 ").arg(QLatin1String(change.token), QLatin1String(change.value)));
    }
    text.remove(QRegularExpression(QStringLiteral("^brand/brand_tertiary *=[^\\n]*\\n"), QRegularExpression::MultilineOption));
    text += QStringLiteral("\nbrand/brand_quaternary = #3B3B3B\n");
    return text.toUtf8();
}

// An icon that is painted anew wherever it is shown, so that it is sharp on every screen.
class PaintedIcon : public QIconEngine
{
public:
    PaintedIcon(const QSize &size, const std::function<void(QPainter &)> &paint)
        : m_size(size)
        , m_paint(paint)
    {
    }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode /*mode*/, QIcon::State /*state*/) override
    {
        painter->save();
        painter->translate(rect.topLeft());
        painter->scale(double(rect.width()) / m_size.width(), double(rect.height()) / m_size.height());
        m_paint(*painter);
        painter->restore();
    }
    QSize actualSize(const QSize &size, QIcon::Mode /*mode*/, QIcon::State /*state*/) override
    {
        const bool fits = m_size.boundedTo(size) == m_size;
        return fits ? m_size : m_size.scaled(size, Qt::KeepAspectRatio);
    }
    QIconEngine *clone() const override { return new PaintedIcon(*this); }

private:
    QSize m_size;
    std::function<void(QPainter &)> m_paint;
};

class InspectorPage : public PageWidget
{
public:
    InspectorPage()
    {
        AddSource();
        AddPreview();
        AddDifferences();
        // Editors write in more than one step, or put a new file in the old one's place: look once they are done.
        m_settle.setSingleShot(true);
        m_settle.setInterval(100);
        connect(&m_settle, &QTimer::timeout, this, [this] { LoadVersion(); });
        connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, [this] { m_settle.start(); });
        connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, [this] { m_settle.start(); });
        connect(QcStyleManager::GetInstance(), &QcStyleManager::SignalColorChanged, this, [this] { OnColorChanged(); });
        ShowExample();
    }

private:
    // --- The file ---

    void AddSource()
    {
        Card *card = AddSection(QStringLiteral("The file"),
                                QStringLiteral("Edit a colour table in your editor; each time it is saved the whole program takes it on."));
        QHBoxLayout *row = card->AddRow(kGrid);
        m_mark = new QcFrame;
        m_mark->setFixedSize(kGrid, kGrid);
        m_mark->setBorderRadius(kGrid / 2);
        row->addWidget(m_mark);
        row->addSpacing(kGrid);
        auto *words = new QVBoxLayout;
        words->setSpacing(0);
        m_name = MakeElidingLabel(QString(), QcLabel::Body);
        m_name->setObjectName(QStringLiteral("inspectorFile"));
        m_status = MakeElidingLabel(QString(), QcLabel::BodySecondary);
        words->addWidget(m_name);
        words->addWidget(m_status);
        row->addLayout(words, 1);

        m_sampleButton = AddButton<Velmora::QcPrimaryButton>(row, QStringLiteral("Follow the sample"));
        m_sampleButton->setObjectName(QStringLiteral("followSample"));
        connect(m_sampleButton, &QPushButton::clicked, this, [this] { FollowSample(); });
        m_openButton = AddButton<Velmora::QcTertiaryButton>(row, QStringLiteral("Open\u2026"));
        connect(m_openButton, &QPushButton::clicked, this, [this] { Open(); });
        m_copyButton = AddButton<Velmora::QcTertiaryButton>(row, QStringLiteral("New copy\u2026"));
        m_copyButton->setToolTip(QStringLiteral("Save the active built-in table to a file of yours and follow it"));
        connect(m_copyButton, &QPushButton::clicked, this, [this] { SaveCopy(); });
        m_folderButton = AddButton<Velmora::QcGhostButton>(row, QStringLiteral("Show in folder"));
        connect(m_folderButton, &QPushButton::clicked, this, [this] { Velmora::openDir(m_path); });
        m_stopButton = AddButton<Velmora::QcTertiaryButton>(row, QStringLiteral("Stop"));
        connect(m_stopButton, &QPushButton::clicked, this, [] { ApplyTable(LastTable()); });
    }

    template <typename Button>
    static Velmora::QcButton *AddButton(QHBoxLayout *row, const QString &text)
    {
        auto *button = new Button;
        button->setText(text);
        button->setHorizontalMargin(2 * kGrid);
        row->addWidget(button);
        return button;
    }

    void Open()
    {
        const QString path = QFileDialog::getOpenFileName(this, QStringLiteral("Open a colour table"), QString(),
                                                          QStringLiteral("Colour tables (*.ini);;All files (*)"));
        if (!path.isEmpty())
            Follow(path);
    }

    void SaveCopy()
    {
        const QString path = QFileDialog::getSaveFileName(this, QStringLiteral("Save a copy of the table"), QStringLiteral("my_theme.ini"),
                                                          QStringLiteral("Colour tables (*.ini)"));
        if (!path.isEmpty() && Write(path, Velmora::GetFileContent(TablePath(LastTable())).toUtf8()))
            Follow(path);
    }

    void FollowSample()
    {
        const QString path = m_folder.filePath(QStringLiteral("sample_theme.ini"));
        if (Write(path, SampleTable(LastTable())))
            Follow(path);
    }

    bool Write(const QString &path, const QByteArray &bytes)
    {
        QFile file(path);
        const bool written = file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(bytes) == bytes.size();
        if (!written)
            m_status->setText(QStringLiteral("Cannot write %1: %2").arg(path, file.errorString()));
        return written;
    }

    void Follow(const QString &path)
    {
        StopWatching();
        m_path = path;
        m_watcher.addPath(path);
        m_watcher.addPath(QFileInfo(path).absolutePath());
        m_lastBytes.clear();
        LoadVersion();
    }

    void StopWatching()
    {
        m_settle.stop();
        const QStringList watched = m_watcher.files() + m_watcher.directories();
        if (!watched.isEmpty())
            m_watcher.removePaths(watched);
        m_path.clear();
    }

    // The theme engine ignores the path that it has, even if the file changed: every version gets a path of its own.
    void LoadVersion()
    {
        if (m_path.isEmpty())
            return;
        QFile file(m_path);
        if (!file.open(QIODevice::ReadOnly)) {
            ShowState(QStringLiteral("Not readable now: %1. The last version stays.").arg(file.errorString()));
            return;
        }
        if (!m_watcher.files().contains(m_path))
            m_watcher.addPath(m_path); // a replaced file is a new one
        const QByteArray bytes = file.readAll();
        if (bytes == m_lastBytes)
            return;
        m_lastBytes = bytes;
        const QString version = m_folder.filePath(QStringLiteral("version_%1.ini").arg(++m_version));
        if (!Write(version, bytes))
            return;
        m_applying = true;
        QcStyleManager::GetInstance()->SetColorFilePath(version);
        m_applying = false;
        if (!m_versionPath.isEmpty())
            QFile::remove(m_versionPath);
        m_versionPath = version;
        ShowDifferences(version);
        ShowState(QStringLiteral("Followed. Version %1, taken on at %2.")
                      .arg(m_version)
                      .arg(QTime::currentTime().toString(QStringLiteral("HH:mm:ss"))));
    }

    void OnColorChanged()
    {
        if (m_applying)
            return;
        // Someone chose a built-in table, here or by the switch.
        if (!m_path.isEmpty())
            StopWatching();
        ShowExample();
    }

    // Nothing is followed: the sample is inspected, to show what a report looks like, but not taken on.
    void ShowExample()
    {
        const QString path = m_folder.filePath(QStringLiteral("example.ini"));
        if (!Write(path, SampleTable(LastTable())))
            return;
        ShowDifferences(path);
        ShowState(QString());
    }

    void ShowState(const QString &status)
    {
        const bool following = !m_path.isEmpty();
        m_name->setText(following ? m_path : QStringLiteral("No file is followed"));
        m_status->setText(following ? status : QStringLiteral("Below: what the sample would change."));
        m_mark->setBackgroundColorParams(following ? QStringLiteral("tip/success") : QStringLiteral("icon/icon_tertiary"));
        m_sampleButton->setVisible(!following);
        m_openButton->setVisible(!following);
        m_copyButton->setVisible(!following);
        m_folderButton->setVisible(following);
        m_stopButton->setVisible(following);
    }

    // --- The preview ---

    void AddPreview()
    {
        Card *card = AddSection(QStringLiteral("Preview"));
        QHBoxLayout *row = card->AddRow(4 * kGrid);

        auto *words = new QVBoxLayout;
        words->setSpacing(kGrid / 2);
        words->addWidget(MakeElidingLabel(QStringLiteral("Shipment 4471"), QcLabel::Headline));
        words->addWidget(MakeElidingLabel(QStringLiteral("Rotterdam to Gothenburg, 12 pallets"), QcLabel::Body));
        words->addWidget(MakeElidingLabel(QStringLiteral("Booked by Ines on 3 March"), QcLabel::BodySecondary));
        words->addWidget(MakeElidingLabel(QStringLiteral("Last change 14:05"), QcLabel::Hint));
        words->addStretch();
        row->addLayout(words, 2);

        auto *notices = new QVBoxLayout;
        notices->setSpacing(kGrid);
        struct Notice
        {
            const char *token;
            const char *text;
        };
        for (const Notice &notice : {Notice{"tip/success", "Customs cleared"}, Notice{"tip/warning", "Two documents missing"},
                                     Notice{"tip/danger", "Berth closed on Friday"}}) {
            auto *frame = new QcFrame;
            frame->setBackgroundColorParams(QStringLiteral("${%1, 0.12}").arg(QLatin1String(notice.token)));
            frame->setBorderColorParams(QLatin1String(notice.token));
            frame->setBorderSides(QcFrame::Left | QcFrame::Top | QcFrame::Right | QcFrame::Bottom);
            frame->setBorderRadius(4);
            auto *inside = new QHBoxLayout(frame);
            inside->setContentsMargins(kGrid, kGrid / 2, kGrid, kGrid / 2);
            inside->addWidget(MakeElidingLabel(QLatin1String(notice.text), QcLabel::Body));
            notices->addWidget(frame);
        }
        notices->addStretch();
        row->addLayout(notices, 2);

        auto *buttons = new QVBoxLayout;
        buttons->setSpacing(kGrid);
        auto *first = new QHBoxLayout;
        first->setSpacing(kGrid);
        AddButton<Velmora::QcPrimaryButton>(first, QStringLiteral("Confirm"));
        AddButton<Velmora::QcSecondaryButton>(first, QStringLiteral("Change"));
        AddButton<Velmora::QcTertiaryButton>(first, QStringLiteral("Cancel"));
        first->addStretch();
        auto *second = new QHBoxLayout;
        second->setSpacing(kGrid);
        AddButton<Velmora::QcPrimaryButton>(second, QStringLiteral("Locked"))->setEnabled(false);
        AddButton<Velmora::QcGhostButton>(second, QStringLiteral("Later"));
        AddButton<Velmora::QcTextLinkButton>(second, QStringLiteral("Papers"));
        second->addStretch();
        buttons->addLayout(first);
        buttons->addLayout(second);
        buttons->addStretch();
        row->addLayout(buttons, 3);
        card->Body()->addLayout(MakeFields());
    }

    static QGridLayout *MakeFields()
    {
        auto *grid = new QGridLayout;
        grid->setHorizontalSpacing(2 * kGrid);
        grid->setVerticalSpacing(kGrid / 2);
        auto *consignee = new Field;
        consignee->setPlaceholderText(QStringLiteral("Who gets the shipment"));
        AddField(grid, "Consignee", consignee);
        auto *port = new Velmora::QcSelector;
        port->addItems({QStringLiteral("Gothenburg"), QStringLiteral("Hamburg"), QStringLiteral("Rotterdam")});
        AddField(grid, "Port", port);
        auto *pallets = new Velmora::QcSpinBox;
        pallets->setValue(12);
        AddField(grid, "Pallets", pallets);
        auto *weight = new Velmora::QcDoubleSpinBox;
        weight->bSetBorder(true);
        weight->setSuffix(QStringLiteral(" t"));
        weight->setValue(4.25);
        AddField(grid, "Weight", weight);
        auto *filled = new Velmora::QCSlider;
        filled->setValue(60);
        AddField(grid, "Filled", filled);
        return grid;
    }

    static void AddField(QGridLayout *grid, const char *name, QWidget *field)
    {
        const int column = grid->count() / 2;
        grid->addWidget(MakeLabel(QLatin1String(name), QcLabel::BodySecondary), 0, column);
        field->setAccessibleName(QLatin1String(name));
        field->setFixedHeight(qMax(3 * kGrid, field->minimumHeight()));
        field->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        grid->addWidget(field, 1, column);
        grid->setColumnStretch(column, 1);
    }

    // --- The differences ---

    void AddDifferences()
    {
        Card *card = AddSection(QStringLiteral("Against the built-in table"),
                                QStringLiteral("An invalid value paints as an invalid colour, mostly black; a missing token resolves as an "
                                               "unknown name. Both are easy to miss in a file and hard to miss here."));
        QHBoxLayout *row = card->AddRow(4 * kGrid);
        for (int i = 0; i < 4; ++i) {
            auto *count = new QVBoxLayout;
            count->setSpacing(0);
            m_counts[i] = MakeLabel(QStringLiteral("0"), QcLabel::Headline);
            count->addWidget(m_counts[i]);
            auto *under = new QHBoxLayout;
            under->setSpacing(kGrid);
            auto *dot = new QcFrame;
            dot->setFixedSize(8, 8);
            dot->setBorderRadius(4);
            dot->setBackgroundColorParams(QLatin1String(kFindings[i].token));
            under->addWidget(dot);
            under->addWidget(MakeLabel(QLatin1String(kFindings[i].name), QcLabel::BodySecondary));
            under->addStretch();
            count->addLayout(under);
            row->addLayout(count);
        }
        row->addStretch();

        m_table = new QTableWidget(0, 4);
        m_table->setObjectName(QStringLiteral("inspectorTable"));
        m_table->setAccessibleName(QStringLiteral("Differences"));
        m_table->setHorizontalHeaderLabels(
            {QStringLiteral("Finding"), QStringLiteral("Token"), QStringLiteral("Built in"), QStringLiteral("In the file")});
        m_table->setIconSize(QSize(32, 16));
        m_table->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff); // the page scrolls
        StyleTable(m_table);
        m_table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
        card->Body()->addWidget(m_table);
    }

    void ShowDifferences(const QString &path)
    {
        const QString builtIn = TablePath(LastTable());
        const QHash<QString, QStringList> ours = ValuesOf(builtIn);
        const QHash<QString, QStringList> theirs = ValuesOf(path);
        const QVector<Difference> found = Compare(path, builtIn);
        int counts[4] = {};
        m_table->setRowCount(int(found.size()));
        for (int row = 0; row < found.size(); ++row) {
            const Difference &difference = found.at(row);
            ++counts[difference.finding];
            const FindingInfo &info = kFindings[difference.finding];
            m_table->setItem(row, 0, new QTableWidgetItem(Dot(TokenColor(QLatin1String(info.token))), QLatin1String(info.name)));
            m_table->setItem(row, 1, new QTableWidgetItem(difference.token));
            m_table->setItem(row, 2,
                             MakeValueItem(ours.contains(difference.token), ColorOf(ours.value(difference.token)), difference.builtIn));
            m_table->setItem(row, 3,
                             MakeValueItem(theirs.contains(difference.token), ColorOf(theirs.value(difference.token)), difference.here));
        }
        for (int i = 0; i < 4; ++i)
            m_counts[i]->setText(QString::number(counts[i]));
        m_table->setFixedHeight(m_table->horizontalHeader()->height() + int(found.size()) * m_table->verticalHeader()->defaultSectionSize()
                                + 2);
    }

    static QTableWidgetItem *MakeValueItem(bool present, const QColor &color, const QString &text)
    {
        if (!present)
            return new QTableWidgetItem(QStringLiteral("\u2013"));
        const auto paint = [color](QPainter &painter) { PaintColor(painter, QRectF(0, 0, 32, 16), 3, color); };
        return new QTableWidgetItem(QIcon(new PaintedIcon(QSize(32, 16), paint)), text);
    }

    static QIcon Dot(const QColor &color)
    {
        return QIcon(new PaintedIcon(QSize(16, 16), [color](QPainter &painter) {
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(Qt::NoPen);
            painter.setBrush(color);
            painter.drawEllipse(QRectF(0, 4, 8, 8));
        }));
    }

    QTemporaryDir m_folder;
    QFileSystemWatcher m_watcher;
    QTimer m_settle;
    QString m_path; // of the followed file; empty while none is
    QString m_versionPath;
    QByteArray m_lastBytes;
    int m_version = 0;
    bool m_applying = false;
    QcFrame *m_mark = nullptr;
    QcLabel *m_name = nullptr;
    QcLabel *m_status = nullptr;
    Velmora::QcButton *m_sampleButton = nullptr;
    Velmora::QcButton *m_openButton = nullptr;
    Velmora::QcButton *m_copyButton = nullptr;
    Velmora::QcButton *m_folderButton = nullptr;
    Velmora::QcButton *m_stopButton = nullptr;
    QcLabel *m_counts[4] = {};
    QTableWidget *m_table = nullptr;
};

const PageRegistrar
    registrar({QStringLiteral("inspector"), QStringLiteral("Tools"), QStringLiteral("Theme inspector"),
               QStringLiteral("Follows a colour table while you edit it, and says what differs, what is wrong and what is missing."), 910,
               [] { return new InspectorPage; }});

} // namespace
