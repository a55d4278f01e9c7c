#include "Kit.h"
#include "Page.h"

#include <Velmora/QcLineEdit.h>
#include <Velmora/QcLineEditFrame.h>
#include <Velmora/QcPrimaryButton.h>

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLocale>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <QVector>

#include <functional>

using namespace Gallery;
using Velmora::QcLineEditFrame;

namespace {

constexpr int kLabelWidth = 14 * kGrid;
constexpr int kFieldWidth = 38 * kGrid;
constexpr int kLogLines = 6;
const QString kClearIcon = QStringLiteral(":/images/close.svg");

enum class Look { Rest, Hover, Focus, Warning, Disabled };
constexpr const char *kLookNames[] = {"Rest", "Hover", "Focus", "Warning", "Disabled"};

/// A real field held in one look.
QcLineEditFrame *MakeHeld(Look look)
{
    auto *field = new QcLineEditFrame;
    field->setAttribute(Qt::WA_UnderMouse, look == Look::Hover);
    field->setProperty("objectPropertyFocus", look == Look::Focus);
    field->setWarning(look == Look::Warning);
    field->setEnabled(look != Look::Disabled);
    return field;
}

/// A field of the form, and what is wrong with its text: nothing, or a warning.
struct Entry
{
    Field *field;
    std::function<QString(const QString &)> complain;
};

class LineEditsPage : public PageWidget
{
public:
    LineEditsPage()
    {
        AddForm();
        AddMatrix();
    }

private:
    // --- The form ---

    void AddForm()
    {
        Card *card = AddSection(QStringLiteral("A form that validates"),
                                QStringLiteral("Type a wrong value, or book with a field left empty. Enter and Tab end editing: a number "
                                               "is then written anew, and one out of range gives way to the last good one."));
        QHBoxLayout *columns = card->AddRow(6 * kGrid);
        m_form = new QGridLayout;
        m_form->setHorizontalSpacing(2 * kGrid);
        m_form->setVerticalSpacing(2 * kGrid);
        columns->addLayout(m_form);
        columns->addWidget(MakeLog(), 1);

        const auto present = [](const QString &text) { return text.trimmed().isEmpty() ? QStringLiteral("Missing") : QString(); };
        Field *consignee = AddField(QStringLiteral("Consignee"), QStringLiteral("Who gets the container"), present);
        consignee->setButtonIconPath(kClearIcon);
        NameButton(consignee, QStringLiteral("Clear the consignee"));
        connect(consignee, &QcLineEditFrame::signalButtonClicked, this, [consignee] {
            consignee->clear();
            consignee->setFocus();
        });
        AddField(QStringLiteral("E-mail"), QStringLiteral("name@example.com"), [](const QString &text) {
            const int at = int(text.indexOf(QLatin1Char('@')));
            return at > 0 && at < text.size() - 1 ? QString() : QStringLiteral("Not an address");
        });
        AddNumber(QStringLiteral("Weight"), QStringLiteral("kg"), 0, 30480, 0, 18600);
        AddNumber(QStringLiteral("Temperature"), QStringLiteral("\u00B0C"), -30, 30, 1, -18);

        auto *book = new Velmora::QcPrimaryButton;
        book->setText(QStringLiteral("&Book"));
        book->setObjectName(QStringLiteral("bookContainer"));
        book->setHorizontalMargin(3 * kGrid);
        connect(book, &QAbstractButton::clicked, this, &LineEditsPage::Book);
        m_answer = MakeElidingLabel(QStringLiteral("Nothing booked yet"), QcLabel::BodySecondary);
        auto *last = new QHBoxLayout;
        last->setSpacing(2 * kGrid);
        last->addWidget(book);
        last->addWidget(m_answer, 1);
        m_form->addLayout(last, m_form->rowCount(), 1);
    }

    /// The last signals of the form's fields, the latest at the bottom.
    QWidget *MakeLog()
    {
        auto *box = new QcFrame;
        box->setBackgroundColorParams(QStringLiteral("bg/bg_bottom"));
        box->setBorderRadius(kGrid / 2);
        auto *column = new QVBoxLayout(box);
        column->setContentsMargins(2 * kGrid, 2 * kGrid, 2 * kGrid, 2 * kGrid);
        column->setSpacing(kGrid / 2);
        column->addWidget(MakeLabel(QStringLiteral("Signals"), QcLabel::CaptionSmall));
        for (int i = 0; i < kLogLines; ++i) {
            m_log.append(MakeElidingLabel(QString(), QcLabel::BodySecondary));
            column->addWidget(m_log.last());
        }
        m_log.first()->setText(QStringLiteral("None yet"));
        column->addStretch();
        return box;
    }

    void Log(const QString &field, const QString &signal)
    {
        const QString line = QStringLiteral("%1: %2").arg(field, signal);
        if (m_logged < kLogLines) {
            m_log.at(m_logged++)->setText(line);
            return;
        }
        for (int i = 0; i + 1 < kLogLines; ++i)
            m_log.at(i)->setText(m_log.at(i + 1)->text());
        m_log.last()->setText(line);
    }

    Field *AddField(const QString &name, const QString &placeholder, const std::function<QString(const QString &)> &complain)
    {
        auto *field = new Field;
        field->setObjectName(name.toLower());
        field->setFixedWidth(kFieldWidth);
        field->setAccessibleName(name);
        field->setPlaceholderText(placeholder);
        QcLabel *label = MakeLabel(QLatin1Char('&') + name, QcLabel::Body);
        label->setFixedWidth(kLabelWidth);
        label->setBuddy(field);
        const int row = m_form->rowCount();
        m_form->addWidget(label, row, 0);
        m_form->addWidget(field, row, 1);
        m_entries.append({field, complain});
        connect(field, &QcLineEditFrame::signalTextChanged, this, [this, name, index = m_entries.size() - 1](const QString &text) {
            Check(m_entries.at(index));
            Log(name, QStringLiteral("signalTextChanged(\"%1\")").arg(text));
        });
        connect(field, &QcLineEditFrame::signalEditingFinished, this,
                [this, name] { Log(name, QStringLiteral("signalEditingFinished()")); });
        connect(field, &QcLineEditFrame::signalButtonClicked, this, [this, name] { Log(name, QStringLiteral("signalButtonClicked()")); });
        return field;
    }

    void AddNumber(const QString &name, const QString &unit, int min, int max, int decimals, int value)
    {
        const QLocale locale;
        const QString range = QStringLiteral("%1 to %2 %3").arg(locale.toString(min), locale.toString(max), unit);
        Field *field = AddField(name, range, [min, max, range](const QString &text) {
            bool isNumber = false;
            const double number = QLocale().toDouble(text, &isNumber);
            return isNumber && min <= number && number <= max ? QString() : range;
        });
        field->setUnit(unit);
        field->setAlignment(Qt::AlignRight);
        field->setValidator(min, max, decimals);
        const QSignalBlocker quiet(field); // not yet a matter of the log
        field->setText(locale.toString(double(value), 'f', decimals));
    }

    static void NameButton(const QcLineEditFrame *field, const QString &name)
    {
        if (auto *button = field->findChild<QAbstractButton *>())
            button->setToolTip(name);
    }

    /// True if nothing is wrong.
    static bool Check(const Entry &entry)
    {
        const QString complaint = entry.complain(entry.field->getText());
        entry.field->setWarningText(complaint);
        entry.field->setWarning(!complaint.isEmpty());
        return complaint.isEmpty();
    }

    void Book()
    {
        Field *first = nullptr;
        for (const Entry &entry : qAsConst(m_entries)) {
            if (!Check(entry) && !first)
                first = entry.field;
        }
        m_answer->setText(first ? QStringLiteral("Please mend what is marked")
                                : QStringLiteral("Booked for %1").arg(m_entries.first().field->getText()));
        if (first)
            first->setFocus();
    }

    // --- The states ---

    void AddMatrix()
    {
        Card *card = AddSection(QStringLiteral("States"));
        m_grid = new QGridLayout;
        m_grid->setHorizontalSpacing(2 * kGrid);
        m_grid->setVerticalSpacing(2 * kGrid);
        for (int column = 0; column < 5; ++column) {
            m_grid->addWidget(MakeLabel(QLatin1String(kLookNames[column]), QcLabel::BodySecondary), 0, column + 1);
            m_grid->setColumnStretch(column + 1, 1);
        }
        m_grid->setColumnMinimumWidth(0, kLabelWidth);
        m_grid->addWidget(MakeDivider(), 1, 0, 1, 6);
        AddRow(QStringLiteral("Text"), [](QcLineEditFrame &field) { field.setText(QStringLiteral("Rotterdam")); });
        AddRow(QStringLiteral("Placeholder"), [](QcLineEditFrame &field) { field.setPlaceholderText(QStringLiteral("Port of call")); });
        AddRow(QStringLiteral("With unit"), [](QcLineEditFrame &field) {
            field.setText(QStringLiteral("12.2"));
            field.setUnit(QStringLiteral("m"));
        });
        AddRow(QStringLiteral("With button"), [](QcLineEditFrame &field) {
            field.setText(QStringLiteral("Rotterdam"));
            field.setButtonIconPath(kClearIcon);
        });
        AddRow(QStringLiteral("Unit and button"), [](QcLineEditFrame &field) {
            field.setText(QStringLiteral("12.2"));
            field.setUnit(QStringLiteral("m"));
            field.setButtonIconPath(kClearIcon);
        });
        AddRow(QStringLiteral("Right to left"), [](QcLineEditFrame &field) {
            field.setLayoutDirection(Qt::RightToLeft);
            field.setText(QStringLiteral("\u05E8\u05D5\u05D8\u05E8\u05D3\u05DD"));
            field.setUnit(QStringLiteral("\u05DE\u05F3"));
            field.setButtonIconPath(kClearIcon);
        });
        AddRow(QStringLiteral("Long text"), [](QcLineEditFrame &field) {
            field.setText(QStringLiteral("Antwerp, Rotterdam, Bremerhaven, Hamburg, Gdynia"));
            field.getLineEdit()->setCursorPosition(0);
        });
        card->Body()->addLayout(m_grid);
    }

    template <typename Fill>
    void AddRow(const QString &name, const Fill &fill)
    {
        const int row = m_grid->rowCount();
        m_grid->addWidget(MakeLabel(name, QcLabel::Body), row, 0);
        for (int column = 0; column < 5; ++column) {
            QcLineEditFrame *field = MakeHeld(Look(column));
            field->setAccessibleName(QStringLiteral("%1, %2").arg(name, QLatin1String(kLookNames[column])));
            fill(*field);
            NameButton(field, QStringLiteral("Clear"));
            MakeSpecimen(field);
            m_grid->addWidget(field, row, column + 1);
        }
    }

    QGridLayout *m_form = nullptr;
    QGridLayout *m_grid = nullptr;
    QVector<Entry> m_entries;
    QVector<QcLabel *> m_log;
    int m_logged = 0;
    QcLabel *m_answer = nullptr;
};

const PageRegistrar
    registrar({QStringLiteral("lineedits"), QStringLiteral("Inputs"), QStringLiteral("Line edits"),
               QStringLiteral("QcLineEditFrame: a line of text with a unit, a button and a warning, and numbers that are checked."), 330,
               [] { return new LineEditsPage; }});

} // namespace
