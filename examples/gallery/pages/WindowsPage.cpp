#include "Kit.h"
#include "Page.h"

#include <Velmora/ModalDialogs.h>
#include <Velmora/QcDialog.h>
#include <Velmora/QcMaskFrame.h>
#include <Velmora/QcPrimaryButton.h>
#include <Velmora/QcSecondaryButton.h>
#include <Velmora/QcWindow.h>

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

using namespace Gallery;
using Velmora::QcButton;
using Velmora::QcDialog;
using Velmora::QcMaskFrame;
using Velmora::QcPrimaryButton;
using Velmora::QcSecondaryButton;
using Velmora::QcWindow;

namespace {

constexpr int kSpecimenHeight = 24 * kGrid;

void FillContent(QFrame *content, const QString &title, const QString &text)
{
    auto *column = new QVBoxLayout(content);
    column->setContentsMargins(2 * kGrid, 2 * kGrid, 2 * kGrid, 2 * kGrid);
    column->setSpacing(kGrid);
    column->addWidget(MakeLabel(title, QcLabel::Subtitle));
    column->addWidget(MakeParagraph(text));
    column->addStretch();
}

/// Lets a window stand in the page.
template <typename Window>
Window *AsPart(Window *window)
{
    window->setWindowFlags(Qt::Widget);
    window->setFixedHeight(kSpecimenHeight);
    return window;
}

template <typename Button>
Button *MakeAction(const QString &text, const QString &name)
{
    auto *button = new Button;
    button->setText(text);
    button->setObjectName(name);
    button->setHorizontalMargin(2 * kGrid);
    return button;
}

class WindowsPage : public PageWidget
{
public:
    WindowsPage()
    {
        AddLive();
        AddWindows();
        AddDialogs();
        AddVeil();
    }

private:
    void AddLive()
    {
        Card *card =
            AddSection(QStringLiteral("Try it"),
                       QStringLiteral("Drag the title row with any mouse button. A double click there maximises a window, and does "
                                      "nothing to a dialog. Enter and Escape answer a dialog."));
        QHBoxLayout *row = card->AddRow(2 * kGrid);
        auto *window = MakeAction<QcSecondaryButton>(QStringLiteral("Open a &window"), QStringLiteral("openWindow"));
        auto *dialog = MakeAction<QcSecondaryButton>(QStringLiteral("Open a &dialog"), QStringLiteral("openDialog"));
        auto *question = MakeAction<QcPrimaryButton>(QStringLiteral("Ask over a &veil"), QStringLiteral("askOverVeil"));
        m_answer = MakeElidingLabel(QStringLiteral("No answer yet"), QcLabel::BodySecondary);
        row->addWidget(window);
        row->addWidget(dialog);
        row->addWidget(question);
        row->addWidget(m_answer, 1);
        connect(window, &QcButton::clicked, this, &WindowsPage::OpenWindow);
        connect(dialog, &QcButton::clicked, this, &WindowsPage::OpenDialog);
        connect(question, &QcButton::clicked, this, &WindowsPage::AskOverVeil);
    }

    void OpenWindow()
    {
        auto *window = new QcWindow(this);
        window->setAttribute(Qt::WA_DeleteOnClose);
        window->setWindowTitle(QStringLiteral("Velmora window"));
        window->setTitle(QStringLiteral("A window of its own"));
        FillContent(window->getContentFrame(), QStringLiteral("Content"),
                    QStringLiteral("This frame is the host's: it brings the layout."));
        window->showToCenter(this);
    }

    void OpenDialog()
    {
        auto *dialog = new QcDialog(this);
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        dialog->setWindowTitle(QStringLiteral("Velmora dialog"));
        dialog->setTitle(QStringLiteral("A dialog"));
        dialog->resize(440, 280);
        FillContent(dialog->getContentFrame(), QStringLiteral("Content"), QStringLiteral("The margin around the panel is its shadow's."));
        dialog->showToCenter(this);
    }

    void AskOverVeil()
    {
        QWidget *host = window();
        QcMaskFrame veil(host);
        veil.setGeometry(host->rect());
        veil.show();
        QcDialog dialog(host);
        dialog.setWindowTitle(QStringLiteral("Velmora question"));
        dialog.setTitle(QStringLiteral("Leave without saving?"));
        dialog.setBottomFrameVisible(true);
        dialog.setOkButtonText(QStringLiteral("&Leave"));
        dialog.setCancelButtonText(QStringLiteral("&Stay"));
        dialog.resize(420, 240);
        FillContent(dialog.getContentFrame(), QStringLiteral("Three letters have changed"),
                    QStringLiteral("What was typed since the last save is lost."));
        const int answer = Velmora::exec(&dialog, this);
        m_answer->setText(answer == QDialog::Accepted ? QStringLiteral("You left") : QStringLiteral("You stayed"));
    }

    void AddWindows()
    {
        Card *card = AddSection(QStringLiteral("QcWindow"),
                                QStringLiteral("A title row of 40 pixels over a content frame, without a system frame. "
                                               "Each title button can be hidden."));
        QHBoxLayout *row = card->AddRow(2 * kGrid);
        auto *plain = AsPart(new QcWindow(nullptr));
        plain->setTitle(QStringLiteral("Letters"));
        FillContent(plain->getContentFrame(), QStringLiteral("Content"), QStringLiteral("All three buttons."));
        auto *bare = AsPart(new QcWindow(nullptr));
        bare->setTitle(QStringLiteral("A title too long for its row gives way to the button at its end, and elides there"));
        bare->setMinButtonVisible(false);
        bare->setMaxRestoreButtonVisible(false);
        FillContent(bare->getContentFrame(), QStringLiteral("Content"), QStringLiteral("Only the close button, and a long title."));
        auto *mirrored = AsPart(new QcWindow(nullptr));
        mirrored->setTitle(QStringLiteral("\u0631\u0633\u0627\u0626\u0644"));
        FillContent(
            mirrored->getContentFrame(), QStringLiteral("\u0645\u062d\u062a\u0648\u0649"),
            QStringLiteral("\u0645\u0646 \u0627\u0644\u064a\u0645\u064a\u0646 \u0625\u0644\u0649 \u0627\u0644\u064a\u0633\u0627\u0631."));
        mirrored->setLayoutDirection(Qt::RightToLeft);
        for (QcWindow *window : {plain, bare, mirrored}) {
            window->setMinimumWidth(20 * kGrid); // less than a long title asks for: it elides
            // On a ground of its own colour a window would not show where it ends.
            window->setBorderSides(QcFrame::Left | QcFrame::Top | QcFrame::Right | QcFrame::Bottom);
            window->setBorderColorParams(QStringLiteral("border/border_tertairy"));
            MakeSpecimen(window);
            row->addWidget(window, 1);
        }
    }

    void AddDialogs()
    {
        Card *card = AddSection(
            QStringLiteral("QcDialog"),
            QStringLiteral("A panel inside its own shadow. The bottom row and the two other title buttons are hidden at first."));
        QHBoxLayout *row = card->AddRow(2 * kGrid);
        auto *plain = AsPart(new QcDialog(nullptr));
        plain->setTitle(QStringLiteral("As it begins"));
        FillContent(plain->getContentFrame(), QStringLiteral("Content"), QStringLiteral("Title, close button, content."));
        auto *full = AsPart(new QcDialog(nullptr));
        full->setTitle(QStringLiteral("With everything"));
        full->controlMinMaxBtn(true);
        full->setBottomFrameVisible(true);
        full->setOkButtonText(QStringLiteral("Save"));
        full->setCancelButtonText(QStringLiteral("Cancel"));
        FillContent(full->getContentFrame(), QStringLiteral("Content"), QStringLiteral("All buttons and the bottom row."));
        auto *own = AsPart(new QcDialog(nullptr));
        own->setTitleBarVisible(false);
        own->setBackgroundColorParams(QStringLiteral("bg/bg_float"));
        own->setBorderColorParams(QStringLiteral("brand/brand"));
        own->setBorderRadius(0);
        FillContent(own->getContentFrame(), QStringLiteral("Content"),
                    QStringLiteral("No title row, colours and a shadow radius of its own."));
        for (QcDialog *dialog : {plain, full, own}) {
            MakeSpecimen(dialog);
            row->addWidget(dialog, 1);
        }
    }

    void AddVeil()
    {
        Card *card =
            AddSection(QStringLiteral("QcMaskFrame and QcMaskWindow"),
                       QStringLiteral("A veil in the table's overlay colour, inside a window or as a window of its own. Its layout takes "
                                      "what stands on it; the right half lies under one here."));
        auto *ground = new QWidget;
        ground->setFixedHeight(12 * kGrid);
        auto *words = new QVBoxLayout(ground);
        words->addWidget(MakeLabel(QStringLiteral("What lies under a veil can be read and not be used."), QcLabel::Headline), 0,
                         Qt::AlignCenter);
        words->addWidget(MakeAction<QcPrimaryButton>(QStringLiteral("Under the veil"), QStringLiteral("underVeil")), 0, Qt::AlignCenter);
        MakeSpecimen(ground);
        auto *over = new QWidget;
        auto *halves = new QHBoxLayout(over);
        halves->setContentsMargins(0, 0, 0, 0);
        halves->addStretch(1);
        halves->addWidget(new QcMaskFrame, 1);
        auto *stack = new QGridLayout;
        stack->addWidget(ground, 0, 0);
        stack->addWidget(over, 0, 0);
        card->Body()->addLayout(stack);
    }

    QcLabel *m_answer = nullptr;
};

const PageRegistrar registrar({QStringLiteral("windows"), QStringLiteral("Windows"), QStringLiteral("Windows and dialogs"),
                               QStringLiteral("Frameless windows with a title row, dialogs in their own shadow, and veils."), 400,
                               [] { return new WindowsPage; }});

} // namespace
