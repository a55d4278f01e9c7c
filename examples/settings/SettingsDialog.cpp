#include "SettingsDialog.h"

#include "FolderCheck.h"
#include "TableSelector.h"

#include <Velmora/QCSlider.h>
#include <Velmora/QcCheckBox.h>
#include <Velmora/QcDoubleSpinBox.h>
#include <Velmora/QcLabel.h>
#include <Velmora/QcLineEdit.h>
#include <Velmora/QcLineEditFrame.h>
#include <Velmora/QcMenu.h>
#include <Velmora/QcMenuTextButton.h>
#include <Velmora/QcSelector.h>
#include <Velmora/QcSpinBox.h>
#include <Velmora/QcStackedWidget.h>
#include <Velmora/QcSwitchButton.h>
#include <Velmora/QcTertiaryButton.h>
#include <Velmora/QcTextEditFrame.h>
#include <Velmora/QcToastManager.h>

#include <QButtonGroup>
#include <QDir>
#include <QGridLayout>
#include <QLocale>
#include <QRegularExpression>
#include <QTextEdit>
#include <QVBoxLayout>

using namespace Velmora;

SettingsDialog::SettingsDialog(QWidget *parent)
    : QcDialog(parent)
    , m_folderCheck(new FolderCheck(this))
{
    MakeFrame();
    MakeUserPage();
    MakeStoragePage();
    MakeNoticesPage();
    MakeMenu();
    connect(m_folderCheck, &FolderCheck::Finished, this, [this](int count, int unreadable) {
        QcToastManager::getInstance()->showToast(tr("%n file(s) read, %1 of them in vain.", nullptr, count).arg(unreadable),
                                                 unreadable > 0 ? QcToast::Warning : QcToast::Success, this, false);
    });
    connect(m_folderCheck, &FolderCheck::Cancelled, this,
            [this] { QcToastManager::getInstance()->showToast(tr("Cancelled."), QcToast::Information, this, false); });
    SetSettings(Settings());
    ShowPage(0);
    m_name->setFocus();
}

void SettingsDialog::MakeFrame()
{
    setTitle(tr("Settings"));
    setWindowTitle(tr("Settings"));
    setBottomFrameVisible(true);
    setOkButtonText(tr("&Save"));
    setCancelButtonText(tr("&Cancel"));
    resize(620, 460);

    auto *content = new QHBoxLayout(getContentFrame());
    content->setContentsMargins(16, 16, 16, 0);
    content->setSpacing(24);
    m_chooser = new QVBoxLayout;
    m_chooser->setSpacing(4);
    content->addLayout(m_chooser);
    m_pageButtons = new QButtonGroup(this);
    m_pages = new QcStackedWidget;
    content->addWidget(m_pages, 1);
    connect(m_pageButtons, &QButtonGroup::idClicked, m_pages, &QcStackedWidget::setCurrentIndex);
}

void SettingsDialog::MakeMenu()
{
    auto *menu = new QcMenu(this);
    auto *defaults = menu->addQcAction(tr("&Restore Defaults"));
    connect(defaults, &QAction::triggered, this, [this] { SetSettings(Settings()); });
    auto *check = menu->addQcAction(tr("&Check Folder"));
    connect(check, &QAction::triggered, this, &SettingsDialog::CheckFolder);

    auto *more = new QcMenuTextButton;
    more->setText(tr("M&ore"));
    more->setMenu(menu);
    more->setAutoDefault(false);
    m_chooser->addStretch();
    m_chooser->addWidget(more);
}

QGridLayout *SettingsDialog::AddPage(const QString &title)
{
    auto *page = new QWidget;
    const int index = m_pages->addWidget(page);
    auto *button = new QcTertiaryButton;
    button->setText(title);
    button->setCheckable(true);
    button->setAutoDefault(false); // Enter saves
    button->setMinimumWidth(120);
    m_pageButtons->addButton(button, index);
    m_chooser->addWidget(button);

    auto *form = new QGridLayout(page);
    form->setContentsMargins(0, 0, 0, 0);
    form->setHorizontalSpacing(16);
    form->setVerticalSpacing(12);
    form->setColumnStretch(1, 1);
    return form;
}

QLabel *SettingsDialog::AddField(QGridLayout *form, const QString &title, QWidget *field, Qt::Alignment alignment)
{
    auto *label = new QcLabel;
    label->setType(QcLabel::Body);
    label->setText(title);
    label->setMinimumHeight(24);
    label->setBuddy(field);
    field->setAccessibleName(QString(title).remove(QLatin1Char('&')));
    const int row = form->rowCount();
    form->addWidget(label, row, 0);
    form->addWidget(field, row, 1, alignment);
    return label;
}

QcLineEditFrame *SettingsDialog::AddLine(QGridLayout *form, const QString &title)
{
    auto *field = new QcLineEditFrame;
    AddField(form, title, field);
    return field;
}

void SettingsDialog::MakeUserPage()
{
    QGridLayout *form = AddPage(tr("&User"));
    m_name = AddLine(form, tr("&Name"));
    Require(m_name, tr("Enter a name"), [](const QString &text) { return !text.trimmed().isEmpty(); });

    m_mail = AddLine(form, tr("&E-mail"));
    m_mail->setPlaceholderText(tr("None"));
    Require(m_mail, tr("An address looks like anna@example.org"), [](const QString &text) {
        static const QRegularExpression address(QStringLiteral("^[^@\\s]+@[^@\\s]+$"));
        return text.isEmpty() || address.match(text).hasMatch();
    });

    m_language = new QcSelector;
    m_language->addItem(tr("English"), QStringLiteral("en"));
    m_language->addItem(tr("French"), QStringLiteral("fr"));
    m_language->addItem(tr("German"), QStringLiteral("de"));
    AddField(form, tr("L&anguage"), m_language);

    m_look = new Examples::TableSelector;
    AddField(form, tr("&Look"), m_look);

    m_remarks = new QcTextEditFrame;
    m_remarks->setMaxLength(kLongestRemarks);
    m_remarks->getTextEdit()->setTabChangesFocus(true);
    form->setAlignment(AddField(form, tr("&Remarks"), m_remarks), Qt::AlignTop);
}

void SettingsDialog::MakeStoragePage()
{
    QGridLayout *form = AddPage(tr("S&torage"));
    m_folder = AddLine(form, tr("&Folder"));
    m_folder->setPlaceholderText(tr("None"));
    Require(m_folder, tr("There is no such folder"), [](const QString &text) { return text.isEmpty() || QDir(text).exists(); });

    m_timeout = AddLine(form, tr("Ti&me-out"));
    m_timeout->setUnit(tr("s"));
    m_timeout->setValidator(1, 600, 0); // puts wrong numbers right by itself

    m_keepDays = new QcSpinBox;
    m_keepDays->setRange(1, 365);
    m_keepDays->setSuffix(tr(" days"));
    AddField(form, tr("&Keep"), m_keepDays);

    m_limit = new QcDoubleSpinBox;
    m_limit->bSetBorder(true);
    m_limit->setRange(0.5, 100);
    m_limit->setSingleStep(0.5);
    m_limit->setSuffix(tr(" GB"));
    AddField(form, tr("&At most"), m_limit);

    m_autoSave = new QcSwitchButton;
    AddField(form, tr("Save &by itself"), m_autoSave, Qt::AlignLeft | Qt::AlignVCenter);
    form->setRowStretch(form->rowCount(), 1);
}

void SettingsDialog::MakeNoticesPage()
{
    QGridLayout *form = AddPage(tr("Not&ices"));
    m_tellErrors = new QcCheckBox;
    m_tellErrors->setText(tr("&Errors"));
    m_tellUpdates = new QcCheckBox;
    m_tellUpdates->setText(tr("U&pdates"));
    auto *kinds = new QWidget;
    auto *column = new QVBoxLayout(kinds);
    column->setContentsMargins(0, 5, 0, 0);
    column->addWidget(m_tellErrors);
    column->addWidget(m_tellUpdates);
    form->setAlignment(AddField(form, tr("Tell me of"), kinds), Qt::AlignTop);

    m_sound = new QcSwitchButton;
    AddField(form, tr("Soun&d"), m_sound, Qt::AlignLeft | Qt::AlignVCenter);
    m_volume = new QCSlider;
    m_volume->setRange(0, 100);
    AddField(form, tr("&Volume"), m_volume);
    form->setRowStretch(form->rowCount(), 1);
    connect(m_sound, &QAbstractButton::toggled, m_volume, &QWidget::setEnabled);
}

// The kit warns of nothing by itself. A warning comes at the end of editing, and goes as soon as the text is right.
void SettingsDialog::Require(QcLineEditFrame *field, const QString &warning, std::function<bool(const QString &text)> isRight)
{
    field->setWarningText(warning);
    connect(field, &QcLineEditFrame::signalEditingFinished, field, [field, isRight] { field->setWarning(!isRight(field->getText())); });
    connect(field, &QcLineEditFrame::signalTextChanged, field, [field, isRight](const QString &text) {
        if (isRight(text))
            field->setWarning(false);
    });
    m_rules.append({field, std::move(isRight), m_pages->count() - 1});
}

void SettingsDialog::SetSettings(const Settings &settings)
{
    m_name->setText(settings.name);
    m_mail->setText(settings.mail);
    m_language->setCurrentIndex(qMax(0, m_language->findData(settings.language)));
    m_look->Choose(settings.look);
    m_remarks->getTextEdit()->setPlainText(settings.remarks); // setText() would read HTML

    m_folder->setText(settings.folder);
    m_timeout->setText(QLocale().toString(settings.timeout));
    m_keepDays->setValue(settings.keepDays);
    m_limit->setValue(settings.limit);
    m_autoSave->setChecked(settings.autoSave);

    m_tellErrors->setChecked(settings.tellErrors);
    m_tellUpdates->setChecked(settings.tellUpdates);
    m_sound->setChecked(settings.sound);
    m_volume->setEnabled(settings.sound);
    m_volume->setValue(settings.volume);
    for (const Rule &rule : qAsConst(m_rules))
        rule.field->setWarning(false);
}

Settings SettingsDialog::GetSettings() const
{
    Settings settings;
    settings.name = m_name->getText();
    settings.mail = m_mail->getText();
    settings.language = m_language->currentData().toString();
    settings.look = m_look->Chosen();
    settings.remarks = m_remarks->getText();

    settings.folder = m_folder->getText();
    settings.timeout = m_timeout->valueInt();
    settings.keepDays = m_keepDays->value();
    settings.limit = m_limit->value();
    settings.autoSave = m_autoSave->isChecked();

    settings.tellErrors = m_tellErrors->isChecked();
    settings.tellUpdates = m_tellUpdates->isChecked();
    settings.sound = m_sound->isChecked();
    settings.volume = m_volume->value();
    return settings;
}

void SettingsDialog::ShowPage(int index)
{
    m_pages->setCurrentIndex(index);
    if (QAbstractButton *button = m_pageButtons->button(index))
        button->setChecked(true);
}

void SettingsDialog::accept()
{
    const Rule *firstWrong = nullptr;
    for (const Rule &rule : qAsConst(m_rules)) {
        const bool isWrong = !rule.isRight(rule.field->getText());
        rule.field->setWarning(isWrong);
        if (isWrong && !firstWrong)
            firstWrong = &rule;
    }
    if (!firstWrong) {
        QcDialog::accept();
        return;
    }
    ShowPage(firstWrong->page);
    firstWrong->field->setFocus();
}

void SettingsDialog::CheckFolder()
{
    const QString folder = m_folder->getText();
    if (!folder.isEmpty() && QDir(folder).exists()) {
        m_folderCheck->Start(folder);
        return;
    }
    QcToastManager::getInstance()->showToast(tr("There is no folder to check."), QcToast::Error, this, false);
}
