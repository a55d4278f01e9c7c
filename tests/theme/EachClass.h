#pragma once

#include <Velmora/Velmora.h>

#include <QWidget>

#include <functional>

namespace VelmoraTest {

using Make = std::function<QWidget *(QWidget *page)>;

/// What a class makes that a user may reach with the Tab key.
struct Case
{
    const char *className;
    Make make;
};

template <typename Control>
QWidget *New(QWidget *page)
{
    return new Control(page);
}

template <typename Button>
QWidget *NewButton(QWidget *page)
{
    auto *button = new Button(page);
    button->setText(QStringLiteral("Text"));
    return button;
}

inline QWidget *NewText(QWidget *page)
{
    auto *text = new Velmora::QcMultiLineText(page);
    text->setText(QStringLiteral("Some words and <a href=\"x\">a link</a> and more"));
    return text;
}

inline QWidget *NewHandle(QWidget *page)
{
    auto *splitter = new Velmora::QcSplitter(Qt::Horizontal, page);
    splitter->addWidget(new QWidget);
    splitter->addWidget(new QWidget);
    return splitter;
}

inline QWidget *NewTab(QWidget *page)
{
    auto *tab = new Velmora::QcDockAreaTabBarButton(page);
    tab->setText(QStringLiteral("Tab"));
    tab->setChecked(true);
    return tab;
}

/// Each control of the kit that Tab reaches.
inline const Case kKit[] = {
    {"QcButton", NewButton<Velmora::QcButton>},
    {"QcGhostButton", NewButton<Velmora::QcGhostButton>},
    {"QcHighlightButton", NewButton<Velmora::QcHighlightButton>},
    {"QcIconButton", New<Velmora::QcIconButton>},
    {"QcPrimaryButton", NewButton<Velmora::QcPrimaryButton>},
    {"QcSecondaryButton", NewButton<Velmora::QcSecondaryButton>},
    {"QcTertiaryButton", NewButton<Velmora::QcTertiaryButton>},
    {"QcTextButton", NewButton<Velmora::QcTextButton>},
    {"QcTextLinkButton", NewButton<Velmora::QcTextLinkButton>},
    {"QcSwitchButton", New<Velmora::QcSwitchButton>},
    {"QcToolButton", New<Velmora::QcToolButton>},
    {"QcToolColorButton", New<Velmora::QcToolColorButton>},
    {"QcCombinedToolButton", New<Velmora::QcCombinedToolButton>},
    {"QcMenuTextButton", NewButton<Velmora::QcMenuTextButton>},
    {"QcMenuToolButton", New<Velmora::QcMenuToolButton>},
    {"QcCheckBox", NewButton<Velmora::QcCheckBox>},
    {"QcRadioButton", NewButton<Velmora::QcRadioButton>},
    {"QcLineEdit", New<Velmora::QcLineEdit>},
    {"QcLineEditFrame", New<Velmora::QcLineEditFrame>},
    {"QcTextEditFrame", New<Velmora::QcTextEditFrame>},
    {"QcTextEditLimiter", New<Velmora::QcTextEditLimiter>},
    {"QcSpinBox", New<Velmora::QcSpinBox>},
    {"QcDoubleSpinBox", New<Velmora::QcDoubleSpinBox>},
    {"QcSelector", New<Velmora::QcSelector>},
    {"QCSlider", New<Velmora::QCSlider>},
    {"QcMultiLineText", NewText},
    {"QcSplitter", NewHandle},
    {"QcDockAreaTabBarButton", NewTab},
};

} // namespace VelmoraTest
