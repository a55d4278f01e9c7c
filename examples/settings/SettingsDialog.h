#pragma once

#include "Settings.h"

#include <Velmora/QcDialog.h>

#include <QVector>

#include <functional>

QT_BEGIN_NAMESPACE
class QButtonGroup;
class QGridLayout;
class QLabel;
class QVBoxLayout;
QT_END_NAMESPACE

namespace Velmora {
class QCSlider;
class QcCheckBox;
class QcDoubleSpinBox;
class QcLineEditFrame;
class QcSelector;
class QcSpinBox;
class QcStackedWidget;
class QcSwitchButton;
class QcTextEditFrame;
} // namespace Velmora

namespace Examples {
class TableSelector;
} // namespace Examples

class FolderCheck;

/// Three pages of settings. Save accepts once every field is right; else the first wrong one shows with its warning.
class SettingsDialog : public Velmora::QcDialog
{
    Q_OBJECT

public:
    static constexpr int kPages = 3;

    explicit SettingsDialog(QWidget *parent = nullptr);

    void SetSettings(const Settings &settings);
    /// What the fields hold now.
    Settings GetSettings() const;
    void ShowPage(int index);

    void accept() override;

private:
    /// A field that a text can be wrong in.
    struct Rule
    {
        Velmora::QcLineEditFrame *field;
        std::function<bool(const QString &text)> isRight;
        int page;
    };

    void MakeFrame();
    void MakeMenu();
    QGridLayout *AddPage(const QString &title);
    Velmora::QcLineEditFrame *AddLine(QGridLayout *form, const QString &title);
    QLabel *AddField(QGridLayout *form, const QString &title, QWidget *field, Qt::Alignment alignment = {});
    void MakeUserPage();
    void MakeStoragePage();
    void MakeNoticesPage();
    void Require(Velmora::QcLineEditFrame *field, const QString &warning, std::function<bool(const QString &text)> isRight);
    void CheckFolder();

    QVBoxLayout *m_chooser;
    QButtonGroup *m_pageButtons;
    Velmora::QcStackedWidget *m_pages;
    QVector<Rule> m_rules;
    FolderCheck *m_folderCheck;

    Velmora::QcLineEditFrame *m_name;
    Velmora::QcLineEditFrame *m_mail;
    Velmora::QcSelector *m_language;
    Examples::TableSelector *m_look;
    Velmora::QcTextEditFrame *m_remarks;

    Velmora::QcLineEditFrame *m_folder;
    Velmora::QcLineEditFrame *m_timeout;
    Velmora::QcSpinBox *m_keepDays;
    Velmora::QcDoubleSpinBox *m_limit;
    Velmora::QcSwitchButton *m_autoSave;

    Velmora::QcCheckBox *m_tellErrors;
    Velmora::QcCheckBox *m_tellUpdates;
    Velmora::QcSwitchButton *m_sound;
    Velmora::QCSlider *m_volume;
};
